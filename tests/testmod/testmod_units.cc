// The units of TESTMOD: two procedure bodies, their event actions, and three
// action blocks of which the deepest fails.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <cstring>

#include "frame/run_context.h"
#include "frame/unit.h"
#include "services/row_state.h"
#include "services/text.h"
#include "services/window.h"
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
    return_action, cancel_action, block1, block2, block3;

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
