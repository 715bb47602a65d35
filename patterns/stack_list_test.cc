// The stack-style list over a small list of five rows and a stack of three
// pages: selection, double click, the buttons, Open, the refresh that seeks
// the row in hand, and the body's copy.
#include "patterns/stack_list.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/host_port.h"
#include "frame/views.h"
#include "patterns/group.h"
#include "services/row_state.h"
#include "services/text.h"

namespace lk::patterns {
namespace {

constexpr int kRows = 5;
constexpr int kPages = 3;
constexpr u32 kLink = 0x11220001;

struct ListImport {
  char reserved[4];
  char NEXT_ENABLED[2];
  char PREV_ENABLED[2];
  char PAGE[8];
  char HAND_IS_NUMBER[8];
  char HAND_ORG_ID[9];
  char HAND_SHORT_NAME[7];
  char USER_ID_CODE[9];
  char CURRENT_ORG_ID[9];
  char SUBSCRIPT[8];
  std::int32_t count;
  Column<kRows, 2> SELECT_CHAR;
  std::int32_t stack_count;
  Column<kPages, 7> FIRST_ROW;
  Column<kPages, 7> LAST_ROW;
};

struct ListExport {
  std::uint32_t reserved;
  Shown<2> NEXT_ENABLED;
  Shown<2> PREV_ENABLED;
  Shown<8> PAGE;
  Shown<2> AT_TOP;
  Shown<2> AT_BOTTOM;
  Shown<8> HAND_IS_NUMBER;
  Shown<9> HAND_ORG_ID;
  Shown<7> HAND_SHORT_NAME;
  Shown<9> USER_ID_CODE;
  Shown<9> CURRENT_ORG_ID;
  Shown<8> SUBSCRIPT;
  std::int32_t count;
  ShownColumn<kRows, 2> SELECT_CHAR;
  ShownColumn<kRows, 8> IS_NUMBER;
  ShownColumn<kRows, 9> ORG_ID;
  ShownColumn<kRows, 7> SHORT_NAME;
  std::int32_t stack_count;
  ShownColumn<kPages, 7> FIRST_ROW;
  ShownColumn<kPages, 7> LAST_ROW;
};

#define IN(m) static_cast<u32>(offsetof(ListImport, m))
#define OUT(m) static_cast<u32>(offsetof(ListExport, m))
const AttributeType kFlag = {2, "S ", 1, "", nullptr, 0, {0, 0}};
const AttributeType kNumber = {13, "B ", 12, "", nullptr, 0, {0, 0}};
const AttributeType kOrg = {9, "S ", 8, "", nullptr, 0, {0, 0}};
const AttributeType kShort = {7, "S ", 6, "", nullptr, 0, {0, 0}};
const AttributeRow kNext[] = {{"FLAG", 2, IN(NEXT_ENABLED), OUT(NEXT_ENABLED.value), &kFlag},
                              {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kPrev[] = {{"FLAG", 2, IN(PREV_ENABLED), OUT(PREV_ENABLED.value), &kFlag},
                              {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kPage[] = {{"SUBSCRIPT", 8, IN(PAGE), OUT(PAGE.value), &kNumber},
                              {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kTop[] = {{"FLAG", 2, 0, OUT(AT_TOP.value), &kFlag},
                             {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kBottom[] = {{"FLAG", 2, 0, OUT(AT_BOTTOM.value), &kFlag},
                                {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kHand[] = {
    {"IS_NUMBER", 8, IN(HAND_IS_NUMBER), OUT(HAND_IS_NUMBER.value), &kNumber},
    {"ORG_ID", 9, IN(HAND_ORG_ID), OUT(HAND_ORG_ID.value), &kOrg},
    {"SHORT_NAME", 7, IN(HAND_SHORT_NAME), OUT(HAND_SHORT_NAME.value), &kShort},
    {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kSystem[] = {
    {"USER_ID_CODE", 9, IN(USER_ID_CODE), OUT(USER_ID_CODE.value), &kOrg},
    {"CURRENT_ORG_ID", 9, IN(CURRENT_ORG_ID), OUT(CURRENT_ORG_ID.value), &kOrg},
    {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kSelected[] = {{"SUBSCRIPT", 8, IN(SUBSCRIPT), OUT(SUBSCRIPT.value), &kNumber},
                                  {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kMarks[] = {{"SELECT_CHAR", 2, IN(SELECT_CHAR), OUT(SELECT_CHAR.value), &kFlag},
                               {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kRowColumns[] = {{"IS_NUMBER", 8, 0, OUT(IS_NUMBER.value), &kNumber},
                                    {"ORG_ID", 9, 0, OUT(ORG_ID.value), &kOrg},
                                    {"SHORT_NAME", 7, 0, OUT(SHORT_NAME.value), &kShort},
                                    {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kStack[] = {{"FIRST_ROW", 7, IN(FIRST_ROW), OUT(FIRST_ROW.value), &kShort},
                               {"LAST_ROW", 7, IN(LAST_ROW), OUT(LAST_ROW.value), &kShort},
                               {nullptr, 0, 0, 0, nullptr}};
const ViewRow kViewRows[] = {
    {"EXPORT_NEXT_ENABLED.RUNTIME_SUPPLIED.", 0, 0, kNext},
    {"EXPORT_PREV_ENABLED.RUNTIME_SUPPLIED.", 0, 0, kPrev},
    {"EXPORT_STACK.RUNTIME_SUPPLIED.", 0, 0, kPage},
    {"EXPORT_ALREADY_AT_TOP.RUNTIME_SUPPLIED.", 0, 0, kTop},
    {"EXPORT_ALREADY_AT_BOTTOM.RUNTIME_SUPPLIED.", 0, 0, kBottom},
    {"EXPORT_SELECTED.THING.", 0, 0, kHand},
    {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kSystem},
    {"EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.", 0, 0, kSelected},
    {"GRP_EXPORT_SEL.RUNTIME_SUPPLIED.", kRows, 0, kMarks},
    {"GRP_EXPORT.THING.", kRows, 0, kRowColumns},
    {"GRP_EXPORT_STACK.WORK_SET.", kPages, 0, kStack},
    {nullptr, 0, 0, nullptr}};
const GroupRow kGroups[] = {
    {"GRP_EXPORT", (10u << 16) | 8u, 1, OUT(count), IN(count), 0},
    {"GRP_EXPORT_STACK", (11u << 16) | 10u, 1, OUT(stack_count), IN(stack_count), 0},
    {"*", 11u << 16, 0, 0, 0, 0}};
#undef IN
#undef OUT
const ViewNameRow kViews = {"TEST_STACK_LIST", kViewRows, kGroups, 1};

const char* const kBodyViews[] = {"EXPORT.SYSTEM_VARIABLE.", "EXPORT_SELECTED.THING.",
                                  "EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.",
                                  "EXPORT_STACK.RUNTIME_SUPPLIED.", nullptr};
const StackList kList = {&kViews,  kBodyViews, "EXPORT.SYSTEM_VARIABLE.", "GRP_EXPORT_STACK",
                         "GRP_EXPORT.THING.", "EXPORT_SELECTED.THING.", kRows, kLink,
                         "TEST_DELETE_DIALOG", false};
const UnitId kOwn = {"0000000077", "TEST_STACK_LIST_EVENT"};

// The window services, recorded.
std::vector<std::string> opened;
void Open(void*, const char* name) { opened.push_back(name); }
WindowPort window_port = {nullptr, Open, nullptr, nullptr, nullptr};

class StackListTest : public ::testing::Test {
 protected:
  void SetUp() override {
    opened.clear();
    std::memset(&in_, 0, sizeof in_);
    std::memset(&out_, 0, sizeof out_);
    ResetRunContext(&rc_, area_);
    const char* names[] = {"", "A", "B", "C", "D", "E"};
    for (int r = 1; r <= kRows; ++r) {
      TextMove(out_.SELECT_CHAR.value[r], "", 2);
      PutNumber(out_.IS_NUMBER.value[r], 10 * r);
      TextMove(out_.ORG_ID.value[r], r == 4 ? "ORG2" : "ZZZZZZZZ", 9);
      TextMove(out_.SHORT_NAME.value[r], names[r], 7);
    }
    out_.count = kRows;
  }

  StackListView View() {
    return {&out_,
            out_.SELECT_CHAR.value,
            &out_.count,
            out_.IS_NUMBER.value,
            out_.ORG_ID.value,
            out_.HAND_IS_NUMBER.value,
            out_.HAND_ORG_ID.value,
            out_.SUBSCRIPT.value,
            out_.PAGE.value,
            out_.NEXT_ENABLED.value,
            out_.PREV_ENABLED.value,
            out_.AT_TOP.value,
            out_.AT_BOTTOM.value};
  }
  // A person's click on row r: the window marks it and clears the others.
  void Mark(int r) {
    for (int k = 1; k <= kRows; ++k) TextMove(out_.SELECT_CHAR.value[k], "", 2);
    if (r > 0) RowStateSet(nullptr, nullptr, &rc_, out_.SELECT_CHAR.value[r], kStateCurrent);
  }
  void Click() { StackClick(kList, nullptr, &window_port, &rc_, View(), "Y", ""); }
  int Subscript() { return static_cast<int>(GetNumber(out_.SUBSCRIPT.value)); }
  std::string Hand() { return out_.HAND_SHORT_NAME.value; }
  std::vector<int> MarkedRows() {
    std::vector<int> rows;
    for (int r = 0; r <= kRows; ++r)
      if (RowStateTest(nullptr, nullptr, &rc_, out_.SELECT_CHAR.value[r][0], kStateMarked))
        rows.push_back(r);
    return rows;
  }
  // Runs `f` as an event action's statements do: a UnitAbort ends them.
  template <typename F>
  bool Aborts(F&& f) {
    try {
      f();
    } catch (const UnitAbort&) {
      return true;
    }
    return false;
  }

  ListImport in_;
  ListExport out_;
  RunContext rc_;
  char area_[kDatabaseAreaSize];
};

TEST_F(StackListTest, AClickSelectsTheMarkedRowAndTakesItInHand) {
  Mark(3);
  Click();
  EXPECT_EQ(3, Subscript());
  EXPECT_EQ("C     ", Hand());
  EXPECT_EQ(30, GetNumber(out_.HAND_IS_NUMBER.value));
  EXPECT_EQ(EXIT_NONE, rc_.exit_state);
  EXPECT_EQ('N', rc_.message_kind);
  // The enabled flags come from the import view.
  EXPECT_STREQ("Y", out_.NEXT_ENABLED.value);
  EXPECT_STREQ(" ", out_.PREV_ENABLED.value);
  EXPECT_EQ((std::vector<int>{3}), MarkedRows());
}

TEST_F(StackListTest, AClickOnTheSelectedRowReleasesItAndAnotherRowTakesOver) {
  Mark(3);
  Click();
  Mark(3);
  Click();
  EXPECT_EQ(0, Subscript());
  EXPECT_TRUE(MarkedRows().empty());
  Mark(2);
  Click();
  Mark(5);
  Click();
  EXPECT_EQ(5, Subscript());
  EXPECT_EQ("E     ", Hand());
}

TEST_F(StackListTest, AClickWithNoRowMarkedLeavesRowZeroAlone) {
  TextMove(out_.SHORT_NAME.value[0], "STALE", 7);
  TextMove(out_.HAND_SHORT_NAME.value, "KEPT", 7);
  PutNumber(out_.SUBSCRIPT.value, 2);
  Mark(0);
  Click();
  EXPECT_EQ(0, Subscript());
  EXPECT_EQ("KEPT  ", Hand());
}

TEST_F(StackListTest, ADoubleClickTakesTheRowUnmarksItAndLinks) {
  Mark(2);
  Click();
  SetCommand(&rc_, "LIST");
  StackDoubleClick(kList, nullptr, &window_port, &rc_, View());
  EXPECT_EQ("B     ", Hand());
  EXPECT_TRUE(MarkedRows().empty());  // never left selected
  EXPECT_EQ(2, Subscript());          // and the subscript stands
  EXPECT_STREQ("CHANGE", rc_.command);
  EXPECT_EQ(kLink, rc_.exit_state);
  // With no row marked nothing happens.
  SetCommand(&rc_, "LIST");
  StackDoubleClick(kList, nullptr, &window_port, &rc_, View());
  EXPECT_STREQ("LIST", rc_.command);
  EXPECT_EQ(EXIT_NONE, rc_.exit_state);
}

TEST_F(StackListTest, AddBlanksTheRowInHandChangeKeepsItAndBothLink) {
  Mark(4);
  Click();
  StackChange(kList, &rc_);
  EXPECT_STREQ("CHANGE", rc_.command);
  EXPECT_EQ(kLink, rc_.exit_state);
  EXPECT_EQ("D     ", Hand());
  StackAdd(kList, &rc_, View());
  EXPECT_STREQ("ADD", rc_.command);
  EXPECT_EQ(kLink, rc_.exit_state);
  EXPECT_EQ("      ", Hand());
  EXPECT_STREQ("        ", out_.HAND_ORG_ID.value);
  EXPECT_EQ(0, GetNumber(out_.HAND_IS_NUMBER.value));
  StackClose(&rc_);
  EXPECT_EQ(EXIT_CANCEL, rc_.exit_state);
}

TEST_F(StackListTest, DeleteTakesTheSelectedRowAndOpensTheDialog) {
  Mark(4);
  Click();
  StackDeleteButton(kList, nullptr, &window_port, &rc_, View());
  EXPECT_EQ("D     ", Hand());
  EXPECT_STREQ("ORG2    ", out_.HAND_ORG_ID.value);
  EXPECT_EQ((std::vector<std::string>{"TEST_DELETE_DIALOG"}), opened);
}

TEST_F(StackListTest, DeleteWithNoRowSelectedAbortsByTheSubscriptCheck) {
  TextMove(out_.HAND_SHORT_NAME.value, "KEPT", 7);
  EXPECT_TRUE(Aborts([&] { StackDeleteButton(kList, nullptr, &window_port, &rc_, View()); }));
  EXPECT_EQ('Y', rc_.subscript_fault);
  EXPECT_TRUE(FailureTravels(rc_));
  EXPECT_TRUE(opened.empty());
  EXPECT_EQ("KEPT  ", Hand());
}

TEST_F(StackListTest, OpenStartsOnPageOneAndSetsOnlyNextByTheBottomFlag) {
  TextMove(in_.USER_ID_CODE, "JSMITH", 9);
  TextMove(in_.CURRENT_ORG_ID, "ORG1", 9);
  TextMove(out_.AT_TOP.value, "Y", 2);
  int reads = 0;
  StackOpen(kList, &rc_, kOwn, &in_, View(), [&] {
    ++reads;
    // The read sees page 1, blank flags and "LIST".
    EXPECT_EQ(1, GetNumber(out_.PAGE.value));
    EXPECT_TRUE(TextIsBlank(out_.AT_TOP.value));
    EXPECT_STREQ("LIST", rc_.command);
    TextMove(out_.AT_BOTTOM.value, "Y", 2);
    TextMove(out_.AT_TOP.value, "Y", 2);
  });
  EXPECT_EQ(1, reads);
  EXPECT_STREQ("JSMITH  ", out_.USER_ID_CODE.value);
  EXPECT_STREQ("ORG1    ", out_.CURRENT_ORG_ID.value);
  EXPECT_STREQ(" ", out_.NEXT_ENABLED.value);
  EXPECT_EQ('\0', out_.PREV_ENABLED.value[0]);  // untouched on this list
  EXPECT_STREQ("TEST_STACK_LIST_EVENT", rc_.unit_name);
}

TEST_F(StackListTest, RefreshSeeksTheRowInHandAndShowsIt) {
  PutNumber(in_.PAGE, 2.7);
  PutNumber(out_.HAND_IS_NUMBER.value, 40.0000001);
  TextMove(out_.HAND_ORG_ID.value, "ORG2", 9);
  TextMove(out_.AT_TOP.value, "Y", 2);
  StackRefresh(kList, nullptr, &window_port, &rc_, kOwn, View(), in_.PAGE, [&] {
    EXPECT_EQ(2, GetNumber(out_.PAGE.value));  // the page through number fit
  });
  EXPECT_EQ(4, Subscript());
  EXPECT_EQ(kRowCurrent, out_.SELECT_CHAR.value[4][0]);
  EXPECT_STREQ(" ", out_.PREV_ENABLED.value);
  EXPECT_STREQ("Y", out_.NEXT_ENABLED.value);
}

TEST_F(StackListTest, ARefreshThatFindsNothingMarksRowZero) {
  PutNumber(out_.HAND_IS_NUMBER.value, 40);
  TextMove(out_.HAND_ORG_ID.value, "ZZZZZZZZ", 9);  // row 4 is of ORG2
  PutNumber(out_.SUBSCRIPT.value, 3);
  StackRefresh(kList, nullptr, &window_port, &rc_, kOwn, View(), in_.PAGE, [] {});
  EXPECT_EQ(0, Subscript());
  EXPECT_EQ((std::vector<int>{0}), MarkedRows());
}

TEST_F(StackListTest, TheBodyCopiesWhatItShouldAndRefreshesOnReturnOnly) {
  TextMove(in_.USER_ID_CODE, "JSMITH", 9);
  TextMove(in_.HAND_SHORT_NAME, "Z", 7);
  PutNumber(in_.SUBSCRIPT, 2);
  PutNumber(in_.PAGE, 1);
  TextMove(in_.NEXT_ENABLED, "Y", 2);
  in_.stack_count = 2;
  TextMove(in_.FIRST_ROW.value[2], "M", 7);
  TextMove(in_.LAST_ROW.value[2], "P", 7);
  in_.count = 1;
  TextMove(in_.SELECT_CHAR.value[1], "C", 2);
  std::memset(&out_, 0, sizeof out_);
  int reads = 0;
  SetCommand(&rc_, "LIST");
  StackBody(kList, nullptr, &window_port, &rc_, kOwn, &in_, View(), in_.PAGE, [&] { ++reads; });
  EXPECT_EQ(0, reads);
  EXPECT_STREQ("JSMITH  ", out_.USER_ID_CODE.value);
  EXPECT_STREQ("Z     ", out_.HAND_SHORT_NAME.value);
  EXPECT_EQ(2, Subscript());
  EXPECT_EQ(2, out_.stack_count);
  EXPECT_STREQ("M     ", out_.FIRST_ROW.value[2]);
  EXPECT_STREQ("P     ", out_.LAST_ROW.value[2]);
  // The rows of the list and the enabled flags are not copied.
  EXPECT_EQ(0, out_.count);
  EXPECT_EQ('\0', out_.SELECT_CHAR.value[1][0]);
  EXPECT_EQ('\0', out_.NEXT_ENABLED.value[0]);
  EXPECT_EQ(EXIT_NONE, rc_.exit_state);
  SetCommand(&rc_, "RETURN");
  StackBody(kList, nullptr, &window_port, &rc_, kOwn, &in_, View(), in_.PAGE, [&] { ++reads; });
  EXPECT_EQ(1, reads);
}

TEST_F(StackListTest, AFailedReadStopsTheRefreshBeforeItTouchesTheRows) {
  PutNumber(out_.HAND_IS_NUMBER.value, 20);
  TextMove(out_.HAND_ORG_ID.value, "ZZZZZZZZ", 9);
  EXPECT_TRUE(Aborts([&] {
    StackRefresh(kList, nullptr, &window_port, &rc_, kOwn, View(), in_.PAGE,
                 [&] { std::memcpy(rc_.status, "FE", 3); });
  }));
  EXPECT_EQ(0, Subscript());
  EXPECT_TRUE(MarkedRows().empty());
}

// A list without paging: no stack, no page, no flags. The steps leave out
// what it does not have and touch nothing in their place.
TEST_F(StackListTest, AListWithoutPagingHasNoPageAndNoFlags) {
  const StackList plain = {&kViews,  kBodyViews, "EXPORT.SYSTEM_VARIABLE.", nullptr,
                           "GRP_EXPORT.THING.", "EXPORT_SELECTED.THING.", kRows, kLink,
                           "TEST_DELETE_DIALOG", false};
  StackListView view = View();
  view.page = nullptr;
  view.next_enabled = view.prev_enabled = view.at_top = view.at_bottom = nullptr;
  TextMove(in_.USER_ID_CODE, "JSMITH", 9);
  int reads = 0;
  StackOpen(plain, &rc_, kOwn, &in_, view, [&] { ++reads; });
  EXPECT_EQ(1, reads);
  EXPECT_STREQ("JSMITH  ", out_.USER_ID_CODE.value);
  EXPECT_STREQ("LIST", rc_.command);
  Mark(2);
  StackClick(plain, nullptr, &window_port, &rc_, view, nullptr, nullptr);
  EXPECT_EQ(2, Subscript());
  EXPECT_EQ("B     ", Hand());
  // The body copies no stack; the refresh seeks the row in hand.
  in_.stack_count = 2;
  PutNumber(in_.HAND_IS_NUMBER, 30);
  TextMove(in_.HAND_ORG_ID, "ZZZZZZZZ", 9);
  SetCommand(&rc_, "RETURN");
  StackBody(plain, nullptr, &window_port, &rc_, kOwn, &in_, view, nullptr, [&] { ++reads; });
  EXPECT_EQ(2, reads);
  EXPECT_EQ(0, out_.stack_count);
  EXPECT_EQ(3, Subscript());
  EXPECT_EQ('\0', out_.PAGE.value[0]);
  EXPECT_EQ('\0', out_.NEXT_ENABLED.value[0]);
  EXPECT_EQ('\0', out_.PREV_ENABLED.value[0]);
  EXPECT_EQ('\0', out_.AT_TOP.value[0]);
  EXPECT_EQ('\0', out_.AT_BOTTOM.value[0]);
}

}  // namespace
}  // namespace lk::patterns
