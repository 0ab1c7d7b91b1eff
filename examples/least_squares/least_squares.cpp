// Linear regression: fits a response by up to 12 predictors, by Householder QR.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "program.hpp"
#include "smx.h"
#include "table.hpp"

namespace {

constexpr std::size_t mostPredictors = 12;
constexpr int element = sizeof(double);

std::size_t columnOf(const shared::Table &data, const std::string &name) {
    const auto found = std::ranges::find(data.names, name);
    if (found != data.names.end()) return static_cast<std::size_t>(found - data.names.begin());
    for (std::size_t column = 0; column < data.columns(); ++column)
        if (name == std::to_string(column + 1)) return column;
    throw std::runtime_error(data.file + " has no column \"" + name + "\"");
}

struct Term {
    std::string name;
    double shift = 0, scale = 1; // the column that is factored is (x - shift) * scale
    double coefficient = 0, deviation = 0;
};

struct Fit {
    std::vector<Term> terms;
    std::size_t rows = 0;
    double residual = 0, rSquared = 0;
};

// From the coefficients of the shifted and scaled columns to those of the table's own.
void restore(const std::vector<Term> &terms, bool intercept, double *coefficients) {
    for (std::size_t j = 0; j < terms.size(); ++j) {
        coefficients[j] *= terms[j].scale;
        if (intercept && j > 0) coefficients[0] -= coefficients[j] * terms[j].shift;
    }
}

// Columns of a table may be nearly parallel to the constant term (years from 1947 to 1962) and of any magnitude. Taking
// a number near their mean from them makes the problem as well conditioned as it can be by such means: of Longley's
// coefficients, 13 digits are right with it and 10 without. With a constant term in the fit, any number may be taken
// without an error. The scale brings the columns to a length near 1, since the test of smxQRDecomp for a dependent
// column is absolute; it is a power of two and thus exact, as that of the response is, whose squares are summed, too.
double columnMean(const shared::Table &data, std::size_t column) {
    const double first = data.at(0, column); // so that a constant column has its own value
    double above = 0;
    for (std::size_t i = 0; i < data.rows(); ++i) {
        const double value = data.at(i, column);
        if (std::abs(value) > std::numeric_limits<double>::max() / 4) // differences must not overflow
            throw std::runtime_error(data.file + ": the numbers are too large");
        above += (value - first) / static_cast<double>(data.rows());
    }
    return first + above;
}

double scaleOf(const double *column, std::size_t step, std::size_t rows) {
    double greatest = 0;
    for (std::size_t i = 0; i < rows; ++i) greatest = std::max(greatest, std::abs(column[i * step]));
    return greatest > 0 ? std::ldexp(1.0, std::clamp(-std::ilogb(greatest), -1000, 1000)) : 1;
}

Fit fit(const shared::Table &data, std::size_t response, bool intercept) {
    Fit result;
    result.rows = data.rows();
    if (intercept) result.terms.push_back({"(intercept)"});
    std::vector<std::size_t> source(result.terms.size());
    for (std::size_t column = 0; column < data.columns(); ++column)
        if (column != response) {
            result.terms.push_back({data.names[column], intercept ? columnMean(data, column) : 0});
            source.push_back(column);
        }
    const std::size_t rows = data.rows(), terms = result.terms.size();
    const std::size_t predictors = terms - (intercept ? 1 : 0);
    if (predictors > mostPredictors)
        throw std::runtime_error(data.file + " has " + std::to_string(predictors) + " predictors; the most are " +
                                 std::to_string(mostPredictors));
    if (terms == 0) throw std::runtime_error(data.file + " has no predictors");
    if (rows <= terms)
        throw std::runtime_error(data.file + ": " + std::to_string(terms) + " coefficients need more than " +
                                 std::to_string(rows) + " rows");

    std::vector<double> a(rows * terms), qr(rows * terms), y(rows), buffer(rows);
    for (std::size_t j = 0; j < terms; ++j) {
        Term &term = result.terms[j];
        for (std::size_t i = 0; i < rows; ++i)
            a[i * terms + j] = intercept && j == 0 ? 1 : data.at(i, source[j]) - term.shift;
        term.scale = scaleOf(&a[j], terms, rows);
        for (std::size_t i = 0; i < rows; ++i) a[i * terms + j] *= term.scale;
    }
    const double level = intercept ? columnMean(data, response) : 0;
    for (std::size_t i = 0; i < rows; ++i) y[i] = data.at(i, response) - level;
    const double responseScale = scaleOf(y.data(), 1, rows);
    for (double &value : y) value *= responseScale;

    const int width = static_cast<int>(terms), height = static_cast<int>(rows), row = width * element;
    if (smxQRDecomp_m_64f(a.data(), row, element, buffer.data(), qr.data(), row, element, width, height) != smxStsNoErr)
        throw std::runtime_error(data.file + ": the predictors are linearly dependent" +
                                 (intercept ? ", or one is constant" : ""));
    std::vector<double> solution(terms);
    smxQRBackSubst_mv_64f(qr.data(), row, element, buffer.data(), y.data(), element, solution.data(), element, width,
                          height);

    // The residual, while all numbers are still of moderate size.
    double squares = 0, total = 0;
    for (std::size_t i = 0; i < rows; ++i) {
        double rest = y[i];
        for (std::size_t j = 0; j < terms; ++j) rest -= a[i * terms + j] * solution[j];
        squares += rest * rest;
        total += y[i] * y[i];
    }
    if (!std::isfinite(squares + total)) throw std::runtime_error(data.file + ": the numbers are too large");
    result.residual = std::sqrt(squares / static_cast<double>(rows - terms)) / responseScale;
    for (double &coefficient : solution) coefficient /= responseScale;
    result.rSquared = 1 - squares / total;

    // The covariance of the coefficients is the variance times inv(R) inv(R)t. R with zeros below it is what the
    // decomposition of R itself would leave, up to the signs of its rows: its reflectors have nothing behind their
    // leading 1. So the solutions for the unit vectors are the columns of inv(R), up to signs that the squares lose.
    std::vector<double> r(terms * terms), unit(terms * terms), inverse(terms * terms);
    for (std::size_t i = 0; i < terms; ++i) std::copy_n(&qr[i * terms + i], terms - i, &r[i * terms + i]);
    for (std::size_t i = 0; i < terms; ++i) unit[i * terms + i] = 1;
    smxQRBackSubst_mva_64f(r.data(), row, element, buffer.data(), unit.data(), row, element, inverse.data(), row,
                           element, width, width, width);

    restore(result.terms, intercept, solution.data());
    if (intercept) solution[0] += level;
    for (std::size_t j = 0; j < terms; ++j) {
        result.terms[j].coefficient = solution[j];
        restore(result.terms, intercept, &inverse[j * terms]);
        for (std::size_t i = 0; i < terms; ++i)
            result.terms[i].deviation = std::hypot(result.terms[i].deviation, inverse[j * terms + i] * result.residual);
    }
    return result;
}

void print(const Fit &fit, const std::string &response, const std::string &file) {
    std::printf("%s: %s, %zu rows\n\n%-14s %23s %23s\n", file.c_str(), response.c_str(), fit.rows, "", "coefficient",
                "standard deviation");
    for (const Term &term : fit.terms)
        std::printf("%-14s %23.15g %23.15g\n", term.name.c_str(), term.coefficient, term.deviation);
    std::printf("\n%-30s %.15g\n", "residual standard deviation", fit.residual);
    if (std::isfinite(fit.rSquared)) std::printf("%-30s %.15g\n", "R squared", fit.rSquared);
    else std::printf("%-30s %s\n", "R squared", "undefined: the response does not vary");
    std::printf("%-30s %zu\n", "degrees of freedom", fit.rows - fit.terms.size());
}

} // namespace

int main(int count, char **arguments) {
    using namespace shared;
    std::string file, response = "1";
    bool noIntercept = false;
    return execute(
        {"least_squares",
         "Fits one column of a table, the response, by all the others, the predictors, in the sense of least squares.",
         {{"DATA.csv", "rows of numbers, with or without a heading", text(file)},
          {"--response COLUMN", "its name, or its number from 1 on (default: 1)", text(response)},
          {"--no-intercept", "fit without a constant term", flag(noIntercept)}},
         "Exits with 2 on bad input.\n"},
        count, arguments, [&] {
            const Table data = readTable(file);
            const std::size_t column = columnOf(data, response);
            print(fit(data, column, !noIntercept), data.names[column], file);
            return 0;
        });
}
