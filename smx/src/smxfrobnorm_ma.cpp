#include "family_norms.hpp"

SMX_MODULE(FrobNorm_ma)
