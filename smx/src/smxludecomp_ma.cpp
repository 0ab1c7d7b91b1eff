#include "family_lu.hpp"

SMX_MODULE_VIA_COM(LUDecomp_ma, LUDecomp_m)
