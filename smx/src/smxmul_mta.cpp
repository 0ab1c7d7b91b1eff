#include "family_matrix_product.hpp"

SMX_MODULE_VIA_S2(Mul_mta, Mul_mt)
