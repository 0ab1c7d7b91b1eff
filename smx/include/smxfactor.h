/* Factorization and solve. */
#ifndef SMXFACTOR_H
#define SMXFACTOR_H

#include "smxdefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* LU decomposition with partial pivoting: P A = L U, L unit lower triangular, U upper triangular, P a permutation of
 * rows. Method: Gaussian elimination with row exchanges; G. H. Golub and C. F. Van Loan, Matrix Computations, 4th ed.,
 * sections 3.2 and 3.4.
 *
 * Codes     m    one matrix; no suffix, _P
 *           ma   an array of matrices; no suffix, _P, _L
 * Shapes    src and dst: n by n, n = widthHeight. pivotIndex: n ints an object, packed: object k owns the entries from
 *           k * n on, in every layout.
 * Results   Rows are never moved. With r(i) = pivotIndex[i], row r(i) of dst holds the multipliers L(i, j) for j < i
 *           and U(i, j) for j >= i; the ones on the diagonal of L are not stored. Row i of P A is row r(i) of A. The
 *           pivot is the greatest magnitude of its column, the lowest logical row among equals.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dst may be src, with the same strides (the same table and shift, the same list). Nothing else may overlap.
 * Checks    null (src, dst, pivotIndex), count, size, strides, shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 *
 * smxStsSingularErr: a pivot was found to be zero, or nearly. The tests are absolute, not scaled by the matrix, and
 * there are two of them:
 *
 *   sides 3 to 6     fails if |pivot| is below       2^-125 (about 2.4e-38)  in float,  2^-1021 (4.5e-308)  in double
 *   all other sides  fails if |pivot| is at or below 2^-23  (about 1.2e-07)  in float,  2^-52   (2.2e-16)   in double
 *
 * and both fail for a not-a-number. So scale matrices of tiny elements before you factor them with side 1, 2 or 7 and
 * above; and with sides 3 to 6 do not take 0 for a proof of a good condition: only a pivot that underflows is refused.
 *
 * The last pivot of sides 3 to 6 is not what is tested. The last test there looks at the element in the last row AS
 * STORED, physical row n-1, column n-1, after the elimination, which is the last pivot only if pivotIndex[n-1] is n-1.
 * An invertible matrix can thus be refused: the rows (0 1 0), (0 0 1), (1 0 0) are, since that element is 0. Store its
 * rows in the order that pivotIndex names, which is complete then, and it is factored without an exchange. And a zero
 * last pivot can pass; the solution then holds infinities or not-a-numbers. Where it matters, look at the last pivot
 * yourself: the element of dst at row pivotIndex[n-1], column n-1.
 *
 * What has been written after smxStsSingularErr:
 *
 *   path                        refused at     dst                                       pivotIndex
 *   sides other than 3 to 6     step k         the copy of src, eliminated up to step k  exchanges before step k
 *   sides other than 3 to 6     the last test  the complete factors                      complete
 *   sides 3 to 6, no suffix, _L step k         rows r(0) to r(k-1) final, others as      exchanges up to and with
 *                                              they were                                 step k
 *   sides 3 to 6, no suffix, _L the last test  row r(n-1) as it was, the others final    complete
 *   sides 3 to 6, _P            any            as it was                                 as in the two lines above
 *
 * From an array call the status says only that SOME object was refused. The objects before it are done; those behind
 * it, with their entries of pivotIndex, are as they were, up to the end of the same thread's share; other threads
 * finish theirs. To find it, keep src, and
 *   - with one thread: set the entries k * n of pivotIndex to -1 before the call. The refused object is the one before
 *     the first entry that is still -1, or the last object if none is. Go on with a call for the objects behind it.
 *   - with several: call the `m` form for each object. It gives the object's own status and the same bits.
 * pivotIndex is not validated by the back substitution: give the entries of objects that you skip row numbers from 0 to
 * n-1 before you solve the whole array, and ignore those solutions.
 *
 * Threads   where n * n * count is more than 20000; in the float _L member more than 40000 where every stride2 is the
 *           element size. */
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

/* LU back substitution: solves A x = b with the factors and the pivotIndex of smxLUDecomp, b and x in natural order.
 * Method: forward and back substitution by rows; Golub and Van Loan, section 3.1.
 *
 * Codes     mv     one matrix, one vector; no suffix, _P
 *           mva    one matrix, an array of vectors; no suffix, _P, _L
 *           mava   an array of matrices, each with its own vector; no suffix, _P, _L
 * Shapes    src1: the dst of smxLUDecomp, n by n, n = widthHeight. src2, the right-hand side, and dst, the solution:
 *           vectors of length n. pivotIndex: n ints, in mava n * count, packed as smxLUDecomp wrote them. Its entries
 *           are not tested: one outside 0 to n-1 reads outside the object.
 * Order     sides 3 to 6 subtract the products one by one, forward with j = 1, ..., i-1, 0, back with j = n-1, ...,
 *           i+1; other sides sum them in ascending j first. mva multiplies by reciprocals of the diagonal, made once, for
 *           sides 3 to 6, where mv and mava divide: their last bits may differ.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   for sides 3 to 6 dst may be src2, with the same strides. For other sides only where no rows were exchanged
 *           (pivotIndex is 0, 1, 2, ...); else the solution is wrong. Nothing else may overlap.
 * Checks    null (src1, pivotIndex, src2, dst), count, size, strides, shifts.
 *           smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 * Status    no other failure: 0 means that every solution has been written. A zero on the diagonal of the factors gives
 *           infinities and not-a-numbers with status 0, and factors that smxLUDecomp refused are used all the same.
 * Threads   where n * (n + 2 * count) for mva, (n * n + 2 * n) * count for mava is more than 1700. */
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
