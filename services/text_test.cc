// Tests of the text compare and text move services.
#include "services/text.h"

#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace lk {
namespace {

int Sign(int x) { return (x > 0) - (x < 0); }

struct CompareCase {
  const char* a;
  const char* b;
  int sign;
};

TEST(TextCompareTest, Table) {
  const CompareCase cases[] = {
      {"", "", 0},
      {"", "     ", 0},
      {"A", "A   ", 0},
      {"A   ", "A", 0},
      {"ABC", "ABC", 0},
      {"A", "B", -1},
      {"B", "A", 1},
      {"AB", "A", 1},      // 'B' after the blank that stands for the end
      {"A", "AB", -1},
      {"A\t", "A", -1},    // a tab sorts before the blank of a missing tail
      {"a", "B", 1},       // byte order, not letter order
      {"\x80", "z", 1},    // bytes compare unsigned
      {"\xE9", "\x7F", 1},
      {"Z", "\xFF", -1},
      {" A", "A", -1},     // leading blanks count
  };
  for (const CompareCase& c : cases) {
    SCOPED_TRACE(std::string("\"") + c.a + "\" vs \"" + c.b + "\"");
    EXPECT_EQ(c.sign, Sign(TextCompare(c.a, c.b)));
    EXPECT_EQ(-c.sign, Sign(TextCompare(c.b, c.a)));
  }
}

TEST(TextCompareTest, ZeroedAttributeEqualsBlankAttribute) {
  char zeroed[31];
  char blank[31];
  std::memset(zeroed, 0, sizeof(zeroed));
  std::memset(blank, ' ', sizeof(blank) - 1);
  blank[30] = '\0';
  EXPECT_EQ(0, TextCompare(zeroed, blank));
  EXPECT_EQ(0, TextCompare(blank, zeroed));
  EXPECT_EQ(0, TextCompare(zeroed, ""));
  EXPECT_EQ(0, TextCompare(blank, ""));
}

TEST(TextMoveTest, LongSourceKeepsWidthLessOne) {
  const char source[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234";  // 30 characters
  ASSERT_EQ(30u, std::strlen(source));
  char dest[12];
  std::memset(dest, '#', sizeof(dest));
  TextMove(dest, source, 9);
  EXPECT_EQ(0, std::memcmp(dest, "ABCDEFGH", 8));
  EXPECT_EQ('\0', dest[8]);
  EXPECT_EQ('#', dest[9]);  // nothing written past the width
}

struct MoveCase {
  const char* source;
  int width;
  const char* expect;  // width - 1 characters
};

TEST(TextMoveTest, Table) {
  const MoveCase cases[] = {
      {"AB", 6, "AB   "},
      {"", 4, "   "},
      {"ABCD", 5, "ABCD"},
      {"ABCDE", 5, "ABCD"},
      {"A B ", 7, "A B   "},
      {"X", 1, ""},
  };
  for (const MoveCase& c : cases) {
    SCOPED_TRACE(std::string("\"") + c.source + "\" width " + std::to_string(c.width));
    char dest[16];
    std::memset(dest, '#', sizeof(dest));
    TextMove(dest, c.source, c.width);
    EXPECT_EQ(std::string(c.expect), std::string(dest));
    EXPECT_EQ('\0', dest[c.width - 1]);
    EXPECT_EQ('#', dest[c.width]);
  }
}

TEST(TextMoveTest, SameSourceAndDest) {
  char field[9] = "ABC";  // "ABC" then NULs
  TextMove(field, field, 9);
  EXPECT_STREQ("ABC     ", field);
  TextMove(field, field, 5);
  EXPECT_STREQ("ABC ", field);
}

TEST(TextMoveTest, ZeroWidthWritesNothing) {
  char dest[2] = {'#', '#'};
  TextMove(dest, "AB", 0);
  EXPECT_EQ('#', dest[0]);
}

TEST(BoundedCopyTest, FillsWithNul) {
  char dest[8];
  std::memset(dest, '#', sizeof(dest));
  BoundedCopy(dest, "AB ", 6);
  EXPECT_EQ(0, std::memcmp(dest, "AB \0\0\0", 6));
  EXPECT_EQ('#', dest[6]);

  BoundedCopy(dest, "ABCDEFGHIJ", 6);
  EXPECT_EQ(0, std::memcmp(dest, "ABCDE\0", 6));
}

TEST(TextIsBlankTest, Table) {
  EXPECT_TRUE(TextIsBlank(""));
  EXPECT_TRUE(TextIsBlank("    "));
  EXPECT_FALSE(TextIsBlank("  x "));
  EXPECT_FALSE(TextIsBlank("\t"));
}

}  // namespace
}  // namespace lk
