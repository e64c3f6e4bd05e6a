#ifndef shp_PointRules_h
#define shp_PointRules_h

#include <cstddef>

// 1/sqrt(3) and sqrt(3/5) as floats, and the shorter literals that some rules have in their place: the tables do not
// agree on them, and stored results depend on each as it stands.
inline constexpr float shp_a2 = 0.57735026f, shp_shortA2 = 0.57735f;
inline constexpr float shp_a3 = 0.77459669f, shp_shortA3 = 0.774597f;

/// Isoparametric locations (g, h, r), one row a point, for tables that the compiler fills by a rule.
template <std::size_t Count> struct shp_Points {
    float rows[Count][3] = {};

    constexpr float const * data() const { return rows[0]; }
};

/// All combinations of the levels, g fastest, then h, then r.
template <std::size_t G, std::size_t H, std::size_t R>
constexpr shp_Points<G * H * R> shp_tensorPoints(float const (&g)[G], float const (&h)[H], float const (&r)[R]) {
    shp_Points<G * H * R> points;
    for (std::size_t i = 0; i < G * H * R; ++i) {
        points.rows[i][0] = g[i % G];
        points.rows[i][1] = h[i / G % H];
        points.rows[i][2] = r[i / (G * H)];
    }
    return points;
}

/// The points of a triangle repeated at each level of r.
template <std::size_t Triangle, std::size_t R>
constexpr shp_Points<Triangle * R> shp_prismPoints(float const (&triangle)[Triangle][3], float const (&r)[R]) {
    shp_Points<Triangle * R> points;
    for (std::size_t i = 0; i < Triangle * R; ++i) {
        points.rows[i][0] = triangle[i % Triangle][0];
        points.rows[i][1] = triangle[i % Triangle][1];
        points.rows[i][2] = r[i / Triangle];
    }
    return points;
}

/// The points of one table after those of the other.
template <std::size_t... Counts>
constexpr shp_Points<(Counts + ...)> shp_joinPoints(float const (&... parts)[Counts][3]) {
    shp_Points<(Counts + ...)> points;
    std::size_t next = 0;
    auto const append = [&](auto const & part) {
        for (auto const & place : part) {
            for (std::size_t axis = 0; axis < 3; ++axis)
                points.rows[next][axis] = place[axis];
            ++next;
        }
    };
    (append(parts), ...);
    return points;
}

#endif
