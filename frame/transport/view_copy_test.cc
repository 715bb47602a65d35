// Tests of import_to_export and export_to_import.
#include <cstring>
#include <string>

#include "frame/transport/plan.h"
#include "frame/transport/testutil.h"
#include "gtest/gtest.h"

namespace lk::testing {
namespace {

void FillImport(ItemImport* im) {
  std::memset(im, 0, sizeof *im);
  std::memcpy(im->code.value, "AB", 3);  // short: the move pads it
  std::strcpy(im->name.value, "Hello");
  std::memcpy(im->stamp, "20040513091954000000", 21);
  im->amount = 12.25;
  im->number = 77;
  std::memcpy(im->flag.value, "Y", 2);
  im->count = 2;
  for (int r = 0; r <= kRows; ++r) {
    std::memcpy(im->row_flag.value[r], "S", 2);
    const char code[5] = {'I', static_cast<char>('0' + r), '\0', '\0', '\0'};
    std::memcpy(im->row_code.value[r], code, 5);
    SetDouble(im->row_amount.value[r], r * 1.5);
  }
}

TEST(ViewCopyTest, ImportToExportMovesEachAttributeByItsType) {
  ItemImport im;
  FillImport(&im);
  ItemExport ex;
  std::memset(&ex, 0, sizeof ex);
  std::memcpy(ex.code.display, "3i    ", 6);
  ImportToExportBy(kItemViews, &im, &ex);
  EXPECT_EQ(0, std::memcmp(ex.code.value, "AB  \0", 5));
  EXPECT_EQ(0, std::memcmp(ex.name.value, "Hello\0\0\0\0\0\0", 11));
  EXPECT_EQ("20040513091954000000", std::string(ex.stamp.value));
  EXPECT_EQ(12.25, GetDouble(ex.amount.value));
  EXPECT_EQ(77, GetLong(ex.number.value));
  EXPECT_EQ("Y", std::string(ex.flag.value));
  // Display bytes are the export view's own.
  EXPECT_EQ("3i    ", std::string(ex.code.display, 6));
}

TEST(ViewCopyTest, GroupCountComesFirstAndRowsFromZeroToCount) {
  ItemImport im;
  FillImport(&im);
  ItemExport ex;
  std::memset(&ex, 0, sizeof ex);
  ImportToExportBy(kItemViews, &im, &ex);
  EXPECT_EQ(2, ex.count);
  EXPECT_EQ("I0  ", std::string(ex.row_code.value[0]));
  EXPECT_EQ("I1  ", std::string(ex.row_code.value[1]));
  EXPECT_EQ("I2  ", std::string(ex.row_code.value[2]));
  EXPECT_EQ(3.0, GetDouble(ex.row_amount.value[2]));
  // Row 3 lies beyond the count and is not copied.
  EXPECT_EQ(std::string(5, '\0'), std::string(ex.row_code.value[3], 5));
  EXPECT_EQ(0.0, GetDouble(ex.row_amount.value[3]));
}

TEST(ViewCopyTest, CountBeyondTheLimitCopiesTheLimit) {
  ItemImport im;
  FillImport(&im);
  im.count = 99;
  ItemExport ex;
  std::memset(&ex, 0, sizeof ex);
  ImportToExportBy(kItemViews, &im, &ex);
  EXPECT_EQ(kRows, ex.count);
  EXPECT_EQ("I3  ", std::string(ex.row_code.value[3]));
}

TEST(ViewCopyTest, ExportToImportIsTheMirror) {
  ItemImport im;
  FillImport(&im);
  ItemExport ex;
  std::memset(&ex, 0, sizeof ex);
  ImportToExportBy(kItemViews, &im, &ex);
  ItemImport back;
  std::memset(&back, 0, sizeof back);
  ExportToImportBy(kItemViews, &ex, &back);
  EXPECT_EQ(0, std::memcmp(back.code.value, "AB  \0", 5));
  EXPECT_EQ("Hello", std::string(back.name.value));
  EXPECT_EQ(12.25, back.amount);
  EXPECT_EQ(77, back.number);
  EXPECT_EQ(2, back.count);
  EXPECT_EQ("I2  ", std::string(back.row_code.value[2]));
  EXPECT_EQ(std::string(5, '\0'), std::string(back.row_code.value[3], 5));
}

TEST(ViewCopyTest, GroupWithoutAnImportCountIsCopiedWhole) {
  ItemImport im;
  FillImport(&im);
  ItemExport ex;
  std::memset(&ex, 0, sizeof ex);
  ex.count = 1;
  ImportToExportBy(kItemViewsNoImportCount, &im, &ex);
  EXPECT_EQ(1, ex.count);  // left as it stands
  EXPECT_EQ("I3  ", std::string(ex.row_code.value[3]));
}

}  // namespace
}  // namespace lk::testing
