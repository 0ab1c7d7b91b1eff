#include "family_combinations.hpp"

SMX_MODULE_VIA(Mul_tac, Mul_tc)
