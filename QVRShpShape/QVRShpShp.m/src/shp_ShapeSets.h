#ifndef shp_ShapeSets_h
#define shp_ShapeSets_h

#include "shp_NodeLists.h"
#include "shp_ShapeFactors.h"

/// All sets of shape functions, each in the node order of its node location table. Every set sums to 1; but for
/// Prism18, each function is 1 at its own node and 0 at the others. The number is that of coordinates with derivatives.
namespace shp_shape {

// --- point and line

struct Point1 : Set<0, Nodes<Constant<1>>> {
    static constexpr char name[] = "Point1";
};
struct Line2 : Set<1, Nodes<OnLine<l1>, OnLine<l2>>> {
    static constexpr char name[] = "Line2";
};
/// The midside is the second node.
struct Line3 : Set<1, Nodes<OnLine<q1>, OnLine<q0>, OnLine<q2>>> {
    static constexpr char name[] = "Line3";
};

// --- triangle

using TriLinear = Nodes<A1, A2, A3>;
using TriCorners = Nodes<C1, C2, C3>;
using TriMidsides = Nodes<C4, C5, C6>;

struct Tri3 : Set<2, TriLinear> {
    static constexpr char name[] = "Tri3";
};
struct Tri6 : Set<2, Join<TriCorners, TriMidsides>> {
    static constexpr char name[] = "Tri6";
};

// --- quadrilateral

using Bilinear = Nodes<B1, B2, B3, B4>;
using SerendipityCorners = Nodes<S1, S2, S3, S4>;
using SerendipityMidsides = Nodes<S5, S6, S7, S8>;
using BiquadraticCorners = Nodes<T1, T2, T3, T4>;
using BiquadraticMidsides = Nodes<T5, T6, T7, T8>;
using BiquadraticCentre = Nodes<T9>;

struct Quad4 : Set<2, Bilinear> {
    static constexpr char name[] = "Quad4";
};
/// The functions of Quad4 in an array of its own; the derivatives that go with it are those of Quad4.
struct QuadCohesive4 : Set<0, Bilinear> {
    static constexpr char name[] = "QuadCohesive4";
};
/// Nodes 3 and 4 stand in tensor order, as in the node table.
struct QuadGasket4 : Set<2, Nodes<B1, B2, B4, B3>> {
    static constexpr char name[] = "QuadGasket4";
};

// Six nodes, quadratic along h.
using QuadraticAlongH = Nodes<Product<l1, q1>, Product<l2, q1>, Product<l2, q2>, Product<l1, q2>>;

struct Quad6 : Set<2, Join<QuadraticAlongH, Nodes<Product<l2, q0>, Product<l1, q0>>>> {
    static constexpr char name[] = "Quad6";
};
/// The two midsides in the opposite order to Quad6.
struct QuadCohesive6 : Set<0, Join<QuadraticAlongH, Nodes<Product<l1, q0>, Product<l2, q0>>>> {
    static constexpr char name[] = "QuadCohesive6";
};

// Six nodes, quadratic along g.
struct QuadGasket6
    : Set<2,
          Nodes<Product<q1, l1>, Product<q0, l1>, Product<q2, l1>, Product<q1, l2>, Product<q0, l2>, Product<q2, l2>>> {
    static constexpr char name[] = "QuadGasket6";
};
struct QuadPipeSoil6
    : Set<0,
          Nodes<Product<q1, l1>, Product<q2, l1>, Product<q2, l2>, Product<q1, l2>, Product<q0, l1>, Product<q0, l2>>> {
    static constexpr char name[] = "QuadPipeSoil6";
};

struct Quad8 : Set<2, Join<SerendipityCorners, SerendipityMidsides>> {
    static constexpr char name[] = "Quad8";
};
struct Quad9 : Set<2, Join<BiquadraticCorners, BiquadraticMidsides, BiquadraticCentre>> {
    static constexpr char name[] = "Quad9";
};

// --- infinite elements

// Their functions map the geometry out to the pole; their derivatives belong to other functions, which describe a field
// that vanishes at the pole: the same nodes with polynomial factors in the place of m1, m2 and k. Both come out of one
// list, with the factors of the near ring, of the far ring and of a near midside as parameters.

template <class Near, class Far>
using InfiniteQuad4 = Nodes<Product<l1, Near>, Product<l2, Near>, Product<l2, Far>, Product<l1, Far>>;

template <class Near, class Far, class Midside>
using InfiniteQuad5 =
    Nodes<LessHalf<Product<l1, Near>, Product<q0, Midside>>, LessHalf<Product<l2, Near>, Product<q0, Midside>>,
          Product<l2, Far>, Product<l1, Far>, Product<q0, Midside>>;

template <class Near, class Far> using InfiniteHex8 = Join<Ring<Near, Bilinear>, Ring<Far, Bilinear>>;

template <class Near, class Far, class Midside>
using InfiniteHex12 = Join<Nodes<LessHalf<Solid<B1, Near>, Solid<S5, Midside>, Solid<S8, Midside>>,
                                 LessHalf<Solid<B2, Near>, Solid<S5, Midside>, Solid<S6, Midside>>,
                                 LessHalf<Solid<B3, Near>, Solid<S6, Midside>, Solid<S7, Midside>>,
                                 LessHalf<Solid<B4, Near>, Solid<S7, Midside>, Solid<S8, Midside>>>,
                           Ring<Midside, SerendipityMidsides>, Ring<Far, Bilinear>>;

template <class Near, class Far>
using InfiniteHex18 =
    Join<Ring<Near, BiquadraticCorners>, Ring<Near, BiquadraticMidsides>, Ring<Far, BiquadraticCorners>,
         Ring<Far, BiquadraticMidsides>, Ring<Near, BiquadraticCentre>, Ring<Far, BiquadraticCentre>>;

struct QuadInfinite4 : Set<2, InfiniteQuad4<m1, m2>, InfiniteQuad4<q1, q0>> {
    static constexpr char name[] = "QuadInfinite4";
};
struct QuadInfinite5 : Set<2, InfiniteQuad5<m1, m2, k>, InfiniteQuad5<q1, q0, l1>> {
    static constexpr char name[] = "QuadInfinite5";
};
struct HexInfinite8 : Set<3, InfiniteHex8<m1, m2>, InfiniteHex8<q1, q0>> {
    static constexpr char name[] = "HexInfinite8";
};
struct HexInfinite12 : Set<3, InfiniteHex12<m1, m2, k>, InfiniteHex12<q1, q0, l1>> {
    static constexpr char name[] = "HexInfinite12";
};
struct HexInfinite18 : Set<3, InfiniteHex18<m1, m2>, InfiniteHex18<q1, q0>> {
    static constexpr char name[] = "HexInfinite18";
};

// --- tetrahedron

struct Tetra4 : Set<3, Nodes<TetraRest, AlongG, AlongH, AlongR>> {
    static constexpr char name[] = "Tetra4";
};
struct Tetra10
    : Set<3, Nodes<BarycentricCorner<TetraRest>, BarycentricCorner<AlongG>, BarycentricCorner<AlongH>,
                   BarycentricCorner<AlongR>, BarycentricMidside<AlongG, TetraRest>, BarycentricMidside<AlongG, AlongH>,
                   BarycentricMidside<AlongH, TetraRest>, BarycentricMidside<AlongR, TetraRest>,
                   BarycentricMidside<AlongG, AlongR>, BarycentricMidside<AlongH, AlongR>>> {
    static constexpr char name[] = "Tetra10";
};

// --- hexahedron

struct Hex8 : Set<3, Join<Ring<l1, Bilinear>, Ring<l2, Bilinear>>> {
    static constexpr char name[] = "Hex8";
};
struct Hex12 : Set<3, Join<Ring<q1, Bilinear>, Ring<q2, Bilinear>, Ring<q0, Bilinear>>> {
    static constexpr char name[] = "Hex12";
};
struct Hex20
    : Set<3, Join<Nodes<HexCorner<l1, l1, l1>, HexCorner<l2, l1, l1>, HexCorner<l2, l2, l1>, HexCorner<l1, l2, l1>,
                        HexCorner<l1, l1, l2>, HexCorner<l2, l1, l2>, HexCorner<l2, l2, l2>, HexCorner<l1, l2, l2>>,
                  Ring<l1, SerendipityMidsides>, Ring<l2, SerendipityMidsides>, Ring<q0, Bilinear>>> {
    static constexpr char name[] = "Hex20";
};
struct Hex24
    : Set<3, Join<Ring<q1, SerendipityCorners>, Ring<q2, SerendipityCorners>, Ring<q0, SerendipityCorners>,
                  Ring<q1, SerendipityMidsides>, Ring<q2, SerendipityMidsides>, Ring<q0, SerendipityMidsides>>> {
    static constexpr char name[] = "Hex24";
};
/// The centre, node 21, comes before the face centres.
struct Hex27 : Set<3, Join<Ring<q1, BiquadraticCorners>, Ring<q2, BiquadraticCorners>, Ring<q1, BiquadraticMidsides>,
                           Ring<q2, BiquadraticMidsides>, Ring<q0, BiquadraticCorners>, Ring<q0, BiquadraticCentre>,
                           Ring<q1, BiquadraticCentre>, Ring<q2, BiquadraticCentre>, Ring<q0, BiquadraticMidsides>>> {
    static constexpr char name[] = "Hex27";
};
struct HexGasket18
    : Set<3, Join<Ring<l1, BiquadraticCorners>, Ring<l1, BiquadraticMidsides>, Ring<l2, BiquadraticCorners>,
                  Ring<l2, BiquadraticMidsides>, Ring<l1, BiquadraticCentre>, Ring<l2, BiquadraticCentre>>> {
    static constexpr char name[] = "HexGasket18";
};

// --- prism and pyramid

using PrismSerendipity = Join<Nodes<PrismCorner<A1, l1>, PrismCorner<A2, l1>, PrismCorner<A3, l1>>,
                              Nodes<PrismCorner<A1, l2>, PrismCorner<A2, l2>, PrismCorner<A3, l2>>,
                              Ring<l1, TriMidsides>, Ring<l2, TriMidsides>, Ring<q0, TriLinear>>;

struct Prism6 : Set<3, Join<Ring<l1, TriLinear>, Ring<l2, TriLinear>>> {
    static constexpr char name[] = "Prism6";
};
struct Prism9 : Set<3, Join<Ring<q1, TriLinear>, Ring<q2, TriLinear>, Ring<q0, TriLinear>>> {
    static constexpr char name[] = "Prism9";
};
struct Prism12
    : Set<3, Join<Ring<l1, TriCorners>, Ring<l1, TriMidsides>, Ring<l2, TriCorners>, Ring<l2, TriMidsides>>> {
    static constexpr char name[] = "Prism12";
};
struct Prism15 : Set<3, PrismSerendipity> {
    static constexpr char name[] = "Prism15";
};
struct Prism18Cyl : Set<3, Join<Ring<q1, TriCorners>, Ring<q2, TriCorners>, Ring<q0, TriCorners>, Ring<q1, TriMidsides>,
                                Ring<q2, TriMidsides>, Ring<q0, TriMidsides>>> {
    static constexpr char name[] = "Prism18Cyl";
};

/// Values of the 15-node prism and three zeros: the corner functions are -1/4 at the midsides of the middle plane, and
/// nothing is 1 there. The derivatives are those of the tensor products, in which the midsides at r = 1 bear q2 + q0
/// instead of q2. Results on file were made with both.
struct Prism18 : Set<3, Join<PrismSerendipity, Nodes<Constant<0>, Constant<0>, Constant<0>>>,
                     Join<Ring<q1, TriCorners>, Ring<q2, TriCorners>, Ring<q1, TriMidsides>,
                          Ring<q2PlusQ0, TriMidsides>, Ring<q0, TriCorners>, Ring<q0, TriMidsides>>> {
    static constexpr char name[] = "Prism18";
};

/// The hexahedron's functions at the base, not modified towards the apex; the apex function depends on r alone.
struct Pyramid5 : Set<3, Join<Ring<l1, Bilinear>, Nodes<Apex<l2>>>> {
    static constexpr char name[] = "Pyramid5";
};

// --- all of them

template <class... Of> struct SetList {};
using AllSets = SetList<Point1, Line2, Line3, Tri3, Tri6, Quad4, QuadCohesive4, QuadGasket4, Quad6, QuadCohesive6,
                        QuadGasket6, QuadPipeSoil6, Quad8, Quad9, QuadInfinite4, QuadInfinite5, Tetra4, Tetra10, Hex8,
                        Hex12, Hex20, Hex24, Hex27, HexGasket18, HexInfinite8, HexInfinite12, HexInfinite18, Prism6,
                        Prism9, Prism12, Prism15, Prism18Cyl, Prism18, Pyramid5>;

} // namespace shp_shape

#endif
