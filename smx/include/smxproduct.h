/* Products, norms and transforms. */
#ifndef SMXPRODUCT_H
#define SMXPRODUCT_H

#include "smxdefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Matrix product: dst = op(src1) op(src2), where op is the identity for an m operand and the transpose for a t operand.
 *
 *   dst(n, i, j) = sum over p of op(src1)(n, i, p) * op(src2)(n, p, j)
 *
 * Codes     mm tm mt tt                             two matrices; no suffix, _P
 *           mam tam mat tat                         each matrix of an array, by one matrix; no suffix, _P, _L
 *           mma tma mta tta                         one matrix, by each of an array; no suffix, _P, _L
 *           mama tama mata tata                     two arrays; no suffix, _P, _L
 * Shapes    every width and height is that of the matrix AS STORED, before transposing. The inner lengths must agree:
 *
 *             first letter  rows of dst  inner length       second letter  columns of dst  inner length
 *             m             src1Height   src1Width          m              src2Width       src2Height
 *             t             src1Width    src1Height         t              src2Height      src2Width
 *
 *           No argument gives the shape of dst. A pointer table of dst has as many columns as dst, one of a source as
 *           many as its stored width.
 * Order     each element is summed in ascending p, in the element type, one rounding after each product and each
 *           addition. Where both sources are square with the same side 3 to 6 the sum starts at the first product,
 *           elsewhere at 0.0, as in _L with adjacent elements unless only src1 is an array: products that are all -0.0
 *           give -0.0 in the one and +0.0 in the other.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst must not overlap a source: sources are read again after elements of dst have been stored. While the
 *           call runs, elements of dst may hold 0.0 and partial sums.
 * Checks    null, count, size, match (the inner lengths), strides, shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsSizeMatchMatrixErr, smxStsStrideMatrixErr,
 *           smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every object has been written.
 * Threads   where the elements of sources and result, an array counted count times and a single matrix once, are more
 *           than 36864 in double; 18432 where a stride2 is not the element size, and in _L; 9216 in _P. In float the
 *           bound is 6: with threads_omp_of_n_smk above 1 nearly every float array product is split, also the small one
 *           that would be done sooner on one thread. */
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

/* Matrix by vector: dst = op(src1) src2, where op is the identity for an m operand and the transpose for a t operand.
 *
 *   dst(n, i) = sum over p of op(src1)(n, i, p) * src2(n, p)
 *
 * Codes     mv tv                    one matrix, one vector; no suffix, _P
 *           mav tav                  each matrix of an array, by one vector; no suffix, _P, _L
 *           mva tva                  one matrix, by each vector of an array; no suffix, _P, _L
 *           mava tava                two arrays; no suffix, _P, _L
 * Shapes    src1Width and src1Height are those of the matrix AS STORED. src2Len must be src1Width for an m operand and
 *           src1Height for a t operand; dst has as many elements as the other one, and no argument for it.
 * Order     each element is summed in ascending p, in the element type, one rounding after each product and each
 *           addition. For square matrices of side 3 to 6 the sum starts at the first product, elsewhere, and in _L with
 *           adjacent elements always, at 0.0: products that are all -0.0 give -0.0 in the one and +0.0 in the other.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst must not overlap a source: sources are read again after elements of dst have been stored. While the
 *           call runs, elements of dst may hold 0.0 and partial sums.
 * Checks    null, count, size, match (src2Len), strides, shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsSizeMatchMatrixErr, smxStsStrideMatrixErr,
 *           smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every object has been written.
 * Threads   as for the matrix product above. */
SMX_API SmxStatus smxMul_mv_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const float *src2, int src2Stride2, int src2Len, float *dst, int dstStride2);
SMX_API SmxStatus smxMul_mv_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const float *const *src2, int src2RoiShift, int src2Len, float *const *dst,
                                  int dstRoiShift);
SMX_API SmxStatus smxMul_mv_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const double *src2, int src2Stride2, int src2Len, double *dst, int dstStride2);
SMX_API SmxStatus smxMul_mv_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const double *const *src2, int src2RoiShift, int src2Len, double *const *dst,
                                  int dstRoiShift);
SMX_API SmxStatus smxMul_tv_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const float *src2, int src2Stride2, int src2Len, float *dst, int dstStride2);
SMX_API SmxStatus smxMul_tv_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const float *const *src2, int src2RoiShift, int src2Len, float *const *dst,
                                  int dstRoiShift);
SMX_API SmxStatus smxMul_tv_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                const double *src2, int src2Stride2, int src2Len, double *dst, int dstStride2);
SMX_API SmxStatus smxMul_tv_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                  const double *const *src2, int src2RoiShift, int src2Len, double *const *dst,
                                  int dstRoiShift);
SMX_API SmxStatus smxMul_mav_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const float *src2, int src2Stride2, int src2Len, float *dst,
                                 int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_mav_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const float *const *src2, int src2RoiShift, int src2Len,
                                   float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mav_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *src2, int src2Stride2, int src2Len,
                                   float *const *dst, int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxMul_mav_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const double *src2, int src2Stride2, int src2Len, double *dst,
                                 int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_mav_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const double *const *src2, int src2RoiShift, int src2Len,
                                   double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mav_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *src2, int src2Stride2, int src2Len,
                                   double *const *dst, int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxMul_tav_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const float *src2, int src2Stride2, int src2Len, float *dst,
                                 int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_tav_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const float *const *src2, int src2RoiShift, int src2Len,
                                   float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tav_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *src2, int src2Stride2, int src2Len,
                                   float *const *dst, int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxMul_tav_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                 int src1Height, const double *src2, int src2Stride2, int src2Len, double *dst,
                                 int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_tav_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                   int src1Height, const double *const *src2, int src2RoiShift, int src2Len,
                                   double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tav_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *src2, int src2Stride2, int src2Len,
                                   double *const *dst, int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxMul_mava_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const float *src2, int src2Stride0, int src2Stride2, int src2Len,
                                  float *dst, int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_mava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const float *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Len, float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const float *const *src2, int src2RoiShift,
                                    int src2Stride2, int src2Len, float *const *dst, int dstRoiShift, int dstStride2,
                                    int count);
SMX_API SmxStatus smxMul_mava_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const double *src2, int src2Stride0, int src2Stride2, int src2Len,
                                  double *dst, int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_mava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const double *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Len, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const double *const *src2, int src2RoiShift,
                                    int src2Stride2, int src2Len, double *const *dst, int dstRoiShift, int dstStride2,
                                    int count);
SMX_API SmxStatus smxMul_tava_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const float *src2, int src2Stride0, int src2Stride2, int src2Len,
                                  float *dst, int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_tava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const float *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Len, float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const float *const *src2, int src2RoiShift,
                                    int src2Stride2, int src2Len, float *const *dst, int dstRoiShift, int dstStride2,
                                    int count);
SMX_API SmxStatus smxMul_tava_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2, int src1Width,
                                  int src1Height, const double *src2, int src2Stride0, int src2Stride2, int src2Len,
                                  double *dst, int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_tava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, int src1Width,
                                    int src1Height, const double *const *src2, int src2RoiShift, int src2Stride0,
                                    int src2Len, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    int src1Width, int src1Height, const double *const *src2, int src2RoiShift,
                                    int src2Stride2, int src2Len, double *const *dst, int dstRoiShift, int dstStride2,
                                    int count);
SMX_API SmxStatus smxMul_mva_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const float *src2, int src2Stride0, int src2Stride2, int src2Len, float *dst,
                                 int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_mva_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride0, int src2Len,
                                   float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mva_32f_L(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride2, int src2Len,
                                   float *const *dst, int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxMul_mva_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const double *src2, int src2Stride0, int src2Stride2, int src2Len, double *dst,
                                 int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_mva_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride0, int src2Len,
                                   double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_mva_64f_L(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride2, int src2Len,
                                   double *const *dst, int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxMul_tva_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const float *src2, int src2Stride0, int src2Stride2, int src2Len, float *dst,
                                 int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_tva_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride0, int src2Len,
                                   float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tva_32f_L(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const float *const *src2, int src2RoiShift, int src2Stride2, int src2Len,
                                   float *const *dst, int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxMul_tva_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                 const double *src2, int src2Stride0, int src2Stride2, int src2Len, double *dst,
                                 int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxMul_tva_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride0, int src2Len,
                                   double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxMul_tva_64f_L(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const double *const *src2, int src2RoiShift, int src2Stride2, int src2Len,
                                   double *const *dst, int dstRoiShift, int dstStride2, int count);

/* Matrix by constant: dst(n, i, j) = op(src)(n, i, j) * val.
 *
 * Codes     mc tc          one matrix; no suffix, _P
 *           mac tac        each matrix of an array; no suffix, _P, _L
 * Shapes    width columns and height rows are those of dst. A t operand is stored with `height` columns and `width`
 *           rows; its pointer table is read at [j * height + i]. Note that the products above take the sizes of the
 *           stored matrix.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst may be src with the same strides (the same table and shift, the same list) in mc and mac: that scales
 *           in place. Nothing else may overlap.
 * Checks    null, count, size, strides, shifts. val is not examined.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every object has been written.
 * Threads   where 2 * width * height * count is above 35000; 17000 in _P; 15000 in _L of float where a stride2 is not
 *           the element size. */
SMX_API SmxStatus smxMul_mc_32f(const float *src, int srcStride1, int srcStride2, float val, float *dst, int dstStride1,
                                int dstStride2, int width, int height);
SMX_API SmxStatus smxMul_mc_32f_P(const float *const *src, int srcRoiShift, float val, float *const *dst,
                                  int dstRoiShift, int width, int height);
SMX_API SmxStatus smxMul_mc_64f(const double *src, int srcStride1, int srcStride2, double val, double *dst,
                                int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxMul_mc_64f_P(const double *const *src, int srcRoiShift, double val, double *const *dst,
                                  int dstRoiShift, int width, int height);
SMX_API SmxStatus smxMul_tc_32f(const float *src, int srcStride1, int srcStride2, float val, float *dst, int dstStride1,
                                int dstStride2, int width, int height);
SMX_API SmxStatus smxMul_tc_32f_P(const float *const *src, int srcRoiShift, float val, float *const *dst,
                                  int dstRoiShift, int width, int height);
SMX_API SmxStatus smxMul_tc_64f(const double *src, int srcStride1, int srcStride2, double val, double *dst,
                                int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxMul_tc_64f_P(const double *const *src, int srcRoiShift, double val, double *const *dst,
                                  int dstRoiShift, int width, int height);
SMX_API SmxStatus smxMul_mac_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, float val,
                                 float *dst, int dstStride0, int dstStride1, int dstStride2, int width, int height,
                                 int count);
SMX_API SmxStatus smxMul_mac_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float val,
                                   float *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                   int count);
SMX_API SmxStatus smxMul_mac_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2, float val,
                                   float *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                   int height, int count);
SMX_API SmxStatus smxMul_mac_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, double val,
                                 double *dst, int dstStride0, int dstStride1, int dstStride2, int width, int height,
                                 int count);
SMX_API SmxStatus smxMul_mac_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double val,
                                   double *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                   int count);
SMX_API SmxStatus smxMul_mac_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                   double val, double *const *dst, int dstRoiShift, int dstStride1, int dstStride2,
                                   int width, int height, int count);
SMX_API SmxStatus smxMul_tac_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, float val,
                                 float *dst, int dstStride0, int dstStride1, int dstStride2, int width, int height,
                                 int count);
SMX_API SmxStatus smxMul_tac_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float val,
                                   float *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                   int count);
SMX_API SmxStatus smxMul_tac_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2, float val,
                                   float *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                   int height, int count);
SMX_API SmxStatus smxMul_tac_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, double val,
                                 double *dst, int dstStride0, int dstStride1, int dstStride2, int width, int height,
                                 int count);
SMX_API SmxStatus smxMul_tac_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double val,
                                   double *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                   int count);
SMX_API SmxStatus smxMul_tac_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                   double val, double *const *dst, int dstRoiShift, int dstStride1, int dstStride2,
                                   int width, int height, int count);

/* Dot product: dst[n] = sum over p of src1(n, p) * src2(n, p).
 *
 * Codes     vv                 two vectors; no suffix, _P
 *           vav                each vector of an array with one vector; no suffix, _P, _L
 *           vava               two arrays; no suffix, _P, _L
 * Shapes    vectors of len elements; dst is one element, or count adjacent elements in every layout.
 * Order     in the element type. Ascending p, starting at the first product for a len of 3 to 6, else at 0.0. Where a
 *           stride2 is not the element size the sums of 5 and 6 are (((p0 + p4) + p1) + p2) + p3 and
 *           (((p0 + (p4 + p5)) + p1) + p2) + p3: they may differ from the others in the last bits.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst[n] may overlap src1 or src2 of object n in the arrays of vav and vava, but no other object, nor the
 *           single vector of vav.
 * Checks    null, count, size, strides, shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every element of dst has been written.
 * Threads   where len * count + len (vav) or 2 * len * count (vava) is above 40000; 20000 where a stride2 is not the
 *           element size, and in _P of float. */
SMX_API SmxStatus smxDotProduct_vv_32f(const float *src1, int src1Stride2, const float *src2, int src2Stride2,
                                       float *dst, int len);
SMX_API SmxStatus smxDotProduct_vv_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                         int src2RoiShift, float *dst, int len);
SMX_API SmxStatus smxDotProduct_vv_64f(const double *src1, int src1Stride2, const double *src2, int src2Stride2,
                                       double *dst, int len);
SMX_API SmxStatus smxDotProduct_vv_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                         int src2RoiShift, double *dst, int len);
SMX_API SmxStatus smxDotProduct_vav_32f(const float *src1, int src1Stride0, int src1Stride2, const float *src2,
                                        int src2Stride2, float *dst, int len, int count);
SMX_API SmxStatus smxDotProduct_vav_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                          const float *const *src2, int src2RoiShift, float *dst, int len, int count);
SMX_API SmxStatus smxDotProduct_vav_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2,
                                          const float *src2, int src2Stride2, float *dst, int len, int count);
SMX_API SmxStatus smxDotProduct_vav_64f(const double *src1, int src1Stride0, int src1Stride2, const double *src2,
                                        int src2Stride2, double *dst, int len, int count);
SMX_API SmxStatus smxDotProduct_vav_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                          const double *const *src2, int src2RoiShift, double *dst, int len, int count);
SMX_API SmxStatus smxDotProduct_vav_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2,
                                          const double *src2, int src2Stride2, double *dst, int len, int count);
SMX_API SmxStatus smxDotProduct_vava_32f(const float *src1, int src1Stride0, int src1Stride2, const float *src2,
                                         int src2Stride0, int src2Stride2, float *dst, int len, int count);
SMX_API SmxStatus smxDotProduct_vava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                           const float *const *src2, int src2RoiShift, int src2Stride0, float *dst,
                                           int len, int count);
SMX_API SmxStatus smxDotProduct_vava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2,
                                           const float *const *src2, int src2RoiShift, int src2Stride2, float *dst,
                                           int len, int count);
SMX_API SmxStatus smxDotProduct_vava_64f(const double *src1, int src1Stride0, int src1Stride2, const double *src2,
                                         int src2Stride0, int src2Stride2, double *dst, int len, int count);
SMX_API SmxStatus smxDotProduct_vava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                           const double *const *src2, int src2RoiShift, int src2Stride0, double *dst,
                                           int len, int count);
SMX_API SmxStatus smxDotProduct_vava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2,
                                           const double *const *src2, int src2RoiShift, int src2Stride2, double *dst,
                                           int len, int count);

/* Cross product of vectors of three elements, a = src1(n), b = src2(n):
 *
 *   dst(n) = (a1 b2 - a2 b1, a2 b0 - a0 b2, a0 b1 - a1 b0)
 *
 * Codes     vv                 two vectors; no suffix, _P
 *           vav                each vector of an array with one vector; no suffix, _P, _L
 *           vva                one vector with each of an array; no suffix, _P, _L
 *           vava               two arrays; no suffix, _P, _L
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst must not overlap a source: the three elements are stored in turn, and sources are read again for each.
 * Checks    null, count, strides, shifts; but vav: null, strides, count, and in _P shifts; in _L null, strides,
 *           shifts, count. There is no size to check.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every object has been written.
 * Threads   where 2 * count + 1 (vav, vva) or 3 * count (vava) is above 20000; 40000 in _L of float. */
SMX_API SmxStatus smxCrossProduct_vv_32f(const float *src1, int src1Stride2, const float *src2, int src2Stride2,
                                         float *dst, int dstStride2);
SMX_API SmxStatus smxCrossProduct_vv_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                           int src2RoiShift, float *const *dst, int dstRoiShift);
SMX_API SmxStatus smxCrossProduct_vv_64f(const double *src1, int src1Stride2, const double *src2, int src2Stride2,
                                         double *dst, int dstStride2);
SMX_API SmxStatus smxCrossProduct_vv_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                           int src2RoiShift, double *const *dst, int dstRoiShift);
SMX_API SmxStatus smxCrossProduct_vav_32f(const float *src1, int src1Stride0, int src1Stride2, const float *src2,
                                          int src2Stride2, float *dst, int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxCrossProduct_vav_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                            const float *const *src2, int src2RoiShift, float *const *dst,
                                            int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxCrossProduct_vav_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2,
                                            const float *src2, int src2Stride2, float *const *dst, int dstRoiShift,
                                            int dstStride2, int count);
SMX_API SmxStatus smxCrossProduct_vav_64f(const double *src1, int src1Stride0, int src1Stride2, const double *src2,
                                          int src2Stride2, double *dst, int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxCrossProduct_vav_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                            const double *const *src2, int src2RoiShift, double *const *dst,
                                            int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxCrossProduct_vav_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2,
                                            const double *src2, int src2Stride2, double *const *dst, int dstRoiShift,
                                            int dstStride2, int count);
SMX_API SmxStatus smxCrossProduct_vva_32f(const float *src1, int src1Stride2, const float *src2, int src2Stride0,
                                          int src2Stride2, float *dst, int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxCrossProduct_vva_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                            int src2RoiShift, int src2Stride0, float *const *dst, int dstRoiShift,
                                            int dstStride0, int count);
SMX_API SmxStatus smxCrossProduct_vva_32f_L(const float *src1, int src1Stride2, const float *const *src2,
                                            int src2RoiShift, int src2Stride2, float *const *dst, int dstRoiShift,
                                            int dstStride2, int count);
SMX_API SmxStatus smxCrossProduct_vva_64f(const double *src1, int src1Stride2, const double *src2, int src2Stride0,
                                          int src2Stride2, double *dst, int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxCrossProduct_vva_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                            int src2RoiShift, int src2Stride0, double *const *dst, int dstRoiShift,
                                            int dstStride0, int count);
SMX_API SmxStatus smxCrossProduct_vva_64f_L(const double *src1, int src1Stride2, const double *const *src2,
                                            int src2RoiShift, int src2Stride2, double *const *dst, int dstRoiShift,
                                            int dstStride2, int count);
SMX_API SmxStatus smxCrossProduct_vava_32f(const float *src1, int src1Stride0, int src1Stride2, const float *src2,
                                           int src2Stride0, int src2Stride2, float *dst, int dstStride0, int dstStride2,
                                           int count);
SMX_API SmxStatus smxCrossProduct_vava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                             const float *const *src2, int src2RoiShift, int src2Stride0,
                                             float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxCrossProduct_vava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2,
                                             const float *const *src2, int src2RoiShift, int src2Stride2,
                                             float *const *dst, int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxCrossProduct_vava_64f(const double *src1, int src1Stride0, int src1Stride2, const double *src2,
                                           int src2Stride0, int src2Stride2, double *dst, int dstStride0,
                                           int dstStride2, int count);
SMX_API SmxStatus smxCrossProduct_vava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                             const double *const *src2, int src2RoiShift, int src2Stride0,
                                             double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxCrossProduct_vava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2,
                                             const double *const *src2, int src2RoiShift, int src2Stride2,
                                             double *const *dst, int dstRoiShift, int dstStride2, int count);

/* L2 norm: dst[n] = square root of the sum over p of src(n, p) squared.
 *
 * Codes     v                  one vector; no suffix, _P
 *           va                 each vector of an array; no suffix, _P, _L
 * Shapes    vectors of len elements; dst is one element, or count adjacent elements in every layout.
 * Order     ascending p, in double for both types, rounded once after the root: a float norm overflows only where the
 *           norm itself does. There is no scaling: squares of doubles above about 1e154 give infinity.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst[n] may overlap src(n), but no other object.
 * Checks    null, count, size, strides, shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every element of dst has been written.
 * Threads   where len * count is above 20000. */
SMX_API SmxStatus smxL2Norm_v_32f(const float *src, int srcStride2, float *dst, int len);
SMX_API SmxStatus smxL2Norm_v_32f_P(const float *const *src, int srcRoiShift, float *dst, int len);
SMX_API SmxStatus smxL2Norm_v_64f(const double *src, int srcStride2, double *dst, int len);
SMX_API SmxStatus smxL2Norm_v_64f_P(const double *const *src, int srcRoiShift, double *dst, int len);
SMX_API SmxStatus smxL2Norm_va_32f(const float *src, int srcStride0, int srcStride2, float *dst, int len, int count);
SMX_API SmxStatus smxL2Norm_va_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float *dst, int len,
                                     int count);
SMX_API SmxStatus smxL2Norm_va_32f_L(const float *const *src, int srcRoiShift, int srcStride2, float *dst, int len,
                                     int count);
SMX_API SmxStatus smxL2Norm_va_64f(const double *src, int srcStride0, int srcStride2, double *dst, int len, int count);
SMX_API SmxStatus smxL2Norm_va_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double *dst, int len,
                                     int count);
SMX_API SmxStatus smxL2Norm_va_64f_L(const double *const *src, int srcRoiShift, int srcStride2, double *dst, int len,
                                     int count);

/* Scaled vector plus vector: dst(n, p) = val * src1(n, p) + src2(n, p).
 *
 * Codes     vv                 two vectors; no suffix, _P
 *           vav                each vector of an array, plus one vector; no suffix, _P, _L
 *           vva                one vector, plus each of an array; no suffix, _P, _L
 *           vava               two arrays; no suffix, _P, _L
 * Shapes    vectors of len elements. val follows the arguments of src1.
 * Order     one rounding after the product and one after the sum. val is not examined: 0 times infinity is not a
 *           number, as ever.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst may be a source with the same strides (the same table and shift, the same list): that updates in place.
 *           In an array form this source must be an array. Nothing else may overlap.
 * Checks    null, count, size, strides, shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every object has been written.
 * Threads   where 2 * len * count + len (vav, vva) or 3 * len * count (vava) is above 40000. */
SMX_API SmxStatus smxSaxpy_vv_32f(const float *src1, int src1Stride2, float val, const float *src2, int src2Stride2,
                                  float *dst, int dstStride2, int len);
SMX_API SmxStatus smxSaxpy_vv_32f_P(const float *const *src1, int src1RoiShift, float val, const float *const *src2,
                                    int src2RoiShift, float *const *dst, int dstRoiShift, int len);
SMX_API SmxStatus smxSaxpy_vv_64f(const double *src1, int src1Stride2, double val, const double *src2, int src2Stride2,
                                  double *dst, int dstStride2, int len);
SMX_API SmxStatus smxSaxpy_vv_64f_P(const double *const *src1, int src1RoiShift, double val, const double *const *src2,
                                    int src2RoiShift, double *const *dst, int dstRoiShift, int len);
SMX_API SmxStatus smxSaxpy_vav_32f(const float *src1, int src1Stride0, int src1Stride2, float val, const float *src2,
                                   int src2Stride2, float *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSaxpy_vav_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, float val,
                                     const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                     int dstStride0, int len, int count);
SMX_API SmxStatus smxSaxpy_vav_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2, float val,
                                     const float *src2, int src2Stride2, float *const *dst, int dstRoiShift,
                                     int dstStride2, int len, int count);
SMX_API SmxStatus smxSaxpy_vav_64f(const double *src1, int src1Stride0, int src1Stride2, double val, const double *src2,
                                   int src2Stride2, double *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSaxpy_vav_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, double val,
                                     const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                     int dstStride0, int len, int count);
SMX_API SmxStatus smxSaxpy_vav_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2, double val,
                                     const double *src2, int src2Stride2, double *const *dst, int dstRoiShift,
                                     int dstStride2, int len, int count);
SMX_API SmxStatus smxSaxpy_vva_32f(const float *src1, int src1Stride2, float val, const float *src2, int src2Stride0,
                                   int src2Stride2, float *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSaxpy_vva_32f_P(const float *const *src1, int src1RoiShift, float val, const float *const *src2,
                                     int src2RoiShift, int src2Stride0, float *const *dst, int dstRoiShift,
                                     int dstStride0, int len, int count);
SMX_API SmxStatus smxSaxpy_vva_32f_L(const float *src1, int src1Stride2, float val, const float *const *src2,
                                     int src2RoiShift, int src2Stride2, float *const *dst, int dstRoiShift,
                                     int dstStride2, int len, int count);
SMX_API SmxStatus smxSaxpy_vva_64f(const double *src1, int src1Stride2, double val, const double *src2, int src2Stride0,
                                   int src2Stride2, double *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSaxpy_vva_64f_P(const double *const *src1, int src1RoiShift, double val, const double *const *src2,
                                     int src2RoiShift, int src2Stride0, double *const *dst, int dstRoiShift,
                                     int dstStride0, int len, int count);
SMX_API SmxStatus smxSaxpy_vva_64f_L(const double *src1, int src1Stride2, double val, const double *const *src2,
                                     int src2RoiShift, int src2Stride2, double *const *dst, int dstRoiShift,
                                     int dstStride2, int len, int count);
SMX_API SmxStatus smxSaxpy_vava_32f(const float *src1, int src1Stride0, int src1Stride2, float val, const float *src2,
                                    int src2Stride0, int src2Stride2, float *dst, int dstStride0, int dstStride2,
                                    int len, int count);
SMX_API SmxStatus smxSaxpy_vava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, float val,
                                      const float *const *src2, int src2RoiShift, int src2Stride0, float *const *dst,
                                      int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSaxpy_vava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2, float val,
                                      const float *const *src2, int src2RoiShift, int src2Stride2, float *const *dst,
                                      int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxSaxpy_vava_64f(const double *src1, int src1Stride0, int src1Stride2, double val,
                                    const double *src2, int src2Stride0, int src2Stride2, double *dst, int dstStride0,
                                    int dstStride2, int len, int count);
SMX_API SmxStatus smxSaxpy_vava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, double val,
                                      const double *const *src2, int src2RoiShift, int src2Stride0, double *const *dst,
                                      int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSaxpy_vava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2, double val,
                                      const double *const *src2, int src2RoiShift, int src2Stride2, double *const *dst,
                                      int dstRoiShift, int dstStride2, int len, int count);

/* Linear combination: dst(n, p) = val1 * src1(n, p) + val2 * src2(n, p).
 *
 * Codes     vv                 two vectors; no suffix, _P
 *           vav                each vector of an array, and one vector; no suffix, _P, _L
 *           vava               two arrays; no suffix, _P, _L
 *           For a single first vector exchange the operands and the constants.
 * Shapes    vectors of len elements. Each constant follows the arguments of its vector.
 * Order     one rounding after each product and one after the sum. val1 and val2 are not examined.
 * Strides, Overlap, Checks, Status    as for Saxpy above.
 * Threads   where 2 * len * count + len (vav) or 3 * len * count (vava) is above 20000; 40000 in _L of float with
 *           adjacent elements. */
SMX_API SmxStatus smxLComb_vv_32f(const float *src1, int src1Stride2, float val1, const float *src2, int src2Stride2,
                                  float val2, float *dst, int dstStride2, int len);
SMX_API SmxStatus smxLComb_vv_32f_P(const float *const *src1, int src1RoiShift, float val1, const float *const *src2,
                                    int src2RoiShift, float val2, float *const *dst, int dstRoiShift, int len);
SMX_API SmxStatus smxLComb_vv_64f(const double *src1, int src1Stride2, double val1, const double *src2, int src2Stride2,
                                  double val2, double *dst, int dstStride2, int len);
SMX_API SmxStatus smxLComb_vv_64f_P(const double *const *src1, int src1RoiShift, double val1, const double *const *src2,
                                    int src2RoiShift, double val2, double *const *dst, int dstRoiShift, int len);
SMX_API SmxStatus smxLComb_vav_32f(const float *src1, int src1Stride0, int src1Stride2, float val1, const float *src2,
                                   int src2Stride2, float val2, float *dst, int dstStride0, int dstStride2, int len,
                                   int count);
SMX_API SmxStatus smxLComb_vav_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, float val1,
                                     const float *const *src2, int src2RoiShift, float val2, float *const *dst,
                                     int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxLComb_vav_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2, float val1,
                                     const float *src2, int src2Stride2, float val2, float *const *dst, int dstRoiShift,
                                     int dstStride2, int len, int count);
SMX_API SmxStatus smxLComb_vav_64f(const double *src1, int src1Stride0, int src1Stride2, double val1,
                                   const double *src2, int src2Stride2, double val2, double *dst, int dstStride0,
                                   int dstStride2, int len, int count);
SMX_API SmxStatus smxLComb_vav_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, double val1,
                                     const double *const *src2, int src2RoiShift, double val2, double *const *dst,
                                     int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxLComb_vav_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2, double val1,
                                     const double *src2, int src2Stride2, double val2, double *const *dst,
                                     int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxLComb_vava_32f(const float *src1, int src1Stride0, int src1Stride2, float val1, const float *src2,
                                    int src2Stride0, int src2Stride2, float val2, float *dst, int dstStride0,
                                    int dstStride2, int len, int count);
SMX_API SmxStatus smxLComb_vava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, float val1,
                                      const float *const *src2, int src2RoiShift, int src2Stride0, float val2,
                                      float *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxLComb_vava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2, float val1,
                                      const float *const *src2, int src2RoiShift, int src2Stride2, float val2,
                                      float *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxLComb_vava_64f(const double *src1, int src1Stride0, int src1Stride2, double val1,
                                    const double *src2, int src2Stride0, int src2Stride2, double val2, double *dst,
                                    int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxLComb_vava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0, double val1,
                                      const double *const *src2, int src2RoiShift, int src2Stride0, double val2,
                                      double *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxLComb_vava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2, double val1,
                                      const double *const *src2, int src2RoiShift, int src2Stride2, double val2,
                                      double *const *dst, int dstRoiShift, int dstStride2, int len, int count);

/* Matrix by vector, plus vector: dst = src1 src2 + src3.
 *
 *   dst(n, i) = (sum over p of src1(i, p) * src2(n, p)) + src3(n, i)
 *
 * Codes     mv                 one matrix, one vector each; no suffix, _P
 *           mva                one matrix, arrays src2 and src3; no suffix, _P, _L
 *           mvav               one matrix, an array src2, one vector src3; no suffix, _P, _L
 * Shapes    src1Height rows and src1Width columns; src2Len must be src1Width, src3Len must be src1Height, which is also
 *           the length of dst.
 * Order     each sum in ascending p, in the element type, src3 last. For square matrices of side 3 to 6 it starts at
 *           the first product, elsewhere at 0.0.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst must not overlap a source: sources are read again after elements of dst have been stored. While the
 *           call runs, elements of dst may hold 0.0 and partial sums.
 * Checks    null, count, size, match (src2Len, src3Len), strides, shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsSizeMatchMatrixErr, smxStsStrideMatrixErr,
 *           smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every object has been written.
 * Threads   where (src2Len + 2 * src3Len) * count (mva) or src2Len * count + src3Len * (count + 1) (mvav) is above
 *           5000, whatever the matrix costs. */
SMX_API SmxStatus smxGaxpy_mv_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                  const float *src2, int src2Stride2, int src2Len, const float *src3, int src3Stride2,
                                  int src3Len, float *dst, int dstStride2);
SMX_API SmxStatus smxGaxpy_mv_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                    const float *const *src2, int src2RoiShift, int src2Len, const float *const *src3,
                                    int src3RoiShift, int src3Len, float *const *dst, int dstRoiShift);
SMX_API SmxStatus smxGaxpy_mv_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                  const double *src2, int src2Stride2, int src2Len, const double *src3, int src3Stride2,
                                  int src3Len, double *dst, int dstStride2);
SMX_API SmxStatus smxGaxpy_mv_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                    const double *const *src2, int src2RoiShift, int src2Len, const double *const *src3,
                                    int src3RoiShift, int src3Len, double *const *dst, int dstRoiShift);
SMX_API SmxStatus smxGaxpy_mva_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const float *src2, int src2Stride0, int src2Stride2, int src2Len, const float *src3,
                                   int src3Stride0, int src3Stride2, int src3Len, float *dst, int dstStride0,
                                   int dstStride2, int count);
SMX_API SmxStatus smxGaxpy_mva_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                     const float *const *src2, int src2RoiShift, int src2Stride0, int src2Len,
                                     const float *const *src3, int src3RoiShift, int src3Stride0, int src3Len,
                                     float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxGaxpy_mva_32f_L(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                     const float *const *src2, int src2RoiShift, int src2Stride2, int src2Len,
                                     const float *const *src3, int src3RoiShift, int src3Stride2, int src3Len,
                                     float *const *dst, int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxGaxpy_mva_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                   const double *src2, int src2Stride0, int src2Stride2, int src2Len,
                                   const double *src3, int src3Stride0, int src3Stride2, int src3Len, double *dst,
                                   int dstStride0, int dstStride2, int count);
SMX_API SmxStatus smxGaxpy_mva_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                     const double *const *src2, int src2RoiShift, int src2Stride0, int src2Len,
                                     const double *const *src3, int src3RoiShift, int src3Stride0, int src3Len,
                                     double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxGaxpy_mva_64f_L(const double *src1, int src1Stride1, int src1Stride2, int src1Width,
                                     int src1Height, const double *const *src2, int src2RoiShift, int src2Stride2,
                                     int src2Len, const double *const *src3, int src3RoiShift, int src3Stride2,
                                     int src3Len, double *const *dst, int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxGaxpy_mvav_32f(const float *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                    const float *src2, int src2Stride0, int src2Stride2, int src2Len, const float *src3,
                                    int src3Stride2, int src3Len, float *dst, int dstStride0, int dstStride2,
                                    int count);
SMX_API SmxStatus smxGaxpy_mvav_32f_P(const float *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                      const float *const *src2, int src2RoiShift, int src2Stride0, int src2Len,
                                      const float *const *src3, int src3RoiShift, int src3Len, float *const *dst,
                                      int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxGaxpy_mvav_32f_L(const float *src1, int src1Stride1, int src1Stride2, int src1Width,
                                      int src1Height, const float *const *src2, int src2RoiShift, int src2Stride2,
                                      int src2Len, const float *src3, int src3Stride2, int src3Len, float *const *dst,
                                      int dstRoiShift, int dstStride2, int count);
SMX_API SmxStatus smxGaxpy_mvav_64f(const double *src1, int src1Stride1, int src1Stride2, int src1Width, int src1Height,
                                    const double *src2, int src2Stride0, int src2Stride2, int src2Len,
                                    const double *src3, int src3Stride2, int src3Len, double *dst, int dstStride0,
                                    int dstStride2, int count);
SMX_API SmxStatus smxGaxpy_mvav_64f_P(const double *const *src1, int src1RoiShift, int src1Width, int src1Height,
                                      const double *const *src2, int src2RoiShift, int src2Stride0, int src2Len,
                                      const double *const *src3, int src3RoiShift, int src3Len, double *const *dst,
                                      int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxGaxpy_mvav_64f_L(const double *src1, int src1Stride1, int src1Stride2, int src1Width,
                                      int src1Height, const double *const *src2, int src2RoiShift, int src2Stride2,
                                      int src2Len, const double *src3, int src3Stride2, int src3Len, double *const *dst,
                                      int dstRoiShift, int dstStride2, int count);

/* Trace: dst[n] = sum over i of src(n, i, i), of square matrices with the side widthHeight.
 *
 * Codes     m                  one matrix; no suffix, _P
 *           ma                 each matrix of an array; no suffix, _P, _L
 * Shapes    dst is one element, or count adjacent elements in every layout.
 * Order     in the element type. Ascending, starting at the first element for sides 3 to 6, else at 0.0. Sides 5 and 6
 *           are, but not in _P, (((d4 + d0) + d1) + d2) + d3 and ((((d4 + d5) + d0) + d1) + d2) + d3: the pointer
 *           layout may differ from the others in the last bits.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst must not overlap src: for other sides than 3 to 6 running sums are stored.
 * Checks    null, count, size, strides, shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every element of dst has been written.
 * Threads   where widthHeight * count is above 20000; 40000 in _L of float with adjacent elements. */
SMX_API SmxStatus smxTrace_m_32f(const float *src, int srcStride1, int srcStride2, int widthHeight, float *dst);
SMX_API SmxStatus smxTrace_m_32f_P(const float *const *src, int srcRoiShift, int widthHeight, float *dst);
SMX_API SmxStatus smxTrace_m_64f(const double *src, int srcStride1, int srcStride2, int widthHeight, double *dst);
SMX_API SmxStatus smxTrace_m_64f_P(const double *const *src, int srcRoiShift, int widthHeight, double *dst);
SMX_API SmxStatus smxTrace_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, int widthHeight,
                                  float *dst, int count);
SMX_API SmxStatus smxTrace_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0, int widthHeight,
                                    float *dst, int count);
SMX_API SmxStatus smxTrace_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                    int widthHeight, float *dst, int count);
SMX_API SmxStatus smxTrace_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, int widthHeight,
                                  double *dst, int count);
SMX_API SmxStatus smxTrace_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0, int widthHeight,
                                    double *dst, int count);
SMX_API SmxStatus smxTrace_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                    int widthHeight, double *dst, int count);

/* Frobenius norm: dst[n] = square root of S, the sum of the squares of all elements of src(n).
 *
 * Codes     m                  one matrix; no suffix, _P
 *           ma                 each matrix of an array; no suffix, _P, _L
 * Shapes    width columns and height rows; dst is one element, or count adjacent elements in every layout.
 * Order     by rows, in double for both types, rounded once after the root. The pointer layout adds the squares in
 *           pairs, (a0^2 + a1^2) + (a2^2 + a3^2) and so on, of an odd number the last one alone, but for the 3 by 3
 *           matrices of ma, which it adds one by one.
 * Cut-off   some members give exactly 0 where S is below the machine epsilon of the element type (2^-23 in float, 2^-52
 *           in double: norms below about 3.5e-4 and 1.5e-8) or where S is not a number. Scale small matrices first, or
 *           use a member without it:
 *
 *             m     float: always                       double: never
 *             m_P   always                              always
 *             ma    but for 3 by 3 matrices and those of 4, 5 or 6 columns (no suffix and _L)
 *             ma_P  but for 3 by 3 matrices
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst[n] may overlap src(n), but no other object.
 * Checks    null, count, size, strides, shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every element of dst has been written.
 * Threads   where width * height * count is above 20000; 40000 in _L of float with adjacent elements. */
SMX_API SmxStatus smxFrobNorm_m_32f(const float *src, int srcStride1, int srcStride2, int width, int height,
                                    float *dst);
SMX_API SmxStatus smxFrobNorm_m_32f_P(const float *const *src, int srcRoiShift, int width, int height, float *dst);
SMX_API SmxStatus smxFrobNorm_m_64f(const double *src, int srcStride1, int srcStride2, int width, int height,
                                    double *dst);
SMX_API SmxStatus smxFrobNorm_m_64f_P(const double *const *src, int srcRoiShift, int width, int height, double *dst);
SMX_API SmxStatus smxFrobNorm_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, int width,
                                     int height, float *dst, int count);
SMX_API SmxStatus smxFrobNorm_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0, int width, int height,
                                       float *dst, int count);
SMX_API SmxStatus smxFrobNorm_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                       int width, int height, float *dst, int count);
SMX_API SmxStatus smxFrobNorm_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, int width,
                                     int height, double *dst, int count);
SMX_API SmxStatus smxFrobNorm_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0, int width, int height,
                                       double *dst, int count);
SMX_API SmxStatus smxFrobNorm_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                       int width, int height, double *dst, int count);

/* Transform of an array of 3D points by one 4 by 4 matrix m = src1, with the perspective division. The fourth
 * coordinate of a point is 1 and not stored. Float and the standard layout only.
 *
 *   t(r) = ((m(r, 0) x + m(r, 3)) + m(r, 1) y) + m(r, 2) z        for the rows r = 0 to 3, in this order
 *   dst(n) = (t(0), t(1), t(2)) * (1 / t(3))
 *
 * Shapes    src1 is row-major; src2 and dst are arrays of count vectors of 3 elements.
 * Strides   in bytes, positive multiples of 4; see smx.h.
 * Overlap   dst may be src2 with the same strides: a point is read whole before its result is stored. The matrix is
 *           read once, before the first store; with more than one thread dst must not overlap it.
 * Checks    null, count, strides.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsStrideMatrixErr.
 * Status    smxStsDivByZeroErr if t(3) of at least one point was at most the smallest normal float (about 1.18e-38) in
 *           magnitude, or not a number. The call goes on: every result has been written, and all three elements of a
 *           bad one are the greatest finite float (about 3.40e38), by which it can be found.
 * Threads   where 6 * count + 16 is above 2000, that is from 331 points on. */
SMX_API SmxStatus smxAffineTransform3DH_mva_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2,
                                                int src2Stride0, int src2Stride2, float *dst, int dstStride0,
                                                int dstStride2, int count);

#ifdef __cplusplus
}
#endif

#endif
