#include "shp_InverseTopoTable.h"

#include "mem_Alloc.h"
#include "shp_Topology.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace {

constexpr int maxFaces = 6;
constexpr int maxEdgesOfFace = 4;
constexpr int maxCornersOfFace = 4;
constexpr int maxEdgeUses = maxFaces * maxEdgesOfFace;
constexpr int endsPerEdge = 2;
constexpr int keyBase = 16; ///< corner numbers stay below it

constexpr int noFace = 6;
constexpr shp_InverseTopoTable::EdgeUse noEdge = {6, 4};

constexpr int keyOf(int a, int b) {
    return b * keyBase + a;
}
constexpr int keyOf(int a, int b, int c) {
    return (c * keyBase + b) * keyBase + a;
}
constexpr int pairTableSize(int largestCorner) {
    return largestCorner * (keyBase + 1) + 1;
}
constexpr int tripleTableSize(int largestCorner) {
    return largestCorner * (keyBase * keyBase + keyBase + 1) + 1;
}

constexpr unsigned int bit(int number) {
    return 1u << (static_cast<unsigned int>(number) % 32u);
}

template <class T> T * newArray(int count, T const & fill = T{}) {
    auto const n = static_cast<std::size_t>(count);
    T * const array = static_cast<T *>(mem_OperatorNewThrowBuiltin(n * sizeof(T)));
    std::uninitialized_fill_n(array, n, fill);
    return array;
}

template <class T> void release(T *& array) {
    mem_Free(array);
    array = nullptr;
}

/// One edge of one face, with the corners at its two ends.
struct Use {
    int face;
    int edge;
    int first;
    int last;

    int number() const { return maxEdgesOfFace * face + edge; }
    unsigned int mask() const { return bit(number()); }
    shp_InverseTopoTable::EdgeUse pair() const {
        return {static_cast<unsigned char>(face), static_cast<unsigned char>(edge)};
    }
    bool sameEdge(Use const & other) const {
        return (first == other.first && last == other.last) || (first == other.last && last == other.first);
    }
};

/// All edge uses, face after face.
class EdgeList {
public:
    /// Stops, and is not complete(), at the first edge that the topology's tables do not describe.
    explicit EdgeList(shp_Topology const & topology) : good(hasTables(topology)) {
        int const faces = topology.NumGeometryDimensions() == 3 ? topology.NumFacesPerElem() : 1;
        for (int face = 0; good && face < faces; ++face)
            for (int edge = 0; good && edge < topology.NumEdgesPerFace(face); ++edge)
                append(topology, face, edge);
    }

    /// False for keys made by hand whose tables are missing or of different elements.
    bool complete() const { return good; }
    int size() const { return count; }
    Use const * begin() const { return uses; }
    Use const * end() const { return uses + count; }

private:
    static bool hasTables(shp_Topology const & topology) {
        bool const edges = topology.edgesPerFaceTbl && topology.baseNodesPerEdgeTbl && topology.edgeConnTbl;
        bool const faces = topology.baseNodesPerFaceTbl && topology.faceConnTbl;
        return edges && (faces || topology.NumGeometryDimensions() != 3);
    }

    void append(shp_Topology const & topology, int face, int edge) {
        int const nodes = topology.BaseNodesPerEdge(face, edge);
        good = nodes >= endsPerEdge;
        if (!good)
            return;
        int const first = topology.EdgeNodeIndex(face, edge, 0);
        int const last = topology.EdgeNodeIndex(face, edge, nodes - 1);
        good = first >= 0 && first < keyBase && last >= 0 && last < keyBase;
        uses[count++] = {face, edge, first, last};
    }

    bool good;
    int count = 0;
    Use uses[maxEdgeUses];
};

/// The corners, in the order in which the edges name them.
class CornerList {
public:
    explicit CornerList(EdgeList const & edges) {
        for (Use const & use : edges) {
            add(use.first);
            add(use.last);
        }
    }

    int size() const { return count; }
    int largest() const { return *std::max_element(begin(), end()); }
    bool contains(int node) const { return std::find(begin(), end(), node) != end(); }
    int const * begin() const { return nodes; }
    int const * end() const { return nodes + count; }

private:
    void add(int node) {
        if (!contains(node))
            nodes[count++] = node;
    }

    int count = 0;
    int nodes[keyBase];
};

bool edgeHoldsNode(shp_Topology const & topology, Use const & use, int node) {
    for (int i = 0; i < topology.BaseNodesPerEdge(use.face, use.edge); ++i)
        if (topology.EdgeNodeIndex(use.face, use.edge, i) == node)
            return true;
    return false;
}

bool faceHoldsNode(shp_Topology const & topology, int face, int node) {
    for (int i = 0; i < topology.BaseNodesPerFace(face); ++i)
        if (topology.FaceNodeIndex(face, i) == node)
            return true;
    return false;
}

/// Tables over two corners without an edge in them.
void allocateEdgeTables(shp_InverseTopoTable & table, int size) {
    table.edgeTableSize = size;
    table.edgesFromNodesTable = newArray<shp_InverseTopoTable::EdgeUseList>(size);
    table.edgeFromNodesTable = newArray(size, noEdge);
}

void allocateFaceFromNodes(shp_InverseTopoTable & table, int size, int face) {
    table.faceFromNodesSize = size;
    table.faceFromNodesTable = newArray(size, face);
}

/// Both directions of an edge that has this one use; each record points at its own pair.
void enterSingleUse(shp_InverseTopoTable & table, Use const & use) {
    for (int const key : {keyOf(use.first, use.last), keyOf(use.last, use.first)}) {
        table.edgeFromNodesTable[key] = use.pair();
        table.edgesFromNodesTable[key] = {1, &table.edgeFromNodesTable[key]};
    }
}

/// Ends and masks of all uses: edgeEndsTable, edgesMask.
void buildEdgeEnds(shp_InverseTopoTable & table, EdgeList const & edges, int numFaces) {
    table.edgeEndsTable = newArray<int>(numFaces * maxEdgesOfFace * endsPerEdge);
    for (Use const & use : edges) {
        table.edgeEndsTable[use.number() * endsPerEdge] = use.first;
        table.edgeEndsTable[use.number() * endsPerEdge + 1] = use.last;
        table.edgesMask |= use.mask();
    }
}

/// Per node the uses that hold it; zeros up to the size of the edge tables, which bounds EdgesFromNode.
void buildEdgeNodeMasks(shp_InverseTopoTable & table, shp_Topology const & topology, EdgeList const & edges,
                        int numNodes) {
    table.edgeNodeMaskTable = newArray<unsigned int>(std::max(numNodes, table.edgeTableSize));
    for (int node = 0; node < numNodes; ++node)
        for (Use const & use : edges)
            if (edgeHoldsNode(topology, use, node))
                table.edgeNodeMaskTable[node] |= use.mask();
}

void buildFaceNodeMasks(shp_InverseTopoTable & table, shp_Topology const & topology, int numNodes) {
    table.faceNodeMaskTable = newArray<unsigned int>(numNodes);
    for (int node = 0; node < numNodes; ++node)
        for (int face = 0; face < topology.NumFacesPerElem(); ++face)
            if (faceHoldsNode(topology, face, node))
                table.faceNodeMaskTable[node] |= bit(face);
}

/// The corners of each face in the order of its connectivity.
void buildFaceCorners(shp_InverseTopoTable & table, shp_Topology const & topology, CornerList const & corners) {
    int const numFaces = topology.NumFacesPerElem();
    table.faceCornersTable = newArray<int>(numFaces * maxCornersOfFace);
    table.faceCornerCounts = newArray<int>(numFaces);
    for (int face = 0; face < numFaces; ++face) {
        int & count = table.faceCornerCounts[face];
        for (int i = 0; i < topology.BaseNodesPerFace(face) && count < maxCornersOfFace; ++i) {
            int const node = topology.FaceNodeIndex(face, i);
            if (corners.contains(node))
                table.faceCornersTable[face * maxCornersOfFace + count++] = node;
        }
    }
}

/// Pairs of uses of one edge, whatever their faces.
int countSharedPairs(EdgeList const & edges) {
    int shared = 0;
    for (Use const & later : edges)
        for (Use const * earlier = edges.begin(); earlier != &later; ++earlier)
            shared += later.sameEdge(*earlier);
    return shared;
}

/// An edge that two faces share makes one pair. A closed element has as many pairs as physical edges; the array has
/// room for all pairs of one that is not.
void buildUniqueEdgeMasks(shp_InverseTopoTable & table, EdgeList const & edges) {
    int const shared = countSharedPairs(edges);
    table.nUniqueEdge = edges.size() - shared;
    table.numUniqueEdgeMasks = table.nUniqueEdge;
    table.UniqueEdgeMasks = newArray<shp_InverseTopoTable::MaskPair>(std::max(table.nUniqueEdge, shared));
    shp_InverseTopoTable::MaskPair * next = table.UniqueEdgeMasks;
    for (Use const & use : edges)
        for (Use const * later = &use + 1; later != edges.end(); ++later)
            if (later->face != use.face && use.sameEdge(*later))
                *next++ = {use.mask() | later->mask(), ~later->mask()};
}

/// Each shared edge makes two pairs, one from each side.
void buildNonUniqueEdgeMasks(shp_InverseTopoTable & table, EdgeList const & edges) {
    int const pairs = 2 * countSharedPairs(edges);
    table.numNonUniqueEdgeMasks = edges.size();
    table.NonUniqueEdgeMasks = newArray<shp_InverseTopoTable::MaskPair>(std::max(edges.size(), pairs));
    shp_InverseTopoTable::MaskPair * next = table.NonUniqueEdgeMasks;
    for (Use const & use : edges)
        for (Use const & other : edges)
            if (other.face != use.face && use.sameEdge(other))
                *next++ = {use.mask(), other.mask()};
}

/// The first face that has all three corners, or noFace.
int findFace(shp_InverseTopoTable const & table, int numFaces, int a, int b, int c) {
    for (int face = 0; face < numFaces; ++face) {
        int const * const row = table.faceCornersTable + face * maxCornersOfFace;
        auto const isOneOfThem = [=](int node) { return node == a || node == b || node == c; };
        if (std::count_if(row, row + table.faceCornerCounts[face], isOneOfThem) == 3)
            return face;
    }
    return noFace;
}

/// Every order of three corners is entered, so that a look-up needs no sorting.
void buildFaceFromNodes(shp_InverseTopoTable & table, int numFaces, CornerList const & corners) {
    allocateFaceFromNodes(table, tripleTableSize(corners.largest()), noFace);
    for (int const a : corners)
        for (int const b : corners)
            for (int const c : corners)
                if (a != b && b != c && a != c)
                    table.faceFromNodesTable[keyOf(a, b, c)] = findFace(table, numFaces, a, b, c);
}

/// The use that stands for the edge: the first one, if later faces list the edge in the opposite direction. A face that
/// lists it in the same direction puts its own use in the place.
void enterStandingUse(shp_InverseTopoTable & table, Use const & use) {
    auto const & reversed = table.edgeFromNodesTable[keyOf(use.last, use.first)];
    table.edgeFromNodesTable[keyOf(use.first, use.last)] = reversed.face == noFace ? use.pair() : reversed;
}

/// The list of all uses of the edge of `use`, shared by both directions. Returns the next free entry of the pool.
shp_InverseTopoTable::EdgeUse * enterUseList(shp_InverseTopoTable & table, EdgeList const & edges, Use const & use,
                                             shp_InverseTopoTable::EdgeUse * pool) {
    auto & list = table.edgesFromNodesTable[keyOf(use.first, use.last)];
    if (list.uses)
        return pool;
    list = {1, pool};
    *pool++ = use.pair();
    for (Use const * later = &use + 1; later != edges.end(); ++later)
        if (later->face != use.face && use.sameEdge(*later)) {
            *pool++ = later->pair();
            ++list.count;
        }
    table.edgesFromNodesTable[keyOf(use.last, use.first)] = list;
    return pool;
}

void buildEdgesFromNodes(shp_InverseTopoTable & table, EdgeList const & edges, CornerList const & corners) {
    allocateEdgeTables(table, pairTableSize(corners.largest()));
    table.edgesFromNodesPool = newArray<shp_InverseTopoTable::EdgeUse>(table.edgeTableSize);
    shp_InverseTopoTable::EdgeUse * pool = table.edgesFromNodesPool;
    for (Use const & use : edges) {
        enterStandingUse(table, use);
        pool = enterUseList(table, edges, use, pool);
    }
}

/// Per face its edges, and per edge use the faces that have this edge.
void buildFaceMasks(shp_InverseTopoTable & table, EdgeList const & edges, int numFaces) {
    table.faceEdgeMaskTable = newArray<unsigned int>(numFaces);
    table.edgeFaceMaskTable = newArray<unsigned int>(numFaces * maxEdgesOfFace);
    for (Use const & use : edges) {
        table.faceEdgeMaskTable[use.face] |= use.mask();
        auto const & list = table.edgesFromNodesTable[keyOf(use.first, use.last)];
        for (int i = 0; i < list.count; ++i)
            table.edgeFaceMaskTable[use.number()] |= bit(list.uses[i].face);
    }
}

/// What elements below two dimensions have in common: no corners of faces, one entry that is 1 per mask of the face.
void buildTrivialFace(shp_InverseTopoTable & table) {
    table.faceCornersTable = newArray<int>(maxCornersOfFace);
    table.faceCornerCounts = newArray<int>(1);
    table.faceEdgeMaskTable = newArray<unsigned int>(1, 1u);
    table.edgeFaceMaskTable = newArray<unsigned int>(1, 1u);
}

} // namespace

shp_InverseTopoTable::~shp_InverseTopoTable() {
    release(UniqueEdgeMasks);
    release(NonUniqueEdgeMasks);
    release(faceFromNodesTable);
    release(edgesFromNodesTable);
    release(edgesFromNodesPool);
    release(edgeFromNodesTable);
    release(faceNodeMaskTable);
    release(edgeNodeMaskTable);
    release(faceEdgeMaskTable);
    release(edgeFaceMaskTable);
    release(faceCornersTable);
    release(faceCornerCounts);
    release(edgeEndsTable);
}

void shp_InverseTopoTable::BuildTables(shp_Topology const & topology) {
    int const numNodes = topology.BaseNodesPerElem();
    int const dimensions = topology.NumGeometryDimensions();
    bool const hasEdges = numNodes >= 2 && dimensions >= 1 && dimensions <= 3 && EdgeList(topology).complete();
    if (!hasEdges)
        Build0DTables(topology);
    else if (dimensions == 1)
        Build1DTables(topology, numNodes);
    else if (dimensions == 2)
        Build2DTables(topology, numNodes);
    else
        Build3DTables(topology);
}

void shp_InverseTopoTable::Build0DTables(shp_Topology const &) {
    nCorner = 1;
    edgeEndsTable = newArray<int>(endsPerEdge);
    buildTrivialFace(*this);
    allocateFaceFromNodes(*this, tripleTableSize(0), noFace);
    allocateEdgeTables(*this, pairTableSize(0));
    edgesFromNodesTable[0].uses = &edgeFromNodesTable[0];
    faceNodeMaskTable = newArray<unsigned int>(1);
    edgeNodeMaskTable = newArray<unsigned int>(1);
}

void shp_InverseTopoTable::Build1DTables(shp_Topology const & topology, int numNodes) {
    int const last = EdgeList(topology).begin()->last;
    nEdge = nUniqueEdge = topology.NumEdgesPerFace(0);
    nCorner = 2;
    edgesMask = 1;

    edgeEndsTable = newArray<int>(endsPerEdge);
    edgeEndsTable[1] = last;
    buildTrivialFace(*this);
    allocateFaceFromNodes(*this, tripleTableSize(last), noFace);
    allocateEdgeTables(*this, pairTableSize(last));
    enterSingleUse(*this, {0, 0, 0, last});

    // Every node stands on the one edge, and on no face.
    faceNodeMaskTable = newArray<unsigned int>(numNodes);
    edgeNodeMaskTable = newArray<unsigned int>(std::max(numNodes, edgeTableSize));
    std::fill_n(edgeNodeMaskTable, numNodes, 1u);
}

void shp_InverseTopoTable::Build2DTables(shp_Topology const & topology, int numNodes) {
    EdgeList const edges(topology);
    CornerList const corners(edges);
    nEdge = nUniqueEdge = edges.size();
    nCorner = corners.size();
    facesMask = 1;

    buildEdgeEnds(*this, edges, 1);
    faceCornersTable = newArray<int>(maxCornersOfFace);
    std::copy_n(corners.begin(), std::min(nCorner, maxCornersOfFace), faceCornersTable);
    faceCornerCounts = newArray(1, nCorner);

    // The only face is 0, whatever the nodes.
    allocateFaceFromNodes(*this, tripleTableSize(corners.largest()), 0);
    allocateEdgeTables(*this, pairTableSize(corners.largest()));
    for (Use const & use : edges)
        enterSingleUse(*this, use);

    faceNodeMaskTable = newArray(numNodes, 1u);
    buildEdgeNodeMasks(*this, topology, edges, numNodes);
    faceEdgeMaskTable = newArray(1, edgesMask);
    edgeFaceMaskTable = newArray<unsigned int>(maxEdgesOfFace);
    std::fill_n(edgeFaceMaskTable, nEdge, 1u);
}

void shp_InverseTopoTable::Build3DTables(shp_Topology const & topology) {
    EdgeList const edges(topology);
    CornerList const corners(edges);
    int const numFaces = topology.NumFacesPerElem();
    int const numNodes = topology.BaseNodesPerElem();
    nEdge = edges.size();
    nCorner = corners.size();
    for (Use const & use : edges)
        facesMask |= bit(use.face); // a face without edges (infinite elements) has no bit

    buildEdgeEnds(*this, edges, numFaces);
    buildFaceCorners(*this, topology, corners);
    buildUniqueEdgeMasks(*this, edges);
    buildNonUniqueEdgeMasks(*this, edges);
    buildFaceFromNodes(*this, numFaces, corners);
    buildEdgesFromNodes(*this, edges, corners);
    buildFaceNodeMasks(*this, topology, numNodes);
    buildEdgeNodeMasks(*this, topology, edges, numNodes);
    buildFaceMasks(*this, edges, numFaces);
}

void shp_InverseTopoTable::EdgeEnds(int face, int edge, int * const ends) const {
    int const * const pair = edgeEndsTable + (maxEdgesOfFace * face + edge) * endsPerEdge;
    ends[0] = pair[0];
    ends[1] = pair[1];
}

void shp_InverseTopoTable::EdgesFromNode(int node, int & count, int * faces, int * edges) const {
    count = 0;
    if (static_cast<unsigned int>(node) >= static_cast<unsigned int>(edgeTableSize))
        return;
    for (int number = 0; number < maxEdgeUses; ++number)
        if (edgeNodeMaskTable[node] & bit(number)) {
            faces[count] = number / maxEdgesOfFace;
            edges[count] = number % maxEdgesOfFace;
            ++count;
        }
}

void shp_InverseTopoTable::EdgesFromNodes(int node1, int node2, int & count, int * faces, int * edges) const {
    count = 0;
    std::uint64_t const key =
        std::uint64_t{static_cast<unsigned int>(node2)} * keyBase + static_cast<unsigned int>(node1);
    if (key >= static_cast<unsigned int>(edgeTableSize))
        return;
    EdgeUseList const & list = edgesFromNodesTable[key];
    for (; count < list.count; ++count) {
        faces[count] = list.uses[count].face;
        edges[count] = list.uses[count].edge;
    }
}

void shp_InverseTopoTable::UniqueEdge(unsigned int & mask) const {
    for (int i = 0; i < numUniqueEdgeMasks; ++i)
        if ((mask & UniqueEdgeMasks[i].first) == UniqueEdgeMasks[i].first)
            mask &= UniqueEdgeMasks[i].second;
}

void shp_InverseTopoTable::NonUniqueEdge(unsigned int & mask) const {
    for (int i = 0; i < numNonUniqueEdgeMasks; ++i)
        if (mask & NonUniqueEdgeMasks[i].first)
            mask |= NonUniqueEdgeMasks[i].second;
}
