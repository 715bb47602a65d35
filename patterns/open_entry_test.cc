// The Open-style data entry window: what Open reads and keeps, which action
// blocks Accept calls in which case, and how it ends.
#include "patterns/open_entry.h"

#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/views.h"
#include "services/text.h"

namespace lk::patterns {
namespace {

constexpr u32 kNotFound = 0x11440001;
constexpr u32 kDuplicate = 0x11440002;
constexpr u32 kNotUnique = 0x11440003;
constexpr char kDuplicateText[] = "A thing with this name already exists.";

const OpenEntry kEntry = {kNotFound, kDuplicate, kDuplicateText, nullptr, 81};
const OpenEntry kReturning = {kNotFound, kDuplicate, kDuplicateText, "RETURN", 81};
// A window whose check sits in its action blocks.
const OpenEntry kBlocksCheck = {kNotFound, kDuplicate, kDuplicateText, "RETURN", 81, true};
const UnitId kOwn = {"0000000099", "TEST_ENTRY_PB_ACCEPT_CLICK"};

class OpenEntryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetRunContext(&rc_, area_);
    std::memset(org_, 0, sizeof org_);
    std::memset(kept_, 0, sizeof kept_);
    std::memset(&name_, 0, sizeof name_);
    std::memset(&hidden_, 0, sizeof hidden_);
    TextMove(name_.value, "AB", 7);
    TextMove(hidden_.value, "AB", 7);
    std::memcpy(name_.display, kDisplayNormal, 6);
  }

  // Accept's write with recorders for the three action blocks; `found`
  // says whether the duplicate check finds a row, `write_exit` what the
  // write leaves.
  void Write(const OpenEntry& entry, bool found, u32 write_exit = EXIT_NONE) {
    OpenEntryWrite(
        entry, &rc_, kOwn, kept_, {{name_.value, hidden_.value}}, {name_.display},
        [&] {
          calls_.push_back("check");
          StoreUnitId(&rc_, UnitId{"0000000001", "CHECK"});
          if (!found) SetExit(&rc_, kNotFound, "THING was not found.", 'N');
        },
        [&] {
          calls_.push_back("add");
          if (write_exit != EXIT_NONE) SetExit(&rc_, write_exit, "THING already exists.", 'N');
        },
        [&] {
          calls_.push_back("change");
          if (write_exit != EXIT_NONE) SetExit(&rc_, write_exit, "THING is not unique.", 'N');
        });
  }

  RunContext rc_;
  char area_[kDatabaseAreaSize];
  char org_[9];
  char kept_[81];
  Shown<7> name_;
  Shown<7> hidden_;
  std::vector<std::string> calls_;
};

TEST_F(OpenEntryTest, OpenGivesTheNationalOrganisationAndKeepsTheCommand) {
  SetExit(&rc_, 0x55, nullptr, 'N');
  SetCommand(&rc_, "ADD");
  int reads = 0;
  OpenEntryOpen(kEntry, &rc_, kOwn, org_, 9, kept_, [&] { ++reads; });
  EXPECT_EQ(0, reads);
  EXPECT_STREQ("ZZZZZZZZ", org_);
  EXPECT_EQ(0, TextCompare(kept_, "ADD"));
  EXPECT_EQ(EXIT_NONE, rc_.exit_state);
}

TEST_F(OpenEntryTest, OpenInChangeModeReadsAndTestsNoExitState) {
  SetCommand(&rc_, "CHANGE");
  int reads = 0;
  OpenEntryOpen(kEntry, &rc_, kOwn, org_, 9, kept_, [&] {
    ++reads;
    StoreUnitId(&rc_, UnitId{"0000000002", "READ"});
    SetExit(&rc_, kNotFound, "THING was not found.", 'N');
  });
  EXPECT_EQ(1, reads);
  EXPECT_EQ(kNotFound, rc_.exit_state);  // a row that has gone: nobody sees it
  EXPECT_EQ('N', rc_.message_kind);
  EXPECT_STREQ("TEST_ENTRY_PB_ACCEPT_CLICK", rc_.unit_name);
}

TEST_F(OpenEntryTest, AddChecksThenAddsAndEndsByCancel) {
  TextMove(kept_, "ADD", 81);
  TextMove(name_.value, "NEW", 7);
  Write(kEntry, /*found=*/false);
  EXPECT_EQ((std::vector<std::string>{"check", "add"}), calls_);
  EXPECT_EQ(EXIT_CANCEL, rc_.exit_state);
  EXPECT_EQ('N', rc_.message_kind);
  EXPECT_STREQ("TEST_ENTRY_PB_ACCEPT_CLICK", rc_.unit_name);
}

TEST_F(OpenEntryTest, ARowFoundByTheCheckIsTheDuplicateMessage) {
  TextMove(kept_, "ADD", 81);
  Write(kEntry, /*found=*/true);
  EXPECT_EQ((std::vector<std::string>{"check"}), calls_);
  EXPECT_EQ(kDuplicate, rc_.exit_state);
  EXPECT_EQ('E', rc_.message_kind);
  EXPECT_EQ(std::string(kDuplicateText), std::string(rc_.exit_message, sizeof kDuplicateText - 1));
  EXPECT_EQ(std::string(kDisplayError, 6), std::string(name_.display, 6));
}

TEST_F(OpenEntryTest, ChangeWithNothingChangedCallsNoBlock) {
  TextMove(kept_, "CHANGE", 81);
  Write(kEntry, false);
  EXPECT_TRUE(calls_.empty());
  EXPECT_EQ(EXIT_CANCEL, rc_.exit_state);
}

TEST_F(OpenEntryTest, AChangeMeetsTheCheckLikeAnAdd) {
  TextMove(kept_, "CHANGE", 81);
  TextMove(name_.value, "AC", 7);
  Write(kEntry, false);
  EXPECT_EQ((std::vector<std::string>{"check", "change"}), calls_);
  EXPECT_EQ(EXIT_CANCEL, rc_.exit_state);
  calls_.clear();
  // The check does not except the row itself: whatever it finds refuses.
  Write(kEntry, true);
  EXPECT_EQ((std::vector<std::string>{"check"}), calls_);
  EXPECT_EQ(kDuplicate, rc_.exit_state);
}

TEST_F(OpenEntryTest, AWriteThatFailsIsTheInternalErrorWithRollback) {
  TextMove(kept_, "CHANGE", 81);
  TextMove(name_.value, "AC", 7);
  Write(kEntry, false, kNotUnique);
  EXPECT_EQ(EXIT_SYSTEM_ERROR, rc_.exit_state);
  EXPECT_EQ('E', rc_.message_kind);
  EXPECT_EQ('R', rc_.exit_rollback);
  EXPECT_EQ(std::string(kSystemErrorText),
            std::string(rc_.exit_message, sizeof kSystemErrorText - 1));
}

TEST_F(OpenEntryTest, AnyOtherCommandWritesNothing) {
  TextMove(kept_, "LIST", 81);
  TextMove(name_.value, "AC", 7);
  Write(kEntry, false);
  EXPECT_TRUE(calls_.empty());
  EXPECT_EQ(EXIT_CANCEL, rc_.exit_state);
}

TEST_F(OpenEntryTest, AWindowThatReturnsByCommandSetsItOnBothWaysOut) {
  TextMove(kept_, "ADD", 81);
  SetCommand(&rc_, "ADD");
  Write(kReturning, false);
  EXPECT_STREQ("RETURN", rc_.command);
  SetCommand(&rc_, "ADD");
  OpenEntryCancel(kReturning, &rc_);
  EXPECT_STREQ("RETURN", rc_.command);
  EXPECT_EQ(EXIT_CANCEL, rc_.exit_state);
  SetCommand(&rc_, "ADD");
  OpenEntryCancel(kEntry, &rc_);
  EXPECT_STREQ("ADD", rc_.command);
}

TEST_F(OpenEntryTest, AFatalCheckStopsTheAccept) {
  TextMove(kept_, "ADD", 81);
  bool aborted = false;
  try {
    OpenEntryWrite(
        kEntry, &rc_, kOwn, kept_, {{name_.value, hidden_.value}}, {},
        [&] { std::memcpy(rc_.status, "FE", 3); }, [&] { calls_.push_back("add"); },
        [&] { calls_.push_back("change"); });
  } catch (const UnitAbort&) {
    aborted = true;
  }
  EXPECT_TRUE(aborted);
  EXPECT_TRUE(calls_.empty());
}

TEST_F(OpenEntryTest, WhereTheBlocksCheckTheWindowCallsNoCheckOfItsOwn) {
  TextMove(kept_, "ADD", 81);
  Write(kBlocksCheck, /*found=*/true);
  EXPECT_EQ((std::vector<std::string>{"add"}), calls_);
  EXPECT_EQ(EXIT_CANCEL, rc_.exit_state);
  EXPECT_STREQ("RETURN", rc_.command);
  calls_.clear();
  TextMove(kept_, "CHANGE", 81);
  TextMove(name_.value, "AC", 7);
  Write(kBlocksCheck, /*found=*/true);
  EXPECT_EQ((std::vector<std::string>{"change"}), calls_);
}

TEST_F(OpenEntryTest, WhereTheBlocksCheckTheirMessageStandsAndNothingIsRolledBack) {
  TextMove(kept_, "CHANGE", 81);
  TextMove(name_.value, "AC", 7);
  SetCommand(&rc_, "CHANGE");
  OpenEntryWrite(
      kBlocksCheck, &rc_, kOwn, kept_, {{name_.value, hidden_.value}}, {name_.display},
      [&] { calls_.push_back("check"); }, [&] { calls_.push_back("add"); },
      [&] {
        calls_.push_back("change");
        SetExit(&rc_, kNotUnique, "THING already exists", 'E');
      });
  EXPECT_EQ((std::vector<std::string>{"change"}), calls_);
  EXPECT_EQ(kNotUnique, rc_.exit_state);
  EXPECT_EQ('E', rc_.message_kind);
  EXPECT_NE('R', rc_.exit_rollback);
  EXPECT_EQ("THING already exists", std::string(rc_.exit_message, 20));
  // The window stays: no return command.
  EXPECT_STREQ("CHANGE", rc_.command);
  EXPECT_EQ(std::string(kDisplayNormal, 6), std::string(name_.display, 6));
}

}  // namespace
}  // namespace lk::patterns
