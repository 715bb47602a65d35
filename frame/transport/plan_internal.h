// The resolved plans of the view transport, shared by its source files only.
//
// A ViewPlan lists a procedure's attributes in dictionary order with their
// locations, storage and kind, and its groups with their limits, count
// locations and columns. A WindowPlan and a FlowPlan refer into the ViewPlans
// of their views by index. Plans are built once per binding address (see
// plan.h), never change afterwards and live until the process ends.
#ifndef WATRIX_FRAME_TRANSPORT_PLAN_INTERNAL_H_
#define WATRIX_FRAME_TRANSPORT_PLAN_INTERNAL_H_

#include <cstdint>
#include <cstring>
#include <vector>

#include "frame/tables.h"
#include "frame/transport/plan.h"
#include "frame/views.h"

namespace lk::transport {

// How a value is held and moved.
enum class Kind : std::uint8_t {
  kFixedText,    // "S ": TextMove
  kVaryingText,  // "Y ": BoundedCopy
  kTimestamp,    // "Q ": 21 bytes
  kLong,         // "L ": 32-bit
  kDouble,       // "B ", "I ": double
};

inline bool IsText(Kind k) { return k == Kind::kFixedText || k == Kind::kVaryingText; }

struct AttributePlan {
  const ViewRow* view;
  const AttributeRow* row;
  Kind kind;
  u32 storage;
  u32 import_location;  // 0: none
  u32 export_location;  // 0: none
  int group;            // index into ViewPlan::groups, -1 for a single attribute
  char stream_letter;   // 'S', 'Y', 'Q', 'L', 'N'
  u32 stream_width;     // the width told with each stream call
};

struct GroupPlan {
  const GroupRow* row;
  int limit;                  // rows 1..limit, slot 0 kept
  u32 count_location;         // export view, 0: none
  u32 import_count_location;  // import view, 0: none
  std::vector<int> columns;   // indexes into ViewPlan::attributes
};

struct ViewPlan {
  const ViewNameRow* views;
  std::vector<AttributePlan> attributes;  // dictionary order
  std::vector<int> singles;               // single attributes, in order
  std::vector<GroupPlan> groups;          // GroupRow order
};

enum class FieldKind : std::uint8_t { kNone, kEntry, kOption, kList };

struct FieldPlan {
  FieldKind kind;
  int index;                          // field index in the window, from 0
  int attribute;                      // entry, option: into ViewPlan::attributes
  const AttributeType* field_type;    // entry: the type the field shows
  u32 text_width;                     // entry: FieldTextWidth(*field_type)
  const PermittedRow* permitted;      // option: the literals, by position
  std::vector<int> columns;           // list: attributes, in row order
  int flag;                           // list: the group's row flag attribute
  int group;                          // list: into ViewPlan::groups
  u32 row_size;                       // list: bytes of a row buffer
};

struct WindowPlan {
  const ViewPlan* view;
  std::vector<FieldPlan> fields;
};

struct PairPlan {
  int source;  // into the source ViewPlan::attributes
  int target;  // into the target ViewPlan::attributes
};

struct FlowPlan {
  const ViewPlan* source;
  const ViewPlan* target;
  std::vector<PairPlan> send;
  std::vector<PairPlan> receive;
};

// Largest list row buffer; a longer row is a fault of the tables.
constexpr u32 kMaxRowSize = 16384;

// The cached plans; built on first use, aborting on a fault of the tables.
const ViewPlan& PlanForViews(const ViewNameRow& views);
const WindowPlan& PlanForWindow(const WindowBinding& binding);
const FlowPlan& PlanForFlow(const FlowBinding& flow);

// How many plans of any kind have been built since the process began; a
// plan found in the cache does not count. Lets the tests see that a plan is
// built once.
int PlansBuilt();

// ---- Addresses within views ----

inline char* At(void* view, u32 location) { return static_cast<char*>(view) + location; }
inline const char* At(const void* view, u32 location) {
  return static_cast<const char*>(view) + location;
}

// Offset of row `r` of an attribute whose row 0 lies at `location`.
inline u32 RowOffset(const AttributePlan& a, u32 location, int r) {
  return location + static_cast<u32>(r) * a.storage;
}

// Offset of the display bytes of row `r` (single: r is ignored) in the export
// view.
inline u32 DisplayOffset(const AttributePlan& a, const GroupPlan* g, int r) {
  if (g == nullptr) return a.export_location - kDisplayWidth;
  return a.export_location - kDisplayWidth * static_cast<u32>(g->limit + 1) +
         kDisplayWidth * static_cast<u32>(r);
}

// The count at `location` (0: none gives `absent`), kept within 0..limit.
inline int ReadCount(const void* view, u32 location, int limit, int absent) {
  if (location == 0) return absent;
  std::int32_t n;
  std::memcpy(&n, At(view, location), sizeof n);
  if (n < 0) return 0;
  if (n > limit) return limit;
  return n;
}

inline void WriteCount(void* view, u32 location, int n) {
  if (location == 0) return;
  const std::int32_t v = n;
  std::memcpy(At(view, location), &v, sizeof v);
}

// Moves one value into a place of `to`'s form by its type, as the view
// copies do: fixed text by TextMove, varying text by BoundedCopy, the rest
// byte for byte.
void MoveValue(char* dest, const AttributePlan& to, const char* source,
               const AttributePlan& from);

// Copies one value as a flow does: byte for byte when both ends have the
// same kind and storage, else by MoveValue. Plans only pair kinds that can
// be moved.
void CopyValue(char* dest, const AttributePlan& to, const char* source,
               const AttributePlan& from);

// The second-character rule on six display bytes: a character above 'h' is
// reduced by 8, so "3i" becomes "3a" once it has been shown.
inline void SettleDisplay(char* display) {
  if (display[1] > 'h') display[1] = static_cast<char>(display[1] - 8);
}

}  // namespace lk::transport

#endif  // WATRIX_FRAME_TRANSPORT_PLAN_INTERNAL_H_
