// Long text services: trim, concatenate and substring over 4096-character
// operands.
//
// An operand's characters are text[0, length). The services read no further
// than that, so an operand filled by LongTextFrom (blank-padded by the text
// move) and a result (NUL-filled behind its length) read alike. A result may
// be one of the inputs. A failure writes status "FE" and detail "LT" and
// leaves the result as it was; success leaves RunContext alone.
#include "services/long_text.h"

#include <cstring>

#include "services/text.h"

namespace lk {

namespace {

// An operand's length, kept inside its buffer whatever the caller put there.
std::int32_t LengthOf(const LongText* t) {
  if (t->length < 0) return 0;
  return t->length > kLongTextCapacity ? kLongTextCapacity : t->length;
}

// The room of a result operand: its preset capacity, or the whole buffer when
// the preset is missing or too large.
std::int32_t RoomOf(const LongText* t) {
  if (t->capacity <= 0 || t->capacity > kLongTextCapacity) return kLongTextCapacity;
  return t->capacity;
}

void Fail(RunContext* rc) {
  std::memcpy(rc->status, "FE", 3);
  std::memcpy(rc->status_detail, "LT", 3);
}

// Ends `out` at `length`: NUL behind the characters, up to the end.
void Finish(LongText* out, std::int32_t length) {
  out->length = length;
  std::memset(out->text + length, '\0', sizeof(out->text) - static_cast<std::size_t>(length));
}

}  // namespace

void LongTextFrom(LongText* operand, const char* text) {
  std::memset(operand, 0, sizeof(*operand));
  operand->capacity = kLongTextCapacity;
  operand->length = static_cast<std::int32_t>(strnlen(text, kLongTextCapacity));
  TextMove(operand->text, text, kLongTextCapacity + 1);
}

void LongTextTrim(HandleA a, HandleB b, RunContext* rc, const LongText* in, LongText* out) {
  (void)a;
  (void)b;
  std::int32_t n = LengthOf(in);
  while (n > 0 && in->text[n - 1] == ' ') --n;
  if (n > RoomOf(out)) {
    Fail(rc);
    return;
  }
  if (out != in) std::memmove(out->text, in->text, static_cast<std::size_t>(n));
  Finish(out, n);
}

void LongTextConcat(HandleA a, HandleB b, RunContext* rc, const LongText* first,
                    const LongText* second, LongText* out) {
  (void)a;
  (void)b;
  const std::int32_t n1 = LengthOf(first);
  const std::int32_t n2 = LengthOf(second);
  if (n1 + n2 > RoomOf(out)) {
    Fail(rc);
    return;
  }
  // The second part first: its place in `out` lies behind the first part's,
  // so neither move spoils what the other still has to read.
  std::memmove(out->text + n1, second->text, static_cast<std::size_t>(n2));
  if (out != first) std::memmove(out->text, first->text, static_cast<std::size_t>(n1));
  Finish(out, n1 + n2);
}

void LongTextSubstring(HandleA a, HandleB b, RunContext* rc, const LongText* in,
                       const OptionalNumber* start, const OptionalNumber* count, LongText* out) {
  (void)a;
  (void)b;
  const std::int32_t n = LengthOf(in);
  if (start == nullptr || count == nullptr || start->present != 'Y' || count->present != 'Y') {
    Fail(rc);
    return;
  }
  const std::int32_t from = start->value;
  const std::int32_t take = count->value;
  if (from < 1 || from > n || take < 0 || from - 1 + take > n || take > RoomOf(out)) {
    Fail(rc);
    return;
  }
  std::memmove(out->text, in->text + (from - 1), static_cast<std::size_t>(take));
  Finish(out, take);
}

}  // namespace lk
