// The statements of the standard industrial class's action blocks: the page
// cursors of RT32's list, the row blocks', and the duplicate and reference
// reads.
#include "modules/standard_industrial_class/standard_industrial_class_blocks.h"

#include <cstring>

#include "modules/standard_industrial_class/standard_industrial_class_units.h"
#include "patterns/row_columns.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/entity_state.h"
#include "store/statement.h"

namespace lk::standard_industrial_class {

using store::HostChar;
using store::HostColumn;
using store::HostNumber;
using store::HostVarchar;
using store::StatementDef;

namespace {

using Columns = patterns::RowColumns<SicForms>;
constexpr auto& kAllColumns = Columns::kAll;
constexpr auto& kKeyColumns = Columns::Pick<"TSMSIC_CODE", "TSMSIC_ORG_ID">;
constexpr auto& kPairColumns = Columns::Pick<"TSMSIC_CODE", "TSMSIC_ORG_ID", "NAME">;
constexpr auto& kChangedColumns =
    Columns::Pick<"TSMSIC_CODE", "NAME", "D_USERID_CODE", "D_LAST_UPDATE_TIMESTAMP">;
using PageKey = patterns::PageKey<SicRow>;
constexpr HostColumn kPageKeyColumns[] = {
    HostChar("CURRENT_ORG_ID", 8, LK_PLACE(PageKey, CURRENT_ORG_ID)),
    HostChar("TSMSIC_CODE", 4, LK_PLACE(PageKey, row.TSMSIC_CODE)),
    HostVarchar("NAME", 120, LK_PLACE(PageKey, row.NAME)),
};

#define LK_ALL_COLUMNS "TSMSIC_CODE, TSMSIC_ORG_ID, NAME, D_USERID_CODE, D_LAST_UPDT_TS"
#define LK_BY_KEY " WHERE TSMSIC_CODE = :TSMSIC_CODE AND TSMSIC_ORG_ID = :TSMSIC_ORG_ID"

// The page cursors ask for one row more than the group holds: the proof
// that more rows follow or stand before.
constexpr StatementDef kPageUp = {
    "0000000001", 1,
    "SELECT " LK_ALL_COLUMNS " FROM TSMSIC WHERE TSMSIC_ORG_ID = :CURRENT_ORG_ID AND "
    "((TSMSIC_CODE = :TSMSIC_CODE AND NAME = :NAME) OR (TSMSIC_CODE = :TSMSIC_CODE AND "
    "NAME <= :NAME) OR TSMSIC_CODE <= :TSMSIC_CODE) "
    "ORDER BY TSMSIC_CODE DESC, NAME DESC LIMIT 201",
    kPageKeyColumns, kAllColumns};
// Forward: the name descending within a code, against the predicate's
// ascending name comparison, as the table has always read.
constexpr StatementDef kPageOn = {
    "0000000002", 2,
    "SELECT " LK_ALL_COLUMNS " FROM TSMSIC WHERE TSMSIC_ORG_ID = :CURRENT_ORG_ID AND "
    "((TSMSIC_CODE = :TSMSIC_CODE AND NAME = :NAME) OR (TSMSIC_CODE = :TSMSIC_CODE AND "
    "NAME > :NAME) OR TSMSIC_CODE > :TSMSIC_CODE) "
    "ORDER BY TSMSIC_CODE ASC, NAME DESC LIMIT 201",
    kPageKeyColumns, kAllColumns};
static_assert(store::EndsWithLimit(kPageUp.text, kListRows + 1) &&
                  store::EndsWithLimit(kPageOn.text, kListRows + 1),
              "the page cursors' LIMIT is the group's maximum plus one");

constexpr StatementDef kDuplicate = {
    "0000000001", 1,
    "SELECT TSMSIC_CODE, TSMSIC_ORG_ID, NAME FROM TSMSIC WHERE TSMSIC_CODE = :TSMSIC_CODE "
    "AND NAME = :NAME AND TSMSIC_ORG_ID = :TSMSIC_ORG_ID",
    kPairColumns, kPairColumns};

// The facility assignment that refers to the class.
struct AssignmentKey {
  char TSMSTATN_IS_NUMBER[8];
  char TSMSTATN_ORG_ID[9];
};
constexpr HostColumn kAssignmentColumns[] = {
    HostNumber("TSMSTATN_IS_NUMBER", LK_PLACE(AssignmentKey, TSMSTATN_IS_NUMBER)),
    HostChar("TSMSTATN_ORG_ID", 8, LK_PLACE(AssignmentKey, TSMSTATN_ORG_ID)),
};
constexpr StatementDef kAssignment = {
    "0000000002", 2,
    "SELECT TSMSTATN_IS_NUMBER, TSMSTATN_ORG_ID FROM TSMFSA WHERE TSMSIC_CODE = :TSMSIC_CODE "
    "AND TSMSIC_ORG_ID = :TSMSIC_ORG_ID LIMIT 1",
    kKeyColumns, kAssignmentColumns};

UnitStorage duplicate_unit, reference_unit;
store::EntityState duplicate_state, class_state, assignment_state;
SicRow duplicate_host, duplicate_row, reference_host, reference_row;
AssignmentKey assignment;

}  // namespace

void ReadForDupSic(HandleA a, HandleB b, RunContext* rc, const SicRow& key) {
  store::RunActionBlock(&duplicate_unit, kDuplicateId, a, b, rc, {}, [&](store::Block& block) {
    store::ResetEntity(&duplicate_state);
    std::memset(&duplicate_host, 0, sizeof duplicate_host);
    TextMove(duplicate_host.TSMSIC_CODE, key.TSMSIC_CODE, sizeof duplicate_host.TSMSIC_CODE);
    TextMove(duplicate_host.TSMSIC_ORG_ID, key.TSMSIC_ORG_ID,
             sizeof duplicate_host.TSMSIC_ORG_ID);
    BoundedCopy(duplicate_host.NAME, key.NAME, sizeof duplicate_host.NAME);
    store::SelectOne(block, kDuplicate, &duplicate_state, &duplicate_host, &duplicate_row);
    if (store::StateIs(duplicate_state.status, "NF")) {
      SetExit(rc, EXIT_SIC_NOT_FOUND, kNotFoundText, 'N');
      return;
    }
    if (!store::StateIs(duplicate_state.status, "OK")) store::FailOnStatus(block, duplicate_state);
  });
}

void ReadSicForReferencedStations(HandleA a, HandleB b, RunContext* rc, const SicRow& key) {
  store::RunActionBlock(&reference_unit, kReferenceId, a, b, rc, {}, [&](store::Block& block) {
    SetExit(rc, EXIT_FSA_NOT_FOUND, kFsaNotFoundText, 'N');
    store::ResetEntity(&class_state);
    std::memset(&reference_host, 0, sizeof reference_host);
    TextMove(reference_host.TSMSIC_CODE, key.TSMSIC_CODE, sizeof reference_host.TSMSIC_CODE);
    TextMove(reference_host.TSMSIC_ORG_ID, key.TSMSIC_ORG_ID,
             sizeof reference_host.TSMSIC_ORG_ID);
    store::SelectOne(block, SicTable::kSelectRow, &class_state, &reference_host, &reference_row);
    if (!store::StateIs(class_state.status, "OK") && !store::StateIs(class_state.status, "NF"))
      store::FailOnStatus(block, class_state);
    store::ResetEntity(&assignment_state);
    store::SelectOne(block, kAssignment, &assignment_state, &reference_host, &assignment);
    if (store::StateIs(assignment_state.status, "OK")) {
      SetExit(rc, EXIT_FSA_FOUND, kFsaFoundText, 'N');
      return;
    }
    if (!store::StateIs(assignment_state.status, "NF"))
      store::FailOnStatus(block, assignment_state);
  });
}

const StatementDef SicList::kReadPrev = kPageUp;
const StatementDef SicList::kReadNext = kPageOn;

const StatementDef SicTable::kSelectRow = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSMSIC" LK_BY_KEY, kKeyColumns, kAllColumns};

const StatementDef SicTable::kInsert = {
    "0000000001", 1,
    "INSERT INTO TSMSIC (" LK_ALL_COLUMNS ") VALUES (:TSMSIC_CODE, :TSMSIC_ORG_ID, :NAME, "
    ":D_USERID_CODE, :D_LAST_UPDT_TS)",
    kAllColumns, {}};

const StatementDef SicTable::kReadForUpdate = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSMSIC" LK_BY_KEY, kKeyColumns,
    kAllColumns, /*for_update=*/true};

const StatementDef SicTable::kUpdate = {
    "0000000002", 2,
    "UPDATE TSMSIC SET TSMSIC_CODE = :TSMSIC_CODE, NAME = :NAME, D_USERID_CODE = "
    ":D_USERID_CODE, D_LAST_UPDT_TS = :D_LAST_UPDT_TS",
    kChangedColumns, {}};

const StatementDef SicTable::kSelectKey = {
    "0000000001", 1, "SELECT TSMSIC_CODE, TSMSIC_ORG_ID FROM TSMSIC" LK_BY_KEY, kKeyColumns,
    kKeyColumns};

#undef LK_ALL_COLUMNS
#undef LK_BY_KEY

}  // namespace lk::standard_industrial_class
