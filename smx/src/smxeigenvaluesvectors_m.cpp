#include "family_eigen.hpp"

SMX_MODULE(EigenValuesVectors_m)
