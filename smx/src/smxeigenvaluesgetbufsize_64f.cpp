#include "family_eigen_buffer.hpp"

extern "C" SMX_API SmxStatus smxEigenValuesGetBufSize_64f(int widthHeight, int *bufSize) {
    return smx::eigen_buffer_size<double, 1>(widthHeight, bufSize);
}
