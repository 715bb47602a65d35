// The stack of page keys of a stack-style list whose pages are ranges of a
// two-part key (a code and a name; a state and a county name): one row per
// page, 1 to the stack group's size, each with the first and the last key
// of the page in both parts. What the list's read and its page moves do
// with it, written once:
//
//   Record    on COMMAND "LIST" or "NEXT", after the read stored row r of
//             page p: the stack's count rises to p (the new rows blank);
//             row 1 gives the page's FIRST keys, each later row its LAST
//             keys. A page up ("PREV") leaves the stack as it stands. A page
//             outside the stack is the subscript check's fault.
//   UpRange   the range of page p - 1: its FIRST keys to its LAST keys.
//   DownRange the range that follows page p: from its LAST keys (the last
//             row comes again) to the sentinels.
//
// S gives: using Group (the export stack group, LK_GROUP_FORMS) and the
// member pointers kFirstA, kLastA, kFirstB, kLastB of that group; each key
// part is fixed text.
//
// Contract: runs inside a unit's abort frame; one thread.
#ifndef WATRIX_PATTERNS_PAGE_KEY_STACK_H_
#define WATRIX_PATTERNS_PAGE_KEY_STACK_H_

#include <cstring>

#include "frame/run_context.h"
#include "frame/unit.h"
#include "services/text.h"

namespace lk::patterns {

// A range of a two-part key: pointers to the four texts and their storage.
struct PageRange {
  char* low_a;
  char* high_a;
  int width_a;
  char* low_b;
  char* high_b;
  int width_b;
};

template <class S>
struct PageKeyStack {
  using Group = typename S::Group;
  static constexpr int kPages = Group::kRowsOfForms;
  static constexpr int kWidthA = sizeof((static_cast<Group*>(nullptr)->*S::kFirstA).value[0]);
  static constexpr int kWidthB = sizeof((static_cast<Group*>(nullptr)->*S::kFirstB).value[0]);

  static bool Keeps(const RunContext* rc) {
    return TextCompare(rc->command, "LIST") == 0 || TextCompare(rc->command, "NEXT") == 0;
  }

  static void Record(RunContext* rc, Group* stack, int page, int r, const char* a,
                     const char* b) {
    if (!Keeps(rc)) return;
    CheckSubscript(rc, page, kPages);
    if (stack->count > kPages) stack->count = kPages;
    for (; stack->count < page; ++stack->count) {
      const int n = stack->count + 1;
      TextMove((stack->*S::kFirstA).value[n], "", kWidthA);
      TextMove((stack->*S::kLastA).value[n], "", kWidthA);
      TextMove((stack->*S::kFirstB).value[n], "", kWidthB);
      TextMove((stack->*S::kLastB).value[n], "", kWidthB);
    }
    if (r == 1) {
      TextMove((stack->*S::kFirstA).value[page], a, kWidthA);
      TextMove((stack->*S::kFirstB).value[page], b, kWidthB);
    } else {
      TextMove((stack->*S::kLastA).value[page], a, kWidthA);
      TextMove((stack->*S::kLastB).value[page], b, kWidthB);
    }
  }

  static void UpRange(RunContext* rc, const Group& stack, int page, const PageRange& range) {
    CheckSubscript(rc, page - 1, kPages);
    TextMove(range.low_a, (stack.*S::kFirstA).value[page - 1], range.width_a);
    TextMove(range.high_a, (stack.*S::kLastA).value[page - 1], range.width_a);
    TextMove(range.low_b, (stack.*S::kFirstB).value[page - 1], range.width_b);
    TextMove(range.high_b, (stack.*S::kLastB).value[page - 1], range.width_b);
  }

  static void DownRange(RunContext* rc, const Group& stack, int page, const PageRange& range,
                        const char* end_a, const char* end_b) {
    CheckSubscript(rc, page, kPages);
    TextMove(range.low_a, (stack.*S::kLastA).value[page], range.width_a);
    TextMove(range.high_a, end_a, range.width_a);
    TextMove(range.low_b, (stack.*S::kLastB).value[page], range.width_b);
    TextMove(range.high_b, end_b, range.width_b);
  }
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_PAGE_KEY_STACK_H_
