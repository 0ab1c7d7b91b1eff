#include "family_norms.hpp"

SMX_MODULE(Trace_m)
