#include "family_lu.hpp"

SMX_MODULE_COM(LUDecomp_m, (LUGeneral))
