// The speed table's workbench: operands in the four layouts, the library's members called by name, peers beside them.
//
// A row is one operation on objects of one side, type, layout and count. Its text (bench_*.cpp) is written once and
// instantiated for every combination: it takes operands from a Case, names the library's member, and gives each peer
// as a function of one object. All contenders of a row work on the same memory and are measured in turn, sample by
// sample, so that a disturbance of the machine meets them all.
#pragma once

#include <Eigen/Dense>

#include <dlfcn.h>
#include <omp.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace bench {

// packed: one object behind the other. records: every object followed by 16 bytes of another field. list: pointers
// to packed objects, shuffled within groups of 64. planes: the pointer layout over a structure of arrays, where an
// element of all objects is contiguous.
enum class Layout { packed, records, list, planes };
inline constexpr const char *layout_names[] = {"packed", "records", "list", "planes"};

enum class Fill { general, positive, symmetric };

template <int R, int C = R>
struct Shape {};
template <int N>
inline constexpr Shape<N> square{};
template <int R, int C>
inline constexpr Shape<R, C> matrix{};
template <int N>
inline constexpr Shape<N, 1> vector{};

template <class T, int R, int C>
using Matrix = Eigen::Matrix<T, R, C, C == 1 ? Eigen::ColMajor : Eigen::RowMajor>;

// One memory for all rows, touched once, handed out anew to each row.
class Pool {
public:
    Pool();
    void reset() { used_ = pieces_ = 0; }
    template <class T>
    T *take(long elements) {
        return reinterpret_cast<T *>(take_bytes(static_cast<std::size_t>(elements) * sizeof(T)));
    }

private:
    char *take_bytes(std::size_t bytes);
    static constexpr std::size_t size = std::size_t{3} << 30;
    char *base_;
    std::size_t used_ = 0, pieces_ = 0;
};
inline Pool pool;

// ---- operands: what the library is passed, and what a peer sees of object n

// Objects as the peers' heavy algorithms see them, the same type for every layout: these are compiled once.
template <class T_, int R, int C>
struct Addressed {
    using T = T_;
    using Object = Matrix<T, R, C>;
    T *const *table;
    T *data(long n) const { return table[n]; }
    auto operator[](long n) const { return Eigen::Map<Object>(data(n)); }
};

template <class T_, Layout L, int R, int C>
struct Objects {
    using T = T_;
    using Object = Matrix<T, R, C>;
    static constexpr long step = R * C + (L == Layout::records ? 16 / static_cast<long>(sizeof(T)) : 0);
    static constexpr int element = sizeof(T);
    T *base;
    T **table; // the list, or the pointers to the elements of object 0
    long plane;

    T *data(long n) const {
        if constexpr (L == Layout::list) return table[n];
        if constexpr (L == Layout::planes) return base + n;
        return base + n * step;
    }
    auto operator[](long n) const {
        if constexpr (L == Layout::planes) {
            using Strides = Eigen::Stride<Eigen::Dynamic, Eigen::Dynamic>;
            return Eigen::Map<Object, 0, Strides>(data(n), Strides(C * plane, plane));
        } else {
            return Eigen::Map<Object>(data(n));
        }
    }
    auto arguments() const {
        constexpr int row = C * element;
        constexpr int object = static_cast<int>(step) * element;
        if constexpr (L == Layout::planes) return std::tuple(table, 0, element);
        else if constexpr (L == Layout::list && C == 1) return std::tuple(table, 0, element);
        else if constexpr (L == Layout::list) return std::tuple(table, 0, row, element);
        else if constexpr (C == 1) return std::tuple(base, object, element);
        else return std::tuple(base, object, row, element);
    }
};

// One object that serves the whole array.
template <class T, Layout L, int R, int C>
struct Single {
    static constexpr int element = sizeof(T);
    T *base;
    T **table;
    auto operator()() const { return Eigen::Map<Matrix<T, R, C>>(base); }
    auto arguments() const {
        if constexpr (L == Layout::planes) return std::tuple(table, 0);
        else if constexpr (C == 1) return std::tuple(base, element);
        else return std::tuple(base, C * element, element);
    }
};

template <class A>
auto arguments_of(const A &a) {
    if constexpr (requires { a.arguments(); }) return a.arguments();
    else if constexpr (std::is_integral_v<A>) return std::tuple(static_cast<int>(a));
    else return std::tuple(a);
}

// ---- rows

// What runs for the objects from first to last. The library's calls take their whole array, and split it themselves.
using Step = std::function<int(long first, long last)>;
struct Contender {
    std::string name;
    bool splits_itself;
    std::vector<Step> steps;
};

struct Row {
    long count = 0;
    double bytes = 0; // read and written, for one object
    std::vector<Contender> contenders;
    bool has_ours = true;
    std::vector<std::pair<void *, std::size_t>> results;
    std::function<std::vector<double>(long)> value; // of object n, to compare contenders by

    // A peer, as a function of object n or of the objects from first to last.
    template <class Function>
    void peer(const char *name, const Function &function) {
        contenders.push_back({name, false, {[function](long first, long last) {
                                  const Function local = function; // its pointers can stay in registers
                                  if constexpr (std::is_invocable_v<Function, long, long>) local(first, last);
                                  else
                                      for (long n = first; n < last; ++n) local(n);
                                  return 0;
                              }}});
    }
};

// Up to 1021 objects, one behind the other: random elements, well-conditioned or positive definite if square.
std::vector<double> patterns(int rows, int columns, Fill fill, long count, unsigned seed);
// Runs a contender once, and returns the first failing status.
int run(const Contender &contender, long count, int threads);

template <class T_, Layout L>
class Case : public Row {
public:
    using T = T_;
    static constexpr Layout layout = L;
    // peers that take a pointer to a contiguous object
    static constexpr bool contiguous = L != Layout::planes;

    // Setting up is kept out of line: inlined into every row it would double the time that the compiler takes.

    // Arrays of objects, in the layout of the row unless another is named.
    template <Layout In = L, int R, int C>
    [[gnu::noinline]] auto source(Shape<R, C> shape, Fill fill = Fill::general) {
        const auto objects = place<In>(shape);
        const std::vector<double> values = patterns(R, C, fill, count, ++seed_);
        const long distinct = static_cast<long>(values.size()) / (R * C);
        for (long n = 0; n < count; ++n)
            objects[n] = Eigen::Map<const Matrix<double, R, C>>(&values[n % distinct * R * C]).template cast<T>();
        return objects;
    }
    template <Layout In = L, int R, int C>
    [[gnu::noinline]] auto result(Shape<R, C> shape) {
        const auto objects = place<In>(shape);
        const long elements = In == Layout::planes ? R * C * objects.plane : count * objects.step;
        results.push_back({objects.base, static_cast<std::size_t>(elements) * sizeof(T)});
        return objects;
    }
    template <int R, int C>
    [[gnu::noinline]] Single<T, L, R, C> single(Shape<R, C>) {
        Single<T, L, R, C> one{pool.take<T>(R * C), pool.take<T *>(R * C)};
        one() =
            Eigen::Map<const Matrix<double, R, C>>(patterns(R, C, Fill::general, 1, ++seed_).data()).template cast<T>();
        for (int k = 0; k < R * C; ++k) one.table[k] = one.base + k;
        return one;
    }
    // The addresses of objects, for a peer. Objects in planes have none: there the peer gets a packed copy.
    template <int R, int C>
    [[gnu::noinline]] Addressed<T, R, C> addressed(const Objects<T, L, R, C> &objects) {
        T **const table = pool.take<T *>(count);
        T *const copies = contiguous ? nullptr : pool.take<T>(count * R * C);
        for (long n = 0; n < count; ++n) {
            table[n] = contiguous ? objects.data(n) : copies + n * R * C;
            const Addressed<T, R, C> copy{table};
            if constexpr (!contiguous) copy[n] = objects[n];
        }
        return {table};
    }
    // Packed results or indexes, n an object.
    template <class E = T>
    E *packed(int n) {
        bytes += n * static_cast<double>(sizeof(E));
        E *const all = pool.take<E>(count * n);
        results.push_back({all, static_cast<std::size_t>(count * n) * sizeof(E)});
        return all;
    }
    T *scratch() { return pool.take<T>(1024); }

    // The member of this type and layout: ours("smxMul_mama", a, width, ...). More than one call adds a step. The
    // members are looked up by name: one text serves them all, and a library that lacks one lacks its rows.
    template <class... Arguments>
    void ours(const char *stem, const Arguments &...arguments) {
        constexpr const char *suffixes[] = {"", "", "_L", "_P"};
        ours_exactly(std::string(stem) + type + suffixes[static_cast<int>(L)], arguments...);
    }
    template <class... Arguments>
    void ours_exactly(const std::string &name, const Arguments &...arguments) {
        const auto all = std::tuple_cat(arguments_of(arguments)...);
        if (contenders.empty()) contenders.push_back({"smx", true, {}});
        contenders[0].steps.push_back(std::apply(
            [&](auto... each) -> Step {
                using Member = int (*)(decltype(each)...);
                const Member member = reinterpret_cast<Member>(dlsym(RTLD_DEFAULT, name.c_str()));
                if (member == nullptr) has_ours = false;
                return [=](long, long) { return member(each...); };
            },
            all));
    }

    // What the contenders have to agree on: objects, or n packed values an object, in any order.
    template <int R, int C>
    void compare(const Addressed<T, R, C> &objects) {
        if constexpr (contiguous) {
            value = [objects](long n) { return std::vector<double>(objects.data(n), objects.data(n) + R * C); };
        }
    }
    template <Layout In, int R, int C>
    void compare(const Objects<T, In, R, C> &objects) {
        value = [objects](long n) {
            const Matrix<T, R, C> object = objects[n];
            return std::vector<double>(object.data(), object.data() + R * C);
        };
    }
    void compare(const T *values, int n = 1) {
        this->value = [=](long object) {
            std::vector<double> each(values + object * n, values + (object + 1) * n);
            std::sort(each.begin(), each.end());
            return each;
        };
    }

    static constexpr const char *type = std::is_same_v<T, float> ? "_32f" : "_64f";

private:
    template <Layout In, int R, int C>
    [[gnu::noinline]] Objects<T, In, R, C> place(Shape<R, C>) {
        using All = Objects<T, In, R, C>;
        bytes += static_cast<double>(All::step) * sizeof(T);
        All all{pool.take<T>(count * All::step + 16 * R * C), nullptr, 0};
        if constexpr (In == Layout::list) {
            bytes += sizeof(T *);
            all.table = pool.take<T *>(count);
            for (long n = 0; n < count; ++n) all.table[n] = all.base + n * All::step;
            std::mt19937 random(++seed_);
            for (long n = 0; n < count; n += 64)
                std::shuffle(all.table + n, all.table + std::min(n + 64, count), random);
        }
        if constexpr (In == Layout::planes) {
            all.plane = count + 16;
            all.table = pool.take<T *>(R * C);
            for (int k = 0; k < R * C; ++k) all.table[k] = all.base + k * all.plane;
        }
        return all;
    }

    unsigned seed_ = 0;
};

// ---- registration

struct Extent {
    bool doubles = true;       // also for double
    unsigned layouts = 0b1111; // a bit for each Layout
    bool streamed = true;      // also out of cache
    bool array = true;         // more than one object
};

using Make = std::function<std::unique_ptr<Row>(long count)>;
void add(const std::string &operation, const std::string &side, const std::string &type, Layout layout,
         const Extent &extent, const Make &make);

template <Extent extent, int R, int C, class T, Layout L, class Text>
void add_one(const std::string &operation, const Text &text) {
    constexpr bool single_precision = std::is_same_v<T, float>;
    if constexpr ((extent.layouts & 1u << static_cast<int>(L)) && (extent.doubles || single_precision))
        add(operation, R == C ? std::to_string(R) : std::to_string(R) + "x" + std::to_string(C),
            single_precision ? "float" : "double", L, extent, [text](long count) -> std::unique_ptr<Row> {
                auto row = std::make_unique<Case<T, L>>();
                row->count = count;
                text(*row, Shape<R, C>{});
                return row;
            });
}

// The rows of one operation for one shape. The text is called as text(case, Shape<R, C>).
template <Extent extent, int R, int C, class Text>
void add_shape(const std::string &operation, const Text &text) {
    const auto add_type = [&]<class T>(T) {
        add_one<extent, R, C, T, Layout::packed>(operation, text);
        add_one<extent, R, C, T, Layout::records>(operation, text);
        add_one<extent, R, C, T, Layout::list>(operation, text);
        add_one<extent, R, C, T, Layout::planes>(operation, text);
    };
    add_type(float{});
    add_type(double{});
}

// The rows of one operation, for each of the sides.
template <Extent extent, int... Sides, class Text>
void rows(const std::string &operation, const Text &text) {
    (add_shape<extent, Sides, Sides>(operation, text), ...);
}
template <int... Sides, class Text>
void rows(const std::string &operation, const Text &text) {
    rows<Extent{}, Sides...>(operation, text);
}

void add_sums();
void add_products();
void add_lu();
void add_factorizations();
void add_vectors();
void add_eigenproblems();

} // namespace bench
