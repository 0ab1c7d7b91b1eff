// Surface normals and curvature of a point cloud, from the covariances of the neighbourhood of every point.
#include <cstdio>
#include <filesystem>
#include <numbers>

#include "canvas.hpp"
#include "neighbourhoods.hpp"
#include "principal_axes.hpp"
#include "program.hpp"
#include "smkcore.h"
#include "smx.h"
#include "timing.hpp"

namespace normals {
namespace {

using shared::Point;
using shared::Vec;

struct Options {
    std::string file, normals = "normals.png", curvature = "curvature.png", ply = "none", makeSphere;
    int neighbours = 24, threads = 1, width = 1280;
    double azimuth = 20, elevation = 25;
    bool outward = false, zUp = false, checkSphere = false;
};

double dot(const Point &a, const Point &b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

struct Surface {
    std::vector<Point> normals; // 0 where there is none
    std::vector<double> curvature, variation;
    std::size_t without = 0;
};

// `faced` is the eye, or the middle of the cloud that the normals point away from.
Surface surfaceOf(const std::vector<Point> &points, const Neighbourhoods &around, const PrincipalAxes &axes,
                  const Point &faced, bool away) {
    Surface surface{std::vector<Point>(points.size()), std::vector<double>(points.size()),
                    std::vector<double>(points.size())};
    for (std::size_t n = 0; n < points.size(); ++n) {
        const double *const w = &axes.values[n * 3], *const z = &axes.vectors[n * 9];
        // On a line, or all in one place, the points span no plane.
        if (!(w[1] > 1e-9 * w[0])) {
            ++surface.without;
            continue;
        }
        Point normal = {z[2], z[5], z[8]};
        const Point look = {faced[0] - points[n][0], faced[1] - points[n][1], faced[2] - points[n][2]};
        if ((dot(normal, look) < 0) != away)
            for (double &part : normal) part = -part;
        surface.normals[n] = normal;
        surface.variation[n] = std::max(w[2], 0.0) / (w[0] + w[1] + w[2]);
        // Neighbours at a distance d lie d^2 / 2 times the curvature below the plane that touches the surface.
        surface.curvature[n] = -2 * dot(around.pull[n], normal) / around.squares[n];
    }
    return surface;
}

class Pictures {
public:
    Pictures(const std::vector<Point> &inBall, const Options &options)
        : canvas(options.width, options.width * 3 / 4), camera(options.azimuth, options.elevation, options.zUp) {
        for (const Point &p : inBall)
            points.push_back({static_cast<float>(p[0]), static_cast<float>(p[1]), static_cast<float>(p[2])});
        screen.resize(points.size());
        project();
        camera.fit(
            screen.size(), [&](std::size_t n) { return screen[n]; }, 0, canvas.columns(), canvas.rows());
        project();
    }

    Point eye() const {
        const auto back = [&](std::size_t i) {
            return static_cast<double>(shared::Camera::distance * camera.turn[6 + i]);
        };
        return {back(0), back(1), back(2)};
    }

    // A disc for each point, as large as its neighbours are far; paint(n, normal in camera coordinates). Those that are
    // seen from behind lie on the far side.
    void draw(const Surface &surface, const std::vector<double> &reach, const auto &paint, const std::string &file,
              const std::string &caption) {
        canvas.clear();
        for (const bool painting : {false, true})
            for (std::size_t n = 0; n < points.size(); ++n) {
                const Vec normal = turned(surface.normals[n]), at = screen[n];
                if (dot(normal, camera.position(at.x, at.y, at.z)) >= 0) continue;
                const float radius = static_cast<float>(0.6 * reach[n]) * camera.lens * at.z;
                const Vec colour = paint(n, normal);
                canvas.disc(at, std::max(radius, 1.0F), camera, normal, painting ? &colour : nullptr);
            }
        canvas.write(file, camera, shared::Canvas::Light::even, caption);
    }

private:
    void project() {
        constexpr int element = sizeof(float);
        const auto matrix = camera.projection();
        smxAffineTransform3DH_mva_32f(matrix.data(), 4 * element, element, &points[0].x, sizeof(Vec), element,
                                      &screen[0].x, sizeof(Vec), element, static_cast<int>(points.size()));
    }
    Vec turned(const Point &p) const {
        float v[3];
        for (std::size_t i = 0; i < 3; ++i) {
            v[i] = 0;
            for (std::size_t j = 0; j < 3; ++j) v[i] += camera.turn[i * 3 + j] * static_cast<float>(p[j]);
        }
        return {v[0], v[1], v[2]};
    }

    shared::Canvas canvas;
    shared::Camera camera;
    std::vector<Vec> points, screen;
};

// Hollow blue, flat grey, bulging orange.
Vec curvatureColour(double part) {
    const Vec flat = {0.62F, 0.62F, 0.60F}, hollow = {0.02F, 0.12F, 0.62F}, bulge = {0.85F, 0.22F, 0.02F};
    const float amount = std::clamp(static_cast<float>(part), -1.0F, 1.0F);
    return amount < 0 ? mix(flat, hollow, -amount) : mix(flat, bulge, amount);
}

void writePly(const std::string &file, const std::vector<Point> &points, const Surface &surface, double unit) {
    shared::OutFile out(file);
    std::fprintf(out,
                 "ply\nformat ascii 1.0\nelement vertex %zu\nproperty double x\nproperty double y\nproperty double z\n"
                 "property float nx\nproperty float ny\nproperty float nz\nproperty float mean_curvature\n"
                 "property float surface_variation\nend_header\n",
                 points.size());
    for (std::size_t n = 0; n < points.size(); ++n) {
        for (const Point &three : {points[n], surface.normals[n]})
            std::fprintf(out, "%.9g %.9g %.9g ", three[0], three[1], three[2]);
        std::fprintf(out, "%.9g %.9g\n", surface.curvature[n] / unit, surface.variation[n]);
    }
    out.close();
}

constexpr Point sphereCentre = {10, -20, 30};
constexpr double sphereRadius = 4;

// A spiral from pole to pole, turning by the golden angle: evenly spread, and nowhere regular.
void makeSphere(const std::string &file) {
    constexpr int count = 10000;
    shared::OutFile out(file);
    for (int i = 0; i < count; ++i) {
        const double z = 1 - (2 * i + 1.0) / count, ring = std::sqrt(1 - z * z);
        const double angle = i * std::numbers::pi * (3 - std::sqrt(5.0));
        std::fprintf(out, "%.17g %.17g %.17g\n", sphereCentre[0] + sphereRadius * ring * std::cos(angle),
                     sphereCentre[1] + sphereRadius * ring * std::sin(angle), sphereCentre[2] + sphereRadius * z);
    }
    out.close();
}

// A neighbourhood of reach r lies within r^2 / 2R of the plane that touches the sphere. A plane through it tilts by less
// than half of this height over r. The curvature of every single neighbour is exact but for that tilt.
bool checkSphere(const std::vector<Point> &points, const Surface &surface, const std::vector<double> &reach) {
    double worstAngle = 0, worstCurvature = 0, furthest = 0;
    for (std::size_t n = 0; n < points.size(); ++n) {
        Point radial{};
        for (std::size_t axis = 0; axis < 3; ++axis)
            radial[axis] = (points[n][axis] - sphereCentre[axis]) / sphereRadius;
        const double cosine = std::abs(dot(radial, surface.normals[n]));
        worstAngle = std::max(worstAngle, std::acos(std::min(cosine, 1.0)));
        worstCurvature = std::max(worstCurvature, std::abs(std::abs(surface.curvature[n]) * sphereRadius - 1));
        furthest = std::max(furthest, reach[n] / sphereRadius);
    }
    const double angleBound = furthest / 4, curvatureBound = 0.05;
    std::printf(
        "sphere                  normals within %.4f radians (bound %.4f), curvature within %.2f%% (bound %.0f%%)\n",
        worstAngle, angleBound, 100 * worstCurvature, 100 * curvatureBound);
    return worstAngle <= angleBound && worstCurvature <= curvatureBound;
}

double quantile(std::vector<double> values, double part) {
    const auto at = values.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), at, values.end());
    return *at;
}

int run(const Options &options) {
    if (options.file.empty()) throw std::runtime_error("which file? See --help");
    const std::vector<Point> given = shared::readShape(options.file).points;
    if (given.size() <= static_cast<std::size_t>(options.neighbours))
        throw std::runtime_error(options.file + " has " + std::to_string(given.size()) + " points, too few for " +
                                 std::to_string(options.neighbours) + " neighbours");
    threads_omp_of_n_smk = options.threads;

    // In the unit ball, like the camera; a curvature is divided by the radius to go back.
    const shared::Ball ball = shared::ballRound(given);
    const double unit = ball.radius > 0 ? ball.radius : 1;
    std::vector<Point> points = given;
    for (Point &p : points)
        for (std::size_t axis = 0; axis < 3; ++axis) p[axis] = (p[axis] - ball.centre[axis]) / unit;

    Neighbourhoods around;
    PrincipalAxes axes;
    Pictures pictures(points, options);
    Surface surface;
    const double seconds = shared::secondsOf([&] {
        shared::ProgressBar bar(points.size(), "points");
        around = neighbourhoodsOf(points, options.neighbours, [&](std::size_t done) { bar.show(done); });
        axes = principalAxes(around.covariances);
        surface = surfaceOf(points, around, axes, options.outward ? Point{} : pictures.eye(), options.outward);
    });

    const auto rate = [&](double time) { return static_cast<double>(points.size()) / time / 1e6; };
    std::printf("points                  %zu, %d neighbours each\n", points.size(), options.neighbours);
    std::printf("without a normal        %zu\n", surface.without);
    std::printf("eigenproblems           %d array call%s, %zu matrices done again, worst residual %.1e of the trace\n",
                axes.calls, axes.calls == 1 ? "" : "s", axes.again, axes.worstResidual);
    std::printf("million points/s        %.2f in all, covariances %.2f, eigenproblems %.2f\n", rate(seconds),
                rate(around.inLibrary), rate(axes.inLibrary));
    bool good = surface.without == 0;
    if (options.checkSphere) {
        std::vector<double> reach = around.reach;
        for (double &r : reach) r *= unit;
        Surface inUnits = surface;
        for (double &c : inUnits.curvature) c /= unit;
        good = checkSphere(given, inUnits, reach) && good;
    }

    if (options.ply != "none") writePly(options.ply, given, surface, unit);
    const std::string name = std::filesystem::path(options.file).stem().string();
    if (options.normals != "none") {
        const auto paint = [](std::size_t, Vec normal) { return 0.5F * (normal + Vec{1, 1, 1}); };
        pictures.draw(surface, around.reach, paint, options.normals, name + ": normals");
        std::printf("picture by normal       %s\n", options.normals.c_str());
    }
    if (options.curvature != "none") {
        std::vector<double> sizes = surface.curvature;
        for (double &size : sizes) size = std::abs(size);
        const double full = std::max(quantile(sizes, 0.97), 1e-12);
        char caption[200];
        std::snprintf(caption, sizeof caption, ": mean curvature, blue hollow, orange bulging, full colour at %.3g",
                      full / unit);
        const auto paint = [&](std::size_t n, Vec) { return curvatureColour(surface.curvature[n] / full); };
        pictures.draw(surface, around.reach, paint, options.curvature, name + caption);
        std::printf("picture by curvature    %s\n", options.curvature.c_str());
    }
    return good ? 0 : 1;
}

} // namespace
} // namespace normals

int main(int count, char **arguments) {
    using namespace shared;
    normals::Options o;
    return execute(
        {"point_normals",
         "Finds the normal and the curvature of the surface that a point cloud was taken from, at every point.",
         {{"[FILE]", "FILE.xyz, an ASCII FILE.ply or FILE.obj; faces are not looked at", text(o.file)},
          {"--neighbours N", "nearest points that each point is judged by (default: 24)",
           number(o.neighbours, 3, 1000)},
          {"--normals FILE", "picture by normal, .png or .svg (default: normals.png; none: no picture)",
           file(o.normals, pictures)},
          {"--curvature FILE", "picture by mean curvature, likewise (default: curvature.png)",
           file(o.curvature, pictures)},
          {"--ply FILE", "writes points, normals, mean curvature and surface variation (default: none)",
           file(o.ply, {".ply"})},
          {"--outward",
           "turns the normals away from the middle of the cloud, not towards the eye: right where\n"
           "the middle would see every point",
           flag(o.outward)},
          {"--azimuth DEGREES", "where the eye stands round the cloud (default: 20)", number(o.azimuth, -360, 360)},
          {"--elevation DEGREES", "and how high (default: 25)", number(o.elevation, -90, 90)},
          {"--z-up", "the cloud's z axis is up, not its y axis", flag(o.zUp)},
          {"--width PIXELS", "of the pictures, which are three quarters as high (default: 1280)",
           number(o.width, 16, 8192)},
          {"--threads N", "threads for the array calls (default: 1)", number(o.threads, 1, 1024)},
          {"--make-sphere FILE", "writes an XYZ file of 10000 points on a sphere, and does nothing else",
           text(o.makeSphere)},
          {"--check-sphere", "compares with that sphere's normals and curvature", flag(o.checkSphere)}},
         "Mean curvature is the mean of 1 / radius over all directions, above 0 where the surface bulges towards its\n"
         "normal. Surface variation is the least of the three variances of a neighbourhood over their sum: 0 where it\n"
         "is flat. Exits with 1 if a point has no normal (its neighbours lie on a line) or --check-sphere fails, with\n"
         "2 on bad input.\n"},
        count, arguments, [&] {
            if (o.makeSphere.empty()) return normals::run(o);
            normals::makeSphere(o.makeSphere);
            return 0;
        });
}
