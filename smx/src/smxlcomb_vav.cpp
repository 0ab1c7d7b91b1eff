#include "family_combinations.hpp"

SMX_MODULE(LComb_vav)
