// Test-only tables and the fake ScreenPort of testutil.h.
#include "frame/transport/testutil.h"

#include <cstddef>
#include <cstring>

namespace lk::testing {
namespace {

constexpr u32 At(std::size_t offset) { return static_cast<u32>(offset); }

const PermittedRow kYesNo[] = {{"Y", 0}, {"N", 0}, {nullptr, 0}};

const AttributeType kCode4 = {5, "S ", 4, "", nullptr, 0x100, {0, 0}};
const AttributeType kFlag1 = {2, "S ", 1, "", nullptr, 0, {0, 0}};
const AttributeType kYesNoFlag = {2, "S ", 1, "", kYesNo, 0, {0, 0}};
const AttributeType kName10 = {11, "Y ", 10, "", nullptr, 0, {0, 0}};
const AttributeType kName20 = {21, "Y ", 20, "", nullptr, 0, {0, 0}};
const AttributeType kStamp = {21, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN", nullptr, 0, {0, 0}};
const AttributeType kStampShown = {26, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN", nullptr, 0, {0, 0}};
const AttributeType kAmount = {15, "B ", 0x0004000E, "", nullptr, 0, {0, 0}};
const AttributeType kLong9 = {9, "L ", 9, "", nullptr, 0, {0, 0}};

// ---- The item procedure ----

const AttributeRow kItemAttributes[] = {
    {"CODE", 5, At(offsetof(ItemImport, code)), At(offsetof(ItemExport, code.value)), &kCode4},
    {"NAME", 11, At(offsetof(ItemImport, name)), At(offsetof(ItemExport, name.value)), &kName10},
    {"STAMP", 21, At(offsetof(ItemImport, stamp)), At(offsetof(ItemExport, stamp.value)), &kStamp},
    {"AMOUNT", 8, At(offsetof(ItemImport, amount)), At(offsetof(ItemExport, amount.value)),
     &kAmount},
    {"NUMBER", 4, At(offsetof(ItemImport, number)), At(offsetof(ItemExport, number.value)),
     &kLong9},
    {"FLAG", 2, At(offsetof(ItemImport, flag)), At(offsetof(ItemExport, flag.value)), &kYesNoFlag},
    {nullptr, 0, 0, 0, nullptr},
};

const AttributeRow kItemRowFlag[] = {
    {"FLAG", 2, At(offsetof(ItemImport, row_flag)), At(offsetof(ItemExport, row_flag.value)),
     &kFlag1},
    {nullptr, 0, 0, 0, nullptr},
};

const AttributeRow kItemRowItem[] = {
    {"CODE", 5, At(offsetof(ItemImport, row_code)), At(offsetof(ItemExport, row_code.value)),
     &kCode4},
    {"AMOUNT", 8, At(offsetof(ItemImport, row_amount)),
     At(offsetof(ItemExport, row_amount.value)), &kAmount},
    {nullptr, 0, 0, 0, nullptr},
};

const ViewRow kItemViewRows[] = {
    {"EXPORT.ITEM.", 0, 0, kItemAttributes},
    {"GRP_EXPORT.RUNTIME_SUPPLIED.", kRows, 0, kItemRowFlag},
    {"GRP_EXPORT.ITEM.", kRows, 0, kItemRowItem},
    {nullptr, 0, 0, nullptr},
};

const GroupRow kItemGroups[] = {
    {"GROUP_EXPORT", (3u << 16) | 1u, 1, At(offsetof(ItemExport, count)),
     At(offsetof(ItemImport, count)), 0},
    {"*", 3u << 16, 0, 0, 0, 0},
};

const GroupRow kItemGroupsNoImportCount[] = {
    {"GROUP_EXPORT", (3u << 16) | 1u, 1, At(offsetof(ItemExport, count)), 0, 0},
    {"*", 3u << 16, 0, 0, 0, 0},
};

// ---- The item window ----

const ValueDictionary kYesNoValues = {kYesNo, "S ", 1, 0, nullptr, 0};

const FieldDescriptor kCodeField = {kTagEntry, &kCode4};
const FieldDescriptor kNameField = {kTagEntry, &kName10};
const FieldDescriptor kStampField = {kTagProtected, &kStampShown};
const FieldDescriptor kAmountField = {kTagEntry, &kAmount};
const FieldDescriptor kNumberField = {kTagEntry, &kLong9};
const CheckDescriptor kFlagCheck = {(1u << 16) | kTagCheck, 2, &kYesNoValues};

const ListColumnRow kItemColumns[] = {
    {0x00100008, 0x00100020, 30, 'C', 0, 1, kFlag1, 0, 401, {0, 0}},
    {0x00100022, 0x00100040, 80, 'L', 2, 6, kCode4, 0, 402, {0, 0}},
    {0x00100042, 0x00100080, 140, 'L', 7, 21, kAmount, 0, 403, {0, 0}},
    {},
};
const ListDescriptor kItemList = {(u32{kItemRowSize} << 16) | kTagList, kItemColumns, 0, nullptr};
const std::uint16_t kButtonDescriptor = kTagButton;

const ControlRow kItemControls[] = {
    {101, &kCodeField, nullptr, nullptr, 0, "CODE1", 0},
    {102, &kNameField, nullptr, nullptr, 0, "NAME1", 0},
    {103, &kStampField, nullptr, nullptr, 0, "STAMP1", 0},
    {104, &kAmountField, nullptr, nullptr, 0, "AMOUNT1", 0},
    {105, &kNumberField, nullptr, nullptr, 0, "NUMBER1", 0},
    {106, &kFlagCheck, nullptr, nullptr, 0, "FLAG1", 0},
    {107, &kItemList, nullptr, nullptr, 0, "ListBox1", 0},
    {108, &kButtonDescriptor, nullptr, nullptr, 0, "Button1", 0},
    {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};

const WindowRow kItemWindowRow = {
    .procedure_id = 1,
    .dialog_id = 100,
    .controls = kItemControls,
    .kind = "SD",
    .mode = "A",
    .name = "TEST_ITEM_WINDOW",
};

const char* const kItemListColumns[] = {"GRP_EXPORT.RUNTIME_SUPPLIED.FLAG",
                                        "GRP_EXPORT.ITEM.CODE", "GRP_EXPORT.ITEM.AMOUNT",
                                        nullptr};

const FieldBinding kItemFields[] = {
    {101, "EXPORT.ITEM.CODE", nullptr, nullptr},
    {102, "EXPORT.ITEM.NAME", nullptr, nullptr},
    {103, "EXPORT.ITEM.STAMP", nullptr, nullptr},
    {104, "EXPORT.ITEM.AMOUNT", nullptr, nullptr},
    {105, "EXPORT.ITEM.NUMBER", nullptr, nullptr},
    {106, "EXPORT.ITEM.FLAG", nullptr, nullptr},
    {107, nullptr, kItemListColumns, "GRP_EXPORT.RUNTIME_SUPPLIED.FLAG"},
    {108, nullptr, nullptr, nullptr},
    {0, nullptr, nullptr, nullptr},
};

// ---- The entry procedure ----

const AttributeRow kEntryAttributes[] = {
    {"CODE", 5, At(offsetof(EntryImport, code)), At(offsetof(EntryExport, code.value)), &kCode4},
    {"NAME", 21, At(offsetof(EntryImport, name)), At(offsetof(EntryExport, name.value)),
     &kName20},
    {nullptr, 0, 0, 0, nullptr},
};

const AttributeRow kEntryRowFlag[] = {
    {"FLAG", 2, At(offsetof(EntryImport, row_flag)), At(offsetof(EntryExport, row_flag.value)),
     &kFlag1},
    {nullptr, 0, 0, 0, nullptr},
};

const AttributeRow kEntryRowEntry[] = {
    {"CODE", 5, At(offsetof(EntryImport, row_code)), At(offsetof(EntryExport, row_code.value)),
     &kCode4},
    {nullptr, 0, 0, 0, nullptr},
};

const ViewRow kEntryViewRows[] = {
    {"EXPORT.ENTRY.", 0, 0, kEntryAttributes},
    {"GRP_EXPORT.RUNTIME_SUPPLIED.", kRows, 0, kEntryRowFlag},
    {"GRP_EXPORT.ENTRY.", kRows, 0, kEntryRowEntry},
    {nullptr, 0, 0, nullptr},
};

const GroupRow kEntryGroups[] = {
    {"GROUP_EXPORT", (3u << 16) | 1u, 1, At(offsetof(EntryExport, count)),
     At(offsetof(EntryImport, count)), 0},
    {"*", 3u << 16, 0, 0, 0, 0},
};

const FlowPair kSendPairs[] = {
    {"EXPORT.ITEM.CODE", "EXPORT.ENTRY.CODE"},
    {"EXPORT.ITEM.NAME", "EXPORT.ENTRY.NAME"},
    {"GRP_EXPORT.ITEM.CODE", "GRP_EXPORT.ENTRY.CODE"},
    {nullptr, nullptr},
};

const FlowPair kReceivePairs[] = {
    {"EXPORT.ITEM.NAME", "EXPORT.ENTRY.NAME"},
    {"GRP_EXPORT.ITEM.CODE", "GRP_EXPORT.ENTRY.CODE"},
    {nullptr, nullptr},
};

}  // namespace

const ViewNameRow kItemViews = {"TEST_ITEM", kItemViewRows, kItemGroups, 1};
const ViewNameRow kItemViewsNoImportCount = {"TEST_ITEM_NO_IMPORT_COUNT", kItemViewRows,
                                             kItemGroupsNoImportCount, 1};
const ViewNameRow kEntryViews = {"TEST_ENTRY", kEntryViewRows, kEntryGroups, 2};
const WindowBinding kItemWindow = {&kItemWindowRow, &kItemViews, kItemFields};
const FlowBinding kItemToEntry = {&kItemViews, &kEntryViews, kSendPairs, kReceivePairs};

double GetDouble(const char* bytes) {
  double v;
  std::memcpy(&v, bytes, sizeof v);
  return v;
}

void SetDouble(char* bytes, double value) { std::memcpy(bytes, &value, sizeof value); }

std::int32_t GetLong(const char* bytes) {
  std::int32_t v;
  std::memcpy(&v, bytes, sizeof v);
  return v;
}

void SetLong(char* bytes, std::int32_t value) { std::memcpy(bytes, &value, sizeof value); }

// ---- FakeScreen ----

FakeScreen::FakeScreen() {
  port_ = {FieldTable, ListReset,     ListReserve,    ListRowAdd, ListRowRead,
           ListFlagsRead, ListFlagsWrite, OptionSet, OptionGet};
  window_ = {&port_, this};
  for (int k = 0; k < kFieldCount; ++k) {
    table_[k] = nullptr;
    const void* descriptor = kItemControls[k].descriptor;
    const std::uint16_t tag = DescriptorTag(descriptor);
    int width = -1;
    if (tag == kTagEntry || tag == kTagProtected || tag == kTagMultiline) {
      width = static_cast<int>(
          FieldTextWidth(*static_cast<const FieldDescriptor*>(descriptor)->type));
    } else if (tag == kTagCheck || tag == kTagRadio || tag == kTagDropDown) {
      width = 0;  // an entry for the display bytes only
    }
    if (width < 0) continue;
    buffers_.emplace_back(6 + width + 1, '\0');
    table_[k] = buffers_.back().data() + 6;
  }
}

void FakeScreen::Type(int k, const std::string& text) {
  const int width = static_cast<int>(
      FieldTextWidth(*static_cast<const FieldDescriptor*>(kItemControls[k].descriptor)->type));
  std::memset(table_[k], '\0', width + 1);
  std::memcpy(table_[k], text.data(), std::min<std::size_t>(text.size(), width));
}

char** FakeScreen::FieldTable(HostWindow* w) { return Self(w)->table_; }

void FakeScreen::ListReset(HostWindow* w, int list) {
  Self(w)->lists_[list].clear();
  Self(w)->resets++;
}

void FakeScreen::ListReserve(HostWindow* w, int, int count) { Self(w)->reserved = count; }

void FakeScreen::ListRowAdd(HostWindow* w, int list, const char* row, int row_size, int number) {
  Self(w)->lists_[list].push_back({number, std::string(row, row_size)});
}

int FakeScreen::ListRowRead(HostWindow* w, int list, int start, char* row, int row_size,
                            int* number) {
  std::vector<Row>& rows = Self(w)->lists_[list];
  if (start < 0 || start >= static_cast<int>(rows.size())) return -1;
  const Row& r = rows[start];
  std::memcpy(row, r.bytes.data(), std::min<std::size_t>(row_size, r.bytes.size()));
  *number = r.number;
  Self(w)->rows_read++;
  return start;
}

void FakeScreen::ListFlagsRead(HostWindow* w, int list, char* flags, int stride, int count) {
  std::map<int, char>& kept = Self(w)->flags_[list];
  for (int r = 1; r <= count; ++r) {
    auto it = kept.find(r);
    if (it != kept.end()) flags[r * stride] = it->second;
  }
}

void FakeScreen::ListFlagsWrite(HostWindow* w, int list, const char* flags, int stride,
                                int count) {
  std::map<int, char>& kept = Self(w)->flags_[list];
  kept.clear();
  for (int r = 1; r <= count; ++r) kept[r] = flags[r * stride];
  Self(w)->flags_written_count = count;
}

void FakeScreen::OptionSet(HostWindow* w, int field, int position) {
  Self(w)->options_[field] = position;
}

int FakeScreen::OptionGet(HostWindow* w, int field) { return Self(w)->option(field); }

}  // namespace lk::testing
