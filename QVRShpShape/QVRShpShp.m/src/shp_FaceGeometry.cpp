// Normals and centroids of faces.

#include "g3d_Point.h"
#include "g3d_Vector.h"
#include "shp_Topology.h"
#include "uti_CoordCont3D.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

/// Two numbers side by side. Divisions are what a normal costs, and a pair takes no longer than one.
using Pair = double __attribute__((vector_size(16)));
using FloatPair = float __attribute__((vector_size(8)));

FloatPair narrow(Pair pair) {
    return __builtin_convertvector(pair, FloatPair);
}

Pair squareRoots(Pair pair) {
#ifdef __SSE2__
    return _mm_sqrt_pd(pair);
#else
    return {std::sqrt(pair[0]), std::sqrt(pair[1])};
#endif
}

/// What vectors of these squared lengths are divided by to have length 1; the zero vector stays zero.
Pair divisors(Pair squaredLengths) {
    return squaredLengths == 0.0 ? Pair{1, 1} : squareRoots(squaredLengths);
}

/// Two directions of length 1, each as g3d_Vector::Normalize makes it.
struct UnitDirections {
    g3d_Vector first, second;

    UnitDirections(float const (&a)[3], float const (&b)[3]) {
        Pair const x = {a[0], b[0]}, y = {a[1], b[1]}, z = {a[2], b[2]};
        Pair const lengths = divisors(x * x + y * y + z * z);
        FloatPair const unitX = narrow(x / lengths), unitY = narrow(y / lengths), unitZ = narrow(z / lengths);
        first = {unitX[0], unitY[0], unitZ[0]};
        second = {unitX[1], unitY[1], unitZ[1]};
    }
};

/// The normal to two tangents: their vector product in space; in a plane only the side to which they turn, which is the
/// upper one for tangents without length or along each other.
g3d_Vector normalTo(g3d_Vector const & t1, g3d_Vector const & t2, int numSpatialDimensions) {
    float const z = t2.Y() * t1.X() - t2.X() * t1.Y();
    if (numSpatialDimensions < 3)
        return {0, 0, z < 0 ? -1.0f : 1.0f};
    return {t1.Y() * t2.Z() - t2.Y() * t1.Z(), t2.X() * t1.Z() - t2.Z() * t1.X(), z};
}

/// At length 1, as g3d_Vector::Normalize makes it. Stored as callers read it, in a pair and one: to read in pairs what
/// was stored singly takes longer.
void storeUnit(g3d_Vector const & vector, float * out) {
    double const x = vector.X(), y = vector.Y(), z = vector.Z();
    double const square = x * x + y * y + z * z;
    double const length = square == 0 ? 1 : std::sqrt(square);
    FloatPair const unitXY = narrow(Pair{x, y} / Pair{length, length});
    std::memcpy(out, &unitXY, sizeof unitXY);
    out[2] = static_cast<float>(z / length);
}

/// True unless, somewhere around the face, a label differs from the next one and that one from the one after it. The
/// first and the third may be the same: a face of labels 5, 6, 5 is sound.
bool hasCollapsed(int const * conn, int numNodes) {
    int first = conn[numNodes - 2], middle = conn[numNodes - 1];
    for (int const * last = conn; last != conn + numNodes; ++last) {
        if (first != middle && middle != *last)
            return false;
        first = middle;
        middle = *last;
    }
    return true;
}

/// The places of a triangle's corners in a face's node list.
struct CornerPlaces {
    int places[3];
    bool areOnFace = true;

    CornerPlaces(shp_Topology const & t, int const * triangle, int face) {
        int const * const nodes = t.faceConnTbl + face * t.maxNodesPerFace;
        int const * const end = nodes + t.NumNodesPerFace(face);
        for (int corner = 0; corner < 3; ++corner) {
            int const * const found = std::find(nodes, end, triangle[corner]);
            places[corner] = static_cast<int>(found - nodes);
            areOnFace = areOnFace && found != end;
        }
    }

    bool have(int place) const { return std::find(places, places + 3, place) != places + 3; }
};

/// Adds up weight times position, at the precision of the positions.
template <class Position> struct PositionSum {
    using Real = decltype(Position().GetX());
    Real x = 0, y = 0, z = 0;

    void add(Real weight, Position const & position) {
        x += weight * position.X();
        y += weight * position.Y();
        z += weight * position.Z();
    }
};

/// The labels of a 27-node element's face centres begin behind that of its own centre.
constexpr int firstFaceCenter = 21;

/// True for a face whose centre node is missing: it has the label of the node before it.
bool lacksCenterNode(shp_Topology const & t, int face, int const * conn) {
    return t.baseNodesPerElem == 27 && conn[firstFaceCenter + face] == conn[firstFaceCenter + face - 1];
}

/// Half the midside nodes less a quarter of the corners.
template <class Position> Position centerOfEightNodes(int const * nodes, Position const * coords) {
    PositionSum<Position> corners, midsides;
    for (int i = 0; i < 4; ++i) {
        corners.add(1, coords[nodes[i]]);
        midsides.add(1, coords[nodes[4 + i]]);
    }
    auto const combine = [](auto midside, auto corner) {
        return decltype(midside)(0.5) * midside - decltype(corner)(0.25) * corner;
    };
    return {combine(midsides.x, corners.x), combine(midsides.y, corners.y), combine(midsides.z, corners.z)};
}

template <class Position>
Position faceCentroid(shp_Topology const & t, int face, Position const * coords, int const * conn) {
    if (lacksCenterNode(t, face, conn))
        return centerOfEightNodes(t.faceConnTbl + face * t.maxNodesPerFace, coords);
    float const * const weights = t.GetFcCenterNodeWeights(face);
    PositionSum<Position> sum;
    for (int i = 0; i < t.baseNodesPerElem; ++i)
        sum.add(weights[i], coords[i]);
    return {sum.x, sum.y, sum.z};
}

} // namespace

int shp_Topology::ComputeFaceNormal(int const * conn, int face, uti_CoordCont3D const & coords, float * normal) const {
    std::fill_n(normal, 3, 0.0f);
    int const numNodes = NumNodesPerFace(face);
    if (numNodes < 3)
        return 0;
    if (hasCollapsed(conn, numNodes))
        return 1;

    float t1[3], t2[3];
    faceTangents(coords, static_cast<unsigned int>(face), t1, t2);
    UnitDirections const tangents(t1, t2);
    storeUnit(normalTo(tangents.first, tangents.second, numSpatialDimensions), normal);
    return 0;
}

int shp_Topology::ComputeFaceNormal(int const * conn, int face, int faceNode, uti_CoordCont3D const & coords,
                                    float * normal) const {
    std::fill_n(normal, 3, 0.0f);
    int const numNodes = NumNodesPerFace(face);
    if (numNodes < 3)
        return 0;
    if (hasCollapsed(conn, numNodes))
        return 1;

    g3d_Vector sum;
    bool hasTriangle = false;
    for (int triangle = 0; triangle < numFaceTriangles; ++triangle) {
        CornerPlaces const corners(*this, faceTriTbl + 3 * triangle, face);
        if (!corners.areOnFace || !corners.have(faceNode))
            continue;
        auto const & [a, b, c] = corners.places;
        uti_Coord3D const origin = coords[a], toFirst = coords[b], toSecond = coords[c];
        UnitDirections const sides({toFirst[0] - origin[0], toFirst[1] - origin[1], toFirst[2] - origin[2]},
                                   {toSecond[0] - origin[0], toSecond[1] - origin[1], toSecond[2] - origin[2]});
        g3d_Vector const part = normalTo(sides.first, sides.second, numSpatialDimensions);
        sum.Set(sum.X() + part.X(), sum.Y() + part.Y(), sum.Z() + part.Z());
        hasTriangle = true;
    }
    if (!hasTriangle)
        return 1;
    storeUnit(sum, normal);
    return 0;
}

g3d_Point shp_Topology::GetFaceCentroid(int face, g3d_Point const * coords, int const * conn) const {
    return faceCentroid(*this, face, coords, conn);
}

g3d_Storage shp_Topology::GetFaceCentroid(int face, g3d_Storage const * coords, int const * conn) const {
    return faceCentroid(*this, face, coords, conn);
}

void shp_Topology::FaceCentroidFromElementCoordinates(int face, uti_CoordCont3D const & elementCoords,
                                                      uti_CoordCont3D & centroids) const {
    // In two-dimensional space edge 0 takes the first nodes of the element instead of its own, as results on file do;
    // the face table has no row for the other edges.
    bool const isPlanar = numSpatialDimensions == 2;
    int const numNodes = isPlanar ? nodesPerEdgeTbl[face] : NumNodesPerFace(face);
    int const * const nodes =
        isPlanar && face > 0 ? edgeConnTbl + face * maxNodesPerEdge : faceConnTbl + face * maxNodesPerFace;

    float sumX = 0, sumY = 0, sumZ = 0;
    for (int i = 0; i < numNodes; ++i) {
        float x, y, z;
        elementCoords.GetCoord(nodes[i], x, y, z);
        sumX += x;
        sumY += y;
        sumZ += z;
    }
    float const factor = 1.0f / static_cast<float>(numNodes);
    centroids.SetCoord(face, sumX * factor, sumY * factor, sumZ * factor);
}
