#ifndef shp_WeightedSums_h
#define shp_WeightedSums_h

/// Weighted sums over the points at which values of one element stand: sum over all points, in order, of
/// `values[point][comp]` times `weights[row][point]`, each product in float.
struct shp_WeightedSums {
    float const * values;  ///< [numPoints][numComps]
    float const * weights; ///< [numRows][numPoints]
    float * out;           ///< [numRows][numComps]; overlaps neither values nor weights
    int numRows;
    int numPoints;
    int numComps;
};

/// Running sums in double, narrowed to the nearest finite float; not-a-number stays.
void shp_sumInDouble(shp_WeightedSums const & sums);

/// Running sums in float; too large a sum is infinite.
void shp_sumInFloat(shp_WeightedSums const & sums);

/// Both, as one machine does them.
struct shp_SumKernels {
    void (*inDouble)(shp_WeightedSums const & sums);
    void (*inFloat)(shp_WeightedSums const & sums);
};

/// For a machine with 256-bit vectors; null in a library for machines that never have them.
extern shp_SumKernels const shp_wideSumKernels;

#endif
