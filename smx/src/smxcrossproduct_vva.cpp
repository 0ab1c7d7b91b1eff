#include "family_vector_products.hpp"

SMX_MODULE(CrossProduct_vva)
