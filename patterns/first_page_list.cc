// The row in its forms: moves between the bare row, the shown row and the
// rows of the export group, by the module's RowAttribute table.
#include "patterns/first_page_list.h"

#include <cstring>

#include "services/text.h"

namespace lk::patterns {

namespace {

char Letter(const RowAttribute& a) { return a.type->type_letter[0]; }

const char* At(const void* base, u32 offset) { return static_cast<const char*>(base) + offset; }
char* At(void* base, u32 offset) { return static_cast<char*>(base) + offset; }

// The blank value of an attribute: blanks for fixed text, NUL for varying
// text, 0 for numbers, the default timestamp.
void Blank(const RowAttribute& a, char* value) {
  switch (Letter(a)) {
    case 'S':
      TextMove(value, "", static_cast<int>(a.storage));
      break;
    case 'Q':
      std::memcpy(value, kDefaultTimestamp, kTimestampStorage);
      break;
    default:
      std::memset(value, 0, a.storage);
      break;
  }
}

bool IsBlank(const RowAttribute& a, const char* value) {
  switch (Letter(a)) {
    case 'S':
    case 'Y':
      return TextIsBlank(value);
    case 'B':
    case 'I':
      return GetNumber(value) == 0;
    default:
      for (u32 i = 0; i < a.storage; ++i)
        if (value[i] != '\0' && value[i] != '0') return false;
      return true;
  }
}

}  // namespace

void MoveValue(const RowAttribute& a, char* dest, const char* source) {
  switch (Letter(a)) {
    case 'S':
      TextMove(dest, source, static_cast<int>(a.storage));
      break;
    case 'Y':
      BoundedCopy(dest, source, static_cast<int>(a.storage));
      break;
    default:
      std::memmove(dest, source, a.storage);
      break;
  }
}

void RowToShown(RowAttributes attributes, const void* row, void* shown) {
  for (const RowAttribute& a : attributes) MoveValue(a, At(shown, a.shown), At(row, a.row));
}

void ShownToRow(RowAttributes attributes, const void* shown, void* row) {
  for (const RowAttribute& a : attributes) MoveValue(a, At(row, a.row), At(shown, a.shown));
}

void RowToGroup(RowAttributes attributes, const void* row, void* group, int r) {
  for (const RowAttribute& a : attributes)
    MoveValue(a, At(group, a.column + static_cast<u32>(r) * a.storage), At(row, a.row));
}

void GroupToShown(RowAttributes attributes, const void* group, int r, void* shown) {
  for (const RowAttribute& a : attributes)
    MoveValue(a, At(shown, a.shown), At(group, a.column + static_cast<u32>(r) * a.storage));
}

void BlankShown(RowAttributes attributes, void* shown) {
  for (const RowAttribute& a : attributes) Blank(a, At(shown, a.shown));
}

void BlankRow(RowAttributes attributes, void* row) {
  for (const RowAttribute& a : attributes) Blank(a, At(row, a.row));
}

bool KeyIsBlank(RowAttributes attributes, const void* row) {
  for (const RowAttribute& a : attributes)
    if (a.key && !IsBlank(a, At(row, a.row))) return false;
  return true;
}

void MarkKeys(RowAttributes attributes, void* shown, const char* display) {
  for (const RowAttribute& a : attributes)
    if (a.key) std::memcpy(At(shown, a.shown - kDisplayWidth), display, kDisplayWidth);
}

}  // namespace lk::patterns
