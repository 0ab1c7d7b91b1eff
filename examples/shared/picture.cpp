#include "picture.hpp"

#include <numbers>
#include <stdexcept>

#include <cairo-svg.h>

#include "program.hpp"

namespace shared {

Picture::Picture(const std::string &file, int width, int height)
    : name(file), wide(width), high(height), vector(endingOf(file) == ".svg"),
      surface(vector ? cairo_svg_surface_create(file.c_str(), width, height)
                     : cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
      pen(cairo_create(surface.get())) {}

void Picture::paper(Colour c) {
    colour(c);
    cairo_paint(pen.get());
}

void Picture::pixels(const std::function<unsigned(int, int)> &colourOf) {
    const std::unique_ptr<cairo_surface_t, Release> image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, wide, high));
    unsigned char *const bytes = cairo_image_surface_get_data(image.get());
    const int stride = cairo_image_surface_get_stride(image.get());
    for (int row = 0; row < high; ++row)
        for (int column = 0; column < wide; ++column)
            reinterpret_cast<unsigned *>(bytes + static_cast<long>(row) * stride)[column] = colourOf(column, row);
    cairo_surface_mark_dirty(image.get());
    cairo_set_source_surface(pen.get(), image.get(), 0, 0);
    cairo_paint(pen.get());
}

void Picture::circle(double x, double y, double radius) {
    cairo_new_sub_path(pen.get());
    cairo_arc(pen.get(), x, y, radius, 0, 2 * std::numbers::pi);
}

cairo_text_extents_t Picture::extents(double size, const std::string &words, bool bold) {
    cairo_select_font_face(pen.get(), "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(pen.get(), size);
    cairo_text_extents_t found;
    cairo_text_extents(pen.get(), words.c_str(), &found);
    return found;
}

void Picture::text(double x, double y, double size, const std::string &words, double align, bool bold) {
    const cairo_text_extents_t box = extents(size, words, bold);
    moveTo(x - align * box.x_advance, y);
    cairo_show_text(pen.get(), words.c_str());
}

void Picture::textAround(double x, double y, double size, const std::string &words) {
    const cairo_text_extents_t box = extents(size, words, true);
    moveTo(x - box.x_bearing - box.width / 2, y - box.y_bearing - box.height / 2);
    cairo_show_text(pen.get(), words.c_str());
}

void Picture::clip(double x, double y, double width, double height) {
    cairo_save(pen.get());
    rectangle(x, y, width, height);
    cairo_clip(pen.get());
}

void Picture::move(double x, double y) {
    cairo_save(pen.get());
    cairo_translate(pen.get(), x, y);
}

void Picture::write() {
    cairo_status_t status = cairo_status(pen.get());
    if (vector) cairo_surface_finish(surface.get());
    if (status == CAIRO_STATUS_SUCCESS)
        status = vector ? cairo_surface_status(surface.get()) : cairo_surface_write_to_png(surface.get(), name.c_str());
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error("cannot write " + name + ": " + cairo_status_to_string(status));
}

} // namespace shared
