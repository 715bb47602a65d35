// TESTMOD: a small module of two procedures, built only for the host's
// tests, never into liblkbase.so. It has what the menu lacks: entry fields,
// a permitted list, a protected field, a number field, a list with an enable
// rule, a link with send and receive, and units that fail three levels
// down. Its library is libtestmod.so beside the program.
//
// TM1_FORM (id 10, window TM1_FORM, dialog 100): the body copies import to
// export, fills three list rows on its first run, and acts on COMMAND:
//   "GO"     NAME blank: "10    " on NAME and EXIT_FIELD_REQUIRED;
//            else "3a    " on NAME and an 'I' message "Saved NAME".
//   "LINK"   exit state kExitDetail: a link to TM2_DETAIL, on COMMAND "SHOW".
//   "AWAY"   exit state kExitAway: a flow to TM3_ELSEWHERE of module NOMOD.
//   "RETURN" an 'I' message "Back with NAME".
//   "HIDE"   hides list row 2.
// Events: "&Deep" fails three action blocks down; "&Pick" looks for the
// marked row; "&Off" disables "GO"; a Changed event on NAME counts edits
// into the export's NOTE. Through the session's database (store/):
// "&Number" takes the next IS number of the counter named in NAME
// (DETERMINE_NEXT_IS_NUMBER) and shows it in NOTE; "&Write" inserts a
// TSRLBRMK row with SHORT_NAME from NAME, then takes the next number of
// the counter "TSRLBRMK" into NOTE; "&Backend" shows the PostgreSQL
// backend's process id in NOTE. A NOT UNIQUE of the counter becomes the
// internal error text with rollback, as a module's IDENTIFY caller does.
// TM2_DETAIL (id 20, dialog 200, "DD"): the body puts the cursor mark "3i"
// on NAME on "SHOW"; "&Return" sets EXIT_RETURN (the link waits for
// EXIT_CANCEL, so the window stays); "Cance&l" sets EXIT_CANCEL.
#ifndef WATRIX_TESTS_TESTMOD_TESTMOD_H_
#define WATRIX_TESTS_TESTMOD_TESTMOD_H_

#include <cstdint>

#include "frame/views.h"

namespace testmod {

constexpr int kRows = 5;

struct FormImport {
  char reserved[4];
  char NAME[11];
  char KIND[3];
  char STAMP[21];
  char AMOUNT[8];
  char NOTE[21];
  char USER_ID_CODE[9];
  char CURRENT_ORG_ID[9];
  std::int32_t count;
  lk::Column<kRows, 2> ROW_FLAG;
  lk::Column<kRows, 5> CODE;
};

struct FormExport {
  std::uint32_t reserved;
  lk::Shown<11> NAME;
  lk::Shown<3> KIND;
  lk::Shown<21> STAMP;
  lk::Shown<8> AMOUNT;
  lk::Shown<21> NOTE;
  lk::Shown<9> USER_ID_CODE;
  lk::Shown<9> CURRENT_ORG_ID;
  std::int32_t count;
  lk::ShownColumn<kRows, 2> ROW_FLAG;
  lk::ShownColumn<kRows, 5> CODE;
};

struct DetailImport {
  char reserved[4];
  char NAME[11];
};

struct DetailExport {
  std::uint32_t reserved;
  lk::Shown<11> NAME;
};

constexpr std::uint32_t kExitDetail = 0x11110001;
constexpr std::uint32_t kExitAway = 0x11110002;
constexpr std::uint32_t kExitPicked = 0x11110003;

}  // namespace testmod

#endif  // WATRIX_TESTS_TESTMOD_TESTMOD_H_
