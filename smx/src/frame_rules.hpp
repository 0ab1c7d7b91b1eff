// The rules of the catalogue's rows as data: in which order a row's members check their arguments, what their work
// is, and from which work on they go to the parallel driver. Every irregular entry is required behaviour.
#pragma once

#include "frame_operands.hpp"

namespace smx {
inline namespace SMX_ISA {

// ---- order of the entry checks

enum class Check {
    done,
    null,           // every pointer argument
    count,          // at least 1
    size,           // every width, height, length or side at least 1
    match,          // dimensions of the operands against each other
    strides,        // every stride: a positive multiple of the element size
    shifts,         // every ROI shift: a multiple of the element size, not negative
    source_strides, // the same, for the sources or the destinations alone
    source_shifts,
    result_strides,
    result_shifts,
    rows,           // stride1 and stride2 alone
    object_strides, // stride0 alone, and only if count is above 1
};

struct Order {
    Check strided[8], pointers[8], list[8];
};

namespace orders {
using enum Check;
inline constexpr Order single{{null, size, strides}, {null, size, shifts}, {}};
inline constexpr Order array{
    {null, count, size, strides}, {null, count, size, strides, shifts}, {null, count, size, strides, shifts}};
inline constexpr Order single_product{{null, size, match, strides}, {null, size, match, shifts}, {}};
inline constexpr Order product{{null, count, size, match, strides},
                               {null, count, size, match, strides, shifts},
                               {null, count, size, match, strides, shifts}};
inline constexpr Order single_match_last{{null, size, strides, match}, {null, size, shifts, match}, {}};
inline constexpr Order match_last{{null, count, size, strides, match},
                                  {null, count, size, strides, shifts, match},
                                  {null, count, size, strides, shifts, match}};
// Add and Sub mam, Sub mma: the strided members test their strides before their size.
inline constexpr Order size_after_strides{
    {null, count, strides, size}, {null, count, size, strides, shifts}, {null, count, size, strides, shifts}};
// Add, Sub and CrossProduct vav: the count comes last but for the pointer layout's shifts.
inline constexpr Order count_after_strides{
    {null, size, strides, count}, {null, size, strides, count, shifts}, {null, size, strides, shifts, count}};
// Symmetric eigenvalues and values of general matrices: size before count, shifts before strides.
inline constexpr Order eigen{
    {null, size, count, strides}, {null, size, count, shifts, strides}, {null, size, count, shifts, strides}};
// Eigenvectors of general matrices: the source whole, then the destinations.
inline constexpr Order single_eigenvectors{
    {null, size, source_strides, result_strides}, {null, size, source_shifts, result_shifts}, {}};
inline constexpr Order eigenvectors{{null, size, count, source_strides, result_strides},
                                    {null, size, count, source_shifts, source_strides, result_shifts, result_strides},
                                    {null, size, count, source_shifts, source_strides, result_shifts, result_strides}};
// CholeskyBackSubst mva: only the list members differ from the others.
inline constexpr Order cholesky_mva{
    {null, count, size, strides}, {null, count, size, strides, shifts}, {null, strides, shifts, size, count}};
// Add vca for double and Sub cav for float: the pointer members test no shift.
inline constexpr Order pointers_unshifted{
    {null, count, size, strides}, {null, count, size, strides}, {null, count, size, strides, shifts}};
// Copy, by the layout of the destination: an object stride matters only where there is a second object.
inline constexpr Order copy{{null, size, count, rows, shifts, object_strides},
                            {null, size, count, rows, shifts, object_strides},
                            {null, size, count, rows, shifts, object_strides}};
// Copy va for float into pointers: shifts before strides.
inline constexpr Order copy_shifts_first{{null, size, count, rows, shifts, object_strides},
                                         {null, size, count, shifts, rows, object_strides},
                                         {null, size, count, rows, shifts, object_strides}};
inline constexpr Order extract{
    {null, size, count, strides}, {null, size, count, shifts, strides}, {null, size, count, shifts, strides}};
// Extract of one object: the pointer members test their size ahead of all, but for v in float, which is `single`.
inline constexpr Order extract_size_first{{null, size, strides}, {size, null, shifts}, {}};
// LoadIdentity: where the count stands in the pointer members differs between float and double.
inline constexpr Order identity{{null, size, count, rows, object_strides},
                                {null, size, count, shifts, object_strides},
                                {null, size, count, rows, shifts}};
inline constexpr Order identity_shift_first{{null, size, count, rows, object_strides},
                                            {null, size, shifts, count, object_strides},
                                            {null, size, count, rows, shifts}};
} // namespace orders

// ---- work and bounds

inline constexpr int no_driver = 0x7fffffff;
struct Cell {
    int f32, f64;
    constexpr Cell(int both) : f32(both), f64(both) {}
    constexpr Cell(int f32_, int f64_) : f32(f32_), f64(f64_) {}
};
enum class Test { above, reached };
using WorkOf = unsigned (*)(const Sizes &);
struct Bounds {
    WorkOf work;
    Test test;
    Cell strided, strided_s2, pointers, list, list_s2;
};

namespace bounds {
using enum Role;
using enum Test;
using S = const Sizes &;

// The bounds of products. The 6 of `float` is meant: nearly every call goes to the driver, whose own fallback stops the tiny ones.
#define SMX_PRODUCT_CELLS                                   \
    above, {6, 36864}, {6, 18432}, {6, 9216}, {6, 18432}, { \
        6, 18432                                            \
    }

// clang-format off
//                                     work                                                         test     strided    
//                                        strided S2     pointers       list            list S2
inline constexpr Bounds none               {nullptr,                                                          above,   no_driver,     no_driver,     no_driver,     no_driver,      no_driver};
inline constexpr Bounds sum_one_array      {[](S s) { return s[width] * s[height] * (2 * s.count + 1); },     reached, 36864,         18432,         9216,          18432,          18432};
inline constexpr Bounds sum_two_arrays     {[](S s) { return 3 * s[width] * s[height] * s.count; },           reached, 36864,         18432,         9216,          18432,          18432};
inline constexpr Bounds vector_one_array   {[](S s) { return 2 * s[len] * s.count + s[len]; },                above,   20000,         20000,         20000,         {40000, 20000}, {40000, 20000}};
inline constexpr Bounds vector_constants   {[](S s) { return 2 * s[len] * s.count + s.count; },               above,   20000,         20000,         20000,         {40000, 20000}, {40000, 20000}};
inline constexpr Bounds vector_two_arrays  {[](S s) { return 3 * s[len] * s.count; },                         above,   20000,         20000,         20000,         {40000, 20000}, {40000, 20000}};
inline constexpr Bounds vector_by_constants{[](S s) { return s[len] * s.count + s[len] + s.count; },          above,   20000,         20000,         20000,         {40000, 20000}, {40000, 20000}};
// Sub cva leaves its length out.
inline constexpr Bounds constant_vectors   {[](S s) { return 2 * s.count + 1; },                              above,   20000,         20000,         20000,         {40000, 20000}, {40000, 20000}};
inline constexpr Bounds mul_vac            {[](S s) { return 2 * s[len] * s.count; },                         SMX_PRODUCT_CELLS};
inline constexpr Bounds mul_vaca           {[](S s) { return 2 * s[len] * s.count + s.count; },               above,   36864,         36864,         9216,          18432,          18432};
inline constexpr Bounds mul_vca            {[](S s) { return s[len] * s.count + s[len] + s.count; },          above,   36864,         36864,         9216,          18432,          18432};
inline constexpr Bounds mul_mac            {[](S s) { return 2 * s[width] * s[height] * s.count; },           above,   35000,         35000,         17000,         35000,          {15000, 35000}};
inline constexpr Bounds cross_one_array    {[](S s) { return 2 * s.count + 1; },                              above,   20000,         20000,         20000,         {40000, 20000}, {40000, 20000}};
inline constexpr Bounds cross_two_arrays   {[](S s) { return 3 * s.count; },                                  above,   20000,         20000,         20000,         {40000, 20000}, {40000, 20000}};
inline constexpr Bounds dot_one_array      {[](S s) { return s[len] * s.count + s[len]; },                    above,   40000,         20000,         {20000, 40000}, 40000,         20000};
inline constexpr Bounds dot_two_arrays     {[](S s) { return 2 * s[len] * s.count; },                         above,   40000,         20000,         {20000, 40000}, 40000,         20000};
inline constexpr Bounds l2norm             {[](S s) { return s[len] * s.count; },                             above,   20000,         20000,         20000,         20000,          20000};
inline constexpr Bounds saxpy_one_array    {[](S s) { return 2 * s[len] * s.count + s[len]; },                above,   40000,         40000,         40000,         40000,          40000};
inline constexpr Bounds saxpy_two_arrays   {[](S s) { return 3 * s[len] * s.count; },                         above,   40000,         40000,         40000,         40000,          40000};
inline constexpr Bounds lcomb_one_array    {[](S s) { return 2 * s[len] * s.count + s[len]; },                above,   20000,         20000,         20000,         {40000, 20000}, 20000};
inline constexpr Bounds lcomb_two_arrays   {[](S s) { return 3 * s[len] * s.count; },                         above,   20000,         20000,         20000,         {40000, 20000}, 20000};
// Gaxpy leaves its matrix out.
inline constexpr Bounds gaxpy_mva          {[](S s) { return (s[len2] + 2 * s[len3]) * s.count; },            above,   5000,          5000,          5000,          5000,           5000};
inline constexpr Bounds gaxpy_mvav         {[](S s) { return s[len2] * s.count + s[len3] * (s.count + 1); },  above,   5000,          5000,          5000,          5000,           5000};
// Trace, Det and Invert count the side, not its square.
inline constexpr Bounds trace              {[](S s) { return s[side] * s.count; },                            above,   20000,         20000,         20000,         {40000, 20000}, 20000};
inline constexpr Bounds frobnorm           {[](S s) { return s[width] * s[height] * s.count; },               above,   20000,         20000,         20000,         {40000, 20000}, 20000};
inline constexpr Bounds affine             {[](S s) { return 6 * s.count + 16; },                             above,   2000,          2000,          no_driver,     no_driver,      no_driver};
inline constexpr Bounds ludecomp           {[](S s) { return s[side] * s[side] * s.count; },                  above,   20000,         20000,         20000,         {40000, 20000}, 20000};
inline constexpr Bounds lubacksubst_mva    {[](S s) { return s[side] * (s[side] + 2 * s.count); },            above,   1700,          1700,          1700,          1700,           1700};
inline constexpr Bounds lubacksubst_mava   {[](S s) { return (s[side] * s[side] + 2 * s[side]) * s.count; },  above,   1700,          1700,          1700,          1700,           1700};
inline constexpr Bounds choldecomp         {[](S s) { return s[side] * s[side] * s.count; },                  above,   {7500, 2000},  {7500, 2000},  2000,          {2000, 720},    2000};
inline constexpr Bounds cholbacksubst_mva  {[](S s) { return s[side] * (s[side] + 2 * s.count); },            above,   {1200, 720},   {1200, 720},   720,           720,            720};
inline constexpr Bounds cholbacksubst_mava {[](S s) { return (s[side] * s[side] + 2 * s[side]) * s.count; },  above,   {2050, 1700},  1700,          {1700, 2050},  1700,           1700};
inline constexpr Bounds qrdecomp           {[](S s) { return 2 * s[width] * s[height] * s.count; },           above,   2800,          2800,          1800,          1800,           1800};
inline constexpr Bounds qrbacksubst_mva    {[](S s) { return s[width] * s[height] + (s[width] + s[height]) * s.count; }, above, 2800, 2800,          1800,          1800,           1800};
inline constexpr Bounds qrbacksubst_mava   {[](S s) { return (s[width] * s[height] + s[width] + s[height]) * s.count; }, above, 2800, 2800,          1800,          1800,           1800};
inline constexpr Bounds det                {[](S s) { return s[side] * s.count; },                            above,   20000,         20000,         20000,         {40000, 20000}, 20000};
inline constexpr Bounds invert             {[](S s) { return 2 * s[side] * s.count; },                        above,   20000,         20000,         20000,         {40000, 20000}, 20000};
inline constexpr Bounds eigensym           {[](S s) { return (s[side] * s[side] + s[side]) * s.count; },      above,   20000,         20000,         20000,         {40000, 20000}, 20000};
inline constexpr Bounds eigenvectorssym    {[](S s) { return (2 * s[side] * s[side] + s[side]) * s.count; },  above,   1700,          1700,          1700,          1700,           1700};
inline constexpr Bounds eigen              {[](S s) { return (s[side] * s[side] + s[side]) * s.count; },      above,   10000,         10000,         10000,         10000,          10000};
inline constexpr Bounds eigenvectors       {[](S s) { return (3 * s[side] * s[side] + s[side]) * s.count; },  above,   7000,          7000,          7000,          7000,           7000};
// clang-format on

// The products, by which operand is transposed and which is an array. m, k and n are the rows, the inner length and
// the columns of the product.
template <bool T1, bool A1, bool T2, bool A2>
inline constexpr Bounds product{[](S s) {
                                    const unsigned m = s[T1 ? width1 : height1], k = s[T1 ? height1 : width1];
                                    const unsigned n = s[T2 ? height2 : width2];
                                    return m * k * (A1 ? s.count : 1) + k * n * (A2 ? s.count : 1) + m * n * s.count;
                                },
                                SMX_PRODUCT_CELLS};
template <bool T1, bool A1, bool A2>
inline constexpr Bounds product_vector{[](S s) {
                                           const unsigned m = s[T1 ? width1 : height1], k = s[len2];
                                           return m * k * (A1 ? s.count : 1) + k * (A2 ? s.count : 1) + m * s.count;
                                       },
                                       SMX_PRODUCT_CELLS};
} // namespace bounds

// ---- dimensions that must fit

using MatchOf = bool (*)(const Sizes &);
namespace match {
using enum Role;
template <bool T1, bool T2>
inline constexpr MatchOf product = [](const Sizes &s) { return s[T1 ? height1 : width1] == s[T2 ? width2 : height2]; };
template <bool T1>
inline constexpr MatchOf product_vector = [](const Sizes &s) { return s[T1 ? height1 : width1] == s[len2]; };
inline constexpr MatchOf gaxpy = [](const Sizes &s) { return s[width1] == s[len2] && s[height1] == s[len3]; };
inline constexpr MatchOf at_least_as_high = [](const Sizes &s) { return s[width] <= s[height]; };
} // namespace match

// ---- what an interface function does itself, after the checks and before it chooses a tier

enum class AtOnce { nothing, side_one };

// ---- one row's rules

struct Rules {
    Order order;
    Bounds bounds = bounds::none;
    MatchOf match = nullptr;
    AtOnce at_once = AtOnce::nothing;
    Order order_of_double = order; // differs in a few rows
};

// The rules of a row whose members for float and double check in different orders.
constexpr Rules by_type(const Order &of_float, const Order &of_double, const Bounds &bounds = bounds::none) {
    return {of_float, bounds, nullptr, AtOnce::nothing, of_double};
}

} // namespace SMX_ISA
} // namespace smx
