// The action blocks that read and write one row of a code table: a table
// keyed by a code and its ORG ID, with no IS number (TSMGEOUN, TSMSIC,
// TSMLTHUN). Written once over the statement frame (store/actions.h) for
// every such table whose row has the forms of patterns/row_forms.h, made
// with the code as the row's first identity attribute (the `is_number` slot
// of LK_ROW_FORMS) and the ORG ID as the second. The steps:
//
//   Read      the row by code and ORG ID (kSelectRow); not found:
//             T::kNotFound with its text, kind 'N'; found: the row exported.
//   Identify  a new row with the code, the ORG ID and the values the row
//             gives, D_USERID_CODE := USER_ID_CODE, the stamp of now, the
//             insert. "OK" exports the row as written; "DF" T::kAlreadyExists
//             with its text, kind 'N', where the table has one (otherwise a
//             fatal stop like any other status); "BP" T::kPermittedValue
//             where the table has one; anything else is fatal. A refused row exports
//             the row as given: its key is the one it came with, since a
//             code table's key is typed, not drawn from a counter.
//   Modify    the row by code and ORG ID read for update; not found:
//             T::kNotFound, kind 'N'. Its values, the user and the stamp
//             written under the cursor and exported; "DF" T::kNotUnique and
//             "BP" T::kPermittedValue where the table has them, any other
//             status a fatal stop.
//   Remove    the row selected by code and ORG ID (kSelectKey); where T
//             declares kRemoveMatchesValues, the row's values are bound as
//             well, so that a row changed since it was listed is not found
//             (TSMLTHUN's name). Not found: T::kNotFound with its text, kind
//             'E'. Found: the table's
//             reference checks, T::Referenced(block, rc, key), where it has
//             them (true: the check set its exit state and words, nothing
//             is deleted); then the cascade entry with the row's CodeKey and
//             the table's dependent steps (T::kRemoveSteps, where it has
//             them).
//
// T gives: using Forms; the StatementDefs kSelectRow, kInsert,
// kReadForUpdate (for update), kUpdate (under the cursor), kSelectKey; the
// exit state kNotFound with kNotFoundText; using Key (store::CodeKey<N> of
// the code's width). Optional members (their presence counts):
// kAlreadyExists/kAlreadyExistsText, kOrgFromRun (Identify takes the ORG ID
// from CURRENT_ORG_ID of the run, not from the row), kNotUnique/kNotUniqueText,
// kPermittedValue/kPermittedValueText, kRemoveStatement, kRemoveSteps,
// kRemoveMatchesValues, Referenced.
// The values of a row are its attributes other than the code, the ORG ID,
// D_USERID_CODE and D_LAST_UPDATE_TIMESTAMP.
//
// Contract: each is an action block of the unit protocol, reporting through
// RunContext and its export row, never by a return value. CodeRowBlocks<T>
// holds the static storage of its blocks; not reentrant; one thread.
#ifndef WATRIX_PATTERNS_CODE_ROW_BLOCKS_H_
#define WATRIX_PATTERNS_CODE_ROW_BLOCKS_H_

#include <cstddef>
#include <cstring>

#include "frame/run_context.h"
#include "frame/unit.h"
#include "frame/views.h"
#include "patterns/first_page_list.h"
#include "services/text.h"
#include "services/timestamp.h"
#include "store/actions.h"
#include "store/cascade.h"
#include "store/cascade_loop.h"
#include "store/entity_state.h"
#include "store/statement.h"

namespace lk::patterns {

template <class T>
class CodeRowBlocks {
 public:
  using Forms = typename T::Forms;
  using Row = typename Forms::Row;

  static void Read(const UnitId& id, HandleA a, HandleB b, RunContext* rc, const Row* key,
                   Row* row) {
    store::RunActionBlock(&read_unit_, id, a, b, rc, {}, [&](store::Block& block) {
      Initialise(&read_state_, nullptr);
      KeyOf(*key);
      store::SelectOne(block, T::kSelectRow, &read_state_, &host_, &entity_);
      if (store::StateIs(read_state_.status, "NF")) {
        SetExit(rc, T::kNotFound, T::kNotFoundText, 'N');
        return;
      }
      if (!store::StateIs(read_state_.status, "OK")) store::FailOnStatus(block, read_state_);
      *row = entity_;
    });
  }

  static void Identify(const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                       const SystemVariableView* system, const Row* row, Row* written) {
    store::RunActionBlock(&identify_unit_, id, a, b, rc, {}, [&](store::Block& block) {
      Initialise(&identify_state_, written);
      KeyOf(*row);
      if constexpr (requires { T::kOrgFromRun; })
        TextMove(host_.*Forms::kOrgIdRow, system->CURRENT_ORG_ID,
                 sizeof(host_.*Forms::kOrgIdRow));
      TakeValues(*row);
      Stamp(a, b, rc, *system);
      store::Insert(block, T::kInsert, &identify_state_, &host_, &entity_);
      if (store::StateIs(identify_state_.status, "OK")) {
        *written = host_;
        return;
      }
      *written = *row;
      bool refused = false;
      if constexpr (requires { T::kAlreadyExists; }) {
        if (store::StateIs(identify_state_.status, "DF")) {
          SetExit(rc, T::kAlreadyExists, T::kAlreadyExistsText, 'N');
          refused = true;
        }
      }
      if (refused) {
      } else if (!PermittedValue(rc, identify_state_)) {
        store::FailOnStatus(block, identify_state_);
      }
    });
  }

  static void Modify(const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                     const SystemVariableView* system, const Row* row, Row* written) {
    store::RunActionBlock(&modify_unit_, id, a, b, rc, {&modify_cursor_},
                          [&](store::Block& block) {
      Initialise(&modify_state_, written);
      KeyOf(*row);
      store::ReadForUpdate(block, &modify_cursor_, T::kReadForUpdate, &modify_state_, &host_,
                           &entity_);
      if (store::StateIs(modify_state_.status, "NF")) {
        SetExit(rc, T::kNotFound, T::kNotFoundText, 'N');
        return;
      }
      if (!store::StateIs(modify_state_.status, "OK")) store::FailOnStatus(block, modify_state_);
      host_ = entity_;
      TakeValues(*row);
      Stamp(a, b, rc, *system);
      store::Update(block, T::kUpdate, &modify_state_, &host_, &entity_, &modify_cursor_);
      if (store::StateIs(modify_state_.status, "OK")) {
        *written = host_;
        return;
      }
      if constexpr (requires { T::kNotUnique; }) {
        if (store::StateIs(modify_state_.status, "DF")) {
          SetExit(rc, T::kNotUnique, T::kNotUniqueText, 'N');
          return;
        }
      }
      if (!PermittedValue(rc, modify_state_)) store::FailOnStatus(block, modify_state_);
    });
  }

  static void Remove(const UnitId& id, HandleA a, HandleB b, RunContext* rc, const Row* key,
                     store::DeleteEntry entry) {
    store::RunActionBlock(&remove_unit_, id, a, b, rc, {}, [&](store::Block& block) {
      Initialise(&remove_state_, nullptr);
      KeyOf(*key);
      if constexpr (requires { T::kRemoveMatchesValues; }) TakeValues(*key);
      store::SelectOne(block, T::kSelectKey, &remove_state_, &host_, &entity_);
      if (store::StateIs(remove_state_.status, "NF")) {
        SetExit(rc, T::kNotFound, T::kNotFoundText, 'E');
        return;
      }
      if (!store::StateIs(remove_state_.status, "OK")) store::FailOnStatus(block, remove_state_);
      if constexpr (requires { T::Referenced(block, rc, entity_); }) {
        if (T::Referenced(block, rc, entity_)) return;
      }
      const char* statement = nullptr;
      if constexpr (requires { T::kRemoveStatement; }) statement = T::kRemoveStatement;
      store::CascadeSteps steps{};
      if constexpr (requires { T::kRemoveSteps; }) steps = T::kRemoveSteps;
      typename T::Key record{};
      TextMove(record.code, entity_.*Forms::kIsNumberRow, sizeof record.code);
      TextMove(record.org_id, entity_.*Forms::kOrgIdRow, sizeof record.org_id);
      store::RemoveCurrentRowByKey(block, a, b, rc, &remove_state_, &remove_record_, entry,
                                   &record, statement, steps, id);
    });
  }

 private:
  static char* Place(Row* row, const RowAttribute& at) {
    return reinterpret_cast<char*>(row) + at.row;
  }
  static const char* Place(const Row* row, const RowAttribute& at) {
    return reinterpret_cast<const char*>(row) + at.row;
  }
  static bool IsValue(const RowAttribute& at) {
    return at.row != Forms::kIsNumberAt && at.row != Forms::kOrgIdAt &&
           at.row != offsetof(Row, D_USERID_CODE) &&
           at.row != offsetof(Row, D_LAST_UPDATE_TIMESTAMP);
  }
  static bool PermittedValue(RunContext* rc, const store::EntityState& state) {
    if constexpr (requires { T::kPermittedValue; }) {
      if (store::StateIs(state.status, "BP")) {
        SetExit(rc, T::kPermittedValue, T::kPermittedValueText, 'N');
        return true;
      }
    }
    return false;
  }
  static void Initialise(store::EntityState* state, Row* out) {
    store::ResetEntity(state);
    BlankRow(Forms::kAttributes, &host_);
    std::memcpy(host_.D_LAST_UPDATE_TIMESTAMP, kInitialTimestamp, kTimestampStorage);
    BlankRow(Forms::kAttributes, &entity_);
    if (out != nullptr) std::memset(out, 0, sizeof *out);
  }
  // The code and the ORG ID of `row` into the host row.
  static void KeyOf(const Row& row) {
    TextMove(host_.*Forms::kIsNumberRow, row.*Forms::kIsNumberRow,
             sizeof(host_.*Forms::kIsNumberRow));
    TextMove(host_.*Forms::kOrgIdRow, row.*Forms::kOrgIdRow, sizeof(host_.*Forms::kOrgIdRow));
  }
  static void TakeValues(const Row& row) {
    for (const RowAttribute& at : Forms::kAttributes)
      if (IsValue(at)) MoveValue(at, Place(&host_, at), Place(&row, at));
  }
  static void Stamp(HandleA a, HandleB b, RunContext* rc, const SystemVariableView& system) {
    TextMove(host_.D_USERID_CODE, system.USER_ID_CODE, sizeof host_.D_USERID_CODE);
    StampCurrentTimestamp(a, b, rc, host_.D_LAST_UPDATE_TIMESTAMP);
  }

  static inline UnitStorage identify_unit_, modify_unit_, remove_unit_, read_unit_;
  static inline store::EntityState identify_state_, modify_state_, remove_state_, read_state_;
  static inline store::Cursor modify_cursor_;
  static inline Row host_;    // the values a statement binds
  static inline Row entity_;  // the row read
  static inline store::CascadeRecord remove_record_;
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_CODE_ROW_BLOCKS_H_
