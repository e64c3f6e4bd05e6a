#include "odiC_Utils.h"

#include <cmath>
#include <initializer_list>

// Which steps are in single precision and which in double decides about the last bit, and stored orientations were made
// with these: a product or sum of floats is a float; what is to be computed in double is widened by name; a float on
// the left rounds.

namespace {

struct Vector {
    float x, y, z;
};

Vector operator+(Vector const & a, Vector const & b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Vector operator*(float factor, Vector const & v) {
    return {factor * v.x, factor * v.y, factor * v.z};
}

float dot(Vector const & a, Vector const & b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector cross(Vector const & a, Vector const & b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

float squareRoot(float square) {
    return static_cast<float>(std::sqrt(double{square}));
}

/// Divides by the length, whatever that is.
Vector unit(Vector const & v) {
    float const length = squareRoot(dot(v, v));
    return {v.x / length, v.y / length, v.z / length};
}

/// The two forms of the terms of a rotation matrix.
float twice(float sum) {
    return static_cast<float>(2.0 * double{sum});
}
float twiceLessHalf(float sum) {
    return static_cast<float>(2.0 * (double{sum} - 0.5));
}

/// Scales a vector to length 1. False, with the vector as it was, when it has none; a length that is not a number goes.
bool normalise(Vector & v) {
    float const length = squareRoot(v.y * v.y + v.x * v.x + v.z * v.z);
    if (length == 0)
        return false;
    v = static_cast<float>(1.0 / double{length}) * v;
    return true;
}

/// The images of the three axes under a rotation.
struct Axes {
    Vector first, second, third;
};

/// The images, each of length 1; false when one has none.
bool axesOf(float const * q, Axes & axes) {
    axes.first = {twiceLessHalf(q[0] * q[0] + q[3] * q[3]), twice(q[0] * q[1] + q[3] * q[2]),
                  twice(q[0] * q[2] - q[3] * q[1])};
    axes.second = {twice(q[0] * q[1] - q[3] * q[2]), twiceLessHalf(q[1] * q[1] + q[3] * q[3]),
                   twice(q[3] * q[0] + q[2] * q[1])};
    axes.third = {twice(q[0] * q[2] + q[3] * q[1]), twice(q[2] * q[1] - q[3] * q[0]),
                  twiceLessHalf(q[2] * q[2] + q[3] * q[3])};
    return normalise(axes.first) && normalise(axes.second) && normalise(axes.third);
}

/// A component of the quaternion from a sum or difference across the diagonal and the component that came first.
float component(float pair, float pivot) {
    return static_cast<float>(double{pair} * 0.25 / double{pivot});
}

/// The first component that is computed when a diagonal entry, not the trace, is the largest.
float diagonalComponent(float trace, float entry) {
    return static_cast<float>(std::sqrt((1.0 - double{trace}) * 0.25 + double{entry} * 0.5));
}

/// The mean orientation's first axis, in the axes of the one end.
struct MeanAxis {
    float first, second, third;
};

/// `swing` is the angle between the ends' third axes, `twist` the angle about them, `axis` where the swing's axis
/// stands in the plane of the first two axes, counted from the second one.
MeanAxis meanFirstAxis(float swing, float twist, float axis) {
    double const half = double{swing} * 0.5;
    double const cosHalf = std::cos(half), sinHalf = std::sin(half);
    double const halfTwist = double{twist} * 0.5;
    double const cosTwist = std::cos(halfTwist), sinTwist = std::sin(halfTwist);
    double const sinPhi = std::sin(double{axis}), cosPhi = std::cos(double{axis});
    double const k = (1 - cosHalf) * cosTwist;
    return {static_cast<float>(sinPhi * k * sinPhi + cosHalf * cosTwist - cosPhi * sinTwist * sinPhi * (1 - cosHalf)),
            static_cast<float>(cosPhi * sinTwist * cosPhi - cosPhi * k * sinPhi + sinTwist * sinPhi * sinPhi * cosHalf),
            static_cast<float>(-cosTwist * sinHalf * cosPhi - sinHalf * sinTwist * sinPhi)};
}

/// The angle with this tangent, between a quarter turn backwards and one forwards.
float angleOfTangent(float tangent) {
    return static_cast<float>(std::atan(double{tangent}));
}

} // namespace

bool odiC_Utils::QuatToRotationVec(float const * quat, float * axes) {
    Axes images;
    if (!axesOf(quat, images))
        return false;
    for (Vector const & image : {images.first, images.second, images.third}) {
        *axes++ = image.x;
        *axes++ = image.y;
        *axes++ = image.z;
    }
    return true;
}

bool odiC_Utils::XformToQuat(float const * m, float * q) {
    // The largest of the trace and the diagonal is the divisor of the others; of equal ones the first.
    float const trace = m[0] + m[4] + m[8];
    float largest = trace;
    int which = -1;
    for (int i = 0; i < 3; ++i) {
        if (m[4 * i] > largest) {
            largest = m[4 * i];
            which = i;
        }
    }
    if (which < 0) {
        q[3] = static_cast<float>(std::sqrt(double{trace} + 1.0) * 0.5);
        q[0] = component(m[7] - m[5], q[3]);
        q[1] = component(m[2] - m[6], q[3]);
        q[2] = component(m[3] - m[1], q[3]);
    } else if (which == 0) {
        q[0] = diagonalComponent(trace, m[0]);
        q[1] = component(m[1] + m[3], q[0]);
        q[2] = component(m[6] + m[2], q[0]);
        q[3] = component(m[7] - m[5], q[0]);
    } else if (which == 1) {
        q[1] = diagonalComponent(trace, m[4]);
        q[0] = component(m[1] + m[3], q[1]);
        q[2] = component(m[5] + m[7], q[1]);
        q[3] = component(m[2] - m[6], q[1]);
    } else {
        q[2] = diagonalComponent(trace, m[8]);
        q[0] = component(m[6] + m[2], q[2]);
        q[1] = component(m[5] + m[7], q[2]);
        q[3] = component(m[3] - m[1], q[2]);
    }
    return true;
}

bool odiC_Utils::GetBushingConnectorOrientation(float const * quat1, float const * quat2, float * quat) {
    Axes a, b;
    if (!axesOf(quat1, a) || !axesOf(quat2, b))
        return false;

    // The angles come from quotients, which do not tell opposite directions apart: for half of all inputs the swing's
    // axis is turned round, and the result's third axis then is off the bisector. Stored orientations are like that.
    float const swing = static_cast<float>(std::acos(double{dot(b.third, a.third)}));
    Vector const normal = unit(cross(a.third, b.third));
    float const twist = angleOfTangent((dot(b.first, a.second) - dot(b.second, a.first)) /
                                       (dot(b.first, a.first) + dot(b.second, a.second)));
    float const axis =
        angleOfTangent(static_cast<float>(-double{dot(a.first, normal)} / double{dot(a.second, normal)}));

    MeanAxis const mean = meanFirstAxis(swing, twist, axis);
    Vector const first = mean.second * a.second + mean.first * a.first + mean.third * a.third;
    Vector const third = unit(a.third + b.third);
    Vector const second = cross(third, first);
    float const matrix[9] = {first.x, second.x, third.x, //
                             first.y, second.y, third.y, //
                             first.z, second.z, third.z};
    return XformToQuat(matrix, quat);
}
