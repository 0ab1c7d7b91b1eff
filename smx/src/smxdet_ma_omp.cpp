#include "frame_driver.hpp"
#include "frame_module.hpp"

SMX_DRIVERS_WITH_SCRATCH(Det_ma, smx::elimination_scratch(widthHeight))
