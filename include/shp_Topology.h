#ifndef shp_Topology_h
#define shp_Topology_h

#include "LongKey.h"
#include "QVRShpCore_Export.h"
#include "g3d_Storage.h"
#include "g3d_XForm.h"
#include "mem_AllocationOperators.h"
#include "res_OutputPositionEnm.h"
#include "shp_BodyOperators.h"
#include "shp_FaceTangents.h"
#include "shp_Options.h"
#include "shp_ShapeFunction.h"

class aio_ostream;
class g3d_Point;
class shp_Topology;
class uti_CoordCont3D;

/// Turns a face's node list over, in place.
using shp_ReverseFaceWorker = void (*)(shp_Topology const & topology, int * conn, int face);

/// Meets a line with one element.
using shp_LineWorker = bool (*)(shp_Topology const & topology, g3d_Storage const & lineStart,
                                g3d_Storage const & lineEnd, g3d_Storage * coords, double * params,
                                float (*const iso)[3], int & numHits, bool flag, g3d_Storage * hitPoints);

/// Completes an element's coordinates before a line is met with it.
using shp_PrepareCoords = void (*)(g3d_Storage *& coords, g3d_Storage const & lineStart, g3d_Storage const & lineEnd);

/// All values of a set of shape functions, or all its derivatives, at one isoparametric point.
using shp_FunctionEvaluator = void (*)(float g, float h, float r, float * out);

/// The point of space at `iso[3]`, from the positions of the nodes.
using shp_PointEvaluator = g3d_Storage (*)(g3d_Storage const * coords, float const * iso);

/// The Jacobian at `iso`, all rows of a g3d_XForm, from the positions of the nodes.
using shp_JacobianEvaluator = void (*)(g3d_Storage const * coords, float const * iso, float (*rows)[4]);

/// How an iteration ends. It is unusual, and left to be done otherwise, where numbers are very large or are none.
enum class shp_Iteration { converged, failed, unusual };

/// The iteration of the inverse location, up to where it converges; `iso[3]` is where it ends.
using shp_Locator = shp_Iteration (*)(g3d_Storage const & point, g3d_Storage const * coords, float * iso);

/// What one element type is: its counts, flags, constant tables and functions. All choices by shape are made once, in
/// the constructor; after it nothing writes to the object, and any number of threads may read it.
///
/// Conventions for every operation:
/// - Nodes, faces, edges, integration points and triangles are counted from 0.
/// - Isoparametric coordinates are three floats in the order g, h, r, whatever the shape; a shape ignores those that
///   it does not have. Lines, quadrilaterals, hexahedra and pyramids run from -1 to 1; triangles and tetrahedra have
///   g, h, r >= 0 with g + h (+ r) <= 1; a prism is a triangle in g, h and -1 to 1 in r.
/// - Positions are in the caller's length unit, and result values in the caller's unit; neither is converted.
/// - Arguments are not checked: a face, edge or node number out of range, a null array or one that is too short is
///   the caller's error. So is an operation whose table or function the element type lacks (a null field), except
///   where something else is said.
/// - Input and output arrays of one call do not overlap, except where an operation works in place.
/// - Keys that are not in the catalogue are accepted. A key without a shape, or with a node count that its shape does
///   not have, gives counts of 0 and null tables; what a hand-made key asks of tables that hold less than it needs is
///   the caller's risk.
///
/// Fields are public for callers that walk the tables themselves. Tables belong to the library or to this object
/// (said at each field); a caller never frees or changes them, and they live as long as the object.
class QVRSHPCORE_API shp_Topology : public mem_AllocationOperators {
public:
    /// Builds the element type that `key` describes. Raises only what the allocator raises; nothing is leaked then.
    explicit shp_Topology(LongKey const & key);
    virtual ~shp_Topology();
    shp_Topology(shp_Topology const &) = delete;
    shp_Topology & operator=(shp_Topology const &) = delete;

    // Counts and flags.

    int NumGeometryDimensions() const { return numGeometryDimensions; } ///< isoparametric coordinates in use, 1 to 3
    int NumSpatialDimensions() const { return numSpatialDimensions; }   ///< 2 for a two-dimensional model, else 3
    int NumNodesPerElem() const { return numNodesPerElem; }             ///< nodes of the whole element
    int NumFacesPerElem() const { return numFacesPerElem; }             ///< a two-dimensional element has one face
    int NumFaceTriangles() const { return numFaceTriangles; }           ///< rows of FaceTriangles()
    int BaseNodesPerElem() const { return baseNodesPerElem; }   ///< nodes of one plane: shape functions, at most 27
    int BaseIntPtsPerElem() const { return baseIntPtsPerElem; } ///< integration points of one plane
    /// A shell or membrane: two isoparametric coordinates in three-dimensional space.
    bool Is3DShell() const { return numGeometryDimensions == 2 && numSpatialDimensions == 3; }

    // Connectivity. `elemConn` and `conn` are an element's own node list in element node order, of any numbering; with
    // the identity 0, 1, 2 ... the results are local node numbers.

    /// How many edges or nodes a face has.
    int NumEdgesPerFace(int face) const { return edgesPerFaceTbl[face]; }
    int NumNodesPerFace(int face) const { return nodesPerFaceTbl[face]; }
    /// The same for one plane of an element that has several.
    int BaseNodesPerFace(int face) const { return baseNodesPerFaceTbl[face]; }
    /// How many nodes an edge has; edges are counted within their face.
    int NumNodesPerEdge(int face, int edge) const { return nodesPerEdgeTbl[face * maxEdgesPerFace + edge]; }
    /// The same for one plane of an element that has several.
    int BaseNodesPerEdge(int face, int edge) const { return baseNodesPerEdgeTbl[face * maxEdgesPerFace + edge]; }
    /// Local node number of entry `i` of a face: corners first, then midsides, then the face's centre node.
    int FaceNodeIndex(int face, int i) const { return faceConnTbl[face * maxNodesPerFace + i]; }
    /// Local node number of entry `i` of an edge: first end, middle node if any, other end.
    int EdgeNodeIndex(int face, int edge, int i) const {
        return edgeConnTbl[(face * maxEdgesPerFace + edge) * maxNodesPerEdge + i];
    }
    /// `out[NumNodesPerFace(face)]`: the nodes of a face, in the face's order.
    void FaceConnectivity(int const * elemConn, int face, int * out) const;
    /// `out[NumNodesPerEdge(face, edge)]`: the nodes of an edge, in the edge's order.
    void EdgeConnectivity(int const * elemConn, int face, int edge, int * out) const;
    /// The element's surface as triangles of local node numbers, `[NumFaceTriangles()][3]`; null without a surface.
    int const * FaceTriangles() const { return faceTriTbl; }
    /// Exchanges the two ends of an edge's node list `conn[BaseNodesPerEdge(face, edge)]`; a middle node stays. An
    /// edge of fewer than two nodes stays as it is.
    void ReverseEdgeConnectivity(int * conn, int face, int edge) const;
    /// Turns an element inside out: `conn[BaseNodesPerElem()]` is permuted in place by `reverseConnTbl`. An entry
    /// whose source is not one of these nodes stays, as does everything when the element type has no such table.
    void ReverseElemConnectivity(int * conn) const;
    /// Turns a face's node list over, in place. First-order elements: the first NumNodesPerFace(face) entries in
    /// reverse. Six-node gaskets: entries 0 and 1, and 2 and 3, change places. All others: as
    /// ReverseElemConnectivity, so that `conn` has BaseNodesPerElem() entries.
    void ReverseFaceConnectivity(int * conn, int face) const;

    // Isoparametric locations.

    /// All nodes' isoparametric coordinates, one row of three for each node of one plane, in node order.
    float const * IsoNodeLocationTable() const { return nodeLocationTable; }
    /// `iso[3]`: one node's isoparametric coordinates.
    void GetNodeIsoCoords(int node, float * iso) const;
    /// The element's centre in isoparametric coordinates.
    void IsoParCentroidLocation(float (&iso)[3]) const;

    // Weights of nodes. Every `weights` array has BaseNodesPerElem() entries, in node order.

    /// The shape functions' values at `iso[3]`: node i's share of a value there.
    void CalculateNodesShapeWeight(float const * iso, float * weights) const {
        if (evaluateFunctions)
            evaluateFunctions(iso[0], iso[1], iso[2], weights);
        else
            callShapeFunctions(iso, weights);
    }
    /// Cylindrical elements: copies the table of centroid weights, as many floats as the element has integration
    /// points; `iso` is ignored. Leaves `weights` as it was for every other element, and where there is no table.
    void CalculateCylindricalCentroidWeights(float const * iso, float * weights) const;
    /// The shape functions' values at the element's centre. A 9- or 12-node cylindrical solid has a table of its own
    /// instead, and as many floats are written as it has integration points.
    void GetCenterNodeWeights(float * weights) const;
    /// The shape functions' values at a face's centre, `[BaseNodesPerElem()]`; in two-dimensional space `face` is one
    /// of the element's edges. The array belongs to this object.
    float const * GetFcCenterNodeWeights(int face) const { return faceCenterNodeWeights + face * baseNodesPerElem; }
    /// Body weights from the node positions, one float per node; nothing for an element type without an operator.
    void BodyOp(uti_CoordCont3D const & coords, float * weights) const;

    // One function at one point.

    /// The shape function of node `node` (0 to BaseNodesPerElem() - 1) at (g, h, r), or its derivative with respect to
    /// g, h or r. 0.0 where the element type has no such function.
    float shapeFuncValue(int node, float g, float h, float r) const;
    float dUdGValue(int node, float g, float h, float r) const;
    float dUdHValue(int node, float g, float h, float r) const;
    float dUdRValue(int node, float g, float h, float r) const;

    // Positions and values inside the element. `coords[BaseNodesPerElem()]` are the node positions in node order.

    /// The point of space at `iso[3]`: sum of weight times position, in double, in node order.
    g3d_Storage InterpolatePointFromNodes(g3d_Storage const * coords, float const * iso) const;
    /// The result at `iso[3]` from one value per node, `values[BaseNodesPerElem()]`: a float sum in node order. When
    /// any value equals `undefinedValue` the answer is `undefinedValue` (NaN equals nothing).
    float InterpolateResultFromNodes(float const * values, float const * iso, float undefinedValue) const;
    /// The Jacobian at `iso[3]`: column 0, 1, 2 = derivatives with respect to g, h, r; row 0, 1, 2 = x, y, z; sums in
    /// double, narrowed when they are stored. An element with fewer dimensions than space gets unit directions:
    /// - two: column 2 is (0, 0, 1), or (0, 1, 0) when the x-y minor is exactly 0, or (1, 0, 0) when the x-z minor is 0
    ///   too;
    /// - one: the first coordinate of x, y, z whose derivative is not exactly 0 (z if none) takes the place of the
    ///   element's direction in column 0, the other two columns are the remaining unit directions; later components
    ///   of the tangent are not in the matrix.
    /// The identity for an element type without derivatives. May be singular: test Determinant().
    g3d_XForm ShapeFunctionJacobian(g3d_Storage const * coords, float * iso) const;
    /// The same from float positions, with sums and tests for 0 in float.
    g3d_XForm ShapeFunctionJacobian(g3d_Point const * coords, float * iso) const;
    /// The mean of the element's nodes, stored at entry 0 of `centroid`, which must exist. Node i is entry `conn[i]`
    /// of `coords`, or entry i when `useConnectivity` is false. A node at exactly the place of the node before it is
    /// left out. Float sums.
    void Centroid(int const * conn, uti_CoordCont3D const & coords, uti_CoordCont3D & centroid,
                  bool useConnectivity) const;
    /// The positions of all integration points of one plane, at entries 0 to BaseIntPtsPerElem() - 1 of `intPoints`,
    /// which grows as needed; float sums. Node i is entry `conn[k(i)]` of `coords`:
    /// - `nodeOrder` 3, and every number but those below: k = 0, 1, 2 ...; a 27-node element uses its first 20 nodes
    ///   and the weights of the 20-node functions;
    /// - 2: k = 0 4 5 1 3 7 6 2, at most 8 nodes;
    /// - 1: k = 0 3 7 4 1 2 6 5, at most 8 nodes;
    /// - 4: k = 0 3 2 1, at most 4 nodes.
    /// With the orders 1, 2 and 4 a row has BaseNodesPerElem() weights if these are fewer, and only as many of the k
    /// are used; `conn` must reach those. Rows follow one another without a gap, also when they are shorter than the
    /// element's.
    void IntPtCoord(uti_CoordCont3D const & coords, int const * conn, uti_CoordCont3D & intPoints, int nodeOrder) const;

    // From where a result stands to nodes and faces. Component c of point p stands at p * numComps + c, in and out.
    // With `numComps` below 1 nothing is written.

    /// One plane's values to its nodes, `nodal[BaseNodesPerElem()][numComps]`. `values` has, by position:
    /// INTEGRATION_POINT `[BaseIntPtsPerElem()][numComps]`: weighted sums, each product in float, the sum in double,
    /// points in order, narrowed to the nearest finite float; ELEMENT_NODAL `[BaseNodesPerElem()][numComps]`: copied;
    /// WHOLE_ELEMENT and ELEMENT_CENTROID `[numComps]`: the same for every node. Any other position is reported once
    /// to the message sink and gives zeros.
    void StdExtrapToNodes(float const * values, res_OutputPositionEnm position, float * nodal, int numComps) const;
    /// The same for an element in several planes around its axis (`isCaxaElement`; no other), with N its mode:
    /// `nodal[N + 1][BaseNodesPerElem()][numComps]`. ELEMENT_NODAL: `values` has the same shape, and is copied. All
    /// others: `values` has 2N + 2 planes at the angles i * 180 / (2N + 1) degrees, each with
    /// `[BaseIntPtsPerElem()][numComps]` values (WHOLE_ELEMENT and ELEMENT_CENTROID read the first point of each
    /// block); node plane k, at k * 180 / N degrees, gets what StdExtrapToNodes makes of the linear blend of its two
    /// neighbours. An unsupported position is reported for each node plane.
    void CaxaExtrapToNodes(float const * values, res_OutputPositionEnm position, float * nodal, int numComps) const;
    /// One value per face, `faceValues[NumFacesPerElem()][numComps]`, from `values` as in StdExtrapToNodes. Float sums
    /// without saturation: too large a sum is infinite here. Any other position is reported once and gives zeros.
    void ExtrapolateToFaces(float const * values, res_OutputPositionEnm position, float * faceValues,
                            int numComps) const;
    /// One component from a face's integration points, `values[intPtsPerFaceTbl[face]]`, to its nodes,
    /// `faceNodal[BaseNodesPerFace(face)]`; float sums. Nothing where there is no table for the face.
    void ExtrapolateFromFaceIntPtsToFaceNodes(float const * values, float * faceNodal, int face) const;

    // Where a point lies, and where a line meets the element. `coords` are the positions of one plane's nodes in node
    // order; `iso` rows are isoparametric coordinates.

    /// Finds the isoparametric coordinates `iso[3]` of a point of space by Newton's iteration from (0, 0, 0), at most
    /// 100 steps. True when they are found: at a node if the point is within the geometric tolerance of it in each
    /// coordinate, else converged inside the bounds of the node locations (a point slightly outside, by less than
    /// 0.0005 in all, is moved onto them). False does not tell "outside" from "gave up"; `iso` then holds whatever was
    /// reached. What it does not promise:
    /// - Limits are absolute, in the caller's unit: where the Jacobian's determinant is below 1e-10 (a cube with edges
    ///   under 9.3e-4) only nodes are found.
    /// - The bounds are a box: on triangles, tetrahedra and prisms points with g + h (+ r) above 1 inside it are
    ///   accepted.
    /// - A planar element is located only in a plane normal to an axis, a line only along an axis, and in practice only
    ///   where the remaining coordinates are 0: elsewhere the float rounding of the weights misses a test of 1e-10.
    /// - The derivatives of the infinite elements and of the plain 18-node prism belong to other functions: only their
    ///   nodes are reliable. The pyramid's apex is found only as a node.
    /// - An element type without derivatives is never located.
    bool FindIsoPointLocation(g3d_Storage const & point, g3d_Storage const * coords, float * iso) const;

    /// Meets the line through `lineStart` and `lineEnd` (parameter 0 and 1 along it) with the element's triangulated
    /// surface, with its segments from node to node (a line element), or with its point; exact for that triangulation,
    /// not for a curved face. True when there is a hit: the foremost and the hindmost, in `numHits` entries of the
    /// parameters `params[3]`, the isoparametric coordinates `iso[3][3]` and, unless null, the points `hitPoints[3]`;
    /// all three arrays must have that room. What to know of them:
    /// - When all parameters are 1.5 and more, or all are -1.5 and less, there is no hit. `flag` bounds the line to the
    ///   segment between its two points, widened by the geometric tolerance.
    /// - On a surface, a parameter that is not near 0 (first hit) or 1 (second hit) is formed anew from the hit's
    ///   distance to `lineStart`; it is 0 when the hit is at `lineStart`. The point is that of the flat triangle.
    /// - On a line element g runs from -1 to 1 along each segment. Along a straight one of three nodes the middle node
    ///   may be a third hit, with the mean of the parameters.
    /// - Some tables of triangles (cohesive, cylindrical, gasket and infinite solids, cohesive quadrilaterals) leave
    ///   gaps, through which a line misses one side.
    /// - Two equal points, or points that are not finite, define no line and have no hit.
    ///
    /// `coords` of an 8-node quadrilateral has room for nine positions, and the ninth is written: the element's centre;
    /// of an element in several planes, one plane with that room. `numHits` is left as it was where the element type
    /// has nothing to meet.
    bool LineShapeIntersection(g3d_Storage const & lineStart, g3d_Storage const & lineEnd, g3d_Storage * coords,
                               double * params, float (*const iso)[3], int & numHits, bool flag,
                               g3d_Storage * hitPoints) const;

    /// True when `point` lies in the element, by the hits of the endless line through it and `direction` (a second
    /// point of the line, not a difference) with the triangulated surface: between two hits, or on a single one.
    /// `iso[3]`, unless null, gets the location by linear interpolation between the two hits; it is left as it was
    /// when the answer is false. `coords`, and what is not promised, as in LineShapeIntersection.
    bool FindPointInShape(g3d_Storage const & point, g3d_Storage const & direction, g3d_Storage * coords,
                          float * iso) const;

    // Geometry of faces. Here `coords` and `conn` are the positions and labels of one face's nodes, in face order,
    // NumNodesPerFace(face) of them: of an element in several planes all planes' nodes, NumNodesPerElem(). Only
    // equality of labels counts.

    /// The unit normal `normal[3]` of a face from two tangents of the whole face: outwards for a solid, for a planar
    /// element on the side from which g turns to h counter-clockwise, in two-dimensional space (0, 0, 1) or
    /// (0, 0, -1). The cylindrical membranes of 9 nodes have it on the other side.
    ///
    /// Gives 0, or 1 with a zero normal when the face has collapsed: going around it, no label differs from the next
    /// one while that one differs from the one after it. Degenerate positions are not looked for. 0 and a zero normal
    /// come from a face of fewer than three nodes and, in three-dimensional space, from tangents without length or
    /// along each other; in two-dimensional space such tangents give (0, 0, 1).
    int ComputeFaceNormal(int const * conn, int face, uti_CoordCont3D const & coords, float * normal) const;
    /// The same at entry `faceNode` of the face, from the triangles of FaceTriangles() that lie on the face and have
    /// the node there: the sum, as a unit vector, of the vector products of each one's two unit sides from its first
    /// corner (in two-dimensional space, of 1 or -1 for each).
    ///
    /// 1 and a zero normal also where no triangle has the node: at all nodes of an 8-node quadrilateral, whose
    /// triangles meet in a ninth point, and at the centre nodes of faces that are cut without them. Of a CAXA element
    /// only the first plane has triangles; in one of 8 nodes to a plane their ninth point is the second plane's first.
    /// Where triangles do not follow their face (gaskets, cohesive and pipe-soil elements with midside nodes, 9- and
    /// 18-node cylindrical prisms, 18-node hexahedra), the normal follows them, and may look inwards or be zero.
    int ComputeFaceNormal(int const * conn, int face, int faceNode, uti_CoordCont3D const & coords,
                          float * normal) const;

    /// The centroid of a face from the positions `coords[BaseNodesPerElem()]` and labels `conn[BaseNodesPerElem()]` of
    /// all the element's nodes; in two-dimensional space `face` is one of the element's edges. Sums in float. `conn` is
    /// read of a 27-node element only: where a face's middle node has the label of the node before it, it is missing,
    /// and the centroid comes from the face's other eight nodes.
    g3d_Point GetFaceCentroid(int face, g3d_Point const * coords, int const * conn) const;
    /// The same with sums in double.
    g3d_Storage GetFaceCentroid(int face, g3d_Storage const * coords, int const * conn) const;
    /// The mean of a face's nodes from the positions of all the element's nodes (of all planes, if it has several),
    /// stored at entry `face` of `centroids`, which must exist. Sums in float. In two-dimensional space `face` is one
    /// of the element's edges; for edge 0 as many of the element's first nodes are taken as the edge has, which
    /// need not be its own where it has a midside node.
    void FaceCentroidFromElementCoordinates(int face, uti_CoordCont3D const & elementCoords,
                                            uti_CoordCont3D & centroids) const;

    // Text reports of the element type. Every line ends with a line feed and a flush; blanks before it are part of the
    // text.

    /// A labelled dump of the counts and flags. Line "Nodes per edge: " gives the table's address, and so differs from
    /// run to run.
    void PrintTopology(aio_ostream & stream) const;
    /// Counts and flags as one line of a table: 10 numbers and 14 flags, T or F. Leaves the stream's adjustment right.
    void PrintTopologyTable(aio_ostream & stream) const;
    /// Nodes and edges of the faces. Leaves the stream's adjustment left.
    void PrintConnectivityTable(aio_ostream & stream) const;
    /// Isoparametric locations and weights; nothing for an element in several planes. Leaves the precision at 7.
    void PrintWeights(aio_ostream & stream) const;

    // The fields: counts. Like all below, they are complete when the constructor returns.

    int numGeometryDimensions = 0; ///< isoparametric coordinates in use
    int numSpatialDimensions = 0;  ///< 2 or 3
    int numNodesPerElem = 0;       ///< the element's full node count
    int numIntPtsPerElem = 0;      ///< the element's full integration point count
    int numFacesPerElem = 0;       ///< a two-dimensional element has one face
    int numFaceTriangles = 0;      ///< rows of `faceTriTbl`
    int numTrianglePoints = 0;     ///< one more than the largest number in `faceTriTbl`
    int maxEdgesPerFace = 0;       ///< stride of the per-edge tables; a face with fewer edges keeps its empty slots
    int maxNodesPerFace = 0;       ///< stride of `faceConnTbl`
    int maxNodesPerEdge = 0;       ///< stride of `edgeConnTbl`
    int maxIntPtsPerFace = 0;      ///< integration points of a face, by shape and nodes
    int baseNodesPerElem = 0;      ///< nodes of one plane: the number of shape functions
    int baseIntPtsPerElem = 0;     ///< integration points of one plane

    // The fields: flags. Most stand for a bit of the key (shp_KeyBit.h).

    bool isAxiSymmetric = false;            ///< shp_keyAxisymmetric
    bool isInteraction = false;             ///< shp_keyInteraction
    bool isInternal = false;                ///< shp_keyInternal
    bool isSurface = false;                 ///< shp_keySurface
    bool isRigid = false;                   ///< shp_keyRigid
    bool hasResults = false;                ///< not shp_keyNoResults
    bool isAnalyticalRigidSurface = false;  ///< shp_keyARS
    bool isUnassigned73 = false;            ///< shp_keyUnassigned73
    bool isTwistedElement = false;          ///< shp_keyTwisted
    bool isCaxaElement = false;             ///< several planes around the axis
    bool isFluidpipeThermal = false;        ///< shp_keyFluidpipeThermal
    bool isFluidpipeAnnulusThermal = false; ///< shp_keyFluidpipeAnnulusThermal
    bool isContinuumShell = false;          ///< shp_keyContinuumShell
    bool isLayeredSolid = false;            ///< stacked along g, h or r: mode 1, 2 or 3
    bool isCohesive = false;                ///< shp_keyCohesive
    bool isGasket = false;                  ///< shp_keyGasket
    bool isCylindrical = false;             ///< shp_keyCylindrical
    bool isNodalWeighted = false;           ///< shp_keyNodalIntegration or shp_keyCornerLumped
    bool isSweepable = false;               ///< a section that is swept around an axis
    bool isExtrudable = false;              ///< a plane section that can be given a thickness

    // The fields: tables and functions. Tables are the library's where no own table is spoken of.

    int interpolationOrder = 0; ///< 1, 2 or 3
    int interpolationClass = 0; ///< number of the element's kind of interpolation, 0 to 14

    int const * baseNodesPerEdgeTbl = nullptr; ///< `nodesPerEdgeTbl` of one plane
    int const * nodesPerEdgeTbl = nullptr;     ///< `[faces][maxEdgesPerFace]`; own table of a CAXA element
    int const * edgesPerFaceTbl = nullptr;     ///< `[faces]`
    int const * baseNodesPerFaceTbl = nullptr; ///< `nodesPerFaceTbl` of one plane
    int const * nodesPerFaceTbl = nullptr;     ///< `[faces]`; own table of a CAXA element
    int const * intPtsPerFaceTbl = nullptr;    ///< `[faces]`; of a planar element, per edge
    int const * faceConnTbl = nullptr;         ///< `[faces][maxNodesPerFace]`; own table of a CAXA element
    int const * edgeConnTbl = nullptr;    ///< `[faces][maxEdgesPerFace][maxNodesPerEdge]`; own table of a CAXA element
    int const * faceTriTbl = nullptr;     ///< `[numFaceTriangles][3]`
    int const * reverseConnTbl = nullptr; ///< new entry i is old entry `reverseConnTbl[i]`
    int const * edgeMapTbl = nullptr;     ///< (face, edge slot) of each distinct edge

    float const * nodeWeights = nullptr; ///< `[baseNodesPerElem][baseIntPtsPerElem]`; own table of a layered solid
    float const * faceWeights = nullptr; ///< `[numFacesPerElem][baseIntPtsPerElem]`; own table of a layered solid
    float const * cylCentroidWeights = nullptr; ///< `[numIntPtsPerElem]`, or null
    /// Own table: the shape functions at the integration points, `[baseIntPtsPerElem][baseNodesPerElem]`; of a 27-node
    /// element the 20-node functions, in rows of 20 one after the other, with zeros behind.
    float * intPointNodeWeights = nullptr;
    /// Own table: the shape functions at the face centres, `[faces][baseNodesPerElem]`; edges in two-dimensional space.
    float * faceCenterNodeWeights = nullptr;

    float const * intPtLocationTable = nullptr;      ///< `[baseIntPtsPerElem][3]`; own table of a layered solid
    float const * centerLocation = nullptr;          ///< `[3]`
    float const * nodeLocationTable = nullptr;       ///< `[baseNodesPerElem][3]`
    float const * faceCenterLocationTable = nullptr; ///< `[faces][3]`; edges in two-dimensional space

    shp_ShapeFunction const * shapeFunctions = nullptr; ///< `[baseNodesPerElem]`
    bool hasDerivatives = false;                        ///< `dUdGFunctions` is not null
    shp_ShapeFunction const * dUdGFunctions = nullptr;  ///< `[baseNodesPerElem]`, as the next two, or null
    shp_ShapeFunction const * dUdHFunctions = nullptr;  ///< null below two geometry dimensions
    shp_ShapeFunction const * dUdRFunctions = nullptr;  ///< null below three geometry dimensions
    shp_BodyOperator bodyOp = nullptr;                  ///< null for most element types
    shp_FaceTangents faceTangents = nullptr;            ///< behind ComputeFaceNormal

    shp_Options options; ///< the decoded key

    shp_ReverseFaceWorker reverseFaceWorker = nullptr; ///< behind ReverseFaceConnectivity
    shp_LineWorker lineWorker = nullptr;               ///< behind LineShapeIntersection, or null
    shp_PrepareCoords prepareCoords = nullptr;         ///< for an 8-node quadrilateral; else null

    float * layeredNodeWeights = nullptr;    ///< own table behind `nodeWeights`, or null
    float * layeredFaceWeights = nullptr;    ///< own table behind `faceWeights`, or null
    float * layeredIntPtLocations = nullptr; ///< own table behind `intPtLocationTable`, or null

    /// All shape functions at once, the same bits as `shapeFunctions` one by one: `out[baseNodesPerElem]`. Null when
    /// the set of functions has another count than the element has nodes.
    shp_FunctionEvaluator evaluateFunctions = nullptr;
    /// All derivatives at once, `out[numGeometryDimensions][baseNodesPerElem]`; null as above.
    shp_FunctionEvaluator evaluateDerivatives = nullptr;
    int numShapeFunctions = 0; ///< entries of `shapeFunctions` that may be called, at most `baseNodesPerElem`
    int numDerivatives = 0;    ///< the same for each of the derivative arrays

    shp_PointEvaluator evaluatePoint = nullptr;       ///< behind InterpolatePointFromNodes; null as above
    shp_JacobianEvaluator evaluateJacobian = nullptr; ///< behind ShapeFunctionJacobian; null as above
    shp_Locator locator = nullptr;   ///< behind FindIsoPointLocation; null also where values have another set
    float isoLow[3] = {1, 1, 1};     ///< low corner of the box around the node locations, 1 at most
    float isoHigh[3] = {-1, -1, -1}; ///< its high corner, -1 at least

private:
    struct FromOptions {};
    /// An object without tables, that can be destroyed.
    shp_Topology(shp_Options const & decoded, FromOptions);

    void setCounts();
    void setFlags();
    void setSweepability();
    void setShapeNumbers();
    void bindConnectivity();
    void bindWeightsAndLocations();
    void bindFunctions();
    void chooseWorkers();
    void keepOnePlane();
    void bindEvaluators();
    void findIsoBounds();
    void expandForPlanes();
    void buildFaceCenterNodeWeights();
    void stackLayers();
    void buildIntPointNodeWeights();

    /// CalculateNodesShapeWeight, one function after the other.
    void callShapeFunctions(float const * iso, float * weights) const;

    /// One node plane of a CAXA element, at `angle` degrees, into `nodal[baseNodesPerElem][numComps]`.
    void GetNodalValueFromIntPlanes(float angle, float const * values, float * nodal, int numComps,
                                    res_OutputPositionEnm position) const;
    /// The two integration planes around `angle` degrees; both stay as they were for an angle above 180.001.
    void GetNeighbourPlaneIndex(float angle, int & lower, int & upper) const;
};

#endif
