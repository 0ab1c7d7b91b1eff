// Matrices from the literature whose eigenvalues are known, and these eigenvalues.
#pragma once

#include <complex>
#include <string>
#include <vector>

namespace spectra {

using Value = std::complex<long double>;

struct Named {
    std::string name;
    int side;
    std::vector<double> elements; // rows
    std::vector<Value> known;     // found without the library, to long double
    // At least the condition of the worst conditioned eigenvalue: 1 / |x' y| for its left and right unit vectors.
    double condition;
    bool symmetric = false;
    bool logarithmic = false; // drawn so
};

std::vector<Named> namedMatrices();

} // namespace spectra
