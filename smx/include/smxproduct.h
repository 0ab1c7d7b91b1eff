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
 * Threads   where the elements touched, an array counted count times and a single matrix once, are more than 36864 in
 *           double; 18432 where a stride2 is not the element size, and in _L; 9216 in _P. In float the bound is 6: with
 *           threads_omp_of_n_smk above 1 nearly every float array product is split, also the small one that would be
 *           done sooner on one thread. */
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
