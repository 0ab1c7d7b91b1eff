#include "family_matrix_sum.hpp"

SMX_MODULE(Sub_tm)
