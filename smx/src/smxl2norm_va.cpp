#include "family_norms.hpp"

SMX_MODULE(L2Norm_va)
