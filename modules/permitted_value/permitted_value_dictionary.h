// The view dictionaries of the permitted value procedures (their ViewRows,
// GroupRows and the shapes the units initialise by), made from the views of
// permitted_value_views.h and the row forms' attribute tables, so that no
// offset or width is written twice.
//
// Contract: constant expressions with static storage; the order of each
// ViewRow array is the order of the procedure's export view.
#ifndef WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_DICTIONARY_H_
#define WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_DICTIONARY_H_

#include <array>
#include <cstddef>

#include "frame/tables.h"
#include "frame/unit.h"
#include "modules/permitted_value/permitted_value_views.h"
#include "patterns/first_page_list.h"
#include "patterns/row_views.h"
#include "patterns/stack_views.h"

namespace lk::permitted_value {

// The two-character FLAG of a pending action or a failed run of writes.
inline constexpr AttributeType kActionFlagType = {3, "S ", 2, "", nullptr, 0, {0, 0}};
// A check box's FLAG and a row's applied FLAG: "Y" or "N".
using patterns::kFlagType;

namespace dictionary {

using patterns::ColumnRows;
using patterns::RowRows;
using patterns::row_views::At;
using patterns::stack_views::One;

constexpr std::array<AttributeRow, 4> ModeRows(u32 import_at, u32 export_at) {
  return {{{"COMMAND", 81, import_at + At(offsetof(ModeView, COMMAND)),
            export_at + At(offsetof(ModeShown, COMMAND.value)), &patterns::kCommandType},
           {"SUBSCRIPT", 8, import_at + At(offsetof(ModeView, SUBSCRIPT)),
            export_at + At(offsetof(ModeShown, SUBSCRIPT.value)), &patterns::kSubscriptType},
           {"FLAG", 3, import_at + At(offsetof(ModeView, FLAG)),
            export_at + At(offsetof(ModeShown, FLAG.value)), &kActionFlagType},
           {nullptr, 0, 0, 0, nullptr}}};
}
constexpr std::array<AttributeRow, 3> SystemRows(u32 import_at, u32 export_at) {
  return patterns::SystemVariableRows(import_at, export_at);
}
constexpr std::array<AttributeRow, 2> Flag(u32 import_at, u32 export_at) {
  return One("FLAG", 2, import_at, export_at, &kFlagType);
}
// GP_EXPORT_TABLES at the two offsets: its rows, their marks, the applied
// FLAG of GP_EXPORT_TABLES_SELECTED.
struct Tables {
  std::array<AttributeRow, 8> rows;
  std::array<AttributeRow, 2> marks;
  std::array<AttributeRow, 2> applied;
};
constexpr Tables TablesRows(u32 import_at, u32 export_at) {
  return {ColumnRows(PvTablesForms::kAttributes, import_at + At(offsetof(TablesImport, rows)),
                     export_at + At(offsetof(TablesExport, rows))),
          patterns::SelectCharRows<PvTablesForms>(import_at + At(offsetof(TablesImport, rows)),
                                                  export_at + At(offsetof(TablesExport, rows))),
          One("FLAG", 2, import_at + At(offsetof(TablesImport, FLAG)),
              export_at + At(offsetof(TablesExport, FLAG.value)), &kFlagType)};
}

}  // namespace dictionary

// ---- RT2_PERMITTED_VALUE_MAINT_LIST ----

struct ListDictionary {
  using Import = ListImport;
  using Export = ListExport;

 private:
  using I = ListImport;
  using E = ListExport;
  static constexpr auto kFind = dictionary::RowRows(
      PvForms::kAttributes, dictionary::At(offsetof(I, EXPORT_FIND)),
      dictionary::At(offsetof(E, EXPORT_FIND)));
  static constexpr auto kLast = dictionary::RowRows(
      PvKeyForms::kAttributes, dictionary::At(offsetof(I, EXPORT_LAST)),
      dictionary::At(offsetof(E, EXPORT_LAST)));
  static constexpr auto kFirst = dictionary::RowRows(
      PvKeyForms::kAttributes, dictionary::At(offsetof(I, EXPORT_FIRST)),
      dictionary::At(offsetof(E, EXPORT_FIRST)));
  static constexpr auto kNext = dictionary::Flag(dictionary::At(offsetof(I, EXPORT_NEXT.FLAG)),
                                                 dictionary::At(offsetof(E, EXPORT_NEXT.FLAG.value)));
  static constexpr auto kPrev = dictionary::Flag(dictionary::At(offsetof(I, EXPORT_PREV.FLAG)),
                                                 dictionary::At(offsetof(E, EXPORT_PREV.FLAG.value)));
  static constexpr auto kCurrent = dictionary::RowRows(
      PvForms::kAttributes, dictionary::At(offsetof(I, EXPORT_CURRENT)),
      dictionary::At(offsetof(E, EXPORT_CURRENT)));
  static constexpr auto kSystem = dictionary::SystemRows(
      dictionary::At(offsetof(I, SYSTEM_VARIABLE)), dictionary::At(offsetof(E, SYSTEM_VARIABLE)));
  static constexpr auto kMode = dictionary::ModeRows(
      dictionary::At(offsetof(I, RUNTIME_SUPPLIED)), dictionary::At(offsetof(E, RUNTIME_SUPPLIED)));
  static constexpr auto kInitialAdd =
      dictionary::Flag(dictionary::At(offsetof(I, EXPORT_INITIAL_ADD.FLAG)),
                       dictionary::At(offsetof(E, EXPORT_INITIAL_ADD.FLAG.value)));
  static constexpr auto kTables = dictionary::TablesRows(
      dictionary::At(offsetof(I, GP_EXPORT_TABLES)), dictionary::At(offsetof(E, GP_EXPORT_TABLES)));
  static constexpr auto kMarks = patterns::SelectCharRows<PvForms>(
      dictionary::At(offsetof(I, GRP_EXPORT)), dictionary::At(offsetof(E, GRP_EXPORT)));
  static constexpr auto kRows = dictionary::ColumnRows(
      PvForms::kAttributes, dictionary::At(offsetof(I, GRP_EXPORT)),
      dictionary::At(offsetof(E, GRP_EXPORT)));
  static constexpr auto kExportStamps = patterns::RowTimestamps(
      PvForms::kAttributes,
      {dictionary::At(offsetof(E, EXPORT_FIND)), dictionary::At(offsetof(E, EXPORT_CURRENT))},
      /*bare=*/false, dictionary::At(offsetof(E, GRP_EXPORT)), kListRows);
  static constexpr auto kImportStamps = patterns::RowTimestamps(
      PvForms::kAttributes,
      {dictionary::At(offsetof(I, EXPORT_FIND)), dictionary::At(offsetof(I, EXPORT_CURRENT))},
      /*bare=*/true, dictionary::At(offsetof(I, GRP_EXPORT)), kListRows);

 public:
  static constexpr ViewRow kViewRows[] = {
      {"EXPORT_FIND.PERMITTED_VALUE.", 0, 0, kFind.data()},
      {"EXPORT_LAST.PERMITTED_VALUE.", 0, 0, kLast.data()},
      {"EXPORT_FIRST.PERMITTED_VALUE.", 0, 0, kFirst.data()},
      {"EXPORT_NEXT.RUNTIME_SUPPLIED.", 0, 0, kNext.data()},
      {"EXPORT_PREV.RUNTIME_SUPPLIED.", 0, 0, kPrev.data()},
      {"EXPORT_CURRENT.PERMITTED_VALUE.", 0, 0, kCurrent.data()},
      {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kSystem.data()},
      {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kMode.data()},
      {"EXPORT_INITIAL_ADD.RUNTIME_SUPPLIED.", 0, 0, kInitialAdd.data()},
      {"GP_EXPORT_TABLES.PERMITTED_VALUE.", kTableRows, 0, kTables.rows.data()},
      {"GP_EXPORT_TABLES.RUNTIME_SUPPLIED.", kTableRows, 0, kTables.marks.data()},
      {"GP_EXPORT_TABLES_SELECTED.RUNTIME_SUPPLIED.", kTableRows, 0, kTables.applied.data()},
      {"GRP_EXPORT.RUNTIME_SUPPLIED.", kListRows, 0, kMarks.data()},
      {"GRP_EXPORT.PERMITTED_VALUE.", kListRows, 0, kRows.data()},
      {nullptr, 0, 0, nullptr},
  };
  static constexpr GroupRow kGroupRows[] = {
      {"GP_EXPORT_TABLES", (12u << 16) | 9u, 1,
       dictionary::At(offsetof(E, GP_EXPORT_TABLES.rows.count)),
       dictionary::At(offsetof(I, GP_EXPORT_TABLES.rows.count)), 0},
      {"GRP_EXPORT", (14u << 16) | 12u, 1, dictionary::At(offsetof(E, GRP_EXPORT.count)),
       dictionary::At(offsetof(I, GRP_EXPORT.count)), 0},
      {"*", 14u << 16, 0, 0, 0, 0},
  };
  static constexpr ViewShape kShape = {sizeof(Export), kExportStamps.data(),
                                       kImportStamps.data()};
};

// ---- RT3_PERMITTED_VALUE_DATA_ENTRY ----

struct EntryDictionary {
  using Import = EntryImport;
  using Export = EntryExport;

 private:
  using I = EntryImport;
  using E = EntryExport;
  static constexpr auto kErrorSource = std::array<AttributeRow, 3>{{
      {"FLAG", 3, dictionary::At(offsetof(I, EXPORT_ERROR_SOURCE.FLAG)),
       dictionary::At(offsetof(E, EXPORT_ERROR_SOURCE.FLAG.value)), &kActionFlagType},
      {"SUBSCRIPT", 8, dictionary::At(offsetof(I, EXPORT_ERROR_SOURCE.SUBSCRIPT)),
       dictionary::At(offsetof(E, EXPORT_ERROR_SOURCE.SUBSCRIPT.value)),
       &patterns::kSubscriptType},
      {nullptr, 0, 0, 0, nullptr}}};
  static constexpr auto kProcess = dictionary::RowRows(
      PvKeyForms::kAttributes, dictionary::At(offsetof(I, EXPORT_PROCESS)),
      dictionary::At(offsetof(E, EXPORT_PROCESS)));
  static constexpr auto kMeasObs =
      dictionary::Flag(dictionary::At(offsetof(I, EXPORT_MEAS_OBS.FLAG)),
                       dictionary::At(offsetof(E, EXPORT_MEAS_OBS.FLAG.value)));
  static constexpr auto kSample =
      dictionary::Flag(dictionary::At(offsetof(I, EXPORT_SAMPLE.FLAG)),
                       dictionary::At(offsetof(E, EXPORT_SAMPLE.FLAG.value)));
  static constexpr auto kSelected = dictionary::RowRows(
      PvNamesForms::kAttributes, dictionary::At(offsetof(I, EXPORT_SELECTED)),
      dictionary::At(offsetof(E, EXPORT_SELECTED)));
  static constexpr auto kMode = dictionary::ModeRows(
      dictionary::At(offsetof(I, RUNTIME_SUPPLIED)), dictionary::At(offsetof(E, RUNTIME_SUPPLIED)));
  static constexpr auto kHidden = dictionary::RowRows(
      PvHiddenForms::kAttributes, dictionary::At(offsetof(I, EXPORT_HIDDEN)),
      dictionary::At(offsetof(E, EXPORT_HIDDEN)));
  static constexpr auto kSystem = dictionary::SystemRows(
      dictionary::At(offsetof(I, SYSTEM_VARIABLE)), dictionary::At(offsetof(E, SYSTEM_VARIABLE)));
  static constexpr auto kRow = dictionary::RowRows(
      PvForms::kAttributes, dictionary::At(offsetof(I, ROW)), dictionary::At(offsetof(E, ROW)));
  static constexpr auto kInitialAdd =
      dictionary::Flag(dictionary::At(offsetof(I, EXPORT_INITIAL_ADD.FLAG)),
                       dictionary::At(offsetof(E, EXPORT_INITIAL_ADD.FLAG.value)));
  static constexpr auto kNameMarks = dictionary::One(
      "SELECT_CHAR", 2, dictionary::At(offsetof(I, GRP_EXPORT.SELECT_CHAR)),
      dictionary::At(offsetof(E, GRP_EXPORT.SELECT_CHAR.value)), &patterns::kSelectCharType);
  static constexpr auto kNames = dictionary::ColumnRows(
      PvNamesForms::kAttributes, dictionary::At(offsetof(I, GRP_EXPORT.rows)),
      dictionary::At(offsetof(E, GRP_EXPORT.rows)));
  static constexpr auto kTables = dictionary::TablesRows(
      dictionary::At(offsetof(I, GP_EXPORT_TABLES)), dictionary::At(offsetof(E, GP_EXPORT_TABLES)));
  static constexpr auto kExportStamps = patterns::RowTimestamps(
      PvForms::kAttributes, {dictionary::At(offsetof(E, ROW))}, /*bare=*/false, 0, 0);
  static constexpr auto kImportStamps = patterns::RowTimestamps(
      PvForms::kAttributes, {dictionary::At(offsetof(I, ROW))}, /*bare=*/true, 0, 0);

 public:
  static constexpr ViewRow kViewRows[] = {
      {"EXPORT_ERROR_SOURCE.RUNTIME_SUPPLIED.", 0, 0, kErrorSource.data()},
      {"EXPORT_PROCESS.PERMITTED_VALUE.", 0, 0, kProcess.data()},
      {"EXPORT_MEAS_OBS.RUNTIME_SUPPLIED.", 0, 0, kMeasObs.data()},
      {"EXPORT_SAMPLE.RUNTIME_SUPPLIED.", 0, 0, kSample.data()},
      {"EXPORT_SELECTED.PERMITTED_VALUE.", 0, 0, kSelected.data()},
      {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kMode.data()},
      {"EXPORT_HIDDEN.PERMITTED_VALUE.", 0, 0, kHidden.data()},
      {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kSystem.data()},
      {"EXPORT.PERMITTED_VALUE.", 0, 0, kRow.data()},
      {"EXPORT_INITIAL_ADD.RUNTIME_SUPPLIED.", 0, 0, kInitialAdd.data()},
      {"GRP_EXPORT.RUNTIME_SUPPLIED.", kNameRows, 0, kNameMarks.data()},
      {"GRP_EXPORT.PERMITTED_VALUE.", kNameRows, 0, kNames.data()},
      {"GP_EXPORT_TABLES.PERMITTED_VALUE.", kTableRows, 0, kTables.rows.data()},
      {"GP_EXPORT_TABLES.RUNTIME_SUPPLIED.", kTableRows, 0, kTables.marks.data()},
      {"GP_EXPORT_TABLES_SELECTED.RUNTIME_SUPPLIED.", kTableRows, 0, kTables.applied.data()},
      {nullptr, 0, 0, nullptr},
  };
  static constexpr GroupRow kGroupRows[] = {
      {"GRP_EXPORT", (12u << 16) | 10u, 1, dictionary::At(offsetof(E, GRP_EXPORT.rows.count)),
       dictionary::At(offsetof(I, GRP_EXPORT.rows.count)), 0},
      {"GP_EXPORT_TABLES", (15u << 16) | 12u, 1,
       dictionary::At(offsetof(E, GP_EXPORT_TABLES.rows.count)),
       dictionary::At(offsetof(I, GP_EXPORT_TABLES.rows.count)), 0},
      {"*", 15u << 16, 0, 0, 0, 0},
  };
  static constexpr ViewShape kShape = {sizeof(Export), kExportStamps.data(),
                                       kImportStamps.data()};
};

// ---- RT54_MULTIPLE_TABLE_SELECTION ----

struct SelectionDictionary {
  using Import = SelectionImport;
  using Export = SelectionExport;

 private:
  using I = SelectionImport;
  using E = SelectionExport;
  static constexpr auto kSelected = dictionary::RowRows(
      PvSelectedForms::kAttributes, dictionary::At(offsetof(I, EXPORT_SELECTED)),
      dictionary::At(offsetof(E, EXPORT_SELECTED)));
  static constexpr auto kTables = dictionary::TablesRows(
      dictionary::At(offsetof(I, GP_EXPORT_TABLES)), dictionary::At(offsetof(E, GP_EXPORT_TABLES)));

 public:
  static constexpr ViewRow kViewRows[] = {
      {"EXPORT_SELECTED.PERMITTED_VALUE.", 0, 0, kSelected.data()},
      {"GP_EXPORT_TABLES.PERMITTED_VALUE.", kTableRows, 0, kTables.rows.data()},
      {"GP_EXPORT_TABLES.RUNTIME_SUPPLIED.", kTableRows, 0, kTables.marks.data()},
      {"GP_EXPORT_TABLES_SELECTED.RUNTIME_SUPPLIED.", kTableRows, 0, kTables.applied.data()},
      {nullptr, 0, 0, nullptr},
  };
  static constexpr GroupRow kGroupRows[] = {
      {"GP_EXPORT_TABLES", (4u << 16) | 1u, 1,
       dictionary::At(offsetof(E, GP_EXPORT_TABLES.rows.count)),
       dictionary::At(offsetof(I, GP_EXPORT_TABLES.rows.count)), 0},
      {"*", 4u << 16, 0, 0, 0, 0},
  };
  static constexpr ViewShape kShape = {sizeof(Export), patterns::stack_views::kNoTimestamps,
                                       patterns::stack_views::kNoTimestamps};
};

}  // namespace lk::permitted_value

#endif  // WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_DICTIONARY_H_
