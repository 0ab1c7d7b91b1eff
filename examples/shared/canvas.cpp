#include "canvas.hpp"

#include <stdexcept>

#include <cairo.h>

namespace shapes {
namespace {

const Vec eye = {0, 0, 1};

const Vec lamp = unit({-0.80F, 0.42F, 0.42F}), back = unit({0.85F, -0.15F, -0.42F}), halfway = unit(lamp + eye);

// A warm lamp on the left, a faint cool one from behind on the right, and what the room gives back.
Vec lit(Vec paint, Vec normal, float openness, Canvas::Light light) {
    if (light == Canvas::Light::even)
        return (openness * (0.50F + 0.25F * dot(normal, eye) + 0.35F * std::max(dot(normal, lamp), 0.0F))) * paint;
    const float direct = std::max(dot(normal, lamp), 0.0F) * (0.3F + 0.7F * openness);
    const float rim = std::max(dot(normal, back), 0.0F) * openness;
    float glint = std::max(dot(normal, halfway), 0.0F);
    for (int i = 0; i < 5; ++i) glint *= glint;
    const Vec sum =
        openness * Vec{0.050F, 0.058F, 0.075F} + direct * Vec{1.05F, 0.99F, 0.90F} + rim * Vec{0.10F, 0.15F, 0.22F};
    const float shine = 0.05F * glint * openness;
    return Vec{paint.x * sum.x, paint.y * sum.y, paint.z * sum.z} + Vec{shine, shine, shine};
}

// Directions that turn on by the golden angle.
const auto spiral = [] {
    std::array<std::array<float, 2>, 256> turns{};
    for (std::size_t i = 0; i < turns.size(); ++i) {
        const float angle = 2.399963F * static_cast<float>(i);
        turns[i] = {std::cos(angle), std::sin(angle)};
    }
    return turns;
}();

Vec background(float x, float y) { // from -1 to 1
    const float far = std::min(std::sqrt((x + 0.25F) * (x + 0.25F) + (y + 0.2F) * (y + 0.2F)) / 1.5F, 1.0F);
    return mix({0.040F, 0.050F, 0.070F}, {0.006F, 0.007F, 0.011F}, far * far * (3 - 2 * far));
}

// Light is added up as it is; a screen wants it bent.
unsigned screenByte(float light) {
    const float bent = light <= 0.0031308F ? 12.92F * light : 1.055F * std::pow(light, 1 / 2.4F) - 0.055F;
    return static_cast<unsigned>(std::lround(std::clamp(bent, 0.0F, 1.0F) * 255));
}

} // namespace

Canvas::Canvas(int width, int height) : wide(width), high(height) {
    buffer.resize(static_cast<std::size_t>(columns()) * static_cast<std::size_t>(rows()));
}

// Calls visit(x, y, sample) for the samples of a box, with their centres.
template <class Visit>
void Canvas::overBox(float left, float top, float right, float bottom, const Visit &visit) {
    const auto bound = [](float v, int most) {
        return static_cast<int>(std::clamp(v, 0.0F, static_cast<float>(most)));
    };
    const int lastColumn = bound(right + 1, columns()), lastRow = bound(bottom + 1, rows());
    for (int row = bound(top, rows()); row < lastRow; ++row)
        for (int column = bound(left, columns()); column < lastColumn; ++column)
            visit(static_cast<float>(column) + 0.5F, static_cast<float>(row) + 0.5F,
                  buffer[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns()) +
                         static_cast<std::size_t>(column)]);
}

void Canvas::triangle(const std::array<Vec, 3> &p, const std::array<Vec, 3> &normal, Vec paint) {
    const auto edge = [](Vec a, Vec b, float x, float y) { return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x); };
    const float area = edge(p[0], p[1], p[2].x, p[2].y);
    if (!(std::abs(area) > 1e-6F)) return;
    // Corners run anticlockwise round a normal that points to the eye. Seen from behind, the normals are turned over.
    const float side = area < 0 ? 1.0F : -1.0F;
    overBox(std::min({p[0].x, p[1].x, p[2].x}), std::min({p[0].y, p[1].y, p[2].y}), std::max({p[0].x, p[1].x, p[2].x}),
            std::max({p[0].y, p[1].y, p[2].y}), [&](float x, float y, Sample &sample) {
                const float a = edge(p[1], p[2], x, y) / area, b = edge(p[2], p[0], x, y) / area, c = 1 - a - b;
                if (a < 0 || b < 0 || c < 0) return;
                const float nearness = a * p[0].z + b * p[1].z + c * p[2].z;
                if (nearness > sample.nearness)
                    sample = {nearness, 1, nearness, side * unit(a * normal[0] + b * normal[1] + c * normal[2]), paint};
            });
}

void Canvas::ball(Vec centre, float radius, const Camera &camera, Vec paint) {
    const float size = radius / (camera.lens * centre.z);
    overBox(centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius,
            [&](float x, float y, Sample &sample) {
                const float u = (x - centre.x) / radius, v = (centre.y - y) / radius, height = 1 - u * u - v * v;
                if (height < 0) return;
                const Vec normal = {u, v, std::sqrt(height)};
                const float nearness = 1 / (1 / centre.z - size * normal.z);
                if (nearness > sample.nearness) sample = {nearness, 1, nearness, normal, paint};
            });
}

void Canvas::disc(Vec centre, float radius, const Camera &camera, Vec normal, const Vec *paint) {
    const Vec middle = camera.position(centre.x, centre.y, centre.z);
    const float size = radius / (camera.lens * centre.z), height = dot(normal, middle);
    overBox(centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius,
            [&](float x, float y, Sample &sample) {
                const Vec ray = camera.position(x, y, 1);
                const float distance = height / dot(normal, ray);
                const Vec offset = distance * ray - middle;
                const float part = dot(offset, offset) / (size * size);
                if (!(part < 1 && distance > 0)) return; // also where the plane is seen edge-on
                if (!paint) sample.nearness = std::max(sample.nearness, 1 / (distance + size));
                else if (1 / distance >= sample.nearness) {
                    const float weight = (1 - part) * (1 - part) + 1e-4F;
                    sample.normal = sample.normal + weight * normal;
                    sample.paint = sample.paint + weight * *paint;
                    sample.weight += weight;
                    sample.mixedNearness += weight / distance;
                }
            });
}

// How much of the sky a sample sees, judged by the samples around it: 0 to 1.
float Canvas::openness(int column, int row, const Sample &sample, const Camera &camera) const {
    constexpr int looks = 9;       // of each of the samples that a pixel has
    constexpr float reach = 0.16F; // in the model's unit
    const float nearness = sample.mixedNearness / sample.weight;
    const Vec here = camera.position(static_cast<float>(column), static_cast<float>(row), nearness);
    const Vec normal = unit(sample.normal);
    const float widest = reach * camera.lens * nearness;
    // Another turn for each sample, so that the steps of the spiral blur instead of drawing rings.
    const unsigned mixed = (static_cast<unsigned>(column) * 0x9E3779B1U) ^ (static_cast<unsigned>(row) * 0x85EBCA77U);
    const auto [cosine, sine] = spiral[(mixed ^ mixed >> 15) % spiral.size()];
    float hidden = 0;
    for (std::size_t i = 0; i < looks; ++i) {
        const auto [c, s] = spiral[i];
        const float away = widest * (static_cast<float>(i) + 0.5F) / looks;
        const int atColumn = column + static_cast<int>(away * (c * cosine - s * sine));
        const int atRow = row + static_cast<int>(away * (s * cosine + c * sine));
        if (atColumn < 0 || atColumn >= columns() || atRow < 0 || atRow >= rows()) continue;
        const Sample &other = buffer[static_cast<std::size_t>(atRow) * static_cast<std::size_t>(columns()) +
                                     static_cast<std::size_t>(atColumn)];
        if (other.weight <= 0) continue;
        const Vec there = camera.position(static_cast<float>(atColumn), static_cast<float>(atRow),
                                          other.mixedNearness / other.weight) -
                          here;
        const float length = std::sqrt(dot(there, there));
        const float rise = dot(there, normal) / std::max(length, 1e-9F) - 0.08F;
        if (rise > 0) hidden += rise * std::max(1 - length / (2 * reach), 0.0F);
    }
    return std::clamp(1 - 2.6F * hidden / looks, 0.0F, 1.0F);
}

void Canvas::writePng(const std::string &file, const Camera &camera, Light light, const std::string &caption) const {
    cairo_surface_t *const image = cairo_image_surface_create(CAIRO_FORMAT_RGB24, wide, high);
    unsigned char *const bytes = cairo_image_surface_get_data(image);
    const int stride = cairo_image_surface_get_stride(image);
    for (int row = 0; row < high; ++row)
        for (int column = 0; column < wide; ++column) {
            Vec sum;
            for (int i = 0; i < samples * samples; ++i) {
                const int atColumn = column * samples + i % samples, atRow = row * samples + i / samples;
                const Sample &sample = buffer[static_cast<std::size_t>(atRow) * static_cast<std::size_t>(columns()) +
                                              static_cast<std::size_t>(atColumn)];
                const Vec seen = sample.weight > 0
                                     ? lit(1 / sample.weight * sample.paint, unit(sample.normal),
                                           openness(atColumn, atRow, sample, camera), light)
                                     : background(2 * static_cast<float>(atColumn) / static_cast<float>(columns()) - 1,
                                                  2 * static_cast<float>(atRow) / static_cast<float>(rows()) - 1);
                sum = sum + std::min(1 / std::max({seen.x, seen.y, seen.z, 1e-6F}), 1.0F) * seen;
            }
            constexpr float part = 1.0F / (samples * samples);
            reinterpret_cast<unsigned *>(bytes + static_cast<long>(row) * stride)[column] =
                screenByte(part * sum.x) << 16 | screenByte(part * sum.y) << 8 | screenByte(part * sum.z);
        }
    cairo_surface_mark_dirty(image);

    cairo_t *const pen = cairo_create(image);
    cairo_select_font_face(pen, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(pen, high / 48.0);
    cairo_set_source_rgb(pen, 0.62, 0.66, 0.72);
    cairo_move_to(pen, high / 40.0, high - high / 40.0);
    cairo_show_text(pen, caption.c_str());
    cairo_destroy(pen);

    const cairo_status_t status = cairo_surface_write_to_png(image, file.c_str());
    cairo_surface_destroy(image);
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error("cannot write " + file + ": " + cairo_status_to_string(status));
}

} // namespace shapes
