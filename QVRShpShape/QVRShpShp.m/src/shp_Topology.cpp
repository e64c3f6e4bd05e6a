#include "shp_Topology.h"

#include "shp_ConnectivityTables.h"
#include "shp_DecisionList.h"
#include "shp_FunctionSets.h"
#include "shp_InterpolationTables.h"
#include "shp_KeyBit.h"
#include "shp_LineWorkers.h"
#include "shp_TableMemory.h"
#include "shp_VectorKernels.h"

#include <algorithm>
#include <utility>

namespace {

/// The most nodes of one plane, and shape functions of one set.
constexpr int maxBaseNodes = 27;

/// The interpolation class of quadrilaterals that have neither 4 nor 9 nodes.
constexpr int quadWithoutCentreClass = 6;

/// What a shape and a node count settle.
struct ShapeNumbers {
    int dimensions = 0;
    int faces = 0;
    int maxEdgesPerFace = 0;
    int maxNodesPerFace = 0;
    int maxNodesPerEdge = 0;
    int maxIntPtsPerFace = 0;
    int order = 0;
    int interpolationClass = 0;
};

/// Stands for the element's own node count in a row of `shapeNumbers`.
constexpr int nodeCount = -1;

/// dimensions, faces, max edges per face, nodes per face, nodes per edge and points per face, order, class. Three of
/// them depend on more than this in some shapes; the lists behind this one overrule them.
// clang-format off
constexpr shp_Choice<ShapeNumbers> shapeNumbers[] = {
    {.shape = {shp_keyPoint, shp_keyARS},                                                       .result = {1, 1, 1, 1, 1, 1, 1, 0}},
    {.shape = shp_keyLine,  .nodes = 3,                                                         .result = {1, 1, 1, 3, 3, 2, 2, 2}},
    {.shape = shp_keyLine,  .nodes = {6, 8},                                                    .result = {1, 1, 1, 2, 2, 2, 1, 1}},
    {.shape = shp_keyLine,                                                                      .result = {1, 1, 1, nodeCount, nodeCount, 2, 1, 1}},
    {.shape = shp_keyTri,   .nodes = 3,                                                         .result = {2, 1, 3, 3, 2, 1, 1, 3}},
    {.shape = shp_keyTri,                                                                       .result = {2, 1, 3, nodeCount, 3, 3, 2, 4}},
    {.shape = shp_keyQuad,  .nodes = 4,                                                         .result = {2, 1, 4, 4, 2, 4, 1, 5}},
    {.shape = shp_keyQuad,  .nodes = 9,                                                         .result = {2, 1, 4, 9, 3, 4, 2, 7}},
    {.shape = shp_keyQuad,                                                                      .result = {2, 1, 4, nodeCount, 3, 4, 2, 6}},
    {.shape = shp_keyTetra, .nodes = 4,                                                         .result = {3, 4, 3, 3, 2, 1, 1, 12}},
    {.shape = shp_keyTetra,                                                                     .result = {3, 4, 3, 6, 3, 3, 2, 13}},
    {.shape = shp_keyHex,   .nodes = 8,                                                         .result = {3, 6, 4, 4, 2, 4, 1, 8}},
    {.shape = shp_keyHex,   .nodes = 12, .with = {shp_keyCylindrical, shp_keyCohesive},         .result = {3, 6, 4, 6, 3, 4, 3, 9}},
    {.shape = shp_keyHex,   .nodes = 12, .without = {shp_keyCylindrical, shp_keyCohesive},      .result = {3, 6, 4, 8, 3, 4, 2, 9}},
    {.shape = shp_keyHex,   .nodes = 18,                                                        .result = {3, 6, 4, 9, 3, 4, 2, 9}},
    {.shape = shp_keyHex,   .nodes = 20,                                                        .result = {3, 6, 4, 8, 3, 9, 2, 9}},
    {.shape = shp_keyHex,   .nodes = 24,                                                        .result = {3, 6, 4, 9, 3, 4, 3, 9}},
    {.shape = shp_keyHex,   .nodes = 27,                                                        .result = {3, 6, 4, 9, 3, 9, 2, 9}},
    {.shape = shp_keyPrism, .nodes = 6,                                                         .result = {3, 5, 4, 4, 2, 4, 1, 10}},
    {.shape = shp_keyPrism, .nodes = 9,                                                         .result = {3, 5, 4, 6, 3, 4, 3, 11}},
    {.shape = shp_keyPrism, .nodes = 12,                                                        .result = {3, 5, 4, 6, 3, 4, 2, 11}},
    {.shape = shp_keyPrism, .nodes = 15,                                                        .result = {3, 5, 4, 8, 3, 9, 2, 11}},
    {.shape = shp_keyPrism, .nodes = 18,                                                        .result = {3, 5, 4, 9, 3, 9, 2, 11}},
    {.shape = shp_keyPyramid,                                                                   .result = {3, 5, 4, 4, 2, 1, 1, 14}},
    {.shape = 0,                                                                                .result = {0, 0, 0, 1, 1, 1, 0, 0}},
};
// clang-format on

ShapeNumbers numbersOfShape(shp_Options const & options) {
    return shp_firstFit(shapeNumbers, options);
}

/// An infinite quadrilateral has no edge towards infinity.
constexpr shp_Choice<int> edgeCounts[] = {
    {.shape = shp_keyQuad, .with = shp_keyInfinite, .result = 3},
};

int edgesPerFace(shp_Options const & options, int usual) {
    return shp_firstFit(edgeCounts, options, shp_any, usual);
}

/// In a two-dimensional model the edges of a planar element count as its faces.
constexpr shp_Choice<int> facePointCounts[] = {
    {.shape = {shp_keyTri, shp_keyQuad}, .with = shp_key2D, .result = 2},
};

int intPtsPerFace(shp_Options const & options, int usual) {
    return shp_firstFit(facePointCounts, options, shp_any, usual);
}

/// The cylindrical elements whose order differs from that of their straight relatives.
constexpr shp_Choice<int> orders[] = {
    {.shape = shp_keyQuad, .with = shp_keyCylindrical, .result = 3},
    {.shape = shp_keyPrism, .nodes = 18, .with = shp_keyCylindrical, .result = 3},
};

int orderOfInterpolation(shp_Options const & options, int usual) {
    return shp_firstFit(orders, options, shp_any, usual);
}

/// The functions of a set that an element of `nodes` nodes calls.
int usableFunctions(shp_FunctionSet const * set, int nodes) {
    return set ? std::min(set->count, nodes) : 0;
}

/// The set's evaluator when it writes neither more nor less than one float for each node.
shp_FunctionEvaluator wholeSet(shp_FunctionSet const * set, int nodes) {
    return set && set->count == nodes ? set->row : nullptr;
}

/// One row of weights for each of `rows` locations, `width` functions long and without a gap.
void evaluateRows(shp_FunctionSet const * set, float const * locations, int rows, int width, float * out) {
    if (!set || !locations)
        return;
    int const count = usableFunctions(set, width);
    shp_FunctionEvaluator const evaluate = wholeSet(set, width);
    for (int row = 0; row < rows; ++row, locations += 3, out += width) {
        if (evaluate)
            evaluate(locations[0], locations[1], locations[2], out);
        else
            for (int i = 0; i < count; ++i)
                out[i] = set->functions[i](locations[0], locations[1], locations[2]);
    }
}

void reverseWhole(shp_Topology const & topology, int * conn, int face) {
    std::reverse(conn, conn + topology.NumNodesPerFace(face));
}

void swapPairs(shp_Topology const &, int * conn, int) {
    std::swap(conn[0], conn[1]);
    std::swap(conn[2], conn[3]);
}

void permuteAsElement(shp_Topology const & topology, int * conn, int) {
    topology.ReverseElemConnectivity(conn);
}

} // namespace

shp_Topology::shp_Topology(shp_Options const & decoded, FromOptions) : options(decoded) {}

// The object counts as built once the other constructor has returned: if an allocation below fails, the destructor
// releases what is there.
shp_Topology::shp_Topology(LongKey const & key) : shp_Topology(shp_Options(key), FromOptions{}) {
    setCounts();
    setFlags();
    setSweepability();
    setShapeNumbers();
    bindConnectivity();
    bindWeightsAndLocations();
    bindFunctions();
    chooseWorkers();
    keepOnePlane();
    bindEvaluators();
    findIsoBounds();
    if (isCaxaElement)
        expandForPlanes();
    buildFaceCenterNodeWeights();
    if (isLayeredSolid)
        stackLayers();
    buildIntPointNodeWeights();
}

shp_Topology::~shp_Topology() {
    mem_Free(intPointNodeWeights);
    mem_Free(faceCenterNodeWeights);
    if (isCaxaElement) {
        mem_Free(const_cast<int *>(edgeConnTbl));
        mem_Free(const_cast<int *>(nodesPerEdgeTbl));
        mem_Free(const_cast<int *>(nodesPerFaceTbl));
        mem_Free(const_cast<int *>(faceConnTbl));
    }
    mem_Free(layeredNodeWeights);
    mem_Free(layeredFaceWeights);
    mem_Free(layeredIntPtLocations);
}

void shp_Topology::setCounts() {
    numSpatialDimensions = options.Is2D() ? 2 : 3;
    numNodesPerElem = options.NumNodes();
    numIntPtsPerElem = options.IsType(shp_keyNodalIntegration) ? numNodesPerElem : options.NumIntPnts();
}

void shp_Topology::setFlags() {
    isAxiSymmetric = options.IsType(shp_keyAxisymmetric);
    isInteraction = options.IsType(shp_keyInteraction);
    isInternal = options.IsType(shp_keyInternal);
    isSurface = options.IsType(shp_keySurface);
    isRigid = options.IsType(shp_keyRigid);
    hasResults = !options.IsType(shp_keyNoResults);
    isAnalyticalRigidSurface = options.IsType(shp_keyARS);
    isUnassigned73 = options.IsType(shp_keyUnassigned73);
    isTwistedElement = options.IsType(shp_keyTwisted);
    isCaxaElement = options.IsType(shp_keyCaxa);
    isFluidpipeThermal = options.IsType(shp_keyFluidpipeThermal);
    isFluidpipeAnnulusThermal = options.IsType(shp_keyFluidpipeAnnulusThermal);
    isContinuumShell = options.IsType(shp_keyContinuumShell);
    isLayeredSolid = options.IsType(shp_keyLayeredSolid);
    isCohesive = options.IsType(shp_keyCohesive);
    isGasket = options.IsType(shp_keyGasket);
    isCylindrical = options.IsType(shp_keyCylindrical);
    isNodalWeighted = options.IsType(shp_keyNodalIntegration) || options.IsType(shp_keyCornerLumped);
}

void shp_Topology::setSweepability() {
    bool const isPlane = options.IsType(shp_keyPlane);
    if (isAnalyticalRigidSurface) {
        isExtrudable = isPlane;
        isSweepable = !isPlane;
    } else if (isAxiSymmetric || isCaxaElement) {
        isSweepable = true;
    } else {
        isExtrudable = isPlane;
    }
    // Internal surfaces are drawn as they are, but for those of couplings.
    if (isInternal && isSurface && !options.IsType(shp_keyClassCoupling))
        isSweepable = isExtrudable = false;
}

void shp_Topology::setShapeNumbers() {
    ShapeNumbers const numbers = numbersOfShape(options);
    auto const orNodeCount = [this](int number) { return number == nodeCount ? options.NumNodes() : number; };
    numGeometryDimensions = numbers.dimensions;
    numFacesPerElem = numbers.faces;
    maxEdgesPerFace = edgesPerFace(options, numbers.maxEdgesPerFace);
    maxNodesPerFace = orNodeCount(numbers.maxNodesPerFace);
    maxNodesPerEdge = orNodeCount(numbers.maxNodesPerEdge);
    maxIntPtsPerFace = intPtsPerFace(options, numbers.maxIntPtsPerFace);
    interpolationOrder = orderOfInterpolation(options, numbers.order);
    interpolationClass = numbers.interpolationClass;
}

void shp_Topology::bindConnectivity() {
    nodesPerEdgeTbl = shp_ConnectivityTables::getNdPerEdgTblPtr(options);
    edgesPerFaceTbl = shp_ConnectivityTables::getEdgPerFcTblPtr(options);
    nodesPerFaceTbl = shp_ConnectivityTables::getNdPerFcTblPtr(options);
    intPtsPerFaceTbl = shp_ConnectivityTables::getIpPerFcTblPtr(options);
    faceConnTbl = shp_ConnectivityTables::getFaceConnTblPtr(options);
    edgeConnTbl = shp_ConnectivityTables::getEdgeConnTblPtr(options);
    reverseConnTbl = shp_ConnectivityTables::getRevConnTblPtr(options);
    edgeMapTbl = shp_ConnectivityTables::getEdgeMapTblPtr(options);
    faceTriTbl = shp_ConnectivityTables::getFaceTriTblPtr(options, numFaceTriangles);
    if (numFaceTriangles > 0)
        numTrianglePoints = 1 + *std::max_element(faceTriTbl, faceTriTbl + 3 * numFaceTriangles);
}

void shp_Topology::bindWeightsAndLocations() {
    nodeWeights = shp_InterpolationTables::getNdWghtTblPtr(options);
    faceWeights = shp_InterpolationTables::getFcWghtTblPtr(options);
    intPtLocationTable = shp_InterpolationTables::getIntPntLocTblPtr(options);
    nodeLocationTable = shp_InterpolationTables::getNdLocTblPtr(options);
    centerLocation = shp_InterpolationTables::getCenterLocTblPtr(options);
    faceCenterLocationTable = shp_InterpolationTables::getFcCenterLocTblPtr(options);
    cylCentroidWeights = shp_InterpolationTables::getCylCentroidWghtTblPtr(options);
}

/// A direction is asked for only where the element has it: the getter does not look at the number of directions.
void shp_Topology::bindFunctions() {
    shapeFunctions = shp_InterpolationTables::getNdFuncPtrTblPtr(options);
    dUdGFunctions = shp_InterpolationTables::getdUdGHRFuncPtrTblPtr(options, 0);
    hasDerivatives = dUdGFunctions != nullptr;
    if (hasDerivatives && numGeometryDimensions >= 2)
        dUdHFunctions = shp_InterpolationTables::getdUdGHRFuncPtrTblPtr(options, 1);
    if (hasDerivatives && numGeometryDimensions == 3)
        dUdRFunctions = shp_InterpolationTables::getdUdGHRFuncPtrTblPtr(options, 2);
    bodyOp = shp_InterpolationTables::getBodyOpPtr(options);
    faceTangents = shp_ConnectivityTables::getFaceTanFuncPtr(options);
}

void shp_Topology::chooseWorkers() {
    if (isGasket && options.NumNodes() == 6)
        reverseFaceWorker = swapPairs;
    else if (interpolationOrder == 1)
        reverseFaceWorker = reverseWhole;
    else
        reverseFaceWorker = permuteAsElement;

    if (numFaceTriangles != 0)
        lineWorker = shp_vectorKernels().surfaceLineWorker;
    else if (numGeometryDimensions == 0)
        lineWorker = pointLineWorker;
    else if (numGeometryDimensions == 1)
        lineWorker = segmentLineWorker;
    if (interpolationClass == quadWithoutCentreClass)
        prepareCoords = completeQuadCenterNode;
}

/// A thermal fluid pipe is interpolated along its two end nodes; its other nodes only carry results.
void shp_Topology::keepOnePlane() {
    baseNodesPerEdgeTbl = nodesPerEdgeTbl;
    baseNodesPerFaceTbl = nodesPerFaceTbl;
    baseNodesPerElem = numNodesPerElem;
    baseIntPtsPerElem = numIntPtsPerElem;
    if (isFluidpipeThermal) {
        baseNodesPerElem = 2;
        numNodesPerElem = 6;
    }
    if (isFluidpipeAnnulusThermal) {
        baseNodesPerElem = 2;
        numNodesPerElem = 8;
    }
}

void shp_Topology::bindEvaluators() {
    shp_FunctionSet const * const values = shp_valueSet(options);
    numShapeFunctions = usableFunctions(values, baseNodesPerElem);
    if (wholeSet(values, baseNodesPerElem)) {
        shp_SetOperations const operations = shp_operationsOf(values);
        evaluateFunctions = operations.row;
        evaluatePoint = operations.point;
    }

    if (!hasDerivatives)
        return;
    shp_FunctionSet const * const slopes = shp_derivativeSet(options);
    numDerivatives = usableFunctions(slopes, baseNodesPerElem);
    if (slopes && slopes->count == baseNodesPerElem && slopes->directions == numGeometryDimensions) {
        shp_SetOperations const operations = shp_operationsOf(slopes);
        evaluateDerivatives = slopes->gradient;
        evaluateJacobian = operations.jacobian;
        locator = slopes == values ? operations.locate : nullptr;
    }
}

/// Of the nodes that have a function: keys made by hand may speak of more nodes than the table has.
void shp_Topology::findIsoBounds() {
    for (int i = 0; nodeLocationTable && i < 3 * numShapeFunctions; ++i) {
        isoLow[i % 3] = std::min(isoLow[i % 3], nodeLocationTable[i]);
        isoHigh[i % 3] = std::max(isoHigh[i % 3], nodeLocationTable[i]);
    }
}

void shp_Topology::buildFaceCenterNodeWeights() {
    int const rows = numSpatialDimensions == 2 ? maxEdgesPerFace : numFacesPerElem;
    faceCenterNodeWeights = shp_newTable<float>(rows, baseNodesPerElem);
    evaluateRows(shp_valueSet(options), faceCenterLocationTable, rows, baseNodesPerElem, faceCenterNodeWeights);
}

/// A 27-node element gets rows of 20 from the 20-node functions, one after the other, and zeros behind: positions of
/// integration points on file were made without the nodes on faces and in the middle.
void shp_Topology::buildIntPointNodeWeights() {
    intPointNodeWeights = shp_newTable<float>(baseIntPtsPerElem, baseNodesPerElem);
    if (baseIntPtsPerElem == 1) {
        std::fill_n(intPointNodeWeights, baseNodesPerElem, static_cast<float>(1.0 / baseNodesPerElem));
    } else if (baseNodesPerElem != 27) {
        evaluateRows(shp_valueSet(options), intPtLocationTable, baseIntPtsPerElem, baseNodesPerElem,
                     intPointNodeWeights);
    } else {
        constexpr int rowLength = 20;
        shp_Options serendipity(options);
        serendipity.SetNumNodes(rowLength);
        evaluateRows(shp_valueSet(serendipity), intPtLocationTable, baseIntPtsPerElem, rowLength, intPointNodeWeights);
    }
}

void shp_Topology::FaceConnectivity(int const * elemConn, int face, int * out) const {
    int const * const nodes = faceConnTbl + face * maxNodesPerFace;
    for (int i = 0; i < NumNodesPerFace(face); ++i)
        out[i] = elemConn[nodes[i]];
}

void shp_Topology::EdgeConnectivity(int const * elemConn, int face, int edge, int * out) const {
    int const * const nodes = edgeConnTbl + (face * maxEdgesPerFace + edge) * maxNodesPerEdge;
    for (int i = 0; i < NumNodesPerEdge(face, edge); ++i)
        out[i] = elemConn[nodes[i]];
}

void shp_Topology::ReverseEdgeConnectivity(int * conn, int face, int edge) const {
    int const nodes = BaseNodesPerEdge(face, edge);
    if (nodes >= 2)
        std::swap(conn[0], conn[nodes - 1]);
}

void shp_Topology::ReverseElemConnectivity(int * conn) const {
    if (!reverseConnTbl)
        return;
    int before[maxBaseNodes];
    std::copy_n(conn, baseNodesPerElem, before);
    for (int i = 0; i < baseNodesPerElem; ++i)
        if (reverseConnTbl[i] < baseNodesPerElem)
            conn[i] = before[reverseConnTbl[i]];
}

void shp_Topology::ReverseFaceConnectivity(int * conn, int face) const {
    if (reverseFaceWorker)
        reverseFaceWorker(*this, conn, face);
}
