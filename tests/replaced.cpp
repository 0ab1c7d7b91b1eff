// To be preloaded: a few kernels under their own names, which count their calls.
extern "C" {
#define EXPORT __attribute__((visibility("default")))
EXPORT int replaced_calls = 0;
EXPORT int ownsmxAdd_mm_32f() {
    return ++replaced_calls, 0;
}
EXPORT int ownsmxSub_mt_64f_S2() {
    return ++replaced_calls, 0;
}
EXPORT int ownsmxMul_mm_64f_S2() {
    return ++replaced_calls, 0;
}
EXPORT int ownsmxMul_tt_32f() {
    return ++replaced_calls, 0;
}
EXPORT int ownsmxLUDecomp_m_32f_S_com() {
    return ++replaced_calls, 0;
}
EXPORT int ownsmxLUDecomp_m_64f_P_com() {
    return ++replaced_calls, 0;
}
EXPORT int ownsmxInvert_m_32f_com() {
    return ++replaced_calls, 0;
}
EXPORT int ownsmxInvert_m_64f_S2_com() {
    return ++replaced_calls, 0;
}
EXPORT int ownsmxCholeskyDecomp_m_64f_P() {
    return ++replaced_calls, 0;
}
EXPORT int ownsmxCholeskyBackSubst_mv_32f() {
    return ++replaced_calls, 0;
}
}
