// The action blocks of the project station role over the statement frame.
#include "modules/project_station_role/project_station_role_blocks.h"

#include <cstddef>
#include <cstring>

#include "frame/unit.h"
#include "frame/views.h"
#include "modules/project_station_role/project_station_role_units.h"
#include "patterns/group.h"
#include "services/text.h"
#include "services/timestamp.h"
#include "store/actions.h"
#include "store/cascade.h"
#include "store/cascade_loop.h"
#include "store/is_number.h"
#include "store/statement.h"

namespace lk::project_station_role {

using store::HostChar;
using store::HostColumn;
using store::HostDate;
using store::HostNumber;
using store::HostVarchar;
using store::StatementDef;

namespace {

// ---- Columns ----

#define LK_ROW(member) LK_PLACE(RoleRow, member)
using Key = patterns::PageKey<RoleRow>;

// The row as every select list reads it.
constexpr HostColumn kRowColumns[] = {
    HostNumber("TSMPSR_IS_NUMBER", LK_ROW(TSMPSR_IS_NUMBER)),
    HostChar("TSMPSR_ORG_ID", 8, LK_ROW(TSMPSR_ORG_ID)),
    HostVarchar("TYPE_NAME", 32, LK_ROW(TYPE_NAME)),
    HostChar("D_USERID_CODE", 8, LK_ROW(D_USERID_CODE)),
    HostDate("D_LAST_UPDATE_TS", LK_ROW(D_LAST_UPDATE_TIMESTAMP)),
};
constexpr HostColumn kKeyColumns[] = {
    HostNumber("TSMPSR_IS_NUMBER", LK_ROW(TSMPSR_IS_NUMBER)),
    HostChar("TSMPSR_ORG_ID", 8, LK_ROW(TSMPSR_ORG_ID)),
};
constexpr HostColumn kNameColumns[] = {
    HostChar("TSMPSR_ORG_ID", 8, LK_ROW(TSMPSR_ORG_ID)),
    HostVarchar("TYPE_NAME", 32, LK_ROW(TYPE_NAME)),
};
constexpr HostColumn kDuplicateColumns[] = {
    HostNumber("TSMPSR_IS_NUMBER", LK_ROW(TSMPSR_IS_NUMBER)),
    HostChar("TSMPSR_ORG_ID", 8, LK_ROW(TSMPSR_ORG_ID)),
    HostVarchar("TYPE_NAME", 32, LK_ROW(TYPE_NAME)),
};
constexpr HostColumn kChangeColumns[] = {
    HostVarchar("TYPE_NAME", 32, LK_ROW(TYPE_NAME)),
    HostChar("D_USERID_CODE", 8, LK_ROW(D_USERID_CODE)),
    HostDate("D_LAST_UPDATE_TS", LK_ROW(D_LAST_UPDATE_TIMESTAMP)),
};
constexpr HostColumn kPageKeyColumns[] = {
    HostChar("CURRENT_ORG_ID", 8, LK_PLACE(Key, CURRENT_ORG_ID)),
    HostVarchar("TYPE_NAME", 32, LK_PLACE(Key, row.TYPE_NAME)),
};

#undef LK_ROW

// ---- Statements ----

// The page cursors ask for one row more than the group holds: the proof
// that more rows follow or stand before.
constexpr StatementDef kPageUp = {
    "0000000001", 1,
    "SELECT TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME, D_USERID_CODE, D_LAST_UPDATE_TS "
    "FROM TSMPSR WHERE TSMPSR_ORG_ID = :CURRENT_ORG_ID "
    "AND (TYPE_NAME = :TYPE_NAME OR TYPE_NAME < :TYPE_NAME) "
    "ORDER BY TYPE_NAME DESC LIMIT 101",
    kPageKeyColumns, kRowColumns};
constexpr StatementDef kPageOn = {
    "0000000002", 2,
    "SELECT TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME, D_USERID_CODE, D_LAST_UPDATE_TS "
    "FROM TSMPSR WHERE TSMPSR_ORG_ID = :CURRENT_ORG_ID "
    "AND (TYPE_NAME = :TYPE_NAME OR TYPE_NAME > :TYPE_NAME) "
    "ORDER BY TYPE_NAME ASC LIMIT 101",
    kPageKeyColumns, kRowColumns};
static_assert(kListRows + 1 == 101, "the page cursors' LIMIT is the group's maximum plus one");

constexpr StatementDef kSelectDuplicate = {
    "0000000001", 1,
    "SELECT TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME FROM TSMPSR "
    "WHERE TSMPSR_ORG_ID = :TSMPSR_ORG_ID AND TYPE_NAME = :TYPE_NAME",
    kNameColumns, kDuplicateColumns};

constexpr StatementDef kInsert = {
    "0000000003", 3,
    "INSERT INTO TSMPSR (TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME, D_USERID_CODE, "
    "D_LAST_UPDATE_TS) VALUES (:TSMPSR_IS_NUMBER, :TSMPSR_ORG_ID, :TYPE_NAME, :D_USERID_CODE, "
    ":D_LAST_UPDATE_TS)",
    kRowColumns, {}};

constexpr StatementDef kReadForUpdate = {
    "0000000001", 1,
    "SELECT TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME, D_USERID_CODE, D_LAST_UPDATE_TS "
    "FROM TSMPSR WHERE TSMPSR_IS_NUMBER = :TSMPSR_IS_NUMBER AND TSMPSR_ORG_ID = :TSMPSR_ORG_ID",
    kKeyColumns, kRowColumns, /*for_update=*/true};
constexpr StatementDef kUpdate = {
    "0000000002", 2,
    "UPDATE TSMPSR SET TYPE_NAME = :TYPE_NAME, D_USERID_CODE = :D_USERID_CODE, "
    "D_LAST_UPDATE_TS = :D_LAST_UPDATE_TS",
    kChangeColumns, {}};

constexpr StatementDef kSelectKey = {
    "0000000001", 1,
    "SELECT TSMPSR_IS_NUMBER, TSMPSR_ORG_ID FROM TSMPSR "
    "WHERE TSMPSR_IS_NUMBER = :TSMPSR_IS_NUMBER AND TSMPSR_ORG_ID = :TSMPSR_ORG_ID",
    kKeyColumns, kKeyColumns};

// ---- Statics of the blocks ----

constexpr UnitId kDuplicateId = {"0000016402", "READ_FOR_DUP_PROJ_STN_ROLE"};
constexpr UnitId kIdentifyId = {"0000016403", "IDENTIFY_PROJECT_STATION_ROLE"};
constexpr UnitId kModifyId = {"0000016404", "MODIFY_PROJECT_STATION_ROLE"};
constexpr UnitId kRemoveId = {"0000016405", "REMOVE_PROJECT_STATION_ROLE"};

// The counter of TSMPSR's IS numbers bears another table's name.
constexpr char kCounterName[] = "TSMPROLE";

UnitStorage duplicate_unit, identify_unit, modify_unit, remove_unit;
store::EntityState duplicate_state, identify_state, modify_state, remove_state;
store::Cursor modify_cursor;
RoleRow host;    // the values a statement binds
RoleRow entity;  // the row read or written
store::CascadeRecord remove_record;

// The initialising step of a block: blank host and entity rows, the
// export view blank.
void Initialise(store::EntityState* state, RoleRow* out) {
  store::ResetEntity(state);
  patterns::BlankRow(RoleForms::kAttributes, &host);
  std::memcpy(host.D_LAST_UPDATE_TIMESTAMP, kInitialTimestamp, kTimestampStorage);
  patterns::BlankRow(RoleForms::kAttributes, &entity);
  if (out != nullptr) std::memset(out, 0, sizeof *out);
}

// D_USERID_CODE := USER_ID_CODE, and the stamp of now.
void Stamp(HandleA a, HandleB b, RunContext* rc, const patterns::SystemVariableView& system) {
  TextMove(host.D_USERID_CODE, system.USER_ID_CODE, sizeof host.D_USERID_CODE);
  StampCurrentTimestamp(a, b, rc, host.D_LAST_UPDATE_TIMESTAMP);
}

}  // namespace

const store::StatementDef RoleList::kReadPrev = kPageUp;
const store::StatementDef RoleList::kReadNext = kPageOn;

void READ_PROJECT_STN_ROLE_REF_TABLE(HandleA a, HandleB b, RunContext* rc,
                                     const patterns::FlagView* prev_in,
                                     const patterns::CommandView* command, const RoleRow* last_in,
                                     const RoleRow* first_in,
                                     const patterns::SystemVariableView* system,
                                     patterns::FlagView* next_out, patterns::FlagView* prev_out,
                                     RoleRow* first_out, RoleRow* last_out, RoleGroup* group) {
  List::Read(a, b, rc, prev_in, command, last_in, first_in, system, next_out, prev_out, first_out,
             last_out, group);
}

void READ_FOR_DUP_PROJ_STN_ROLE(HandleA a, HandleB b, RunContext* rc, const RoleRow* key,
                                RoleRow* found) {
  store::RunActionBlock(&duplicate_unit, kDuplicateId, a, b, rc, {}, [&](store::Block& block) {
    Initialise(&duplicate_state, found);
    TextMove(host.TSMPSR_ORG_ID, key->TSMPSR_ORG_ID, sizeof host.TSMPSR_ORG_ID);
    BoundedCopy(host.TYPE_NAME, key->TYPE_NAME, sizeof host.TYPE_NAME);
    store::SelectOne(block, kSelectDuplicate, &duplicate_state, &host, &entity);
    if (store::StateIs(duplicate_state.status, "OK")) {
      *found = entity;
    } else if (store::StateIs(duplicate_state.status, "NF")) {
      SetExit(rc, EXIT_PSR_NOT_FOUND, kNotFoundText, 'N');
    } else {
      store::FailOnStatus(block, duplicate_state);
    }
  });
}

void IDENTIFY_PROJECT_STATION_ROLE(HandleA a, HandleB b, RunContext* rc,
                                   const patterns::SystemVariableView* system, const RoleRow* row,
                                   RoleRow* written) {
  store::RunActionBlock(&identify_unit, kIdentifyId, a, b, rc, {}, [&](store::Block& block) {
    Initialise(&identify_state, written);
    store::EisnSystemVariable counter_system{};
    TextMove(counter_system.USER_ID_CODE, system->USER_ID_CODE, sizeof counter_system.USER_ID_CODE);
    TextMove(counter_system.CURRENT_ORG_ID, system->CURRENT_ORG_ID,
             sizeof counter_system.CURRENT_ORG_ID);
    store::EisnImport counter{};
    TextMove(counter.TSMEISN_NAME, kCounterName, sizeof counter.TSMEISN_NAME);
    TextMove(counter.TSMEISN_ORG_ID, "", sizeof counter.TSMEISN_ORG_ID);
    store::EisnExport number{};
    // An exit state the counter leaves goes on with the insert; the window
    // turns it into the internal error.
    patterns::CallActionBlock(rc, kIdentifyId, [&] {
      store::DETERMINE_NEXT_IS_NUMBER(a, b, rc, &counter_system, &counter, &number);
    });
    patterns::PutNumber(host.TSMPSR_IS_NUMBER, number.IS_NUMBER);
    TextMove(host.TSMPSR_ORG_ID, system->CURRENT_ORG_ID, sizeof host.TSMPSR_ORG_ID);
    BoundedCopy(host.TYPE_NAME, row->TYPE_NAME, sizeof host.TYPE_NAME);
    Stamp(a, b, rc, *system);
    store::Insert(block, kInsert, &identify_state, &host, &entity);
    if (store::StateIs(identify_state.status, "OK")) {
      *written = entity;
    } else if (store::StateIs(identify_state.status, "DF")) {
      SetExit(rc, EXIT_PSR_ALREADY_EXISTS, kAlreadyExistsText, 'N');
    } else {
      store::FailOnStatus(block, identify_state);
    }
  });
}

void MODIFY_PROJECT_STATION_ROLE(HandleA a, HandleB b, RunContext* rc,
                                 const patterns::SystemVariableView* system, const RoleRow* row,
                                 RoleRow* written) {
  store::RunActionBlock(
      &modify_unit, kModifyId, a, b, rc, {&modify_cursor}, [&](store::Block& block) {
        Initialise(&modify_state, written);
        std::memcpy(host.TSMPSR_IS_NUMBER, row->TSMPSR_IS_NUMBER, sizeof host.TSMPSR_IS_NUMBER);
        TextMove(host.TSMPSR_ORG_ID, row->TSMPSR_ORG_ID, sizeof host.TSMPSR_ORG_ID);
        store::ReadForUpdate(block, &modify_cursor, kReadForUpdate, &modify_state, &host, &entity);
        if (store::StateIs(modify_state.status, "NF")) {
          SetExit(rc, EXIT_PSR_NOT_FOUND, kNotFoundText, 'N');
          return;
        }
        if (!store::StateIs(modify_state.status, "OK")) store::FailOnStatus(block, modify_state);
        host = entity;
        BoundedCopy(host.TYPE_NAME, row->TYPE_NAME, sizeof host.TYPE_NAME);
        Stamp(a, b, rc, *system);
        store::Update(block, kUpdate, &modify_state, &host, &entity, &modify_cursor);
        // "DF" and "BP" have no branch here: each is a fatal stop of its own.
        if (!store::StateIs(modify_state.status, "OK")) store::FailOnStatus(block, modify_state);
        *written = entity;
      });
}

void REMOVE_PROJECT_STATION_ROLE(HandleA a, HandleB b, RunContext* rc, const RoleRow* key) {
  store::RunActionBlock(&remove_unit, kRemoveId, a, b, rc, {}, [&](store::Block& block) {
    Initialise(&remove_state, nullptr);
    std::memcpy(host.TSMPSR_IS_NUMBER, key->TSMPSR_IS_NUMBER, sizeof host.TSMPSR_IS_NUMBER);
    TextMove(host.TSMPSR_ORG_ID, key->TSMPSR_ORG_ID, sizeof host.TSMPSR_ORG_ID);
    store::SelectOne(block, kSelectKey, &remove_state, &host, &entity);
    if (store::StateIs(remove_state.status, "NF")) {
      SetExit(rc, EXIT_PSR_NOT_FOUND, kNotFoundText, 'E');
      return;
    }
    if (!store::StateIs(remove_state.status, "OK")) store::FailOnStatus(block, remove_state);
    store::RemoveCurrentRow(block, a, b, rc, &remove_state, &remove_record, store::E4348087,
                            patterns::GetNumber(entity.TSMPSR_IS_NUMBER), entity.TSMPSR_ORG_ID,
                            nullptr, {}, kRemoveId);
  });
}

}  // namespace lk::project_station_role
