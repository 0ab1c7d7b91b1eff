#include "mesh_file.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <string_view>

#include "program.hpp"

namespace shared {
namespace {

std::string quoted(std::string_view text) {
    std::string whole = "\"";
    whole += text;
    whole += '"';
    return whole;
}

// The lines of a file, and the words of the present one. OBJ carries a line on behind a backslash.
class Reader {
public:
    Reader(const std::string &file, bool backslashes) : name(file), in(file), joins(backslashes) {}

    bool nextLine() {
        text.clear();
        std::string part;
        bool any = false, more = true;
        while (more && in.next(part)) {
            any = true;
            more = joins && part.ends_with('\\');
            if (more) part.back() = ' ';
            text += part;
        }
        rest = text;
        return any;
    }

    bool blank() const {
        const std::size_t first = rest.find_first_not_of(" \t");
        return first == std::string_view::npos || rest[first] == '#';
    }

    // Empty at the end of the line.
    std::string_view word() {
        constexpr std::string_view blanks = " \t";
        rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
        const std::string_view found = rest.substr(0, rest.find_first_of(blanks));
        rest.remove_prefix(found.size());
        return found;
    }

    double number() {
        const std::string_view found = word();
        double value = 0;
        if (!parse(found, value) || !std::isfinite(value)) notA("number", found);
        return value;
    }

    int wholeNumber() {
        const std::string_view found = word();
        int value = 0;
        if (!parse(found, value)) notA("whole number", found);
        return value;
    }

    Point point() {
        Point p{};
        for (double &coordinate : p) coordinate = number();
        return p;
    }

    template <class T>
    static bool parse(std::string_view word, T &value) {
        if (word.starts_with("+")) word.remove_prefix(1);
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
        return error == std::errc() && end == word.data() + word.size();
    }

    [[noreturn]] void notA(const std::string &kind, std::string_view found) const {
        fail(found.empty() ? "a " + kind + " is missing" : quoted(found) + " is not a " + kind);
    }
    [[noreturn]] void fail(const std::string &what) const { fail(what, line()); }
    [[noreturn]] void fail(const std::string &what, int at) const { throw badLine(name, at, what); }
    int line() const { return in.line; }

private:
    const std::string name;
    Lines in;
    const bool joins;
    std::string text;
    std::string_view rest;
};

// Faces may stand before the vertices that they name, so the indexes are looked at when all has been read.
class Faces {
public:
    // The corners count from 0.
    void add(const std::vector<int> &corners, const Reader &reader) {
        if (corners.size() < 3) reader.fail("a face needs 3 corners");
        for (std::size_t i = 2; i < corners.size(); ++i) {
            triangles.push_back({corners[0], corners[i - 1], corners[i]});
            lines.push_back(reader.line());
        }
    }

    // `first` is what the file calls the first vertex.
    Shape withPoints(std::vector<Point> points, int first, const Reader &reader) {
        for (std::size_t n = 0; n < triangles.size(); ++n)
            for (const int corner : triangles[n])
                if (corner < 0 || static_cast<std::size_t>(corner) >= points.size())
                    reader.fail("there is no vertex " + std::to_string(corner + first) + ": the file has " +
                                    std::to_string(points.size()),
                                lines[n]);
        return {std::move(points), std::move(triangles)};
    }

private:
    std::vector<std::array<int, 3>> triangles;
    std::vector<int> lines;
};

// A corner is v, v/vt, v//vn or v/vt/vn; negative numbers count back from the last vertex so far. Only v is used.
int objCorner(std::string_view word, std::size_t vertices, const Reader &reader) {
    int vertex = 0;
    std::string_view rest = word;
    for (int part = 0; part < 3; ++part) {
        const std::size_t slash = rest.find('/');
        const std::string_view digits = rest.substr(0, slash);
        int index = 0;
        const bool left = digits.empty() && part == 1 && slash != std::string_view::npos;
        if (!left && (!Reader::parse(digits, index) || index == 0)) reader.notA("corner", word);
        if (part == 0) vertex = index;
        if (slash == std::string_view::npos) break;
        if (part == 2) reader.notA("corner", word);
        rest.remove_prefix(slash + 1);
    }
    if (vertex > 0) return vertex - 1;
    if (static_cast<std::size_t>(-static_cast<long>(vertex)) > vertices)
        reader.fail("vertex " + std::to_string(vertex) + " is before the first of " + std::to_string(vertices));
    return static_cast<int>(vertices) + vertex;
}

Shape readObj(const std::string &file) {
    constexpr std::string_view ignored[] = {"vt", "vn", "vp", "o", "g", "s", "mg", "l", "p", "usemtl", "mtllib", "lod"};
    Reader reader(file, true);
    std::vector<Point> points;
    Faces faces;
    std::vector<int> corners;
    while (reader.nextLine()) {
        if (reader.blank()) continue;
        const std::string_view statement = reader.word();
        if (statement == "v") points.push_back(reader.point());
        else if (statement == "f") {
            corners.clear();
            for (std::string_view word = reader.word(); !word.empty() && word[0] != '#'; word = reader.word())
                corners.push_back(objCorner(word, points.size(), reader));
            faces.add(corners, reader);
        } else if (std::ranges::find(ignored, statement) == std::end(ignored))
            reader.fail(quoted(statement) + " is not a statement that this program knows");
    }
    return faces.withPoints(std::move(points), 1, reader);
}

struct PlyElement {
    std::string name;
    int rows = 0;
    struct Property {
        std::string name;
        bool list = false;
    };
    std::vector<Property> properties;
};

std::vector<PlyElement> plyHeader(Reader &reader) {
    constexpr std::string_view types[] = {"char", "uchar", "short", "ushort", "int",   "uint",   "float",   "double",
                                          "int8", "uint8", "int16", "uint16", "int32", "uint32", "float32", "float64"};
    const auto checkType = [&](std::string_view word) {
        if (std::ranges::find(types, word) == std::end(types)) reader.notA("type", word);
    };
    if (!reader.nextLine() || reader.word() != "ply") reader.fail("a PLY file begins with a line \"ply\"", 1);
    std::vector<PlyElement> elements;
    bool format = false;
    while (reader.nextLine()) {
        const std::string_view statement = reader.word();
        if (statement == "end_header") {
            if (!format) reader.fail("the header has no format");
            return elements;
        }
        if (statement == "format") {
            if (const std::string_view word = reader.word(); word != "ascii")
                reader.fail("the format is " + quoted(word) + ": only ascii is read");
            format = true;
        } else if (statement == "element") {
            const std::string name(reader.word());
            elements.push_back({name, reader.wholeNumber(), {}});
            if (elements.back().rows < 0) reader.fail("an element needs a count of at least 0");
        } else if (statement == "property") {
            if (elements.empty()) reader.fail("a property needs an element before it");
            const std::string_view word = reader.word();
            const bool list = word == "list";
            checkType(list ? reader.word() : word);
            if (list) checkType(reader.word());
            elements.back().properties.push_back({std::string(reader.word()), list});
        } else if (statement != "comment" && statement != "obj_info")
            reader.fail(quoted(statement) + " is not a statement of a PLY header");
    }
    reader.fail("the header has no end");
}

Shape readPly(const std::string &file) {
    Reader reader(file, false);
    std::vector<Point> points;
    Faces faces;
    for (const PlyElement &element : plyHeader(reader)) {
        const bool vertices = element.name == "vertex", polygons = element.name == "face";
        const auto hasList = [&](std::string_view name) {
            return std::ranges::any_of(element.properties, [&](const auto &p) { return p.list && p.name == name; });
        };
        if (polygons && !hasList("vertex_indices") && !hasList("vertex_index"))
            reader.fail("the faces have no list vertex_indices");
        for (int row = 0; row < element.rows; ++row) {
            if (!reader.nextLine())
                reader.fail("the file ends before " + element.name + " " + std::to_string(row + 1) + " of " +
                            std::to_string(element.rows));
            Point p{};
            int coordinates = 0;
            for (const auto &property : element.properties) {
                if (property.list) {
                    const int length = reader.wholeNumber();
                    if (length < 0) reader.fail("a list needs a length of at least 0");
                    std::vector<int> corners;
                    const bool wanted = polygons && property.name.starts_with("vertex_ind");
                    for (int i = 0; i < length; ++i)
                        if (wanted) corners.push_back(reader.wholeNumber());
                        else reader.number();
                    if (wanted) faces.add(corners, reader);
                    continue;
                }
                const double value = reader.number();
                for (std::size_t axis = 0; axis < 3; ++axis)
                    if (vertices && property.name == std::string(1, "xyz"[axis])) {
                        p[axis] = value;
                        ++coordinates;
                    }
            }
            if (const std::string_view more = reader.word(); !more.empty())
                reader.fail(quoted(more) + " is behind the last property");
            if (!vertices) continue;
            if (coordinates != 3) reader.fail("the vertices have no properties x, y and z");
            points.push_back(p);
        }
    }
    return faces.withPoints(std::move(points), 0, reader);
}

Shape readXyz(const std::string &file) {
    Reader reader(file, false);
    Shape shape;
    while (reader.nextLine())
        if (!reader.blank()) shape.points.push_back(reader.point());
    return shape;
}

} // namespace

Shape readShape(const std::string &file) {
    const std::string ending = endingOf(file);
    Shape shape;
    if (ending == ".obj") shape = readObj(file);
    else if (ending == ".ply") shape = readPly(file);
    else if (ending == ".xyz") shape = readXyz(file);
    else throw std::runtime_error(file + " is neither .obj nor .ply nor .xyz");
    if (shape.points.empty()) throw std::runtime_error(file + " has no vertices");
    return shape;
}

Ball ballRound(const std::vector<Point> &points) {
    Point low = points[0], high = low, half{};
    for (const Point &p : points)
        for (std::size_t axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], p[axis]);
            high[axis] = std::max(high[axis], p[axis]);
        }
    Ball ball{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        ball.centre[axis] = low[axis] / 2 + high[axis] / 2;
        half[axis] = high[axis] / 2 - low[axis] / 2;
    }
    ball.radius = std::hypot(half[0], half[1], half[2]);
    return ball;
}

} // namespace shared
