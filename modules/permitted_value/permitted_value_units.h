// The units of the permitted value module: the bodies of its three
// procedures and their event actions. What each does stands with it in
// permitted_value_list.cc (RT2, RT2A, RT2B), permitted_value_entry.cc (RT3
// and its dialogs RT3A to RT3F) and table_selection.cc (RT54).
//
// Contract: the units' entry protocol of frame/unit.h; each unit keeps its
// storage in static memory and is not reentrant; one thread.
#ifndef WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_UNITS_H_
#define WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_UNITS_H_

#include "frame/entry.h"
#include "frame/run_context.h"

namespace lk::permitted_value {

constexpr u32 kListProcedureId = 407;
constexpr u32 kEntryProcedureId = 1326;
constexpr u32 kSelectionProcedureId = 1223;

#define LK_PV_UNIT(name) void name(HandleA, HandleB, RunContext*, void*, void*)

// RT2_PERMITTED_VALUE_MAINT_LIST and its dialogs RT2A and RT2B.
LK_PV_UNIT(RT2_PERMITTED_VALUE_MAINT_LIST);
LK_PV_UNIT(PV1_PERMIT_LB_EXPORT_GROUP_CLICK);
LK_PV_UNIT(PV1_LB_EXPORT_GROUP_DOUBLECLICK);
LK_PV_UNIT(PV1_PERM_VALUE_PB_PREV_CLICK);
LK_PV_UNIT(PV1_PERMITTED_VALU_PB_NEXT_CLICK);
LK_PV_UNIT(PV1_PERMITTED_VA_PB_CHANGE_CLICK);
LK_PV_UNIT(PV1_PERMITTED_VA_PB_DELETE_CLICK);
LK_PV_UNIT(PV1_PERMITTED_VAL_PB_CLOSE_CLICK);
LK_PV_UNIT(DELETE_CONFIRM_DELETE_PB_CLICK);
LK_PV_UNIT(DELETE_CONFIRM_CANCEL_PB_CLICK);
LK_PV_UNIT(RT2_ACTIVITY_CAT_PB_ACCEPT_CLICK);

// RT3_PERMITTED_VALUE_DATA_ENTRY and its dialogs.
LK_PV_UNIT(RT3_PERMITTED_VALUE_DATA_ENTRY);
LK_PV_UNIT(RT3_PBM_ACCEPT_CLK);
LK_PV_UNIT(RT3_PBM_CANCEL_CLK);
LK_PV_UNIT(RT3_PBM_SELECT_BLIVOT_CLK);
LK_PV_UNIT(RT3A_LST_EXPORT_GROUP_CLK);
LK_PV_UNIT(RT3A_LST_EXPORT_GROUP_DCL);
LK_PV_UNIT(RT3A_PV_LIST_PBM_SELECT_CLK);
LK_PV_UNIT(RT3A_PV_LIST_PBM_CANCEL_CLK);
LK_PV_UNIT(RT3B_TABLE_NAM_WARN_PBM_YES_CLK);
LK_PV_UNIT(RT3B_TABLE_NAM_WARN_PBM_NO_CLK);
LK_PV_UNIT(RT3C_FIELD_NAM_WARN_PBM_YES_CLK);
LK_PV_UNIT(RT3C_FIELD_NAM_WARN_PBM_NO_CLK);
LK_PV_UNIT(RT3D_NEW_ACTY_CAT_PBM_ACCEPT_CLK);
LK_PV_UNIT(RT3E_NEW_SEQ_NUM_PBM_ACCEPT_CLK);
LK_PV_UNIT(RT3F_MULTIRW_ERR_PBM_ACCEPT_CLK);

// RT54_MULTIPLE_TABLE_SELECTION.
LK_PV_UNIT(RT54_MULTIPLE_TABLE_SELECTION);
LK_PV_UNIT(RT2A_MULTIPLE_TA_PB_SELECT_CLICK);
LK_PV_UNIT(RT2A_MULTIPLE_TA_PB_CANCEL_CLICK);

#undef LK_PV_UNIT

// The names of the dialogs the units open and close.
inline constexpr char kRt2aName[] = "RT2A_DELETE_PERMITTED_VALUE";
inline constexpr char kRt2bName[] = "RT2B_ACTIVITY_CATEGORY_PERMITTED";
inline constexpr char kRt3aName[] = "RT3A_PV_NAME_SELECTION_LIST";
inline constexpr char kRt3bName[] = "RT3B_TABLE_NAME_WARNING";
inline constexpr char kRt3cName[] = "RT3C_FIELD_NAME_WARNING";
inline constexpr char kRt3dName[] = "RT3D_NEW_ACTIVITY_CATEGORY";
inline constexpr char kRt3eName[] = "RT3E_NEW_SEQUENCE_NUMB_SELECTION";
inline constexpr char kRt3fName[] = "RT3F_MULTIPLE_ROW_PROCESSING_E";

}  // namespace lk::permitted_value

#endif  // WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_UNITS_H_
