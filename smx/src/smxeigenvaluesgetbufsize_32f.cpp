#include "family_eigen_buffer.hpp"

extern "C" SMX_API SmxStatus smxEigenValuesGetBufSize_32f(int widthHeight, int *bufSize) {
    return smx::eigen_buffer_size<float, 1>(widthHeight, bufSize);
}
