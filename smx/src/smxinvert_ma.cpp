#include "family_invert.hpp"

SMX_MODULE_VIA_COM_BUT_P(Invert_ma, Invert_m)
