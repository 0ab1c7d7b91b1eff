#include "family_eigen.hpp"

SMX_MODULE(EigenValues_m)
