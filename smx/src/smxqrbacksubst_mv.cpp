#include "family_qr.hpp"

SMX_MODULE(QRBackSubst_mv)
