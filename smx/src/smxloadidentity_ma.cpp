#include "family_copy.hpp"

SMX_MODULE(LoadIdentity_ma)
