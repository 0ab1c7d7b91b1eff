#include "scene.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "grid.hpp"
#include "picture.hpp"
#include "puma.hpp"

namespace robot {
namespace {

using Vec = shared::Vec3<double>;
using Colour = Vec; // red, green, blue from 0 to 1

// Along the path: a ramp of even lightness steps (the stops of matplotlib's "plasma", rounded).
Colour ramp(double part) {
    constexpr Colour stops[] = {{0.05, 0.03, 0.53}, {0.42, 0.00, 0.66}, {0.70, 0.16, 0.56},
                                {0.88, 0.39, 0.38}, {0.99, 0.65, 0.21}, {0.94, 0.98, 0.13}};
    const double at = std::clamp(part, 0.0, 1.0) * 4.6;
    const auto first = static_cast<std::size_t>(at);
    return mix(stops[first], stops[first + 1], at - static_cast<double>(first));
}

constexpr int width = 1600, height = 1150; // of the picture, pixels
constexpr int samples = 3;                 // in each direction, a pixel
constexpr Colour backgroundTop = {0.93, 0.95, 0.97}, backgroundBottom = {0.99, 0.99, 0.98};
constexpr double infinite = std::numeric_limits<double>::infinity();

// A depth buffer of several samples a pixel, and the camera that looks at it.
class Canvas {
public:
    Canvas() : colour(grid.size()), depth(grid.size(), infinite) {
        for (std::size_t row = 0; row < grid.rows; ++row)
            std::fill_n(&colour[grid.at(0, row)], grid.columns,
                        mix(backgroundTop, backgroundBottom, static_cast<double>(row) / rows));
    }

    // Corners with their colours, lit already.
    void triangle(const std::array<Vec, 3> &corner, const std::array<Colour, 3> &shade) {
        std::array<Vec, 3> p;
        for (std::size_t i = 0; i < 3; ++i) p[i] = project(corner[i]);
        grid.triangle(p, [&](std::size_t n, double a, double b, double c, double) {
            const double z = a * p[0].z + b * p[1].z + c * p[2].z;
            if (z >= depth[n]) return;
            depth[n] = z;
            colour[n] = a * shade[0] + b * shade[1] + c * shade[2];
        });
    }

    // What another canvas has drawn in front of this one, seen through.
    void blend(const Canvas &front, double opacity) {
        for (std::size_t n = 0; n < colour.size(); ++n)
            if (front.depth[n] < depth[n]) colour[n] = mix(colour[n], front.colour[n], opacity);
    }

    // Pixel coordinates, and a depth that is linear on the screen.
    Vec project(Vec p) const {
        const Vec d = p - eye;
        const double far = dot(d, ahead);
        return {columns / 2.0 + lens * dot(d, side) / far, rows * 0.5 - lens * dot(d, up) / far, -1 / far};
    }
    Vec onPicture(Vec p) const { return (1.0 / samples) * project(p); }
    static Vec towardsEye(Vec p) { return unit(eye - p); }

    // The pixel as 0xRRGGBB.
    unsigned pixel(int column, int row) const {
        Colour sum;
        for (int i = 0; i < samples * samples; ++i)
            sum = sum + colour[grid.at(static_cast<std::size_t>(column * samples + i % samples),
                                       static_cast<std::size_t>(row * samples + i / samples))];
        const auto byte = [](double v) {
            return static_cast<unsigned>(std::lround(std::clamp(v / (samples * samples), 0.0, 1.0) * 255));
        };
        return byte(sum.x) << 16 | byte(sum.y) << 8 | byte(sum.z);
    }

private:
    static constexpr int columns = width * samples, rows = height * samples;
    static constexpr shared::Grid grid = {columns, rows};

    static constexpr double lens = 1.8 * height * samples;
    static inline const Vec eye = {2.05, -1.2, 1.85};
    static inline const Vec ahead = unit(Vec{0.18, -0.03, 0.53} - eye);
    static inline const Vec side = unit(cross(ahead, {0, 0, 1}));
    static inline const Vec up = cross(side, ahead);

    std::vector<Colour> colour;
    std::vector<double> depth;
};

const Vec light = unit(Vec{0.35, -0.55, 1.0}); // towards the lamp

Colour lit(Colour paint, Vec normal, Vec at) {
    const Vec eye = Canvas::towardsEye(at);
    if (dot(normal, eye) < 0) normal = -1 * normal;
    const double diffuse = std::max(dot(normal, light), 0.0);
    const double sky = 0.5 + 0.5 * normal.z;
    const double glint = std::pow(std::max(dot(normal, unit(light + eye)), 0.0), 40);
    return (0.30 + 0.22 * sky + 0.52 * diffuse) * paint + 0.22 * glint * Colour{1, 1, 1};
}

// Draws solids on a canvas, or their shadows.
class Brush {
public:
    Brush(Canvas &target, bool asShadow = false) : canvas(target), shadow(asShadow) {}

    void triangle(const std::array<Vec, 3> &corner, const std::array<Vec, 3> &normal, Colour paint) {
        std::array<Vec, 3> p = corner;
        std::array<Colour, 3> shade;
        for (std::size_t i = 0; i < 3; ++i) {
            if (shadow) p[i] = p[i] - (p[i].z - 0.002) / light.z * light;
            shade[i] = shadow ? Colour{0.20, 0.23, 0.30} : lit(paint, normal[i], p[i]);
        }
        canvas.triangle(p, shade);
    }

    void quad(const std::array<Vec, 4> &corner, const std::array<Vec, 4> &normal, Colour paint) {
        triangle({corner[0], corner[1], corner[2]}, {normal[0], normal[1], normal[2]}, paint);
        triangle({corner[0], corner[2], corner[3]}, {normal[0], normal[2], normal[3]}, paint);
    }

    // A surface of revolution about the line from a to b: (distance along it, radius) for each ring.
    void turned(Vec a, Vec b, const std::vector<std::array<double, 2>> &profile, Colour paint) {
        constexpr int sectors = 48;
        const Vec axis = unit(b - a);
        const Vec u = unit(cross(axis, std::abs(axis.z) < 0.9 ? Vec{0, 0, 1} : Vec{1, 0, 0})), v = cross(axis, u);
        for (std::size_t ring = 0; ring + 1 < profile.size(); ++ring) {
            const auto [low, lowRadius] = profile[ring];
            const auto [high, highRadius] = profile[ring + 1];
            for (int i = 0; i < sectors; ++i) {
                std::array<Vec, 2> out, normal;
                for (int side = 0; side < 2; ++side) {
                    const double turn = 2 * std::numbers::pi * (i + side) / sectors;
                    const auto s = static_cast<std::size_t>(side);
                    out[s] = std::cos(turn) * u + std::sin(turn) * v;
                    normal[s] = unit((high - low) * out[s] - (highRadius - lowRadius) * axis);
                }
                quad({a + low * axis + lowRadius * out[0], a + low * axis + lowRadius * out[1],
                      a + high * axis + highRadius * out[1], a + high * axis + highRadius * out[0]},
                     {normal[0], normal[1], normal[1], normal[0]}, paint);
            }
        }
    }

    // A cylinder from a to b with bevelled ends.
    void cylinder(Vec a, Vec b, double radius, Colour paint) { taper(a, b, radius, radius, paint); }
    void taper(Vec a, Vec b, double from, double to, Colour paint) {
        const double length = std::sqrt(dot(b - a, b - a)), bevel = std::min(0.008, length / 4);
        turned(a, b,
               {{0, 0}, {0, from - bevel}, {bevel, from}, {length - bevel, to}, {length, to - bevel}, {length, 0}},
               paint);
    }
    void ball(Vec centre, double radius, Colour paint) {
        std::vector<std::array<double, 2>> profile;
        for (int i = 0; i <= 16; ++i) {
            const double t = std::numbers::pi * i / 16;
            profile.push_back({radius - radius * std::cos(t), radius * std::sin(t)});
        }
        turned(centre - Vec{0, 0, radius}, centre + Vec{0, 0, radius}, profile, paint);
    }

private:
    Canvas &canvas;
    bool shadow;
};

struct Frame {
    Vec origin, x, y, z;
};

// The frames of the arm: that of the room below joint 1, then those of the six links.
std::array<Frame, 7> framesOf(const Angles &angles) {
    std::array<double, 16> m = translation<double>(0, 0, shoulderHeight);
    std::array<Frame, 7> frames;
    for (std::size_t j = 0; j < 7; ++j) {
        frames[j] = {{m[3], m[7], m[11]}, {m[0], m[4], m[8]}, {m[1], m[5], m[9]}, {m[2], m[6], m[10]}};
        if (j == 6) break;
        double a[16];
        linkTransform(puma560[j], angles[j], a);
        std::array<double, 16> product{};
        for (std::size_t i = 0; i < 16; ++i)
            for (std::size_t p = 0; p < 4; ++p) product[i] += m[i / 4 * 4 + p] * a[p * 4 + i % 4];
        m = product;
    }
    return frames;
}

constexpr Colour white = {0.93, 0.93, 0.91}, grey = {0.38, 0.41, 0.46}, steel = {0.66, 0.69, 0.73};

void drawPedestal(Brush &brush) {
    brush.cylinder({0, 0, 0}, {0, 0, 0.03}, 0.17, grey);
    brush.cylinder({0, 0, 0.03}, {0, 0, 0.36}, 0.085, white);
    brush.cylinder({0, 0, 0.36}, {0, 0, 0.40}, 0.10, grey);
}

// The upper arm and the forearm run in the plane that lies link 3's offset beside the waist.
void drawArm(Brush &brush, const Angles &angles, Colour tip, double tint) {
    const auto tinted = [&](Colour paint) { return mix(paint, tip, tint); };
    const auto f = framesOf(angles);
    const Vec shoulder = f[1].origin, axis = f[1].z, aside = puma560[2].d * axis;
    const Vec elbow = f[2].origin + aside, wrist = f[4].origin, pen = f[6].z;
    brush.cylinder(shoulder - Vec{0, 0, 0.27}, shoulder + Vec{0, 0, 0.085}, 0.078, tinted(white));
    brush.cylinder(shoulder - 0.11 * axis, shoulder + (puma560[2].d - 0.055) * axis, 0.074, tinted(white));
    // Upper arm with its joints.
    brush.cylinder(shoulder + aside - 0.055 * axis, shoulder + aside + 0.055 * axis, 0.088, tinted(grey));
    brush.taper(shoulder + aside, elbow, 0.066, 0.052, tinted(white));
    brush.cylinder(elbow - 0.058 * axis, elbow + 0.058 * axis, 0.068, tinted(grey));
    // Forearm, wrist and pen.
    const Vec out = unit(wrist - f[3].origin);
    brush.taper(f[3].origin, wrist - 0.075 * out, 0.054, 0.036, tinted(white));
    brush.taper(wrist - 0.075 * out, wrist - 0.02 * out, 0.038, 0.032, tinted(grey));
    brush.cylinder(wrist - 0.042 * f[4].z, wrist + 0.042 * f[4].z, 0.034, tinted(steel));
    brush.ball(wrist, 0.038, tinted(steel));
    brush.cylinder(wrist, wrist + 0.056 * pen, 0.026, tinted(grey));
    brush.cylinder(wrist + 0.056 * pen, wrist + 0.118 * pen, 0.011, tip);
    brush.turned(wrist + 0.118 * pen, wrist + penLength * pen, {{0, 0.011}, {penLength - 0.118, 0.0005}}, tip);
}

// The board under the path: a height over the plane of the mean normal, carried on from every pose along its own plane
// and weighted by nearness.
class Board {
public:
    explicit Board(const std::vector<Pose> &path) {
        for (const Pose &pose : path) {
            middle = middle + Vec{pose[3], pose[7], pose[11]};
            normal = normal - Vec{pose[2], pose[6], pose[10]};
        }
        middle = 1.0 / static_cast<double>(path.size()) * middle;
        normal = unit(normal);
        u = unit(cross(std::abs(normal.x) < 0.9 ? Vec{0, 1, 0} : Vec{0, 0, 1}, normal));
        v = cross(normal, u);
        const std::size_t skip = std::max<std::size_t>(1, path.size() / 2500);
        for (std::size_t n = 0; n < path.size(); n += skip) {
            const Pose &pose = path[n];
            const Vec p = Vec{pose[3], pose[7], pose[11]} - middle, up = {-pose[2], -pose[6], -pose[10]};
            const double steep = std::max(dot(up, normal), 0.2);
            known.push_back({dot(p, u), dot(p, v), dot(p, normal), -dot(up, u) / steep, -dot(up, v) / steep});
            reach = std::max({reach, std::abs(known.back().u), std::abs(known.back().v)});
        }
    }

    void draw(Brush &brush) const {
        constexpr int cells = 72;
        constexpr Colour paper = {0.97, 0.96, 0.92}, rim = {0.55, 0.42, 0.30};
        const double half = reach + 0.045, thick = 0.022;
        const Vec foot = {middle.x, middle.y, 0}, head = at(0, 0) - 2 * thick * normal;
        brush.cylinder(foot, foot + Vec{0, 0, 0.02}, 0.13, grey);
        if (head.z > 0.05) brush.cylinder(foot, head, 0.035, steel);
        std::vector<Vec> grid;
        for (int i = 0; i <= cells; ++i)
            for (int j = 0; j <= cells; ++j)
                grid.push_back(at(half * (2.0 * i / cells - 1), half * (2.0 * j / cells - 1)));
        const auto point = [&](int i, int j) { return grid[static_cast<std::size_t>(i * (cells + 1) + j)]; };
        const auto slope = [&](int i, int j) {
            return unit(cross(point(std::min(i + 1, cells), j) - point(std::max(i - 1, 0), j),
                              point(i, std::min(j + 1, cells)) - point(i, std::max(j - 1, 0))));
        };
        for (int i = 0; i < cells; ++i) {
            for (int j = 0; j < cells; ++j)
                brush.quad({point(i, j), point(i + 1, j), point(i + 1, j + 1), point(i, j + 1)},
                           {slope(i, j), slope(i + 1, j), slope(i + 1, j + 1), slope(i, j + 1)}, paper);
            for (int end : {0, cells}) {
                edge(brush, point(i, end), point(i + 1, end), thick, rim);
                edge(brush, point(end, i), point(end, i + 1), thick, rim);
            }
        }
    }

private:
    struct Known {
        double u, v, height, slopeU, slopeV;
    };

    Vec at(double pu, double pv) const {
        double sum = 0, weights = 0;
        for (const Known &k : known) {
            const double du = pu - k.u, dv = pv - k.v, d2 = du * du + dv * dv + 1e-6;
            const double weight = 1 / (d2 * d2 * d2);
            sum += weight * (k.height + (k.slopeU * du + k.slopeV * dv) / (1 + d2 * 400));
            weights += weight;
        }
        return middle + pu * u + pv * v + sum / weights * normal;
    }

    void edge(Brush &brush, Vec a, Vec b, double thick, Colour rim) const {
        const Vec n = unit(cross(b - a, normal));
        brush.quad({a, b, b - thick * normal, a - thick * normal}, {n, n, n, n}, rim);
    }

    Vec middle, normal, u, v;
    double reach = 0;
    std::vector<Known> known;
};

// A ribbon a little above the board.
void drawPath(Canvas &canvas, const std::vector<Pose> &path) {
    constexpr double above = 0.0012, half = 0.0011;
    for (std::size_t n = 0; n + 1 < path.size(); ++n) {
        const Pose &pose = path[n], &next = path[n + 1];
        const Vec up = {-pose[2], -pose[6], -pose[10]};
        const Vec a = Vec{pose[3], pose[7], pose[11]} + above * up, b = Vec{next[3], next[7], next[11]} + above * up;
        const Vec across = half * unit(cross(up, b - a)), longer = 0.3 * half * unit(b - a);
        const Colour c = ramp(static_cast<double>(n) / static_cast<double>(path.size()));
        canvas.triangle({a - across - longer, a + across - longer, b + across + longer}, {c, c, c});
        canvas.triangle({a - across - longer, b + across + longer, b - across + longer}, {c, c, c});
    }
}

void drawFloor(Canvas &canvas) {
    constexpr double cell = 0.1;
    constexpr int reach = 16;
    Brush brush(canvas);
    for (int i = -reach; i < reach; ++i)
        for (int j = -reach; j < reach; ++j) {
            const double x = 0.3 + i * cell, y = j * cell;
            const double far = std::hypot(i + 0.5, j + 0.5) / reach;
            if (far > 1) continue;
            const Colour tile = (i + j) % 2 == 0 ? Colour{0.93, 0.94, 0.95} : Colour{0.89, 0.90, 0.92};
            const Colour faded = mix(tile, mix(backgroundTop, backgroundBottom, 0.6), far * far * far);
            canvas.triangle({Vec{x, y, 0}, {x + cell, y, 0}, {x + cell, y + cell, 0}}, {faded, faded, faded});
            canvas.triangle({Vec{x, y, 0}, {x + cell, y + cell, 0}, {x, y + cell, 0}}, {faded, faded, faded});
        }
}

} // namespace

void drawPicture(const std::string &file, const std::vector<Pose> &path, const std::vector<Angles> &angles,
                 const std::string &caption) {
    // Which poses show the arm, as parts of the path; the first is solid (the legend says which), the others seen
    // through.
    constexpr double shown[] = {0.54, 0.02, 0.30, 0.80};
    const auto indexOf = [&](double part) {
        return static_cast<std::size_t>(part * static_cast<double>(path.size() - 1));
    };
    const Board board(path);

    Canvas scene;
    drawFloor(scene);
    Canvas shadows;
    Brush caster(shadows, true);
    board.draw(caster);
    drawPedestal(caster);
    drawArm(caster, angles[indexOf(shown[0])], white, 0);
    scene.blend(shadows, 0.28); // what casts them, flattened on to the floor

    Brush brush(scene);
    board.draw(brush);
    drawPath(scene, path);
    drawPedestal(brush);
    drawArm(brush, angles[indexOf(shown[0])], ramp(shown[0]), 0);
    for (std::size_t i = std::size(shown) - 1; i > 0; --i) {
        Canvas ghost;
        Brush ghostBrush(ghost);
        drawArm(ghostBrush, angles[indexOf(shown[i])], ramp(shown[i]), 0.5);
        scene.blend(ghost, 0.25);
    }

    shared::Picture picture(file, width, height);
    picture.pixels([&](int column, int row) { return scene.pixel(column, row); });
    constexpr shared::Colour ink = {0.15, 0.17, 0.2};
    picture.colour(ink);
    picture.text(48, 70, 34, "PUMA 560 follows a drawn path", 0, true);
    picture.colour({0.35, 0.38, 0.43});
    picture.text(48, 106, 19, caption);

    // Marks at the pen of each pose, and the legend of the path's colour.
    const auto colour = [&](double part) {
        const Colour c = ramp(part);
        picture.colour({c.x, c.y, c.z});
    };
    constexpr double barX = 48, barY = height - 92, barWidth = 460, barHeight = 18;
    for (int i = 0; i < static_cast<int>(barWidth); ++i) {
        colour(i / barWidth);
        picture.rectangle(barX + i, barY, 1.5, barHeight);
        picture.fill();
    }
    picture.colour(ink);
    picture.text(barX, barY - 36, 17, "along the path, and where the arm is shown (solid: 3)", 0, true);
    picture.text(barX, barY + 44, 15, "first pose");
    picture.text(barX + barWidth - 66, barY + 44, 15, "last pose");
    const auto mark = [&](double x, double y, double part, const std::string &number) {
        picture.colour({1, 1, 1});
        picture.circle(x, y, 13);
        picture.fillAndKeep();
        colour(part);
        picture.stroke(3);
        picture.colour(ink);
        picture.textAround(x, y, 15, number);
    };
    std::vector<double> ordered(std::begin(shown), std::end(shown));
    std::ranges::sort(ordered);
    for (std::size_t i = 0; i < ordered.size(); ++i) {
        const double part = ordered[i];
        const Pose &pose = path[indexOf(part)];
        const Vec at = scene.onPicture({pose[3], pose[7], pose[11]});
        mark(at.x + 24, at.y + 20, part, std::to_string(i + 1));
        mark(barX + part * barWidth, barY + barHeight / 2, part, std::to_string(i + 1));
    }
    picture.write();
}

} // namespace robot
