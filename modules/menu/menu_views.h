// The views of the reference table menu RT1_REFERENCE_TABLE_MAINT_MENU.
//
// Import: RUNTIME_SUPPLIED.ACTION_ENTRY (2), RUNTIME_SUPPLIED.FLAG (1),
// SYSTEM_VARIABLE.USER_ID_CODE (8), SYSTEM_VARIABLE.CURRENT_ORG_ID (8).
// Export: EXPORT_SOURCE.RUNTIME_SUPPLIED.ACTION_ENTRY,
// EXPORT_INITIAL_ADD.RUNTIME_SUPPLIED.FLAG and .SELECT_CHAR,
// EXPORT.SYSTEM_VARIABLE.USER_ID_CODE and .CURRENT_ORG_ID.
#ifndef WATRIX_MODULES_MENU_MENU_VIEWS_H_
#define WATRIX_MODULES_MENU_MENU_VIEWS_H_

#include <cstdint>

#include "frame/views.h"

namespace lk::menu {

struct MenuImport {
  char reserved[4];
  struct {
    char ACTION_ENTRY[3];
    char FLAG[2];
  } RUNTIME_SUPPLIED;
  struct {
    char USER_ID_CODE[9];
    char CURRENT_ORG_ID[9];
  } SYSTEM_VARIABLE;
};

struct MenuExport {
  std::uint32_t reserved;
  struct {
    Shown<3> ACTION_ENTRY;
  } EXPORT_SOURCE;
  struct {
    Shown<2> FLAG;
    Shown<2> SELECT_CHAR;
  } EXPORT_INITIAL_ADD;
  struct {
    Shown<9> USER_ID_CODE;
    Shown<9> CURRENT_ORG_ID;
  } EXPORT;
};

static_assert(sizeof(MenuImport) == 27);
static_assert(sizeof(MenuExport) == 60);

}  // namespace lk::menu

#endif  // WATRIX_MODULES_MENU_MENU_VIEWS_H_
