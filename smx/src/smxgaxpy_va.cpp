#include "family_product_vector.hpp"

SMX_MODULE(Gaxpy_mva)
