#ifndef shp_InverseTopoTable_h
#define shp_InverseTopoTable_h

#include "QVRShpCore_Export.h"
#include "mem_AllocationOperators.h"

class aio_ostream;
class shp_Topology;

/// The questions opposite to those that shp_Topology answers: which face has these three corners, which edges join
/// these two nodes, which faces and edges touch this node, which edge uses are the same physical edge. Built once per
/// shp_Shape, read-only afterwards. It speaks of the base element: a CAXA element has the tables of its section.
///
/// - An edge use is a pair (face, edge of that face, 0 to 3); a physical edge has a use in each of its faces. In a
///   mask the use has the bit 4 * face + edge. An element of one or two dimensions has the single face 0.
/// - A key of two corners a, b is b * 16 + a; of three corners a, b, c it is (c * 16 + b) * 16 + a. Corner numbers are
///   below 16. With m the largest corner number, tables over two corners have m * 17 + 1 entries, over three corners
///   m * 273 + 1.
/// - "None" is 6 for a face and 4 for an edge of a face.
///
/// All arrays are owned by the table. Slots that nothing sets are 0.
class QVRSHPCORE_API shp_InverseTopoTable : public mem_AllocationOperators {
public:
    /// (face, edge of the face); (6, 4) is none.
    struct EdgeUse {
        unsigned char face; ///< from 0
        unsigned char edge; ///< from 0, among the edges of that face
    };

    /// All uses of one physical edge, in face order; {0, ...} is none. Points into other arrays of the table.
    struct EdgeUseList {
        int count;      ///< of the uses
        EdgeUse * uses; ///< `[count]`
    };

    /// Two masks that belong together.
    struct MaskPair {
        unsigned int first;  ///< what is looked for
        unsigned int second; ///< what goes with it
    };

    /// An empty table: no edges, no arrays.
    shp_InverseTopoTable() = default;
    shp_InverseTopoTable(shp_InverseTopoTable const &) = delete;
    shp_InverseTopoTable & operator=(shp_InverseTopoTable const &) = delete;

    /// Releases all arrays.
    virtual ~shp_InverseTopoTable();

    /// The corner nodes at the two ends of an edge use: ends[0], ends[1]. `face` and `edge` are not checked.
    void EdgeEnds(int face, int edge, int * ends) const;

    /// All edge uses that hold `node` (midside nodes count), in the order of their bits: faces[i], edges[i] for i below
    /// `count`. `faces` and `edges` need room for 24 entries. Any `node` may be asked for: one that no edge holds, a
    /// negative number among them, gives a `count` of 0.
    void EdgesFromNode(int node, int & count, int * faces, int * edges) const;

    /// All uses of the edge whose ends are the two nodes, in face order; `count` is 0 when they are not the two ends of
    /// an edge. `faces` and `edges` need room for as many entries as an edge has uses: 24 always suffice. Numbers of 16
    /// and up are not corners, and share the key of some other pair of nodes.
    void EdgesFromNodes(int node1, int node2, int & count, int * faces, int * edges) const;

    /// Drops from `mask` the later use of each edge that stands in it with both uses. A later use that stands alone
    /// stays.
    void UniqueEdge(unsigned int & mask) const;

    /// Adds to `mask` the twins of all edge uses in it.
    void NonUniqueEdge(unsigned int & mask) const;

    /// Writes the tables as text. `topology` is the one from which they were built; masks are in hexadecimal digits.
    void PrintInverse(shp_Topology const & topology, aio_ostream & stream) const;

    int nEdge = 0;       ///< edge uses
    int nUniqueEdge = 0; ///< physical edges
    int nCorner = 0;     ///< corner nodes

    int numUniqueEdgeMasks = 0; ///< rows of `UniqueEdgeMasks`
    /// [numUniqueEdgeMasks] per edge of two faces: (bits of both uses, complement of the later use's bit). Null outside
    /// three dimensions.
    MaskPair * UniqueEdgeMasks = nullptr;
    int numNonUniqueEdgeMasks = 0; ///< rows of `NonUniqueEdgeMasks`
    /// [numNonUniqueEdgeMasks] per edge use: (its bit, the bit of its twin). Null outside three dimensions.
    MaskPair * NonUniqueEdgeMasks = nullptr;

    int faceFromNodesSize = 0;                   ///< entries of `faceFromNodesTable`
    int * faceFromNodesTable = nullptr;          ///< [faceFromNodesSize] key of three corners to a face, 6 for none
    EdgeUseList * edgesFromNodesTable = nullptr; ///< [edgeTableSize] key of two corners to all uses of that edge
    int edgeTableSize = 0;                       ///< entries of the tables of edges
    /// [edgeTableSize] storage behind edgesFromNodesTable in three dimensions, null otherwise.
    EdgeUse * edgesFromNodesPool = nullptr;
    /// [edgeTableSize] key of two corners to the one use that stands for the edge, (6, 4) for none.
    EdgeUse * edgeFromNodesTable = nullptr;

    unsigned int edgesMask = 0; ///< the bits of all edge uses
    unsigned int facesMask = 0; ///< bit f for each face f that has edges (3D), 1 in two dimensions, 0 below

    unsigned int * faceNodeMaskTable = nullptr; ///< [base nodes] bits of the faces that hold the node
    /// [max(base nodes, edgeTableSize)] bits of the edge uses that hold the node; 0 behind the nodes.
    unsigned int * edgeNodeMaskTable = nullptr;
    unsigned int * faceEdgeMaskTable = nullptr; ///< [faces] bits of the face's edge uses
    /// [faces][4] bits of the faces that have this edge, the use's own face among them. A single 1 below two
    /// dimensions.
    unsigned int * edgeFaceMaskTable = nullptr;

    /// [faces][4] corner nodes: in face order in three dimensions, in their order along the edges in two.
    int * faceCornersTable = nullptr;
    int * faceCornerCounts = nullptr; ///< [faces] how many of the four are corners
    int * edgeEndsTable = nullptr;    ///< [faces][4][2] ends of each edge; [2] below two dimensions

protected:
    /// Fills an empty table from a finished topology; to be called once. An element of one node, or a key whose
    /// connectivity tables do not exist or do not fit together (no label has such a key), gets the table of a point.
    /// When an allocation fails the exception passes, and what was built goes with the object.
    void BuildTables(shp_Topology const & topology);

private:
    void Build0DTables(shp_Topology const & topology);
    void Build1DTables(shp_Topology const & topology, int numNodes);
    void Build2DTables(shp_Topology const & topology, int numNodes);
    void Build3DTables(shp_Topology const & topology);
};

#endif
