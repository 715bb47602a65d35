// The views of a list without paging: a stack-style list (patterns/
// stack_list.h) that one read fills, with no stack, no page and no paging
// flags. Derived from the module's row forms (patterns/row_forms.h) and its
// entity name:
//
//   PlainListViews<ListForms, "ENTITY">  the row in hand
//       EXPORT_SELECTED.ENTITY, EXPORT.SYSTEM_VARIABLE, the selected row's
//       EXPORT_ROW_SELECTED, the group GRP_EXPORT (its marks
//       GRP_EXPORT_SEL.RUNTIME_SUPPLIED, its rows GRP_EXPORT.ENTITY; the
//       import view holds the marks only).
//
// The flow to the data entry window is the stack list's
// (StackToEntryFlow in patterns/stack_views.h): the row in hand has the
// same name.
//
// Contract: all members are constant expressions with static storage.
#ifndef WATRIX_PATTERNS_PLAIN_LIST_VIEWS_H_
#define WATRIX_PATTERNS_PLAIN_LIST_VIEWS_H_

#include <cstddef>
#include <cstdint>

#include "frame/tables.h"
#include "frame/views.h"
#include "patterns/fixed_text.h"
#include "patterns/row_forms.h"
#include "patterns/row_views.h"
#include "patterns/stack_list.h"
#include "patterns/stack_views.h"

namespace lk::patterns {

template <class ListForms>
struct PlainListImport {
  char reserved[4];
  typename ListForms::Row EXPORT_SELECTED;
  SystemVariableView SYSTEM_VARIABLE;
  SubscriptView EXPORT_ROW_SELECTED;
  MarksImportGroup<ListForms::kRows> GRP_EXPORT;
};

template <class ListForms>
struct PlainListExport {
  std::uint32_t reserved;
  typename ListForms::Shown EXPORT_SELECTED;
  SystemVariableShown EXPORT;  // EXPORT.SYSTEM_VARIABLE
  SubscriptShown EXPORT_ROW_SELECTED;
  typename ListForms::Group GRP_EXPORT;
};

template <class ListForms, FixedText Entity>
struct PlainListViews {
  using Import = PlainListImport<ListForms>;
  using Export = PlainListExport<ListForms>;

 private:
  using I = Import;
  using E = Export;
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

 public:
  static constexpr ViewRow kViewRows[] = {
      {Joined<"EXPORT_SELECTED.", Entity, ".">::value, 0, 0, kSelected.data()},
      {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kSystem.data()},
      {"EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.", 0, 0, kRowSelected.data()},
      {"GRP_EXPORT_SEL.RUNTIME_SUPPLIED.", ListForms::kRows, 0, kMarks.data()},
      {Joined<"GRP_EXPORT.", Entity, ".">::value, ListForms::kRows, 0, kRows.data()},
      {nullptr, 0, 0, nullptr},
  };
  static constexpr GroupRow kGroupRows[] = {
      {"GRP_EXPORT", (5u << 16) | 3u, 1, row_views::At(offsetof(E, GRP_EXPORT.count)),
       row_views::At(offsetof(I, GRP_EXPORT.count)), 0},
      {"*", 5u << 16, 0, 0, 0, 0},
  };
  static constexpr ViewShape kShape = {sizeof(Export), stack_views::kNoTimestamps,
                                       stack_views::kNoTimestamps};

  // The views the list's body copies, and the list's description for the
  // stack list's steps over this dictionary filed as `views`.
  static constexpr const char* kBodyViews[] = {
      "EXPORT.SYSTEM_VARIABLE.", Joined<"EXPORT_SELECTED.", Entity, ".">::value,
      "EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.", nullptr};
  static constexpr StackList Describe(const ViewNameRow* views, u32 link_exit,
                                      const char* delete_dialog) {
    return {views,
            kBodyViews,
            "EXPORT.SYSTEM_VARIABLE.",
            nullptr,
            Joined<"GRP_EXPORT.", Entity, ".">::value,
            Joined<"EXPORT_SELECTED.", Entity, ".">::value,
            ListForms::kRows,
            link_exit,
            delete_dialog,
            false};
  }
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_PLAIN_LIST_VIEWS_H_
