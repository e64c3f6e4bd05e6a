// Values at the integration points of a whole mesh, carried to the nodes of each element.

#include "arithmetic_peak.h"
#include "elements.h"
#include "harness.h"
#include "subjects.h"

#include <res_OutputPositionEnm.h>
#if BENCH_EIGEN
#include <Eigen/Core>
#endif

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <string>

namespace bench {

namespace {

constexpr char item[] = "extrapolation to nodes, 100,000 elements";
constexpr int meshSize = 100000;

/// Values of all elements, and room for the results. All cases share both.
struct Mesh {
    std::vector<float> values = std::vector<float>(std::size_t{meshSize} * 8 * 6);
    std::vector<float> nodal = std::vector<float>(std::size_t{meshSize} * 20 * 6);

    Mesh() {
        std::mt19937 random(20240911);
        std::uniform_real_distribution<float> stress(-300, 300);
        std::generate(values.begin(), values.end(), [&] { return stress(random); });
    }
};

Mesh & sharedMesh() {
    static Mesh mesh;
    return mesh;
}

template <int nodes, int points, int components> void timeCase(char const * label, std::string const & element) {
    float const * const values = sharedMesh().values.data();
    float * const nodal = sharedMesh().nodal.data();
    std::shared_ptr<shp_Shape const> const shape = makeShape(label);
    float const * const weights = shape->nodeWeights;
    mustAgree(item, element, handWritten, shape->BaseNodesPerElem() - nodes + shape->BaseIntPtsPerElem() - points, 0);

    auto const carry = [=] {
        for (std::size_t e = 0; e < meshSize; ++e)
            shape->StdExtrapToNodes(values + e * points * components, res_OutputPosition_INTEGRATION_POINT,
                                    nodal + e * nodes * components, components);
        benchmark::ClobberMemory();
    };
    auto const carryByHand = [=] {
        for (std::size_t e = 0; e < meshSize; ++e)
            hand::extrapolate(weights, values + e * points * components, nodal + e * nodes * components, nodes, points,
                              components);
        benchmark::ClobberMemory();
    };
    auto const agree = [=](char const * who, auto carryThere, double allowed) {
        carry();
        std::vector<float> const expected(nodal, nodal + std::size_t{meshSize} * nodes * components);
        carryThere();
        double worst = 0;
        for (std::size_t i = 0; i < expected.size(); ++i)
            worst = std::max(worst, std::fabs(double{nodal[i]} - double{expected[i]}));
        mustAgree(item, element, who, worst, allowed);
    };
    agree(handWritten, carryByHand, 0);
    timeWhole(item, element, ours, meshSize, carry);
    timeWhole(item, element, handWritten, meshSize, carryByHand);

#if BENCH_EIGEN
    constexpr int order = components == 1 ? Eigen::ColMajor : Eigen::RowMajor;
    using Weights = Eigen::Matrix<float, nodes, points, Eigen::RowMajor>;
    using Values = Eigen::Matrix<float, points, components, order>;
    using Nodal = Eigen::Matrix<float, nodes, components, order>;
    auto const carryByEigen = [=] {
        Weights const matrix = Eigen::Map<Weights const>(weights);
        for (std::size_t e = 0; e < meshSize; ++e)
            Eigen::Map<Nodal>(nodal + e * nodes * components).noalias() =
                matrix * Eigen::Map<Values const>(values + e * points * components);
        benchmark::ClobberMemory();
    };
    agree(eigen, carryByEigen, 0.01);
    timeWhole(item, element, eigen, meshSize, carryByEigen);
#else
    notInstalled(item, element, eigen);
#endif

    // Of the bytes that are read and written, one half is copied onto the other.
    std::size_t const bytes = std::size_t{meshSize} * (nodes + points) * components * sizeof(float) / 2;
    timeWhole(item, element, "memcpy", meshSize, [=, from = std::vector<char>(bytes, 'a')] {
        std::memcpy(nodal, from.data(), bytes);
        benchmark::ClobberMemory();
    });
    constexpr int repeats = 1000, terms = repeats * nodes * points * components;
    timeWhole(item, element, "arithmetic", repeats, [] { runPrescribedArithmetic(terms); });
    if (hasWideArithmetic())
        timeWhole(item, element, "arithmetic, 256 bits", repeats, [] { runWideArithmetic(terms); });
}

template <int nodes, int points> void timeCases(char const * label, std::string const & element) {
    timeCase<nodes, points, 1>(label, element + ", 1 component");
    timeCase<nodes, points, 6>(label, element + ", 6 components");
}

} // namespace

void timeExtrapolation() {
    timeCases<20, 8>("C3D20R", "hexahedron 20 with 8 points");
    timeCases<8, 8>("C3D8", "hexahedron 8 with 8 points");
    timeCases<10, 4>("C3D10", "tetrahedron 10 with 4 points");
    timeCases<8, 4>("S8R", "quadrilateral 8 with 4 points");
}

} // namespace bench
