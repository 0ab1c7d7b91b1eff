// Command-line options: the rows of a table that say where values go.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace shapes {

struct Option {
    std::string_view name; // empty: what stands alone, such as the file
    std::function<void(const std::string &)> take;
    bool flag = false; // has no value: take("") is called
};

// Throws std::runtime_error at what the table does not have.
inline void readOptions(int count, char **arguments, const std::vector<Option> &table) {
    for (int i = 1; i < count; ++i) {
        const std::string word = arguments[i];
        const bool alone = !word.starts_with("-");
        const Option *found = nullptr;
        for (const Option &option : table)
            if (alone ? option.name.empty() : option.name == word) found = &option;
        if (!found) throw std::runtime_error("what is \"" + word + "\"? See --help");
        if (!alone && !found->flag && ++i == count) throw std::runtime_error(word + " needs a value");
        found->take(found->flag ? "" : arguments[i]);
    }
}

// For Option::take.
inline auto into(std::string &text) {
    return [&text](const std::string &value) { text = value; };
}
inline auto into(bool &flag) {
    return [&flag](const std::string &) { flag = true; };
}
template <class T>
auto into(T &number, T least, T most) {
    return [&number, least, most](const std::string &value) {
        std::size_t used = 0;
        double read = 0;
        try {
            read = std::stod(value, &used);
        } catch (const std::exception &) { // told below
        }
        number = used > 0 && read >= static_cast<double>(least) && read <= static_cast<double>(most)
                     ? static_cast<T>(read)
                     : least;
        if (used != value.size() || static_cast<double>(number) != read)
            throw std::runtime_error("\"" + value + "\" is not a number from " + std::to_string(least) + " to " +
                                     std::to_string(most));
    };
}

} // namespace shapes
