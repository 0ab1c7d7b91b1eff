#include "family_matrix_sum.hpp"

SMX_MODULE_VIA(Sub_mam, Sub_mm)
