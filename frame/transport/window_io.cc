// The window pair, read_window and write_window, driven from the dictionary:
// moves values between a view and the field buffers, options and lists of a
// window through its ScreenPort.
//
// Write shows the export view: each entry field gets its value as text and
// its six display bytes, options their position, lists their rows; each
// display that reached the screen then loses a cursor setting in the view
// (the second-character rule). Read brings what the window holds back into
// the import view; display bytes do not come back. The field text forms are
// those of plan.h; neither function allocates.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "frame/host_port.h"
#include "frame/transport/plan_internal.h"
#include "services/text.h"
#include "services/timestamp.h"

namespace lk::transport {
namespace {

constexpr int kTimestampDigits = kTimestampStorage - 1;

bool HasPicture(const AttributeType* type) {
  return type != nullptr && type->picture != nullptr && type->picture[0] != '\0';
}

// Copies `n` characters of `text` into a field of `width` characters and
// NUL-fills the rest, its terminating NUL included.
void PutField(char* field, u32 width, const char* text, u32 n) {
  n = std::min(n, width);
  std::memcpy(field, text, n);
  std::memset(field + n, '\0', width - n + 1);
}

void WriteFieldText(char* field, const FieldPlan& fp, const AttributePlan& a, const char* value) {
  const u32 width = fp.text_width;
  switch (a.kind) {
    case Kind::kFixedText: {
      const u32 chars = std::min(a.storage - 1, width);
      const u32 n = static_cast<u32>(strnlen(value, chars));
      std::memcpy(field, value, n);
      std::memset(field + n, ' ', chars - n);
      std::memset(field + chars, '\0', width - chars + 1);
      break;
    }
    case Kind::kVaryingText: {
      const u32 chars = std::min(a.storage - 1, width);
      PutField(field, width, value, static_cast<u32>(strnlen(value, chars)));
      break;
    }
    case Kind::kTimestamp: {
      if (value[0] == '\0') {
        PutField(field, width, "", 0);
      } else if (HasPicture(fp.field_type)) {
        char shown[32];
        TimestampToPicture(value, shown);
        PutField(field, width, shown, static_cast<u32>(std::strlen(shown)));
      } else {
        PutField(field, width, value, static_cast<u32>(strnlen(value, kTimestampDigits)));
      }
      break;
    }
    case Kind::kLong: {
      std::int32_t v;
      std::memcpy(&v, value, sizeof v);
      char text[16];
      u32 n = 0;
      if (v != 0) n = static_cast<u32>(std::to_chars(text, text + sizeof text, v).ptr - text);
      PutField(field, width, text, n);
      break;
    }
    case Kind::kDouble: {
      double v;
      std::memcpy(&v, value, sizeof v);
      char text[400];  // the fixed form of any double fits
      u32 n = 0;
      if (!(v == 0 && !std::signbit(v))) {
        // The shortest text that reads back to the same value; where that
        // is wider than the field, the exponent form.
        auto r = std::to_chars(text, text + sizeof text, v, std::chars_format::fixed);
        n = r.ec == std::errc() ? static_cast<u32>(r.ptr - text) : width + 1;
        if (n > width) {
          const int m = std::snprintf(text, sizeof text, "%.17g", v);
          n = m < 0 ? 0 : static_cast<u32>(m);
        }
      }
      PutField(field, width, text, n);
      break;
    }
  }
}

// The text of a field without blanks around it, as [*begin, *end).
void Trimmed(const char* field, u32 width, const char** begin, const char** end) {
  const char* b = field;
  const char* e = field + strnlen(field, width);
  while (b < e && *b == ' ') ++b;
  while (e > b && e[-1] == ' ') --e;
  *begin = b;
  *end = e;
}

// Parses a decimal number; false when the text is no number.
bool ParseNumber(const char* b, const char* e, double* out) {
  if (b < e && *b == '+') ++b;
  double v = 0;
  auto r = std::from_chars(b, e, v);
  if (r.ec != std::errc() || r.ptr != e) return false;
  *out = v;
  return true;
}

void ReadFieldText(const char* field, const FieldPlan& fp, const AttributePlan& a, char* dest) {
  const u32 width = fp.text_width;
  switch (a.kind) {
    case Kind::kFixedText:
    case Kind::kVaryingText: {
      // The attribute's last byte is its NUL and stays as it is.
      const u32 chars = a.storage - 1;
      const u32 n = static_cast<u32>(strnlen(field, std::min(chars, width)));
      std::memcpy(dest, field, n);
      std::memset(dest + n, a.kind == Kind::kFixedText ? ' ' : '\0', chars - n);
      break;
    }
    case Kind::kTimestamp: {
      const char* b;
      const char* e;
      Trimmed(field, width, &b, &e);
      if (b == e) {
        std::memset(dest, '\0', kTimestampDigits);
        break;
      }
      int n = 0;
      for (const char* p = b; p < e && n < kTimestampDigits; ++p) {
        if (*p >= '0' && *p <= '9') dest[n++] = *p;
      }
      std::memset(dest + n, '0', kTimestampDigits - n);
      break;
    }
    case Kind::kLong: {
      const char* b;
      const char* e;
      Trimmed(field, width, &b, &e);
      double v = 0;
      if (b != e && !ParseNumber(b, e, &v)) break;
      v = std::trunc(v);
      if (!(v >= std::numeric_limits<std::int32_t>::min() &&
            v <= std::numeric_limits<std::int32_t>::max())) {
        break;
      }
      const std::int32_t n = static_cast<std::int32_t>(v);
      std::memcpy(dest, &n, sizeof n);
      break;
    }
    case Kind::kDouble: {
      const char* b;
      const char* e;
      Trimmed(field, width, &b, &e);
      double v = 0;
      if (b != e && !ParseNumber(b, e, &v)) break;
      std::memcpy(dest, &v, sizeof v);
      break;
    }
  }
}

// Position of `value` among the literals, or -1.
int OptionPosition(const PermittedRow* literals, const char* value) {
  for (int i = 0; literals[i].literal != nullptr; ++i) {
    if (TextCompare(value, literals[i].literal) == 0) return i;
  }
  return -1;
}

const char* OptionLiteral(const PermittedRow* literals, int position) {
  if (position < 0) return nullptr;
  for (int i = 0; literals[i].literal != nullptr; ++i) {
    if (i == position) return literals[i].literal;
  }
  return nullptr;
}

void WriteList(const ViewPlan& vp, const FieldPlan& fp, HostWindow* window, void* view) {
  const ScreenPort& port = *window->port;
  const GroupPlan& g = vp.groups[fp.group];
  const AttributePlan& flag = vp.attributes[fp.flag];
  const int count = ReadCount(view, g.count_location, g.limit, 0);
  port.list_reset(window, fp.index);
  port.list_reserve(window, fp.index, count);
  char row[kMaxRowSize];
  for (int r = 1; r <= count; ++r) {
    if (At(view, RowOffset(flag, flag.export_location, r))[0] == 'H') continue;
    char* p = row;
    for (int i : fp.columns) {
      const AttributePlan& a = vp.attributes[i];
      char* display = At(view, DisplayOffset(a, &g, r));
      std::memcpy(p, display, kDisplayWidth);
      SettleDisplay(display);
      p += kDisplayWidth;
      std::memcpy(p, At(view, RowOffset(a, a.export_location, r)), a.storage);
      p += a.storage;
    }
    port.list_row_add(window, fp.index, row, static_cast<int>(fp.row_size), r);
  }
  port.list_flags_write(window, fp.index, At(view, flag.export_location),
                        static_cast<int>(flag.storage), count);
}

void ReadList(const ViewPlan& vp, const FieldPlan& fp, HostWindow* window, void* view) {
  const ScreenPort& port = *window->port;
  const GroupPlan& g = vp.groups[fp.group];
  const AttributePlan& flag = vp.attributes[fp.flag];
  char row[kMaxRowSize];
  int highest = 0;
  int start = 0;
  for (;;) {
    int number = 0;
    const int position =
        port.list_row_read(window, fp.index, start, row, static_cast<int>(fp.row_size), &number);
    if (position < start) break;  // -1 at the end of the list
    start = position + 1;
    if (number < 1 || number > g.limit) continue;
    highest = std::max(highest, number);
    const char* p = row;
    for (int i : fp.columns) {
      const AttributePlan& a = vp.attributes[i];
      p += kDisplayWidth;
      if (a.import_location != 0) {
        MoveValue(At(view, RowOffset(a, a.import_location, number)), a, p, a);
      }
      p += a.storage;
    }
  }
  if (flag.import_location != 0) {
    const int count = ReadCount(view, g.import_count_location, g.limit, highest);
    port.list_flags_read(window, fp.index, At(view, flag.import_location),
                         static_cast<int>(flag.storage), count);
  }
}

}  // namespace
}  // namespace lk::transport

namespace lk {

void WriteWindowBy(const WindowBinding& binding, WindowHandle window, void* export_view) {
  using namespace transport;
  const WindowPlan& plan = PlanForWindow(binding);
  const ViewPlan& vp = *plan.view;
  const ScreenPort& port = *window->port;
  char** table = port.field_table(window);
  for (const FieldPlan& fp : plan.fields) {
    char* entry = table != nullptr ? table[fp.index] : nullptr;
    switch (fp.kind) {
      case FieldKind::kNone:
        break;
      case FieldKind::kEntry: {
        const AttributePlan& a = vp.attributes[fp.attribute];
        if (entry == nullptr || a.export_location == 0) break;
        WriteFieldText(entry, fp, a, At(export_view, a.export_location));
        char* display = At(export_view, DisplayOffset(a, nullptr, 0));
        std::memcpy(entry - kDisplayWidth, display, kDisplayWidth);
        SettleDisplay(display);
        break;
      }
      case FieldKind::kOption: {
        const AttributePlan& a = vp.attributes[fp.attribute];
        if (a.export_location == 0) break;
        port.option_set(window, fp.index,
                        OptionPosition(fp.permitted, At(export_view, a.export_location)));
        if (entry != nullptr) {
          char* display = At(export_view, DisplayOffset(a, nullptr, 0));
          std::memcpy(entry - kDisplayWidth, display, kDisplayWidth);
          SettleDisplay(display);
        }
        break;
      }
      case FieldKind::kList:
        WriteList(vp, fp, window, export_view);
        break;
    }
  }
}

void ReadWindowBy(const WindowBinding& binding, WindowHandle window, void* import_view) {
  using namespace transport;
  const WindowPlan& plan = PlanForWindow(binding);
  const ViewPlan& vp = *plan.view;
  const ScreenPort& port = *window->port;
  char** table = port.field_table(window);
  for (const FieldPlan& fp : plan.fields) {
    const char* entry = table != nullptr ? table[fp.index] : nullptr;
    switch (fp.kind) {
      case FieldKind::kNone:
        break;
      case FieldKind::kEntry: {
        const AttributePlan& a = vp.attributes[fp.attribute];
        if (entry == nullptr || a.import_location == 0) break;
        ReadFieldText(entry, fp, a, At(import_view, a.import_location));
        break;
      }
      case FieldKind::kOption: {
        const AttributePlan& a = vp.attributes[fp.attribute];
        if (a.import_location == 0) break;
        const char* literal = OptionLiteral(fp.permitted, port.option_get(window, fp.index));
        if (literal == nullptr) break;
        char* dest = At(import_view, a.import_location);
        if (a.kind == Kind::kFixedText) {
          TextMove(dest, literal, static_cast<int>(a.storage));
        } else {
          BoundedCopy(dest, literal, static_cast<int>(a.storage));
        }
        break;
      }
      case FieldKind::kList:
        ReadList(vp, fp, window, import_view);
        break;
    }
  }
}

}  // namespace lk
