// Field services on numbers: fit a value to an attribute and round it for an
// exact compare.
//
// Both work on the value scaled by 10^decimals. A double seldom holds a
// decimal fraction exactly (1.23 * 100 is 122.99999999999999), so a scaled
// value within a few units in the last place of a whole number, or of a half,
// is taken to be that number; otherwise a value typed as 1.23 would fit to
// 1.22. Neither function fails: a value that is not finite fits to 0.
#include "services/number.h"

#include <cfloat>
#include <cmath>

namespace lk {

namespace {

// Beyond this a double has no fraction left to cut or round.
constexpr double kWhole = 4503599627370496.0;  // 2^52

constexpr int kMaxDecimals = 15;

double PowerOfTen(int n) {
  double p = 1.0;
  for (int i = 0; i < n; ++i) p *= 10.0;
  return p;
}

// How far a scaled value may lie from a whole number or a half and still be
// taken for it.
double Slack(double scaled) {
  return 8.0 * DBL_EPSILON * std::fmax(1.0, std::fabs(scaled));
}

// The scaled value cut towards zero, or carried to the next whole number when
// it lies just below it.
double CutScaled(double scaled) {
  const double whole = std::trunc(scaled);
  const double rest = std::fabs(scaled - whole);
  if (1.0 - rest <= Slack(scaled)) return whole + (scaled < 0 ? -1.0 : 1.0);
  return whole;
}

}  // namespace

double NumberFit(double value, std::int32_t decimals, std::int32_t zero, std::int32_t digits) {
  (void)zero;
  if (digits <= 0) return value;
  if (!std::isfinite(value)) return 0.0;
  if (decimals < 0) decimals = 0;
  if (decimals > kMaxDecimals) decimals = kMaxDecimals;
  if (decimals > digits) decimals = digits;
  const double scale = PowerOfTen(decimals);
  const double scaled = value * scale;
  double kept = std::fabs(scaled) < kWhole ? CutScaled(scaled) : std::trunc(scaled);
  // A field of `digits` digits keeps the low digits of what it is given.
  if (digits <= 300) kept = std::fmod(kept, PowerOfTen(digits));
  const double fitted = kept / scale;
  return fitted == 0.0 ? 0.0 : fitted;  // no negative zero
}

double NumberRound(double value, std::int32_t decimals, std::int32_t mode) {
  if (!std::isfinite(value)) return value;
  if (decimals < 0) decimals = 0;
  if (decimals > kMaxDecimals) decimals = kMaxDecimals;
  const double scale = PowerOfTen(decimals);
  const double scaled = value * scale;
  if (std::fabs(scaled) >= kWhole) return value;
  double whole;
  if (mode == 1) {
    whole = std::trunc(scaled);
    const double rest = std::fabs(scaled - whole);
    if (rest + Slack(scaled) >= 0.5) whole += (scaled < 0 ? -1.0 : 1.0);
  } else {
    whole = CutScaled(scaled);
  }
  const double rounded = whole / scale;
  return rounded == 0.0 ? 0.0 : rounded;
}

}  // namespace lk
