#ifndef shp_WeightedSums_h
#define shp_WeightedSums_h

/// Weighted sums over the points at which values of one element stand: out[row][comp] becomes the sum over all points,
/// in order, of values[point][comp] times weights[row][point], each product in float. `out` overlaps neither of the
/// two; there is at least one component.
using shp_WeightedSums = void(float const * values, float const * weights, float * out, int numRows, int numPoints,
                              int numComps);

/// Running sums in double, narrowed to the nearest finite float; not-a-number stays.
shp_WeightedSums shp_sumInDouble;

/// Running sums in float; too large a sum is infinite.
shp_WeightedSums shp_sumInFloat;

/// Both, as one machine does them.
struct shp_SumKernels {
    shp_WeightedSums * inDouble;
    shp_WeightedSums * inFloat;
};

/// For a machine with 256-bit vectors; null in a library for machines that never have them.
extern shp_SumKernels const shp_wideSumKernels;

#endif
