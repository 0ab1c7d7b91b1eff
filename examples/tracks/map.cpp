#include "map.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "picture.hpp"

namespace tracks {
namespace {

using shared::Colour;
constexpr Colour ink = {0.15, 0.18, 0.22}, faint = {0.55, 0.59, 0.64}, line = {0.80, 0.83, 0.86};
constexpr Colour orange = {0.85, 0.37, 0.01}, blue = {0.05, 0.38, 0.67}, paper = {0.99, 0.99, 0.98};

// A part of the picture with a scale of its own.
struct Panel {
    double left, top, width, height;   // pixels
    double x0, y0, perUnitX, perUnitY; // what lies at its lower left corner, and pixels per unit
    double px(double x) const { return left + (x - x0) * perUnitX; }
    double py(double y) const { return top + height - (y - y0) * perUnitY; }
};

// A map of `metres` across with the given centre.
Panel mapPanel(double left, double top, double width, double height, double metres, double x, double y) {
    const double scale = width / metres;
    return {left, top, width, height, x - metres / 2, y - height / scale / 2, scale, scale};
}

class Drawing : public shared::Picture {
public:
    using Picture::clip;
    using Picture::Picture;
    using Picture::rectangle;

    void rectangle(const Panel &p) { rectangle(p.left, p.top, p.width, p.height); }
    void clip(const Panel &p) { clip(p.left, p.top, p.width, p.height); }

    void path(const Panel &p, const Point *points, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) lineTo(p.px(points[i][0]), p.py(points[i][1]));
    }

    // Where the position lies with the given number of standard deviations: L of the covariance L Lt takes the unit
    // circle there.
    void ellipse(const Panel &p, const Point &centre, const Spread &spread, double deviations) {
        const double a = std::sqrt(spread[0]), b = spread[1] / a, c = std::sqrt(std::max(spread[2] - b * b, 0.0));
        for (int i = 0; i < 48; ++i) {
            const double angle = 2 * std::numbers::pi * i / 48;
            const double x = deviations * std::cos(angle), y = deviations * std::sin(angle);
            lineTo(p.px(centre[0] + a * x), p.py(centre[1] + b * x + c * y));
        }
        closePath();
    }
};

std::string kilometres(double metres) {
    char text[32];
    std::snprintf(text, sizeof text, "%g km", metres / 1000);
    return text;
}

// 1, 2 or 5 times a power of ten, at most the given length.
double roundLength(double most) {
    const double decade = std::pow(10, std::floor(std::log10(most)));
    for (const double step : {5.0, 2.0})
        if (step * decade <= most) return step * decade;
    return decade;
}

void drawMap(Drawing &drawing, const Panel &p, const History &history) {
    drawing.clip(p);
    const double ring = roundLength(p.width / p.perUnitX / 8);
    for (int i = 1; i < 12; ++i) {
        drawing.circle(p.px(0), p.py(0), i * ring * p.perUnitX);
        drawing.colour(line);
        drawing.stroke(1);
    }
    drawing.colour(orange, 0.35);
    for (const Point &seen : history.seen) drawing.rectangle(p.px(seen[0]) - 0.75, p.py(seen[1]) - 0.75, 1.5, 1.5);
    drawing.fill();
    for (std::size_t t = 0; t < history.trajectories; ++t) {
        const Point *const found = &history.found[t * history.scans];
        drawing.path(p, found, history.scans);
        drawing.colour(blue);
        drawing.stroke(1.2);
        drawing.circle(p.px(found[history.scans - 1][0]), p.py(found[history.scans - 1][1]), 2.8);
        drawing.fill();
    }
    drawing.colour(ink);
    drawing.circle(p.px(0), p.py(0), 5);
    drawing.fill();
    drawing.text(p.px(0) + 10, p.py(0) + 5, 15, "radar");
    for (int i = 1; i < 12; ++i) {
        const double y = p.py(-i * ring);
        drawing.rectangle(p.px(0) - 28, y - 16, 56, 15); // what is under the words would make them hard to read
        drawing.colour(paper, 0.85);
        drawing.fill();
        drawing.colour(faint);
        drawing.text(p.px(0), y - 4, 13, kilometres(i * ring), 0.5);
    }
    drawing.restore();
}

// The beginning of one track, where the ellipses shrink as its velocity becomes known.
void drawTrack(Drawing &drawing, const Panel &p, const History &history, std::size_t track) {
    const std::size_t first = track * history.scans;
    drawing.clip(p);
    for (std::size_t i = first; i < first + history.scans; ++i) {
        drawing.ellipse(p, history.seen[i], history.seenSpread[i], 2);
        drawing.colour(orange, 0.5);
        drawing.stroke(1);
    }
    if (!history.truth.empty()) {
        drawing.path(p, &history.truth[first], history.scans);
        drawing.colour(ink);
        drawing.stroke(1.6);
    }
    for (std::size_t i = first; i < first + history.scans; ++i) {
        drawing.ellipse(p, history.found[i], history.foundSpread[i], 2);
        drawing.colour(blue, 0.2);
        drawing.fill();
    }
    drawing.path(p, &history.found[first], history.scans);
    drawing.colour(blue);
    drawing.stroke(2.2);
    for (std::size_t i = first; i < first + history.scans; ++i) {
        drawing.circle(p.px(history.found[i][0]), p.py(history.found[i][1]), 3);
        drawing.colour(blue);
        drawing.fill();
        drawing.circle(p.px(history.seen[i][0]), p.py(history.seen[i][1]), 4);
        drawing.colour(orange);
        drawing.fill();
    }
    const double bar = roundLength(p.width / p.perUnitX / 4);
    drawing.colour(ink);
    drawing.rectangle(p.left + p.width - 20 - bar * p.perUnitX, p.top + p.height - 22, bar * p.perUnitX, 3);
    drawing.fill();
    drawing.text(p.left + p.width - 20 - bar * p.perUnitX / 2, p.top + p.height - 30, 14, kilometres(bar), 0.5);
    drawing.restore();
}

// The normalised innovations squared follow chi-squared with 3 degrees of freedom if the covariances are right.
void drawConsistency(Drawing &drawing, const Panel &p, const History &history) {
    drawing.colour(blue, 0.35);
    for (std::size_t i = 0; i < nisBins; ++i) {
        const double left = p.px(static_cast<double>(i) * nisBin), top = p.py(history.nis[i] / nisBin);
        drawing.rectangle(left + 1, top, nisBin * p.perUnitX - 2, p.top + p.height - top);
    }
    drawing.fill();
    for (double x = 0; x <= nisBin * nisBins; x += nisBin / 8)
        drawing.lineTo(p.px(x), p.py(std::sqrt(x / (2 * std::numbers::pi)) * std::exp(-x / 2)));
    drawing.colour(ink);
    drawing.stroke(2);
    drawing.moveTo(p.left, p.top + p.height);
    drawing.lineTo(p.left + p.width, p.top + p.height);
    drawing.stroke(1);
    for (int x = 0; x <= 12; x += 3) drawing.text(p.px(x), p.top + p.height + 20, 14, std::to_string(x), 0.5);
}

} // namespace

void drawPicture(const std::string &file, const History &history, const std::string &caption) {
    Drawing drawing(file, 1600, 1040);
    drawing.paper(paper);
    drawing.roundJoins();
    drawing.colour(ink);
    drawing.text(40, 52, 30, "Thousands of Kalman filters, one call for all", 0, true);
    drawing.text(40, 82, 17, caption);

    // The map holds all measurements; the enlarged track is the one that begins farthest away, where the radar's angles
    // matter most.
    double reach = 1;
    for (const Point &at : history.seen) reach = std::max({reach, std::abs(at[0]), std::abs(at[1])});
    std::size_t track = 0;
    const auto away = [&](std::size_t t) {
        return std::hypot(history.seen[t * history.scans][0], history.seen[t * history.scans][1]);
    };
    for (std::size_t t = 1; t < history.trajectories; ++t)
        if (away(t) > away(track)) track = t;
    const Point *const found = &history.found[track * history.scans];
    const std::size_t shown = std::min<std::size_t>(history.scans, 12);
    double low[2] = {found[0][0], found[0][1]}, high[2] = {low[0], low[1]};
    for (std::size_t i = 0; i < shown; ++i)
        for (std::size_t axis = 0; axis < 2; ++axis) {
            low[axis] = std::min(low[axis], found[i][axis]);
            high[axis] = std::max(high[axis], found[i][axis]);
        }
    const double across = 1.35 * std::max({high[0] - low[0], (high[1] - low[1]) * 620 / 480, 1.0});

    const Panel map = mapPanel(40, 110, 880, 880, 2.06 * reach, 0, 0);
    const Panel detail = mapPanel(950, 140, 610, 480, across, (low[0] + high[0]) / 2, (low[1] + high[1]) / 2);
    const double most = *std::max_element(history.nis.begin(), history.nis.end()) / nisBin;
    const Panel bars = {950, 700, 610, 260, 0, 0, 610 / (nisBin * nisBins), 260 / std::max(0.26, 1.05 * most)};

    drawMap(drawing, map, history);
    drawTrack(drawing, detail, history, track);
    drawConsistency(drawing, bars, history);

    drawing.rectangle(detail);
    drawing.rectangle(map);
    drawing.colour(faint);
    drawing.stroke(1);
    const double corner = detail.height / detail.perUnitY;
    drawing.rectangle(map.px(detail.x0), map.py(detail.y0 + corner), across * map.perUnitX, corner * map.perUnitY);
    drawing.colour(orange);
    drawing.stroke(2);

    drawing.colour(ink);
    drawing.text(950, 128, 17, "The track in the frame: 2-sigma ellipses of each scan", 0, true);
    drawing.text(950, 682, 17, "Normalised innovations squared of all tracks", 0, true);
    drawing.text(1560, 720, 15, "line: chi-squared with 3 degrees of freedom", 1);
    double x = 950;
    const auto key = [&](Colour colour, const char *words, double width) {
        drawing.colour(colour);
        drawing.circle(x + 6, 638, 5);
        drawing.fill();
        drawing.colour(ink);
        drawing.text(x + 18, 643, 15, words);
        x += width;
    };
    key(orange, "measured", 120);
    key(blue, "estimated", 120);
    if (!history.truth.empty()) key(ink, "true path", 120);
    drawing.write();
}

} // namespace tracks
