#include "family_transpose.hpp"

SMX_MODULE(Transpose_ma)
