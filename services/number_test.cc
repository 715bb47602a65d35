// Tests of the number fit and number round services.
#include "services/number.h"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace lk {
namespace {

struct FitCase {
  double value;
  int decimals;
  int digits;
  double expect;
};

TEST(NumberFitTest, Table) {
  const FitCase cases[] = {
      // A plain pass.
      {123456789012345.678, 0, 0, 123456789012345.678},
      {-0.1, 0, 0, -0.1},
      {1e300, 4, 0, 1e300},
      // Subscripts and long attributes: 9 digits, no decimals.
      {12.7, 0, 9, 12.0},
      {-12.7, 0, 9, -12.0},
      {999999999.0, 0, 9, 999999999.0},
      {1234567890.0, 0, 9, 234567890.0},
      // Number attributes: 12 digits.
      {123456789012.9, 0, 12, 123456789012.0},
      {1234567890123.0, 0, 12, 234567890123.0},
      {42.0, 0, 12, 42.0},
      // Decimal numbers: 14 digits with 4 decimals.
      {1.23456, 4, 14, 1.2345},
      {1.23, 4, 14, 1.23},
      {-1.23456, 4, 14, -1.2345},
      {0.0001, 4, 14, 0.0001},
      {0.00009, 4, 14, 0.0},
      {1234567890.12345, 4, 14, 1234567890.1234},
      {12345678901.5, 4, 14, 2345678901.5},
  };
  for (const FitCase& c : cases) {
    SCOPED_TRACE("value " + std::to_string(c.value) + " decimals " + std::to_string(c.decimals) +
                 " digits " + std::to_string(c.digits));
    EXPECT_EQ(c.expect, NumberFit(c.value, c.decimals, 0, c.digits));
  }
}

TEST(NumberFitTest, DigitsZeroIsAPlainPass) {
  const double values[] = {0.1 + 0.2, -7.0000001, 3.141592653589793, 1e-300};
  for (double v : values) EXPECT_EQ(v, NumberFit(v, 4, 0, 0));
}

TEST(NumberFitTest, NotFiniteFitsToZero) {
  EXPECT_EQ(0.0, NumberFit(std::numeric_limits<double>::quiet_NaN(), 0, 0, 9));
  EXPECT_EQ(0.0, NumberFit(std::numeric_limits<double>::infinity(), 0, 0, 12));
}

TEST(NumberFitTest, FittedValueFitsAgainUnchanged) {
  const double values[] = {1.23, 0.07, 99.9999, 12345.6789, -3.3};
  for (double v : values) {
    const double once = NumberFit(v, 4, 0, 14);
    EXPECT_EQ(once, NumberFit(once, 4, 0, 14)) << v;
  }
}

struct RoundCase {
  double value;
  int decimals;
  int mode;
  double expect;
};

TEST(NumberRoundTest, Table) {
  const RoundCase cases[] = {
      {2.5, 0, 1, 3.0},      {-2.5, 0, 1, -3.0},  {2.4999, 0, 1, 2.0},
      {1.005, 2, 1, 1.01},   {1.004, 2, 1, 1.0},  {0.125, 2, 1, 0.13},
      {1.239, 2, 0, 1.23},   {-1.239, 2, 0, -1.23}, {1.23, 2, 0, 1.23},
      {123456789012.0, 0, 1, 123456789012.0},
  };
  for (const RoundCase& c : cases) {
    SCOPED_TRACE("value " + std::to_string(c.value) + " decimals " + std::to_string(c.decimals) +
                 " mode " + std::to_string(c.mode));
    EXPECT_EQ(c.expect, NumberRound(c.value, c.decimals, c.mode));
  }
}

TEST(NumberRoundTest, MakesNearlyEqualValuesCompareExactly) {
  const double a = 0.1 + 0.2;  // 0.30000000000000004
  const double b = 0.3;
  ASSERT_NE(a, b);
  EXPECT_EQ(NumberRound(a, 4, 1), NumberRound(b, 4, 1));

  const double c = 1.1 * 3;  // 3.3000000000000003
  ASSERT_NE(c, 3.3);
  EXPECT_EQ(NumberRound(c, 2, 1), NumberRound(3.3, 2, 1));

  // And values that differ in the kept decimals still differ.
  EXPECT_NE(NumberRound(1.2345, 4, 1), NumberRound(1.2346, 4, 1));
}

TEST(NumberRoundTest, RoundingTwiceChangesNothing) {
  const double values[] = {1.23456, 0.5, 987.65432, -0.015};
  for (double v : values) {
    const double once = NumberRound(v, 2, 1);
    EXPECT_EQ(once, NumberRound(once, 2, 1)) << v;
  }
}

}  // namespace
}  // namespace lk
