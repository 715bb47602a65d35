// The cascade step service (the runtime service of role "cascade step"):
// it knows which dependent rows of the current cascade remain, and tells a
// REMOVE action block, one at a time, the rule and relationship of the next
// and the key of the row.
//
// The queue. Each cascade record (by its address) has one queue of pending
// dependants. Every root entry call starts it afresh: a root entry of a rule
// with dependent steps fills it with one row per dependant that it found
// (in the order of its step rules, their relationships, then the
// dependant's key) and keeps the root row's key beside them; any other root
// entry leaves it empty. The queue lives in memory, not in the database: it
// belongs to one call of a REMOVE action block and means nothing once that
// call has ended. The one runtime thread calls the service; it takes no
// lock.
//
// The requests, by the record's first byte:
//  - 'N', with the text "4.2.": moves on to the next pending row, which
//    becomes the presented row. If there is one: result "OK", rule and
//    relationship of that row. If none remains: result "NF", rule and
//    relationship 0, and the queue is dropped. A row that was presented and
//    not asked for is passed over by the next 'N'.
//  - 'R', with a dependent key descriptor (store/cascade.h): writes the key
//    of the presented row into the message area in the descriptor's layout;
//    result "OK". Result "RQ" when no row is presented, or when the
//    descriptor does not fit its key (other column count, kinds or sizes).
//  - Anything else: result "RQ".
// The service changes nothing in the database.
#ifndef WATRIX_STORE_CASCADE_STEP_H_
#define WATRIX_STORE_CASCADE_STEP_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "frame/entry.h"
#include "store/cascade.h"

namespace lk::store {

// One value of a key: a number or a text.
struct KeyValue {
  bool is_text = false;
  double number = 0;
  std::string text;
};

// A pending dependant: the step rule and relationship that reach it, and its
// own key (IS number, ORG ID for every rule of this schema).
struct PendingRow {
  std::uint32_t rule = 0;
  std::uint32_t relationship = 0;
  std::vector<KeyValue> key;
};

void CascadeStep(HandleA a, HandleB b, CascadeRecord* record, const char* descriptor);

// Starts the queue of `record` afresh: the key of the cascade's root row (as
// the root entry's rule lists its key columns) and the pending dependants
// (none: no pending work).
void StartPendingQueue(const CascadeRecord* record, std::vector<KeyValue> root_key,
                       std::vector<PendingRow> rows);

// The root row's key of the cascade that `record` runs while dependants are
// pending; null when there are none. Dependent step entries find their rows
// with it.
const std::vector<KeyValue>* CascadeRootKey(const CascadeRecord* record);

// The rows not yet presented, for tests and diagnostics.
std::size_t PendingCount(const CascadeRecord* record);

}  // namespace lk::store

#endif  // WATRIX_STORE_CASCADE_STEP_H_
