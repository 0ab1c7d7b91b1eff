// Kernels that call kernels reach the one that a user has put in its place (replaced.cpp is preloaded), although the
// lanes could do their work without any call.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "members.hpp"

using namespace members;

TEST(Replaced, IsCalledForEachObject) {
    int *const calls = static_cast<int *>(dlsym(RTLD_DEFAULT, "replaced_calls"));
    ASSERT_NE(calls, nullptr);
    const struct {
        const char *member;
        int size, step;
    } cases[] = {{"smxAdd_mam_32f_L", 3, 1},
                 {"smxAdd_mama_32f_L", 4, 1},
                 {"smxSub_mata_64f_L", 3, 2},
                 {"smxSub_mat_64f_L", 5, 2},
                 {"smxMul_mama_64f_L", 4, 2},
                 {"smxMul_tat_32f_L", 3, 1},
                 {"smxLUDecomp_ma_32f", 7, 1},
                 {"smxLUDecomp_ma_32f_L", 2, 1},
                 {"smxLUDecomp_ma_64f_P", 9, 1},
                 {"smxInvert_ma_32f", 7, 1},
                 {"smxInvert_ma_64f_L", 2, 2},
                 {"smxCholeskyDecomp_ma_64f_P", 7, 1},
                 {"smxCholeskyBackSubst_mva_32f", 2, 1}};
    for (const auto &c : cases) {
        Shape shape;
        shape.size = c.size;
        shape.step = c.step;
        shape.count = 41;
        Call call(find(c.member), shape);
        *calls = 0;
        call.run();
        // This member alone has a general path of its own.
        EXPECT_EQ(*calls, std::string(c.member) == "smxSub_mata_64f_L" ? 0 : 41) << c.member;
    }
}
