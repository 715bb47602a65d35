// Tests of export_pack and import_unpack and of the ViewStream encoding.
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "frame/transport/plan.h"
#include "frame/transport/testutil.h"
#include "gtest/gtest.h"

namespace lk::testing {
namespace {

struct Record {
  char letter;
  std::uint32_t width;
  std::uint32_t count;
  std::string bytes;
};

// Splits a stream into its records by the encoding of plan.h.
std::vector<Record> Records(const ViewStream& s) {
  std::vector<Record> out;
  std::uint32_t pos = 0;
  while (pos + 9 <= s.size) {
    Record r;
    r.letter = s.data[pos];
    std::memcpy(&r.width, s.data + pos + 1, 4);
    std::memcpy(&r.count, s.data + pos + 5, 4);
    std::uint32_t element = 0;
    switch (r.letter) {
      case 'S': case 'Y': element = r.width; break;
      case 'Q': element = 21; break;
      case 'L': case 'B': element = 4; break;
      case 'N': element = 8; break;
      case 'C': element = 1; break;
    }
    r.bytes.assign(s.data + pos + 9, element * r.count);
    pos += 9 + element * r.count;
    out.push_back(r);
  }
  EXPECT_EQ(pos, s.size);
  return out;
}

void Fill(ItemExport* e, int count) {
  std::memset(e, 0, sizeof *e);
  std::memcpy(e->code.value, "AB  ", 5);
  std::strcpy(e->name.value, "Hello");
  std::memcpy(e->stamp.value, "20040513091954000000", 21);
  SetDouble(e->amount.value, 3.5);
  SetLong(e->number.value, -9);
  std::memcpy(e->flag.value, "Y", 2);
  e->count = count;
  for (int r = 0; r <= kRows; ++r) {
    std::memcpy(e->row_flag.value[r], r == 2 ? "S" : " ", 2);
    const char code[5] = {'R', static_cast<char>('0' + r), ' ', ' ', '\0'};
    std::memcpy(e->row_code.value[r], code, 5);
    SetDouble(e->row_amount.value[r], r + 0.5);
  }
}

class StreamTest : public ::testing::Test {
 protected:
  StreamTest() : buffer_(4096, '\0') { stream_ = {buffer_.data(), 0, 4096, 0}; }

  std::vector<char> buffer_;
  ViewStream stream_;
};

TEST_F(StreamTest, EmptyGroupPacksCountNoFlagsAndSkipsTheLimit) {
  ItemExport ex;
  Fill(&ex, 0);
  ExportPackBy(kItemViews, &ex, &stream_);
  const std::vector<Record> records = Records(stream_);
  ASSERT_EQ(11u, records.size());
  const char singles[] = {'S', 'Y', 'Q', 'N', 'L', 'S'};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(singles[i], records[i].letter);
    EXPECT_EQ(1u, records[i].count);
  }
  EXPECT_EQ(14u, records[3].width);  // a number's width is its digits
  EXPECT_EQ('B', records[6].letter);
  std::int32_t count;
  std::memcpy(&count, records[6].bytes.data(), 4);
  EXPECT_EQ(0, count);
  for (int i = 7; i < 11; ++i) {
    EXPECT_EQ('-', records[i].letter);  // no 'C' flags, and each skip is the limit
    EXPECT_EQ(static_cast<std::uint32_t>(kRows), records[i].count);
  }
}

TEST_F(StreamTest, GroupRowsFollowTheirCountAndFlags) {
  ItemExport ex;
  Fill(&ex, 2);
  ExportPackBy(kItemViews, &ex, &stream_);
  const std::vector<Record> records = Records(stream_);
  // 6 singles; count, flags, skip; then three columns each with its skip.
  ASSERT_EQ(6u + 3u + 6u, records.size());
  EXPECT_EQ('C', records[7].letter);
  EXPECT_EQ("YY", records[7].bytes);
  EXPECT_EQ('-', records[8].letter);
  EXPECT_EQ(1u, records[8].count);
  EXPECT_EQ('S', records[9].letter);  // the row flag column
  EXPECT_EQ(std::string(" \0S\0", 4), records[9].bytes);
  EXPECT_EQ('S', records[11].letter);  // the code column, rows 1 and 2
  EXPECT_EQ(std::string("R1  \0R2  \0", 10), records[11].bytes);
  EXPECT_EQ('N', records[13].letter);
  EXPECT_EQ(2u, records[13].count);
}

TEST_F(StreamTest, FullGroupHasNoSkips) {
  ItemExport ex;
  Fill(&ex, kRows);
  ExportPackBy(kItemViews, &ex, &stream_);
  for (const Record& r : Records(stream_)) EXPECT_NE('-', r.letter);
}

TEST_F(StreamTest, PackThenUnpackRoundTrip) {
  ItemExport ex;
  Fill(&ex, 2);
  ExportPackBy(kItemViews, &ex, &stream_);
  EXPECT_EQ(ExportPackSize(kItemViews, &ex), stream_.size);
  ItemImport im;
  std::memset(&im, 0, sizeof im);
  ImportUnpackBy(kItemViews, &im, &stream_);
  EXPECT_EQ(stream_.size, stream_.position);
  EXPECT_EQ(0, std::memcmp(im.code.value, "AB  \0", 5));
  EXPECT_EQ("Hello", std::string(im.name.value));
  EXPECT_EQ("20040513091954000000", std::string(im.stamp));
  EXPECT_EQ(3.5, im.amount);
  EXPECT_EQ(-9, im.number);
  EXPECT_EQ("Y", std::string(im.flag.value));
  EXPECT_EQ(2, im.count);
  EXPECT_EQ("R1  ", std::string(im.row_code.value[1]));
  EXPECT_EQ("R2  ", std::string(im.row_code.value[2]));
  EXPECT_EQ('S', im.row_flag.value[2][0]);
  EXPECT_EQ(2.5, GetDouble(im.row_amount.value[2]));
  // Rows beyond the count, and slot 0, do not travel.
  EXPECT_EQ(std::string(5, '\0'), std::string(im.row_code.value[3], 5));
  EXPECT_EQ(std::string(5, '\0'), std::string(im.row_code.value[0], 5));
}

TEST_F(StreamTest, TwoViewsInOneStreamReadInTurn) {
  ItemExport first, second;
  Fill(&first, 1);
  Fill(&second, 3);
  std::memcpy(second.code.value, "CD  ", 5);
  ExportPackBy(kItemViews, &first, &stream_);
  ExportPackBy(kItemViews, &second, &stream_);
  ItemImport a, b;
  std::memset(&a, 0, sizeof a);
  std::memset(&b, 0, sizeof b);
  ImportUnpackBy(kItemViews, &a, &stream_);
  ImportUnpackBy(kItemViews, &b, &stream_);
  EXPECT_EQ(1, a.count);
  EXPECT_EQ("AB  ", std::string(a.code.value));
  EXPECT_EQ(3, b.count);
  EXPECT_EQ("CD  ", std::string(b.code.value));
  EXPECT_EQ("R3  ", std::string(b.row_code.value[3]));
}

TEST_F(StreamTest, PackWithoutRoomWritesNothing) {
  ItemExport ex;
  Fill(&ex, 3);
  const std::uint32_t need = ExportPackSize(kItemViews, &ex);
  std::vector<char> small(need - 1, '\x55');
  ViewStream s = {small.data(), 0, need - 1, 0};
  ExportPackBy(kItemViews, &ex, &s);
  EXPECT_EQ(0u, s.size);
  EXPECT_EQ(std::vector<char>(need - 1, '\x55'), small);
  // An unpack of the empty stream leaves the import view as it stands.
  ItemImport im;
  std::memset(&im, 0x11, sizeof im);
  ItemImport before = im;
  ImportUnpackBy(kItemViews, &im, &s);
  EXPECT_EQ(0, std::memcmp(&before, &im, sizeof im));

  std::vector<char> exact(need);
  ViewStream t = {exact.data(), 0, need, 0};
  ExportPackBy(kItemViews, &ex, &t);
  EXPECT_EQ(need, t.size);
}

TEST_F(StreamTest, UnpackStopsAtARecordOfAnotherForm) {
  ItemExport ex;
  Fill(&ex, 2);
  ExportPackBy(kItemViews, &ex, &stream_);
  // The entry views take CODE (S, 5) as the item's, then expect a NAME of
  // 21 bytes where the stream holds 11: the unpack stops there.
  EntryImport im;
  std::memset(&im, 0, sizeof im);
  std::strcpy(im.name.value, "kept");
  im.count = 1;
  ImportUnpackBy(kEntryViews, &im, &stream_);
  EXPECT_EQ("AB  ", std::string(im.code.value));
  EXPECT_EQ("kept", std::string(im.name.value));
  EXPECT_EQ(1, im.count);
}

TEST_F(StreamTest, GroupWithoutImportCountStillTakesItsRows) {
  ItemExport ex;
  Fill(&ex, 2);
  ExportPackBy(kItemViews, &ex, &stream_);
  ItemImport im;
  std::memset(&im, 0, sizeof im);
  ImportUnpackBy(kItemViewsNoImportCount, &im, &stream_);
  EXPECT_EQ(0, im.count);  // no import count to set
  EXPECT_EQ("R2  ", std::string(im.row_code.value[2]));
  EXPECT_EQ(stream_.size, stream_.position);
}

}  // namespace
}  // namespace lk::testing
