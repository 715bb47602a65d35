// The dictionaries of the two procedures over one table's row that every
// first-page list and body-style data entry window share, and the flow
// between them, derived from the module's row forms (RowForms with its
// RowAttribute table) and its entity name:
//
//   FirstPageViews<Forms, "ENTITY">   the list's ViewRows and GroupRows, by
//       the names EXPORT.RUNTIME_SUPPLIED, EXPORT.SYSTEM_VARIABLE,
//       EXPORT_NEXT/EXPORT_PREV.RUNTIME_SUPPLIED, EXPORT_LAST, EXPORT_FIRST
//       and EXPORT_CURRENT.ENTITY, the group EXPORT_LIST with its
//       RUNTIME_SUPPLIED marks and its ENTITY rows; and the ViewShape.
//   BodyEntryViews<Forms, "ENTITY">   the window's: EXPORT_DATA_CHANGED,
//       EXPORT.SYSTEM_VARIABLE, EXPORT.ENTITY, EXPORT.RUNTIME_SUPPLIED.
//   ListToEntryFlow<Forms, "ENTITY">  send: the row in hand (EXPORT_CURRENT)
//       onto the window's row, SYSTEM_VARIABLE, COMMAND and SUBSCRIPT;
//       receive: the window's row back onto the row in hand (RowToEntryFlow,
//       which the stack list's flow shares).
//
// Contract: all members are constant expressions with static storage, so
// that the head tables and the transport may keep their addresses.
#ifndef WATRIX_PATTERNS_ROW_VIEWS_H_
#define WATRIX_PATTERNS_ROW_VIEWS_H_

#include <array>
#include <cstddef>
#include <iterator>

#include "frame/tables.h"
#include "frame/transport/plan.h"
#include "frame/unit.h"
#include "patterns/body_entry.h"
#include "patterns/first_page_list.h"
#include "patterns/fixed_text.h"

namespace lk::patterns {

namespace row_views {
constexpr u32 At(std::size_t offset) { return static_cast<u32>(offset); }
constexpr std::size_t Length(const char* text) {
  std::size_t n = 0;
  while (text[n] != '\0') ++n;
  return n;
}
}  // namespace row_views

// The parts of the prefix joined, then each attribute name of the row, in
// attribute order: AttributeNames<Forms, "EXPORT.", "ENTITY", ".">::kNames.
template <class Forms, FixedText... Prefix>
struct AttributeNames {
  static constexpr std::size_t kCount = std::size(Forms::kAttributes);

 private:
  static constexpr std::size_t kPrefix = (Prefix.kLength + ... + 0);
  static constexpr std::size_t kSize = [] {
    std::size_t size = 0;
    for (const RowAttribute& a : Forms::kAttributes)
      size += kPrefix + row_views::Length(a.name) + 1;
    return size;
  }();
  static constexpr std::array<char, kSize> kText = [] {
    std::array<char, kSize> text{};
    std::size_t at = 0;
    auto append = [&](const auto& part) {
      for (std::size_t i = 0; i < part.kLength; ++i) text[at++] = part.chars[i];
    };
    for (const RowAttribute& a : Forms::kAttributes) {
      (append(Prefix), ...);
      for (const char* c = a.name; *c != '\0'; ++c) text[at++] = *c;
      text[at++] = '\0';
    }
    return text;
  }();

 public:
  static constexpr std::array<const char*, kCount> kNames = [] {
    std::array<const char*, kCount> names{};
    std::size_t at = 0;
    for (std::size_t k = 0; k < kCount; ++k) {
      names[k] = kText.data() + at;
      at += kPrefix + row_views::Length(Forms::kAttributes[k].name) + 1;
    }
    return names;
  }();
};

template <class Forms, FixedText Entity>
struct FirstPageViews {
  using Import = FirstPageImport<Forms>;
  using Export = FirstPageExport<Forms>;

 private:
  static constexpr auto& kRow = Forms::kAttributes;
  static constexpr auto kRuntime =
      RuntimeSuppliedRows(row_views::At(offsetof(Import, EXPORT.RUNTIME_SUPPLIED)),
                          row_views::At(offsetof(Export, EXPORT.RUNTIME_SUPPLIED)));
  static constexpr auto kSystem =
      SystemVariableRows(row_views::At(offsetof(Import, EXPORT.SYSTEM_VARIABLE)),
                         row_views::At(offsetof(Export, EXPORT.SYSTEM_VARIABLE)));
  static constexpr auto kNext = FlagRows(row_views::At(offsetof(Import, EXPORT_NEXT)),
                                         row_views::At(offsetof(Export, EXPORT_NEXT)));
  static constexpr auto kPrev = FlagRows(row_views::At(offsetof(Import, EXPORT_PREV)),
                                         row_views::At(offsetof(Export, EXPORT_PREV)));
  static constexpr auto kLast = RowRows(kRow, row_views::At(offsetof(Import, EXPORT_LAST)),
                                        row_views::At(offsetof(Export, EXPORT_LAST)));
  static constexpr auto kFirst = RowRows(kRow, row_views::At(offsetof(Import, EXPORT_FIRST)),
                                         row_views::At(offsetof(Export, EXPORT_FIRST)));
  static constexpr auto kCurrent = RowRows(kRow, row_views::At(offsetof(Import, EXPORT_CURRENT)),
                                           row_views::At(offsetof(Export, EXPORT_CURRENT)));
  static constexpr auto kMarks =
      SelectCharRows<Forms>(row_views::At(offsetof(Import, EXPORT_LIST)),
                            row_views::At(offsetof(Export, EXPORT_LIST)));
  static constexpr auto kRows = ColumnRows(kRow, row_views::At(offsetof(Import, EXPORT_LIST)),
                                           row_views::At(offsetof(Export, EXPORT_LIST)));
  static constexpr auto kExportStamps = RowTimestamps(
      kRow,
      {row_views::At(offsetof(Export, EXPORT_LAST)), row_views::At(offsetof(Export, EXPORT_FIRST)),
       row_views::At(offsetof(Export, EXPORT_CURRENT))},
      /*bare=*/false, row_views::At(offsetof(Export, EXPORT_LIST)), Forms::kRows);
  static constexpr auto kImportStamps = RowTimestamps(
      kRow,
      {row_views::At(offsetof(Import, EXPORT_LAST)), row_views::At(offsetof(Import, EXPORT_FIRST)),
       row_views::At(offsetof(Import, EXPORT_CURRENT))},
      /*bare=*/true, row_views::At(offsetof(Import, EXPORT_LIST)), Forms::kRows);

 public:
  static constexpr ViewRow kViewRows[] = {
      {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kRuntime.data()},
      {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kSystem.data()},
      {"EXPORT_NEXT.RUNTIME_SUPPLIED.", 0, 0, kNext.data()},
      {"EXPORT_PREV.RUNTIME_SUPPLIED.", 0, 0, kPrev.data()},
      {Joined<"EXPORT_LAST.", Entity, ".">::value, 0, 0, kLast.data()},
      {Joined<"EXPORT_FIRST.", Entity, ".">::value, 0, 0, kFirst.data()},
      {Joined<"EXPORT_CURRENT.", Entity, ".">::value, 0, 0, kCurrent.data()},
      {"EXPORT_LIST.RUNTIME_SUPPLIED.", Forms::kRows, 0, kMarks.data()},
      {Joined<"EXPORT_LIST.", Entity, ".">::value, Forms::kRows, 0, kRows.data()},
      {nullptr, 0, 0, nullptr},
  };
  static constexpr GroupRow kGroupRows[] = {
      {"EXPORT_LIST", (9u << 16) | 7u, 1, row_views::At(offsetof(Export, EXPORT_LIST.count)),
       row_views::At(offsetof(Import, EXPORT_LIST.count)), 0},
      {"*", 9u << 16, 0, 0, 0, 0},
  };
  static constexpr ViewShape kShape = {sizeof(Export), kExportStamps.data(),
                                       kImportStamps.data()};
};

template <class Forms, FixedText Entity>
struct BodyEntryViews {
  using Import = BodyEntryImport<Forms>;
  using Export = BodyEntryExport<Forms>;

 private:
  static constexpr auto& kRow = Forms::kAttributes;
  static constexpr auto kChanged = FlagRows(row_views::At(offsetof(Import, EXPORT_DATA_CHANGED)),
                                            row_views::At(offsetof(Export, EXPORT_DATA_CHANGED)));
  static constexpr auto kSystem =
      SystemVariableRows(row_views::At(offsetof(Import, EXPORT.SYSTEM_VARIABLE)),
                         row_views::At(offsetof(Export, EXPORT.SYSTEM_VARIABLE)));
  static constexpr auto kOneRow = RowRows(kRow, row_views::At(offsetof(Import, EXPORT.ROW)),
                                          row_views::At(offsetof(Export, EXPORT.ROW)));
  static constexpr auto kRuntime =
      RuntimeSuppliedRows(row_views::At(offsetof(Import, EXPORT.RUNTIME_SUPPLIED)),
                          row_views::At(offsetof(Export, EXPORT.RUNTIME_SUPPLIED)));
  static constexpr auto kExportStamps =
      RowTimestamps(kRow, {row_views::At(offsetof(Export, EXPORT.ROW))}, /*bare=*/false, 0, 0);
  static constexpr auto kImportStamps =
      RowTimestamps(kRow, {row_views::At(offsetof(Import, EXPORT.ROW))}, /*bare=*/true, 0, 0);

 public:
  static constexpr ViewRow kViewRows[] = {
      {"EXPORT_DATA_CHANGED.RUNTIME_SUPPLIED.", 0, 0, kChanged.data()},
      {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kSystem.data()},
      {Joined<"EXPORT.", Entity, ".">::value, 0, 0, kOneRow.data()},
      {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kRuntime.data()},
      {nullptr, 0, 0, nullptr},
  };
  static constexpr GroupRow kGroupRows[] = {{"*", 4u << 16, 0, 0, 0, 0}};
  static constexpr ViewShape kShape = {sizeof(Export), kExportStamps.data(),
                                       kImportStamps.data()};
};

// The flow from a list to its data entry window: send carries each
// attribute of the list's row `From`.ENTITY onto the window's EXPORT.ENTITY,
// then `Shared` names, each onto itself; receive carries the window's row
// back onto `From`.ENTITY.
template <class Forms, FixedText From, FixedText Entity, std::size_t N>
struct RowToEntryFlow {
 private:
  using Source = AttributeNames<Forms, From, ".", Entity, ".">;
  using Window = AttributeNames<Forms, "EXPORT.", Entity, ".">;
  static constexpr std::size_t kCount = Source::kCount;

 public:
  template <class Shared>
  static constexpr std::array<FlowPair, kCount + N + 1> Send(const Shared& shared) {
    std::array<FlowPair, kCount + N + 1> pairs{};
    std::size_t n = 0;
    for (std::size_t k = 0; k < kCount; ++k) pairs[n++] = {Source::kNames[k], Window::kNames[k]};
    for (const char* name : shared) pairs[n++] = {name, name};
    pairs[n] = {nullptr, nullptr};
    return pairs;
  }
  static constexpr std::array<FlowPair, kCount + 1> kReceive = [] {
    std::array<FlowPair, kCount + 1> pairs{};
    for (std::size_t k = 0; k < kCount; ++k) pairs[k] = {Source::kNames[k], Window::kNames[k]};
    pairs[kCount] = {nullptr, nullptr};
    return pairs;
  }();
};

// A first-page list's flow: the row in hand (EXPORT_CURRENT), then
// SYSTEM_VARIABLE, COMMAND and SUBSCRIPT.
template <class Forms, FixedText Entity>
struct ListToEntryFlow : RowToEntryFlow<Forms, "EXPORT_CURRENT", Entity, 4> {
  static constexpr auto kSend = RowToEntryFlow<Forms, "EXPORT_CURRENT", Entity, 4>::Send(
      std::array<const char*, 4>{"EXPORT.SYSTEM_VARIABLE.USER_ID_CODE",
                                 "EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID",
                                 "EXPORT.RUNTIME_SUPPLIED.COMMAND",
                                 "EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT"});
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_ROW_VIEWS_H_
