// Eigenvalues and vectors of covariances of any scale, rank and clustering, by array calls that no matrix stops.
#pragma once

#include <vector>

namespace normals {

struct PrincipalAxes {
    std::vector<double> values;  // 3 a matrix, descending; not-a-numbers for a matrix that has no finite solution
    std::vector<double> vectors; // 9 a matrix, rows of 3; column j belongs to value j
    int calls = 0;
    std::size_t again = 0;    // matrices that the first treatment was wrong for
    double worstResidual = 0; // the largest |C z - w z| relative to the trace
    double inLibrary = 0;     // seconds
};

// Covariances: 9 a matrix, symmetric, not negative.
PrincipalAxes principalAxes(const std::vector<double> &covariances);

} // namespace normals
