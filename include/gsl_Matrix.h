#ifndef gsl_Matrix_h
#define gsl_Matrix_h

#include "QVRShpCore_Export.h"

/// A transformation of space in doubles: a linear map followed by a displacement,
/// x' = m00 x + m01 y + m02 z + m03, and likewise y' and z' from the rows 1 and 2.
class QVRSHPCORE_API gsl_Matrix {
public:
    constexpr gsl_Matrix() = default; ///< the identity
    /// From the first three rows of an array; a fourth one is not read.
    constexpr explicit gsl_Matrix(double const (*rows)[4]) {
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < 4; ++column)
                m[row][column] = rows[row][column];
    }

    /// Row 0 to 2, column 0 to 3 (not checked).
    constexpr double GetM(int row, int column) const { return m[row][column]; }

private:
    double m[3][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};
};

#endif
