#include "family_cholesky.hpp"

SMX_MODULE_VIA_P(CholeskyDecomp_ma, CholeskyDecomp_m)
