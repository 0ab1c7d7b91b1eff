// How long work takes, how far it is, and which of two ways is faster.
#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include <unistd.h>

namespace shared {

template <class Work>
double secondsOf(const Work &work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Calls run(way) for the ways 0 and 1 in turn, since a machine's speed drifts; it returns an array of figures. Gives
// their medians, way by way.
template <class Run>
auto mediansInTurn(int repeats, const Run &run) {
    using Figures = decltype(run(0));
    std::array<std::vector<Figures>, 2> runs;
    for (int i = 0; i < repeats; ++i)
        for (std::size_t way = 0; way < 2; ++way) runs[way].push_back(run(way));
    std::array<Figures, 2> medians;
    for (std::size_t way = 0; way < 2; ++way)
        for (std::size_t figure = 0; figure < medians[way].size(); ++figure) {
            const auto middle = runs[way].begin() + repeats / 2;
            std::ranges::nth_element(runs[way], middle, {}, [&](const Figures &f) { return f[figure]; });
            medians[way][figure] = (*middle)[figure];
        }
    return medians;
}

// On a terminal a line that is written again and again, elsewhere one line at the end.
class ProgressBar {
public:
    ProgressBar(std::size_t most, std::string things) : total(most), unit(std::move(things)) {}
    ProgressBar(const ProgressBar &) = delete;
    ProgressBar &operator=(const ProgressBar &) = delete;
    ~ProgressBar() {
        if (terminal && !line.empty()) std::puts("");
        else if (!line.empty()) std::puts(line.c_str());
    }

    void show(std::size_t done, const std::string &before = "") {
        constexpr std::size_t width = 40;
        const std::size_t filled = done * width / total;
        const std::string now = before + "[" + std::string(filled, '#') + std::string(width - filled, '.') + "] " +
                                std::to_string(done) + " of " + std::to_string(total) + " " + unit;
        if (terminal) std::printf("\r%s", now.c_str());
        if (terminal) std::fflush(stdout);
        line = now;
    }

private:
    std::size_t total;
    std::string unit, line;
    bool terminal = isatty(STDOUT_FILENO) == 1;
};

} // namespace shared
