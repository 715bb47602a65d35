// The views of a stack-style list and of its Open-style data entry window,
// their dictionaries and the flow between them, derived from the module's
// row forms (patterns/row_forms.h) and its entity name:
//
//   StackListViews<ListForms, StackForms, "ENTITY">  the list: the enabled
//       flags, the page (EXPORT_STACK), the AT_TOP and AT_BOTTOM flags, the
//       row in hand EXPORT_SELECTED.ENTITY, EXPORT.SYSTEM_VARIABLE, the
//       selected row's EXPORT_ROW_SELECTED, the group GRP_EXPORT (its marks
//       GRP_EXPORT_SEL.RUNTIME_SUPPLIED, its rows GRP_EXPORT.ENTITY; the
//       import view holds the marks only) and the stack group
//       GRP_EXPORT_STACK.WATRIX_WORK_SET of the page keys (StackForms, made
//       by LK_GROUP_FORMS).
//   OpenEntryViews<Forms, HiddenForms, "ENTITY">  the window:
//       EXPORT_HIDDEN.ENTITY (the editable attributes as first shown),
//       EXPORT.SYSTEM_VARIABLE, EXPORT.ENTITY, EXPORT.RUNTIME_SUPPLIED
//       (the kept COMMAND).
//   StackToEntryFlow<ListForms, "ENTITY">  send: the row in hand onto the
//       window's row, and SYSTEM_VARIABLE; receive: the window's row back
//       onto the row in hand, attribute by attribute of the list's row.
//
// Contract: all members are constant expressions with static storage.
#ifndef WATRIX_PATTERNS_STACK_VIEWS_H_
#define WATRIX_PATTERNS_STACK_VIEWS_H_

#include <array>
#include <cstddef>
#include <cstdint>

#include "frame/tables.h"
#include "frame/transport/plan.h"
#include "frame/unit.h"
#include "frame/views.h"
#include "patterns/first_page_list.h"
#include "patterns/fixed_text.h"
#include "patterns/row_forms.h"
#include "patterns/row_views.h"
#include "patterns/stack_list.h"

namespace lk::patterns {

// The attribute types of a stack list's own views.
inline constexpr AttributeType kStackFlagType = {2, "S ", 1, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kStackSubscriptType = {5, "B ", 4, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kStackSystemType = {9, "S ", 8, "", nullptr, 0, {0, 0}};

struct SubscriptView {
  char SUBSCRIPT[8];  // a double
};
struct SubscriptShown {
  Shown<8> SUBSCRIPT;
};
template <int Rows>
struct MarksImportGroup {
  std::int32_t count;
  Column<Rows, 2> SELECT_CHAR;
};

template <class ListForms, class StackForms>
struct StackListImport {
  char reserved[4];
  FlagView EXPORT_NEXT_ENABLED;
  FlagView EXPORT_PREV_ENABLED;
  SubscriptView EXPORT_STACK;
  typename ListForms::Row EXPORT_SELECTED;
  SystemVariableView SYSTEM_VARIABLE;
  SubscriptView EXPORT_ROW_SELECTED;
  MarksImportGroup<ListForms::kRows> GRP_EXPORT;
  typename StackForms::ImportGroup GRP_EXPORT_STACK;
};

template <class ListForms, class StackForms>
struct StackListExport {
  std::uint32_t reserved;
  FlagShown EXPORT_NEXT_ENABLED;
  FlagShown EXPORT_PREV_ENABLED;
  SubscriptShown EXPORT_STACK;
  FlagShown EXPORT_ALREADY_AT_TOP;
  FlagShown EXPORT_ALREADY_AT_BOTTOM;
  typename ListForms::Shown EXPORT_SELECTED;
  SystemVariableShown EXPORT;  // EXPORT.SYSTEM_VARIABLE
  SubscriptShown EXPORT_ROW_SELECTED;
  typename ListForms::Group GRP_EXPORT;
  typename StackForms::Group GRP_EXPORT_STACK;
};

template <class Forms, class HiddenForms>
struct OpenEntryImport {
  char reserved[4];
  typename HiddenForms::Row EXPORT_HIDDEN;
  SystemVariableView SYSTEM_VARIABLE;
  typename Forms::Row ROW;
  CommandView RUNTIME_SUPPLIED;
};

template <class Forms, class HiddenForms>
struct OpenEntryExport {
  std::uint32_t reserved;
  typename HiddenForms::Shown EXPORT_HIDDEN;
  SystemVariableShown SYSTEM_VARIABLE;  // EXPORT.SYSTEM_VARIABLE
  typename Forms::Shown ROW;            // EXPORT.ENTITY
  struct {
    Shown<81> COMMAND;
  } RUNTIME_SUPPLIED;  // EXPORT.RUNTIME_SUPPLIED
};

namespace stack_views {
using row_views::At;
constexpr std::array<AttributeRow, 2> One(const char* name, u32 storage, u32 import_at,
                                          u32 export_at, const AttributeType* type) {
  return {{{name, storage, import_at, export_at, type}, {nullptr, 0, 0, 0, nullptr}}};
}
constexpr std::array<AttributeRow, 3> SystemRows(u32 import_at, u32 export_at) {
  return {{{"USER_ID_CODE", 9, import_at + At(offsetof(SystemVariableView, USER_ID_CODE)),
            export_at + At(offsetof(SystemVariableShown, USER_ID_CODE.value)), &kStackSystemType},
           {"CURRENT_ORG_ID", 9, import_at + At(offsetof(SystemVariableView, CURRENT_ORG_ID)),
            export_at + At(offsetof(SystemVariableShown, CURRENT_ORG_ID.value)),
            &kStackSystemType},
           {nullptr, 0, 0, 0, nullptr}}};
}
// The group's row columns in the export view only.
template <std::size_t N>
constexpr std::array<AttributeRow, N + 1> ExportColumnRows(const RowAttribute (&attributes)[N],
                                                           u32 export_group_at) {
  std::array<AttributeRow, N + 1> rows{};
  for (std::size_t i = 0; i < N; ++i)
    rows[i] = {attributes[i].name, attributes[i].storage, 0,
               export_group_at + attributes[i].column, attributes[i].type};
  rows[N] = {nullptr, 0, 0, 0, nullptr};
  return rows;
}
inline constexpr TimestampSlot kNoTimestamps[] = {{0, 0}};
}  // namespace stack_views

template <class ListForms, class StackForms, FixedText Entity>
struct StackListViews {
  using Import = StackListImport<ListForms, StackForms>;
  using Export = StackListExport<ListForms, StackForms>;

 private:
  using I = Import;
  using E = Export;
  static constexpr auto kNext =
      stack_views::One("FLAG", 2, row_views::At(offsetof(I, EXPORT_NEXT_ENABLED.FLAG)),
                       row_views::At(offsetof(E, EXPORT_NEXT_ENABLED.FLAG.value)), &kStackFlagType);
  static constexpr auto kPrev =
      stack_views::One("FLAG", 2, row_views::At(offsetof(I, EXPORT_PREV_ENABLED.FLAG)),
                       row_views::At(offsetof(E, EXPORT_PREV_ENABLED.FLAG.value)), &kStackFlagType);
  static constexpr auto kPage =
      stack_views::One("SUBSCRIPT", 8, row_views::At(offsetof(I, EXPORT_STACK.SUBSCRIPT)),
                       row_views::At(offsetof(E, EXPORT_STACK.SUBSCRIPT.value)),
                       &kStackSubscriptType);
  static constexpr auto kAtTop = stack_views::One(
      "FLAG", 2, 0, row_views::At(offsetof(E, EXPORT_ALREADY_AT_TOP.FLAG.value)), &kStackFlagType);
  static constexpr auto kAtBottom =
      stack_views::One("FLAG", 2, 0,
                       row_views::At(offsetof(E, EXPORT_ALREADY_AT_BOTTOM.FLAG.value)),
                       &kStackFlagType);
  static constexpr auto kSelected =
      RowRows(ListForms::kAttributes, row_views::At(offsetof(I, EXPORT_SELECTED)),
              row_views::At(offsetof(E, EXPORT_SELECTED)));
  static constexpr auto kSystem = stack_views::SystemRows(
      row_views::At(offsetof(I, SYSTEM_VARIABLE)), row_views::At(offsetof(E, EXPORT)));
  static constexpr auto kRowSelected =
      stack_views::One("SUBSCRIPT", 8, row_views::At(offsetof(I, EXPORT_ROW_SELECTED.SUBSCRIPT)),
                       row_views::At(offsetof(E, EXPORT_ROW_SELECTED.SUBSCRIPT.value)),
                       &kStackSubscriptType);
  static constexpr auto kMarks =
      stack_views::One("SELECT_CHAR", 2, row_views::At(offsetof(I, GRP_EXPORT.SELECT_CHAR)),
                       row_views::At(offsetof(E, GRP_EXPORT.SELECT_CHAR.value)), &kStackFlagType);
  static constexpr auto kRows = stack_views::ExportColumnRows(
      ListForms::kAttributes, row_views::At(offsetof(E, GRP_EXPORT)));
  static constexpr auto kStack =
      ColumnRows(StackForms::kAttributes, row_views::At(offsetof(I, GRP_EXPORT_STACK)),
                 row_views::At(offsetof(E, GRP_EXPORT_STACK)));

 public:
  static constexpr ViewRow kViewRows[] = {
      {"EXPORT_NEXT_ENABLED.RUNTIME_SUPPLIED.", 0, 0, kNext.data()},
      {"EXPORT_PREV_ENABLED.RUNTIME_SUPPLIED.", 0, 0, kPrev.data()},
      {"EXPORT_STACK.RUNTIME_SUPPLIED.", 0, 0, kPage.data()},
      {"EXPORT_ALREADY_AT_TOP.RUNTIME_SUPPLIED.", 0, 0, kAtTop.data()},
      {"EXPORT_ALREADY_AT_BOTTOM.RUNTIME_SUPPLIED.", 0, 0, kAtBottom.data()},
      {Joined<"EXPORT_SELECTED.", Entity, ".">::value, 0, 0, kSelected.data()},
      {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kSystem.data()},
      {"EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.", 0, 0, kRowSelected.data()},
      {"GRP_EXPORT_SEL.RUNTIME_SUPPLIED.", ListForms::kRows, 0, kMarks.data()},
      {Joined<"GRP_EXPORT.", Entity, ".">::value, ListForms::kRows, 0, kRows.data()},
      {"GRP_EXPORT_STACK.WATRIX_WORK_SET.", StackForms::kRows, 0, kStack.data()},
      {nullptr, 0, 0, nullptr},
  };
  static constexpr GroupRow kGroupRows[] = {
      {"GRP_EXPORT", (10u << 16) | 8u, 1, row_views::At(offsetof(E, GRP_EXPORT.count)),
       row_views::At(offsetof(I, GRP_EXPORT.count)), 0},
      {"GRP_EXPORT_STACK", (11u << 16) | 10u, 1,
       row_views::At(offsetof(E, GRP_EXPORT_STACK.count)),
       row_views::At(offsetof(I, GRP_EXPORT_STACK.count)), 0},
      {"*", 11u << 16, 0, 0, 0, 0},
  };
  static constexpr ViewShape kShape = {sizeof(Export), stack_views::kNoTimestamps,
                                       stack_views::kNoTimestamps};

  // The views the list's body copies, and the list's description for the
  // pattern's steps (patterns/stack_list.h) over this dictionary filed as
  // `views`.
  static constexpr const char* kBodyViews[] = {
      "EXPORT.SYSTEM_VARIABLE.", Joined<"EXPORT_SELECTED.", Entity, ".">::value,
      "EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.", "EXPORT_STACK.RUNTIME_SUPPLIED.", nullptr};
  static constexpr StackList Describe(const ViewNameRow* views, u32 link_exit,
                                      const char* delete_dialog, bool open_enables_prev) {
    return {views,
            kBodyViews,
            "EXPORT.SYSTEM_VARIABLE.",
            "GRP_EXPORT_STACK",
            Joined<"GRP_EXPORT.", Entity, ".">::value,
            Joined<"EXPORT_SELECTED.", Entity, ".">::value,
            ListForms::kRows,
            link_exit,
            delete_dialog,
            open_enables_prev};
  }
};

template <class Forms, class HiddenForms, FixedText Entity>
struct OpenEntryViews {
  using Import = OpenEntryImport<Forms, HiddenForms>;
  using Export = OpenEntryExport<Forms, HiddenForms>;

 private:
  using I = Import;
  using E = Export;
  static constexpr auto kHidden =
      RowRows(HiddenForms::kAttributes, row_views::At(offsetof(I, EXPORT_HIDDEN)),
              row_views::At(offsetof(E, EXPORT_HIDDEN)));
  static constexpr auto kSystem = stack_views::SystemRows(
      row_views::At(offsetof(I, SYSTEM_VARIABLE)), row_views::At(offsetof(E, SYSTEM_VARIABLE)));
  static constexpr auto kRow = RowRows(Forms::kAttributes, row_views::At(offsetof(I, ROW)),
                                       row_views::At(offsetof(E, ROW)));
  static constexpr auto kCommand =
      stack_views::One("COMMAND", 81, row_views::At(offsetof(I, RUNTIME_SUPPLIED.COMMAND)),
                       row_views::At(offsetof(E, RUNTIME_SUPPLIED.COMMAND.value)), &kCommandType);
  static constexpr auto kExportStamps = RowTimestamps(
      Forms::kAttributes, {row_views::At(offsetof(E, ROW))}, /*bare=*/false, 0, 0);
  static constexpr auto kImportStamps = RowTimestamps(
      Forms::kAttributes, {row_views::At(offsetof(I, ROW))}, /*bare=*/true, 0, 0);

 public:
  static constexpr ViewRow kViewRows[] = {
      {Joined<"EXPORT_HIDDEN.", Entity, ".">::value, 0, 0, kHidden.data()},
      {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kSystem.data()},
      {Joined<"EXPORT.", Entity, ".">::value, 0, 0, kRow.data()},
      {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kCommand.data()},
      {nullptr, 0, 0, nullptr},
  };
  static constexpr GroupRow kGroupRows[] = {{"*", 4u << 16, 0, 0, 0, 0}};
  static constexpr ViewShape kShape = {sizeof(Export), kExportStamps.data(),
                                       kImportStamps.data()};
};

template <class ListForms, FixedText Entity>
struct StackToEntryFlow : RowToEntryFlow<ListForms, "EXPORT_SELECTED", Entity, 2> {
  static constexpr auto kSend = RowToEntryFlow<ListForms, "EXPORT_SELECTED", Entity, 2>::Send(
      std::array<const char*, 2>{"EXPORT.SYSTEM_VARIABLE.USER_ID_CODE",
                                 "EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID"});
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_STACK_VIEWS_H_
