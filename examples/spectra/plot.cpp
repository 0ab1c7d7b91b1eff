#include "plot.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <stdexcept>

#include <cairo-svg.h>
#include <cairo.h>

namespace spectra {
namespace {

constexpr double panelWidth = 520, panelHeight = 460, planeHeight = 250, gap = 44, stripHeight = 104;
constexpr double left = 62, top = 44, wide = panelWidth - left - 18;
constexpr double headHeight = 84;
constexpr int across = 3;

struct Colour {
    double red, green, blue;
};
constexpr Colour ink = {0.13, 0.15, 0.20}, faint = {0.87, 0.88, 0.90}, ring = {0.10, 0.38, 0.72},
                 dot = {0.90, 0.35, 0.08}, limit = {0.55, 0.57, 0.62};

class Pen {
public:
    explicit Pen(cairo_surface_t *surface) : cairo(cairo_create(surface)) {
        cairo_select_font_face(cairo, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    }
    ~Pen() { cairo_destroy(cairo); }
    Pen(const Pen &) = delete;
    Pen &operator=(const Pen &) = delete;

    void colour(Colour c, double alpha = 1) const { cairo_set_source_rgba(cairo, c.red, c.green, c.blue, alpha); }
    void line(double x0, double y0, double x1, double y1, Colour c, double thick = 1) const {
        colour(c);
        cairo_set_line_width(cairo, thick);
        cairo_move_to(cairo, x0, y0);
        cairo_line_to(cairo, x1, y1);
        cairo_stroke(cairo);
    }
    void circle(double x, double y, double radius, Colour c, bool full) const {
        colour(c, full ? 0.9 : 1);
        cairo_set_line_width(cairo, 1.6);
        cairo_new_sub_path(cairo);
        cairo_arc(cairo, x, y, radius, 0, 2 * std::numbers::pi);
        full ? cairo_fill(cairo) : cairo_stroke(cairo);
    }
    // `anchor` 0: x is the left end, 0.5: the middle, 1: the right end.
    void text(double x, double y, double size, double anchor, const std::string &words) const {
        colour(ink);
        cairo_set_font_size(cairo, size);
        cairo_text_extents_t extents;
        cairo_text_extents(cairo, words.c_str(), &extents);
        cairo_move_to(cairo, x - anchor * extents.x_advance, y);
        cairo_show_text(cairo, words.c_str());
    }
    void move(double x, double y) const { cairo_translate(cairo, x, y); }
    void paper(double width, double height) const {
        cairo_set_source_rgb(cairo, 1, 1, 1);
        cairo_rectangle(cairo, 0, 0, width, height);
        cairo_fill(cairo);
    }

private:
    cairo_t *cairo;
};

std::string label(double value) {
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

void drawPanel(const Pen &pen, const Panel &panel) {
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

    pen.text(left, top - 14, 17, 0, panel.title);
    for (const double t : re.ticks()) {
        pen.line(re.at(t), top, re.at(t), top + planeHeight, faint);
        pen.line(re.at(t), stripTop, re.at(t), stripEnd, faint);
        pen.text(re.at(t), top + planeHeight + 17, 12, 0.5, label(t));
    }
    for (const double t : im.ticks()) {
        pen.line(left, im.at(t), left + wide, im.at(t), t == 0 ? limit : faint);
        pen.text(left - 8, im.at(t) + 4, 12, 1, label(t) + (std::abs(t) < 1e-12 ? "" : "i"));
    }
    for (int e = -18; e <= 0; e += 6) {
        const double y = off.at(std::pow(10, e));
        pen.line(left, y, left + wide, y, faint);
        pen.text(left - 8, y + 4, 12, 1, "1e" + std::to_string(e));
    }
    pen.text(left + wide, stripTop - 8, 12, 1, "difference, and its bound (bar)");

    for (const Mark &mark : panel.marks) {
        pen.circle(re.at(mark.known.real()), im.at(mark.known.imag()), 6, ring, false);
        pen.circle(re.at(mark.computed.real()), im.at(mark.computed.imag()), 2.6, dot, true);
        const double x = re.at(mark.known.real());
        pen.line(x - 5, off.at(mark.bound), x + 5, off.at(mark.bound), limit, 2);
        pen.circle(x, off.at(std::clamp(mark.difference, off.low, off.high)), 2.6, dot, true);
    }
}

} // namespace

void plot(const std::string &file, const std::vector<Panel> &panels) {
    const auto rows = (panels.size() + across - 1) / across;
    const double width = across * panelWidth, height = headHeight + static_cast<double>(rows) * panelHeight;
    const bool svg = file.ends_with(".svg");
    cairo_surface_t *const surface =
        svg ? cairo_svg_surface_create(file.c_str(), width, height)
            : cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width), static_cast<int>(height));
    {
        const Pen pen(surface);
        pen.paper(width, height);
        pen.text(left, 44, 24, 0, "Spectra in the complex plane");
        pen.circle(left + 6, 68, 6, ring, false);
        pen.text(left + 20, 73, 14, 0, "known");
        pen.circle(left + 86, 68, 2.6, dot, true);
        pen.text(left + 96, 73, 14, 0, "computed");
        pen.move(0, headHeight);
        for (std::size_t i = 0; i < panels.size(); ++i) {
            drawPanel(pen, panels[i]);
            if ((i + 1) % across == 0) pen.move(-(across - 1) * panelWidth, panelHeight);
            else pen.move(panelWidth, 0);
        }
    }
    if (svg) cairo_surface_finish(surface);
    const cairo_status_t status =
        svg ? cairo_surface_status(surface) : cairo_surface_write_to_png(surface, file.c_str());
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error("cannot write " + file + ": " + cairo_status_to_string(status));
}

} // namespace spectra
