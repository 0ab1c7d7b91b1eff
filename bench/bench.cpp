// Runs the rows: Google Benchmark registers, filters and reports them; the samples of a row are taken here, one from
// every contender in turn.
#include "bench.hpp"

#include <benchmark/benchmark.h>
#include <smkcore.h>
#include <sys/mman.h>

#include <chrono>
#include <cmath>
#include <cstdio>

namespace bench {

Pool::Pool()
    : base_(static_cast<char *>(
          mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0))) {
    if (base_ == MAP_FAILED) throw std::bad_alloc();
}

// Pieces start at different places within a page: where a result lies a few lines behind a source in the low 12 bits of
// the address, a processor makes loads wait for stores that have nothing to do with them.
char *Pool::take_bytes(std::size_t bytes) {
    constexpr std::size_t page = 4096, apart = 25 * 64;
    const std::size_t begin = (used_ + page - 1) / page * page + pieces_++ * apart % page;
    used_ = begin + bytes;
    if (used_ > size) throw std::bad_alloc();
    return base_ + begin;
}

std::vector<double> patterns(int rows, int columns, Fill fill, long count, unsigned seed) {
    // From this seed on no symmetric matrix is one of the few that do not converge (smxeigen.h).
    std::mt19937 random(fill == Fill::symmetric ? seed + 2 : seed);
    std::uniform_real_distribution<double> uniform(-1, 1);
    std::vector<double> all;
    for (long n = 0; n < std::min(count, 1021L); ++n) {
        using Dynamic = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
        Dynamic m(rows, columns);
        do {
            m = Dynamic::NullaryExpr(rows, columns, [&] { return uniform(random); });
        } while (rows == columns && std::abs(m.determinant()) < 0.05);
        if (fill == Fill::symmetric) m = (m + m.transpose().eval()) / 2;
        if (fill == Fill::positive) m = m * m.transpose().eval() / rows + Dynamic::Identity(rows, rows) / 2;
        all.insert(all.end(), m.data(), m.data() + m.size());
    }
    return all;
}

int run(const Contender &contender, long count, int threads) {
    int status = 0;
    for (const Step &step : contender.steps) {
        if (threads == 1 || contender.splits_itself) {
            const int last = step(0, count);
            if (status == 0) status = last;
        } else {
#pragma omp parallel num_threads(threads)
            {
                const long t = omp_get_thread_num();
                step(count * t / threads, count * (t + 1) / threads);
            }
        }
    }
    return status;
}

namespace {

struct Mode {
    const char *name;
    double sample_seconds; // at least, for each contender
    double row_seconds;    // samples are taken for so long
    int least_samples, most_samples;
    bool everything;
};
constexpr Mode quick{"quick", 60e-6, 0.03, 5, 31, false};
constexpr Mode full{"full", 150e-6, 0.15, 7, 101, true};
Mode mode = full;
constexpr double streamed_bytes = 200e6;
bool disagreement = false;

using Clock = std::chrono::steady_clock;

double seconds_of(const Contender &contender, long count, int threads, long repeats) {
    const auto start = Clock::now();
    if (contender.steps.size() == 1 && (threads == 1 || contender.splits_itself)) {
        const Step &step = contender.steps[0]; // nothing else inside the loop: a single object takes few nanoseconds
        for (long r = 0; r < repeats; ++r) step(0, count);
    } else {
        for (long r = 0; r < repeats; ++r) run(contender, count, threads);
    }
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// The contenders have to agree on what they compute; where they give different forms of it, a row compares nothing.
bool agree(Row &row, bool single_precision) {
    std::vector<double> ours;
    for (const auto &contender : row.contenders) {
        for (const auto &[memory, bytes] : row.results) std::memset(memory, 0xff, bytes);
        if (const int status = run(contender, row.count, 1); status != 0) {
            std::fprintf(stderr, "%s returns %d\n", contender.name.c_str(), status);
            return false;
        }
        if (!row.value) continue;
        std::vector<double> theirs;
        for (long n = 0; n < row.count; ++n)
            for (const double value : row.value(n)) theirs.push_back(value);
        if (ours.empty()) ours = theirs;
        double error = 0;
        double size = 0;
        for (std::size_t k = 0; k < ours.size(); ++k) {
            error += std::abs(ours[k] - theirs[k]);
            size += std::abs(ours[k]);
        }
        if (!(error <= (single_precision ? 1e-3 : 1e-9) * size)) {
            std::fprintf(stderr, "%s differs by %g of %g\n", contender.name.c_str(), error, size);
            return false;
        }
    }
    return true;
}

// A copy of as many bytes as a row reads and writes.
Contender copy_of(double bytes, long count) {
    const double half = bytes * static_cast<double>(count) / 2;
    char *const from = pool.take<char>(static_cast<long>(half));
    char *const to = pool.take<char>(static_cast<long>(half));
    std::memset(from, 1, static_cast<std::size_t>(half));
    return {"copy", false, {[=](long first, long last) {
                const auto begin = static_cast<std::size_t>(bytes / 2 * static_cast<double>(first));
                const auto end = static_cast<std::size_t>(bytes / 2 * static_cast<double>(last));
                std::memcpy(to + begin, from + begin, end - begin);
                return 0;
            }}};
}

void measure(benchmark::State &state, const Make &make, long count, int threads, bool streamed, bool single_precision) {
    pool.reset();
    std::unique_ptr<Row> row = make(1); // how large is an object, and is the member there
    if (!row->has_ours) {
        state.SkipWithError("not in the library");
        return;
    }
    if (streamed) count = static_cast<long>(streamed_bytes / row->bytes) | 1;
    pool.reset();
    row = make(count);
    threads_omp_of_n_smk = 1;
    if (!streamed && !agree(*row, single_precision)) {
        disagreement = true;
        state.SkipWithError("contenders disagree, or one fails");
        return;
    }
    if (streamed) row->contenders.push_back(copy_of(row->bytes, count));
    threads_omp_of_n_smk = threads;

    std::vector<Contender> &contenders = row->contenders;
    std::vector<long> repeats(contenders.size(), 1);
    std::vector<std::vector<double>> times(contenders.size()), ratios(contenders.size());
    for (std::size_t c = 0; c < contenders.size(); ++c) {
        double seconds = seconds_of(contenders[c], count, threads, 1);
        while (seconds < mode.sample_seconds) {
            repeats[c] = std::max(repeats[c] * 2, static_cast<long>(1.1 * mode.sample_seconds / seconds *
                                                                    static_cast<double>(repeats[c])));
            seconds = seconds_of(contenders[c], count, threads, repeats[c]);
        }
    }
    const auto start = Clock::now();
    for (int sample = 0; sample < mode.most_samples; ++sample) {
        const double elapsed = std::chrono::duration<double>(Clock::now() - start).count();
        if (sample >= (streamed ? 3 : mode.least_samples) && elapsed > mode.row_seconds) break;
        for (std::size_t c = 0; c < contenders.size(); ++c) {
            times[c].push_back(seconds_of(contenders[c], count, threads, repeats[c]) / static_cast<double>(repeats[c]));
            ratios[c].push_back(times[c].back() / times[0].back());
        }
    }
    for (auto _ : state) state.SetIterationTime(median(times[0]));
    state.counters["count"] = static_cast<double>(count);
    state.counters["bytes"] = row->bytes;
    for (std::size_t c = 0; c < contenders.size(); ++c) {
        state.counters["ns:" + contenders[c].name] = median(times[c]) * 1e9 / static_cast<double>(count);
        state.counters["ratio:" + contenders[c].name] = median(ratios[c]);
    }
}

} // namespace

void add(const std::string &operation, const std::string &side, const std::string &type, Layout layout,
         const Extent &extent, const Make &make) {
    const bool ends = side == "3" || side == "6";
    const auto put = [&](const char *size, long count, int threads) {
        const std::string name = operation + "/" + side + "/" + type + "/" + layout_names[static_cast<int>(layout)] +
                                 "/" + size + "/" + std::to_string(threads);
        benchmark::RegisterBenchmark(
            name.c_str(),
            [=](benchmark::State &state) { measure(state, make, count, threads, count == 0, type == "float"); })
            ->Iterations(1)
            ->UseManualTime();
    };
    if (!extent.array) return put("1", 1, 1);
    const bool packed = layout == Layout::packed;
    for (const int threads : {1, 2}) {
        const bool one = threads == 1;
        if (one && (packed || mode.everything)) put("1", 1, 1); // a single object is never split
        if (one ? packed || mode.everything : mode.everything) put("10", 10, threads);
        if (one || packed || mode.everything) put("1000", 1000, threads);
        if (extent.streamed && (mode.everything || (one && packed && ends))) put("200MB", 0, threads);
    }
}

} // namespace bench

int main(int argc, char **argv) {
    using namespace bench;
    for (int k = 1; k < argc; ++k) {
        if (std::string(argv[k]) != "--quick") continue;
        mode = quick;
        std::rotate(argv + k, argv + k + 1, argv + argc);
        --argc;
    }
    benchmark::AddCustomContext("mode", mode.name);
    benchmark::AddCustomContext("peers built for", SMX_BENCH_SET);
    benchmark::AddCustomContext("compiler", "GCC " __VERSION__);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    add_sums();
    add_products();
    add_lu();
    add_factorizations();
    add_vectors();
    add_eigenproblems();
    benchmark::RunSpecifiedBenchmarks();
    return disagreement ? 1 : 0;
}
