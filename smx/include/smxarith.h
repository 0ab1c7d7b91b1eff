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

/* Vector and constant addition: dst(n, j) = x(n, j) + y(n, j).
 *
 * Codes     vv vc                  one vector plus one vector, or plus the constant `val`; no suffix, _P
 *           vav vava vac           each vector of an array, plus one vector, one of a second array, or `val`
 *           vaca vca               each vector of an array, or one vector, plus the constant of each object, vals(n)
 * Shapes    vectors of `len` elements. In the argument list the vector comes before the constant, whatever the code.
 * Strides   in bytes, positive multiples of the element size; see smx.h. `vals` is one element every valsStride0 bytes
 *           in the standard and the pointer layout, and a list with a shift in _L.
 * Overlap   dst may be an array source with the same strides (the same table and shift, the same list), or a single
 *           source of a single form: that adds in place. On one thread elements are read, computed and stored in
 *           ascending order, so a result under the single vector of vav (of vva in float, too) is seen by later
 *           objects, but for len 3 to 6 in the standard layout, where that vector is read once; the constant of an
 *           object is read before its elements. Nothing else may overlap.
 * Checks    null, count, size, strides, shifts; without count in the single forms. But vav: null, size, strides, count
 *           in the standard layout; the same and then shifts in _P; null, size, strides, shifts, count in _L. And
 *           smxAdd_vca_64f_P does not test its shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every object has been written.
 * Threads   where the elements touched are above 20000, or 40000 in the _L members for float. They are counted as
 *           2 * len * count + len (vav, vac), 2 * len * count + count (vaca), 3 * len * count (vava),
 *           len * count + len + count (vca). */
SMX_API SmxStatus smxAdd_vv_32f(const float *src1, int src1Stride2, const float *src2, int src2Stride2, float *dst,
                                int dstStride2, int len);
SMX_API SmxStatus smxAdd_vv_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                  int src2RoiShift, float *const *dst, int dstRoiShift, int len);
SMX_API SmxStatus smxAdd_vv_64f(const double *src1, int src1Stride2, const double *src2, int src2Stride2, double *dst,
                                int dstStride2, int len);
SMX_API SmxStatus smxAdd_vv_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                  int src2RoiShift, double *const *dst, int dstRoiShift, int len);
SMX_API SmxStatus smxAdd_vc_32f(const float *src, int srcStride2, float val, float *dst, int dstStride2, int len);
SMX_API SmxStatus smxAdd_vc_32f_P(const float *const *src, int srcRoiShift, float val, float *const *dst,
                                  int dstRoiShift, int len);
SMX_API SmxStatus smxAdd_vc_64f(const double *src, int srcStride2, double val, double *dst, int dstStride2, int len);
SMX_API SmxStatus smxAdd_vc_64f_P(const double *const *src, int srcRoiShift, double val, double *const *dst,
                                  int dstRoiShift, int len);
SMX_API SmxStatus smxAdd_vav_32f(const float *src1, int src1Stride0, int src1Stride2, const float *src2,
                                 int src2Stride2, float *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vav_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                   const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                   int dstStride0, int len, int count);
SMX_API SmxStatus smxAdd_vav_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2, const float *src2,
                                   int src2Stride2, float *const *dst, int dstRoiShift, int dstStride2, int len,
                                   int count);
SMX_API SmxStatus smxAdd_vav_64f(const double *src1, int src1Stride0, int src1Stride2, const double *src2,
                                 int src2Stride2, double *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vav_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                   const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                   int dstStride0, int len, int count);
SMX_API SmxStatus smxAdd_vav_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2, const double *src2,
                                   int src2Stride2, double *const *dst, int dstRoiShift, int dstStride2, int len,
                                   int count);
SMX_API SmxStatus smxAdd_vava_32f(const float *src1, int src1Stride0, int src1Stride2, const float *src2,
                                  int src2Stride0, int src2Stride2, float *dst, int dstStride0, int dstStride2, int len,
                                  int count);
SMX_API SmxStatus smxAdd_vava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                    const float *const *src2, int src2RoiShift, int src2Stride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxAdd_vava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2,
                                    const float *const *src2, int src2RoiShift, int src2Stride2, float *const *dst,
                                    int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vava_64f(const double *src1, int src1Stride0, int src1Stride2, const double *src2,
                                  int src2Stride0, int src2Stride2, double *dst, int dstStride0, int dstStride2,
                                  int len, int count);
SMX_API SmxStatus smxAdd_vava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                    const double *const *src2, int src2RoiShift, int src2Stride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxAdd_vava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2,
                                    const double *const *src2, int src2RoiShift, int src2Stride2, double *const *dst,
                                    int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vac_32f(const float *src, int srcStride0, int srcStride2, float val, float *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vac_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float val,
                                   float *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxAdd_vac_32f_L(const float *const *src, int srcRoiShift, int srcStride2, float val,
                                   float *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vac_64f(const double *src, int srcStride0, int srcStride2, double val, double *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vac_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double val,
                                   double *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxAdd_vac_64f_L(const double *const *src, int srcRoiShift, int srcStride2, double val,
                                   double *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vaca_32f(const float *src, int srcStride0, int srcStride2, const float *vals, int valsStride0,
                                  float *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vaca_32f_P(const float *const *src, int srcRoiShift, int srcStride0, const float *vals,
                                    int valsStride0, float *const *dst, int dstRoiShift, int dstStride0, int len,
                                    int count);
SMX_API SmxStatus smxAdd_vaca_32f_L(const float *const *src, int srcRoiShift, int srcStride2, const float *const *vals,
                                    int valsRoiShift, float *const *dst, int dstRoiShift, int dstStride2, int len,
                                    int count);
SMX_API SmxStatus smxAdd_vaca_64f(const double *src, int srcStride0, int srcStride2, const double *vals,
                                  int valsStride0, double *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vaca_64f_P(const double *const *src, int srcRoiShift, int srcStride0, const double *vals,
                                    int valsStride0, double *const *dst, int dstRoiShift, int dstStride0, int len,
                                    int count);
SMX_API SmxStatus smxAdd_vaca_64f_L(const double *const *src, int srcRoiShift, int srcStride2,
                                    const double *const *vals, int valsRoiShift, double *const *dst, int dstRoiShift,
                                    int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vca_32f(const float *src, int srcStride2, const float *vals, int valsStride0, float *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vca_32f_P(const float *const *src, int srcRoiShift, const float *vals, int valsStride0,
                                   float *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxAdd_vca_32f_L(const float *src, int srcStride2, const float *const *vals, int valsRoiShift,
                                   float *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vca_64f(const double *src, int srcStride2, const double *vals, int valsStride0, double *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxAdd_vca_64f_P(const double *const *src, int srcRoiShift, const double *vals, int valsStride0,
                                   double *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxAdd_vca_64f_L(const double *src, int srcStride2, const double *const *vals, int valsRoiShift,
                                   double *const *dst, int dstRoiShift, int dstStride2, int len, int count);

/* Vector and constant subtraction: dst(n, j) = x(n, j) - y(n, j), in the order of the code's letters.
 *
 * Codes     vv vc cv               two vectors; vector minus `val`; `val` minus vector; no suffix, _P
 *           vav vva vava           with one or two arrays of vectors; no suffix, _P, _L
 *           vac cva                each vector of an array minus `val`, or `val` minus each
 *           vaca cava vca cav      with the constant of each object, vals(n)
 *           cv, cva, cava and cav have the argument lists of vc, vac, vaca and vca: the vector comes first.
 * Shapes, strides, overlap, statuses: as for addition.
 * Checks    as for addition; the member that does not test its shifts is smxSub_cav_32f_P.
 * Threads   as for addition, vva counting like vav, cava like vaca, cav like vca; but cva counts 2 * count + 1, without
 *           its length. */
SMX_API SmxStatus smxSub_vv_32f(const float *src1, int src1Stride2, const float *src2, int src2Stride2, float *dst,
                                int dstStride2, int len);
SMX_API SmxStatus smxSub_vv_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                  int src2RoiShift, float *const *dst, int dstRoiShift, int len);
SMX_API SmxStatus smxSub_vv_64f(const double *src1, int src1Stride2, const double *src2, int src2Stride2, double *dst,
                                int dstStride2, int len);
SMX_API SmxStatus smxSub_vv_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                  int src2RoiShift, double *const *dst, int dstRoiShift, int len);
SMX_API SmxStatus smxSub_vc_32f(const float *src, int srcStride2, float val, float *dst, int dstStride2, int len);
SMX_API SmxStatus smxSub_vc_32f_P(const float *const *src, int srcRoiShift, float val, float *const *dst,
                                  int dstRoiShift, int len);
SMX_API SmxStatus smxSub_vc_64f(const double *src, int srcStride2, double val, double *dst, int dstStride2, int len);
SMX_API SmxStatus smxSub_vc_64f_P(const double *const *src, int srcRoiShift, double val, double *const *dst,
                                  int dstRoiShift, int len);
SMX_API SmxStatus smxSub_cv_32f(const float *src, int srcStride2, float val, float *dst, int dstStride2, int len);
SMX_API SmxStatus smxSub_cv_32f_P(const float *const *src, int srcRoiShift, float val, float *const *dst,
                                  int dstRoiShift, int len);
SMX_API SmxStatus smxSub_cv_64f(const double *src, int srcStride2, double val, double *dst, int dstStride2, int len);
SMX_API SmxStatus smxSub_cv_64f_P(const double *const *src, int srcRoiShift, double val, double *const *dst,
                                  int dstRoiShift, int len);
SMX_API SmxStatus smxSub_vav_32f(const float *src1, int src1Stride0, int src1Stride2, const float *src2,
                                 int src2Stride2, float *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vav_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                   const float *const *src2, int src2RoiShift, float *const *dst, int dstRoiShift,
                                   int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_vav_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2, const float *src2,
                                   int src2Stride2, float *const *dst, int dstRoiShift, int dstStride2, int len,
                                   int count);
SMX_API SmxStatus smxSub_vav_64f(const double *src1, int src1Stride0, int src1Stride2, const double *src2,
                                 int src2Stride2, double *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vav_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                   const double *const *src2, int src2RoiShift, double *const *dst, int dstRoiShift,
                                   int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_vav_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2, const double *src2,
                                   int src2Stride2, double *const *dst, int dstRoiShift, int dstStride2, int len,
                                   int count);
SMX_API SmxStatus smxSub_vva_32f(const float *src1, int src1Stride2, const float *src2, int src2Stride0,
                                 int src2Stride2, float *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vva_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                   int src2RoiShift, int src2Stride0, float *const *dst, int dstRoiShift,
                                   int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_vva_32f_L(const float *src1, int src1Stride2, const float *const *src2, int src2RoiShift,
                                   int src2Stride2, float *const *dst, int dstRoiShift, int dstStride2, int len,
                                   int count);
SMX_API SmxStatus smxSub_vva_64f(const double *src1, int src1Stride2, const double *src2, int src2Stride0,
                                 int src2Stride2, double *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vva_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                   int src2RoiShift, int src2Stride0, double *const *dst, int dstRoiShift,
                                   int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_vva_64f_L(const double *src1, int src1Stride2, const double *const *src2, int src2RoiShift,
                                   int src2Stride2, double *const *dst, int dstRoiShift, int dstStride2, int len,
                                   int count);
SMX_API SmxStatus smxSub_vava_32f(const float *src1, int src1Stride0, int src1Stride2, const float *src2,
                                  int src2Stride0, int src2Stride2, float *dst, int dstStride0, int dstStride2, int len,
                                  int count);
SMX_API SmxStatus smxSub_vava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                    const float *const *src2, int src2RoiShift, int src2Stride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_vava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride2,
                                    const float *const *src2, int src2RoiShift, int src2Stride2, float *const *dst,
                                    int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vava_64f(const double *src1, int src1Stride0, int src1Stride2, const double *src2,
                                  int src2Stride0, int src2Stride2, double *dst, int dstStride0, int dstStride2,
                                  int len, int count);
SMX_API SmxStatus smxSub_vava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                    const double *const *src2, int src2RoiShift, int src2Stride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_vava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride2,
                                    const double *const *src2, int src2RoiShift, int src2Stride2, double *const *dst,
                                    int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vac_32f(const float *src, int srcStride0, int srcStride2, float val, float *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vac_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float val,
                                   float *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_vac_32f_L(const float *const *src, int srcRoiShift, int srcStride2, float val,
                                   float *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vac_64f(const double *src, int srcStride0, int srcStride2, double val, double *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vac_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double val,
                                   double *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_vac_64f_L(const double *const *src, int srcRoiShift, int srcStride2, double val,
                                   double *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cva_32f(const float *src, int srcStride0, int srcStride2, float val, float *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cva_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float val,
                                   float *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_cva_32f_L(const float *const *src, int srcRoiShift, int srcStride2, float val,
                                   float *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cva_64f(const double *src, int srcStride0, int srcStride2, double val, double *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cva_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double val,
                                   double *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_cva_64f_L(const double *const *src, int srcRoiShift, int srcStride2, double val,
                                   double *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vaca_32f(const float *src, int srcStride0, int srcStride2, const float *vals, int valsStride0,
                                  float *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vaca_32f_P(const float *const *src, int srcRoiShift, int srcStride0, const float *vals,
                                    int valsStride0, float *const *dst, int dstRoiShift, int dstStride0, int len,
                                    int count);
SMX_API SmxStatus smxSub_vaca_32f_L(const float *const *src, int srcRoiShift, int srcStride2, const float *const *vals,
                                    int valsRoiShift, float *const *dst, int dstRoiShift, int dstStride2, int len,
                                    int count);
SMX_API SmxStatus smxSub_vaca_64f(const double *src, int srcStride0, int srcStride2, const double *vals,
                                  int valsStride0, double *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vaca_64f_P(const double *const *src, int srcRoiShift, int srcStride0, const double *vals,
                                    int valsStride0, double *const *dst, int dstRoiShift, int dstStride0, int len,
                                    int count);
SMX_API SmxStatus smxSub_vaca_64f_L(const double *const *src, int srcRoiShift, int srcStride2,
                                    const double *const *vals, int valsRoiShift, double *const *dst, int dstRoiShift,
                                    int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cava_32f(const float *src, int srcStride0, int srcStride2, const float *vals, int valsStride0,
                                  float *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cava_32f_P(const float *const *src, int srcRoiShift, int srcStride0, const float *vals,
                                    int valsStride0, float *const *dst, int dstRoiShift, int dstStride0, int len,
                                    int count);
SMX_API SmxStatus smxSub_cava_32f_L(const float *const *src, int srcRoiShift, int srcStride2, const float *const *vals,
                                    int valsRoiShift, float *const *dst, int dstRoiShift, int dstStride2, int len,
                                    int count);
SMX_API SmxStatus smxSub_cava_64f(const double *src, int srcStride0, int srcStride2, const double *vals,
                                  int valsStride0, double *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cava_64f_P(const double *const *src, int srcRoiShift, int srcStride0, const double *vals,
                                    int valsStride0, double *const *dst, int dstRoiShift, int dstStride0, int len,
                                    int count);
SMX_API SmxStatus smxSub_cava_64f_L(const double *const *src, int srcRoiShift, int srcStride2,
                                    const double *const *vals, int valsRoiShift, double *const *dst, int dstRoiShift,
                                    int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vca_32f(const float *src, int srcStride2, const float *vals, int valsStride0, float *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vca_32f_P(const float *const *src, int srcRoiShift, const float *vals, int valsStride0,
                                   float *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_vca_32f_L(const float *src, int srcStride2, const float *const *vals, int valsRoiShift,
                                   float *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vca_64f(const double *src, int srcStride2, const double *vals, int valsStride0, double *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_vca_64f_P(const double *const *src, int srcRoiShift, const double *vals, int valsStride0,
                                   double *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_vca_64f_L(const double *src, int srcStride2, const double *const *vals, int valsRoiShift,
                                   double *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cav_32f(const float *src, int srcStride2, const float *vals, int valsStride0, float *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cav_32f_P(const float *const *src, int srcRoiShift, const float *vals, int valsStride0,
                                   float *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_cav_32f_L(const float *src, int srcStride2, const float *const *vals, int valsRoiShift,
                                   float *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cav_64f(const double *src, int srcStride2, const double *vals, int valsStride0, double *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxSub_cav_64f_P(const double *const *src, int srcRoiShift, const double *vals, int valsStride0,
                                   double *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxSub_cav_64f_L(const double *src, int srcStride2, const double *const *vals, int valsRoiShift,
                                   double *const *dst, int dstRoiShift, int dstStride2, int len, int count);

/* Vector by constant: dst(n, j) = src(n, j) * val, or * vals(n).
 *
 * Codes     vc                     one vector by `val`; no suffix, _P
 *           vac vaca vca           each vector of an array by `val` or by vals(n), one vector by each vals(n)
 * Shapes, strides, overlap, statuses: as for addition.
 * Checks    null, count, size, strides, shifts; without count in vc.
 * Threads   vac for float: where 2 * len * count is above 6; for double above 36864, 18432 where a stride2 is not the
 *           element size and in _L, 9216 in _P. vaca and vca count 2 * len * count + count and len * count + len +
 *           count, above 36864, 9216 in _P, 18432 in _L. */
SMX_API SmxStatus smxMul_vc_32f(const float *src, int srcStride2, float val, float *dst, int dstStride2, int len);
SMX_API SmxStatus smxMul_vc_32f_P(const float *const *src, int srcRoiShift, float val, float *const *dst,
                                  int dstRoiShift, int len);
SMX_API SmxStatus smxMul_vc_64f(const double *src, int srcStride2, double val, double *dst, int dstStride2, int len);
SMX_API SmxStatus smxMul_vc_64f_P(const double *const *src, int srcRoiShift, double val, double *const *dst,
                                  int dstRoiShift, int len);
SMX_API SmxStatus smxMul_vac_32f(const float *src, int srcStride0, int srcStride2, float val, float *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxMul_vac_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float val,
                                   float *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxMul_vac_32f_L(const float *const *src, int srcRoiShift, int srcStride2, float val,
                                   float *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxMul_vac_64f(const double *src, int srcStride0, int srcStride2, double val, double *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxMul_vac_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double val,
                                   double *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxMul_vac_64f_L(const double *const *src, int srcRoiShift, int srcStride2, double val,
                                   double *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxMul_vaca_32f(const float *src, int srcStride0, int srcStride2, const float *vals, int valsStride0,
                                  float *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxMul_vaca_32f_P(const float *const *src, int srcRoiShift, int srcStride0, const float *vals,
                                    int valsStride0, float *const *dst, int dstRoiShift, int dstStride0, int len,
                                    int count);
SMX_API SmxStatus smxMul_vaca_32f_L(const float *const *src, int srcRoiShift, int srcStride2, const float *const *vals,
                                    int valsRoiShift, float *const *dst, int dstRoiShift, int dstStride2, int len,
                                    int count);
SMX_API SmxStatus smxMul_vaca_64f(const double *src, int srcStride0, int srcStride2, const double *vals,
                                  int valsStride0, double *dst, int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxMul_vaca_64f_P(const double *const *src, int srcRoiShift, int srcStride0, const double *vals,
                                    int valsStride0, double *const *dst, int dstRoiShift, int dstStride0, int len,
                                    int count);
SMX_API SmxStatus smxMul_vaca_64f_L(const double *const *src, int srcRoiShift, int srcStride2,
                                    const double *const *vals, int valsRoiShift, double *const *dst, int dstRoiShift,
                                    int dstStride2, int len, int count);
SMX_API SmxStatus smxMul_vca_32f(const float *src, int srcStride2, const float *vals, int valsStride0, float *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxMul_vca_32f_P(const float *const *src, int srcRoiShift, const float *vals, int valsStride0,
                                   float *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxMul_vca_32f_L(const float *src, int srcStride2, const float *const *vals, int valsRoiShift,
                                   float *const *dst, int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxMul_vca_64f(const double *src, int srcStride2, const double *vals, int valsStride0, double *dst,
                                 int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxMul_vca_64f_P(const double *const *src, int srcRoiShift, const double *vals, int valsStride0,
                                   double *const *dst, int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxMul_vca_64f_L(const double *src, int srcStride2, const double *const *vals, int valsRoiShift,
                                   double *const *dst, int dstRoiShift, int dstStride2, int len, int count);

/* Copy between the layouts: each element of each object, dst(n, i, j) = src(n, i, j).
 *
 * Codes     va ma                  arrays of vectors of `len` elements, of matrices of `width` by `height`
 * Layouts   two letters, the source's and the destination's: S standard, P pointers, L list; all nine pairs.
 * Strides   in bytes, positive multiples of the element size; see smx.h. An object stride counts, and is tested, only
 *           where count is above 1.
 * Overlap   dst may overlap src: the copy proceeds element by element in ascending order.
 * Checks    null, size, count, strides within an object, shifts, object strides; but smxCopy_va_32f_SP and _LP test
 *           shifts before the strides within an object.
 *           smxStsNullPtrErr, smxStsSizeErr, smxStsCountMatrixErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure.
 * Threads   none: the calling thread copies. */
SMX_API SmxStatus smxCopy_va_32f_SS(const float *src, int srcStride0, int srcStride2, float *dst, int dstStride0,
                                    int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_32f_SP(const float *src, int srcStride0, int srcStride2, float *const *dst,
                                    int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxCopy_va_32f_SL(const float *src, int srcStride0, int srcStride2, float *const *dst,
                                    int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_32f_PS(const float *const *src, int srcRoiShift, int srcStride0, float *dst,
                                    int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_32f_PP(const float *const *src, int srcRoiShift, int srcStride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxCopy_va_32f_PL(const float *const *src, int srcRoiShift, int srcStride0, float *const *dst,
                                    int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_32f_LS(const float *const *src, int srcRoiShift, int srcStride2, float *dst,
                                    int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_32f_LP(const float *const *src, int srcRoiShift, int srcStride2, float *const *dst,
                                    int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxCopy_va_32f_LL(const float *const *src, int srcRoiShift, int srcStride2, float *const *dst,
                                    int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_64f_SS(const double *src, int srcStride0, int srcStride2, double *dst, int dstStride0,
                                    int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_64f_SP(const double *src, int srcStride0, int srcStride2, double *const *dst,
                                    int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxCopy_va_64f_SL(const double *src, int srcStride0, int srcStride2, double *const *dst,
                                    int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_64f_PS(const double *const *src, int srcRoiShift, int srcStride0, double *dst,
                                    int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_64f_PP(const double *const *src, int srcRoiShift, int srcStride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxCopy_va_64f_PL(const double *const *src, int srcRoiShift, int srcStride0, double *const *dst,
                                    int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_64f_LS(const double *const *src, int srcRoiShift, int srcStride2, double *dst,
                                    int dstStride0, int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_va_64f_LP(const double *const *src, int srcRoiShift, int srcStride2, double *const *dst,
                                    int dstRoiShift, int dstStride0, int len, int count);
SMX_API SmxStatus smxCopy_va_64f_LL(const double *const *src, int srcRoiShift, int srcStride2, double *const *dst,
                                    int dstRoiShift, int dstStride2, int len, int count);
SMX_API SmxStatus smxCopy_ma_32f_SS(const float *src, int srcStride0, int srcStride1, int srcStride2, float *dst,
                                    int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxCopy_ma_32f_SP(const float *src, int srcStride0, int srcStride1, int srcStride2, float *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxCopy_ma_32f_SL(const float *src, int srcStride0, int srcStride1, int srcStride2, float *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxCopy_ma_32f_PS(const float *const *src, int srcRoiShift, int srcStride0, float *dst,
                                    int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxCopy_ma_32f_PP(const float *const *src, int srcRoiShift, int srcStride0, float *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxCopy_ma_32f_PL(const float *const *src, int srcRoiShift, int srcStride0, float *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxCopy_ma_32f_LS(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                    float *dst, int dstStride0, int dstStride1, int dstStride2, int width, int height,
                                    int count);
SMX_API SmxStatus smxCopy_ma_32f_LP(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                    float *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                    int count);
SMX_API SmxStatus smxCopy_ma_32f_LL(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                    float *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxCopy_ma_64f_SS(const double *src, int srcStride0, int srcStride1, int srcStride2, double *dst,
                                    int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxCopy_ma_64f_SP(const double *src, int srcStride0, int srcStride1, int srcStride2,
                                    double *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                    int count);
SMX_API SmxStatus smxCopy_ma_64f_SL(const double *src, int srcStride0, int srcStride1, int srcStride2,
                                    double *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);
SMX_API SmxStatus smxCopy_ma_64f_PS(const double *const *src, int srcRoiShift, int srcStride0, double *dst,
                                    int dstStride0, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxCopy_ma_64f_PP(const double *const *src, int srcRoiShift, int srcStride0, double *const *dst,
                                    int dstRoiShift, int dstStride0, int width, int height, int count);
SMX_API SmxStatus smxCopy_ma_64f_PL(const double *const *src, int srcRoiShift, int srcStride0, double *const *dst,
                                    int dstRoiShift, int dstStride1, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxCopy_ma_64f_LS(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                    double *dst, int dstStride0, int dstStride1, int dstStride2, int width, int height,
                                    int count);
SMX_API SmxStatus smxCopy_ma_64f_LP(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                    double *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                    int count);
SMX_API SmxStatus smxCopy_ma_64f_LL(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                    double *const *dst, int dstRoiShift, int dstStride1, int dstStride2, int width,
                                    int height, int count);

/* Extract: gathers objects into one dense array without strides.
 *
 * Codes     v m t                  one object; no suffix, _P.  va ma ta   an array; no suffix, _P, _L
 * Formula   dst[n * len + j] = src(n, j);  dst[(n * height + i) * width + j] = src(n, i, j), a t operand being read
 *           transposed: width and height are those of the result, its source is stored with `width` rows.
 * Overlap   dst must not overlap src.
 * Checks    single forms: null, size, strides or shift; but in _P size, null, shift (not smxExtract_v_32f_P). Arrays:
 *           null, size, count, shift, strides, the object stride also where count is 1. Statuses as for Copy.
 * Status    no other failure.
 * Threads   none. */
SMX_API SmxStatus smxExtract_v_32f(const float *src, int srcStride2, float *dst, int len);
SMX_API SmxStatus smxExtract_v_32f_P(const float *const *src, int srcRoiShift, float *dst, int len);
SMX_API SmxStatus smxExtract_v_64f(const double *src, int srcStride2, double *dst, int len);
SMX_API SmxStatus smxExtract_v_64f_P(const double *const *src, int srcRoiShift, double *dst, int len);
SMX_API SmxStatus smxExtract_va_32f(const float *src, int srcStride0, int srcStride2, float *dst, int len, int count);
SMX_API SmxStatus smxExtract_va_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float *dst, int len,
                                      int count);
SMX_API SmxStatus smxExtract_va_32f_L(const float *const *src, int srcRoiShift, int srcStride2, float *dst, int len,
                                      int count);
SMX_API SmxStatus smxExtract_va_64f(const double *src, int srcStride0, int srcStride2, double *dst, int len, int count);
SMX_API SmxStatus smxExtract_va_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double *dst, int len,
                                      int count);
SMX_API SmxStatus smxExtract_va_64f_L(const double *const *src, int srcRoiShift, int srcStride2, double *dst, int len,
                                      int count);
SMX_API SmxStatus smxExtract_m_32f(const float *src, int srcStride1, int srcStride2, float *dst, int width, int height);
SMX_API SmxStatus smxExtract_m_32f_P(const float *const *src, int srcRoiShift, float *dst, int width, int height);
SMX_API SmxStatus smxExtract_m_64f(const double *src, int srcStride1, int srcStride2, double *dst, int width,
                                   int height);
SMX_API SmxStatus smxExtract_m_64f_P(const double *const *src, int srcRoiShift, double *dst, int width, int height);
SMX_API SmxStatus smxExtract_t_32f(const float *src, int srcStride1, int srcStride2, float *dst, int width, int height);
SMX_API SmxStatus smxExtract_t_32f_P(const float *const *src, int srcRoiShift, float *dst, int width, int height);
SMX_API SmxStatus smxExtract_t_64f(const double *src, int srcStride1, int srcStride2, double *dst, int width,
                                   int height);
SMX_API SmxStatus smxExtract_t_64f_P(const double *const *src, int srcRoiShift, double *dst, int width, int height);
SMX_API SmxStatus smxExtract_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, float *dst,
                                    int width, int height, int count);
SMX_API SmxStatus smxExtract_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float *dst, int width,
                                      int height, int count);
SMX_API SmxStatus smxExtract_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                      float *dst, int width, int height, int count);
SMX_API SmxStatus smxExtract_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, double *dst,
                                    int width, int height, int count);
SMX_API SmxStatus smxExtract_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double *dst, int width,
                                      int height, int count);
SMX_API SmxStatus smxExtract_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                      double *dst, int width, int height, int count);
SMX_API SmxStatus smxExtract_ta_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, float *dst,
                                    int width, int height, int count);
SMX_API SmxStatus smxExtract_ta_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float *dst, int width,
                                      int height, int count);
SMX_API SmxStatus smxExtract_ta_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                      float *dst, int width, int height, int count);
SMX_API SmxStatus smxExtract_ta_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, double *dst,
                                    int width, int height, int count);
SMX_API SmxStatus smxExtract_ta_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double *dst, int width,
                                      int height, int count);
SMX_API SmxStatus smxExtract_ta_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                      double *dst, int width, int height, int count);

/* LoadIdentity: dst(n, i, j) = 1 where i is j, else 0. A matrix need not be square: rows below the diagonal's end are
 * 0.
 *
 * Checks    null, size, count, strides within an object, shift, and dstStride0 only where count is above 1; but
 *           smxLoadIdentity_ma_32f_P tests the shift before the count. Statuses as for Copy.
 * Status    no other failure.
 * Threads   none. */
SMX_API SmxStatus smxLoadIdentity_ma_32f(float *dst, int dstStride0, int dstStride1, int dstStride2, int width,
                                         int height, int count);
SMX_API SmxStatus smxLoadIdentity_ma_32f_P(float *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                           int count);
SMX_API SmxStatus smxLoadIdentity_ma_32f_L(float *const *dst, int dstRoiShift, int dstStride1, int dstStride2,
                                           int width, int height, int count);
SMX_API SmxStatus smxLoadIdentity_ma_64f(double *dst, int dstStride0, int dstStride1, int dstStride2, int width,
                                         int height, int count);
SMX_API SmxStatus smxLoadIdentity_ma_64f_P(double *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                           int count);
SMX_API SmxStatus smxLoadIdentity_ma_64f_L(double *const *dst, int dstRoiShift, int dstStride1, int dstStride2,
                                           int width, int height, int count);

/* Transpose: dst(n, c, r) = src(n, r, c).
 *
 * Codes     m                      one matrix; no suffix, _P.  ma   an array; no suffix, _P, _L
 * Shapes    width and height are those of src; dst has `height` columns and `width` rows. The sizes stand between the
 *           two. Most functions read a transposed operand in place (the t of their codes) and need no such step.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst must not overlap src: in place, elements are overwritten before they are read.
 * Checks    null, count, size, strides, shifts; without count in m. smxStsNullPtrErr, smxStsCountMatrixErr,
 *           smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure.
 * Threads   none, whatever count is. */
SMX_API SmxStatus smxTranspose_m_32f(const float *src, int srcStride1, int srcStride2, int width, int height,
                                     float *dst, int dstStride1, int dstStride2);
SMX_API SmxStatus smxTranspose_m_32f_P(const float *const *src, int srcRoiShift, int width, int height,
                                       float *const *dst, int dstRoiShift);
SMX_API SmxStatus smxTranspose_m_64f(const double *src, int srcStride1, int srcStride2, int width, int height,
                                     double *dst, int dstStride1, int dstStride2);
SMX_API SmxStatus smxTranspose_m_64f_P(const double *const *src, int srcRoiShift, int width, int height,
                                       double *const *dst, int dstRoiShift);
SMX_API SmxStatus smxTranspose_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, int width,
                                      int height, float *dst, int dstStride0, int dstStride1, int dstStride2,
                                      int count);
SMX_API SmxStatus smxTranspose_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0, int width, int height,
                                        float *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxTranspose_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                        int width, int height, float *const *dst, int dstRoiShift, int dstStride1,
                                        int dstStride2, int count);
SMX_API SmxStatus smxTranspose_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, int width,
                                      int height, double *dst, int dstStride0, int dstStride1, int dstStride2,
                                      int count);
SMX_API SmxStatus smxTranspose_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0, int width,
                                        int height, double *const *dst, int dstRoiShift, int dstStride0, int count);
SMX_API SmxStatus smxTranspose_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                        int width, int height, double *const *dst, int dstRoiShift, int dstStride1,
                                        int dstStride2, int count);

#ifdef __cplusplus
}
#endif

#endif
