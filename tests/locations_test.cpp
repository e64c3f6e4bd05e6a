// Where nodes, integration points and centres of all element types lie in isoparametric space.

#include "omi_BtreeIterator.h"
#include "shp_InterpolationTables.h"
#include "shp_KeyBit.h"
#include "shp_QuadInterpTables.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"
#include "shp_TetraInterpTables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace {

using Vector = std::array<double, 3>;

Vector row(float const * table, int index) {
    return {table[3 * index], table[3 * index + 1], table[3 * index + 2]};
}

double distance(Vector const & a, Vector const & b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

constexpr double tolerance = 1e-6;

void forEachShape(std::function<void(std::string const & label, shp_Shape const & shape)> const & visit) {
    shp_ShapeDictionary const & dictionary = omi_Singleton<shp_ShapeDictionary>::Instance();
    omi_BtreeIterator<cow_String, void *> it(dictionary.Keys());
    for (bool isEntry = it.First(); isEntry; isEntry = it.Next())
        visit(it.CurrentKey().CStr(), *dictionary.GetShape(it.CurrentKey()));
}

shp_Shape const & shapeOf(char const * label) {
    return *omi_Singleton<shp_ShapeDictionary>::Instance().GetShape(label);
}

shp_Options optionsOf(std::vector<unsigned int> const & bits) {
    LongKey key;
    key.setBits(static_cast<unsigned int>(bits.size()), bits.data());
    return shp_Options(key);
}

/// How far a point is inside the family's domain: negative outside, 0 on the boundary.
double depthInDomain(int family, Vector const & p) {
    auto const [g, h, r] = p;
    double const ends = 1 - std::abs(r);
    switch (family) {
    case shp_keyLine: return 1 - std::abs(g);
    case shp_keyTri: return std::min({g, h, 1 - g - h});
    case shp_keyQuad: return std::min(1 - std::abs(g), 1 - std::abs(h));
    case shp_keyTetra: return std::min({g, h, r, 1 - g - h - r});
    case shp_keyHex: return std::min({1 - std::abs(g), 1 - std::abs(h), ends});
    case shp_keyPrism: return std::min({g, h, 1 - g - h, ends});
    case shp_keyPyramid: return std::min({(1 - r) / 2 - std::abs(g), (1 - r) / 2 - std::abs(h), 1 + r});
    default: return -std::hypot(g, h, r); // points
    }
}

/// The one node that does not stand on the boundary of the domain, or -1: the middle, and in the infinite hexahedron of
/// 18 nodes the centre of the far ring.
int innerNode(shp_Shape const & shape) {
    int const family = shape.options.Shape();
    switch (shape.BaseNodesPerElem()) {
    case 3: return family == shp_keyLine ? 1 : -1;
    case 9: return family == shp_keyQuad ? 8 : -1;
    case 18: return family == shp_keyHex && shape.options.IsType(shp_keyInfinite) ? 17 : -1;
    case 27: return 20;
    default: return -1;
    }
}

bool isFar(shp_Shape const & shape) {
    return shape.options.IsType(shp_keyInfinite) && shape.NumGeometryDimensions() > 1;
}

/// Element types whose points stand at nodes or ends, or on a grid that reaches to the boundary.
bool standForNodes(shp_Shape const & shape) {
    for (int bit : {shp_keyPoint, shp_keyARS, shp_keyNodalIntegration, shp_keyCornerLumped, shp_keyFrame,
                    shp_keyCohesive, shp_keyPipeSoil})
        if (shape.options.IsType(bit))
            return true;
    int const points = shape.BaseIntPtsPerElem();
    return (shape.options.IsType(shp_keyGasket) && points > 1) ||
           (shape.options.IsType(shp_keyTetra) && points == 11) ||
           (shape.options.IsType(shp_keyHex) && shape.BaseNodesPerElem() == 8 && points == 27);
}

Vector mean(std::vector<Vector> const & places) {
    Vector total = {};
    for (Vector const & place : places)
        for (std::size_t axis = 0; axis < 3; ++axis)
            total[axis] += place[axis] / static_cast<double>(places.size());
    return total;
}

} // namespace

TEST(Locations, NodesStandApartOnTheBoundary) {
    forEachShape([](std::string const & label, shp_Shape const & shape) {
        for (int node = 0; node < shape.BaseNodesPerElem(); ++node) {
            Vector const place = row(shape.nodeLocationTable, node);
            double const depth = depthInDomain(shape.options.Shape(), place);
            EXPECT_GE(depth, -tolerance) << label << " node " << node;
            EXPECT_EQ(depth > tolerance, node == innerNode(shape)) << label << " node " << node;
            for (int other = 0; other < node; ++other)
                EXPECT_GT(distance(place, row(shape.nodeLocationTable, other)), 0.4) << label << " node " << node;
        }
    });
}

// Strictly inside where the rule is a Gauss rule; a point on the boundary only where points stand for nodes, ends or a
// grid.
TEST(Locations, IntegrationPointsStandApartInside) {
    forEachShape([](std::string const & label, shp_Shape const & shape) {
        int const family = shape.options.Shape();
        double depth = 1;
        for (int point = 0; point < shape.BaseIntPtsPerElem(); ++point) {
            Vector const place = row(shape.intPtLocationTable, point);
            depth = std::min(depth, depthInDomain(family, place));
            for (int other = 0; other < point; ++other)
                EXPECT_GT(distance(place, row(shape.intPtLocationTable, other)), 0.1) << label << " point " << point;
        }
        EXPECT_GE(depth, -tolerance) << label;
        EXPECT_EQ(depth < tolerance, standForNodes(shape)) << label;
    });
}

TEST(Locations, TheCentreIsTheMeanOfTheNodes) {
    forEachShape([](std::string const & label, shp_Shape const & shape) {
        std::vector<Vector> nodes;
        for (int node = 0; node < shape.BaseNodesPerElem(); ++node)
            nodes.push_back(row(shape.nodeLocationTable, node));
        Vector const centre = row(shape.centerLocation, 0);
        // The pyramid's centre is its own, an infinite element's that of its domain; the third ring of a cohesive prism
        // is located at the midsides of the first.
        bool const isAway = shape.options.IsType(shp_keyPyramid) || isFar(shape) ||
                            (shape.options.IsType(shp_keyPrism) && shape.options.IsType(shp_keyCohesive) &&
                             shape.BaseNodesPerElem() == 9);
        EXPECT_EQ(distance(mean(nodes), centre) > tolerance, isAway) << label;
    });
}

// Of a planar element of a two-dimensional model the edges, of a solid the faces; a planar element in space is its own
// face.
TEST(Locations, FaceCentresAreTheMeansOfTheCorners) {
    forEachShape([](std::string const & label, shp_Shape const & shape) {
        int const family = shape.options.Shape();
        if (shape.NumGeometryDimensions() < 2 || shape.Is3DShell()) {
            EXPECT_EQ(row(shape.faceCenterLocationTable, 0), row(shape.centerLocation, 0)) << label;
            return;
        }
        bool const isPlanar = shape.NumGeometryDimensions() == 2;
        int const faces = isPlanar ? shape.NumEdgesPerFace(0) : shape.NumFacesPerElem();
        for (int face = 0; face < faces; ++face) {
            std::vector<Vector> corners;
            if (isPlanar) {
                corners = {
                    row(shape.nodeLocationTable, shape.EdgeNodeIndex(0, face, 0)),
                    row(shape.nodeLocationTable, shape.EdgeNodeIndex(0, face, shape.BaseNodesPerEdge(0, face) - 1))};
            } else {
                int const count = family == shp_keyHex ? 4 : shape.NumEdgesPerFace(face);
                for (int i = 0; i < count; ++i)
                    corners.push_back(row(shape.nodeLocationTable, shape.FaceNodeIndex(face, i)));
            }
            Vector const centre = row(shape.faceCenterLocationTable, face);
            Vector expected = mean(corners);
            // The sides of infinite elements are centred at -1/3 towards the pole, not between their rings of nodes.
            bool const isFarSide = isFar(shape) && face > 0 && face < 5;
            if (isFarSide)
                expected[isPlanar ? 1 : 2] = -1.0 / 3;
            EXPECT_LT(distance(centre, expected), tolerance) << label << " face " << face;
            EXPECT_EQ(distance(centre, mean(corners)) > tolerance, isFarSide) << label << " face " << face;
        }
    });
}

TEST(Locations, PointsAtTheNodesHaveTheOrderOfTheNodes) {
    forEachShape([](std::string const & label, shp_Shape const & shape) {
        if (shape.options.IsType(shp_keyNodalIntegration)) {
            EXPECT_EQ(shape.intPtLocationTable, shape.nodeLocationTable) << label;
        }
    });
    // Lumped at the corners they run like a tensor product instead.
    float const * lumped = shapeOf("DC3D8").intPtLocationTable;
    EXPECT_EQ(row(lumped, 2), (Vector{-1, 1, -1}));
    EXPECT_EQ(row(lumped, 3), (Vector{1, 1, -1}));
    // The 14-point rule runs like the corner nodes, the 8-point rule like a tensor product.
    EXPECT_EQ(shapeOf("C3D27R").intPtLocationTable[3 * 2], 0.7588f);
    EXPECT_EQ(shapeOf("C3D20R").intPtLocationTable[3 * 2], -0.57735026f);
}

TEST(Locations, ThePyramidHasItsComputedEntry) {
    auto const offset = static_cast<float>(std::sqrt(2.0 / 15.0) * 1.6);
    float const * points = shapeOf("C3D5").intPtLocationTable;
    float const signs[][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    for (int corner = 0; corner < 4; ++corner) {
        EXPECT_FLOAT_EQ(points[3 * corner], signs[corner][0] * offset) << corner;
        EXPECT_FLOAT_EQ(points[3 * corner + 1], signs[corner][1] * offset) << corner;
        EXPECT_EQ(points[3 * corner + 2], -2.0f / 3) << corner;
    }
    EXPECT_EQ(row(shapeOf("FC3D5").intPtLocationTable, 0), (Vector{0, 0, -0.5}));
}

// Digits that stored results depend on: shorter than their rule, or of another rule than the name suggests.
TEST(Locations, KeepTheirShortLiterals) {
    EXPECT_EQ(shapeOf("CPS6M").intPtLocationTable[0], 0.2083f);
    EXPECT_EQ(shapeOf("CPS6M").intPtLocationTable[3], 0.5833f);
    EXPECT_EQ(shapeOf("CPS6").intPtLocationTable[3], 2.0f / 3);
    EXPECT_EQ(shapeOf("C3D10M").intPtLocationTable[0], 0.17708333f);
    EXPECT_EQ(shapeOf("CIN3D18R").intPtLocationTable[2], -0.789f);
    EXPECT_EQ(shapeOf("CIN3D18R").intPtLocationTable[3 * 9 + 2], -0.211f);
    EXPECT_EQ(shapeOf("C3D20").intPtLocationTable[0], -0.774597f);
    EXPECT_EQ(shapeOf("CPS8").intPtLocationTable[0], -0.77459669f);
    EXPECT_EQ(shapeOf("SFMCL9").intPtLocationTable[0], -0.57735f);
    EXPECT_EQ(shapeOf("C3D27R").intPtLocationTable[3 * 9], 0.7958f);
    EXPECT_EQ(shapeOf("AC3D6").intPtLocationTable[0], 0.13819660f);
    EXPECT_EQ(shapeOf("FRAME3D").intPtLocationTable[6], 0.0f); // the middle last
    EXPECT_EQ(shapeOf("DC3D10").intPtLocationTable[3], 0.09197108f);
}

TEST(Locations, OfKeysOutsideTheCatalogue) {
    using Tables = shp_InterpolationTables;
    shp_Options const shapeless = optionsOf({shp_keyNodes4, shp_keyIntPts4});
    EXPECT_EQ(Tables::getNdLocTblPtr(shapeless), nullptr);
    EXPECT_EQ(Tables::getIntPntLocTblPtr(shapeless), nullptr);
    EXPECT_EQ(Tables::getCenterLocTblPtr(shapeless), nullptr);
    EXPECT_EQ(Tables::getFcCenterLocTblPtr(shapeless), nullptr);
    EXPECT_EQ(Tables::getIntPntLocTblPtr(optionsOf({shp_keyQuad, shp_keyNodes8, shp_keyIntPts8})), nullptr);
    EXPECT_EQ(Tables::getIntPntLocTblPtr(optionsOf({shp_keyPrism, shp_keyNodes15, shp_keyIntPts8})), nullptr);
    // 18 nodes that are neither a gasket's nor infinite read the first rows of the common table.
    EXPECT_EQ(Tables::getNdLocTblPtr(optionsOf({shp_keyHex, shp_keyNodes18, shp_keyIntPts27})),
              shapeOf("C3D27").nodeLocationTable);
    // The family's own getter knows points at the nodes, too.
    EXPECT_EQ(shp_TetraInterpTables::getIntPntLocTblPtr(
                  optionsOf({shp_keyTetra, shp_keyNodes4, shp_keyIntPts4, shp_keyNodalIntegration})),
              shapeOf("C3D4").nodeLocationTable);
    EXPECT_EQ(shp_QuadInterpTables::getNdLocTblPtr(optionsOf({shp_keyQuad, shp_keyNodes6})),
              shapeOf("MCL6").nodeLocationTable);
}
