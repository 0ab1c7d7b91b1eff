#include "members.hpp"

#include <dlfcn.h>
#include <ffi.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <stdexcept>

#include "frame_catalogue.hpp"

namespace members {

namespace {

// The text of a row, its operands in parentheses at the end: ARRAY, (family), (rules), (MA, src1), (M, src2), ...
#define TEXT(...) TEXT_(__VA_ARGS__)
#define TEXT_(...) #__VA_ARGS__
#define ENTRY(row) {#row, TEXT(SMX_ROW_##row)},
constexpr struct { const char *name, *text; } texts[] = {SMX_CATALOGUE(ENTRY)};

std::vector<std::string> split(const std::string &text) {
    std::vector<std::string> parts(1);
    int depth = 0;
    for (const char c : text) {
        depth += (c == '(' || c == '<') - (c == ')' || c == '>');
        if (c == ',' && depth == 0) parts.emplace_back();
        else if (c != ' ' || depth > 0) parts.back() += c;
    }
    return parts;
}

Operand operand(const std::string &parenthesised) {
    const std::vector<std::string> parts = split(parenthesised.substr(1, parenthesised.size() - 2));
    Operand o{parts[0], parts[1], parts.size() > 2 ? parts[2] : parts[1], Structure::size, false, true, false, 0};
    static const std::map<std::string, Structure> structures = {
        {"M", Structure::matrix},    {"MA", Structure::matrix},    {"T", Structure::matrix},
        {"TA", Structure::matrix},   {"MO", Structure::matrix},    {"MAO", Structure::matrix},
        {"V", Structure::vector},    {"VA", Structure::vector},    {"VO", Structure::vector},
        {"VAO", Structure::vector},  {"CA", Structure::constants}, {"C", Structure::value},
        {"R", Structure::packed},    {"RA", Structure::packed},    {"RS", Structure::packed},
        {"RSA", Structure::packed},  {"PIV", Structure::packed},   {"PIVA", Structure::packed},
        {"PIVO", Structure::packed}, {"PIVAO", Structure::packed}, {"BUF", Structure::buffer},
        {"N", Structure::count}};
    const auto found = structures.find(o.kind);
    o.structure = found == structures.end() ? Structure::size : found->second;
    o.array = o.kind.find('A') != std::string::npos;
    o.integers = o.kind.rfind("PIV", 0) == 0;
    o.source = !(o.kind.back() == 'O' || o.kind[0] == 'R' || o.kind == "BUF");
    o.packed_step = o.kind == "RA" ? 1 : (o.kind == "RSA" || o.kind == "PIVA" || o.kind == "PIVAO") ? 2 : 0;
    return o;
}

} // namespace

const std::vector<Row> &rows() {
    static const std::vector<Row> all_rows = [] {
        std::vector<Row> made;
        for (const auto &text : texts) {
            const std::vector<std::string> parts = split(text.text);
            Row row{text.name, parts[0], {}};
            if (row.kernel_less()) continue;
            for (std::size_t i = 3; i < parts.size(); ++i) row.operands.push_back(operand(parts[i]));
            if (row.shape == "ARRAY" || row.shape == "ARRAY_STRIDED_FLOAT" || row.shape == "ARRAY_NO_DRIVER")
                row.operands.push_back(operand("(N, count)"));
            made.push_back(row);
        }
        return made;
    }();
    return all_rows;
}

bool takes_any_shape(const Row &row) {
    bool height = false, vector = false;
    for (const Operand &o : row.operands) {
        height = height || o.name == "height";
        vector = vector || o.structure == Structure::vector;
    }
    return height && !vector;
}

std::vector<std::string> kernel_less_functions() {
    std::vector<std::string> names;
    for (const auto &text : texts) {
        const Row row{text.name, split(text.text)[0], {}};
        if (!row.kernel_less()) continue;
        const std::vector<const char *> strided_pointers{"", "_P"}, layouts{"", "_P", "_L"},
            pairs{"_SS", "_SP", "_SL", "_PS", "_PP", "_PL", "_LS", "_LP", "_LL"};
        for (const char *type : {"_32f", "_64f"})
            for (const char *suffix : row.shape == "COPY" ? pairs : row.array() ? layouts : strided_pointers)
                names.push_back("smx" + row.name + type + suffix);
    }
    return names;
}

std::string Member::name() const {
    return "smx" + row->name + "_" + type() + (layout == Layout::pointers ? "_P" : layout == Layout::list ? "_L" : "");
}
std::string Member::kernel_s2() const {
    if (row->one_kernel() || layout == Layout::pointers) return kernel();
    return "ownsmx" + row->name + "_" + type() + (layout == Layout::list ? "_LS2" : "_S2");
}

std::vector<Argument> Member::arguments(bool without_stride2) const {
    std::vector<Argument> list;
    for (const Operand &o : row->operands) {
        const auto add = [&](const std::string &name, ArgumentType type) { list.push_back({name, type, &o}); };
        const auto add_integer = [&](const char *suffix) { add(o.prefix + suffix, ArgumentType::integer); };
        const bool in_list = layout == Layout::list && o.array;
        switch (o.structure) {
        case Structure::value: add(o.name, ArgumentType::real); break;
        case Structure::packed:
        case Structure::buffer: add(o.name, ArgumentType::pointer); break;
        case Structure::size:
        case Structure::count: add(o.name, ArgumentType::integer); break;
        case Structure::constants:
            add(o.name, ArgumentType::pointer);
            add_integer(in_list ? "RoiShift" : "Stride0");
            break;
        case Structure::matrix:
        case Structure::vector:
            add(o.name, ArgumentType::pointer);
            if (layout == Layout::pointers || in_list) add_integer("RoiShift");
            if (o.array && layout != Layout::list) add_integer("Stride0");
            if (layout != Layout::pointers) {
                if (o.structure == Structure::matrix) add_integer("Stride1");
                if (!without_stride2) add_integer("Stride2");
            }
            break;
        }
    }
    return list;
}

const std::vector<Member> &all() {
    static const std::vector<Member> list = [] {
        std::vector<Member> made;
        for (const Row &row : rows())
            for (const int element : {4, 8})
                for (const Layout layout : {Layout::strided, Layout::pointers, Layout::list}) {
                    if (layout == Layout::list && !row.array()) continue;
                    if (row.shape == "ARRAY_STRIDED_FLOAT" && (element == 8 || layout != Layout::strided)) continue;
                    made.push_back({&row, element, layout});
                }
        return made;
    }();
    return list;
}

const Member &find(const std::string &name) {
    for (const Member &member : all())
        if (member.name() == name) return member;
    throw std::runtime_error("no member " + name);
}

void *symbol(const std::string &name) {
    return dlsym(RTLD_DEFAULT, name.c_str());
}

int invoke(void *function, const std::vector<Argument> &arguments, const std::map<std::string, int> &integers,
           const std::map<std::string, void *> &pointers, double value, int element) {
    std::vector<ffi_type *> types;
    std::vector<void *> values;
    float value_32 = static_cast<float>(value);
    for (const Argument &a : arguments) switch (a.type) {
        case ArgumentType::pointer:
            types.push_back(&ffi_type_pointer);
            values.push_back(const_cast<void **>(&pointers.at(a.name)));
            break;
        case ArgumentType::integer:
            types.push_back(&ffi_type_sint32);
            values.push_back(const_cast<int *>(&integers.at(a.name)));
            break;
        case ArgumentType::real:
            types.push_back(element == 4 ? &ffi_type_float : &ffi_type_double);
            values.push_back(element == 4 ? static_cast<void *>(&value_32) : static_cast<void *>(&value));
            break;
        }
    ffi_cif cif;
    if (ffi_prep_cif(&cif, FFI_DEFAULT_ABI, static_cast<unsigned>(types.size()), &ffi_type_sint32, types.data()) !=
        FFI_OK)
        throw std::runtime_error("ffi_prep_cif");
    ffi_sarg status = 0;
    ffi_call(&cif, reinterpret_cast<void (*)()>(function), &status, values.data());
    return static_cast<int>(status);
}

// ---- the operands of one call

Call::Call(const Member &member, const Shape &shape) : member_(member), shape_(shape) {
    // Scratch and pivot indexes come first, where no operand that an overlap moves on runs over them.
    const auto aside = [](const Operand &o) { return o.structure == Structure::buffer || o.integers; };
    for (const bool first : {true, false})
        for (const Operand &o : member.row->operands)
            if (aside(o) == first) place(o);
    memory_.resize(memory_.size() + 32768, 0xa5); // room behind the last operand for one that is moved on
    for (const Operand &o : member.row->operands) fill(o);
    for (const Operand &o : member.row->operands) describe(o);
}

namespace {
constexpr std::size_t canary = 64;

struct Extent {
    int rows, columns, objects;
};
// Sizes are alike, so an object is square; cross products and affine transforms have sizes of their own.
Extent extent(const Operand &o, const Row &row, const Shape &shape) {
    const int n = row.name.rfind("CrossProduct", 0) == 0 || row.name.rfind("AffineTransform", 0) == 0
                      ? (o.structure == Structure::matrix ? 4 : 3)
                      : shape.size;
    const int objects = o.array ? shape.count : 1;
    const int height = shape.height != 0 ? shape.height : n;
    // A transposed operand, and the result of a transposition, are stored with width rows.
    const bool turned = o.kind[0] == 'T' || (row.name.rfind("Transpose", 0) == 0 && !o.source);
    switch (o.structure) {
    case Structure::matrix: return {turned ? n : height, turned ? height : n, objects};
    case Structure::vector: return {1, n, objects};
    case Structure::constants: return {1, 1, objects};
    case Structure::packed:
        return {1, o.packed_step == 2 || o.kind == "RS" || o.kind == "PIV" || o.kind == "PIVO" ? n : 1, objects};
    case Structure::buffer: return {1, 4 * n * n + 8 * n, 1};
    default: return {0, 0, 0};
    }
}
} // namespace

void Call::place(const Operand &o) {
    const Extent e = extent(o, *member_.row, shape_);
    if (e.objects == 0) return;
    const int size = o.integers ? 4 : member_.element;
    Block b{};
    const bool dense = o.structure == Structure::packed || o.structure == Structure::buffer;
    Shape gaps = shape_;
    if (dense) {
        gaps = Shape{};
    } else if (shape_.mixed != 0) {
        const std::size_t which = (blocks_.size() + 1) * static_cast<std::size_t>(shape_.mixed) / 2;
        gaps.step = which % 5 == 3 ? 2 : 1;
        gaps.row_gap = which % 5 == 1 ? 1 : 0;
        gaps.object_gap = which % 5 == 0 ? 0 : static_cast<int>(which % 5);
        gaps.lanes = which % 5 == 4;
    }
    if (gaps.lanes && member_.layout != Layout::list) {
        b.stride0 = size;
        b.stride2 = static_cast<std::ptrdiff_t>(size) * (shape_.count + gaps.object_gap);
        b.stride1 = b.stride2 * e.columns;
    } else {
        b.stride2 = size * gaps.step;
        b.stride1 = b.stride2 * e.columns + gaps.row_gap * size;
        b.stride0 = b.stride1 * e.rows + gaps.object_gap * size;
    }
    if (shape_.woven && o.source && !dense) {
        b.stride2 = size * 2;
        b.stride1 = size * e.columns;
        b.stride0 = b.stride1 * e.rows;
    }
    if (shape_.folded && !o.source && !dense) b.stride1 = b.stride2 * (e.columns - 1);
    b.bytes = static_cast<std::size_t>((e.objects - 1) * b.stride0 + (e.rows - 1) * b.stride1 +
                                       (e.columns - 1) * b.stride2 + size);
    // Room for the operand to be moved over by an overlap, and canaries on both sides.
    memory_.resize((memory_.size() + canary + 15) / 16 * 16, 0xa5);
    b.begin = memory_.size() + static_cast<std::size_t>(dense ? 0 : shape_.nudge);
    memory_.resize(b.begin + b.bytes + canary, 0xa5);
    blocks_[o.name] = b;
}

char *Call::start(const Operand &o) const {
    const auto moved = moved_.find(o.name);
    if (moved != moved_.end()) return moved->second;
    return reinterpret_cast<char *>(const_cast<unsigned char *>(memory_.data()) + blocks_.at(o.name).begin);
}

void Call::fill(const Operand &o) {
    const Extent e = extent(o, *member_.row, shape_);
    if (!o.source || e.objects == 0) return;
    const Block &b = blocks_.at(o.name);
    std::mt19937 random(shape_.seed * 977u + static_cast<unsigned>(b.begin));
    std::uniform_real_distribution<double> uniform(-1, 1);
    const double specials[] = {0.0,
                               -0.0,
                               1.0,
                               -1.0,
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(),
                               std::nan(""),
                               1e-40,
                               -1e-310,
                               3e38,
                               1e-20};
    for (int n = 0; n < e.objects; ++n)
        for (int i = 0; i < e.rows; ++i)
            for (int j = 0; j < e.columns; ++j) {
                double value = uniform(random);
                // Symmetric and diagonally dominant, so that every factorization and eigenproblem is well posed.
                if (shape_.values == Shape::Values::definite && o.structure == Structure::matrix) {
                    value = 0.5 * std::sin(1.0 + n * 3.7 + shape_.seed + (i + 1) * (j + 1) * 1.3);
                    if (i == j) value += 2 * e.columns + 0.25 * i;
                }
                if (shape_.values == Shape::Values::integers) value = static_cast<int>(random() % 5) - 2;
                if (shape_.values == Shape::Values::special && random() % 4 == 0)
                    value = specials[random() % std::size(specials)];
                if (shape_.values == Shape::Values::singular_middle && n == e.objects / 2 && (i == 1 || j == 1))
                    value = 0;
                unsigned char *const at =
                    memory_.data() + b.begin + static_cast<std::size_t>(n * b.stride0 + i * b.stride1 + j * b.stride2);
                const float value_32 = static_cast<float>(value);
                const int index = (j + n) % e.columns; // a pivot array holds a permutation
                if (o.integers) std::memcpy(at, &index, 4);
                else if (member_.element == 4) std::memcpy(at, &value_32, 4);
                else std::memcpy(at, &value, 8);
            }
}

void Call::describe(const Operand &o) {
    if (o.structure == Structure::size)
        integers_[o.name] = o.name == "height" && shape_.height != 0 ? shape_.height : shape_.size;
    if (o.structure == Structure::count) integers_[o.name] = shape_.count;
    const Extent e = extent(o, *member_.row, shape_);
    if (e.objects == 0) return;
    const Block &b = blocks_.at(o.name);
    char *const base = start(o);
    const int shift = shape_.shift * member_.element;
    for (const auto &[suffix, stride] : {std::pair<const char *, std::ptrdiff_t>{"Stride0", b.stride0},
                                         {"Stride1", b.stride1},
                                         {"Stride2", b.stride2}})
        integers_[o.prefix + suffix] = static_cast<int>(stride);
    integers_[o.prefix + "RoiShift"] = shift;
    pointers_[o.name] = base;
    std::vector<void *> &table = tables_[o.name];
    table.clear();
    const bool elementwise = o.structure == Structure::matrix || o.structure == Structure::vector;
    if (member_.layout == Layout::pointers && elementwise) {
        for (int i = 0; i < e.rows; ++i)
            for (int j = 0; j < e.columns; ++j) table.push_back(base - shift + i * b.stride1 + j * b.stride2);
        pointers_[o.name] = table.data();
    } else if (member_.layout == Layout::list && o.array && (elementwise || o.structure == Structure::constants)) {
        for (int n = 0; n < e.objects; ++n) table.push_back(base - shift + n * b.stride0);
        pointers_[o.name] = table.data();
    }
    if (shape_.shuffled && member_.layout == Layout::list)
        std::shuffle(table.begin(), table.end(), std::mt19937(shape_.seed));
}

void Call::overlap(const std::string &name, const std::string &on, std::ptrdiff_t offset) {
    const auto named = [&](const std::string &wanted) -> const Operand & {
        for (const Operand &o : member_.row->operands)
            if (o.name == wanted) return o;
        throw std::runtime_error("no operand " + wanted);
    };
    moved_[name] = start(named(on)) + offset;
    describe(named(name));
}

void Call::move(const std::string &name, char *to) {
    for (const Operand &o : member_.row->operands)
        if (o.name == name) {
            std::memcpy(to, start(o), blocks_.at(name).bytes);
            moved_[name] = to;
            describe(o);
        }
}

int Call::run(const std::string &function, bool without_stride2) {
    void *const f = symbol(function);
    if (f == nullptr) throw std::runtime_error("no function " + function);
    return invoke(f, member_.arguments(without_stride2), integers_, pointers_, 1.25, member_.element);
}

std::vector<unsigned char> Call::memory() const {
    std::vector<unsigned char> copy = memory_;
    for (const Operand &o : member_.row->operands) {
        if (o.structure == Structure::buffer && blocks_.count(o.name) != 0)
            // Scratch is no result.
            std::fill_n(copy.begin() + static_cast<std::ptrdiff_t>(blocks_.at(o.name).begin), blocks_.at(o.name).bytes,
                        0);
        const auto found = blocks_.find(o.name);
        if (found == blocks_.end() || o.integers || o.structure == Structure::buffer) continue;
        const std::size_t size = static_cast<std::size_t>(member_.element);
        // An overlap or a list may have put its objects behind its own place.
        for (std::size_t at = found->second.begin; at + size <= copy.size(); at += size) {
            float f;
            double d;
            std::memcpy(&f, copy.data() + at, 4);
            std::memcpy(&d, copy.data() + at, size == 8 ? 8 : 4);
            // 0xa5... is no not-a-number, so untouched memory stays as it is.
            if (size == 4 ? std::isnan(f) : std::isnan(d)) std::memset(copy.data() + at, 0xff, size);
        }
    }
    return copy;
}

double Call::element(const std::string &name, int n, int i, int j) const {
    const Block &b = blocks_.at(name);
    const unsigned char *at =
        memory_.data() + b.begin + static_cast<std::size_t>(n * b.stride0 + i * b.stride1 + j * b.stride2);
    float f;
    double d;
    std::memcpy(&f, at, 4);
    if (member_.element == 4) return static_cast<double>(f);
    std::memcpy(&d, at, 8);
    return d;
}

int Call::packed_integer(const std::string &name, int index) const {
    int value;
    std::memcpy(&value, memory_.data() + blocks_.at(name).begin + static_cast<std::size_t>(index) * 4, 4);
    return value;
}

} // namespace members
