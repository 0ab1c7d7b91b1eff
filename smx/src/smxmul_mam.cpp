#include "family_matrix_product.hpp"

SMX_MODULE_VIA(Mul_mam, Mul_mm)
