// The action blocks that read and write one row of a table keyed by its IS
// number and ORG ID, written once over the statement frame (store/actions.h)
// for every table whose row has the forms of patterns/row_forms.h. A table
// gives its statements, its counter, its exit states and texts; the steps
// are these:
//
//   Duplicate  the row of the key's ORG ID and key attributes (kSelectDuplicate).
//              Found: exit state unchanged, the row exported. Not found:
//              T::kNotFound with T::kNotFoundText, kind 'N'.
//   Identify   a new row: the IS number of counter T::kCounterName (blank ORG
//              ID), ORG ID := CURRENT_ORG_ID of the run, the row's values,
//              D_USERID_CODE := USER_ID_CODE, the stamp, the insert. "OK"
//              exports the row as written; "DF" T::kAlreadyExists with its
//              text, kind 'N'; anything else is fatal. An exit state that the
//              counter leaves goes on with the insert.
//   Modify     the row by its key read for update; not found: T::kNotFound,
//              kind 'N'. The row's values, the user and the stamp written
//              under the cursor and exported; any other status ("DF", "BP")
//              is a fatal stop with itself as detail.
//   Remove     the row selected by its key; not found: T::kNotFound with its
//              text, kind 'E'; found: its cascade entry `entry`
//              (store::RemoveCurrentRow).
//   Read       the row by its key (kSelectRow); not found: T::kNotFound,
//              kind 'N'; found: the row exported.
//
// What a table may say otherwise, each by declaring a member of T (its
// presence counts, not its value):
//   kOrgFromRow               Identify takes the ORG ID from the row given
//   kStopWithoutNumber        Identify stops, the counter's exit state and
//                             message standing, when the counter set one
//   kPermittedValue, kPermittedValueText   "BP" of Identify and Modify is
//                             that exit state and text, kind 'N'
//   kNotUnique, kNotUniqueText  "DF" of Modify likewise
//   kGone, kGoneText          Remove's not found instead of kNotFound
//   kRemoveStatement          the statement number of the cascade call
//   kMessageKind              the kind of every message the blocks set
//                             ('E': shown as they are), instead of 'N'
//   kDuplicateInWrite         Identify first selects the row of the key
//                             attributes (kSelectDuplicate, no ORG ID) and
//                             Modify first reads for update the row of the
//                             new key attributes (kReadDuplicateForUpdate);
//                             a row found: T::kAlreadyExists with its text,
//                             and nothing is written
//   kUpdateByKey              Modify updates by the key (kUpdate holds the
//                             key in its predicate), not under the cursor
//   kReferenceChecks          Remove, once the row is found, runs each check
//                             (a StatementDef over the key, into a
//                             ReferenceKey) in order; the first that finds a
//                             row sets T::kInUse with the check's text, kind
//                             'E', and nothing is deleted
// The values of a row are its attributes other than the IS number, the ORG
// ID, D_USERID_CODE and D_LAST_UPDATE_TIMESTAMP.
//
// T gives: using Forms; kCounterName; the StatementDefs kSelectDuplicate,
// kInsert, kReadForUpdate (for update), kUpdate (under the cursor),
// kSelectKey, and kSelectRow where Read is used; the exit states kNotFound
// and kAlreadyExists and their texts kNotFoundText and kAlreadyExistsText.
//
// Contract: each is an action block of the unit protocol, reporting through
// RunContext and its export row, never by a return value. RowBlocks<T> holds
// the static storage of its blocks; not reentrant; one thread.
#ifndef WATRIX_PATTERNS_ROW_BLOCKS_H_
#define WATRIX_PATTERNS_ROW_BLOCKS_H_

#include <cstddef>
#include <cstring>

#include "frame/run_context.h"
#include "frame/unit.h"
#include "frame/views.h"
#include "patterns/first_page_list.h"
#include "patterns/group.h"
#include "services/text.h"
#include "services/timestamp.h"
#include "store/actions.h"
#include "store/cascade.h"
#include "store/cascade_loop.h"
#include "store/entity_state.h"
#include "store/is_number.h"
#include "store/statement.h"

namespace lk::patterns {

// The key columns of a referring row, as a reference check selects them.
struct ReferenceKey {
  char IS_NUMBER[8];  // a double
  char ORG_ID[9];
};

// One reference check of a REMOVE: its statement and its words.
struct ReferenceCheck {
  const store::StatementDef* statement;
  const char* text;
};

template <class T>
class RowBlocks {
 public:
  using Forms = typename T::Forms;
  using Row = typename Forms::Row;

  static void Duplicate(const UnitId& id, HandleA a, HandleB b, RunContext* rc, const Row* key,
                        Row* found) {
    store::RunActionBlock(&duplicate_unit_, id, a, b, rc, {}, [&](store::Block& block) {
      Initialise(&duplicate_state_, found);
      TextMove(host_.*Forms::kOrgIdRow, key->*Forms::kOrgIdRow, sizeof(host_.*Forms::kOrgIdRow));
      for (const RowAttribute& at : Forms::kAttributes)
        if (at.key) MoveValue(at, Place(&host_, at), Place(key, at));
      store::SelectOne(block, T::kSelectDuplicate, &duplicate_state_, &host_, &entity_);
      if (store::StateIs(duplicate_state_.status, "OK")) {
        *found = entity_;
      } else if (store::StateIs(duplicate_state_.status, "NF")) {
        SetExit(rc, T::kNotFound, T::kNotFoundText, 'N');
      } else {
        store::FailOnStatus(block, duplicate_state_);
      }
    });
  }

  static void Identify(const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                       const SystemVariableView* system, const Row* row, Row* written) {
    store::RunActionBlock(&identify_unit_, id, a, b, rc, {}, [&](store::Block& block) {
      Initialise(&identify_state_, written);
      store::EisnSystemVariable counter_system{};
      TextMove(counter_system.USER_ID_CODE, system->USER_ID_CODE,
               sizeof counter_system.USER_ID_CODE);
      TextMove(counter_system.CURRENT_ORG_ID, system->CURRENT_ORG_ID,
               sizeof counter_system.CURRENT_ORG_ID);
      if constexpr (requires { T::kDuplicateInWrite; }) {
        for (const RowAttribute& at : Forms::kAttributes)
          if (at.key) MoveValue(at, Place(&host_, at), Place(row, at));
        store::SelectOne(block, T::kSelectDuplicate, &identify_state_, &host_, &entity_);
        if (store::StateIs(identify_state_.status, "OK")) {
          SetExit(rc, T::kAlreadyExists, T::kAlreadyExistsText, kKind);
          return;
        }
        if (!store::StateIs(identify_state_.status, "NF"))
          store::FailOnStatus(block, identify_state_);
        Initialise(&identify_state_, written);
      }
      store::EisnImport counter{};
      TextMove(counter.TSMEISN_NAME, T::kCounterName, sizeof counter.TSMEISN_NAME);
      TextMove(counter.TSMEISN_ORG_ID, "", sizeof counter.TSMEISN_ORG_ID);
      store::EisnExport number{};
      [[maybe_unused]] const u32 before = rc->exit_state;
      CallActionBlock(rc, id, [&] {
        store::DETERMINE_NEXT_IS_NUMBER(a, b, rc, &counter_system, &counter, &number);
      });
      if constexpr (requires { T::kStopWithoutNumber; }) {
        if (rc->exit_state != before) return;
      }
      PutNumber(host_.*Forms::kIsNumberRow, number.IS_NUMBER);
      if constexpr (requires { T::kOrgFromRow; }) {
        TextMove(host_.*Forms::kOrgIdRow, row->*Forms::kOrgIdRow, sizeof(host_.*Forms::kOrgIdRow));
      } else {
        TextMove(host_.*Forms::kOrgIdRow, system->CURRENT_ORG_ID,
                 sizeof(host_.*Forms::kOrgIdRow));
      }
      TakeValues(*row);
      Stamp(a, b, rc, *system);
      store::Insert(block, T::kInsert, &identify_state_, &host_, &entity_);
      if (store::StateIs(identify_state_.status, "OK")) {
        *written = entity_;
      } else if (store::StateIs(identify_state_.status, "DF")) {
        SetExit(rc, T::kAlreadyExists, T::kAlreadyExistsText, kKind);
      } else if (!PermittedValue(rc, identify_state_)) {
        store::FailOnStatus(block, identify_state_);
      }
    });
  }

  static void Modify(const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                     const SystemVariableView* system, const Row* row, Row* written) {
    store::RunActionBlock(&modify_unit_, id, a, b, rc, {&duplicate_cursor_, &modify_cursor_},
                          [&](store::Block& block) {
      Initialise(&modify_state_, written);
      if constexpr (requires { T::kDuplicateInWrite; }) {
        for (const RowAttribute& at : Forms::kAttributes)
          if (at.key) MoveValue(at, Place(&host_, at), Place(row, at));
        store::ReadForUpdate(block, &duplicate_cursor_, T::kReadDuplicateForUpdate,
                             &modify_state_, &host_, &entity_);
        if (store::StateIs(modify_state_.status, "OK")) {
          SetExit(rc, T::kAlreadyExists, T::kAlreadyExistsText, kKind);
          return;
        }
        if (!store::StateIs(modify_state_.status, "NF")) store::FailOnStatus(block, modify_state_);
        Initialise(&modify_state_, written);
      }
      KeyOf(*row);
      store::ReadForUpdate(block, &modify_cursor_, T::kReadForUpdate, &modify_state_, &host_,
                           &entity_);
      if (store::StateIs(modify_state_.status, "NF")) {
        SetExit(rc, T::kNotFound, T::kNotFoundText, kKind);
        return;
      }
      if (!store::StateIs(modify_state_.status, "OK")) store::FailOnStatus(block, modify_state_);
      host_ = entity_;
      TakeValues(*row);
      Stamp(a, b, rc, *system);
      store::Cursor* under = &modify_cursor_;
      if constexpr (requires { T::kUpdateByKey; }) under = nullptr;
      store::Update(block, T::kUpdate, &modify_state_, &host_, &entity_, under);
      if (store::StateIs(modify_state_.status, "OK")) {
        *written = entity_;
        return;
      }
      if constexpr (requires { T::kNotUnique; }) {
        if (store::StateIs(modify_state_.status, "DF")) {
          SetExit(rc, T::kNotUnique, T::kNotUniqueText, kKind);
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
      store::SelectOne(block, T::kSelectKey, &remove_state_, &host_, &entity_);
      if (store::StateIs(remove_state_.status, "NF")) {
        if constexpr (requires { T::kGone; }) {
          SetExit(rc, T::kGone, T::kGoneText, 'E');
        } else {
          SetExit(rc, T::kNotFound, T::kNotFoundText, 'E');
        }
        return;
      }
      if (!store::StateIs(remove_state_.status, "OK")) store::FailOnStatus(block, remove_state_);
      if constexpr (requires { T::kReferenceChecks; }) {
        for (const ReferenceCheck& check : T::kReferenceChecks) {
          ReferenceKey referring{};
          store::ResetEntity(&check_state_);
          store::SelectOne(block, *check.statement, &check_state_, &entity_, &referring);
          if (store::StateIs(check_state_.status, "OK")) {
            SetExit(rc, T::kInUse, check.text, 'E');
            return;
          }
          if (!store::StateIs(check_state_.status, "NF")) store::FailOnStatus(block, check_state_);
        }
      }
      const char* statement = nullptr;
      if constexpr (requires { T::kRemoveStatement; }) statement = T::kRemoveStatement;
      store::RemoveCurrentRow(block, a, b, rc, &remove_state_, &remove_record_, entry,
                              GetNumber(entity_.*Forms::kIsNumberRow),
                              entity_.*Forms::kOrgIdRow, statement, {}, id);
    });
  }

  static void Read(const UnitId& id, HandleA a, HandleB b, RunContext* rc, const Row* key,
                   Row* row) {
    store::RunActionBlock(&read_unit_, id, a, b, rc, {}, [&](store::Block& block) {
      Initialise(&read_state_, nullptr);
      KeyOf(*key);
      store::SelectOne(block, T::kSelectRow, &read_state_, &host_, &entity_);
      if (store::StateIs(read_state_.status, "NF")) {
        SetExit(rc, T::kNotFound, T::kNotFoundText, kKind);
        return;
      }
      if (!store::StateIs(read_state_.status, "OK")) store::FailOnStatus(block, read_state_);
      *row = entity_;
    });
  }

 private:
  static constexpr char kKind = [] {
    if constexpr (requires { T::kMessageKind; }) {
      return T::kMessageKind;
    } else {
      return 'N';
    }
  }();

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

  // "BP" as the table's exit state, where it has one; answers whether it did.
  static bool PermittedValue(RunContext* rc, const store::EntityState& state) {
    if constexpr (requires { T::kPermittedValue; }) {
      if (store::StateIs(state.status, "BP")) {
        SetExit(rc, T::kPermittedValue, T::kPermittedValueText, kKind);
        return true;
      }
    }
    return false;
  }

  // The initialising step: blank host and entity rows, the export row blank.
  static void Initialise(store::EntityState* state, Row* out) {
    store::ResetEntity(state);
    BlankRow(Forms::kAttributes, &host_);
    std::memcpy(host_.D_LAST_UPDATE_TIMESTAMP, kInitialTimestamp, kTimestampStorage);
    BlankRow(Forms::kAttributes, &entity_);
    if (out != nullptr) std::memset(out, 0, sizeof *out);
  }
  // The key of `row` into the host row.
  static void KeyOf(const Row& row) {
    std::memcpy(host_.*Forms::kIsNumberRow, row.*Forms::kIsNumberRow,
                sizeof(host_.*Forms::kIsNumberRow));
    TextMove(host_.*Forms::kOrgIdRow, row.*Forms::kOrgIdRow, sizeof(host_.*Forms::kOrgIdRow));
  }
  static void TakeValues(const Row& row) {
    for (const RowAttribute& at : Forms::kAttributes)
      if (IsValue(at)) MoveValue(at, Place(&host_, at), Place(&row, at));
  }
  // D_USERID_CODE := USER_ID_CODE, and the stamp of now.
  static void Stamp(HandleA a, HandleB b, RunContext* rc, const SystemVariableView& system) {
    TextMove(host_.D_USERID_CODE, system.USER_ID_CODE, sizeof host_.D_USERID_CODE);
    StampCurrentTimestamp(a, b, rc, host_.D_LAST_UPDATE_TIMESTAMP);
  }

  static inline UnitStorage duplicate_unit_, identify_unit_, modify_unit_, remove_unit_,
      read_unit_;
  static inline store::EntityState duplicate_state_, identify_state_, modify_state_,
      remove_state_, read_state_, check_state_;
  static inline store::Cursor modify_cursor_, duplicate_cursor_;
  static inline Row host_;    // the values a statement binds
  static inline Row entity_;  // the row read or written
  static inline store::CascadeRecord remove_record_;
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_ROW_BLOCKS_H_
