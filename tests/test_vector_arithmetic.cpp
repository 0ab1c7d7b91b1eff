// Add, Sub and Mul on vectors and constants against a sequential model: every element is read, computed and stored
// before the next one; constants of objects are read before their elements.
#include "reference.hpp"

namespace {

using namespace reference::models;
using reference::Form;

template <class T>
struct VectorArithmetic : ::testing::Test {};
TYPED_TEST_SUITE(VectorArithmetic, factor::BothTypes);

template <class T>
int arithmetic(const Workspace<T> &w) {
    using members::Structure;
    const std::string code = w.code();
    const members::Operand &first = w.row.operands[0], &second = w.row.operands[1];
    const bool vectors = second.structure == Structure::vector;
    const Operand<T> &x = w[first.name], &d = w["dst"], &y = second.structure == Structure::value ? d : w[second.name];
    // Lengths 3 to 6 keep the single vector; a single minuend is kept by float only.
    const bool kept = (code == "vav" || (code == "vva" && sizeof(T) == 4)) && w.width >= 3 && w.width <= 6 &&
                      (w.form == Form::packed || w.form == Form::strided);
    std::vector<T> single;
    for (int j = 0; j < w.width; ++j) single.push_back((code == "vva" ? x : y)(0, vectors ? j : 0));
    for (int n = 0; n < w.count; ++n) {
        const T constant = second.structure == Structure::value ? static_cast<T>(w.constant) : y(n, 0);
        for (int j = 0; j < w.width; ++j) {
            const T one = kept && code == "vva" ? single[static_cast<std::size_t>(j)] : x(n, j);
            const T other = !vectors ? constant : kept && code == "vav" ? single[static_cast<std::size_t>(j)] : y(n, j);
            d(n, j) = w.row.name[0] == 'A'   ? one + other
                      : w.row.name[0] == 'M' ? one * other
                      : code[0] == 'c'       ? other - one
                                             : one - other;
        }
    }
    return smxStsNoErr;
}

} // namespace

TYPED_TEST(VectorArithmetic, HasTheBitsOfTheReference) {
    const auto belongs = [](const std::string &row) {
        return (row.rfind("Add_", 0) == 0 || row.rfind("Sub_", 0) == 0 || row.rfind("Mul_", 0) == 0) &&
               row.find_first_of("mt", 4) == row.npos;
    };
    EXPECT_GT((compare_all<TypeParam>(belongs, true, arithmetic<TypeParam>)), 30000);
}
