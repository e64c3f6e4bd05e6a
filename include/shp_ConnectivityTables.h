#ifndef shp_ConnectivityTables_h
#define shp_ConnectivityTables_h

#include "QVRShpCore_Export.h"
#include "shp_FaceTangents.h"
#include "shp_Options.h"

/// The node numbering of every element type: which nodes make up each face and each edge, in which order, how the
/// faces are cut into triangles, and how an element is turned inside out.
///
/// Every getter chooses a table of node numbers or counts by shape, node count and single key bits. Numbers count
/// from 0. The tables are constant, live as long as the library and are owned by nobody. A combination that a getter
/// does not know gives null, and nothing is reported. All getters may be called from any thread.
///
/// The strides named below are the fields of shp_Topology for the same key (before the planes of a CAXA element are
/// expanded): `maxEdgesPerFace`, `maxNodesPerFace` and `maxNodesPerEdge`; faces are `numFacesPerElem`. Surplus slots
/// of a row hold filler, which is not the same everywhere; the counts stop every walk before it. A planar element
/// has one face, and its edges are the outline.
class QVRSHPCORE_API shp_ConnectivityTables {
public:
    /// Number of nodes of each edge, shape `[faces][maxEdgesPerFace]`; 0 in a slot without an edge.
    static int const * getNdPerEdgTblPtr(shp_Options const & options);

    /// Number of edges of each face, shape `[faces]`.
    static int const * getEdgPerFcTblPtr(shp_Options const & options);

    /// Number of nodes of each face, shape `[faces]`.
    static int const * getNdPerFcTblPtr(shp_Options const & options);

    /// Number of integration points of each face, shape `[faces]`; of a planar element in a two-dimensional model,
    /// and of a line, the number for each edge or end.
    static int const * getIpPerFcTblPtr(shp_Options const & options);

    /// Node numbers of each face, shape `[faces][maxNodesPerFace]`: as a rule the corners, seen from outside
    /// counter-clockwise, then the midside nodes, then the centre node.
    static int const * getFaceConnTblPtr(shp_Options const & options);

    /// Node numbers along each edge, shape `[faces][maxEdgesPerFace][maxNodesPerEdge]`: first end, midside node if
    /// there is one, other end.
    static int const * getEdgeConnTblPtr(shp_Options const & options);

    /// The element's surface as triangles, shape `[numTriangles][3]`, node numbers. `numTriangles` is set in every
    /// case: to 0 when the result is null (points and lines have no surface).
    static int const * getFaceTriTblPtr(shp_Options const & options, int & numTriangles);

    /// The permutation that turns the element inside out: new entry i is old entry `table[i]`. Shared by all node
    /// counts of a shape, an element uses as many entries as it has nodes. The permutation of a prism with more than
    /// 15 nodes is not defined; its entries from 15 on name the node itself.
    static int const * getRevConnTblPtr(shp_Options const & options);

    /// Each edge of the element once, as pairs (face, edge slot), shape `[number of edges][2]`. It goes by shape and
    /// `shp_keyCylindrical` alone, and misses edges of some that number otherwise: infinite and 27-node hexahedra,
    /// cohesive hexahedra of 12 and prisms of 9 nodes. Points, lines and planar elements have the first four slots of
    /// their one face.
    static int const * getEdgeMapTblPtr(shp_Options const & options);

    /// The function that gives two tangents of a face from the positions of its nodes. Never null: an element type
    /// without one gets a function that writes zeros.
    static shp_FaceTangents getFaceTanFuncPtr(shp_Options const & options);
};

#endif
