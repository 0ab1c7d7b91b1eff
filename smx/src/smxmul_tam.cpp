#include "family_matrix_product.hpp"

SMX_MODULE_VIA(Mul_tam, Mul_tm)
