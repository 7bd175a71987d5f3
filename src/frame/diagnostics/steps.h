// The guarded step.
//
// A step that fails is evaluated again, a line is printed with the second code, and it is evaluated a third
// time; the enclosing operation ends with the third code, whether or not that one is a failure. All three
// evaluations happen, side effects included. Deliberate: hosts and support read from the lines what took
// place (Steps.AStepThatKeepsFailingPrintsTheSecondCodeAndEndsWithTheThird,
// Steps.TheSideEffectsOfEveryEvaluationStay).
//
//   first     second    third     printed             the operation
//   succeeds                                          goes on
//   fails     fails     fails     second code         ends with the third code
//   fails     fails     succeeds  second code         ends with the third code, a success
//   fails     succeeds  fails     0 (or the success)  ends with the third code
//   fails     succeeds  succeeds  0 (or the success)  ends with the third code, a success
#pragma once

#include "frame/diagnostics/diagnostics.h"

#define RETURN_IF_STEP_FAILS(line, operation)             \
    do {                                                  \
        if ((operation) < 0) {                            \
            ::brindle::PrintFailure((operation), (line)); \
            return (operation);                           \
        }                                                 \
    } while (false)

// The logged step: its failure does not end the operation. It is evaluated a second time, and a line with its
// name and the second code is printed (CustomMenu.AListThatCannotBeClearedIsTriedTwiceAndStillFilled).
#define LOG_IF_STEP_FAILS(step, line, operation)                  \
    do {                                                          \
        if ((operation) < 0) {                                    \
            ::brindle::PrintFailure((step), (operation), (line)); \
        }                                                         \
    } while (false)
