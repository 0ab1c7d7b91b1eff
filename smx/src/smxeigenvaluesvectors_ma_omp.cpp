#include "frame_driver.hpp"
#include "frame_module.hpp"

SMX_DRIVERS_WITH_SCRATCH(EigenValuesVectors_ma, smxEigenValuesVectorsGetBufSize)
