// Building blocks of views: the flat, standard-layout records that procedures
// exchange with the host.
//
// Contract: the all-zero state of a view is the empty view, so the host
// allocates views zeroed from the sizes in ProcedureRow. A fixed text of N
// characters takes N+1 bytes. In an export view every attribute has six bytes
// of display attributes directly in front of its value (Shown<N>); a group
// attribute has its display array directly in front of its value array, with
// a slot for row 0. Import views hold bare values. The dictionary's locations
// are offsetof() the value.
#ifndef WATRIX_FRAME_VIEWS_H_
#define WATRIX_FRAME_VIEWS_H_

#include <cstddef>
#include <cstdint>

namespace lk {

constexpr int kDisplayWidth = 6;

// A timestamp attribute: 20 digits and NUL.
constexpr int kTimestampStorage = 21;
inline constexpr char kDefaultTimestamp[] = "00000000000000000000";
inline constexpr char kInitialTimestamp[] = "00010101000000000000";

// Display attribute texts.
inline constexpr char kDisplayNormal[] = "3a    ";
inline constexpr char kDisplayError[] = "10    ";
inline constexpr char kDisplayCursor[] = "3i    ";
inline constexpr char kDisplayProtected[] = "3g    ";
inline constexpr char kDisplayProtectedKey[] = "3gA2B7";
inline constexpr char kDisplayProtectedOne[] = "3gA2  ";

// A fixed or varying text attribute of an import view.
template <int N>
struct Text {
  char value[N + 1];
};

// An attribute of an export view: display bytes, then the value.
template <int Storage>
struct Shown {
  char display[kDisplayWidth];
  char value[Storage];
};

// A group column of an export view: display array, then value array; rows
// from 1, slot 0 kept.
template <int Rows, int Storage>
struct ShownColumn {
  char display[Rows + 1][kDisplayWidth];
  char value[Rows + 1][Storage];
};

// A group column of an import view.
template <int Rows, int Storage>
struct Column {
  char value[Rows + 1][Storage];
};

}  // namespace lk

#endif  // WATRIX_FRAME_VIEWS_H_
