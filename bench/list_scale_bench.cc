// Whether a list event costs more in a bigger table: the same event on a
// table of 1,000 rows and on one of 1,000,000, side by side in one run, on
// SQLite and on PostgreSQL.
//
//   RT40 NEXT   the project station role list (100 rows a page) from its
//               first page to the next; TSMPSR of 1,000 or 1,000,000 roles
//               "ROLE0000001".. of the session's organisation.
//   RT50 Open   the lab remark list opened from the menu: its 2000 rows
//               "R00001".."R02000" in the list's range; the big table holds
//               998,000 remarks more, outside the range (beginning with
//               "0"), the small one none.
//   RT2 NEXT    the permitted value list (2000 rows a page) from its first
//               page to the next; TSMPRMVL of 4,001 rows (two full pages and
//               a row beyond) or 1,000,000, fields "F0000001".. of one
//               table.
// Each event is one host session's (Session over liblkbase.so and
// SociStore, no HTTP), in one transaction, the SCREEN built. Between two
// timed events an untimed one puts the window back ("Prev", or "C&lose").
// Every timed answer is checked: its first and last rows and its count.
//
// It ends with a goal line per list and backend: the event's time on the
// big table over its time on the small one, at most 1.1.
#include <limits.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "bench/bench_databases.h"
#include "bench/program_dir.h"
#include "host/modules.h"
#include "host/session.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/soci.h"
#include "store/store_port.h"

namespace watrix {
namespace {

using lk::store::Dialect;
using nlohmann::json;

constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kRoles[] = "RT40_PROJECT_ROLE_MAIN_LIST";
constexpr char kRemarks[] = "RT50_LAB_REMARK_MAINT_LIST";
constexpr char kValues[] = "RT2_PERMITTED_VALUE_MAINT_LIST";
constexpr int kSmallValues = 4001;
constexpr int kSmall = 1000;
constexpr int kBig = 1000000;

bool Fail(const std::string& why) { return bench::Fail("list_scale_bench", why); }

// Fills the tables with `rows` roles and remarks by one statement each,
// through the store's own session.
bool Fill(lk::store::Database& db, int rows) {
  soci::session& sql = *db.connection()->sql;
  const bool lite = db.dialect() == Dialect::kSqlite;
  const std::string n = std::to_string(rows);
  const std::string series =
      lite ? "WITH RECURSIVE s(g) AS (SELECT 1 UNION ALL SELECT g + 1 FROM s WHERE g < " + n +
                 ") "
           : "";
  const std::string from = lite ? " FROM s" : " FROM generate_series(1, " + n + ") g";
  const std::string role = lite ? "printf('ROLE%07d', g)" : "'ROLE' || lpad(g::text, 7, '0')";
  // Remarks 1..2000 in the list's range, the rest before it.
  const std::string remark =
      lite ? "CASE WHEN g <= 2000 THEN printf('R%05d', g) ELSE printf('0%05x', g) END"
           : "CASE WHEN g <= 2000 THEN 'R' || lpad(g::text, 5, '0') "
             "ELSE '0' || lpad(to_hex(g), 5, '0') END";
  const int remarks = rows == kSmall ? 2000 : rows;
  const std::string rn = std::to_string(remarks);
  const std::string remark_series =
      lite ? "WITH RECURSIVE s(g) AS (SELECT 1 UNION ALL SELECT g + 1 FROM s WHERE g < " + rn +
                 ") "
           : "";
  const std::string remark_from =
      lite ? " FROM s" : " FROM generate_series(1, " + rn + ") g";
  try {
    soci::transaction t(sql);
    sql << series + "INSERT INTO TSMPSR (TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME, "
                    "D_USERID_CODE, D_LAST_UPDATE_TS) SELECT g, 'BENCHORG', " +
               role + ", 'BENCH', '2024-01-01 00:00:00'" + from;
    sql << remark_series +
               "INSERT INTO TSRLBRMK (TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, "
               "DESCRIPTION_TEXT, D_USERID_CODE, D_LAST_UPDATE_TS) SELECT g, 'ZZZZZZZZ', " +
               remark + ", 'Remark ' || g, 'BENCH', '2024-01-01 00:00:00'" + remark_from;
    const std::string vn = std::to_string(rows == kSmall ? kSmallValues : rows);
    const std::string field = lite ? "printf('F%07d', g)" : "'F' || lpad(g::text, 7, '0')";
    sql << (lite ? "WITH RECURSIVE s(g) AS (SELECT 1 UNION ALL SELECT g + 1 FROM s WHERE g < " +
                       vn + ") "
                 : std::string()) +
               "INSERT INTO TSMPRMVL (TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID, TABLE_NAME, "
               "FIELD_NAME, SEQUENCE_NUMBER, FIELD_VALUE, FIELD_DESC, D_USERID_CODE, "
               "D_LAST_UPDATE_TS) SELECT g, 'ZZZZZZZZ', 'TSRBENCH', " +
               field + ", 1, 'V' || g, 'Value ' || g, 'BENCH', '2024-01-01 00:00:00'" +
               (lite ? std::string(" FROM s") : " FROM generate_series(1, " + vn + ") g");
    t.commit();
    sql << "ANALYZE";
  } catch (const std::exception& e) {
    return Fail(std::string("fill: ") + e.what());
  }
  return true;
}

// One database and the session over it.
struct Case {
  Dialect dialect;
  int rows;
  std::string url;
  std::unique_ptr<Session> session;
};

json Click(Session& s, const char* window, const char* control, int* status) {
  const Reply r = s.Event({{"window", window}, {"control", control}, {"event", "Click"}});
  *status = r.status;
  return r.body;
}

// The first and last rows' cells of `column` and the count of the list on
// `window`.
bool ListIs(const json& screen, const char* window, int column, const std::string& first,
            const std::string& last, std::size_t count) {
  if (!screen["failure"].is_null() || screen["windows"].empty()) return false;
  const json& w = screen["windows"].back();
  if (w["name"] != window) return false;
  for (const json& c : w["controls"]) {
    if (c["type"] != "list") continue;
    const json& rows = c["rows"];
    return rows.size() == count && rows.front()["cells"][column] == first &&
           rows.back()["cells"][column] == last;
  }
  return false;
}

bool Prepare(Case& c, Modules* modules) {
  std::string error;
  std::unique_ptr<lk::store::Database> db = lk::store::Database::Open(c.url, &error);
  if (db == nullptr) return Fail(error);
  lk::store::CreateSchema(*db->connection());
  if (!Fill(*db, c.rows)) return false;
  db.reset();
  std::unique_ptr<lk::store::Database> session_db = lk::store::Database::Open(c.url, &error);
  if (session_db == nullptr) return Fail(error);
  c.session = std::make_unique<Session>(
      modules, std::make_unique<lk::store::SociStore>(std::move(session_db)), SystemClock());
  return true;
}

// The median of `runs` timed events; 0 and a message when an answer is
// wrong.
double Median(std::vector<double> t) {
  std::sort(t.begin(), t.end());
  return t[t.size() / 2];
}

// The lists: what opens them, the timed event, the page it must show, and
// the event that puts the window back.
struct List {
  const char* name;
  const char* org;
  const char* menu_button;  // opens the list before the timed events, or null
  const char* window;       // of the timed event
  const char* control;
  const char* shows;  // the window the event shows
  int column;
  const char* first;
  const char* last;
  std::size_t count;
  const char* back;  // on `shows`
  const char* small_rows;
};
constexpr List kLists[] = {
    {"rt40-next", "BENCHORG", "Pro&ject Station Role", kRoles, "Next", kRoles, 0,
     "ROLE0000100", "ROLE0000199", 100, "Prev", "1,000"},
    {"rt50-open", "ZZZZZZZZ", nullptr, kMenu, "Lab &Remark", kRemarks, 0, "R00001", "R02000",
     2000, "C&lose", "2,000"},
    {"rt2-next", "ZZZZZZZZ", "Permitted &Value", kValues, "Next", kValues, 1, "F0002000",
     "F0003999", 2000, "Prev", "4,001"},
};

// The session at the start of the timed event: the list open, or the menu.
bool Ready(Case& c, const List& list) {
  Session& s = *c.session;
  int status = 200;
  const std::string refused = s.Start("BENCH", list.org, {});
  if (!refused.empty()) return Fail(refused);
  if (list.menu_button != nullptr) Click(s, kMenu, list.menu_button, &status);
  return status == 200;
}

// One timed event of `list` on `c`, checked, then the window put back;
// its milliseconds, or 0 when the answer was wrong.
double TimeOne(Case& c, const List& list) {
  Session& s = *c.session;
  int status = 0;
  const auto start = std::chrono::steady_clock::now();
  const json screen = Click(s, list.window, list.control, &status);
  const double ms =
      std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
  if (status != 200 ||
      !ListIs(screen, list.shows, list.column, list.first, list.last, list.count))
    return Fail(std::string(list.name) + " showed the wrong page"), 0;
  Click(s, list.shows, list.back, &status);
  return ms;
}

int Main() {
  bench::ScratchDir dir("list_scale_bench");
  if (!dir.ok()) return 1;
  std::vector<Case> cases;
  for (Dialect d : {Dialect::kSqlite, Dialect::kPostgres}) {
    for (int rows : {kSmall, kBig}) {
      Case c{d, rows, "", nullptr};
      if (d == Dialect::kSqlite) {
        c.url = "sqlite:" + dir.path() + "/scale" + std::to_string(rows) + ".db";
      } else if (const char* url = std::getenv("WATRIX_BENCH_PG")) {
        if (rows == kBig) continue;  // one database given: small only
        c.url = url;
      } else {
        testing::PgCluster& cluster = testing::PgCluster::Shared();
        if (!cluster.Available()) return Fail("no PostgreSQL: " + cluster.why_not()), 1;
        c.url = cluster.NewDatabase();
      }
      cases.push_back(std::move(c));
    }
  }
  Modules modules(bench::ProgramDir(), "LKBASE");
  for (Case& c : cases) {
    const auto start = std::chrono::steady_clock::now();
    if (!Prepare(c, &modules)) return 1;
    std::printf("%s, %d rows: built in %.1f s\n",
                c.dialect == Dialect::kSqlite ? "SQLite" : "PostgreSQL", c.rows,
                std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  constexpr int kWarm = 20;
  constexpr int kRuns = 201;
  std::vector<std::string> goals;
  for (const List& list : kLists) {
    for (Dialect d : {Dialect::kSqlite, Dialect::kPostgres}) {
      Case* small = nullptr;
      Case* big = nullptr;
      for (Case& c : cases)
        if (c.dialect == d) (c.rows == kSmall ? small : big) = &c;
      if (small == nullptr || big == nullptr) continue;
      if (!Ready(*small, list) || !Ready(*big, list)) return 1;
      // Warm both, then alternate, so that the machine's drift falls on both.
      std::vector<double> ts, tb;
      for (int i = 0; i < kWarm + kRuns; ++i) {
        const double a = TimeOne(*small, list);
        const double b = TimeOne(*big, list);
        if (a <= 0 || b <= 0) return 1;
        if (i >= kWarm) ts.push_back(a), tb.push_back(b);
      }
      const double t_small = Median(ts), t_big = Median(tb);
      const char* backend = d == Dialect::kSqlite ? "sqlite" : "postgresql";
      const char* name = list.name;
      std::printf("  %-10s %-9s  %s rows %6.2f ms   1,000,000 rows %6.2f ms   %.2fx\n",
                  backend, name, list.small_rows, t_small, t_big, t_big / t_small);
      char goal[120];
      std::snprintf(goal, sizeof goal, "goal list-scale-%s-%s: %.2fx (at most 1.1x)", name,
                    backend, t_big / t_small);
      goals.push_back(goal);
    }
  }
  for (const std::string& g : goals) std::printf("%s\n", g.c_str());
  for (Case& c : cases) c.session.reset();
  return 0;
}

}  // namespace
}  // namespace watrix

int main() { return watrix::Main(); }
