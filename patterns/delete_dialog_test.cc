// The delete confirmation over a list of five rows: the row dropped in
// place, or kept and unmarked, by the dialog's rule; a refusal before the
// remove; a fatal remove; Cancel.
#include "patterns/delete_dialog.h"

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
constexpr u32 kGone = 0x11330001;

struct ListExport {
  std::uint32_t reserved;
  Shown<8> SUBSCRIPT;
  std::int32_t count;
  ShownColumn<kRows, 2> SELECT_CHAR;
  ShownColumn<kRows, 7> SHORT_NAME;
};

const AttributeType kFlag = {2, "S ", 1, "", nullptr, 0, {0, 0}};
const AttributeType kNumber = {13, "B ", 12, "", nullptr, 0, {0, 0}};
const AttributeType kShort = {7, "S ", 6, "", nullptr, 0, {0, 0}};
const AttributeRow kSelected[] = {
    {"SUBSCRIPT", 8, 0, offsetof(ListExport, SUBSCRIPT.value), &kNumber},
    {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kMarks[] = {
    {"SELECT_CHAR", 2, 0, offsetof(ListExport, SELECT_CHAR.value), &kFlag},
    {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kNames[] = {
    {"SHORT_NAME", 7, 0, offsetof(ListExport, SHORT_NAME.value), &kShort},
    {nullptr, 0, 0, 0, nullptr}};
const ViewRow kViewRows[] = {{"EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.", 0, 0, kSelected},
                             {"GRP_EXPORT_SEL.RUNTIME_SUPPLIED.", kRows, 0, kMarks},
                             {"GRP_EXPORT.THING.", kRows, 0, kNames},
                             {nullptr, 0, 0, nullptr}};
const GroupRow kGroups[] = {{"GRP_EXPORT", (3u << 16) | 1u, 1, offsetof(ListExport, count), 0, 0},
                            {"*", 3u << 16, 0, 0, 0, 0}};
const ViewNameRow kViews = {"TEST_DELETE", kViewRows, kGroups, 1};

const DeleteDialog kBySubscriptOnExitNone = {"TEST_DIALOG", &kViews, "GRP_EXPORT", kRows,
                                             DeleteRowFrom::kSelectedSubscript,
                                             DropRule::kOnExitNone};
const DeleteDialog kByMarkAlways = {"TEST_DIALOG", &kViews, "GRP_EXPORT", kRows,
                                    DeleteRowFrom::kFirstMarked, DropRule::kAlways};
const UnitId kOwn = {"0000000088", "TEST_DIALOG_PB_DELETE_CLICK"};

std::vector<std::string> closed;
void Close(void*, const char* name) { closed.push_back(name); }
WindowPort window_port = {nullptr, nullptr, Close, nullptr, nullptr};

class DeleteDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    closed.clear();
    std::memset(&view_, 0, sizeof view_);
    ResetRunContext(&rc_, area_);
    const char* names[] = {"", "A", "B", "C", "D", "E"};
    for (int r = 1; r <= kRows; ++r) {
      TextMove(view_.SELECT_CHAR.value[r], "", 2);
      TextMove(view_.SHORT_NAME.value[r], names[r], 7);
      std::memcpy(view_.SHORT_NAME.display[r], r == 4 ? kDisplayError : kDisplayNormal, 6);
    }
    view_.count = kRows;
  }
  DeleteList List() {
    return {&view_, view_.SELECT_CHAR.value, &view_.count, view_.SUBSCRIPT.value};
  }
  void Select(int r) {
    RowStateSet(nullptr, nullptr, &rc_, view_.SELECT_CHAR.value[r], kStateCurrent);
    PutNumber(view_.SUBSCRIPT.value, r);
  }
  std::string Names() {
    std::string s;
    for (int r = 1; r <= view_.count; ++r) s += view_.SHORT_NAME.value[r][0];
    return s;
  }
  std::vector<int> Marked() {
    std::vector<int> rows;
    for (int r = 1; r <= view_.count; ++r)
      if (RowStateTest(nullptr, nullptr, &rc_, view_.SELECT_CHAR.value[r][0], kStateMarked))
        rows.push_back(r);
    return rows;
  }
  int Subscript() { return static_cast<int>(GetNumber(view_.SUBSCRIPT.value)); }

  ListExport view_;
  RunContext rc_;
  char area_[kDatabaseAreaSize];
};

TEST_F(DeleteDialogTest, RemovedRowIsDroppedInPlaceWithItsNeighboursMarks) {
  Select(3);
  RowStateSet(nullptr, nullptr, &rc_, view_.SELECT_CHAR.value[5], kStateMarked);
  SetExit(&rc_, 0x1234, "left over", 'E');
  int removes = 0;
  DeleteConfirmed(kBySubscriptOnExitNone, nullptr, &window_port, &rc_, kOwn, List(), [&] {
    ++removes;
    EXPECT_EQ(EXIT_NONE, rc_.exit_state);  // set ahead of the remove
  });
  EXPECT_EQ(1, removes);
  EXPECT_EQ("ABDE", Names());
  EXPECT_EQ(4, view_.count);
  EXPECT_EQ(std::string(kDisplayError, 6), std::string(view_.SHORT_NAME.display[3], 6));
  EXPECT_EQ((std::vector<int>{4}), Marked());  // row 5's mark moved with it
  EXPECT_EQ(0, Subscript());
  EXPECT_EQ((std::vector<std::string>{"TEST_DIALOG"}), closed);
  EXPECT_STREQ("TEST_DIALOG_PB_DELETE_CLICK", rc_.unit_name);
}

TEST_F(DeleteDialogTest, ARowTheRemoveDidNotFindStaysUnmarkedWhereTheRuleSaysSo) {
  Select(2);
  DeleteConfirmed(kBySubscriptOnExitNone, nullptr, &window_port, &rc_, kOwn, List(),
                  [&] { SetExit(&rc_, kGone, "Thing not found.", 'E'); });
  EXPECT_EQ("ABCDE", Names());
  EXPECT_TRUE(Marked().empty());
  EXPECT_EQ(0, Subscript());
  EXPECT_EQ(kGone, rc_.exit_state);
  EXPECT_EQ(std::string("Thing not found."), std::string(rc_.exit_message).substr(0, 16));
  EXPECT_EQ((std::vector<std::string>{"TEST_DIALOG"}), closed);
}

TEST_F(DeleteDialogTest, TheOtherRuleDropsTheFirstMarkedRowWhateverTheExitState) {
  Select(2);
  PutNumber(view_.SUBSCRIPT.value, 4);  // not what this dialog looks at
  DeleteConfirmed(kByMarkAlways, nullptr, &window_port, &rc_, kOwn, List(),
                  [&] { SetExit(&rc_, kGone, "Thing not found.", 'E'); });
  EXPECT_EQ("ACDE", Names());
  EXPECT_EQ(0, Subscript());
  EXPECT_EQ(kGone, rc_.exit_state);
}

TEST_F(DeleteDialogTest, DeleteOfTheOnlyRowLeavesAnEmptyGroup) {
  view_.count = 1;
  Select(1);
  DeleteConfirmed(kByMarkAlways, nullptr, &window_port, &rc_, kOwn, List(), [] {});
  EXPECT_EQ(0, view_.count);
  EXPECT_EQ(0, Subscript());
}

TEST_F(DeleteDialogTest, ARefusalBeforeTheRemoveLeavesListAndDialogAsTheyAre) {
  Select(3);
  DeleteConfirmed(kByMarkAlways, nullptr, &window_port, &rc_, kOwn, List(), [&] {
    SetExit(&rc_, kGone, "Thing is still referred to.", 'E');
    return false;
  });
  EXPECT_EQ("ABCDE", Names());
  EXPECT_EQ((std::vector<int>{3}), Marked());
  EXPECT_EQ(3, Subscript());
  EXPECT_TRUE(closed.empty());
  EXPECT_EQ(kGone, rc_.exit_state);
}

TEST_F(DeleteDialogTest, AFatalRemoveLeavesByTheAbortFrameBeforeAnyStep) {
  Select(3);
  bool aborted = false;
  try {
    DeleteConfirmed(kBySubscriptOnExitNone, nullptr, &window_port, &rc_, kOwn, List(), [&] {
      std::memcpy(rc_.status, "FE", 3);
      rc_.run_mode = 'Y';
    });
  } catch (const UnitAbort&) {
    aborted = true;
  }
  EXPECT_TRUE(aborted);
  EXPECT_EQ("ABCDE", Names());
  EXPECT_EQ(3, Subscript());
  EXPECT_TRUE(closed.empty());
}

TEST_F(DeleteDialogTest, ASubscriptBeyondTheGroupIsRefusedByTheCheck) {
  PutNumber(view_.SUBSCRIPT.value, kRows + 1);
  view_.count = kRows;
  bool aborted = false;
  try {
    DeleteConfirmed(kBySubscriptOnExitNone, nullptr, &window_port, &rc_, kOwn, List(),
                    [&] { SetExit(&rc_, kGone, "Thing not found.", 'E'); });
  } catch (const UnitAbort&) {
    aborted = true;
  }
  EXPECT_TRUE(aborted);
  EXPECT_EQ('Y', rc_.subscript_fault);
}

TEST_F(DeleteDialogTest, CancelUnmarksTheRowAndClosesTheDialog) {
  Select(4);
  SetExit(&rc_, kGone, "old", 'E');
  DeleteCancelled(kBySubscriptOnExitNone, nullptr, &window_port, &rc_, List());
  EXPECT_EQ("ABCDE", Names());
  EXPECT_TRUE(Marked().empty());
  EXPECT_EQ(0, Subscript());
  EXPECT_EQ(EXIT_NONE, rc_.exit_state);
  EXPECT_EQ((std::vector<std::string>{"TEST_DIALOG"}), closed);
  // With nothing selected, Cancel only closes.
  closed.clear();
  DeleteCancelled(kByMarkAlways, nullptr, &window_port, &rc_, List());
  EXPECT_EQ((std::vector<std::string>{"TEST_DIALOG"}), closed);
}

}  // namespace
}  // namespace lk::patterns
