// Operands: a caller's pointer and strides as an aggregate, and the views through which every algorithm reads and
// writes one object.
//
// An operand answers the entry checks (null, strides, shift, adjacent) and gives, for object n, a view:
// `view(i, j)` is the element at row i, column j as the operation sees it, `view(j)` an element of a vector. There
// are two views, one that computes addresses from strides and one that looks each element up in a pointer table;
// a transposed operand is its view with the indexes exchanged.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "frame_isa.hpp"
#include "frame_lane_operand.hpp"

namespace smx {
inline namespace SMX_ISA {

template <class T>
inline T *stepped(T *base, std::ptrdiff_t stride, std::ptrdiff_t steps) {
    using Byte = std::conditional_t<std::is_const_v<T>, const char, char>;
    // Through integers: a caller's addresses may be anything, the sum need not lie in one array.
    return reinterpret_cast<T *>(
        reinterpret_cast<Byte *>(reinterpret_cast<std::uintptr_t>(base) + static_cast<std::uintptr_t>(stride * steps)));
}

// Elements may lie at any address the caller likes, also a misaligned one.
template <class T>
struct Unaligned {
    using type [[gnu::aligned(1)]] = T;
};

template <class T>
constexpr int element_mask = static_cast<int>(sizeof(T)) - 1;

template <class T>
constexpr bool bad_stride(int stride) {
    return (stride & element_mask<T>) != 0 || stride <= 0;
}
template <class T>
constexpr bool bad_shift(int shift) {
    return (shift & element_mask<T>) != 0 || shift < 0;
}

// ---- views of one object

template <class T, bool Adjacent>
struct StridedView {
    using Element = typename Unaligned<T>::type;
    using Value = std::remove_const_t<T>;
    T *base;
    std::ptrdiff_t stride1;
    std::ptrdiff_t stride2;
    Element &operator()(std::ptrdiff_t i, std::ptrdiff_t j) const {
        const std::ptrdiff_t step2 = Adjacent ? static_cast<std::ptrdiff_t>(sizeof(T)) : stride2;
        return *reinterpret_cast<Element *>(stepped(base, i * stride1 + j * step2, 1));
    }
    Element &operator()(std::ptrdiff_t j) const { return (*this)(0, j); }
};

template <class T>
struct PointerView {
    using Element = typename Unaligned<T>::type;
    using Value = std::remove_const_t<T>;
    T *const *table;
    std::ptrdiff_t offset;
    std::ptrdiff_t columns;
    Element &operator()(std::ptrdiff_t i, std::ptrdiff_t j) const { return (*this)(i * columns + j); }
    Element &operator()(std::ptrdiff_t j) const { return *reinterpret_cast<Element *>(stepped(table[j], offset, 1)); }
};

template <class View>
struct TransposedView {
    using Element = typename View::Element;
    using Value = typename View::Value;
    View stored;
    Element &operator()(std::ptrdiff_t i, std::ptrdiff_t j) const { return stored(j, i); }
};

// ---- sizes of a call, collected from the row's size operands

enum class Role { width, height, len, side, width1, height1, width2, height2, len2, len3 };
struct Sizes {
    // Unsigned, so that work figures wrap.
    unsigned value[10] = {};
    unsigned count = 1;
    constexpr unsigned operator[](Role role) const { return value[static_cast<int>(role)]; }
};

// ---- operands

// What an operand is not asked for by default.
struct Unchecked {
    static constexpr bool is_source = false;
    static constexpr bool null() { return false; }
    static constexpr bool object_stride_bad() { return false; }
    static constexpr bool row_strides_bad() { return false; }
    static constexpr bool shift_bad() { return false; }
    static constexpr bool adjacent() { return true; }
    static constexpr bool size_bad() { return false; }
    static constexpr bool count_bad() { return false; }
    static constexpr bool shift_fits(std::ptrdiff_t) { return true; }
    static constexpr void put(Sizes &) {}
};

// Rank 2 is a matrix, 1 a vector, 0 a constant. Array operands have a stride0.
template <class T, int Rank, bool Array, bool Adjacent>
struct Strided : Unchecked {
    T *base;
    int stride0, stride1, stride2;
    static constexpr bool is_source = std::is_const_v<T>;
    constexpr Strided(T *base_, int stride0_, int stride1_, int stride2_)
        : base(base_), stride0(stride0_), stride1(stride1_), stride2(stride2_) {}
    constexpr bool null() const { return base == nullptr; }
    constexpr bool object_stride_bad() const { return Array && bad_stride<T>(stride0); }
    constexpr bool row_strides_bad() const {
        return (Rank == 2 && bad_stride<T>(stride1)) || (Rank > 0 && !Adjacent && bad_stride<T>(stride2));
    }
    constexpr bool adjacent() const { return Rank == 0 || Adjacent || stride2 == static_cast<int>(sizeof(T)); }
    auto object(int n, int /*columns*/ = 0) const {
        return StridedView<T, Adjacent>{Array ? stepped(base, stride0, n) : base, stride1, stride2};
    }
    LaneOperand lanes(int rows, int columns) const {
        return {base,
                nullptr,
                0,
                stride0,
                Rank == 2 ? stride1 : 0,
                Adjacent ? static_cast<std::ptrdiff_t>(sizeof(T)) : static_cast<std::ptrdiff_t>(stride2),
                static_cast<int>(sizeof(T)),
                rows,
                columns,
                Addressing::strided,
                false,
                !Array};
    }
};

template <class T, int Rank, bool Array>
struct Pointers : Unchecked {
    T *const *table;
    int shift, stride0;
    static constexpr bool is_source = std::is_const_v<T>;
    constexpr Pointers(T *const *table_, int shift_, int stride0_) : table(table_), shift(shift_), stride0(stride0_) {}
    constexpr bool null() const { return table == nullptr; }
    constexpr bool object_stride_bad() const { return Array && bad_stride<T>(stride0); }
    constexpr bool shift_bad() const { return smx::bad_shift<T>(shift); }
    // A driver hands a share its first object as a shift, which is an int.
    constexpr bool shift_fits(std::ptrdiff_t first) const {
        const long long last = static_cast<long long>(shift) + static_cast<long long>(first) * stride0;
        return last == static_cast<int>(last);
    }
    auto object(int n, int columns = 0) const {
        return PointerView<T>{table, shift + (Array ? static_cast<std::ptrdiff_t>(stride0) * n : 0), columns};
    }
    LaneOperand lanes(int rows, int columns) const {
        return {nullptr,
                reinterpret_cast<const void *const *>(table),
                shift,
                stride0,
                0,
                0,
                static_cast<int>(sizeof(T)),
                rows,
                columns,
                Addressing::pointers,
                false,
                !Array};
    }
};

template <class T, int Rank, bool Adjacent>
struct Listed : Unchecked {
    T *const *list;
    int shift, stride1, stride2;
    static constexpr bool is_source = std::is_const_v<T>;
    constexpr Listed(T *const *list_, int shift_, int stride1_, int stride2_)
        : list(list_), shift(shift_), stride1(stride1_), stride2(stride2_) {}
    constexpr bool null() const { return list == nullptr; }
    constexpr bool row_strides_bad() const {
        return (Rank == 2 && bad_stride<T>(stride1)) || (Rank > 0 && !Adjacent && bad_stride<T>(stride2));
    }
    constexpr bool shift_bad() const { return smx::bad_shift<T>(shift); }
    constexpr bool adjacent() const { return Rank == 0 || Adjacent || stride2 == static_cast<int>(sizeof(T)); }
    auto object(int n, int /*columns*/ = 0) const {
        return StridedView<T, Adjacent>{stepped(list[n], shift, 1), stride1, stride2};
    }
    LaneOperand lanes(int rows, int columns) const {
        return {nullptr,
                reinterpret_cast<const void *const *>(list),
                shift,
                0,
                Rank == 2 ? stride1 : 0,
                Adjacent ? static_cast<std::ptrdiff_t>(sizeof(T)) : static_cast<std::ptrdiff_t>(stride2),
                static_cast<int>(sizeof(T)),
                rows,
                columns,
                Addressing::list,
                false,
                false};
    }
};

// The stored matrix has the operand's columns as its rows.
template <class Stored>
struct Transposed : Stored {
    constexpr explicit Transposed(const Stored &stored) : Stored(stored) {}
    auto object(int n, int stored_columns = 0) const {
        return TransposedView<decltype(Stored::object(n, stored_columns))>{Stored::object(n, stored_columns)};
    }
    LaneOperand lanes(int rows, int columns) const {
        LaneOperand operand = Stored::lanes(columns, rows);
        operand.transposed = true;
        return operand;
    }
};
template <class Stored>
constexpr Transposed<Stored> transposed(const Stored &stored) {
    return Transposed<Stored>(stored);
}
template <class Operand>
constexpr bool is_transposed = false;
template <class Stored>
constexpr bool is_transposed<Transposed<Stored>> = true;

template <class T>
struct Value : Unchecked {
    T value;
    constexpr Value(T value_) : value(value_) {}
};

// Results or pivot indexes, packed: object n starts n * step elements in.
template <class T>
struct Packed : Unchecked {
    T *base;
    int step;
    static constexpr bool is_source = std::is_const_v<T>;
    constexpr Packed(T *base_, int step_) : base(base_), step(step_) {}
    constexpr bool null() const { return base == nullptr; }
    T *object(int n) const { return base + static_cast<std::ptrdiff_t>(step) * n; }
    // As `elements` adjacent elements an object.
    LaneOperand lanes(int elements) const {
        constexpr std::ptrdiff_t size = sizeof(T);
        return {base,  nullptr,  0, step * size, 0, size, static_cast<int>(size), 1, elements, Addressing::strided,
                false, step == 0};
    }
};

template <class T>
struct Buffer : Unchecked {
    T *base;
    constexpr Buffer(T *base_) : base(base_) {}
    constexpr bool null() const { return base == nullptr; }
};

template <Role R>
struct Size : Unchecked {
    int value;
    constexpr Size(int value_) : value(value_) {}
    constexpr bool size_bad() const { return value < 1; }
    constexpr void put(Sizes &sizes) const { sizes.value[static_cast<int>(R)] = static_cast<unsigned>(value); }
};

struct Count : Unchecked {
    int value;
    constexpr Count(int value_) : value(value_) {}
    constexpr bool count_bad() const { return value < 1; }
    constexpr void put(Sizes &sizes) const { sizes.count = static_cast<unsigned>(value); }
};

// An operand's element type without const, and whether it is one object for all n.
template <class Operand>
struct Traits;
template <class T, int Rank, bool Array, bool Adjacent>
struct Traits<Strided<T, Rank, Array, Adjacent>> {
    using Element = std::remove_const_t<T>;
    static constexpr bool single = !Array;
};
template <class T, int Rank, bool Array>
struct Traits<Pointers<T, Rank, Array>> {
    using Element = std::remove_const_t<T>;
    static constexpr bool single = !Array;
};
template <class T, int Rank, bool Adjacent>
struct Traits<Listed<T, Rank, Adjacent>> {
    using Element = std::remove_const_t<T>;
    static constexpr bool single = false;
};
template <class Stored>
struct Traits<Transposed<Stored>> : Traits<Stored> {};
template <class Operand>
using ElementOf = typename Traits<Operand>::Element;
template <class Operand>
constexpr bool is_single = Traits<Operand>::single;

// Calls f(Side<n>{}) for a side that has its paths written out, with the side as a constant; false for any other.
template <int N>
struct Side {
    static constexpr int value = N;
};
template <class F>
[[gnu::always_inline]] inline bool with_side(int side, F f) {
    switch (side) {
    case 3: f(Side<3>{}); return true;
    case 4: f(Side<4>{}); return true;
    case 5: f(Side<5>{}); return true;
    case 6: f(Side<6>{}); return true;
    default: return false;
    }
}

constexpr bool is_written_out(int side) {
    return side >= 3 && side <= 6;
}

template <class... Operands>
constexpr bool all_adjacent(const Operands &...o) {
    return (o.adjacent() && ...);
}
// Can a share that starts at object `first` be described?
template <class... Operands>
constexpr bool all_fit(std::ptrdiff_t first, const Operands &...o) {
    return (o.shift_fits(first) && ...);
}

} // namespace SMX_ISA
} // namespace smx
