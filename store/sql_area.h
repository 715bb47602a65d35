// The SQL communication area: what the last statement of the module left
// behind, and the sqlcode values that the action blocks tell apart.
//
// One area serves the whole module; every statement of the statement frame
// (store/statement.h) overwrites it. An action block reads three things of
// it: the sqlcode after every statement, the rows processed after an update,
// and the whole area, which the fatal path copies as text into
// RunContext.database_area.
//
// sqlcode: 0 success; 100 no row (select into, fetch); -1 unique constraint
// violated (insert, update); anything else is a failure, whatever its sign.
// The frame makes three outcomes of its own besides what the database says:
// kSqlNullFetched, kSqlNotInCodePage and kSqlFailed (every other refusal of
// the database, whose own code and text stand in the area).
//
// Thread safety: none. The module runs on one thread.
#ifndef WATRIX_STORE_SQL_AREA_H_
#define WATRIX_STORE_SQL_AREA_H_

#include <cstdint>

namespace lk::store {

constexpr int kSqlOk = 0;
constexpr int kSqlNotFound = 100;
constexpr int kSqlUnique = -1;
// A NULL came back for a column that has no indicator.
constexpr int kSqlNullFetched = -1405;
// Any other refusal of the database: a failed statement, a lost
// connection, a deadlock, a value too long, a conversion that failed.
constexpr int kSqlFailed = -2;
// A warning-like outcome: the row was delivered, but a text of it holds a
// character that code page 1252 cannot hold, so the view cannot take it.
constexpr int kSqlNotInCodePage = 1;

// How an action block reads a sqlcode: only these four are told apart.
enum class Outcome { kOk, kNotFound, kUnique, kOther };
Outcome Classify(int sqlcode);

struct SqlArea {
  int sqlcode;
  std::int64_t rows;   // rows processed by the last statement
  char code[16];       // the database's own code: SQLSTATE, SQLite's extended result code
  char message[200];   // the database's own words, first line
};

// The module's one area.
SqlArea& ModuleSqlArea();

// Empties `area`: sqlcode 0, no rows, no code, no message.
void ClearSqlArea(SqlArea* area);

// Writes `area` as one NUL-terminated text into `out` of `size` bytes:
// "[sqlcode -2, rows 0] 22012: division by zero". This is what a failure
// report shows as the database's words.
void FormatSqlArea(const SqlArea& area, char* out, int size);

}  // namespace lk::store

#endif  // WATRIX_STORE_SQL_AREA_H_
