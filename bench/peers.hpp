// The peers that are C libraries or have types of their own, seen through one template each.
#pragma once

#define CGLM_ALL_UNALIGNED // cglm assumes 16 or 32 bytes otherwise, and records have neither
#include <cglm/cglm.h>
#include <glm/glm.hpp>
#include <lapacke.h>

#include <type_traits>

namespace bench {

// LAPACK through LAPACKE, column-major, without its test for not-a-numbers: lapack_getrf<T>(LAPACK_COL_MAJOR, ...).
#define SMX_LAPACK(name)                                                                     \
    template <class T, class... Arguments>                                                   \
    int lapack_##name(Arguments... arguments) {                                              \
        if constexpr (std::is_same_v<T, float>) return LAPACKE_s##name##_work(arguments...); \
        else return LAPACKE_d##name##_work(arguments...);                                    \
    }
SMX_LAPACK(getrf)
SMX_LAPACK(getrs)
SMX_LAPACK(potrf)
SMX_LAPACK(potrs)
SMX_LAPACK(geqrf)
SMX_LAPACK(ormqr)
SMX_LAPACK(trtrs)
SMX_LAPACK(getri)
SMX_LAPACK(syev)
SMX_LAPACK(geev)
#undef SMX_LAPACK

// GLM's column-major matrices on our rows are the transposed ones.
template <class T, int N>
using GlmMatrix = glm::mat<N, N, T>;
template <class T, int N>
using GlmVector = glm::vec<N, T>;
template <class G, class T>
G &glm_at(T *data) {
    return *reinterpret_cast<G *>(data);
}
// cglm's matrices are arrays, 4 by 4 or 3 by 3 floats.
template <class G>
G &cglm_at(float *data) {
    return *reinterpret_cast<G *>(data);
}

} // namespace bench
