// Loads and stores of a group of objects, once for all layouts.
//
// A LaneAccess brings the elements of W consecutive objects into packs and back. There are three ways: objects that
// follow each other element by element (a structure of arrays) are vector loads; rows with adjacent elements are
// loaded through W row addresses and transposed in registers; everything else goes one element at a time. Nothing
// outside the described elements is read or written.
#pragma once

#include "frame_lane_operand.hpp"
#include "frame_lane_rearrange.hpp"

namespace smx {
inline namespace SMX_ISA {

// ---- groups of R by C objects (a vector is one row)

// An operand as objects of that shape, with nothing known yet.
template <class T, int R, int C>
struct Shaped {
    const LaneOperand &o;
};

template <class T, int R, int C>
struct LaneAccess {
    using Num = Pack<T>;
    static constexpr int W = Num::width;
    static constexpr std::ptrdiff_t size = sizeof(T);
    enum class Way { across, rows, elements };

    const LaneOperand &o;
    Way way;
    bool dense;  // the rows of an object follow each other without a gap
    bool packed; // and so do the objects

    explicit LaneAccess(const LaneOperand &operand)
        : o(operand), way(o.addressing != Addressing::list && o.stride0 == size                   ? Way::across
                          : o.addressing != Addressing::pointers && (o.stride2 == size || C == 1) ? Way::rows
                                                                                                  : Way::elements),
          dense(o.stride1 == C * size || R == 1),
          packed(dense && (o.stride2 == size || C == 1) && o.addressing == Addressing::strided &&
                 o.stride0 == R * C * size) {}

    // The address of element (i, j), as stored, of object n.
    const Byte *address(int n, int i, int j) const {
        switch (o.addressing) {
        case Addressing::strided: return at(o.base, (o.single ? 0 : n * o.stride0) + i * o.stride1 + j * o.stride2);
        case Addressing::list: return at(o.table[n], o.shift + i * o.stride1 + j * o.stride2);
        case Addressing::pointers: return at(o.table[i * C + j], o.shift + (o.single ? 0 : n * o.stride0));
        }
        return nullptr;
    }
    // Where the objects of a group start (strided or list): in the list itself, or noted down here.
    [[gnu::always_inline]] const Byte *const *rows_of(int n, const Byte *(&here)[W]) const {
        if (o.addressing == Addressing::list) {
            if (o.shift == 0) return reinterpret_cast<const Byte *const *>(o.table + n);
            for (int l = 0; l < W; ++l) here[l] = at(o.table[n + l], o.shift);
        } else {
            const std::ptrdiff_t step = o.single ? 0 : o.stride0;
            here[0] = at(o.base, n * step);
            for (int l = 1; l < W; ++l) here[l] = at(here[l - 1], step);
        }
        return here;
    }

    // Where element (i, j) lies behind the start of each object. A pointer table has no such start: the element's own
    // addresses are noted down.
    [[gnu::always_inline]] std::ptrdiff_t place(int n, int i, int j, const Byte *(&here)[W]) const {
        if (o.addressing != Addressing::pointers) return i * o.stride1 + j * o.stride2;
        for (int l = 0; l < W; ++l) here[l] = at(o.table[i * C + j], o.shift + (n + l) * o.stride0);
        return 0;
    }

    // Few elements an object, side by side: whole registers, rearranged.
    static constexpr bool few = rearranges && R * C > 1 && R *C <= 6;

    // Objects n .. n + W - 1 as stored, row-major.
    [[gnu::always_inline]] void load_stored(int n, Num *out) const {
        if (o.single) {
            for (int i = 0; i < R; ++i)
                for (int j = 0; j < C; ++j) out[i * C + j] = Num(load_element<T>(address(0, i, j)));
        } else if (way == Way::across) {
            if (o.addressing == Addressing::pointers)
                for (int e = 0; e < R * C; ++e) out[e] = load_pack<T>(at(o.table[e], o.shift + n * size));
            else
                for (int i = 0; i < R; ++i)
                    for (int j = 0; j < C; ++j)
                        out[i * C + j] = load_pack<T>(at(o.base, n * size + i * o.stride1 + j * o.stride2));
        } else if (way == Way::rows) {
            if constexpr (few)
                if (packed) return load_side_by_side<T, R * C>(at(o.base, n * o.stride0), out);
            const Byte *here[W];
            const Byte *const *const rows = rows_of(n, here);
            if (dense) load_run<T, R * C>(rows, 0, out);
            else
#pragma GCC unroll 6
                for (int i = 0; i < R; ++i) load_run<T, C>(rows, i * o.stride1, out + i * C);
        } else {
            const Byte *here[W] = {};
            const Byte *const *const rows = o.addressing != Addressing::pointers ? rows_of(n, here) : here;
            for (int i = 0; i < R; ++i)
                for (int j = 0; j < C; ++j) out[i * C + j] = gather<T>(rows, place(n, i, j, here));
        }
    }
    // The same, as the operation sees them: a transposed operand with its indexes exchanged (square objects only).
    [[gnu::always_inline]] void load_here(int n, Num *out) const {
        load_stored(n, out);
        if constexpr (R == C)
            if (o.transposed)
                for (int i = 0; i < R; ++i)
                    for (int j = i + 1; j < C; ++j) {
                        const Num kept = out[i * C + j];
                        out[i * C + j] = out[j * C + i];
                        out[j * C + i] = kept;
                    }
    }
    [[gnu::always_inline]] void store_here(int n, const Num *in) const {
        if (way == Way::across) {
            if (o.addressing == Addressing::pointers)
                for (int e = 0; e < R * C; ++e)
                    store_pack(const_cast<Byte *>(at(o.table[e], o.shift + n * size)), in[e]);
            else
                for (int i = 0; i < R; ++i)
                    for (int j = 0; j < C; ++j)
                        store_pack(const_cast<Byte *>(at(o.base, n * size + i * o.stride1 + j * o.stride2)),
                                   in[i * C + j]);
        } else if (way == Way::rows) {
            if constexpr (few)
                if (packed) return store_side_by_side<T, R * C>(at(o.base, n * o.stride0), in);
            const Byte *here[W];
            const Byte *const *const rows = rows_of(n, here);
            if (dense) store_run<T, R * C>(rows, 0, in);
            else
#pragma GCC unroll 6
                for (int i = 0; i < R; ++i) store_run<T, C>(rows, i * o.stride1, in + i * C);
        } else {
            const Byte *here[W] = {};
            const Byte *const *const rows = o.addressing != Addressing::pointers ? rows_of(n, here) : here;
            for (int i = 0; i < R; ++i)
                for (int j = 0; j < C; ++j) {
                    const std::ptrdiff_t offset = place(n, i, j, here);
                    scatter<T>(rows, offset, in[i * C + j]);
                }
        }
    }

    // Out of line, where a call is little beside the work: every family would have its own copy of all ways.
    [[gnu::noinline]] void load_there(int n, Num *out) const {
        load_here(n, out);
    }
    [[gnu::noinline]] void store_there(int n, const Num *in) const {
        store_here(n, in);
    }

    [[gnu::always_inline]] void load(int n, Num *out) const {
        if constexpr (R * C <= 4) load_here(n, out);
        else load_there(n, out);
    }
    [[gnu::always_inline]] void store(int n, const Num *in) const {
        if constexpr (R * C <= 4) store_here(n, in);
        else store_there(n, in);
    }
};

// ---- groups of objects of a known layout

// What a loop knows of an operand: objects without gaps behind each other; without gaps inside at a stride, or listed,
// or either (dense); or element by element (a structure of arrays). Beside objects with gaps between them, single
// elements may be anywhere.
enum class Known { nothing, packed, strided, listed, dense, planes };

template <class T, int R, int C>
bool is_known(const LaneAccess<T, R, C> &a, Known known) {
    using Way = typename LaneAccess<T, R, C>::Way;
    if (known == Known::nothing) return true;
    if (a.o.single || a.o.transposed) return false;
    if (R * C == 1)
        return known == Known::strided || known == Known::listed || known == Known::dense ||
               (a.o.addressing == Addressing::strided && a.way == Way::across);
    switch (known) {
    case Known::packed: return a.packed;
    case Known::planes: return a.way == Way::across;
    case Known::dense: return a.way == Way::rows && a.dense;
    case Known::listed: return a.way == Way::rows && a.dense && a.o.addressing == Addressing::list;
    default: return a.way == Way::rows && a.dense && a.o.addressing == Addressing::strided;
    }
}

// An operand inside a loop: loads and stores inlined, with nothing to decide, and nothing that a store could change.
template <Known known, class T, int R, int C>
struct Objects {
    static constexpr bool few = false;
    const LaneAccess<T, R, C> &access;
    explicit Objects(const LaneAccess<T, R, C> &a) : access(a) {}
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const {
        if constexpr (R * C == 1) access.load_here(n, out);
        else access.load_there(n, out);
    }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const {
        if constexpr (R * C == 1) access.store_here(n, in);
        else access.store_there(n, in);
    }
};
template <class T, int R, int C, template <class, int> class Registers>
struct PackedObjects : Registers<T, R * C> {
    static constexpr int bytes = R * C * static_cast<int>(sizeof(T));
    static constexpr bool few = LaneAccess<T, R, C>::few;
    const Byte *base;
    explicit PackedObjects(const LaneOperand &o, Registers<T, R *C> registers = {})
        : Registers<T, R * C>(registers), base(static_cast<const Byte *>(o.base)) {}
    const Byte *group(int n) const { return base + std::ptrdiff_t{n} * bytes; }
    PackedRows<bytes> rows(int n) const { return {group(n)}; }
    Pack<T> load_register(int n, int k) const { return Registers<T, R * C>::load(group(n), k); }
    void store_register(int n, int k, Pack<T> x) const { Registers<T, R * C>::store(group(n), k, x); }
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const {
        if constexpr (R * C == 1) *out = load_register(n, 0);
        else if constexpr (few) load_side_by_side<T, R * C, usual_way, Registers<T, R * C>>(group(n), out, *this);
        else load_run<T, R * C>(rows(n), 0, out);
    }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const {
        if constexpr (R * C == 1) store_register(n, 0, *in);
        else if constexpr (few) store_side_by_side<T, R * C, usual_way, Registers<T, R * C>>(group(n), in, *this);
        else store_run<T, R * C>(rows(n), 0, in);
    }
};
template <class T, int R, int C>
struct Objects<Known::packed, T, R, C> : PackedObjects<T, R, C, WholeGroup> {
    explicit Objects(const Shaped<T, R, C> &a) : PackedObjects<T, R, C, WholeGroup>(a.o) {}
    explicit Objects(const LaneAccess<T, R, C> &a) : PackedObjects<T, R, C, WholeGroup>(a.o) {}
};
template <class T, int R, int C>
struct Objects<Known::strided, T, R, C> {
    static constexpr bool few = false;
    const Byte *base;
    std::ptrdiff_t step;
    explicit Objects(const LaneAccess<T, R, C> &a) : base(static_cast<const Byte *>(a.o.base)), step(a.o.stride0) {}
    StridedRows<Pack<T>::width> rows(int n) const { return {at(base, n * step), step}; }
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const { load_run<T, R * C>(rows(n), 0, out); }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const { store_run<T, R * C>(rows(n), 0, in); }
};
template <class T, int R, int C>
struct Objects<Known::listed, T, R, C> {
    static constexpr bool few = false;
    // With all of a group in registers; then results may meet each other, the last object's being what stays.
    static constexpr bool in_order = R * C <= (pack_bytes == 64 ? 28 : 16);
    const void *const *table;
    std::ptrdiff_t shift;
    explicit Objects(const LaneAccess<T, R, C> &a) : table(a.o.table), shift(a.o.shift) {}
    ListedRows rows(int n) const { return {table + n, shift}; }
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const { load_run<T, R * C>(rows(n), 0, out); }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const { store_run<T, R * C, in_order>(rows(n), 0, in); }
};
// Beside so much work, W addresses are quickly noted down.
template <class T, int R, int C>
struct Objects<Known::dense, T, R, C> {
    static constexpr bool few = false;
    const LaneAccess<T, R, C> &access;
    explicit Objects(const LaneAccess<T, R, C> &a) : access(a) {}
    struct Rows {
        const Byte *here[Pack<T>::width], *const *table;
        [[gnu::always_inline]] Rows(const LaneAccess<T, R, C> &a, int n) : table(a.rows_of(n, here)) {}
        Rows(const Rows &) = delete;
        const Byte *operator[](int l) const { return table[l]; }
    };
    [[gnu::always_inline]] Rows rows(int n) const { return Rows(access, n); }
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const { load_run<T, R * C>(rows(n), 0, out); }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const { store_run<T, R * C>(rows(n), 0, in); }
};
template <class T, int R, int C>
struct Objects<Known::planes, T, R, C> {
    static constexpr bool few = false;
    const Byte *plane[R * C];
    explicit Objects(const LaneAccess<T, R, C> &a) {
        for (int e = 0; e < R * C; ++e) plane[e] = a.address(0, e / C, e % C);
    }
    [[gnu::always_inline]] void load(int n, Pack<T> *out) const {
#pragma GCC unroll 36
        for (int e = 0; e < R * C; ++e) out[e] = load_pack<T>(plane[e] + n * static_cast<std::ptrdiff_t>(sizeof(T)));
    }
    [[gnu::always_inline]] void store(int n, const Pack<T> *in) const {
#pragma GCC unroll 36
        for (int e = 0; e < R * C; ++e)
            store_pack(const_cast<Byte *>(plane[e] + n * static_cast<std::ptrdiff_t>(sizeof(T))), in[e]);
    }
};
template <class T>
struct Objects<Known::planes, T, 1, 1> : Objects<Known::packed, T, 1, 1> {
    using Objects<Known::packed, T, 1, 1>::Objects;
};
template <class T>
struct Objects<Known::strided, T, 1, 1> : Objects<Known::nothing, T, 1, 1> {
    using Objects<Known::nothing, T, 1, 1>::Objects;
};
template <class T>
struct Objects<Known::dense, T, 1, 1> : Objects<Known::nothing, T, 1, 1> {
    using Objects<Known::nothing, T, 1, 1>::Objects;
};
template <class T>
struct Objects<Known::listed, T, 1, 1> : Objects<Known::nothing, T, 1, 1> {
    static constexpr bool in_order = true; // nothing that could meet
    using Objects<Known::nothing, T, 1, 1>::Objects;
};

} // namespace SMX_ISA
} // namespace smx
