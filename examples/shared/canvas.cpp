#include "canvas.hpp"

#include "picture.hpp"

namespace shared {
namespace {

const Vec eye = {0, 0, 1};

const Vec lamp = unit(Vec{-0.80F, 0.42F, 0.42F}), back = unit(Vec{0.85F, -0.15F, -0.42F}), halfway = unit(lamp + eye);

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
    return mix(Vec{0.040F, 0.050F, 0.070F}, Vec{0.006F, 0.007F, 0.011F}, far * far * (3 - 2 * far));
}

// Light is added up as it is; a screen wants it bent.
unsigned screenByte(float light) {
    const float bent = light <= 0.0031308F ? 12.92F * light : 1.055F * std::pow(light, 1 / 2.4F) - 0.055F;
    return static_cast<unsigned>(std::lround(std::clamp(bent, 0.0F, 1.0F) * 255));
}

} // namespace

Canvas::Canvas(int width, int height)
    : wide(width), high(height), grid{static_cast<std::size_t>(columns()), static_cast<std::size_t>(rows())},
      buffer(grid.size()) {}

void Canvas::triangle(const std::array<Vec, 3> &p, const std::array<Vec, 3> &normal, Vec paint) {
    grid.triangle(p, [&](std::size_t n, float a, float b, float c, float area) {
        const float nearness = a * p[0].z + b * p[1].z + c * p[2].z;
        // Corners run anticlockwise round a normal that points to the eye. Behind, the normals are turned over.
        const float side = area < 0 ? 1.0F : -1.0F;
        if (nearness > buffer[n].nearness)
            buffer[n] = {nearness, 1, nearness, side * unit(a * normal[0] + b * normal[1] + c * normal[2]), paint};
    });
}

void Canvas::ball(Vec centre, float radius, const Camera &camera, Vec paint) {
    const float size = radius / (camera.lens * centre.z);
    grid.box(centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius,
             [&](float x, float y, std::size_t n) {
                 const float u = (x - centre.x) / radius, v = (centre.y - y) / radius, height = 1 - u * u - v * v;
                 if (height < 0) return;
                 const Vec normal = {u, v, std::sqrt(height)};
                 const float nearness = 1 / (1 / centre.z - size * normal.z);
                 if (nearness > buffer[n].nearness) buffer[n] = {nearness, 1, nearness, normal, paint};
             });
}

void Canvas::disc(Vec centre, float radius, const Camera &camera, Vec normal, const Vec *paint) {
    const Vec middle = camera.position(centre.x, centre.y, centre.z);
    const float size = radius / (camera.lens * centre.z), height = dot(normal, middle);
    grid.box(centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius,
             [&](float x, float y, std::size_t n) {
                 Sample &sample = buffer[n];
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
        const Sample &other = buffer[grid.at(static_cast<std::size_t>(atColumn), static_cast<std::size_t>(atRow))];
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

void Canvas::write(const std::string &file, const Camera &camera, Light light, const std::string &caption) const {
    Picture picture(file, wide, high);
    picture.pixels([&](int column, int row) {
        Vec sum;
        for (int i = 0; i < samples * samples; ++i) {
            const int atColumn = column * samples + i % samples, atRow = row * samples + i / samples;
            const Sample &sample = buffer[grid.at(static_cast<std::size_t>(atColumn), static_cast<std::size_t>(atRow))];
            const Vec seen = sample.weight > 0
                                 ? lit(1 / sample.weight * sample.paint, unit(sample.normal),
                                       openness(atColumn, atRow, sample, camera), light)
                                 : background(2 * static_cast<float>(atColumn) / static_cast<float>(columns()) - 1,
                                              2 * static_cast<float>(atRow) / static_cast<float>(rows()) - 1);
            sum = sum + std::min(1 / std::max({seen.x, seen.y, seen.z, 1e-6F}), 1.0F) * seen;
        }
        constexpr float part = 1.0F / (samples * samples);
        return screenByte(part * sum.x) << 16 | screenByte(part * sum.y) << 8 | screenByte(part * sum.z);
    });
    picture.colour({0.62, 0.66, 0.72});
    picture.text(high / 40.0, high - high / 40.0, std::max(high / 48.0, 11.0), caption);
    picture.write();
}

} // namespace shared
