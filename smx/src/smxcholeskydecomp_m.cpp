#include "family_cholesky.hpp"

SMX_MODULE(CholeskyDecomp_m)
