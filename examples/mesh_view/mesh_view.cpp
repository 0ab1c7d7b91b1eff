// Draws a triangle mesh or a point cloud: normals, transform and projection of all points in a few calls.
#include <cstdio>
#include <filesystem>
#include <string>

#include "canvas.hpp"
#include "layouts.hpp"
#include "mesh_file.hpp"
#include "program.hpp"
#include "smkcore.h"
#include "timing.hpp"

namespace mesh {
namespace {

using shared::Camera;
using shared::Canvas;
using shared::Vec;

struct Options {
    std::string file, picture = "mesh_view.png", layout = "structs";
    double azimuth = 20, elevation = 25;
    int threads = 1, width = 1280;
    bool zUp = false;
};

struct Vertex {
    float position[3];
    float normal[3]; // of length 1, or 0 where no face says anything
    float facing[3]; // the normal in camera coordinates
    float screen[3]; // column, row and 1 / distance
};

class Model {
public:
    // The points are moved and scaled into the unit ball: their file's unit, and its origin, may be anything.
    explicit Model(const shared::Shape &shape) : triangles(shape.triangles), vertices(shape.points.size()) {
        const shared::Ball ball = shared::ballRound(shape.points);
        for (std::size_t n = 0; n < vertices.size(); ++n)
            for (std::size_t axis = 0; axis < 3; ++axis)
                vertices[n].position[axis] =
                    static_cast<float>(ball.radius > 0 ? (shape.points[n][axis] - ball.centre[axis]) / ball.radius : 0);
    }

    // The normal of a vertex: the sum of its faces' normals, which are twice as long as the faces are large. What is
    // computed lies in stores of the given kind, and comes and goes by copies from layout to layout.
    template <class Store>
    void computeNormals() {
        if (triangles.empty()) return;
        const int faces = static_cast<int>(triangles.size()), count = size();
        Store onFaces(4, faces), onVertices(2, count);
        enum { corner0, side1, side2, across }; // of a face
        enum { place, normal };                 // of a vertex

        copy(field(&Vertex::position), onVertices[place], count);
        copy(onVertices[place], field(&Vertex::position), count); // the picture shows what has gone through the layout
        for (int i = 0; i < 3; ++i) copy(corners(static_cast<std::size_t>(i)), onFaces[corner0 + i], faces);
        subtract(onFaces[side1], onFaces[corner0], onFaces[side1], faces);
        subtract(onFaces[side2], onFaces[corner0], onFaces[side2], faces);
        cross(onFaces[side1], onFaces[side2], onFaces[across], faces);

        // Many faces add to one vertex, so this is a loop.
        std::vector<Vec> perFace(triangles.size());
        copy(onFaces[across], Field{&perFace[0].x, sizeof(Vec)}, faces);
        for (std::size_t n = 0; n < triangles.size(); ++n)
            for (const int vertex : triangles[n]) {
                float *const sum = vertices[static_cast<std::size_t>(vertex)].normal;
                sum[0] += perFace[n].x;
                sum[1] += perFace[n].y;
                sum[2] += perFace[n].z;
            }

        copy(field(&Vertex::normal), onVertices[normal], count);
        std::vector<float> factors(vertices.size());
        lengths(onVertices[normal], factors.data(), count);
        for (float &factor : factors) factor = factor > 0 ? 1 / factor : 0;
        scale(onVertices[normal], factors, count);
        copy(onVertices[normal], field(&Vertex::normal), count);
    }

    // Fills in what the camera sees.
    void project(Camera &camera, const Canvas &canvas) {
        toScreen(camera);
        camera.fit(
            vertices.size(), [&](std::size_t n) { return vec(vertices[n].screen); }, triangles.empty() ? radius() : 0,
            canvas.columns(), canvas.rows());
        toScreen(camera);
        const Field from = field(&Vertex::normal), to = field(&Vertex::facing);
        run(smxMul_mva_32f, camera.turn.data(), 3 * element, element, 3, 3, from.place(), 3, to.place(), size());
    }

    void draw(Canvas &canvas, const Camera &camera) const {
        for (const auto &corners : triangles) {
            std::array<Vec, 3> place, normal;
            for (std::size_t i = 0; i < 3; ++i) {
                const Vertex &v = vertices[static_cast<std::size_t>(corners[i])];
                place[i] = vec(v.screen);
                normal[i] = vec(v.facing);
            }
            canvas.triangle(place, normal, {0.62F, 0.57F, 0.51F});
        }
        if (!triangles.empty()) return;
        // Near balls look larger, and lighter.
        for (const Vertex &v : vertices) {
            const float near = std::clamp((v.screen[2] * Camera::distance - 0.8F) / 0.5F, 0.0F, 1.0F);
            canvas.ball(vec(v.screen), radius() * camera.lens * v.screen[2], camera,
                        mix(Vec{0.14F, 0.22F, 0.38F}, Vec{0.85F, 0.66F, 0.38F}, near));
        }
    }

    int size() const { return static_cast<int>(vertices.size()); }
    std::string description() const {
        if (triangles.empty()) return std::to_string(size()) + " points";
        return std::to_string(size()) + " vertices, " + std::to_string(triangles.size()) + " triangles";
    }

private:
    static Vec vec(const float *v) { return {v[0], v[1], v[2]}; }

    // Balls that just about touch if the points cover the model evenly.
    float radius() const { return 1.3F / std::sqrt(static_cast<float>(vertices.size())); }

    // A field of the vertices as they are: nothing is copied out.
    Field field(float (Vertex::*member)[3]) { return {vertices[0].*member, sizeof(Vertex)}; }

    // The i-th corners of all faces: the list layout is an index list.
    Scattered corners(std::size_t i) {
        cornerList.clear();
        for (const auto &triangle : triangles)
            cornerList.push_back(vertices[static_cast<std::size_t>(triangle[i])].position);
        return {cornerList.data(), 0};
    }

    // The camera stands outside of the ball that holds the points: no distance is 0.
    void toScreen(const Camera &camera) {
        const auto matrix = camera.projection();
        const Field from = field(&Vertex::position), to = field(&Vertex::screen);
        run(smxAffineTransform3DH_mva_32f, matrix.data(), 4 * element, element, from.place(), to.place(), size());
    }

    std::vector<std::array<int, 3>> triangles;
    std::vector<Vertex> vertices;
    std::vector<float *> cornerList;
};

int draw(const Options &options) {
    Model model(shared::readShape(options.file));
    threads_omp_of_n_smk = options.threads;
    std::printf("%s: %s\n", options.file.c_str(), model.description().c_str());

    const double normals = shared::secondsOf([&] {
        if (options.layout == "structs") model.computeNormals<Structs>();
        else if (options.layout == "arrays") model.computeNormals<Arrays>();
        else model.computeNormals<Objects>();
    });
    Canvas canvas(options.width, options.width * 3 / 4);
    Camera camera(options.azimuth, options.elevation, options.zUp);
    const double projection = shared::secondsOf([&] { model.project(camera, canvas); });
    std::printf("normals     %8.2f ms, layout %s\nprojection  %8.2f ms\n", 1e3 * normals, options.layout.c_str(),
                1e3 * projection);
    if (options.picture == "none") return 0;
    const std::string name = std::filesystem::path(options.file).stem().string();
    const double drawing = shared::secondsOf([&] {
        model.draw(canvas, camera);
        canvas.write(options.picture, camera, Canvas::Light::lamp, name + ": " + model.description());
    });
    std::printf("picture     %8.2f ms, %s\n", 1e3 * drawing, options.picture.c_str());
    return 0;
}

} // namespace
} // namespace mesh

int main(int count, char **arguments) {
    using namespace shared;
    mesh::Options o;
    return execute(
        {"mesh_view",
         "Draws a triangle mesh or a point cloud.",
         {{"FILE", "FILE.obj, an ASCII FILE.ply or FILE.xyz", text(o.file)},
          {"--picture FILE", "where to draw, .png or .svg (default: mesh_view.png; none: no picture)",
           file(o.picture, pictures)},
          {"--width PIXELS", "of the picture, which is three quarters as high (default: 1280)",
           number(o.width, 16, 8192)},
          {"--layout LAYOUT",
           "how the vectors lie in memory while normals are computed: structs (an array of\n"
           "structures), arrays (a structure of arrays) or list (objects anywhere). The picture is\n"
           "the same. (default: structs)",
           oneOf(o.layout, {"structs", "arrays", "list"})},
          {"--azimuth DEGREES", "where the eye stands round the model (default: 20)", number(o.azimuth, -360, 360)},
          {"--elevation DEGREES", "and how high (default: 25)", number(o.elevation, -90, 90)},
          {"--z-up", "the model's z axis is up, not its y axis", flag(o.zUp)},
          {"--threads N", "threads for the array calls (default: 1)", number(o.threads, 1, 1024)}},
         "Exits with 2 on bad input.\n"},
        count, arguments, [&] { return mesh::draw(o); });
}
