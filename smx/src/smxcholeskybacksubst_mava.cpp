#include "family_cholesky.hpp"

SMX_MODULE(CholeskyBackSubst_mava)
