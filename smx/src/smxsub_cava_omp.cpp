#include "frame_driver.hpp"
#include "frame_module.hpp"

SMX_DRIVERS(Sub_cava)
