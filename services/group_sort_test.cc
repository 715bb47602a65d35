// Tests of the group sort service on a group view of one array per
// attribute, rows from 1 (slot 0 unused, as in the units' groups).
#include "services/group_sort.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "services/text.h"

namespace lk {
namespace {

constexpr int kLimit = 10;

// A group of a category (text 4), a subcategory (text 6), an IS number and a
// long, with room for slot 0.
struct Group {
  int count = 0;
  char category[kLimit + 1][5] = {};
  char subcategory[kLimit + 1][7] = {};
  double is_number[kLimit + 1] = {};
  std::int32_t order[kLimit + 1] = {};
};

void Add(Group* g, const char* category, const char* subcategory, double is_number) {
  ++g->count;
  TextMove(g->category[g->count], category, 5);
  TextMove(g->subcategory[g->count], subcategory, 7);
  g->is_number[g->count] = is_number;
  g->order[g->count] = g->count;
}

GroupSortDescription Describe(Group* g) {
  GroupSortDescription d{};
  d.rows = g->count;
  d.columns = 4;
  d.column[0] = {'S', 1, g->category[1], 5, 5};
  d.column[1] = {'S', 2, g->subcategory[1], 7, 7};
  d.column[2] = {'B', 3, reinterpret_cast<char*>(&g->is_number[1]), 8, 8};
  d.column[3] = {'L', 4, reinterpret_cast<char*>(&g->order[1]), 4, 4};
  return d;
}

std::string Row(const Group& g, int r) {
  return std::string(g.category[r]) + "|" + g.subcategory[r] + "|" +
         std::to_string(static_cast<long long>(g.is_number[r])) + "|" +
         std::to_string(g.order[r]);
}

TEST(GroupSortTest, FirstThenSecondColumnAscendingMovesWholeRows) {
  Group g;
  Add(&g, "BB", "y", 10);
  Add(&g, "AA", "z", 20);
  Add(&g, "BB", "x", 30);
  Add(&g, "AA", "a", 40);
  Add(&g, "CC", "m", 50);
  Add(&g, "AA", "z", 60);
  std::memcpy(g.category[0], "ZERO", 5);
  GroupSortDescription d = Describe(&g);
  GroupSort(nullptr, nullptr, nullptr, &d, "1 a 2 a");
  const std::vector<std::string> expect = {
      "AA  |a     |40|4", "AA  |z     |20|2", "AA  |z     |60|6",
      "BB  |x     |30|3", "BB  |y     |10|1", "CC  |m     |50|5",
  };
  for (int r = 1; r <= g.count; ++r) EXPECT_EQ(expect[r - 1], Row(g, r)) << r;
  EXPECT_STREQ("ZERO", g.category[0]);  // slot 0 is not part of the group
}

TEST(GroupSortTest, EqualKeysKeepTheirOrder) {
  Group g;
  for (int i = 0; i < 8; ++i) Add(&g, i % 2 ? "B" : "A", "", 100 + i);
  GroupSortDescription d = Describe(&g);
  GroupSort(nullptr, nullptr, nullptr, &d, "1 a");
  const std::int32_t expect[] = {1, 3, 5, 7, 2, 4, 6, 8};
  for (int r = 1; r <= 8; ++r) {
    EXPECT_EQ(expect[r - 1], g.order[r]) << r;
    EXPECT_EQ(99 + expect[r - 1], g.is_number[r]) << r;
  }
}

TEST(GroupSortTest, BlankAndZeroedTextsSortTogether) {
  Group g;
  Add(&g, "B", "", 1);
  Add(&g, "", "", 2);
  std::memset(g.category[3], 0, 5);  // a zeroed row: equal to the blank one
  g.count = 3;
  g.order[3] = 3;
  GroupSortDescription d = Describe(&g);
  GroupSort(nullptr, nullptr, nullptr, &d, "1 a");
  EXPECT_EQ(2, g.order[1]);
  EXPECT_EQ(3, g.order[2]);
  EXPECT_EQ(1, g.order[3]);
}

TEST(GroupSortTest, DescendingAndNumberKeys) {
  Group g;
  Add(&g, "A", "", 5);
  Add(&g, "A", "", 50);
  Add(&g, "B", "", 7);
  GroupSortDescription d = Describe(&g);
  GroupSort(nullptr, nullptr, nullptr, &d, "3 d");
  EXPECT_EQ(50, g.is_number[1]);
  EXPECT_EQ(7, g.is_number[2]);
  EXPECT_EQ(5, g.is_number[3]);
  EXPECT_STREQ("B   ", g.category[2]);
}

TEST(GroupSortTest, RowsBeyondTheCountStayPut) {
  Group g;
  Add(&g, "C", "", 1);
  Add(&g, "B", "", 2);
  Add(&g, "A", "", 3);
  GroupSortDescription d = Describe(&g);
  d.rows = 2;
  GroupSort(nullptr, nullptr, nullptr, &d, "1 a");
  EXPECT_STREQ("B   ", g.category[1]);
  EXPECT_STREQ("C   ", g.category[2]);
  EXPECT_STREQ("A   ", g.category[3]);
}

TEST(GroupSortTest, ManyEqualKeysKeepTheirOrder) {
  // Enough rows that a sort which is not stable shows it.
  constexpr int kRows = 300;
  struct Big {
    char key[kRows + 1][3] = {};
    std::int32_t id[kRows + 1] = {};
  };
  auto big = std::make_unique<Big>();
  for (int r = 1; r <= kRows; ++r) {
    const char key[2] = {static_cast<char>('C' - (r * 7) % 3), '\0'};
    TextMove(big->key[r], key, 3);
    big->id[r] = r;
  }
  GroupSortDescription d{};
  d.rows = kRows;
  d.columns = 2;
  d.column[0] = {'S', 1, big->key[1], 3, 3};
  d.column[1] = {'L', 2, reinterpret_cast<char*>(&big->id[1]), 4, 4};
  GroupSort(nullptr, nullptr, nullptr, &d, "1 a");
  for (int r = 2; r <= kRows; ++r) {
    const int order = TextCompare(big->key[r - 1], big->key[r]);
    ASSERT_LE(order, 0) << r;
    if (order == 0) {
      ASSERT_LT(big->id[r - 1], big->id[r]) << r;
    }
  }
}

TEST(GroupSortTest, ReverseOrderOfManyRows) {
  struct Big {
    char name[201][11] = {};
    std::int32_t id[201] = {};
  };
  auto big = std::make_unique<Big>();
  for (int r = 1; r <= 200; ++r) {
    char text[11];
    std::snprintf(text, sizeof(text), "N%04d", 201 - r);
    TextMove(big->name[r], text, 11);
    big->id[r] = 201 - r;
  }
  GroupSortDescription d{};
  d.rows = 200;
  d.columns = 2;
  d.column[0] = {'L', 1, reinterpret_cast<char*>(&big->id[1]), 4, 4};
  d.column[1] = {'S', 2, big->name[1], 11, 11};
  GroupSort(nullptr, nullptr, nullptr, &d, "2 a");
  for (int r = 1; r <= 200; ++r) {
    char text[11];
    std::snprintf(text, sizeof(text), "N%04d", r);
    ASSERT_EQ(r, big->id[r]);
    ASSERT_EQ(0, TextCompare(text, big->name[r]));
  }
}

}  // namespace
}  // namespace lk
