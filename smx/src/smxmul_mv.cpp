#include "family_product_vector.hpp"

SMX_MODULE(Mul_mv)
