/*
 * dialsim.h - a dial you can turn without owning one
 *
 * The simulator stands in for the platform underneath brindle: natively inside the test program, and on
 * Windows (under Wine) as dialsim.dll, which serves the Windows Runtime classes of the dial after "regsvr32
 * dialsim.dll". This header is its control surface, the same in both.
 *
 * Conventions: functions that answer int32_t give the HRESULT that the event's handlers answered, the first
 * failure if several windows' handlers were called; texts are UTF-8 and borrowed for the call; functions
 * that copy a text out take a buffer and its size in bytes, always terminate it, and return the size that the
 * whole text needs, terminator included. `window` is a window handle, or 0 for the window whose controller
 * was made last; handles are taken as they come, whether a window has them or not. No pointer may be null but
 * where it says so. Every function may be called from any thread; no lock is held while handlers run.
 */
#ifndef DIALSIM_H
#define DIALSIM_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* --- turning the dial --- */

/* No controller exists for the window (the platform's ERROR_NOT_FOUND). */
#define DIALSIM_NO_CONTROLLER ((int32_t)0x80070490)
/* A handler raised an exception instead of answering; on Windows that ends the process. dialsim_raised tells
 * which. */
#define DIALSIM_RAISED ((int32_t)0xA0000001)

/* RotationChanged: degrees since the last event, clockwise positive. */
int32_t dialsim_turn(uint64_t window, double degrees);
/* ButtonClicked. */
int32_t dialsim_click(uint64_t window);
/* The button goes down and stays down, or comes up; turns report it. Raises nothing. */
void dialsim_hold(bool down);
/* ScreenContactStarted; the dial then stands on the screen until dialsim_lift. Its position is the middle. */
int32_t dialsim_touch(uint64_t window, float x, float y, float width, float height);
/* ScreenContactContinued at a new place. */
int32_t dialsim_move(uint64_t window, float x, float y, float width, float height);
/* ScreenContactEnded. */
int32_t dialsim_lift(uint64_t window);
/* The user chooses the menu's item at this place in the ring, from 0: it becomes the selected one and is
 * Invoked. An empty place gives the platform's E_BOUNDS (0x8000000B). */
int32_t dialsim_choose(uint64_t window, uint32_t item);
/* ControlAcquired and ControlLost. */
int32_t dialsim_acquire(uint64_t window);
int32_t dialsim_lose(uint64_t window);

/* The message of the last exception that a handler raised; empty when none did since the last reset. */
size_t dialsim_raised(char* buffer, size_t size);

/* Events are raised on the caller's thread, or each on a thread of its own that is waited for. */
void dialsim_raise_on_own_thread(bool own_thread);

/* The waveforms that the dial can play, in order (one at the start: 4099, a click); `present` false: a dial
 * without a haptics controller. */
void dialsim_set_haptics(bool present, const uint16_t* waveforms, uint32_t count);

/* Whether a type is known to the platform's API probe; every type is at the start. */
void dialsim_set_type_present(const char* type, bool present);

/* --- time
 * --------------------------------------------------------------------------------------------------- */

/* Milliseconds since the system started, as GetTickCount64 tells them. */
uint64_t dialsim_now(void);
/* Lets time pass: natively the clock is set forward at once, on Windows the calling thread sleeps. */
void dialsim_wait(uint32_t milliseconds);
/* Natively sets the clock and gives true; on Windows the clock is the system's and the answer is false. */
bool dialsim_set_clock(uint64_t milliseconds);

/* --- scripts
 * ------------------------------------------------------------------------------------------------ */

enum {
    /* Waits take the time they say in both builds, for a person to watch. */
    DIALSIM_REAL_TIME = 1
};

/*
 * Plays a script, a command a line, # beginning a comment:
 *
 *   turn DEGREES         click               hold                release
 *   touch X Y W H        move X Y W H        lift                acquire             lose
 *   choose ITEM
 *   wait MS              window HANDLE       haptics WAVEFORM... thread own|caller
 *   fail OPERATION CODE [FROM [TIMES]]       fail-late OPERATION CODE [FROM [TIMES]]
 *   null OPERATION [FROM [TIMES]]
 *   show journal         show accounts
 *
 * `window` directs what follows (0, the newest, at the start). False when a line cannot be understood;
 * nothing of the script is then played, and `error` says which line and why.
 */
bool dialsim_play(const char* script, uint32_t flags, char* error, size_t error_size);

/* Plays on a thread of the simulator's own and calls `done` from there at the end, `error` being null or the
 * reason why nothing was played. */
void dialsim_play_in_background(const char* script, uint32_t flags,
                                void (*done)(void* context, const char* error), void* context);
/* Returns when every script in the background has been played and its `done` has returned. */
void dialsim_wait_for_scripts(void);

/* --- faults
 * ------------------------------------------------------------------------------------------------- */

/*
 * `operation` is one of dialsim_operation, "IRadialController::add_RotationChanged", or one with the
 * arguments that the journal prints, "RoGetActivationFactory(Windows.UI.Input.RadialController)". The fault
 * strikes from its `from`th matching call on, counted from now (1 is the next), `times` times; 0 is for ever.
 * Several faults may be set on one operation; the first that strikes decides. False when the list has no such
 * operation; arguments are not checked.
 */
bool dialsim_fail(const char* operation, int32_t code, uint32_t from, uint32_t times);
/* The operation takes place, its result is handed out, and then it claims to have failed. False also for
 * WindowsPromoteStringBuffer, which consumes what its caller would then give back. */
bool dialsim_fail_late(const char* operation, int32_t code, uint32_t from, uint32_t times);
/* The operation does not take place, and succeeds with null, or zero. */
bool dialsim_yield_null(const char* operation, uint32_t from, uint32_t times);

/* The operations that faults can be set on, by index from 0; null past the last. */
const char* dialsim_operation(uint32_t index);

/* --- what happened
 * ------------------------------------------------------------------------------------------ */

/* The platform calls since the last clearing, in order, a line each: "operation(arguments)", with " = code"
 * in lower-case hexadecimal where the code was not 0. */
size_t dialsim_journal(char* buffer, size_t size);
void dialsim_clear_journal(void);
/* How many of them were calls of `operation` (with or without arguments, as above). */
uint32_t dialsim_calls(const char* operation);

/* What was handed out and has not come back: platform objects of a class
 * ("Windows.UI.Input.RadialController"; null for all), references to them, platform strings, and event
 * handlers that the platform holds. */
uint32_t dialsim_objects(const char* class_name);
uint32_t dialsim_references(const char* class_name);
uint32_t dialsim_strings(void);
uint32_t dialsim_handlers(void);
/* The same as text, a line a class; empty when everything has come back. */
size_t dialsim_accounts(char* buffer, size_t size);

/* Back to the start: no faults, an empty journal, the dial off the screen, button up, default haptics, and
 * fresh accounts (what is still out is no longer counted). Controllers that still exist no longer take part.
 */
void dialsim_reset(void);

/* --- the library under test
 * ----------------------------------------------------------------------------------- */

/* On Windows puts the simulator between a loaded module ("brindle.dll") and the platform's flat functions, so
 * that these too are journaled, counted and can be made to fail; false when it is not loaded. Natively this
 * is always so, and the answer is true. */
bool dialsim_watch(const char* module);

#ifdef __cplusplus
}
#endif

#endif
