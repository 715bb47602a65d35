// The views of a stack-style list that has a Search group: the views of
// patterns/stack_views.h StackListViews, and after them
//
//   EXPORT_SEARCH.ENTITY             the Search group's fields, one per
//       attribute of SearchForms (made by LK_GROUP_FORMS), which the user
//       types and the Search button reads;
//   EXPORT_SORT.RUNTIME_SUPPLIED     SORT_TEXT: the order the list was last
//       read in ("CODE", "NAME", ...), kept for the page moves and the
//       reload after the data entry window;
//   EXPORT.RUNTIME_SUPPLIED          COMMAND: the command with which the list
//       last went to its data entry window ("ADD", "CHANGE"), so that the
//       reload can tell an add from a change.
//
// SearchListViews<ListForms, StackForms, SearchForms, "ENTITY"> gives Import
// and Export, whose first member `list` is the stack list's own view, so
// that every location of StackListViews holds unchanged; kViewRows (those
// of the stack list, then these), kGroupRows, kShape, kBodyViews and
// Describe, as StackListViews has them. The body of such a list copies the
// search fields, the sort and the kept command as well.
//
// Contract: all members are constant expressions with static storage.
#ifndef WATRIX_PATTERNS_SEARCH_VIEWS_H_
#define WATRIX_PATTERNS_SEARCH_VIEWS_H_

#include <array>
#include <cstddef>
#include <iterator>

#include "frame/tables.h"
#include "frame/views.h"
#include "patterns/first_page_list.h"
#include "patterns/fixed_text.h"
#include "patterns/stack_list.h"
#include "patterns/stack_views.h"

namespace lk::patterns {

// The sort text of a search: four characters.
inline constexpr AttributeType kSortTextType = {5, "S ", 4, "", nullptr, 0, {0, 0}};

template <class ListForms, class StackForms, class SearchForms>
struct SearchListImport {
  StackListImport<ListForms, StackForms> list;
  typename SearchForms::Row EXPORT_SEARCH;
  char SORT_TEXT[5];
  CommandView KEPT;
};

template <class ListForms, class StackForms, class SearchForms>
struct SearchListExport {
  StackListExport<ListForms, StackForms> list;
  typename SearchForms::Shown EXPORT_SEARCH;
  Shown<5> SORT_TEXT;
  struct {
    Shown<81> COMMAND;
  } KEPT;
};

template <class ListForms, class StackForms, class SearchForms, FixedText Entity>
struct SearchListViews {
  using Base = StackListViews<ListForms, StackForms, Entity>;
  using Import = SearchListImport<ListForms, StackForms, SearchForms>;
  using Export = SearchListExport<ListForms, StackForms, SearchForms>;
  static_assert(offsetof(Import, list) == 0 && offsetof(Export, list) == 0);

 private:
  using I = Import;
  using E = Export;
  static constexpr auto kSearch =
      RowRows(SearchForms::kAttributes, row_views::At(offsetof(I, EXPORT_SEARCH)),
              row_views::At(offsetof(E, EXPORT_SEARCH)));
  static constexpr auto kSort =
      stack_views::One("SORT_TEXT", 5, row_views::At(offsetof(I, SORT_TEXT)),
                       row_views::At(offsetof(E, SORT_TEXT.value)), &kSortTextType);
  static constexpr auto kKept =
      stack_views::One("COMMAND", 81, row_views::At(offsetof(I, KEPT.COMMAND)),
                       row_views::At(offsetof(E, KEPT.COMMAND.value)), &kCommandType);
  static constexpr std::size_t kBaseRows = std::size(Base::kViewRows) - 1;

 public:
  static constexpr std::array<ViewRow, kBaseRows + 4> kViewRows = [] {
    std::array<ViewRow, kBaseRows + 4> rows{};
    for (std::size_t i = 0; i < kBaseRows; ++i) rows[i] = Base::kViewRows[i];
    rows[kBaseRows] = {Joined<"EXPORT_SEARCH.", Entity, ".">::value, 0, 0, kSearch.data()};
    rows[kBaseRows + 1] = {"EXPORT_SORT.RUNTIME_SUPPLIED.", 0, 0, kSort.data()};
    rows[kBaseRows + 2] = {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kKept.data()};
    rows[kBaseRows + 3] = {nullptr, 0, 0, nullptr};
    return rows;
  }();
  static constexpr const GroupRow (&kGroupRows)[std::size(Base::kGroupRows)] = Base::kGroupRows;
  static constexpr ViewShape kShape = {sizeof(Export), stack_views::kNoTimestamps,
                                       stack_views::kNoTimestamps};

  static constexpr const char* kBodyViews[] = {"EXPORT.SYSTEM_VARIABLE.",
                                               Joined<"EXPORT_SELECTED.", Entity, ".">::value,
                                               "EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.",
                                               "EXPORT_STACK.RUNTIME_SUPPLIED.",
                                               Joined<"EXPORT_SEARCH.", Entity, ".">::value,
                                               "EXPORT_SORT.RUNTIME_SUPPLIED.",
                                               "EXPORT.RUNTIME_SUPPLIED.",
                                               nullptr};
  static constexpr StackList Describe(const ViewNameRow* views, u32 link_exit,
                                      const char* delete_dialog, bool open_enables_prev) {
    StackList list = Base::Describe(views, link_exit, delete_dialog, open_enables_prev);
    list.body_views = kBodyViews;
    return list;
  }
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_SEARCH_VIEWS_H_
