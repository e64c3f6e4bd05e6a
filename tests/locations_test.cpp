// Where nodes, integration points and centres of all element types lie in isoparametric space.

#include "catalogued_shapes.h"
#include "shp_InterpolationTables.h"
#include "shp_QuadInterpTables.h"
#include "shp_TetraInterpTables.h"
#include "table_laws.h"

namespace {

constexpr double tolerance = 1e-6;

/// How far a point is inside the family's domain: negative outside, 0 on the boundary.
double depthInDomain(int family, Place const & p) {
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

} // namespace

// The only node inside is the middle one, at the origin.
TEST(Locations, NodesStandApartOnTheBoundary) {
    forEachShape([](shp_Shape const & shape) {
        std::vector<Place> const nodes = nodesOf(shape);
        for (std::size_t node = 0; node < nodes.size(); ++node) {
            double const depth = depthInDomain(shape.options.Shape(), nodes[node]);
            EXPECT_GE(depth, -tolerance) << "node " << node;
            EXPECT_TRUE(depth < tolerance || nodes[node] == Place{}) << "node " << node;
            for (std::size_t other = 0; other < node; ++other)
                EXPECT_GT(distance(nodes[node], nodes[other]), 0.4) << "node " << node;
        }
    });
}

// Strictly inside where the rule is a Gauss rule; a point on the boundary only where points stand for nodes, ends or a
// grid.
TEST(Locations, IntegrationPointsStandApartInside) {
    forEachShape([](shp_Shape const & shape) {
        std::vector<Place> const points = pointsOf(shape);
        double depth = 1;
        for (std::size_t point = 0; point < points.size(); ++point) {
            depth = std::min(depth, depthInDomain(shape.options.Shape(), points[point]));
            for (std::size_t other = 0; other < point; ++other)
                EXPECT_GT(distance(points[point], points[other]), 0.1) << "point " << point;
        }
        EXPECT_GE(depth, -tolerance);
        EXPECT_EQ(depth < tolerance, standForNodes(shape));
    });
}

TEST(Locations, TheCentreIsTheMeanOfTheNodes) {
    forEachShape([](shp_Shape const & shape) {
        Place const centre = row(shape.centerLocation, 0);
        float iso[3];
        shape.IsoParCentroidLocation(iso);
        EXPECT_EQ(row(iso, 0), centre);
        // The pyramid's centre is its own, an infinite element's that of its domain; the third ring of a cohesive prism
        // is located at the midsides of the first.
        bool const isAway = shape.options.IsType(shp_keyPyramid) || isFar(shape) ||
                            (shape.options.IsType(shp_keyPrism) && shape.options.IsType(shp_keyCohesive) &&
                             shape.BaseNodesPerElem() == 9);
        EXPECT_EQ(distance(mean(nodesOf(shape)), centre) > tolerance, isAway);
    });
}

// Of a planar element of a two-dimensional model the edges, of a solid the faces; a planar element in space is its own
// face.
TEST(Locations, FaceCentresAreTheMeansOfTheCorners) {
    forEachShape([](shp_Shape const & shape) {
        int const family = shape.options.Shape();
        if (shape.NumGeometryDimensions() < 2 || shape.Is3DShell()) {
            EXPECT_EQ(row(shape.faceCenterLocationTable, 0), row(shape.centerLocation, 0));
            return;
        }
        bool const isPlanar = shape.NumGeometryDimensions() == 2;
        int const faces = isPlanar ? shape.NumEdgesPerFace(0) : shape.NumFacesPerElem();
        for (int face = 0; face < faces; ++face) {
            std::vector<Place> corners;
            if (isPlanar) {
                corners = {
                    row(shape.nodeLocationTable, shape.EdgeNodeIndex(0, face, 0)),
                    row(shape.nodeLocationTable, shape.EdgeNodeIndex(0, face, shape.BaseNodesPerEdge(0, face) - 1))};
            } else {
                int const count = family == shp_keyHex ? 4 : shape.NumEdgesPerFace(face);
                for (int i = 0; i < count; ++i)
                    corners.push_back(row(shape.nodeLocationTable, shape.FaceNodeIndex(face, i)));
            }
            Place const centre = row(shape.faceCenterLocationTable, face);
            Place expected = mean(corners);
            // The sides of infinite elements are centred at -1/3 towards the pole, not between their rings of nodes.
            bool const isFarSide = isFar(shape) && face > 0 && face < 5;
            if (isFarSide)
                expected[isPlanar ? 1 : 2] = -1.0 / 3;
            EXPECT_LT(distance(centre, expected), tolerance) << "face " << face;
            EXPECT_EQ(distance(centre, mean(corners)) > tolerance, isFarSide) << "face " << face;
        }
    });
}

TEST(Locations, PointsAtTheNodesHaveTheOrderOfTheNodes) {
    forEachShape([](shp_Shape const & shape) {
        if (shape.options.IsType(shp_keyNodalIntegration)) {
            EXPECT_EQ(shape.intPtLocationTable, shape.nodeLocationTable);
        }
    });
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
