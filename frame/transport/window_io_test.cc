// Tests of read_window and write_window against the fake ScreenPort.
#include <cstring>
#include <string>

#include "frame/transport/plan.h"
#include "frame/transport/testutil.h"
#include "gtest/gtest.h"

namespace lk::testing {
namespace {

void SetDisplay(char* display, const char* text) { std::memcpy(display, text, 6); }

void SetRow(ItemExport* e, int r, const char* flag, const char* code, double amount) {
  std::memcpy(e->row_flag.value[r], flag, 2);
  std::memcpy(e->row_code.value[r], code, 5);
  SetDouble(e->row_amount.value[r], amount);
  SetDisplay(e->row_flag.display[r], kDisplayNormal);
  SetDisplay(e->row_code.display[r], kDisplayNormal);
  SetDisplay(e->row_amount.display[r], kDisplayNormal);
}

// An export view with a value in every attribute and three group rows.
void Fill(ItemExport* e) {
  std::memset(e, 0, sizeof *e);
  std::memcpy(e->code.value, "AB  ", 5);
  std::strcpy(e->name.value, "Hello");
  std::memcpy(e->stamp.value, "20040513091954123456", 21);
  SetDouble(e->amount.value, 1234.5678);
  SetLong(e->number.value, 42);
  std::memcpy(e->flag.value, "N", 2);
  SetDisplay(e->code.display, kDisplayNormal);
  SetDisplay(e->name.display, kDisplayNormal);
  SetDisplay(e->stamp.display, kDisplayProtected);
  SetDisplay(e->amount.display, kDisplayNormal);
  SetDisplay(e->number.display, kDisplayNormal);
  SetDisplay(e->flag.display, kDisplayNormal);
  e->count = 3;
  SetRow(e, 1, " ", "R1  ", 1.5);
  SetRow(e, 2, "S", "R2  ", 2.25);
  SetRow(e, 3, " ", "R3  ", -3);
}

std::string Text(const char* p) { return std::string(p); }

class WindowIoTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::memset(&ex_, 0, sizeof ex_);
    std::memset(&im_, 0, sizeof im_);
  }
  void Write() { WriteWindowBy(kItemWindow, screen_.window(), &ex_); }
  void Read() { ReadWindowBy(kItemWindow, screen_.window(), &im_); }

  ItemExport ex_;
  ItemImport im_;
  FakeScreen screen_;
};

TEST_F(WindowIoTest, EntryFieldsShowValuesAsText) {
  Fill(&ex_);
  Write();
  EXPECT_EQ("AB  ", Text(screen_.field(kCode)));
  EXPECT_EQ("Hello", Text(screen_.field(kName)));
  EXPECT_EQ("2004-05-13-09.19.54.123456", Text(screen_.field(kStamp)));
  EXPECT_EQ("1234.5678", Text(screen_.field(kAmount)));
  EXPECT_EQ("42", Text(screen_.field(kNumber)));
  EXPECT_EQ("3a    ", screen_.display(kCode));
  EXPECT_EQ("3g    ", screen_.display(kStamp));
}

TEST_F(WindowIoTest, ZeroNumbersAndZeroedTimestampShowBlank) {
  Write();
  EXPECT_EQ("", Text(screen_.field(kAmount)));
  EXPECT_EQ("", Text(screen_.field(kNumber)));
  EXPECT_EQ("", Text(screen_.field(kStamp)));
  // A zeroed fixed text shows as blanks, the way a text move holds it.
  EXPECT_EQ("    ", Text(screen_.field(kCode)));
}

TEST_F(WindowIoTest, DefaultTimestampShowsThroughThePicture) {
  std::memcpy(ex_.stamp.value, kDefaultTimestamp, 21);
  Write();
  EXPECT_EQ("0000-00-00-00.00.00.000000", Text(screen_.field(kStamp)));
}

TEST_F(WindowIoTest, CursorSettingFiresOnce) {
  Fill(&ex_);
  SetDisplay(ex_.code.display, kDisplayCursor);
  Write();
  EXPECT_EQ("3i    ", screen_.display(kCode));
  EXPECT_EQ("3a    ", std::string(ex_.code.display, 6));
  Write();
  EXPECT_EQ("3a    ", screen_.display(kCode));
}

TEST_F(WindowIoTest, SecondCharacterRuleLeavesOtherSettings) {
  Fill(&ex_);
  SetDisplay(ex_.code.display, kDisplayError);
  SetDisplay(ex_.name.display, kDisplayProtectedKey);
  Write();
  EXPECT_EQ("10    ", std::string(ex_.code.display, 6));
  EXPECT_EQ("3gA2B7", std::string(ex_.name.display, 6));
  EXPECT_EQ("3gA2B7", screen_.display(kName));
}

TEST_F(WindowIoTest, CursorInAListRowFiresOnce) {
  Fill(&ex_);
  SetDisplay(ex_.row_code.display[2], kDisplayCursor);
  Write();
  const std::string& row = screen_.rows(kList)[1].bytes;
  EXPECT_EQ("3i    ", row.substr(8, 6));
  EXPECT_EQ("3a    ", std::string(ex_.row_code.display[2], 6));
  Write();
  EXPECT_EQ("3a    ", screen_.rows(kList)[1].bytes.substr(8, 6));
}

TEST_F(WindowIoTest, FullLengthValueHasNoPaddingAndReadKeepsTheNul) {
  std::memcpy(ex_.code.value, "ABCD", 5);
  Write();
  EXPECT_EQ("ABCD", Text(screen_.field(kCode)));
  EXPECT_EQ('\0', screen_.field(kCode)[4]);
  // The read copies the four characters and never the attribute's last
  // byte: a mark put there stays.
  im_.code.value[4] = '#';
  screen_.Type(kCode, "WXYZ");
  Read();
  EXPECT_EQ(0, std::memcmp(im_.code.value, "WXYZ#", 5));
}

TEST_F(WindowIoTest, ShortTypedTextIsPaddedByItsType) {
  Fill(&ex_);
  ExportToImportBy(kItemViews, &ex_, &im_);
  screen_.Type(kCode, "X");
  screen_.Type(kName, "Hi");
  Read();
  EXPECT_EQ(0, std::memcmp(im_.code.value, "X   \0", 5));
  EXPECT_EQ(0, std::memcmp(im_.name.value, "Hi\0\0\0\0\0\0\0\0\0", 11));
}

TEST_F(WindowIoTest, TypedValuesReadBack) {
  Fill(&ex_);
  ExportToImportBy(kItemViews, &ex_, &im_);
  Write();
  screen_.Type(kAmount, " 12.5 ");
  screen_.Type(kNumber, "-7");
  screen_.Type(kStamp, "2010-01-02-03.04.05.000006");
  screen_.Choose(kFlag, 0);
  Read();
  EXPECT_EQ(12.5, im_.amount);
  EXPECT_EQ(-7, im_.number);
  EXPECT_EQ("20100102030405000006", std::string(im_.stamp));
  EXPECT_EQ("Y", std::string(im_.flag.value));
}

TEST_F(WindowIoTest, BlankFieldsReadAsNothing) {
  Fill(&ex_);
  ExportToImportBy(kItemViews, &ex_, &im_);
  screen_.Type(kAmount, "");
  screen_.Type(kNumber, "  ");
  screen_.Type(kStamp, "");
  Read();
  EXPECT_EQ(0.0, im_.amount);
  EXPECT_EQ(0, im_.number);
  EXPECT_EQ(std::string(21, '\0'), std::string(im_.stamp, 21));
}

TEST_F(WindowIoTest, TextThatIsNoNumberLeavesTheAttribute) {
  Fill(&ex_);
  ExportToImportBy(kItemViews, &ex_, &im_);
  screen_.Type(kAmount, "12x");
  Read();
  EXPECT_EQ(1234.5678, im_.amount);
}

TEST_F(WindowIoTest, OptionTakesThePositionOfTheValue) {
  Fill(&ex_);
  Write();
  EXPECT_EQ(1, screen_.option(kFlag));  // "N" is the second literal
  EXPECT_EQ("3a    ", screen_.display(kFlag));
  std::memcpy(ex_.flag.value, "X", 2);
  Write();
  EXPECT_EQ(-1, screen_.option(kFlag));
}

TEST_F(WindowIoTest, OptionWithoutSelectionLeavesTheAttribute) {
  std::memcpy(im_.flag.value, "Q", 2);
  screen_.Choose(kFlag, -1);
  Read();
  EXPECT_EQ("Q", std::string(im_.flag.value));
}

TEST_F(WindowIoTest, EmptyGroupGivesAnEmptyList) {
  Fill(&ex_);
  ex_.count = 0;
  Write();
  EXPECT_EQ(1, screen_.resets);
  EXPECT_EQ(0, screen_.reserved);
  EXPECT_TRUE(screen_.rows(kList).empty());
  EXPECT_EQ(0, screen_.flags_written_count);
}

TEST_F(WindowIoTest, ListRowsCarryDisplayAndValuesPerColumn) {
  Fill(&ex_);
  Write();
  ASSERT_EQ(3u, screen_.rows(kList).size());
  EXPECT_EQ(3, screen_.reserved);
  const std::string& row = screen_.rows(kList)[1].bytes;
  ASSERT_EQ(static_cast<std::size_t>(kItemRowSize), row.size());
  EXPECT_EQ(2, screen_.rows(kList)[1].number);
  EXPECT_EQ(std::string("3a    S\0", 8), row.substr(0, 8));
  EXPECT_EQ(std::string("3a    R2  \0", 11), row.substr(8, 11));
  EXPECT_EQ("3a    ", row.substr(19, 6));
  EXPECT_EQ(2.25, GetDouble(row.data() + 25));
  EXPECT_EQ(3, screen_.flags_written_count);
  EXPECT_EQ('S', screen_.flags(kList)[2]);
}

TEST_F(WindowIoTest, HiddenRowIsLeftOutAndRowsKeepTheirNumbers) {
  Fill(&ex_);
  std::memcpy(ex_.row_flag.value[2], "H", 2);
  Write();
  ASSERT_EQ(2u, screen_.rows(kList).size());
  EXPECT_EQ(1, screen_.rows(kList)[0].number);
  EXPECT_EQ(3, screen_.rows(kList)[1].number);
  EXPECT_EQ("R3  ", screen_.rows(kList)[1].bytes.substr(14, 4));
  EXPECT_EQ(3, screen_.reserved);

  // The user changes the code of the second row on screen, which is group
  // row 3; the read gives two rows and puts each at its own number.
  ExportToImportBy(kItemViews, &ex_, &im_);
  std::memcpy(&screen_.rows(kList)[1].bytes[14], "ZZZZ", 4);
  Read();
  EXPECT_EQ(2, screen_.rows_read);
  EXPECT_EQ("ZZZZ", std::string(im_.row_code.value[3]));
  EXPECT_EQ("R2  ", std::string(im_.row_code.value[2]));
  EXPECT_EQ("R1  ", std::string(im_.row_code.value[1]));
  EXPECT_EQ('H', im_.row_flag.value[2][0]);
  EXPECT_EQ(3, im_.count);  // the import count stays as it was
}

TEST_F(WindowIoTest, ReadTakesTheRowFlagsBack) {
  Fill(&ex_);
  Write();
  ExportToImportBy(kItemViews, &ex_, &im_);
  screen_.flags(kList)[1] = 'C';
  screen_.flags(kList)[2] = ' ';
  Read();
  EXPECT_EQ('C', im_.row_flag.value[1][0]);
  EXPECT_EQ(' ', im_.row_flag.value[2][0]);
}

// Writing a view and reading the window back, with nothing changed on
// screen, gives the import view that export_to_import made.
struct UnchangedCase {
  const char* name;
  void (*prepare)(ItemExport*);
};

const UnchangedCase kUnchangedCases[] = {
    {"filled", [](ItemExport* e) { Fill(e); }},
    {"zeroed", [](ItemExport* e) { std::memset(e, 0, sizeof *e); }},
    {"default timestamp",
     [](ItemExport* e) {
       Fill(e);
       std::memcpy(e->stamp.value, kDefaultTimestamp, 21);
     }},
    {"full length texts",
     [](ItemExport* e) {
       Fill(e);
       std::memcpy(e->code.value, "ABCD", 5);
       std::memcpy(e->name.value, "0123456789", 11);
     }},
    {"negative and fractional numbers",
     [](ItemExport* e) {
       Fill(e);
       SetDouble(e->amount.value, -0.1);
       SetLong(e->number.value, -2147483647 - 1);
     }},
    {"hidden row",
     [](ItemExport* e) {
       Fill(e);
       std::memcpy(e->row_flag.value[1], "H", 2);
     }},
    {"zeroed rows",
     [](ItemExport* e) {
       Fill(e);
       std::memset(e->row_code.value[2], 0, 5);
     }},
};

TEST_F(WindowIoTest, UnchangedWindowRewritesTheSameImport) {
  for (const UnchangedCase& c : kUnchangedCases) {
    SCOPED_TRACE(c.name);
    FakeScreen screen;
    c.prepare(&ex_);
    std::memset(&im_, 0, sizeof im_);
    ExportToImportBy(kItemViews, &ex_, &im_);
    ItemImport before = im_;
    WriteWindowBy(kItemWindow, screen.window(), &ex_);
    ReadWindowBy(kItemWindow, screen.window(), &im_);
    EXPECT_EQ(0, std::memcmp(&before, &im_, sizeof im_));
  }
}

}  // namespace
}  // namespace lk::testing
