// A picture file: lines, areas and words, or what was computed sample by sample.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <cairo.h>

namespace shared {

struct Colour {
    double red, green, blue;
};

class Picture {
public:
    // FILE.png or FILE.svg. The size is in pixels.
    Picture(const std::string &file, int width, int height);

    void paper(Colour c);
    // Every pixel as 0xRRGGBB.
    void pixels(const std::function<unsigned(int column, int row)> &colourOf);

    void colour(Colour c, double opacity = 1) { cairo_set_source_rgba(pen.get(), c.red, c.green, c.blue, opacity); }
    void moveTo(double x, double y) { cairo_move_to(pen.get(), x, y); }
    void lineTo(double x, double y) { cairo_line_to(pen.get(), x, y); }
    void closePath() { cairo_close_path(pen.get()); }
    void circle(double x, double y, double radius);
    void rectangle(double x, double y, double width, double height) { cairo_rectangle(pen.get(), x, y, width, height); }
    void stroke(double width) {
        cairo_set_line_width(pen.get(), width);
        cairo_stroke(pen.get());
    }
    void roundJoins() { cairo_set_line_join(pen.get(), CAIRO_LINE_JOIN_ROUND); }
    void fill() { cairo_fill(pen.get()); }
    void fillAndKeep() { cairo_fill_preserve(pen.get()); }

    // `align` 0: x is the left end, 0.5: the middle, 1: the right end.
    void text(double x, double y, double size, const std::string &words, double align = 0, bool bold = false);
    // Bold words with their middle at x, y.
    void textAround(double x, double y, double size, const std::string &words);

    // Whatever comes until `restore` lies in the rectangle, or is moved.
    void clip(double x, double y, double width, double height);
    void move(double x, double y);
    void restore() { cairo_restore(pen.get()); }

    // Throws std::runtime_error if the file cannot be written.
    void write();

private:
    struct Release {
        void operator()(cairo_surface_t *surface) const { cairo_surface_destroy(surface); }
        void operator()(cairo_t *context) const { cairo_destroy(context); }
    };
    cairo_text_extents_t extents(double size, const std::string &words, bool bold);

    const std::string name;
    const int wide, high;
    const bool vector;
    std::unique_ptr<cairo_surface_t, Release> surface;
    std::unique_ptr<cairo_t, Release> pen;
};

} // namespace shared
