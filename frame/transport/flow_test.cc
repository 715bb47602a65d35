// Tests of send and receive, and of the template shapes the tables refer to.
#include <cstring>
#include <string>

#include "frame/transport/plan.h"
#include "frame/transport/testutil.h"
#include "gtest/gtest.h"

namespace lk::testing {
namespace {

void FillItem(ItemExport* e) {
  std::memset(e, 0, sizeof *e);
  std::memcpy(e->code.value, "AB  ", 5);
  std::strcpy(e->name.value, "Hello");
  SetDouble(e->amount.value, 8.0);
  e->count = 2;
  for (int r = 0; r <= kRows; ++r) {
    const char code[5] = {'S', static_cast<char>('0' + r), ' ', ' ', '\0'};
    std::memcpy(e->row_code.value[r], code, 5);
    std::memcpy(e->row_flag.value[r], "C", 2);
  }
}

TEST(FlowTest, SendCopiesOnlyThePairs) {
  ItemExport source;
  FillItem(&source);
  EntryImport target;
  std::memset(&target, 0, sizeof target);
  SendBy(kItemToEntry, &target, &source);
  EXPECT_EQ("AB  ", std::string(target.code.value));
  // A wider varying text takes the value and NUL-fills behind it.
  EXPECT_EQ(std::string("Hello") + std::string(16, '\0'), std::string(target.name.value, 21));
  // A group column goes whole, with the group's count.
  EXPECT_EQ(2, target.count);
  for (int r = 0; r <= kRows; ++r) {
    EXPECT_EQ(std::string(source.row_code.value[r]), std::string(target.row_code.value[r]));
  }
  // The row flags are no pair of this flow.
  EXPECT_EQ(std::string(2, '\0'), std::string(target.row_flag.value[1], 2));
}

TEST(FlowTest, ReceiveRebuildsTheImportThenLaysTheTargetOverIt) {
  ItemExport source_export;
  FillItem(&source_export);
  ItemImport source_import;
  std::memset(&source_import, 0x7F, sizeof source_import);
  EntryExport target;
  std::memset(&target, 0, sizeof target);
  std::strcpy(target.name.value, "A rather long name");
  std::memcpy(target.code.value, "ZZZZ", 5);
  target.count = 3;
  for (int r = 0; r <= kRows; ++r) std::memcpy(target.row_code.value[r], "T   ", 5);

  ReceiveBy(kItemToEntry, &source_export, &source_import, &target);

  // From the source's own export view.
  EXPECT_EQ("AB  ", std::string(source_import.code.value));
  EXPECT_EQ(8.0, source_import.amount);
  EXPECT_EQ("C", std::string(source_import.row_flag.value[1]));
  // From the target's export view: the name, cut to the source's width, and
  // the code column with its count.
  EXPECT_EQ("A rather l", std::string(source_import.name.value));
  EXPECT_EQ(3, source_import.count);
  EXPECT_EQ("T   ", std::string(source_import.row_code.value[3]));
}

TEST(FlowTest, TemplateShapesCallTheGenericFunctions) {
  FlowSend send = &Send<kItemToEntry>;
  FlowReceive receive = &Receive<kItemToEntry>;
  ViewCopy to_import = &ExportToImport<kItemViews>;
  ViewCopy to_export = &ImportToExport<kItemViews>;
  StreamFn pack = &ExportPack<kItemViews>;
  StreamFn unpack = &ImportUnpack<kItemViews>;
  WindowIo write = &WriteWindow<kItemWindow>;
  WindowIo read = &ReadWindow<kItemWindow>;

  ItemExport ex;
  FillItem(&ex);
  EntryImport target;
  std::memset(&target, 0, sizeof target);
  send(&target, &ex);
  EXPECT_EQ("AB  ", std::string(target.code.value));

  ItemImport im;
  std::memset(&im, 0, sizeof im);
  to_import(&ex, &im);
  EXPECT_EQ("Hello", std::string(im.name.value));
  ItemExport again;
  std::memset(&again, 0, sizeof again);
  to_export(&im, &again);
  EXPECT_EQ("Hello", std::string(again.name.value));

  char buffer[2048];
  ViewStream s = {buffer, 0, sizeof buffer, 0};
  pack(&ex, &s);
  ItemImport unpacked;
  std::memset(&unpacked, 0, sizeof unpacked);
  unpack(&unpacked, &s);
  EXPECT_EQ("Hello", std::string(unpacked.name.value));

  FakeScreen screen;
  write(screen.window(), &ex);
  EXPECT_EQ("Hello", std::string(screen.field(kName)));
  screen.Type(kName, "Typed");
  read(screen.window(), &im);
  EXPECT_EQ("Typed", std::string(im.name.value));

  EntryExport target_export;
  std::memset(&target_export, 0, sizeof target_export);
  std::strcpy(target_export.name.value, "Back");
  receive(&ex, &im, &target_export);
  EXPECT_EQ("Back", std::string(im.name.value));
}

}  // namespace
}  // namespace lk::testing
