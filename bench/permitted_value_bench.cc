// What a page move of the permitted value list costs on the server, beside
// the bare read of the rows it shows.
//
// TSMPRMVL holds 1,000,000 rows of one organisation: 50 TABLE_NAMEs x 200
// FIELD_NAMEs x 100 SEQUENCE_NUMBERs, each with a FIELD_VALUE of its own
// (WATRIX_BENCH_ROWS takes fewer tables, 20,000 rows each, one at least).
// Row i in key order has the IS number i + 1. A host session (Session over
// liblkbase.so, SociStore) opens the list RT2 from the menu's
// "Permitted &Value" and walks it with "Next" to the page whose first row
// is row m, near the middle. Then, on SQLite and on PostgreSQL:
//   BM_PvNext     "Next" (PictureButton2) clicked on that page: rows m+1999
//                 to m+3998, the former last row first. "Prev" brings the
//                 page back between iterations, untimed.
//   BM_PvPrev     "Prev" (PictureButton1) clicked on that page: rows m-1999
//                 to m, the former first row last. "Next" brings the page
//                 back between iterations, untimed.
//   BM_FramePage  the module's page statement (the same text: from the key
//                 on within the ORG ID, or back from it over every
//                 organisation, LIMIT 2000) through the statement frame
//                 (ReadList) into a group of 2000 rows, outside any window.
//   BM_CApiPage   the same statement through sqlite3_prepare/step or
//                 libpq's PQexecParams, into the same group.
// Only the event is timed: the flow through the session, READ_PERMITTED_
// VALUE_LIST with its look-ahead, the window written and the SCREEN built
// as the JSON text the HTTP interface sends (Session::EventText), in one
// transaction; the text is parsed and checked after it. Every event must show the 2000 rows expected in key
// order, the former last (Next) or first (Prev) row in its place, and both
// picture buttons enabled, or the benchmark stops with an error. Before
// timing, the frame's and the C API's pages are compared row by row, and
// the C API's keys and values with the rows the list shows after each move.
// The figures stand side by side at the end.
//
// PostgreSQL runs in a private cluster (tests/pg), or at WATRIX_BENCH_PG.
#include <limits.h>
#include <sqlite3.h>
#include <stdlib.h>
#include <unistd.h>

#include <libpq-fe.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include "frame/host_port.h"
#include "frame/run_context.h"
#include "frame/unit.h"
#include "host/modules.h"
#include "host/session.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/store_port.h"
#include "bench/bench_databases.h"
#include "bench/medians.h"
#include "bench/program_dir.h"
#include "tests/pg/pg_cluster.h"

namespace watrix {
namespace {

using lk::store::Dialect;
using nlohmann::json;

constexpr int kPage = 2000;
constexpr int kStep = kPage - 1;  // a move keeps one row of the page it leaves
constexpr int kFields = 200;
constexpr int kSequences = 100;
constexpr int kTableRows = kFields * kSequences;
int g_tables = 50;
int g_rows = 50 * kTableRows;
int g_middle = 0;  // the first row of the page the moves start from

constexpr char kOrg[] = "ZZZZZZZZ";
constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kList[] = "RT2_PERMITTED_VALUE_MAINT_LIST";
constexpr char kPrev[] = "PictureButton1";
constexpr char kNext[] = "PictureButton2";

// ---- The rows ----

// Row i's key and value, as the database holds them.
struct Key {
  char table[9];
  char field[21];
  int sequence;
  char value[41];
};
Key KeyOf(int i) {
  Key k{};
  std::snprintf(k.table, sizeof k.table, "TAB%05u", static_cast<unsigned>(i / kTableRows) % 100000);
  std::snprintf(k.field, sizeof k.field, "FIELD_NAME_%03d", (i / kSequences) % kFields);
  k.sequence = i % kSequences + 1;
  std::snprintf(k.value, sizeof k.value, "VALUE %07d", i);
  return k;
}
constexpr char kDescTail[] = " of the bench table, a description of ordinary length";
std::string DescOf(int i) { return "Permitted value " + std::to_string(i) + kDescTail; }

// A group of 2000 rows, as the list's export holds it (rows from 1).
struct Group {
  int count;
  double is[kPage + 1];
  char org[kPage + 1][9];
  char table[kPage + 1][9];
  char field[kPage + 1][21];
  double sequence[kPage + 1];
  char value[kPage + 1][41];
  char desc[kPage + 1][255];
  char user[kPage + 1][9];
  char ts[kPage + 1][21];
};

// ---- Through the statement frame ----

struct Bind {
  char CURRENT_ORG_ID[9];
  char TABLE_NAME[9];
  char FIELD_NAME[21];
  double SEQUENCE_NUMBER;
};
struct Row {
  double TSMPRMVL_IS_NUMBER;
  char TSMPRMVL_ORG_ID[9];
  char TABLE_NAME[9];
  char FIELD_NAME[21];
  double SEQUENCE_NUMBER;
  char FIELD_VALUE[41];
  char FIELD_DESCRIPTION[255];
  char D_USERID_CODE[9];
  char D_LAST_UPDATE_TIMESTAMP[21];
};
using lk::store::HostChar;
using lk::store::HostVarchar;
constexpr lk::store::HostColumn kBind[] = {
    HostChar("CURRENT_ORG_ID", 8, LK_PLACE(Bind, CURRENT_ORG_ID)),
    HostChar("TABLE_NAME", 8, LK_PLACE(Bind, TABLE_NAME)),
    HostVarchar("FIELD_NAME", 20, LK_PLACE(Bind, FIELD_NAME)),
    lk::store::HostSmall("SEQUENCE_NUMBER", LK_PLACE(Bind, SEQUENCE_NUMBER)),
};
constexpr lk::store::HostColumn kColumns[] = {
    lk::store::HostNumber("TSMPRMVL_IS_NUMBER", LK_PLACE(Row, TSMPRMVL_IS_NUMBER)),
    HostChar("TSMPRMVL_ORG_ID", 8, LK_PLACE(Row, TSMPRMVL_ORG_ID)),
    HostChar("TABLE_NAME", 8, LK_PLACE(Row, TABLE_NAME)),
    HostVarchar("FIELD_NAME", 20, LK_PLACE(Row, FIELD_NAME)),
    lk::store::HostSmall("SEQUENCE_NUMBER", LK_PLACE(Row, SEQUENCE_NUMBER), lk::store::kNullable),
    HostVarchar("FIELD_VALUE", 40, LK_PLACE(Row, FIELD_VALUE), lk::store::kNullable),
    HostVarchar("FIELD_DESC", 254, LK_PLACE(Row, FIELD_DESCRIPTION), lk::store::kNullable),
    HostChar("D_USERID_CODE", 8, LK_PLACE(Row, D_USERID_CODE)),
    lk::store::HostDate("D_LAST_UPDATE_TS", LK_PLACE(Row, D_LAST_UPDATE_TIMESTAMP)),
};

// The list's own statements (permitted_value_blocks.cc), with the
// placeholders left to each reader: forward (org, table, table, field,
// sequence), backward (table, table, field, sequence).
#define PV_SELECT                                                                         \
  "SELECT TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID, TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER, " \
  "FIELD_VALUE, FIELD_DESC, D_USERID_CODE, D_LAST_UPDATE_TS FROM TSMPRMVL "
#define PV_FORWARD                                                              \
  "WHERE TSMPRMVL_ORG_ID = %s AND TABLE_NAME >= %s "                            \
  "AND (TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER) >= (%s, %s, %s) "              \
  "ORDER BY TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER LIMIT 2000"
#define PV_BACKWARD                                                             \
  "WHERE TABLE_NAME <= %s "                                                     \
  "AND (TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER) <= (%s, %s, %s) "              \
  "ORDER BY TABLE_NAME DESC, FIELD_NAME DESC, SEQUENCE_NUMBER DESC LIMIT 2000"

constexpr lk::store::StatementDef kForward = {
    "0000000001", 1,
    PV_SELECT
    "WHERE TSMPRMVL_ORG_ID = :CURRENT_ORG_ID AND TABLE_NAME >= :TABLE_NAME "
    "AND (TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER) >= (:TABLE_NAME, :FIELD_NAME, "
    ":SEQUENCE_NUMBER) ORDER BY TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER LIMIT 2000",
    kBind, kColumns};
constexpr lk::store::StatementDef kBackward = {
    "0000000002", 2,
    PV_SELECT
    "WHERE TABLE_NAME <= :TABLE_NAME "
    "AND (TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER) <= (:TABLE_NAME, :FIELD_NAME, "
    ":SEQUENCE_NUMBER) ORDER BY TABLE_NAME DESC, FIELD_NAME DESC, SEQUENCE_NUMBER DESC "
    "LIMIT 2000",
    kBind, kColumns};

// One backend: the session, the frame's connection and the C API's own.
struct Backend {
  Dialect dialect;
  std::string url;
  std::unique_ptr<Session> session;
  std::unique_ptr<lk::store::Database> db;
  lk::SessionPort port{};
  lk::RunContext rc{};
  char area[lk::kDatabaseAreaSize] = {};
  sqlite3* lite = nullptr;
  PGconn* pg = nullptr;
};
Backend g_backends[2];

const lk::UnitId kPageUnit = {"0000088201", "READ_BENCH_PERMITTED_VALUE_PAGE"};

// The page from row `key` on (forward) or back to it, the key's row
// included either way; a backward page fills the group from row 2000
// down, as the list does, so that both read in key order.
void FramePage(Backend& be, bool forward, int key, Group* group) {
  static lk::UnitStorage unit;
  static lk::store::Cursor cursor;
  static lk::store::EntityState state;
  static Bind bind;
  static Row row;
  be.rc.run_mode = ' ';
  lk::store::RunActionBlock(&unit, kPageUnit, &be.port, nullptr, &be.rc, {&cursor},
                            [&](lk::store::Block& block) {
    lk::store::ResetEntity(&state);
    const Key k = KeyOf(key);
    lk::TextMove(bind.CURRENT_ORG_ID, kOrg, sizeof bind.CURRENT_ORG_ID);
    lk::TextMove(bind.TABLE_NAME, k.table, sizeof bind.TABLE_NAME);
    lk::BoundedCopy(bind.FIELD_NAME, k.field, sizeof bind.FIELD_NAME);
    bind.SEQUENCE_NUMBER = k.sequence;
    group->count = 0;
    int r = forward ? 0 : kPage + 1;
    lk::store::ReadList(block, &cursor, forward ? kForward : kBackward, &state, &bind, &row, [&] {
      r += forward ? 1 : -1;
      ++group->count;
      group->is[r] = row.TSMPRMVL_IS_NUMBER;
      lk::TextMove(group->org[r], row.TSMPRMVL_ORG_ID, 9);
      lk::TextMove(group->table[r], row.TABLE_NAME, 9);
      lk::BoundedCopy(group->field[r], row.FIELD_NAME, 21);
      group->sequence[r] = row.SEQUENCE_NUMBER;
      lk::BoundedCopy(group->value[r], row.FIELD_VALUE, 41);
      lk::BoundedCopy(group->desc[r], row.FIELD_DESCRIPTION, 255);
      lk::TextMove(group->user[r], row.D_USERID_CODE, 9);
      std::memcpy(group->ts[r], row.D_LAST_UPDATE_TIMESTAMP, 21);
      return group->count < kPage;
    });
  });
}

// ---- Through the C APIs ----

// "YYYY-MM-DD HH:MM:SS" -> 20 digits.
void Digits(const char* text, char* out) {
  static const int kAt[14] = {0, 1, 2, 3, 5, 6, 8, 9, 11, 12, 14, 15, 17, 18};
  for (int i = 0; i < 14; ++i) out[i] = text[kAt[i]];
  std::memset(out + 14, '0', 6);
  out[20] = '\0';
}

// Stores one row of a C API answer at its place in the group.
void Take(Group* group, bool forward, double is, const char* org, const char* table,
          const char* field, double sequence, const char* value, const char* desc,
          const char* user, const char* ts) {
  const int r = forward ? ++group->count : kPage + 1 - ++group->count;
  group->is[r] = is;
  bench::Fixed(group->org[r], org, 9);
  bench::Fixed(group->table[r], table, 9);
  std::snprintf(group->field[r], 21, "%s", field);
  group->sequence[r] = sequence;
  std::snprintf(group->value[r], 41, "%s", value);
  std::snprintf(group->desc[r], 255, "%s", desc);
  bench::Fixed(group->user[r], user, 9);
  Digits(ts, group->ts[r]);
}

const char* Text(sqlite3_stmt* st, int column) {
  return reinterpret_cast<const char*>(sqlite3_column_text(st, column));
}

void SqlitePage(Backend& be, bool forward, int key, Group* group) {
  static std::string text[2];
  if (text[0].empty()) {
    char buffer[1024];
    std::snprintf(buffer, sizeof buffer, PV_SELECT PV_BACKWARD, "?2", "?2", "?3", "?4");
    text[0] = buffer;
    std::snprintf(buffer, sizeof buffer, PV_SELECT PV_FORWARD, "?1", "?2", "?2", "?3", "?4");
    text[1] = buffer;
  }
  const Key k = KeyOf(key);
  sqlite3_stmt* st = nullptr;
  group->count = 0;
  if (sqlite3_prepare_v2(be.lite, text[forward].c_str(), -1, &st, nullptr) != SQLITE_OK) return;
  if (forward) sqlite3_bind_text(st, 1, kOrg, -1, SQLITE_STATIC);
  sqlite3_bind_text(st, 2, k.table, -1, SQLITE_STATIC);
  sqlite3_bind_text(st, 3, k.field, -1, SQLITE_STATIC);
  sqlite3_bind_int(st, 4, k.sequence);
  while (group->count < kPage && sqlite3_step(st) == SQLITE_ROW) {
    Take(group, forward, sqlite3_column_double(st, 0), Text(st, 1), Text(st, 2), Text(st, 3),
         sqlite3_column_double(st, 4), Text(st, 5), Text(st, 6), Text(st, 7), Text(st, 8));
  }
  sqlite3_finalize(st);
}

void PgPage(Backend& be, bool forward, int key, Group* group) {
  static std::string text[2];
  if (text[0].empty()) {
    char buffer[1024];
    std::snprintf(buffer, sizeof buffer, PV_SELECT PV_BACKWARD, "$1", "$1", "$2", "$3");
    text[0] = buffer;
    std::snprintf(buffer, sizeof buffer, PV_SELECT PV_FORWARD, "$1", "$2", "$2", "$3", "$4");
    text[1] = buffer;
  }
  const Key k = KeyOf(key);
  const std::string sequence = std::to_string(k.sequence);
  const char* values[4] = {kOrg, k.table, k.field, sequence.c_str()};
  PGresult* res = PQexecParams(be.pg, text[forward].c_str(), forward ? 4 : 3, nullptr,
                               forward ? values : values + 1, nullptr, nullptr, 0);
  group->count = 0;
  if (PQresultStatus(res) == PGRES_TUPLES_OK) {
    const int n = std::min(PQntuples(res), kPage);
    for (int t = 0; t < n; ++t) {
      Take(group, forward, std::atof(PQgetvalue(res, t, 0)), PQgetvalue(res, t, 1),
           PQgetvalue(res, t, 2), PQgetvalue(res, t, 3), std::atof(PQgetvalue(res, t, 4)),
           PQgetvalue(res, t, 5), PQgetvalue(res, t, 6), PQgetvalue(res, t, 7),
           PQgetvalue(res, t, 8));
    }
  }
  PQclear(res);
}

void CApiPage(Backend& be, bool forward, int key, Group* group) {
  if (be.dialect == Dialect::kSqlite) {
    SqlitePage(be, forward, key, group);
  } else {
    PgPage(be, forward, key, group);
  }
}

// ---- Building the table ----

bool Fail(const std::string& why) { return bench::Fail("permitted_value_bench", why); }

bool BuildSqlite(Backend& be) {
  if (sqlite3_open(be.url.substr(7).c_str(), &be.lite) != SQLITE_OK) return Fail("sqlite3_open");
  sqlite3_exec(be.lite, "BEGIN", nullptr, nullptr, nullptr);
  sqlite3_stmt* st = nullptr;
  if (sqlite3_prepare_v2(be.lite,
                         "INSERT INTO TSMPRMVL (TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID, TABLE_NAME, "
                         "FIELD_NAME, SEQUENCE_NUMBER, FIELD_VALUE, FIELD_DESC, D_USERID_CODE, "
                         "D_LAST_UPDATE_TS) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, 'LOADER', "
                         "'2024-01-01 00:00:00')",
                         -1, &st, nullptr) != SQLITE_OK)
    return Fail(sqlite3_errmsg(be.lite));
  for (int i = 0; i < g_rows; ++i) {
    const Key k = KeyOf(i);
    const std::string desc = DescOf(i);
    sqlite3_bind_int64(st, 1, i + 1);
    sqlite3_bind_text(st, 2, kOrg, -1, SQLITE_STATIC);
    sqlite3_bind_text(st, 3, k.table, -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(st, 4, k.field, -1, SQLITE_TRANSIENT);
    sqlite3_bind_int(st, 5, k.sequence);
    sqlite3_bind_text(st, 6, k.value, -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(st, 7, desc.c_str(), -1, SQLITE_TRANSIENT);
    if (sqlite3_step(st) != SQLITE_DONE) return Fail(sqlite3_errmsg(be.lite));
    sqlite3_reset(st);
  }
  sqlite3_finalize(st);
  char* error = nullptr;
  if (sqlite3_exec(be.lite, "COMMIT", nullptr, nullptr, &error) != SQLITE_OK)
    return Fail(error != nullptr ? error : "COMMIT");
  sqlite3_exec(be.lite, "ANALYZE", nullptr, nullptr, nullptr);
  return true;
}

bool BuildPostgres(Backend& be) {
  be.pg = PQconnectdb(be.url.c_str());
  if (PQstatus(be.pg) != CONNECTION_OK) return Fail(PQerrorMessage(be.pg));
  // The same rows as KeyOf and DescOf make.
  const std::string insert =
      "INSERT INTO TSMPRMVL (TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID, TABLE_NAME, FIELD_NAME, "
      "SEQUENCE_NUMBER, FIELD_VALUE, FIELD_DESC, D_USERID_CODE, D_LAST_UPDATE_TS) "
      "SELECT g + 1, '" + std::string(kOrg) + "', 'TAB' || lpad((g / " +
      std::to_string(kTableRows) + ")::text, 5, '0'), 'FIELD_NAME_' || lpad(((g / " +
      std::to_string(kSequences) + ") % " + std::to_string(kFields) + ")::text, 3, '0'), (g % " +
      std::to_string(kSequences) + " + 1)::smallint, 'VALUE ' || lpad(g::text, 7, '0'), "
      "'Permitted value ' || g || '" + kDescTail + "', 'LOADER', '2024-01-01 00:00:00' "
      "FROM generate_series(0, " + std::to_string(g_rows - 1) + ") g";
  for (const std::string& sql : {std::string("BEGIN"), insert, std::string("COMMIT"),
                                 std::string("ANALYZE TSMPRMVL")}) {
    PGresult* res = PQexec(be.pg, sql.c_str());
    const ExecStatusType status = PQresultStatus(res);
    PQclear(res);
    if (status != PGRES_COMMAND_OK) return Fail(sql.substr(0, 40) + ": " + PQerrorMessage(be.pg));
  }
  return true;
}

// ---- Checking the answers ----

std::string Trim(const std::string& s) {
  const std::size_t from = s.find_first_not_of(' ');
  if (from == std::string::npos) return "";
  return s.substr(from, s.find_last_not_of(' ') - from + 1);
}

// Whether the group holds rows `first` to `first` + 1999, whole.
bool GroupHolds(const Group& g, int first, std::string* why) {
  if (g.count != kPage) {
    *why = "a group of " + std::to_string(g.count) + " rows";
    return false;
  }
  for (int r = 1; r <= kPage; ++r) {
    const int i = first + r - 1;
    const Key k = KeyOf(i);
    if (g.is[r] != i + 1 || Trim(g.org[r]) != kOrg || Trim(g.table[r]) != k.table ||
        std::strcmp(g.field[r], k.field) != 0 || g.sequence[r] != k.sequence ||
        std::strcmp(g.value[r], k.value) != 0 || g.desc[r] != DescOf(i) ||
        Trim(g.user[r]) != "LOADER" || std::strcmp(g.ts[r], "20240101000000000000") != 0) {
      *why = "group row " + std::to_string(r) + " is not row " + std::to_string(i) + ": " +
             g.table[r] + " " + g.field[r] + " " + std::to_string(g.sequence[r]);
      return false;
    }
  }
  return true;
}

bool SameGroup(const Group& a, const Group& b, std::string* why) {
  if (a.count != b.count) {
    *why = "counts " + std::to_string(a.count) + " and " + std::to_string(b.count);
    return false;
  }
  for (int r = 1; r <= a.count; ++r) {
    if (a.is[r] != b.is[r] || std::strcmp(a.org[r], b.org[r]) != 0 ||
        std::strcmp(a.table[r], b.table[r]) != 0 || std::strcmp(a.field[r], b.field[r]) != 0 ||
        a.sequence[r] != b.sequence[r] || std::strcmp(a.value[r], b.value[r]) != 0 ||
        std::strcmp(a.desc[r], b.desc[r]) != 0 || std::strcmp(a.user[r], b.user[r]) != 0 ||
        std::strcmp(a.ts[r], b.ts[r]) != 0) {
      *why = "row " + std::to_string(r) + ": " + a.field[r] + " / " + b.field[r];
      return false;
    }
  }
  return true;
}

const json* ListOf(const json& screen, const json** window, std::string* why) {
  if (!screen["failure"].is_null()) {
    *why = "failure " + screen["failure"].dump();
    return nullptr;
  }
  const json& windows = screen["windows"];
  if (windows.size() != 1 || windows[0]["name"] != kList) {
    *why = "windows " + windows.dump().substr(0, 200);
    return nullptr;
  }
  *window = &windows[0];
  for (const json& c : windows[0]["controls"])
    if (c["type"] == "list") return &c["rows"];
  *why = "no list";
  return nullptr;
}

bool Enabled(const json& window, const char* name) {
  for (const json& c : window["controls"])
    if (c["name"] == name) return c["enabled"] == true;
  return false;
}

// Whether a row of the list shows row i: its table, field, sequence and value.
bool RowShows(const json& row, int i) {
  const Key k = KeyOf(i);
  const json& cells = row["cells"];
  return cells.size() == 4 && Trim(cells[0].get<std::string>()) == k.table &&
         Trim(cells[1].get<std::string>()) == k.field &&
         Trim(cells[2].get<std::string>()) == std::to_string(k.sequence) &&
         Trim(cells[3].get<std::string>()) == k.value;
}

// Checks a SCREEN after a move: the list with rows `first` to `first` +
// 1999 in key order, and the picture buttons as `prev` and `next` say.
bool PageShown(const json& screen, int first, bool prev, bool next, std::string* why) {
  const json* window = nullptr;
  const json* rows = ListOf(screen, &window, why);
  if (rows == nullptr) return false;
  if (rows->size() != kPage) {
    *why = "a list of " + std::to_string(rows->size()) + " rows";
    return false;
  }
  for (int r = 0; r < kPage; ++r) {
    if (!RowShows((*rows)[r], first + r)) {
      *why = "list row " + std::to_string(r + 1) + " is not row " + std::to_string(first + r) +
             ": " + (*rows)[r]["cells"].dump();
      return false;
    }
  }
  if (Enabled(*window, kPrev) != prev || Enabled(*window, kNext) != next) {
    *why = std::string("Prev ") + (Enabled(*window, kPrev) ? "enabled" : "disabled") +
           ", Next " + (Enabled(*window, kNext) ? "enabled" : "disabled");
    return false;
  }
  return true;
}

// Whether the list shows the group's keys and values, row by row.
bool ListShowsGroup(const json& screen, const Group& g, std::string* why) {
  const json* window = nullptr;
  const json* rows = ListOf(screen, &window, why);
  if (rows == nullptr) return false;
  if (static_cast<int>(rows->size()) != g.count) {
    *why = "the list has " + std::to_string(rows->size()) + " rows, the read " +
           std::to_string(g.count);
    return false;
  }
  for (int r = 1; r <= g.count; ++r) {
    const json& cells = (*rows)[r - 1]["cells"];
    if (Trim(cells[0].get<std::string>()) != Trim(g.table[r]) ||
        Trim(cells[1].get<std::string>()) != g.field[r] ||
        Trim(cells[2].get<std::string>()) != std::to_string(static_cast<int>(g.sequence[r])) ||
        Trim(cells[3].get<std::string>()) != g.value[r]) {
      *why = "row " + std::to_string(r) + ": the list " + cells.dump() + ", the read " +
             g.field[r];
      return false;
    }
  }
  return true;
}

// A click as the HTTP interface runs it: the answer's status and JSON text.
TextReply ClickText(Session& session, const char* window, const char* control) {
  return session.EventText({{"window", window}, {"control", control}, {"event", "Click"}});
}

json Click(Session& session, const char* window, const char* control, int* status) {
  const TextReply r = ClickText(session, window, control);
  *status = r.status;
  return json::parse(r.body, nullptr, false);
}

// Clicks and checks the page that must follow; false with the reason.
bool Move(Session& session, const char* control, int first, std::string* why) {
  int status = 0;
  const json screen = Click(session, kList, control, &status);
  if (status != 200) {
    *why = "status " + std::to_string(status);
    return false;
  }
  return PageShown(screen, first, true, true, why);
}

// ---- Getting ready ----

bool Prepare(Backend& be, Modules* modules) {
  const char* name = be.dialect == Dialect::kSqlite ? "SQLite" : "PostgreSQL";
  std::string error;
  be.db = lk::store::Database::Open(be.url, &error);
  if (be.db == nullptr) return Fail(error);
  lk::store::CreateSchema(*be.db->connection());
  be.port = lk::SessionPort{nullptr, nullptr, be.db->connection()};
  lk::ResetRunContext(&be.rc, be.area);
  auto start = std::chrono::steady_clock::now();
  if (!(be.dialect == Dialect::kSqlite ? BuildSqlite(be) : BuildPostgres(be))) return false;
  std::printf("%s: %d permitted values built in %.1f s\n", name, g_rows,
              std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());

  // The frame and the C API agree on both pages around the middle one.
  static Group framed, direct;
  std::string why;
  for (bool forward : {true, false}) {
    const int key = forward ? g_middle + kStep : g_middle;
    const int first = forward ? key : key - kStep;
    FramePage(be, forward, key, &framed);
    if (lk::FailureTravels(be.rc)) return Fail(std::string("frame: ") + be.area);
    CApiPage(be, forward, key, &direct);
    if (!GroupHolds(framed, first, &why)) return Fail("the frame: " + why);
    if (!SameGroup(framed, direct, &why)) return Fail("frame and C API differ: " + why);
  }

  std::unique_ptr<lk::store::Database> session_db = lk::store::Database::Open(be.url, &error);
  if (session_db == nullptr) return Fail(error);
  be.session = std::make_unique<Session>(
      modules, std::make_unique<lk::store::SociStore>(std::move(session_db)), SystemClock());
  const std::string refused = be.session->Start("BENCH", kOrg, StartRequest{});
  if (!refused.empty()) return Fail(refused);

  // The list from the menu: the first page, then "Next" to the middle.
  int status = 0;
  const json opened = Click(*be.session, kMenu, "Permitted &Value", &status);
  if (status != 200 || !PageShown(opened, 0, false, true, &why))
    return Fail("Permitted &Value: " + why);
  start = std::chrono::steady_clock::now();
  int moves = 0;
  for (int first = kStep; first <= g_middle; first += kStep, ++moves)
    if (!Move(*be.session, kNext, first, &why)) return Fail("Next to the middle: " + why);
  std::printf("%s: %d Next to row %d in %.1f s\n", name, moves, g_middle,
              std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());

  // The C API reads what each move shows.
  for (bool forward : {true, false}) {
    const int key = forward ? g_middle + kStep : g_middle;
    const json screen = Click(*be.session, kList, forward ? kNext : kPrev, &status);
    CApiPage(be, forward, key, &direct);
    if (status != 200 || !ListShowsGroup(screen, direct, &why))
      return Fail(std::string(forward ? "Next" : "Prev") + " and the C API differ: " + why);
    if (!Move(*be.session, forward ? kPrev : kNext, g_middle, &why))
      return Fail("back to the middle: " + why);
  }
  return true;
}

// ---- The benchmarks ----

const char* Label(const Backend& be) {
  return be.dialect == Dialect::kSqlite ? "sqlite" : "postgresql";
}

// One move timed from the middle page, checked, and the page brought back.
// A PostgreSQL move takes long enough that the default half second would
// time two of them; two seconds time a few more.
template <bool kForward>
void BM_Move(benchmark::State& state) {
  Backend& be = g_backends[state.range(0)];
  if (be.session == nullptr) {
    state.SkipWithError("backend not prepared");
    return;
  }
  const char* there = kForward ? kNext : kPrev;
  const char* back = kForward ? kPrev : kNext;
  const int first = kForward ? g_middle + kStep : g_middle - kStep;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    const TextReply reply = ClickText(*be.session, kList, there);
    const auto end = std::chrono::steady_clock::now();
    state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    // After Next the former last row comes first, after Prev the former
    // first row comes last: both are in the rows PageShown expects.
    std::string why;
    const json screen = json::parse(reply.body, nullptr, false);
    if (reply.status != 200 || !PageShown(screen, first, true, true, &why)) {
      state.SkipWithError(("wrong page: " + why).c_str());
      return;
    }
    if (!Move(*be.session, back, g_middle, &why)) {
      state.SkipWithError(("not back to the middle: " + why).c_str());
      return;
    }
  }
  state.SetLabel(Label(be));
}
BENCHMARK_TEMPLATE(BM_Move, true)
    ->Name("BM_PvNext")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->MinTime(0.5)
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);
BENCHMARK_TEMPLATE(BM_Move, false)
    ->Name("BM_PvPrev")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->MinTime(0.5)
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);

// The page Next (arg 1 = 1) or Prev (0) shows, read outside the session.
template <bool kFrame>
void BM_Read(benchmark::State& state) {
  Backend& be = g_backends[state.range(0)];
  if (be.db == nullptr) {
    state.SkipWithError("backend not prepared");
    return;
  }
  const bool forward = state.range(1) != 0;
  const int key = forward ? g_middle + kStep : g_middle;
  const int first = forward ? key : key - kStep;
  const Key k_first = KeyOf(first), k_last = KeyOf(first + kStep);
  static Group group;
  for (auto _ : state) {
    if (kFrame) {
      FramePage(be, forward, key, &group);
    } else {
      CApiPage(be, forward, key, &group);
    }
    if (group.count != kPage || std::strcmp(group.value[1], k_first.value) != 0 ||
        std::strcmp(group.value[kPage], k_last.value) != 0) {
      state.SkipWithError("wrong rows");
      return;
    }
  }
  state.SetLabel(std::string(Label(be)) + (forward ? " next" : " prev"));
}
BENCHMARK_TEMPLATE(BM_Read, true)
    ->Name("BM_FramePage")
    ->ArgsProduct({{0, 1}, {1, 0}})
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);
BENCHMARK_TEMPLATE(BM_Read, false)
    ->Name("BM_CApiPage")
    ->ArgsProduct({{0, 1}, {1, 0}})
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);

// The figures side by side: the median of each benchmark's repetitions.
class SummaryReporter : public bench::MedianReporter {
 public:
  void Finalize() override {
    MedianReporter::Finalize();
    std::printf("\nRT2 page moves of %d rows from row %d of %d, wall clock per event or read"
                " (medians):\n",
                kPage, g_middle, g_rows);
    const char* names[2] = {"SQLite    ", "PostgreSQL"};
    for (int backend : {0, 1}) {
      for (bool forward : {true, false}) {
        const std::string arg = "/" + std::to_string(backend);
        const std::string args = arg + (forward ? "/1" : "/0");
        const double event = Get(std::string(forward ? "BM_PvNext" : "BM_PvPrev") + arg);
        const double frame = Get("BM_FramePage" + args);
        const double capi = Get("BM_CApiPage" + args);
        if (event <= 0 || frame <= 0 || capi <= 0) continue;
        std::printf("  %s  %s event %7.2f ms   frame read %7.2f ms   C API read %7.2f ms"
                    "   event / C API %.1fx\n",
                    names[backend], forward ? "Next" : "Prev", event, frame, capi, event / capi);
        goals_.push_back(bench::GoalLine(std::string("list-event-rt2-") +
                                             (forward ? "next-" : "prev-") +
                                             (backend == 0 ? "sqlite" : "postgresql"),
                                         event / capi, 1.3));
      }
    }
    for (const std::string& g : goals_) std::printf("%s\n", g.c_str());
  }

 private:
  std::vector<std::string> goals_;
};

int Main(int argc, char** argv) {
  if (!bench::InitializeInterleaved(argc, argv, 7)) return 1;
  if (const char* rows = std::getenv("WATRIX_BENCH_ROWS"))
    g_tables = std::clamp(std::atoi(rows) / kTableRows, 1, 50);
  g_rows = g_tables * kTableRows;
  // The page whose first row is reached by Next nearest the middle.
  g_middle = g_rows / 2 / kStep * kStep;

  bench::ScratchDir dir("permitted_value_bench");
  if (!dir.ok()) return 1;
  g_backends[0].dialect = Dialect::kSqlite;
  g_backends[1].dialect = Dialect::kPostgres;
  if (!bench::DatabaseUrls("permitted_value_bench", dir.path(), &g_backends[0].url,
                           &g_backends[1].url))
    return 1;
  Modules modules(bench::ProgramDir(), "LKBASE");
  for (Backend& be : g_backends) {
    if (!Prepare(be, &modules)) return 1;
  }

  SummaryReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();

  for (Backend& be : g_backends) {
    be.session.reset();
    be.db.reset();
    if (be.lite != nullptr) sqlite3_close(be.lite);
    if (be.pg != nullptr) PQfinish(be.pg);
  }
  return 0;
}

}  // namespace
}  // namespace watrix

int main(int argc, char** argv) { return watrix::Main(argc, argv); }
