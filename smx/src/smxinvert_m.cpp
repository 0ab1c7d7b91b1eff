#include "family_invert.hpp"

SMX_MODULE_COM(Invert_m, (InverseGeneral))
