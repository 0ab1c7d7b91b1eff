// What every example does alike: its command line, its files, and its end with one line where something is wrong.
#pragma once

#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace shared {

// Takes the value of an option. If it is not one, returns what would be.
using Taker = std::function<std::string(const std::string &)>;

struct Option {
    // As the usage shows it: "--threads N", "--z-up" without a value, or what stands alone, "FILE" or, where it may be
    // left out, "[FILE]".
    std::string_view name;
    std::string_view help; // perhaps of several lines
    Taker take;
};

// For Option::take.
Taker text(std::string &value); // any
Taker flag(bool &value);
Taker number(int &value, int least, int most);
Taker number(double &value, double least, double most);
Taker oneOf(std::string &value, const std::vector<std::string> &choices);
Taker file(std::string &value, const std::vector<std::string> &endings); // or none
inline const std::vector<std::string> pictures = {".png", ".svg"};       // what a Picture can be

struct Program {
    std::string name, about; // what the usage begins with
    std::vector<Option> options;
    std::string notes; // what it ends with
};

// The whole of main: reads the options, runs, and returns the exit status, that of `run` or 2 with one line on standard
// error that begins with the name. --help prints the usage.
int execute(const Program &program, int count, char **arguments, const std::function<int()> &run);

// "a, b or c".
std::string listed(const std::vector<std::string> &words);

// What is behind the last full stop of the file's name, with it and in small letters.
std::string endingOf(const std::string &file);

std::runtime_error badLine(const std::string &file, int line, const std::string &what);

// The lines of a text file, without their ends and without a byte order mark.
class Lines {
public:
    explicit Lines(const std::string &file);
    bool next(std::string &text);
    int line = 0; // the number of the present one

private:
    const std::string name;
    std::ifstream in;
};

// A text file to write with std::fprintf. All that goes wrong is told by `close`.
class OutFile {
public:
    explicit OutFile(const std::string &file);
    operator std::FILE *() const { return out.get(); }
    void close();

private:
    const std::string name;
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> out;
};

} // namespace shared
