// LIST_PERMITTED_VALUES_FROM_TABLE called as the drop-down lists of other
// tables will call it, on SQLite and PostgreSQL: the values of one table's
// field in its organisation by sequence number, behind a "<Blank>" row when
// asked, at most 500 rows; NULL values and descriptions read as blanks.
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/host_port.h"
#include "frame/run_context.h"
#include "modules/permitted_value/permitted_value_blocks.h"
#include "services/text.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/soci.h"
#include "store/test_database.h"

namespace lk::permitted_value {
namespace {

void FixedClock(void*, std::int32_t* date, std::int32_t* time, char* text) {
  *date = 20240305;
  *time = 101112;
  std::memcpy(text, "20240305101112345678", 21);
}

class ValueListTest : public store::testing::BackendTest {
 protected:
  void SetUp() override {
    store::testing::BackendTest::SetUp();
    if (HasFatalFailure()) return;
    store::CreateSchema(connection());
    std::string error;
    db_ = store::Database::Open(url(), &error);
    ASSERT_NE(nullptr, db_) << error;
    port_ = SessionPort{nullptr, &FixedClock, db_->connection()};
    ResetRunContext(&rc_, area_);
  }
  void TearDown() override {
    db_.reset();
    store::testing::BackendTest::TearDown();
  }

  void Seed(int is_number, const std::string& org, const std::string& field, int sequence,
            const std::string& value) {
    const std::string desc = "About " + value;
    sql() << "INSERT INTO TSMPRMVL (TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID, TABLE_NAME, FIELD_NAME, "
             "SEQUENCE_NUMBER, FIELD_VALUE, FIELD_DESC, D_USERID_CODE, D_LAST_UPDATE_TS) VALUES "
             "(:n, :o, 'TSRANLEQ', :f, :s, :v, :d, 'SEED', '2001-02-03 04:05:06')",
        soci::use(is_number), soci::use(org), soci::use(field), soci::use(sequence),
        soci::use(value), soci::use(desc);
  }

  // The list of TSRANLEQ's `field` in `org`, each row "VALUE|DESCRIPTION".
  std::vector<std::string> List(const char* blank_row, const char* org, const char* field) {
    NamesIn names{};
    TextMove(names.TABLE_NAME, "TSRANLEQ", sizeof names.TABLE_NAME);
    BoundedCopy(names.FIELD_NAME, field, sizeof names.FIELD_NAME);
    list_ = std::make_unique<ValueList>();
    rc_.run_mode = ' ';
    SetExit(&rc_, EXIT_NONE, nullptr, 'N');
    LIST_PERMITTED_VALUES_FROM_TABLE(&port_, nullptr, &rc_, blank_row, org, &names, list_.get());
    EXPECT_FALSE(FailureTravels(rc_)) << area_;
    EXPECT_EQ(EXIT_NONE, rc_.exit_state);
    std::vector<std::string> rows;
    auto trimmed = [](std::string text) {
      while (!text.empty() && text.back() == ' ') text.pop_back();
      return text;
    };
    for (int r = 1; r <= list_->count; ++r)
      rows.push_back(trimmed(list_->FIELD_VALUE.value[r]) + "|" +
                     trimmed(list_->FIELD_DESCRIPTION.value[r]));
    return rows;
  }

  std::unique_ptr<store::Database> db_;
  SessionPort port_{};
  RunContext rc_{};
  char area_[kDatabaseAreaSize] = {};
  std::unique_ptr<ValueList> list_;
};

TEST_P(ValueListTest, TheValuesOfOneFieldInTheirOrderBehindABlankRow) {
  Seed(1, "ZZZZZZZZ", "TYPE_NAME", 3, "Probe");
  Seed(2, "ZZZZZZZZ", "TYPE_NAME", 1, "Autoanalyzer");
  Seed(3, "ZZZZZZZZ", "TYPE_NAME", 2, "Microscope");
  Seed(4, "OTHER", "TYPE_NAME", 4, "Theirs");
  Seed(5, "ZZZZZZZZ", "OTHER_NAME", 1, "Elsewhere");
  EXPECT_EQ(std::vector<std::string>({"<Blank>|", "Autoanalyzer|About Autoanalyzer",
                                      "Microscope|About Microscope", "Probe|About Probe"}),
            List("Y", "ZZZZZZZZ", "TYPE_NAME"));
  EXPECT_EQ(std::vector<std::string>({"Autoanalyzer|About Autoanalyzer",
                                      "Microscope|About Microscope", "Probe|About Probe"}),
            List("N", "ZZZZZZZZ", "TYPE_NAME"));
  EXPECT_EQ(std::vector<std::string>({"Theirs|About Theirs"}), List("N", "OTHER", "TYPE_NAME"));
  EXPECT_TRUE(List("N", "ZZZZZZZZ", "NO_SUCH").empty());
}

TEST_P(ValueListTest, TheListStopsAtFiveHundredRows) {
  {
    soci::transaction t(sql());
    for (int i = 1; i <= 600; ++i) Seed(i, "ZZZZZZZZ", "TYPE_NAME", i, "V" + std::to_string(i));
    t.commit();
  }
  std::vector<std::string> rows = List("N", "ZZZZZZZZ", "TYPE_NAME");
  ASSERT_EQ(500u, rows.size());
  EXPECT_EQ("V1|About V1", rows.front());
  EXPECT_EQ("V500|About V500", rows.back());
  rows = List("Y", "ZZZZZZZZ", "TYPE_NAME");
  ASSERT_EQ(500u, rows.size());
  EXPECT_EQ("<Blank>|", rows.front());
  EXPECT_EQ("V499|About V499", rows.back());
}

TEST_P(ValueListTest, NullValuesReadAsBlanks) {
  sql() << "INSERT INTO TSMPRMVL (TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID, TABLE_NAME, FIELD_NAME, "
           "SEQUENCE_NUMBER, D_USERID_CODE, D_LAST_UPDATE_TS) VALUES "
           "(1, 'ZZZZZZZZ', 'TSRANLEQ', 'TYPE_NAME', 1, 'SEED', '2001-02-03 04:05:06')";
  EXPECT_EQ(std::vector<std::string>({"|"}), List("N", "ZZZZZZZZ", "TYPE_NAME"));
}

INSTANTIATE_TEST_SUITE_P(Backends, ValueListTest, store::testing::kBackends,
                         store::testing::BackendName);

}  // namespace
}  // namespace lk::permitted_value
