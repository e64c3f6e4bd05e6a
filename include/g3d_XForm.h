#ifndef g3d_XForm_h
#define g3d_XForm_h

#include "QVRShpCore_Export.h"

/// A 4 by 4 matrix of floats; (i, j) is row i, column j, both from 0 to 3 (not checked).
class QVRSHPCORE_API g3d_XForm {
public:
    constexpr g3d_XForm() = default; ///< the identity

    /// The matrix of four rows of four numbers.
    explicit constexpr g3d_XForm(float const (*rows)[4]) { copyRows(rows); }

    /// The same from doubles, each narrowed to float.
    explicit constexpr g3d_XForm(double const (*rows)[4]) { copyRows(rows); }

    /// Entry (i, j), to be written or read.
    constexpr float & M(int i, int j) { return m[i][j]; }
    constexpr float GetM(int i, int j) const { return m[i][j]; }

    /// Replaces the matrix by its inverse, which is formed in double from the float entries and narrowed. False, and
    /// the matrix unchanged, when it is singular: its determinant is 0, or the inverse has an entry that is no finite
    /// float.
    bool Invert();

    /// The determinant, formed in double from the float entries.
    double Determinant() const;

private:
    template <class Number> constexpr void copyRows(Number const (*rows)[4]) {
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j)
                m[i][j] = static_cast<float>(rows[i][j]);
    }

    float m[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};

#endif
