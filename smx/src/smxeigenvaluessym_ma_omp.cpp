#include "frame_driver.hpp"
#include "frame_module.hpp"

SMX_DRIVERS_WITH_SCRATCH(EigenValuesSym_ma, widthHeight *widthHeight)
