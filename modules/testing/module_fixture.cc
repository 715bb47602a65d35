// The shared fixture of module tests; see module_fixture.h.
#include "modules/testing/module_fixture.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <utility>

#include "host/screen_testing.h"
#include "store/csv.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/store_port.h"

namespace watrix::testing {

using nlohmann::json;

std::string BuildFolder() {
  const char* b = std::getenv("WATRIX_BUILD");
  return b != nullptr ? b : ".";
}

Modules* TheModules() {
  static Modules* modules = new Modules(BuildFolder(), "LKBASE");
  return modules;
}

// ---- SessionDriver ----

SessionDriver::SessionDriver() { SetClock(2024, 1, 15, 9, 30, 0); }

SessionDriver::~SessionDriver() = default;

void SessionDriver::Start(const std::string& user, const std::string& org,
                          const StartRequest& start) {
  session_.reset();
  std::unique_ptr<lk::StorePort> store = NewStore();
  ASSERT_NE(nullptr, store) << "no store for the session";
  Clock clock = [this](std::int32_t* date, std::int32_t* time, char* text) {
    *date = date_;
    *time = time_;
    std::snprintf(text, 21, "%08d%06d000000", static_cast<int>(date_), static_cast<int>(time_));
  };
  session_ = std::make_unique<Session>(TheModules(), std::move(store), std::move(clock));
  ASSERT_EQ("", session_->Start(user, org, start)) << user << " in " << org;
}

void SessionDriver::SetClock(int year, int month, int day, int hour, int minute, int second) {
  date_ = year * 10000 + month * 100 + day;
  time_ = hour * 10000 + minute * 100 + second;
}

std::unique_ptr<lk::StorePort> SessionDriver::NewStore() { return std::make_unique<lk::NullStore>(); }

Reply SessionDriver::Event(const std::string& window, const json& control,
                           const std::string& event, const json& values, int row) {
  json e = {{"window", window}, {"control", control}, {"event", event}};
  if (!values.is_null()) e["values"] = values;
  if (row != 0) e["row"] = row;
  return session_->Event(e);
}

Reply SessionDriver::Click(const std::string& window, const json& control, const json& values) {
  return Event(window, control, "Click", values);
}

Reply SessionDriver::Type(const std::string& window, const json& control, const json& values) {
  return Event(window, control, "Changed", values);
}

Reply SessionDriver::ClickRow(const std::string& window, int row, const std::string& list) {
  return Event(window, list, "Click", nullptr, row);
}

Reply SessionDriver::DoubleClickRow(const std::string& window, int row, const std::string& list) {
  Reply r = ClickRow(window, row, list);
  if (r.status != 200 || !r.body["failure"].is_null()) return r;
  return Event(window, list, "DoubleClick", nullptr, row);
}

void SessionDriver::Ok(const Reply& reply, std::source_location where) {
  const ::testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()),
                                     "the event sent here");
  ASSERT_EQ(200, reply.status) << reply.body.dump();
  ASSERT_TRUE(reply.body["failure"].is_null()) << reply.body["failure"].dump();
}

json SessionDriver::Screen() const { return session_->Screen(); }

std::vector<std::string> SessionDriver::Windows() const { return WindowNames(Screen()); }

std::string SessionDriver::Message() const { return MessageText(Screen()); }

json SessionDriver::Failure() const { return Screen()["failure"]; }

json SessionDriver::Window(const std::string& name) const {
  const json screen = Screen();
  for (const json& w : screen["windows"])
    if (w["name"] == name) return w;
  ADD_FAILURE() << "no window " << name;
  return json::object();
}

json SessionDriver::Control(const std::string& window, const std::string& key) const {
  const json w = Window(window);
  const json controls = w.value("controls", json::array());
  // By name first: names are unique in a window, labels need not be.
  for (const json& c : controls)
    if (c.value("name", json()) == key) return c;
  for (const json& c : controls)
    if (c.value("label", json()) == key) return c;
  ADD_FAILURE() << "no control " << key << " in " << window;
  return json::object();
}

bool SessionDriver::Enabled(const std::string& window, const std::string& key) const {
  const json enabled = Control(window, key).value("enabled", json());
  if (!enabled.is_boolean()) {
    ADD_FAILURE() << key << " in " << window << " says nothing of being enabled";
    return false;
  }
  return enabled.get<bool>();
}

std::string SessionDriver::Value(const std::string& window, const std::string& key) const {
  const json value = Control(window, key).value("value", json());
  if (!value.is_string()) {
    ADD_FAILURE() << key << " in " << window << " has no text value: " << value.dump();
    return "";
  }
  return value.get<std::string>();
}

std::vector<ListRow> SessionDriver::ListRows(const std::string& window,
                                             const std::string& list) const {
  std::vector<ListRow> rows;
  const json control = Control(window, list);
  for (const json& r : control.value("rows", json::array())) {
    ListRow row;
    row.row = r.at("row").get<int>();
    row.cells = r.at("cells").get<std::vector<std::string>>();
    row.selected = r.at("selected").get<bool>();
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<std::string> SessionDriver::Column(const std::string& window, int column,
                                               const std::string& list) const {
  std::vector<std::string> cells;
  for (const ListRow& r : ListRows(window, list)) {
    if (column < 0 || static_cast<std::size_t>(column) >= r.cells.size()) {
      ADD_FAILURE() << "row " << r.row << " of " << list << " has no column " << column;
      cells.push_back("");
      continue;
    }
    cells.push_back(r.cells[column]);
  }
  return cells;
}

std::vector<int> SessionDriver::Selected(const std::string& window,
                                         const std::string& list) const {
  std::vector<int> rows;
  for (const ListRow& r : ListRows(window, list))
    if (r.selected) rows.push_back(r.row);
  return rows;
}

// ---- ModuleTest ----

void ModuleTest::SetUp() {
  BackendTest::SetUp();
  if (HasFatalFailure()) return;
  lk::store::CreateSchema(connection());
}

void ModuleTest::TearDown() {
  EndSession();
  BackendTest::TearDown();
}

std::unique_ptr<lk::StorePort> ModuleTest::NewStore() {
  std::string error;
  std::unique_ptr<lk::store::Database> db = lk::store::Database::Open(url(), &error);
  if (db == nullptr) {
    ADD_FAILURE() << "cannot open " << url() << ": " << error;
    return nullptr;
  }
  return std::make_unique<lk::store::SociStore>(std::move(db));
}

long long ModuleTest::Count(const std::string& table, const std::string& where) {
  return Read<long long>("SELECT COUNT(*) FROM " + table + " WHERE " + where).value_or(-1);
}

long long ModuleTest::Counter(const std::string& table, const std::string& org) {
  return Read<long long>(
             "SELECT IS_NUMBER FROM TSMEISN WHERE TSMEISN_NAME = :name AND TSMEISN_ORG_ID = :org",
             table, org)
      .value_or(-1);
}

void ModuleTest::Load(const std::string& table, const std::string& csv) {
  std::istringstream in(csv);
  std::string error;
  ASSERT_TRUE(lk::store::LoadCsv(connection(), table, in, 0, nullptr, nullptr, &error))
      << table << ": " << error;
}

std::string ModuleTest::Dump(const std::string& table) {
  std::ostringstream out;
  std::string error;
  EXPECT_TRUE(lk::store::DumpCsv(connection(), table, out, &error)) << table << ": " << error;
  return out.str();
}

}  // namespace watrix::testing
