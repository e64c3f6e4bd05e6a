#ifndef bench_arithmetic_peak_h
#define bench_arithmetic_peak_h

namespace bench {

// The arithmetic that a weighted sum is defined by and nothing else: for each term a product in float, its conversion
// to double, an addition in double. Independent sums in registers, no memory: the least time that one core needs for
// it, as long as each product is formed.

/// In the instructions that every x86-64 processor has.
void runPrescribedArithmetic(int terms);

/// In vectors of 256 bits, where the processor has them.
bool hasWideArithmetic();
void runWideArithmetic(int terms);

} // namespace bench

#endif
