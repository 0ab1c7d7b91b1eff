#include "family_copy.hpp"

SMX_MODULE(Extract_ta)
