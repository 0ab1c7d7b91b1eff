#include "family_eigen.hpp"

SMX_MODULE(EigenValuesVectorsLeft_ma)
