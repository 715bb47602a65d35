// Field services on numbers: fit a value to an attribute, round it for an
// exact compare.
#ifndef WATRIX_SERVICES_NUMBER_H_
#define WATRIX_SERVICES_NUMBER_H_

#include <cstdint>

namespace lk {

// The value fitted to an attribute of `digits` digits and `decimals`
// decimals: decimals beyond the attribute are cut off (towards zero); an
// integer part with more digits than digits - decimals keeps only its low
// digits, as a field of that width would. Digits 0 returns the value
// unchanged. `zero` is always 0.
double NumberFit(double value, std::int32_t decimals, std::int32_t zero, std::int32_t digits);

// The value rounded to `decimals` decimals, half away from zero (mode 1; any
// other mode cuts towards zero), so that two numbers compare exactly.
double NumberRound(double value, std::int32_t decimals, std::int32_t mode);

}  // namespace lk

#endif  // WATRIX_SERVICES_NUMBER_H_
