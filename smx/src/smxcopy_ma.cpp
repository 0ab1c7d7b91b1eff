#include "family_copy.hpp"

SMX_MODULE(Copy_ma)
