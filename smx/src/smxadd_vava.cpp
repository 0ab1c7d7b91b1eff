#include "family_vector_arithmetic.hpp"

SMX_MODULE_VIA(Add_vava, Add_vv)
