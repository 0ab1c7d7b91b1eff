#include "family_combinations.hpp"

SMX_MODULE(Saxpy_vava)
