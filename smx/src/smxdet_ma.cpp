#include "family_det.hpp"

SMX_MODULE(Det_ma)
