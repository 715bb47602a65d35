// The packed module name list: one 57-character row per procedure, in
// procedure table order (name 32, module 8, first short name 8, second short
// name 8, residence flag 1: "I" local, "X" in another module), then a
// terminator row whose five fields each start with "0" and are otherwise
// blank. No padding and no NUL between rows; one NUL behind the whole list.
#ifndef WATRIX_FRAME_HEAD_NAME_LIST_H_
#define WATRIX_FRAME_HEAD_NAME_LIST_H_

#include <array>

#include "frame/head/procedure_list.h"
#include "frame/tables.h"

namespace lk::head {

constexpr int kNameListSize = (kProcedures + 1) * kNameRowWidth + 1;

constexpr std::array<char, kNameListSize> BuildNameList() {
  std::array<char, kNameListSize> list{};
  for (char& c : list) c = ' ';
  auto put = [&list](int at, const char* text, int width) {
    for (int i = 0; i < width && text[i] != '\0'; ++i) list[at + i] = text[i];
  };
  constexpr char kHere[] = "LKBASE";
  for (int r = 0; r <= kProcedures; ++r) {
    const int at = r * kNameRowWidth;
    if (r == kProcedures) {
      for (int field : {0, 32, 40, 48, 56}) list[at + field] = '0';
      continue;
    }
    const ProcedureName& p = kProcedureList[r];
    bool local = true;
    int i = 0;
    for (; kHere[i] != '\0' && p.module[i] != '\0'; ++i)
      if (kHere[i] != p.module[i]) local = false;
    if (kHere[i] != p.module[i]) local = false;
    put(at, p.name, 32);
    put(at + 32, p.module, 8);
    put(at + 40, p.short_name, 8);
    put(at + 48, p.short_name, 8);
    list[at + 56] = local ? 'I' : 'X';
  }
  list[kNameListSize - 1] = '\0';
  return list;
}

inline constexpr std::array<char, kNameListSize> kNameList = BuildNameList();

}  // namespace lk::head

#endif  // WATRIX_FRAME_HEAD_NAME_LIST_H_
