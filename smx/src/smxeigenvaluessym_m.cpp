#include "family_eigen_sym.hpp"

SMX_MODULE(EigenValuesSym_m)
