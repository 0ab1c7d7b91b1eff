#include "family_combinations.hpp"

SMX_MODULE(Mul_tc)
