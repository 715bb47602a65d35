// The first-page maintenance list: a list window without an Open event,
// whose procedure body loads the list on the COMMAND "LIST" and reloads it on
// "REFRESH", and whose list action block is given the first or the last row
// of the page on show and reads on from there with a keyset predicate.
// Written once for every such list; a module gives its row in its forms
// (RowForms), its two cursor statements, and a traits type that names its
// units, its dictionary and its link (see FirstPageList below).
//
// The row of a table in its forms. A row stands in four places: bare (the
// import view's single views and the action blocks' views), shown (the export
// view's single views, six display bytes in front of each value), as a row of
// the export group (ShownColumn) and as a row of the import group (Column).
// A module declares the four records with the same member names and lists
// the attributes once, in a RowAttribute table (LK_ROW_ATTRIBUTE); the moves
// below and the dictionary builders work from that table, so that a list and
// its data entry window (patterns/body_entry.h) say nothing twice.
//
// The views of a first-page list (FirstPageImport, FirstPageExport), by the
// names of the dictionary:
//   EXPORT.RUNTIME_SUPPLIED   SUBSCRIPT (the row selected, 0 for none) and
//                             COMMAND (the last command, kept so that the
//                             return from data entry can tell ADD from CHANGE)
//   EXPORT.SYSTEM_VARIABLE    USER_ID_CODE, CURRENT_ORG_ID
//   EXPORT_NEXT, EXPORT_PREV  FLAG: "Y" when rows follow, stand before the page
//   EXPORT_LAST, EXPORT_FIRST the last and the first row of the page
//   EXPORT_CURRENT            the row in hand
//   EXPORT_LIST               the group: count, SELECT_CHAR marks, rows
//
// What each step does (the module's event actions call these):
//   Body      EXIT_NONE; the import view into the export view by the
//             dictionary; "REFRESH" runs the refresh, "LIST" the list step,
//             any other COMMAND shows the window as it stands.
//   List      LAST := FIRST; the read with the COMMAND and the PREV flag of
//             the view; SUBSCRIPT := 0; PREV and NEXT enabled by their flags.
//   Next      PREV enabled, PREV flag "Y"; the read with PREV flag "Y";
//             SUBSCRIPT := 0; NEXT by its flag.
//   Prev      NEXT enabled, NEXT flag "Y"; the read without the PREV flag;
//             the read's blank NEXT flag overwrites the "Y" (kept on
//             purpose: after a page up NEXT stays enabled with a blank flag,
//             and a select and deselect then leave it disabled);
//             SUBSCRIPT := 0; PREV by its flag.
//   Click     s := the first row in state 3, or 0. s = SUBSCRIPT: unmark it
//             (s > 0), SUBSCRIPT := 0, PREV and NEXT enabled where their
//             flags are not blank. Otherwise SUBSCRIPT := s, the row in hand
//             := row s, PREV and NEXT disabled.
//   DoubleClick  s := the first row in state 3; none: nothing. The row in
//             hand := row s, row s unmarked, COMMAND := "CHANGE" (also the
//             view's), the link's exit state. SUBSCRIPT stays.
//   Add       COMMAND := "ADD" (also the view's); the row in hand blank; the
//             link. Change: COMMAND := "CHANGE"; the link. Neither looks at
//             the selection: the window's enable rules keep them apart.
//   Delete    opens the delete dialog (patterns/delete_dialog.h); nothing else.
//             A list whose Delete button opens the dialog by its control row
//             (frame/window_decl.h, DialogButton) has no use for this step.
//   Close     EXIT_RETURN.
//   Refresh   the view's COMMAND "ADD": LAST := blank, the first page (the
//             PREV flag stays as it was, so that a page up from there shows
//             blank rows above the first row; a list whose L declares
//             kAddStartsOver also blanks FIRST and sets the PREV flag "N":
//             the list starts over); otherwise LAST := FIRST, the
//             same page. COMMAND := "LIST"; the read; the row in hand sought
//             by its IS number (rounded) and ORG ID (by its code and ORG ID
//             where L declares kSeekByCode), the first match becomes
//             SUBSCRIPT (0 when none); that row set to state 5, then 7 (row 0
//             when none was found); PREV and NEXT by their flags, then both
//             disabled again while a row is selected.
// Every event action leaves a blank message of kind 'N' and, unless said,
// EXIT_NONE.
//
// The read of a page (the list action block, ReadFirstPage): the export
// PREV flag := the import PREV flag, NEXT flag, FIRST, LAST and rows blank.
//   "PREV": the cursor descending from the FIRST row's key; rows are stored
//           from the group's maximum downwards and the count stays at the
//           maximum; each stored row becomes FIRST, and LAST while LAST is
//           blank. A row fetched when the subscript has reached 0 proves that
//           rows stand before the page: PREV flag "Y", and the read stops.
//           Subscripts the read did not reach stay blank rows at the top.
//   other:  the cursor ascending from the LAST row's key; rows are stored
//           from 1 upwards; the first becomes FIRST, each one LAST. A row
//           fetched when the group is full proves that rows follow: NEXT
//           flag "Y", and the read stops.
// The proof row is why a list statement says LIMIT with the group's maximum
// plus one. An empty result is no failure.
//
// Contract: the event actions run in the units' entry protocol
// (frame/unit.h) and leave by the abort frame on a fatal status of a callee
// or a subscript outside 1..maximum. No allocation; one thread. A
// FirstPageList<L> instance holds the static storage of its units.
#ifndef WATRIX_PATTERNS_FIRST_PAGE_LIST_H_
#define WATRIX_PATTERNS_FIRST_PAGE_LIST_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <span>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/transport/plan.h"
#include "frame/unit.h"
#include "frame/views.h"
#include "patterns/delete_dialog.h"
#include "patterns/group.h"
#include "services/row_state.h"
#include "services/text.h"
#include "services/window.h"
#include "store/actions.h"
#include "store/entity_state.h"
#include "store/statement.h"

namespace lk::patterns {

// ---- The row in its forms ----

// One attribute of a row. Offsets are those of the value; in the groups,
// of row 0's value (row r at column + r * storage).
struct RowAttribute {
  const char* name;           // the attribute's name in the dictionary
  const AttributeType* type;  // its type letter says how it moves
  u32 storage;
  u32 row;             // in the bare row
  u32 shown;           // in the shown row; its display bytes lie 6 before
  u32 column;          // in the export group
  u32 column_display;  // row 0's display bytes in the export group
  u32 import_column;   // in the import group
  bool key;            // a column of the key the list pages by and the
                       // data entry window checks for duplicates
};

namespace row_forms {
// An offset within a view: `base` and `offset` added.
constexpr u32 At(u32 base, std::size_t offset) { return base + static_cast<u32>(offset); }
// Refuses, at compile time, forms whose attribute sizes disagree.
constexpr u32 Sized(std::size_t offset, std::size_t size, std::size_t expected) {
  if (size != expected) throw "the forms of a row attribute differ in size";
  return static_cast<u32>(offset);
}
}  // namespace row_forms

// A RowAttribute of `member`, a member of the same name in each of the forms
// Forms::Row, Forms::Shown, Forms::Group and Forms::ImportGroup.
#define LK_ROW_ATTRIBUTE(Forms, member, type, is_key)                                    \
  (::lk::patterns::RowAttribute{                                                         \
      #member, &(type), static_cast<::lk::u32>(sizeof(Forms::Row::member)),              \
      static_cast<::lk::u32>(offsetof(Forms::Row, member)),                              \
      ::lk::patterns::row_forms::Sized(offsetof(Forms::Shown, member.value),             \
                                       sizeof(Forms::Shown::member.value),               \
                                       sizeof(Forms::Row::member)),                      \
      ::lk::patterns::row_forms::Sized(offsetof(Forms::Group, member.value),             \
                                       sizeof(Forms::Group::member.value),               \
                                       (Forms::kRows + 1) * sizeof(Forms::Row::member)), \
      ::lk::patterns::row_forms::Sized(offsetof(Forms::Group, member.display),           \
                                       sizeof(Forms::Group::member.display),             \
                                       (Forms::kRows + 1) * ::lk::kDisplayWidth),        \
      ::lk::patterns::row_forms::Sized(offsetof(Forms::ImportGroup, member.value),       \
                                       sizeof(Forms::ImportGroup::member.value),         \
                                       (Forms::kRows + 1) * sizeof(Forms::Row::member)), \
      is_key})

using RowAttributes = std::span<const RowAttribute>;

// Moves one value by its type: fixed text by the text move, varying text by
// a bounded copy, anything else byte for byte.
void MoveValue(const RowAttribute& a, char* dest, const char* source);

// bare row -> shown row, values only.
void RowToShown(RowAttributes attributes, const void* row, void* shown);
// shown row -> bare row.
void ShownToRow(RowAttributes attributes, const void* shown, void* row);
// bare row -> row r of the export group, values only.
void RowToGroup(RowAttributes attributes, const void* row, void* group, int r);
// row r of the export group -> shown row, values only.
void GroupToShown(RowAttributes attributes, const void* group, int r, void* shown);
// A blank row: blanks for texts, 0 for numbers, the default timestamp.
void BlankShown(RowAttributes attributes, void* shown);
void BlankRow(RowAttributes attributes, void* row);
// Whether every key attribute of a bare row is blank (texts) or 0 (numbers).
bool KeyIsBlank(RowAttributes attributes, const void* row);
// Puts `display` (six characters) on the key attributes of a shown row.
void MarkKeys(RowAttributes attributes, void* shown, const char* display);

// ---- Views every first-page list and its data entry window share ----

struct RuntimeSuppliedShown {
  Shown<8> SUBSCRIPT;  // a double
  Shown<81> COMMAND;
};
struct RuntimeSuppliedView {
  char SUBSCRIPT[8];
  char COMMAND[81];
};
struct SystemVariableShown {
  Shown<9> USER_ID_CODE;
  Shown<9> CURRENT_ORG_ID;
};
struct SystemVariableView {
  char USER_ID_CODE[9];
  char CURRENT_ORG_ID[9];
};
struct FlagShown {
  Shown<2> FLAG;
};
struct FlagView {
  char FLAG[2];
};
struct CommandView {
  char COMMAND[81];
};

// The import and export view of a first-page list over `Forms`.
template <class Forms>
struct FirstPageImport {
  char reserved[4];
  struct {
    RuntimeSuppliedView RUNTIME_SUPPLIED;
    SystemVariableView SYSTEM_VARIABLE;
  } EXPORT;
  FlagView EXPORT_NEXT;
  FlagView EXPORT_PREV;
  typename Forms::Row EXPORT_LAST;
  typename Forms::Row EXPORT_FIRST;
  typename Forms::Row EXPORT_CURRENT;
  typename Forms::ImportGroup EXPORT_LIST;
};

template <class Forms>
struct FirstPageExport {
  std::uint32_t reserved;
  struct {
    RuntimeSuppliedShown RUNTIME_SUPPLIED;
    SystemVariableShown SYSTEM_VARIABLE;
  } EXPORT;
  FlagShown EXPORT_NEXT;
  FlagShown EXPORT_PREV;
  typename Forms::Shown EXPORT_LAST;
  typename Forms::Shown EXPORT_FIRST;
  typename Forms::Shown EXPORT_CURRENT;
  typename Forms::Group EXPORT_LIST;
};

// ---- Dictionary builders ----

// The types of the shared attributes.
inline constexpr PermittedRow kYesNoList[] = {{"Y", 0}, {"N", 0}, {nullptr, 0}};
inline constexpr AttributeType kSubscriptType = {4, "B ", 3, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kCommandType = {81, "S ", 80, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kUserIdType = {9, "S ", 8, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kFlagType = {2, "S ", 1, "", kYesNoList, 0, {0, 0}};
inline constexpr AttributeType kSelectCharType = {2, "S ", 1, "", nullptr, 0, {0, 0}};

// RUNTIME_SUPPLIED (SUBSCRIPT, COMMAND) whose bare form lies at `import_at`
// in the import view and whose shown form at `export_at` in the export view.
constexpr std::array<AttributeRow, 3> RuntimeSuppliedRows(u32 import_at, u32 export_at) {
  using I = RuntimeSuppliedView;
  using E = RuntimeSuppliedShown;
  return {{{"SUBSCRIPT", 8, row_forms::At(import_at, offsetof(I, SUBSCRIPT)),
            row_forms::At(export_at, offsetof(E, SUBSCRIPT.value)), &kSubscriptType},
           {"COMMAND", 81, row_forms::At(import_at, offsetof(I, COMMAND)),
            row_forms::At(export_at, offsetof(E, COMMAND.value)), &kCommandType},
           {nullptr, 0, 0, 0, nullptr}}};
}
constexpr std::array<AttributeRow, 3> SystemVariableRows(u32 import_at, u32 export_at) {
  using I = SystemVariableView;
  using E = SystemVariableShown;
  return {{{"USER_ID_CODE", 9, row_forms::At(import_at, offsetof(I, USER_ID_CODE)),
            row_forms::At(export_at, offsetof(E, USER_ID_CODE.value)), &kUserIdType},
           {"CURRENT_ORG_ID", 9, row_forms::At(import_at, offsetof(I, CURRENT_ORG_ID)),
            row_forms::At(export_at, offsetof(E, CURRENT_ORG_ID.value)), &kOrgIdType},
           {nullptr, 0, 0, 0, nullptr}}};
}
constexpr std::array<AttributeRow, 2> FlagRows(u32 import_at, u32 export_at) {
  return {{{"FLAG", 2, row_forms::At(import_at, offsetof(FlagView, FLAG)),
            row_forms::At(export_at, offsetof(FlagShown, FLAG.value)), &kFlagType},
           {nullptr, 0, 0, 0, nullptr}}};
}
// The group's SELECT_CHAR column, whose groups lie at the two offsets.
template <class Forms>
constexpr std::array<AttributeRow, 2> SelectCharRows(u32 import_group_at, u32 export_group_at) {
  return {{{"SELECT_CHAR", 2,
            import_group_at + static_cast<u32>(offsetof(typename Forms::ImportGroup, SELECT_CHAR)),
            export_group_at + static_cast<u32>(offsetof(typename Forms::Group, SELECT_CHAR.value)),
            &kSelectCharType},
           {nullptr, 0, 0, 0, nullptr}}};
}
// A single view of the row: its bare form at `import_at` (0: none), its
// shown form at `export_at`.
template <std::size_t N>
constexpr std::array<AttributeRow, N + 1> RowRows(const RowAttribute (&attributes)[N],
                                                  u32 import_at, u32 export_at) {
  std::array<AttributeRow, N + 1> rows{};
  for (std::size_t i = 0; i < N; ++i) {
    const RowAttribute& a = attributes[i];
    rows[i] = {a.name, a.storage, import_at == 0 ? 0 : import_at + a.row, export_at + a.shown,
               a.type};
  }
  rows[N] = {nullptr, 0, 0, 0, nullptr};
  return rows;
}
// The group's row columns, whose groups lie at the two offsets.
template <std::size_t N>
constexpr std::array<AttributeRow, N + 1> ColumnRows(const RowAttribute (&attributes)[N],
                                                     u32 import_group_at, u32 export_group_at) {
  std::array<AttributeRow, N + 1> rows{};
  for (std::size_t i = 0; i < N; ++i) {
    const RowAttribute& a = attributes[i];
    rows[i] = {a.name, a.storage, import_group_at + a.import_column, export_group_at + a.column,
               a.type};
  }
  rows[N] = {nullptr, 0, 0, 0, nullptr};
  return rows;
}

// Where the timestamps of a view lie, for the units' initialising step: the
// timestamp attributes of the row at the single offsets, and of the group's
// rows at `group_at` (0: none). Unused slots end the list.
constexpr int kMaxTimestampSlots = 16;
template <std::size_t N>
constexpr std::array<TimestampSlot, kMaxTimestampSlots> RowTimestamps(
    const RowAttribute (&attributes)[N], std::initializer_list<u32> singles, bool bare,
    u32 group_at, u32 group_rows) {
  std::array<TimestampSlot, kMaxTimestampSlots> slots{};
  int n = 0;
  for (const RowAttribute& a : attributes) {
    if (a.type->type_letter[0] != 'Q') continue;
    for (u32 at : singles) slots[n++] = {at + (bare ? a.row : a.shown), 0};
    if (group_at != 0) slots[n++] = {group_at + (bare ? a.import_column : a.column), group_rows};
  }
  if (n >= kMaxTimestampSlots) throw "too many timestamp slots";
  return slots;
}

// ---- Calling an action block ----

// The caller's side of an action block call: run_mode ' ', the call, a fatal
// status of the callee leaves by the caller's own abort frame, and the
// caller's number and name are put back.
template <typename Call>
void CallActionBlock(RunContext* rc, const UnitId& own, Call&& call) {
  rc->run_mode = ' ';
  call();
  CheckCallee(rc);
  StoreUnitId(rc, own);
}

// ---- The read of a page ----

// What the cursor of a page binds: the organisation of the run and the row
// from which the page reads on.
template <class Row>
struct PageKey {
  char CURRENT_ORG_ID[9];
  Row row;
};

// The page as the list action block fills it, row by row, in the group it
// writes in place. Take() answers false when the row proved that more rows
// follow (or stand before) a full page: the read stops there.
template <class Forms>
class PageFill {
 public:
  using Row = typename Forms::Row;
  using Group = typename Forms::Group;

  // The start of the read: PREV flag from the import, the rest blank.
  PageFill(RunContext* rc, bool prev, const FlagView& prev_in, FlagView* next_out,
           FlagView* prev_out, Row* first_out, Row* last_out, Group* group)
      : rc_(rc),
        prev_(prev),
        next_out_(next_out),
        prev_out_(prev_out),
        first_out_(first_out),
        last_out_(last_out),
        group_(group) {
    TextMove(prev_out_->FLAG, prev_in.FLAG, sizeof prev_out_->FLAG);
    TextMove(next_out_->FLAG, "", sizeof next_out_->FLAG);
    BlankRow(Forms::kAttributes, first_out_);
    BlankRow(Forms::kAttributes, last_out_);
    std::memset(group_, 0, sizeof *group_);
    if (prev_) {
      subscript_ = Forms::kRows;
      group_->count = Forms::kRows;
    }
  }

  bool Take(const Row& row) {
    if (prev_) {
      if (subscript_ == 0) {
        TextMove(prev_out_->FLAG, "Y", sizeof prev_out_->FLAG);
        return false;
      }
      Store(row, subscript_);
      --subscript_;
      *first_out_ = row;
      if (KeyIsBlank(Forms::kAttributes, last_out_)) *last_out_ = row;
      return true;
    }
    if (subscript_ >= Forms::kRows) {
      TextMove(next_out_->FLAG, "Y", sizeof next_out_->FLAG);
      return false;
    }
    ++subscript_;
    Store(row, subscript_);
    if (subscript_ > group_->count) group_->count = subscript_;
    if (KeyIsBlank(Forms::kAttributes, first_out_)) *first_out_ = row;
    *last_out_ = row;
    return true;
  }

 private:
  void Store(const Row& row, int r) {
    CheckSubscript(rc_, r, Forms::kRows);
    RowToGroup(Forms::kAttributes, &row, group_, r);
  }

  RunContext* rc_;
  bool prev_;
  int subscript_ = 0;
  FlagView* next_out_;
  FlagView* prev_out_;
  Row* first_out_;
  Row* last_out_;
  Group* group_;
};

// ---- The list window ----

// L, the traits of one list, gives:
//   using Forms            the row's forms: Row, Shown, Group, ImportGroup,
//                          kRows, kAttributes, and the members that hold
//                          the IS number and the ORG ID: kIsNumber, kOrgId
//                          of Shown, kIsNumberColumn, kOrgIdColumn of Group
//   static const ViewNameRow& Views()   the procedure's dictionary
//   static constexpr ViewShape kShape   sizes and timestamps for the init step
//   static constexpr const char* kGroupName   the GroupRow name of the list
//   static constexpr u32 kLinkExit      the flow to the data entry window
//   static constexpr const char* kDeleteWindow  the delete dialog's name
//   static const DeleteDialog kDeleteDialog    the dialog's description
//   using Blocks; static constexpr UnitId kRemoveId; kCascadeEntry
//                          the REMOVE of the row in hand (row blocks)
//   static constexpr UnitId kBodyId, kReadId
//   static constexpr store::StatementDef kReadPrev, kReadNext
//                          the two cursors, both over PageKey<Row> and into Row
template <class L>
class FirstPageList {
 public:
  using Forms = typename L::Forms;
  using Row = typename Forms::Row;
  using Shown = typename Forms::Shown;
  using Group = typename Forms::Group;
  using Import = FirstPageImport<Forms>;
  using Export = FirstPageExport<Forms>;
  static constexpr int kRows = Forms::kRows;

  // The list action block: the read of a page, with the argument order of
  // every list action block. The group is written in place, the count first.
  static void Read(HandleA a, HandleB b, RunContext* rc, const FlagView* prev_in,
                   const CommandView* command, const Row* last_in, const Row* first_in,
                   const SystemVariableView* system, FlagView* next_out, FlagView* prev_out,
                   Row* first_out, Row* last_out, Group* group) {
    store::RunActionBlock(
        &read_unit_, L::kReadId, a, b, rc, {&read_cursor_}, [&](store::Block& block) {
          store::ResetEntity(&read_state_);
          const bool prev = TextCompare(command->COMMAND, "PREV") == 0;
          PageFill<Forms> fill(rc, prev, *prev_in, next_out, prev_out, first_out, last_out, group);
          std::memset(&read_key_, 0, sizeof read_key_);
          TextMove(read_key_.CURRENT_ORG_ID, system->CURRENT_ORG_ID,
                   sizeof read_key_.CURRENT_ORG_ID);
          read_key_.row = prev ? *first_in : *last_in;
          std::memset(&read_row_, 0, sizeof read_row_);
          store::ReadList(block, &read_cursor_, prev ? L::kReadPrev : L::kReadNext, &read_state_,
                          &read_key_, &read_row_, [&] { return fill.Take(read_row_); });
        });
  }

  // The procedure body.
  static void Body(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
    EnterProcedure(
        &body_unit_, &L::kShape, /*load_only_test=*/true, a, b, rc, import_view, export_view, [&] {
          StoreUnitId(rc, L::kBodyId);
          rc->statement = kStatement1;
          SetExit(rc, EXIT_NONE, nullptr, 'N');
          ImportToExportBy(L::Views(), import_view, export_view);
          Export* out = static_cast<Export*>(export_view);
          if (TextCompare(rc->command, "REFRESH") == 0) {
            Refresh(a, b, rc, L::kBodyId, out);
          } else if (TextCompare(rc->command, "LIST") == 0) {
            out->EXPORT_LAST = out->EXPORT_FIRST;
            CallRead(a, b, rc, L::kBodyId, out, rc->command, out->EXPORT_PREV.FLAG.value);
            PutNumber(out->EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT.value, 0);
            EnableByFlag(a, b, out->EXPORT_PREV, "PREV");
            EnableByFlag(a, b, out->EXPORT_NEXT, "NEXT");
          }
        });
  }

  // Paging down (the Next button, its event row's COMMAND "NEXT").
  static void Next(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                   void* export_view) {
    Action(&next_unit_, id, a, b, rc, import_view, export_view, [&](Export* out) {
      ControlEnable(a, b, "PREV");
      TextMove(out->EXPORT_PREV.FLAG.value, "Y", 2);
      CallRead(a, b, rc, id, out, rc->command, "Y");
      PutNumber(out->EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT.value, 0);
      EnableByFlag(a, b, out->EXPORT_NEXT, "NEXT");
    });
  }

  // Paging up (the Prev button, its event row's COMMAND "PREV").
  static void Prev(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                   void* export_view) {
    Action(&prev_unit_, id, a, b, rc, import_view, export_view, [&](Export* out) {
      ControlEnable(a, b, "NEXT");
      TextMove(out->EXPORT_NEXT.FLAG.value, "Y", 2);
      // The PREV flag is not sent: only what the read finds sets it.
      CallRead(a, b, rc, id, out, rc->command, "");
      PutNumber(out->EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT.value, 0);
      EnableByFlag(a, b, out->EXPORT_PREV, "PREV");
    });
  }

  // A click on the list.
  static void Click(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                    void* export_view) {
    Action(&click_unit_, id, a, b, rc, import_view, export_view, [&](Export* out) {
      Group& list = out->EXPORT_LIST;
      const int s = FindMarked(a, b, rc, list.SELECT_CHAR, list.count, kStateSelected);
      char* subscript = out->EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT.value;
      if (s == static_cast<int>(GetNumber(subscript))) {
        if (s > 0) {
          CheckSubscript(rc, s, kRows);
          RowStateSet(a, b, rc, list.SELECT_CHAR.value[s], kStateClear);
        }
        PutNumber(subscript, 0);
        if (!TextIsBlank(out->EXPORT_PREV.FLAG.value)) ControlEnable(a, b, "PREV");
        if (!TextIsBlank(out->EXPORT_NEXT.FLAG.value)) ControlEnable(a, b, "NEXT");
        return;
      }
      PutNumber(subscript, s);
      if (s > 0) {
        CheckSubscript(rc, s, kRows);
        GroupToShown(Forms::kAttributes, &list, s, &out->EXPORT_CURRENT);
      }
      ControlDisable(a, b, "PREV");
      ControlDisable(a, b, "NEXT");
    });
  }

  // A double click on the list: the row to the data entry window, to change.
  static void DoubleClick(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                          void* export_view) {
    Action(&double_click_unit_, id, a, b, rc, import_view, export_view, [&](Export* out) {
      Group& list = out->EXPORT_LIST;
      const int s = FindMarked(a, b, rc, list.SELECT_CHAR, list.count, kStateSelected);
      if (s == 0) return;
      CheckSubscript(rc, s, kRows);
      GroupToShown(Forms::kAttributes, &list, s, &out->EXPORT_CURRENT);
      RowStateSet(a, b, rc, list.SELECT_CHAR.value[s], kStateClear);
      Link(rc, out, "CHANGE");
    });
  }

  static void Add(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                  void* export_view) {
    Action(&add_unit_, id, a, b, rc, import_view, export_view, [&](Export* out) {
      BlankShown(Forms::kAttributes, &out->EXPORT_CURRENT);
      Link(rc, out, "ADD");
    });
  }

  static void Change(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                     void* export_view) {
    Action(&change_unit_, id, a, b, rc, import_view, export_view,
           [&](Export* out) { Link(rc, out, "CHANGE"); });
  }

  // The Delete button: opens the delete dialog L::kDeleteWindow.
  static void Delete(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                     void* export_view) {
    Action(&delete_unit_, id, a, b, rc, import_view, export_view,
           [&](Export*) { WindowOpen(a, b, L::kDeleteWindow); });
  }

  static void Close(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                    void* export_view) {
    Action(&close_unit_, id, a, b, rc, import_view, export_view,
           [&](Export*) { SetExit(rc, EXIT_RETURN, nullptr, 'N'); });
  }

  // The delete dialog's Delete: where L gives MayRemove(a, b, rc, own, row)
  // (a reference read of its own), false keeps the dialog open with the
  // words it set; otherwise the row in hand goes to the REMOVE block
  // (L::Blocks, patterns/row_blocks.h, under L::kRemoveId through the cascade
  // entry L::kCascadeEntry), then the dialog closes and the row is dropped or
  // kept as L::kDeleteDialog says (patterns/delete_dialog.h).
  static void ConfirmDelete(const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                            void* import_view, void* export_view) {
    Action(&confirm_unit_, id, a, b, rc, import_view, export_view, [&](Export* out) {
      DeleteConfirmed(L::kDeleteDialog, a, b, rc, id, DeleteListOf(out), [&]() -> bool {
        Row key{};
        ShownToRow(Forms::kAttributes, &out->EXPORT_CURRENT, &key);
        if constexpr (requires { L::MayRemove(a, b, rc, id, key); }) {
          if (!L::MayRemove(a, b, rc, id, key)) return false;
        }
        L::Blocks::Remove(L::kRemoveId, a, b, rc, &key, L::kCascadeEntry);
        return true;
      });
    });
  }

  // The delete dialog's Cancel.
  static void CancelDelete(const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                           void* import_view, void* export_view) {
    Action(&dismiss_unit_, id, a, b, rc, import_view, export_view,
           [&](Export* out) { DeleteCancelled(L::kDeleteDialog, a, b, rc, DeleteListOf(out)); });
  }

  // The list as the delete dialog sees it.
  static DeleteList DeleteListOf(Export* out) {
    return {out, out->EXPORT_LIST.SELECT_CHAR.value, &out->EXPORT_LIST.count,
            out->EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT.value};
  }

 private:
  static constexpr char kStatement1[] = "0000000001";

  // An event action of the list: the entry protocol, then EXIT_NONE with a
  // blank message, then the step.
  template <typename Step>
  static void Action(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                     void* import_view, void* export_view, Step&& step) {
    EnterEventAction(unit, &L::kShape, id, a, b, rc, import_view, export_view, [&] {
      rc->statement = kStatement1;
      SetExit(rc, EXIT_NONE, nullptr, 'N');
      step(static_cast<Export*>(export_view));
    });
  }

  // COMMAND := `command`, also into the view; the link to data entry.
  static void Link(RunContext* rc, Export* out, const char* command) {
    SetCommand(rc, command);
    TextMove(out->EXPORT.RUNTIME_SUPPLIED.COMMAND.value, rc->command,
             sizeof out->EXPORT.RUNTIME_SUPPLIED.COMMAND.value);
    SetExit(rc, L::kLinkExit, nullptr, 'N');
  }

  static void EnableByFlag(HandleA a, HandleB b, const FlagShown& flag, const char* keyword) {
    if (TextCompare(flag.FLAG.value, "Y") == 0) {
      ControlEnable(a, b, keyword);
    } else {
      ControlDisable(a, b, keyword);
    }
  }

  // Calls the list action block with `command`, the PREV flag `prev`, the
  // view's LAST, FIRST and SYSTEM_VARIABLE, and copies FIRST, LAST and both
  // flags back; the rows it writes in place.
  static void CallRead(HandleA a, HandleB b, RunContext* rc, const UnitId& own, Export* out,
                       const char* command, const char* prev) {
    FlagView prev_in{}, next_out{}, prev_out{};
    CommandView command_in{};
    Row last_in{}, first_in{}, first_out{}, last_out{};
    SystemVariableView system{};
    TextMove(prev_in.FLAG, prev, sizeof prev_in.FLAG);
    TextMove(command_in.COMMAND, command, sizeof command_in.COMMAND);
    ShownToRow(Forms::kAttributes, &out->EXPORT_LAST, &last_in);
    ShownToRow(Forms::kAttributes, &out->EXPORT_FIRST, &first_in);
    TextMove(system.USER_ID_CODE, out->EXPORT.SYSTEM_VARIABLE.USER_ID_CODE.value,
             sizeof system.USER_ID_CODE);
    TextMove(system.CURRENT_ORG_ID, out->EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID.value,
             sizeof system.CURRENT_ORG_ID);
    std::memset(&out->EXPORT_LIST, 0, sizeof out->EXPORT_LIST);
    CallActionBlock(rc, own, [&] {
      Read(a, b, rc, &prev_in, &command_in, &last_in, &first_in, &system, &next_out, &prev_out,
           &first_out, &last_out, &out->EXPORT_LIST);
    });
    RowToShown(Forms::kAttributes, &first_out, &out->EXPORT_FIRST);
    RowToShown(Forms::kAttributes, &last_out, &out->EXPORT_LAST);
    TextMove(out->EXPORT_NEXT.FLAG.value, next_out.FLAG, 2);
    TextMove(out->EXPORT_PREV.FLAG.value, prev_out.FLAG, 2);
  }

  // The refresh after a data entry window has ended, by Accept or Cancel.
  static void Refresh(HandleA a, HandleB b, RunContext* rc, const UnitId& own, Export* out) {
    if (TextCompare(out->EXPORT.RUNTIME_SUPPLIED.COMMAND.value, "ADD") == 0) {
      BlankShown(Forms::kAttributes, &out->EXPORT_LAST);
      if constexpr (requires { L::kAddStartsOver; }) {
        BlankShown(Forms::kAttributes, &out->EXPORT_FIRST);
        TextMove(out->EXPORT_PREV.FLAG.value, "N", 2);
      }
    } else {
      out->EXPORT_LAST = out->EXPORT_FIRST;
    }
    SetCommand(rc, "LIST");
    CallRead(a, b, rc, own, out, rc->command, out->EXPORT_PREV.FLAG.value);
    Group& list = out->EXPORT_LIST;
    const Shown& hand = out->EXPORT_CURRENT;
    int s = 0;
    if constexpr (requires { L::kSeekByCode; }) {
      s = SeekCodeRow(list.*Forms::kIsNumberColumn, list.*Forms::kOrgIdColumn, list.count,
                      (hand.*Forms::kIsNumber).value, (hand.*Forms::kOrgId).value);
    } else {
      s = SeekRow(list.*Forms::kIsNumberColumn, list.*Forms::kOrgIdColumn, list.count,
                  GetNumber((hand.*Forms::kIsNumber).value), (hand.*Forms::kOrgId).value);
    }
    PutNumber(out->EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT.value, s);
    // Not found: the slot before the first row takes the marks.
    RowStateSet(a, b, rc, list.SELECT_CHAR.value[s], kStateMarked);
    RowStateSet(a, b, rc, list.SELECT_CHAR.value[s], kStateCurrent);
    EnableByFlag(a, b, out->EXPORT_PREV, "PREV");
    EnableByFlag(a, b, out->EXPORT_NEXT, "NEXT");
    if (s > 0) {
      ControlDisable(a, b, "PREV");
      ControlDisable(a, b, "NEXT");
    }
  }

  static inline UnitStorage body_unit_, read_unit_, next_unit_, prev_unit_, click_unit_,
      double_click_unit_, add_unit_, change_unit_, delete_unit_, close_unit_, confirm_unit_,
      dismiss_unit_;
  // The list action block's statics: its cursor, its entity state, the key
  // it binds and the row it fetches into.
  static inline store::Cursor read_cursor_;
  static inline store::EntityState read_state_;
  static inline PageKey<Row> read_key_;
  static inline Row read_row_;
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_FIRST_PAGE_LIST_H_
