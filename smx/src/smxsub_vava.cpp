#include "family_vector_arithmetic.hpp"

SMX_MODULE_VIA(Sub_vava, Sub_vv)
