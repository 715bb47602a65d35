// The lithologic unit module through a session over liblkbase.so, on SQLite
// and on PostgreSQL: the list RT42 without paging, the delete dialog RT42A
// and the data entry window RT43, reached from the menu and driven by the
// events a person's clicks and typing send. After each story the table is
// read back directly, so that the database holds what the windows say and
// nothing more.
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
constexpr char kList[] = "RT42_LITHOLOGIC_UNIT_MAINT_LIST";
constexpr char kDelete[] = "RT42A_DELETE_LITHOLOGIC_UNIT";
constexpr char kEntry[] = "RT43_LITHOLOGIC_UNIT_DATA_ENTRY";

constexpr char kHeader[] = "TSMLTHUN_CD,TSMLTHUN_ORG_ID,NAME,D_USERID_CODE,D_LAST_UPDT_TS\n";
constexpr char kRequired[] = "E: An entry must be made in this field.";
constexpr char kNotFound[] = "E: LITHOLOGIC_UNIT was not found.";
constexpr char kDuplicate[] = "E: A Lithologic Unit with this Code already exists.";

class LithologicUnitTest : public testing::ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    if (HasFatalFailure()) return;
    SetClock(2024, 1, 15, 9, 30, 0);
    Start("JSMITH", "ORG1");
  }

  void OpenList() { Ok(Click(kMenu, "Lithologic &Unit")); }
  std::vector<std::string> Codes() { return Column(kList, 0); }
  std::vector<std::string> Names() { return Column(kList, 1); }
  void LoadUnits(const std::string& rows) { Load("TSMLTHUN", kHeader + rows); }
  // The rows of TSMLTHUN after the header, in key order.
  std::string Units() { return Dump("TSMLTHUN").substr(sizeof kHeader - 1); }
};

// Five units of the run's organisation and one of another.
constexpr char kUnits[] =
    "CLAY,ORG1,Clay,LOADER,2023-05-01 10:00:00\n"
    "GRVL,ORG1,Gravel,LOADER,2023-05-01 10:00:00\n"
    "LMST,ORG1,Limestone,LOADER,2023-05-01 10:00:00\n"
    "SAND,ORG1,Sand,LOADER,2023-05-01 10:00:00\n"
    "SHLE,ORG2,Shale,LOADER,2023-05-01 10:00:00\n"
    "SLTS,ORG1,Siltstone,LOADER,2023-05-01 10:00:00\n";
const std::vector<std::string> kAllCodes = {"CLAY", "GRVL", "LMST", "SAND", "SLTS"};

// ---- The list ----

TEST_P(LithologicUnitTest, TheMenuOpensTheRunsOrganisationsUnitsByCode) {
  LoadUnits(kUnits);
  OpenList();
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("RT42 Lithologic Unit Maintenance List", Screen()["windows"][0]["title"]);
  const json list = Control(kList, "ListBox1");
  EXPECT_EQ("USGS Code", list["columns"][0]["heading"]);
  EXPECT_EQ("Name", list["columns"][1]["heading"]);
  EXPECT_EQ(kAllCodes, Codes());
  EXPECT_EQ((std::vector<std::string>{"Clay", "Gravel", "Limestone", "Sand", "Siltstone"}),
            Names());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ("", Message());
  EXPECT_TRUE(Enabled(kList, "&Add"));
  EXPECT_FALSE(Enabled(kList, "&Change"));
  EXPECT_FALSE(Enabled(kList, "&Delete"));
  EXPECT_STREQ("RT42_LITHOLOGIC_UNIT_MAINT_LIST", session().run_context().unit_name);
}

TEST_P(LithologicUnitTest, AnEmptyTableShowsAnEmptyList) {
  OpenList();
  EXPECT_TRUE(Codes().empty());
  EXPECT_EQ("", Message());
}

TEST_P(LithologicUnitTest, ATableAbove200RowsShowsOnlyTheFirst200) {
  std::string rows;
  char line[128];
  for (int i = 1; i <= 201; ++i) {
    std::snprintf(line, sizeof line, "L%04d,ORG1,Unit %04d,LOADER,2023-05-01 10:00:00\n", i, i);
    rows += line;
  }
  LoadUnits(rows);
  OpenList();
  const std::vector<std::string> codes = Codes();
  ASSERT_EQ(200u, codes.size());
  EXPECT_EQ("L0001", codes.front());
  EXPECT_EQ("L0200", codes.back());
  // Nothing says so, and nothing pages.
  EXPECT_EQ("", Message());
  EXPECT_EQ(201, Count("TSMLTHUN"));
}

TEST_P(LithologicUnitTest, ASecondClickOnTheSelectedRowReleasesIt) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 2));
  EXPECT_EQ((std::vector<int>{2}), Selected(kList));
  EXPECT_TRUE(Enabled(kList, "&Change"));
  EXPECT_FALSE(Enabled(kList, "&Add"));
  Ok(ClickRow(kList, 2));
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_FALSE(Enabled(kList, "&Change"));
}

TEST_P(LithologicUnitTest, CloseReturnsToTheMenu) {
  OpenList();
  Ok(Click(kList, "C&lose"));
  EXPECT_EQ((std::vector<std::string>{kMenu}), Windows());
}

// ---- Adding ----

TEST_P(LithologicUnitTest, AfterAnAddTheListStartsAtTheNewRow) {
  LoadUnits(kUnits);
  OpenList();
  Ok(Click(kList, "&Add"));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("RT43 Lithologic Unit Data Entry", Screen()["windows"][0]["title"]);
  EXPECT_EQ("", Value(kEntry, "TSMLTHUN_CD1"));
  Ok(Click(kEntry, "Accep&t", {{"TSMLTHUN_CD", "MARL"}, {"NAME", "Marl"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  // The run's organisation, the user and the stamp of now.
  EXPECT_NE(std::string::npos, Units().find("MARL,ORG1,Marl,JSMITH,2024-01-15 09:30:00\n"));
  // The list begins at the new row: the rows before it are out of view.
  EXPECT_EQ((std::vector<std::string>{"MARL", "SAND", "SLTS"}), Codes());
  EXPECT_EQ((std::vector<int>{1}), Selected(kList));
  // Until the list is opened again.
  Ok(Click(kList, "C&lose"));
  OpenList();
  EXPECT_EQ((std::vector<std::string>{"CLAY", "GRVL", "LMST", "MARL", "SAND", "SLTS"}),
            Codes());
}

TEST_P(LithologicUnitTest, CancelAfterAddReadsFromTheEmptyRowInHandSoFromTheTop) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 3));
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Add"));
  Exec("INSERT INTO TSMLTHUN VALUES ('BSLT', 'ORG1', 'Basalt', 'OTHER', "
       "'2023-06-01 10:00:00')");
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ((std::vector<std::string>{"BSLT", "CLAY", "GRVL", "LMST", "SAND", "SLTS"}),
            Codes());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(kAllCodes.size() + 2, static_cast<size_t>(Count("TSMLTHUN")));
}

TEST_P(LithologicUnitTest, ARowInHandWithANameAndNoCodeReadsByNameSortedByCode) {
  LoadUnits(std::string(kUnits) + "AAZE,ORG1,Zeolite,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  Ok(Click(kList, "&Add"));
  // A name without a code: refused, and the row as typed goes back with
  // Cancel onto the row in hand.
  Ok(Click(kEntry, "Accep&t", {{"TSMLTHUN_CD", ""}, {"NAME", "H"}}));
  EXPECT_EQ(kRequired, Message());
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  // Names from "H" on, in the order of their codes, not of their names.
  EXPECT_EQ((std::vector<std::string>{"AAZE", "LMST", "SAND", "SLTS"}), Codes());
  EXPECT_EQ((std::vector<std::string>{"Zeolite", "Limestone", "Sand", "Siltstone"}), Names());
  EXPECT_TRUE(Selected(kList).empty());
}

TEST_P(LithologicUnitTest, AnExistingCodeIsRefusedByTheDuplicateRead) {
  LoadUnits(kUnits);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TSMLTHUN_CD", "GRVL"}, {"NAME", "Other"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kDuplicate, Message());
  // The code passed its required test; the duplicate read marks no field.
  EXPECT_EQ("3a    ", Control(kEntry, "TSMLTHUN_CD1")["display"]);
  EXPECT_EQ(kUnits, Units());
  // The same code in another organisation is another key.
  Ok(Click(kEntry, "Accep&t", {{"TSMLTHUN_CD", "SHLE"}, {"NAME", "Shale"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(1, Count("TSMLTHUN", "TSMLTHUN_CD = 'SHLE' AND TSMLTHUN_ORG_ID = 'ORG1'"));
}

TEST_P(LithologicUnitTest, CodeThenNameAreRequired) {
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TSMLTHUN_CD", ""}, {"NAME", ""}}));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("10    ", Control(kEntry, "TSMLTHUN_CD1")["display"]);
  Ok(Click(kEntry, "Accep&t", {{"TSMLTHUN_CD", "TILL"}, {"NAME", ""}}));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("3a    ", Control(kEntry, "TSMLTHUN_CD1")["display"]);
  EXPECT_EQ("10    ", Control(kEntry, "NAME1")["display"]);
  EXPECT_EQ("", Units());
}

// ---- Changing ----

TEST_P(LithologicUnitTest, AfterAChangeTheListStartsAtThatRowWithTheCodeProtected) {
  LoadUnits(kUnits);
  OpenList();
  Ok(DoubleClickRow(kList, 3));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("LMST", Value(kEntry, "TSMLTHUN_CD1"));
  EXPECT_EQ("Limestone", Value(kEntry, "NAME1"));
  EXPECT_EQ("3gA2B7", Control(kEntry, "TSMLTHUN_CD1")["display"]);
  SetClock(2024, 2, 1, 8, 0, 0);
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Chalky limestone"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_NE(std::string::npos,
            Units().find("LMST,ORG1,Chalky limestone,JSMITH,2024-02-01 08:00:00\n"));
  // From the row in hand on: CLAY and GRVL are out of view.
  EXPECT_EQ((std::vector<std::string>{"LMST", "SAND", "SLTS"}), Codes());
  EXPECT_EQ((std::vector<int>{1}), Selected(kList));
}

TEST_P(LithologicUnitTest, AChangeThatKeepsTheNameWritesNothing) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Change"));
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Gravel"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ(kUnits, Units());
  EXPECT_EQ((std::vector<std::string>{"GRVL", "LMST", "SAND", "SLTS"}), Codes());
}

TEST_P(LithologicUnitTest, CancelAfterAChangeAlsoReadsFromTheRowInHand) {
  LoadUnits(kUnits);
  OpenList();
  Ok(DoubleClickRow(kList, 4));
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ((std::vector<std::string>{"SAND", "SLTS"}), Codes());
  EXPECT_EQ((std::vector<int>{1}), Selected(kList));
  EXPECT_EQ(kUnits, Units());
}

TEST_P(LithologicUnitTest, ARowDeletedByOthersIsNotFoundAtAcceptInChangeMode) {
  LoadUnits(kUnits);
  OpenList();
  Ok(DoubleClickRow(kList, 1));
  Exec("DELETE FROM TSMLTHUN WHERE TSMLTHUN_CD = 'CLAY'");
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Gone"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("E: An internal system error has occurred.  Contact system administrator.",
            Message());
  EXPECT_EQ(0, Count("TSMLTHUN", "NAME = 'Gone'"));
  EXPECT_EQ(5, Count("TSMLTHUN"));
}

// ---- Deleting ----

TEST_P(LithologicUnitTest, DeleteRemovesTheRowAndClosesUpTheList) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList, kDelete}), Windows());
  EXPECT_EQ("RT42A Delete Lithologic Unit", Screen()["windows"][1]["title"]);
  EXPECT_EQ("LMST", Value(kDelete, "TSMLTHUN_CD1"));
  EXPECT_EQ("Limestone", Value(kDelete, "NAME1"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ((std::vector<std::string>{"CLAY", "GRVL", "SAND", "SLTS"}), Codes());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(0, Count("TSMLTHUN", "TSMLTHUN_CD = 'LMST'"));
  EXPECT_EQ(5, Count("TSMLTHUN"));
}

TEST_P(LithologicUnitTest, CancelInTheDeleteDialogClearsTheSelection) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(kAllCodes, Codes());
  EXPECT_EQ(kUnits, Units());
}

TEST_P(LithologicUnitTest, ADeleteOfARowRenamedElsewhereIsNotFoundAndStillClosesUp) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 4));
  Ok(Click(kList, "&Delete"));
  Exec("UPDATE TSMLTHUN SET NAME = 'Sand and gravel' WHERE TSMLTHUN_CD = 'SAND'");
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(kNotFound, Message());
  // The list closes up all the same; the row stays in the table.
  EXPECT_EQ((std::vector<std::string>{"CLAY", "GRVL", "LMST", "SLTS"}), Codes());
  EXPECT_EQ(1, Count("TSMLTHUN", "TSMLTHUN_CD = 'SAND' AND NAME = 'Sand and gravel'"));
  EXPECT_EQ(6, Count("TSMLTHUN"));
}

TEST_P(LithologicUnitTest, ADeleteOfARowDeletedElsewhereIsNotFoundAndClosesUp) {
  LoadUnits(kUnits);
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Delete"));
  Exec("DELETE FROM TSMLTHUN WHERE TSMLTHUN_CD = 'CLAY'");
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ(kNotFound, Message());
  EXPECT_EQ((std::vector<std::string>{"GRVL", "LMST", "SAND", "SLTS"}), Codes());
  EXPECT_EQ(5, Count("TSMLTHUN"));
}

// ---- Bad input ----

TEST_P(LithologicUnitTest, RequestsTheWindowsCannotTakeAreRefusedAndChangeNothing) {
  LoadUnits(kUnits);
  OpenList();
  const json list_before = Screen();
  EXPECT_EQ(400, Click(kList, "&Change").status);
  EXPECT_EQ(400, Click(kList, "&Delete").status);
  EXPECT_EQ(400, ClickRow(kList, 6).status);
  EXPECT_EQ(list_before, Screen());

  Ok(Click(kList, "&Add"));
  const json entry_before = Screen();
  const json values[] = {
      {{"TSMLTHUN_CD", "THIRTEENCHARS"}},  // 13 > 12
      {{"NAME", std::string(121, 'n')}},   // 121 > 120
      {{"NAME", "snow \xE2\x98\x83"}},     // not in 1252
      {{"TSMLTHUN_CD", "\xE4\xB8\xAD"}},   // not in 1252
      {{"D_USERID_CODE", "HACKER"}},       // read-only
      {{"NO_SUCH_FIELD", "x"}},
  };
  for (const json& v : values) {
    SCOPED_TRACE(v.dump());
    const Reply r = Click(kEntry, "Accep&t", v);
    EXPECT_EQ(400, r.status);
    EXPECT_TRUE(r.body.contains("error"));
    EXPECT_EQ(entry_before, Screen());
  }
  EXPECT_EQ(kUnits, Units());
  // What fits goes through, at the full width and in 1252.
  const std::string name = std::string(119, 'n') + "\xE2\x82\xAC";
  Ok(Click(kEntry, "Accep&t", {{"TSMLTHUN_CD", "B\xC3\xA9" + std::string(10, 'X')},
                               {"NAME", name}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_NE(std::string::npos, Units().find("B\xC3\xA9XXXXXXXXXX,ORG1," + name + ",JSMITH,"));
}

INSTANTIATE_TEST_SUITE_P(Backends, LithologicUnitTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);

}  // namespace
}  // namespace watrix
