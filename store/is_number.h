// DETERMINE_NEXT_IS_NUMBER: the action block that hands out IS numbers, the
// twelve-digit keys of the reference rows, one counter per table name and
// organisation in TSMEISN.
//
// The counter row is read for update (the row lock serialises every insert
// into one table of one organisation until the caller's transaction ends),
// raised by one and written back by its full key; a counter that does not
// exist yet is made with 1. The number is thus never handed out twice, and
// a caller whose transaction is rolled back gives its number back with it:
// no gap. Twelve nines plus one is what the number fit service makes of it.
//
// Outcomes:
//   - exit state unchanged, export IS_NUMBER and TSMEISN_ORG_ID: done;
//   - EXIT_EISN_NOT_UNIQUE, "ENTITY_INTERNAL_SYSTEM_NUMBER is not unique.",
//     kind 'N': the update or the insert met a unique violation (two first
//     numbers of one counter at the same moment);
//   - EXIT_EISN_PERMITTED_VALUE, "ENTITY_INTERNAL_SYSTEM_NUMBER permitted
//     value violation.", kind 'N';
//   - anything else is a fatal stop (statement 3 the read for update, 4 the
//     update, 12 the insert).
// The caller names the counter: its table's name, with one exception kept
// from the warehouse, "TSMPROLE" for TSMPSR. It leaves TSMEISN_ORG_ID of the
// import blank; the row is sought under CURRENT_ORG_ID.
#ifndef WATRIX_STORE_IS_NUMBER_H_
#define WATRIX_STORE_IS_NUMBER_H_

#include <cstdint>

#include "frame/entry.h"
#include "frame/run_context.h"

namespace lk::store {

// Import SYSTEM_VARIABLE.
struct EisnSystemVariable {
  char USER_ID_CODE[9];
  char CURRENT_ORG_ID[9];
};

// Import ENTITY_INTERNAL_SYSTEM_NUMBER.
struct EisnImport {
  char TSMEISN_NAME[9];
  char TSMEISN_ORG_ID[9];
};

// Export ENTITY_INTERNAL_SYSTEM_NUMBER.
struct EisnExport {
  double IS_NUMBER;
  char TSMEISN_ORG_ID[9];
};

// The block's own exit states.
constexpr std::uint32_t EXIT_EISN_NOT_UNIQUE = 0x4B0E1501;
constexpr std::uint32_t EXIT_EISN_PERMITTED_VALUE = 0x4B0E1502;

inline constexpr char kEisnNotUniqueText[] = "ENTITY_INTERNAL_SYSTEM_NUMBER is not unique.";
inline constexpr char kEisnPermittedValueText[] =
    "ENTITY_INTERNAL_SYSTEM_NUMBER permitted value violation.";

void DETERMINE_NEXT_IS_NUMBER(HandleA a, HandleB b, RunContext* rc,
                              const EisnSystemVariable* system, const EisnImport* import,
                              EisnExport* export_view);

}  // namespace lk::store

#endif  // WATRIX_STORE_IS_NUMBER_H_
