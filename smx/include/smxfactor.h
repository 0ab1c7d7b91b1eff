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
 * Order     in step k each multiplier is the element times the rounded reciprocal of the pivot, but in the last step of
 *           sides 3 to 6 the quotient; then L(i, k) U(k, j) is subtracted from each element (i, j) behind. So each
 *           element takes its subtractions in ascending k.
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
 *           i+1; other sides sum them in ascending j first. mva multiplies by reciprocals of the diagonal, made once,
 *           for sides 3 to 6, where mv and mava divide: their last bits may differ.
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

/* Cholesky decomposition A = L Lt of a symmetric positive definite matrix of side n = widthHeight, row by row (G. H.
 * Golub and C. F. Van Loan, Matrix Computations, the algorithm for L by rows).
 *
 *   Codes      m: one matrix; no suffix, _P. ma: an array; no suffix, _P, _L.
 *   src, dst   n by n. Only lower triangles with the diagonal are used and written: symmetry is not tested, and the
 *              upper triangle of dst keeps what it held. dst[i][j] = L[i][j] for j < i, dst[i][i] = 1 / L[i][i].
 *   Order      from an element of src its products are subtracted one by one, in rising order of their columns.
 *   Strides    in bytes, positive multiples of the element size; see smx.h.
 *   Overlap    dst may be src, with the same strides. Nothing else may overlap.
 *   Status     smxStsNotPosDefErr at the first row i whose radicand, A[i][i] minus the squares of L[i][j] for j < i, is
 *              at or below a bound or not a number. Rows before i and L[i][j] for j < i are written then; in the
 *              pointer layout at sides 3 to 6 nothing of row i, and not row 0 either when row 1 fails a single matrix
 *              of side 3, 5 or 6. In an array the matrices before the failing one are complete, those after it in the
 *              same thread's share are untouched.
 *   Bound      0, with these exceptions: 2^-23 for both types in the pointer layout at side 3; 2^-52 in the strided
 *              form for arrays of double with a Stride2 that is not the element size, at side 6 and all sides but 3 to
 *              5. It is absolute. smxCholeskyDecomp_m_32f_P and _64f_P at side 3 let a not-a-number radicand pass in
 *              the last row.
 *   Checks     null (src, dst), count, size, strides, shifts; without count in m. smxStsNullPtrErr,
 *              smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 *   Threads    where n * n * count is above 2000; 7500 in the strided layout of float; 720 in _L of double with
 *              adjacent elements. */
SMX_API SmxStatus smxCholeskyDecomp_m_32f(const float *src, int srcStride1, int srcStride2, float *dst, int dstStride1,
                                          int dstStride2, int widthHeight);
SMX_API SmxStatus smxCholeskyDecomp_m_32f_P(const float *const *src, int srcRoiShift, float *const *dst,
                                            int dstRoiShift, int widthHeight);
SMX_API SmxStatus smxCholeskyDecomp_m_64f(const double *src, int srcStride1, int srcStride2, double *dst,
                                          int dstStride1, int dstStride2, int widthHeight);
SMX_API SmxStatus smxCholeskyDecomp_m_64f_P(const double *const *src, int srcRoiShift, double *const *dst,
                                            int dstRoiShift, int widthHeight);
SMX_API SmxStatus smxCholeskyDecomp_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, float *dst,
                                           int dstStride0, int dstStride1, int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxCholeskyDecomp_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0,
                                             float *const *dst, int dstRoiShift, int dstStride0, int widthHeight,
                                             int count);
SMX_API SmxStatus smxCholeskyDecomp_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                             float *const *dst, int dstRoiShift, int dstStride1, int dstStride2,
                                             int widthHeight, int count);
SMX_API SmxStatus smxCholeskyDecomp_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2,
                                           double *dst, int dstStride0, int dstStride1, int dstStride2, int widthHeight,
                                           int count);
SMX_API SmxStatus smxCholeskyDecomp_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0,
                                             double *const *dst, int dstRoiShift, int dstStride0, int widthHeight,
                                             int count);
SMX_API SmxStatus smxCholeskyDecomp_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                             double *const *dst, int dstRoiShift, int dstStride1, int dstStride2,
                                             int widthHeight, int count);

/* Solution of A x = b from the factor that smxCholeskyDecomp left: L y = b, then Lt x = y. No division happens.
 *
 *   Codes      mv: one matrix, one vector; no suffix, _P. mva: one matrix for all vectors, mava: a matrix for each
 *              vector; no suffix, _P, _L.
 *   src1       n by n, only the lower triangle with the inverted diagonal is read (mv, mva: one for all vectors).
 *   src2, dst  right-hand sides and solutions of length n.
 *   Order      from an element of the right-hand side the products are subtracted one by one: forward in rising order
 *              of the unknowns, backward in falling order.
 *   Strides    in bytes, positive multiples of the element size; see smx.h.
 *   Overlap    dst may be src2, with the same strides. Nothing else may overlap.
 *   Status     nothing fails after the entry checks: what src1 holds is taken as it stands.
 *   Checks     as for smxCholeskyDecomp, null: src1, src2, dst; but mva_L: null, strides, shifts, size, count.
 *   Threads    mva: where n * (n + 2 * count) is above 720; 1200 in the strided layout of float. mava: where
 *              (n * n + 2 * n) * count is above 1700; 2050 in the strided layout of float with adjacent elements and in
 *              _P of double. */
SMX_API SmxStatus smxCholeskyBackSubst_mv_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2,
                                              int src2Stride2, float *dst, int dstStride2, int widthHeight);
SMX_API SmxStatus smxCholeskyBackSubst_mv_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                                int src2RoiShift, float *const *dst, int dstRoiShift, int widthHeight);
SMX_API SmxStatus smxCholeskyBackSubst_mv_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                              int src2Stride2, double *dst, int dstStride2, int widthHeight);
SMX_API SmxStatus smxCholeskyBackSubst_mv_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                                int src2RoiShift, double *const *dst, int dstRoiShift, int widthHeight);
SMX_API SmxStatus smxCholeskyBackSubst_mva_32f(const float *src1, int src1Stride1, int src1Stride2, const float *src2,
                                               int src2Stride0, int src2Stride2, float *dst, int dstStride0,
                                               int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxCholeskyBackSubst_mva_32f_P(const float *const *src1, int src1RoiShift, const float *const *src2,
                                                 int src2RoiShift, int src2Stride0, float *const *dst, int dstRoiShift,
                                                 int dstStride0, int widthHeight, int count);
SMX_API SmxStatus smxCholeskyBackSubst_mva_32f_L(const float *src1, int src1Stride1, int src1Stride2,
                                                 const float *const *src2, int src2RoiShift, int src2Stride2,
                                                 float *const *dst, int dstRoiShift, int dstStride2, int widthHeight,
                                                 int count);
SMX_API SmxStatus smxCholeskyBackSubst_mva_64f(const double *src1, int src1Stride1, int src1Stride2, const double *src2,
                                               int src2Stride0, int src2Stride2, double *dst, int dstStride0,
                                               int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxCholeskyBackSubst_mva_64f_P(const double *const *src1, int src1RoiShift, const double *const *src2,
                                                 int src2RoiShift, int src2Stride0, double *const *dst, int dstRoiShift,
                                                 int dstStride0, int widthHeight, int count);
SMX_API SmxStatus smxCholeskyBackSubst_mva_64f_L(const double *src1, int src1Stride1, int src1Stride2,
                                                 const double *const *src2, int src2RoiShift, int src2Stride2,
                                                 double *const *dst, int dstRoiShift, int dstStride2, int widthHeight,
                                                 int count);
SMX_API SmxStatus smxCholeskyBackSubst_mava_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                                const float *src2, int src2Stride0, int src2Stride2, float *dst,
                                                int dstStride0, int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxCholeskyBackSubst_mava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0,
                                                  const float *const *src2, int src2RoiShift, int src2Stride0,
                                                  float *const *dst, int dstRoiShift, int dstStride0, int widthHeight,
                                                  int count);
SMX_API SmxStatus smxCholeskyBackSubst_mava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1,
                                                  int src1Stride2, const float *const *src2, int src2RoiShift,
                                                  int src2Stride2, float *const *dst, int dstRoiShift, int dstStride2,
                                                  int widthHeight, int count);
SMX_API SmxStatus smxCholeskyBackSubst_mava_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                                const double *src2, int src2Stride0, int src2Stride2, double *dst,
                                                int dstStride0, int dstStride2, int widthHeight, int count);
SMX_API SmxStatus smxCholeskyBackSubst_mava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                                  const double *const *src2, int src2RoiShift, int src2Stride0,
                                                  double *const *dst, int dstRoiShift, int dstStride0, int widthHeight,
                                                  int count);
SMX_API SmxStatus smxCholeskyBackSubst_mava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1,
                                                  int src1Stride2, const double *const *src2, int src2RoiShift,
                                                  int src2Stride2, double *const *dst, int dstRoiShift, int dstStride2,
                                                  int widthHeight, int count);

/* QR decomposition by Householder reflections (A. S. Householder, Unitary triangularization of a nonsymmetric matrix,
 * J. ACM 5, 1958) of a matrix with at least as many rows as columns, width <= height.
 *
 *   Codes      m: one matrix; no suffix, _P. ma: an array; no suffix, _P, _L.
 *   src        height by width.
 *   dst        height by width, packed: R on and above the diagonal; below it, in column k, the entries of reflector k
 *              behind its leading 1. Reflection k is I - 2 v vt / (vt v), and R[k][k] has the sign opposite to the
 *              element it replaces (positive for a zero, which counts as negative). A square matrix has no reflection
 *              for its last column.
 *   Order      all sums in rising order of the rows; the one of a column with its reflector starts at the diagonal.
 *   Strides    in bytes, positive multiples of the element size; see smx.h.
 *   buffer     at least height * sizeof(element) bytes of scratch that overlap nothing else; no result. An array needs
 *              no more. A call that runs on several threads leaves it alone and takes scratch of its own.
 *   Overlap    dst may be src, with the same strides. Nothing else may overlap.
 *   Status     smxStsSizeMatchMatrixErr if width > height. smxStsDivByZeroErr at the first column whose sum of squares,
 *              from the diagonal down, is below 2^-23 (float) or 2^-52 (double) or not a number: an absolute bound on
 *              the square, on the length about 3.5e-4 or 1.5e-8. dst holds the matrix after the reflections before it
 *              then; in an array the matrices before are complete, those after it in the same thread's share are
 *              untouched. The last column of a square matrix is not tested: a dependence that shows only there gives
 *              status 0 and a tiny or zero R[n-1][n-1].
 *   Checks     null (src, buffer, dst), count, size, strides, shifts, and the match of width and height last.
 *              smxStsNullPtrErr, smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr,
 *              smxStsSizeMatchMatrixErr.
 *   Threads    where 2 * width * height * count is above 2800; 1800 in _P and _L. */
SMX_API SmxStatus smxQRDecomp_m_32f(const float *src, int srcStride1, int srcStride2, float *buffer, float *dst,
                                    int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxQRDecomp_m_32f_P(const float *const *src, int srcRoiShift, float *buffer, float *const *dst,
                                      int dstRoiShift, int width, int height);
SMX_API SmxStatus smxQRDecomp_m_64f(const double *src, int srcStride1, int srcStride2, double *buffer, double *dst,
                                    int dstStride1, int dstStride2, int width, int height);
SMX_API SmxStatus smxQRDecomp_m_64f_P(const double *const *src, int srcRoiShift, double *buffer, double *const *dst,
                                      int dstRoiShift, int width, int height);
SMX_API SmxStatus smxQRDecomp_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, float *buffer,
                                     float *dst, int dstStride0, int dstStride1, int dstStride2, int width, int height,
                                     int count);
SMX_API SmxStatus smxQRDecomp_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float *buffer,
                                       float *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                       int count);
SMX_API SmxStatus smxQRDecomp_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                       float *buffer, float *const *dst, int dstRoiShift, int dstStride1,
                                       int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxQRDecomp_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, double *buffer,
                                     double *dst, int dstStride0, int dstStride1, int dstStride2, int width, int height,
                                     int count);
SMX_API SmxStatus smxQRDecomp_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double *buffer,
                                       double *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                       int count);
SMX_API SmxStatus smxQRDecomp_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                       double *buffer, double *const *dst, int dstRoiShift, int dstStride1,
                                       int dstStride2, int width, int height, int count);

/* Solution of A x = b in the sense of least squares, from the packed matrix that smxQRDecomp left: the reflections are
 * applied to b, then R x = Qt b is solved for x.
 *
 *   Codes      mv: one matrix, one vector; no suffix, _P. mva: one matrix for all vectors, mava: a matrix for each
 *              vector; no suffix, _P, _L.
 *   src1       height by width, packed (mv, mva: one for all vectors).
 *   src2, dst  right-hand sides of length height, solutions of length width.
 *   Strides    in bytes, positive multiples of the element size; see smx.h.
 *   Overlap    dst may be src2, each solution at the start of its own right-hand side. Nothing else may overlap.
 *   buffer     as for smxQRDecomp; squares of sides 3 to 6 do not use it, but it must not be null.
 *   Status     smxStsSizeMatchMatrixErr if width > height. Nothing else fails after the entry checks: a zero on the
 *              diagonal of R gives infinities or not-a-numbers with status 0.
 *   Checks     as for smxQRDecomp; null: src1, buffer, src2, dst.
 *   Threads    where width * height + (width + height) * count (mva) or (width * height + width + height) * count
 *              (mava) is above 2800; 1800 in _P and _L. */
SMX_API SmxStatus smxQRBackSubst_mv_32f(const float *src1, int src1Stride1, int src1Stride2, float *buffer,
                                        const float *src2, int src2Stride2, float *dst, int dstStride2, int width,
                                        int height);
SMX_API SmxStatus smxQRBackSubst_mv_32f_P(const float *const *src1, int src1RoiShift, float *buffer,
                                          const float *const *src2, int src2RoiShift, float *const *dst,
                                          int dstRoiShift, int width, int height);
SMX_API SmxStatus smxQRBackSubst_mv_64f(const double *src1, int src1Stride1, int src1Stride2, double *buffer,
                                        const double *src2, int src2Stride2, double *dst, int dstStride2, int width,
                                        int height);
SMX_API SmxStatus smxQRBackSubst_mv_64f_P(const double *const *src1, int src1RoiShift, double *buffer,
                                          const double *const *src2, int src2RoiShift, double *const *dst,
                                          int dstRoiShift, int width, int height);
SMX_API SmxStatus smxQRBackSubst_mva_32f(const float *src1, int src1Stride1, int src1Stride2, float *buffer,
                                         const float *src2, int src2Stride0, int src2Stride2, float *dst,
                                         int dstStride0, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxQRBackSubst_mva_32f_P(const float *const *src1, int src1RoiShift, float *buffer,
                                           const float *const *src2, int src2RoiShift, int src2Stride0,
                                           float *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                           int count);
SMX_API SmxStatus smxQRBackSubst_mva_32f_L(const float *src1, int src1Stride1, int src1Stride2, float *buffer,
                                           const float *const *src2, int src2RoiShift, int src2Stride2,
                                           float *const *dst, int dstRoiShift, int dstStride2, int width, int height,
                                           int count);
SMX_API SmxStatus smxQRBackSubst_mva_64f(const double *src1, int src1Stride1, int src1Stride2, double *buffer,
                                         const double *src2, int src2Stride0, int src2Stride2, double *dst,
                                         int dstStride0, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxQRBackSubst_mva_64f_P(const double *const *src1, int src1RoiShift, double *buffer,
                                           const double *const *src2, int src2RoiShift, int src2Stride0,
                                           double *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                           int count);
SMX_API SmxStatus smxQRBackSubst_mva_64f_L(const double *src1, int src1Stride1, int src1Stride2, double *buffer,
                                           const double *const *src2, int src2RoiShift, int src2Stride2,
                                           double *const *dst, int dstRoiShift, int dstStride2, int width, int height,
                                           int count);
SMX_API SmxStatus smxQRBackSubst_mava_32f(const float *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                          float *buffer, const float *src2, int src2Stride0, int src2Stride2,
                                          float *dst, int dstStride0, int dstStride2, int width, int height, int count);
SMX_API SmxStatus smxQRBackSubst_mava_32f_P(const float *const *src1, int src1RoiShift, int src1Stride0, float *buffer,
                                            const float *const *src2, int src2RoiShift, int src2Stride0,
                                            float *const *dst, int dstRoiShift, int dstStride0, int width, int height,
                                            int count);
SMX_API SmxStatus smxQRBackSubst_mava_32f_L(const float *const *src1, int src1RoiShift, int src1Stride1,
                                            int src1Stride2, float *buffer, const float *const *src2, int src2RoiShift,
                                            int src2Stride2, float *const *dst, int dstRoiShift, int dstStride2,
                                            int width, int height, int count);
SMX_API SmxStatus smxQRBackSubst_mava_64f(const double *src1, int src1Stride0, int src1Stride1, int src1Stride2,
                                          double *buffer, const double *src2, int src2Stride0, int src2Stride2,
                                          double *dst, int dstStride0, int dstStride2, int width, int height,
                                          int count);
SMX_API SmxStatus smxQRBackSubst_mava_64f_P(const double *const *src1, int src1RoiShift, int src1Stride0,
                                            double *buffer, const double *const *src2, int src2RoiShift,
                                            int src2Stride0, double *const *dst, int dstRoiShift, int dstStride0,
                                            int width, int height, int count);
SMX_API SmxStatus smxQRBackSubst_mava_64f_L(const double *const *src1, int src1RoiShift, int src1Stride1,
                                            int src1Stride2, double *buffer, const double *const *src2,
                                            int src2RoiShift, int src2Stride2, double *const *dst, int dstRoiShift,
                                            int dstStride2, int width, int height, int count);

/* Determinant of a square matrix of side n = widthHeight.
 *
 * Sides 3 to 6 expand in minors of the leading rows (Laplace), each computed once and shared; no tolerance. All other
 * sides eliminate with partial pivoting in buffer: a pivot of magnitude below 2 n n n times the smallest normal number
 * of the type, or a last one at or below it, makes the determinant zero; so does one that is not a number, while the
 * expansion gives a not-a-number for it.
 *
 *   Codes      m: one matrix; no suffix, _P. ma: an array; no suffix, _P, _L.
 *   src        n by n.
 *   dstDet     one element, or one for each matrix, packed without a stride in every layout.
 *   Strides    in bytes, positive multiples of the element size; see smx.h.
 *   Overlap    none.
 *   buffer     n * n * sizeof(element) + n * sizeof(int) bytes, not null even at sides 3 to 6, which do not use it. An
 *              array needs no more. A call that runs on several threads leaves it alone and takes scratch of its own.
 *   Status     a singular matrix is no error: nothing fails after the entry checks. From side 1024 on the bound wraps
 *              to a negative number, and no pivot is refused. The zero of an array form may be
 *              negative, and not-a-number if the product of the pivots before the failing one has overflowed, or if the
 *              element that stands last then is infinite.
 *   Checks     null (src, buffer, dstDet), count, size, strides, shifts; without count in m. smxStsNullPtrErr,
 *              smxStsCountMatrixErr, smxStsSizeErr, smxStsStrideMatrixErr, smxStsRoiShiftMatrixErr.
 *   Threads    where n * count is above 20000; 40000 in _L of float with adjacent elements. */
SMX_API SmxStatus smxDet_m_32f(const float *src, int srcStride1, int srcStride2, int widthHeight, float *buffer,
                               float *dstDet);
SMX_API SmxStatus smxDet_m_32f_P(const float *const *src, int srcRoiShift, int widthHeight, float *buffer,
                                 float *dstDet);
SMX_API SmxStatus smxDet_m_64f(const double *src, int srcStride1, int srcStride2, int widthHeight, double *buffer,
                               double *dstDet);
SMX_API SmxStatus smxDet_m_64f_P(const double *const *src, int srcRoiShift, int widthHeight, double *buffer,
                                 double *dstDet);
SMX_API SmxStatus smxDet_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, int widthHeight,
                                float *buffer, float *dstDet, int count);
SMX_API SmxStatus smxDet_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0, int widthHeight,
                                  float *buffer, float *dstDet, int count);
SMX_API SmxStatus smxDet_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                  int widthHeight, float *buffer, float *dstDet, int count);
SMX_API SmxStatus smxDet_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, int widthHeight,
                                double *buffer, double *dstDet, int count);
SMX_API SmxStatus smxDet_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0, int widthHeight,
                                  double *buffer, double *dstDet, int count);
SMX_API SmxStatus smxDet_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                  int widthHeight, double *buffer, double *dstDet, int count);

/* Inverse of a square matrix of side n = widthHeight as its cofactors over the determinant: in closed form with one
 * division at sides 3 to 6, with one elimination for each cofactor at side 2 and from 7 on, which takes time n^5.
 *
 *   Codes      m: one matrix; no suffix, _P. ma: an array; no suffix, _P, _L.
 *   src, dst   n by n.
 *   Strides    in bytes, positive multiples of the element size; see smx.h.
 *   buffer     n * n * sizeof(element) + n * sizeof(int) bytes, not null even where it is not used (sides 1, 3 to 6).
 *              An array needs no more. A call that runs on several threads leaves it alone and takes its own scratch.
 *   Overlap    dst may be src, with the same strides, at sides 1 and 3 to 6. At all others the result is wrong then.
 *              Nothing else may overlap.
 *   Status     smxStsSingularErr if the magnitude of the determinant is below 2 n n n times the smallest normal number
 *              of the type (at or below it at side 1, 2 and from 7 on) or not a number; nothing of that matrix is
 *              written, but at side 2 and from 7 on an earlier pivot may end the process first: see below. In an array
 *              the matrices before it are complete, those after it in the same thread's share are untouched.
 *              Exceptions: a not-a-number element of side 1 gives not-a-number and status 0 in smxInvert_m, and so does
 *              a not-a-number determinant at sides 4, 5 and 6 of smxInvert_m_32f and _64f if Stride2 is the element
 *              size.
 *   Accuracy   at side 2 and from 7 on a cofactor that is zero counts as the tolerance: instead of exact zeros the
 *              result has elements of about the tolerance over the determinant, for a determinant near 1 about 2e-37
 *              (float) or 4e-307 (double) at side 2, 8e-36 or 2e-305 at side 7, growing as n n n, and more for a
 *              smaller one.
 *   Checks     as for smxDet; null: src, buffer, dst.
 *   Threads    where 2 * n * count is above 20000; 40000 in _L of float where every Stride2 is the element size. Never
 *              at side 1.
 *
 * BEWARE of side 2 and of 7 and above: if a pivot before the last one is that small (a matrix whose first column is
 * zero, say) or not a number, these functions store a zero through a null pointer, which ends the process with a memory
 * fault. All members can, but smxInvert_ma_32f_P and smxInvert_ma_64f_P, which return smxStsSingularErr and test the
 * last pivot in place of the determinant (so that one which underflows gives infinities with status 0). Where such a
 * matrix may come, use those two; a count of 1 will do. At side 2 a determinant from smxDet that is neither 0 nor a
 * not-a-number is as good a proof. From side 7 on it proves nothing: the pivots of smxDet and smxLUDecomp are rounded
 * in another way. */
SMX_API SmxStatus smxInvert_m_32f(const float *src, int srcStride1, int srcStride2, float *buffer, float *dst,
                                  int dstStride1, int dstStride2, int widthHeight);
SMX_API SmxStatus smxInvert_m_32f_P(const float *const *src, int srcRoiShift, float *buffer, float *const *dst,
                                    int dstRoiShift, int widthHeight);
SMX_API SmxStatus smxInvert_m_64f(const double *src, int srcStride1, int srcStride2, double *buffer, double *dst,
                                  int dstStride1, int dstStride2, int widthHeight);
SMX_API SmxStatus smxInvert_m_64f_P(const double *const *src, int srcRoiShift, double *buffer, double *const *dst,
                                    int dstRoiShift, int widthHeight);
SMX_API SmxStatus smxInvert_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2, float *buffer,
                                   float *dst, int dstStride0, int dstStride1, int dstStride2, int widthHeight,
                                   int count);
SMX_API SmxStatus smxInvert_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float *buffer,
                                     float *const *dst, int dstRoiShift, int dstStride0, int widthHeight, int count);
SMX_API SmxStatus smxInvert_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                     float *buffer, float *const *dst, int dstRoiShift, int dstStride1, int dstStride2,
                                     int widthHeight, int count);
SMX_API SmxStatus smxInvert_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2, double *buffer,
                                   double *dst, int dstStride0, int dstStride1, int dstStride2, int widthHeight,
                                   int count);
SMX_API SmxStatus smxInvert_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double *buffer,
                                     double *const *dst, int dstRoiShift, int dstStride0, int widthHeight, int count);
SMX_API SmxStatus smxInvert_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                     double *buffer, double *const *dst, int dstRoiShift, int dstStride1,
                                     int dstStride2, int widthHeight, int count);

#ifdef __cplusplus
}
#endif

#endif
