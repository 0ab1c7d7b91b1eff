#include "family_vector_arithmetic.hpp"

SMX_MODULE(Mul_vac)
