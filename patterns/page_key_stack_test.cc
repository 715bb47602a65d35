// The stack of page keys: what a read records on "LIST" and "NEXT" and not
// on "PREV", the ranges of a page up and a page down, and the subscript
// check at page 101.
#include "patterns/page_key_stack.h"

#include <string>

#include <gtest/gtest.h>

#include "frame/run_context.h"
#include "frame/unit.h"
#include "frame/views.h"

namespace lk::patterns {
namespace {

constexpr int kPages = 100;

struct Pages {
  static constexpr int kRowsOfForms = kPages;
  std::int32_t count;
  ShownColumn<kPages, 5> FIRST_CODE;
  ShownColumn<kPages, 5> LAST_CODE;
  ShownColumn<kPages, 9> FIRST_NAME;
  ShownColumn<kPages, 9> LAST_NAME;
};
struct Keys {
  using Group = Pages;
  static constexpr auto kFirstA = &Pages::FIRST_CODE;
  static constexpr auto kLastA = &Pages::LAST_CODE;
  static constexpr auto kFirstB = &Pages::FIRST_NAME;
  static constexpr auto kLastB = &Pages::LAST_NAME;
};
using Stack = PageKeyStack<Keys>;

struct Range {
  char low_a[5], high_a[5], low_b[9], high_b[9];
  PageRange Of() { return {low_a, high_a, 5, low_b, high_b, 9}; }
};

class PageKeyStackTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetRunContext(&rc_, area_); }
  void Command(const char* command) { SetCommand(&rc_, command); }
  // A page of `n` rows: codes C<page><r>, names N<page><r>.
  void Read(int page, int n) {
    for (int r = 1; r <= n; ++r) {
      const std::string code = "C" + std::to_string(page) + std::to_string(r);
      const std::string name = "N" + std::to_string(page) + std::to_string(r);
      Stack::Record(&rc_, &pages_, page, r, code.c_str(), name.c_str());
    }
  }
  RunContext rc_{};
  char area_[kDatabaseAreaSize] = {};
  Pages pages_{};
};

TEST_F(PageKeyStackTest, ListAndNextRecordTheFirstAndLastKeysOfEachPage) {
  Command("LIST");
  Read(1, 3);
  Command("NEXT");
  Read(2, 2);
  EXPECT_EQ(2, pages_.count);
  EXPECT_STREQ("C11 ", pages_.FIRST_CODE.value[1]);
  EXPECT_STREQ("C13 ", pages_.LAST_CODE.value[1]);
  EXPECT_STREQ("N11     ", pages_.FIRST_NAME.value[1]);
  EXPECT_STREQ("N13     ", pages_.LAST_NAME.value[1]);
  EXPECT_STREQ("C21 ", pages_.FIRST_CODE.value[2]);
  EXPECT_STREQ("C22 ", pages_.LAST_CODE.value[2]);
}

TEST_F(PageKeyStackTest, APageUpLeavesTheStackAsItStands) {
  Command("LIST");
  Read(1, 3);
  Command("PREV");
  Read(1, 1);
  EXPECT_STREQ("C11 ", pages_.FIRST_CODE.value[1]);
  EXPECT_STREQ("C13 ", pages_.LAST_CODE.value[1]);
}

TEST_F(PageKeyStackTest, ASkippedPageIsBlankAndTheCountRisesToThePage) {
  Command("NEXT");
  Read(3, 2);
  EXPECT_EQ(3, pages_.count);
  EXPECT_STREQ("    ", pages_.FIRST_CODE.value[2]);
  EXPECT_STREQ("C31 ", pages_.FIRST_CODE.value[3]);
}

TEST_F(PageKeyStackTest, UpTakesThePageBeforeDownReadsOnFromTheLastRow) {
  Command("LIST");
  Read(1, 3);
  Command("NEXT");
  Read(2, 2);
  Range up{};
  Stack::UpRange(&rc_, pages_, 2, up.Of());
  EXPECT_STREQ("C11 ", up.low_a);
  EXPECT_STREQ("C13 ", up.high_a);
  EXPECT_STREQ("N11     ", up.low_b);
  EXPECT_STREQ("N13     ", up.high_b);
  Range down{};
  Stack::DownRange(&rc_, pages_, 2, down.Of(), "zzzz", "zzzzzzzz");
  EXPECT_STREQ("C22 ", down.low_a);
  EXPECT_STREQ("zzzz", down.high_a);
  EXPECT_STREQ("N22     ", down.low_b);
  EXPECT_STREQ("zzzzzzzz", down.high_b);
  EXPECT_NE('Y', rc_.subscript_fault);
}

TEST_F(PageKeyStackTest, Page101IsTheSubscriptChecksFault) {
  Command("NEXT");
  bool aborted = false;
  try {
    Read(kPages + 1, 1);
  } catch (const UnitAbort&) {
    aborted = true;
  }
  EXPECT_TRUE(aborted);
  EXPECT_EQ('Y', rc_.subscript_fault);
}

}  // namespace
}  // namespace lk::patterns
