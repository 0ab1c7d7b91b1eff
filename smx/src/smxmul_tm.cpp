#include "family_matrix_product.hpp"

SMX_MODULE(Mul_tm)
