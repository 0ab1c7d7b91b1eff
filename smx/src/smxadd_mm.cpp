#include "family_matrix_sum.hpp"

SMX_MODULE(Add_mm)
