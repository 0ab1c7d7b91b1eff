#include "frame_driver.hpp"
#include "frame_module.hpp"

SMX_DRIVERS_WITH_SCRATCH(Invert_ma, smx::elimination_scratch(widthHeight))
