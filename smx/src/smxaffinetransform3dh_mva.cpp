#include "family_affine.hpp"

SMX_MODULE(AffineTransform3DH_mva)
