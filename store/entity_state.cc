// The entity state of an action block.
#include "store/entity_state.h"

namespace lk::store {

void SetState(char* field, const char* value) {
  field[0] = value[0];
  field[1] = value[1];
  field[2] = '\0';
}

bool StateIs(const char* field, const char* value) {
  return field[0] == value[0] && field[1] == value[1];
}

void ResetEntity(EntityState* entity) {
  SetState(entity->status, "OK");
  SetState(entity->currency, "DU");
  SetState(entity->lock, "UL");
  SetState(entity->verb, "SL");
}

}  // namespace lk::store
