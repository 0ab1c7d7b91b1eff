#include "family_lu.hpp"

SMX_MODULE(LUBackSubst_mava)
