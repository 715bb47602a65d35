// The reference table menu, RT1_REFERENCE_TABLE_MAINT_MENU, as the head
// tables take it: the first page (dialog 835), the second page RT1A (819) and
// the characteristic type dialog RT1B (828), each control declared once
// (frame/window_decl.h).
#ifndef WATRIX_MODULES_MENU_MENU_H_
#define WATRIX_MODULES_MENU_MENU_H_

#include "frame/head/module_decl.h"
#include "frame/tables.h"
#include "frame/window_decl.h"
#include "modules/menu/menu_units.h"
#include "modules/menu/menu_views.h"

namespace lk::menu {

constexpr u32 kProcedureId = 816;

// The body, its flows and its view dictionary.
void RT1_REFERENCE_TABLE_MAINT_MENU(HandleA, HandleB, RunContext*, void*, void*);
extern const ExitRow kExitRows[];
extern const FlowRow kFlowRows[];
extern u32 flow_state[2];
extern const ViewRow kViewRows[];
extern const GroupRow kGroupRows[];
inline constexpr ViewNameRow kViews = {"RT1_REFERENCE_TABLE_MAINT_MENU", kViewRows, kGroupRows,
                                       kProcedureId};

// ---- The first page: three columns a row, seven rows, then "Additional
// Tables >>>", "C&lose" and "&Help". Buttons that carry a keyword raise no
// event: a press sends the keyword as COMMAND and runs the body. ----

inline constexpr ControlDecl kMainControls[] = {
    KeywordButton(841, "Button1", "LINK3", 1461),
    KeywordButton(842, "Button2", "LINK52", 1413),
    KeywordButton(843, "Button3", "LINK15", 1515),
    KeywordButton(847, "Button4", "LINK5", 1475),
    KeywordButton(848, "Button5", "LINK22", 1485),
    KeywordButton(849, "Button6", "LINK8", 1517),
    KeywordButton(853, "Button7", "LINK14", 1507),
    KeywordButton(854, "Button8", "LINK36", 1462),
    KeywordButton(855, "Button9", "LINK11", 1480),
    KeywordButton(859, "Button10", "LINK2", 1452),
    KeywordButton(860, "Button11", "LINK7", 1489),
    KeywordButton(861, "Button12", "LINK1", 1447),
    KeywordButton(865, "Button13", "LINK6", 1484),
    KeywordButton(866, "Button14", "LINK13", 1430),
    KeywordButton(867, "Button15", "LINK55", 1453),
    KeywordButton(871, "Button16", "LINK10", 1468),
    KeywordButton(872, "Button17", "LINK12", 1487),
    KeywordButton(873, "Button18", "LINK40", 1520),
    KeywordButton(877, "Button19", "LINK4", 1464),
    KeywordButton(878, "Button20", "LINK9", 1523),
    KeywordButton(879, "Button21", "LINK32", 1442),
    Button(880, "Button22", Click(RT1_PB_ADDITIONAL_TABLES_CLICK)),
    KeywordButton(881, "Button23", "EXIT", 1410),
    HelpButton(882, "Button24"),
};
inline constexpr WindowDecl kMainWindow = DeclareWindow(
    kProcedureId, 835, "SD", "RT1_REFERENCE_TABLE_MAINT_MENU", kViews, kMainControls);

// ---- RT1A, the second page ----

inline constexpr ControlDecl kPage2Controls[] = {
    KeywordButton(822, "Button1", "LINK34", 1504),
    KeywordButton(824, "Button2", "LINK30", 1492),
    Button(825, "Button3", Click(RT1A_PBM_CLOSE_CLK)),
    HelpButton(826, "Button4"),
};
inline constexpr WindowDecl kPage2Window = DeclareWindow(
    kProcedureId, 819, "DD", "RT1A_REFERENCE_TABLE_MAINT_MENU", kViews, kPage2Controls);

// ---- RT1B, the characteristic type dialog ----

inline constexpr ControlDecl kCharTypeControls[] = {
    Button(830, "Button1", Click(RT1B_NON_TAXON_CHARS)),
    Button(831, "Button2", Click(RT1B_TAXON_CHARS)),
    Button(832, "Button3", Click(RT1_CHAR_TYPE_CLOSE)),
    HelpButton(833, "Button4"),
};
inline constexpr WindowDecl kCharTypeWindow = DeclareWindow(
    kProcedureId, 828, "DD", "RT1B_CHAR_TYPE_SELECT", kViews, kCharTypeControls);

// The view types of the dictionary above.
struct MenuDictionary {
  using Import = MenuImport;
  using Export = MenuExport;
};

inline constexpr const char kTitle[] = "RT1 Reference Table Maintenance Menu";

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<MenuDictionary, kViews, kMainWindow, kPage2Window, kCharTypeWindow>(
        RT1_REFERENCE_TABLE_MAINT_MENU, kTitle, {flow_state, kExitRows, kFlowRows}),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::menu

#endif  // WATRIX_MODULES_MENU_MENU_H_
