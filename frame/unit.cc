// The entry protocol of units: identity, initialising step, failure.
#include "frame/unit.h"

#include <cstring>

#include "frame/views.h"

namespace lk {

namespace {

void PutDefaultTimestamps(char* view, const TimestampSlot* slots, bool only_empty) {
  if (slots == nullptr) return;
  for (const TimestampSlot* s = slots; s->location != 0; ++s) {
    const std::uint32_t rows = s->rows == 0 ? 1 : s->rows + 1;
    for (std::uint32_t r = 0; r < rows; ++r) {
      char* at = view + s->location + r * kTimestampStorage;
      if (!only_empty || at[0] == '\0') std::memcpy(at, kDefaultTimestamp, kTimestampStorage);
    }
  }
}

}  // namespace

void StoreUnitId(RunContext* rc, const UnitId& id) {
  std::strncpy(rc->unit_number, id.number, sizeof rc->unit_number - 1);
  rc->unit_number[sizeof rc->unit_number - 1] = '\0';
  std::strncpy(rc->unit_name, id.name, sizeof rc->unit_name - 1);
  rc->unit_name[sizeof rc->unit_name - 1] = '\0';
}

void InitialiseUnit(UnitStorage* unit, const ViewShape* shape, bool first_call) {
  std::memcpy(unit->status.ok, " OK ", 4);
  unit->status.words[0] = 0;
  unit->status.words[1] = 0;
  std::memcpy(unit->status.version, "0500", 4);
  unit->status.mark = 'U';
  if (first_call && shape != nullptr) {
    char* exp = static_cast<char*>(unit->export_view);
    std::memset(exp, 0, shape->export_size);
    PutDefaultTimestamps(exp, shape->export_timestamps, /*only_empty=*/false);
    PutDefaultTimestamps(static_cast<char*>(unit->import_view), shape->import_timestamps,
                         /*only_empty=*/true);
  }
}

void Fail(RunContext* rc, const char* status, const char* detail, std::uint32_t site,
          int jump) {
  std::memcpy(rc->status, status, 2);
  rc->status[2] = '\0';
  std::memcpy(rc->status_detail, detail, 2);
  rc->status_detail[2] = '\0';
  rc->fail_site = site;
  throw UnitAbort{jump};
}

void CheckCallee(RunContext* rc) {
  const bool blank = (rc->status[0] == ' ' || rc->status[0] == '\0') &&
                     (rc->status[1] == ' ' || rc->status[1] == '\0');
  if (!blank || rc->run_mode != ' ' || rc->subscript_fault != ' ') throw UnitAbort{0x100};
}

void CheckSubscript(RunContext* rc, int subscript, int limit) {
  if (subscript < 1 || subscript > limit) {
    rc->subscript_fault = 'Y';
    throw UnitAbort{0x100};
  }
}

}  // namespace lk
