// Spectra in the complex plane, and below each how far its values are off.
#pragma once

#include <complex>
#include <string>
#include <vector>

namespace spectra {

struct Mark {
    std::complex<double> known, computed;
    double difference, bound;
};

struct Panel {
    std::string title;
    bool logarithmic; // real parts
    std::vector<Mark> marks;
};

// Writes FILE.png or FILE.svg. Throws std::runtime_error if it cannot.
void plot(const std::string &file, const std::vector<Panel> &panels);

} // namespace spectra
