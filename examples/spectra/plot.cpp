#include "plot.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "picture.hpp"

namespace spectra {
namespace {

constexpr int panelWidth = 520, panelHeight = 460, headHeight = 84, across = 3;
constexpr double planeHeight = 250, gap = 44, stripHeight = 104;
constexpr double left = 62, top = 44, wide = panelWidth - left - 18;

using shared::Colour;
constexpr Colour ink = {0.13, 0.15, 0.20}, faint = {0.87, 0.88, 0.90}, known = {0.10, 0.38, 0.72},
                 computed = {0.90, 0.35, 0.08}, limit = {0.55, 0.57, 0.62};

class Pen : public shared::Picture {
public:
    using Picture::Picture;

    void line(double x0, double y0, double x1, double y1, Colour c, double thick = 1) {
        colour(c);
        moveTo(x0, y0);
        lineTo(x1, y1);
        stroke(thick);
    }
    void dot(double x, double y) {
        colour(computed, 0.9);
        circle(x, y, 2.6);
        fill();
    }
    void ring(double x, double y) {
        colour(known);
        circle(x, y, 6);
        stroke(1.6);
    }
    void label(double x, double y, double size, double align, const std::string &words) {
        colour(ink);
        text(x, y, size, words, align);
    }
};

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", std::abs(value) < 1e-12 ? 0.0 : value);
    return text;
}

// An interval of numbers on a stretch of the picture.
struct Axis {
    double low, high, from, to;
    bool logarithmic = false;

    double at(double value) const {
        const auto bent = [&](double v) { return logarithmic ? std::log10(v) : v; };
        return from + (to - from) * (bent(value) - bent(low)) / (bent(high) - bent(low));
    }
    // About five round numbers; powers of ten where the axis is logarithmic.
    std::vector<double> ticks() const {
        std::vector<double> found;
        if (logarithmic) {
            for (double e = std::ceil(std::log10(low)); e <= std::log10(high); ++e) found.push_back(std::pow(10, e));
            return found;
        }
        const double rough = (high - low) / 5, power = std::pow(10, std::floor(std::log10(rough)));
        const double step = power * (rough < 2 * power ? 2 : rough < 5 * power ? 5 : 10);
        for (double t = std::ceil(low / step) * step; t <= high; t += step) found.push_back(t);
        return found;
    }
};

void drawPanel(Pen &pen, const Panel &panel) {
    Axis re{std::numeric_limits<double>::max(), -std::numeric_limits<double>::max(), left, left + wide,
            panel.logarithmic};
    double tall = 0;
    for (const Mark &mark : panel.marks) {
        re.low = std::min(re.low, mark.known.real());
        re.high = std::max(re.high, mark.known.real());
        tall = std::max(tall, std::abs(mark.known.imag()));
    }
    if (re.logarithmic) {
        re.low /= 1.5;
        re.high *= 1.5;
    } else {
        const double margin = 0.07 * (re.high - re.low);
        re.low -= margin;
        re.high += margin;
    }
    if (tall == 0) tall = 1;
    const Axis im{-1.15 * tall, 1.15 * tall, top + planeHeight, top};
    const double stripTop = top + planeHeight + gap, stripEnd = stripTop + stripHeight;
    const Axis off{1e-18, 1, stripEnd, stripTop, true};

    pen.label(left, top - 14, 17, 0, panel.title);
    for (const double t : re.ticks()) {
        pen.line(re.at(t), top, re.at(t), top + planeHeight, faint);
        pen.line(re.at(t), stripTop, re.at(t), stripEnd, faint);
        pen.label(re.at(t), top + planeHeight + 17, 12, 0.5, number(t));
    }
    for (const double t : im.ticks()) {
        pen.line(left, im.at(t), left + wide, im.at(t), t == 0 ? limit : faint);
        pen.label(left - 8, im.at(t) + 4, 12, 1, number(t) + (std::abs(t) < 1e-12 ? "" : "i"));
    }
    for (int e = -18; e <= 0; e += 6) {
        const double y = off.at(std::pow(10, e));
        pen.line(left, y, left + wide, y, faint);
        pen.label(left - 8, y + 4, 12, 1, "1e" + std::to_string(e));
    }
    pen.label(left + wide, stripTop - 8, 12, 1, "difference, and its bound (bar)");

    for (const Mark &mark : panel.marks) {
        pen.ring(re.at(mark.known.real()), im.at(mark.known.imag()));
        pen.dot(re.at(mark.computed.real()), im.at(mark.computed.imag()));
        const double x = re.at(mark.known.real());
        pen.line(x - 5, off.at(mark.bound), x + 5, off.at(mark.bound), limit, 2);
        pen.dot(x, off.at(std::clamp(mark.difference, off.low, off.high)));
    }
}

} // namespace

void plot(const std::string &file, const std::vector<Panel> &panels) {
    const int count = static_cast<int>(panels.size()), rows = (count + across - 1) / across;
    Pen pen(file, across * panelWidth, headHeight + rows * panelHeight);
    pen.paper({1, 1, 1});
    pen.label(left, 44, 24, 0, "Spectra in the complex plane");
    pen.ring(left + 6, 68);
    pen.label(left + 20, 73, 14, 0, "known");
    pen.dot(left + 86, 68);
    pen.label(left + 96, 73, 14, 0, "computed");
    for (int i = 0; i < count; ++i) {
        pen.move(i % across * panelWidth, headHeight + i / across * panelHeight);
        drawPanel(pen, panels[static_cast<std::size_t>(i)]);
        pen.restore();
    }
    pen.write();
}

} // namespace spectra
