// The module's SQL communication area.
#include "store/sql_area.h"

#include <cstdio>
#include <cstring>

namespace lk::store {

Outcome Classify(int sqlcode) {
  switch (sqlcode) {
    case kSqlOk:
      return Outcome::kOk;
    case kSqlNotFound:
      return Outcome::kNotFound;
    case kSqlUnique:
      return Outcome::kUnique;
    default:
      return Outcome::kOther;
  }
}

SqlArea& ModuleSqlArea() {
  static SqlArea area{};
  return area;
}

void ClearSqlArea(SqlArea* area) {
  area->sqlcode = 0;
  area->rows = 0;
  area->code[0] = '\0';
  area->message[0] = '\0';
}

void FormatSqlArea(const SqlArea& area, char* out, int size) {
  if (out == nullptr || size <= 0) return;
  std::memset(out, 0, static_cast<std::size_t>(size));
  const char* sep = area.code[0] != '\0' && area.message[0] != '\0' ? ": " : "";
  std::snprintf(out, static_cast<std::size_t>(size), "[sqlcode %d, rows %lld] %s%s%s", area.sqlcode,
                static_cast<long long>(area.rows), area.code, sep, area.message);
}

}  // namespace lk::store
