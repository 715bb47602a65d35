// The geologic unit module through a session over liblkbase.so, on SQLite
// and on PostgreSQL: the list RT46 with its Search group and its pages, the
// delete dialog RT46A and the data entry window RT47, reached from the menu
// and driven by the events a person's clicks and typing send. After each
// story the table is read back directly, so that the database holds what
// the windows say and nothing more.
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
constexpr char kList[] = "RT46_GEOLOGIC_UNIT_MAINT_LIST";
constexpr char kDelete[] = "RT46A_DELTE_GEOLOGIC_UNIT_CONFIR";
constexpr char kEntry[] = "RT47_GEOLOGIC_UNIT_DATA_ENTRY";

constexpr char kHeader[] =
    "TSMGEOUN_CD,TSMGEOUN_ORG_ID,TYPE_CODE,STATE_CODE,NAME,D_USERID_CODE,D_LAST_UPDT_TS\n";
constexpr char kRequired[] = "E: An entry must be made in this field.";
constexpr char kSpring[] =
    "E: Cannot delete the selected Geologic Unit. It is related to a Spring Station.";
constexpr char kInterval[] =
    "E: Cannot delete selected Geologic Unit. It is related to an Interval.";

class GeologicUnitTest : public testing::ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    if (HasFatalFailure()) return;
    SetClock(2024, 1, 15, 9, 30, 0);
    Start("JSMITH", "ORG1");
  }

  void OpenList() { Ok(Click(kMenu, "Ge&ological Unit")); }
  void Search(const std::string& code, const std::string& name) {
    Ok(Click(kList, "&Search", {{"TSMGEOUN_CD", code}, {"NAME", name}}));
  }

  std::vector<std::string> Codes() { return Column(kList, 0); }
  std::vector<std::string> Names() { return Column(kList, 3); }

  void LoadUnits(const std::string& rows) { Load("TSMGEOUN", kHeader + rows); }
  // `n` units G00001.. with names running backwards, so that the order by
  // name is the reverse of the order by code.
  void LoadMany(int n) {
    std::string rows;
    char line[160];
    for (int i = 1; i <= n; ++i) {
      std::snprintf(line, sizeof line, "G%05d,ZZZZZZZZ,G,CO,Unit %05d,LOADER,2023-05-01 10:00:00\n",
                    i, n + 1 - i);
      rows += line;
    }
    LoadUnits(rows);
  }
  // The rows of TSMGEOUN after the header, in key order.
  std::string Units() { return Dump("TSMGEOUN").substr(sizeof kHeader - 1); }
  // A station of a station type, for the springs that refer to a unit.
  void LoadStation(int n) {
    if (Count("TSMVSTC") == 0)
      Load("TSMVSTC",
           "TSMVSTC_IS_NUMBER,TSMVSTC_ORG_ID,PRIMARY_TYPE_CD,SECONDARY_TYPE_CD,NATURAL_IND_CD,"
           "D_USERID_CODE,D_LAST_UPDT_TS\n1,ORG1,Spring,,N,LOADER,2023-05-01 10:00:00\n");
    Load("TSMSTATN", "TSMSTATN_IS_NUMBER,TSMSTATN_ORG_ID,TSMVSTC_IS_NUMBER,TSMVSTC_ORG_ID\n" +
                         std::to_string(n) + ",ORG1,1,ORG1\n");
  }
};

// Five units of two organisations; "0BASE" and "9NINE" sort below "A".
constexpr char kUnits[] =
    "0BASE,ZZZZZZZZ,G,CO,Basement,LOADER,2023-05-01 10:00:00\n"
    "9NINE,ZZZZZZZZ,H,UT,Ninth aquifer,LOADER,2023-05-01 10:00:00\n"
    "ALLV,ZZZZZZZZ,H,CO,Alluvium,LOADER,2023-05-01 10:00:00\n"
    "DKOT,ORG2,G,SD,Dakota Sandstone,LOADER,2023-05-01 10:00:00\n"
    "MRSN,ZZZZZZZZ,B,WY,Morrison Formation,LOADER,2023-05-01 10:00:00\n";

// ---- The list ----

TEST_P(GeologicUnitTest, TheFirstViewLeavesOutCodesBelowA) {
  LoadUnits(kUnits);
  OpenList();
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  const json w = Screen()["windows"][0];
  EXPECT_EQ("RT46 Geologic Unit Maintenance List", w["title"]);
  const json list = Control(kList, "ListBox1");
  EXPECT_EQ("USGS Code", list["columns"][0]["heading"]);
  EXPECT_EQ("Type Code", list["columns"][1]["heading"]);
  EXPECT_EQ("State Code", list["columns"][2]["heading"]);
  EXPECT_EQ("Name", list["columns"][3]["heading"]);
  // Every organisation's units from "A" on, by code.
  EXPECT_EQ((std::vector<std::string>{"ALLV", "DKOT", "MRSN"}), Codes());
  EXPECT_EQ((std::vector<std::string>{"H", "G", "B"}), Column(kList, 1));
  EXPECT_EQ((std::vector<std::string>{"CO", "SD", "WY"}), Column(kList, 2));
  EXPECT_EQ("", Message());
  // Fewer than 200 rows: the last page; page 1: the first.
  EXPECT_FALSE(Enabled(kList, "&Prev"));
  EXPECT_FALSE(Enabled(kList, "&Next"));
  EXPECT_TRUE(Enabled(kList, "&Add"));
  EXPECT_FALSE(Enabled(kList, "&Change"));
  EXPECT_FALSE(Enabled(kList, "&Delete"));
  EXPECT_STREQ("RT46_GEOLOGIC_UNIT_MAINT_LI_OPEN", session().run_context().unit_name);
  // A search with no code and no name starts below "A".
  Search("", "");
  EXPECT_EQ((std::vector<std::string>{"0BASE", "9NINE", "ALLV", "DKOT", "MRSN"}), Codes());
}

TEST_P(GeologicUnitTest, AnEmptyTableShowsAnEmptyList) {
  OpenList();
  EXPECT_TRUE(Codes().empty());
  EXPECT_FALSE(Enabled(kList, "&Prev"));
  EXPECT_FALSE(Enabled(kList, "&Next"));
}

TEST_P(GeologicUnitTest, ASearchByNameAloneSortsByNameWithACodeByCode) {
  LoadUnits(kUnits);
  OpenList();
  // A name and no code: by name, from that name on.
  Search("", "B");
  EXPECT_EQ((std::vector<std::string>{"Basement", "Dakota Sandstone", "Morrison Formation",
                                      "Ninth aquifer"}),
            Names());
  EXPECT_EQ((std::vector<std::string>{"0BASE", "DKOT", "MRSN", "9NINE"}), Codes());
  // A code: by code from that code on; the name narrows nothing beyond it.
  Search("9", "Z");
  EXPECT_EQ((std::vector<std::string>{"9NINE", "ALLV", "DKOT", "MRSN"}), Codes());
  Search("D", "");
  EXPECT_EQ((std::vector<std::string>{"DKOT", "MRSN"}), Codes());
  // The search fields keep what was typed.
  EXPECT_EQ("D", Value(kList, "TSMGEOUN_CD1"));
}

TEST_P(GeologicUnitTest, PagesOf200MoveThroughTheStackOfPageKeys) {
  LoadMany(450);
  OpenList();
  std::vector<std::string> page1 = Codes();
  ASSERT_EQ(200u, page1.size());
  EXPECT_EQ("G00001", page1.front());
  EXPECT_EQ("G00200", page1.back());
  EXPECT_FALSE(Enabled(kList, "&Prev"));
  EXPECT_TRUE(Enabled(kList, "&Next"));
  // Next reads on from the last row of the page, which comes again.
  Ok(Click(kList, "&Next"));
  std::vector<std::string> page2 = Codes();
  ASSERT_EQ(200u, page2.size());
  EXPECT_EQ("G00200", page2.front());
  EXPECT_EQ("G00399", page2.back());
  EXPECT_TRUE(Enabled(kList, "&Prev"));
  EXPECT_TRUE(Enabled(kList, "&Next"));
  Ok(Click(kList, "&Next"));
  std::vector<std::string> page3 = Codes();
  ASSERT_EQ(52u, page3.size());
  EXPECT_EQ("G00399", page3.front());
  EXPECT_EQ("G00450", page3.back());
  // Fewer than 200: the last page.
  EXPECT_FALSE(Enabled(kList, "&Next"));
  EXPECT_TRUE(Enabled(kList, "&Prev"));
  // Prev reads the page before from its first code on.
  Ok(Click(kList, "&Prev"));
  EXPECT_EQ(page2, Codes());
  EXPECT_TRUE(Enabled(kList, "&Prev"));
  EXPECT_TRUE(Enabled(kList, "&Next"));
  Ok(Click(kList, "&Prev"));
  EXPECT_EQ(page1, Codes());
  EXPECT_FALSE(Enabled(kList, "&Prev"));
  EXPECT_TRUE(Enabled(kList, "&Next"));
}

TEST_P(GeologicUnitTest, PagesByNameKeepTheirOrder) {
  LoadMany(250);
  OpenList();
  Search("", "Unit");
  std::vector<std::string> names = Names();
  ASSERT_EQ(200u, names.size());
  EXPECT_EQ("Unit 00001", names.front());
  EXPECT_EQ("G00250", Codes().front());
  Ok(Click(kList, "&Next"));
  ASSERT_EQ(51u, Names().size());
  EXPECT_EQ("Unit 00200", Names().front());
  EXPECT_EQ("Unit 00250", Names().back());
  EXPECT_FALSE(Enabled(kList, "&Next"));
  // The page before: the names between its first and its last.
  Ok(Click(kList, "&Prev"));
  EXPECT_EQ(names, Names());
  EXPECT_FALSE(Enabled(kList, "&Prev"));
}

TEST_P(GeologicUnitTest, ExactlyTwoHundredRowsLeaveNextOnAndAnEmptyPageAfter) {
  LoadMany(200);
  OpenList();
  EXPECT_EQ(200u, Codes().size());
  // A full group says nothing of more rows.
  EXPECT_TRUE(Enabled(kList, "&Next"));
  Ok(Click(kList, "&Next"));
  EXPECT_EQ((std::vector<std::string>{"G00200"}), Codes());
  EXPECT_FALSE(Enabled(kList, "&Next"));
}

TEST_P(GeologicUnitTest, AClickSelectsASecondClickReleases) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 2));
  EXPECT_EQ((std::vector<int>{2}), Selected(kList));
  EXPECT_FALSE(Enabled(kList, "&Add"));
  EXPECT_TRUE(Enabled(kList, "&Change"));
  Ok(ClickRow(kList, 2));
  EXPECT_TRUE(Selected(kList).empty());
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Change"));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("MRSN", Value(kEntry, "TSMGEOUN_CD1"));
  EXPECT_EQ("Morrison Formation", Value(kEntry, "NAME1"));
  EXPECT_EQ("WY", Value(kEntry, "STATE_CODE1"));
  EXPECT_EQ("B", Value(kEntry, "TYPE_CODE1"));
  // The code is protected on a change.
  EXPECT_EQ(true, Control(kEntry, "TSMGEOUN_CD1")["protected"]);
  EXPECT_EQ(false, Control(kEntry, "NAME1")["protected"]);
}

TEST_P(GeologicUnitTest, CloseReturnsToTheMenu) {
  OpenList();
  Ok(Click(kList, "C&lose"));
  EXPECT_EQ((std::vector<std::string>{kMenu}), Windows());
}

// ---- Adding and changing ----

TEST_P(GeologicUnitTest, AddWritesTheNationalRowWithUserAndTimeAndGoesToPageOne) {
  LoadMany(250);
  OpenList();
  Ok(Click(kList, "&Next"));
  Ok(Click(kList, "&Add"));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("RT47 Geologic Unit Data Entry", Screen()["windows"][0]["title"]);
  EXPECT_EQ(false, Control(kEntry, "TSMGEOUN_CD1")["protected"]);
  EXPECT_EQ(true, Control(kEntry, "D_USERID_CODE1")["protected"]);
  SetClock(2024, 1, 16, 12, 13, 14);
  Ok(Click(kEntry, "Accep&t",
           {{"TSMGEOUN_CD", "G00000A"},
            {"STATE_CODE", "NM"},
            {"TYPE_CODE", "H"},
            {"NAME", "New unit"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  // Back on page 1, the new row marked.
  EXPECT_EQ("G00000A", Codes().front());
  EXPECT_EQ((std::vector<int>{1}), Selected(kList));
  EXPECT_FALSE(Enabled(kList, "&Prev"));
  EXPECT_TRUE(Enabled(kList, "&Next"));
  EXPECT_EQ("G00000A,ZZZZZZZZ,H,NM,New unit,JSMITH,2024-01-16 12:13:14",
            Units().substr(0, Units().find('\n')));
}

TEST_P(GeologicUnitTest, RequiredFieldsAreMarkedOneAtATimeInWindowOrder) {
  OpenList();
  Ok(Click(kList, "&Add"));
  struct Case {
    json values;
    const char* marked;
  } cases[] = {
      {{{"NAME", "N"}}, "TSMGEOUN_CD1"},
      {{{"TSMGEOUN_CD", "C"}}, "STATE_CODE1"},
      {{{"STATE_CODE", "CO"}}, "TYPE_CODE1"},
      {{{"TYPE_CODE", "G"}, {"NAME", ""}}, "NAME1"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.marked);
    Ok(Click(kEntry, "Accep&t", c.values));
    EXPECT_EQ(kRequired, Message());
    EXPECT_EQ(true, Control(kEntry, c.marked)["error"]);
  }
  EXPECT_EQ(0, Count("TSMGEOUN"));
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Named"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("C,ZZZZZZZZ,G,CO,Named,JSMITH,2024-01-15 09:30:00\n", Units());
}

TEST_P(GeologicUnitTest, AnExistingCodeIsRefusedByTheInsertNotByTheWindow) {
  LoadUnits(kUnits);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t",
           {{"TSMGEOUN_CD", "ALLV"}, {"STATE_CODE", "NM"}, {"TYPE_CODE", "G"}, {"NAME", "Other"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("E: Geologic Unit already exists", Message());
  EXPECT_EQ(kUnits, Units());
  // The same code in another organisation is another key.
  Ok(Click(kEntry, "Accep&t", {{"TSMGEOUN_CD", "DKOT"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(1, Count("TSMGEOUN", "TSMGEOUN_CD = 'DKOT' AND TSMGEOUN_ORG_ID = 'ZZZZZZZZ'"));
}

TEST_P(GeologicUnitTest, AChangeWritesTheRowAndTheListRereadsItsPage) {
  LoadMany(250);
  OpenList();
  Ok(Click(kList, "&Next"));
  Ok(DoubleClickRow(kList, 3));
  EXPECT_EQ("G00202", Value(kEntry, "TSMGEOUN_CD1"));
  SetClock(2024, 2, 1, 8, 0, 0);
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Renamed"}, {"TYPE_CODE", "B"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  // The same page, from its first code, with the row marked.
  EXPECT_EQ("G00200", Codes().front());
  EXPECT_EQ((std::vector<int>{3}), Selected(kList));
  EXPECT_EQ("Renamed", Names()[2]);
  EXPECT_EQ("G00202,ZZZZZZZZ,B,CO,Renamed,JSMITH,2024-02-01 08:00:00",
            *Read<std::string>("SELECT TSMGEOUN_CD || ',' || TSMGEOUN_ORG_ID || ',' || "
                               "TYPE_CODE || ',' || STATE_CODE || ',' || NAME || ',' || "
                               "D_USERID_CODE FROM TSMGEOUN WHERE TSMGEOUN_CD = 'G00202'") +
                ",2024-02-01 08:00:00");
  EXPECT_TRUE(Enabled(kList, "&Prev"));
}

TEST_P(GeologicUnitTest, ChangeWithNothingChangedWritesNothing) {
  LoadUnits(kUnits);
  OpenList();
  Ok(DoubleClickRow(kList, 1));
  Ok(Click(kEntry, "Accep&t"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(kUnits, Units());
}

TEST_P(GeologicUnitTest, ARowDeletedByOthersIsNotFoundAtAcceptAndTheWindowStays) {
  LoadUnits(kUnits);
  OpenList();
  Ok(DoubleClickRow(kList, 1));
  Exec("DELETE FROM TSMGEOUN WHERE TSMGEOUN_CD = 'ALLV'");
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Gone"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("E: GEOLOGIC_UNIT was not found.", Message());
  EXPECT_EQ("Gone", Value(kEntry, "NAME1"));
  EXPECT_EQ(0, Count("TSMGEOUN", "NAME = 'Gone'"));
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{"DKOT", "MRSN"}), Codes());
}

TEST_P(GeologicUnitTest, CancelReloadsTheList) {
  LoadUnits(kUnits);
  OpenList();
  Ok(Click(kList, "&Add"));
  Exec("DELETE FROM TSMGEOUN WHERE TSMGEOUN_CD = 'DKOT'");
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{"ALLV", "MRSN"}), Codes());
}

// ---- Deleting ----

TEST_P(GeologicUnitTest, DeleteDropsTheRowFromTheListAndTheTable) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList, kDelete}), Windows());
  EXPECT_EQ("DKOT", Value(kDelete, "TSMGEOUN_CD1"));
  EXPECT_EQ("Dakota Sandstone", Value(kDelete, "NAME1"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ((std::vector<std::string>{"ALLV", "MRSN"}), Codes());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(0, Count("TSMGEOUN", "TSMGEOUN_CD = 'DKOT'"));
}

TEST_P(GeologicUnitTest, AUnitOfASpringAndAnIntervalReportsTheSpring) {
  LoadUnits(kUnits);
  LoadStation(10);
  Load("TSMSPRNG", "PERMANENCE_CODE,TSMSTATN_IS_NUMBER,TSMSTATN_ORG_ID,TSMGEOUN_CD,"
                   "TSMGEOUN_ORG_ID\nP,10,ORG1,ALLV,ZZZZZZZZ\n");
  Load("TSMIGUA", "TSMIGUA_IS_NUMBER,TSMIGUA_ORG_ID,TSMGEOUN_CD,TSMGEOUN_ORG_ID\n"
                  "1,ORG1,ALLV,ZZZZZZZZ\n2,ORG1,MRSN,ZZZZZZZZ\n");
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ(kSpring, Message());
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ((std::vector<std::string>{"ALLV", "DKOT", "MRSN"}), Codes());
  EXPECT_TRUE(Selected(kList).empty());
  // An interval alone gives its own words.
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ(kInterval, Message());
  EXPECT_EQ(kUnits, Units());
  EXPECT_EQ(1, Count("TSMSPRNG"));
  EXPECT_EQ(2, Count("TSMIGUA"));
}

TEST_P(GeologicUnitTest, AfterADeleteThePagingButtonsFollowTheLastRead) {
  LoadMany(450);
  OpenList();
  Ok(Click(kList, "&Next"));
  Ok(Click(kList, "&Next"));
  ASSERT_EQ(52u, Codes().size());
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ(51u, Codes().size());
  EXPECT_EQ(0, Count("TSMGEOUN", "TSMGEOUN_CD = 'G00400'"));
  // The last page: Prev on, Next off.
  EXPECT_TRUE(Enabled(kList, "&Prev"));
  EXPECT_FALSE(Enabled(kList, "&Next"));
  // And on page 1, the other way round.
  Ok(Click(kList, "&Prev"));
  Ok(Click(kList, "&Prev"));
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ("G00002", Codes().front());
  EXPECT_FALSE(Enabled(kList, "&Prev"));
  EXPECT_TRUE(Enabled(kList, "&Next"));
}

TEST_P(GeologicUnitTest, ARowDeletedByOthersStaysInTheListUnmarked) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Delete"));
  Exec("DELETE FROM TSMGEOUN WHERE TSMGEOUN_CD = 'MRSN'");
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("E: GEOLOGIC_UNIT was not found.", Message());
  EXPECT_EQ((std::vector<std::string>{"ALLV", "DKOT", "MRSN"}), Codes());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(4, Count("TSMGEOUN"));
}

TEST_P(GeologicUnitTest, CancelInTheDeleteDialogClearsTheSelection) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(kUnits, Units());
}

// ---- Bad input ----

TEST_P(GeologicUnitTest, RequestsTheWindowsCannotTakeAreRefusedAndChangeNothing) {
  LoadUnits(kUnits);
  OpenList();
  const json list_before = Screen();
  EXPECT_EQ(400, Click(kList, "&Change").status);
  EXPECT_EQ(400, Click(kList, "&Delete").status);
  EXPECT_EQ(400, Click(kList, "&Prev").status);
  EXPECT_EQ(list_before, Screen());
  // Search text that the fields cannot hold.
  EXPECT_EQ(400, Click(kList, "&Search", {{"TSMGEOUN_CD", std::string(13, 'A')}}).status);
  EXPECT_EQ(400, Click(kList, "&Search", {{"NAME", "\xE4\xB8\xAD"}}).status);
  EXPECT_EQ(list_before, Screen());

  Ok(Click(kList, "&Add"));
  const json entry_before = Screen();
  const json values[] = {
      {{"TSMGEOUN_CD", "THIRTEENCHARS"}},            // 13 > 12
      {{"STATE_CODE", "COL"}},                       // 3 > 2
      {{"NAME", std::string(81, 'n')}},              // 81 > 80
      {{"NAME", "snow \xE2\x98\x83"}},               // not in 1252
      {{"TSMGEOUN_CD", "\xE4\xB8\xAD"}},             // not in 1252
      {{"D_USERID_CODE", "HACKER"}},                 // read-only
  };
  for (const json& v : values) {
    SCOPED_TRACE(v.dump());
    const Reply r = Click(kEntry, "Accep&t", v);
    EXPECT_EQ(400, r.status);
    EXPECT_TRUE(r.body.contains("error"));
    EXPECT_EQ(entry_before, Screen());
  }
  EXPECT_EQ(kUnits, Units());
  // A Type Code outside the drop-down is refused with the runtime's words,
  // and nothing else changes on the window.
  Ok(Click(kEntry, "Accep&t", {{"TSMGEOUN_CD", "NEW"}, {"TYPE_CODE", "X"}}));
  EXPECT_EQ(
      "E: Field does not contain permitted value; Please retry; Use Help for field information.",
      Message());
  EXPECT_EQ("", Value(kEntry, "TYPE_CODE1"));
  EXPECT_EQ(kUnits, Units());
  // What fits goes through, at the full width and in 1252.
  const std::string name(79, 'n');
  Ok(Click(kEntry, "Accep&t",
           {{"TSMGEOUN_CD", "B\xC3\xA9" + std::string(10, 'X')},
            {"STATE_CODE", "NM"},
            {"TYPE_CODE", "B"},
            {"NAME", name + "\xE2\x82\xAC"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_NE(std::string::npos,
            Units().find("B\xC3\xA9XXXXXXXXXX,ZZZZZZZZ,B,NM," + name + "\xE2\x82\xAC,"));
}

INSTANTIATE_TEST_SUITE_P(Backends, GeologicUnitTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);

}  // namespace
}  // namespace watrix
