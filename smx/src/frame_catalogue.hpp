// The catalogue: one row for every operation and operand code. A member that is not here does not exist.
//
//   SHAPE, (family), (order of checks, work and bounds, match), operands in order ...
//
// SHAPE is SINGLE for a form without an array (members without suffix and _P), ARRAY for one with arrays (members
// without suffix, _P and _L; `count` comes last), ARRAY_COUNTED where the row places `count` itself. The operand kinds
// stand in frame_stamp.hpp. Modules, drivers and tests all read these rows.
#pragma once

// ---- matrix sums: smxadd_*, smxsub_*

#define SMX_SUM(a, b, d) (a, src1), (b, src2), (d, dst), (W, width), (H, height)
#define SMX_SUM_SINGLE (orders::single)
#define SMX_SUM_ONE (orders::array, bounds::sum_one_array)
#define SMX_SUM_TWO (orders::array, bounds::sum_two_arrays)
#define SMX_SUM_LATE (orders::size_after_strides, bounds::sum_one_array)

#define SMX_ROW_Add_mm SINGLE, (MatrixSum<Plus>), SMX_SUM_SINGLE, SMX_SUM(M, M, MO)
#define SMX_ROW_Add_tm SINGLE, (MatrixSum<Plus>), SMX_SUM_SINGLE, SMX_SUM(T, M, MO)
#define SMX_ROW_Add_tt SINGLE, (MatrixSum<Plus>), SMX_SUM_SINGLE, SMX_SUM(T, T, MO)
#define SMX_ROW_Add_mam ARRAY, (MatrixSum<Plus>), SMX_SUM_LATE, SMX_SUM(MA, M, MAO)
#define SMX_ROW_Add_tam ARRAY, (MatrixSum<Plus>), SMX_SUM_ONE, SMX_SUM(TA, M, MAO)
// double has no path written out, and no layout but the plain one has it for float
#define SMX_ROW_Add_mat ARRAY, (MatrixSum<Plus, Written::plain_float>), SMX_SUM_ONE, SMX_SUM(MA, T, MAO)
#define SMX_ROW_Add_tat ARRAY, (MatrixSum<Plus>), SMX_SUM_ONE, SMX_SUM(TA, T, MAO)
#define SMX_ROW_Add_mama ARRAY, (MatrixSum<Plus>), SMX_SUM_TWO, SMX_SUM(MA, MA, MAO)
#define SMX_ROW_Add_tama ARRAY, (MatrixSum<Plus>), SMX_SUM_TWO, SMX_SUM(TA, MA, MAO)
#define SMX_ROW_Add_tata ARRAY, (MatrixSum<Plus>), SMX_SUM_TWO, SMX_SUM(TA, TA, MAO)

#define SMX_ROW_Sub_mm SINGLE, (MatrixSum<Minus>), SMX_SUM_SINGLE, SMX_SUM(M, M, MO)
#define SMX_ROW_Sub_tm SINGLE, (MatrixSum<Minus>), SMX_SUM_SINGLE, SMX_SUM(T, M, MO)
#define SMX_ROW_Sub_mt SINGLE, (MatrixSum<Minus>), SMX_SUM_SINGLE, SMX_SUM(M, T, MO)
#define SMX_ROW_Sub_tt SINGLE, (MatrixSum<Minus>), SMX_SUM_SINGLE, SMX_SUM(T, T, MO)
#define SMX_ROW_Sub_mam ARRAY, (MatrixSum<Minus>), SMX_SUM_LATE, SMX_SUM(MA, M, MAO)
#define SMX_ROW_Sub_tam ARRAY, (MatrixSum<Minus>), SMX_SUM_ONE, SMX_SUM(TA, M, MAO)
// the pointer layout has no path written out
#define SMX_ROW_Sub_mat ARRAY, (MatrixSum<Minus, Written::not_pointers>), SMX_SUM_ONE, SMX_SUM(MA, T, MAO)
#define SMX_ROW_Sub_tat ARRAY, (MatrixSum<Minus>), SMX_SUM_ONE, SMX_SUM(TA, T, MAO)
#define SMX_ROW_Sub_mama ARRAY, (MatrixSum<Minus>), SMX_SUM_TWO, SMX_SUM(MA, MA, MAO)
#define SMX_ROW_Sub_tama ARRAY, (MatrixSum<Minus>), SMX_SUM_TWO, SMX_SUM(TA, MA, MAO)
#define SMX_ROW_Sub_mata ARRAY, (MatrixSum<Minus, Written::none>), SMX_SUM_TWO, SMX_SUM(MA, TA, MAO)
#define SMX_ROW_Sub_tata ARRAY, (MatrixSum<Minus>), SMX_SUM_TWO, SMX_SUM(TA, TA, MAO)
#define SMX_ROW_Sub_mma ARRAY, (MatrixSum<Minus>), SMX_SUM_LATE, SMX_SUM(M, MA, MAO)
#define SMX_ROW_Sub_tma ARRAY, (MatrixSum<Minus>), SMX_SUM_ONE, SMX_SUM(T, MA, MAO)
#define SMX_ROW_Sub_mta ARRAY, (MatrixSum<Minus>), SMX_SUM_ONE, SMX_SUM(M, TA, MAO)
#define SMX_ROW_Sub_tta ARRAY, (MatrixSum<Minus>), SMX_SUM_ONE, SMX_SUM(T, TA, MAO)

#define SMX_CATALOGUE_SUMS(ROW)                                                                              \
    ROW(Add_mm)                                                                                              \
    ROW(Add_tm) ROW(Add_tt) ROW(Add_mam) ROW(Add_tam) ROW(Add_mat) ROW(Add_tat) ROW(Add_mama) ROW(Add_tama)  \
        ROW(Add_tata) ROW(Sub_mm) ROW(Sub_tm) ROW(Sub_mt) ROW(Sub_tt) ROW(Sub_mam) ROW(Sub_tam) ROW(Sub_mat) \
            ROW(Sub_tat) ROW(Sub_mama) ROW(Sub_tama) ROW(Sub_mata) ROW(Sub_tata) ROW(Sub_mma) ROW(Sub_tma)   \
                ROW(Sub_mta) ROW(Sub_tta)

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

#define SMX_CATALOGUE_PRODUCTS(ROW)                                                                       \
    ROW(Mul_mm)                                                                                           \
    ROW(Mul_tm) ROW(Mul_mt) ROW(Mul_tt) ROW(Mul_mam) ROW(Mul_tam) ROW(Mul_mat) ROW(Mul_tat) ROW(Mul_mama) \
        ROW(Mul_tama) ROW(Mul_mata) ROW(Mul_tata) ROW(Mul_mma) ROW(Mul_tma) ROW(Mul_mta) ROW(Mul_tta)

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

#define SMX_CATALOGUE_LU(ROW) \
    ROW(LUDecomp_m) ROW(LUDecomp_ma) ROW(LUBackSubst_mv) ROW(LUBackSubst_mva) ROW(LUBackSubst_mava)

// ---- the whole

#define SMX_CATALOGUE(ROW) SMX_CATALOGUE_SUMS(ROW) SMX_CATALOGUE_PRODUCTS(ROW) SMX_CATALOGUE_LU(ROW)
