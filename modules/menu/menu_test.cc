// The module's head tables, walked as the host reads them, and the reference
// table menu driven through sessions with the events a person's clicks send.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <set>
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

using testing::BuildFolder;

const ModuleImage& Lkbase() { return testing::TheModules()->main(); }

// ---- The head tables ----

// Local procedures whose modules are still to come: rows without entry,
// windows or views. Each module's change takes its procedures off this list.
const std::set<std::string> kStillToCome = {
    "RT30_VALID_STN_TYPE_MAINT_LIST",   "RT11_CATEGORY_SUBCAT_MAINT_LIST",
    "RT18_FIELD_GEAR_MAINTENANCE_LIST",
    "RT4A_TAXON_CHAR_MAINT_LIST",
    "RT36_FIPS_HUC_MAINT_LIST",
    "RT10_CATEGORY_SUBCAT_ASSGN_LIST",
    "RT45_GEO_POL_DATA_ENTRY",
    "RT21_LAB_SAMPLE_PREP_DATA_ENTRY",
    "RT15_ANALYTICAL_EQUIP_DATA_ENTRY", "RT29_NATIVE_AMER_LAND_DATA_ENTRY",
    "RT20_LAB_SAMPLE_PREP_MAINT_LIST",
    "RT19_FIELD_GEAR_DATA_ENTRY",
    "RT17_ANALYT_PROCEDURE_DATA_ENTRY", "RT31_VALID_STN_TYPE_DATA_ENTRY",
    "RT12_CATEGORY_SUBCAT_DATA_ENTRY",
    "RT44_GEO_POL_AREA_MAINT_LIST1",
    "RT28_NATIVE_AMERCN_LAND_MAIN_LST", "RT16_ANALYT_PROCEDURE_MAINT_LIST",
    "RT37_FIPS_HUC_DATA_ENTRY",
    "RT14_ANALYTICAL_EQUIP_MAINT_LIST",
};

struct Expected {
  lk::u32 id;
  const char* name;
  const char* short_name;
  const char* module;
};
const Expected kProcedures[] = {
    {129, "RT30_VALID_STN_TYPE_MAINT_LIST", "RT30VALI", "LKBASE"},
    {163, "RT11_CATEGORY_SUBCAT_MAINT_LIST", "RT11CATE", "LKBASE"},
    {187, "RT18_FIELD_GEAR_MAINTENANCE_LIST", "RT18FIEL", "LKBASE"},
    {226, "RT43_LITHOLOGIC_UNIT_DATA_ENTRY", "RT43LITH", "LKBASE"},
    {243, "RT4A_TAXON_CHAR_MAINT_LIST", "RT4ATAXO", "LKBASE"},
    {290, "RT47_GEOLOGIC_UNIT_DATA_ENTRY", "RT47GEOL", "LKBASE"},
    {314, "RT36_FIPS_HUC_MAINT_LIST", "RT36FIPS", "LKBASE"},
    {346, "RT33_STND_INDST_SIC_DATA_ENTRY", "RT33STND", "LKBASE"},
    {363, "RT50_LAB_REMARK_MAINT_LIST", "RT50LABR", "LKBASE"},
    {392, "UOM1_UNIT_OF_MEASURE_PREVIEW", "UNITOFME", "LKBASE"},
    {407, "RT2_PERMITTED_VALUE_MAINT_LIST", "RT2PERM1", "LKBASE"},
    {461, "RT10_CATEGORY_SUBCAT_ASSGN_LIST", "RT10CATE", "LKBASE"},
    {491, "RT41_PROJECT_ROLE_DATA_ENTRY", "RT41PROJ", "LKBASE"},
    {506, "RT45_GEO_POL_DATA_ENTRY", "RT6CHAR1", "LKBASE"},
    {551, "RT21_LAB_SAMPLE_PREP_DATA_ENTRY", "RT21LABS", "LKBASE"},
    {577, "RT42_LITHOLOGIC_UNIT_MAINT_LIST", "RT42LITH", "LKBASE"},
    {606, "RT15_ANALYTICAL_EQUIP_DATA_ENTRY", "RT15ANAL", "LKBASE"},
    {626, "RT29_NATIVE_AMER_LAND_DATA_ENTRY", "RT29NATI", "LKBASE"},
    {645, "RT35_UNIT_OF_MEASURE_DATA_ENTRY", "RT35UNIT", "LKBASE"},
    {676, "RT32_STND_INDSTRL_CD_MAINT_LIST", "RT32STND", "LKBASE"},
    {706, "RT20_LAB_SAMPLE_PREP_MAINT_LIST", "RT20LABS", "LKBASE"},
    {744, "RT48_BIO_PART_MAINT_LIST", "RT48BIOP", "LKBASE"},
    {766, "RT40_PROJECT_ROLE_MAIN_LIST", "RT40PROJ", "LKBASE"},
    {792, "RT19_FIELD_GEAR_DATA_ENTRY", "RT19FIEL", "LKBASE"},
    {816, "RT1_REFERENCE_TABLE_MAINT_MENU", "RT1REFE1", "LKBASE"},
    {883, "RT17_ANALYT_PROCEDURE_DATA_ENTRY", "RT17ANAL", "LKBASE"},
    {916, "RT31_VALID_STN_TYPE_DATA_ENTRY", "RT31VALI", "LKBASE"},
    {956, "RT12_CATEGORY_SUBCAT_DATA_ENTRY", "RT12CATE", "LKBASE"},
    {989, "RT51_LAB_REMARK_DATA_ENTRY", "RT51LABR", "LKBASE"},
    {1008, "RT46_GEOLOGIC_UNIT_MAINT_LIST", "RT46GEOL", "LKBASE"},
    {1053, "RT44_GEO_POL_AREA_MAINT_LIST1", "RT7CHAR1", "LKBASE"},
    {1122, "RT28_NATIVE_AMERCN_LAND_MAIN_LST", "RT28NATI", "LKBASE"},
    {1156, "RT16_ANALYT_PROCEDURE_MAINT_LIST", "RT16ANAL", "LKBASE"},
    {1195, "RT37_FIPS_HUC_DATA_ENTRY", "RT37FIPS", "LKBASE"},
    {1223, "RT54_MULTIPLE_TABLE_SELECTION", "RT4CHART", "LKBASE"},
    {1244, "RT49_BIO_PART_DATA_ENTRY", "RT49BIOP", "LKBASE"},
    {1259, "RT34_UNIT_OF_MEASURE_MAINT_LIST", "RT34UNIT", "LKBASE"},
    {1293, "RT14_ANALYTICAL_EQUIP_MAINT_LIST", "RT14ANAL", "LKBASE"},
    {1326, "RT3_PERMITTED_VALUE_DATA_ENTRY", "RT3PERMI", "LKBASE"},
    {101, "RT13_CHARACTERISTICS_ASSIGN", "RT13CHA1", "LKBASE2"},
    {103, "RT5_CHAR_TABLE_DATA_ENTRY", "RT5CHAR1", "LKBASE2"},
    {105, "P37_NATL_LSP_PROC_SRCE_SELECTION", "P37NATL1", "VOPLIN"},
    {107, "P4_CITATION_SELECTION_LIST", "CITATION", "VOPLIN"},
    {109, "RT57_CHAR_ALIAS_TYPE_MAINT", "RT57CHAR", "LKBASE2"},
    {111, "RT22_ESTUARY_MAINTENANCE_LIS0", "RT22ESTU", "LKBASE2"},
    {113, "RT52_ERROR_MESSAGES_MAINT_LIST", "RT52ERRO", "LKBASE2"},
    {115, "RT4_CHAR_TABLE_MAINT_LIST", "RT4CHAR1", "LKBASE2"},
    {119, "RT26_NATL_CITATION_MAINT_LIST", "NATIONA1", "KESDOR"},
    {121, "RT55_PERSON_ROLE_MAINT_LIST", "RT23ESTU", "LKBASE2"},
    {123, "P5_ANALYT_PROC_EQUIP_SELECTION", "P5ANALYT", "VOPLIN"},
    {125, "P7_NATIONAL_PROCEDURE_OWNER_LIST", "P7NATION", "VOPLIN"},
};

const std::map<std::string, lk::u32> kKeywordCodes = {
    {"EXIT", 1410},   {"CHANGE", 1412}, {"LINK52", 1413}, {"CLOSE", 1429},  {"LINK13", 1430},
    {"LINK32", 1442}, {"ASSIGN", 1445}, {"LINK1", 1447},  {"UNASSIGN", 1451}, {"LINK2", 1452},
    {"LINK55", 1453}, {"ADD", 1457},    {"LINK3", 1461},  {"LINK36", 1462}, {"LINK4", 1464},
    {"LINK10", 1468}, {"SEARCH", 1473}, {"LINK5", 1475},  {"HELP", 1479},   {"LINK11", 1480},
    {"LINK6", 1484},  {"LINK22", 1485}, {"LINK12", 1487}, {"LINK7", 1489},  {"DELETE", 1491},
    {"LINK30", 1492}, {"NEXT", 1497},   {"PREV", 1501},   {"LINK34", 1504}, {"CANCEL", 1506},
    {"LINK14", 1507}, {"OK", 1514},     {"LINK15", 1515}, {"LINK8", 1517},  {"LINK40", 1520},
    {"LINK9", 1523},
};

TEST(HeadTest, ApplicationBlockStandsAheadOfTheRoot) {
  const lk::WinHead& head = Lkbase().head();
  const lk::ApplicationBlock& app = *head.application;
  EXPECT_STREQ("WATRIX PROD SYS T2.0", app.model_name);
  EXPECT_STREQ("WATRIX", app.schema_word);
  EXPECT_STREQ("ORACLE", app.dbms);
  EXPECT_STREQ(".", app.decimal_mark);
  EXPECT_STREQ(",", app.thousands_mark);
  EXPECT_STREQ("DEFAULT", app.profile);
  EXPECT_STREQ("5101262", app.model_stamp);
  EXPECT_STREQ("1252", app.code_page);
  const auto* word_ahead = reinterpret_cast<const std::uintptr_t*>(&head) - 1;
  EXPECT_EQ(~std::uintptr_t{0}, *word_ahead);
  EXPECT_EQ(static_cast<const void*>(word_ahead), static_cast<const void*>(&app + 1));
  EXPECT_EQ(lk::u32{'Y'}, head.true_word);
  EXPECT_EQ(lk::u32{'N'}, head.false_word);
  EXPECT_STREQ("LKBASE", head.module_entry->module_name);
  EXPECT_STREQ("LKBASE", head.view_index->module_name);
  EXPECT_EQ(static_cast<const void*>(head.module_entry + 1), head.dictionary);
}

TEST(HeadTest, ProcedureTableHoldsTheFiftyOneRowsInOrder) {
  const lk::WinHead& head = Lkbase().head();
  int i = 0;
  for (const lk::ProcedureRow* p = head.procedures; p->id != 0; ++p, ++i) {
    ASSERT_LT(i, 51);
    SCOPED_TRACE(p->name);
    EXPECT_EQ(kProcedures[i].id, p->id);
    EXPECT_STREQ(kProcedures[i].name, p->name);
    EXPECT_LE(std::strlen(p->name), 32u);
    EXPECT_EQ(head.shared_cell, p->shared_cell);
    EXPECT_STREQ(kProcedures[i].short_name, p->short_name);
    const bool local = i < 39;
    if (local) {
      ASSERT_NE(nullptr, p->trancode);
      EXPECT_STREQ(p->trancode, p->short_name);
      const bool built = kStillToCome.count(p->name) == 0;
      EXPECT_EQ(built, p->entry != nullptr);
      EXPECT_EQ(built, p->import_to_export != nullptr);
      EXPECT_EQ(built, p->export_pack != nullptr);
    } else {
      EXPECT_EQ(nullptr, p->trancode);
      EXPECT_EQ(nullptr, p->entry);
      EXPECT_EQ(nullptr, p->exit_rows);
    }
    EXPECT_EQ(p->exit_rows == nullptr, p->flow_rows == nullptr);
    EXPECT_EQ(p->exit_rows == nullptr, p->flow_state == nullptr);
  }
  EXPECT_EQ(51, i);
  const lk::ProcedureRow* menu = Lkbase().FindProcedure("RT1_REFERENCE_TABLE_MAINT_MENU");
  ASSERT_NE(nullptr, menu);
  EXPECT_EQ(27u, menu->import_size);
  EXPECT_EQ(60u, menu->export_size);
  const lk::ProcedureRow* citation = Lkbase().FindProcedure("P4_CITATION_SELECTION_LIST");
  EXPECT_EQ(5823088u, citation->import_size);
  EXPECT_EQ(6491648u, citation->export_size);
}

TEST(HeadTest, NameListFollowsTheProcedureTable) {
  const lk::WinHead& head = Lkbase().head();
  const char* row = head.name_list;
  int i = 0;
  for (const lk::ProcedureRow* p = head.procedures; p->id != 0; ++p, ++i, row += 57) {
    SCOPED_TRACE(p->name);
    char name[33] = {0};
    std::snprintf(name, sizeof name, "%-32s", p->name);
    EXPECT_EQ(std::string(name), std::string(row, 32));
    char module[9] = {0};
    std::snprintf(module, sizeof module, "%-8s", kProcedures[i].module);
    EXPECT_EQ(std::string(module), std::string(row + 32, 8));
    char short_name[9] = {0};
    std::snprintf(short_name, sizeof short_name, "%-8s", p->short_name);
    EXPECT_EQ(std::string(short_name), std::string(row + 40, 8));
    EXPECT_EQ(std::string(short_name), std::string(row + 48, 8));
    EXPECT_EQ(i < 39 ? 'I' : 'X', row[56]);
  }
  // The terminator is a text row, not a row of zeros.
  const std::string terminator(row, 57);
  EXPECT_EQ(std::string("0") + std::string(31, ' ') + "0" + std::string(7, ' ') + "0" +
                std::string(7, ' ') + "0" + std::string(7, ' ') + "0",
            terminator);
  EXPECT_EQ('\0', row[57]);
  EXPECT_EQ("LKBASE2", Lkbase().ModuleOf("RT22_ESTUARY_MAINTENANCE_LIS0"));
  EXPECT_EQ("KESDOR", Lkbase().ModuleOf("RT26_NATL_CITATION_MAINT_LIST"));
  EXPECT_EQ("", Lkbase().ModuleOf("RT24_NATL_PROGRAM_MAINT_LIST"));
}

TEST(HeadTest, FlowsNameTheirTargetsAndExitStatesTheirFlows) {
  const ModuleImage& m = Lkbase();
  const std::set<lk::u32> kNoRow = {117, 127};  // kept on purpose
  int flows = 0;
  for (const lk::ProcedureRow* p = m.head().procedures; p->id != 0; ++p) {
    if (p->exit_rows == nullptr) continue;
    SCOPED_TRACE(p->name);
    for (const lk::ExitRow* e = p->exit_rows; e->exit_state != 0 || e->flow_id != 0; ++e) {
      EXPECT_EQ(lk::u32{'M'}, e->action);
      bool found = false;
      for (const lk::FlowRow* f = p->flow_rows; f->flow_id != 0; ++f) found |= f->flow_id == e->flow_id;
      EXPECT_TRUE(found) << std::hex << e->exit_state;
    }
    for (const lk::FlowRow* f = p->flow_rows; f->flow_id != 0; ++f, ++flows) {
      SCOPED_TRACE(f->target_name);
      EXPECT_EQ(0x00E4u, f->flow_id & 0xFFFF);
      EXPECT_STREQ("L", f->flow_kind);
      EXPECT_STREQ("E", f->return_mode);
      ASSERT_NE(nullptr, f->returns);
      const lk::ProcedureRow* target = m.FindProcedure(f->target_id);
      if (kNoRow.count(f->target_id)) {
        EXPECT_EQ(nullptr, target);
      } else {
        ASSERT_NE(nullptr, target);
        EXPECT_STREQ(target->name, f->target_name);
      }
    }
  }
  // The menu's, RT50's, RT48's, RT40's, RT34's, RT2's two, RT3's, RT46's,
  // RT42's and RT32's, until the other modules bring theirs.
  EXPECT_EQ(35, flows);
}

TEST(HeadTest, MenuFlowsAreAsDesigned) {
  const lk::ProcedureRow* menu = Lkbase().FindProcedure("RT1_REFERENCE_TABLE_MAINT_MENU");
  const std::set<std::string> kCancel = {
      "RT22_ESTUARY_MAINTENANCE_LIS0", "RT52_ERROR_MESSAGES_MAINT_LIST",
      "RT44_GEO_POL_AREA_MAINT_LIST1", "RT50_LAB_REMARK_MAINT_LIST",
      "RT11_CATEGORY_SUBCAT_MAINT_LIST", "RT46_GEOLOGIC_UNIT_MAINT_LIST",
      "RT48_BIO_PART_MAINT_LIST"};
  int local = 0, external = 0, missing = 0;
  for (const lk::FlowRow* f = menu->flow_rows; f->flow_id != 0; ++f) {
    SCOPED_TRACE(f->target_name);
    const lk::ProcedureRow* t = Lkbase().FindProcedure(f->target_id);
    if (t == nullptr) ++missing;
    else if (t->trancode != nullptr) ++local;
    else ++external;
    EXPECT_EQ(kCancel.count(f->target_name) ? lk::EXIT_CANCEL : lk::EXIT_RETURN,
              f->returns->exit_state);
    const bool d = std::strcmp(f->on_mode, "D") == 0;
    const bool no_command =
        d || std::strcmp(f->target_name, "RT11_CATEGORY_SUBCAT_MAINT_LIST") == 0;
    EXPECT_STREQ(no_command ? "" : "$#CURR#$", f->on_command);
    const bool keeps = std::strcmp(f->target_name, "RT2_PERMITTED_VALUE_MAINT_LIST") == 0;
    EXPECT_STREQ(keeps ? "$#CURR#$" : "", f->return_command);
  }
  EXPECT_EQ(18, local);
  EXPECT_EQ(6, external);
  EXPECT_EQ(1, missing);
}

TEST(HeadTest, WindowsActionsAndKeywordCodes) {
  const ModuleImage& m = Lkbase();
  int windows = 0, actions = 0, opening_dialogs = 0;
  std::set<lk::u32> dialogs;
  for (const lk::WindowRow* w = m.head().windows; w->procedure_id != 0; ++w, ++windows) {
    SCOPED_TRACE(w->name);
    dialogs.insert(w->dialog_id);
    const lk::ProcedureRow* p = m.FindProcedure(w->procedure_id);
    ASSERT_NE(nullptr, p);
    // A procedure's rows stand together and its first bears its name.
    if (w == m.head().windows || (w - 1)->procedure_id != w->procedure_id) {
      EXPECT_STREQ(p->name, w->name);
    }
    EXPECT_TRUE(std::strcmp(w->kind, "SD") == 0 || std::strcmp(w->kind, "DD") == 0);
    EXPECT_STREQ("A", w->mode);
    EXPECT_NE(nullptr, m.resources().FindDialog(w->dialog_id));
    for (const lk::ActionControlRow* a = w->actions; a->control_id != 0; ++a, ++actions) {
      EXPECT_EQ(0x00010004u, a->control_type);
      if (a->command[0] == '\0') {
        EXPECT_EQ(0u, a->command_code);
        continue;
      }
      // The low half is zero but in the one row that opens a dialog itself.
      if ((a->command_code & 0xFFFF) != 0) {
        ++opening_dialogs;
        EXPECT_STREQ("RT32_STND_INDSTRL_CD_MAINT_LIST", w->name);
        EXPECT_STREQ("DELETE", a->command);
        EXPECT_EQ(679u, a->command_code & 0xFFFF);
      }
      ASSERT_TRUE(kKeywordCodes.count(a->command)) << a->command;
      EXPECT_EQ(kKeywordCodes.at(a->command), a->command_code >> 16) << a->command;
    }
  }
  EXPECT_EQ(36, windows);   // 68 once every module is in
  EXPECT_EQ(153, actions);  // 294 once every module is in
  EXPECT_EQ(1, opening_dialogs);
  // The "About" box is a template of the module and in no window row.
  EXPECT_NE(nullptr, m.resources().FindDialog(55));
  EXPECT_EQ(0u, dialogs.count(55));
  EXPECT_EQ("Field does not contain permitted value; Please retry; Use Help for field information.",
            m.resources().strings.at(1));
}

TEST(HeadTest, MenuWindowsHoldTheirControls) {
  const ModuleImage& m = Lkbase();
  const lk::WindowRow* main = m.FindWindow("RT1_REFERENCE_TABLE_MAINT_MENU");
  ASSERT_NE(nullptr, main);
  EXPECT_EQ(835u, main->dialog_id);
  int controls = 0, events = 0;
  for (const lk::ControlRow* c = main->controls; c->control_id != 0; ++c, ++controls)
    EXPECT_EQ(lk::kTagButton, lk::DescriptorTag(c->descriptor));
  for (const lk::EventRow* e = main->events; e->control_id != 0; ++e) ++events;
  EXPECT_EQ(24, controls);
  EXPECT_EQ(1, events);  // all others are keywords
  const Dialog* d = m.resources().FindDialog(835);
  EXPECT_EQ("RT1 Reference Table Maintenance Menu", d->title);
  EXPECT_EQ(316, d->width);
  EXPECT_EQ(202, d->height);
  EXPECT_EQ(0x02C40001u, d->style);
  EXPECT_EQ(0x02C00081u, m.resources().FindDialog(819)->style);
  EXPECT_EQ("RT1A Reference Table Menu (Continued)", m.resources().FindDialog(819)->title);
  EXPECT_EQ("RT1B Characteristic Type Selection", m.resources().FindDialog(828)->title);
  // Each table label is a centred static 40 wide directly above its button.
  int labels = 0;
  for (const DialogControl& c : d->controls) {
    if (c.kind != "static") continue;
    ++labels;
    const DialogControl* button = d->Find(c.id + 3);
    ASSERT_NE(nullptr, button);
    EXPECT_EQ(40, c.w);
    EXPECT_TRUE(c.center);
    EXPECT_EQ(button->x + button->w / 2, c.x + c.w / 2);
    EXPECT_EQ(button->y, c.y + c.h);
  }
  EXPECT_EQ(21, labels);
  EXPECT_EQ("TSRPRMVL", d->Find(858)->text);
  EXPECT_EQ("Permitted &Value", d->Find(861)->text);
}

TEST(HeadTest, ViewIndexGivesNameAndTitle) {
  const ModuleImage& m = Lkbase();
  const lk::ViewNameRow* by_name = m.FindViews("RT1_REFERENCE_TABLE_MAINT_MENU");
  const lk::ViewNameRow* by_title = m.FindViews("RT1 Reference Table Maintenance Menu");
  ASSERT_NE(nullptr, by_name);
  ASSERT_NE(nullptr, by_title);
  EXPECT_EQ(by_name->view_rows, by_title->view_rows);
  EXPECT_EQ(by_name->group_rows, by_title->group_rows);
  EXPECT_EQ(816u, by_name->procedure_id);
  int views = 0;
  for (const lk::ViewRow* v = by_name->view_rows; v->view_name != nullptr; ++v) ++views;
  EXPECT_EQ(3, views);
  EXPECT_STREQ("*", by_name->group_rows[0].group_name);
  EXPECT_EQ(3u << 16, by_name->group_rows[0].view_range);
}

TEST(HeadTest, ModuleExportsWinHeadAndNothingElse) {
  const std::string command = "nm -D --defined-only " + BuildFolder() + "/liblkbase.so";
  FILE* pipe = popen(command.c_str(), "r");
  ASSERT_NE(nullptr, pipe);
  std::set<std::string> symbols;
  char line[512];
  while (std::fgets(line, sizeof line, pipe) != nullptr) {
    std::string s(line);
    while (!s.empty() && (s.back() == '\n' || s.back() == ' ')) s.pop_back();
    symbols.insert(s.substr(s.rfind(' ') + 1));
  }
  ASSERT_EQ(0, pclose(pipe));
  EXPECT_EQ(std::set<std::string>{"win_head"}, symbols);
}

// ---- The menu, event by event ----

class MenuTest : public ::testing::Test, public testing::SessionDriver {
 protected:
  void SetUp() override { Start("JSMITH", "ZZZZZZZZ"); }

  static constexpr const char* kMenu = "RT1_REFERENCE_TABLE_MAINT_MENU";
  static constexpr const char* kPage2 = "RT1A_REFERENCE_TABLE_MAINT_MENU";
  static constexpr const char* kCharType = "RT1B_CHAR_TYPE_SELECT";
};

TEST_F(MenuTest, OpensOnTheFirstPage) {
  const nlohmann::json screen = Screen();
  ASSERT_EQ(1u, screen["windows"].size());
  const nlohmann::json& w = screen["windows"][0];
  EXPECT_EQ(kMenu, w["name"]);
  EXPECT_EQ("RT1 Reference Table Maintenance Menu", w["title"]);
  EXPECT_EQ("SD", w["kind"]);
  EXPECT_EQ(316, w["width"]);
  EXPECT_EQ(202, w["height"]);
  int buttons = 0, statics = 0;
  for (const auto& c : w["controls"]) {
    if (c["type"] == "button") ++buttons;
    if (c["type"] == "static") ++statics;
  }
  EXPECT_EQ(24, buttons);
  EXPECT_EQ(21, statics);
  EXPECT_EQ("Analytical &Equipment", w["controls"][0]["label"]);
  EXPECT_EQ("LINK3", w["controls"][0]["keyword"]);
  EXPECT_EQ(nullptr, screen["message"]);
  EXPECT_EQ(nullptr, screen["failure"]);
  EXPECT_EQ(false, screen["ended"]);
  // The body copied the user and organisation of the run.
  EXPECT_STREQ("RT1_REFERENCE_TABLE_MAINT_MENU", session().run_context().unit_name);
}

TEST_F(MenuTest, SecondPageOpensOverTheFirstAndItsCloseRunsNoBody) {
  ASSERT_EQ(200, Click(kMenu, "Additional Tables >>>").status);
  EXPECT_EQ((std::vector<std::string>{kMenu, kPage2}), Windows());
  EXPECT_STREQ("RT1_PB_ADDITIONAL_TABLES_CLICK", session().run_context().unit_name);
  // Only the window on top takes events.
  EXPECT_EQ(409, Click(kMenu, "C&lose").status);
  ASSERT_EQ(200, Click(kPage2, "C&lose").status);
  EXPECT_EQ((std::vector<std::string>{kMenu}), Windows());
  EXPECT_STREQ("RT1A_PBM_CLOSE_CLK", session().run_context().unit_name);
  EXPECT_FALSE(session().ended());
}

TEST_F(MenuTest, CharacteristicOpensTheTypeDialog) {
  ASSERT_EQ(200, Click(kMenu, "&Characteristic").status);
  EXPECT_EQ((std::vector<std::string>{kMenu, kCharType}), Windows());
  EXPECT_EQ(lk::EXIT_NONE, session().run_context().exit_state);
  ASSERT_EQ(200, Click(kCharType, "C&lose").status);
  EXPECT_EQ((std::vector<std::string>{kMenu}), Windows());
}

TEST_F(MenuTest, TaxonCharacteristicsClosesItselfBeforeItFlows) {
  ASSERT_EQ(200, Click(kMenu, 859).status);
  ASSERT_EQ(200, Click(kCharType, "&Taxon Characteristics").status);
  EXPECT_EQ((std::vector<std::string>{kMenu}), Windows());
  EXPECT_EQ("E: Procedure RT4A_TAXON_CHAR_MAINT_LIST of module LKBASE is not available.",
            Message());
  EXPECT_EQ(0x462804F7u, session().run_context().exit_state);
}

TEST_F(MenuTest, NonTaxonCharacteristicsFlowsToTheSiblingModule) {
  ASSERT_EQ(200, Click(kMenu, "859").status);
  ASSERT_EQ(200, Click(kCharType, "&Non-Taxon Characteristics").status);
  EXPECT_EQ((std::vector<std::string>{kMenu}), Windows());
  EXPECT_EQ("E: Procedure RT4_CHAR_TABLE_MAINT_LIST of module LKBASE2 is not available.",
            Message());
}

TEST_F(MenuTest, ButtonsOfTablesNotBuiltSayWhatIsMissing) {
  struct Case {
    const char* button;
    const char* message;
    lk::u32 exit_state;
    const char* command;
  } cases[] = {
      {"FIPS Hydrologic Unit", "Procedure RT36_FIPS_HUC_MAINT_LIST of module LKBASE", 0x4B0016DB,
       "LIST"},
      {"Error Messa&ge", "Procedure RT52_ERROR_MESSAGES_MAINT_LIST of module LKBASE2", 0x51504505,
       "LINK52"},
      {"C&itation", "Procedure RT26_NATL_CITATION_MAINT_LIST of module KESDOR", 0x29F00E76, "LIST"},
      {"Person Role", "Procedure RT55_PERSON_ROLE_MAINT_LIST of module LKBASE2", 0x78780974,
       "LIST"},
      {"Charac&teristic Type", "Procedure RT11_CATEGORY_SUBCAT_MAINT_LIST of module LKBASE",
       0x3DC42CFC, "LIST"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.button);
    const Reply r = Click(kMenu, c.button);
    ASSERT_EQ(200, r.status) << r.body.dump();
    EXPECT_EQ(std::string("E: ") + c.message + " is not available.", Message());
    EXPECT_EQ((std::vector<std::string>{kMenu}), Windows());
    EXPECT_EQ(nullptr, r.body["failure"]);
    EXPECT_EQ(c.exit_state, session().run_context().exit_state);
    EXPECT_STREQ(c.command, session().run_context().command);
  }
}

TEST_F(MenuTest, SecondPageButtonsFlowAndLeaveThePageOpen) {
  ASSERT_EQ(200, Click(kMenu, "Additional Tables >>>").status);
  ASSERT_EQ(200, Click(kPage2, "Valid Station T&ype").status);
  EXPECT_EQ("E: Procedure RT30_VALID_STN_TYPE_MAINT_LIST of module LKBASE is not available.",
            Message());
  EXPECT_EQ((std::vector<std::string>{kMenu, kPage2}), Windows());
  EXPECT_EQ(0x4B00148Bu, session().run_context().exit_state);
}

TEST_F(MenuTest, CloseEndsTheRun) {
  ASSERT_EQ(200, Click(kMenu, "C&lose").status);
  EXPECT_TRUE(session().ended());
  EXPECT_EQ(lk::EXIT_RETURN, session().run_context().exit_state);
  EXPECT_TRUE(Screen()["windows"].empty());
  EXPECT_EQ(true, Screen()["ended"]);
  EXPECT_EQ(409, Click(kMenu, "C&lose").status);
}

TEST_F(MenuTest, HelpRunsNoUnit) {
  ASSERT_EQ(200, Click(kMenu, "FIPS Hydrologic Unit").status);
  const std::string before = session().run_context().unit_name;
  const Reply r = Click(kMenu, "&Help");
  ASSERT_EQ(200, r.status);
  EXPECT_EQ("/help/RT1_REFERENCE_TABLE_MAINT_MENU", r.body["help"]);
  EXPECT_EQ(before, session().run_context().unit_name);
  EXPECT_EQ(nullptr, r.body["message"]);
}

TEST_F(MenuTest, RefusedEventsChangeNothing) {
  const nlohmann::json before = Screen();
  struct Case {
    nlohmann::json event;
    int status;
  } cases[] = {
      {{{"window", kMenu}, {"control", "No Such Button"}, {"event", "Click"}}, 400},
      {{{"window", kMenu}, {"control", 9999}, {"event", "Click"}}, 400},
      {{{"window", kMenu}, {"control", 838}, {"event", "Click"}}, 400},  // a static
      {{{"window", "RT99_NOWHERE"}, {"control", 881}, {"event", "Click"}}, 400},
      {{{"window", kMenu}, {"control", 881}, {"event", "Explode"}}, 400},
      {{{"window", kMenu}, {"control", 881}}, 400},
      {{{"window", kMenu}, {"control", 881}, {"event", "Click"}, {"values", {{"881", "x"}}}}, 400},
      {{{"window", kMenu}, {"control", 881}, {"event", "Click"}, {"row", 1}}, 400},
      {{{"window", 5}, {"control", 881}, {"event", "Click"}}, 400},
      {nlohmann::json::array(), 400},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.event.dump());
    const Reply r = session().Event(c.event);
    EXPECT_EQ(c.status, r.status);
    EXPECT_TRUE(r.body.contains("error"));
    EXPECT_EQ(before, Screen());
  }
  EXPECT_FALSE(session().ended());
}

TEST_F(MenuTest, ControlIsMatchedByIdDigitsLabelOrName) {
  EXPECT_EQ(200, Click(kMenu, 880).status);
  EXPECT_EQ(200, Click(kPage2, "825").status);
  EXPECT_EQ(200, Click(kMenu, "Button22").status);  // design name
  EXPECT_EQ((std::vector<std::string>{kMenu, kPage2}), Windows());
}

// The body, entered with a COMMAND from outside as a link would.
class MenuCommandTest : public ::testing::Test, public testing::SessionDriver {
 protected:
  Session* StartWith(const std::string& command) {
    StartRequest start;
    start.command = command;
    Start("JSMITH", "ORG1", start);
    return &session();
  }
};

TEST_F(MenuCommandTest, WholeTextCompareMakesTheChainOrderHarmless) {
  struct Case {
    const char* command;
    lk::u32 exit_state;
    const char* command_after;
  } cases[] = {
      {"LINK10", 0x3DC42CFC, "LIST"},
      {"LINK55", 0x78780974, "LIST"},  {"LINK36", 0x4B0016DB, "LIST"},
      {"LINK22", 0x6AC40774, "LINK22"}, {"LINK12", 0x4B6C057D, "LINK12"},
      {"LINK30", 0x4B00148B, "LIST"},
      {"LINK100", lk::EXIT_NONE, "LINK100"}, {"", lk::EXIT_NONE, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.command);
    Session* s = StartWith(c.command);
    EXPECT_EQ(c.exit_state, s->run_context().exit_state);
    EXPECT_STREQ(c.command_after, s->run_context().command);
    EXPECT_EQ(1u, s->Screen()["windows"].size());
  }
  // "LINK1", a prefix of "LINK10", is a whole text of its own: the
  // permitted value list opens over the menu.
  Session* s = StartWith("LINK1");
  EXPECT_EQ("RT2_PERMITTED_VALUE_MAINT_LIST", s->Screen()["windows"].back()["name"]);
}

TEST_F(MenuCommandTest, KeywordsNoButtonSendsAreNotImplemented) {
  for (const char* command : {"LINK37", "LINK38"}) {
    SCOPED_TRACE(command);
    Session* s = StartWith(command);
    EXPECT_EQ(lk::EXIT_NOT_IMPLEMENTED, s->run_context().exit_state);
    const nlohmann::json m = s->Screen()["message"];
    ASSERT_FALSE(m.is_null());
    EXPECT_EQ("E", m["kind"]);
    EXPECT_EQ("This selection has not been implemented.", m["text"]);
  }
}

}  // namespace
}  // namespace watrix
