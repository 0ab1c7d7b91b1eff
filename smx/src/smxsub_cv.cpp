#include "family_vector_arithmetic.hpp"

SMX_MODULE(Sub_cv)
