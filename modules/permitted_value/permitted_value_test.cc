// The permitted values driven as a person would drive them: the list RT2
// from the menu, its delete and companion dialogs, the data entry RT3 with
// its dialogs and the table selection RT54, through sessions over the real
// liblkbase.so, each on a fresh database of its own, SQLite and PostgreSQL
// alike. The database is read and written beside the session, as a second
// user would, to check what the windows wrote and to change rows under them.
#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "frame/tables.h"
#include "host/module_image.h"
#include "modules/testing/module_fixture.h"

namespace watrix {
namespace {

using nlohmann::json;
using testing::TheModules;

constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kList[] = "RT2_PERMITTED_VALUE_MAINT_LIST";
constexpr char kDelete[] = "RT2A_DELETE_PERMITTED_VALUE";
constexpr char kCompanion[] = "RT2B_ACTIVITY_CATEGORY_PERMITTED";
constexpr char kEntry[] = "RT3_PERMITTED_VALUE_DATA_ENTRY";
constexpr char kNames[] = "RT3A_PV_NAME_SELECTION_LIST";
constexpr char kTableWarning[] = "RT3B_TABLE_NAME_WARNING";
constexpr char kFieldWarning[] = "RT3C_FIELD_NAME_WARNING";
constexpr char kCategory[] = "RT3D_NEW_ACTIVITY_CATEGORY";
constexpr char kSequence[] = "RT3E_NEW_SEQUENCE_NUMB_SELECTION";
constexpr char kReport[] = "RT3F_MULTIPLE_ROW_PROCESSING_E";
constexpr char kSelection[] = "RT54_MULTIPLE_TABLE_SELECTION";
constexpr char kUser[] = "PVTEST";
constexpr char kOrg[] = "PVORG";
constexpr char kRequired[] = "E: An entry must be made in this field.";
constexpr char kInternalError[] =
    "E: An internal system error has occurred.  Contact system administrator.";
constexpr char kDuplicateValue[] =
    "E: This Field Value already exists for this Table and Field Name.";
constexpr char kDuplicateSeq[] = "E: This Field already has a Value with this Sequence Number.";

// "F0007": field names that sort by their number.
std::string Field(int n) {
  char name[16];
  std::snprintf(name, sizeof name, "F%04d", n);
  return name;
}

class PermittedValueTest : public testing::ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    if (HasFatalFailure()) return;
    SetClock(2024, 6, 3, 10, 11, 12);
  }

  void OpenList(const std::string& org = kOrg) {
    Start(kUser, org);
    if (HasFatalFailure()) return;
    Ok(Click(kMenu, "Permitted &Value"));
    ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  }

  // One row of TSMPRMVL.
  void Seed(int is_number, const std::string& table, const std::string& field, int sequence,
            const std::string& value, const std::string& org = kOrg,
            const std::string& desc = "seeded") {
    Exec("INSERT INTO TSMPRMVL (TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID, TABLE_NAME, FIELD_NAME, "
         "SEQUENCE_NUMBER, FIELD_VALUE, FIELD_DESC, D_USERID_CODE, D_LAST_UPDATE_TS) VALUES "
         "(:n, :org, :t, :f, :s, :v, :d, 'SEED', '2001-02-03 04:05:06')",
         is_number, org, table, field, sequence, value, desc);
  }
  // n rows of table "TSRAAAAA", fields F0001.. with sequence 1 each, IS
  // numbers 1..n, and the counter at n.
  void SeedMany(int n, const std::string& org = kOrg) {
    soci::transaction t(sql());
    for (int i = 1; i <= n; ++i) Seed(i, "TSRAAAAA", Field(i), 1, "V" + std::to_string(i), org);
    SetCounter(n);
    t.commit();
  }
  void SetCounter(int n) {
    Exec("INSERT INTO TSMEISN (TSMEISN_NAME, TSMEISN_ORG_ID, IS_NUMBER, D_USERID_CODE, "
         "D_LAST_UPDT_TS) VALUES ('TSMPRMVL', :org, :n, 'SEED', '2001-02-03 04:05:06')",
         std::string(kOrg), n);
  }
  // The value standing at a table, field and sequence number; "" when none.
  std::string ValueAt(const std::string& table, const std::string& field, int sequence) {
    return Read<std::string>(
               "SELECT FIELD_VALUE FROM TSMPRMVL WHERE TABLE_NAME = :t AND FIELD_NAME = :f "
               "AND SEQUENCE_NUMBER = :s",
               table, field, sequence)
        .value_or("");
  }
  long long Rows(const std::string& where = "1 = 1") { return Count("TSMPRMVL", where); }
  bool Holds(const std::string& table, const std::string& field, const std::string& value) {
    return Read<int>("SELECT SEQUENCE_NUMBER FROM TSMPRMVL WHERE TABLE_NAME = :t AND "
                     "FIELD_NAME = :f AND FIELD_VALUE = :v",
                     table, field, value)
        .has_value();
  }

  // The list's rows as "TABLE/FIELD/SEQ/VALUE".
  std::vector<std::string> Shown() {
    std::vector<std::string> rows;
    for (const testing::ListRow& r : ListRows(kList))
      rows.push_back(r.cells[0] + "/" + r.cells[1] + "/" + r.cells[2] + "/" + r.cells[3]);
    return rows;
  }
  // The group row of the first list row whose table and field are these.
  int RowOf(const std::string& table, const std::string& field, const std::string& value = "") {
    for (const testing::ListRow& r : ListRows(kList))
      if (r.cells[0] == table && r.cells[1] == field && (value.empty() || r.cells[3] == value))
        return r.row;
    ADD_FAILURE() << "no row " << table << "/" << field << "/" << value;
    return 0;
  }
  std::string Paging() const {
    return std::string(Enabled(kList, "Prev") ? "P" : "-") + (Enabled(kList, "Next") ? "N" : "-");
  }
  // RT54's rows highlighted, then "&Select".
  void SelectTables(const std::vector<int>& rows) {
    json e = {{"window", kSelection}, {"control", "ListBox1"}, {"event", "Click"},
              {"rows", rows}};
    if (!rows.empty()) Ok(session().Event(e));
    Ok(Click(kSelection, "&Select"));
  }
  // The text of static `id`.
  std::string Static(const std::string& window, int id) {
    const json w = Window(window);
    for (const json& c : w["controls"])
      if (c["id"] == id) return c["label"];
    return "";
  }
  std::string Display(const std::string& window, const std::string& key) {
    return Control(window, key)["display"].get<std::string>();
  }
};

// ---- The design rows ----

TEST(PermittedValueTablesTest, WindowsAreAsDesigned) {
  const ModuleImage& m = TheModules()->main();
  struct Case {
    const char* name;
    lk::u32 procedure;
    lk::u32 dialog;
    const char* kind;
    const char* title;
  } cases[] = {
      {kList, 407, 410, "SD", "RT2 Permitted Value Maintenance List"},
      {kDelete, 407, 437, "DD", "RT2A Delete Permitted Value"},
      {kCompanion, 407, 451, "DD", "RT2B Activity Category Permitted Value"},
      {kEntry, 1326, 1373, "SD", "RT3 Permitted Value Data Entry"},
      {kSequence, 1326, 1329, "DD", "RT3E New Sequence Number Selection"},
      {kTableWarning, 1326, 1340, "DD", "RT3B Table Name Warning"},
      {kReport, 1326, 1347, "DD", "RT3F Multiple Row Processing Error"},
      {kFieldWarning, 1326, 1357, "DD", "RT3C Field Name Warning"},
      {kCategory, 1326, 1364, "DD", "RT3D New Activity Category"},
      {kNames, 1326, 1399, "DD", "RT3A Permitted Value Name Selection List"},
      {kSelection, 1223, 1226, "SD", "RT54 Multiple Table Selection List"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const lk::WindowRow* w = m.FindWindow(c.name);
    ASSERT_NE(nullptr, w);
    EXPECT_EQ(c.procedure, w->procedure_id);
    EXPECT_EQ(c.dialog, w->dialog_id);
    EXPECT_STREQ(c.kind, w->kind);
    const Dialog* d = m.resources().FindDialog(c.dialog);
    ASSERT_NE(nullptr, d);
    EXPECT_EQ(c.title, d->title);
  }
  // RT2's links: RT54 on 0x6B800198 with no COMMAND, RT3 on 0x3F400117 with
  // the current one, both back on EXIT_RETURN with the target's COMMAND.
  const lk::ProcedureRow* p = m.FindProcedure(kList);
  ASSERT_NE(nullptr, p);
  EXPECT_EQ(0x6B800198u, p->exit_rows[0].exit_state);
  EXPECT_EQ(0x3F400117u, p->exit_rows[1].exit_state);
  EXPECT_EQ(1223u, p->flow_rows[0].target_id);
  EXPECT_STREQ("", p->flow_rows[0].on_command);
  EXPECT_EQ(1326u, p->flow_rows[1].target_id);
  EXPECT_STREQ("$#CURR#$", p->flow_rows[1].on_command);
  for (int i = 0; i < 2; ++i) {
    EXPECT_STREQ("$#CURR#$", p->flow_rows[i].return_command);
    EXPECT_EQ(lk::EXIT_RETURN, p->flow_rows[i].returns->exit_state);
  }
  const lk::ProcedureRow* entry = m.FindProcedure(kEntry);
  ASSERT_NE(nullptr, entry);
  EXPECT_EQ(0x6B800198u, entry->exit_rows[0].exit_state);
  EXPECT_EQ(1223u, entry->flow_rows[0].target_id);
  // RT54's list is one of multiple selection; the RT2A event actions' names
  // stand on RT54's buttons.
  const Dialog* selection = m.resources().FindDialog(1226);
  ASSERT_NE(nullptr, selection);
  ASSERT_NE(nullptr, selection->Find(1236));
  EXPECT_TRUE(selection->Find(1236)->multiple);
}

// ---- The list ----

TEST_P(PermittedValueTest, FirstPageShowsTheRunsRowsInKeyOrder) {
  Seed(1, "TSRB", "FLD", 2, "TWO");
  Seed(2, "TSRA", "FLD", 1, "A-ONE");
  Seed(3, "TSRB", "FLD", 1, "ONE");
  Seed(4, "TSRB", "AAA", 9, "NINE");
  Seed(5, "TSRA", "FLD", 3, "OTHER ORG", "OTHER");
  OpenList();
  EXPECT_EQ(std::vector<std::string>(
                {"TSRA/FLD/1/A-ONE", "TSRB/AAA/9/NINE", "TSRB/FLD/1/ONE", "TSRB/FLD/2/TWO"}),
            Shown());
  EXPECT_EQ("--", Paging());
  EXPECT_TRUE(Enabled(kList, "&Add"));
  EXPECT_FALSE(Enabled(kList, "&Change"));
  const json list = Control(kList, "ListBox1");
  ASSERT_EQ(4u, list["columns"].size());
  EXPECT_EQ("Table Name", list["columns"][0]["heading"]);
  EXPECT_EQ("Field Value", list["columns"][3]["heading"]);
}

TEST_P(PermittedValueTest, NextThenPrevShowsTheBoundaryRowOnBothPages) {
  SeedMany(2500);
  OpenList();
  std::vector<std::string> rows = Shown();
  ASSERT_EQ(2000u, rows.size());
  const std::string boundary = rows.back();
  EXPECT_EQ("TSRAAAAA/F2000/1/V2000", boundary);
  EXPECT_EQ("-N", Paging());

  Ok(Click(kList, "Next"));
  rows = Shown();
  ASSERT_EQ(501u, rows.size());
  EXPECT_EQ(boundary, rows.front());
  EXPECT_EQ("P-", Paging());

  Ok(Click(kList, "Prev"));
  rows = Shown();
  ASSERT_EQ(2000u, rows.size());
  EXPECT_EQ("TSRAAAAA/F0001/1/V1", rows.front());
  EXPECT_EQ(boundary, rows.back());
  EXPECT_EQ("-N", Paging());
}

TEST_P(PermittedValueTest, APageOfExactlyTwoThousandRowsAtTheEndLeavesNextDisabled) {
  SeedMany(3999);
  OpenList();
  EXPECT_EQ("-N", Paging());
  Ok(Click(kList, "Next"));
  const std::vector<std::string> rows = Shown();
  ASSERT_EQ(2000u, rows.size());
  EXPECT_EQ("TSRAAAAA/F2000/1/V2000", rows.front());
  EXPECT_EQ("TSRAAAAA/F3999/1/V3999", rows.back());
  EXPECT_EQ("P-", Paging());
}

TEST_P(PermittedValueTest, PrevNearTheTopShowsTheFirstTwoThousandRowsAgain) {
  SeedMany(2500);
  OpenList();
  Ok(Click(kList, "Next"));
  ASSERT_EQ("TSRAAAAA/F2000/1/V2000", Shown().front());
  // Another user removes the first thousand rows: fewer than 2000 rows now
  // stand up to this page's first row.
  Exec("DELETE FROM TSMPRMVL WHERE TSMPRMVL_IS_NUMBER <= 1000");
  Ok(Click(kList, "Prev"));
  const std::vector<std::string> rows = Shown();
  ASSERT_EQ(1500u, rows.size());  // the table's first rows, past the former page
  EXPECT_EQ("TSRAAAAA/F1001/1/V1001", rows.front());
  EXPECT_EQ("TSRAAAAA/F2500/1/V2500", rows.back());
  EXPECT_EQ("--", Paging());
}

TEST_P(PermittedValueTest, PrevReadsTheRowsOfEveryOrganisation) {
  SeedMany(2100);
  // Rows of another organisation among the run's first page.
  Seed(9001, "TSRAAAAA", "F0500X", 1, "THEIRS 1", "OTHER");
  Seed(9002, "TSRAAAAA", "F0600X", 1, "THEIRS 2", "OTHER");
  OpenList();
  for (const std::string& r : Shown()) ASSERT_EQ(std::string::npos, r.find("THEIRS"));
  Ok(Click(kList, "Next"));
  Ok(Click(kList, "Prev"));
  const std::vector<std::string> rows = Shown();
  ASSERT_EQ(2000u, rows.size());
  int theirs = 0;
  for (const std::string& r : rows) theirs += r.find("THEIRS") != std::string::npos;
  EXPECT_EQ(2, theirs);
  EXPECT_EQ("TSRAAAAA/F0003/1/V3", rows.front());
  EXPECT_EQ("TSRAAAAA/F2000/1/V2000", rows.back());
  // Two rows stand before the page: PREV by the look-ahead.
  EXPECT_EQ("PN", Paging());
}

TEST_P(PermittedValueTest, TheLookAheadBindsTheOrganisationInItsFirstBranchOnly) {
  SeedMany(2000);
  // A row of another organisation after the run's last one: the look-ahead
  // meets it, so NEXT is enabled, and the next page holds the boundary row
  // alone.
  Seed(9001, "TSRZ", "FLD", 1, "THEIRS", "OTHER");
  OpenList();
  ASSERT_EQ(2000u, Shown().size());
  EXPECT_EQ("-N", Paging());
  Ok(Click(kList, "Next"));
  EXPECT_EQ(std::vector<std::string>({"TSRAAAAA/F2000/1/V2000"}), Shown());
  EXPECT_EQ("P-", Paging());
}

TEST_P(PermittedValueTest, AClickSelectsAndASecondClickLetsGo) {
  SeedMany(2100);
  OpenList();
  Ok(ClickRow(kList, 3));
  EXPECT_EQ(std::vector<int>({3}), Selected(kList));
  EXPECT_EQ("--", Paging());
  EXPECT_TRUE(Enabled(kList, "&Change"));
  EXPECT_FALSE(Enabled(kList, "&Add"));
  Ok(ClickRow(kList, 3));
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ("-N", Paging());
}

// ---- Delete ----

TEST_P(PermittedValueTest, ARowWithoutCompanionsIsDeletedAtOnceAndDroppedWithoutARead) {
  Seed(1, "TSRA", "FLD", 1, "ONE");
  Seed(2, "TSRA", "FLD", 2, "TWO");
  Seed(3, "TSRA", "FLD", 3, "THREE");
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  ASSERT_EQ(kDelete, Windows().back());
  EXPECT_EQ("TWO", Value(kDelete, "FIELD_VALUE" "1"));
  EXPECT_EQ("2", Value(kDelete, "SEQUENCE_NUMBER" "1"));
  // A row that a read would show.
  Seed(4, "TSRA", "FLD", 4, "FOUR");
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ(std::vector<std::string>({"TSRA/FLD/1/ONE", "TSRA/FLD/3/THREE"}), Shown());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(3, Rows());
  EXPECT_EQ("", ValueAt("TSRA", "FLD", 2));
}

TEST_P(PermittedValueTest, CancelOnTheDeleteDialogKeepsTheRowAndLetsItGo) {
  Seed(1, "TSRA", "FLD", 1, "ONE");
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "Cance&l"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(1, Rows());
}

TEST_P(PermittedValueTest, CancelOnTheTableSelectionStillDeletesTheSelectedRow) {
  Seed(1, "TSRA", "OWNER", 1, "NAT");
  Seed(2, "TSRB", "OWNER", 1, "NAT");
  Seed(3, "TSRC", "OWNER", 1, "NAT");
  Seed(4, "TSRC", "OWNER", 2, "ORG");
  OpenList();
  Ok(ClickRow(kList, RowOf("TSRA", "OWNER")));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  ASSERT_EQ(kSelection, Windows().back());
  EXPECT_EQ("TSRA", Value(kSelection, "TABLE_NAME" "1"));
  EXPECT_EQ("NAT", Value(kSelection, "FIELD_VALUE" "1"));
  EXPECT_EQ(std::vector<std::string>({"TSRB", "TSRC"}), Column(kSelection, 0));
  Ok(Click(kSelection, "Cance&l"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_FALSE(Holds("TSRA", "OWNER", "NAT"));
  EXPECT_TRUE(Holds("TSRB", "OWNER", "NAT"));
  EXPECT_TRUE(Holds("TSRC", "OWNER", "NAT"));
  EXPECT_EQ(std::vector<std::string>({"TSRB/OWNER/1/NAT", "TSRC/OWNER/1/NAT", "TSRC/OWNER/2/ORG"}),
            Shown());
}

TEST_P(PermittedValueTest, OnlyTheFirstFiveOtherTablesAreOfferedAndAllFiveCanBeTaken) {
  const char* tables[] = {"TSRA", "TSRB", "TSRC", "TSRD", "TSRE", "TSRF", "TSRG"};
  for (int i = 0; i < 7; ++i) Seed(i + 1, tables[i], "OWNER", 1, "NAT");
  OpenList();
  Ok(ClickRow(kList, RowOf("TSRA", "OWNER")));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  ASSERT_EQ(kSelection, Windows().back());
  EXPECT_EQ(std::vector<std::string>({"TSRB", "TSRC", "TSRD", "TSRE", "TSRF"}),
            Column(kSelection, 0));
  SelectTables({1, 2, 3, 4, 5});
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(1, Rows());
  EXPECT_TRUE(Holds("TSRG", "OWNER", "NAT"));
  EXPECT_EQ(std::vector<std::string>({"TSRG/OWNER/1/NAT"}), Shown());
}

TEST_P(PermittedValueTest, SelectWithNothingHighlightedDeletesTheRowAloneAndReadsTheListAgain) {
  Seed(1, "TSRA", "OWNER", 1, "NAT");
  Seed(2, "TSRB", "OWNER", 1, "NAT");
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  ASSERT_EQ(kSelection, Windows().back());
  Seed(3, "TSRA", "NEW", 1, "SHOWN AFTER A READ");
  SelectTables({});
  EXPECT_EQ(std::vector<std::string>({"TSRA/NEW/1/SHOWN AFTER A READ", "TSRB/OWNER/1/NAT"}),
            Shown());
  EXPECT_EQ(2, Rows());
}

TEST_P(PermittedValueTest, ADeleteOfARowAnotherUserRemovedSaysSoAndKeepsWhatWentBefore) {
  Seed(1, "TSRA", "OWNER", 1, "NAT");
  Seed(2, "TSRB", "OWNER", 1, "NAT");
  Seed(3, "TSRC", "OWNER", 1, "NAT");
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  Exec("DELETE FROM TSMPRMVL WHERE TSMPRMVL_IS_NUMBER = 3");
  SelectTables({1, 2});
  EXPECT_EQ(kInternalError, Message());
  EXPECT_TRUE(Failure().is_null());
  EXPECT_EQ(0, Rows());  // the rows before the failure stay deleted
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
}

TEST_P(PermittedValueTest, ASubListRowIsDeletedWithItsCompanion) {
  Seed(1, "TSRFDACT", "CATEGORY_TYPE_NAME", 1, "Sample-Routine");
  Seed(2, "TSRFDACT", "CATEGORY_TYPE_NAME", 2, "Field Msr/Obs");
  Seed(3, "TSRFDACT", "CATEGORY_TYPE_NAME_S", 7, "Sample-Routine");
  OpenList();
  Ok(ClickRow(kList, RowOf("TSRFDACT", "CATEGORY_TYPE_NAME_S")));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  ASSERT_EQ(kCompanion, Windows().back());
  EXPECT_EQ("CATEGORY_TYPE_NAME", Value(kCompanion, "FIELD_NAME" "1"));
  EXPECT_EQ("Sample-Routine", Value(kCompanion, "FIELD_VALUE" "1"));
  // No way out but Accept.
  std::vector<std::string> buttons;
  const json companion = Window(kCompanion);
  for (const json& c : companion["controls"])
    if (c["type"] == "button") buttons.push_back(c["label"]);
  EXPECT_EQ(std::vector<std::string>({"&Accept"}), buttons);
  Ok(Click(kCompanion, "&Accept"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(std::vector<std::string>({"TSRFDACT/CATEGORY_TYPE_NAME/2/Field Msr/Obs"}), Shown());
}

// ---- Change ----

TEST_P(PermittedValueTest, ACategoryOnlyInTheMainListGoesStraightToDataEntry) {
  Seed(1, "TSRFDACT", "CATEGORY_TYPE_NAME", 1, "Field Msr/Obs");
  Seed(2, "TSRFDACT", "CATEGORY_TYPE_NAME_S", 1, "Sample-Routine");
  OpenList();
  Ok(ClickRow(kList, RowOf("TSRFDACT", "CATEGORY_TYPE_NAME")));
  Ok(Click(kList, "&Change"));
  EXPECT_EQ(kEntry, Windows().back());
  EXPECT_EQ("", Message());
  EXPECT_EQ("Field Msr/Obs", Value(kEntry, "FIELD_VALUE" "1"));
  // The names are protected, and ">>" is off.
  EXPECT_EQ("3gA2B7", Display(kEntry, "TABLE_NAME" "1"));
  EXPECT_EQ("3gA2B7", Display(kEntry, "FIELD_NAME" "1"));
  EXPECT_FALSE(Enabled(kEntry, ">>"));
}

TEST_P(PermittedValueTest, AChangeOfASubListRowIsCarriedToItsCompanionWhichKeepsItsSequence) {
  Seed(1, "TSRFDACT", "CATEGORY_TYPE_NAME", 4, "Sample-Routine");
  Seed(2, "TSRFDACT", "CATEGORY_TYPE_NAME_S", 9, "Sample-Routine");
  OpenList();
  Ok(DoubleClickRow(kList, RowOf("TSRFDACT", "CATEGORY_TYPE_NAME_S")));
  ASSERT_EQ(kCompanion, Windows().back());
  EXPECT_EQ("Any changes made to the selected row will also be made to the following  companion  "
            "row.",
            Static(kCompanion, 452));
  Ok(Click(kCompanion, "&Accept"));
  ASSERT_EQ(kEntry, Windows().back());
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "Sample-Regular"}, {"SEQUENCE_NUMBER", "8"}}));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ("Sample-Regular", ValueAt("TSRFDACT", "CATEGORY_TYPE_NAME_S", 8));
  EXPECT_EQ("Sample-Regular", ValueAt("TSRFDACT", "CATEGORY_TYPE_NAME", 4));
  EXPECT_EQ("PVTEST", Read<std::string>("SELECT TRIM(D_USERID_CODE) FROM TSMPRMVL WHERE "
                                        "TSMPRMVL_IS_NUMBER = 1").value_or(""));
}

TEST_P(PermittedValueTest, AChangeOfAMainListRowFindsItsCompanionInASubList) {
  Seed(1, "TSRFDACT", "CATEGORY_TYPE_NAME", 4, "Field Msr/Obs");
  Seed(2, "TSRFDACT", "CATEGORY_TYPE_NAME_M", 2, "Field Msr/Obs");
  OpenList();
  Ok(ClickRow(kList, RowOf("TSRFDACT", "CATEGORY_TYPE_NAME")));
  Ok(Click(kList, "&Change"));
  ASSERT_EQ(kCompanion, Windows().back());
  EXPECT_EQ("CATEGORY_TYPE_NAME_M", Value(kCompanion, "FIELD_NAME" "1"));
  Ok(Click(kCompanion, "&Accept"));
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "Field Observation"}}));
  EXPECT_EQ("Field Observation", ValueAt("TSRFDACT", "CATEGORY_TYPE_NAME_M", 2));
  EXPECT_EQ("Field Observation", ValueAt("TSRFDACT", "CATEGORY_TYPE_NAME", 4));
}

TEST_P(PermittedValueTest, AChangeIsCarriedToTheTablesChosenAndTheListRefreshesInPlace) {
  Seed(1, "TSRA", "OWNER", 1, "NAT", kOrg, "National");
  Seed(2, "TSRB", "OWNER", 1, "NAT", kOrg, "National");
  Seed(3, "TSRC", "OWNER", 1, "NAT", kOrg, "National");
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Change"));
  ASSERT_EQ(kSelection, Windows().back());
  SelectTables({2});
  ASSERT_EQ(kEntry, Windows().back());
  Ok(Click(kEntry, "Accep&t",
           {{"FIELD_VALUE", "NATL"}, {"FIELD_DESCRIPTION", "National, nationwide"}}));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("NATL", ValueAt("TSRA", "OWNER", 1));
  EXPECT_EQ("NAT", ValueAt("TSRB", "OWNER", 1));
  EXPECT_EQ("NATL", ValueAt("TSRC", "OWNER", 1));
  EXPECT_EQ("National, nationwide",
            Read<std::string>("SELECT FIELD_DESC FROM TSMPRMVL WHERE TSMPRMVL_IS_NUMBER = 3")
                .value_or(""));
  EXPECT_EQ(std::vector<int>({1}), Selected(kList));
  EXPECT_EQ("TSRA/OWNER/1/NATL", Shown().front());
}

TEST_P(PermittedValueTest, ARunOfChangesSkipsTheRowItCannotWriteAndGoesOnAfterTheReport) {
  Seed(1, "TSRA", "OWNER", 1, "NAT");
  Seed(2, "TSRB", "OWNER", 1, "NAT");
  Seed(3, "TSRC", "OWNER", 1, "NAT");
  Seed(4, "TSRC", "OWNER", 2, "NATL");  // TSRC already holds the new value
  Seed(5, "TSRD", "OWNER", 1, "NAT");
  OpenList();
  Ok(ClickRow(kList, RowOf("TSRA", "OWNER")));
  Ok(Click(kList, "&Change"));
  ASSERT_EQ(std::vector<std::string>({"TSRB", "TSRC", "TSRD"}), Column(kSelection, 0));
  SelectTables({1, 2, 3});
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "NATL"}}));
  ASSERT_EQ(kReport, Windows().back());
  EXPECT_EQ("TSRC", Value(kReport, "TABLE_NAME" "1"));
  EXPECT_EQ("OWNER", Value(kReport, "FIELD_NAME" "1"));
  EXPECT_EQ("NATL", ValueAt("TSRA", "OWNER", 1));
  EXPECT_EQ("NATL", ValueAt("TSRB", "OWNER", 1));
  EXPECT_EQ("NAT", ValueAt("TSRD", "OWNER", 1));  // not yet
  Ok(Click(kReport, "&Accept"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("NAT", ValueAt("TSRC", "OWNER", 1));  // skipped
  EXPECT_EQ("NATL", ValueAt("TSRD", "OWNER", 1));
}

TEST_P(PermittedValueTest, ACarriedChangeToARowAnotherUserDeletedIsReported) {
  Seed(1, "TSRA", "OWNER", 1, "NAT");
  Seed(2, "TSRB", "OWNER", 1, "NAT");
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Change"));
  SelectTables({1});
  Exec("DELETE FROM TSMPRMVL WHERE TSMPRMVL_IS_NUMBER = 2");
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "NATL"}}));
  ASSERT_EQ(kReport, Windows().back());
  EXPECT_EQ("TSRB", Value(kReport, "TABLE_NAME" "1"));
  EXPECT_EQ("NATL", ValueAt("TSRA", "OWNER", 1));
  Ok(Click(kReport, "&Accept"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(1, Rows());
}

TEST_P(PermittedValueTest, ADescriptionAloneIsWrittenWithoutADuplicateRead) {
  Seed(1, "TSRA", "FLD", 1, "ONE");
  OpenList();
  Ok(DoubleClickRow(kList, 1));
  ASSERT_EQ(kEntry, Windows().back());
  // A duplicate read of the value or the number would meet the row itself.
  Ok(Click(kEntry, "Accep&t", {{"FIELD_DESCRIPTION", "The first"}}));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("The first", Read<std::string>("SELECT FIELD_DESC FROM TSMPRMVL").value_or(""));
  EXPECT_EQ("PVTEST", Read<std::string>("SELECT TRIM(D_USERID_CODE) FROM TSMPRMVL").value_or(""));
}

TEST_P(PermittedValueTest, AChangedValueOrNumberThatIsTakenIsRefusedOnItsField) {
  Seed(1, "TSRA", "FLD", 1, "ONE");
  Seed(2, "TSRA", "FLD", 2, "TWO");
  OpenList();
  Ok(DoubleClickRow(kList, 1));
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "TWO"}}));
  EXPECT_EQ(kDuplicateValue, Message());
  EXPECT_EQ("10    ", Display(kEntry, "FIELD_VALUE" "1"));
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "ONE"}, {"SEQUENCE_NUMBER", "2"}}));
  EXPECT_EQ(kDuplicateSeq, Message());
  EXPECT_EQ("10    ", Display(kEntry, "SEQUENCE_NUMBER" "1"));
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "ONE"}, {"SEQUENCE_NUMBER", "1"}}));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("ONE", ValueAt("TSRA", "FLD", 1));
}

// ---- Add ----

TEST_P(PermittedValueTest, ABlankValueComesBeforeAZeroNumberAndBothBeforeBlankNames) {
  OpenList();
  Ok(Click(kList, "&Add"));
  ASSERT_EQ(kEntry, Windows().back());
  EXPECT_TRUE(Enabled(kEntry, ">>"));
  Ok(Click(kEntry, "Accep&t"));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("10    ", Display(kEntry, "FIELD_VALUE" "1"));
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "X"}, {"SEQUENCE_NUMBER", "0"}}));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("3a    ", Display(kEntry, "FIELD_VALUE" "1"));
  EXPECT_EQ("10    ", Display(kEntry, "SEQUENCE_NUMBER" "1"));
  Ok(Click(kEntry, "Accep&t", {{"SEQUENCE_NUMBER", "5"}}));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("10    ", Display(kEntry, "TABLE_NAME" "1"));
  Ok(Click(kEntry, "Accep&t", {{"TABLE_NAME", "TSRA"}}));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("3a    ", Display(kEntry, "TABLE_NAME" "1"));
  EXPECT_EQ("10    ", Display(kEntry, "FIELD_NAME" "1"));
  EXPECT_EQ(0, Rows());
}

TEST_P(PermittedValueTest, ANewTableNameIsWarnedAndYesRefreshesTheCurrentPage) {
  SeedMany(2100);
  OpenList();
  Ok(Click(kList, "Next"));
  const std::string first = Shown().front();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TABLE_NAME", "TSRAAAAB"}, {"FIELD_NAME", "KIND"},
                               {"FIELD_VALUE", "NEW"}, {"SEQUENCE_NUMBER", "1"}}));
  ASSERT_EQ(kTableWarning, Windows().back());
  EXPECT_EQ("", Message());
  Ok(Click(kTableWarning, "&Yes"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows()) << Message() << Failure().dump();
  EXPECT_EQ("NEW", ValueAt("TSRAAAAB", "KIND", 1));
  EXPECT_EQ(2101, Read<int>("SELECT TSMPRMVL_IS_NUMBER FROM TSMPRMVL WHERE FIELD_VALUE = 'NEW'")
                      .value_or(0));
  // The mode became "CHANGE": the same page, with the new row at its end.
  const std::vector<std::string> rows = Shown();
  EXPECT_EQ(first, rows.front());
  EXPECT_EQ("TSRAAAAB/KIND/1/NEW", rows.back());
}

TEST_P(PermittedValueTest, NoOnAWarningOnlyClosesIt) {
  Seed(1, "TSRA", "FLD", 1, "ONE");
  SetCounter(1);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TABLE_NAME", "TSRA"}, {"FIELD_NAME", "NEWFLD"},
                               {"FIELD_VALUE", "X"}, {"SEQUENCE_NUMBER", "1"}}));
  ASSERT_EQ(kFieldWarning, Windows().back());
  Ok(Click(kFieldWarning, "&No"));
  EXPECT_EQ(kEntry, Windows().back());
  EXPECT_EQ("NEWFLD", Value(kEntry, "FIELD_NAME" "1"));
  EXPECT_EQ(1, Rows());
  // Yes this time: the row is written.
  Ok(Click(kEntry, "Accep&t"));
  ASSERT_EQ(kFieldWarning, Windows().back());
  Ok(Click(kFieldWarning, "&Yes"));
  EXPECT_EQ("X", ValueAt("TSRA", "NEWFLD", 1));
}

TEST_P(PermittedValueTest, AnAddRefusesAValueOrANumberTheFieldHolds) {
  Seed(1, "TSRA", "FLD", 1, "ONE");
  SetCounter(1);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TABLE_NAME", "TSRA"}, {"FIELD_NAME", "FLD"},
                               {"FIELD_VALUE", "ONE"}, {"SEQUENCE_NUMBER", "2"}}));
  EXPECT_EQ(kDuplicateValue, Message());
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "TWO"}, {"SEQUENCE_NUMBER", "1"}}));
  EXPECT_EQ(kDuplicateSeq, Message());
  Ok(Click(kEntry, "Accep&t", {{"SEQUENCE_NUMBER", "2"}}));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("TWO", ValueAt("TSRA", "FLD", 2));
  EXPECT_EQ(2, Counter("TSMPRMVL", kOrg));
  // After an add the list starts at the top, the new row selected.
  EXPECT_EQ(std::vector<int>({2}), Selected(kList));
}

TEST_P(PermittedValueTest, AHandTypedValueIsNeverOfferedToOtherTables) {
  Seed(1, "TSRA", "OWNER", 1, "NAT");
  Seed(2, "TSRB", "OWNER", 1, "NAT");
  SetCounter(2);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TABLE_NAME", "TSRA"}, {"FIELD_NAME", "OWNER"},
                               {"FIELD_VALUE", "ORG"}, {"SEQUENCE_NUMBER", "2"}}));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_TRUE(Holds("TSRA", "OWNER", "ORG"));
  EXPECT_FALSE(Holds("TSRB", "OWNER", "ORG"));
}

TEST_P(PermittedValueTest, NamesChosenThroughTheSelectionListOfferOtherTables) {
  Seed(1, "TSRA", "OWNER", 1, "NAT");
  Seed(2, "TSRB", "OWNER", 1, "NAT");
  Seed(3, "TSRC", "OWNER", 4, "NAT");
  Seed(4, "TSRFDACT", "CATEGORY_TYPE_NAME_S", 1, "Sample");
  Seed(5, "TSRZ", "THEIRS", 1, "X", "OTHER");
  SetCounter(5);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, ">>"));
  ASSERT_EQ(kNames, Windows().back());
  // The run's pairs, without the activity category sub-lists.
  EXPECT_EQ(std::vector<std::string>({"TSRA", "TSRB", "TSRC"}), Column(kNames, 0));
  Ok(DoubleClickRow(kNames, 1));
  ASSERT_EQ(kEntry, Windows().back());
  EXPECT_EQ("TSRA", Value(kEntry, "TABLE_NAME" "1"));
  EXPECT_EQ("OWNER", Value(kEntry, "FIELD_NAME" "1"));
  EXPECT_EQ("2", Value(kEntry, "SEQUENCE_NUMBER" "1"));
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "ORG"}}));
  ASSERT_EQ(kSelection, Windows().back());
  EXPECT_EQ(std::vector<std::string>({"TSRB", "TSRC"}), Column(kSelection, 0));
  SelectTables({2});
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("ORG", ValueAt("TSRA", "OWNER", 2));
  EXPECT_EQ("ORG", ValueAt("TSRC", "OWNER", 2));  // the window's number
  EXPECT_FALSE(Holds("TSRB", "OWNER", "ORG"));
}

TEST_P(PermittedValueTest, CancelOnTheTableSelectionAfterAnAddKeepsTheRowWritten) {
  Seed(1, "TSRA", "OWNER", 1, "NAT");
  Seed(2, "TSRB", "OWNER", 1, "NAT");
  SetCounter(2);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, ">>"));
  Ok(ClickRow(kNames, 1));
  Ok(Click(kNames, "&Select"));
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "ORG"}}));
  ASSERT_EQ(kSelection, Windows().back());
  Ok(Click(kSelection, "Cance&l"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_TRUE(Holds("TSRA", "OWNER", "ORG"));
  EXPECT_FALSE(Holds("TSRB", "OWNER", "ORG"));
}

TEST_P(PermittedValueTest, TheNumberStopsAtNineHundredNinetyNine) {
  Seed(1, "TSRA", "FLD", 999, "LAST");
  Seed(2, "TSRA", "FLD", 5, "FIVE");
  SetCounter(2);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, ">>"));
  Ok(ClickRow(kNames, 1));
  Ok(Click(kNames, "&Select"));
  EXPECT_EQ(kEntry, Windows().back());
  EXPECT_EQ("999", Value(kEntry, "SEQUENCE_NUMBER" "1"));
  EXPECT_EQ("10    ", Display(kEntry, "SEQUENCE_NUMBER" "1"));
  EXPECT_EQ("E: The max seq no. of 999 has been reached.  Cannot increment by 1.", Message());
  // Accept with 999 meets the usual duplicate check.
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "MORE"}}));
  EXPECT_EQ(kDuplicateSeq, Message());
  Ok(Click(kEntry, "Accep&t", {{"SEQUENCE_NUMBER", "6"}}));
  EXPECT_EQ("MORE", ValueAt("TSRA", "FLD", 6));
}

TEST_P(PermittedValueTest, ANewActivityCategoryGetsItsSampleRowThroughTheSequenceWindow) {
  Seed(1, "TSRFDACT", "CATEGORY_TYPE_NAME", 1, "Sample-Routine");
  Seed(2, "TSRFDACT", "CATEGORY_TYPE_NAME_S", 1, "Sample-Routine");
  Seed(3, "TSRFDACT", "CATEGORY_TYPE_NAME_M", 1, "Field Msr/Obs");
  SetCounter(3);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TABLE_NAME", "TSRFDACT"}, {"FIELD_NAME", "CATEGORY_TYPE_NAME"},
                               {"FIELD_VALUE", "Sample-Composite"}, {"SEQUENCE_NUMBER", "2"}}));
  ASSERT_EQ(kCategory, Windows().back());
  EXPECT_TRUE(Holds("TSRFDACT", "CATEGORY_TYPE_NAME", "Sample-Composite"));
  // Both boxes ticked: the sample list wins.
  Ok(Click(kCategory, "&Accept", {{"FLAG1", "Y"}, {"FLAG2", "Y"}}));
  ASSERT_EQ(kSequence, Windows().back());
  EXPECT_EQ("CATEGORY_TYPE_NAME_S", Value(kSequence, "FIELD_NAME" "1"));
  EXPECT_EQ("2", Value(kSequence, "SEQUENCE_NUMBER" "1"));
  Ok(Click(kSequence, "&Accept"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("Sample-Composite", ValueAt("TSRFDACT", "CATEGORY_TYPE_NAME_S", 2));
  EXPECT_FALSE(Holds("TSRFDACT", "CATEGORY_TYPE_NAME_M", "Sample-Composite"));
}

TEST_P(PermittedValueTest, ANewActivityCategoryWithNeitherBoxEndsWithTheMainRow) {
  Seed(1, "TSRFDACT", "CATEGORY_TYPE_NAME", 1, "Sample-Routine");
  SetCounter(1);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TABLE_NAME", "TSRFDACT"}, {"FIELD_NAME", "CATEGORY_TYPE_NAME"},
                               {"FIELD_VALUE", "Habitat"}, {"SEQUENCE_NUMBER", "2"}}));
  ASSERT_EQ(kCategory, Windows().back());
  Ok(Click(kCategory, "&Accept"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(2, Rows());
}

TEST_P(PermittedValueTest, ASubListRowThatCannotBeWrittenIsReportedAsACategoryRow) {
  Seed(1, "TSRFDACT", "CATEGORY_TYPE_NAME", 1, "Sample-Routine");
  Seed(2, "TSRFDACT", "CATEGORY_TYPE_NAME_M", 1, "Habitat");  // the value stands already
  SetCounter(2);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TABLE_NAME", "TSRFDACT"}, {"FIELD_NAME", "CATEGORY_TYPE_NAME"},
                               {"FIELD_VALUE", "Habitat"}, {"SEQUENCE_NUMBER", "2"}}));
  Ok(Click(kCategory, "&Accept", {{"FLAG1", "Y"}}));
  ASSERT_EQ(kSequence, Windows().back());
  EXPECT_EQ("CATEGORY_TYPE_NAME_M", Value(kSequence, "FIELD_NAME" "1"));
  Ok(Click(kSequence, "&Accept"));
  ASSERT_EQ(kReport, Windows().back());
  EXPECT_EQ("CATEGORY_TYPE_NAME_M", Value(kReport, "FIELD_NAME" "1"));
  Ok(Click(kReport, "&Accept"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(3, Rows());  // the main row stays
}

TEST_P(PermittedValueTest, AnAddCarriedToATableThatHoldsTheValueIsReportedAndTheRunGoesOn) {
  Seed(1, "TSRA", "OWNER", 1, "NAT");
  Seed(2, "TSRB", "OWNER", 1, "NAT");
  Seed(3, "TSRB", "OWNER", 2, "ORG");  // TSRB holds the new value
  Seed(4, "TSRC", "OWNER", 1, "NAT");
  SetCounter(4);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, ">>"));
  Ok(DoubleClickRow(kNames, 1));
  Ok(Click(kEntry, "Accep&t", {{"FIELD_VALUE", "ORG"}, {"SEQUENCE_NUMBER", "3"}}));
  ASSERT_EQ(kSelection, Windows().back());
  SelectTables({1, 2});
  ASSERT_EQ(kReport, Windows().back());
  EXPECT_EQ("TSRB", Value(kReport, "TABLE_NAME" "1"));
  Ok(Click(kReport, "&Accept"));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("ORG", ValueAt("TSRA", "OWNER", 3));
  EXPECT_EQ("ORG", ValueAt("TSRC", "OWNER", 3));
  EXPECT_EQ("", ValueAt("TSRB", "OWNER", 3));
}

// ---- Bad input ----

TEST_P(PermittedValueTest, BadInputIsRefusedAndNothingIsWritten) {
  Seed(1, "TSRA", "FLD", 1, "ONE");
  SetCounter(1);
  OpenList();
  Ok(Click(kList, "&Add"));
  // A number past three digits, a value past 40 characters, a text outside
  // code page 1252: each refused before any unit runs.
  EXPECT_EQ(400, Click(kEntry, "Accep&t", {{"TABLE_NAME", "TSRA"}, {"FIELD_NAME", "FLD"},
                                           {"FIELD_VALUE", "TWO"}, {"SEQUENCE_NUMBER", "1000"}})
                     .status);
  EXPECT_EQ(400, Click(kEntry, "Accep&t", {{"FIELD_VALUE", std::string(41, 'x')}}).status);
  EXPECT_EQ(400, Click(kEntry, "Accep&t", {{"FIELD_VALUE", "\xe6\xb0\xb4"}}).status);
  EXPECT_EQ(400, Click(kEntry, "Accep&t", {{"SEQUENCE_NUMBER", "two"}}).status);
  EXPECT_EQ(kEntry, Windows().back());
  EXPECT_EQ(1, Rows());
  // Text of code page 1252 goes through as it is.
  Ok(Click(kEntry, "Accep&t", {{"TABLE_NAME", "TSRA"}, {"FIELD_NAME", "FLD"},
                               {"FIELD_VALUE", "Caf\xc3\xa9 \xe2\x82\xac"},
                               {"SEQUENCE_NUMBER", "2"}}));
  EXPECT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("Caf\xc3\xa9 \xe2\x82\xac", ValueAt("TSRA", "FLD", 2));
}

INSTANTIATE_TEST_SUITE_P(Backends, PermittedValueTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);

}  // namespace
}  // namespace watrix
