#ifndef bench_elements_h
#define bench_elements_h

// The element types that are timed, and a set of elements of each: node positions, a point inside and a line through
// it, the same for the library and for its peers.

#include "hand_written.h"

#include <g3d_Storage.h>
#include <shp_Shape.h>

#include <array>
#include <memory>
#include <vector>

namespace bench {

/// How many elements a set has, which are gone through in a row so that nothing is timed on one element alone.
inline constexpr int setSize = 64;

/// How far the elements are from parallelepipeds: by how much each node is moved in each direction, where elements are
/// about 2 wide (simplices 1).
enum class Distortion { none, moderate, strong };

struct ElementType {
    char const * name;
    char const * label;
    int vtkType;       ///< VTK's number of the cell type
    bool isCentred[3]; ///< a coordinate runs from -1 to 1, not from 0 to 1
    int isoSum;        ///< how many of the first coordinates have a sum of at most 1; 0 for none
    hand::Element const * byHand;
};

extern ElementType const elementTypes[12];

/// A shape of the bench's own, which the destruction of the dictionary leaves alone.
std::shared_ptr<shp_Shape const> makeShape(char const * label);

struct ElementSet {
    ElementSet(ElementType const & elementType, Distortion distortion);

    int nodeCount() const { return shape->BaseNodesPerElem(); }
    /// An element's node positions, with room for one more, which the library writes where it completes an element.
    g3d_Storage * coords(int i) const { return positions.data() + i * (nodeCount() + 1); }
    /// The same for the peers.
    hand::Point const * nodes(int i) const { return nodePoints.data() + i * nodeCount(); }

    ElementType const & type;
    std::shared_ptr<shp_Shape const> shape;
    mutable std::vector<g3d_Storage> positions;
    std::vector<hand::Point> nodePoints;

    // By element.

    std::vector<std::array<float, 3>> iso; ///< isoparametric coordinates of a point inside
    std::vector<hand::Point> isoPoint;     ///< the same
    std::vector<g3d_Storage> position;     ///< the point itself
    std::vector<hand::Point> point;        ///< the same
    std::vector<hand::Point> lineStart;    ///< outside
    std::vector<hand::Point> lineEnd;      ///< outside, beyond the point
};

using SharedSet = std::shared_ptr<ElementSet const>;

inline g3d_Storage storageOf(hand::Point const & p) {
    return {p[0], p[1], p[2]};
}
double distance(hand::Point const & a, hand::Point const & b);

} // namespace bench

#endif
