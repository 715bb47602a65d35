// Test-only views, dictionary, window and flow bindings for the transport
// tests, and a fake ScreenPort that keeps field buffers, lists and options in
// memory the way a host does.
//
// The "item" procedure has single attributes of every type and one group of
// kRows rows (a row flag, a code and an amount); the "entry" procedure is the
// target of a flow from it. All tables are static, as plans require.
#ifndef WATRIX_FRAME_TRANSPORT_TESTUTIL_H_
#define WATRIX_FRAME_TRANSPORT_TESTUTIL_H_

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "frame/host_port.h"
#include "frame/tables.h"
#include "frame/transport/plan.h"
#include "frame/views.h"

namespace lk::testing {

constexpr int kRows = 3;

struct ItemExport {
  char header[4];
  Shown<5> code;    // S, 4 characters
  Shown<11> name;   // Y, 10 characters
  Shown<21> stamp;  // Q
  Shown<8> amount;  // B, 14 digits with 4 decimals (a double's bytes)
  Shown<4> number;  // L
  Shown<2> flag;    // S, 1 character, "Y" or "N"
  std::int32_t count;
  ShownColumn<kRows, 2> row_flag;
  ShownColumn<kRows, 5> row_code;
  ShownColumn<kRows, 8> row_amount;
};

struct ItemImport {
  char header[4];
  Text<4> code;
  Text<10> name;
  char stamp[21];
  double amount;
  std::int32_t number;
  Text<1> flag;
  std::int32_t count;
  Column<kRows, 2> row_flag;
  Column<kRows, 5> row_code;
  Column<kRows, 8> row_amount;
};

struct EntryExport {
  char header[4];
  Shown<5> code;
  Shown<21> name;  // Y, 20 characters: wider than the item's
  std::int32_t count;
  ShownColumn<kRows, 2> row_flag;
  ShownColumn<kRows, 5> row_code;
};

struct EntryImport {
  char header[4];
  Text<4> code;
  Text<20> name;
  std::int32_t count;
  Column<kRows, 2> row_flag;
  Column<kRows, 5> row_code;
};

extern const ViewNameRow kItemViews;
extern const ViewNameRow kEntryViews;
// The item views without an import count for the group.
extern const ViewNameRow kItemViewsNoImportCount;
extern const WindowBinding kItemWindow;
extern const FlowBinding kItemToEntry;

// Field indexes of the item window, in ControlRow order.
enum ItemField { kCode, kName, kStamp, kAmount, kNumber, kFlag, kList, kButton, kFieldCount };

// Row size of the item list: (6 + 2) + (6 + 5) + (6 + 8).
constexpr int kItemRowSize = 33;

// Helpers on double and long attributes held as bytes.
double GetDouble(const char* bytes);
void SetDouble(char* bytes, double value);
std::int32_t GetLong(const char* bytes);
void SetLong(char* bytes, std::int32_t value);

// A window whose ScreenPort keeps everything in memory.
class FakeScreen {
 public:
  struct Row {
    int number;
    std::string bytes;
  };

  FakeScreen();
  FakeScreen(const FakeScreen&) = delete;
  FakeScreen& operator=(const FakeScreen&) = delete;

  HostWindow* window() { return &window_; }

  // The value buffer of field k and its display bytes, as text.
  char* field(int k) { return table_[k]; }
  std::string display(int k) const { return std::string(table_[k] - 6, 6); }
  // Sets a field's text as a person's typing would: the text, NUL-filled.
  void Type(int k, const std::string& text);

  std::vector<Row>& rows(int list) { return lists_[list]; }
  std::map<int, char>& flags(int list) { return flags_[list]; }
  int option(int k) const { return options_.count(k) ? options_.at(k) : -2; }
  void Choose(int k, int position) { options_[k] = position; }

  int resets = 0;
  int reserved = -1;
  int flags_written_count = -1;
  int rows_read = 0;

 private:
  static char** FieldTable(HostWindow* w);
  static void ListReset(HostWindow* w, int list);
  static void ListReserve(HostWindow* w, int list, int count);
  static void ListRowAdd(HostWindow* w, int list, const char* row, int row_size, int number);
  static int ListRowRead(HostWindow* w, int list, int start, char* row, int row_size,
                         int* number);
  static void ListFlagsRead(HostWindow* w, int list, char* flags, int stride, int count);
  static void ListFlagsWrite(HostWindow* w, int list, const char* flags, int stride, int count);
  static void OptionSet(HostWindow* w, int field, int position);
  static int OptionGet(HostWindow* w, int field);
  static FakeScreen* Self(HostWindow* w) { return static_cast<FakeScreen*>(w->self); }

  ScreenPort port_;
  HostWindow window_;
  std::vector<std::vector<char>> buffers_;
  char* table_[kFieldCount];
  std::map<int, std::vector<Row>> lists_;
  std::map<int, std::map<int, char>> flags_;
  std::map<int, int> options_;
};

}  // namespace lk::testing

#endif  // WATRIX_FRAME_TRANSPORT_TESTUTIL_H_
