// The standard industrial class driven as a person would drive it: from the
// menu, through sessions over the real liblkbase.so, each on a fresh
// database of its own, SQLite and PostgreSQL alike. The database is read and
// written beside the session, as a second user would.
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
constexpr char kList[] = "RT32_STND_INDSTRL_CD_MAINT_LIST";
constexpr char kDialog[] = "RT32A_SIC_DELETE_CONFIRMATION";
constexpr char kEntry[] = "RT33_STND_INDST_SIC_DATA_ENTRY";
constexpr char kHeader[] = "TSMSIC_CODE,TSMSIC_ORG_ID,NAME,D_USERID_CODE,D_LAST_UPDT_TS\n";
constexpr char kRequired[] = "E: An entry must be made in this field.";
constexpr char kDuplicate[] =
    "E: A Standard Industrial Code with this SIC Code and Name already exists.";
constexpr char kReferenced[] =
    "E: Can Not Delete Standard Industrial Code - Facility SIC Assgn Exists";

class StandardIndustrialClassTest : public testing::ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    if (HasFatalFailure()) return;
    SetClock(2024, 1, 15, 9, 30, 0);
    Start("JSMITH", "ORG1");
  }

  void OpenList() {
    Ok(Click(kMenu, "Stan&dard Industrial Class"));
    ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  }
  std::vector<std::string> Codes() { return Column(kList, 0); }
  std::vector<std::string> Names() { return Column(kList, 1); }
  std::string Paging() const {
    return std::string(Enabled(kList, "&Prev") ? "P" : "-") +
           (Enabled(kList, "&Next") ? "N" : "-");
  }
  void LoadClasses(const std::string& rows) { Load("TSMSIC", kHeader + rows); }
  // Codes 0001..n of ORG1, each with one name.
  void LoadMany(int n) {
    std::string rows;
    char line[96];
    for (int i = 1; i <= n; ++i) {
      std::snprintf(line, sizeof line, "%04d,ORG1,Class %04d,LOADER,2023-05-01 10:00:00\n", i, i);
      rows += line;
    }
    LoadClasses(rows);
  }
  // A facility assignment of station `station` to class `code` of ORG1.
  void LoadAssignment(int station, const std::string& code) {
    if (Count("TSMVSTC") == 0)
      Load("TSMVSTC",
           "TSMVSTC_IS_NUMBER,TSMVSTC_ORG_ID,PRIMARY_TYPE_CD,SECONDARY_TYPE_CD,NATURAL_IND_CD,"
           "D_USERID_CODE,D_LAST_UPDT_TS\n1,ORG1,Facility,,N,LOADER,2023-05-01 10:00:00\n");
    Load("TSMSTATN", "TSMSTATN_IS_NUMBER,TSMSTATN_ORG_ID,TSMVSTC_IS_NUMBER,TSMVSTC_ORG_ID\n" +
                         std::to_string(station) + ",ORG1,1,ORG1\n");
    Load("TSMFSA",
         "D_USERID_CODE,D_LAST_UPDATE_TS,TSMSTATN_IS_NUMBER,TSMSTATN_ORG_ID,TSMSIC_CODE,"
         "TSMSIC_ORG_ID\nLOADER,2023-05-01 10:00:00," +
             std::to_string(station) + ",ORG1," + code + ",ORG1\n");
  }
  // NAME, user and stamp of a row, "|" between them; "" when there is none.
  std::string Stored(const std::string& code, const std::string& name) {
    const auto user = Read<std::string>(
        "SELECT D_USERID_CODE FROM TSMSIC WHERE TSMSIC_CODE = :c AND NAME = :n AND "
        "TSMSIC_ORG_ID = 'ORG1'",
        code, name);
    if (!user) return "";
    std::string u = *user;
    while (!u.empty() && u.back() == ' ') u.pop_back();
    return name + "|" + u;
  }
};

// ---- The design rows ----

TEST(StandardIndustrialClassTablesTest, WindowsAreAsDesigned) {
  const ModuleImage& m = TheModules()->main();
  struct Case {
    const char* name;
    lk::u32 procedure;
    lk::u32 dialog;
    const char* kind;
    const char* title;
  } cases[] = {
      {kList, 676, 689, "SD", "RT32 Standard Industrial Class Maintenance List"},
      {kDialog, 676, 679, "DD", "RT32A Delete Standard Industrial Class"},
      {kEntry, 346, 349, "SD", "RT33 Standard Industrial Class Data Entry"},
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
}

// The Delete button of RT32 has its control row open RT32A: keyword
// "DELETE", code 1491 and the dialog id 679 in the low half, and no event
// row of the list names it.
TEST(StandardIndustrialClassTablesTest, DeleteButtonOpensItsDialogByItsControlRowAlone) {
  const ModuleImage& m = TheModules()->main();
  const lk::WindowRow* list = m.FindWindow(kList);
  ASSERT_NE(nullptr, list);
  int with_dialog = 0;
  lk::u32 delete_id = 0;
  for (const lk::ActionControlRow* a = list->actions; a->control_id != 0; ++a) {
    if ((a->command_code & 0xFFFF) != 0) ++with_dialog;
    if (std::string(a->command) == "DELETE") {
      delete_id = a->control_id;
      EXPECT_EQ((1491u << 16) | 679u, a->command_code);
      EXPECT_NE(nullptr, a->enable_rule);
    }
  }
  EXPECT_EQ(1, with_dialog);
  ASSERT_NE(0u, delete_id);
  int events = 0;
  for (const lk::EventRow* e = list->events; e->event_name != nullptr; ++e, ++events)
    EXPECT_NE(delete_id, e->control_id) << e->event_name;
  EXPECT_GT(events, 0);
}

// ---- The list ----

// The key is the code and the ORG ID, so within one organisation a code
// has one name, and the name's order within a code never shows.
TEST_P(StandardIndustrialClassTest, ListReadsTheOrganisationsClassesByCode) {
  LoadClasses(
      "0200,ORG1,Livestock,LOADER,2023-05-01 10:00:00\n"
      "0100,ORG1,Agricultural Production - Crops,LOADER,2023-05-01 10:00:00\n"
      "0100,ORG2,Other organisation,LOADER,2023-05-01 10:00:00\n");
  OpenList();
  EXPECT_EQ(std::vector<std::string>({"0100", "0200"}), Codes());
  EXPECT_EQ(std::vector<std::string>({"Agricultural Production - Crops", "Livestock"}), Names());
  EXPECT_EQ("--", Paging());
  EXPECT_TRUE(Enabled(kList, "&Add"));
  EXPECT_FALSE(Enabled(kList, "&Delete"));
}

TEST_P(StandardIndustrialClassTest, PagesHoldTwoHundredRowsAndTheNextPageRepeatsTheKeyRow) {
  LoadMany(450);
  OpenList();
  std::vector<std::string> codes = Codes();
  ASSERT_EQ(200u, codes.size());
  EXPECT_EQ("0001", codes.front());
  EXPECT_EQ("0200", codes.back());
  EXPECT_EQ("-N", Paging());
  Ok(Click(kList, "&Next"));
  codes = Codes();
  ASSERT_EQ(200u, codes.size());
  EXPECT_EQ("0200", codes.front());  // the key row comes again
  EXPECT_EQ("0399", codes.back());
  EXPECT_EQ("PN", Paging());
  Ok(Click(kList, "&Next"));
  codes = Codes();
  ASSERT_EQ(52u, codes.size());
  EXPECT_EQ("0399", codes.front());
  EXPECT_EQ("0450", codes.back());
  EXPECT_EQ("P-", Paging());
  Ok(Click(kList, "&Prev"));
  codes = Codes();
  ASSERT_EQ(200u, codes.size());
  EXPECT_EQ("0200", codes.front());
  EXPECT_EQ("0399", codes.back());  // the key row, included going back
}

// ---- Delete ----

// The press opens RT32A and changes nothing else on the list: no event
// action ran, so the list's view, its selection and its message stand.
TEST_P(StandardIndustrialClassTest, DeleteButtonOpensTheDialogWithoutAnEventAction) {
  LoadMany(3);
  OpenList();
  Ok(ClickRow(kList, 2));
  const json before = Window(kList);
  Ok(Click(kList, "&Delete"));
  ASSERT_EQ(std::vector<std::string>({kList, kDialog}), Windows());
  EXPECT_EQ(before, Window(kList));
  EXPECT_EQ("0002", Value(kDialog, "SIC Code"));
  EXPECT_EQ("Class 0002", Value(kDialog, "Name"));
  Ok(Click(kDialog, "&Delete"));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(std::vector<std::string>({"0001", "0003"}), Codes());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(2, Count("TSMSIC"));
  EXPECT_EQ("", Message());
}

TEST_P(StandardIndustrialClassTest, AClassAFacilityIsAssignedToIsNotDeleted) {
  LoadMany(3);
  LoadAssignment(77, "0002");
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDialog, "&Delete"));
  EXPECT_EQ(kReferenced, Message());
  ASSERT_EQ(std::vector<std::string>({kList, kDialog}), Windows());
  EXPECT_EQ(3, Count("TSMSIC"));
  EXPECT_EQ(1, Count("TSMFSA"));
  Ok(Click(kDialog, "Cance&l"));
  EXPECT_EQ(std::vector<std::string>({"0001", "0002", "0003"}), Codes());
  // Another class of the same list goes.
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDialog, "&Delete"));
  EXPECT_EQ("", Message());
  EXPECT_EQ(std::vector<std::string>({"0001", "0002"}), Codes());
}

TEST_P(StandardIndustrialClassTest, ARowAnotherSessionDeletedFirstIsReportedAndDropped) {
  LoadMany(3);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Exec("DELETE FROM TSMSIC WHERE TSMSIC_CODE = '0002'");
  Ok(Click(kDialog, "&Delete"));
  EXPECT_EQ("E: STANDARD_INDUSTRIAL_CLASS was not found.", Message());
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(std::vector<std::string>({"0001", "0003"}), Codes());
  EXPECT_EQ(2, Count("TSMSIC"));
}

// ---- Data entry ----

TEST_P(StandardIndustrialClassTest, AddStampsTheRowAndTheListStartsOverWithItMarked) {
  LoadMany(2);
  OpenList();
  Ok(Click(kList, "&Add"));
  ASSERT_EQ(kEntry, Windows().back());
  Ok(Click(kEntry, "Accep&t", {{"TSMSIC_CODE", "0150"}, {"NAME", "Ornamental Floriculture"}}));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("Ornamental Floriculture|JSMITH", Stored("0150", "Ornamental Floriculture"));
  EXPECT_EQ(std::vector<std::string>({"0001", "0002", "0150"}), Codes());
  EXPECT_EQ(std::vector<int>({3}), Selected(kList));
}

TEST_P(StandardIndustrialClassTest, BothFieldsAreRequired) {
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TSMSIC_CODE", ""}, {"NAME", "Name"}}));
  EXPECT_EQ(kRequired, Message());
  Ok(Click(kEntry, "Accep&t", {{"TSMSIC_CODE", "0100"}, {"NAME", ""}}));
  EXPECT_EQ(kRequired, Message());
  EXPECT_EQ(0, Count("TSMSIC"));
  ASSERT_EQ(kEntry, Windows().back());
}

TEST_P(StandardIndustrialClassTest, AnAddOfTheSameCodeAndNameIsRefusedByTheDuplicateRead) {
  LoadMany(1);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TSMSIC_CODE", "0001"}, {"NAME", "Class 0001"}}));
  EXPECT_EQ(kDuplicate, Message());
  ASSERT_EQ(kEntry, Windows().back());
  EXPECT_EQ(1, Count("TSMSIC"));
}

// The duplicate read passes a new name; the key (code, ORG ID) does not,
// and the insert takes the abort path with status "DF".
TEST_P(StandardIndustrialClassTest, AnAddOfAnExistingCodeWithANewNameEndsInAFatalStopOfDetailDF) {
  LoadMany(1);
  OpenList();
  Ok(Click(kList, "&Add"));
  const Reply r =
      Click(kEntry, "Accep&t", {{"TSMSIC_CODE", "0001"}, {"NAME", "Another name"}});
  ASSERT_EQ(200, r.status);
  const json& failure = r.body["failure"];
  ASSERT_TRUE(failure.is_object()) << r.body.dump();
  EXPECT_EQ("FE", failure["status"]);
  EXPECT_EQ("DF", failure["status_detail"]);
  EXPECT_EQ("IDENTIFY_SIC", failure["unit_name"]);
  EXPECT_EQ(1, Count("TSMSIC"));
  EXPECT_EQ("Class 0001|LOADER", Stored("0001", "Class 0001"));
}

TEST_P(StandardIndustrialClassTest, ChangeProtectsTheCodeAndWritesTheNewName) {
  LoadMany(3);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Change"));
  ASSERT_EQ(kEntry, Windows().back());
  EXPECT_EQ("3gA2  ", Control(kEntry, "SIC Code")["display"]);
  Ok(Type(kEntry, "NAME1", {{"NAME", "Renamed"}}));
  Ok(Click(kEntry, "Accep&t", {{"NAME", "Renamed"}}));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("Renamed|JSMITH", Stored("0002", "Renamed"));
  EXPECT_EQ(3, Count("TSMSIC"));
}

// Retyping the same text sets the changed flag; the duplicate read then
// finds the row itself and refuses.
TEST_P(StandardIndustrialClassTest, AChangeThatRetypesTheSameTextIsRefusedAsADuplicate) {
  LoadMany(3);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Change"));
  Ok(Type(kEntry, "NAME1", {{"NAME", "Class 0002"}}));
  Ok(Click(kEntry, "Accep&t"));
  EXPECT_EQ(kDuplicate, Message());
  ASSERT_EQ(kEntry, Windows().back());
  EXPECT_EQ("Class 0002|LOADER", Stored("0002", "Class 0002"));
  // Untouched, the same Accept writes nothing and closes. The row in hand
  // is selected again after the Cancel.
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ(std::vector<int>({2}), Selected(kList));
  Ok(Click(kList, "&Change"));
  Ok(Click(kEntry, "Accep&t"));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ("Class 0002|LOADER", Stored("0002", "Class 0002"));
}

// The window's Close runs the same event action as an edit: the changed
// flag is set with nothing typed, the window stays, and the Accept then
// meets the row itself in the duplicate read.
TEST_P(StandardIndustrialClassTest, TheWindowsCloseSetsTheChangedFlagAndStays) {
  LoadMany(2);
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Change"));
  Ok(Event(kEntry, 350, "Close"));
  ASSERT_EQ(std::vector<std::string>({kEntry}), Windows());
  EXPECT_EQ("", Message());
  Ok(Click(kEntry, "Accep&t"));
  EXPECT_EQ(kDuplicate, Message());
  ASSERT_EQ(kEntry, Windows().back());
}

// After a change the list re-reads from the top of the page on show, finds
// the row, and disables both paging buttons while it is selected.
TEST_P(StandardIndustrialClassTest, AfterAChangeTheListRereadsFromThePageTopWithPagingDisabled) {
  LoadMany(450);
  OpenList();
  Ok(Click(kList, "&Next"));
  EXPECT_EQ("PN", Paging());
  Ok(ClickRow(kList, 5));
  Ok(Click(kList, "&Change"));
  Ok(Type(kEntry, "NAME1", {{"NAME", "Changed name"}}));
  Ok(Click(kEntry, "Accep&t"));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  const std::vector<std::string> codes = Codes();
  ASSERT_EQ(200u, codes.size());
  EXPECT_EQ("0200", codes.front());
  EXPECT_EQ(std::vector<int>({5}), Selected(kList));
  EXPECT_EQ("Changed name", Names()[4]);
  EXPECT_EQ("--", Paging());
}

TEST_P(StandardIndustrialClassTest, BadInputIsRefusedAndChangesNothing) {
  LoadMany(1);
  OpenList();
  Ok(Click(kList, "&Add"));
  const json before = Screen();
  EXPECT_EQ(400, Click(kEntry, "Accep&t", {{"TSMSIC_CODE", "12345"}}).status);
  EXPECT_EQ(400, Click(kEntry, "Accep&t", {{"NAME", std::string(121, 'X')}}).status);
  EXPECT_EQ(400, Click(kEntry, "Accep&t", {{"NAME", "\xE4\xB8\xAD"}}).status);
  EXPECT_EQ(before, Screen());
  EXPECT_EQ(1, Count("TSMSIC"));
  // Exactly 120 characters fit, and text of code page 1252 is kept.
  Ok(Click(kEntry, "Accep&t", {{"TSMSIC_CODE", "5812"}, {"NAME", std::string(120, 'X')}}));
  EXPECT_EQ(2, Count("TSMSIC"));
  // The new row is selected: a click lets it go, and Add is enabled again.
  ASSERT_EQ(std::vector<int>({2}), Selected(kList));
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TSMSIC_CODE", "5813"}, {"NAME", "Caf\xC3\xA9 \xE2\x82\xAC"}}));
  EXPECT_EQ("Caf\xC3\xA9 \xE2\x82\xAC|JSMITH", Stored("5813", "Caf\xC3\xA9 \xE2\x82\xAC"));
}

INSTANTIATE_TEST_SUITE_P(Backends, StandardIndustrialClassTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);

}  // namespace
}  // namespace watrix
