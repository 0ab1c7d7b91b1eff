// Calls of members by name on arrays of objects in any form, to be compared bit by bit with plain references that work
// on the same memory.
#pragma once

#include "factor.hpp"
#include "members.hpp"

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
