#include "g3d_XForm.h"

#include <cmath>
#include <limits>

namespace {

/// The 2 by 2 minors of the upper two rows (s) and of the lower two rows (c), from which determinant and inverse are
/// expanded (Laplace). Index: columns 01, 02, 03, 12, 13, 23.
struct Minors {
    explicit Minors(float const (&m)[4][4]) {
        int n = 0;
        for (int i = 0; i < 3; ++i)
            for (int j = i + 1; j < 4; ++j, ++n) {
                s[n] = double{m[0][i]} * m[1][j] - double{m[0][j]} * m[1][i];
                c[n] = double{m[2][i]} * m[3][j] - double{m[2][j]} * m[3][i];
            }
    }
    double determinant() const {
        return s[0] * c[5] - s[1] * c[4] + s[2] * c[3] + s[3] * c[2] - s[4] * c[1] + s[5] * c[0];
    }
    double s[6], c[6];
};

} // namespace

double g3d_XForm::Determinant() const {
    return Minors(m).determinant();
}

bool g3d_XForm::Invert() {
    Minors const minors(m);
    double const(&s)[6] = minors.s;
    double const(&c)[6] = minors.c;
    double const determinant = minors.determinant();
    if (determinant == 0)
        return false;

    double const adjugate[4][4] = {
        {m[1][1] * c[5] - m[1][2] * c[4] + m[1][3] * c[3], -m[0][1] * c[5] + m[0][2] * c[4] - m[0][3] * c[3],
         m[3][1] * s[5] - m[3][2] * s[4] + m[3][3] * s[3], -m[2][1] * s[5] + m[2][2] * s[4] - m[2][3] * s[3]},
        {-m[1][0] * c[5] + m[1][2] * c[2] - m[1][3] * c[1], m[0][0] * c[5] - m[0][2] * c[2] + m[0][3] * c[1],
         -m[3][0] * s[5] + m[3][2] * s[2] - m[3][3] * s[1], m[2][0] * s[5] - m[2][2] * s[2] + m[2][3] * s[1]},
        {m[1][0] * c[4] - m[1][1] * c[2] + m[1][3] * c[0], -m[0][0] * c[4] + m[0][1] * c[2] - m[0][3] * c[0],
         m[3][0] * s[4] - m[3][1] * s[2] + m[3][3] * s[0], -m[2][0] * s[4] + m[2][1] * s[2] - m[2][3] * s[0]},
        {-m[1][0] * c[3] + m[1][1] * c[1] - m[1][2] * c[0], m[0][0] * c[3] - m[0][1] * c[1] + m[0][2] * c[0],
         -m[3][0] * s[3] + m[3][1] * s[1] - m[3][2] * s[0], m[2][0] * s[3] - m[2][1] * s[1] + m[2][2] * s[0]}};

    double inverse[4][4];
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            inverse[i][j] = adjugate[i][j] / determinant;
            if (!(std::fabs(inverse[i][j]) <= double{std::numeric_limits<float>::max()}))
                return false;
        }
    *this = g3d_XForm(inverse);
    return true;
}
