// The entry protocol of units: load-only calls, the initialising step, and
// a failure that travels up through three levels of action blocks.
#include "frame/unit.h"

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "frame/views.h"

namespace lk {
namespace {

struct TestImport {
  char reserved[4];
  char STAMP[21];
  char ROWS_STAMP[4][21];
};
struct TestExport {
  std::uint32_t reserved;
  Shown<21> STAMP;
  Shown<9> NAME;
};

const TimestampSlot kExportStamps[] = {{offsetof(TestExport, STAMP.value), 0}, {0, 0}};
const TimestampSlot kImportStamps[] = {{offsetof(TestImport, STAMP), 0},
                                       {offsetof(TestImport, ROWS_STAMP), 3},
                                       {0, 0}};
const ViewShape kShape = {sizeof(TestExport), kExportStamps, kImportStamps};

class UnitTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetRunContext(&rc_, area_);
    std::memset(&in_, 0, sizeof in_);
    std::memset(&out_, 0, sizeof out_);
  }
  char area_[kDatabaseAreaSize];
  RunContext rc_;
  TestImport in_;
  TestExport out_;
};

TEST_F(UnitTest, LoadOnlyCallStoresArgumentsAndReturns) {
  UnitStorage unit;
  std::memcpy(out_.NAME.value, "KEEP    ", 9);
  rc_.run_mode = 'L';
  int statements = 0;
  EnterProcedure(&unit, &kShape, /*load_only_test=*/true, &in_, &out_, &rc_, &in_, &out_,
                 [&] { ++statements; });
  EXPECT_EQ(0, statements);
  EXPECT_EQ(&rc_, unit.rc);
  EXPECT_EQ(&out_, unit.export_view);
  EXPECT_STREQ("KEEP    ", out_.NAME.value);
  EXPECT_EQ(0, unit.nesting);
}

TEST_F(UnitTest, EntryWithoutLoadOnlyTestRunsTheBody) {
  UnitStorage unit;
  rc_.run_mode = 'L';
  int statements = 0;
  EnterProcedure(&unit, &kShape, /*load_only_test=*/false, nullptr, nullptr, &rc_, &in_, &out_,
                 [&] { ++statements; });
  EXPECT_EQ(1, statements);
}

TEST_F(UnitTest, BodyRunPutsTheDefaultTimestampInPlace) {
  UnitStorage unit;
  std::memcpy(out_.NAME.value, "STALE   ", 9);
  std::memcpy(in_.ROWS_STAMP[2], "20240101000000000000", 21);
  EnterProcedure(&unit, &kShape, true, nullptr, nullptr, &rc_, &in_, &out_, [] {});
  EXPECT_STREQ(kDefaultTimestamp, out_.STAMP.value);
  EXPECT_STREQ(kDefaultTimestamp, in_.STAMP);
  EXPECT_STREQ(kDefaultTimestamp, in_.ROWS_STAMP[1]);
  EXPECT_STREQ("20240101000000000000", in_.ROWS_STAMP[2]);  // set ones stay
  EXPECT_EQ('\0', out_.NAME.value[0]);                        // export zeroed
  EXPECT_EQ(std::string("0500"), std::string(unit.status.version, 4));
  EXPECT_EQ('U', unit.status.mark);
}

TEST_F(UnitTest, EventRunLeavesViewsAsTheyStand) {
  UnitStorage unit;
  std::memcpy(out_.NAME.value, "KEEP    ", 9);
  const UnitId id = {"0000000042", "SOME_EVENT_CLICK"};
  EnterEventAction(&unit, &kShape, id, nullptr, nullptr, &rc_, &in_, &out_, [] {});
  EXPECT_STREQ("KEEP    ", out_.NAME.value);
  EXPECT_EQ('\0', in_.STAMP[0]);  // no default timestamp on an event run
  EXPECT_STREQ("SOME_EVENT_CLICK", rc_.unit_name);
  EXPECT_STREQ("0000000042", rc_.unit_number);
}

// Three levels of action blocks: the deepest fails; every level above
// returns without running one more statement of its own.
UnitStorage level1, level2, level3;
int statements_after_call = 0;
constexpr UnitId kLevel1 = {"0000000001", "LEVEL_ONE"};
constexpr UnitId kLevel2 = {"0000000002", "LEVEL_TWO"};
constexpr UnitId kLevel3 = {"0000000003", "LEVEL_THREE"};
constexpr char kStatement7[] = "0000000007";

void LevelThree(RunContext* rc) {
  EnterActionBlock(&level3, nullptr, nullptr, rc, [rc] {
    StoreUnitId(rc, kLevel3);
    rc->statement = kStatement7;
    Fail(rc, "FE", "DB", 1);
  });
}
void LevelTwo(RunContext* rc) {
  EnterActionBlock(&level2, nullptr, nullptr, rc, [rc] {
    StoreUnitId(rc, kLevel2);
    rc->run_mode = ' ';
    LevelThree(rc);
    CheckCallee(rc);
    ++statements_after_call;
    StoreUnitId(rc, kLevel2);
  });
}
void LevelOne(RunContext* rc) {
  EnterActionBlock(&level1, nullptr, nullptr, rc, [rc] {
    StoreUnitId(rc, kLevel1);
    rc->run_mode = ' ';
    LevelTwo(rc);
    CheckCallee(rc);
    ++statements_after_call;
    SetExit(rc, EXIT_RETURN, nullptr, 'N');
  });
}

TEST_F(UnitTest, FailureTravelsUpWithoutAnotherStatement) {
  UnitStorage body;
  SetExit(&rc_, 0x12345678, nullptr, 'N');
  int after = 0;
  statements_after_call = 0;
  EnterProcedure(&body, &kShape, true, nullptr, nullptr, &rc_, &in_, &out_, [&] {
    rc_.run_mode = ' ';
    LevelOne(&rc_);
    CheckCallee(&rc_);
    ++after;
  });
  EXPECT_EQ(0, after);
  EXPECT_EQ(0, statements_after_call);
  EXPECT_STREQ("LEVEL_THREE", rc_.unit_name);
  EXPECT_STREQ("0000000007", rc_.statement);
  EXPECT_STREQ("FE", rc_.status);
  EXPECT_STREQ("DB", rc_.status_detail);
  EXPECT_EQ(0x12345678u, rc_.exit_state);  // the exit state stays what it was
  EXPECT_TRUE(FailureTravels(rc_));
  EXPECT_EQ(0, body.nesting);
  EXPECT_EQ(0, level1.nesting);
  EXPECT_EQ(0, level3.nesting);
}

TEST_F(UnitTest, SubscriptOutsideItsLimitJumps) {
  UnitStorage body;
  bool touched_row_zero = false;
  EnterProcedure(&body, &kShape, true, nullptr, nullptr, &rc_, &in_, &out_, [&] {
    CheckSubscript(&rc_, 0, 100);
    touched_row_zero = true;
  });
  EXPECT_FALSE(touched_row_zero);
  EXPECT_EQ('Y', rc_.subscript_fault);
  EXPECT_TRUE(FailureTravels(rc_));
}

}  // namespace
}  // namespace lk
