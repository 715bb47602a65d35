// A session driven over the test module TESTMOD: typed values, the
// permitted-value refusal, Changed events, a link there and back, a fatal
// stop three levels down, list selection and enable rules, the control
// services, a flow to a module that does not load, and one transaction per
// event.
#include "host/screen_testing.h"
#include "host/session.h"

#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/testmod/testmod.h"

namespace watrix {
namespace {

Modules* TestModules() {
  static Modules* modules =
      new Modules(std::getenv("WATRIX_BUILD") != nullptr ? std::getenv("WATRIX_BUILD") : ".",
                  "TESTMOD");
  return modules;
}

// Counts what the host asks of the store.
class CountingStore : public lk::StorePort {
 public:
  struct Counts {
    int begin = 0, commit = 0, rollback = 0;
  };
  explicit CountingStore(Counts* counts) : counts_(counts) {}
  void Begin() override { ++counts_->begin; }
  void Commit() override { ++counts_->commit; }
  void Rollback() override { ++counts_->rollback; }

 private:
  Counts* counts_;
};

class SessionTest : public ::testing::Test {
 protected:
  void SetUp() override { Start(StartRequest{"TM1_FORM", "E", "", {}}); }

  void Start(const StartRequest& start) {
    counts_ = CountingStore::Counts{};
    session_ = std::make_unique<Session>(TestModules(), std::make_unique<CountingStore>(&counts_),
                                         SystemClock());
    ASSERT_EQ("", session_->Start("JSMITH", "ORG1", start));
  }

  Reply Send(const std::string& window, const nlohmann::json& control,
             const std::string& event = "Click", nlohmann::json values = nullptr) {
    nlohmann::json e = {{"window", window}, {"control", control}, {"event", event}};
    if (!values.is_null()) e["values"] = values;
    return session_->Event(e);
  }
  nlohmann::json Control(const std::string& name, int window = -1) {
    const nlohmann::json screen = session_->Screen();
    const nlohmann::json& w = window < 0 ? screen["windows"].back() : screen["windows"][window];
    for (const auto& c : w["controls"])
      if (c["name"] == name) return c;
    return nullptr;
  }
  std::vector<std::string> Windows() { return testing::WindowNames(session_->Screen()); }
  std::string Message() { return testing::MessageText(session_->Screen()); }

  CountingStore::Counts counts_;
  std::unique_ptr<Session> session_;
};

TEST_F(SessionTest, TypedValuesReachTheBodyThroughTheWindow) {
  ASSERT_EQ(200, Send("TM1_FORM", "&Go", "Click", {{"NAME", "ALICE"}}).status);
  EXPECT_EQ("I: Saved ALICE", Message());
  EXPECT_EQ("ALICE", Control("NAME1")["value"]);
  EXPECT_EQ("3a    ", Control("NAME1")["display"]);
  EXPECT_EQ(false, Control("NAME1")["error"]);
  EXPECT_EQ("Name", Control("NAME1")["label"]);
  EXPECT_EQ("NAME", Control("NAME1")["attribute"]);
}

TEST_F(SessionTest, FieldInErrorIsMarked) {
  ASSERT_EQ(200, Send("TM1_FORM", "&Go").status);
  EXPECT_EQ("E: An entry must be made in this field.", Message());
  EXPECT_EQ("10    ", Control("NAME1")["display"]);
  EXPECT_EQ(true, Control("NAME1")["error"]);
  EXPECT_EQ(lk::EXIT_FIELD_REQUIRED, session_->run_context().exit_state);
}

TEST_F(SessionTest, ValueOutsideThePermittedListIsRefusedWithoutAUnit) {
  const std::string unit_before = session_->run_context().unit_name;
  const Reply r = Send("TM1_FORM", "&Go", "Click", {{"KIND", "ZZ"}, {"NAME", "X"}});
  ASSERT_EQ(200, r.status);
  EXPECT_EQ(
      "E: Field does not contain permitted value; Please retry; Use Help for field information.",
      Message());
  EXPECT_EQ(unit_before, session_->run_context().unit_name);
  EXPECT_EQ("", Control("KIND1")["value"]);
  EXPECT_EQ("", Control("NAME1")["value"]);  // nothing of the event went in
  ASSERT_EQ(200, Send("TM1_FORM", "&Go", "Click", {{"KIND", "BB"}, {"NAME", "X"}}).status);
  EXPECT_EQ("BB", Control("KIND1")["value"]);
  EXPECT_EQ("I: Saved X", Message());
}

TEST_F(SessionTest, BadValuesAreRefusedAndChangeNothing) {
  const nlohmann::json before = session_->Screen();
  struct Case {
    nlohmann::json values;
    const char* why;
  } cases[] = {
      {{{"NAME", "ELEVENCHARS"}}, "longer than its field"},
      {{{"NAME", "\xE4\xB8\xAD"}}, "code page 1252"},
      {{{"NAME", "\xC3"}}, "UTF-8"},
      {{{"STAMP", "2024"}}, "protected"},
      {{{"AMOUNT", "123456"}}, "digits before the point"},
      {{{"AMOUNT", "12x"}}, "no number"},
      {{{"NAME", 5}}, "must be a text"},
      {{{"Nowhere", "x"}}, "no control"},
      {{{"Code", "x"}}, "no control"},  // a static is matched by id only
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    const Reply r = Send("TM1_FORM", "&Go", "Click", c.values);
    EXPECT_EQ(400, r.status);
    EXPECT_NE(std::string::npos, r.body["error"].get<std::string>().find(c.why))
        << r.body["error"];
    EXPECT_EQ(before, session_->Screen());
  }
  // Within the digits and with decimals the field takes it.
  ASSERT_EQ(200, Send("TM1_FORM", "&Go", "Click", {{"AMOUNT", "-12345.678"}, {"NAME", "Y"}}).status);
  // A name of full length fits, with 1252's own characters.
  ASSERT_EQ(200, Send("TM1_FORM", "&Go", "Click", {{"NAME", "\xC3\xA9t\xC3\xA9\xE2\x82\xACzzzzz"}}).status);
  EXPECT_EQ("\xC3\xA9t\xC3\xA9\xE2\x82\xACzzzzz", Control("NAME1")["value"]);
  EXPECT_EQ(0, counts_.rollback);
}

TEST_F(SessionTest, ChangedEventRunsBeforeTheEventOnlyWhenTheValueChanged) {
  ASSERT_EQ(200, Send("TM1_FORM", "&Go", "Click", {{"NAME", "ANN"}}).status);
  EXPECT_EQ("1", Control("NOTE1")["value"]);
  ASSERT_EQ(200, Send("TM1_FORM", "&Go", "Click", {{"NAME", "ANN"}}).status);
  EXPECT_EQ("1", Control("NOTE1")["value"]);
  // The page's explicit Changed marks an edit whatever the value.
  ASSERT_EQ(200, Send("TM1_FORM", "NAME", "Changed", {{"NAME", "ANN"}}).status);
  EXPECT_EQ("2", Control("NOTE1")["value"]);
}

TEST_F(SessionTest, LinkThereAndBack) {
  ASSERT_EQ(200, Send("TM1_FORM", "&Link", "Click", {{"NAME", "BOB"}}).status);
  // The source's window is hidden while the link runs.
  EXPECT_EQ((std::vector<std::string>{"TM2_DETAIL"}), Windows());
  EXPECT_EQ("BOB", Control("NAME1")["value"]);
  EXPECT_EQ("3i    ", Control("NAME1")["display"]);
  EXPECT_EQ(true, Control("NAME1")["focus"]);
  EXPECT_EQ(409, Send("TM1_FORM", "&Go").status);
  // EXIT_RETURN is not what this link waits for: the window stays, and the
  // cursor mark has fired once.
  ASSERT_EQ(200, Send("TM2_DETAIL", "&Return").status);
  EXPECT_EQ((std::vector<std::string>{"TM2_DETAIL"}), Windows());
  EXPECT_EQ(lk::EXIT_RETURN, session_->run_context().exit_state);
  EXPECT_EQ("3a    ", Control("NAME1")["display"]);
  EXPECT_EQ(false, Control("NAME1")["focus"]);
  // EXIT_CANCEL returns; receive lays the target's NAME over the source.
  ASSERT_EQ(200, Send("TM2_DETAIL", "Cance&l", "Click", {{"NAME", "CAROL"}}).status);
  EXPECT_EQ((std::vector<std::string>{"TM1_FORM"}), Windows());
  EXPECT_EQ("I: Back with CAROL", Message());
  EXPECT_EQ("CAROL", Control("NAME1")["value"]);
  EXPECT_STREQ("RETURN", session_->run_context().command);
}

TEST_F(SessionTest, FatalStopReportsTheDeepestUnitAndKeepsTheWindows) {
  const lk::u32 exit_before = session_->run_context().exit_state;
  const Reply r = Send("TM1_FORM", "&Deep");
  ASSERT_EQ(200, r.status);
  const nlohmann::json& f = r.body["failure"];
  ASSERT_FALSE(f.is_null());
  EXPECT_EQ("READ_THIRD_LEVEL", f["unit_name"]);
  EXPECT_EQ("0000009003", f["unit_number"]);
  EXPECT_EQ("0000000003", f["statement"]);
  EXPECT_EQ("FE", f["status"]);
  EXPECT_EQ("DB", f["status_detail"]);
  EXPECT_EQ("ORA-03113: end-of-file", f["database"]);
  EXPECT_EQ(false, r.body["ended"]);
  EXPECT_TRUE(r.body["message"].is_null());  // no statement ran after the failure
  EXPECT_EQ(exit_before, session_->run_context().exit_state);
  EXPECT_EQ((std::vector<std::string>{"TM1_FORM"}), Windows());
  EXPECT_EQ(1, counts_.rollback);
  // The session goes on: the next event runs and the report is gone.
  const Reply next = Send("TM1_FORM", "&Go", "Click", {{"NAME", "ON"}});
  ASSERT_EQ(200, next.status);
  EXPECT_TRUE(next.body["failure"].is_null());
  EXPECT_EQ("I: Saved ON", Message());
}

TEST_F(SessionTest, ClickWithNoSelectedRowLeavesRowZeroAlone) {
  ASSERT_EQ(200, Send("TM1_FORM", "&Pick").status);
  EXPECT_EQ("E: Select a row first.", Message());
  // A click selects the row as a person's would.
  nlohmann::json click = {{"window", "TM1_FORM"}, {"control", "ListBox1"}, {"event", "Click"},
                          {"row", 2}};
  ASSERT_EQ(200, session_->Event(click).status);
  const nlohmann::json list = Control("ListBox1");
  ASSERT_EQ(3u, list["rows"].size());
  EXPECT_EQ("Code", list["columns"][0]["heading"]);
  EXPECT_EQ("CODE", list["columns"][0]["attribute"]);
  EXPECT_EQ(true, list["rows"][1]["selected"]);
  EXPECT_EQ(false, list["rows"][0]["selected"]);
  ASSERT_EQ(200, Send("TM1_FORM", "&Pick").status);
  EXPECT_EQ("I: Picked R2", Message());
  click["row"] = 7;
  EXPECT_EQ(400, session_->Event(click).status);
}

TEST_F(SessionTest, EnableRuleFollowsTheListSelection) {
  EXPECT_EQ(false, Control("Button5")["enabled"]);
  EXPECT_EQ(400, Send("TM1_FORM", "Hi&de").status);
  ASSERT_EQ(200, session_->Event({{"window", "TM1_FORM"}, {"control", 110}, {"event", "Click"},
                                  {"row", 1}}).status);
  EXPECT_EQ(true, Control("Button5")["enabled"]);
  // "HIDE" hides row 2: the list is shorter, rows keep their numbers.
  ASSERT_EQ(200, Send("TM1_FORM", "Hi&de").status);
  const nlohmann::json rows = Control("ListBox1")["rows"];
  ASSERT_EQ(2u, rows.size());
  EXPECT_EQ(1, rows[0]["row"]);
  EXPECT_EQ(3, rows[1]["row"]);
  EXPECT_EQ("R3", rows[1]["cells"][0]);
}

TEST_F(SessionTest, RowsAreTheWholeHighlightAndAnEmptyOneTakesItOff) {
  nlohmann::json click = {{"window", "TM1_FORM"}, {"control", "ListBox1"}, {"event", "Click"},
                          {"rows", {1, 3}}};
  ASSERT_EQ(200, session_->Event(click).status);
  nlohmann::json rows = Control("ListBox1")["rows"];
  EXPECT_EQ(true, rows[0]["selected"]);
  EXPECT_EQ(false, rows[1]["selected"]);
  EXPECT_EQ(true, rows[2]["selected"]);
  EXPECT_EQ(true, Control("Button5")["enabled"]);
  // One row let go: the rest stay highlighted.
  click["rows"] = {3};
  ASSERT_EQ(200, session_->Event(click).status);
  rows = Control("ListBox1")["rows"];
  EXPECT_EQ(false, rows[0]["selected"]);
  EXPECT_EQ(true, rows[2]["selected"]);
  // The last one let go: nothing is highlighted, and the rule sees it.
  click["rows"] = nlohmann::json::array();
  ASSERT_EQ(200, session_->Event(click).status);
  for (const auto& r : Control("ListBox1")["rows"]) EXPECT_EQ(false, r["selected"]);
  EXPECT_EQ(false, Control("Button5")["enabled"]);
  // Rows belong to a list, empty or not.
  EXPECT_EQ(400, session_->Event({{"window", "TM1_FORM"}, {"control", "&Go"}, {"event", "Click"},
                                  {"rows", nlohmann::json::array()}}).status);
}

TEST_F(SessionTest, ControlDisableActsOnTopOfTheRules) {
  ASSERT_EQ(200, Send("TM1_FORM", "&Off").status);
  EXPECT_EQ(false, Control("Button1")["enabled"]);
  const Reply r = Send("TM1_FORM", "&Go");
  EXPECT_EQ(400, r.status);
  EXPECT_NE(std::string::npos, r.body["error"].get<std::string>().find("disabled"));
}

TEST_F(SessionTest, FlowToAModuleThatDoesNotLoadSaysSo) {
  ASSERT_EQ(200, Send("TM1_FORM", "&Away").status);
  EXPECT_EQ("E: Procedure TM3_ELSEWHERE of module NOMOD is not available.", Message());
  EXPECT_EQ((std::vector<std::string>{"TM1_FORM"}), Windows());
  EXPECT_EQ(testmod::kExitAway, session_->run_context().exit_state);
  EXPECT_TRUE(session_->Screen()["failure"].is_null());
}

TEST_F(SessionTest, HelpButtonOpensHelpWithoutAUnit) {
  const Reply r = Send("TM1_FORM", "&Help");
  ASSERT_EQ(200, r.status);
  EXPECT_EQ("/help/TM1_FORM", r.body["help"]);
}

TEST_F(SessionTest, OneTransactionPerEvent) {
  const CountingStore::Counts start = counts_;
  EXPECT_EQ(1, start.begin);
  EXPECT_EQ(1, start.commit);
  ASSERT_EQ(200, Send("TM1_FORM", "&Go", "Click", {{"NAME", "T"}}).status);
  EXPECT_EQ(2, counts_.begin);
  EXPECT_EQ(2, counts_.commit);
  EXPECT_EQ(0, counts_.rollback);
  ASSERT_EQ(400, Send("TM1_FORM", "&Go", "Click", {{"NAME", "ELEVENCHARS"}}).status);
  EXPECT_EQ(2, counts_.begin);  // a refused event starts nothing
  ASSERT_EQ(200, Send("TM1_FORM", "&Deep").status);
  EXPECT_EQ(3, counts_.begin);
  EXPECT_EQ(2, counts_.commit);
  EXPECT_EQ(1, counts_.rollback);
}

TEST_F(SessionTest, StartFillsNamedImportAttributes) {
  Start(StartRequest{"TM1_FORM", "E", "", {{"EXPORT.FORM.NAME", "ZED"}}});
  EXPECT_EQ("ZED", Control("NAME1")["value"]);
  Session other(TestModules(), std::make_unique<lk::NullStore>(), SystemClock());
  EXPECT_NE("", other.Start("U", "O", StartRequest{"TM1_FORM", "E", "", {{"EXPORT.FORM.NOPE", "x"}}}));
  Session third(TestModules(), std::make_unique<lk::NullStore>(), SystemClock());
  EXPECT_NE("", third.Start("U", "O", StartRequest{"TM1_FORM", "X", "", {}}));
}

TEST_F(SessionTest, StartedProcedureEndsTheSessionOnCancel) {
  Start(StartRequest{"TM2_DETAIL", "D", "", {}});
  EXPECT_EQ((std::vector<std::string>{"TM2_DETAIL"}), Windows());
  ASSERT_EQ(200, Send("TM2_DETAIL", "Cance&l").status);
  EXPECT_TRUE(session_->ended());
  EXPECT_EQ(409, Send("TM2_DETAIL", "Cance&l").status);
}

}  // namespace
}  // namespace watrix
