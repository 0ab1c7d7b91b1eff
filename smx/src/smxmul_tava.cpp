#include "family_product_vector.hpp"

SMX_MODULE_VIA_S2(Mul_tava, Mul_tv)
