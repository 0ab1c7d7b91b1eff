// How a catalogue row becomes C functions.
//
// A row (frame_catalogue.hpp) lists its operands as (KIND, name) or (KIND, name, prefix), where the prefix names
// the strides when it is not the pointer's own name. Each kind maps to a structure (MATRIX, MATRICES, ...), and
// each structure says what it contributes to a text for one layout:
//
//   PARAM    the parameters of a function
//   ARG      the same names, passed on unchanged
//   SHARE    the arguments for the objects of one thread, `share` being a smx::Share
//   OBJECT   the arguments for object `n` alone, of the non-array kernel
//   OPERAND  the operand as an aggregate (frame_operands.hpp)
//
//   S  strided      A  strided, stride2 left out because elements are adjacent
//   L  list         LA list, stride2 left out          P  pointer table
//
// These macros spell signatures and argument lists, those of a share or an object with its offset; every loop is C++
// elsewhere.
#pragma once

#define SMX_PARENTHESES ()
#define SMX_EXPAND(...) SMX_EXPAND_3(SMX_EXPAND_3(SMX_EXPAND_3(__VA_ARGS__)))
#define SMX_EXPAND_3(...) SMX_EXPAND_2(SMX_EXPAND_2(SMX_EXPAND_2(__VA_ARGS__)))
#define SMX_EXPAND_2(...) SMX_EXPAND_1(SMX_EXPAND_1(SMX_EXPAND_1(__VA_ARGS__)))
#define SMX_EXPAND_1(...) __VA_ARGS__
#define SMX_BARE(...) __VA_ARGS__
#define SMX_FIRST(first, ...) first

// The comma-separated text of all operands of a row for one group and layout.
#define SMX_LIST(group, layout, T, ...) __VA_OPT__(SMX_EXPAND(SMX_LIST_STEP(group, layout, T, __VA_ARGS__)))
#define SMX_LIST_STEP(group, layout, T, item, ...) \
    SMX_ITEM(group, layout, T, SMX_BARE item)      \
    __VA_OPT__(, SMX_LIST_AGAIN SMX_PARENTHESES(group, layout, T, __VA_ARGS__))
#define SMX_LIST_AGAIN() SMX_LIST_STEP
#define SMX_ITEM(group, layout, T, ...) SMX_ITEM_(group, layout, T, __VA_ARGS__)
#define SMX_ITEM_(group, layout, T, kind, name, ...) \
    SMX_KIND_##kind(group, layout, T, name, SMX_FIRST(__VA_ARGS__ __VA_OPT__(, ) name))

// Kinds: sources, their transposed twins, and destinations.
#define SMX_KIND_M(group, layout, T, n, p) SMX_##group##_##layout##_MATRIX(const T, n, p)
#define SMX_KIND_MA(group, layout, T, n, p) SMX_##group##_##layout##_MATRICES(const T, n, p)
#define SMX_KIND_T(group, layout, T, n, p) SMX_TRANSPOSED_##group(SMX_##group##_##layout##_MATRIX(const T, n, p))
#define SMX_KIND_TA(group, layout, T, n, p) SMX_TRANSPOSED_##group(SMX_##group##_##layout##_MATRICES(const T, n, p))
#define SMX_KIND_V(group, layout, T, n, p) SMX_##group##_##layout##_VECTOR(const T, n, p)
#define SMX_KIND_VA(group, layout, T, n, p) SMX_##group##_##layout##_VECTORS(const T, n, p)
#define SMX_KIND_CA(group, layout, T, n, p) SMX_##group##_##layout##_CONSTANTS(const T, n, p)
#define SMX_KIND_MO(group, layout, T, n, p) SMX_##group##_##layout##_MATRIX(T, n, p)
#define SMX_KIND_MAO(group, layout, T, n, p) SMX_##group##_##layout##_MATRICES(T, n, p)
#define SMX_KIND_VO(group, layout, T, n, p) SMX_##group##_##layout##_VECTOR(T, n, p)
#define SMX_KIND_VAO(group, layout, T, n, p) SMX_##group##_##layout##_VECTORS(T, n, p)
// Kinds that look the same in every layout: a constant by value (C), results packed without a stride, one (R, RA) or
// widthHeight (RS, RSA) an object, or whole objects (RD, RDA), pivot indexes as result or source, scratch, sizes by
// role, and the count.
#define SMX_KIND_C(group, layout, T, n, p) SMX_##group##_VALUE(T, n)
#define SMX_KIND_R(group, layout, T, n, p) SMX_##group##_PACKED(T, n, 0)
#define SMX_KIND_RA(group, layout, T, n, p) SMX_##group##_PACKED(T, n, 1)
#define SMX_KIND_RS(group, layout, T, n, p) SMX_##group##_PACKED(T, n, 0)
#define SMX_KIND_RSA(group, layout, T, n, p) SMX_##group##_PACKED(T, n, widthHeight)
#define SMX_KIND_RD(group, layout, T, n, p) SMX_##group##_PACKED(T, n, 0)
#define SMX_KIND_RDA(group, layout, T, n, p) SMX_##group##_PACKED(T, n, 0)
#define SMX_KIND_PIV(group, layout, T, n, p) SMX_##group##_PACKED(const int, n, 0)
#define SMX_KIND_PIVA(group, layout, T, n, p) SMX_##group##_PACKED(const int, n, widthHeight)
#define SMX_KIND_PIVO(group, layout, T, n, p) SMX_##group##_PACKED(int, n, 0)
#define SMX_KIND_PIVAO(group, layout, T, n, p) SMX_##group##_PACKED(int, n, widthHeight)
#define SMX_KIND_BUF(group, layout, T, n, p) SMX_##group##_BUFFER(T, n)
#define SMX_KIND_W(group, layout, T, n, p) SMX_##group##_SIZE(width, n)
#define SMX_KIND_H(group, layout, T, n, p) SMX_##group##_SIZE(height, n)
#define SMX_KIND_LEN(group, layout, T, n, p) SMX_##group##_SIZE(len, n)
#define SMX_KIND_SIDE(group, layout, T, n, p) SMX_##group##_SIZE(side, n)
#define SMX_KIND_W1(group, layout, T, n, p) SMX_##group##_SIZE(width1, n)
#define SMX_KIND_H1(group, layout, T, n, p) SMX_##group##_SIZE(height1, n)
#define SMX_KIND_W2(group, layout, T, n, p) SMX_##group##_SIZE(width2, n)
#define SMX_KIND_H2(group, layout, T, n, p) SMX_##group##_SIZE(height2, n)
#define SMX_KIND_LEN2(group, layout, T, n, p) SMX_##group##_SIZE(len2, n)
#define SMX_KIND_LEN3(group, layout, T, n, p) SMX_##group##_SIZE(len3, n)
#define SMX_KIND_N(group, layout, T, n, p) SMX_##group##_COUNT(n)

#define SMX_TRANSPOSED_PARAM(...) __VA_ARGS__
#define SMX_TRANSPOSED_ARG(...) __VA_ARGS__
#define SMX_TRANSPOSED_SHARE(...) __VA_ARGS__
#define SMX_TRANSPOSED_OBJECT(...) __VA_ARGS__
#define SMX_TRANSPOSED_OPERAND(...) smx::transposed(__VA_ARGS__)

// PARAM
#define SMX_PARAM_S_MATRIX(T, n, p) T *n, int p##Stride1, int p##Stride2
#define SMX_PARAM_A_MATRIX(T, n, p) T *n, int p##Stride1
#define SMX_PARAM_P_MATRIX(T, n, p) T *const *n, int p##RoiShift
#define SMX_PARAM_L_MATRIX(T, n, p) SMX_PARAM_S_MATRIX(T, n, p)
#define SMX_PARAM_LA_MATRIX(T, n, p) SMX_PARAM_A_MATRIX(T, n, p)
#define SMX_PARAM_S_MATRICES(T, n, p) T *n, int p##Stride0, int p##Stride1, int p##Stride2
#define SMX_PARAM_A_MATRICES(T, n, p) T *n, int p##Stride0, int p##Stride1
#define SMX_PARAM_P_MATRICES(T, n, p) T *const *n, int p##RoiShift, int p##Stride0
#define SMX_PARAM_L_MATRICES(T, n, p) T *const *n, int p##RoiShift, int p##Stride1, int p##Stride2
#define SMX_PARAM_LA_MATRICES(T, n, p) T *const *n, int p##RoiShift, int p##Stride1
#define SMX_PARAM_S_VECTOR(T, n, p) T *n, int p##Stride2
#define SMX_PARAM_A_VECTOR(T, n, p) T *n
#define SMX_PARAM_P_VECTOR(T, n, p) T *const *n, int p##RoiShift
#define SMX_PARAM_L_VECTOR(T, n, p) SMX_PARAM_S_VECTOR(T, n, p)
#define SMX_PARAM_LA_VECTOR(T, n, p) SMX_PARAM_A_VECTOR(T, n, p)
#define SMX_PARAM_S_VECTORS(T, n, p) T *n, int p##Stride0, int p##Stride2
#define SMX_PARAM_A_VECTORS(T, n, p) T *n, int p##Stride0
#define SMX_PARAM_P_VECTORS(T, n, p) T *const *n, int p##RoiShift, int p##Stride0
#define SMX_PARAM_L_VECTORS(T, n, p) T *const *n, int p##RoiShift, int p##Stride2
#define SMX_PARAM_LA_VECTORS(T, n, p) T *const *n, int p##RoiShift
#define SMX_PARAM_S_CONSTANTS(T, n, p) T *n, int p##Stride0
#define SMX_PARAM_A_CONSTANTS(T, n, p) T *n, int p##Stride0
#define SMX_PARAM_P_CONSTANTS(T, n, p) T *n, int p##Stride0
#define SMX_PARAM_L_CONSTANTS(T, n, p) T *const *n, int p##RoiShift
#define SMX_PARAM_LA_CONSTANTS(T, n, p) T *const *n, int p##RoiShift
#define SMX_PARAM_VALUE(T, n) T n
#define SMX_PARAM_PACKED(T, n, step) T *n
#define SMX_PARAM_BUFFER(T, n) T *n
#define SMX_PARAM_SIZE(role, n) int n
#define SMX_PARAM_COUNT(n) int n

// SINGLE: the parameters of the non-array kernel behind a list kernel
#define SMX_TRANSPOSED_SINGLE(...) __VA_ARGS__
#define SMX_SINGLE_S_MATRIX(T, n, p) SMX_PARAM_S_MATRIX(T, n, p)
#define SMX_SINGLE_A_MATRIX(T, n, p) SMX_PARAM_A_MATRIX(T, n, p)
#define SMX_SINGLE_S_MATRICES(T, n, p) SMX_PARAM_S_MATRIX(T, n, p)
#define SMX_SINGLE_A_MATRICES(T, n, p) SMX_PARAM_A_MATRIX(T, n, p)
#define SMX_SINGLE_S_VECTOR(T, n, p) SMX_PARAM_S_VECTOR(T, n, p)
#define SMX_SINGLE_A_VECTOR(T, n, p) SMX_PARAM_A_VECTOR(T, n, p)
#define SMX_SINGLE_S_VECTORS(T, n, p) SMX_PARAM_S_VECTOR(T, n, p)
#define SMX_SINGLE_A_VECTORS(T, n, p) SMX_PARAM_A_VECTOR(T, n, p)
#define SMX_SINGLE_P_MATRIX(T, n, p) SMX_PARAM_P_MATRIX(T, n, p)
#define SMX_SINGLE_P_MATRICES(T, n, p) SMX_PARAM_P_MATRIX(T, n, p)
#define SMX_SINGLE_PACKED(T, n, step) T *n
#define SMX_SINGLE_BUFFER(T, n) T *n
#define SMX_SINGLE_VALUE(T, n) T n
#define SMX_SINGLE_SIZE(role, n) int n

// ARG
#define SMX_ARG_S_MATRIX(T, n, p) n, p##Stride1, p##Stride2
#define SMX_ARG_A_MATRIX(T, n, p) n, p##Stride1
#define SMX_ARG_P_MATRIX(T, n, p) n, p##RoiShift
#define SMX_ARG_L_MATRIX(T, n, p) SMX_ARG_S_MATRIX(T, n, p)
#define SMX_ARG_LA_MATRIX(T, n, p) SMX_ARG_A_MATRIX(T, n, p)
#define SMX_ARG_S_MATRICES(T, n, p) n, p##Stride0, p##Stride1, p##Stride2
#define SMX_ARG_A_MATRICES(T, n, p) n, p##Stride0, p##Stride1
#define SMX_ARG_P_MATRICES(T, n, p) n, p##RoiShift, p##Stride0
#define SMX_ARG_L_MATRICES(T, n, p) n, p##RoiShift, p##Stride1, p##Stride2
#define SMX_ARG_LA_MATRICES(T, n, p) n, p##RoiShift, p##Stride1
#define SMX_ARG_S_VECTOR(T, n, p) n, p##Stride2
#define SMX_ARG_A_VECTOR(T, n, p) n
#define SMX_ARG_P_VECTOR(T, n, p) n, p##RoiShift
#define SMX_ARG_L_VECTOR(T, n, p) SMX_ARG_S_VECTOR(T, n, p)
#define SMX_ARG_LA_VECTOR(T, n, p) SMX_ARG_A_VECTOR(T, n, p)
#define SMX_ARG_S_VECTORS(T, n, p) n, p##Stride0, p##Stride2
#define SMX_ARG_A_VECTORS(T, n, p) n, p##Stride0
#define SMX_ARG_P_VECTORS(T, n, p) n, p##RoiShift, p##Stride0
#define SMX_ARG_L_VECTORS(T, n, p) n, p##RoiShift, p##Stride2
#define SMX_ARG_LA_VECTORS(T, n, p) n, p##RoiShift
#define SMX_ARG_S_CONSTANTS(T, n, p) n, p##Stride0
#define SMX_ARG_A_CONSTANTS(T, n, p) n, p##Stride0
#define SMX_ARG_P_CONSTANTS(T, n, p) n, p##Stride0
#define SMX_ARG_L_CONSTANTS(T, n, p) n, p##RoiShift
#define SMX_ARG_LA_CONSTANTS(T, n, p) n, p##RoiShift
#define SMX_ARG_VALUE(T, n) n
#define SMX_ARG_PACKED(T, n, step) n
#define SMX_ARG_BUFFER(T, n) n
#define SMX_ARG_SIZE(role, n) n
#define SMX_ARG_COUNT(n) n

// SHARE
#define SMX_SHARE_S_MATRIX(T, n, p) SMX_ARG_S_MATRIX(T, n, p)
#define SMX_SHARE_A_MATRIX(T, n, p) SMX_ARG_A_MATRIX(T, n, p)
#define SMX_SHARE_P_MATRIX(T, n, p) SMX_ARG_P_MATRIX(T, n, p)
#define SMX_SHARE_L_MATRIX(T, n, p) SMX_ARG_S_MATRIX(T, n, p)
#define SMX_SHARE_LA_MATRIX(T, n, p) SMX_ARG_A_MATRIX(T, n, p)
#define SMX_SHARE_S_MATRICES(T, n, p) smx::stepped(n, p##Stride0, share.first), p##Stride0, p##Stride1, p##Stride2
#define SMX_SHARE_A_MATRICES(T, n, p) smx::stepped(n, p##Stride0, share.first), p##Stride0, p##Stride1
#define SMX_SHARE_P_MATRICES(T, n, p) n, p##RoiShift + share.first *p##Stride0, p##Stride0
#define SMX_SHARE_L_MATRICES(T, n, p) n + share.first, p##RoiShift, p##Stride1, p##Stride2
#define SMX_SHARE_LA_MATRICES(T, n, p) n + share.first, p##RoiShift, p##Stride1
#define SMX_SHARE_S_VECTOR(T, n, p) SMX_ARG_S_VECTOR(T, n, p)
#define SMX_SHARE_A_VECTOR(T, n, p) SMX_ARG_A_VECTOR(T, n, p)
#define SMX_SHARE_P_VECTOR(T, n, p) SMX_ARG_P_VECTOR(T, n, p)
#define SMX_SHARE_L_VECTOR(T, n, p) SMX_ARG_S_VECTOR(T, n, p)
#define SMX_SHARE_LA_VECTOR(T, n, p) SMX_ARG_A_VECTOR(T, n, p)
#define SMX_SHARE_S_VECTORS(T, n, p) smx::stepped(n, p##Stride0, share.first), p##Stride0, p##Stride2
#define SMX_SHARE_A_VECTORS(T, n, p) smx::stepped(n, p##Stride0, share.first), p##Stride0
#define SMX_SHARE_P_VECTORS(T, n, p) n, p##RoiShift + share.first *p##Stride0, p##Stride0
#define SMX_SHARE_L_VECTORS(T, n, p) n + share.first, p##RoiShift, p##Stride2
#define SMX_SHARE_LA_VECTORS(T, n, p) n + share.first, p##RoiShift
#define SMX_SHARE_S_CONSTANTS(T, n, p) smx::stepped(n, p##Stride0, share.first), p##Stride0
#define SMX_SHARE_A_CONSTANTS(T, n, p) SMX_SHARE_S_CONSTANTS(T, n, p)
#define SMX_SHARE_P_CONSTANTS(T, n, p) SMX_SHARE_S_CONSTANTS(T, n, p)
#define SMX_SHARE_L_CONSTANTS(T, n, p) n + share.first, p##RoiShift
#define SMX_SHARE_LA_CONSTANTS(T, n, p) n + share.first, p##RoiShift
#define SMX_SHARE_VALUE(T, n) n
#define SMX_SHARE_PACKED(T, n, step) n + static_cast<std::ptrdiff_t>(step) * share.first
#define SMX_SHARE_BUFFER(T, n) static_cast<T *>(share.scratch)
#define SMX_SHARE_SIZE(role, n) n
#define SMX_SHARE_COUNT(n) share.count

// OBJECT
#define SMX_OBJECT_L_MATRIX(T, n, p) SMX_ARG_S_MATRIX(T, n, p)
#define SMX_OBJECT_LA_MATRIX(T, n, p) SMX_ARG_A_MATRIX(T, n, p)
#define SMX_OBJECT_L_MATRICES(T, name, p) smx::stepped(name[n], p##RoiShift, 1), p##Stride1, p##Stride2
#define SMX_OBJECT_LA_MATRICES(T, name, p) smx::stepped(name[n], p##RoiShift, 1), p##Stride1
#define SMX_OBJECT_L_VECTOR(T, n, p) SMX_ARG_S_VECTOR(T, n, p)
#define SMX_OBJECT_LA_VECTOR(T, n, p) SMX_ARG_A_VECTOR(T, n, p)
#define SMX_OBJECT_L_VECTORS(T, name, p) smx::stepped(name[n], p##RoiShift, 1), p##Stride2
#define SMX_OBJECT_LA_VECTORS(T, name, p) smx::stepped(name[n], p##RoiShift, 1)
#define SMX_OBJECT_S_MATRIX(T, n, p) SMX_ARG_S_MATRIX(T, n, p)
#define SMX_OBJECT_A_MATRIX(T, n, p) SMX_ARG_A_MATRIX(T, n, p)
#define SMX_OBJECT_P_MATRIX(T, n, p) SMX_ARG_P_MATRIX(T, n, p)
#define SMX_OBJECT_S_MATRICES(T, name, p) smx::stepped(name, p##Stride0, n), p##Stride1, p##Stride2
#define SMX_OBJECT_A_MATRICES(T, name, p) smx::stepped(name, p##Stride0, n), p##Stride1
#define SMX_OBJECT_P_MATRICES(T, name, p) name, p##RoiShift + n *p##Stride0
#define SMX_OBJECT_A_VECTORS(T, name, p) smx::stepped(name, p##Stride0, n)
#define SMX_OBJECT_PACKED(T, name, step) name + static_cast<std::ptrdiff_t>(step) * n
#define SMX_OBJECT_BUFFER(T, n) n
#define SMX_OBJECT_VALUE(T, n) n
#define SMX_OBJECT_SIZE(role, n) n

// OPERAND
#define SMX_OPERAND_S_MATRIX(T, n, p)  \
    smx::Strided<T, 2, false, false> { \
        n, 0, p##Stride1, p##Stride2   \
    }
#define SMX_OPERAND_A_MATRIX(T, n, p) \
    smx::Strided<T, 2, false, true> { \
        n, 0, p##Stride1, 0           \
    }
#define SMX_OPERAND_P_MATRIX(T, n, p) \
    smx::Pointers<T, 2, false> {      \
        n, p##RoiShift, 0             \
    }
#define SMX_OPERAND_L_MATRIX(T, n, p) SMX_OPERAND_S_MATRIX(T, n, p)
#define SMX_OPERAND_LA_MATRIX(T, n, p) SMX_OPERAND_A_MATRIX(T, n, p)
#define SMX_OPERAND_S_MATRICES(T, n, p)       \
    smx::Strided<T, 2, true, false> {         \
        n, p##Stride0, p##Stride1, p##Stride2 \
    }
#define SMX_OPERAND_A_MATRICES(T, n, p) \
    smx::Strided<T, 2, true, true> {    \
        n, p##Stride0, p##Stride1, 0    \
    }
#define SMX_OPERAND_P_MATRICES(T, n, p) \
    smx::Pointers<T, 2, true> {         \
        n, p##RoiShift, p##Stride0      \
    }
#define SMX_OPERAND_L_MATRICES(T, n, p)        \
    smx::Listed<T, 2, false> {                 \
        n, p##RoiShift, p##Stride1, p##Stride2 \
    }
#define SMX_OPERAND_LA_MATRICES(T, n, p) \
    smx::Listed<T, 2, true> {            \
        n, p##RoiShift, p##Stride1, 0    \
    }
#define SMX_OPERAND_S_VECTOR(T, n, p)  \
    smx::Strided<T, 1, false, false> { \
        n, 0, 0, p##Stride2            \
    }
#define SMX_OPERAND_A_VECTOR(T, n, p) \
    smx::Strided<T, 1, false, true> { \
        n, 0, 0, 0                    \
    }
#define SMX_OPERAND_P_VECTOR(T, n, p) \
    smx::Pointers<T, 1, false> {      \
        n, p##RoiShift, 0             \
    }
#define SMX_OPERAND_L_VECTOR(T, n, p) SMX_OPERAND_S_VECTOR(T, n, p)
#define SMX_OPERAND_LA_VECTOR(T, n, p) SMX_OPERAND_A_VECTOR(T, n, p)
#define SMX_OPERAND_S_VECTORS(T, n, p) \
    smx::Strided<T, 1, true, false> {  \
        n, p##Stride0, 0, p##Stride2   \
    }
#define SMX_OPERAND_A_VECTORS(T, n, p) \
    smx::Strided<T, 1, true, true> {   \
        n, p##Stride0, 0, 0            \
    }
#define SMX_OPERAND_P_VECTORS(T, n, p) \
    smx::Pointers<T, 1, true> {        \
        n, p##RoiShift, p##Stride0     \
    }
#define SMX_OPERAND_L_VECTORS(T, n, p) \
    smx::Listed<T, 1, false> {         \
        n, p##RoiShift, 0, p##Stride2  \
    }
#define SMX_OPERAND_LA_VECTORS(T, n, p) \
    smx::Listed<T, 1, true> {           \
        n, p##RoiShift, 0, 0            \
    }
#define SMX_OPERAND_S_CONSTANTS(T, n, p) \
    smx::Strided<T, 0, true, true> {     \
        n, p##Stride0, 0, 0              \
    }
#define SMX_OPERAND_A_CONSTANTS(T, n, p) SMX_OPERAND_S_CONSTANTS(T, n, p)
#define SMX_OPERAND_P_CONSTANTS(T, n, p) SMX_OPERAND_S_CONSTANTS(T, n, p)
#define SMX_OPERAND_L_CONSTANTS(T, n, p) \
    smx::Listed<T, 0, true> {            \
        n, p##RoiShift, 0, 0             \
    }
#define SMX_OPERAND_LA_CONSTANTS(T, n, p) SMX_OPERAND_L_CONSTANTS(T, n, p)
#define SMX_OPERAND_VALUE(T, n) \
    smx::Value<T> {             \
        n                       \
    }
#define SMX_OPERAND_PACKED(T, n, step) \
    smx::Packed<T> {                   \
        n, step                        \
    }
#define SMX_OPERAND_BUFFER(T, n) \
    smx::Buffer<T> {             \
        n                        \
    }
#define SMX_OPERAND_SIZE(role, n) \
    smx::Size<smx::Role::role> {  \
        n                         \
    }
#define SMX_OPERAND_COUNT(n) \
    smx::Count {             \
        n                    \
    }
