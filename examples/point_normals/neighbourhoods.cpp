#include "neighbourhoods.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <nanoflann.hpp>

#include "smx.h"
#include "timing.hpp"

namespace normals {
namespace {

struct Cloud {
    const std::vector<shared::Point> &points;
    std::size_t kdtree_get_point_count() const { return points.size(); }
    double kdtree_get_pt(std::size_t n, std::size_t axis) const { return points[n][axis]; }
    template <class Box>
    bool kdtree_get_bbox(Box &) const {
        return false;
    }
};
using Tree = nanoflann::KDTreeSingleIndexAdaptor<nanoflann::L2_Simple_Adaptor<double, Cloud>, Cloud, 3, std::uint32_t>;

constexpr std::size_t block = 1024; // points whose neighbours lie in memory at once

} // namespace

Neighbourhoods neighbourhoodsOf(const std::vector<shared::Point> &points, int neighbours,
                                const std::function<void(std::size_t)> &progress) {
    const Cloud cloud{points};
    const Tree tree(3, cloud);
    const auto rows = static_cast<std::size_t>(neighbours) + 1;
    const int rowBytes = 3 * sizeof(double), pitch = neighbours * rowBytes + rowBytes;
    std::vector<std::uint32_t> found(rows);
    std::vector<double> squared(rows), offsets(block * rows * 3);

    Neighbourhoods all{std::vector<double>(points.size() * 9), std::vector<shared::Point>(points.size()),
                       std::vector<double>(points.size()), std::vector<double>(points.size())};
    for (std::size_t first = 0; first < points.size(); first += block) {
        const std::size_t count = std::min(block, points.size() - first);
        for (std::size_t n = first; n < first + count; ++n) {
            tree.knnSearch(points[n].data(), rows, found.data(), squared.data());
            for (std::size_t i = 0; i < rows; ++i) {
                all.squares[n] += squared[i];
                for (std::size_t axis = 0; axis < 3; ++axis)
                    all.pull[n][axis] += points[found[i]][axis] - points[n][axis];
            }
            all.reach[n] = std::sqrt(squared.back());
            double *to = &offsets[(n - first) * rows * 3];
            for (std::size_t i = 0; i < rows; ++i)
                for (std::size_t axis = 0; axis < 3; ++axis)
                    *to++ = points[found[i]][axis] - points[n][axis] - all.pull[n][axis] / static_cast<double>(rows);
        }
        // Each neighbourhood's offsets are a matrix X of 3 columns; its covariances are Xt X.
        all.inLibrary += shared::secondsOf([&] {
            smxMul_tama_64f(offsets.data(), pitch, rowBytes, sizeof(double), 3, neighbours + 1, offsets.data(), pitch,
                            rowBytes, sizeof(double), 3, neighbours + 1, &all.covariances[first * 9], 3 * rowBytes,
                            rowBytes, sizeof(double), static_cast<int>(count));
        });
        progress(first + count);
    }
    return all;
}

} // namespace normals
