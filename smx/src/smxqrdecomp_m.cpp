#include "family_qr.hpp"

SMX_MODULE(QRDecomp_m)
