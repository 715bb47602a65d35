// Code page 1252 <-> UTF-8: every byte both ways, the high characters, and
// what 1252 cannot hold refused.
#include "services/cp1252.h"

#include <gtest/gtest.h>

namespace lk {
namespace {

TEST(Cp1252Test, RoundTripsEveryByte) {
  std::string all;
  for (int b = 1; b < 256; ++b) {
    if (b == 0x81 || b == 0x8D || b == 0x8F || b == 0x90 || b == 0x9D) continue;
    all.push_back(static_cast<char>(b));
  }
  std::string back, error;
  ASSERT_TRUE(Utf8ToCp1252(Cp1252ToUtf8(all), &back, &error)) << error;
  EXPECT_EQ(all, back);
}

TEST(Cp1252Test, ConvertsTheHighCharacters) {
  struct Case {
    const char* utf8;
    const char* cp1252;
  } cases[] = {
      {"\xE2\x82\xAC", "\x80"},   // euro sign
      {"\xC5\xA0", "\x8A"},       // S with caron
      {"\xC3\xA9t\xC3\xA9", "\xE9t\xE9"},
      {"plain", "plain"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.utf8);
    std::string out, error;
    ASSERT_TRUE(Utf8ToCp1252(c.utf8, &out, &error)) << error;
    EXPECT_EQ(c.cp1252, out);
    EXPECT_EQ(c.utf8, Cp1252ToUtf8(out));
  }
}

TEST(Cp1252Test, RefusesWhatItCannotHold) {
  const char* refused[] = {
      "\xE4\xB8\xAD",          // a CJK character
      "\xF0\x9F\x98\x80",      // an emoji
      "\xC3",                  // cut short
      "\xC0\xAF",              // overlong
      "\xED\xA0\x80",          // a surrogate
      "\xFF",
      "\xC2\x81",              // a byte 1252 leaves undefined
      "\xC2\x9D",
  };
  for (const char* text : refused) {
    std::string out, error;
    EXPECT_FALSE(Utf8ToCp1252(text, &out, &error));
    EXPECT_FALSE(error.empty());
  }
}

}  // namespace
}  // namespace lk
