#include "program.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <new>
#include <sstream>

namespace shared {
namespace {

template <class T>
auto bounded(const char *kind, T &value, T least, T most) {
    return [=, &value](const std::string &word) {
        T read{};
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), read);
        if (error == std::errc() && end == word.data() + word.size() && read >= least && read <= most) {
            value = read;
            return std::string();
        }
        std::ostringstream wanted;
        wanted << kind << " from " << least << " to " << most;
        return wanted.str();
    };
}

// An option's name without what follows it; empty for what stands alone.
std::string_view word(const Option &option) {
    return option.name.starts_with("-") ? option.name.substr(0, option.name.find(' ')) : "";
}

void readOptions(int count, char **arguments, const std::vector<Option> &options) {
    std::vector<const Option *> met;
    for (int i = 1; i < count; ++i) {
        const std::string name = arguments[i];
        const bool alone = !name.starts_with("-");
        const auto found = std::ranges::find(options, alone ? "" : name, word);
        if (found == options.end() || (alone && std::ranges::find(met, &*found) != met.end()))
            throw std::runtime_error("what is \"" + name + "\"? See --help");
        met.push_back(&*found);
        const bool hasValue = alone || word(*found) != found->name;
        if (!alone && hasValue && ++i == count) throw std::runtime_error(name + " needs a value");
        const std::string value = arguments[i], wanted = found->take(value);
        if (!wanted.empty()) throw std::runtime_error(name + " takes " + wanted + ", not \"" + value + "\"");
    }
    for (const Option &option : options)
        if (!option.name.starts_with("-") && !option.name.starts_with("[") &&
            std::ranges::find(met, &option) == met.end())
            throw std::runtime_error("which file? See --help");
}

void printUsage(const Program &program) {
    std::size_t width = 0;
    std::string alone;
    for (const Option &option : program.options) {
        width = std::max(width, option.name.size() + 2);
        if (word(option).empty()) (alone = ' ') += option.name;
    }
    std::printf("Usage: %s [options]%s\n%s\n\n", program.name.c_str(), alone.c_str(), program.about.c_str());
    const auto row = [&](std::string_view name, std::string_view help) {
        std::string text(name);
        text.resize(width, ' ');
        for (const char c : help) {
            text += c;
            if (c == '\n') text.append(width + 2, ' ');
        }
        std::printf("  %s\n", text.c_str());
    };
    for (const Option &option : program.options) row(option.name, option.help);
    row("--help", "prints this");
    std::printf("\n%s", program.notes.c_str());
}

} // namespace

Taker text(std::string &value) {
    return [&value](const std::string &word) {
        value = word;
        return std::string();
    };
}

Taker flag(bool &value) {
    return [&value](const std::string &) {
        value = true;
        return std::string();
    };
}

Taker number(int &value, int least, int most) {
    return bounded("a whole number", value, least, most);
}
Taker number(double &value, double least, double most) {
    return bounded("a number", value, least, most);
}

Taker oneOf(std::string &value, const std::vector<std::string> &choices) {
    return [=, &value](const std::string &word) {
        if (std::ranges::find(choices, word) == choices.end()) return listed(choices);
        value = word;
        return std::string();
    };
}

Taker file(std::string &value, const std::vector<std::string> &endings) {
    return [=, &value](const std::string &word) {
        if (word == "none" || std::ranges::find(endings, endingOf(word)) != endings.end()) {
            value = word;
            return std::string();
        }
        std::vector<std::string> wanted;
        for (const std::string &ending : endings) wanted.push_back("FILE" + ending);
        wanted.emplace_back("none");
        return listed(wanted);
    };
}

int execute(const Program &program, int count, char **arguments, const std::function<int()> &run) {
    std::string failure;
    try {
        int status = 0;
        if (std::any_of(arguments + 1, arguments + count, [](std::string_view name) { return name == "--help"; }))
            printUsage(program);
        else {
            readOptions(count, arguments, program.options);
            status = run();
        }
        if (std::fflush(stdout) == 0 && !std::ferror(stdout)) return status;
        failure = "cannot write to the standard output";
    } catch (const std::bad_alloc &) {
        failure = "there is not enough memory";
    } catch (const std::exception &problem) {
        failure = problem.what();
    }
    for (char &c : failure) // a file may hold anything, also where a word of it is quoted
        if (std::iscntrl(static_cast<unsigned char>(c))) c = '?';
    std::fflush(stdout);
    std::fprintf(stderr, "%s: %s\n", program.name.c_str(), failure.c_str());
    return 2;
}

std::string listed(const std::vector<std::string> &words) {
    std::string all;
    for (std::size_t i = 0; i < words.size(); ++i)
        all += (i == 0 ? "" : i + 1 == words.size() ? " or " : ", ") + words[i];
    return all;
}

std::string endingOf(const std::string &file) {
    std::string ending = std::filesystem::path(file).extension().string();
    std::ranges::transform(ending, ending.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending;
}

std::runtime_error badLine(const std::string &file, int line, const std::string &what) {
    return std::runtime_error(file + ":" + std::to_string(line) + ": " + what);
}

Lines::Lines(const std::string &file) : name(file), in(file) {
    if (!in || std::filesystem::is_directory(file)) throw std::runtime_error("cannot read " + file);
}

bool Lines::next(std::string &text) {
    if (!std::getline(in, text)) {
        if (in.bad()) throw std::runtime_error("cannot read " + name);
        return false;
    }
    if (++line == 1 && text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
    if (text.ends_with('\r')) text.pop_back();
    if (text.find('\0') != std::string::npos) throw badLine(name, line, "this is not a text file");
    return true;
}

OutFile::OutFile(const std::string &file) : name(file), out(std::fopen(file.c_str(), "w"), std::fclose) {
    if (!out) throw std::runtime_error("cannot write " + file);
}

void OutFile::close() {
    const bool failed = std::ferror(out.get()) != 0;
    if (std::fclose(out.release()) != 0 || failed) throw std::runtime_error("cannot write " + name);
}

} // namespace shared
