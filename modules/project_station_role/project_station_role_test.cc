// The project station role driven as a person would drive it: from the menu,
// through sessions over the real liblkbase.so, each on a fresh database of
// its own, SQLite and PostgreSQL alike. The database is read and written
// beside the session, as a second user would, to check what the windows
// wrote and to change rows under them.
#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "frame/run_context.h"
#include "frame/tables.h"
#include "host/module_image.h"
#include "modules/testing/module_fixture.h"

namespace watrix {
namespace {

using nlohmann::json;
using testing::TheModules;

constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kList[] = "RT40_PROJECT_ROLE_MAIN_LIST";
constexpr char kDialog[] = "RT40A_DELETE_PROJECT_ROLE";
constexpr char kEntry[] = "RT41_PROJECT_ROLE_DATA_ENTRY";
constexpr char kUser[] = "PSRTEST";
constexpr char kOrg[] = "PSRORG";
constexpr char kInternalError[] =
    "E: An internal system error has occurred.  Contact system administrator.";

// "ROLE 007": names that sort by their number.
std::string Role(int n) {
  char name[16];
  std::snprintf(name, sizeof name, "ROLE %03d", n);
  return name;
}

class ProjectStationRoleTest : public testing::ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    if (HasFatalFailure()) return;
    SetClock(2024, 5, 13, 9, 19, 54);
  }

  // The menu, then the list.
  void OpenList(const std::string& user = kUser, const std::string& org = kOrg) {
    Start(user, org);
    if (HasFatalFailure()) return;
    Ok(Click(kMenu, "Pro&ject Station Role"));
    ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  }

  // Add on the list, the name typed, Accept.
  void AddThroughWindow(const std::string& name) {
    Ok(Click(kList, "&Add"));
    ASSERT_EQ(kEntry, Windows().back());
    Ok(Click(kEntry, "Accep&t", {{"TYPE_NAME", name}}));
  }

  // The list's rows as shown: the type name of each.
  std::vector<std::string> Rows() { return Column(kList, 0); }
  // PREV and NEXT enabled, as "PN", "P-", "-N" or "--".
  std::string Paging() const {
    return std::string(Enabled(kList, "Prev") ? "P" : "-") + (Enabled(kList, "Next") ? "N" : "-");
  }

  void Seed(const std::string& org, const std::string& name, int is_number,
            const std::string& user = "SEED", const std::string& stamp = "2001-02-03 04:05:06") {
    Exec("INSERT INTO TSMPSR (TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME, D_USERID_CODE, "
         "D_LAST_UPDATE_TS) VALUES (:n, :org, :name, :usr, '" +
             stamp + "')",
         is_number, org, name, user);
  }
  // Roles 1..n of kOrg, IS numbers 1..n, and the counter at n.
  void SeedRoles(int n) {
    soci::transaction t(sql());
    for (int i = 1; i <= n; ++i) Seed(kOrg, Role(i), i);
    Exec("INSERT INTO TSMEISN (TSMEISN_NAME, TSMEISN_ORG_ID, IS_NUMBER, D_USERID_CODE, "
         "D_LAST_UPDT_TS) VALUES ('TSMPROLE', :org, :n, 'SEED', '2001-02-03 04:05:06')",
         std::string(kOrg), n);
    t.commit();
  }
  // TYPE_NAME, D_USERID_CODE and the stamp of a row, "|" between them; ""
  // when there is none.
  std::string Stored(int is_number, const std::string& org = kOrg) {
    std::string name, user, stamp;
    soci::indicator ind = soci::i_ok;
    sql() << "SELECT TYPE_NAME, D_USERID_CODE, CAST(D_LAST_UPDATE_TS AS VARCHAR(19)) FROM TSMPSR "
             "WHERE TSMPSR_IS_NUMBER = :n AND TSMPSR_ORG_ID = :org",
        soci::into(name, ind), soci::into(user), soci::into(stamp), soci::use(is_number),
        soci::use(org);
    if (!sql().got_data()) return "";
    while (!user.empty() && user.back() == ' ') user.pop_back();
    return name + "|" + user + "|" + stamp;
  }
};

// ---- The design rows ----

TEST(ProjectStationRoleTablesTest, WindowsViewsAndFlowAreAsDesigned) {
  const ModuleImage& m = TheModules()->main();
  struct Case {
    const char* name;
    lk::u32 procedure;
    lk::u32 dialog;
    const char* kind;
    const char* title;
    int width, height;
  } cases[] = {
      {kList, 766, 777, "SD", "RT40 Project Role Maintenance List", 316, 200},
      {kDialog, 766, 769, "DD", "RT40A Delete Project Role", 299, 68},
      {kEntry, 491, 494, "SD", "RT41 Project Role Data Entry", 316, 200},
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
    EXPECT_EQ(c.width, d->width);
    EXPECT_EQ(c.height, d->height);
  }
  // Prev and Next are the list's scroll buttons, named by their keywords.
  const lk::WindowRow* list = m.FindWindow(kList);
  int keywords = 0;
  for (const lk::ActionControlRow* a = list->actions; a->control_id != 0; ++a) {
    if (std::string(a->command) == "PREV") {
      EXPECT_EQ(1501u << 16, a->command_code);
    }
    if (std::string(a->command) == "NEXT") {
      EXPECT_EQ(1497u << 16, a->command_code);
    }
    keywords += a->command[0] != '\0';
  }
  EXPECT_EQ(2, keywords);
  for (const lk::ControlRow* c = list->controls; c->control_id != 0; ++c) {
    if (c->control_id == 780 || c->control_id == 781) {
      EXPECT_EQ(lk::kTagScroll, lk::DescriptorTag(c->descriptor));
    }
  }
  // The views by name and by title.
  for (const char* key : {kList, "RT40 Project Role Maintenance List"}) {
    const lk::ViewNameRow* v = m.FindViews(key);
    ASSERT_NE(nullptr, v) << key;
    std::vector<std::string> names;
    for (const lk::ViewRow* r = v->view_rows; r->view_name != nullptr; ++r)
      names.push_back(std::string(r->view_name) + (r->occurs ? std::to_string(r->occurs) : ""));
    EXPECT_EQ(
        std::vector<std::string>(
            {"EXPORT.RUNTIME_SUPPLIED.", "EXPORT.SYSTEM_VARIABLE.", "EXPORT_NEXT.RUNTIME_SUPPLIED.",
             "EXPORT_PREV.RUNTIME_SUPPLIED.", "EXPORT_LAST.PROJECT_STATION_ROLE.",
             "EXPORT_FIRST.PROJECT_STATION_ROLE.", "EXPORT_CURRENT.PROJECT_STATION_ROLE.",
             "EXPORT_LIST.RUNTIME_SUPPLIED.100", "EXPORT_LIST.PROJECT_STATION_ROLE.100"}),
        names);
  }
  const lk::ViewNameRow* entry = m.FindViews("RT41 Project Role Data Entry");
  ASSERT_NE(nullptr, entry);
  std::vector<std::string> names;
  for (const lk::ViewRow* r = entry->view_rows; r->view_name != nullptr; ++r)
    names.push_back(r->view_name);
  EXPECT_EQ(
      std::vector<std::string>({"EXPORT_DATA_CHANGED.RUNTIME_SUPPLIED.", "EXPORT.SYSTEM_VARIABLE.",
                                "EXPORT.PROJECT_STATION_ROLE.", "EXPORT.RUNTIME_SUPPLIED."}),
      names);
  // The one flow: to RT41 on 0x4B001925, "$#CURR#$" both ways, back on EXIT_RETURN.
  const lk::ProcedureRow* p = m.FindProcedure(kList);
  ASSERT_NE(nullptr, p);
  EXPECT_EQ(0x4B001925u, p->exit_rows[0].exit_state);
  EXPECT_EQ(0u, p->exit_rows[1].exit_state);
  const lk::FlowRow& f = p->flow_rows[0];
  EXPECT_EQ(491u, f.target_id);
  EXPECT_STREQ("E", f.on_mode);
  EXPECT_STREQ("$#CURR#$", f.on_command);
  EXPECT_STREQ("$#CURR#$", f.return_command);
  EXPECT_EQ(lk::EXIT_RETURN, f.returns->exit_state);
  EXPECT_NE(nullptr, f.send);
  EXPECT_NE(nullptr, f.receive);
}

// ---- The list ----

TEST_P(ProjectStationRoleTest, EmptyTableShowsAnEmptyListWithPagingDisabled) {
  OpenList();
  const json w = Window(kList);
  EXPECT_EQ("RT40 Project Role Maintenance List", w["title"]);
  EXPECT_TRUE(Rows().empty());
  EXPECT_EQ("Role", Control(kList, "ListBox1")["columns"][0]["heading"]);
  EXPECT_EQ("--", Paging());
  EXPECT_TRUE(Enabled(kList, "&Add"));
  EXPECT_FALSE(Enabled(kList, "&Change"));
  EXPECT_FALSE(Enabled(kList, "&Delete"));
  EXPECT_EQ("PREV", Control(kList, "Prev")["keyword"]);
  EXPECT_EQ("picture", Control(kList, "Next")["type"]);
  EXPECT_EQ("", Message());
}

TEST_P(ProjectStationRoleTest, ExactlyOneHundredRowsFillThePageAndNextStaysDisabled) {
  SeedRoles(100);
  OpenList();
  const std::vector<std::string> rows = Rows();
  ASSERT_EQ(100u, rows.size());
  EXPECT_EQ(Role(1), rows.front());
  EXPECT_EQ(Role(100), rows.back());
  EXPECT_EQ("--", Paging());
  EXPECT_EQ(400, Click(kList, "Next").status);
}

TEST_P(ProjectStationRoleTest, PagesOverlapByOneRowAndKeepTheAsymmetryOfPagingUp) {
  SeedRoles(101);
  OpenList();
  ASSERT_EQ(100u, Rows().size());
  EXPECT_EQ("-N", Paging());

  // The next page starts again at the last row of this one.
  Ok(Click(kList, "Next"));
  EXPECT_EQ(std::vector<std::string>({Role(100), Role(101)}), Rows());
  EXPECT_EQ("P-", Paging());
  EXPECT_EQ(400, Click(kList, "Next").status);

  // Up again from its first row, which is included: rows 1 to 100, and no
  // row before them. NEXT is enabled while its flag stays blank.
  Ok(Click(kList, "Prev"));
  const std::vector<std::string> rows = Rows();
  ASSERT_EQ(100u, rows.size());
  EXPECT_EQ(Role(1), rows.front());
  EXPECT_EQ(Role(100), rows.back());
  EXPECT_EQ("-N", Paging());

  // A row selected and let go: NEXT goes by its blank flag and stays off.
  Ok(ClickRow(kList, 5));
  EXPECT_EQ("--", Paging());
  Ok(ClickRow(kList, 5));
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ("--", Paging());
}

TEST_P(ProjectStationRoleTest, PageUpFromTheFirstPageAfterAnAddShowsBlankRowsAtTheTop) {
  SeedRoles(150);
  OpenList();
  Ok(Click(kList, "Next"));
  ASSERT_EQ(51u, Rows().size());
  EXPECT_EQ(Role(100), Rows().front());

  // The Add brings the first page back with the new row selected; the PREV
  // flag of the page before stays.
  AddThroughWindow("AAA");
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  ASSERT_EQ(100u, Rows().size());
  EXPECT_EQ("AAA", Rows().front());
  EXPECT_EQ(std::vector<int>({1}), Selected(kList));
  EXPECT_EQ("--", Paging());
  Ok(ClickRow(kList, 1));
  EXPECT_EQ("PN", Paging());

  // A page up from the table's first row: that row alone, at the bottom of
  // a full group, with blank rows above it.
  Ok(Click(kList, "Prev"));
  const std::vector<std::string> rows = Rows();
  ASSERT_EQ(100u, rows.size());
  for (int r = 0; r < 99; ++r) EXPECT_EQ("", rows[r]) << r;
  EXPECT_EQ("AAA", rows[99]);
  EXPECT_EQ("-N", Paging());
}

TEST_P(ProjectStationRoleTest, ClickSelectsClickAgainLetsGoAnotherRowMovesTheSelection) {
  SeedRoles(5);
  OpenList();
  Ok(ClickRow(kList, 2));
  EXPECT_EQ(std::vector<int>({2}), Selected(kList));
  EXPECT_FALSE(Enabled(kList, "&Add"));
  EXPECT_TRUE(Enabled(kList, "&Change"));
  EXPECT_TRUE(Enabled(kList, "&Delete"));
  Ok(ClickRow(kList, 2));
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_TRUE(Enabled(kList, "&Add"));
  EXPECT_FALSE(Enabled(kList, "&Change"));
  Ok(ClickRow(kList, 3));
  Ok(ClickRow(kList, 4));
  EXPECT_EQ(std::vector<int>({4}), Selected(kList));
  // The row in hand is the one clicked last.
  Ok(Click(kList, "&Change"));
  EXPECT_EQ(Role(4), Control(kEntry, "TYPE_NAME1")["value"]);
}

TEST_P(ProjectStationRoleTest, DoubleClickOpensTheRowToChangeAndTheReturnSelectsItAgain) {
  SeedRoles(3);
  OpenList();
  Ok(DoubleClickRow(kList, 2));
  ASSERT_EQ(std::vector<std::string>({kEntry}), Windows());
  EXPECT_EQ(Role(2), Control(kEntry, "TYPE_NAME1")["value"]);
  EXPECT_EQ("2001-02-03-04.05.06.000000", Control(kEntry, "D_LAST_UPDATE_TIMESTAMP1")["value"]);
  EXPECT_EQ("SEED", Control(kEntry, "D_USERID_CODE1")["value"]);
  EXPECT_TRUE(Control(kEntry, "D_USERID_CODE1")["protected"].get<bool>());
  EXPECT_STREQ("CHANGE", session().run_context().command);
  Ok(Click(kEntry, "Cance&l"));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(std::vector<int>({2}), Selected(kList));
  EXPECT_EQ("--", Paging());
}

TEST_P(ProjectStationRoleTest, RefreshFindsTheRowInHandOnItsPageAndHoldsThePaging) {
  SeedRoles(101);
  OpenList();
  Ok(Click(kList, "Next"));
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Change"));
  Ok(Click(kEntry, "Accep&t", {{"TYPE_NAME", "ROLE 101 RENAMED"}}));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(std::vector<std::string>({Role(100), "ROLE 101 RENAMED"}), Rows());
  EXPECT_EQ(std::vector<int>({2}), Selected(kList));
  EXPECT_EQ("--", Paging());
  Ok(ClickRow(kList, 2));
  EXPECT_EQ("P-", Paging());
}

// ---- Delete ----

TEST_P(ProjectStationRoleTest, DeleteOfTheOnlyRowLeavesAnEmptyList) {
  Seed(kOrg, "ONLY", 7);
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Delete"));
  ASSERT_EQ(std::vector<std::string>({kList, kDialog}), Windows());
  EXPECT_EQ("ONLY", Control(kDialog, "TYPE_NAME1")["value"]);
  EXPECT_EQ("readonly", Control(kDialog, "TYPE_NAME1")["type"]);
  Ok(Click(kDialog, "&Delete"));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_TRUE(Rows().empty());
  EXPECT_EQ(0, Count("TSMPSR"));
  EXPECT_EQ("", Message());
}

TEST_P(ProjectStationRoleTest, DeleteOfTheThirdOfFiveMovesTheRestUpAndSelectsNothing) {
  SeedRoles(5);
  OpenList();
  Ok(ClickRow(kList, 3));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDialog, "&Delete"));
  EXPECT_EQ(std::vector<std::string>({Role(1), Role(2), Role(4), Role(5)}), Rows());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ("", Stored(3));
  EXPECT_EQ(4, Count("TSMPSR", "TSMPSR_ORG_ID = 'PSRORG'"));
  EXPECT_TRUE(Enabled(kList, "&Add"));
}

TEST_P(ProjectStationRoleTest, CancelInTheDialogClearsTheSelectionAndKeepsTheRow) {
  SeedRoles(3);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDialog, "Cance&l"));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_TRUE(Selected(kList).empty());
  EXPECT_EQ(3u, Rows().size());
  EXPECT_EQ(3, Count("TSMPSR"));
}

TEST_P(ProjectStationRoleTest, AfterADeletePagingWaitsForAClickAndARelease) {
  SeedRoles(101);
  OpenList();
  EXPECT_EQ("-N", Paging());
  // The last row of the page goes; the page's LAST key still names it.
  Ok(ClickRow(kList, 100));
  Ok(Click(kList, "&Delete"));
  Ok(Click(kDialog, "&Delete"));
  ASSERT_EQ(99u, Rows().size());
  EXPECT_EQ(Role(99), Rows().back());
  EXPECT_EQ("--", Paging());
  Ok(ClickRow(kList, 1));
  EXPECT_EQ("--", Paging());
  Ok(ClickRow(kList, 1));
  EXPECT_EQ("-N", Paging());
  // Paging reads on from the deleted row's key.
  Ok(Click(kList, "Next"));
  EXPECT_EQ(std::vector<std::string>({Role(101)}), Rows());
}

TEST_P(ProjectStationRoleTest, ARowGoneBeforeTheDeleteLeavesTheListAllTheSameWithItsMessage) {
  SeedRoles(3);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Delete"));
  Exec("DELETE FROM TSMPSR WHERE TSMPSR_IS_NUMBER = 2");
  Ok(Click(kDialog, "&Delete"));
  EXPECT_EQ("E: PROJECT_STATION_ROLE was not found.", Message());
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(std::vector<std::string>({Role(1), Role(3)}), Rows());
}

// ---- Data entry ----

TEST_P(ProjectStationRoleTest, AddTakesTheNextNumberOfTheCounterTsmproleAndStampsTheRow) {
  OpenList();
  Ok(Click(kList, "&Add"));
  ASSERT_EQ(std::vector<std::string>({kEntry}), Windows());
  const json w = Window(kEntry);
  EXPECT_EQ("RT41 Project Role Data Entry", w["title"]);
  EXPECT_EQ("", Control(kEntry, "TYPE_NAME1")["value"]);
  EXPECT_EQ("0000-00-00-00.00.00.000000", Control(kEntry, "D_LAST_UPDATE_TIMESTAMP1")["value"]);
  EXPECT_EQ("Type Name", Control(kEntry, "TYPE_NAME1")["label"]);
  EXPECT_EQ("Date of Last Update", Control(kEntry, "D_LAST_UPDATE_TIMESTAMP1")["label"]);
  EXPECT_EQ("Updated By", Control(kEntry, "D_USERID_CODE1")["label"]);
  Ok(Click(kEntry, "Accep&t", {{"TYPE_NAME", "Field Survey"}}));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(std::vector<std::string>({"Field Survey"}), Rows());
  EXPECT_EQ(std::vector<int>({1}), Selected(kList));
  EXPECT_EQ("Field Survey|PSRTEST|2024-05-13 09:19:54", Stored(1));
  EXPECT_EQ(1, Counter("TSMPROLE", kOrg));
  EXPECT_EQ(-1, Counter("TSMPSR", kOrg));

  SetClock(2024, 5, 14, 10, 0, 1);
  Ok(ClickRow(kList, 1));
  AddThroughWindow("Background");
  EXPECT_EQ("Background|PSRTEST|2024-05-14 10:00:01", Stored(2));
  EXPECT_EQ(2, Counter("TSMPROLE", kOrg));
  EXPECT_EQ(std::vector<std::string>({"Background", "Field Survey"}), Rows());
  EXPECT_EQ(std::vector<int>({1}), Selected(kList));
}

TEST_P(ProjectStationRoleTest, AddOfANameInUseInTheOrganisationIsRefused) {
  Seed(kOrg, "Alpha", 500);
  Seed("OTHERORG", "Beta", 1);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TYPE_NAME", "Alpha"}}));
  EXPECT_EQ("E: A Project Station Role already exists with this type name.", Message());
  ASSERT_EQ(std::vector<std::string>({kEntry}), Windows());
  EXPECT_TRUE(Control(kEntry, "TYPE_NAME1")["error"].get<bool>());
  EXPECT_EQ(0x4B001926u, session().run_context().exit_state);
  EXPECT_EQ(1, Count("TSMPSR", "TYPE_NAME = 'Alpha'"));
  // Another organisation's name is no duplicate here.
  Ok(Click(kEntry, "Accep&t", {{"TYPE_NAME", "Beta"}}));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(std::vector<std::string>({"Alpha", "Beta"}), Rows());
  EXPECT_EQ(2, Count("TSMPSR", "TYPE_NAME = 'Beta'"));
}

TEST_P(ProjectStationRoleTest, RowsOfOtherOrganisationsDoNotShow) {
  Seed("OTHERORG", "AAA OTHER", 1);
  Seed(kOrg, "MINE", 1);
  Seed("ZZZZZZZZ", "NATIONAL", 2);
  OpenList();
  EXPECT_EQ(std::vector<std::string>({"MINE"}), Rows());
  OpenList("OTHER", "OTHERORG");
  EXPECT_EQ(std::vector<std::string>({"AAA OTHER"}), Rows());
}

TEST_P(ProjectStationRoleTest, OnlyTheBlankFieldIsMarkedAndAFixOnlyShowsAtTheNextAccept) {
  // The counter stands behind the table: the insert meets row 1's key.
  Seed(kOrg, "FIRST", 1);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t"));
  EXPECT_EQ("E: An entry must be made in this field.", Message());
  json name = Control(kEntry, "TYPE_NAME1");
  EXPECT_TRUE(name["error"].get<bool>());
  EXPECT_EQ("10    ", name["display"]);
  EXPECT_FALSE(Control(kEntry, "D_USERID_CODE1")["error"].get<bool>());

  // Typed in: the mark stays until the next Accept.
  Ok(Type(kEntry, "TYPE_NAME1", {{"TYPE_NAME", "SECOND"}}));
  EXPECT_EQ("", Message());  // the Accept's words are not said again
  name = Control(kEntry, "TYPE_NAME1");
  EXPECT_EQ("SECOND", name["value"]);
  EXPECT_EQ("10    ", name["display"]);

  // The next Accept clears it; the write fails on the key, the window stays
  // with what was typed, and nothing of the event stays in the database.
  Ok(Click(kEntry, "Accep&t"));
  EXPECT_EQ(kInternalError, Message());
  ASSERT_EQ(std::vector<std::string>({kEntry}), Windows());
  name = Control(kEntry, "TYPE_NAME1");
  EXPECT_EQ("3a    ", name["display"]);
  EXPECT_FALSE(name["error"].get<bool>());
  EXPECT_EQ("SECOND", name["value"]);
  EXPECT_EQ(-1, Counter("TSMPROLE", kOrg));
  EXPECT_EQ(1, Count("TSMPSR"));
}

TEST_P(ProjectStationRoleTest, CancelAfterAFailedAcceptReloadsTheList) {
  Seed(kOrg, "ONE", 1);
  OpenList();
  Ok(Click(kList, "&Add"));
  Ok(Click(kEntry, "Accep&t", {{"TYPE_NAME", "ONE"}}));
  ASSERT_EQ(std::vector<std::string>({kEntry}), Windows());
  Seed(kOrg, "TWO", 2);  // by someone else, meanwhile
  Ok(Click(kEntry, "Cance&l"));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(std::vector<std::string>({"ONE", "TWO"}), Rows());
  EXPECT_EQ(1, Count("TSMPSR", "TYPE_NAME = 'ONE'"));
}

TEST_P(ProjectStationRoleTest, AcceptOfAnUnchangedRowWritesNoStamp) {
  SeedRoles(2);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Change"));
  Ok(Click(kEntry, "Accep&t"));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(Role(2) + "|SEED|2001-02-03 04:05:06", Stored(2));
  EXPECT_EQ(std::vector<int>({2}), Selected(kList));
}

TEST_P(ProjectStationRoleTest, ANameTypedAndTypedBackStillGoesThroughModify) {
  SeedRoles(2);
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Change"));
  Ok(Type(kEntry, "TYPE_NAME1", {{"TYPE_NAME", "ROLE 0011"}}));
  Ok(Type(kEntry, "TYPE_NAME1", {{"TYPE_NAME", Role(1)}}));
  Ok(Click(kEntry, "Accep&t"));
  ASSERT_EQ(std::vector<std::string>({kList}), Windows());
  EXPECT_EQ(Role(1) + "|PSRTEST|2024-05-13 09:19:54", Stored(1));
  EXPECT_EQ(Role(2) + "|SEED|2001-02-03 04:05:06", Stored(2));
}

TEST_P(ProjectStationRoleTest, AnEditThatEndsAsItBeganStillCountsAsAChange) {
  SeedRoles(1);
  OpenList();
  Ok(ClickRow(kList, 1));
  Ok(Click(kList, "&Change"));
  // A character typed and deleted: the page sends the edit all the same.
  Ok(Type(kEntry, "TYPE_NAME1", {{"TYPE_NAME", Role(1)}}));
  Ok(Click(kEntry, "Accep&t"));
  EXPECT_EQ(Role(1) + "|PSRTEST|2024-05-13 09:19:54", Stored(1));
}

TEST_P(ProjectStationRoleTest, ARenameToANameInUseEndsInAFatalStopOfDetailDF) {
  Seed(kOrg, "ALPHA", 1);
  Seed(kOrg, "BRAVO", 2);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Change"));
  const Reply r = Click(kEntry, "Accep&t", {{"TYPE_NAME", "ALPHA"}});
  ASSERT_EQ(200, r.status);
  const json& failure = r.body["failure"];
  ASSERT_TRUE(failure.is_object()) << r.body.dump();
  EXPECT_EQ("FE", failure["status"]);
  EXPECT_EQ("DF", failure["status_detail"]);
  EXPECT_EQ("MODIFY_PROJECT_STATION_ROLE", failure["unit_name"]);
  EXPECT_EQ("BRAVO|SEED|2001-02-03 04:05:06", Stored(2));
  // The windows stay, and Cancel still works.
  ASSERT_EQ(std::vector<std::string>({kEntry}), Windows());
  Ok(Click(kEntry, "Cance&l"));
  EXPECT_EQ(std::vector<std::string>({"ALPHA", "BRAVO"}), Rows());
}

TEST_P(ProjectStationRoleTest, ARowDeletedMeanwhileGivesTheInternalErrorOnChange) {
  SeedRoles(2);
  OpenList();
  Ok(ClickRow(kList, 2));
  Ok(Click(kList, "&Change"));
  Exec("DELETE FROM TSMPSR WHERE TSMPSR_IS_NUMBER = 2");
  Ok(Click(kEntry, "Accep&t", {{"TYPE_NAME", "LATE"}}));
  EXPECT_EQ(kInternalError, Message());
  ASSERT_EQ(std::vector<std::string>({kEntry}), Windows());
  EXPECT_EQ("LATE", Control(kEntry, "TYPE_NAME1")["value"]);
  EXPECT_EQ(0, Count("TSMPSR", "TYPE_NAME = 'LATE'"));
}

TEST_P(ProjectStationRoleTest, QuotesAndKeywordsAreStoredAndShownAsTyped) {
  const std::string nasty = "O'Neil \"Q\"; DROP TABLE TSMPSR--";
  ASSERT_LE(nasty.size(), 32u);
  const std::string accented = "R\xC3\xB4le d'\xC3\xA9tude \xE2\x82\xAC";  // in 1252
  OpenList();
  AddThroughWindow(nasty);
  Ok(ClickRow(kList, 1));
  AddThroughWindow(accented);
  EXPECT_EQ(nasty + "|PSRTEST|2024-05-13 09:19:54", Stored(1));
  EXPECT_EQ(accented + "|PSRTEST|2024-05-13 09:19:54", Stored(2));
  EXPECT_EQ(std::vector<std::string>({nasty, accented}), Rows());
}

TEST_P(ProjectStationRoleTest, BadInputIsRefusedAndChangesNothing) {
  Seed(kOrg, "KEEP", 900);
  OpenList();
  // Change and Delete wait for a selected row; Prev for a page before.
  EXPECT_EQ(400, Click(kList, "&Change").status);
  EXPECT_EQ(400, Click(kList, "&Delete").status);
  EXPECT_EQ(400, Click(kList, "Prev").status);
  EXPECT_EQ(400, ClickRow(kList, 2).status);
  Ok(Click(kList, "&Add"));
  const json before = Screen();
  EXPECT_EQ(400, Click(kEntry, "Accep&t", {{"TYPE_NAME", std::string(33, 'X')}}).status);
  EXPECT_EQ(400, Click(kEntry, "Accep&t", {{"TYPE_NAME", "\xE4\xB8\xAD"}}).status);
  EXPECT_EQ(400, Click(kEntry, "Accep&t", {{"D_USERID_CODE", "ME"}}).status);
  EXPECT_EQ(before, Screen());
  EXPECT_EQ(1, Count("TSMPSR"));
  // Exactly 32 characters fit.
  Ok(Click(kEntry, "Accep&t", {{"TYPE_NAME", std::string(32, 'X')}}));
  EXPECT_EQ(1, Count("TSMPSR", "TYPE_NAME = '" + std::string(32, 'X') + "'"));
}

TEST_P(ProjectStationRoleTest, HelpRunsNoUnitAndCloseGoesBackToTheMenu) {
  OpenList();
  Reply r = Click(kList, "&Help");
  ASSERT_EQ(200, r.status);
  EXPECT_EQ("/help/RT40_PROJECT_ROLE_MAIN_LIST", r.body["help"]);
  Ok(Click(kList, "C&lose"));
  EXPECT_EQ(std::vector<std::string>({kMenu}), Windows());
  EXPECT_FALSE(session().ended());
  // And in again: the list reads afresh.
  Seed(kOrg, "LATER", 1);
  Ok(Click(kMenu, "Pro&ject Station Role"));
  EXPECT_EQ(std::vector<std::string>({"LATER"}), Rows());
}

INSTANTIATE_TEST_SUITE_P(Backends, ProjectStationRoleTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);

}  // namespace
}  // namespace watrix
