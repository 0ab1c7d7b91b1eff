#include "family_matrix_sum.hpp"

SMX_MODULE_VIA(Sub_mama, Sub_mm)
