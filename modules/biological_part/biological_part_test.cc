// The biological part module through a session over liblkbase.so, on SQLite
// and on PostgreSQL: the list RT48, its delete dialog RT48A and the data
// entry window RT49, reached from the menu and driven by the events a
// person's clicks and typing send. After each story the table is read back
// directly, so that the database holds what the windows say and nothing
// more.
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
constexpr char kList[] = "RT48_BIO_PART_MAINT_LIST";
constexpr char kDelete[] = "RT48A_DELTE_BIOLOGICAL_PART_CONF";
constexpr char kEntry[] = "RT49_BIO_PART_DATA_ENTRY";

constexpr char kHeader[] =
    "TSRBIOPT_IS_NUMBER,TSRBIOPT_ORG_ID,NAME,D_USERID_CODE,D_LAST_UPDT_TS\n";
constexpr char kCounterHeader[] =
    "TSMEISN_NAME,TSMEISN_ORG_ID,IS_NUMBER,D_USERID_CODE,D_LAST_UPDT_TS\n";
constexpr char kActivityHeader[] =
    "TSRFDACT_IS_NUMBER,TSRFDACT_ORG_ID,TSRBIOPT_IS_NUMBER,TSRBIOPT_ORG_ID\n";
constexpr char kExists[] = "E: Biological Part already exists";
constexpr char kNotFound[] = "E: Biological Part Not Found";
constexpr char kInUse[] =
    "E: Cannot delete the selected Biological Part. It is related to a Field Activity.";
constexpr char kRequired[] = "E: An entry must be made in this field.";

// The buttons of RT48 by their design names.
constexpr char kAdd[] = "Button1";
constexpr char kChange[] = "Button2";
constexpr char kDeleteButton[] = "Button3";

class BiologicalPartTest : public testing::ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    if (HasFatalFailure()) return;
    SetClock(2024, 1, 15, 9, 30, 0);
    Start("JSMITH", "ORG1");
  }

  void OpenList() { Ok(Click(kMenu, "&Bio Part")); }
  void Add(const std::string& name) {
    Ok(Click(kList, "&Add"));
    Ok(Click(kEntry, "Accep&t", {{"NAME", name}}));
  }
  std::vector<std::string> Names() { return Column(kList, 0); }
  // Add, Change, Delete: which are enabled.
  std::vector<bool> Buttons() {
    return {Enabled(kList, kAdd), Enabled(kList, kChange), Enabled(kList, kDeleteButton)};
  }

  void LoadParts(const std::string& rows) { Load("TSRBIOPT", kHeader + rows); }
  void LoadCounters(const std::string& rows) { Load("TSMEISN", kCounterHeader + rows); }
  void LoadActivities(const std::string& rows) { Load("TSRFDACT", kActivityHeader + rows); }
  // The rows of TSRBIOPT after the header, in key order.
  std::string Parts() { return Dump("TSRBIOPT").substr(sizeof kHeader - 1); }
};

const std::vector<bool> kNoRow = {true, false, false};
const std::vector<bool> kRow = {false, true, true};

// Five parts of two organisations.
constexpr char kFive[] =
    "1,ZZZZZZZZ,Blood,LOADER,2023-05-01 10:00:00\n"
    "2,ORG2,Fin,LOADER,2023-05-01 10:00:00\n"
    "3,ZZZZZZZZ,Gill,LOADER,2023-05-01 10:00:00\n"
    "4,ZZZZZZZZ,Liver,LOADER,2023-05-01 10:00:00\n"
    "5,ZZZZZZZZ,Muscle,LOADER,2023-05-01 10:00:00\n";

// ---- The list ----

TEST_P(BiologicalPartTest, TheMenuOpensTheListOfEveryOrganisationsPartsByName) {
  LoadParts(kFive);
  OpenList();
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  const json w = Screen()["windows"][0];
  EXPECT_EQ("RT48 Biological Part Maintenance List", w["title"]);
  EXPECT_EQ("Bio Part", Control(kList, "ListBox1")["columns"][0]["heading"]);
  EXPECT_EQ((std::vector<std::string>{"Blood", "Fin", "Gill", "Liver", "Muscle"}), Names());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ("", Message());
  EXPECT_EQ(kNoRow, Buttons());
  EXPECT_STREQ("RT48_BIO_PART_MAINT_LIST_OPEN", session().run_context().unit_name);
}

TEST_P(BiologicalPartTest, The201stPartInNameOrderDoesNotShow) {
  std::string rows;
  char line[128];
  for (int i = 1; i <= 201; ++i) {
    std::snprintf(line, sizeof line, "%d,ZZZZZZZZ,Organ %03d,LOADER,2023-05-01 10:00:00\n", i, i);
    rows += line;
  }
  LoadParts(rows);
  OpenList();
  const std::vector<std::string> names = Names();
  ASSERT_EQ(200u, names.size());
  EXPECT_EQ("Organ 001", names.front());
  EXPECT_EQ("Organ 200", names.back());
  EXPECT_EQ("", Message());
  EXPECT_EQ(201, Count("TSRBIOPT"));
}

TEST_P(BiologicalPartTest, TheListSetsItsButtonsBySelection) {
  LoadParts(kFive);
  OpenList();
  Ok(ClickRow(kList, 2));
  EXPECT_EQ((std::vector<int>{2}), Selected(kList));
  EXPECT_EQ(kRow, Buttons());
  // Another row takes over; a second click on it releases it.
  Ok(ClickRow(kList, 4));
  EXPECT_EQ((std::vector<int>{4}), Selected(kList));
  EXPECT_EQ(kRow, Buttons());
  Ok(ClickRow(kList, 4));
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(kNoRow, Buttons());
}

TEST_P(BiologicalPartTest, CloseReturnsToTheMenu) {
  OpenList();
  Ok(Click(kList, "C&lose"));
  EXPECT_EQ((std::vector<std::string>{kMenu}), Windows());
}

// ---- Adding ----

TEST_P(BiologicalPartTest, AddTakesANewIsNumberAndTheNationalOrganisation) {
  LoadParts(kFive);
  LoadCounters("TSRBIOPT,ORG1,40,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  Ok(Click(kList, "&Add"));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("RT49 Biological Part Data Entry", Screen()["windows"][0]["title"]);
  EXPECT_EQ("", Value(kEntry, "NAME1"));
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Kidney"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_NE(std::string::npos, Parts().find("41,ZZZZZZZZ,Kidney,JSMITH,2024-01-15 09:30:00\n"));
  // The list reads again and selects the new row.
  EXPECT_EQ((std::vector<std::string>{"Blood", "Fin", "Gill", "Kidney", "Liver", "Muscle"}),
            Names());
  EXPECT_EQ((std::vector<int>{4}), Selected(kList));
  EXPECT_EQ(kRow, Buttons());
}

TEST_P(BiologicalPartTest, ANameInUseInAnyOrganisationIsRefusedAtAdd) {
  LoadParts(kFive);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Fin"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kExists, Message());
  // The window shows what was typed.
  EXPECT_EQ("Fin", Value(kEntry, "NAME1"));
  EXPECT_EQ(kFive, Parts());
  EXPECT_EQ(0, Count("TSMEISN"));
}

TEST_P(BiologicalPartTest, AnInsertThatMeetsTheKeyOfAnotherRowSaysAlreadyExists) {
  LoadParts(kFive);
  // The counter gives 1, which Blood holds in the national organisation.
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Kidney"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kExists, Message());
  EXPECT_EQ("Kidney", Value(kEntry, "NAME1"));
  EXPECT_EQ(kFive, Parts());
  // No rollback is asked for: the number taken stays taken, and the next
  // Accept takes the one after it.
  EXPECT_EQ(1, Counter("TSRBIOPT", "ORG1"));
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Kidney"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_NE(std::string::npos, Parts().find("2,ZZZZZZZZ,Kidney,JSMITH,"));
}

TEST_P(BiologicalPartTest, ABlankNameIsRequired) {
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"NAME", ""}}));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("10    ", Control(kEntry, "NAME1")["display"]);
  EXPECT_EQ("", Parts());
  // Cancel after the failed Accept reloads the list as usual.
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(kNoRow, Buttons());
}

TEST_P(BiologicalPartTest, AReturnByCancelReloadsTheList) {
  LoadParts(kFive);
  OpenList();
  Ok(Click(kList, "&Add"));
  Exec("INSERT INTO TSRBIOPT VALUES (9, 'ORG3', 'Eye', 'OTHER', '2023-06-01 10:00:00')");
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ((std::vector<std::string>{"Blood", "Eye", "Fin", "Gill", "Liver", "Muscle"}),
            Names());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(kNoRow, Buttons());
}

// ---- Changing ----

TEST_P(BiologicalPartTest, ADoubleClickOpensTheRowWhichTheListSelectsAgainOnReturn) {
  LoadParts(kFive);
  OpenList();
  Ok(DoubleClickRow(kList, 3));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ("Gill", Value(kEntry, "NAME1"));
  EXPECT_EQ("LOADER", Value(kEntry, "D_USERID_CODE1"));
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Gills"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_NE(std::string::npos, Parts().find("3,ZZZZZZZZ,Gills,JSMITH,2024-01-15 09:30:00\n"));
  EXPECT_EQ((std::vector<int>{3}), Selected(kList));
  EXPECT_EQ(kRow, Buttons());
}

TEST_P(BiologicalPartTest, AChangeThatKeepsTheNameWritesNothing) {
  LoadParts(kFive);
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Change"));
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Blood"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ(kFive, Parts());
}

TEST_P(BiologicalPartTest, RenamingToANameOfAnyOrganisationIsRefused) {
  LoadParts(kFive);
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Change"));
  // "Fin" belongs to ORG2, the row to ZZZZZZZZ: no ORG ID is compared.
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Fin"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kExists, Message());
  EXPECT_EQ("Fin", Value(kEntry, "NAME1"));
  EXPECT_EQ(kFive, Parts());
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ(kFive, Parts());
}

TEST_P(BiologicalPartTest, ARowDeletedByOthersIsNotFoundAtAcceptInChangeMode) {
  LoadParts(kFive);
  OpenList();
  Ok(DoubleClickRow(kList, 4));
  Exec("DELETE FROM TSRBIOPT WHERE TSRBIOPT_IS_NUMBER = 4");
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Livers"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kNotFound, Message());
  EXPECT_EQ("Livers", Value(kEntry, "NAME1"));
  EXPECT_EQ(4, Count("TSRBIOPT"));
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{"Blood", "Fin", "Gill", "Muscle"}), Names());
  EXPECT_EQ(kNoRow, Buttons());
}

TEST_P(BiologicalPartTest, ARowGoneBeforeTheWindowOpensShowsBlankWithTheReadsMessage) {
  LoadParts(kFive);
  OpenList();
  Ok(ClickRow(kList, 2));
  Exec("DELETE FROM TSRBIOPT WHERE TSRBIOPT_IS_NUMBER = 2");
  Ok(Click(kList, "&Change"));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  // The read's message has kind "E" and shows; no exit state is tested.
  EXPECT_EQ(kNotFound, Message());
  EXPECT_EQ("", Value(kEntry, "NAME1"));
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{"Blood", "Gill", "Liver", "Muscle"}), Names());
}

// ---- Deleting ----

TEST_P(BiologicalPartTest, DeleteOfTheOnlyRowLeavesAnEmptyList) {
  LoadParts("7,ZZZZZZZZ,Scale,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList, kDelete}), Windows());
  EXPECT_EQ("RT48A Delete Biological Part", Screen()["windows"][1]["title"]);
  EXPECT_EQ("Scale", Value(kDelete, "NAME1"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_TRUE(Names().empty());
  EXPECT_EQ("", Message());
  EXPECT_EQ("", Parts());
  EXPECT_EQ(kNoRow, Buttons());
}

TEST_P(BiologicalPartTest, DeleteOfRowThreeOfFiveMovesTheRowsBelowUp) {
  LoadParts(kFive);
  OpenList();
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{"Blood", "Fin", "Liver", "Muscle"}), Names());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(kNoRow, Buttons());
  EXPECT_EQ(4, Count("TSRBIOPT"));
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Change"));
  EXPECT_EQ("Liver", Value(kEntry, "NAME1"));
}

TEST_P(BiologicalPartTest, CancelInTheDeleteDialogClearsTheSelection) {
  LoadParts(kFive);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(kNoRow, Buttons());
  EXPECT_EQ(kFive, Parts());
}

TEST_P(BiologicalPartTest, APartUsedByAFieldActivityCannotBeDeleted) {
  LoadParts(kFive);
  LoadActivities("70,ORG1,3,ZZZZZZZZ\n");
  OpenList();
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(kInUse, Message());
  EXPECT_EQ((std::vector<std::string>{"Blood", "Fin", "Gill", "Liver", "Muscle"}), Names());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(kNoRow, Buttons());
  EXPECT_EQ(kFive, Parts());
  // A part of the same number in another organisation is no reference.
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ("", Message());
  EXPECT_EQ(4, Count("TSRBIOPT"));
}

TEST_P(BiologicalPartTest, ARowDeletedByOthersStaysInTheListUnmarked) {
  LoadParts(kFive);
  OpenList();
  Ok(ClickRow(kList, 4));
  Ok(Click(kList, "&Delete"));
  Exec("DELETE FROM TSRBIOPT WHERE TSRBIOPT_IS_NUMBER = 4");
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ(kNotFound, Message());
  EXPECT_EQ((std::vector<std::string>{"Blood", "Fin", "Gill", "Liver", "Muscle"}), Names());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(4, Count("TSRBIOPT"));
}

// ---- Bad input ----

TEST_P(BiologicalPartTest, RequestsTheWindowsCannotTakeAreRefusedAndChangeNothing) {
  LoadParts(kFive);
  LoadCounters("TSRBIOPT,ORG1,100,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  const json list_before = Screen();
  EXPECT_EQ(400, Click(kList, "&Change").status);
  EXPECT_EQ(400, Click(kList, "&Delete").status);
  EXPECT_EQ(400, ClickRow(kList, 6).status);
  EXPECT_EQ(list_before, Screen());

  Ok(Click(kList, "&Add"));
  const json entry_before = Screen();
  const json values[] = {
      {{"NAME", std::string(31, 'x')}},          // 31 > 30
      {{"NAME", "\xE4\xB8\xAD"}},                 // not in 1252
      {{"D_USERID_CODE", "HACKER"}},              // read-only
      {{"NO_SUCH_FIELD", "x"}},
  };
  for (const json& v : values) {
    SCOPED_TRACE(v.dump());
    const Reply r = Click(kEntry, "Accep&t", v);
    EXPECT_EQ(400, r.status);
    EXPECT_TRUE(r.body.contains("error"));
    EXPECT_EQ(entry_before, Screen());
  }
  EXPECT_EQ(kFive, Parts());
  // The full width, in 1252, goes through.
  const std::string thirty = std::string(29, 'k') + "\xC3\xA9";
  Ok(Click(kEntry, "Accep&t", {{"NAME", thirty}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ(thirty, Names()[5]);  // small letters sort after capitals
  EXPECT_EQ(thirty, Read<std::string>("SELECT NAME FROM TSRBIOPT WHERE NAME LIKE 'kk%'"));
}

INSTANTIATE_TEST_SUITE_P(Backends, BiologicalPartTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);

}  // namespace
}  // namespace watrix
