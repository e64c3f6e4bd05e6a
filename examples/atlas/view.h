#ifndef view_h
#define view_h

#include <cmath>
#include <span>

/// A place or direction in drawing space: x to the right along g, y away along h, z up along r.
struct Vec3 {
    double x = 0, y = 0, z = 0;
};

inline Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec3 operator-(Vec3 a, Vec3 b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vec3 operator*(double factor, Vec3 a) {
    return {factor * a.x, factor * a.y, factor * a.z};
}
inline double dot(Vec3 a, Vec3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vec3 blend(Vec3 a, Vec3 b, double share) {
    return (1 - share) * a + share * b;
}

/// A place in a picture, in pixels: x to the right, y down.
struct Point2 {
    double x = 0, y = 0;
};

inline Point2 operator+(Point2 a, Point2 b) {
    return {a.x + b.x, a.y + b.y};
}
inline Point2 operator-(Point2 a, Point2 b) {
    return {a.x - b.x, a.y - b.y};
}
inline Point2 operator*(double factor, Point2 a) {
    return {factor * a.x, factor * a.y};
}
inline double length(Point2 a) {
    return std::hypot(a.x, a.y);
}

/// A parallel projection: the eye stands in the direction given by `azimuth` and `elevation`, in degrees, with z up.
class View {
public:
    View(double azimuth, double elevation, double pixelsPerUnit);

    /// From straight above: x to the right, y up in the picture.
    static View plan(double pixelsPerUnit) { return {-90, 90, pixelsPerUnit}; }

    Point2 project(Vec3 place) const { return {scale * dot(right, place), -scale * dot(up, place)}; }
    /// Larger is nearer to the eye, in units of drawing space.
    double depth(Vec3 place) const { return dot(towardsEye, place); }

private:
    double scale;
    Vec3 right, up, towardsEye;
};

/// How large squares around the places may be without overlap, in pixels.
double smallestGap(View const & view, std::span<Vec3 const> places);

#endif
