// The body-style data entry window with action blocks of its own that
// record their calls: the required field, the duplicate check and its
// words, the write of ADD and of CHANGE, a change of nothing, the internal
// error, a fatal stop in a block, and Changed and Cancel.
#include "patterns/body_entry.h"

#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace lk::patterns {
namespace {

struct EntryRow {
  char IS_NUMBER[8];
  char NAME[11];
  char STAMP[21];
};
struct EntryShown {
  Shown<8> IS_NUMBER;
  Shown<11> NAME;
  Shown<21> STAMP;
};
struct EntryGroup {
  std::int32_t count;
  ShownColumn<1, 2> SELECT_CHAR;
  ShownColumn<1, 8> IS_NUMBER;
  ShownColumn<1, 11> NAME;
  ShownColumn<1, 21> STAMP;
};
struct EntryImportGroup {
  std::int32_t count;
  Column<1, 2> SELECT_CHAR;
  Column<1, 8> IS_NUMBER;
  Column<1, 11> NAME;
  Column<1, 21> STAMP;
};

constexpr AttributeType kNumber = {13, "B ", 12, "", nullptr, 0, {0, 0}};
constexpr AttributeType kName = {11, "S ", 10, "", nullptr, 0, {0, 0}};
constexpr AttributeType kStamp = {21, "Q ", 20, "", nullptr, 0, {0, 0}};

struct EntryForms {
  using Row = EntryRow;
  using Shown = EntryShown;
  using Group = EntryGroup;
  using ImportGroup = EntryImportGroup;
  static constexpr int kRows = 1;
  static constexpr RowAttribute kAttributes[] = {
      LK_ROW_ATTRIBUTE(EntryForms, IS_NUMBER, kNumber, false),
      LK_ROW_ATTRIBUTE(EntryForms, NAME, kName, true),
      LK_ROW_ATTRIBUTE(EntryForms, STAMP, kStamp, false),
  };
};
using Export = BodyEntryExport<EntryForms>;
using Import = BodyEntryImport<EntryForms>;

constexpr u32 kNotFound = 0x22220001;
constexpr u32 kDuplicate = 0x22220002;
constexpr u32 kOddExit = 0x22220003;
constexpr TimestampSlot kNoStamps[] = {{0, 0}};

std::string Trim(const char* text) {
  std::string s(text);
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s;
}

// What the fake blocks do, and what they were called with.
struct Blocks {
  bool found = false;        // the duplicate check finds a row
  bool write_fails = false;  // the write leaves an exit state and no row
  bool write_odd = false;    // the write returns its row with an odd exit state
  bool write_fatal = false;  // the write stops with a fatal status
  std::vector<std::string> calls;
} blocks;

struct TestEntry {
  using Forms = EntryForms;
  static constexpr ViewShape kShape = {sizeof(Export), kNoStamps, kNoStamps};
  static constexpr UnitId kBodyId = {"0000000200", "TEST_ENTRY"};
  static constexpr u32 kNotFound = patterns::kNotFound;
  static constexpr u32 kDuplicateExit = kDuplicate;
  static constexpr const char* kDuplicateText = "This name is in use.";
  static bool CheckFields(RunContext* rc, Export* out) {
    return CheckRequired(rc, {{out->EXPORT.ROW.NAME.display, out->EXPORT.ROW.NAME.value}});
  }
  static void CheckDuplicate(HandleA, HandleB, RunContext* rc, const Export& in, bool adding) {
    blocks.calls.push_back(std::string(adding ? "check add " : "check change ") +
                           Trim(in.EXPORT.ROW.NAME.value));
    if (!blocks.found) SetExit(rc, kNotFound, "not found", 'N');
  }
  static void Write(const char* what, RunContext* rc, const SystemVariableView* system,
                    const EntryRow* row, EntryRow* written) {
    blocks.calls.push_back(std::string(what) + " " + Trim(system->USER_ID_CODE));
    if (blocks.write_fatal) {
      std::memcpy(rc->status, "FE", 3);
      return;
    }
    if (blocks.write_fails) {
      SetExit(rc, kOddExit, "the block's own words", 'N');
      return;
    }
    *written = *row;
    PutNumber(written->IS_NUMBER, 77);
    std::memcpy(written->STAMP, "20240513091954000000", 21);
    if (blocks.write_odd) SetExit(rc, kOddExit, "the block's own words", 'N');
  }
  static constexpr UnitId kIdentifyId = {"0000000203", "TEST_IDENTIFY"};
  static constexpr UnitId kModifyId = {"0000000204", "TEST_MODIFY"};
  struct Blocks {
    static void Identify(const UnitId&, HandleA, HandleB, RunContext* rc,
                         const SystemVariableView* system, const EntryRow* row,
                         EntryRow* written) {
      Write("identify", rc, system, row, written);
    }
    static void Modify(const UnitId&, HandleA, HandleB, RunContext* rc,
                       const SystemVariableView* system, const EntryRow* row,
                       EntryRow* written) {
      Write("modify", rc, system, row, written);
    }
  };
};
using Entry = BodyEntry<TestEntry>;

constexpr UnitId kAcceptId = {"0000000201", "TEST_ENTRY_ACCEPT"};

class BodyEntryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    blocks = Blocks{};
    ResetRunContext(&rc_, area_);
    std::memset(&in_, 0, sizeof in_);
    std::memset(&out_, 0, sizeof out_);
    TextMove(out_.EXPORT.SYSTEM_VARIABLE.USER_ID_CODE.value, "JSMITH", 9);
    TextMove(out_.EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID.value, "ORG1", 9);
    std::memcpy(out_.EXPORT.ROW.STAMP.value, kDefaultTimestamp, 21);
  }
  void Opened(const char* command, const char* name) {
    TextMove(out_.EXPORT.RUNTIME_SUPPLIED.COMMAND.value, command, 81);
    TextMove(out_.EXPORT.ROW.NAME.value, name, 11);
  }
  void Accept() {
    rc_.run_mode = ' ';
    Entry::Accept(kAcceptId, nullptr, nullptr, &rc_, &in_, &out_);
  }
  std::string Message() { return Trim(rc_.exit_message); }
  std::string Flag() { return out_.EXPORT_DATA_CHANGED.FLAG.value; }

  RunContext rc_;
  char area_[kDatabaseAreaSize];
  Import in_;
  Export out_;
};

TEST_F(BodyEntryTest, AddChecksWritesTakesTheRowBackAndReturnsWithRefresh) {
  Opened("ADD", "NEW");
  TextMove(out_.EXPORT_DATA_CHANGED.FLAG.value, "Y", 2);
  Accept();
  EXPECT_EQ(std::vector<std::string>({"check add NEW", "identify JSMITH"}), blocks.calls);
  EXPECT_EQ(77, GetNumber(out_.EXPORT.ROW.IS_NUMBER.value));
  EXPECT_EQ("20240513091954000000", std::string(out_.EXPORT.ROW.STAMP.value));
  EXPECT_EQ("N", Flag());
  EXPECT_EQ("3a    ", std::string(out_.EXPORT.ROW.NAME.display, 6));
  EXPECT_STREQ("REFRESH", rc_.command);
  EXPECT_EQ(EXIT_RETURN, rc_.exit_state);
  EXPECT_EQ('N', rc_.message_kind);
  EXPECT_STREQ("TEST_ENTRY_ACCEPT", rc_.unit_name);
}

TEST_F(BodyEntryTest, ABlankRequiredFieldStopsBeforeAnyBlock) {
  Opened("ADD", "");
  Accept();
  EXPECT_TRUE(blocks.calls.empty());
  EXPECT_EQ(EXIT_FIELD_REQUIRED, rc_.exit_state);
  EXPECT_EQ(kFieldRequiredText, Message());
  EXPECT_EQ("10    ", std::string(out_.EXPORT.ROW.NAME.display, 6));
  EXPECT_STREQ("", rc_.command);
}

TEST_F(BodyEntryTest, AFoundDuplicateGivesTheModulesWordsAndMarksTheKey) {
  Opened("ADD", "OLD");
  blocks.found = true;
  Accept();
  EXPECT_EQ(std::vector<std::string>({"check add OLD"}), blocks.calls);
  EXPECT_EQ(kDuplicate, rc_.exit_state);
  EXPECT_EQ("This name is in use.", Message());
  EXPECT_EQ('E', rc_.message_kind);
  EXPECT_EQ("10    ", std::string(out_.EXPORT.ROW.NAME.display, 6));
  EXPECT_NE("10    ", std::string(out_.EXPORT.ROW.IS_NUMBER.display, 6));
}

TEST_F(BodyEntryTest, AWriteThatWroteNothingIsTheInternalErrorAndKeepsWhatWasTyped) {
  Opened("ADD", "TYPED");
  blocks.write_fails = true;
  Accept();
  EXPECT_EQ(EXIT_SYSTEM_ERROR, rc_.exit_state);
  EXPECT_EQ(kSystemErrorText, Message());
  EXPECT_EQ('E', rc_.message_kind);
  EXPECT_EQ('R', rc_.exit_rollback);
  EXPECT_EQ("TYPED", Trim(out_.EXPORT.ROW.NAME.value));
  EXPECT_EQ(kDefaultTimestamp, std::string(out_.EXPORT.ROW.STAMP.value));
  EXPECT_EQ("N", Flag());
}

TEST_F(BodyEntryTest, AWriteWithAnOddExitStateShowsItsStampUnderTheInternalError) {
  Opened("ADD", "TYPED");
  blocks.write_odd = true;
  Accept();
  EXPECT_EQ(EXIT_SYSTEM_ERROR, rc_.exit_state);
  EXPECT_EQ("20240513091954000000", std::string(out_.EXPORT.ROW.STAMP.value));
}

TEST_F(BodyEntryTest, ChangeOfNothingRunsNoBlockAndReturns) {
  Opened("CHANGE", "SAME");
  TextMove(out_.EXPORT_DATA_CHANGED.FLAG.value, "N", 2);
  Accept();
  EXPECT_TRUE(blocks.calls.empty());
  EXPECT_STREQ("REFRESH", rc_.command);
  EXPECT_EQ(EXIT_RETURN, rc_.exit_state);
}

TEST_F(BodyEntryTest, ChangedThenAcceptChecksAndModifies) {
  Opened("CHANGE", "SAME");
  rc_.run_mode = ' ';
  SetExit(&rc_, EXIT_FIELD_REQUIRED, kFieldRequiredText, 'E');
  Entry::Changed(kAcceptId, nullptr, nullptr, &rc_, &in_, &out_);
  EXPECT_EQ("Y", Flag());
  EXPECT_EQ(EXIT_NONE, rc_.exit_state);
  EXPECT_EQ('N', rc_.message_kind);
  Accept();
  EXPECT_EQ(std::vector<std::string>({"check change SAME", "modify JSMITH"}), blocks.calls);
  EXPECT_EQ("N", Flag());
  EXPECT_EQ(EXIT_RETURN, rc_.exit_state);
}

TEST_F(BodyEntryTest, AnyOtherCommandWritesNothing) {
  Opened("LIST", "X");
  TextMove(out_.EXPORT_DATA_CHANGED.FLAG.value, "Y", 2);
  Accept();
  EXPECT_TRUE(blocks.calls.empty());
  EXPECT_EQ(EXIT_RETURN, rc_.exit_state);
}

TEST_F(BodyEntryTest, AFatalStopInABlockEndsTheAcceptThere) {
  Opened("ADD", "NEW");
  blocks.write_fatal = true;
  Accept();
  EXPECT_EQ(std::vector<std::string>({"check add NEW", "identify JSMITH"}), blocks.calls);
  EXPECT_STREQ("FE", rc_.status);
  EXPECT_STREQ("", rc_.command);
  EXPECT_NE(EXIT_RETURN, rc_.exit_state);
}

TEST_F(BodyEntryTest, CancelTestsNothingAndReturnsWithRefresh) {
  Opened("ADD", "");
  rc_.run_mode = ' ';
  Entry::Cancel(kAcceptId, nullptr, nullptr, &rc_, &in_, &out_);
  EXPECT_STREQ("REFRESH", rc_.command);
  EXPECT_EQ(EXIT_RETURN, rc_.exit_state);
  EXPECT_EQ("      ", std::string(6, ' '));
  EXPECT_NE("10    ", std::string(out_.EXPORT.ROW.NAME.display, 6));
}

TEST_F(BodyEntryTest, WroteRowLooksAtTheStamps) {
  EntryRow row{};
  EXPECT_FALSE(WroteRow(EntryForms::kAttributes, &row));
  std::memcpy(row.STAMP, kDefaultTimestamp, 21);
  EXPECT_FALSE(WroteRow(EntryForms::kAttributes, &row));
  std::memcpy(row.STAMP, "20010203040506000000", 21);
  EXPECT_TRUE(WroteRow(EntryForms::kAttributes, &row));
}

}  // namespace
}  // namespace lk::patterns
