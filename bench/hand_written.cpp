#include "hand_written.h"

#include <cmath>

namespace {

using hand::Point;

// Values and derivatives of each element type, written out.

/// First-order functions of one coordinate.
struct Linear {
    explicit Linear(double x) : a((1 - x) / 2), b((1 + x) / 2) {}
    double a, b;
};

/// Second-order functions of one coordinate, at -1, 0 and 1.
struct Quadratic {
    explicit Quadratic(double x)
        : a(x * (x - 1) / 2), m(1 - x * x), b(x * (x + 1) / 2), da(x - 0.5), dm(-2 * x), db(x + 0.5) {}
    double a, m, b, da, dm, db;
};

struct Hexahedron8 {
    static constexpr int nodes = 8, dimensions = 3;
    static void row(Point const & p, double * N) {
        Linear const g(p[0]), h(p[1]), r(p[2]);
        double const aa = g.a * h.a, ba = g.b * h.a, bb = g.b * h.b, ab = g.a * h.b;
        N[0] = aa * r.a;
        N[1] = ba * r.a;
        N[2] = bb * r.a;
        N[3] = ab * r.a;
        N[4] = aa * r.b;
        N[5] = ba * r.b;
        N[6] = bb * r.b;
        N[7] = ab * r.b;
    }
    static void derivatives(Point const & p, Point * d) {
        Linear const g(p[0]), h(p[1]), r(p[2]);
        double const haRa = h.a * r.a / 2, hbRa = h.b * r.a / 2, haRb = h.a * r.b / 2, hbRb = h.b * r.b / 2;
        double const gaRa = g.a * r.a / 2, gbRa = g.b * r.a / 2, gaRb = g.a * r.b / 2, gbRb = g.b * r.b / 2;
        double const aa = g.a * h.a / 2, ba = g.b * h.a / 2, bb = g.b * h.b / 2, ab = g.a * h.b / 2;
        d[0] = {-haRa, -gaRa, -aa};
        d[1] = {haRa, -gbRa, -ba};
        d[2] = {hbRa, gbRa, -bb};
        d[3] = {-hbRa, gaRa, -ab};
        d[4] = {-haRb, -gaRb, aa};
        d[5] = {haRb, -gbRb, ba};
        d[6] = {hbRb, gbRb, bb};
        d[7] = {-hbRb, gaRb, ab};
    }
};

struct Hexahedron20 {
    static constexpr int nodes = 20, dimensions = 3;

    static double corner(double g, double h, double r, double sum) { return g * h * r * (sum - 2) / 8; }
    static void row(Point const & p, double * N) {
        double const g = p[0], h = p[1], r = p[2];
        double const gm = 1 - g, gp = 1 + g, hm = 1 - h, hp = 1 + h, rm = 1 - r, rp = 1 + r;
        double const gg = gm * gp / 4, hh = hm * hp / 4, rr = rm * rp / 4;
        N[0] = corner(gm, hm, rm, -g - h - r);
        N[1] = corner(gp, hm, rm, g - h - r);
        N[2] = corner(gp, hp, rm, g + h - r);
        N[3] = corner(gm, hp, rm, -g + h - r);
        N[4] = corner(gm, hm, rp, -g - h + r);
        N[5] = corner(gp, hm, rp, g - h + r);
        N[6] = corner(gp, hp, rp, g + h + r);
        N[7] = corner(gm, hp, rp, -g + h + r);
        N[8] = gg * hm * rm;
        N[9] = hh * gp * rm;
        N[10] = gg * hp * rm;
        N[11] = hh * gm * rm;
        N[12] = gg * hm * rp;
        N[13] = hh * gp * rp;
        N[14] = gg * hp * rp;
        N[15] = hh * gm * rp;
        N[16] = rr * gm * hm;
        N[17] = rr * gp * hm;
        N[18] = rr * gp * hp;
        N[19] = rr * gm * hp;
    }

    static Point cornerSlopes(double a, double b, double c, Point const & p) {
        double const g = a * p[0], h = b * p[1], r = c * p[2];
        double const gs = 1 + g, hs = 1 + h, rs = 1 + r;
        return {a * hs * rs * (2 * g + h + r - 1) / 8, b * gs * rs * (g + 2 * h + r - 1) / 8,
                c * gs * hs * (g + h + 2 * r - 1) / 8};
    }
    static void derivatives(Point const & p, Point * d) {
        double const g = p[0], h = p[1], r = p[2];
        double const gm = 1 - g, gp = 1 + g, hm = 1 - h, hp = 1 + h, rm = 1 - r, rp = 1 + r;
        double const gg = gm * gp / 4, hh = hm * hp / 4, rr = rm * rp / 4;
        d[0] = cornerSlopes(-1, -1, -1, p);
        d[1] = cornerSlopes(1, -1, -1, p);
        d[2] = cornerSlopes(1, 1, -1, p);
        d[3] = cornerSlopes(-1, 1, -1, p);
        d[4] = cornerSlopes(-1, -1, 1, p);
        d[5] = cornerSlopes(1, -1, 1, p);
        d[6] = cornerSlopes(1, 1, 1, p);
        d[7] = cornerSlopes(-1, 1, 1, p);
        d[8] = {-g * hm * rm / 2, -gg * rm, -gg * hm};
        d[9] = {hh * rm, -h * gp * rm / 2, -hh * gp};
        d[10] = {-g * hp * rm / 2, gg * rm, -gg * hp};
        d[11] = {-hh * rm, -h * gm * rm / 2, -hh * gm};
        d[12] = {-g * hm * rp / 2, -gg * rp, gg * hm};
        d[13] = {hh * rp, -h * gp * rp / 2, hh * gp};
        d[14] = {-g * hp * rp / 2, gg * rp, gg * hp};
        d[15] = {-hh * rp, -h * gm * rp / 2, hh * gm};
        d[16] = {-rr * hm, -rr * gm, -r * gm * hm / 2};
        d[17] = {rr * hm, -rr * gp, -r * gp * hm / 2};
        d[18] = {rr * hp, rr * gp, -r * gp * hp / 2};
        d[19] = {-rr * hp, rr * gm, -r * gm * hp / 2};
    }
};

struct Hexahedron27 {
    static constexpr int nodes = 27, dimensions = 3;
    static void row(Point const & p, double * N) {
        Quadratic const g(p[0]), h(p[1]), r(p[2]);
        double const aa = g.a * h.a, ba = g.b * h.a, bb = g.b * h.b, ab = g.a * h.b;
        double const ma = g.m * h.a, bm = g.b * h.m, mb = g.m * h.b, am = g.a * h.m, mm = g.m * h.m;
        N[0] = aa * r.a;
        N[1] = ba * r.a;
        N[2] = bb * r.a;
        N[3] = ab * r.a;
        N[4] = aa * r.b;
        N[5] = ba * r.b;
        N[6] = bb * r.b;
        N[7] = ab * r.b;
        N[8] = ma * r.a;
        N[9] = bm * r.a;
        N[10] = mb * r.a;
        N[11] = am * r.a;
        N[12] = ma * r.b;
        N[13] = bm * r.b;
        N[14] = mb * r.b;
        N[15] = am * r.b;
        N[16] = aa * r.m;
        N[17] = ba * r.m;
        N[18] = bb * r.m;
        N[19] = ab * r.m;
        N[20] = mm * r.m;
        N[21] = mm * r.a;
        N[22] = mm * r.b;
        N[23] = ma * r.m;
        N[24] = bm * r.m;
        N[25] = mb * r.m;
        N[26] = am * r.m;
    }
    static void derivatives(Point const & p, Point * d) {
        Quadratic const g(p[0]), h(p[1]), r(p[2]);
        auto const slopes = [](double u, double du, double v, double dv, double w, double dw) {
            return Point{du * v * w, u * dv * w, u * v * dw};
        };
        d[0] = slopes(g.a, g.da, h.a, h.da, r.a, r.da);
        d[1] = slopes(g.b, g.db, h.a, h.da, r.a, r.da);
        d[2] = slopes(g.b, g.db, h.b, h.db, r.a, r.da);
        d[3] = slopes(g.a, g.da, h.b, h.db, r.a, r.da);
        d[4] = slopes(g.a, g.da, h.a, h.da, r.b, r.db);
        d[5] = slopes(g.b, g.db, h.a, h.da, r.b, r.db);
        d[6] = slopes(g.b, g.db, h.b, h.db, r.b, r.db);
        d[7] = slopes(g.a, g.da, h.b, h.db, r.b, r.db);
        d[8] = slopes(g.m, g.dm, h.a, h.da, r.a, r.da);
        d[9] = slopes(g.b, g.db, h.m, h.dm, r.a, r.da);
        d[10] = slopes(g.m, g.dm, h.b, h.db, r.a, r.da);
        d[11] = slopes(g.a, g.da, h.m, h.dm, r.a, r.da);
        d[12] = slopes(g.m, g.dm, h.a, h.da, r.b, r.db);
        d[13] = slopes(g.b, g.db, h.m, h.dm, r.b, r.db);
        d[14] = slopes(g.m, g.dm, h.b, h.db, r.b, r.db);
        d[15] = slopes(g.a, g.da, h.m, h.dm, r.b, r.db);
        d[16] = slopes(g.a, g.da, h.a, h.da, r.m, r.dm);
        d[17] = slopes(g.b, g.db, h.a, h.da, r.m, r.dm);
        d[18] = slopes(g.b, g.db, h.b, h.db, r.m, r.dm);
        d[19] = slopes(g.a, g.da, h.b, h.db, r.m, r.dm);
        d[20] = slopes(g.m, g.dm, h.m, h.dm, r.m, r.dm);
        d[21] = slopes(g.m, g.dm, h.m, h.dm, r.a, r.da);
        d[22] = slopes(g.m, g.dm, h.m, h.dm, r.b, r.db);
        d[23] = slopes(g.m, g.dm, h.a, h.da, r.m, r.dm);
        d[24] = slopes(g.b, g.db, h.m, h.dm, r.m, r.dm);
        d[25] = slopes(g.m, g.dm, h.b, h.db, r.m, r.dm);
        d[26] = slopes(g.a, g.da, h.m, h.dm, r.m, r.dm);
    }
};

struct Tetrahedron4 {
    static constexpr int nodes = 4, dimensions = 3;
    static void row(Point const & p, double * N) {
        N[0] = 1 - p[0] - p[1] - p[2];
        N[1] = p[0];
        N[2] = p[1];
        N[3] = p[2];
    }
    static void derivatives(Point const &, Point * d) {
        d[0] = {-1, -1, -1};
        d[1] = {1, 0, 0};
        d[2] = {0, 1, 0};
        d[3] = {0, 0, 1};
    }
};

struct Tetrahedron10 {
    static constexpr int nodes = 10, dimensions = 3;
    static void row(Point const & p, double * N) {
        double const g = p[0], h = p[1], r = p[2], s = 1 - g - h - r;
        N[0] = s * (2 * s - 1);
        N[1] = g * (2 * g - 1);
        N[2] = h * (2 * h - 1);
        N[3] = r * (2 * r - 1);
        N[4] = 4 * s * g;
        N[5] = 4 * g * h;
        N[6] = 4 * s * h;
        N[7] = 4 * s * r;
        N[8] = 4 * g * r;
        N[9] = 4 * h * r;
    }
    static void derivatives(Point const & p, Point * d) {
        double const g = p[0], h = p[1], r = p[2], s = 1 - g - h - r;
        double const g4 = 4 * g, h4 = 4 * h, r4 = 4 * r, s4 = 4 * s;
        d[0] = {1 - s4, 1 - s4, 1 - s4};
        d[1] = {g4 - 1, 0, 0};
        d[2] = {0, h4 - 1, 0};
        d[3] = {0, 0, r4 - 1};
        d[4] = {s4 - g4, -g4, -g4};
        d[5] = {h4, g4, 0};
        d[6] = {-h4, s4 - h4, -h4};
        d[7] = {-r4, -r4, s4 - r4};
        d[8] = {r4, 0, g4};
        d[9] = {0, r4, h4};
    }
};

struct Prism6 {
    static constexpr int nodes = 6, dimensions = 3;
    static void row(Point const & p, double * N) {
        double const g = p[0], h = p[1], s = 1 - g - h;
        Linear const r(p[2]);
        N[0] = s * r.a;
        N[1] = g * r.a;
        N[2] = h * r.a;
        N[3] = s * r.b;
        N[4] = g * r.b;
        N[5] = h * r.b;
    }
    static void derivatives(Point const & p, Point * d) {
        double const g = p[0], h = p[1], s = 1 - g - h;
        Linear const r(p[2]);
        d[0] = {-r.a, -r.a, -s / 2};
        d[1] = {r.a, 0, -g / 2};
        d[2] = {0, r.a, -h / 2};
        d[3] = {-r.b, -r.b, s / 2};
        d[4] = {r.b, 0, g / 2};
        d[5] = {0, r.b, h / 2};
    }
};

struct Prism15 {
    static constexpr int nodes = 15, dimensions = 3;
    static void row(Point const & p, double * N) {
        double const g = p[0], h = p[1], s = 1 - g - h, r = p[2];
        double const a = (1 - r) / 2, b = (1 + r) / 2, m = 1 - r * r;
        N[0] = s * a * (2 * s - 2 - r);
        N[1] = g * a * (2 * g - 2 - r);
        N[2] = h * a * (2 * h - 2 - r);
        N[3] = s * b * (2 * s - 2 + r);
        N[4] = g * b * (2 * g - 2 + r);
        N[5] = h * b * (2 * h - 2 + r);
        N[6] = 4 * s * g * a;
        N[7] = 4 * g * h * a;
        N[8] = 4 * h * s * a;
        N[9] = 4 * s * g * b;
        N[10] = 4 * g * h * b;
        N[11] = 4 * h * s * b;
        N[12] = s * m;
        N[13] = g * m;
        N[14] = h * m;
    }
    static void derivatives(Point const & p, Point * d) {
        double const g = p[0], h = p[1], s = 1 - g - h, r = p[2];
        double const a = (1 - r) / 2, b = (1 + r) / 2, m = 1 - r * r;
        double const sa = a * (4 * s - 2 - r), sb = b * (4 * s - 2 + r);
        d[0] = {-sa, -sa, s * (0.5 - s + r)};
        d[1] = {a * (4 * g - 2 - r), 0, g * (0.5 - g + r)};
        d[2] = {0, a * (4 * h - 2 - r), h * (0.5 - h + r)};
        d[3] = {-sb, -sb, s * (s - 0.5 + r)};
        d[4] = {b * (4 * g - 2 + r), 0, g * (g - 0.5 + r)};
        d[5] = {0, b * (4 * h - 2 + r), h * (h - 0.5 + r)};
        d[6] = {4 * (s - g) * a, -4 * g * a, -2 * s * g};
        d[7] = {4 * h * a, 4 * g * a, -2 * g * h};
        d[8] = {-4 * h * a, 4 * (s - h) * a, -2 * h * s};
        d[9] = {4 * (s - g) * b, -4 * g * b, 2 * s * g};
        d[10] = {4 * h * b, 4 * g * b, 2 * g * h};
        d[11] = {-4 * h * b, 4 * (s - h) * b, 2 * h * s};
        d[12] = {-m, -m, -2 * r * s};
        d[13] = {m, 0, -2 * r * g};
        d[14] = {0, m, -2 * r * h};
    }
};

struct Pyramid5 {
    static constexpr int nodes = 5, dimensions = 3;
    static void row(Point const & p, double * N) {
        Linear const g(p[0]), h(p[1]), r(p[2]);
        N[0] = g.a * h.a * r.a;
        N[1] = g.b * h.a * r.a;
        N[2] = g.b * h.b * r.a;
        N[3] = g.a * h.b * r.a;
        N[4] = r.b;
    }
    static void derivatives(Point const & p, Point * d) {
        Linear const g(p[0]), h(p[1]), r(p[2]);
        double const ha = h.a * r.a / 2, hb = h.b * r.a / 2, ga = g.a * r.a / 2, gb = g.b * r.a / 2;
        d[0] = {-ha, -ga, -g.a * h.a / 2};
        d[1] = {ha, -gb, -g.b * h.a / 2};
        d[2] = {hb, gb, -g.b * h.b / 2};
        d[3] = {-hb, ga, -g.a * h.b / 2};
        d[4] = {0, 0, 0.5};
    }
};

struct Quadrilateral4 {
    static constexpr int nodes = 4, dimensions = 2;
    static void row(Point const & p, double * N) {
        Linear const g(p[0]), h(p[1]);
        N[0] = g.a * h.a;
        N[1] = g.b * h.a;
        N[2] = g.b * h.b;
        N[3] = g.a * h.b;
    }
    static void derivatives(Point const & p, Point * d) {
        Linear const g(p[0]), h(p[1]);
        d[0] = {-h.a / 2, -g.a / 2, 0};
        d[1] = {h.a / 2, -g.b / 2, 0};
        d[2] = {h.b / 2, g.b / 2, 0};
        d[3] = {-h.b / 2, g.a / 2, 0};
    }
};

struct Quadrilateral8 {
    static constexpr int nodes = 8, dimensions = 2;
    static void row(Point const & p, double * N) {
        double const g = p[0], h = p[1], gm = 1 - g, gp = 1 + g, hm = 1 - h, hp = 1 + h;
        N[0] = gm * hm * (-g - h - 1) / 4;
        N[1] = gp * hm * (g - h - 1) / 4;
        N[2] = gp * hp * (g + h - 1) / 4;
        N[3] = gm * hp * (-g + h - 1) / 4;
        N[4] = gm * gp * hm / 2;
        N[5] = hm * hp * gp / 2;
        N[6] = gm * gp * hp / 2;
        N[7] = hm * hp * gm / 2;
    }
    static void derivatives(Point const & p, Point * d) {
        double const g = p[0], h = p[1], gm = 1 - g, gp = 1 + g, hm = 1 - h, hp = 1 + h;
        d[0] = {hm * (2 * g + h) / 4, gm * (g + 2 * h) / 4, 0};
        d[1] = {hm * (2 * g - h) / 4, gp * (2 * h - g) / 4, 0};
        d[2] = {hp * (2 * g + h) / 4, gp * (g + 2 * h) / 4, 0};
        d[3] = {hp * (2 * g - h) / 4, gm * (2 * h - g) / 4, 0};
        d[4] = {-g * hm, -gm * gp / 2, 0};
        d[5] = {hm * hp / 2, -h * gp, 0};
        d[6] = {-g * hp, gm * gp / 2, 0};
        d[7] = {-hm * hp / 2, -h * gm, 0};
    }
};

struct Triangle3 {
    static constexpr int nodes = 3, dimensions = 2;
    static void row(Point const & p, double * N) {
        N[0] = 1 - p[0] - p[1];
        N[1] = p[0];
        N[2] = p[1];
    }
    static void derivatives(Point const &, Point * d) {
        d[0] = {-1, -1, 0};
        d[1] = {1, 0, 0};
        d[2] = {0, 1, 0};
    }
};

struct Triangle6 {
    static constexpr int nodes = 6, dimensions = 2;
    static void row(Point const & p, double * N) {
        double const g = p[0], h = p[1], s = 1 - g - h;
        N[0] = s * (2 * s - 1);
        N[1] = g * (2 * g - 1);
        N[2] = h * (2 * h - 1);
        N[3] = 4 * s * g;
        N[4] = 4 * g * h;
        N[5] = 4 * h * s;
    }
    static void derivatives(Point const & p, Point * d) {
        double const g = p[0], h = p[1], s = 1 - g - h;
        d[0] = {1 - 4 * s, 1 - 4 * s, 0};
        d[1] = {4 * g - 1, 0, 0};
        d[2] = {0, 4 * h - 1, 0};
        d[3] = {4 * (s - g), -4 * g, 0};
        d[4] = {4 * h, 4 * g, 0};
        d[5] = {-4 * h, 4 * (s - h), 0};
    }
};

// The operations on an element of known type.

template <class E> void jacobian(Point const & iso, Point const * nodes, double (&matrix)[3][3]) {
    Point slopes[E::nodes];
    E::derivatives(iso, slopes);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < E::dimensions; ++column) {
            double sum = 0;
            for (int n = 0; n < E::nodes; ++n)
                sum += slopes[n][column] * nodes[n][row];
            matrix[row][column] = sum;
        }
}

template <class E> Point toSpace(Point const & iso, Point const * nodes) {
    double values[E::nodes];
    E::row(iso, values);
    Point sum = {};
    for (int n = 0; n < E::nodes; ++n)
        for (int c = 0; c < 3; ++c)
            sum[c] += values[n] * nodes[n][c];
    return sum;
}

Point cross(Point const & a, Point const & b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
double dot(Point const & a, Point const & b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
Point operator-(Point const & a, Point const & b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

/// Solves J step = d; on a surface in the least-squares sense.
template <int dimensions> bool newtonStep(double const (&J)[3][3], Point const & d, Point & step) {
    Point const a = {J[0][0], J[1][0], J[2][0]}, b = {J[0][1], J[1][1], J[2][1]};
    if constexpr (dimensions == 2) {
        double const aa = dot(a, a), ab = dot(a, b), bb = dot(b, b), ad = dot(a, d), bd = dot(b, d);
        double const determinant = aa * bb - ab * ab;
        if (std::fabs(determinant) < 1e-20)
            return false;
        step = {(ad * bb - bd * ab) / determinant, (aa * bd - ab * ad) / determinant, 0};
    } else {
        Point const c = {J[0][2], J[1][2], J[2][2]};
        Point const bc = cross(b, c);
        double const determinant = dot(a, bc);
        if (std::fabs(determinant) < 1e-10)
            return false;
        double const inverse = 1 / determinant;
        step = {dot(d, bc) * inverse, dot(a, cross(d, c)) * inverse, dot(a, cross(b, d)) * inverse};
    }
    return true;
}

constexpr int maxSteps = 100;
constexpr double stepLimit = 0.0005;

template <class E> bool locate(Point const & point, Point const * nodes, Point & iso) {
    iso = {0, 0, 0};
    for (int count = 0; count < maxSteps; ++count) {
        double values[E::nodes];
        Point slopes[E::nodes];
        E::row(iso, values);
        E::derivatives(iso, slopes);
        Point d = point;
        double J[3][3] = {};
        for (int n = 0; n < E::nodes; ++n)
            for (int row = 0; row < 3; ++row) {
                d[row] -= values[n] * nodes[n][row];
                for (int column = 0; column < E::dimensions; ++column)
                    J[row][column] += slopes[n][column] * nodes[n][row];
            }
        Point step;
        if (!newtonStep<E::dimensions>(J, d, step))
            return false;
        for (int c = 0; c < E::dimensions; ++c)
            iso[c] += step[c];
        if (dot(step, step) < stepLimit * stepLimit)
            return true;
    }
    return false;
}

template <class E> constexpr hand::Element element = {E::row, jacobian<E>, toSpace<E>, locate<E>};

} // namespace

namespace hand {

Element const hexahedron8 = element<Hexahedron8>;
Element const hexahedron20 = element<Hexahedron20>;
Element const hexahedron27 = element<Hexahedron27>;
Element const tetrahedron4 = element<Tetrahedron4>;
Element const tetrahedron10 = element<Tetrahedron10>;
Element const prism6 = element<Prism6>;
Element const prism15 = element<Prism15>;
Element const pyramid5 = element<Pyramid5>;
Element const quadrilateral4 = element<Quadrilateral4>;
Element const quadrilateral8 = element<Quadrilateral8>;
Element const triangle3 = element<Triangle3>;
Element const triangle6 = element<Triangle6>;

// Triangle by triangle: Moeller and Trumbore, 1997.
void meetLine(Point const & start, Point const & end, Point const * nodes, Point const * nodesIso,
              int const (*triangles)[3], int triangleCount, Hits & hits) {
    Point const direction = end - start;
    hits.count = 0;
    for (int k = 0; k < triangleCount; ++k) {
        int const * const corner = triangles[k];
        Point const & a = nodes[corner[0]];
        Point const ab = nodes[corner[1]] - a, ac = nodes[corner[2]] - a;
        Point const p = cross(direction, ac);
        double const determinant = dot(ab, p);
        if (std::fabs(determinant) < 1e-20)
            continue;
        double const inverse = 1 / determinant;
        Point const s = start - a;
        double const u = dot(s, p) * inverse;
        if (u < -1e-9 || u > 1 + 1e-9)
            continue;
        Point const q = cross(s, ab);
        double const v = dot(direction, q) * inverse;
        if (v < -1e-9 || u + v > 1 + 1e-9)
            continue;
        double const t = dot(ac, q) * inverse;
        bool const isFirst = hits.count == 0 || t < hits.parameters[0];
        bool const isLast = hits.count == 0 || t > hits.parameters[1];
        if (!isFirst && !isLast)
            continue;
        int const slot = isFirst ? 0 : 1;
        if (isFirst && hits.count == 1) {
            hits.parameters[1] = hits.parameters[0];
            hits.iso[1] = hits.iso[0];
        }
        hits.parameters[slot] = t;
        for (int c = 0; c < 3; ++c)
            hits.iso[slot][c] =
                (1 - u - v) * nodesIso[corner[0]][c] + u * nodesIso[corner[1]][c] + v * nodesIso[corner[2]][c];
        if (hits.count == 0)
            hits.parameters[1] = t;
        hits.count = hits.count == 0 ? 1 : 2;
    }
    for (int i = 0; i < hits.count; ++i)
        for (int c = 0; c < 3; ++c)
            hits.points[i][c] = start[c] + hits.parameters[i] * direction[c];
}

void extrapolate(float const * weights, float const * values, float * nodal, int nodes, int points, int components) {
    for (int n = 0; n < nodes; ++n)
        for (int c = 0; c < components; ++c) {
            double sum = 0;
            for (int p = 0; p < points; ++p)
                sum += weights[n * points + p] * values[p * components + c];
            nodal[n * components + c] = static_cast<float>(sum);
        }
}

/// From the diagonals of a quadrilateral, or two sides of a triangle.
Point faceNormal(Point const * nodes, int const * face, int corners) {
    Point const & a = nodes[face[0]];
    Point const normal = corners == 4 ? cross(nodes[face[2]] - a, nodes[face[3]] - nodes[face[1]])
                                      : cross(nodes[face[1]] - a, nodes[face[2]] - a);
    double const length = std::sqrt(dot(normal, normal));
    return {normal[0] / length, normal[1] / length, normal[2] / length};
}

Point weightedSum(Point const * nodes, int const * numbers, double const * weights, int count) {
    Point sum = {};
    for (int i = 0; i < count; ++i)
        for (int c = 0; c < 3; ++c)
            sum[c] += weights[i] * nodes[numbers[i]][c];
    return sum;
}

Point mean(Point const * nodes, int count) {
    Point sum = {};
    for (int i = 0; i < count; ++i)
        for (int c = 0; c < 3; ++c)
            sum[c] += nodes[i][c];
    return {sum[0] / count, sum[1] / count, sum[2] / count};
}

} // namespace hand
