// The first-page list on a small list of five rows: the row in its forms and
// the dictionary built from them, the read of a page row by row, and the
// event actions that work on the views alone (selection, double click, Add,
// Change, Delete, Close), with the window services recorded.
#include "patterns/first_page_list.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/host_port.h"

namespace lk::patterns {
namespace {

constexpr int kRows = 5;

struct TestRow {
  char IS_NUMBER[8];
  char ORG_ID[9];
  char NAME[11];
  char NOTE[21];
  char STAMP[21];
};
struct TestShown {
  Shown<8> IS_NUMBER;
  Shown<9> ORG_ID;
  Shown<11> NAME;
  Shown<21> NOTE;
  Shown<21> STAMP;
};
struct TestGroup {
  std::int32_t count;
  ShownColumn<kRows, 2> SELECT_CHAR;
  ShownColumn<kRows, 8> IS_NUMBER;
  ShownColumn<kRows, 9> ORG_ID;
  ShownColumn<kRows, 11> NAME;
  ShownColumn<kRows, 21> NOTE;
  ShownColumn<kRows, 21> STAMP;
};
struct TestImportGroup {
  std::int32_t count;
  Column<kRows, 2> SELECT_CHAR;
  Column<kRows, 8> IS_NUMBER;
  Column<kRows, 9> ORG_ID;
  Column<kRows, 11> NAME;
  Column<kRows, 21> NOTE;
  Column<kRows, 21> STAMP;
};

constexpr AttributeType kNumber = {13, "B ", 12, "", nullptr, 0, {0, 0}};
constexpr AttributeType kOrg = {9, "S ", 8, "", nullptr, 0, {0, 0}};
constexpr AttributeType kName = {11, "S ", 10, "", nullptr, 0, {0, 0}};
constexpr AttributeType kNote = {21, "Y ", 20, "", nullptr, 0, {0, 0}};
constexpr AttributeType kStamp = {21, "Q ", 20, "", nullptr, 0, {0, 0}};

struct TestForms {
  using Row = TestRow;
  using Shown = TestShown;
  using Group = TestGroup;
  using ImportGroup = TestImportGroup;
  static constexpr int kRows = patterns::kRows;
  static constexpr RowAttribute kAttributes[] = {
      LK_ROW_ATTRIBUTE(TestForms, IS_NUMBER, kNumber, false),
      LK_ROW_ATTRIBUTE(TestForms, ORG_ID, kOrg, false),
      LK_ROW_ATTRIBUTE(TestForms, NAME, kName, true),
      LK_ROW_ATTRIBUTE(TestForms, NOTE, kNote, false),
      LK_ROW_ATTRIBUTE(TestForms, STAMP, kStamp, false),
  };
  static constexpr auto kIsNumber = &Shown::IS_NUMBER;
  static constexpr auto kOrgId = &Shown::ORG_ID;
  static constexpr auto kIsNumberColumn = &Group::IS_NUMBER;
  static constexpr auto kOrgIdColumn = &Group::ORG_ID;
};

using Export = FirstPageExport<TestForms>;
using Import = FirstPageImport<TestForms>;

constexpr u32 kLink = 0x11112222;
constexpr TimestampSlot kNoStamps[] = {{0, 0}};

struct TestList {
  using Forms = TestForms;
  static constexpr ViewShape kShape = {sizeof(Export), kNoStamps, kNoStamps};
  static constexpr u32 kLinkExit = kLink;
  static constexpr const char* kDeleteWindow = "RTX_DIALOG";
  static constexpr UnitId kBodyId = {"0000000100", "TEST_LIST"};
  static constexpr UnitId kReadId = {"0000000101", "READ_TEST_LIST"};
};
using List = FirstPageList<TestList>;

constexpr UnitId kActionId = {"0000000102", "TEST_LIST_ACTION"};

// The window services, recorded as "enable PREV", "open RTX_DIALOG" and so on.
std::vector<std::string> calls;
void Open(void*, const char* name) { calls.push_back(std::string("open ") + name); }
void Close(void*, const char* name) { calls.push_back(std::string("close ") + name); }
void Enable(void*, const char* keyword) { calls.push_back(std::string("enable ") + keyword); }
void Disable(void*, const char* keyword) { calls.push_back(std::string("disable ") + keyword); }
WindowPort port = {nullptr, Open, Close, Enable, Disable};

void PutRow(TestRow* row, double is_number, const char* org, const char* name, const char* note) {
  std::memset(row, 0, sizeof *row);
  PutNumber(row->IS_NUMBER, is_number);
  TextMove(row->ORG_ID, org, sizeof row->ORG_ID);
  TextMove(row->NAME, name, sizeof row->NAME);
  BoundedCopy(row->NOTE, note, sizeof row->NOTE);
  std::memcpy(row->STAMP, "20240513091954000000", 21);
}

std::string Trim(const char* text) {
  std::string s(text);
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s;
}

class FirstPageListTest : public ::testing::Test {
 protected:
  void SetUp() override {
    calls.clear();
    ResetRunContext(&rc_, area_);
    std::memset(&in_, 0, sizeof in_);
    std::memset(&out_, 0, sizeof out_);
    const char* names[] = {"ALPHA", "BRAVO", "CHARLIE"};
    for (int r = 1; r <= 3; ++r) {
      TestRow row;
      PutRow(&row, r * 10, "ORG1", names[r - 1], "note");
      RowToGroup(TestForms::kAttributes, &row, &out_.EXPORT_LIST, r);
    }
    out_.EXPORT_LIST.count = 3;
    TextMove(out_.EXPORT_NEXT.FLAG.value, "Y", 2);
    TextMove(out_.EXPORT_PREV.FLAG.value, "", 2);
  }

  template <typename Action>
  void Run(Action action) {
    rc_.run_mode = ' ';
    action(kActionId, nullptr, &port, &rc_, &in_, &out_);
  }
  int Subscript() {
    return static_cast<int>(GetNumber(out_.EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT.value));
  }
  void Mark(int r) { out_.EXPORT_LIST.SELECT_CHAR.value[r][0] = kRowCurrent; }
  char MarkOf(int r) { return out_.EXPORT_LIST.SELECT_CHAR.value[r][0]; }

  RunContext rc_;
  char area_[kDatabaseAreaSize];
  Import in_;
  Export out_;
};

// ---- The row in its forms ----

TEST_F(FirstPageListTest, RowAttributesKnowEveryForm) {
  const RowAttribute& name = TestForms::kAttributes[2];
  EXPECT_STREQ("NAME", name.name);
  EXPECT_EQ(11u, name.storage);
  EXPECT_EQ(offsetof(TestRow, NAME), name.row);
  EXPECT_EQ(offsetof(TestShown, NAME.value), name.shown);
  EXPECT_EQ(offsetof(TestGroup, NAME.value), name.column);
  EXPECT_EQ(offsetof(TestGroup, NAME.display), name.column_display);
  EXPECT_EQ(offsetof(TestImportGroup, NAME.value), name.import_column);
  EXPECT_TRUE(name.key);
  EXPECT_FALSE(TestForms::kAttributes[0].key);
}

TEST_F(FirstPageListTest, RowsMoveBetweenTheirFormsByType) {
  TestRow row, back;
  PutRow(&row, 42, "ORG9", "ECHO", "with blanks  ");
  TestShown shown;
  std::memset(&shown, 0, sizeof shown);
  std::memcpy(shown.NAME.display, "3a    ", 6);
  RowToShown(TestForms::kAttributes, &row, &shown);
  EXPECT_EQ(42, GetNumber(shown.IS_NUMBER.value));
  EXPECT_EQ("ECHO      ", std::string(shown.NAME.value));  // fixed text: blank padded
  EXPECT_EQ("with blanks  ", std::string(shown.NOTE.value));
  EXPECT_EQ("20240513091954000000", std::string(shown.STAMP.value));
  EXPECT_EQ("3a    ", std::string(shown.NAME.display, 6));  // display bytes stay
  ShownToRow(TestForms::kAttributes, &shown, &back);
  EXPECT_EQ(0, std::memcmp(&row.IS_NUMBER, &back.IS_NUMBER, 8));
  EXPECT_EQ(std::string(row.NAME), std::string(back.NAME));

  RowToGroup(TestForms::kAttributes, &row, &out_.EXPORT_LIST, 5);
  EXPECT_EQ(42, GetNumber(out_.EXPORT_LIST.IS_NUMBER.value[5]));
  EXPECT_EQ("ORG9    ", std::string(out_.EXPORT_LIST.ORG_ID.value[5]));
  TestShown from_group;
  std::memset(&from_group, 0, sizeof from_group);
  GroupToShown(TestForms::kAttributes, &out_.EXPORT_LIST, 2, &from_group);
  EXPECT_EQ("BRAVO", Trim(from_group.NAME.value));
  EXPECT_EQ(20, GetNumber(from_group.IS_NUMBER.value));
}

TEST_F(FirstPageListTest, BlankRowsAndTheirKeys) {
  TestShown shown;
  std::memset(&shown, 'x', sizeof shown);
  BlankShown(TestForms::kAttributes, &shown);
  EXPECT_EQ(0, GetNumber(shown.IS_NUMBER.value));
  EXPECT_EQ(std::string(10, ' '), std::string(shown.NAME.value));
  EXPECT_EQ("", std::string(shown.NOTE.value));
  EXPECT_EQ(kDefaultTimestamp, std::string(shown.STAMP.value));
  TestRow row;
  BlankRow(TestForms::kAttributes, &row);
  EXPECT_TRUE(KeyIsBlank(TestForms::kAttributes, &row));
  // Only the key counts: a number or a note does not make the key.
  PutNumber(row.IS_NUMBER, 7);
  BoundedCopy(row.NOTE, "something", sizeof row.NOTE);
  EXPECT_TRUE(KeyIsBlank(TestForms::kAttributes, &row));
  TextMove(row.NAME, "K", sizeof row.NAME);
  EXPECT_FALSE(KeyIsBlank(TestForms::kAttributes, &row));

  MarkKeys(TestForms::kAttributes, &shown, kDisplayError);
  EXPECT_EQ("10    ", std::string(shown.NAME.display, 6));
  EXPECT_NE("10    ", std::string(shown.IS_NUMBER.display, 6));
}

TEST_F(FirstPageListTest, DictionaryRowsLieWhereTheViewsHoldThem) {
  constexpr auto first = RowRows(TestForms::kAttributes, offsetof(Import, EXPORT_FIRST),
                                 offsetof(Export, EXPORT_FIRST));
  EXPECT_STREQ("NAME", first[2].attribute_name);
  EXPECT_EQ(offsetof(Import, EXPORT_FIRST.NAME), first[2].import_location);
  EXPECT_EQ(offsetof(Export, EXPORT_FIRST.NAME.value), first[2].export_location);
  EXPECT_EQ(&kName, first[2].type);
  EXPECT_EQ(nullptr, first[5].attribute_name);
  constexpr auto only_export = RowRows(TestForms::kAttributes, 0, 8);
  EXPECT_EQ(0u, only_export[0].import_location);

  constexpr auto columns = ColumnRows(TestForms::kAttributes, offsetof(Import, EXPORT_LIST),
                                      offsetof(Export, EXPORT_LIST));
  EXPECT_EQ(offsetof(Import, EXPORT_LIST.NOTE), columns[3].import_location);
  EXPECT_EQ(offsetof(Export, EXPORT_LIST.NOTE.value), columns[3].export_location);
  constexpr auto marks =
      SelectCharRows<TestForms>(offsetof(Import, EXPORT_LIST), offsetof(Export, EXPORT_LIST));
  EXPECT_EQ(offsetof(Export, EXPORT_LIST.SELECT_CHAR.value), marks[0].export_location);
  constexpr auto runtime = RuntimeSuppliedRows(offsetof(Import, EXPORT.RUNTIME_SUPPLIED),
                                               offsetof(Export, EXPORT.RUNTIME_SUPPLIED));
  EXPECT_EQ(offsetof(Export, EXPORT.RUNTIME_SUPPLIED.COMMAND.value), runtime[1].export_location);
  EXPECT_EQ(81u, runtime[1].storage);

  constexpr auto stamps = RowTimestamps(TestForms::kAttributes,
                                        {static_cast<u32>(offsetof(Export, EXPORT_FIRST)),
                                         static_cast<u32>(offsetof(Export, EXPORT_LAST))},
                                        false, offsetof(Export, EXPORT_LIST), kRows);
  EXPECT_EQ(offsetof(Export, EXPORT_FIRST.STAMP.value), stamps[0].location);
  EXPECT_EQ(0u, stamps[0].rows);
  EXPECT_EQ(offsetof(Export, EXPORT_LAST.STAMP.value), stamps[1].location);
  EXPECT_EQ(offsetof(Export, EXPORT_LIST.STAMP.value), stamps[2].location);
  EXPECT_EQ(static_cast<u32>(kRows), stamps[2].rows);
  EXPECT_EQ(0u, stamps[3].location);
}

// ---- The read of a page ----

class PageFillTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetRunContext(&rc_, area_);
    std::memset(&group_, 'x', sizeof group_);
    std::memset(&first_, 'x', sizeof first_);
    std::memset(&last_, 'x', sizeof last_);
    TextMove(next_.FLAG, "?", 2);
    TextMove(prev_.FLAG, "?", 2);
  }
  // Offers rows n1..n2 to a fill; answers how many it took.
  int Offer(PageFill<TestForms>& fill, int n1, int n2) {
    int taken = 0;
    for (int n = n1; n1 <= n2 ? n <= n2 : n >= n2; n += n1 <= n2 ? 1 : -1) {
      TestRow row;
      PutRow(&row, n, "ORG1", ("N" + std::to_string(n)).c_str(), "");
      if (!fill.Take(row)) break;
      ++taken;
    }
    return taken;
  }
  std::string Name(int r) { return Trim(group_.NAME.value[r]); }

  RunContext rc_;
  char area_[kDatabaseAreaSize];
  FlagView prev_in_{{'Y', 0}}, next_, prev_;
  TestRow first_, last_;
  TestGroup group_;
};

TEST_F(PageFillTest, OnwardsAFullPageAndAProofRowSetNext) {
  PageFill<TestForms> fill(&rc_, /*prev=*/false, prev_in_, &next_, &prev_, &first_, &last_,
                           &group_);
  EXPECT_EQ(5, Offer(fill, 1, 9));
  EXPECT_EQ(5, group_.count);
  EXPECT_EQ("N1", Name(1));
  EXPECT_EQ("N5", Name(5));
  EXPECT_EQ("Y", std::string(next_.FLAG));
  EXPECT_EQ("Y", std::string(prev_.FLAG));  // the import's, passed on
  EXPECT_EQ("N1", Trim(first_.NAME));
  EXPECT_EQ("N5", Trim(last_.NAME));
  EXPECT_EQ(0, group_.SELECT_CHAR.value[1][0]);
}

TEST_F(PageFillTest, OnwardsAPageOfExactlyTheMaximumLeavesNextBlank) {
  FlagView no_prev{{' ', 0}};
  PageFill<TestForms> fill(&rc_, false, no_prev, &next_, &prev_, &first_, &last_, &group_);
  EXPECT_EQ(5, Offer(fill, 1, 5));
  EXPECT_EQ(5, group_.count);
  EXPECT_EQ(" ", std::string(next_.FLAG));
  EXPECT_EQ(" ", std::string(prev_.FLAG));
}

TEST_F(PageFillTest, NothingReadLeavesAnEmptyPageAndBlankKeys) {
  PageFill<TestForms> fill(&rc_, false, prev_in_, &next_, &prev_, &first_, &last_, &group_);
  EXPECT_EQ(0, group_.count);
  EXPECT_TRUE(KeyIsBlank(TestForms::kAttributes, &first_));
  EXPECT_TRUE(KeyIsBlank(TestForms::kAttributes, &last_));
  EXPECT_EQ(" ", std::string(next_.FLAG));
}

TEST_F(PageFillTest, UpwardsFillsFromTheBottomAndLeavesBlankRowsAboveAShortRead) {
  FlagView no_prev{{' ', 0}};
  PageFill<TestForms> fill(&rc_, /*prev=*/true, no_prev, &next_, &prev_, &first_, &last_, &group_);
  // Descending from N3: three rows before the table's start.
  EXPECT_EQ(3, Offer(fill, 3, 1));
  EXPECT_EQ(5, group_.count);  // the count stays at the maximum
  EXPECT_EQ("", Name(1));
  EXPECT_EQ("", Name(2));
  EXPECT_EQ("N1", Name(3));
  EXPECT_EQ("N3", Name(5));
  EXPECT_EQ("N1", Trim(first_.NAME));
  EXPECT_EQ("N3", Trim(last_.NAME));
  EXPECT_EQ(" ", std::string(prev_.FLAG));
  EXPECT_EQ(" ", std::string(next_.FLAG));  // never set on this path
}

TEST_F(PageFillTest, UpwardsAProofRowBeyondAFullPageSetsPrev) {
  FlagView no_prev{{' ', 0}};
  PageFill<TestForms> fill(&rc_, true, no_prev, &next_, &prev_, &first_, &last_, &group_);
  EXPECT_EQ(5, Offer(fill, 9, 1));
  EXPECT_EQ("Y", std::string(prev_.FLAG));
  EXPECT_EQ("N5", Name(1));
  EXPECT_EQ("N9", Name(5));
  EXPECT_EQ("N5", Trim(first_.NAME));
  EXPECT_EQ("N9", Trim(last_.NAME));
}

// ---- Event actions on the views ----

TEST_F(FirstPageListTest, ClickSelectsTheMarkedRowAndStopsThePaging) {
  Mark(2);
  Run(List::Click);
  EXPECT_EQ(2, Subscript());
  EXPECT_EQ("BRAVO", Trim(out_.EXPORT_CURRENT.NAME.value));
  EXPECT_EQ(20, GetNumber(out_.EXPORT_CURRENT.IS_NUMBER.value));
  EXPECT_EQ(std::vector<std::string>({"disable PREV", "disable NEXT"}), calls);
  EXPECT_EQ(EXIT_NONE, rc_.exit_state);
  EXPECT_STREQ("TEST_LIST_ACTION", rc_.unit_name);
}

TEST_F(FirstPageListTest, ClickOnTheSelectedRowLetsItGoAndPagesByTheFlags) {
  Mark(2);
  Run(List::Click);
  calls.clear();
  Run(List::Click);  // the host marks the clicked row again
  EXPECT_EQ(0, Subscript());
  EXPECT_EQ(kRowNone, MarkOf(2));
  // PREV's flag is blank: only NEXT comes back.
  EXPECT_EQ(std::vector<std::string>({"enable NEXT"}), calls);
}

TEST_F(FirstPageListTest, ClickOnAnotherRowMovesTheSelection) {
  Mark(1);
  Run(List::Click);
  out_.EXPORT_LIST.SELECT_CHAR.value[1][0] = kRowNone;
  Mark(3);
  Run(List::Click);
  EXPECT_EQ(3, Subscript());
  EXPECT_EQ("CHARLIE", Trim(out_.EXPORT_CURRENT.NAME.value));
}

TEST_F(FirstPageListTest, ClickWithNothingMarkedAndNothingSelectedLeavesRowZeroAlone) {
  out_.EXPORT_LIST.SELECT_CHAR.value[0][0] = 'Q';
  Run(List::Click);
  EXPECT_EQ(0, Subscript());
  EXPECT_EQ('Q', MarkOf(0));
  EXPECT_EQ(std::vector<std::string>({"enable NEXT"}), calls);
}

TEST_F(FirstPageListTest, DoubleClickTakesTheRowUnmarksItAndLinks) {
  Mark(3);
  PutNumber(out_.EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT.value, 1);
  Run(List::DoubleClick);
  EXPECT_EQ("CHARLIE", Trim(out_.EXPORT_CURRENT.NAME.value));
  EXPECT_EQ(kRowNone, MarkOf(3));  // never left selected
  EXPECT_STREQ("CHANGE", rc_.command);
  EXPECT_EQ("CHANGE", Trim(out_.EXPORT.RUNTIME_SUPPLIED.COMMAND.value));
  EXPECT_EQ(kLink, rc_.exit_state);
  EXPECT_EQ(1, Subscript());  // SUBSCRIPT is not changed
  EXPECT_TRUE(calls.empty());
}

TEST_F(FirstPageListTest, DoubleClickWithoutAMarkedRowDoesNothing) {
  SetCommand(&rc_, "BEFORE");
  Run(List::DoubleClick);
  EXPECT_EQ(EXIT_NONE, rc_.exit_state);
  EXPECT_STREQ("BEFORE", rc_.command);
  EXPECT_TRUE(TextIsBlank(out_.EXPORT_CURRENT.NAME.value));
}

TEST_F(FirstPageListTest, AddBlanksTheRowInHandAndLinks) {
  GroupToShown(TestForms::kAttributes, &out_.EXPORT_LIST, 2, &out_.EXPORT_CURRENT);
  Run(List::Add);
  EXPECT_TRUE(TextIsBlank(out_.EXPORT_CURRENT.NAME.value));
  EXPECT_EQ(0, GetNumber(out_.EXPORT_CURRENT.IS_NUMBER.value));
  EXPECT_EQ(kDefaultTimestamp, std::string(out_.EXPORT_CURRENT.STAMP.value));
  EXPECT_STREQ("ADD", rc_.command);
  EXPECT_EQ("ADD", Trim(out_.EXPORT.RUNTIME_SUPPLIED.COMMAND.value));
  EXPECT_EQ(kLink, rc_.exit_state);
}

TEST_F(FirstPageListTest, ChangeKeepsTheRowInHandAndLinks) {
  GroupToShown(TestForms::kAttributes, &out_.EXPORT_LIST, 2, &out_.EXPORT_CURRENT);
  Run(List::Change);
  EXPECT_EQ("BRAVO", Trim(out_.EXPORT_CURRENT.NAME.value));
  EXPECT_STREQ("CHANGE", rc_.command);
  EXPECT_EQ(kLink, rc_.exit_state);
}

TEST_F(FirstPageListTest, DeleteOpensTheDialogAndCloseReturns) {
  rc_.run_mode = ' ';
  List::Delete(kActionId, nullptr, &port, &rc_, &in_, &out_);
  EXPECT_EQ(std::vector<std::string>({"open RTX_DIALOG"}), calls);
  EXPECT_EQ(EXIT_NONE, rc_.exit_state);
  Run(List::Close);
  EXPECT_EQ(EXIT_RETURN, rc_.exit_state);
  EXPECT_EQ('N', rc_.message_kind);
}

}  // namespace
}  // namespace lk::patterns
