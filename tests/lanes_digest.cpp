// Prints one line for each of many calls: its name, its status and a digest of all memory after it. The lines are
// the same for every instruction set (SMX_ISA), which test_lanes.cpp compares.
//
//   lanes_digest            all values, layouts and overlaps
//   lanes_digest --plain    well-posed values without overlaps: the same for any number of threads, too
//   lanes_digest --random SEED CALLS    as many calls of any shape, with any overlaps
//   lanes_digest --guard    no digest: each operand right before, then right behind a page that cannot be touched
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <random>
#include <string>

#include "members.hpp"

using namespace members;

namespace {

std::uint64_t digest(const std::vector<unsigned char> &bytes) {
    std::uint64_t hash = 14695981039346656037u;
    for (const unsigned char byte : bytes) hash = (hash ^ byte) * 1099511628211u;
    return hash;
}

void report(const Member &member, const Shape &shape, const char *variation, Call &call) {
    const int status = call.run();
    std::printf("%s side %d count %d %s: %d %016llx\n", member.name().c_str(), shape.size, shape.count, variation,
                status, static_cast<unsigned long long>(digest(call.memory())));
}

struct Variation {
    const char *name;
    int step, row_gap, object_gap;
    bool lanes, shuffled;
};
constexpr Variation variations[] = {{"packed", 1, 0, 0, false, false}, {"rows", 1, 1, 3, false, false},
                                    {"structs", 1, 0, 5, false, true}, {"elements", 2, 1, 1, false, false},
                                    {"lanes", 1, 0, 0, true, false},   {"lanes apart", 1, 0, 16, true, false}};

// Numbers of objects; without an array one of them will do.
std::vector<int> counts(const Member &member, std::vector<int> of_arrays) {
    if (!member.row->array()) of_arrays.resize(1);
    return of_arrays;
}

Shape shaped(int side, int count, const Variation &v) {
    Shape shape;
    shape.size = side;
    shape.count = count;
    shape.step = v.step;
    shape.row_gap = v.row_gap;
    shape.object_gap = v.object_gap;
    shape.lanes = v.lanes;
    shape.shuffled = v.shuffled;
    return shape;
}

// The Invert kernels of other sides end the process for some singular matrices.
bool may_take_any_values(const Member &member, int side) {
    return side >= 3 && side <= 6 && member.row->name.rfind("Invert", 0) != 0;
}

void plain(const Member &member) {
    for (const int side : {1, 2, 3, 4, 5, 6, 7})
        for (const Variation &v : variations)
            for (const int count : counts(member, {37, 3})) {
                if (count == 3 && v.step == 1 && v.row_gap == 0) continue;
                Shape shape = shaped(side, count, v);
                Call call(member, shape);
                report(member, shape, v.name, call);
            }
}

Shape mixture(int side, int count, int mixed) {
    Shape shape = shaped(side, count, variations[0]);
    shape.mixed = mixed;
    return shape;
}

// Each operand in a layout of its own, and enough objects for the longest runs through planes.
void mixtures(const Member &member) {
    for (const int side : {2, 3, 4, 5, 6})
        for (int mixed = 1; mixed <= 9; ++mixed) {
            const Shape shape = mixture(side, mixed == 4 ? 300 : 41, mixed);
            Call call(member, shape);
            report(member, shape, ("mixture " + std::to_string(mixed)).c_str(), call);
        }
    for (const int side : {3, 6})
        for (const int count : counts(member, {127, 128, 270})) {
            Shape shape = shaped(side, count, variations[count % 2 == 0 ? 4 : 5]);
            Call call(member, shape);
            report(member, shape, "long planes", call);
        }
}

// More objects than the caches hold: functions of one array of matrices, of which doubles are that sooner, and some
// with rows of three floats.
std::optional<Shape> far_shape(const Member &member) {
    int matrices = 0;
    for (const Operand &o : member.row->operands) matrices += o.source && o.array && o.structure == Structure::matrix;
    if (matrices == 1 && member.layout == Layout::strided && member.element == 8)
        return shaped(6, 30000, variations[0]);
    constexpr std::pair<const char *, int> of_three[] = {{"Add_vava", 710000},          {"DotProduct_vava", 710000},
                                                         {"Mul_mama", 240000},          {"Mul_mva", 710000},
                                                         {"CrossProduct_vava", 710000}, {"Transpose_ma", 240000}};
    for (const auto &[row, count] : of_three)
        if (member.row->name == row && member.element == 4 && member.layout != Layout::pointers)
            return shaped(3, count, variations[2]);
    return {};
}
void far(const Member &member) {
    const auto shape = far_shape(member);
    if (!shape) return;
    Call call(member, *shape);
    report(member, *shape, "far", call);
}

// Elements at addresses that no element should have.
void misaligned(const Member &member) {
    for (const int side : {3, 5, 6})
        for (const Variation &v : variations)
            for (const int nudge : {1, member.element - 2}) {
                Shape shape = shaped(side, 37, v);
                shape.nudge = nudge;
                Call call(member, shape);
                report(member, shape, (std::string(v.name) + " nudged " + std::to_string(nudge)).c_str(), call);
            }
}

// Strides are compared with nothing but the element size, so objects, rows and elements may lie between each other, and
// on each other.
void woven(const Member &member) {
    for (const int side : {3, 4, 5, 6})
        for (const bool folded : {false, true}) {
            Shape shape = shaped(side, 37, variations[0]);
            shape.woven = !folded;
            shape.folded = folded;
            Call call(member, shape);
            report(member, shape, folded ? "folded" : "woven", call);
        }
}

// Matrices that are no squares.
void oblong(const Member &member) {
    if (!takes_any_shape(*member.row)) return;
    for (const auto &[height, width] : {std::pair{3, 2}, {1, 4}, {6, 4}, {7, 1}, {9, 9}, {2, 9}})
        for (const Variation &v : variations)
            for (const int count : counts(member, {41, 150})) {
                if (width > height && member.row->name.rfind("QR", 0) == 0) continue;
                Shape shape = shaped(width, count, v);
                shape.height = height;
                shape.mixed = v.step == 2 ? 3 : 0;
                Call call(member, shape);
                report(member, shape, (std::string(v.name) + " height " + std::to_string(height)).c_str(), call);
            }
}

void values(const Member &member) {
    using Values = Shape::Values;
    for (const int side : {3, 4, 5, 6})
        for (const int count : counts(member, {53, 2, 18}))
            for (const Values kind : {Values::random, Values::integers, Values::special, Values::singular_middle}) {
                if (kind != Values::random && !may_take_any_values(member, side)) continue;
                Shape shape = shaped(side, count, variations[(side + count + static_cast<int>(kind)) % 6]);
                shape.values = kind;
                shape.seed = static_cast<unsigned>(count);
                shape.shift = count % 2;
                Call call(member, shape);
                report(member, shape, ("values " + std::to_string(static_cast<int>(kind))).c_str(), call);
            }
}

// The first destination on each source, moved by so many bytes.
void overlaps(const Member &member) {
    const Operand *result = nullptr;
    for (const Operand &o : member.row->operands)
        if (result == nullptr && !o.source && (o.structure == Structure::matrix || o.structure == Structure::vector))
            result = &o;
    if (result == nullptr) return;
    for (const Operand &o : member.row->operands) {
        if (!o.source || (o.structure != Structure::matrix && o.structure != Structure::vector)) continue;
        for (const int side : {3, 6})
            for (const Variation &v : variations) {
                if (v.shuffled || v.object_gap == 16) continue;
                Shape shape = shaped(side, 37, v);
                const int E = member.element;
                const int object = side * side * E;
                for (const int offset :
                     {0, E, -E, side * E, object, -object, 2 * object, 16 * object, 17 * E, 37 * E}) {
                    Call call(member, shape);
                    call.overlap(result->name, o.name, offset < 0 ? -offset : offset);
                    // A negative offset moves the source onto the result instead.
                    if (offset < 0) {
                        Call other(member, shape);
                        other.overlap(o.name, result->name, -offset);
                        report(member, shape, (std::string(v.name) + " source moved " + std::to_string(offset)).c_str(),
                               other);
                        continue;
                    }
                    report(member, shape,
                           (std::string(v.name) + " " + o.name + " moved " + std::to_string(offset)).c_str(), call);
                }
            }
    }
}

bool is_listed(const Member &member, const Operand &o) {
    return member.layout == Layout::list && o.array &&
           (o.structure == Structure::matrix || o.structure == Structure::vector);
}

// Lists that hold an object twice, or one that lies across another, at every distance within a group: a result on a
// result, a result on another object's source, and both of an object on both of another one in place.
void listed_twice(const Member &member) {
    const std::vector<Operand> &operands = member.row->operands;
    const auto each_distance = [&](const Operand &result, const Operand &other, bool in_place) {
        for (const int side : {3, 6})
            for (int distance = 1; distance <= 15; ++distance) {
                const int E = member.element, ends = side * E, object = side * ends;
                const int offsets[] = {0, E, -E, ends - E, -object + E, object - E, object};
                const int offset = in_place && distance % 2 == 0 ? 0 : offsets[(distance + side) % 7];
                const int first = distance % 2 == 0 ? 16 : 31 - distance;
                Shape shape = shaped(side, 37, variations[distance % 3]);
                shape.object_gap = side + 2;
                Call call(member, shape);
                if (in_place) {
                    call.overlap(result.name, other.name, 0);
                    call.relist(other.name, first + distance, other.name, first, offset);
                }
                call.relist(result.name, first + distance, other.name, first, offset);
                report(member, shape,
                       (result.name + " " + std::to_string(first + distance) + " on " + other.name + " " +
                        std::to_string(first) + " moved " + std::to_string(offset) + (in_place ? " in place" : ""))
                           .c_str(),
                       call);
            }
    };
    for (const Operand &result : operands) {
        if (result.source || !is_listed(member, result)) continue;
        for (const Operand &other : operands) {
            if (!is_listed(member, other) || (!other.source && other.name != result.name)) continue;
            each_distance(result, other, false);
            if (other.source) each_distance(result, other, true);
        }
    }
}

// A call of which everything is left to chance: what no list of cases thinks of.
class Chance {
public:
    explicit Chance(unsigned seed) : random_(seed) {}
    int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
    bool once_in(int n) { return below(n) == 0; }
    // Mostly none.
    int seldom(int most) { return once_in(3) ? below(most + 1) : 0; }

private:
    std::mt19937 random_;
};

Shape any_shape(const Member &member, Chance &chance) {
    Shape shape;
    shape.size = chance.once_in(5) ? 1 + chance.below(9) : 3 + chance.below(4);
    if (takes_any_shape(*member.row) && chance.once_in(4))
        shape.height = (member.row->name.rfind("QR", 0) == 0 ? shape.size : 1) + chance.below(4);
    shape.count = 1 + chance.below(chance.once_in(4) ? 200 : 40);
    shape.step = 1 + chance.seldom(2);
    shape.row_gap = chance.seldom(3);
    shape.object_gap = chance.seldom(9);
    shape.lanes = chance.once_in(4);
    shape.shuffled = chance.once_in(2);
    shape.mixed = chance.seldom(99);
    shape.woven = chance.once_in(12);
    shape.folded = chance.once_in(20);
    shape.shift = chance.seldom(5);
    shape.nudge = chance.once_in(10) ? chance.below(member.element) : 0;
    shape.seed = static_cast<unsigned>(chance.below(1000000));
    constexpr Shape::Values kinds[] = {Shape::Values::definite, Shape::Values::random, Shape::Values::integers,
                                       Shape::Values::special, Shape::Values::singular_middle};
    if (may_take_any_values(member, shape.size)) shape.values = kinds[chance.below(5)];
    return shape;
}

// Moves operands onto others and lists objects twice, and says so.
std::string any_overlaps(const Member &member, const Shape &shape, Call &call, Chance &chance) {
    std::string text;
    std::vector<const Operand *> all;
    for (const Operand &o : member.row->operands)
        if (o.structure == Structure::matrix || o.structure == Structure::vector) all.push_back(&o);
    const auto any = [&] { return all[static_cast<std::size_t>(chance.below(static_cast<int>(all.size())))]; };
    const int side = shape.size, E = member.element;
    const int steps[] = {1, side, side * side, side * side + shape.object_gap, shape.count};
    const auto any_offset = [&] { return E * chance.below(5) * steps[chance.below(5)] + E * chance.seldom(3); };
    for (int moves = chance.below(3); moves > 0; --moves) {
        const Operand &moved = *any(), &on = *any();
        const int offset = chance.once_in(3) ? 0 : any_offset();
        // The room behind the last operand.
        if (&moved == &on || static_cast<int>(call.bytes(moved.name)) + offset > 32768) continue;
        call.overlap(moved.name, on.name, offset);
        text += " " + moved.name + " on " + on.name + " moved " + std::to_string(offset);
    }
    for (int entries = chance.below(5); entries > 0; --entries) {
        const Operand &a = *any(), &b = *any();
        if (!is_listed(member, a) || !is_listed(member, b)) continue;
        // Mostly within a group.
        const int n = chance.below(shape.count), m = (n + shape.count - chance.below(15) % shape.count) % shape.count;
        const int offset = E * chance.seldom(side * side - 1);
        call.relist(a.name, n, b.name, m, offset);
        if (chance.once_in(2)) call.relist(b.name, n, b.name, m, offset);
        text += " " + a.name + " " + std::to_string(n) + " on " + b.name + " " + std::to_string(m) + " moved " +
                std::to_string(offset);
    }
    return text;
}

void random_calls(unsigned seed, int calls) {
    Chance chance(seed);
    for (int k = 0; k < calls; ++k) {
        const Member &member = all()[static_cast<std::size_t>(chance.below(static_cast<int>(all().size())))];
        const Shape shape = any_shape(member, chance);
        Call call(member, shape);
        std::string text = std::to_string(k);
        // Elements across elements would show the sign of a not-a-number, which is the compiler's choice.
        if (may_take_any_values(member, shape.size) && shape.nudge == 0)
            text += any_overlaps(member, shape, call, chance);
        report(member, shape, text.c_str(), call);
    }
}

void guard(const Member &member, const Shape &shape) {
    const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    for (const bool at_end : {true, false}) {
        Call call(member, shape);
        std::vector<std::pair<char *, std::size_t>> regions;
        for (const Operand &o : member.row->operands) {
            if (o.structure == Structure::size || o.structure == Structure::count || o.structure == Structure::value)
                continue;
            const std::size_t bytes = call.bytes(o.name), room = (bytes + page - 1) / page * page;
            char *const region =
                static_cast<char *>(mmap(nullptr, room + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
            mprotect(region + page, room, PROT_READ | PROT_WRITE);
            call.move(o.name, at_end ? region + page + room - bytes : region + page);
            regions.emplace_back(region, room + 2 * page);
        }
        call.run();
        for (const auto &[region, size] : regions) munmap(region, size);
    }
}
void guard(const Member &member) {
    for (const int side : {3, 4, 5, 6}) {
        for (const Variation &v : variations) guard(member, shaped(side, 35, v));
        for (const int mixed : {2, 5, 8}) guard(member, mixture(side, 35, mixed));
    }
    if (const auto shape = far_shape(member)) guard(member, *shape);
}

} // namespace

int main(int argc, char **argv) {
    if (argc > 3 && std::strcmp(argv[1], "--random") == 0) {
        random_calls(static_cast<unsigned>(std::atoi(argv[2])), std::atoi(argv[3]));
        return 0;
    }
    const bool only_plain = argc > 1 && std::strcmp(argv[1], "--plain") == 0;
    const bool only_guard = argc > 1 && std::strcmp(argv[1], "--guard") == 0;
    for (const Member &member : all()) {
        if (only_guard) {
            guard(member);
            continue;
        }
        plain(member);
        mixtures(member);
        oblong(member);
        misaligned(member);
        far(member);
        if (only_plain) continue;
        values(member);
        woven(member);
        overlaps(member);
        listed_twice(member);
    }
    if (only_guard) std::puts("guarded");
    return 0;
}
