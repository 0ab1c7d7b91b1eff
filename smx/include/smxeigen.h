/* Eigenproblems, symmetric and general. */
#ifndef SMXEIGEN_H
#define SMXEIGEN_H

#include "smxdefs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* All eigenvalues of symmetric matrices.
 *
 * Codes     m    one matrix; no suffix, _P
 *           ma   an array of matrices; no suffix, _P, _L
 * Method    Householder reduction to tridiagonal form, then implicit-shift QL or QR sweeps, by which diagonal end is
 *           the smaller one. B. N. Parlett, The Symmetric Eigenvalue Problem, chapters 7 and 8. Sides 1 and 2 have
 *           closed forms.
 * Shapes    src: n by n, n = widthHeight; only read. buffer: n * n elements of scratch, one for a whole array.
 *           dstValues: n elements an object, packed, object k from element k * n on, in every layout.
 * Order     sides 3 and up: descending by value. SIDE 2 IS NOT SORTED: with a trace below -eps (see below) the smaller
 *           value comes first. A trace within eps counts as 0 there.
 * Triangle  nothing tests symmetry. Side 2 takes the upper off-diagonal element. Other sides start from the lower
 *           triangle but transform the whole square: give both halves, equal.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dstValues and buffer must overlap nothing.
 * Checks    null (src, buffer, dstValues), size, count, then shifts before strides.
 *           smxStsNullPtrErr, smxStsSizeErr, smxStsCountMatrixErr, smxStsRoiShiftMatrixErr, smxStsStrideMatrixErr.
 * Threads   above 20000 elements of work, (n * n + n) * count; `_ma_32f_L` with adjacent elements above 40000. The
 *           threads then have scratch of their own, but buffer must be there all the same: a call that runs on one
 *           thread after all uses it.
 *
 * ALL TOLERANCES ARE ABSOLUTE: eps = 2^-23 in float, 2^-52 in double, whatever the scale of the matrix. Off-diagonal
 * elements below 2 eps are taken for 0, so a matrix of tiny elements comes back as its own diagonal, and is called
 * singular. And the reduction leaves a column as it is if its squared length below the diagonal is about eps or less,
 * and, in the ma forms and with vectors, if its length differs from its first element there by eps or less: elements up
 * to some 2^-12 (float) or 2^-26 (double) may then be ignored, so that a matrix close to a multiple of the identity
 * loses half of its digits. Scale first: divide by the greatest magnitude of the matrix or array, multiply the values
 * by it after.
 *
 * smxStsSingularErr: the determinant (side 2) or the product of the eigenvalues (sides 3 and up) is at most eps in
 *     magnitude. A matrix with an eigenvalue of 0 is refused, and one with several small ones. Side 2 has then written
 *     nothing of the object; other sides have all its values in dstValues, UNSORTED and as good as ever. The bound of
 *     side 2 in smxEigenValuesSym_ma_32f with adjacent elements is 2^-52, not 2^-23. Where the sweep runs down (the
 *     last diagonal element of the reduced form not above the first in magnitude) splits that the search meets in
 *     mid-block count as factors once more, so the product need not be the determinant. It is formed in double for
 *     float, too, but for the one of such a downward sweep. Side 1 is never refused.
 *     To have flat objects in an array: add a shift to every diagonal so that all eigenvalues lie well away from 0
 *     (after scaling, 2 will do for any matrix of norm at most 1), and subtract it from the values.
 * smxStsConvergeErr: 30 sweeps were not enough for one value. dstValues then holds nothing of use. So may end matrices
 *     of side 3 and up with infinities or not-a-numbers off the diagonal, some clusters of values within 100 eps of
 *     each other, and a few of many thousand ordinary matrices, where the last off-diagonal element comes to rest just
 *     above the tolerance. Multiply such a matrix by some factor (50, say) and call again. The status is no test for
 *     infinities and not-a-numbers: sides 1 and 2 pass them on with status 0.
 * An array call stops at its first failing object: those before it are done, those behind it untouched, up to the
 * end of the same thread's share. The status does not say which it was.
 *
 * A WRONG VALUE WITH STATUS 0 IS POSSIBLE. A sweep skips its last update if an intermediate value happens to be below
 * eps, so for a few matrices values come out wrong. Side 4 with 2 on the diagonal and -1 beside it is one, side 21 with
 * |i - 10| on the diagonal and 1 beside it another. Where it matters compare the sum of the squares of the values with
 * the sum of the squares of all elements (the trace may hold all the same); where they differ, multiply the matrix by a
 * factor, shift its diagonal, or take its rows and columns in another order, call again, undo it, and compare once
 * more. No one remedy helps every matrix. The forms round differently: that one of them is right says nothing about
 * another. Random matrices hardly ever meet this; structured ones do (equal or evenly spaced elements), and float
 * matrices of side 8 and up whose values spread over a factor of 100 often do. */
SMX_API SmxStatus smxEigenValuesSym_m_32f(const float *src, int srcStride1, int srcStride2, float *buffer,
                                          float *dstValues, int widthHeight);
SMX_API SmxStatus smxEigenValuesSym_m_32f_P(const float *const *src, int srcRoiShift, float *buffer, float *dstValues,
                                            int widthHeight);
SMX_API SmxStatus smxEigenValuesSym_m_64f(const double *src, int srcStride1, int srcStride2, double *buffer,
                                          double *dstValues, int widthHeight);
SMX_API SmxStatus smxEigenValuesSym_m_64f_P(const double *const *src, int srcRoiShift, double *buffer,
                                            double *dstValues, int widthHeight);
SMX_API SmxStatus smxEigenValuesSym_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2,
                                           float *buffer, float *dstValues, int widthHeight, int count);
SMX_API SmxStatus smxEigenValuesSym_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float *buffer,
                                             float *dstValues, int widthHeight, int count);
SMX_API SmxStatus smxEigenValuesSym_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                             float *buffer, float *dstValues, int widthHeight, int count);
SMX_API SmxStatus smxEigenValuesSym_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2,
                                           double *buffer, double *dstValues, int widthHeight, int count);
SMX_API SmxStatus smxEigenValuesSym_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0, double *buffer,
                                             double *dstValues, int widthHeight, int count);
SMX_API SmxStatus smxEigenValuesSym_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                             double *buffer, double *dstValues, int widthHeight, int count);

/* All eigenvalues and eigenvectors of symmetric matrices: A = Z diag(values) Zt. Method, scratch, order, triangle,
 * strides and absolute tolerances as in smxEigenValuesSym; what differs:
 *
 * Results   dstVectors: n by n, in the layout of src with strides or a shift of its own. THE VECTORS ARE ITS COLUMNS:
 *           A times column j is dstValues[j] times column j. They are orthonormal; their signs are not settled.
 * Overlap   dstVectors may be src, with the same strides (the same table and shift, the same list).
 * Checks    null (src, buffer, dstVectors, dstValues), size, count, shifts, strides.
 * Threads   above 1700 elements of work, (2 * n * n + n) * count.
 *
 * smxStsSingularErr: the determinant (side 2) is at most eps, or the product of the eigenvalues is at most eps in the m
 *     forms and at most 2^-23 IN BOTH TYPES in the ma forms: an array call in double refuses what a single call takes.
 *     The product is formed in double for both types. Side 2 has then written nothing of the object. Other sides have
 *     written all values and vectors, in the m forms
 *     sorted, in the ma forms unsorted; either way column j belongs to dstValues[j].
 * smxStsConvergeErr: neither dstVectors nor dstValues holds anything of use.
 * An array call stops at its first failing object, as above; the shift of the diagonal leaves the vectors as they are.
 *
 * The m and the ma forms skip different reflections and round differently, so their bits differ; `_ma_32f_L` with
 * adjacent elements has gates of 2^-52 in its reduction, so it may differ from its siblings. The wrong value of
 * smxEigenValuesSym can come up here, too; the residual of A z = w z shows it as well. */
SMX_API SmxStatus smxEigenValuesVectorsSym_m_32f(const float *src, int srcStride1, int srcStride2, float *buffer,
                                                 float *dstVectors, int dstStride1, int dstStride2, float *dstValues,
                                                 int widthHeight);
SMX_API SmxStatus smxEigenValuesVectorsSym_m_32f_P(const float *const *src, int srcRoiShift, float *buffer,
                                                   float *const *dstVectors, int dstRoiShift, float *dstValues,
                                                   int widthHeight);
SMX_API SmxStatus smxEigenValuesVectorsSym_m_64f(const double *src, int srcStride1, int srcStride2, double *buffer,
                                                 double *dstVectors, int dstStride1, int dstStride2, double *dstValues,
                                                 int widthHeight);
SMX_API SmxStatus smxEigenValuesVectorsSym_m_64f_P(const double *const *src, int srcRoiShift, double *buffer,
                                                   double *const *dstVectors, int dstRoiShift, double *dstValues,
                                                   int widthHeight);
SMX_API SmxStatus smxEigenValuesVectorsSym_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2,
                                                  float *buffer, float *dstVectors, int dstStride0, int dstStride1,
                                                  int dstStride2, float *dstValues, int widthHeight, int count);
SMX_API SmxStatus smxEigenValuesVectorsSym_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0,
                                                    float *buffer, float *const *dstVectors, int dstRoiShift,
                                                    int dstStride0, float *dstValues, int widthHeight, int count);
SMX_API SmxStatus smxEigenValuesVectorsSym_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1,
                                                    int srcStride2, float *buffer, float *const *dstVectors,
                                                    int dstRoiShift, int dstStride1, int dstStride2, float *dstValues,
                                                    int widthHeight, int count);
SMX_API SmxStatus smxEigenValuesVectorsSym_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2,
                                                  double *buffer, double *dstVectors, int dstStride0, int dstStride1,
                                                  int dstStride2, double *dstValues, int widthHeight, int count);
SMX_API SmxStatus smxEigenValuesVectorsSym_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0,
                                                    double *buffer, double *const *dstVectors, int dstRoiShift,
                                                    int dstStride0, double *dstValues, int widthHeight, int count);
SMX_API SmxStatus smxEigenValuesVectorsSym_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1,
                                                    int srcStride2, double *buffer, double *const *dstVectors,
                                                    int dstRoiShift, int dstStride1, int dstStride2, double *dstValues,
                                                    int widthHeight, int count);

/* The bytes of scratch of the general eigen functions for matrices of n = widthHeight: n * (n + 5) elements for
 * smxEigenValues, n * (3 * n + 5) for those with vectors. One buffer serves a whole array. The product wraps in an int
 * from n = 16382 on (_64f; 9459 with vectors) or 23168 on (_32f; 13377 with vectors), with status 0: compute it yourself
 * there.
 * Checks: null (bufSize), size. smxStsNullPtrErr, smxStsSizeErr; nothing is written then. */
SMX_API SmxStatus smxEigenValuesGetBufSize_32f(int widthHeight, int *bufSize);
SMX_API SmxStatus smxEigenValuesGetBufSize_64f(int widthHeight, int *bufSize);
SMX_API SmxStatus smxEigenValuesVectorsGetBufSize_32f(int widthHeight, int *bufSize);
SMX_API SmxStatus smxEigenValuesVectorsGetBufSize_64f(int widthHeight, int *bufSize);

/* All eigenvalues of general real matrices.
 *
 * Codes     m    one matrix; no suffix, _P
 *           ma   an array of matrices; no suffix, _P, _L
 * Method    Householder reduction to Hessenberg form, double-shift QR iteration. After published LAPACK routines,
 *           without balancing or scaling, and with absolute deflation. G. H. Golub and C. F. Van Loan, Matrix
 *           Computations, 4th ed., section 7.5.
 * Shapes    src: n by n, n = widthHeight; only read. dstValuesRe, dstValuesIm: n elements an object, packed, object k
 *           from element k * n on. buffer: as smxEigenValuesGetBufSize says; behind count in the argument lists.
 * Order     NOT SORTED: as they stand on the diagonal of the final form. A complex pair has neighbouring indices, the
 *           one with positive imaginary part first.
 * Strides   in bytes, positive multiples of the element size; see smx.h.
 * Overlap   dstValuesRe, dstValuesIm and buffer must overlap nothing.
 * Checks    null (src, buffer, dstValuesRe, dstValuesIm), size, count, then shifts before strides.
 *           smxStsNullPtrErr, smxStsSizeErr, smxStsCountMatrixErr, smxStsRoiShiftMatrixErr, smxStsStrideMatrixErr.
 * Threads   above 10000 elements of work, (n * n + n) * count. The threads then have scratch of their own, but buffer
 *           must be there all the same: a call that runs on one thread after all uses it.
 *
 * The tolerances are absolute: a sub-diagonal element of at most 2^-23 (float) or 2^-52 (double) counts as 0. Scale
 * matrices of tiny elements, as for smxEigenValuesSym. Scale those of huge elements, too: squares are formed as they
 * are, so that values beyond 2^63 (float) or 2^511 (double) may come out as not-a-numbers, with status 0; from the
 * functions with vectors also those below 2^-74 or 2^-537.
 *
 * REAL VALUES CAN BE TOLD AS A COMPLEX PAIR, OR COME OUT WRONG, WITH STATUS 0. The standard form of a last 2 by 2 block
 * (a b; c d) has three kept oddities. Where a and d are equal, b and c non-zero, the values are told as
 * a +- i sqrt(|b c|) even if b and c have equal signs: the matrix (1 2; 2 1) gives 1 +- 2i, not 3 and -1. Where a
 * nearly double pair is rotated to an equal diagonal and turns out real, the values are m +- (a - d)/2 instead of
 * m +- sqrt(b c); nearly is absolute, too, so that all pairs of a matrix of tiny elements are nearly double. Where
 * rotating leaves one off-diagonal element at 0, both values are m. For symmetric matrices use smxEigenValuesSym; for
 * others, compare the sum of the squares of the values with the trace of A A, or perturb the matrix.
 *
 * smxStsConvergeErr: 30 n double steps were not enough. The values found so far stand at the upper indices; the others
 *     are not written. So end most matrices of side 3 and up with not-a-numbers; where zeros cut one off from the rest,
 *     the status may be 0, the values even finite. With infinities the status may be this one
 *     or 0, here and in smxEigenValuesVectors; sides 1 and 2 pass both on with status 0.
 * An array call stops at its first failing object: those before it are done, those behind it untouched, up to the
 * end of the same thread's share. */
SMX_API SmxStatus smxEigenValues_m_32f(const float *src, int srcStride1, int srcStride2, float *dstValuesRe,
                                       float *dstValuesIm, int widthHeight, float *buffer);
SMX_API SmxStatus smxEigenValues_m_32f_P(const float *const *src, int srcRoiShift, float *dstValuesRe,
                                         float *dstValuesIm, int widthHeight, float *buffer);
SMX_API SmxStatus smxEigenValues_m_64f(const double *src, int srcStride1, int srcStride2, double *dstValuesRe,
                                       double *dstValuesIm, int widthHeight, double *buffer);
SMX_API SmxStatus smxEigenValues_m_64f_P(const double *const *src, int srcRoiShift, double *dstValuesRe,
                                         double *dstValuesIm, int widthHeight, double *buffer);
SMX_API SmxStatus smxEigenValues_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2,
                                        float *dstValuesRe, float *dstValuesIm, int widthHeight, int count,
                                        float *buffer);
SMX_API SmxStatus smxEigenValues_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0, float *dstValuesRe,
                                          float *dstValuesIm, int widthHeight, int count, float *buffer);
SMX_API SmxStatus smxEigenValues_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                          float *dstValuesRe, float *dstValuesIm, int widthHeight, int count,
                                          float *buffer);
SMX_API SmxStatus smxEigenValues_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2,
                                        double *dstValuesRe, double *dstValuesIm, int widthHeight, int count,
                                        double *buffer);
SMX_API SmxStatus smxEigenValues_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0,
                                          double *dstValuesRe, double *dstValuesIm, int widthHeight, int count,
                                          double *buffer);
SMX_API SmxStatus smxEigenValues_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1, int srcStride2,
                                          double *dstValuesRe, double *dstValuesIm, int widthHeight, int count,
                                          double *buffer);

/* All eigenvalues and eigenvectors of general real matrices. Method, values, order, oddities, strides and count as in
 * smxEigenValues, but that deflation is relative here, so the values may differ in rounding from those of
 * smxEigenValues; what differs otherwise:
 *
 * LEFT AND RIGHT ARE EXCHANGED AGAINST WHAT YOU EXPECT, since all work is done on the transpose of src. With A the
 * matrix as stored, w a real eigenvalue and x, y columns of the results:
 *
 *   ...Left    A y = w y          the usual "right" eigenvectors
 *   ...Right   At x = w x         the usual "left" ones: xt A = w xt
 *
 * Results   dstVectors (smxEigenValuesVectors: dstVectorsRight and dstVectorsLeft): n by n, in the layout of src. THE
 *           VECTORS ARE THE COLUMNS. Column j belongs to value j. For a complex pair at j and j + 1, column j is the
 *           real and column j + 1 the imaginary part. For w the first value of the pair (positive imaginary part):
 *           Right: At x = w x for x = column j + i column j+1. Left: A y = conj(w) y for y = column j + i column j+1,
 *           so that column j - i column j+1 belongs to w.
 *           All have Euclidean norm 1, a pair as one complex vector, turned so that its largest element is real up to
 *           rounding.
 * Shapes    buffer: as smxEigenValuesVectorsGetBufSize says.
 * Overlap   a vector result may be src, with the same strides. The two of smxEigenValuesVectors must be apart.
 * Checks    null (all pointers), size, count, then the source's shift, the source's strides, the results' shifts, the
 *           results' strides.
 * Threads   above 7000 elements of work, (3 * n * n + n) * count.
 *
 * smxStsConvergeErr: as in smxEigenValues; no vector of the object is written.
 * smxStsErr: a complex 2 by 2 block of the back substitution is singular. All values are written, no vector is.
 * SILENT RETURN: where a real 2 by 2 block of the back substitution is singular, the function returns at once WITH
 *     smxStsNoErr. All values of the object are written, its vectors are not; an array call has stopped there and the
 *     objects behind it have neither. To notice it, fill the vectors with not-a-numbers before. Neither
 *     event has been seen with a matrix from outside: deflation clears such blocks first, rounding apart.
 * Defective matrices have fewer independent vectors than columns: some columns then agree up to rounding. Right
 * vectors of real values are not scaled on their way, so for a defective matrix of side 4 and up they may overflow and
 * come back as zeros.
 * An array call stops at its first failing object, as in smxEigenValues. */
SMX_API SmxStatus smxEigenValuesVectorsRight_m_32f(const float *src, int srcStride1, int srcStride2, float *dstVectors,
                                                   int dstStride1, int dstStride2, float *dstValuesRe,
                                                   float *dstValuesIm, int widthHeight, float *buffer);
SMX_API SmxStatus smxEigenValuesVectorsRight_m_32f_P(const float *const *src, int srcRoiShift, float *const *dstVectors,
                                                     int dstRoiShift, float *dstValuesRe, float *dstValuesIm,
                                                     int widthHeight, float *buffer);
SMX_API SmxStatus smxEigenValuesVectorsRight_m_64f(const double *src, int srcStride1, int srcStride2,
                                                   double *dstVectors, int dstStride1, int dstStride2,
                                                   double *dstValuesRe, double *dstValuesIm, int widthHeight,
                                                   double *buffer);
SMX_API SmxStatus smxEigenValuesVectorsRight_m_64f_P(const double *const *src, int srcRoiShift,
                                                     double *const *dstVectors, int dstRoiShift, double *dstValuesRe,
                                                     double *dstValuesIm, int widthHeight, double *buffer);
SMX_API SmxStatus smxEigenValuesVectorsRight_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2,
                                                    float *dstVectors, int dstStride0, int dstStride1, int dstStride2,
                                                    float *dstValuesRe, float *dstValuesIm, int widthHeight, int count,
                                                    float *buffer);
SMX_API SmxStatus smxEigenValuesVectorsRight_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0,
                                                      float *const *dstVectors, int dstRoiShift, int dstStride0,
                                                      float *dstValuesRe, float *dstValuesIm, int widthHeight,
                                                      int count, float *buffer);
SMX_API SmxStatus smxEigenValuesVectorsRight_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1,
                                                      int srcStride2, float *const *dstVectors, int dstRoiShift,
                                                      int dstStride1, int dstStride2, float *dstValuesRe,
                                                      float *dstValuesIm, int widthHeight, int count, float *buffer);
SMX_API SmxStatus smxEigenValuesVectorsRight_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2,
                                                    double *dstVectors, int dstStride0, int dstStride1, int dstStride2,
                                                    double *dstValuesRe, double *dstValuesIm, int widthHeight,
                                                    int count, double *buffer);
SMX_API SmxStatus smxEigenValuesVectorsRight_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0,
                                                      double *const *dstVectors, int dstRoiShift, int dstStride0,
                                                      double *dstValuesRe, double *dstValuesIm, int widthHeight,
                                                      int count, double *buffer);
SMX_API SmxStatus smxEigenValuesVectorsRight_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1,
                                                      int srcStride2, double *const *dstVectors, int dstRoiShift,
                                                      int dstStride1, int dstStride2, double *dstValuesRe,
                                                      double *dstValuesIm, int widthHeight, int count, double *buffer);
SMX_API SmxStatus smxEigenValuesVectorsLeft_m_32f(const float *src, int srcStride1, int srcStride2, float *dstVectors,
                                                  int dstStride1, int dstStride2, float *dstValuesRe,
                                                  float *dstValuesIm, int widthHeight, float *buffer);
SMX_API SmxStatus smxEigenValuesVectorsLeft_m_32f_P(const float *const *src, int srcRoiShift, float *const *dstVectors,
                                                    int dstRoiShift, float *dstValuesRe, float *dstValuesIm,
                                                    int widthHeight, float *buffer);
SMX_API SmxStatus smxEigenValuesVectorsLeft_m_64f(const double *src, int srcStride1, int srcStride2, double *dstVectors,
                                                  int dstStride1, int dstStride2, double *dstValuesRe,
                                                  double *dstValuesIm, int widthHeight, double *buffer);
SMX_API SmxStatus smxEigenValuesVectorsLeft_m_64f_P(const double *const *src, int srcRoiShift,
                                                    double *const *dstVectors, int dstRoiShift, double *dstValuesRe,
                                                    double *dstValuesIm, int widthHeight, double *buffer);
SMX_API SmxStatus smxEigenValuesVectorsLeft_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2,
                                                   float *dstVectors, int dstStride0, int dstStride1, int dstStride2,
                                                   float *dstValuesRe, float *dstValuesIm, int widthHeight, int count,
                                                   float *buffer);
SMX_API SmxStatus smxEigenValuesVectorsLeft_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0,
                                                     float *const *dstVectors, int dstRoiShift, int dstStride0,
                                                     float *dstValuesRe, float *dstValuesIm, int widthHeight, int count,
                                                     float *buffer);
SMX_API SmxStatus smxEigenValuesVectorsLeft_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1,
                                                     int srcStride2, float *const *dstVectors, int dstRoiShift,
                                                     int dstStride1, int dstStride2, float *dstValuesRe,
                                                     float *dstValuesIm, int widthHeight, int count, float *buffer);
SMX_API SmxStatus smxEigenValuesVectorsLeft_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2,
                                                   double *dstVectors, int dstStride0, int dstStride1, int dstStride2,
                                                   double *dstValuesRe, double *dstValuesIm, int widthHeight, int count,
                                                   double *buffer);
SMX_API SmxStatus smxEigenValuesVectorsLeft_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0,
                                                     double *const *dstVectors, int dstRoiShift, int dstStride0,
                                                     double *dstValuesRe, double *dstValuesIm, int widthHeight,
                                                     int count, double *buffer);
SMX_API SmxStatus smxEigenValuesVectorsLeft_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1,
                                                     int srcStride2, double *const *dstVectors, int dstRoiShift,
                                                     int dstStride1, int dstStride2, double *dstValuesRe,
                                                     double *dstValuesIm, int widthHeight, int count, double *buffer);
SMX_API SmxStatus smxEigenValuesVectors_m_32f(const float *src, int srcStride1, int srcStride2, float *dstVectorsRight,
                                              int dstRightStride1, int dstRightStride2, float *dstVectorsLeft,
                                              int dstLeftStride1, int dstLeftStride2, float *dstValuesRe,
                                              float *dstValuesIm, int widthHeight, float *buffer);
SMX_API SmxStatus smxEigenValuesVectors_m_32f_P(const float *const *src, int srcRoiShift, float *const *dstVectorsRight,
                                                int dstRightRoiShift, float *const *dstVectorsLeft, int dstLeftRoiShift,
                                                float *dstValuesRe, float *dstValuesIm, int widthHeight, float *buffer);
SMX_API SmxStatus smxEigenValuesVectors_m_64f(const double *src, int srcStride1, int srcStride2,
                                              double *dstVectorsRight, int dstRightStride1, int dstRightStride2,
                                              double *dstVectorsLeft, int dstLeftStride1, int dstLeftStride2,
                                              double *dstValuesRe, double *dstValuesIm, int widthHeight,
                                              double *buffer);
SMX_API SmxStatus smxEigenValuesVectors_m_64f_P(const double *const *src, int srcRoiShift,
                                                double *const *dstVectorsRight, int dstRightRoiShift,
                                                double *const *dstVectorsLeft, int dstLeftRoiShift, double *dstValuesRe,
                                                double *dstValuesIm, int widthHeight, double *buffer);
SMX_API SmxStatus smxEigenValuesVectors_ma_32f(const float *src, int srcStride0, int srcStride1, int srcStride2,
                                               float *dstVectorsRight, int dstRightStride0, int dstRightStride1,
                                               int dstRightStride2, float *dstVectorsLeft, int dstLeftStride0,
                                               int dstLeftStride1, int dstLeftStride2, float *dstValuesRe,
                                               float *dstValuesIm, int widthHeight, int count, float *buffer);
SMX_API SmxStatus smxEigenValuesVectors_ma_32f_P(const float *const *src, int srcRoiShift, int srcStride0,
                                                 float *const *dstVectorsRight, int dstRightRoiShift,
                                                 int dstRightStride0, float *const *dstVectorsLeft, int dstLeftRoiShift,
                                                 int dstLeftStride0, float *dstValuesRe, float *dstValuesIm,
                                                 int widthHeight, int count, float *buffer);
SMX_API SmxStatus smxEigenValuesVectors_ma_32f_L(const float *const *src, int srcRoiShift, int srcStride1,
                                                 int srcStride2, float *const *dstVectorsRight, int dstRightRoiShift,
                                                 int dstRightStride1, int dstRightStride2, float *const *dstVectorsLeft,
                                                 int dstLeftRoiShift, int dstLeftStride1, int dstLeftStride2,
                                                 float *dstValuesRe, float *dstValuesIm, int widthHeight, int count,
                                                 float *buffer);
SMX_API SmxStatus smxEigenValuesVectors_ma_64f(const double *src, int srcStride0, int srcStride1, int srcStride2,
                                               double *dstVectorsRight, int dstRightStride0, int dstRightStride1,
                                               int dstRightStride2, double *dstVectorsLeft, int dstLeftStride0,
                                               int dstLeftStride1, int dstLeftStride2, double *dstValuesRe,
                                               double *dstValuesIm, int widthHeight, int count, double *buffer);
SMX_API SmxStatus smxEigenValuesVectors_ma_64f_P(const double *const *src, int srcRoiShift, int srcStride0,
                                                 double *const *dstVectorsRight, int dstRightRoiShift,
                                                 int dstRightStride0, double *const *dstVectorsLeft,
                                                 int dstLeftRoiShift, int dstLeftStride0, double *dstValuesRe,
                                                 double *dstValuesIm, int widthHeight, int count, double *buffer);
SMX_API SmxStatus smxEigenValuesVectors_ma_64f_L(const double *const *src, int srcRoiShift, int srcStride1,
                                                 int srcStride2, double *const *dstVectorsRight, int dstRightRoiShift,
                                                 int dstRightStride1, int dstRightStride2,
                                                 double *const *dstVectorsLeft, int dstLeftRoiShift, int dstLeftStride1,
                                                 int dstLeftStride2, double *dstValuesRe, double *dstValuesIm,
                                                 int widthHeight, int count, double *buffer);

#ifdef __cplusplus
}
#endif

#endif
