// The catalogue: one row for every operation and operand code. A member that is not here does not exist.
//
//   SHAPE, (family), (order of checks, work and bounds, match), operands in order ...
//
// SHAPE is SINGLE for a form without an array (members without suffix and _P), ARRAY for one with arrays (members
// without suffix, _P and _L; `count` comes last). Behind them stands what a form lacks: _ONE_KERNEL has one for any
// stride2, _NO_KERNEL and COPY (nine pairs of layouts) do their work in the interface function, ARRAY_NO_DRIVER never
// runs on several threads, ARRAY_STRIDED_FLOAT has that one member. The operand kinds stand in frame_stamp.hpp.
// Modules, drivers and tests all read these rows.
#pragma once

// ---- matrix sums: smxadd_*, smxsub_*

#define SMX_SUM(a, b, d) (a, src1), (b, src2), (d, dst), (W, width), (H, height)
#define SMX_SUM_SINGLE (orders::single)
#define SMX_SUM_ONE (orders::array, bounds::sum_one_array)
#define SMX_SUM_TWO (orders::array, bounds::sum_two_arrays)
#define SMX_SUM_LATE (orders::size_after_strides, bounds::sum_one_array)

#define SMX_ROW_Add_mm SINGLE, (MatrixSum<Arithmetic::add>), SMX_SUM_SINGLE, SMX_SUM(M, M, MO)
#define SMX_ROW_Add_tm SINGLE, (MatrixSum<Arithmetic::add>), SMX_SUM_SINGLE, SMX_SUM(T, M, MO)
#define SMX_ROW_Add_tt SINGLE, (MatrixSum<Arithmetic::add>), SMX_SUM_SINGLE, SMX_SUM(T, T, MO)
#define SMX_ROW_Add_mam ARRAY, (MatrixSum<Arithmetic::add>), SMX_SUM_LATE, SMX_SUM(MA, M, MAO)
#define SMX_ROW_Add_tam ARRAY, (MatrixSum<Arithmetic::add>), SMX_SUM_ONE, SMX_SUM(TA, M, MAO)
// double has no path written out, and no layout but the plain one has it for float
#define SMX_ROW_Add_mat ARRAY, (MatrixSum<Arithmetic::add, Written::plain_float>), SMX_SUM_ONE, SMX_SUM(MA, T, MAO)
#define SMX_ROW_Add_tat ARRAY, (MatrixSum<Arithmetic::add>), SMX_SUM_ONE, SMX_SUM(TA, T, MAO)
#define SMX_ROW_Add_mama ARRAY, (MatrixSum<Arithmetic::add>), SMX_SUM_TWO, SMX_SUM(MA, MA, MAO)
#define SMX_ROW_Add_tama ARRAY, (MatrixSum<Arithmetic::add>), SMX_SUM_TWO, SMX_SUM(TA, MA, MAO)
#define SMX_ROW_Add_tata ARRAY, (MatrixSum<Arithmetic::add>), SMX_SUM_TWO, SMX_SUM(TA, TA, MAO)

#define SMX_ROW_Sub_mm SINGLE, (MatrixSum<Arithmetic::subtract>), SMX_SUM_SINGLE, SMX_SUM(M, M, MO)
#define SMX_ROW_Sub_tm SINGLE, (MatrixSum<Arithmetic::subtract>), SMX_SUM_SINGLE, SMX_SUM(T, M, MO)
#define SMX_ROW_Sub_mt SINGLE, (MatrixSum<Arithmetic::subtract>), SMX_SUM_SINGLE, SMX_SUM(M, T, MO)
#define SMX_ROW_Sub_tt SINGLE, (MatrixSum<Arithmetic::subtract>), SMX_SUM_SINGLE, SMX_SUM(T, T, MO)
#define SMX_ROW_Sub_mam ARRAY, (MatrixSum<Arithmetic::subtract>), SMX_SUM_LATE, SMX_SUM(MA, M, MAO)
#define SMX_ROW_Sub_tam ARRAY, (MatrixSum<Arithmetic::subtract>), SMX_SUM_ONE, SMX_SUM(TA, M, MAO)
// the pointer layout has no path written out
#define SMX_ROW_Sub_mat \
    ARRAY, (MatrixSum<Arithmetic::subtract, Written::not_pointers>), SMX_SUM_ONE, SMX_SUM(MA, T, MAO)
#define SMX_ROW_Sub_tat ARRAY, (MatrixSum<Arithmetic::subtract>), SMX_SUM_ONE, SMX_SUM(TA, T, MAO)
#define SMX_ROW_Sub_mama ARRAY, (MatrixSum<Arithmetic::subtract>), SMX_SUM_TWO, SMX_SUM(MA, MA, MAO)
#define SMX_ROW_Sub_tama ARRAY, (MatrixSum<Arithmetic::subtract>), SMX_SUM_TWO, SMX_SUM(TA, MA, MAO)
#define SMX_ROW_Sub_mata ARRAY, (MatrixSum<Arithmetic::subtract, Written::none>), SMX_SUM_TWO, SMX_SUM(MA, TA, MAO)
#define SMX_ROW_Sub_tata ARRAY, (MatrixSum<Arithmetic::subtract>), SMX_SUM_TWO, SMX_SUM(TA, TA, MAO)
#define SMX_ROW_Sub_mma ARRAY, (MatrixSum<Arithmetic::subtract>), SMX_SUM_LATE, SMX_SUM(M, MA, MAO)
#define SMX_ROW_Sub_tma ARRAY, (MatrixSum<Arithmetic::subtract>), SMX_SUM_ONE, SMX_SUM(T, MA, MAO)
#define SMX_ROW_Sub_mta ARRAY, (MatrixSum<Arithmetic::subtract>), SMX_SUM_ONE, SMX_SUM(M, TA, MAO)
#define SMX_ROW_Sub_tta ARRAY, (MatrixSum<Arithmetic::subtract>), SMX_SUM_ONE, SMX_SUM(T, TA, MAO)

// clang-format off
#define SMX_CATALOGUE_SUMS(ROW) \
    ROW(Add_mm) ROW(Add_tm) ROW(Add_tt) ROW(Add_mam) ROW(Add_tam) ROW(Add_mat) ROW(Add_tat) ROW(Add_mama) \
    ROW(Add_tama) ROW(Add_tata) ROW(Sub_mm) ROW(Sub_tm) ROW(Sub_mt) ROW(Sub_tt) ROW(Sub_mam) ROW(Sub_tam) \
    ROW(Sub_mat) ROW(Sub_tat) ROW(Sub_mama) ROW(Sub_tama) ROW(Sub_mata) ROW(Sub_tata) ROW(Sub_mma) ROW(Sub_tma) \
    ROW(Sub_mta) ROW(Sub_tta)
// clang-format on

// ---- matrix products: smxmul_* on matrices

#define SMX_PRODUCT(a, b, d) \
    (a, src1), (W1, src1Width), (H1, src1Height), (b, src2), (W2, src2Width), (H2, src2Height), (d, dst)
#define SMX_PRODUCT_SINGLE(t1, t2) (orders::single_product, bounds::none, match::product<t1, t2>)
#define SMX_PRODUCT_ARRAY(t1, a1, t2, a2) (orders::product, bounds::product<t1, a1, t2, a2>, match::product<t1, t2>)

#define SMX_ROW_Mul_mm \
    SINGLE, (MatrixProduct<General::blocked>), SMX_PRODUCT_SINGLE(false, false), SMX_PRODUCT(M, M, MO)
#define SMX_ROW_Mul_tm SINGLE, (MatrixProduct<General::blocked>), SMX_PRODUCT_SINGLE(true, false), SMX_PRODUCT(T, M, MO)
#define SMX_ROW_Mul_mt SINGLE, (MatrixProduct<General::blocked>), SMX_PRODUCT_SINGLE(false, true), SMX_PRODUCT(M, T, MO)
#define SMX_ROW_Mul_tt SINGLE, (MatrixProduct<General::blocked>), SMX_PRODUCT_SINGLE(true, true), SMX_PRODUCT(T, T, MO)
#define SMX_ROW_Mul_mam \
    ARRAY, (MatrixProduct<General::simple>), SMX_PRODUCT_ARRAY(false, true, false, false), SMX_PRODUCT(MA, M, MAO)
#define SMX_ROW_Mul_tam \
    ARRAY, (MatrixProduct<General::simple>), SMX_PRODUCT_ARRAY(true, true, false, false), SMX_PRODUCT(TA, M, MAO)
#define SMX_ROW_Mul_mat \
    ARRAY, (MatrixProduct<General::simple>), SMX_PRODUCT_ARRAY(false, true, true, false), SMX_PRODUCT(MA, T, MAO)
#define SMX_ROW_Mul_tat \
    ARRAY, (MatrixProduct<General::simple>), SMX_PRODUCT_ARRAY(true, true, true, false), SMX_PRODUCT(TA, T, MAO)
#define SMX_ROW_Mul_mama \
    ARRAY, (MatrixProduct<General::blocked>), SMX_PRODUCT_ARRAY(false, true, false, true), SMX_PRODUCT(MA, MA, MAO)
#define SMX_ROW_Mul_tama \
    ARRAY, (MatrixProduct<General::blocked>), SMX_PRODUCT_ARRAY(true, true, false, true), SMX_PRODUCT(TA, MA, MAO)
// the one product whose strided kernel is not blocked for double
#define SMX_ROW_Mul_mata \
    ARRAY, (MatrixProduct<General::blocked_float>), SMX_PRODUCT_ARRAY(false, true, true, true), SMX_PRODUCT(MA, TA, MAO)
#define SMX_ROW_Mul_tata \
    ARRAY, (MatrixProduct<General::blocked>), SMX_PRODUCT_ARRAY(true, true, true, true), SMX_PRODUCT(TA, TA, MAO)
#define SMX_ROW_Mul_mma \
    ARRAY, (MatrixProduct<General::blocked>), SMX_PRODUCT_ARRAY(false, false, false, true), SMX_PRODUCT(M, MA, MAO)
#define SMX_ROW_Mul_tma \
    ARRAY, (MatrixProduct<General::blocked>), SMX_PRODUCT_ARRAY(true, false, false, true), SMX_PRODUCT(T, MA, MAO)
#define SMX_ROW_Mul_mta \
    ARRAY, (MatrixProduct<General::blocked>), SMX_PRODUCT_ARRAY(false, false, true, true), SMX_PRODUCT(M, TA, MAO)
#define SMX_ROW_Mul_tta \
    ARRAY, (MatrixProduct<General::blocked>), SMX_PRODUCT_ARRAY(true, false, true, true), SMX_PRODUCT(T, TA, MAO)

// clang-format off
#define SMX_CATALOGUE_PRODUCTS(ROW) \
    ROW(Mul_mm) ROW(Mul_tm) ROW(Mul_mt) ROW(Mul_tt) ROW(Mul_mam) ROW(Mul_tam) ROW(Mul_mat) ROW(Mul_tat) \
    ROW(Mul_mama) ROW(Mul_tama) ROW(Mul_mata) ROW(Mul_tata) ROW(Mul_mma) ROW(Mul_tma) ROW(Mul_mta) ROW(Mul_tta)
// clang-format on

// ---- LU: smxludecomp_*, smxlubacksubst_*

#define SMX_ROW_LUDecomp_m \
    SINGLE, (LUDecomposition), (orders::single), (M, src), (PIVO, pivotIndex), (MO, dst), (SIDE, widthHeight)
#define SMX_ROW_LUDecomp_ma                                                                                  \
    ARRAY, (LUDecomposition), (orders::array, bounds::ludecomp), (MA, src), (PIVAO, pivotIndex), (MAO, dst), \
        (SIDE, widthHeight)
#define SMX_ROW_LUBackSubst_mv                                                                          \
    SINGLE, (LUBackSubstitution), (orders::single), (M, src1), (PIV, pivotIndex), (V, src2), (VO, dst), \
        (SIDE, widthHeight)
#define SMX_ROW_LUBackSubst_mva                                                                                      \
    ARRAY, (LUBackSubstitution), (orders::array, bounds::lubacksubst_mva), (M, src1), (PIV, pivotIndex), (VA, src2), \
        (VAO, dst), (SIDE, widthHeight)
#define SMX_ROW_LUBackSubst_mava                                                                            \
    ARRAY, (LUBackSubstitution), (orders::array, bounds::lubacksubst_mava), (MA, src1), (PIVA, pivotIndex), \
        (VA, src2), (VAO, dst), (SIDE, widthHeight)

// clang-format off
#define SMX_CATALOGUE_LU(ROW) \
    ROW(LUDecomp_m) ROW(LUDecomp_ma) ROW(LUBackSubst_mv) ROW(LUBackSubst_mva) ROW(LUBackSubst_mava)
// clang-format on

// ---- Cholesky: smxcholeskydecomp_m, smxcholdecomp_ma, smxcholeskybacksubst_mv, _mava, smxcholbacksubst_mva

#define SMX_ROW_CholeskyDecomp_m \
    SINGLE, (CholeskyDecomposition), (orders::single), (M, src), (MO, dst), (SIDE, widthHeight)
#define SMX_ROW_CholeskyDecomp_ma \
    ARRAY, (CholeskyDecomposition), (orders::array, bounds::choldecomp), (MA, src), (MAO, dst), (SIDE, widthHeight)
#define SMX_ROW_CholeskyBackSubst_mv \
    SINGLE, (CholeskyBackSubstitution), (orders::single), (M, src1), (V, src2), (VO, dst), (SIDE, widthHeight)
#define SMX_ROW_CholeskyBackSubst_mva                                                                            \
    ARRAY, (CholeskyBackSubstitution), (orders::cholesky_mva, bounds::cholbacksubst_mva), (M, src1), (VA, src2), \
        (VAO, dst), (SIDE, widthHeight)
#define SMX_ROW_CholeskyBackSubst_mava                                                                      \
    ARRAY, (CholeskyBackSubstitution), (orders::array, bounds::cholbacksubst_mava), (MA, src1), (VA, src2), \
        (VAO, dst), (SIDE, widthHeight)

// clang-format off
#define SMX_CATALOGUE_CHOLESKY(ROW) \
    ROW(CholeskyDecomp_m) ROW(CholeskyDecomp_ma) ROW(CholeskyBackSubst_mv) ROW(CholeskyBackSubst_mva) \
    ROW(CholeskyBackSubst_mava)
// clang-format on

// ---- QR: smxqrdecomp_*, smxqrbacksubst_mv, _mava, smxqrbackssubst_mva

#define SMX_QR_SINGLE (orders::single_match_last, bounds::none, match::at_least_as_high)
#define SMX_QR_ARRAY(bounds) (orders::match_last, bounds, match::at_least_as_high)

#define SMX_ROW_QRDecomp_m \
    SINGLE, (QRDecomposition), SMX_QR_SINGLE, (M, src), (BUF, buffer), (MO, dst), (W, width), (H, height)
#define SMX_ROW_QRDecomp_ma                                                                                     \
    ARRAY, (QRDecomposition), SMX_QR_ARRAY(bounds::qrdecomp), (MA, src), (BUF, buffer), (MAO, dst), (W, width), \
        (H, height)
#define SMX_ROW_QRBackSubst_mv \
    SINGLE, (QRBackSubstitution), SMX_QR_SINGLE, (M, src1), (BUF, buffer), (V, src2), (VO, dst), (W, width), (H, height)
#define SMX_ROW_QRBackSubst_mva                                                                               \
    ARRAY, (QRBackSubstitution), SMX_QR_ARRAY(bounds::qrbacksubst_mva), (M, src1), (BUF, buffer), (VA, src2), \
        (VAO, dst), (W, width), (H, height)
#define SMX_ROW_QRBackSubst_mava                                                                                \
    ARRAY, (QRBackSubstitution), SMX_QR_ARRAY(bounds::qrbacksubst_mava), (MA, src1), (BUF, buffer), (VA, src2), \
        (VAO, dst), (W, width), (H, height)

// clang-format off
#define SMX_CATALOGUE_QR(ROW) \
    ROW(QRDecomp_m) ROW(QRDecomp_ma) ROW(QRBackSubst_mv) ROW(QRBackSubst_mva) ROW(QRBackSubst_mava)
// clang-format on

// ---- determinant and inverse: smxdet_*, smxinvert_*

// the size comes ahead of scratch and result
#define SMX_ROW_Det_m SINGLE, (Determinant), (orders::single), (M, src), (SIDE, widthHeight), (BUF, buffer), (R, dstDet)
#define SMX_ROW_Det_ma \
    ARRAY, (Determinant), (orders::array, bounds::det), (MA, src), (SIDE, widthHeight), (BUF, buffer), (RA, dstDet)
// side 1 is done by the interface functions
#define SMX_ROW_Invert_m                                                                                              \
    SINGLE, (Inverse), (orders::single, bounds::none, nullptr, AtOnce::side_one), (M, src), (BUF, buffer), (MO, dst), \
        (SIDE, widthHeight)
#define SMX_ROW_Invert_ma                                                                                   \
    ARRAY, (Inverse), (orders::array, bounds::invert, nullptr, AtOnce::side_one), (MA, src), (BUF, buffer), \
        (MAO, dst), (SIDE, widthHeight)

// clang-format off
#define SMX_CATALOGUE_DET_INVERT(ROW) \
    ROW(Det_m) ROW(Det_ma) ROW(Invert_m) ROW(Invert_ma)
// clang-format on

// ---- eigenproblems: smxeigenvalues*_m, _ma

#define SMX_EIGEN_VECTORS_RULES (orders::single_eigenvectors)
#define SMX_EIGEN_VECTORS_ARRAY_RULES (orders::eigenvectors, bounds::eigenvectors)

#define SMX_ROW_EigenValuesSym_m \
    SINGLE, (EigenValuesSymmetric), (orders::single), (M, src), (BUF, buffer), (RS, dstValues), (SIDE, widthHeight)
#define SMX_ROW_EigenValuesSym_ma                                                                                 \
    ARRAY, (EigenValuesSymmetric), (orders::eigen, bounds::eigensym), (MA, src), (BUF, buffer), (RSA, dstValues), \
        (SIDE, widthHeight)
#define SMX_ROW_EigenValuesVectorsSym_m                                                                      \
    SINGLE, (EigenValuesVectorsSymmetric), (orders::single), (M, src), (BUF, buffer), (MO, dstVectors, dst), \
        (RS, dstValues), (SIDE, widthHeight)
#define SMX_ROW_EigenValuesVectorsSym_ma                                                                      \
    ARRAY, (EigenValuesVectorsSymmetric), (orders::eigen, bounds::eigenvectorssym), (MA, src), (BUF, buffer), \
        (MAO, dstVectors, dst), (RSA, dstValues), (SIDE, widthHeight)

// The general families have one kernel for each layout, and `count` before `buffer`.
#define SMX_ROW_EigenValues_m                                                                                  \
    SINGLE_ONE_KERNEL, (EigenValuesGeneral), (orders::single), (M, src), (RS, dstValuesRe), (RS, dstValuesIm), \
        (SIDE, widthHeight), (BUF, buffer)
#define SMX_ROW_EigenValues_ma                                                                             \
    ARRAY_ONE_KERNEL, (EigenValuesGeneral), (orders::eigen, bounds::eigen), (MA, src), (RSA, dstValuesRe), \
        (RSA, dstValuesIm), (SIDE, widthHeight), (N, count), (BUF, buffer)
#define SMX_ROW_EigenValuesVectorsRight_m                                                                           \
    SINGLE_ONE_KERNEL, (EigenVectorsGeneral<right_mode>), SMX_EIGEN_VECTORS_RULES, (M, src), (MO, dstVectors, dst), \
        (RS, dstValuesRe), (RS, dstValuesIm), (SIDE, widthHeight), (BUF, buffer)
#define SMX_ROW_EigenValuesVectorsLeft_m                                                                           \
    SINGLE_ONE_KERNEL, (EigenVectorsGeneral<left_mode>), SMX_EIGEN_VECTORS_RULES, (M, src), (MO, dstVectors, dst), \
        (RS, dstValuesRe), (RS, dstValuesIm), (SIDE, widthHeight), (BUF, buffer)
#define SMX_ROW_EigenValuesVectorsRight_ma                                                         \
    ARRAY_ONE_KERNEL, (EigenVectorsGeneral<right_mode>), SMX_EIGEN_VECTORS_ARRAY_RULES, (MA, src), \
        (MAO, dstVectors, dst), (RSA, dstValuesRe), (RSA, dstValuesIm), (SIDE, widthHeight), (N, count), (BUF, buffer)
#define SMX_ROW_EigenValuesVectorsLeft_ma                                                         \
    ARRAY_ONE_KERNEL, (EigenVectorsGeneral<left_mode>), SMX_EIGEN_VECTORS_ARRAY_RULES, (MA, src), \
        (MAO, dstVectors, dst), (RSA, dstValuesRe), (RSA, dstValuesIm), (SIDE, widthHeight), (N, count), (BUF, buffer)
#define SMX_ROW_EigenValuesVectors_m                                                                           \
    SINGLE_ONE_KERNEL, (EigenVectorsBoth), SMX_EIGEN_VECTORS_RULES, (M, src), (MO, dstVectorsRight, dstRight), \
        (MO, dstVectorsLeft, dstLeft), (RS, dstValuesRe), (RS, dstValuesIm), (SIDE, widthHeight), (BUF, buffer)
#define SMX_ROW_EigenValuesVectors_ma                                                                                 \
    ARRAY_ONE_KERNEL, (EigenVectorsBoth), SMX_EIGEN_VECTORS_ARRAY_RULES, (MA, src), (MAO, dstVectorsRight, dstRight), \
        (MAO, dstVectorsLeft, dstLeft), (RSA, dstValuesRe), (RSA, dstValuesIm), (SIDE, widthHeight), (N, count),      \
        (BUF, buffer)

// clang-format off
#define SMX_CATALOGUE_EIGEN(ROW) \
    ROW(EigenValuesSym_m) ROW(EigenValuesSym_ma) ROW(EigenValuesVectorsSym_m) ROW(EigenValuesVectorsSym_ma) \
    ROW(EigenValues_m) ROW(EigenValues_ma) ROW(EigenValuesVectorsRight_m) ROW(EigenValuesVectorsRight_ma) \
    ROW(EigenValuesVectorsLeft_m) ROW(EigenValuesVectorsLeft_ma) ROW(EigenValuesVectors_m) \
    ROW(EigenValuesVectors_ma)
// clang-format on

// ---- matrix by vector: smxmul_*v*, smxgaxpy_*

#define SMX_BY_VECTOR(a, b, d) (a, src1), (W1, src1Width), (H1, src1Height), (b, src2), (LEN2, src2Len), (d, dst)
#define SMX_BY_VECTOR_SINGLE(t1) (orders::single_product, bounds::none, match::product_vector<t1>)
#define SMX_BY_VECTOR_ARRAY(t1, a1, a2) (orders::product, bounds::product_vector<t1, a1, a2>, match::product_vector<t1>)
#define SMX_GAXPY(b, c, d) \
    (M, src1), (W1, src1Width), (H1, src1Height), (b, src2), (LEN2, src2Len), (c, src3), (LEN3, src3Len), (d, dst)

#define SMX_ROW_Mul_mv SINGLE, (MatrixVectorProduct<>), SMX_BY_VECTOR_SINGLE(false), SMX_BY_VECTOR(M, V, VO)
#define SMX_ROW_Mul_tv SINGLE, (MatrixVectorProduct<>), SMX_BY_VECTOR_SINGLE(true), SMX_BY_VECTOR(T, V, VO)
#define SMX_ROW_Mul_mav \
    ARRAY, (MatrixVectorProduct<>), SMX_BY_VECTOR_ARRAY(false, true, false), SMX_BY_VECTOR(MA, V, VAO)
#define SMX_ROW_Mul_tav \
    ARRAY, (MatrixVectorProduct<>), SMX_BY_VECTOR_ARRAY(true, true, false), SMX_BY_VECTOR(TA, V, VAO)
#define SMX_ROW_Mul_mava \
    ARRAY, (MatrixVectorProduct<>), SMX_BY_VECTOR_ARRAY(false, true, true), SMX_BY_VECTOR(MA, VA, VAO)
#define SMX_ROW_Mul_tava \
    ARRAY, (MatrixVectorProduct<>), SMX_BY_VECTOR_ARRAY(true, true, true), SMX_BY_VECTOR(TA, VA, VAO)
// the one row whose strided kernel for float does not group rows
#define SMX_ROW_Mul_mva \
    ARRAY, (MatrixVectorProduct<Rows::single_float>), SMX_BY_VECTOR_ARRAY(false, false, true), SMX_BY_VECTOR(M, VA, VAO)
#define SMX_ROW_Mul_tva \
    ARRAY, (MatrixVectorProduct<>), SMX_BY_VECTOR_ARRAY(true, false, true), SMX_BY_VECTOR(T, VA, VAO)
#define SMX_ROW_Gaxpy_mv SINGLE, (Gaxpy), (orders::single_product, bounds::none, match::gaxpy), SMX_GAXPY(V, V, VO)
#define SMX_ROW_Gaxpy_mva ARRAY, (Gaxpy), (orders::product, bounds::gaxpy_mva, match::gaxpy), SMX_GAXPY(VA, VA, VAO)
#define SMX_ROW_Gaxpy_mvav ARRAY, (Gaxpy), (orders::product, bounds::gaxpy_mvav, match::gaxpy), SMX_GAXPY(VA, V, VAO)

// ---- element by element with constants: smxmul_*c, smxsaxpy_*, smxlcomb_*

#define SMX_BY_CONSTANT(a, d) (a, src), (C, val), (d, dst), (W, width), (H, height)
#define SMX_SAXPY(a, b, d) (a, src1), (C, val), (b, src2), (d, dst), (LEN, len)
#define SMX_LCOMB(a, b, d) (a, src1), (C, val1), (b, src2), (C, val2), (d, dst), (LEN, len)
#define SMX_SAXPY_ONE (orders::array, bounds::saxpy_one_array)

#define SMX_ROW_Mul_mc SINGLE, (MatrixByConstant), (orders::single), SMX_BY_CONSTANT(M, MO)
#define SMX_ROW_Mul_tc SINGLE, (MatrixByConstant), (orders::single), SMX_BY_CONSTANT(T, MO)
#define SMX_ROW_Mul_mac ARRAY, (MatrixByConstant), (orders::array, bounds::mul_mac), SMX_BY_CONSTANT(MA, MAO)
#define SMX_ROW_Mul_tac ARRAY, (MatrixByConstant), (orders::array, bounds::mul_mac), SMX_BY_CONSTANT(TA, MAO)
#define SMX_ROW_Saxpy_vv SINGLE, (Saxpy), (orders::single), SMX_SAXPY(V, V, VO)
#define SMX_ROW_Saxpy_vav ARRAY, (Saxpy), SMX_SAXPY_ONE, SMX_SAXPY(VA, V, VAO)
#define SMX_ROW_Saxpy_vva ARRAY, (Saxpy), SMX_SAXPY_ONE, SMX_SAXPY(V, VA, VAO)
#define SMX_ROW_Saxpy_vava ARRAY, (Saxpy), (orders::array, bounds::saxpy_two_arrays), SMX_SAXPY(VA, VA, VAO)
#define SMX_ROW_LComb_vv SINGLE, (LinearCombination), (orders::single), SMX_LCOMB(V, V, VO)
#define SMX_ROW_LComb_vav ARRAY, (LinearCombination), (orders::array, bounds::lcomb_one_array), SMX_LCOMB(VA, V, VAO)
#define SMX_ROW_LComb_vava ARRAY, (LinearCombination), (orders::array, bounds::lcomb_two_arrays), SMX_LCOMB(VA, VA, VAO)

// ---- vector products, norms, trace, transform: smxdotproduct_*, smxcrossproduct_*, smxl2norm_*, smxtrace_*,
// smxfrobnorm_*, smxaffinetransform3dh_*

#define SMX_DOT(a, b, d) (a, src1), (b, src2), (d, dst), (LEN, len)
#define SMX_CROSS(a, b, d) (a, src1), (b, src2), (d, dst)
#define SMX_FROBENIUS(a, d) (a, src), (W, width), (H, height), (d, dst)

#define SMX_ROW_DotProduct_vv SINGLE, (DotProduct), (orders::single), SMX_DOT(V, V, R)
#define SMX_ROW_DotProduct_vav ARRAY, (DotProduct), (orders::array, bounds::dot_one_array), SMX_DOT(VA, V, RA)
#define SMX_ROW_DotProduct_vava ARRAY, (DotProduct), (orders::array, bounds::dot_two_arrays), SMX_DOT(VA, VA, RA)
#define SMX_ROW_CrossProduct_vv SINGLE, (CrossProduct), (orders::single), SMX_CROSS(V, V, VO)
#define SMX_ROW_CrossProduct_vav \
    ARRAY, (CrossProduct), (orders::count_after_strides, bounds::cross_one_array), SMX_CROSS(VA, V, VAO)
#define SMX_ROW_CrossProduct_vva ARRAY, (CrossProduct), (orders::array, bounds::cross_one_array), SMX_CROSS(V, VA, VAO)
#define SMX_ROW_CrossProduct_vava \
    ARRAY, (CrossProduct), (orders::array, bounds::cross_two_arrays), SMX_CROSS(VA, VA, VAO)
#define SMX_ROW_L2Norm_v SINGLE, (L2Norm), (orders::single), (V, src), (R, dst), (LEN, len)
#define SMX_ROW_L2Norm_va ARRAY, (L2Norm), (orders::array, bounds::l2norm), (VA, src), (RA, dst), (LEN, len)
#define SMX_ROW_Trace_m SINGLE, (Trace), (orders::single), (M, src), (SIDE, widthHeight), (R, dst)
#define SMX_ROW_Trace_ma ARRAY, (Trace), (orders::array, bounds::trace), (MA, src), (SIDE, widthHeight), (RA, dst)
// one strided kernel for every stride2
#define SMX_ROW_FrobNorm_m SINGLE_ONE_KERNEL, (FrobeniusNorm), (orders::single), SMX_FROBENIUS(M, R)
#define SMX_ROW_FrobNorm_ma ARRAY, (FrobeniusNorm), (orders::array, bounds::frobnorm), SMX_FROBENIUS(MA, RA)
#define SMX_ROW_AffineTransform3DH_mva \
    ARRAY_STRIDED_FLOAT, (AffineTransform), (orders::array, bounds::affine), (M, src1), (VA, src2), (VAO, dst)

// clang-format off
#define SMX_CATALOGUE_VECTORS(ROW) \
    ROW(Mul_mv) ROW(Mul_tv) ROW(Mul_mav) ROW(Mul_tav) ROW(Mul_mava) ROW(Mul_tava) ROW(Mul_mva) ROW(Mul_tva) \
    ROW(Gaxpy_mv) ROW(Gaxpy_mva) ROW(Gaxpy_mvav) ROW(Mul_mc) ROW(Mul_tc) ROW(Mul_mac) ROW(Mul_tac) ROW(Saxpy_vv) \
    ROW(Saxpy_vav) ROW(Saxpy_vva) ROW(Saxpy_vava) ROW(LComb_vv) ROW(LComb_vav) ROW(LComb_vava) \
    ROW(DotProduct_vv) ROW(DotProduct_vav) ROW(DotProduct_vava) ROW(CrossProduct_vv) ROW(CrossProduct_vav) \
    ROW(CrossProduct_vva) ROW(CrossProduct_vava) ROW(L2Norm_v) ROW(L2Norm_va) ROW(Trace_m) ROW(Trace_ma) \
    ROW(FrobNorm_m) ROW(FrobNorm_ma) ROW(AffineTransform3DH_mva)
// clang-format on

// ---- vectors and constants: smxadd_*, smxsub_*, smxmul_* without a matrix

#define SMX_VECTORS(a, b, d) (a, src1), (b, src2), (d, dst), (LEN, len)
#define SMX_VECTOR_C(a, d) (a, src), (C, val), (d, dst), (LEN, len)
#define SMX_VECTOR_CA(a, d) (a, src), (CA, vals), (d, dst), (LEN, len)
#define SMX_VECTOR_ONE (orders::array, bounds::vector_one_array)
#define SMX_VECTOR_CONSTANTS (orders::array, bounds::vector_constants)

#define SMX_ROW_Add_vv SINGLE, (VectorArithmetic<Arithmetic::add>), (orders::single), SMX_VECTORS(V, V, VO)
#define SMX_ROW_Add_vc SINGLE, (VectorArithmetic<Arithmetic::add>), (orders::single), SMX_VECTOR_C(V, VO)
#define SMX_ROW_Add_vav                                                                                  \
    ARRAY, (VectorArithmetic<Arithmetic::add>), (orders::count_after_strides, bounds::vector_one_array), \
        SMX_VECTORS(VA, V, VAO)
#define SMX_ROW_Add_vava \
    ARRAY, (VectorArithmetic<Arithmetic::add>), (orders::array, bounds::vector_two_arrays), SMX_VECTORS(VA, VA, VAO)
#define SMX_ROW_Add_vac ARRAY, (VectorArithmetic<Arithmetic::add>), SMX_VECTOR_ONE, SMX_VECTOR_C(VA, VAO)
#define SMX_ROW_Add_vaca ARRAY, (VectorArithmetic<Arithmetic::add>), SMX_VECTOR_CONSTANTS, SMX_VECTOR_CA(VA, VAO)
#define SMX_ROW_Add_vca                         \
    ARRAY, (VectorArithmetic<Arithmetic::add>), \
        (by_type(orders::array, orders::pointers_unshifted, bounds::vector_by_constants)), SMX_VECTOR_CA(V, VAO)
#define SMX_ROW_Sub_vv SINGLE, (VectorArithmetic<Arithmetic::subtract>), (orders::single), SMX_VECTORS(V, V, VO)
#define SMX_ROW_Sub_vc SINGLE, (VectorArithmetic<Arithmetic::subtract>), (orders::single), SMX_VECTOR_C(V, VO)
#define SMX_ROW_Sub_cv SINGLE, (VectorArithmetic<Arithmetic::subtract_from>), (orders::single), SMX_VECTOR_C(V, VO)
#define SMX_ROW_Sub_vav                                                                                       \
    ARRAY, (VectorArithmetic<Arithmetic::subtract>), (orders::count_after_strides, bounds::vector_one_array), \
        SMX_VECTORS(VA, V, VAO)
// double has no path written out
#define SMX_ROW_Sub_vva \
    ARRAY, (VectorArithmetic<Arithmetic::subtract, Kept::float_only>), SMX_VECTOR_ONE, SMX_VECTORS(V, VA, VAO)
#define SMX_ROW_Sub_vava                                                                         \
    ARRAY, (VectorArithmetic<Arithmetic::subtract>), (orders::array, bounds::vector_two_arrays), \
        SMX_VECTORS(VA, VA, VAO)
#define SMX_ROW_Sub_vac ARRAY, (VectorArithmetic<Arithmetic::subtract>), SMX_VECTOR_ONE, SMX_VECTOR_C(VA, VAO)
#define SMX_ROW_Sub_cva                                                                              \
    ARRAY, (VectorArithmetic<Arithmetic::subtract_from>), (orders::array, bounds::constant_vectors), \
        SMX_VECTOR_C(VA, VAO)
#define SMX_ROW_Sub_vaca ARRAY, (VectorArithmetic<Arithmetic::subtract>), SMX_VECTOR_CONSTANTS, SMX_VECTOR_CA(VA, VAO)
#define SMX_ROW_Sub_cava \
    ARRAY, (VectorArithmetic<Arithmetic::subtract_from>), SMX_VECTOR_CONSTANTS, SMX_VECTOR_CA(VA, VAO)
#define SMX_ROW_Sub_vca \
    ARRAY, (VectorArithmetic<Arithmetic::subtract>), (orders::array, bounds::vector_by_constants), SMX_VECTOR_CA(V, VAO)
#define SMX_ROW_Sub_cav                                   \
    ARRAY, (VectorArithmetic<Arithmetic::subtract_from>), \
        (by_type(orders::pointers_unshifted, orders::array, bounds::vector_by_constants)), SMX_VECTOR_CA(V, VAO)
#define SMX_ROW_Mul_vc SINGLE, (VectorArithmetic<Arithmetic::multiply>), (orders::single), SMX_VECTOR_C(V, VO)
#define SMX_ROW_Mul_vac \
    ARRAY, (VectorArithmetic<Arithmetic::multiply>), (orders::array, bounds::mul_vac), SMX_VECTOR_C(VA, VAO)
#define SMX_ROW_Mul_vaca \
    ARRAY, (VectorArithmetic<Arithmetic::multiply>), (orders::array, bounds::mul_vaca), SMX_VECTOR_CA(VA, VAO)
#define SMX_ROW_Mul_vca \
    ARRAY, (VectorArithmetic<Arithmetic::multiply>), (orders::array, bounds::mul_vca), SMX_VECTOR_CA(V, VAO)

// clang-format off
#define SMX_CATALOGUE_VECTOR_ARITHMETIC(ROW) \
    ROW(Add_vv) ROW(Add_vc) ROW(Add_vav) ROW(Add_vava) ROW(Add_vac) ROW(Add_vaca) ROW(Add_vca) ROW(Sub_vv) \
    ROW(Sub_vc) ROW(Sub_cv) ROW(Sub_vav) ROW(Sub_vva) ROW(Sub_vava) ROW(Sub_vac) ROW(Sub_cva) ROW(Sub_vaca) \
    ROW(Sub_cava) ROW(Sub_vca) ROW(Sub_cav) ROW(Mul_vc) ROW(Mul_vac) ROW(Mul_vaca) ROW(Mul_vca)
// clang-format on

// ---- moves: smxcopy_*, smxextract_*, smxloadidentity_ma (no kernels, no drivers), smxtranspose_* (no drivers)

#define SMX_EXTRACT_ONE(a) (a, src), (RD, dst), (W, width), (H, height)
#define SMX_EXTRACT_ALL(a) (a, src), (RDA, dst), (W, width), (H, height), (N, count)
#define SMX_TRANSPOSE(a, d) (a, src), (W, width), (H, height), (d, dst)

// nine members each, by the layouts of the source and the destination
#define SMX_ROW_Copy_va \
    COPY, (Copy), (by_type(orders::copy_shifts_first, orders::copy)), (VA, src), (VAO, dst), (LEN, len), (N, count)
#define SMX_ROW_Copy_ma COPY, (Copy), (orders::copy), (MA, src), (MAO, dst), (W, width), (H, height), (N, count)
#define SMX_ROW_Extract_v \
    SINGLE_NO_KERNEL, (Extract), (by_type(orders::single, orders::extract_size_first)), (V, src), (RD, dst), (LEN, len)
#define SMX_ROW_Extract_m SINGLE_NO_KERNEL, (Extract), (orders::extract_size_first), SMX_EXTRACT_ONE(M)
#define SMX_ROW_Extract_t SINGLE_NO_KERNEL, (Extract), (orders::extract_size_first), SMX_EXTRACT_ONE(T)
#define SMX_ROW_Extract_va ARRAY_NO_KERNEL, (Extract), (orders::extract), (VA, src), (RDA, dst), (LEN, len), (N, count)
#define SMX_ROW_Extract_ma ARRAY_NO_KERNEL, (Extract), (orders::extract), SMX_EXTRACT_ALL(MA)
#define SMX_ROW_Extract_ta ARRAY_NO_KERNEL, (Extract), (orders::extract), SMX_EXTRACT_ALL(TA)
#define SMX_ROW_LoadIdentity_ma                                                                             \
    ARRAY_NO_KERNEL, (LoadIdentity), (by_type(orders::identity_shift_first, orders::identity)), (MAO, dst), \
        (W, width), (H, height), (N, count)
#define SMX_ROW_Transpose_m SINGLE, (Transpose), (orders::single), SMX_TRANSPOSE(M, MO)
#define SMX_ROW_Transpose_ma ARRAY_NO_DRIVER, (Transpose), (orders::array), SMX_TRANSPOSE(MA, MAO)

// clang-format off
#define SMX_CATALOGUE_MOVES(ROW) \
    ROW(Copy_va) ROW(Copy_ma) ROW(Extract_v) ROW(Extract_m) ROW(Extract_t) ROW(Extract_va) ROW(Extract_ma) \
    ROW(Extract_ta) ROW(LoadIdentity_ma) ROW(Transpose_m) ROW(Transpose_ma)
// clang-format on

// ---- the whole

// clang-format off
#define SMX_CATALOGUE(ROW) \
    SMX_CATALOGUE_SUMS(ROW) SMX_CATALOGUE_PRODUCTS(ROW) SMX_CATALOGUE_LU(ROW) SMX_CATALOGUE_CHOLESKY(ROW) \
    SMX_CATALOGUE_QR(ROW) SMX_CATALOGUE_DET_INVERT(ROW) SMX_CATALOGUE_VECTORS(ROW) SMX_CATALOGUE_EIGEN(ROW) \
    SMX_CATALOGUE_VECTOR_ARITHMETIC(ROW) SMX_CATALOGUE_MOVES(ROW)
// clang-format on
