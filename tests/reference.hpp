// Calls of members by name on arrays of objects in any form, to be compared bit by bit with plain references that work
// on the same memory.
#pragma once

#include <algorithm>
#include <map>

#include "factor.hpp"
#include "members.hpp"
#include "rules.hpp"

namespace reference {

using factor::all_forms;
using factor::Form;
using factor::Objects;

inline bool is_list(Form form) {
    return form == Form::list || form == Form::list_strided;
}

// A member of a row for a type and form; a single form has no list member.
template <class T>
const members::Member *member(const members::Row &row, Form form) {
    const members::Layout layout = form == Form::pointers ? members::Layout::pointers
                                   : is_list(form)        ? members::Layout::list
                                                          : members::Layout::strided;
    for (const members::Member &m : members::all())
        if (m.row->name == row.name && m.element == sizeof(T) && m.layout == layout) return &m;
    return nullptr;
}

// The arguments of a call by name.
struct Call {
    const members::Member &member;
    std::map<std::string, int> integers;
    std::map<std::string, void *> pointers;

    template <class T>
    void operand(const std::string &name, const Objects<T> &o, bool array) {
        const bool table = o.form == Form::pointers || (is_list(o.form) && array);
        pointers[name] = table ? static_cast<void *>(const_cast<T **>(o.table.data())) : o.start(0);
        integers[name + "RoiShift"] = o.shift;
        integers[name + "Stride0"] = o.stride0;
        integers[name + "Stride1"] = o.stride1;
        integers[name + "Stride2"] = o.stride2;
    }
    int run() const {
        return members::invoke(members::symbol(member.name()), member.arguments(), integers, pointers, 0,
                               member.element);
    }
};

// An operand as the operation sees it: the object for n, perhaps exchanged indexes.
template <class T>
struct View {
    const Objects<T> &o;
    bool transposed, array;
    T &operator()(int n, int i, int j) const { return o.at(array ? n : 0, transposed ? j : i, transposed ? i : j); }
};

// Small integers and zeros of both signs, now and then a special value.
template <class T>
void fill(Objects<T> &o, std::mt19937 &random, bool specials) {
    const T special[] = {std::numeric_limits<T>::infinity(), std::numeric_limits<T>::quiet_NaN(), T(1e-40), T(3e38),
                         -T(0)};
    for (T &x : o.memory) {
        x = static_cast<T>(std::ldexp(static_cast<double>(random() % 2048) - 1024, -7));
        if (random() % 4 == 0) x = random() % 2 ? T(0) : -T(0);
        if (specials && random() % 16 == 0) x = special[random() % std::size(special)];
    }
}

// Not-a-numbers are equal whatever their payload: which operand's is kept is the compiler's choice.
template <class T>
bool same(const std::vector<T> &a, const std::vector<T> &b) {
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::memcmp(&a[i], &b[i], sizeof(T)) != 0 && !(std::isnan(a[i]) && std::isnan(b[i]))) return false;
    return a.size() == b.size();
}

} // namespace reference

// Calls whose operands lie anywhere in one block of elements, the result perhaps on a source, to be compared with a
// sequential model that reads and stores in the same block.
namespace reference::models {

using factor::below;

// An operand of such a call; strides and the shift count elements.
template <class T>
struct Operand {
    T *block = nullptr;
    bool array, transposed, tabled, listed;
    int rows, columns; // as stored
    int begin = 0, shift = 0, stride0 = 0, stride1 = 1, stride2 = 1;
    std::vector<int> entries; // elements of object 0 if tabled, objects if listed; beyond `begin`

    int index(int n, int i, int j) const {
        if (transposed) std::swap(i, j);
        if (tabled) return begin + entries[static_cast<std::size_t>(i * columns + j)] + n * stride0;
        return begin + (listed ? entries[static_cast<std::size_t>(n)] : n * stride0) + i * stride1 + j * stride2;
    }
    T &operator()(int n, int i, int j) const { return block[index(n, i, j)]; }
    T &operator()(int n, int j) const { return block[index(n, transposed ? j : 0, transposed ? 0 : j)]; }
    std::vector<int> indexes(int n) const {
        std::vector<int> all;
        for (int i = 0; i < (transposed ? columns : rows); ++i)
            for (int j = 0; j < (transposed ? rows : columns); ++j) all.push_back(index(n, i, j));
        return all;
    }
};

// An operand with strides of its own: gaps between elements, rows and objects, objects or their rows woven into each
// other, tables and lists in order or not. No two of its elements collide.
template <class T>
Operand<T> lay_out(const members::Operand &o, Form form, int rows, int columns, int count, std::mt19937 &random) {
    using members::Structure;
    const bool elements = o.structure == Structure::matrix || o.structure == Structure::vector;
    Operand<T> p;
    p.array = o.array, p.transposed = o.kind[0] == 'T', p.rows = rows, p.columns = columns;
    p.tabled = elements && form == Form::pointers;
    p.listed = o.array && is_list(form) && o.structure != Structure::packed;
    if (o.structure == Structure::packed) {
        p.stride0 = o.array ? 1 : 0;
        return p;
    }
    const bool spread = elements && (form == Form::strided || form == Form::list_strided);
    if (spread) p.stride2 = (o.name.back() == '1' || o.name == "src" ? 2 : 1) + below(2, random); // one is not adjacent
    p.stride1 = columns * p.stride2 + below(2, random);
    if (o.array) p.stride0 = rows * p.stride1 + below(3, random);
    if (o.array && !p.listed && below(3, random) == 0) {
        const bool woven_rows = !spread && !p.tabled; // else the elements
        p.stride0 = woven_rows ? columns : 1;
        p.stride2 = woven_rows ? 1 : count + 1;
        p.stride1 = woven_rows ? columns * count : columns * p.stride2;
    }
    for (int e = 0; p.tabled && e < rows * columns; ++e)
        p.entries.push_back(e / columns * p.stride1 + e % columns * p.stride2);
    for (int n = 0; p.listed && n < count; ++n) p.entries.push_back(n * p.stride0);
    if (below(3, random) == 0) std::shuffle(p.entries.begin(), p.entries.end(), random);
    if (p.tabled || p.listed) p.shift = below(3, random);
    return p;
}

enum class Values { wide, special, zeros, extreme };

// Magnitudes far apart, so that another order of a sum shows; then special values among them, zeros of both signs with
// ones, or squares that leave the range.
template <class T>
T value(Values values, std::mt19937 &random) {
    using limits = std::numeric_limits<T>;
    const T special[] = {
        limits::infinity(),    -limits::infinity(), limits::quiet_NaN(), limits::max(), limits::min(), T(0), -T(0),
        -limits::denorm_min(), limits::min() / 8};
    const T zeros[] = {T(0), -T(0), -T(0), T(1), T(-1)};
    if (values == Values::special && random() % 12 == 0) return special[random() % std::size(special)];
    if (values == Values::zeros) return zeros[random() % std::size(zeros)];
    const int most = values == Values::extreme ? limits::max_exponent * 5 / 8 : 12;
    return std::ldexp(static_cast<T>(std::uniform_real_distribution<double>(-1, 1)(random)),
                      below(2 * most + 1, random) - most);
}

enum class Overlap { none, same, next, anywhere };
constexpr int untold = 1; // what a model returns where the order of reads and stores is left open

// One call: `width` and `height` as the arguments of these names give them (also "src1Width"), or a length or a side.
template <class T>
struct Workspace {
    const members::Row &row;
    const members::Member &member;
    Form form;
    int width, height, count;
    double constant; // for all of the row's
    Overlap overlap;
    std::map<std::string, Operand<T>> operands;
    std::vector<T> memory;

    const Operand<T> &operator[](const std::string &name) const { return operands.at(name); }
    std::string code() const { return row.name.substr(row.name.find('_') + 1); }
    // The length of a product by a vector and that of its sums.
    int outer() const { return code()[0] == 't' ? width : height; }
    int inner() const { return code()[0] == 't' ? height : width; }

    Workspace(const members::Row &row_, Form form_, int width_, int height_, int count_, Overlap overlap_,
              Values values, std::mt19937 &random)
        : row(row_), member(*reference::member<T>(row_, form_)), form(form_), width(width_), height(height_),
          count(count_), constant(static_cast<double>(value<T>(values, random))), overlap(overlap_) {
        using members::Structure;
        int end = 4; // room before the first operand for table entries less their shift
        for (const members::Operand &o : row.operands) {
            if (o.structure == Structure::size || o.structure == Structure::count || o.structure == Structure::value)
                continue;
            int rows = 1, columns = 1;
            const bool vector = o.structure == Structure::vector, affine = row.name.rfind("Affine", 0) == 0;
            if (o.structure == Structure::matrix) {
                const bool turned = o.kind[0] == 'T' && o.name == "src"; // where sizes are the result's
                const bool square = row.name.rfind("Trace", 0) == 0;
                rows = affine ? 4 : turned || square ? width : height;
                columns = affine ? 4 : turned ? height : width;
            } else if (vector) {
                const bool product = row.operands[0].structure == Structure::matrix;
                columns = affine || row.name.rfind("Cross", 0) == 0 ? 3
                          : !product                                ? width
                          : o.name == "src2"                        ? inner()
                                                                    : outer();
            }
            Operand<T> p = lay_out<T>(o, form, rows, columns, count, random);
            p.begin = end + below(4, random);
            end = std::max(end, last(p) + 1);
            operands.emplace(o.name, p);
        }
        if (overlap != Overlap::none) move_result(random);
        for (const auto &[name, p] : operands) end = std::max(end, last(p) + 1);
        for (int e = 0; e < end + 4; ++e) memory.push_back(value<T>(values, random));
        for (auto &[name, p] : operands) p.block = memory.data();
    }
    Workspace(const Workspace &) = delete;

    // Whether object n of the result lies on what that object is computed from.
    bool meets(int n, const std::string &ignored = "") const {
        const std::vector<int> result = operands.at("dst").indexes(n);
        for (const auto &[name, p] : operands)
            for (const int e : p.indexes(n))
                if (name != "dst" && name != ignored && std::find(result.begin(), result.end(), e) != result.end())
                    return true;
        return false;
    }

    int run(const std::string &function) {
        constexpr int E = sizeof(T);
        std::map<std::string, int> integers = {{"src1Width", width},   {"src1Height", height}, {"src2Len", inner()},
                                               {"src3Len", outer()},   {"width", width},       {"height", height},
                                               {"widthHeight", width}, {"len", width},         {"count", count}};
        std::map<std::string, void *> pointers;
        std::map<std::string, std::vector<T *>> tables;
        for (const members::Operand &o : row.operands) {
            const auto found = operands.find(o.name);
            if (found == operands.end()) continue;
            const Operand<T> &p = found->second;
            T *const begin = memory.data() + p.begin;
            for (const int entry : p.entries) tables[o.name].push_back(begin + entry - p.shift);
            pointers[o.name] = p.entries.empty() ? static_cast<void *>(begin) : tables[o.name].data();
            integers[o.prefix + "RoiShift"] = p.shift * E;
            integers[o.prefix + "Stride0"] = p.stride0 * E;
            integers[o.prefix + "Stride1"] = p.stride1 * E;
            integers[o.prefix + "Stride2"] = p.stride2 * E;
        }
        return members::invoke(members::symbol(function), member.arguments(), integers, pointers, constant, E);
    }

    // Runs the model, then the function on the same memory. False where the model leaves the results open.
    template <class Model>
    bool compare(const std::string &function, Model model) {
        const std::vector<T> before = memory;
        const int status = model(*this);
        if (status == untold) return false;
        const std::vector<T> expected = memory;
        std::copy(before.begin(), before.end(), memory.begin());
        EXPECT_EQ(run(function), status) << function;
        EXPECT_TRUE(same(expected, memory))
            << function << " form " << int(form) << " width " << width << " height " << height << " count " << count
            << " constant " << constant << " overlap " << int(overlap) << " threads " << threads_omp_of_n_smk;
        return true;
    }

private:
    int last(const Operand<T> &p) const {
        int found = 0;
        for (int n = 0; n < (p.array ? count : 1); ++n)
            for (const int e : p.indexes(n)) found = std::max(found, e);
        return found;
    }
    // Onto a source: with its layout on the same objects or on the next ones, or with its own layout nearby.
    void move_result(std::mt19937 &random) {
        std::vector<const Operand<T> *> sources;
        for (const auto &[name, p] : operands)
            if (name != "dst") sources.push_back(&p);
        const Operand<T> &on = *sources[random() % sources.size()];
        Operand<T> &dst = operands.at("dst");
        const bool packed = std::any_of(row.operands.begin(), row.operands.end(), [](const members::Operand &o) {
            return o.name == "dst" && o.structure == members::Structure::packed;
        });
        const bool alike = !packed && on.array == dst.array && on.rows == dst.rows && on.columns == dst.columns &&
                           on.tabled == dst.tabled && on.listed == dst.listed && !on.transposed;
        dst.begin = on.begin;
        if (alike && overlap != Overlap::anywhere) dst = on;
        if (overlap == Overlap::next && !dst.entries.empty() && dst.listed)
            std::rotate(dst.entries.begin(), dst.entries.begin() + 1, dst.entries.end());
        else if (overlap == Overlap::next) dst.begin = std::max(4, dst.begin + dst.stride0 * (below(3, random) - 1));
        if (overlap == Overlap::anywhere) {
            const int reach = 2 * on.columns + 3;
            dst.begin = std::max(4, on.begin + below(2 * reach + 1, random) - reach);
        }
    }
};

// The smallest count of objects that takes this call to the driver.
template <class T>
int past_bound(const Workspace<T> &w) {
    const rules::Bound *const b = rules::bound(w.member);
    const int *const bounds[] = {b->strided, b->s2, b->pointers, b->list, b->list_s2}; // in the order of the forms
    const bool by_vector = w.row.operands[0].structure == members::Structure::matrix && w.operands.count("src2") != 0;
    const int h = by_vector ? w.outer() : w.height, k = by_vector ? w.inner() : w.width;
    int n = 1;
    while (b->work(h, k, 0, n) <= bounds[int(w.form)][sizeof(T) == 8]) ++n;
    return n;
}

// Compares every member of the rows that `belongs` picks, in every form, with the model: sides and lengths of all
// paths, rectangles, one object to forty, shares of threads, and results on sources where the model follows that
// (`overlaps`); then calls just past the bounds. Returns the number of calls.
template <class T, class Belongs, class Model>
int compare_all(Belongs belongs, bool overlaps, Model model) {
    constexpr int sides[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 13};
    std::mt19937 random(7);
    int calls = 0, overlapping = 0;
    for (const members::Row &row : members::rows())
        for (const Form form : all_forms) {
            if (!belongs(row.name) || member<T>(row, form) == nullptr) continue;
            for (const int width : sides)
                for (int round = 0; round < 40; ++round) {
                    const int count = !row.array() ? 1 : round % 4 == 0 ? 1 + below(3, random) : 1 + below(40, random);
                    const int height = round % 2 == 0 ? width : sides[random() % std::size(sides)];
                    const Overlap overlap = overlaps ? Overlap(std::max(0, below(6, random) - 2)) : Overlap::none;
                    Workspace<T> w(row, form, width, height, count, overlap, Values(below(4, random)), random);
                    // With an overlap the result would depend on how far another thread is.
                    factor::Threads threads(overlap == Overlap::none ? 1 + round % 3 : 1);
                    const bool driver = row.array() && threads_omp_of_n_smk > 1;
                    if (!w.compare(driver ? w.member.driver() : w.member.name(), model)) continue;
                    ++calls;
                    overlapping += overlap != Overlap::none;
                    if (testing::Test::HasFailure()) return calls;
                }
            for (int threads = 1; row.array() && threads <= 3; ++threads) {
                const factor::Threads guard(threads);
                const int width = 2 + below(6, random), height = below(2, random) == 0 ? width : 3;
                const Workspace<T> one(row, form, width, height, 1, Overlap::none, Values::wide, random);
                Workspace<T> w(row, form, width, height, past_bound(one), Overlap::none, Values::special, random);
                w.compare(w.member.name(), model);
                ++calls;
                if (testing::Test::HasFailure()) return calls;
            }
        }
    EXPECT_TRUE(!overlaps || overlapping > calls / 4) << overlapping << " of " << calls;
    std::printf("compared %d calls, %d of them with overlaps\n", calls, overlapping);
    return calls;
}

} // namespace reference::models
