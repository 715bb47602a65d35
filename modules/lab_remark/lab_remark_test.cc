// The lab remark module through a session over liblkbase.so, on SQLite and
// on PostgreSQL: the list RT50, its delete dialog RT50A and the data entry
// window RT51, reached from the menu and driven by the events a person's
// clicks and typing send. After each story the table is read back directly,
// so that the database holds what the windows say and nothing more.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "host/modules.h"
#include "host/screen_testing.h"
#include "host/session.h"
#include "store/csv.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/soci.h"
#include "store/store_port.h"
#include "store/test_database.h"

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

Modules* TheModules() {
  static Modules* modules = new Modules(
      std::getenv("WATRIX_BUILD") != nullptr ? std::getenv("WATRIX_BUILD") : ".", "LKBASE");
  return modules;
}

// One row of the list as the screen shows it.
struct Shown {
  int row;
  std::string short_name;
  std::string description;
  bool selected;
};

class LabRemarkTest : public lk::store::testing::BackendTest {
 protected:
  void SetUp() override {
    BackendTest::SetUp();
    if (HasFatalFailure()) return;
    lk::store::CreateSchema(connection());
    StartSession("JSMITH", "ORG1");
  }

  void StartSession(const std::string& user, const std::string& org) {
    std::string error;
    std::unique_ptr<lk::store::Database> db = lk::store::Database::Open(url(), &error);
    ASSERT_NE(nullptr, db) << error;
    session_ = std::make_unique<Session>(
        TheModules(), std::make_unique<lk::store::SociStore>(std::move(db)),
        [this](std::int32_t* date, std::int32_t* time, char* text) {
          *date = std::stoi(now_.substr(0, 8));
          *time = std::stoi(now_.substr(8));
          std::snprintf(text, 21, "%s000000", now_.c_str());
        });
    ASSERT_EQ("", session_->Start(user, org, StartRequest{}));
  }

  // ---- Events ----

  Reply Send(const std::string& window, const json& control, const std::string& event = "Click",
             const json& values = nullptr, int row = 0) {
    json e = {{"window", window}, {"control", control}, {"event", event}};
    if (!values.is_null()) e["values"] = values;
    if (row != 0) e["row"] = row;
    return session_->Event(e);
  }
  // Sends and expects the event to be taken.
  void Do(const std::string& window, const json& control, const std::string& event = "Click",
          const json& values = nullptr, int row = 0) {
    const Reply r = Send(window, control, event, values, row);
    ASSERT_EQ(200, r.status) << r.body.dump();
    ASSERT_TRUE(r.body["failure"].is_null()) << r.body["failure"].dump();
  }
  void OpenList() { Do(kMenu, "Lab &Remark"); }
  void ClickRow(int row) { Do(kList, "ListBox1", "Click", nullptr, row); }
  // A person's double click: Click, then DoubleClick.
  void DoubleClickRow(int row) {
    ClickRow(row);
    Do(kList, "ListBox1", "DoubleClick", nullptr, row);
  }
  void Add(const std::string& short_name, const std::string& description) {
    Do(kList, "&Add");
    Do(kEntry, "Accep&t", "Click",
       {{"SHORT_NAME", short_name}, {"DESCRIPTION_TEXT", description}});
  }

  // ---- The screen ----

  json Screen() { return session_->Screen(); }
  std::vector<std::string> Windows() { return testing::WindowNames(Screen()); }
  std::string Message() { return testing::MessageText(Screen()); }
  json Control(const std::string& name) {
    const json screen = Screen();
    for (const auto& c : screen["windows"].back()["controls"])
      if (c["name"] == name) return c;
    ADD_FAILURE() << "no control " << name;
    return nullptr;
  }
  bool Enabled(const std::string& name) { return Control(name)["enabled"].get<bool>(); }
  std::string Value(const std::string& name) { return Control(name)["value"]; }
  std::vector<Shown> Rows() {
    std::vector<Shown> rows;
    const json list = Control("ListBox1");
    for (const auto& r : list["rows"])
      rows.push_back({r["row"], r["cells"][0], r["cells"][1], r["selected"]});
    return rows;
  }
  std::vector<std::string> ShortNames() {
    std::vector<std::string> names;
    for (const Shown& s : Rows()) names.push_back(s.short_name);
    return names;
  }
  std::vector<int> Selected() {
    std::vector<int> rows;
    for (const Shown& s : Rows())
      if (s.selected) rows.push_back(s.row);
    return rows;
  }

  // ---- The database, directly ----

  void Load(const std::string& table, const std::string& header, const std::string& rows) {
    std::istringstream in(header + rows);
    std::string error;
    ASSERT_TRUE(lk::store::LoadCsv(connection(), table, in, 0, nullptr, nullptr, &error))
        << error;
  }
  void LoadRemarks(const std::string& rows) { Load("TSRLBRMK", kHeader, rows); }
  std::string Dump(const std::string& table) {
    std::ostringstream out;
    std::string error;
    EXPECT_TRUE(lk::store::DumpCsv(connection(), table, out, &error)) << error;
    return out.str();
  }
  // The rows of TSRLBRMK after the header, in key order.
  std::string Remarks() { return Dump("TSRLBRMK").substr(sizeof kHeader - 1); }
  std::size_t RemarkCount() {
    const std::string rows = Remarks();
    return static_cast<std::size_t>(std::count(rows.begin(), rows.end(), '\n'));
  }
  double Counter(const std::string& org) {
    double n = -1;
    sql() << "SELECT IS_NUMBER FROM TSMEISN WHERE TSMEISN_NAME = 'TSRLBRMK' AND "
             "TSMEISN_ORG_ID = :o",
        soci::use(org), soci::into(n);
    return n;
  }

  std::string now_ = "20240115093000";
  std::unique_ptr<Session> session_;
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
  const json list = Control("ListBox1");
  EXPECT_EQ("Short Name", list["columns"][0]["heading"]);
  EXPECT_EQ("Description", list["columns"][1]["heading"]);
  ASSERT_EQ(3u, Rows().size());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "C"}), ShortNames());
  EXPECT_EQ("Below detection limit", Rows()[1].description);
  EXPECT_TRUE(Selected().empty());
  EXPECT_EQ("", Message());
  // Add is offered with no row selected; Change and Delete are not.
  EXPECT_TRUE(Enabled("Button1"));
  EXPECT_FALSE(Enabled("Button2"));
  EXPECT_FALSE(Enabled("Button3"));
  EXPECT_STREQ("RT50_LAB_REMARK_MAINT_LIST_OPEN", session_->run_context().unit_name);
}

TEST_P(LabRemarkTest, AnEmptyTableShowsAnEmptyList) {
  OpenList();
  EXPECT_TRUE(Rows().empty());
  EXPECT_TRUE(Enabled("Button1"));
  EXPECT_FALSE(Enabled("Button2"));
  EXPECT_FALSE(Enabled("Button3"));
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
  ClickRow(2);
  EXPECT_EQ((std::vector<int>{2}), Selected());
  EXPECT_FALSE(Enabled("Button1"));
  EXPECT_TRUE(Enabled("Button2"));
  EXPECT_TRUE(Enabled("Button3"));
  // The same row again: released.
  ClickRow(2);
  EXPECT_TRUE(Selected().empty());
  EXPECT_TRUE(Enabled("Button1"));
  EXPECT_FALSE(Enabled("Button2"));
  // One row, then another: the selection moves.
  ClickRow(1);
  ClickRow(4);
  EXPECT_EQ((std::vector<int>{4}), Selected());
  // The row in hand is the one selected last: Change opens it.
  Do(kList, "&Change");
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("D", Value("SHORT_NAME1"));
  EXPECT_EQ("Delta", Value("DESCRIPTION_TEXT1"));
}

TEST_P(LabRemarkTest, CloseReturnsToTheMenu) {
  OpenList();
  Do(kList, "C&lose");
  EXPECT_EQ((std::vector<std::string>{kMenu}), Windows());
  EXPECT_FALSE(session_->ended());
  // The menu goes on working.
  OpenList();
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
}

// ---- Adding ----

TEST_P(LabRemarkTest, AddTakesANewIsNumberAndStampsUserAndTime) {
  LoadRemarks(kThree);
  Load("TSMEISN", kCounterHeader, "TSRLBRMK,ORG1,41,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  Do(kList, "&Add");
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  const json w = Screen()["windows"][0];
  EXPECT_EQ("RT51 Lab Remark Data Entry", w["title"]);
  EXPECT_EQ(201, w["height"]);
  EXPECT_EQ("", Value("TSRLBRMK_IS_NUMBER1"));
  EXPECT_EQ("", Value("SHORT_NAME1"));
  EXPECT_EQ("", Value("DESCRIPTION_TEXT1"));
  EXPECT_EQ("IS Number", Control("TSRLBRMK_IS_NUMBER1")["label"]);
  EXPECT_EQ("Updated By", Control("D_USERID_CODE1")["label"]);
  EXPECT_EQ("Date of Last Update", Control("D_LAST_UPDATE_TIMESTAMP1")["label"]);
  EXPECT_EQ(true, Control("D_USERID_CODE1")["protected"]);

  now_ = "20240116121314";
  Do(kEntry, "Accep&t", "Click", {{"SHORT_NAME", "J"}, {"DESCRIPTION_TEXT", "Judged value"}});
  // Back on the list, which is read again with the new row selected.
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "J"}), ShortNames());
  EXPECT_EQ((std::vector<int>{4}), Selected());
  // The national organisation, the counter of the run's organisation.
  EXPECT_EQ(std::string(kThree) + "42,ZZZZZZZZ,J,Judged value,JSMITH,2024-01-16 12:13:14\n",
            Remarks());
  EXPECT_EQ(42, Counter("ORG1"));
}

TEST_P(LabRemarkTest, TheFirstRemarkEverGetsNumberOne) {
  OpenList();
  Add("1", "First");
  EXPECT_EQ("1,ZZZZZZZZ,1,First,JSMITH,2024-01-15 09:30:00\n", Remarks());
  EXPECT_EQ(1, Counter("ORG1"));
  EXPECT_EQ((std::vector<int>{1}), Selected());
}

TEST_P(LabRemarkTest, RequiredFieldsAreMarkedOneAtATimeInWindowOrder) {
  OpenList();
  Do(kList, "&Add");
  // Both blank: only the short name is marked.
  Do(kEntry, "Accep&t", "Click", {{"SHORT_NAME", ""}, {"DESCRIPTION_TEXT", " "}});
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("10    ", Control("SHORT_NAME1")["display"]);
  EXPECT_EQ(true, Control("SHORT_NAME1")["error"]);
  EXPECT_EQ(false, Control("DESCRIPTION_TEXT1")["error"]);
  // Corrected, the field keeps its mark until the next Accept tests it.
  Do(kEntry, "SHORT_NAME", "Changed", {{"SHORT_NAME", "Q"}});
  EXPECT_EQ("10    ", Control("SHORT_NAME1")["display"]);
  EXPECT_EQ("Q", Value("SHORT_NAME1"));
  // The short name given: now the description is marked, the short name
  // plain again.
  Do(kEntry, "Accep&t");
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("3a    ", Control("SHORT_NAME1")["display"]);
  EXPECT_EQ(true, Control("DESCRIPTION_TEXT1")["error"]);
  EXPECT_EQ("", Remarks());
  Do(kEntry, "Accep&t", "Click", {{"DESCRIPTION_TEXT", "Questionable"}});
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("1,ZZZZZZZZ,Q,Questionable,JSMITH,2024-01-15 09:30:00\n", Remarks());
}

TEST_P(LabRemarkTest, AShortNameInUseInAnyOrganisationIsRefused) {
  LoadRemarks(kThree);
  OpenList();
  Do(kList, "&Add");
  Do(kEntry, "Accep&t", "Click", {{"SHORT_NAME", "B"}, {"DESCRIPTION_TEXT", "Another B"}});
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kDuplicate, Message());
  // The window says so in words; the field is not marked.
  EXPECT_EQ(false, Control("SHORT_NAME1")["error"]);
  EXPECT_EQ("Another B", Value("DESCRIPTION_TEXT1"));
  EXPECT_EQ(kThree, Remarks());
  EXPECT_EQ(-1, Counter("ORG1"));
}

TEST_P(LabRemarkTest, ARefusedInsertIsTheInternalErrorAndRollsBackTheNumber) {
  // The counter hands out 11, then 12, which a national row holds already:
  // the insert meets the key, and the number taken goes back with the
  // rollback.
  LoadRemarks(kThree);
  Load("TSMEISN", kCounterHeader, "TSRLBRMK,ORG1,10,LOADER,2023-05-01 10:00:00\n");
  LoadRemarks("12,ZZZZZZZZ,H,Holder of twelve,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  Do(kList, "&Add");
  Do(kEntry, "Accep&t", "Click", {{"SHORT_NAME", "K"}, {"DESCRIPTION_TEXT", "Kept"}});
  // 11 is free: the first Add goes through.
  ASSERT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(11, Counter("ORG1"));
  ClickRow(Selected().at(0));  // release the new row so that Add is offered
  Do(kList, "&Add");
  Do(kEntry, "Accep&t", "Click", {{"SHORT_NAME", "L"}, {"DESCRIPTION_TEXT", "Lost"}});
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kInternal, Message());
  EXPECT_EQ(11, Counter("ORG1"));
  EXPECT_EQ(std::string::npos, Remarks().find(",L,Lost,"));
  EXPECT_NE(std::string::npos, Remarks().find("11,ZZZZZZZZ,K,Kept,JSMITH,"));
  EXPECT_EQ(5u, RemarkCount());
  // Cancel after the failed Accept reloads the list as usual.
  Do(kEntry, "Cance&l");
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "H", "K"}), ShortNames());
}

TEST_P(LabRemarkTest, AReturnByCancelReloadsTheList) {
  LoadRemarks(kThree);
  OpenList();
  Do(kList, "&Add");
  // Someone else adds a remark meanwhile.
  LoadRemarks("20,ORG3,AA,Added elsewhere,OTHER,2023-05-01 10:00:00\n");
  Do(kEntry, "Cance&l");
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ((std::vector<std::string>{"A", "AA", "B", "C"}), ShortNames());
  EXPECT_TRUE(Selected().empty());
  EXPECT_STREQ("RT50_LAB_REMARK_MAINT_LIST", session_->run_context().unit_name);
}

// ---- Changing ----

TEST_P(LabRemarkTest, ADoubleClickOpensTheRowWhichTheListSelectsAgainOnReturn) {
  LoadRemarks(kFive);
  OpenList();
  DoubleClickRow(3);
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("3", Value("TSRLBRMK_IS_NUMBER1"));
  EXPECT_EQ("C", Value("SHORT_NAME1"));
  EXPECT_EQ("Charlie", Value("DESCRIPTION_TEXT1"));
  EXPECT_EQ("LOADER", Value("D_USERID_CODE1"));
  EXPECT_EQ("2023-05-01-10.00.00.000000", Value("D_LAST_UPDATE_TIMESTAMP1"));
  Do(kEntry, "Cance&l");
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ((std::vector<int>{3}), Selected());
  EXPECT_EQ(kFive, Remarks());
}

TEST_P(LabRemarkTest, ChangeWithNothingChangedWritesNothing) {
  LoadRemarks(kFive);
  OpenList();
  ClickRow(2);
  Do(kList, "&Change");
  now_ = "20240120080000";
  Do(kEntry, "Accep&t");
  // A success: the window closes, and no stamp was written.
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ(kFive, Remarks());
  EXPECT_EQ((std::vector<int>{2}), Selected());
}

TEST_P(LabRemarkTest, ChangingTheDescriptionAloneMeetsTheRowItselfAsADuplicate) {
  LoadRemarks(kFive);
  OpenList();
  DoubleClickRow(4);
  Do(kEntry, "Accep&t", "Click", {{"DESCRIPTION_TEXT", "Delta, corrected"}});
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kDuplicate, Message());
  EXPECT_EQ(kFive, Remarks());
}

TEST_P(LabRemarkTest, ChangingTheShortNameWritesTheRowWithUserAndTime) {
  LoadRemarks(kFive);
  session_.reset();
  StartSession("MJONES", "ORG2");
  OpenList();
  DoubleClickRow(4);
  now_ = "20240201171819";
  Do(kEntry, "Accep&t", "Click", {{"SHORT_NAME", "DD"}, {"DESCRIPTION_TEXT", "Delta, renamed"}});
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "DD", "E"}), ShortNames());
  EXPECT_EQ((std::vector<int>{4}), Selected());
  std::string expected = kFive;
  const std::string old_row = "4,ZZZZZZZZ,D,Delta,LOADER,2023-05-01 10:00:00\n";
  expected.replace(expected.find(old_row), old_row.size(),
                   "4,ZZZZZZZZ,DD,\"Delta, renamed\",MJONES,2024-02-01 17:18:19\n");
  EXPECT_EQ(expected, Remarks());
  // No number is taken for a change.
  EXPECT_EQ(-1, Counter("ORG2"));
}

TEST_P(LabRemarkTest, ARowDeletedByOthersGivesTheInternalErrorAtAcceptInChangeMode) {
  LoadRemarks(kFive);
  OpenList();
  DoubleClickRow(2);
  sql() << "DELETE FROM TSRLBRMK WHERE TSRLBRMK_IS_NUMBER = 2";
  Do(kEntry, "Accep&t", "Click", {{"SHORT_NAME", "BB"}});
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kInternal, Message());
  EXPECT_EQ(std::string::npos, Remarks().find(",BB,"));
  // The list comes back without the row, and nothing is selected.
  Do(kEntry, "Cance&l");
  EXPECT_EQ((std::vector<std::string>{"A", "C", "D", "E"}), ShortNames());
  EXPECT_TRUE(Selected().empty());
}

// ---- Deleting ----

TEST_P(LabRemarkTest, DeleteOfTheOnlyRowLeavesAnEmptyList) {
  LoadRemarks("9,ZZZZZZZZ,U,Unique,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  ClickRow(1);
  Do(kList, "&Delete");
  EXPECT_EQ((std::vector<std::string>{kList, kDelete}), Windows());
  const json dialog = Screen()["windows"][1];
  EXPECT_EQ("RT50A Delete Lab Remark", dialog["title"]);
  EXPECT_EQ("DD", dialog["kind"]);
  EXPECT_EQ(299, dialog["width"]);
  EXPECT_EQ(68, dialog["height"]);
  EXPECT_EQ("U", Value("SHORT_NAME1"));
  EXPECT_EQ("Unique", Value("DESCRIPTION_TEXT1"));
  EXPECT_EQ(true, Control("SHORT_NAME1")["protected"]);
  // The list below takes no events while the dialog is up.
  EXPECT_EQ(409, Send(kList, "&Add").status);
  Do(kDelete, "&Delete");
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_TRUE(Rows().empty());
  EXPECT_EQ("", Message());
  EXPECT_EQ("", Remarks());
  EXPECT_TRUE(Enabled("Button1"));
}

TEST_P(LabRemarkTest, DeleteOfRowThreeOfFiveMovesTheRowsBelowUp) {
  LoadRemarks(kFive);
  OpenList();
  ClickRow(3);
  Do(kList, "&Delete");
  Do(kDelete, "&Delete");
  const std::vector<Shown> rows = Rows();
  ASSERT_EQ(4u, rows.size());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "D", "E"}), ShortNames());
  EXPECT_EQ("Delta", rows[2].description);
  EXPECT_EQ(3, rows[2].row);
  EXPECT_EQ(4, rows[3].row);
  EXPECT_TRUE(Selected().empty());
  EXPECT_EQ(std::string::npos, Remarks().find(",C,Charlie,"));
  EXPECT_EQ(4u, RemarkCount());
  // The rows moved up are the rows of the database: a click on row 3 takes D.
  ClickRow(3);
  Do(kList, "&Change");
  EXPECT_EQ("4", Value("TSRLBRMK_IS_NUMBER1"));
  EXPECT_EQ("D", Value("SHORT_NAME1"));
}

TEST_P(LabRemarkTest, CancelInTheDeleteDialogClearsTheSelection) {
  LoadRemarks(kFive);
  OpenList();
  ClickRow(2);
  Do(kList, "&Delete");
  Do(kDelete, "Cance&l");
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(5u, Rows().size());
  EXPECT_TRUE(Selected().empty());
  EXPECT_FALSE(Enabled("Button3"));
  EXPECT_EQ(kFive, Remarks());
}

TEST_P(LabRemarkTest, ARowDeletedByOthersStaysInTheListUnmarked) {
  LoadRemarks(kFive);
  OpenList();
  ClickRow(4);
  Do(kList, "&Delete");
  sql() << "DELETE FROM TSRLBRMK WHERE TSRLBRMK_IS_NUMBER = 4";
  Do(kDelete, "&Delete");
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("E: Lab Remark not found.", Message());
  EXPECT_EQ((std::vector<std::string>{"A", "B", "C", "D", "E"}), ShortNames());
  EXPECT_TRUE(Selected().empty());
  EXPECT_EQ(4u, RemarkCount());
}

// ---- Bad input ----

TEST_P(LabRemarkTest, RequestsTheWindowsCannotTakeAreRefusedAndChangeNothing) {
  LoadRemarks(kFive);
  Load("TSMEISN", kCounterHeader, "TSRLBRMK,ORG1,100,LOADER,2023-05-01 10:00:00\n");
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
    EXPECT_EQ(c.status, Send(c.window, c.control).status);
    EXPECT_EQ(list_before, Screen());
  }
  // A row that the list does not show.
  EXPECT_EQ(400, Send(kList, "ListBox1", "Click", nullptr, 6).status);

  Do(kList, "&Add");
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
    const Reply r = Send(kEntry, "Accep&t", "Click", v);
    EXPECT_EQ(400, r.status);
    EXPECT_TRUE(r.body.contains("error"));
    EXPECT_EQ(entry_before, Screen());
  }
  EXPECT_EQ(kFive, Remarks());
  // Text that fits goes through, also at the full width and in 1252.
  const std::string sixty(59, 'd');
  Do(kEntry, "Accep&t", "Click",
     {{"SHORT_NAME", "A\xC3\xA9"}, {"DESCRIPTION_TEXT", sixty + "\xE2\x82\xAC"}});
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_NE(std::string::npos, Remarks().find(",A\xC3\xA9," + sixty + "\xE2\x82\xAC,"));
  EXPECT_EQ((std::vector<std::string>{"A", "A\xC3\xA9", "B", "C", "D", "E"}), ShortNames());
  EXPECT_EQ(sixty + "\xE2\x82\xAC", Rows()[1].description);
  // A short name that begins beyond "z" in the code page is stored, and the
  // range leaves it out of the list.
  ClickRow(2);
  Do(kList, "&Add");
  Do(kEntry, "Accep&t", "Click",
     {{"SHORT_NAME", "\xC3\xA9t\xC3\xA9"}, {"DESCRIPTION_TEXT", "Summer"}});
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
  std::string stored;
  sql() << "SELECT DESCRIPTION_TEXT FROM TSRLBRMK WHERE SHORT_NAME = 'x''--'",
      soci::into(stored);
  EXPECT_EQ(description, stored);
  // And it opens again as it was typed.
  DoubleClickRow(1);
  EXPECT_EQ("x'--", Value("SHORT_NAME1"));
  EXPECT_EQ(description, Value("DESCRIPTION_TEXT1"));
}

INSTANTIATE_TEST_SUITE_P(Backends, LabRemarkTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);

}  // namespace
}  // namespace watrix
