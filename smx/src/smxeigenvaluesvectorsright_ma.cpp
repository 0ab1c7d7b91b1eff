#include "family_eigen.hpp"

SMX_MODULE(EigenValuesVectorsRight_ma)
