// DETERMINE_NEXT_IS_NUMBER over the statement frame.
#include "store/is_number.h"

#include <cstddef>
#include <cstring>

#include "frame/unit.h"
#include "frame/views.h"
#include "services/number.h"
#include "services/text.h"
#include "services/timestamp.h"
#include "store/actions.h"

namespace lk::store {

namespace {

const UnitId kUnit = {"0000016330", "DETERMINE_NEXT_IS_NUMBER"};

// The block's entity view ENTITY_INTERNAL_SYSTEM_NUMBER.
struct Eisn {
  char TSMEISN_NAME[9];
  double IS_NUMBER;
  char TSMEISN_ORG_ID[9];
  char TABLE_VERSION[13];
  char D_USERID_CODE[9];
  char D_LAST_UPDATE_TIMESTAMP[21];
  char V_USERID_CODE[9];
  char V_LAST_UPDATE_TIMESTAMP[21];
};

constexpr char kS3[] = "0000000003";
constexpr char kS4[] = "0000000004";
constexpr char kS12[] = "0000000012";

constexpr HostColumn kName = HostChar("TSMEISN_NAME", 8, LK_PLACE(Eisn, TSMEISN_NAME));
constexpr HostColumn kOrg = HostChar("TSMEISN_ORG_ID", 8, LK_PLACE(Eisn, TSMEISN_ORG_ID));
constexpr HostColumn kNumber = HostNumber("IS_NUMBER", LK_PLACE(Eisn, IS_NUMBER));
constexpr HostColumn kUser = HostChar("D_USERID_CODE", 8, LK_PLACE(Eisn, D_USERID_CODE));
constexpr HostColumn kStamp = HostDate("D_LAST_UPDT_TS", LK_PLACE(Eisn, D_LAST_UPDATE_TIMESTAMP));

constexpr HostColumn kKey[] = {kName, kOrg};
constexpr HostColumn kRow[] = {
    kName,
    kNumber,
    kOrg,
    kUser,
    kStamp,
    HostChar("V_USERID_CODE", 8, LK_PLACE(Eisn, V_USERID_CODE), kNullable),
    HostDate("V_LAST_UPDATE_TS", LK_PLACE(Eisn, V_LAST_UPDATE_TIMESTAMP), kNullable),
};
constexpr StatementDef kReadForUpdate = {
    kS3, 3,
    "SELECT TSMEISN_NAME, IS_NUMBER, TSMEISN_ORG_ID, D_USERID_CODE, D_LAST_UPDT_TS, "
    "V_USERID_CODE, V_LAST_UPDATE_TS FROM TSMEISN "
    "WHERE TSMEISN_NAME = :TSMEISN_NAME AND TSMEISN_ORG_ID = :TSMEISN_ORG_ID",
    kKey, kRow, /*for_update=*/true};

constexpr HostColumn kUpdateColumns[] = {kNumber, kUser, kStamp, kName, kOrg};
constexpr StatementDef kUpdate = {
    kS4, 4,
    "UPDATE TSMEISN SET IS_NUMBER = :IS_NUMBER, D_USERID_CODE = :D_USERID_CODE, "
    "D_LAST_UPDT_TS = :D_LAST_UPDT_TS "
    "WHERE TSMEISN_NAME = :TSMEISN_NAME AND TSMEISN_ORG_ID = :TSMEISN_ORG_ID",
    kUpdateColumns, {}};

constexpr HostColumn kInsertColumns[] = {
    kName, kNumber, kOrg,
    HostChar("TABLE_VERSION", 12, LK_PLACE(Eisn, TABLE_VERSION), kNullable | kWriteNull),
    kUser, kStamp};
constexpr StatementDef kInsert = {
    kS12, 12,
    "INSERT INTO TSMEISN (TSMEISN_NAME, IS_NUMBER, TSMEISN_ORG_ID, TABLE_VERSION, "
    "V_USERID_CODE, V_LAST_UPDATE_TS, D_USERID_CODE, D_LAST_UPDT_TS) "
    "VALUES (:TSMEISN_NAME, :IS_NUMBER, :TSMEISN_ORG_ID, :TABLE_VERSION, NULL, NULL, "
    ":D_USERID_CODE, :D_LAST_UPDT_TS)",
    kInsertColumns, {}};

// The block's static storage.
UnitStorage unit;
Cursor cursor;
EntityState state;
Eisn entity;  // the row as read, then as written
Eisn host;    // the values to write

// The initialising step: blanks, the default timestamps, a zero export.
void Initialise(EisnExport* out) {
  ResetEntity(&state);
  for (Eisn* e : {&entity, &host}) {
    std::memset(e, 0, sizeof *e);
    TextMove(e->TSMEISN_NAME, "", sizeof e->TSMEISN_NAME);
    TextMove(e->TSMEISN_ORG_ID, "", sizeof e->TSMEISN_ORG_ID);
    TextMove(e->TABLE_VERSION, "", sizeof e->TABLE_VERSION);
    TextMove(e->D_USERID_CODE, "", sizeof e->D_USERID_CODE);
    TextMove(e->V_USERID_CODE, "", sizeof e->V_USERID_CODE);
  }
  std::memcpy(entity.D_LAST_UPDATE_TIMESTAMP, kDefaultTimestamp, kTimestampStorage);
  std::memcpy(entity.V_LAST_UPDATE_TIMESTAMP, kDefaultTimestamp, kTimestampStorage);
  std::memcpy(host.D_LAST_UPDATE_TIMESTAMP, kInitialTimestamp, kTimestampStorage);
  std::memcpy(host.V_LAST_UPDATE_TIMESTAMP, kInitialTimestamp, kTimestampStorage);
  std::memset(out, 0, sizeof *out);
  TextMove(out->TSMEISN_ORG_ID, "", sizeof out->TSMEISN_ORG_ID);
}

// The branches of a write: "OK" exports the number, "DF" and "BP" set the
// block's exit states, any other status is fatal.
void Conclude(Block& block, EisnExport* out) {
  if (StateIs(state.status, "OK")) {
    out->IS_NUMBER = entity.IS_NUMBER;
    TextMove(out->TSMEISN_ORG_ID, entity.TSMEISN_ORG_ID, sizeof out->TSMEISN_ORG_ID);
  } else if (StateIs(state.status, "DF")) {
    SetExit(block.rc(), EXIT_EISN_NOT_UNIQUE, kEisnNotUniqueText, 'N');
  } else if (StateIs(state.status, "BP")) {
    SetExit(block.rc(), EXIT_EISN_PERMITTED_VALUE, kEisnPermittedValueText, 'N');
  } else {
    FailOnStatus(block, state);
  }
}

}  // namespace

void DETERMINE_NEXT_IS_NUMBER(HandleA a, HandleB b, RunContext* rc,
                              const EisnSystemVariable* system, const EisnImport* import,
                              EisnExport* out) {
  RunActionBlock(&unit, kUnit, a, b, rc, {&cursor}, [&](Block& block) {
    Initialise(out);
    TextMove(host.TSMEISN_NAME, import->TSMEISN_NAME, sizeof host.TSMEISN_NAME);
    TextMove(host.TSMEISN_ORG_ID, system->CURRENT_ORG_ID, sizeof host.TSMEISN_ORG_ID);
    ReadForUpdate(block, &cursor, kReadForUpdate, &state, &host, &entity);

    if (StateIs(state.status, "OK")) {
      host = entity;
      host.IS_NUMBER = NumberFit(entity.IS_NUMBER + 1, 0, 0, 12);
      TextMove(host.D_USERID_CODE, system->USER_ID_CODE, sizeof host.D_USERID_CODE);
      StampCurrentTimestamp(a, b, rc, host.D_LAST_UPDATE_TIMESTAMP);
      Update(block, kUpdate, &state, &host, &entity);
      Conclude(block, out);
    } else if (StateIs(state.status, "NF")) {
      // The first number of this table and organisation.
      host.IS_NUMBER = 1;
      TextMove(host.D_USERID_CODE, system->USER_ID_CODE, sizeof host.D_USERID_CODE);
      StampCurrentTimestamp(a, b, rc, host.D_LAST_UPDATE_TIMESTAMP);
      Insert(block, kInsert, &state, &host, &entity);
      Conclude(block, out);
    } else {
      FailOnStatus(block, state);
    }
  });
}

}  // namespace lk::store
