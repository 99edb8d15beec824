#include "maps/CMatrix.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

CMatrix matrixOf(int rows, int cols, std::initializer_list<double> values) {
    CMatrix matrix(rows, cols);
    int i = 0;
    for (double value : values)
        matrix(i / cols, i % cols) = value, ++i;
    return matrix;
}

} // namespace

TEST(Matrix, SolveEliminatesWithoutPivotSearchAndRetriesOnceRotated) {
    const struct {
        const char* legend;
        CMatrix system;
        std::vector<double> solution; // empty: no attempt can eliminate, the result is not the solution
    } cases[] = {
        {"plain elimination", matrixOf(3, 4, {2, 1, 1, 7, 1, 3, 2, 13, 1, 0, 4, 13}), {1, 2, 3}},
        {"zero first pivot: the once-rotated retry solves it",
         matrixOf(3, 4, {0, 1, 1, 5, 1, 0, 1, 4, 1, 1, 0, 3}),
         {1, 2, 3}},
        {"zero pivot in the input and in its rotation, though a pivot search would solve it",
         matrixOf(3, 4, {0, 1, 0, 2, 0, 0, 1, 3, 1, 0, 0, 1}),
         {}},
        {"a second, cumulative rotation would give the identity; every retry sees the first rotation",
         matrixOf(4, 5, {0, 0, 1, 0, 3, 0, 0, 0, 1, 4, 1, 0, 0, 0, 1, 0, 1, 0, 0, 2}),
         {}},
    };
    for (const auto& c : cases) {
        const std::vector<double> x = c.system.SolveAugmented();
        ASSERT_EQ(x.size(), size_t(c.system.Rows())) << c.legend;
        if (c.solution.empty()) {
            const bool solved = std::isfinite(x[0]) && std::abs(x[0] - 1.0) < 1e-9;
            EXPECT_FALSE(solved) << c.legend;
            continue;
        }
        for (size_t i = 0; i < x.size(); ++i)
            EXPECT_NEAR(x[i], c.solution[i], 1e-12) << c.legend << " x" << i;
    }
}

TEST(Matrix, InvertIsCroutWithScaledPivotsAndAFloor) {
    const struct {
        const char* legend;
        CMatrix matrix;
        bool inverted;
        CMatrix inverse; // checked when inverted and not empty
    } cases[] = {
        {"general", matrixOf(3, 3, {4, 7, 0, 2, 6, 0, 0, 0, 1}), true,
         matrixOf(3, 3, {0.6, -0.7, 0, -0.2, 0.4, 0, 0, 0, 1})},
        {"needs a row exchange", matrixOf(3, 3, {0, 1, 0, 1, 0, 0, 0, 0, 1}), true,
         matrixOf(3, 3, {0, 1, 0, 1, 0, 0, 0, 0, 1})},
        {"a zero row is singular", matrixOf(3, 3, {1, 2, 3, 0, 0, 0, 4, 5, 6}), false, CMatrix()},
        {"not square", matrixOf(2, 3, {1, 0, 0, 0, 1, 0}), false, CMatrix()},
    };
    for (const auto& c : cases) {
        CMatrix matrix = c.matrix;
        EXPECT_EQ(matrix.Invert(), c.inverted) << c.legend;
        const CMatrix& expected = c.inverted ? c.inverse : c.matrix; // a failure leaves the matrix alone
        for (int i = 0; i < expected.Rows() * expected.Cols(); ++i)
            EXPECT_NEAR(matrix.Values()[i], expected.Values()[i], 1e-12) << c.legend << " element " << i;
    }

    // Singular with non-zero rows: the vanishing pivot becomes 1e-16, so the "inverse" is huge but finite.
    CMatrix singular = matrixOf(2, 2, {1, 2, 2, 4});
    ASSERT_TRUE(singular.Invert());
    EXPECT_TRUE(std::isfinite(singular(1, 1)));
    EXPECT_GT(std::abs(singular(1, 1)), 1e15);
}
