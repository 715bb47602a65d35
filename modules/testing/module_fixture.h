// What the tests of every module share: a session over liblkbase.so driven by
// the events a person's clicks and typing send, its screen read back, and a
// fresh database of each backend read and written beside the session, as a
// second user would.
//
// SessionDriver holds one session and its fixed clock. It offers the events
// (Click, ClickRow, DoubleClickRow, Type, Event), Ok for an event that must
// be taken, and the screen (Windows, Message, Failure, Window, Control,
// Enabled, Value, the rows of a list). Its store is a NullStore unless a
// subclass gives another; the menu's tests use it so.
//
// ModuleTest is the fixture of a module whose windows reach the database:
// each test gets an empty database with the schema on SQLite or PostgreSQL
// (store/test_database.h), and Start opens the session on it. Module tests
// reach the module only through the session and the database, never through
// the module's own headers.
//
// Use:
//   class FooTest : public testing::ModuleTest {};
//   TEST_P(FooTest, Bar) { Start("JSMITH", "ORG1"); Ok(Click(kMenu, "&Foo")); ... }
//   INSTANTIATE_TEST_SUITE_P(Backends, FooTest, lk::store::testing::kBackends,
//                            lk::store::testing::BackendName);
//
// Windows and controls are named as the EVENT names them; a control key is a
// control's name or its label. A list is "ListBox1" unless told otherwise.
#ifndef WATRIX_MODULES_TESTING_MODULE_FIXTURE_H_
#define WATRIX_MODULES_TESTING_MODULE_FIXTURE_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <source_location>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "host/host.h"
#include "host/modules.h"
#include "host/session.h"
#include "frame/store_port.h"
#include "store/soci.h"
#include "store/test_database.h"

namespace watrix::testing {

// The build folder that holds liblkbase.so ($WATRIX_BUILD, else ".").
std::string BuildFolder();

// The module LKBASE, loaded once for the whole test program.
Modules* TheModules();

// One row of a list as the screen shows it.
struct ListRow {
  int row = 0;  // the group row number
  std::vector<std::string> cells;
  bool selected = false;
};

class SessionDriver {
 public:
  SessionDriver();
  virtual ~SessionDriver();
  SessionDriver(const SessionDriver&) = delete;
  SessionDriver& operator=(const SessionDriver&) = delete;

  // ---- The session ----

  // Ends the session there is and starts one of `user` in `org`; on the
  // menu unless `start` says otherwise. A start refused is a fatal failure.
  void Start(const std::string& user, const std::string& org,
             const StartRequest& start = StartRequest{});
  // Ends the session, if there is one.
  void EndSession() { session_.reset(); }
  // REQUIRES: a session started.
  Session& session() { return *session_; }
  const Session& session() const { return *session_; }

  // The time the session reads from now on. 2024-01-15 09:30:00 until set.
  void SetClock(int year, int month, int day, int hour, int minute, int second);

  // ---- Events ----

  Reply Event(const std::string& window, const nlohmann::json& control, const std::string& event,
              const nlohmann::json& values = nullptr, int row = 0);
  Reply Click(const std::string& window, const nlohmann::json& control,
              const nlohmann::json& values = nullptr);
  // What the page sends as a field is edited: Changed, with the field's value.
  Reply Type(const std::string& window, const nlohmann::json& control,
             const nlohmann::json& values);
  Reply ClickRow(const std::string& window, int row, const std::string& list = "ListBox1");
  // A person's double click: Click, then DoubleClick; the Click's reply
  // when it was refused or ended in a fatal stop.
  Reply DoubleClickRow(const std::string& window, int row, const std::string& list = "ListBox1");

  // The event was taken and ran without a fatal stop; a fatal failure if
  // not, traced to the line that calls.
  static void Ok(const Reply& reply, std::source_location where = std::source_location::current());

  // ---- The screen ----

  nlohmann::json Screen() const;
  // The open windows, bottom to top.
  std::vector<std::string> Windows() const;
  // The message as "KIND: text", "" when there is none.
  std::string Message() const;
  // The fatal stop of the last event, null when there was none.
  nlohmann::json Failure() const;
  // The open window `name`; a failure and an empty object when it is not open.
  nlohmann::json Window(const std::string& name) const;
  // The control of `window` named or labelled `key`; a failure and an empty
  // object when there is none.
  nlohmann::json Control(const std::string& window, const std::string& key) const;
  bool Enabled(const std::string& window, const std::string& key) const;
  // The control's value as text.
  std::string Value(const std::string& window, const std::string& key) const;
  std::vector<ListRow> ListRows(const std::string& window,
                                const std::string& list = "ListBox1") const;
  // The cells of column `column` (from 0) of every row shown.
  std::vector<std::string> Column(const std::string& window, int column,
                                  const std::string& list = "ListBox1") const;
  // The group row numbers of the selected rows.
  std::vector<int> Selected(const std::string& window, const std::string& list = "ListBox1") const;

 protected:
  // The store of a session about to start; null, with a fatal failure, when
  // there can be none.
  virtual std::unique_ptr<lk::StorePort> NewStore();

 private:
  std::unique_ptr<Session> session_;
  std::int32_t date_;
  std::int32_t time_;
};

class ModuleTest : public lk::store::testing::BackendTest, public SessionDriver {
 protected:
  // An empty database with the schema; no session yet.
  void SetUp() override;
  void TearDown() override;

  // ---- The database, beside the session ----

  // Runs `query` with `args` bound to its placeholders in order.
  template <typename... Args>
  void Exec(const std::string& query, const Args&... args) {
    ((sql() << query), ..., soci::use(args));
  }
  // The first column of the row `query` selects with `args` bound; nullopt
  // when it selects no row or the value is null.
  template <typename T, typename... Args>
  std::optional<T> Read(const std::string& query, const Args&... args) {
    T value{};
    soci::indicator ind = soci::i_ok;
    ((sql() << query, soci::into(value, ind)), ..., soci::use(args));
    if (!sql().got_data() || ind == soci::i_null) return std::nullopt;
    return value;
  }
  // The rows of `table` that meet `where`.
  long long Count(const std::string& table, const std::string& where = "1 = 1");
  // The IS number counter of `table` for `org` in TSMEISN; -1 when there is none.
  long long Counter(const std::string& table, const std::string& org);
  // Appends `csv`, a header of column names and its rows, to `table`.
  void Load(const std::string& table, const std::string& csv);
  // `table` as CSV: its header and every row in key order.
  std::string Dump(const std::string& table);

  std::unique_ptr<lk::StorePort> NewStore() override;
};

}  // namespace watrix::testing

#endif  // WATRIX_MODULES_TESTING_MODULE_FIXTURE_H_
