#include "family_cholesky.hpp"

SMX_MODULE_VIA_PLAIN_32f(CholeskyBackSubst_mva, CholeskyBackSubst_mv)
