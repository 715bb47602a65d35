// What the geologic unit list's Search and page moves cost on the server,
// beside the bare read of the rows each shows.
//
// TSMGEOUN holds 1,000,000 units (WATRIX_BENCH_ROWS changes it): codes
// "G000000" upwards, names "Unit NNNNNNN" numbered the other way, so that
// the order by name is the reverse of the order by code. On SQLite and on
// PostgreSQL, in a host session (Session over liblkbase.so, SociStore) with
// RT46 open, each event run as the HTTP interface runs it (Session::EventText:
// the event in its transaction, the window written, the SCREEN built as JSON
// text); only the event is timed, its text is parsed and checked after it:
//   BM_Rt46SearchCode  "&Search" with USGS Code "G500000": by code, 200 rows
//                      from G500000.
//   BM_Rt46SearchName  "&Search" with Name "Unit 0500000" and no code: by
//                      name, 200 rows from that name.
//   BM_Rt46Next        "&Next" from the code search's first page: 200 rows
//                      from its last row; an untimed "&Prev" goes back.
//   BM_Rt46Prev        "&Prev" from that second page back to the first, by
//                      the page keys of the stack; an untimed "&Next" first.
//   BM_CApiCode, BM_CApiName, BM_CApiPrev  the statements of those reads
//                      (the same SQL text as the module's, LIMIT 201) through
//                      sqlite3_prepare/step or libpq's PQexecParams, into a
//                      group of 200 rows.
// The C API reads are checked against the rows the events show before
// timing. The figures stand side by side at the end, with a goal line per
// event: at most 1.3 times its bare read.
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
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include "host/modules.h"
#include "host/session.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/store_port.h"
#include "bench/bench_databases.h"
#include "bench/medians.h"
#include "bench/program_dir.h"

namespace watrix {
namespace {

using lk::store::Dialect;
using nlohmann::json;

constexpr int kShown = 200;
int g_rows = 1000000;

constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kList[] = "RT46_GEOLOGIC_UNIT_MAINT_LIST";
const std::string kHighCode(12, 'z');
const std::string kHighName(80, 'z');

std::string Code(int i) {
  char code[16];
  std::snprintf(code, sizeof code, "G%06d", i);
  return code;
}
std::string Name(int i) {
  char name[32];
  std::snprintf(name, sizeof name, "Unit %07d", g_rows - i);
  return name;
}

// The rows a read gives, as the list's group holds them.
struct Group {
  int count;
  char code[kShown + 1][13];
  char org[kShown + 1][9];
  char type[kShown + 1][2];
  char state[kShown + 1][3];
  char name[kShown + 1][81];
};

// The module's three statements (geologic_unit_blocks.cc), with the
// placeholders of each C API: LOW_CODE, HIGH_CODE, LOW_NAME, HIGH_NAME.
#define LK_SELECT \
  "SELECT TSMGEOUN_CD, TSMGEOUN_ORG_ID, TYPE_CODE, STATE_CODE, NAME FROM TSMGEOUN WHERE "
#define LK_BY_CODE(lc, hc, ln, hn)                                                          \
  LK_SELECT "TSMGEOUN_CD >= " lc " AND ((TSMGEOUN_CD BETWEEN " lc " AND " hc " AND NAME "  \
            "BETWEEN " ln " AND " hn ") OR (TSMGEOUN_CD > " lc " AND NAME > ' ')) ORDER BY " \
            "TSMGEOUN_CD, NAME LIMIT 201"
#define LK_BY_NAME(lc, hc, ln, hn) \
  LK_SELECT "NAME BETWEEN " ln " AND " hn " ORDER BY NAME, TSMGEOUN_CD LIMIT 201"
#define LK_PREV(lc, hc, ln, hn) \
  LK_SELECT "TSMGEOUN_CD >= " lc " ORDER BY TSMGEOUN_CD, NAME LIMIT 201"

enum Read { kByCode, kByName, kPrev };
const char* const kSqliteText[] = {LK_BY_CODE("?1", "?2", "?3", "?4"),
                                   LK_BY_NAME("?1", "?2", "?3", "?4"),
                                   LK_PREV("?1", "?2", "?3", "?4")};
const char* const kPgText[] = {LK_BY_CODE("$1", "$2", "$3", "$4"),
                               LK_BY_NAME("", "", "$1", "$2"),
                               LK_PREV("$1", "$2", "$3", "$4")};
const int kPgParams[] = {4, 2, 1};

// The values each read binds, as the store binds a blank: one blank.
struct Bind {
  std::string low_code, high_code, low_name, high_name;
};
Bind BindOf(Read read) {
  switch (read) {
    case kByCode: return {"G500000", kHighCode, " ", kHighName};
    case kByName: return {"A", kHighCode, "Unit 0500000", kHighName};
    case kPrev: return {"G500000", "G500199", " ", " "};
  }
  return {};
}

struct Backend {
  Dialect dialect;
  std::string url;
  std::unique_ptr<Session> session;
  sqlite3* lite = nullptr;
  PGconn* pg = nullptr;
  sqlite3_stmt* prepared[3] = {};
};
Backend g_backends[2];

bool Take(Group* group, const char* code, const char* org, const char* type, const char* state,
          const char* name) {
  if (group->count >= kShown) return false;
  const int r = ++group->count;
  bench::Fixed(group->code[r], code, 13);
  bench::Fixed(group->org[r], org, 9);
  bench::Fixed(group->type[r], type, 2);
  bench::Fixed(group->state[r], state, 3);
  std::snprintf(group->name[r], 81, "%s", name);
  return true;
}

void SqliteRead(Backend& be, Read read, Group* group) {
  sqlite3_stmt*& st = be.prepared[read];
  if (st == nullptr &&
      sqlite3_prepare_v3(be.lite, kSqliteText[read], -1, SQLITE_PREPARE_PERSISTENT, &st,
                         nullptr) != SQLITE_OK)
    return;
  const Bind b = BindOf(read);
  group->count = 0;
  sqlite3_bind_text(st, 1, b.low_code.c_str(), -1, SQLITE_TRANSIENT);
  if (read != kPrev) {
    sqlite3_bind_text(st, 2, b.high_code.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(st, 3, b.low_name.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(st, 4, b.high_name.c_str(), -1, SQLITE_TRANSIENT);
  }
  while (sqlite3_step(st) == SQLITE_ROW) {
    auto text = [&](int c) { return reinterpret_cast<const char*>(sqlite3_column_text(st, c)); };
    if (!Take(group, text(0), text(1), text(2), text(3), text(4))) break;
  }
  sqlite3_reset(st);
}

void PgRead(Backend& be, Read read, Group* group) {
  const Bind b = BindOf(read);
  const char* values[4] = {b.low_code.c_str(), b.high_code.c_str(), b.low_name.c_str(),
                           b.high_name.c_str()};
  if (read == kByName) values[0] = b.low_name.c_str(), values[1] = b.high_name.c_str();
  PGresult* res = PQexecParams(be.pg, kPgText[read], kPgParams[read], nullptr, values, nullptr,
                               nullptr, 0);
  group->count = 0;
  if (PQresultStatus(res) == PGRES_TUPLES_OK) {
    const int n = PQntuples(res);
    for (int t = 0; t < n; ++t) {
      if (!Take(group, PQgetvalue(res, t, 0), PQgetvalue(res, t, 1), PQgetvalue(res, t, 2),
                PQgetvalue(res, t, 3), PQgetvalue(res, t, 4)))
        break;
    }
  }
  PQclear(res);
}

void CApiRead(Backend& be, Read read, Group* group) {
  if (be.dialect == Dialect::kSqlite) {
    SqliteRead(be, read, group);
  } else {
    PgRead(be, read, group);
  }
}

bool Fail(const std::string& why) { return bench::Fail("geologic_unit_bench", why); }

bool BuildSqlite(Backend& be) {
  if (sqlite3_open(be.url.substr(7).c_str(), &be.lite) != SQLITE_OK) return Fail("sqlite3_open");
  sqlite3_exec(be.lite, "BEGIN", nullptr, nullptr, nullptr);
  sqlite3_stmt* st = nullptr;
  if (sqlite3_prepare_v2(be.lite,
                         "INSERT INTO TSMGEOUN VALUES (?1, 'ZZZZZZZZ', 'G', 'CO', ?2, 'LOADER', "
                         "'2024-01-01 00:00:00')",
                         -1, &st, nullptr) != SQLITE_OK)
    return Fail(sqlite3_errmsg(be.lite));
  for (int i = 0; i < g_rows; ++i) {
    const std::string code = Code(i), name = Name(i);
    sqlite3_bind_text(st, 1, code.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(st, 2, name.c_str(), -1, SQLITE_TRANSIENT);
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
  const std::string insert =
      "INSERT INTO TSMGEOUN SELECT 'G' || lpad(g::text, 6, '0'), 'ZZZZZZZZ', 'G', 'CO', "
      "'Unit ' || lpad((" + std::to_string(g_rows) + " - g)::text, 7, '0'), 'LOADER', "
      "'2024-01-01 00:00:00' FROM generate_series(0, " + std::to_string(g_rows - 1) + ") g";
  for (const std::string& sql : {std::string("BEGIN"), insert, std::string("COMMIT"),
                                 std::string("ANALYZE TSMGEOUN")}) {
    PGresult* res = PQexec(be.pg, sql.c_str());
    const ExecStatusType status = PQresultStatus(res);
    PQclear(res);
    if (status != PGRES_COMMAND_OK) return Fail(sql.substr(0, 40) + ": " + PQerrorMessage(be.pg));
  }
  return true;
}

// ---- Events ----

TextReply EventText(Session& session, const char* control, const json& values = nullptr) {
  json event = {{"window", kList}, {"control", control}, {"event", "Click"}};
  if (!values.is_null()) event["values"] = values;
  return session.EventText(event);
}

// The list's rows in a SCREEN: the first code and the count; empty on a
// failure or another window.
bool Shown(const TextReply& reply, int* count, std::string* first, std::string* last) {
  if (reply.status != 200) return false;
  const json screen = json::parse(reply.body, nullptr, false);
  if (screen.is_discarded() || !screen["failure"].is_null()) return false;
  const json& windows = screen["windows"];
  if (windows.size() != 1 || windows[0]["name"] != kList) return false;
  for (const json& c : windows[0]["controls"]) {
    if (c["type"] != "list") continue;
    const json& rows = c["rows"];
    *count = static_cast<int>(rows.size());
    if (rows.empty()) return false;
    *first = rows.front()["cells"][0];
    *last = rows.back()["cells"][0];
    return true;
  }
  return false;
}

// A fixed text without its padding blanks.
std::string Trimmed(std::string text) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

bool Expect(const TextReply& reply, const std::string& first, const std::string& last) {
  int count = 0;
  std::string f, l;
  return Shown(reply, &count, &f, &l) && count == kShown && f == Trimmed(first) &&
         l == Trimmed(last);
}

const json kCodeSearch = {{"TSMGEOUN_CD", "G500000"}, {"NAME", ""}};
const json kNameSearch = {{"TSMGEOUN_CD", ""}, {"NAME", "Unit 0500000"}};

bool Prepare(Backend& be, Modules* modules) {
  std::string error;
  {
    std::unique_ptr<lk::store::Database> db = lk::store::Database::Open(be.url, &error);
    if (db == nullptr) return Fail(error);
    lk::store::CreateSchema(*db->connection());
  }
  const auto start = std::chrono::steady_clock::now();
  if (!(be.dialect == Dialect::kSqlite ? BuildSqlite(be) : BuildPostgres(be))) return false;
  std::printf("%s: %d geologic units built in %.1f s\n",
              be.dialect == Dialect::kSqlite ? "SQLite" : "PostgreSQL", g_rows,
              std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());

  std::unique_ptr<lk::store::Database> session_db = lk::store::Database::Open(be.url, &error);
  if (session_db == nullptr) return Fail(error);
  be.session = std::make_unique<Session>(
      modules, std::make_unique<lk::store::SociStore>(std::move(session_db)), SystemClock());
  const std::string refused = be.session->Start("BENCH", "ZZZZZZZZ", StartRequest{});
  if (!refused.empty()) return Fail(refused);
  if (be.session->EventText({{"window", kMenu}, {"control", "Ge&ological Unit"},
                             {"event", "Click"}}).status != 200)
    return Fail("the list did not open");

  // The events show what the C API reads give.
  Group group;
  CApiRead(be, kByCode, &group);
  const TextReply searched = EventText(*be.session, "&Search", kCodeSearch);
  if (group.count != kShown || !Expect(searched, group.code[1], group.code[kShown])) {
    int count = 0;
    std::string first, last;
    Shown(searched, &count, &first, &last);
    return Fail("the code search (" + std::to_string(count) + " rows, " + first + " to " + last +
                ") and its read (" + std::to_string(group.count) + " rows, " + group.code[1] +
                ") differ: " + searched.body.substr(0, 300));
  }
  const std::string page2_first = Trimmed(group.code[kShown]);
  if (!Expect(EventText(*be.session, "&Next"), page2_first, Code(500000 + 2 * kShown - 2)))
    return Fail("Next shows other rows");
  CApiRead(be, kPrev, &group);
  if (group.count != kShown || !Expect(EventText(*be.session, "&Prev"), group.code[1],
                                       group.code[kShown]))
    return Fail("Prev and its read differ");
  CApiRead(be, kByName, &group);
  if (group.count != kShown || std::strcmp(group.name[1], "Unit 0500000") != 0 ||
      !Expect(EventText(*be.session, "&Search", kNameSearch), group.code[1], group.code[kShown]))
    return Fail("the name search and its read differ");
  return true;
}

// ---- The benchmarks ----

const char* Label(const Backend& be) {
  return be.dialect == Dialect::kSqlite ? "sqlite" : "postgresql";
}

// Times `control` with `values`, after the untimed events `before` (each
// must be taken); the event must show 200 rows from `first` to `last`.
struct Untimed {
  const char* control;
  json values;
};
void TimeEvent(benchmark::State& state, const char* control, const json& values,
               const std::string& first, const std::string& last,
               const std::vector<Untimed>& before) {
  Backend& be = g_backends[state.range(0)];
  if (be.session == nullptr) {
    state.SkipWithError("backend not prepared");
    return;
  }
  for (auto _ : state) {
    for (const Untimed& u : before) {
      if (EventText(*be.session, u.control, u.values).status != 200) {
        state.SkipWithError("an event before was refused");
        return;
      }
    }
    const auto start = std::chrono::steady_clock::now();
    const TextReply reply = EventText(*be.session, control, values);
    const auto end = std::chrono::steady_clock::now();
    state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    if (!Expect(reply, first, last)) {
      state.SkipWithError("wrong rows");
      return;
    }
  }
  state.SetLabel(Label(be));
}

// The name search starts at the unit named "Unit 0500000", whose number
// counts down from the table's size.
void BM_Rt46SearchCode(benchmark::State& state) {
  TimeEvent(state, "&Search", kCodeSearch, "G500000", "G500199", {});
}
void BM_Rt46SearchName(benchmark::State& state) {
  const int i = g_rows - 500000;
  TimeEvent(state, "&Search", kNameSearch, Code(i), Code(i - kShown + 1), {});
}
void BM_Rt46Next(benchmark::State& state) {
  TimeEvent(state, "&Next", nullptr, "G500199", "G500398", {{"&Search", kCodeSearch}});
}
void BM_Rt46Prev(benchmark::State& state) {
  TimeEvent(state, "&Prev", nullptr, "G500000", "G500199",
            {{"&Search", kCodeSearch}, {"&Next", nullptr}});
}
template <Read kRead>
void BM_CApi(benchmark::State& state) {
  Backend& be = g_backends[state.range(0)];
  static Group group;
  for (auto _ : state) {
    CApiRead(be, kRead, &group);
    if (group.count != kShown) {
      state.SkipWithError("wrong rows");
      return;
    }
  }
  state.SetLabel(Label(be));
}

#define LK_EVENT_BENCH(fn) \
  BENCHMARK(fn)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond)->ReportAggregatesOnly(true)
LK_EVENT_BENCH(BM_Rt46SearchCode);
LK_EVENT_BENCH(BM_Rt46SearchName);
LK_EVENT_BENCH(BM_Rt46Next);
LK_EVENT_BENCH(BM_Rt46Prev);
#define LK_READ_BENCH(read, name) \
  BENCHMARK_TEMPLATE(BM_CApi, read)->Name(name)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->ReportAggregatesOnly(true)
LK_READ_BENCH(kByCode, "BM_CApiCode");
LK_READ_BENCH(kByName, "BM_CApiName");
LK_READ_BENCH(kPrev, "BM_CApiPrev");

class SummaryReporter : public bench::MedianReporter {
 public:
  void Finalize() override {
    MedianReporter::Finalize();
    std::printf("\nRT46 with %d geologic units, 200 rows a page, wall clock per event or read"
                " (medians):\n", g_rows);
    const char* names[2] = {"SQLite    ", "PostgreSQL"};
    struct Pair {
      const char* event;
      const char* read;
      const char* goal;
    } pairs[] = {{"BM_Rt46SearchCode", "BM_CApiCode", "search-code"},
                 {"BM_Rt46SearchName", "BM_CApiName", "search-name"},
                 {"BM_Rt46Next", "BM_CApiCode", "next"},
                 {"BM_Rt46Prev", "BM_CApiPrev", "prev"}};
    for (int backend : {0, 1}) {
      const std::string arg = "/" + std::to_string(backend);
      for (const Pair& p : pairs) {
        const double event = Get(p.event + arg);
        const double read = Get(p.read + arg);
        if (event <= 0 || read <= 0) continue;
        std::printf("  %s  %-18s %7.2f ms   C API read %7.2f ms   %.1fx\n", names[backend],
                    p.event + 3, event, read, event / read);
        goals_.push_back(bench::GoalLine(std::string("list-event-rt46-") + p.goal + "-" +
                                             (backend == 0 ? "sqlite" : "postgresql"),
                                         event / read, 1.3));
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
    g_rows = std::clamp(std::atoi(rows), 1000, 1000000);
  if (g_rows < 500000 + 2 * kShown) g_rows = 1000000;

  bench::ScratchDir dir("geologic_unit_bench");
  if (!dir.ok()) return 1;
  g_backends[0].dialect = Dialect::kSqlite;
  g_backends[1].dialect = Dialect::kPostgres;
  if (!bench::DatabaseUrls("geologic_unit_bench", dir.path(), &g_backends[0].url,
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
    for (sqlite3_stmt* st : be.prepared)
      if (st != nullptr) sqlite3_finalize(st);
    if (be.lite != nullptr) sqlite3_close(be.lite);
    if (be.pg != nullptr) PQfinish(be.pg);
  }
  return 0;
}

}  // namespace
}  // namespace watrix

int main(int argc, char** argv) { return watrix::Main(argc, argv); }
