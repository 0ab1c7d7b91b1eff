#include "family_vector_arithmetic.hpp"

SMX_MODULE(Add_vaca)
