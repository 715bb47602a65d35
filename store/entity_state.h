// The state that an action block keeps for each entity view it reads or
// writes: four two-character fields that record what happened to it.
//
//   status    "OK" done; "NF" no row; "DF" duplicate (unique violation);
//             "BP" a value to be written is not permitted; "IA" a value read
//             is not permitted; "DU" an update without a current, locked
//             row; "DB" the database failed (the fatal path).
//   currency  "OK" the view holds a current row; "DU" it holds none.
//   lock      "LK" the row is held by a FOR UPDATE cursor or was just
//             written; "UL" not held.
//   verb      "SL" select, "CR" create, "UP" update, "DL" delete,
//             "AS" associate, "DA" disassociate.
//
// Each field is two characters and a NUL. An action block's initialisation
// resets each of its entity states (currency "DU", lock "UL").
#ifndef WATRIX_STORE_ENTITY_STATE_H_
#define WATRIX_STORE_ENTITY_STATE_H_

namespace lk::store {

struct EntityState {
  char status[3];
  char currency[3];
  char lock[3];
  char verb[3];
};

// Puts `value` (two characters) into `field`.
void SetState(char* field, const char* value);

// True when `field` holds `value` (two characters).
bool StateIs(const char* field, const char* value);

// The initialisation of an action block: status "OK", currency "DU", lock
// "UL", verb "SL".
void ResetEntity(EntityState* entity);

}  // namespace lk::store

#endif  // WATRIX_STORE_ENTITY_STATE_H_
