// The members of the library as data, read from the catalogue, and calls to any of them by name (libffi).
//
// A member is one function of the interface: a row of the catalogue, an element type and a layout. Its arguments follow
// from the row's operand kinds. So a property written once runs over everything that the catalogue holds.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace members {

enum class Layout { strided, pointers, list };
enum class Structure { matrix, vector, constants, value, packed, buffer, size, count };

// One operand of a row.
struct Operand {
    std::string kind, name, prefix;
    Structure structure;
    bool array;  // one object for each n
    bool source; // only read
    bool integers;
    int packed_step; // packed: 0 one element, 1 one an object, 2 a side an object
};

struct Row {
    std::string name;  // Add_mam
    std::string shape; // SINGLE, ARRAY, ...
    std::vector<Operand> operands;
    bool array() const { return shape.rfind("ARRAY", 0) == 0; }
    bool one_kernel() const { return shape.find("ONE_KERNEL") != std::string::npos; }
    bool kernel_less() const { return shape == "COPY" || shape.find("NO_KERNEL") != std::string::npos; }
};
// Rows with kernels; of the others only the names of their functions.
std::vector<std::string> kernel_less_functions();
const std::vector<Row> &rows();
// Matrices of one width and height, and no vectors beside them.
bool takes_any_shape(const Row &row);

enum class ArgumentType { pointer, integer, real };
struct Argument {
    std::string name;
    ArgumentType type;
    const Operand *operand;
};

struct Member {
    const Row *row;
    int element; // 4 or 8
    Layout layout;
    std::string type() const { return element == 4 ? "32f" : "64f"; }
    std::string name() const; // smxAdd_mam_32f_L
    std::string driver() const { return "ownOMP_" + name(); }
    // The kernels of this member: for adjacent elements, and for a general stride2 where there is one.
    std::string kernel() const { return "own" + name(); }
    std::string kernel_s2() const;
    // The parameters of the interface function and the driver, or of the kernel for adjacent elements.
    std::vector<Argument> arguments(bool without_stride2 = false) const;
};
const std::vector<Member> &all();
const Member &find(const std::string &name);

// What the call's operands look like in memory.
struct Shape {
    int size = 3;          // every width, height, length and side
    int height = 0;        // not 0: the height, for rows that take a width and a height (takes_any_shape)
    int count = 5;         // objects
    int step = 1;          // elements from one element of a row to the next
    int row_gap = 0;       // elements between rows
    int object_gap = 0;    // elements between objects
    bool lanes = false;    // objects follow each other element by element (a structure of arrays)
    bool shuffled = false; // lists and pointer tables in no order
    bool woven = false;    // sources with the rows and objects of adjacent elements, but elements twice as far apart
    bool folded = false;   // results whose rows end where the next one begins
    int mixed = 0;         // not 0: each operand has its own gaps, dealt out anew for each number
    int shift = 0;         // ROI shift, in elements
    int nudge = 0;         // bytes by which matrices and vectors miss the alignment of their elements
    unsigned seed = 1;
    enum class Values { definite, random, integers, special, singular_middle } values = Values::definite;
};

// The operands of one call in one block of memory, ready to be overridden.
class Call {
public:
    Call(const Member &member, const Shape &shape);
    Call(const Call &) = delete;

    // Overrides by argument name.
    void set(const std::string &argument, int value) { integers_[argument] = value; }
    void set(const std::string &argument, void *pointer) { pointers_[argument] = pointer; }
    int integer(const std::string &argument) const { return integers_.at(argument); }
    void *pointer(const std::string &argument) const { return pointers_.at(argument); }
    // Lets one operand start where another one does, so many bytes further on.
    void overlap(const std::string &operand, const std::string &on, std::ptrdiff_t offset);

    // Lets entry n of a listed operand be entry m of another one (or of its own list), so many bytes further on.
    void relist(const std::string &operand, int n, const std::string &other, int m, std::ptrdiff_t offset) {
        static_cast<void **>(pointer(operand))[n] = static_cast<char **>(pointer(other))[m] + offset;
    }

    // Moves one operand's elements elsewhere; they take bytes(operand).
    void move(const std::string &operand, char *to);
    std::size_t bytes(const std::string &operand) const { return blocks_.at(operand).bytes; }

    int run() { return run(member_.name(), false); }
    int run_driver() { return run(member_.driver(), false); }
    int run(const std::string &function, bool without_stride2);

    // All memory of the operands; a float or double that is not a number as one same pattern.
    std::vector<unsigned char> memory() const;
    // Element (i, j) of object n of an operand (vector: i is 0).
    double element(const std::string &operand, int n, int i, int j) const;
    int packed_integer(const std::string &operand, int index) const;

private:
    struct Block {
        std::size_t begin, bytes; // of the operand's elements in memory_
        std::ptrdiff_t stride0, stride1, stride2;
    };
    char *start(const Operand &operand) const;
    void place(const Operand &operand);
    void fill(const Operand &operand);
    void describe(const Operand &operand);

    const Member &member_;
    Shape shape_;
    std::vector<unsigned char> memory_;
    std::map<std::string, Block> blocks_;
    std::map<std::string, char *> moved_;
    std::map<std::string, std::vector<void *>> tables_;
    std::map<std::string, int> integers_;
    std::map<std::string, void *> pointers_;
};

void *symbol(const std::string &name); // null if the library does not have it
// Calls a function of the library with the values of the given arguments.
int invoke(void *function, const std::vector<Argument> &arguments, const std::map<std::string, int> &integers,
           const std::map<std::string, void *> &pointers, double value, int element);

} // namespace members
