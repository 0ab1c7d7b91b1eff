#include "family_matrix_sum.hpp"

SMX_MODULE_VIA(Add_tam, Add_tm)
