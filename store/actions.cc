// The algorithms of the action blocks over the statement frame.
#include "store/actions.h"

namespace lk::store {

namespace {

// Starts an action on `state`: status "OK" and the verb.
void Start(EntityState* state, const char* verb) {
  SetState(state->status, "OK");
  SetState(state->verb, verb);
}

}  // namespace

void SelectOne(Block& block, const StatementDef& s, EntityState* state, const void* in,
               void* entity) {
  Start(state, "SL");
  SetState(state->lock, "UL");
  if (!CheckWrite(block, s, in, state)) return;
  SetState(state->currency, "OK");
  switch (Classify(SelectInto(block, s, in, entity))) {
    case Outcome::kOk:
      SetState(state->currency, CheckRead(block, s, entity, state) ? "OK" : "DU");
      return;
    case Outcome::kNotFound:
      SetState(state->status, "NF");
      SetState(state->currency, "DU");
      return;
    default:
      FailStatement(block, s, state);
  }
}

void ReadForUpdate(Block& block, Cursor* cursor, const StatementDef& s, EntityState* state,
                   const void* in, void* entity) {
  Start(state, "SL");
  SetState(state->lock, "UL");
  if (!CheckWrite(block, s, in, state)) return;
  SetState(state->currency, "OK");
  SetState(state->lock, "LK");
  if (cursor->open()) cursor->Close();
  // There is no "not found" on an open.
  if (cursor->Open(block, s, in) != kSqlOk) FailStatement(block, s, state);
  switch (Classify(cursor->Fetch(block, entity))) {
    case Outcome::kOk:
      if (!CheckRead(block, s, entity, state)) {
        SetState(state->currency, "DU");
        SetState(state->lock, "UL");
      }
      return;
    case Outcome::kNotFound:
      SetState(state->status, "NF");
      SetState(state->currency, "DU");
      SetState(state->lock, "UL");
      return;
    default:
      FailStatement(block, s, state);
  }
}

void Update(Block& block, const StatementDef& s, EntityState* state, const void* in,
            void* entity, Cursor* cursor) {
  Start(state, "UP");
  if (StateIs(state->currency, "DU") || StateIs(state->lock, "UL")) {
    SetState(state->status, "DU");
    FailOnStatus(block, *state);
  }
  if (!CheckWrite(block, s, in, state)) return;
  const int sqlcode =
      cursor != nullptr ? cursor->UpdateCurrent(block, s, in) : Execute(block, s, in);
  switch (Classify(sqlcode)) {
    case Outcome::kOk:
      // An update that found no row, though its row was held, is fatal.
      if (ModuleSqlArea().rows != 1) FailStatement(block, s, state);
      CopyWritten(s, in, entity);
      SetState(state->currency, "OK");
      SetState(state->lock, "LK");
      return;
    case Outcome::kUnique:
      SetState(state->status, "DF");
      SetState(state->currency, "DU");
      return;
    default:
      FailStatement(block, s, state);
  }
}

void Insert(Block& block, const StatementDef& s, EntityState* state, const void* in,
            void* entity) {
  Start(state, "CR");
  if (!CheckWrite(block, s, in, state)) return;
  switch (Classify(Execute(block, s, in))) {
    case Outcome::kOk:
      CopyWritten(s, in, entity);
      SetState(state->currency, "OK");
      SetState(state->lock, "LK");
      return;
    case Outcome::kUnique:
      SetState(state->status, "DF");
      SetState(state->currency, "DU");
      return;
    default:
      FailStatement(block, s, state);
  }
}

namespace internal {

namespace {

// A fetched row: "OK" and true, or the read check's "IA" and false; 100
// gives "NF"; anything else is fatal.
bool Took(Block& block, const StatementDef& s, EntityState* state, void* entity, int sqlcode) {
  switch (Classify(sqlcode)) {
    case Outcome::kOk:
      SetState(state->currency, "OK");
      return CheckRead(block, s, entity, state);
    case Outcome::kNotFound:
      SetState(state->status, "NF");
      SetState(state->currency, "DU");
      return false;
    default:
      FailStatement(block, s, state);
  }
}

}  // namespace

bool OpenList(Block& block, Cursor* cursor, const StatementDef& s, EntityState* state,
              const void* in, void* entity) {
  Start(state, "SL");
  SetState(state->lock, "UL");
  if (!CheckWrite(block, s, in, state)) return false;
  if (cursor->open()) cursor->Close();
  if (cursor->Open(block, s, in) != kSqlOk) FailStatement(block, s, state);
  return Took(block, s, state, entity, cursor->Fetch(block, entity));
}

bool NextRow(Block& block, Cursor* cursor, const StatementDef& s, EntityState* state,
             void* entity) {
  return Took(block, s, state, entity, cursor->Fetch(block, entity));
}

void EndList(Block& block, Cursor* cursor, EntityState* state) {
  cursor->Close();
  SetState(state->currency, "DU");
  if (!StateIs(state->status, "OK") && !StateIs(state->status, "NF"))
    FailOnStatus(block, *state);
}

}  // namespace internal

}  // namespace lk::store
