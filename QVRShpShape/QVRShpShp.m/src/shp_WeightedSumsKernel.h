#ifndef shp_WeightedSumsKernel_h
#define shp_WeightedSumsKernel_h

// Weighted sums four at a time: four components of a row, two of two rows, or one of four rows. The terms of each sum
// keep their order and their roundings, so that all machines, and all ways to lay out the sums, give the same bits.
//
// This header is compiled once for each width of vectors. It calls no function that another source file might share
// with one of them: a machine could be given the instructions of a later one.

#include "shp_WeightedSums.h"

#include <cstddef>
#ifdef __SSE2__
#include <immintrin.h>
#endif

namespace {

using std::ptrdiff_t;

/// Four floats side by side. The arrays that they come from may begin at any address.
using Floats = float __attribute__((vector_size(16)));

inline Floats load(float const * from) {
    Floats four;
    __builtin_memcpy(&four, from, sizeof four);
    return four;
}

inline void store(Floats four, float * to) {
    __builtin_memcpy(to, &four, sizeof four);
}

/// Two floats as one number, to be moved together.
using Pairs = double __attribute__((vector_size(16)));

/// Two floats, then the same two.
inline Floats twoTwice(float const * two) {
    double both;
    __builtin_memcpy(&both, two, sizeof both);
    return reinterpret_cast<Floats>(Pairs{both, both});
}

inline void storeHalves(Floats four, float * low, float * high) {
    Pairs const halves = reinterpret_cast<Pairs>(four);
    double const first = halves[0], last = halves[1];
    __builtin_memcpy(low, &first, sizeof first);
    __builtin_memcpy(high, &last, sizeof last);
}

/// Every `stride`-th float.
inline Floats gather(float const * from, ptrdiff_t stride) {
    return Floats{from[0], from[stride], from[2 * stride], from[3 * stride]};
}

/// Exchanges rows and columns.
inline void transpose(Floats & a, Floats & b, Floats & c, Floats & d) {
    Floats const ab01 = __builtin_shufflevector(a, b, 0, 4, 1, 5), ab23 = __builtin_shufflevector(a, b, 2, 6, 3, 7);
    Floats const cd01 = __builtin_shufflevector(c, d, 0, 4, 1, 5), cd23 = __builtin_shufflevector(c, d, 2, 6, 3, 7);
    a = __builtin_shufflevector(ab01, cd01, 0, 1, 4, 5);
    b = __builtin_shufflevector(ab01, cd01, 2, 3, 6, 7);
    c = __builtin_shufflevector(ab23, cd23, 0, 1, 4, 5);
    d = __builtin_shufflevector(ab23, cd23, 2, 3, 6, 7);
}

constexpr float largestFloat = __FLT_MAX__;
constexpr Floats largest = {largestFloat, largestFloat, largestFloat, largestFloat};

// What follows says the same for three kinds of machine; compilers make much slower code of the first way.
//   repeated   one float four times
//   halves     the first two of `low`, the last two of `high`
//   finite     infinite ones become the largest finite ones; not-a-number stays
#ifndef __SSE2__

using Doubles = double __attribute__((vector_size(32)));

inline Floats repeated(float const * one) {
    return Floats{*one, *one, *one, *one};
}
inline Floats halves(Floats low, Floats high) {
    return Floats{low[0], low[1], high[2], high[3]};
}
inline Floats finite(Floats four) {
    Floats const notAbove = four > largest ? largest : four;
    return notAbove < -largest ? -largest : notAbove;
}
inline Doubles widen(Floats four) {
    return __builtin_convertvector(four, Doubles);
}
inline Floats narrow(Doubles four) {
    return __builtin_convertvector(four, Floats);
}

#else

// The second operand is the answer where one of them is not-a-number.
inline Floats finite(Floats four) {
    return _mm_max_ps(-largest, _mm_min_ps(largest, four));
}

#ifdef __AVX__

using Doubles = double __attribute__((vector_size(32)));

inline Floats repeated(float const * one) {
    return _mm_broadcast_ss(one);
}
inline Floats halves(Floats low, Floats high) {
    return _mm_blend_ps(low, high, 0b1100);
}
inline Doubles widen(Floats four) {
    return _mm256_cvtps_pd(four);
}
inline Floats narrow(Doubles four) {
    return _mm256_cvtpd_ps(four);
}

#else

struct Doubles {
    __m128d low, high;
};

inline Doubles operator+(Doubles a, Doubles b) {
    return {a.low + b.low, a.high + b.high};
}
inline Floats repeated(float const * one) {
    return _mm_set1_ps(*one);
}
inline Floats halves(Floats low, Floats high) {
    return _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 2, 1, 0));
}
inline Doubles widen(Floats four) {
    return {_mm_cvtps_pd(four), _mm_cvtps_pd(_mm_movehl_ps(four, four))};
}
inline Floats narrow(Doubles four) {
    return _mm_movelh_ps(_mm_cvtpd_ps(four.low), _mm_cvtpd_ps(four.high));
}

#endif
#endif

/// Four running sums in double.
struct SumsInDouble {
    Doubles sums{};
    void add(Floats products) { sums = sums + widen(products); }
    Floats results() const { return finite(narrow(sums)); }
};

/// Four running sums in float.
struct SumsInFloat {
    Floats sums{};
    void add(Floats products) { sums += products; }
    Floats results() const { return sums; }
};

/// Calls `sumRows(first)` for groups of `Size` rows. The last group begins so early that it is whole; what it forms a
/// second time has the same bits. If there are fewer rows in all, there is one group, which begins at row 0.
template <int Size, class SumRows> void forRowGroups(ptrdiff_t numRows, SumRows sumRows) {
    ptrdiff_t const last = numRows > Size ? numRows - Size : 0;
    for (ptrdiff_t row = 0; row < numRows; row += Size)
        sumRows(row < last ? row : last);
}

// The ways to lay sums out, each a function of its own, which needs no more registers than it uses. `values` and `out`
// begin at the first component that is summed, and go on by `comps` from point to point and from row to row.

/// One component of four rows. The rows that a smaller table lacks are its last row again. With `isAlone`, there is no
/// other component.
template <class Sums, bool isAlone>
[[gnu::noinline]] void sumOneComponent(float const * values, float const * weights, float * out, ptrdiff_t rows,
                                       ptrdiff_t points, ptrdiff_t numComps) {
    ptrdiff_t const comps = isAlone ? 1 : numComps;
    ptrdiff_t const row1 = rows > 1 ? 1 : 0, row2 = rows > 2 ? 2 : row1, row3 = rows > 3 ? 3 : row2;
    ptrdiff_t const weights1 = row1 * points, weights2 = row2 * points, weights3 = row3 * points;
    forRowGroups<4>(rows, [&](ptrdiff_t row) {
        float const * value = values;
        float const * weight = weights + row * points;
        float const * const end = weight + points;
        Sums sums;
        for (; end - weight >= 4; weight += 4, value += 4 * comps) {
            Floats const fourValues = isAlone ? load(value) : gather(value, comps);
            Floats a = fourValues * load(weight), b = fourValues * load(weight + weights1);
            Floats c = fourValues * load(weight + weights2), d = fourValues * load(weight + weights3);
            transpose(a, b, c, d);
            sums.add(a);
            sums.add(b);
            sums.add(c);
            sums.add(d);
        }
        for (; weight < end; ++weight, value += comps)
            sums.add(repeated(value) * Floats{weight[0], weight[weights1], weight[weights2], weight[weights3]});

        Floats const results = sums.results();
        float * const first = out + row * comps;
        if (isAlone && row3 == 3) {
            store(results, first);
        } else {
            first[0] = results[0];
            first[row1 * comps] = results[1];
            first[row2 * comps] = results[2];
            first[row3 * comps] = results[3];
        }
    });
}

/// Two components of two rows; a table of one row has it twice.
template <class Sums>
[[gnu::noinline]] void sumTwoComponents(float const * values, float const * weights, float * out, ptrdiff_t rows,
                                        ptrdiff_t points, ptrdiff_t comps) {
    ptrdiff_t const next = rows > 1 ? 1 : 0;
    forRowGroups<2>(rows, [&](ptrdiff_t row) {
        float const * value = values;
        float const * weight = weights + row * points;
        float const * const end = weight + points;
        Sums sums;
        for (; weight < end; ++weight, value += comps)
            sums.add(twoTwice(value) * halves(repeated(weight), repeated(weight + next * points)));
        float * const first = out + row * comps;
        storeHalves(sums.results(), first, first + next * comps);
    });
}

/// Four components of a row.
template <class Sums>
[[gnu::noinline]] void sumFourComponents(float const * values, float const * weights, float * out, ptrdiff_t rows,
                                         ptrdiff_t points, ptrdiff_t comps) {
    for (; rows > 0; --rows, out += comps) {
        float const * value = values;
        float const * const end = weights + points;
        Sums sums;
        for (; weights < end; ++weights, value += comps)
            sums.add(load(value) * repeated(weights));
        store(sums.results(), out);
    }
}

/// All of six components, those of a stress, of two rows: what is above for four and for two of them, with each weight
/// read once. `knownPoints` is the number of points, or 0 for any.
template <class Sums, int knownPoints>
[[gnu::noinline]] void sumSixComponents(float const * values, float const * weights, float * out, ptrdiff_t rows,
                                        ptrdiff_t numPoints) {
    constexpr ptrdiff_t comps = 6;
    ptrdiff_t const points = knownPoints > 0 ? knownPoints : numPoints;
    ptrdiff_t const next = rows > 1 ? 1 : 0;
    forRowGroups<2>(rows, [&](ptrdiff_t row) {
        float const * value = values;
        float const * weight = weights + row * points;
        float const * const end = weight + points;
        Sums sums, nextSums, lastSums;
        for (; weight < end; ++weight, value += comps) {
            Floats const firstFour = load(value);
            Floats const ofRow = repeated(weight), ofNext = repeated(weight + next * points);
            sums.add(firstFour * ofRow);
            nextSums.add(firstFour * ofNext);
            lastSums.add(twoTwice(value + 4) * halves(ofRow, ofNext));
        }
        float * const first = out + row * comps;
        float * const second = first + next * comps;
        store(sums.results(), first);
        store(nextSums.results(), second);
        storeHalves(lastSums.results(), first + 4, second + 4);
    });
}

/// Any number of components: four by four, then what is left.
template <class Sums>
[[gnu::noinline]] void sumComponents(float const * values, float const * weights, float * out, ptrdiff_t rows,
                                     ptrdiff_t points, ptrdiff_t comps) {
    ptrdiff_t left = comps;
    for (; left >= 4; left -= 4, values += 4, out += 4)
        sumFourComponents<Sums>(values, weights, out, rows, points, comps);
    if (left >= 2) {
        sumTwoComponents<Sums>(values, weights, out, rows, points, comps);
        left -= 2;
        values += 2;
        out += 2;
    }
    if (left > 0)
        sumOneComponent<Sums, false>(values, weights, out, rows, points, comps);
}

/// Scalars, and stresses at the points that most elements have, go ways of their own.
template <class Sums>
void sumAll(float const * values, float const * weights, float * out, int rows, int points, int comps) {
    if (comps == 6 && points == 8)
        sumSixComponents<Sums, 8>(values, weights, out, rows, points);
    else if (comps == 6 && points == 4)
        sumSixComponents<Sums, 4>(values, weights, out, rows, points);
    else if (comps == 6)
        sumSixComponents<Sums, 0>(values, weights, out, rows, points);
    else if (comps == 1)
        sumOneComponent<Sums, true>(values, weights, out, rows, points, comps);
    else
        sumComponents<Sums>(values, weights, out, rows, points, comps);
}

constexpr shp_SumKernels kernels = {sumAll<SumsInDouble>, sumAll<SumsInFloat>};

} // namespace

#endif
