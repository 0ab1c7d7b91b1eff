// What the interface promises about checks, work and bounds, stated by itself: the tests compare the library with this,
// not with its own tables.
#pragma once

#include <string>
#include <vector>

#include "members.hpp"

namespace rules {

using members::Layout;
using members::Member;

inline bool starts(const std::string &text, const std::string &with) {
    return text.rfind(with, 0) == 0;
}
inline std::string operation(const Member &m) {
    return m.row->name.substr(0, m.row->name.find('_'));
}
inline std::string code(const Member &m) {
    return m.row->name.substr(m.row->name.find('_') + 1);
}
inline bool has_matrix(const Member &m) {
    return code(m).find_first_of("mt") != std::string::npos;
}

// The order of the check groups, in letters: n null, c count, z size, m match, s strides, r shifts. Upper case: of the
// destinations alone, after the source's.
inline std::string order(const Member &m) {
    const std::string op = operation(m), c = code(m);
    const bool array = m.row->array(), strided = m.layout == Layout::strided, pointers = m.layout == Layout::pointers;
    if (starts(op, "EigenValues")) {
        const std::string head = array ? "nzc" : "nz";
        if (starts(op, "EigenValuesVectors") && op != "EigenValuesVectorsSym")
            return strided ? head + "sS" : pointers && !array ? head + "rR" : head + "rsRS";
        return strided ? head + "s" : pointers && !array ? head + "r" : head + "rs";
    }
    if ((op == "Add" || op == "Sub") && c == "vav") return strided ? "nzsc" : pointers ? "nzscr" : "nzsrc";
    if (op == "CrossProduct" && c == "vav") return strided ? "nsc" : pointers ? "nscr" : "nsrc";
    if (op == "CrossProduct" || op == "AffineTransform3DH") {
        if (!array) return strided ? "ns" : "nr";
        return strided ? "ncs" : "ncsr";
    }
    if (strided && ((op == "Add" && c == "mam") || (op == "Sub" && (c == "mam" || c == "mma")))) return "ncsz";
    if (op == "CholeskyBackSubst" && c == "mva" && m.layout == Layout::list) return "nsrzc";
    const bool constant = c.find('c') != std::string::npos;
    const bool product = (op == "Mul" && has_matrix(m) && !constant) || op == "Gaxpy";
    const bool least_squares = starts(op, "QR");
    std::string text = array ? "nc" : "n";
    text += product ? "zm" : "z";
    if (strided) text += "s";
    else text += array ? "sr" : "r";
    if (least_squares) text += "m";
    return text;
}

inline bool tests_no_shift(const Member &m) {
    return m.name() == "smxAdd_vca_64f_P" || m.name() == "smxSub_cav_32f_P";
}

// Work and bounds. `n` objects of h rows; w columns, the inner length of a product, or a vector's length or a side; p
// columns of a product.
struct Bound {
    long long (*work)(long long h, long long w, long long p, long long n);
    bool at_least;
    int strided[2], s2[2], pointers[2], list[2], list_s2[2]; // float, double
};

#define BOTH(x) \
    { x, x }
inline const Bound *bound(const Member &m) {
    const std::string op = operation(m), c = code(m);
    const auto arrays = std::count(c.begin(), c.end(), 'a');
#define RULE(condition, formula, ...)                                                                        \
    if (condition) {                                                                                         \
        static const Bound b{[]([[maybe_unused]] long long h, [[maybe_unused]] long long w,                  \
                                [[maybe_unused]] long long p, long long n) -> long long { return formula; }, \
                             __VA_ARGS__};                                                                   \
        return &b;                                                                                           \
    }
#define PRODUCT                                             \
    false, {6, 36864}, {6, 18432}, {6, 9216}, {6, 18432}, { \
        6, 18432                                            \
    }
#define SUMS true, BOTH(36864), BOTH(18432), BOTH(9216), BOTH(18432), BOTH(18432)
#define COMMON                                      \
    false, BOTH(20000), BOTH(20000), BOTH(20000), { \
        40000, 20000                                \
    }
    const bool sum = op == "Add" || op == "Sub", with_matrix = has_matrix(m);
    RULE(sum && with_matrix && arrays == 1, h * w * (2 * n + 1), SUMS)
    RULE(sum && with_matrix && arrays == 2, 3 * h * w * n, SUMS)
    RULE(sum && (c == "vac" || c == "vav" || c == "vva"), 2 * w * n + w, COMMON, {40000, 20000})
    RULE(sum && (c == "vaca" || c == "cava"), 2 * w * n + n, COMMON, {40000, 20000})
    RULE(sum && c == "vava", 3 * w * n, COMMON, {40000, 20000})
    RULE(sum && (c == "vca" || c == "cav"), w * n + w + n, COMMON, {40000, 20000})
    RULE(sum && c == "cva", 2 * n + 1, COMMON, {40000, 20000})
    RULE(op == "Mul" && c == "vac", 2 * w * n, PRODUCT)
    RULE(op == "Mul" && c == "vaca", 2 * w * n + n, false, BOTH(36864), BOTH(36864), BOTH(9216), BOTH(18432),
         BOTH(18432))
    RULE(op == "Mul" && c == "vca", w * n + w + n, false, BOTH(36864), BOTH(36864), BOTH(9216), BOTH(18432),
         BOTH(18432))
    RULE(op == "Mul" && (c == "mac" || c == "tac"), 2 * h * w * n, false, BOTH(35000), BOTH(35000), BOTH(17000),
         BOTH(35000), {15000, 35000})
    RULE(op == "Mul" && (c == "mav" || c == "tav"), (h * w + h) * n + w, PRODUCT)
    RULE(op == "Mul" && (c == "mva" || c == "tva"), h * w + (w + h) * n, PRODUCT)
    RULE(op == "Mul" && (c == "mava" || c == "tava"), (h * w + w + h) * n, PRODUCT)
    RULE(op == "Mul" && arrays == 1 && c[1] == 'a', w * p + (h * w + h * p) * n, PRODUCT)
    RULE(op == "Mul" && arrays == 1, h * w + (w * p + h * p) * n, PRODUCT)
    RULE(op == "Mul" && arrays == 2, (h * w + w * p + h * p) * n, PRODUCT)
    RULE(op == "CrossProduct" && arrays == 1, 2 * n + 1, COMMON, {40000, 20000})
    RULE(op == "CrossProduct" && arrays == 2, 3 * n, COMMON, {40000, 20000})
    RULE(op == "DotProduct" && arrays == 1, w * n + w, false, BOTH(40000), BOTH(20000), {20000, 40000}, BOTH(40000),
         BOTH(20000))
    RULE(op == "DotProduct" && arrays == 2, 2 * w * n, false, BOTH(40000), BOTH(20000), {20000, 40000}, BOTH(40000),
         BOTH(20000))
    RULE(op == "L2Norm", w * n, false, BOTH(20000), BOTH(20000), BOTH(20000), BOTH(20000), BOTH(20000))
    RULE(op == "Saxpy" && arrays == 1, 2 * w * n + w, false, BOTH(40000), BOTH(40000), BOTH(40000), BOTH(40000),
         BOTH(40000))
    RULE(op == "Saxpy" && arrays == 2, 3 * w * n, false, BOTH(40000), BOTH(40000), BOTH(40000), BOTH(40000),
         BOTH(40000))
    RULE(op == "LComb" && arrays == 1, 2 * w * n + w, COMMON, BOTH(20000))
    RULE(op == "LComb" && arrays == 2, 3 * w * n, COMMON, BOTH(20000))
    RULE(op == "Gaxpy" && c == "mva", (w + 2 * h) * n, false, BOTH(5000), BOTH(5000), BOTH(5000), BOTH(5000),
         BOTH(5000))
    RULE(op == "Gaxpy" && c == "mvav", w * n + h * (n + 1), false, BOTH(5000), BOTH(5000), BOTH(5000), BOTH(5000),
         BOTH(5000))
    RULE(op == "Trace" || op == "Det", w * n, COMMON, BOTH(20000))
    RULE(op == "FrobNorm", h * w * n, COMMON, BOTH(20000))
    RULE(op == "LUDecomp", w * w * n, COMMON, BOTH(20000))
    RULE(op == "AffineTransform3DH", 6 * n + 16, false, BOTH(2000), BOTH(2000), BOTH(0), BOTH(0), BOTH(0))
    RULE(op == "LUBackSubst" && c == "mva", w * (w + 2 * n), false, BOTH(1700), BOTH(1700), BOTH(1700), BOTH(1700),
         BOTH(1700))
    RULE(op == "LUBackSubst", (w * w + 2 * w) * n, false, BOTH(1700), BOTH(1700), BOTH(1700), BOTH(1700), BOTH(1700))
    RULE(op == "CholeskyDecomp", w * w * n, false, {7500, 2000}, {7500, 2000}, BOTH(2000), {2000, 720}, BOTH(2000))
    RULE(op == "CholeskyBackSubst" && c == "mva", w * (w + 2 * n), false, {1200, 720}, {1200, 720}, BOTH(720),
         BOTH(720), BOTH(720))
    RULE(op == "CholeskyBackSubst", (w * w + 2 * w) * n, false, {2050, 1700}, BOTH(1700), {1700, 2050}, BOTH(1700),
         BOTH(1700))
    RULE(op == "QRDecomp", 2 * h * w * n, false, BOTH(2800), BOTH(2800), BOTH(1800), BOTH(1800), BOTH(1800))
    RULE(op == "QRBackSubst" && c == "mva", h * w + (h + w) * n, false, BOTH(2800), BOTH(2800), BOTH(1800), BOTH(1800),
         BOTH(1800))
    RULE(op == "QRBackSubst", (h * w + h + w) * n, false, BOTH(2800), BOTH(2800), BOTH(1800), BOTH(1800), BOTH(1800))
    RULE(op == "Invert", 2 * w * n, COMMON, BOTH(20000))
    RULE(op == "EigenValuesSym", (w * w + w) * n, COMMON, BOTH(20000))
    RULE(op == "EigenValuesVectorsSym", (2 * w * w + w) * n, false, BOTH(1700), BOTH(1700), BOTH(1700), BOTH(1700),
         BOTH(1700))
    RULE(op == "EigenValues", (w * w + w) * n, false, BOTH(10000), BOTH(10000), BOTH(10000), BOTH(10000), BOTH(10000))
    RULE(starts(op, "EigenValuesVectors"), (3 * w * w + w) * n, false, BOTH(7000), BOTH(7000), BOTH(7000), BOTH(7000),
         BOTH(7000))
#undef RULE
#undef PRODUCT
#undef SUMS
#undef COMMON
    return nullptr;
}
#undef BOTH

} // namespace rules
