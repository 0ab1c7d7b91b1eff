#include "frame_driver.hpp"
#include "frame_module.hpp"

SMX_DRIVERS(Mul_vaca)
