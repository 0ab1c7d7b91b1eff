#include "family_combinations.hpp"

SMX_MODULE_VIA(Mul_mac, Mul_mc)
