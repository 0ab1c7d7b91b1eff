#include "family_matrix_sum.hpp"

SMX_MODULE_VIA(Sub_tama, Sub_tm)
