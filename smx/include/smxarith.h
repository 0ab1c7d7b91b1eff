/* Element-wise arithmetic and data movement. */
#ifndef SMXARITH_H
#define SMXARITH_H

#include "smxdefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Matrix addition: dst(n, i, j) = a(n, i, j) + b(n, i, j), a being src1 and b src2.
 *
 * Codes     mm tm tt            two matrices; no suffix, _P
 *           mam tam mat tat     each matrix of an array, plus one matrix; no suffix, _P, _L
 *           mama tama tata      two arrays; no suffix, _P, _L
 *           Addition commutes, so mt, mata and the forms with a single first source do not exist.
 * Shapes    width columns and height rows are those of dst. A t operand is stored with `height` columns and `width`
 *           rows; its pointer table is read at [j * height + i].
 * Strides   in bytes, positive multiples of the element size; see smx.h. The call is fastest where every stride2 is the
 *           element size.
 * Overlap   dst may be a source that is not transposed, with the same strides (the same table and shift, the same
 *           list): that adds in place. In an array form this source must be an array. Nothing else may overlap.
 * Checks    null, count, size, strides, shifts; but mam in the standard layout: null, count, strides, size.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every object has been written.
 * Threads   where width * height * (2 * count + 1), or 3 * width * height * count for two arrays, is at least 36864;
 *           18432 where a stride2 is not the element size, and in _L; 9216 in _P. */
SMX_API SmxStatus smxAdd_mm_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2, int src2Stride1,
                                int src2Stride2, float *dst, int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxAdd_mm_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                  int src2RoiShift, float *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxAdd_mm_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                int src2Stride1, int src2Stride2, double *dst, int dstStride1, int dstStride2,
                                int width, int height);
SMX_API SmxStatus smxAdd_mm_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                  int src2RoiShift, double *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxAdd_tm_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2, int src2Stride1,
                                int src2Stride2, float *dst, int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxAdd_tm_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                  int src2RoiShift, float *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxAdd_tm_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                int src2Stride1, int src2Stride2, double *dst, int dstStride1, int dstStride2,
                                int width, int height);
SMX_API SmxStatus smxAdd_tm_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                  int src2RoiShift, double *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxAdd_tt_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2, int src2Stride1,
                                int src2Stride2, float *dst, int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxAdd_tt_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                  int src2RoiShift, float *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxAdd_tt_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                int src2Stride1, int src2Stride2, double *dst, int dstStride1, int dstStride2,
                                int width, int height);
SMX_API SmxStatus smxAdd_tt_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                  int src2RoiShift, double *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxAdd_mam_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const float *src2, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_mam_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                   const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_mam_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const float *src2, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_mam_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const double *src2, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_mam_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                   const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_mam_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const double *src2, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tam_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const float *src2, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tam_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                   const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_tam_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const float *src2, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tam_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const double *src2, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tam_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                   const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_tam_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const double *src2, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_mat_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const float *src2, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_mat_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                   const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_mat_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const float *src2, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_mat_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const double *src2, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_mat_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                   const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_mat_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const double *src2, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tat_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const float *src2, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tat_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                   const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_tat_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const float *src2, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tat_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const double *src2, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tat_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                   const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_tat_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const double *src2, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_mama_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, float *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_mama_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                    const float *const *src2, int src2RoiShift, int src2Stride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_mama_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    float *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxAdd_mama_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, double *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_mama_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                    const double *const *src2, int src2RoiShift, int src2Stride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_mama_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    double *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxAdd_tama_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, float *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tama_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                    const float *const *src2, int src2RoiShift, int src2Stride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_tama_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    float *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxAdd_tama_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, double *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tama_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                    const double *const *src2, int src2RoiShift, int src2Stride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_tama_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    double *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxAdd_tata_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, float *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tata_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                    const float *const *src2, int src2RoiShift, int src2Stride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_tata_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    float *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxAdd_tata_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, double *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxAdd_tata_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                    const double *const *src2, int src2RoiShift, int src2Stride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxAdd_tata_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    double *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);

/* Matrix subtraction: dst(n, i, j) = a(n, i, j) - b(n, i, j), a being src1 and b src2.
 *
 * Codes     mm tm mt tt           two matrices; no suffix, _P
 *           mam tam mat tat       one matrix subtracted from each of an array; no suffix, _P, _L
 *           mma tma mta tta       each matrix of an array subtracted from one; no suffix, _P, _L
 *           mama tama mata tata   two arrays; no suffix, _P, _L
 * Shapes, strides, overlap, status, threads: as for addition above.
 * Checks    null, count, size, strides, shifts; but mam and mma in the standard layout: null, count, strides, size. */
SMX_API SmxStatus smxSub_mm_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2, int src2Stride1,
                                int src2Stride2, float *dst, int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxSub_mm_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                  int src2RoiShift, float *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxSub_mm_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                int src2Stride1, int src2Stride2, double *dst, int dstStride1, int dstStride2,
                                int width, int height);
SMX_API SmxStatus smxSub_mm_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                  int src2RoiShift, double *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxSub_tm_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2, int src2Stride1,
                                int src2Stride2, float *dst, int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxSub_tm_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                  int src2RoiShift, float *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxSub_tm_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                int src2Stride1, int src2Stride2, double *dst, int dstStride1, int dstStride2,
                                int width, int height);
SMX_API SmxStatus smxSub_tm_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                  int src2RoiShift, double *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxSub_mt_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2, int src2Stride1,
                                int src2Stride2, float *dst, int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxSub_mt_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                  int src2RoiShift, float *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxSub_mt_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                int src2Stride1, int src2Stride2, double *dst, int dstStride1, int dstStride2,
                                int width, int height);
SMX_API SmxStatus smxSub_mt_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                  int src2RoiShift, double *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxSub_tt_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2, int src2Stride1,
                                int src2Stride2, float *dst, int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxSub_tt_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                  int src2RoiShift, float *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxSub_tt_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                int src2Stride1, int src2Stride2, double *dst, int dstStride1, int dstStride2,
                                int width, int height);
SMX_API SmxStatus smxSub_tt_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                  int src2RoiShift, double *const *dst, int dstRoiShift, int width, int height);
SMX_API SmxStatus smxSub_mam_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const float *src2, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mam_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                   const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mam_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const float *src2, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mam_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const double *src2, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mam_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                   const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mam_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const double *src2, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tam_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const float *src2, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tam_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                   const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tam_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const float *src2, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tam_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const double *src2, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tam_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                   const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tam_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const double *src2, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mat_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const float *src2, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mat_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                   const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mat_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const float *src2, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mat_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const double *src2, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mat_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                   const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mat_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const double *src2, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tat_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const float *src2, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tat_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                   const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tat_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const float *src2, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tat_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                 const double *src2, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tat_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                   const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tat_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                   const double *src2, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mama_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, float *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mama_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                    const float *const *src2, int src2RoiShift, int src2Stride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mama_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    float *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxSub_mama_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, double *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mama_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                    const double *const *src2, int src2RoiShift, int src2Stride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mama_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    double *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxSub_tama_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, float *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tama_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                    const float *const *src2, int src2RoiShift, int src2Stride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tama_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    float *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxSub_tama_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, double *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tama_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                    const double *const *src2, int src2RoiShift, int src2Stride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tama_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    double *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxSub_mata_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, float *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mata_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                    const float *const *src2, int src2RoiShift, int src2Stride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mata_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    float *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxSub_mata_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, double *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mata_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                    const double *const *src2, int src2RoiShift, int src2Stride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mata_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    double *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxSub_tata_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const float *src2, int src2Stride0, int src2Stride1, int src2Stride2, float *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tata_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                    const float *const *src2, int src2RoiShift, int src2Stride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tata_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const float *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    float *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxSub_tata_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                  const double *src2, int src2Stride0, int src2Stride1, int src2Stride2, double *dst,
                                  int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tata_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                    const double *const *src2, int src2RoiShift, int src2Stride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tata_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1, int src1Stride2,
                                    const double *const *src2, int src2RoiShift, int src2Stride1, int src2Stride2,
                                    double *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxSub_mma_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2,
                                 int src2Stride0, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mma_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                   int src2RoiShift, int src2Stride0, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mma_32f_L(const float *src1, int src1Stride1, int src1Stride2, const float *const *src2,
                                   int src2RoiShift, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mma_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                 int src2Stride0, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mma_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                   int src2RoiShift, int src2Stride0, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mma_64f_L(const double *src1, int src1Stride1, int src1Stride2, const double *const *src2,
                                   int src2RoiShift, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tma_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2,
                                 int src2Stride0, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tma_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                   int src2RoiShift, int src2Stride0, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tma_32f_L(const float *src1, int src1Stride1, int src1Stride2, const float *const *src2,
                                   int src2RoiShift, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tma_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                 int src2Stride0, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tma_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                   int src2RoiShift, int src2Stride0, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tma_64f_L(const double *src1, int src1Stride1, int src1Stride2, const double *const *src2,
                                   int src2RoiShift, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mta_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2,
                                 int src2Stride0, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mta_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                   int src2RoiShift, int src2Stride0, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mta_32f_L(const float *src1, int src1Stride1, int src1Stride2, const float *const *src2,
                                   int src2RoiShift, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mta_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                 int src2Stride0, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_mta_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                   int src2RoiShift, int src2Stride0, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_mta_64f_L(const double *src1, int src1Stride1, int src1Stride2, const double *const *src2,
                                   int src2RoiShift, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tta_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2,
                                 int src2Stride0, int src2Stride1, int src2Stride2, float *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tta_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                   int src2RoiShift, int src2Stride0, float *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tta_32f_L(const float *src1, int src1Stride1, int src1Stride2, const float *const *src2,
                                   int src2RoiShift, int src2Stride1, int src2Stride2, float *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tta_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                 int src2Stride0, int src2Stride1, int src2Stride2, double *dst, int dstStride0,
                                 int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxSub_tta_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                   int src2RoiShift, int src2Stride0, double *const *dst, int dstRoiShift,
                                   int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxSub_tta_64f_L(const double *src1, int src1Stride1, int src1Stride2, const double *const *src2,
                                   int src2RoiShift, int src2Stride1, int src2Stride2, double *const *dst,
                                   int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);

#ifdef __cplusplus
}
#endif

#endif
