// The unit of measure module through a session over liblkbase.so, on SQLite
// and on PostgreSQL: the list RT34 from the menu's second page, its delete
// dialog RT34A, the data entry window RT35 with its combo box of unit types,
// and the preview UOM1 entered from elsewhere with a characteristic's type.
// After each story the table is read back directly.
#include <algorithm>
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
constexpr char kPage2[] = "RT1A_REFERENCE_TABLE_MAINT_MENU";
constexpr char kList[] = "RT34_UNIT_OF_MEASURE_MAINT_LIST";
constexpr char kDelete[] = "RT34A_DELETE_UNIT_OF_MEASURE";
constexpr char kEntry[] = "RT35_UNIT_OF_MEASURE_DATA_ENTRY";
constexpr char kPreview[] = "UOM1_UNIT_OF_MEASURE_PREVIEW";

constexpr char kHeader[] =
    "TSRUOM_IS_NUMBER,TSRUOM_ORG_ID,UOM_TYPE,SHORT_FORM_NAME,DESCRIPTION_TEXT,D_USERID_CODE,"
    "D_LAST_UPDATE_TS\n";
constexpr char kCounterHeader[] =
    "TSMEISN_NAME,TSMEISN_ORG_ID,IS_NUMBER,D_USERID_CODE,D_LAST_UPDT_TS\n";
constexpr char kDuplicate[] =
    "E: A Unit of Measure with this Unit of Measure Type and Name already exist";
constexpr char kRequired[] = "E: An entry must be made in this field.";
constexpr char kInUse[] = "E: Cannot delete UOM. It is being used.";
constexpr char kNotFound[] = "E: UNIT_OF_MEASURE was not found.";
constexpr char kInternal[] =
    "E: An internal system error has occurred.  Contact system administrator.";

class UnitOfMeasureTest : public testing::ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    if (HasFatalFailure()) return;
    SetClock(2024, 1, 15, 9, 30, 0);
    Start("JSMITH", "ORG1");
  }

  void OpenList() {
    Ok(Click(kMenu, "Additional Tables >>>"));
    Ok(Click(kPage2, "Unit of &Measure"));
  }
  // "TYPE/short" per row as shown.
  std::vector<std::string> Shown() {
    std::vector<std::string> out;
    for (const testing::ListRow& r : ListRows(kList)) out.push_back(r.cells.at(0) + "/" + r.cells.at(1));
    return out;
  }
  void LoadUnits(const std::string& rows) { Load("TSRUOM", kHeader + rows); }
  void LoadCounters(const std::string& rows) { Load("TSMEISN", kCounterHeader + rows); }
  std::string Units() { return Dump("TSRUOM").substr(sizeof kHeader - 1); }
  // n units of ORG1 of type LEN, short forms U001.., IS numbers 1..n.
  void LoadMany(int n) {
    std::string rows;
    char line[160];
    for (int i = 1; i <= n; ++i) {
      std::snprintf(line, sizeof line, "%d,ORG1,LEN,U%03d,Unit %d,LOADER,2023-05-01 10:00:00\n", i,
                    i, i);
      rows += line;
    }
    LoadUnits(rows);
  }
};

constexpr char kFour[] =
    "1,ORG1,TEMP,deg C,Degrees Celsius,LOADER,2023-05-01 10:00:00\n"
    "2,ORG1,LEN,m,Meters,LOADER,2023-05-01 10:00:00\n"
    "3,ORG1,LEN,ft,Feet,LOADER,2023-05-01 10:00:00\n"
    "4,ORG2,VOL,L,Liters,LOADER,2023-05-01 10:00:00\n";

// ---- The list ----

TEST_P(UnitOfMeasureTest, TheSecondPageOfTheMenuOpensTheListOfTheRunsOrganisation) {
  LoadUnits(kFour);
  OpenList();
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("RT34 Unit Of Measure Maintenance List", Screen()["windows"][0]["title"]);
  const json list = Control(kList, "ListBox1");
  EXPECT_EQ("Type", list["columns"][0]["heading"]);
  EXPECT_EQ("UOM", list["columns"][1]["heading"]);
  EXPECT_EQ("Description", list["columns"][2]["heading"]);
  // ORG2's liters do not show; by type, then short form.
  EXPECT_EQ((std::vector<std::string>{"LEN/ft", "LEN/m", "TEMP/deg C"}), Shown());
  EXPECT_FALSE(Enabled(kList, "PictureButton1"));
  EXPECT_FALSE(Enabled(kList, "PictureButton2"));
  // Close goes back to the menu, its second page still open.
  Ok(Click(kList, "C&lose"));
  EXPECT_EQ((std::vector<std::string>{kMenu, kPage2}), Windows());
}

TEST_P(UnitOfMeasureTest, StrictPagesNeitherOverlapNorLoseARow) {
  LoadMany(250);
  OpenList();
  std::vector<std::string> seen = Shown();
  ASSERT_EQ(100u, seen.size());
  EXPECT_EQ("LEN/U001", seen.front());
  EXPECT_TRUE(Enabled(kList, "PictureButton2"));
  Ok(Click(kList, "PictureButton2"));
  std::vector<std::string> page2 = Shown();
  ASSERT_EQ(100u, page2.size());
  EXPECT_EQ("LEN/U101", page2.front());  // no overlap with page 1
  Ok(Click(kList, "PictureButton2"));
  std::vector<std::string> page3 = Shown();
  ASSERT_EQ(50u, page3.size());
  EXPECT_EQ("LEN/U201", page3.front());
  EXPECT_EQ("LEN/U250", page3.back());
  EXPECT_FALSE(Enabled(kList, "PictureButton2"));
  // Up again: the page before, with no overlap either.
  Ok(Click(kList, "PictureButton1"));
  std::vector<std::string> back = Shown();
  ASSERT_EQ(100u, back.size());
  EXPECT_EQ("LEN/U101", back.front());
  EXPECT_EQ("LEN/U200", back.back());
}

TEST_P(UnitOfMeasureTest, AfterAChangeTheFirstRowOfThePageDropsOutUntilPrev) {
  LoadMany(150);
  OpenList();
  Ok(Click(kList, "PictureButton2"));
  EXPECT_EQ("LEN/U101", Shown().front());
  Ok(DoubleClickRow(kList, 3));
  Ok(Click(kEntry, "Accep&t", {{"DESCRIPTION_TEXT", "Unit 103 renamed"}, {"SHORT_FORM_NAME", "U103"}}));
  // The description alone changed: the check meets the row itself.
  EXPECT_EQ(kDuplicate, Message());
  Ok(Click(kEntry, "Accep&t", {{"SHORT_FORM_NAME", "U103X"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  // LAST := FIRST and a strict read: U101 is left out.
  std::vector<std::string> page = Shown();
  EXPECT_EQ("LEN/U102", page.front());
  EXPECT_NE(page.end(), std::find(page.begin(), page.end(), "LEN/U103X"));
}

TEST_P(UnitOfMeasureTest, AfterAnAddTheListStartsOver) {
  LoadMany(150);
  LoadCounters("TSRUOM,ORG1,500,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  Ok(Click(kList, "PictureButton2"));
  Ok(Click(kList, "&Add"));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  Ok(Click(kEntry, "Accep&t",
           {{"UOM_TYPE", "TIME"}, {"SHORT_FORM_NAME", "hr"}, {"DESCRIPTION_TEXT", "Hours"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ("LEN/U001", Shown().front());
  EXPECT_FALSE(Enabled(kList, "PictureButton1"));
  EXPECT_NE(std::string::npos,
            Units().find("501,ORG1,TIME,hr,Hours,JSMITH,2024-01-15 09:30:00\n"));
}

// ---- The data entry window ----

TEST_P(UnitOfMeasureTest, TheTypeIsAComboBoxOfTheTwelveTypes) {
  OpenList();
  Ok(Click(kList, "&Add"));
  const json combo = Control(kEntry, "UOM_TYPE1");
  EXPECT_EQ("combo", combo["type"]);
  std::vector<std::string> values;
  for (const json& o : combo["options"]) values.push_back(o["value"]);
  EXPECT_EQ((std::vector<std::string>{"AREA", "TEMP", "NONE", "SUBST", "PROD", "LEN", "TAX",
                                      "TIME", "MISC", "FLOW", "VEL", "VOL"}),
            values);
}

TEST_P(UnitOfMeasureTest, RequiredFieldsAreMarkedOneAtATimeInWindowOrder) {
  OpenList();
  Ok(Click(kList, "&Add"));
  // The type first: the message, and the fields after it are not tested.
  Ok(Click(kEntry, "Accep&t", {{"DESCRIPTION_TEXT", "x"}}));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("      ", Control(kEntry, "SHORT_FORM_NAME1")["display"]);
  // Then the short form, blank like the description: only it is marked.
  Ok(Click(kEntry, "Accep&t", {{"UOM_TYPE", "LEN"}, {"DESCRIPTION_TEXT", ""}}));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ("LEN", Value(kEntry, "UOM_TYPE1"));
  EXPECT_EQ("10    ", Control(kEntry, "SHORT_FORM_NAME1")["display"]);
  EXPECT_EQ("      ", Control(kEntry, "DESCRIPTION_TEXT1")["display"]);
  // Corrected, the short form keeps its mark until the next Accept.
  Ok(Type(kEntry, "SHORT_FORM_NAME1", {{"SHORT_FORM_NAME", "km"}}));
  EXPECT_EQ("10    ", Control(kEntry, "SHORT_FORM_NAME1")["display"]);
  Ok(Click(kEntry, "Accep&t"));
  EXPECT_EQ("3a    ", Control(kEntry, "SHORT_FORM_NAME1")["display"]);
  EXPECT_EQ("10    ", Control(kEntry, "DESCRIPTION_TEXT1")["display"]);
  EXPECT_EQ("", Units());
  // Cancel after the failed Accept reloads the list.
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
}

TEST_P(UnitOfMeasureTest, ChangeOfTheDescriptionAloneGetsTheDuplicateMessageAndTheWindowStays) {
  LoadUnits(kFour);
  OpenList();
  Ok(DoubleClickRow(kList, 2));
  EXPECT_EQ("m", Value(kEntry, "SHORT_FORM_NAME1"));
  Ok(Click(kEntry, "Accep&t", {{"DESCRIPTION_TEXT", "Metres"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kDuplicate, Message());
  EXPECT_EQ("10    ", Control(kEntry, "SHORT_FORM_NAME1")["display"]);
  EXPECT_EQ(kFour, Units());
}

TEST_P(UnitOfMeasureTest, AnUnchangedChangeWritesNoStamp) {
  LoadUnits(kFour);
  OpenList();
  Ok(DoubleClickRow(kList, 1));
  Ok(Click(kEntry, "Accep&t"));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_EQ("", Message());
  EXPECT_EQ(kFour, Units());
}

TEST_P(UnitOfMeasureTest, ARowDeletedByOthersGivesTheInternalErrorAtAcceptInChangeMode) {
  LoadUnits(kFour);
  OpenList();
  Ok(DoubleClickRow(kList, 2));
  Exec("DELETE FROM TSRUOM WHERE TSRUOM_IS_NUMBER = 2");
  Ok(Click(kEntry, "Accep&t", {{"SHORT_FORM_NAME", "mm"}}));
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kInternal, Message());
  EXPECT_EQ(3, Count("TSRUOM"));
}

// ---- Deleting ----

TEST_P(UnitOfMeasureTest, DeletingAUnitAResultUsesIsRefusedAndTheTablesAreSearchedInOrder) {
  LoadUnits(kFour);
  // ft (3) is used by a detection qualifier only, m (2) by a result's CI and
  // a qualifier; the results themselves are in degrees Celsius (1).
  Load("TSRRSULT", "TSRRSULT_IS_NUMBER,TSRRSULT_ORG_ID,TSRUOM_IS_NUMBER,TSRUOM_ORG_ID\n"
                   "70,ORG1,1,ORG1\n71,ORG1,1,ORG1\n");
  Load("TSRDQL", "D_USERID_CODE,TSRRSULT_IS_NUMBER,TSRRSULT_ORG_ID,TSRUOM_IS_NUMBER,TSRUOM_ORG_ID\n"
                 "LOADER,70,ORG1,3,ORG1\nLOADER,71,ORG1,2,ORG1\n");
  Load("TSRRCI", "D_USERID_CODE,TSRRSULT_ORG_ID,TSRRSULT_IS_NUMBER,TSRUOM_IS_NUMBER,TSRUOM_ORG_ID\n"
                 "LOADER,ORG1,71,2,ORG1\n");
  OpenList();
  Ok(ClickRow(kList, 1));  // LEN/ft
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ(kInUse, Message());
  // All four were searched: the last statement is the fourth check's.
  EXPECT_STREQ("0000000005", session().run_context().statement);
  EXPECT_EQ(kFour, Units());
  Ok(ClickRow(kList, 1));  // now LEN/m: the list dropped ft all the same
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ(kInUse, Message());
  // The second check found it: no further table was searched.
  EXPECT_STREQ("0000000003", session().run_context().statement);
  EXPECT_EQ(kFour, Units());
}

TEST_P(UnitOfMeasureTest, DeleteOfRowThreeOfFiveMovesTheRowsBelowUp) {
  LoadMany(5);
  OpenList();
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Delete"));
  EXPECT_EQ("U003", Value(kDelete, "SHORT_FORM_NAME1"));
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ((std::vector<std::string>{"LEN/U001", "LEN/U002", "LEN/U004", "LEN/U005"}), Shown());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(4, Count("TSRUOM"));
}

TEST_P(UnitOfMeasureTest, ARowDeletedByOthersIsNotFoundAndLeavesTheList) {
  LoadUnits(kFour);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Exec("DELETE FROM TSRUOM WHERE TSRUOM_IS_NUMBER = 2");
  Ok(Click(kDelete, "&Delete"));
  EXPECT_EQ(kNotFound, Message());
  EXPECT_EQ((std::vector<std::string>{"LEN/ft", "TEMP/deg C"}), Shown());
  EXPECT_EQ(3, Count("TSRUOM"));
}

TEST_P(UnitOfMeasureTest, CancelInTheDeleteDialogClearsTheSelection) {
  LoadUnits(kFour);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDelete, "Cance&l"));
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(kFour, Units());
}

// ---- Bad input ----

TEST_P(UnitOfMeasureTest, RequestsTheWindowsCannotTakeAreRefusedAndChangeNothing) {
  LoadUnits(kFour);
  LoadCounters("TSRUOM,ORG1,100,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  Ok(Click(kList, "&Add"));
  const json before = Screen();
  const json values[] = {
      {{"SHORT_FORM_NAME", "ELEVENCHARS"}},           // 11 > 10
      {{"DESCRIPTION_TEXT", std::string(51, 'd')}},   // 51 > 50
      {{"DESCRIPTION_TEXT", "snow \xE2\x98\x83"}},    // not in 1252
      {{"D_USERID_CODE", "HACKER"}},                  // read-only
  };
  for (const json& v : values) {
    SCOPED_TRACE(v.dump());
    const Reply r = Click(kEntry, "Accep&t", v);
    EXPECT_EQ(400, r.status);
    EXPECT_EQ(before, Screen());
  }
  // A type outside the combo's list is refused at input with the host's
  // words, and no unit runs.
  const std::string unit = session().run_context().unit_name;
  Ok(Click(kEntry, "Accep&t",
           {{"UOM_TYPE", "XYZ"}, {"SHORT_FORM_NAME", "x"}, {"DESCRIPTION_TEXT", "y"}}));
  EXPECT_EQ("E: Field does not contain permitted value; Please retry; Use Help for field "
            "information.",
            Message());
  EXPECT_EQ(unit, session().run_context().unit_name);
  EXPECT_EQ((std::vector<std::string>{kEntry}), Windows());
  EXPECT_EQ(kFour, Units());
  Ok(Click(kEntry, "Accep&t",
           {{"UOM_TYPE", "VOL"}, {"SHORT_FORM_NAME", "0123456789"},
            {"DESCRIPTION_TEXT", std::string(49, 'd') + "\xE2\x82\xAC"}}));
  EXPECT_EQ((std::vector<std::string>{kList}), Windows());
  EXPECT_NE(std::string::npos, Units().find(",VOL,0123456789," + std::string(49, 'd')));
}

// ---- The preview, entered from elsewhere ----

// Entered with flow-on mode "E", the body runs, and the window's Open event
// runs as the window opens: the rows of the type entered show.
TEST_P(UnitOfMeasureTest, EnteredByItsBodyThePreviewOpensWithTheRowsOfItsType) {
  LoadUnits("1,ZZZZZZZZ,LEN,m,Meters,LOADER,2023-05-01 10:00:00\n"
            "2,ZZZZZZZZ,TEMP,deg C,Celsius,LOADER,2023-05-01 10:00:00\n");
  EndSession();
  StartRequest start;
  start.procedure = kPreview;
  start.mode = "E";
  start.import = {{"EXPORT.CHARACTERISTIC.UOM_TYPE", "TEMP"}};
  Start("JSMITH", "ORG1", start);
  EXPECT_EQ((std::vector<std::string>{kPreview}), Windows());
  ASSERT_EQ(1u, ListRows(kPreview).size());
  EXPECT_EQ("deg C", ListRows(kPreview)[0].cells.at(1));
  // "Show All Units" reads every type.
  Ok(Type(kPreview, "FLAG1", {{"FLAG", "Y"}}));
  EXPECT_EQ(2u, ListRows(kPreview).size());
}

class UnitOfMeasurePreviewTest : public UnitOfMeasureTest {
 protected:
  void SetUp() override {
    testing::ModuleTest::SetUp();
    if (HasFatalFailure()) return;
    LoadUnits(
        "1,ZZZZZZZZ,TEMP,deg F,Fahrenheit,LOADER,2023-05-01 10:00:00\n"
        "2,ZZZZZZZZ,TEMP,deg C,Celsius,LOADER,2023-05-01 10:00:00\n"
        "3,ZZZZZZZZ,LEN,m,Meters,LOADER,2023-05-01 10:00:00\n"
        "4,ORG1,TEMP,K,Kelvin,LOADER,2023-05-01 10:00:00\n");
    StartRequest start;
    start.procedure = kPreview;
    start.mode = "D";
    start.import = {{"EXPORT.CHARACTERISTIC.UOM_TYPE", "TEMP"}};
    Start("JSMITH", "ORG1", start);
  }
  std::vector<std::string> Rows() {
    std::vector<std::string> out;
    for (const testing::ListRow& r : ListRows(kPreview)) out.push_back(r.cells.at(0) + "/" + r.cells.at(1));
    return out;
  }
};

TEST_P(UnitOfMeasurePreviewTest, OpensOnTheTypeOfTheNationalOrganisation) {
  EXPECT_EQ((std::vector<std::string>{kPreview}), Windows());
  EXPECT_EQ("UOM1 Unit of Measure Preview", Screen()["windows"][0]["title"]);
  EXPECT_EQ("UOM Name", Control(kPreview, "ListBox1")["columns"][1]["heading"]);
  // ORG1's kelvin is not national.
  EXPECT_EQ((std::vector<std::string>{"TEMP/deg C", "TEMP/deg F"}), Rows());
}

TEST_P(UnitOfMeasurePreviewTest, ShowAllUnitsOffAgainReturnsToTheEnteredType) {
  Ok(Type(kPreview, "FLAG1", {{"FLAG", "Y"}}));
  EXPECT_EQ((std::vector<std::string>{"LEN/m", "TEMP/deg C", "TEMP/deg F"}), Rows());
  Ok(Type(kPreview, "FLAG1", {{"FLAG", "N"}}));
  EXPECT_EQ((std::vector<std::string>{"TEMP/deg C", "TEMP/deg F"}), Rows());
}

TEST_P(UnitOfMeasurePreviewTest, ATypeOutsideTheListIsAFatalStopOfTheRead) {
  Exec("INSERT INTO TSRUOM VALUES (9, 'ZZZZZZZZ', 'BOGUS', 'b', 'Bogus', 'OTHER', "
       "'2023-06-01 10:00:00')");
  const Reply r = Type(kPreview, "FLAG1", {{"FLAG", "Y"}});
  ASSERT_FALSE(r.body["failure"].is_null()) << r.body.dump();
  EXPECT_EQ("IA", r.body["failure"]["status_detail"]);
  EXPECT_EQ("READ_UNIT_OF_MEASURE_PREVIEW", r.body["failure"]["unit_name"]);
}

TEST_P(UnitOfMeasurePreviewTest, AClickMarksARowASecondClickReleasesIt) {
  Ok(ClickRow(kPreview, 2));
  EXPECT_EQ((std::vector<int>{2}), Selected(kPreview));
  Ok(ClickRow(kPreview, 2));
  EXPECT_TRUE(Selected(kPreview).empty());
}

TEST_P(UnitOfMeasurePreviewTest, CloseEndsTheLink) {
  Ok(Click(kPreview, "C&lose"));
  EXPECT_TRUE(session().ended());
}

INSTANTIATE_TEST_SUITE_P(Backends, UnitOfMeasureTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);
INSTANTIATE_TEST_SUITE_P(Backends, UnitOfMeasurePreviewTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);

}  // namespace
}  // namespace watrix
