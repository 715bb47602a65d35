// The algorithms of the action blocks over the statement frame: select of
// one row, read of a list, read for update, update, insert. Each keeps the
// entity state as the blocks expect it and takes the fatal path itself for
// any sqlcode it does not know, so that an action block says only which
// statement, which records, and what its branches do.
//
// Records: `in` holds the inputs of the statement (keys, new values),
// `entity` is the entity view that takes the row read or the values
// written. They may be the same record.
//
// What is left in EntityState::status for the block's own branches:
//   SelectOne      "OK", "NF", "BP" (a key not permitted), "IA"
//   ReadForUpdate  "OK", "NF", "BP", "IA"
//   Update         "OK", "DF", "BP"   (a failed guard is fatal with "DU")
//   Insert         "OK", "DF", "BP"
//   ReadList       "NF" when it ran to the end of the rows (also for a
//                  list of none), "OK" when take() escaped; anything else
//                  is fatal
// A status without a branch goes to FailOnStatus at the end of the body.
#ifndef WATRIX_STORE_ACTIONS_H_
#define WATRIX_STORE_ACTIONS_H_

#include "store/statement.h"

namespace lk::store {

// Select of one row: a select into with the key in the predicate. "OK"
// leaves the row in `entity` with currency "OK"; "NF" currency "DU". A
// select that matches several rows takes the first.
void SelectOne(Block& block, const StatementDef& s, EntityState* state, const void* in,
               void* entity);

// Read for update: closes `cursor` if its flag is still "Y", opens it
// (waiting for a row that another client holds), fetches one row. "OK":
// currency "OK", lock "LK"; otherwise currency "DU", lock "UL". The cursor
// stays open to the end of the block (RunActionBlock closes it).
void ReadForUpdate(Block& block, Cursor* cursor, const StatementDef& s, EntityState* state,
                   const void* in, void* entity);

// Update of the current row: the guard (currency "OK" and lock "LK", else
// fatal with detail "DU"), the write check ("BP", no statement), then an
// update of the row under `cursor`, or by the key in `s` when cursor is
// null. One row processed: the values written go into `entity`, currency
// "OK", lock "LK". -1: "DF", currency "DU". No row processed, or any other
// sqlcode: fatal.
void Update(Block& block, const StatementDef& s, EntityState* state, const void* in,
            void* entity, Cursor* cursor = nullptr);

// Insert: the write check ("BP", no statement), then the insert. 0: the
// values written go into `entity`, currency "OK", lock "LK". -1: "DF",
// currency "DU". Any other: fatal.
void Insert(Block& block, const StatementDef& s, EntityState* state, const void* in,
            void* entity);

// Read of a list: opens `cursor`, fetches row by row into `entity` and
// calls take() for each; take() answers false to escape (a full group).
// The cursor is closed on both ways out, currency is "DU" after it, and a
// list that yields nothing leaves "NF" and no call of take(). A status other
// than "OK" or "NF" (a row not permitted, "IA") is fatal with that status.
template <typename Take>
void ReadList(Block& block, Cursor* cursor, const StatementDef& s, EntityState* state,
              const void* in, void* entity, Take&& take);

// ---- Pieces of ReadList ----
namespace internal {
// Opens the list and fetches the first row: true while a row stands in
// `entity` ("OK").
bool OpenList(Block& block, Cursor* cursor, const StatementDef& s, EntityState* state,
              const void* in, void* entity);
// Fetches the next row: true while a row stands in `entity`.
bool NextRow(Block& block, Cursor* cursor, const StatementDef& s, EntityState* state,
             void* entity);
// Closes the list and settles its status.
void EndList(Block& block, Cursor* cursor, EntityState* state);
}  // namespace internal

template <typename Take>
void ReadList(Block& block, Cursor* cursor, const StatementDef& s, EntityState* state,
              const void* in, void* entity, Take&& take) {
  bool row = internal::OpenList(block, cursor, s, state, in, entity);
  while (row) {
    if (!take()) break;
    row = internal::NextRow(block, cursor, s, state, entity);
  }
  internal::EndList(block, cursor, state);
}

}  // namespace lk::store

#endif  // WATRIX_STORE_ACTIONS_H_
