#include "maps/CMatrix.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kTinyPivot = 1e-16;

} // namespace

CMatrix::CMatrix(int rows, int cols)
    : m_nRows(rows), m_nCols(cols), m_values(static_cast<size_t>(rows) * static_cast<size_t>(cols), 0.0) {}

CMatrix CMatrix::Identity(int n) {
    CMatrix matrix(n, n);
    matrix.SetIdentity();
    return matrix;
}

void CMatrix::SetZero() {
    std::fill(m_values.begin(), m_values.end(), 0.0);
}

void CMatrix::SetIdentity() {
    SetZero();
    for (int i = 0; i < std::min(m_nRows, m_nCols); ++i)
        (*this)(i, i) = 1.0;
}

void CMatrix::MultiplyVector(const double* in, double* out) const {
    for (int row = 0; row < m_nRows; ++row) {
        double sum = 0.0;
        for (int col = 0; col < m_nCols; ++col)
            sum += (*this)(row, col) * in[col];
        out[row] = sum;
    }
}

bool CMatrix::Invert() {
    if (m_nRows != m_nCols) return false;
    const int n = m_nRows;
    CMatrix lu = *this;
    std::vector<double> rowScale(n);
    for (int row = 0; row < n; ++row) {
        double largest = 0.0;
        for (int col = 0; col < n; ++col)
            largest = std::max(largest, std::abs(lu(row, col)));
        if (largest == 0.0) return false;
        rowScale[row] = 1.0 / largest;
    }

    // Crout: column by column, the upper part first, then the lower part with the pivot chosen by
    // the largest scaled magnitude.
    std::vector<int> pivotRows(n);
    for (int col = 0; col < n; ++col) {
        for (int row = 0; row < col; ++row) {
            double sum = lu(row, col);
            for (int k = 0; k < row; ++k)
                sum -= lu(row, k) * lu(k, col);
            lu(row, col) = sum;
        }
        double best = -1.0;
        int pivotRow = col;
        for (int row = col; row < n; ++row) {
            double sum = lu(row, col);
            for (int k = 0; k < col; ++k)
                sum -= lu(row, k) * lu(k, col);
            lu(row, col) = sum;
            if (rowScale[row] * std::abs(sum) > best) {
                best = rowScale[row] * std::abs(sum);
                pivotRow = row;
            }
        }
        if (pivotRow != col) {
            for (int k = 0; k < n; ++k)
                std::swap(lu(pivotRow, k), lu(col, k));
            rowScale[pivotRow] = rowScale[col];
        }
        pivotRows[col] = pivotRow;
        if (std::abs(lu(col, col)) < kTinyPivot) lu(col, col) = kTinyPivot;
        for (int row = col + 1; row < n; ++row)
            lu(row, col) /= lu(col, col);
    }

    CMatrix inverse(n, n);
    std::vector<double> column(n);
    for (int unit = 0; unit < n; ++unit) {
        std::fill(column.begin(), column.end(), 0.0);
        column[unit] = 1.0;
        for (int row = 0; row < n; ++row) {
            double sum = column[pivotRows[row]];
            column[pivotRows[row]] = column[row];
            for (int k = 0; k < row; ++k)
                sum -= lu(row, k) * column[k];
            column[row] = sum;
        }
        for (int row = n - 1; row >= 0; --row) {
            double sum = column[row];
            for (int k = row + 1; k < n; ++k)
                sum -= lu(row, k) * column[k];
            column[row] = sum / lu(row, row);
        }
        for (int row = 0; row < n; ++row)
            inverse(row, unit) = column[row];
    }
    *this = inverse;
    return true;
}

std::vector<double> CMatrix::SolveAugmented() const {
    CMatrix work = *this;
    for (int attempt = 0; attempt < m_nRows - 1; ++attempt) {
        work = *this;
        if (attempt > 0) work.RotateRowsUp(); // from the input each time: never a second rotation
        if (work.Eliminate()) break;
    }
    return work.BackSubstitute();
}

bool CMatrix::Eliminate() {
    for (int i = 0; i + 1 < m_nRows; ++i) {
        const double pivot = (*this)(i, i);
        if (pivot == 0.0) return false;
        for (int j = i + 1; j < m_nRows; ++j) {
            const double below = (*this)(j, i);
            if (below == 0.0) continue;
            // The scaled form row j := row i - (pivot / below) * row j, which clears column i of row j.
            const double factor = pivot / below;
            for (int k = i; k < m_nCols; ++k)
                (*this)(j, k) = (*this)(i, k) - factor * (*this)(j, k);
        }
    }
    return true;
}

void CMatrix::RotateRowsUp() {
    std::rotate(m_values.begin(), m_values.begin() + m_nCols, m_values.end());
}

std::vector<double> CMatrix::BackSubstitute() const {
    const int n = m_nRows;
    std::vector<double> solution(n);
    for (int row = n - 1; row >= 0; --row) {
        double sum = (*this)(row, n);
        for (int k = row + 1; k < n; ++k)
            sum -= (*this)(row, k) * solution[k];
        solution[row] = sum / (*this)(row, row);
    }
    return solution;
}
