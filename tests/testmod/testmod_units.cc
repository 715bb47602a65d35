// The units of TESTMOD: two procedure bodies, their event actions, and three
// action blocks of which the deepest fails.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <cstring>

#include "frame/run_context.h"
#include "frame/unit.h"
#include "services/row_state.h"
#include "services/timestamp.h"
#include "services/text.h"
#include "services/window.h"
#include "store/actions.h"
#include "store/is_number.h"
#include "tests/testmod/testmod.h"
#include "tests/testmod/testmod_units.h"

namespace testmod {

using lk::RunContext;
using lk::UnitId;
using lk::UnitStorage;

namespace {

constexpr char kS1[] = "0000000001";
constexpr char kS3[] = "0000000003";
const lk::TimestampSlot kFormExportStamps[] = {{0, 0}};
const lk::ViewShape kFormShape = {sizeof(FormExport), kFormExportStamps, kFormExportStamps};
const lk::ViewShape kDetailShape = {sizeof(DetailExport), kFormExportStamps, kFormExportStamps};

UnitStorage form_body, detail_body, deep_action, pick_action, off_action, changed_action,
    return_action, cancel_action, block1, block2, block3, number_action, write_action,
    backend_action, write_block, backend_block;

void Message(RunContext* rc, std::uint32_t state, const char* prefix, const char* name, char kind) {
  char text[81];
  std::string trimmed(name);
  while (!trimmed.empty() && trimmed.back() == ' ') trimmed.pop_back();
  std::snprintf(text, sizeof text, "%s%s", prefix, trimmed.c_str());
  lk::SetExit(rc, state, text, kind);
}

// Three action blocks; the third fails on its statement 3.
void ThirdBlock(lk::HandleA a, lk::HandleB b, RunContext* rc) {
  lk::EnterActionBlock(&block3, a, b, rc, [rc] {
    lk::StoreUnitId(rc, UnitId{"0000009003", "READ_THIRD_LEVEL"});
    rc->statement = kS3;
    std::snprintf(rc->database_area, lk::kDatabaseAreaSize, "ORA-03113: end-of-file");
    lk::Fail(rc, "FE", "DB", 1);
  });
}
void SecondBlock(lk::HandleA a, lk::HandleB b, RunContext* rc, int* after) {
  lk::EnterActionBlock(&block2, a, b, rc, [=] {
    lk::StoreUnitId(rc, UnitId{"0000009002", "CHECK_SECOND_LEVEL"});
    rc->statement = kS1;
    rc->run_mode = ' ';
    ThirdBlock(a, b, rc);
    lk::CheckCallee(rc);
    ++*after;
  });
}
void FirstBlock(lk::HandleA a, lk::HandleB b, RunContext* rc, int* after) {
  lk::EnterActionBlock(&block1, a, b, rc, [=] {
    lk::StoreUnitId(rc, UnitId{"0000009001", "MODIFY_FIRST_LEVEL"});
    rc->statement = kS1;
    rc->run_mode = ' ';
    SecondBlock(a, b, rc, after);
    lk::CheckCallee(rc);
    ++*after;
  });
}

// ---- Units over the session's database ----

// The LAB_REMARK row that "&Write" inserts.
struct TestRemark {
  double TSRLBRMK_IS_NUMBER;
  char TSRLBRMK_ORG_ID[9];
  char SHORT_NAME[7];
  char DESCRIPTION_TEXT[61];
  char D_USERID_CODE[9];
  char D_LAST_UPDATE_TIMESTAMP[21];
};
using lk::store::HostChar;
constexpr lk::store::HostColumn kRemarkColumns[] = {
    lk::store::HostNumber("TSRLBRMK_IS_NUMBER", LK_PLACE(TestRemark, TSRLBRMK_IS_NUMBER)),
    HostChar("TSRLBRMK_ORG_ID", 8, LK_PLACE(TestRemark, TSRLBRMK_ORG_ID)),
    HostChar("SHORT_NAME", 6, LK_PLACE(TestRemark, SHORT_NAME)),
    lk::store::HostVarchar("DESCRIPTION_TEXT", 60, LK_PLACE(TestRemark, DESCRIPTION_TEXT)),
    HostChar("D_USERID_CODE", 8, LK_PLACE(TestRemark, D_USERID_CODE)),
    lk::store::HostDate("D_LAST_UPDATE_TS", LK_PLACE(TestRemark, D_LAST_UPDATE_TIMESTAMP)),
};
constexpr lk::store::StatementDef kInsertRemark = {
    "0000000001", 1,
    "INSERT INTO TSRLBRMK (TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, DESCRIPTION_TEXT, "
    "D_USERID_CODE, D_LAST_UPDATE_TS) VALUES (:TSRLBRMK_IS_NUMBER, :TSRLBRMK_ORG_ID, "
    ":SHORT_NAME, :DESCRIPTION_TEXT, :D_USERID_CODE, :D_LAST_UPDATE_TS)",
    kRemarkColumns, {}};
// The row's own number is provisional: the test reads only whether it stays.
constexpr double kProvisionalNumber = 999999999;

lk::store::EntityState remark_state;
TestRemark remark_host, remark_entity;

// An IDENTIFY-like block: inserts the row; "DF" is fatal here.
void InsertTestRemark(lk::HandleA a, lk::HandleB b, RunContext* rc, const FormExport* form) {
  lk::store::RunActionBlock(
      &write_block, UnitId{"0000009011", "IDENTIFY_TEST_REMARK"}, a, b, rc, {},
      [&](lk::store::Block& block) {
        lk::store::ResetEntity(&remark_state);
        std::memset(&remark_host, 0, sizeof remark_host);
        remark_host.TSRLBRMK_IS_NUMBER = kProvisionalNumber;
        lk::TextMove(remark_host.TSRLBRMK_ORG_ID, form->CURRENT_ORG_ID.value, 9);
        lk::TextMove(remark_host.SHORT_NAME, form->NAME.value, 7);
        lk::BoundedCopy(remark_host.DESCRIPTION_TEXT, "written by Write", 61);
        lk::TextMove(remark_host.D_USERID_CODE, form->USER_ID_CODE.value, 9);
        lk::StampCurrentTimestamp(a, b, rc, remark_host.D_LAST_UPDATE_TIMESTAMP);
        lk::store::Insert(block, kInsertRemark, &remark_state, &remark_host, &remark_entity);
        if (!lk::store::StateIs(remark_state.status, "OK"))
          lk::store::FailOnStatus(block, remark_state);
      });
}

struct Pid {
  double PID;
};
constexpr lk::store::HostColumn kPidColumns[] = {
    lk::store::HostNumber("PID", LK_PLACE(Pid, PID))};
constexpr lk::store::StatementDef kSelectPid = {"0000000001", 1, "SELECT pg_backend_pid()", {},
                                                kPidColumns};
lk::store::EntityState pid_state;

double BackendPid(lk::HandleA a, lk::HandleB b, RunContext* rc) {
  Pid pid{};
  lk::store::RunActionBlock(&backend_block, UnitId{"0000009012", "READ_TEST_BACKEND"}, a, b, rc,
                            {}, [&](lk::store::Block& block) {
                              lk::store::ResetEntity(&pid_state);
                              lk::store::SelectOne(block, kSelectPid, &pid_state, &pid, &pid);
                              if (!lk::store::StateIs(pid_state.status, "OK"))
                                lk::store::FailOnStatus(block, pid_state);
                            });
  return pid.PID;
}

// Takes the next number of counter `name` as an IDENTIFY block does, and
// shows it in NOTE.
void TakeNumber(lk::HandleA a, lk::HandleB b, RunContext* rc, const UnitId& own, const char* name,
                FormExport* out) {
  lk::store::EisnSystemVariable system{};
  lk::TextMove(system.USER_ID_CODE, out->USER_ID_CODE.value, sizeof system.USER_ID_CODE);
  lk::TextMove(system.CURRENT_ORG_ID, out->CURRENT_ORG_ID.value, sizeof system.CURRENT_ORG_ID);
  lk::store::EisnImport import{};
  lk::TextMove(import.TSMEISN_NAME, name, sizeof import.TSMEISN_NAME);
  lk::TextMove(import.TSMEISN_ORG_ID, "", sizeof import.TSMEISN_ORG_ID);
  lk::store::EisnExport number{};
  rc->run_mode = ' ';
  lk::store::DETERMINE_NEXT_IS_NUMBER(a, b, rc, &system, &import, &number);
  lk::CheckCallee(rc);
  lk::StoreUnitId(rc, own);
  if (rc->exit_state != lk::EXIT_NONE) {
    lk::SetExit(rc, lk::EXIT_SYSTEM_ERROR, lk::kSystemErrorText, 'E', 'R');
    return;
  }
  char text[32];
  std::snprintf(text, sizeof text, "%.0f", number.IS_NUMBER);
  lk::TextMove(out->NOTE.value, text, sizeof out->NOTE.value);
}

}  // namespace

int statements_after_failure = 0;

void TM1_FORM(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  lk::EnterProcedure(&form_body, &kFormShape, true, a, b, rc, iv, ev, [&] {
    auto* in = static_cast<FormImport*>(iv);
    auto* out = static_cast<FormExport*>(ev);
    lk::StoreUnitId(rc, UnitId{"0000001001", "TM1_FORM"});
    rc->statement = kS1;
    lk::SetExit(rc, lk::EXIT_NONE, nullptr, 'N');
    TM1_FORM_IMPORT_TO_EXPORT(in, out);
    if (out->count == 0) {
      const char* codes[] = {"R1", "R2", "R3"};
      for (int r = 1; r <= 3; ++r) {
        lk::TextMove(out->CODE.value[r], codes[r - 1], 5);
        std::memcpy(out->CODE.display[r], lk::kDisplayNormal, 6);
      }
      out->count = 3;
    }
    if (lk::TextCompare(rc->command, "GO") == 0) {
      if (lk::TextIsBlank(out->NAME.value)) {
        std::memcpy(out->NAME.display, lk::kDisplayError, 6);
        lk::SetExit(rc, lk::EXIT_FIELD_REQUIRED, lk::kFieldRequiredText, 'E');
      } else {
        std::memcpy(out->NAME.display, lk::kDisplayNormal, 6);
        Message(rc, lk::EXIT_NONE, "Saved ", out->NAME.value, 'I');
      }
    } else if (lk::TextCompare(rc->command, "LINK") == 0) {
      lk::SetExit(rc, kExitDetail, nullptr, 'N');
    } else if (lk::TextCompare(rc->command, "AWAY") == 0) {
      lk::SetExit(rc, kExitAway, nullptr, 'N');
    } else if (lk::TextCompare(rc->command, "RETURN") == 0) {
      Message(rc, lk::EXIT_NONE, "Back with ", out->NAME.value, 'I');
    } else if (lk::TextCompare(rc->command, "HIDE") == 0) {
      out->ROW_FLAG.value[2][0] = 'H';
    }
  });
}

void TM1_PB_DEEP_CLICK(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  lk::EnterEventAction(&deep_action, &kFormShape, UnitId{"0000001002", "TM1_PB_DEEP_CLICK"}, a,
                       b, rc, iv, ev, [&] {
                         rc->statement = kS1;
                         rc->run_mode = ' ';
                         FirstBlock(a, b, rc, &statements_after_failure);
                         lk::CheckCallee(rc);
                         ++statements_after_failure;
                         lk::SetExit(rc, lk::EXIT_NONE, "Not reached", 'I');
                       });
}

void TM1_PB_PICK_CLICK(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  lk::EnterEventAction(&pick_action, &kFormShape, UnitId{"0000001003", "TM1_PB_PICK_CLICK"}, a,
                       b, rc, iv, ev, [&] {
                         auto* out = static_cast<FormExport*>(ev);
                         rc->statement = kS1;
                         int selected = 0;
                         for (int r = 1; r <= out->count && selected == 0; ++r)
                           if (lk::RowStateTest(a, b, rc, out->ROW_FLAG.value[r][0], 5))
                             selected = r;
                         if (selected == 0) {
                           // No marked row: subscript 0, and row 0 is left alone.
                           lk::SetExit(rc, kExitPicked, "Select a row first.", 'E');
                           return;
                         }
                         Message(rc, kExitPicked, "Picked ", out->CODE.value[selected], 'I');
                       });
}

void TM1_PB_OFF_CLICK(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  lk::EnterEventAction(&off_action, &kFormShape, UnitId{"0000001004", "TM1_PB_OFF_CLICK"}, a,
                       b, rc, iv, ev, [&] {
                         rc->statement = kS1;
                         lk::ControlDisable(a, b, "GO");
                       });
}

void TM1_NAME_CHANGED(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  lk::EnterEventAction(&changed_action, &kFormShape, UnitId{"0000001005", "TM1_NAME_CHANGED"},
                       a, b, rc, iv, ev, [&] {
                         auto* out = static_cast<FormExport*>(ev);
                         rc->statement = kS1;
                         const int n = std::atoi(out->NOTE.value) + 1;
                         char text[21];
                         std::snprintf(text, sizeof text, "%d", n);
                         lk::TextMove(out->NOTE.value, text, 21);
                       });
}

void TM1_PB_NUMBER_CLICK(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  const UnitId id{"0000001006", "TM1_PB_NUMBER_CLICK"};
  lk::EnterEventAction(&number_action, &kFormShape, id, a, b, rc, iv, ev, [&] {
    auto* out = static_cast<FormExport*>(ev);
    rc->statement = kS1;
    lk::SetExit(rc, lk::EXIT_NONE, nullptr, 'N');
    char name[11];
    lk::TextMove(name, out->NAME.value, sizeof name);
    TakeNumber(a, b, rc, id, name, out);
  });
}

void TM1_PB_WRITE_CLICK(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  const UnitId id{"0000001007", "TM1_PB_WRITE_CLICK"};
  lk::EnterEventAction(&write_action, &kFormShape, id, a, b, rc, iv, ev, [&] {
    auto* out = static_cast<FormExport*>(ev);
    rc->statement = kS1;
    lk::SetExit(rc, lk::EXIT_NONE, nullptr, 'N');
    rc->run_mode = ' ';
    InsertTestRemark(a, b, rc, out);
    lk::CheckCallee(rc);
    lk::StoreUnitId(rc, id);
    rc->statement = kS3;
    TakeNumber(a, b, rc, id, "TSRLBRMK", out);
  });
}

void TM1_PB_BACKEND_CLICK(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  const UnitId id{"0000001008", "TM1_PB_BACKEND_CLICK"};
  lk::EnterEventAction(&backend_action, &kFormShape, id, a, b, rc, iv, ev, [&] {
    auto* out = static_cast<FormExport*>(ev);
    rc->statement = kS1;
    lk::SetExit(rc, lk::EXIT_NONE, nullptr, 'N');
    rc->run_mode = ' ';
    const double pid = BackendPid(a, b, rc);
    lk::CheckCallee(rc);
    lk::StoreUnitId(rc, id);
    char text[32];
    std::snprintf(text, sizeof text, "%.0f", pid);
    lk::TextMove(out->NOTE.value, text, sizeof out->NOTE.value);
  });
}

void TM2_DETAIL(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  lk::EnterProcedure(&detail_body, &kDetailShape, true, a, b, rc, iv, ev, [&] {
    auto* in = static_cast<DetailImport*>(iv);
    auto* out = static_cast<DetailExport*>(ev);
    lk::StoreUnitId(rc, UnitId{"0000002001", "TM2_DETAIL"});
    rc->statement = kS1;
    lk::SetExit(rc, lk::EXIT_NONE, nullptr, 'N');
    lk::TextMove(out->NAME.value, in->NAME, 11);
    std::memcpy(out->NAME.display,
                lk::TextCompare(rc->command, "SHOW") == 0 ? lk::kDisplayCursor : lk::kDisplayNormal,
                6);
  });
}

void TM2_PB_RETURN_CLICK(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  lk::EnterEventAction(&return_action, &kDetailShape, UnitId{"0000002002", "TM2_PB_RETURN_CLICK"},
                       a, b, rc, iv, ev, [&] { lk::SetExit(rc, lk::EXIT_RETURN, nullptr, 'N'); });
}

void TM2_PB_CANCEL_CLICK(lk::HandleA a, lk::HandleB b, RunContext* rc, void* iv, void* ev) {
  lk::EnterEventAction(&cancel_action, &kDetailShape, UnitId{"0000002003", "TM2_PB_CANCEL_CLICK"},
                       a, b, rc, iv, ev, [&] { lk::SetExit(rc, lk::EXIT_CANCEL, nullptr, 'N'); });
}

}  // namespace testmod
