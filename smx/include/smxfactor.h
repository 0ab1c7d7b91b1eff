/* Factorization and solve. */
#ifndef SMXFACTOR_H
#define SMXFACTOR_H

#include "smxdefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* P A = L U. */
SMX_API SmxStatus smxLUDecomp_m_32f(const float *src, int srcStride1, int srcStride2, int *pivotIndex, float *dst,
                                    int dstStride1, int dstStride2, int widthHeight);
SMX_API SmxStatus smxLUDecomp_m_32f_P(const float *const *src, int srcRoiShift, int *pivotIndex, float *const *dst,
                                      int dstRoiShift, int widthHeight);
SMX_API SmxStatus smxLUDecomp_m_64f(const double *src, int srcStride1, int srcStride2, int *pivotIndex, double *dst,
                                    int dstStride1, int dstStride2, int widthHeight);
SMX_API SmxStatus smxLUDecomp_m_64f_P(const double *const *src, int srcRoiShift, int *pivotIndex, double *const *dst,
                                      int dstRoiShift, int widthHeight);
SMX_API SmxStatus smxLUDecomp_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, int *pivotIndex,
                                     float *dst, int dstStride0, int dstStride1, int dstStride2, int widthHeight,
                                     int count);
SMX_API SmxStatus smxLUDecomp_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0, int *pivotIndex,
                                       float *const *dst, int dstRoiShift, int dstStride0, int widthHeight, int count);
SMX_API SmxStatus smxLUDecomp_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                       int *pivotIndex, float *const *dst, int dstRoiShift, int dstStride1,
                                       int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxLUDecomp_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, int *pivotIndex,
                                     double *dst, int dstStride0, int dstStride1, int dstStride2, int widthHeight,
                                     int count);
SMX_API SmxStatus smxLUDecomp_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0, int *pivotIndex,
                                       double *const *dst, int dstRoiShift, int dstStride0, int widthHeight, int count);
SMX_API SmxStatus smxLUDecomp_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                       int *pivotIndex, double *const *dst, int dstRoiShift, int dstStride1,
                                       int dstStride2, int widthHeight, int count);

/* A x = b from the LU factors. */
SMX_API SmxStatus smxLUBackSubst_mv_32f(const float *src1, int src1Stride1, int src1Stride2, const int *pivotIndex,
                                        const float *src2, int src2Stride2, float *dst, int dstStride2,
                                        int widthHeight);
SMX_API SmxStatus smxLUBackSubst_mv_32f_P(const float *const *src1, int src1RoiShift, const int *pivotIndex,
                                          const float *const *src2, int src2RoiShift, float *const *dst,
                                          int dstRoiShift, int widthHeight);
SMX_API SmxStatus smxLUBackSubst_mv_64f(const double *src1, int src1Stride1, int src1Stride2, const int *pivotIndex,
                                        const double *src2, int src2Stride2, double *dst, int dstStride2,
                                        int widthHeight);
SMX_API SmxStatus smxLUBackSubst_mv_64f_P(const double *const *src1, int src1RoiShift, const int *pivotIndex,
                                          const double *const *src2, int src2RoiShift, double *const *dst,
                                          int dstRoiShift, int widthHeight);
SMX_API SmxStatus smxLUBackSubst_mva_32f(const float *src1, int src1Stride1, int src1Stride2, const int *pivotIndex,
                                         const float *src2, int src2Stride0, int src2Stride2, float *dst,
                                         int dstStride0, int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxLUBackSubst_mva_32f_P(const float *const *src1, int src1RoiShift, const int *pivotIndex,
                                           const float *const *src2, int src2RoiShift, int src2Stride0,
                                           float *const *dst, int dstRoiShift, int dstStride0, int widthHeight,
                                           int count);
SMX_API SmxStatus smxLUBackSubst_mva_32f_L(const float *src1, int src1Stride1, int src1Stride2, const int *pivotIndex,
                                           const float *const *src2, int src2RoiShift, int src2Stride2,
                                           float *const *dst, int dstRoiShift, int dstStride2, int widthHeight,
                                           int count);
SMX_API SmxStatus smxLUBackSubst_mva_64f(const double *src1, int src1Stride1, int src1Stride2, const int *pivotIndex,
                                         const double *src2, int src2Stride0, int src2Stride2, double *dst,
                                         int dstStride0, int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxLUBackSubst_mva_64f_P(const double *const *src1, int src1RoiShift, const int *pivotIndex,
                                           const double *const *src2, int src2RoiShift, int src2Stride0,
                                           double *const *dst, int dstRoiShift, int dstStride0, int widthHeight,
                                           int count);
SMX_API SmxStatus smxLUBackSubst_mva_64f_L(const double *src1, int src1Stride1, int src1Stride2, const int *pivotIndex,
                                           const double *const *src2, int src2RoiShift, int src2Stride2,
                                           double *const *dst, int dstRoiShift, int dstStride2, int widthHeight,
                                           int count);
SMX_API SmxStatus smxLUBackSubst_mava_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                          const int *pivotIndex, const float *src2, int src2Stride0, int src2Stride2,
                                          float *dst, int dstStride0, int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxLUBackSubst_mava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                            const int *pivotIndex, const float *const *src2, int src2RoiShift,
                                            int src2Stride0, float *const *dst, int dstRoiShift, int dstStride0,
                                            int widthHeight, int count);
SMX_API SmxStatus smxLUBackSubst_mava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1,
                                            int src1Stride2, const int *pivotIndex, const float *const *src2,
                                            int src2RoiShift, int src2Stride2, float *const *dst, int dstRoiShift,
                                            int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxLUBackSubst_mava_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                          const int *pivotIndex, const double *src2, int src2Stride0, int src2Stride2,
                                          double *dst, int dstStride0, int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxLUBackSubst_mava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                            const int *pivotIndex, const double *const *src2, int src2RoiShift,
                                            int src2Stride0, double *const *dst, int dstRoiShift, int dstStride0,
                                            int widthHeight, int count);
SMX_API SmxStatus smxLUBackSubst_mava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1,
                                            int src1Stride2, const int *pivotIndex, const double *const *src2,
                                            int src2RoiShift, int src2Stride2, double *const *dst, int dstRoiShift,
                                            int dstStride2, int widthHeight, int count);

#ifdef __cplusplus
}
#endif

#endif
