#include "family_eigen_buffer.hpp"

extern "C" SMX_API SmxStatus smxEigenValuesVectorsGetBufSize_64f(int widthHeight, int *bufSize) {
    return smx::eigen_buffer_size<double, 3>(widthHeight, bufSize);
}
