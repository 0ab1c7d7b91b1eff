#include "family_vector_products.hpp"

SMX_MODULE(DotProduct_vava)
