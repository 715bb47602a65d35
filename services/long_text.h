// Long text services: trim, concatenate, substring over 4096-character
// operands. They report through RunContext: on failure status is not blank,
// and the caller jumps to its abort frame with 0x200.
//
// The characters of an operand are text[0, length); nothing behind them is
// read. A result holds its characters, then NUL up to the end of text; it
// may be one of the inputs. A result operand's capacity is preset by the
// caller; one that is not in 1..4096 counts as 4096. On failure the result is
// left as it was, and success leaves RunContext as it was.
#ifndef WATRIX_SERVICES_LONG_TEXT_H_
#define WATRIX_SERVICES_LONG_TEXT_H_

#include <cstdint>

#include "frame/entry.h"
#include "frame/run_context.h"

namespace lk {

constexpr std::int32_t kLongTextCapacity = 4096;

struct LongText {
  std::int32_t capacity;  // preset by the caller on a result operand
  std::int32_t length;
  char text[kLongTextCapacity + 1];
};

struct OptionalNumber {
  char present;  // 'Y'
  std::int16_t value;
};

// Fills `operand` from a view text: zeroes it, presets capacity, moves the
// text with width 4097 and sets length to the characters moved.
void LongTextFrom(LongText* operand, const char* text);

// out := in without trailing blanks.
void LongTextTrim(HandleA a, HandleB b, RunContext* rc, const LongText* in, LongText* out);

// out := first followed by second. A result beyond out->capacity fails with
// status "FE", detail "LT".
void LongTextConcat(HandleA a, HandleB b, RunContext* rc, const LongText* first,
                    const LongText* second, LongText* out);

// out := count characters of in from position start (first is 1). A start
// or count that is absent or outside the text fails with status "FE",
// detail "LT".
void LongTextSubstring(HandleA a, HandleB b, RunContext* rc, const LongText* in,
                       const OptionalNumber* start, const OptionalNumber* count, LongText* out);

}  // namespace lk

#endif  // WATRIX_SERVICES_LONG_TEXT_H_
