// The units of TESTMOD and the view copy they use.
#ifndef WATRIX_TESTS_TESTMOD_TESTMOD_UNITS_H_
#define WATRIX_TESTS_TESTMOD_TESTMOD_UNITS_H_

#include "frame/entry.h"
#include "tests/testmod/testmod.h"

namespace testmod {

// Statements run after a failed action block returned; stays 0.
extern int statements_after_failure;

void TM1_FORM_IMPORT_TO_EXPORT(const FormImport* in, FormExport* out);

void TM1_FORM(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);
void TM1_PB_DEEP_CLICK(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);
void TM1_PB_PICK_CLICK(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);
void TM1_PB_OFF_CLICK(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);
void TM1_NAME_CHANGED(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);
void TM1_PB_NUMBER_CLICK(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);
void TM1_PB_WRITE_CLICK(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);
void TM1_PB_BACKEND_CLICK(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);
void TM2_DETAIL(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);
void TM2_PB_RETURN_CLICK(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);
void TM2_PB_CANCEL_CLICK(lk::HandleA, lk::HandleB, lk::RunContext*, void*, void*);

}  // namespace testmod

#endif  // WATRIX_TESTS_TESTMOD_TESTMOD_UNITS_H_
