#include "family_eigen_sym.hpp"

SMX_MODULE(EigenValuesVectorsSym_ma)
