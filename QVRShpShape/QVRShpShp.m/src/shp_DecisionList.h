#ifndef shp_DecisionList_h
#define shp_DecisionList_h

#include "shp_KeyBit.h"
#include "shp_Options.h"

#include <cstddef>

/// A condition that a row does not name.
inline constexpr int shp_any = -1;

/// A set of at most four numbers, each of which satisfies the condition; empty: every number does.
struct shp_OneOf {
    int numbers[4] = {shp_any, shp_any, shp_any, shp_any};

    constexpr shp_OneOf() = default;
    constexpr shp_OneOf(int a, int b = shp_any, int c = shp_any, int d = shp_any) : numbers{a, b, c, d} {}

    constexpr bool holds(int number) const {
        if (numbers[0] == shp_any)
            return true;
        for (int candidate : numbers)
            if (candidate != shp_any && candidate == number)
                return true;
        return false;
    }
};

/// One row of a decision list. It fits when every condition that it names holds. `with` asks for any one of its
/// bits, `without` for none of its bits.
template <class Result> struct shp_Choice {
    shp_OneOf shape = {};   ///< shape families (shp_keyPoint ...)
    shp_OneOf nodes = {};   ///< node counts
    int notNodes = shp_any; ///< a node count that the row excludes
    shp_OneOf points = {};  ///< integration point counts
    shp_OneOf face = {};    ///< faces, in lists that look at one
    shp_OneOf with = {};    ///< key bits
    shp_OneOf also = {};    ///< key bits of a second condition like `with`
    shp_OneOf without = {}; ///< key bits
    Result result;

    constexpr bool fits(shp_Options const & o, int f) const {
        return shape.holds(o.Shape()) && nodes.holds(o.NumNodes()) &&
               (notNodes == shp_any || o.NumNodes() != notNodes) && points.holds(o.NumIntPnts()) && face.holds(f) &&
               hasAny(o, with) && hasAny(o, also) && hasNone(o, without);
    }

private:
    static constexpr bool hasAny(shp_Options const & o, shp_OneOf const & bits) {
        return bits.numbers[0] == shp_any || countOf(o, bits) > 0;
    }
    static constexpr bool hasNone(shp_Options const & o, shp_OneOf const & bits) { return countOf(o, bits) == 0; }
    static constexpr int countOf(shp_Options const & o, shp_OneOf const & bits) {
        int count = 0;
        for (int bit : bits.numbers)
            count += bit != shp_any && o.IsType(bit) ? 1 : 0;
        return count;
    }
};

#if defined(SHP_TRACE_DECISIONS)
/// Called for every decision in the build that counts which rows are reached; `row` is `numRows` when none fits.
/// A list is known by the source file and the function that asks it.
void shp_traceDecision(char const * file, char const * function, std::size_t numRows, std::size_t row);

/// Which row stands at a place of a list: the one of that number, unless a test leaves rows out (`numRows`) or
/// exchanges them to see whether anyone notices.
std::size_t shp_rowAt(char const * file, char const * function, std::size_t numRows, std::size_t place);

/// The result of the first row that fits, or `otherwise`.
template <class Result, std::size_t N>
Result shp_firstFit(shp_Choice<Result> const (&list)[N], shp_Options const & o, int face = shp_any,
                    Result otherwise = {}, char const * file = __builtin_FILE(),
                    char const * function = __builtin_FUNCTION()) {
    std::size_t row = N;
    for (std::size_t place = 0; place < N && row == N; ++place) {
        std::size_t const candidate = shp_rowAt(file, function, N, place);
        if (candidate < N && list[candidate].fits(o, face))
            row = candidate;
    }
    shp_traceDecision(file, function, N, row);
    return row < N ? list[row].result : otherwise;
}
#else
/// The result of the first row that fits, or `otherwise`.
template <class Result, std::size_t N>
Result shp_firstFit(shp_Choice<Result> const (&list)[N], shp_Options const & o, int face = shp_any,
                    Result otherwise = {}) {
    for (shp_Choice<Result> const & row : list)
        if (row.fits(o, face))
            return row.result;
    return otherwise;
}
#endif

#endif
