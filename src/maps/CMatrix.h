#pragma once

#include <vector>

// A small dense matrix of doubles, rows x columns, stored row by row: the 3x3 conversions of a map
// calibration and the augmented systems (up to 8x9) its fit solves. New matrices are zero.
class CMatrix {
public:
    CMatrix(int rows = 3, int cols = 3);
    static CMatrix Identity(int n);

    int Rows() const { return m_nRows; }
    int Cols() const { return m_nCols; }
    double& operator()(int row, int col) { return m_values[row * m_nCols + col]; }
    double operator()(int row, int col) const { return m_values[row * m_nCols + col]; }
    const std::vector<double>& Values() const { return m_values; }

    void SetZero();
    void SetIdentity(); // square matrices only; the diagonal becomes 1, the rest 0

    // out := this * in, with in of Cols() and out of Rows() elements.
    void MultiplyVector(const double* in, double* out) const;

    // Inverts in place by Crout's LU decomposition with row scaling and partial pivoting. A row
    // without a non-zero element (or a matrix that is not square) fails and leaves the matrix as it
    // was; a pivot smaller than 1e-16 in magnitude is replaced by 1e-16.
    bool Invert();

    // The solution of this n x (n+1) augmented system. Forward elimination without a pivot search;
    // an attempt that meets a diagonal element of exactly 0 starts again from the system with its
    // rows rotated once (row 0 last). Every retry sees that same once-rotated system, at most n-1
    // attempts are made, and back substitution runs on the last attempt whatever its outcome, so a
    // system none of them can eliminate yields non-finite or wrong numbers rather than an error.
    std::vector<double> SolveAugmented() const;

private:
    bool Eliminate();
    void RotateRowsUp();
    std::vector<double> BackSubstitute() const;

    int m_nRows;
    int m_nCols;
    std::vector<double> m_values;
};
