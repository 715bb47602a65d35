// The lab remark module through a session over liblkbase.so, on SQLite and
// on PostgreSQL: the list RT50, its delete dialog RT50A and the data entry
// window RT51, reached from the menu and driven by the events a person's
// clicks and typing send. After each story the table is read back directly,
// so that the database holds what the windows say and nothing more.
#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "modules/testing/module_fixture.h"

namespace watrix {
namespace {

using nlohmann::json;

constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kList[] = "RT50_LAB_REMARK_MAINT_LIST";
constexpr char kDelete[] = "RT50A_DLETE_LAB_REMARK_CONFIRMAT";
constexpr char kEntry[] = "RT51_LAB_REMARK_DATA_ENTRY";

constexpr char kHeader[] =
    "TSRLBRMK_IS_NUMBER,TSRLBRMK_ORG_ID,SHORT_NAME,DESCRIPTION_TEXT,D_USERID_CODE,"
    "D_LAST_UPDATE_TS\n";
constexpr char kCounterHeader[] =
    "TSMEISN_NAME,TSMEISN_ORG_ID,IS_NUMBER,D_USERID_CODE,D_LAST_UPDT_TS\n";
constexpr char kDuplicate[] = "E: A Lab Remark with this short name already exists.";
constexpr char kRequired[] = "E: An entry must be made in this field.";
constexpr char kInternal[] =
    "E: An internal system error has occurred.  Contact system administrator.";

// One row of the list as the screen shows it.
struct Shown {
  int row;
  std::string short_name;
  std::string description;
  bool selected;
};

class LabRemarkTest : public testing::ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    if (HasFatalFailure()) return;
    SetClock(2024, 1, 15, 9, 30, 0);
    Start("JSMITH", "ORG1");
  }

  void OpenList() { Ok(Click(kMenu, "Lab &Remark")); }
  void Add(const std::string& short_name, const std::string& description) {
    Ok(Click(kList, "&Add"));
    Ok(Click(kEntry, "Accep&t", {{"SHORT_NAME", short_name}, {"DESCRIPTION_TEXT", description}}));
  }

  std::vector<Shown> Rows() {
    std::vector<Shown> rows;
    for (const testing::ListRow& r : ListRows(kList))
      rows.push_back({r.row, r.cells.at(0), r.cells.at(1), r.selected});
    return rows;
  }
  std::vector<std::string> ShortNames() { return Column(kList, 0); }

  void LoadRemarks(const std::string& rows) { Load("TSRLBRMK", kHeader + rows); }
  void LoadCounters(const std::string& rows) { Load("TSMEISN", kCounterHeader + rows); }
  // The rows of TSRLBRMK after the header, in key order.
  std::string Remarks() { return Dump("TSRLBRMK").substr(sizeof kHeader - 1); }
};

// Three remarks of two organisations.
constexpr char kThree[] =
    "5,ORG2,B,Below detection limit,LOADER,2023-05-01 10:00:00\n"
    "7,ZZZZZZZZ,A,Estimated value,LOADER,2023-05-01 10:00:00\n"
    "9,ZZZZZZZZ,C,Contaminated,LOADER,2023-05-01 10:00:00\n";

// Five remarks, A to E.
constexpr char kFive[] =
    "1,ZZZZZZZZ,A,Alpha,LOADER,2023-05-01 10:00:00\n"
    "2,ZZZZZZZZ,B,Bravo,LOADER,2023-05-01 10:00:00\n"
    "3,ZZZZZZZZ,C,Charlie,LOADER,2023-05-01 10:00:00\n"
    "4,ZZZZZZZZ,D,Delta,LOADER,2023-05-01 10:00:00\n"
    "5,ZZZZZZZZ,E,Echo,LOADER,2023-05-01 10:00:00\n";

// ---- The list ----

TEST_P(LabRemarkTest, TheMenuOpensTheListOfEveryOrganisationsRemarks) {
  LoadRemarks(kThree);
  OpenList();
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  const json w = Screen()["windows"][0];
  EXPECT_EQ("RT50 Lab Remark Maintenance List", w["title"]);
  EXPECT_EQ(316, w["width"]);
  EXPECT_EQ(200, w["height"]);
  const json list = Control(kList, "ListBox1");
  EXPECT_EQ("Short Name", list["columns"][0]["heading"]);
  EXPECT_EQ("Description ", list["columns"][1]["heading"]);
  ASSERT_EQ(3u, Rows().size());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "C"}), ShortNames());
  EXPECT_EQ("Below detection limit", Rows()[1].description);
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ("", Message());
  // Add is offered with no row selected; Change and Delete are not.
  EXPECT_TRUE(Enabled(kList, "Button1"));
  EXPECT_FALSE(Enabled(kList, "Button2"));
  EXPECT_FALSE(Enabled(kList, "Button3"));
  EXPECT_STREQ("RT50_LAB_REMARK_MAINT_LIST_OPEN", session().run_context().unit_name);
}

TEST_P(LabRemarkTest, AnEmptyTableShowsAnEmptyList) {
  OpenList();
  EXPECT_TRUE(Rows().empty());
  EXPECT_TRUE(Enabled(kList, "Button1"));
  EXPECT_FALSE(Enabled(kList, "Button2"));
  EXPECT_FALSE(Enabled(kList, "Button3"));
}

TEST_P(LabRemarkTest, TheRangeRunsFromOneToSixZsInclusive) {
  LoadRemarks(
      "1,ZZZZZZZZ,zzzzzz,Six z,LOADER,2023-05-01 10:00:00\n"
      "2,ZZZZZZZZ,0A,Before one,LOADER,2023-05-01 10:00:00\n"
      "3,ZZZZZZZZ,1,One,LOADER,2023-05-01 10:00:00\n"
      "4,ZZZZZZZZ,~X,After z,LOADER,2023-05-01 10:00:00\n"
      "5,ZZZZZZZZ,a,Small a,LOADER,2023-05-01 10:00:00\n"
      "6,ZZZZZZZZ,Z9,Capital,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  // "0A" and "~X" are stored but sort outside "1".."zzzzzz".
  EXPECT_EQ((std::vector<std::string>{"1", "Z9", "a", "zzzzzz"}), ShortNames());
  EXPECT_NE(std::string::npos, Remarks().find(",0A,Before one,"));
}

TEST_P(LabRemarkTest, MoreThan2000RemarksStopAt2000WithoutAWord) {
  std::string rows;
  char line[128];
  for (int i = 1; i <= 2005; ++i) {
    std::snprintf(line, sizeof line, "%d,ZZZZZZZZ,R%05d,Remark %d,LOADER,2023-05-01 10:00:00\n",
                  i, i, i);
    rows += line;
  }
  LoadRemarks(rows);
  OpenList();
  const std::vector<Shown> shown = Rows();
  ASSERT_EQ(2000u, shown.size());
  EXPECT_EQ("R00001", shown.front().short_name);
  EXPECT_EQ("R02000", shown.back().short_name);
  EXPECT_EQ(2000, shown.back().row);
  EXPECT_EQ("", Message());
}

TEST_P(LabRemarkTest, AClickSelectsASecondClickReleasesAnotherRowTakesOver) {
  LoadRemarks(kFive);
  OpenList();
  Ok(ClickRow(kList, 2));
  EXPECT_EQ((std::vector<int>{2}), Selected(kList));
  EXPECT_FALSE(Enabled(kList, "Button1"));
  EXPECT_TRUE(Enabled(kList, "Button2"));
  EXPECT_TRUE(Enabled(kList, "Button3"));
  // The same row again: released.
  Ok(ClickRow(kList, 2));
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_TRUE(Enabled(kList, "Button1"));
  EXPECT_FALSE(Enabled(kList, "Button2"));
  // One row, then another: the selection moves.
  Ok(ClickRow(kList, 1));
  Ok(ClickRow(kList, 4));
  EXPECT_EQ((std::vector<int>{4}), Selected(kList));
  // The row in hand is the one selected last: Change opens it.
  Ok(Click(kList, "&Change"));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("D", Value(kEntry, "SHORT_NAME1"));
  EXPECT_EQ("Delta", Value(kEntry, "DESCRIPTION_TEXT1"));
}

TEST_P(LabRemarkTest, CloseReturnsToTheMenu) {
  OpenList();
  Ok(Click(kList, "C&lose"));
  EXPECT_EQ((std::vector<std::string>{kMenu}), Windows());
  EXPECT_FALSE(session().ended());
  // The menu goes on working.
  OpenList();
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
}

// ---- Adding ----

TEST_P(LabRemarkTest, AddTakesANewIsNumberAndStampsUserAndTime) {
  LoadRemarks(kThree);
  LoadCounters("TSRLBRMK,ORG1,41,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  Ok(Click(kList, "&Add"));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  const json w = Screen()["windows"][0];
  EXPECT_EQ("RT51 Lab Remark Data Entry", w["title"]);
  EXPECT_EQ(201, w["height"]);
  EXPECT_EQ("", Value(kEntry, "TSRLBRMK_IS_NUMBER1"));
  EXPECT_EQ("", Value(kEntry, "SHORT_NAME1"));
  EXPECT_EQ("", Value(kEntry, "DESCRIPTION_TEXT1"));
  EXPECT_EQ("IS Number", Control(kEntry, "TSRLBRMK_IS_NUMBER1")["label"]);
  EXPECT_EQ("Updated By", Control(kEntry, "D_USERID_CODE1")["label"]);
  EXPECT_EQ("Date of Last Update", Control(kEntry, "D_LAST_UPDATE_TIMESTAMP1")["label"]);
  EXPECT_EQ(true, Control(kEntry, "D_USERID_CODE1")["protected"]);

  SetClock(2024, 1, 16, 12, 13, 14);
  Ok(Click(kEntry, "Accep&t", {{"SHORT_NAME", "J"}, {"DESCRIPTION_TEXT", "Judged value"}}));
  // Back on the list, which is read again with the new row selected.
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "J"}), ShortNames());
  EXPECT_EQ((std::vector<int>{4}), Selected(kList));
  // The national organisation, the counter of the run's organisation.
  EXPECT_EQ(std::string(kThree) + "42,ZZZZZZZZ,J,Judged value,JSMITH,2024-01-16 12:13:14\n",
            Remarks());
  EXPECT_EQ(42, Counter("TSRLBRMK", "ORG1"));
}

TEST_P(LabRemarkTest, TheFirstRemarkEverGetsNumberOne) {
  OpenList();
  Add("1", "First");
  EXPECT_EQ("1,ZZZZZZZZ,1,First,JSMITH,2024-01-15 09:30:00\n", Remarks());
  EXPECT_EQ(1, Counter("TSRLBRMK", "ORG1"));
  EXPECT_EQ((std::vector<int>{1}), Selected(kList));
}

TEST_P(LabRemarkTest, RequiredFieldsAreMarkedOneAtATimeInWindowOrder) {
  OpenList();
  Ok(Click(kList, "&Add"));
  // Both blank: only the short name is marked.
  Ok(Click(kEntry, "Accep&t", {{"SHORT_NAME", ""}, {"DESCRIPTION_TEXT", " "}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("10    ", Control(kEntry, "SHORT_NAME1")["display"]);
  EXPECT_EQ(true, Control(kEntry, "SHORT_NAME1")["error"]);
  EXPECT_EQ(false, Control(kEntry, "DESCRIPTION_TEXT1")["error"]);
  // Corrected, the field keeps its mark until the next Accept tests it.
  Ok(Type(kEntry, "SHORT_NAME", {{"SHORT_NAME", "Q"}}));
  EXPECT_EQ("10    ", Control(kEntry, "SHORT_NAME1")["display"]);
  EXPECT_EQ("Q", Value(kEntry, "SHORT_NAME1"));
  // The short name given: now the description is marked, the short name
  // plain again.
  Ok(Click(kEntry, "Accep&t"));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("3a    ", Control(kEntry, "SHORT_NAME1")["display"]);
  EXPECT_EQ(true, Control(kEntry, "DESCRIPTION_TEXT1")["error"]);
  EXPECT_EQ("", Remarks());
  Ok(Click(kEntry, "Accep&t", {{"DESCRIPTION_TEXT", "Questionable"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("1,ZZZZZZZZ,Q,Questionable,JSMITH,2024-01-15 09:30:00\n", Remarks());
}

TEST_P(LabRemarkTest, AShortNameInUseInAnyOrganisationIsRefused) {
  LoadRemarks(kThree);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"SHORT_NAME", "B"}, {"DESCRIPTION_TEXT", "Another B"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kDuplicate, Message());
  // The window says so in words; the field is not marked.
  EXPECT_EQ(false, Control(kEntry, "SHORT_NAME1")["error"]);
  EXPECT_EQ("Another B", Value(kEntry, "DESCRIPTION_TEXT1"));
  EXPECT_EQ(kThree, Remarks());
  EXPECT_EQ(-1, Counter("TSRLBRMK", "ORG1"));
}

TEST_P(LabRemarkTest, ARefusedInsertIsTheInternalErrorAndRollsBackTheNumber) {
  // The counter hands out 11, then 12, which a national row holds already:
  // the insert meets the key, and the number taken goes back with the
  // rollback.
  LoadRemarks(kThree);
  LoadCounters("TSRLBRMK,ORG1,10,LOADER,2023-05-01 10:00:00\n");
  LoadRemarks("12,ZZZZZZZZ,H,Holder of twelve,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"SHORT_NAME", "K"}, {"DESCRIPTION_TEXT", "Kept"}}));
  // 11 is free: the first Add goes through.
  ASSERT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(11, Counter("TSRLBRMK", "ORG1"));
  Ok(ClickRow(kList, Selected(kList).at(0)));  // release the new row so that Add is offered
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"SHORT_NAME", "L"}, {"DESCRIPTION_TEXT", "Lost"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kInternal, Message());
  EXPECT_EQ(11, Counter("TSRLBRMK", "ORG1"));
  EXPECT_EQ(std::string::npos, Remarks().find(",L,Lost,"));
  EXPECT_NE(std::string::npos, Remarks().find("11,ZZZZZZZZ,K,Kept,JSMITH,"));
  EXPECT_EQ(5, Count("TSRLBRMK"));
  // Cancel after the failed Accept reloads the list as usual.
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "H", "K"}), ShortNames());
}

TEST_P(LabRemarkTest, AReturnByCancelReloadsTheList) {
  LoadRemarks(kThree);
  OpenList();
  Ok(Click(kList, "&Add"));
  // Someone else adds a remark meanwhile.
  LoadRemarks("20,ORG3,AA,Added elsewhere,OTHER,2023-05-01 10:00:00\n");
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ((std::vector<std::string>{"A", "AA", "B", "C"}), ShortNames());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_STREQ("RT50_LAB_REMARK_MAINT_LIST", session().run_context().unit_name);
}

// ---- Changing ----

TEST_P(LabRemarkTest, ADoubleClickOpensTheRowWhichTheListSelectsAgainOnReturn) {
  LoadRemarks(kFive);
  OpenList();
  Ok(DoubleClickRow(kList, 3));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("3", Value(kEntry, "TSRLBRMK_IS_NUMBER1"));
  EXPECT_EQ("C", Value(kEntry, "SHORT_NAME1"));
  EXPECT_EQ("Charlie", Value(kEntry, "DESCRIPTION_TEXT1"));
  EXPECT_EQ("LOADER", Value(kEntry, "D_USERID_CODE1"));
  EXPECT_EQ("2023-05-01-10.00.00.000000", Value(kEntry, "D_LAST_UPDATE_TIMESTAMP1"));
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ((std::vector<int>{3}), Selected(kList));
  EXPECT_EQ(kFive, Remarks());
}

TEST_P(LabRemarkTest, ChangeWithNothingChangedWritesNothing) {
  LoadRemarks(kFive);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Change"));
  SetClock(2024, 1, 20, 8, 0, 0);
  Ok(Click(kEntry, "Accep&t"));
  // A success: the window closes, and no stamp was written.
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ(kFive, Remarks());
  EXPECT_EQ((std::vector<int>{2}), Selected(kList));
}

TEST_P(LabRemarkTest, ChangingTheDescriptionAloneMeetsTheRowItselfAsADuplicate) {
  LoadRemarks(kFive);
  OpenList();
  Ok(DoubleClickRow(kList, 4));
  Ok(Click(kEntry, "Accep&t", {{"DESCRIPTION_TEXT", "Delta, corrected"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kDuplicate, Message());
  EXPECT_EQ(kFive, Remarks());
}

TEST_P(LabRemarkTest, ChangingTheShortNameWritesTheRowWithUserAndTime) {
  LoadRemarks(kFive);
  Start("MJONES", "ORG2");
  OpenList();
  Ok(DoubleClickRow(kList, 4));
  SetClock(2024, 2, 1, 17, 18, 19);
  Ok(Click(kEntry, "Accep&t", {{"SHORT_NAME", "DD"}, {"DESCRIPTION_TEXT", "Delta, renamed"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "DD", "E"}), ShortNames());
  EXPECT_EQ((std::vector<int>{4}), Selected(kList));
  std::string expected = kFive;
  const std::string old_row = "4,ZZZZZZZZ,D,Delta,LOADER,2023-05-01 10:00:00\n";
  expected.replace(expected.find(old_row), old_row.size(),
                   "4,ZZZZZZZZ,DD,\"Delta, renamed\",MJONES,2024-02-01 17:18:19\n");
  EXPECT_EQ(expected, Remarks());
  // No number is taken for a change.
  EXPECT_EQ(-1, Counter("TSRLBRMK", "ORG2"));
}

TEST_P(LabRemarkTest, ARowDeletedByOthersGivesTheInternalErrorAtAcceptInChangeMode) {
  LoadRemarks(kFive);
  OpenList();
  Ok(DoubleClickRow(kList, 2));
  Exec("DELETE FROM TSRLBRMK WHERE TSRLBRMK_IS_NUMBER = 2");
  Ok(Click(kEntry, "Accep&t", {{"SHORT_NAME", "BB"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kInternal, Message());
  EXPECT_EQ(std::string::npos, Remarks().find(",BB,"));
  // The list comes back without the row, and nothing is selected.
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{"A", "C", "D", "E"}), ShortNames());
  EXPECT_TRUE(Selected(kList).empty());
}

// ---- Deleting ----

TEST_P(LabRemarkTest, DeleteOfTheOnlyRowLeavesAnEmptyList) {
  LoadRemarks("9,ZZZZZZZZ,U,Unique,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList, kDelete}), Windows());
  const json dialog = Screen()["windows"][1];
  EXPECT_EQ("RT50A Delete Lab Remark", dialog["title"]);
  EXPECT_EQ("DD", dialog["kind"]);
  EXPECT_EQ(299, dialog["width"]);
  EXPECT_EQ(68, dialog["height"]);
  EXPECT_EQ("U", Value(kDelete, "SHORT_NAME1"));
  EXPECT_EQ("Unique", Value(kDelete, "DESCRIPTION_TEXT1"));
  EXPECT_EQ(true, Control(kDelete, "SHORT_NAME1")["protected"]);
  // The list below takes no events while the dialog is up.
  EXPECT_EQ(409, Click(kList, "&Add").status);
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_TRUE(Rows().empty());
  EXPECT_EQ("", Message());
  EXPECT_EQ("", Remarks());
  EXPECT_TRUE(Enabled(kList, "Button1"));
}

TEST_P(LabRemarkTest, DeleteOfRowThreeOfFiveMovesTheRowsBelowUp) {
  LoadRemarks(kFive);
  OpenList();
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  const std::vector<Shown> rows = Rows();
  ASSERT_EQ(4u, rows.size());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "D", "E"}), ShortNames());
  EXPECT_EQ("Delta", rows[2].description);
  EXPECT_EQ(3, rows[2].row);
  EXPECT_EQ(4, rows[3].row);
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(std::string::npos, Remarks().find(",C,Charlie,"));
  EXPECT_EQ(4, Count("TSRLBRMK"));
  // The rows moved up are the rows of the database: a click on row 3 takes D.
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Change"));
  EXPECT_EQ("4", Value(kEntry, "TSRLBRMK_IS_NUMBER1"));
  EXPECT_EQ("D", Value(kEntry, "SHORT_NAME1"));
}

TEST_P(LabRemarkTest, CancelInTheDeleteDialogClearsTheSelection) {
  LoadRemarks(kFive);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(5u, Rows().size());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_FALSE(Enabled(kList, "Button3"));
  EXPECT_EQ(kFive, Remarks());
}

TEST_P(LabRemarkTest, ARowDeletedByOthersStaysInTheListUnmarked) {
  LoadRemarks(kFive);
  OpenList();
  Ok(ClickRow(kList, 4));
  Ok(Click(kList, "&Delete"));
  Exec("DELETE FROM TSRLBRMK WHERE TSRLBRMK_IS_NUMBER = 4");
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("E: Lab Remark not found.", Message());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "D", "E"}), ShortNames());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(4, Count("TSRLBRMK"));
}

// ---- Bad input ----

TEST_P(LabRemarkTest, RequestsTheWindowsCannotTakeAreRefusedAndChangeNothing) {
  LoadRemarks(kFive);
  LoadCounters("TSRLBRMK,ORG1,100,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  const json list_before = Screen();
  struct Case {
    const char* window;
    const char* control;
    int status;
  } disabled[] = {
      {kList, "&Change", 400},
      {kList, "&Delete", 400},
      {kEntry, "Accep&t", 400},  // not open
  };
  for (const Case& c : disabled) {
    SCOPED_TRACE(c.control);
    EXPECT_EQ(c.status, Click(c.window, c.control).status);
    EXPECT_EQ(list_before, Screen());
  }
  // A row that the list does not show.
  EXPECT_EQ(400, ClickRow(kList, 6).status);

  Ok(Click(kList, "&Add"));
  const json entry_before = Screen();
  const json values[] = {
      {{"SHORT_NAME", "SEVENCH"}},                                       // 7 > 6
      {{"DESCRIPTION_TEXT", std::string(61, 'x')}},                      // 61 > 60
      {{"SHORT_NAME", "\xE4\xB8\xAD"}},                                  // not in 1252
      {{"DESCRIPTION_TEXT", "snow \xE2\x98\x83"}},                       // not in 1252
      {{"TSRLBRMK_IS_NUMBER", "12"}},                                    // read-only
      {{"NO_SUCH_FIELD", "x"}},
  };
  for (const json& v : values) {
    SCOPED_TRACE(v.dump());
    const Reply r = Click(kEntry, "Accep&t", v);
    EXPECT_EQ(400, r.status);
    EXPECT_TRUE(r.body.contains("error"));
    EXPECT_EQ(entry_before, Screen());
  }
  EXPECT_EQ(kFive, Remarks());
  // Text that fits goes through, also at the full width and in 1252.
  const std::string sixty(59, 'd');
  Ok(Click(kEntry, "Accep&t",
           {{"SHORT_NAME", "A\xC3\xA9"}, {"DESCRIPTION_TEXT", sixty + "\xE2\x82\xAC"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_NE(std::string::npos, Remarks().find(",A\xC3\xA9," + sixty + "\xE2\x82\xAC,"));
  EXPECT_EQ((std::vector<std::string>{"A", "A\xC3\xA9", "B", "C", "D", "E"}), ShortNames());
  EXPECT_EQ(sixty + "\xE2\x82\xAC", Rows()[1].description);
  // A short name that begins beyond "z" in the code page is stored, and the
  // range leaves it out of the list.
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t",
           {{"SHORT_NAME", "\xC3\xA9t\xC3\xA9"}, {"DESCRIPTION_TEXT", "Summer"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_NE(std::string::npos, Remarks().find(",\xC3\xA9t\xC3\xA9,Summer,"));
  EXPECT_EQ(6u, Rows().size());
}

TEST_P(LabRemarkTest, QuotesAndSqlWordsAreStoredAndShownAsTyped) {
  OpenList();
  const std::string description = "O'Brien said \"drop\"; DROP TABLE TSRLBRMK; --";
  Add("x'--", description);
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  ASSERT_EQ(1u, Rows().size());
  EXPECT_EQ("x'--", Rows()[0].short_name);
  EXPECT_EQ(description, Rows()[0].description);
  EXPECT_EQ(description,
            Read<std::string>("SELECT DESCRIPTION_TEXT FROM TSRLBRMK WHERE SHORT_NAME = 'x''--'"));
  // And it opens again as it was typed.
  Ok(DoubleClickRow(kList, 1));
  EXPECT_EQ("x'--", Value(kEntry, "SHORT_NAME1"));
  EXPECT_EQ(description, Value(kEntry, "DESCRIPTION_TEXT1"));
}

INSTANTIATE_TEST_SUITE_P(Backends, LabRemarkTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);

}  // namespace
}  // namespace watrix
