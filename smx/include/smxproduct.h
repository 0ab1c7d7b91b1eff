/* Products, norms and transforms. */
#ifndef SMXPRODUCT_H
#define SMXPRODUCT_H

#include "smxdefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* dst = op(src1) op(src2): matrix product. */
SMX_API SmxStatus smxMul_mm_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const float *src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                float *dst, int dstStride1, int dstStride2);
SMX_API SmxStatus smxMul_mm_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const float *const *src2, int src2RoiShift, int src2Width, int src2Height,
                                  float *const *dst, int dstRoiShift);
SMX_API SmxStatus smxMul_mm_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const double *src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                double *dst, int dstStride1, int dstStride2);
SMX_API SmxStatus smxMul_mm_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const double *const *src2, int src2RoiShift, int src2Width, int src2Height,
                                  double *const *dst, int dstRoiShift);
SMX_API SmxStatus smxMul_tm_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const float *src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                float *dst, int dstStride1, int dstStride2);
SMX_API SmxStatus smxMul_tm_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const float *const *src2, int src2RoiShift, int src2Width, int src2Height,
                                  float *const *dst, int dstRoiShift);
SMX_API SmxStatus smxMul_tm_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const double *src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                double *dst, int dstStride1, int dstStride2);
SMX_API SmxStatus smxMul_tm_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const double *const *src2, int src2RoiShift, int src2Width, int src2Height,
                                  double *const *dst, int dstRoiShift);
SMX_API SmxStatus smxMul_mt_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const float *src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                float *dst, int dstStride1, int dstStride2);
SMX_API SmxStatus smxMul_mt_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const float *const *src2, int src2RoiShift, int src2Width, int src2Height,
                                  float *const *dst, int dstRoiShift);
SMX_API SmxStatus smxMul_mt_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const double *src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                double *dst, int dstStride1, int dstStride2);
SMX_API SmxStatus smxMul_mt_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const double *const *src2, int src2RoiShift, int src2Width, int src2Height,
                                  double *const *dst, int dstRoiShift);
SMX_API SmxStatus smxMul_tt_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const float *src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                float *dst, int dstStride1, int dstStride2);
SMX_API SmxStatus smxMul_tt_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const float *const *src2, int src2RoiShift, int src2Width, int src2Height,
                                  float *const *dst, int dstRoiShift);
SMX_API SmxStatus smxMul_tt_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const double *src2, int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                double *dst, int dstStride1, int dstStride2);
SMX_API SmxStatus smxMul_tt_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const double *const *src2, int src2RoiShift, int src2Width, int src2Height,
                                  double *const *dst, int dstRoiShift);
SMX_API SmxStatus smxMul_mam_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const float *src2, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, float *dst, int dstStride0, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_mam_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const float *const *src2, int src2RoiShift, int src2Width,
                                   int src2Height, float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mam_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *src2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_mam_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const double *src2, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, double *dst, int dstStride0, int dstStride1, int dstStride2,
                                 int count);
SMX_API SmxStatus smxMul_mam_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const double *const *src2, int src2RoiShift, int src2Width,
                                   int src2Height, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mam_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *src2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_tam_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const float *src2, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, float *dst, int dstStride0, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_tam_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const float *const *src2, int src2RoiShift, int src2Width,
                                   int src2Height, float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tam_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *src2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_tam_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const double *src2, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, double *dst, int dstStride0, int dstStride1, int dstStride2,
                                 int count);
SMX_API SmxStatus smxMul_tam_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const double *const *src2, int src2RoiShift, int src2Width,
                                   int src2Height, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tam_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *src2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_mat_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const float *src2, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, float *dst, int dstStride0, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_mat_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const float *const *src2, int src2RoiShift, int src2Width,
                                   int src2Height, float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mat_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *src2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_mat_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const double *src2, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, double *dst, int dstStride0, int dstStride1, int dstStride2,
                                 int count);
SMX_API SmxStatus smxMul_mat_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const double *const *src2, int src2RoiShift, int src2Width,
                                   int src2Height, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mat_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *src2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_tat_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const float *src2, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, float *dst, int dstStride0, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_tat_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const float *const *src2, int src2RoiShift, int src2Width,
                                   int src2Height, float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tat_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *src2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_tat_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const double *src2, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, double *dst, int dstStride0, int dstStride1, int dstStride2,
                                 int count);
SMX_API SmxStatus smxMul_tat_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const double *const *src2, int src2RoiShift, int src2Width,
                                   int src2Height, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tat_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *src2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_mama_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const float *src2, int src2Stride0, int src2Stride1, int src2Stride2,
                                  int src2Width, int src2Height, float *dst, int dstStride0, int dstStride1,
                                  int dstStride2, int count);
SMX_API SmxStatus smxMul_mama_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const float *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride0,
                                    int count);
SMX_API SmxStatus smxMul_mama_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const float *const *src2, int src2RoiShift,
                                    int src2Stride1, int src2Stride2, int src2Width, int src2Height, float *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_mama_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const double *src2, int src2Stride0, int src2Stride1, int src2Stride2,
                                  int src2Width, int src2Height, double *dst, int dstStride0, int dstStride1,
                                  int dstStride2, int count);
SMX_API SmxStatus smxMul_mama_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const double *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride0,
                                    int count);
SMX_API SmxStatus smxMul_mama_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const double *const *src2, int src2RoiShift,
                                    int src2Stride1, int src2Stride2, int src2Width, int src2Height, double *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_tama_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const float *src2, int src2Stride0, int src2Stride1, int src2Stride2,
                                  int src2Width, int src2Height, float *dst, int dstStride0, int dstStride1,
                                  int dstStride2, int count);
SMX_API SmxStatus smxMul_tama_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const float *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride0,
                                    int count);
SMX_API SmxStatus smxMul_tama_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const float *const *src2, int src2RoiShift,
                                    int src2Stride1, int src2Stride2, int src2Width, int src2Height, float *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_tama_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const double *src2, int src2Stride0, int src2Stride1, int src2Stride2,
                                  int src2Width, int src2Height, double *dst, int dstStride0, int dstStride1,
                                  int dstStride2, int count);
SMX_API SmxStatus smxMul_tama_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const double *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride0,
                                    int count);
SMX_API SmxStatus smxMul_tama_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const double *const *src2, int src2RoiShift,
                                    int src2Stride1, int src2Stride2, int src2Width, int src2Height, double *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_mata_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const float *src2, int src2Stride0, int src2Stride1, int src2Stride2,
                                  int src2Width, int src2Height, float *dst, int dstStride0, int dstStride1,
                                  int dstStride2, int count);
SMX_API SmxStatus smxMul_mata_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const float *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride0,
                                    int count);
SMX_API SmxStatus smxMul_mata_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const float *const *src2, int src2RoiShift,
                                    int src2Stride1, int src2Stride2, int src2Width, int src2Height, float *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_mata_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const double *src2, int src2Stride0, int src2Stride1, int src2Stride2,
                                  int src2Width, int src2Height, double *dst, int dstStride0, int dstStride1,
                                  int dstStride2, int count);
SMX_API SmxStatus smxMul_mata_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const double *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride0,
                                    int count);
SMX_API SmxStatus smxMul_mata_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const double *const *src2, int src2RoiShift,
                                    int src2Stride1, int src2Stride2, int src2Width, int src2Height, double *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_tata_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const float *src2, int src2Stride0, int src2Stride1, int src2Stride2,
                                  int src2Width, int src2Height, float *dst, int dstStride0, int dstStride1,
                                  int dstStride2, int count);
SMX_API SmxStatus smxMul_tata_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const float *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride0,
                                    int count);
SMX_API SmxStatus smxMul_tata_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const float *const *src2, int src2RoiShift,
                                    int src2Stride1, int src2Stride2, int src2Width, int src2Height, float *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_tata_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const double *src2, int src2Stride0, int src2Stride1, int src2Stride2,
                                  int src2Width, int src2Height, double *dst, int dstStride0, int dstStride1,
                                  int dstStride2, int count);
SMX_API SmxStatus smxMul_tata_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const double *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride0,
                                    int count);
SMX_API SmxStatus smxMul_tata_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const double *const *src2, int src2RoiShift,
                                    int src2Stride1, int src2Stride2, int src2Width, int src2Height, double *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_mma_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, float *dst, int dstStride0, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_mma_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride0, int src2Width,
                                   int src2Height, float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mma_32f_L(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_mma_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, double *dst, int dstStride0, int dstStride1, int dstStride2,
                                 int count);
SMX_API SmxStatus smxMul_mma_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride0, int src2Width,
                                   int src2Height, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mma_64f_L(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_tma_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, float *dst, int dstStride0, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_tma_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride0, int src2Width,
                                   int src2Height, float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tma_32f_L(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_tma_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, double *dst, int dstStride0, int dstStride1, int dstStride2,
                                 int count);
SMX_API SmxStatus smxMul_tma_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride0, int src2Width,
                                   int src2Height, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tma_64f_L(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_mta_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, float *dst, int dstStride0, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_mta_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride0, int src2Width,
                                   int src2Height, float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mta_32f_L(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_mta_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, double *dst, int dstStride0, int dstStride1, int dstStride2,
                                 int count);
SMX_API SmxStatus smxMul_mta_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride0, int src2Width,
                                   int src2Height, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mta_64f_L(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_tta_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, float *dst, int dstStride0, int dstStride1, int dstStride2, int count);
SMX_API SmxStatus smxMul_tta_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride0, int src2Width,
                                   int src2Height, float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tta_32f_L(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);
SMX_API SmxStatus smxMul_tta_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                 int src2Height, double *dst, int dstStride0, int dstStride1, int dstStride2,
                                 int count);
SMX_API SmxStatus smxMul_tta_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride0, int src2Width,
                                   int src2Height, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tta_64f_L(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *const *dst, int dstRoiShift, int dstStride1,
                                   int dstStride2, int count);

#ifdef __cplusplus
}
#endif

#endif
