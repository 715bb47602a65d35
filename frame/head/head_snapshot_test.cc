// The design tables under win_head against their kept image: the image that
// DumpWinHead writes of the module in the build folder must equal, line for
// line, frame/head/testdata/win_head.golden. However the tables come to be
// written, what they hold stays as it is; when it does not, the test names
// the first lines that differ.
//
// The module is $WATRIX_BUILD/liblkbase.so (ctest sets WATRIX_BUILD), else
// the one of the build folder this test was built in. On a difference the
// whole image of the build is written beside the module as win_head.actual,
// so that `diff frame/head/testdata/win_head.golden build/win_head.actual`
// shows all of it.
//
// When the tables are meant to change, write the kept image anew from the
// build and commit it with the change:
//
//   cmake --build build --target head_snapshot_test lkbase
//   WATRIX_UPDATE_GOLDEN=1 build/frame/head_snapshot_test
//
// The second part checks the image itself on small tables made here: that
// each kind of field is written as head_dump.h says, and that a change of a
// single byte shows.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "frame/head/head_dump.h"

namespace lk {
namespace {

std::string BuildFolder() {
  const char* b = std::getenv("WATRIX_BUILD");
  return b != nullptr && b[0] != '\0' ? b : WATRIX_DEFAULT_BUILD;
}

bool UpdateWanted() {
  const char* u = std::getenv("WATRIX_UPDATE_GOLDEN");
  return u != nullptr && std::strcmp(u, "1") == 0;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

bool ReadFile(const std::string& path, std::string* text) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::ostringstream all;
  all << in.rdbuf();
  *text = all.str();
  return true;
}

bool WriteFile(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  return static_cast<bool>(out);
}

// The first differences between the kept and the actual image, by line of
// the kept file; empty when they are equal.
std::string Differences(const std::string& expected, const std::string& actual) {
  constexpr int kShown = 5;
  const std::vector<std::string> want = Lines(expected);
  const std::vector<std::string> got = Lines(actual);
  std::ostringstream report;
  int differing = 0;
  const std::size_t n = std::max(want.size(), got.size());
  for (std::size_t i = 0; i < n; ++i) {
    const std::string* w = i < want.size() ? &want[i] : nullptr;
    const std::string* g = i < got.size() ? &got[i] : nullptr;
    if (w != nullptr && g != nullptr && *w == *g) continue;
    if (++differing > kShown) continue;
    report << "line " << (i + 1) << ":\n"
           << "  expected: " << (w != nullptr ? *w : "(no line)") << "\n"
           << "  actual:   " << (g != nullptr ? *g : "(no line)") << "\n";
  }
  if (differing == 0 && expected != actual) {
    report << "the images differ only in line ends\n";
    differing = 1;
  }
  if (differing == 0) return "";
  std::ostringstream head;
  head << differing << " line(s) differ; the kept image has " << want.size()
       << " lines, the build's " << got.size() << ".\n";
  return head.str() + report.str();
}

TEST(HeadSnapshotTest, TablesEqualTheKeptImage) {
  const std::string module = BuildFolder() + "/liblkbase.so";
  std::string error;
  const WinHead* head = LoadWinHead(module, &error);
  ASSERT_NE(nullptr, head) << error;
  const std::string actual = DumpWinHead(*head);

  if (UpdateWanted()) {
    ASSERT_TRUE(WriteFile(WATRIX_HEAD_GOLDEN, actual)) << "cannot write " << WATRIX_HEAD_GOLDEN;
    GTEST_SKIP() << "wrote " << Lines(actual).size() << " lines to " << WATRIX_HEAD_GOLDEN;
  }

  std::string expected;
  ASSERT_TRUE(ReadFile(WATRIX_HEAD_GOLDEN, &expected))
      << "cannot read " << WATRIX_HEAD_GOLDEN << "; write it with WATRIX_UPDATE_GOLDEN=1";
  const std::string differences = Differences(expected, actual);
  if (differences.empty()) return;
  const std::string kept = BuildFolder() + "/win_head.actual";
  const bool written = WriteFile(kept, actual);
  ADD_FAILURE() << "The tables under win_head of " << module << " differ from "
                << WATRIX_HEAD_GOLDEN << ".\n"
                << differences
                << (written ? "The build's whole image is in " + kept + "."
                            : "The build's image could not be written to " + kept + ".")
                << "\nIf the change is meant, write the image anew with WATRIX_UPDATE_GOLDEN=1.";
}

// ---- The image itself, on small tables ----

void NoSuchEntry(HandleA, HandleB, RunContext*, void*, void*) {}
void NoSuchWindowIo(WindowHandle, void*) {}

u32 cell;
u32 other_cell;
u32 two_words[2];

constexpr PermittedRow kYesNo[] = {{"Y", 0}, {"N", 0}, {nullptr, 0}};
constexpr AttributeType kFlag = {2, "S ", 1, "", kYesNo, 0x100, {0, 0}};
constexpr AttributeType kAmount = {15, "B ", 0x0004000E, "", nullptr, 0, {0, 0}};
constexpr AttributeRow kAttributes[] = {{"FLAG", 2, 4, 10, &kFlag}, {nullptr, 0, 0, 0, nullptr}};
constexpr ViewRow kViewRows[] = {{"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kAttributes},
                                 {nullptr, 0, 0, nullptr}};
constexpr GroupRow kGroupRows[] = {{"*", 1u << 16, 0, 0, 0, 0}};
constexpr ViewNameRow kViewNames[] = {{"P1", kViewRows, kGroupRows, 7},
                                      {"P1 title", kViewRows, kGroupRows, 7},
                                      {nullptr, nullptr, nullptr, 0}};
constexpr ViewIndex kIndex = {"TEST", kViewNames};

constexpr ReturnRow kReturns[] = {{0, 0, 0x03601743, 0, 0, 0}};
constexpr ExitRow kExits[] = {{0x4B000181, 0x000100E4, 'M'}, {0, 0, 0}};
constexpr FlowRow kFlows[] = {
    {0x000100E4, "L", 9, "P2 \"quoted\"\t", nullptr, nullptr, kReturns, "E", "$#CURR#$", "E", "",
     0},
    {0, nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0}};
const ProcedureRow kProcedures[] = {
    {7, "P1", &cell, 0, 100, 0, 200, NoSuchEntry, two_words, kExits, kFlows, nullptr, nullptr,
     nullptr, nullptr, "P1SHORT", "P1SHORT"},
    {9, "P2", &other_cell, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
     nullptr, nullptr, nullptr, "P2SHORT"},
    {0, nullptr, nullptr, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
     nullptr, nullptr, nullptr}};

constexpr RuleRecord kRule = {1, 0, 30, {0xFFFF, 0xFFFF, 0xFFFF}};
constexpr const void* kRules[] = {&kRule, nullptr};
constexpr u32 kDependants[] = {(31u << 16) | 4, 0xFFFF0000u};
constexpr ListColumnRow kColumns[] = {
    {9u | (9u << 16), 60u | (9u << 16), 232, 'L', 6, 21, kAmount, 0, 28, {0, 0}}, {}};
constexpr ListDescriptor kList = {(21u << 16) | kTagList, kColumns, 0, nullptr};
constexpr std::uint16_t kButtonWord[] = {kTagButton};
constexpr ValueDictionary kFlagValues = {kYesNo, "S ", 1, 0, nullptr, 0};
constexpr CheckDescriptor kCheck = {(1u << 16) | kTagCheck, 2, &kFlagValues};
constexpr ControlRow kControls[] = {{30, &kList, kDependants, nullptr, 0, "ListBox1", 0},
                                    {31, kButtonWord, nullptr, kRules, 0, "Button1", 0},
                                    {32, &kCheck, nullptr, nullptr, 29, "FLAG1", 0},
                                    {0, nullptr, nullptr, nullptr, 0, nullptr, 0}};
constexpr ActionControlRow kActions[] = {{31, "", 0, kRules, 0, 0x00010004, "Button1"},
                                         {0, nullptr, 0, nullptr, 0, 0, nullptr}};
constexpr EventRow kEvents[] = {{31, "Click", NoSuchEntry, nullptr, ' ', 0, 0, 0},
                                {0, nullptr, nullptr, nullptr, 0, 0, 0, 0}};
constexpr StaticItemRow kNoStatics[] = {{0, nullptr, 0}};
const WindowRow kWindows[] = {{7, 27, kActions, kControls, NoSuchWindowIo, nullptr, "SD", "A",
                               kEvents, "P1", 0, 0, kNoStatics, nullptr, kNoStatics, 0},
                              {0, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                               nullptr, 0, 0, nullptr, nullptr, nullptr, 0}};

// Two rows of 57 characters, a terminator row, a NUL.
const char kNames[] =
    "P1                              TEST    P1SHORT P1SHORT I"
    "P2                              OTHER   P2SHORT P2SHORT X"
    "0                               0       0       0       0";

struct TestImage {
  ApplicationBlock application;
  std::uintptr_t all_ones;
  WinHead head;
};
static_assert(sizeof(kNames) == 3 * kNameRowWidth + 1);

const ModuleEntry kModuleEntry = {"TEST", {0, 0, 0}};
const TestImage kImage = {
    {"MODEL", "SCHEMA", "DBMS", ".", ",", "DEFAULT", "1", &cell, "1252", {0, 0, 0}},
    ~std::uintptr_t{0},
    {kProcedures, kWindows, &kModuleEntry, nullptr, &cell, &kIndex, kNames, 0, &kImage.application,
     0, 'Y', 'N'}};

bool HasLine(const std::string& image, const std::string& line) {
  for (const std::string& l : Lines(image))
    if (l == line) return true;
  return false;
}

TEST(HeadDumpTest, WritesEachKindOfField) {
  const std::string image = DumpWinHead(kImage.head);
  const char* const kExpected[] = {
      "win_head.procedures = 2 rows",
      "procedures[0].id = 7",
      "procedures[0].name = \"P1\"",
      "procedures[0].shared_cell = same as win_head.shared_cell, cell 0",
      "procedures[1].shared_cell = own cell 0",
      "procedures[0].entry = fn",
      "procedures[1].entry = null",
      "procedures[0].flow_state = cell 0 0",
      "procedures[0].exit_rows[0].exit_state = 0x4B000181",
      "procedures[0].exit_rows[0].action = 'M'",
      "procedures[0].exit_rows[1] = end",
      "procedures[0].flow_rows[0].target_name = \"P2 \\\"quoted\\\"\\x09\"",
      "procedures[0].flow_rows[0].send = null",
      "procedures[0].flow_rows[0].returns.exit_state = 0x03601743",
      "procedures[0].flow_rows[0].return_command = \"\"",
      "procedures[1].trancode = null",
      "procedures[2] = end",
      "windows[0].actions[0].enable_rule[0].watched = 30",
      "windows[0].controls[0].descriptor = list",
      "windows[0].controls[0].descriptor.size_tag = 0x00150007",
      "windows[0].controls[0].descriptor.columns[0].alignment = 'L'",
      "windows[0].controls[0].descriptor.columns[0].type.length = 0x0004000E",
      "windows[0].controls[0].descriptor.columns[1] = end",
      "windows[0].controls[0].descriptor.row_attribute_address = null",
      "windows[0].controls[0].dependants[0] = 0x001F0004",
      "windows[0].controls[0].dependants[1] = end 0xFFFF0000",
      "windows[0].controls[1].descriptor = button",
      "windows[0].controls[1].enable_rule.shared_with_action = yes",
      "windows[0].controls[2].descriptor = check box",
      "windows[0].controls[2].descriptor.values.permitted[1].literal = \"N\"",
      "windows[0].read_window = fn",
      "windows[0].write_window = null",
      "windows[0].events[0].map_first = ' '",
      "windows[0].statics = 0 rows",
      "windows[0].event_parameters = null",
      "windows[0].spare_table = empty table",
      "win_head.module_entry.module_name = \"TEST\"",
      "win_head.dictionary = null",
      "win_head.view_index.view_names = 2 rows",
      "view_names[0].view_rows[0].attributes[0].type.flags = 0x00000100",
      "view_names[1].view_rows = same as view_names[0].view_rows",
      "view_names[0].group_rows[0].group_name = \"*\"",
      "win_head.name_list = 2 rows",
      "name_list[1] = \"P2                              OTHER   P2SHORT P2SHORT X\"",
      "name_list.after_end = NUL",
      "application.model_name = \"MODEL\"",
      "application.place = directly ahead of win_head, 8 bytes between",
      "application.between = ff ff ff ff ff ff ff ff",
      "win_head.true_word = 'Y'",
  };
  for (const char* line : kExpected) EXPECT_TRUE(HasLine(image, line)) << line;
  EXPECT_EQ(image, DumpWinHead(kImage.head));
}

TEST(HeadDumpTest, OneChangedByteShows) {
  const std::string before = DumpWinHead(kImage.head);
  // A copy of the root over a copy of the window table, with one control id
  // and one letter of a control name changed.
  ControlRow controls[4];
  std::memcpy(controls, kControls, sizeof controls);
  controls[2].control_id = 33;
  controls[1].control_name = "Button2";
  WindowRow windows[2];
  std::memcpy(windows, kWindows, sizeof windows);
  windows[0].controls = controls;
  WinHead head = kImage.head;
  head.windows = windows;
  head.application = nullptr;
  const std::string after = DumpWinHead(head);
  const std::string differences = Differences(before, after);
  EXPECT_NE(std::string::npos,
            differences.find("windows[0].controls[1].control_name = \"Button2\""))
      << differences;
  EXPECT_NE(std::string::npos, differences.find("windows[0].controls[2].control_id = 33"))
      << differences;
  EXPECT_NE(std::string::npos, differences.find("win_head.application = null")) << differences;
}

}  // namespace
}  // namespace lk
