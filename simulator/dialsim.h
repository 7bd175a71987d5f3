/*
 * dialsim.h - a dial you can turn without owning one
 *
 * The simulator is a substitute for the platform underneath brindle: natively inside the test program, and on
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
/* The user holds the dial down until the menu is there, with the selected item highlighted; false where it
 * has no items. As long as it is open, dialsim_turn raises nothing but moves the highlight, by an item for
 * every ten degrees, and dialsim_click chooses the highlighted item, which closes the menu. */
bool dialsim_open_menu(uint64_t window);
/* Closes it without a choice. */
void dialsim_close_menu(void);
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

/* --- the menu
 * ------------------------------------------------------------------------------------------------------ */

/*
 * The window's menu as a person would see it, a line an item, the selected one marked:
 *
 *   0   "Louder" known icon Volume, tag 7
 *   1 * "Brush" glyph A of Symbols, tag -
 *   2   "Pen" glyph B of font file file:///C:/FONTS/SYMBOL~1.TTF, tag not a number
 *   3   "File" PNG file 32x32, tag 1
 *   4   "Resource" PNG image 16x16, tag 2
 *   5   "Damaged" broken picture, tag 3
 *   6   no item
 *   system items: Scroll, Zoom, UndoRedo, Volume, NextPreviousTrack
 *   automatic haptics: on
 *
 * A tag is the item's number, "-" without one; "system items: none" without any. Empty when no controller
 * exists for the window. Where it has several, the newest one's.
 */
size_t dialsim_menu(uint64_t window, char* buffer, size_t size);
/* The same as a picture, SVG; empty when no controller exists for the window. */
size_t dialsim_menu_svg(uint64_t window, char* buffer, size_t size);

/* The system's own entries that the window's menu shows, RadialControllerSystemMenuItemKind values in their
 * order (0 to 4 at the start); at most `capacity` are copied, `kinds` may be null for 0. The journal has
 * every list that SetDefaultMenuItems was given, "system items(3, 0, 7)", also where it was refused. Answers
 * how many there are. */
uint32_t dialsim_system_items(uint64_t window, int32_t* kinds, uint32_t capacity);
/* Whether the sequence that SetDefaultMenuItems is given, and its iterator, are kept after the call; normally
 * they are not. */
void dialsim_keep_sequences(bool keep);
/* Uses the sequence that was kept last once more, in every way, and lets go of it: the code of that, which is
 * negative only if nothing worked any more; 1 when none is kept. */
int32_t dialsim_use_kept_sequence(void);

/* Adds to the end of the window's menu what its owner would not: no item at all; or an item with a tag of the
 * given kind: "UInt32", "String" (the number as text), "object" (no value at all) or "none". False when no
 * controller exists for the window, or there is no such kind. */
bool dialsim_append_null_item(uint64_t window);
bool dialsim_append_item(uint64_t window, const char* tag_kind, uint32_t value);
/* The menu's last item goes as soon as GetAt has answered `calls` more times; with 0 it goes at once. */
bool dialsim_shrink_menu_after(uint64_t window, uint32_t calls);

/* --- asynchronous operations
 * --------------------------------------------------------------------------------------- */

enum dialsim_async_mode {
    /* Soon after a handler is attached, on a thread of the simulator's, as the platform does it; so it is at
     * the start. */
    DIALSIM_OWN_THREAD = 0,
    /* Before a handler can be attached: it is called inside put_Completed, on that thread. */
    DIALSIM_AT_ONCE = 1,
    /* When dialsim_complete says so. */
    DIALSIM_HELD = 2
};
/* When operations complete that start from now on. What they found out is fixed when they start. */
void dialsim_async(enum dialsim_async_mode mode);

/* AsyncOperations are counted from 0 in the order of their starts since the last reset. These complete one
 * that has not completed, or all of those in their order, on the thread that is set for events; one without a
 * handler calls its handler as soon as it gets one. The code is the handler's answer (the first failure of
 * several), 0 without a handler, 0x8000000B (E_BOUNDS) where nothing is there to complete. */
int32_t dialsim_complete(uint32_t index);
int32_t dialsim_complete_all(void);
/* Completes with a status that is not the operation's own: 0 started, 1 completed, 2 canceled, 3 error. Its
 * results then answer accordingly: 0x8000000E, what there is, 0x800704C7, its failure or else 0x80004005. */
int32_t dialsim_complete_as(uint32_t index, int32_t status);
/* How many have started and not completed. */
uint32_t dialsim_pending(void);
/* What the operation's handler answered, DIALSIM_RAISED if it raised; 0x8000000A (E_PENDING) until it has
 * been called, E_BOUNDS where there is no such operation. The journal has it too:
 * "AsyncOperationCompletedHandler<StorageFile>::Invoke(status) = code". */
int32_t dialsim_completion_code(uint32_t index);
/* Whether the operation's handler, which is there until it has been called, can be marshalled to every
 * apartment as itself: it answers IMarshal with the free-threaded marshaler. */
bool dialsim_completion_marshals(uint32_t index);
/* Those that have not completed never will: they and their handlers are let go of. */
void dialsim_abandon_pending(void);
/* Returns when every operation that completes on a thread of the simulator's and has a handler has called it.
 */
void dialsim_wait_for_async(void);

/* How long operations on threads of the simulator's take, in milliseconds after they got a handler; 0 at the
 * start. Natively the clock decides: they complete when Sleep or dialsim_wait has moved it that far. */
void dialsim_async_delay(uint32_t milliseconds);

/* --- devices
 * ------------------------------------------------------------------------------------------------------- */

/*
 * The device interfaces of the machine. An enumeration finds those that its filter asks for, in this order,
 * as they are when it starts. At the start there is one: the dial, enabled. Filters are conjunctions of the
 * properties System.Devices.InterfaceClassGuid and System.Devices.InterfaceEnabled; the platform's
 * E_INVALIDARG answers any other.
 *
 *   id                a device-interface Id; null puts an entry without an object into every result
 *   interface_class   a GUID in braces; null: the dial's
 */
void dialsim_add_device(const char* id, const char* interface_class, bool enabled);
void dialsim_remove_devices(void);
/* Enumerations that start from now on end as failed, with this code; 0: they find what there is. */
void dialsim_fail_devices(int32_t code);

/* --- settings and credentials
 * --------------------------------------------------------------------------------------- */

/*
 * Three stores: the roaming and the local settings of the application, and the user's credential vault. Each
 * is a JSON file in one folder, roaming.json, local.json and vault.json, the last readable by its owner only,
 * laid out for a person to read and change:
 *
 *   {"settings": [{"key": "brush", "type": "String", "value": "Palette"}]}
 *   {"credentials": [{"resource": "resource", "user": "user name", "password": "password"}]}
 *
 * (a text that is not well-formed UTF-16 stands there as the list of its units). A change replaces the file
 * at once, so that whatever ends the process leaves the old or the new state, and several processes may
 * change the stores of one folder side by side. A missing file is an empty store. One that is damaged is
 * never overwritten: every operation on it fails, with 0x80073DB8 (ERROR_STATE_LOAD_STORE_FAILED) for
 * settings and 0x80070570 (ERROR_FILE_CORRUPT) for the vault, and the first one says what is wrong on
 * standard error. Where the system refuses a file or the folder, operations fail with its code, such as
 * 0x80070005 (ERROR_ACCESS_DENIED).
 *
 * What the platform refuses is refused here with its codes: a setting's name above 255 characters
 * (0x80073DC9), a value above 8192 bytes (0x80073DC8), no value at all (E_POINTER) and one of a type that the
 * stores do not keep (0x8007065E, ERROR_UNSUPPORTED_TYPE); a credential with an empty resource, user name or
 * password (E_INVALIDARG); retrieving, removing or searching for what is not there (0x80070490,
 * ERROR_NOT_FOUND). Names are compared exactly. Adding a credential that is there replaces its password; one
 * that was searched for has none until it is asked to retrieve it. A setting that is not there is looked up
 * as null, and removing it is no failure.
 *
 * The folder is the one given here; with null (at the start) that of the environment variable DIALSIM_STORES,
 * and without it dialsim in the user's own local data: %LOCALAPPDATA%, natively $XDG_STATE_HOME or
 * ~/.local/state. It is made when it is first needed. dialsim_reset changes neither folder nor files.
 *
 * DIALSIM_MEMORY, here or in the variable, keeps the three files in memory instead: nothing is written to a
 * disk, no other process sees them, and they end with the process. They stay when a folder is given, and are
 * there again when DIALSIM_MEMORY is.
 */
#define DIALSIM_MEMORY ":memory:"
void dialsim_set_stores(const char* folder);
/* Whether the program runs with the identity of a package. One without has no application data: its Current
 * fails with 0x80073D54 (APPMODEL_ERROR_NO_PACKAGE), and the vault alone remains. At the start: without,
 * unless the environment variable DIALSIM_PACKAGED is 1. */
void dialsim_set_packaged(bool packaged);

/* A store ("roaming", "local", "vault") as text, an entry a line, in the order of their keys:
 *
 *   "brush" String "Palette"
 *   "runs" Int32 3
 *   "resource" "user name" "password"      in the vault
 *
 * Empty without entries; "damaged\n" for a store that cannot be read. Not journaled, and neither is what
 * follows. */
size_t dialsim_store(const char* store, char* buffer, size_t size);
/* Puts an entry of any type that the stores keep: "String", "Int32", "UInt32", "Int64", "UInt64", "UInt8",
 * "Int16", "UInt16", "Boolean" ("true", "false"), or "composite", an object that is no value (`value` is
 * ignored). False when the store refuses it, or there is no such store or type. */
bool dialsim_put_setting(const char* store, const char* key, const char* type, const char* value);
bool dialsim_put_credential(const char* resource, const char* user_name, const char* password);
/* Deletes the three files, damaged ones too; false when that fails. */
bool dialsim_clear_stores(void);
/* The bytes of a store's file, valid or damaged; 0 when there is no file, it cannot be read, or there is no
 * such store. */
size_t dialsim_store_file(const char* store, char* buffer, size_t size);
/* Replaces a store's file with these bytes, valid or damaged; false when that fails, or there is no such
 * store. */
bool dialsim_put_store_file(const char* store, const void* bytes, size_t size);

/* --- what modules hold
 * ------------------------------------------------------------------------------------------- */

/* Natively gives a module (any number) a resource, the type being a name such as "PNG", and answers true; on
 * Windows resources are the module's own and the answer is false. */
bool dialsim_add_resource(uint64_t module, uint16_t id, const char* type, const void* bytes, uint32_t size);

/* --- time
 * --------------------------------------------------------------------------------------------------- */

/* Milliseconds since the system started, as GetTickCount64 tells them. */
uint64_t dialsim_now(void);
/* Lets time pass: natively the clock is set forward at once, on Windows the calling thread sleeps. */
void dialsim_wait(uint32_t milliseconds);
/* Natively the platform's Sleep does not sleep: it sets the clock forward, and returns when what is then due
 * on threads of the simulator's has been done. On Windows it sleeps, unless told to skip that: it then
 * returns at once, and no time passes. */
void dialsim_skip_sleeps(bool skip);
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
 *   choose ITEM          menu                close
 *   wait MS              window HANDLE|@N    haptics WAVEFORM... thread own|caller
 *   fail OPERATION CODE [FROM [TIMES]]       fail-late OPERATION CODE [FROM [TIMES]]
 *   null OPERATION [FROM [TIMES]]
 *   async at-once|held|own-thread            delay MS            complete INDEX|all  settle
 *   no-devices                               device ID [disabled]
 *   packaged            unpackaged           show stores
 *   show journal         show accounts       show menu           draw menu FILE
 *   mouse X Y down|move|up                   shot FILE
 *
 * `window` directs what follows (0, the newest, at the start); @N is the N-th window that a controller was
 * made for since the last reset, from 1, so that a script can mean the same window in every run. False when a
 * line cannot be understood; nothing of the script is then played, and `error` says which line and why.
 * `settle` is dialsim_wait_for_async, `delay` dialsim_async_delay; `draw menu` writes the picture to a file;
 * `show stores` prints the three stores, each under its name. `menu` and `close` are dialsim_open_menu and
 * dialsim_close_menu. `mouse` uses the left button in the window, and `shot` writes what is on the screen of
 * the window, and of the simulator's dial beside it, to a PNG file: on Windows only.
 */
bool dialsim_play(const char* script, uint32_t flags, char* error, size_t error_size);

/* Plays on a thread of the simulator's own and calls `done` from there at the end, `error` being null or the
 * reason why nothing was played. */
void dialsim_play_in_background(const char* script, uint32_t flags,
                                void (*done)(void* context, const char* error), void* context);
/* Returns when every script in the background has been played and its `done` has returned, and then
 * dialsim_wait_for_async does. */
void dialsim_wait_for_scripts(void); /* not from a script's `done` */

/*
 * Records what the dial does from here on as a script that does it again, until the next call or the next
 * reset; null only ends the recording. False when the file cannot be written. Each line is in the file as
 * soon as the dial moves.
 *
 * Recorded are the dial's movements, from scripts and functions alike (turn, click, hold, release, touch,
 * move, lift, choose, menu, close, acquire, lose), the mouse of a script, `settle`, and as waits the time
 * between them, but not the time that handlers take. Numbers read back as they were, and windows are named
 * @N. Played to the same host, the script raises the same events in the same order, natively at the same
 * times. What a replay has to begin with is not in it: devices, haptics, faults, package identity, and how
 * events are raised.
 */
bool dialsim_record(const char* path);

/*
 * A program that does not name the simulator gets scripts and a recording from its environment:
 *
 *   DIALSIM_SETUP    a script that is played to its end before the first class of the platform is handed out,
 *                    with the program and brindle.dll intercepted (below): for faults, devices and identity
 *   DIALSIM_SCRIPT   a script that is played in the background, in real time, from the moment on at which the
 *                    first controller is made. It should begin with a wait: the program has to subscribe. It
 *                    ends with the program at the latest; with DIALSIM_CLOSE=1 the window is closed when all
 *                    has been played, and a script that makes no sense ends the program with status 2
 *   DIALSIM_WINDOW   1: beside that controller's window a dial for a person to turn; on Windows only
 *   DIALSIM_RECORD   the file of a recording that begins at that moment
 *
 * What cannot be read, understood or written is told on standard error.
 */

/* --- faults
 * ------------------------------------------------------------------------------------------------- */

/*
 * `operation` is one of dialsim_operation, "IRadialController::add_RotationChanged", or one with the
 * arguments that the journal prints, "RoGetActivationFactory(Windows.UI.Input.RadialController)". The fault
 * applies from its `from`th matching call on, counted from now (1 is the next), `times` times; 0 is for ever.
 * Several faults may be set on one operation; the first that applies decides. A function that answers no code
 * answers null, zero or false instead, GlobalFree the block, and WindowsGetStringRawBuffer an empty text;
 * with a positive code, one that answers a number answers that number: a path whose short form has grown
 * since the first question is dialsim_fail("GetShortPathNameW", 2, 1, 1). False when the list has no such
 * operation; arguments are not checked.
 */
bool dialsim_fail(const char* operation, int32_t code, uint32_t from, uint32_t times);
/* The operation takes place, its result is handed out, and then it claims to have failed. False also for
 * WindowsPromoteStringBuffer, which consumes what its caller would then give back, and for functions whose
 * only answer is what they hand out, such as GlobalAlloc. */
bool dialsim_fail_late(const char* operation, int32_t code, uint32_t from, uint32_t times);
/* The operation does not take place, and succeeds with null, or zero: IStream::Write has written nothing. */
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
/* Calls `hook` inside every platform call that the journal has from here on, on the thread of the call and
 * before it does its work; `call` is the journal's line for it, "operation(arguments)". What the hook does
 * happens inside the call: raise an event there, as a platform that handles messages while it is called may.
 * The calls that this leads to get the hook too. Null ends it. */
void dialsim_on_call(void (*hook)(void* context, const char* call), void* context);

/* What was handed out and has not come back: platform objects of a class
 * ("Windows.UI.Input.RadialController"; null for all), references to them, platform strings, global blocks,
 * and handlers that the platform holds. */
uint32_t dialsim_objects(const char* class_name);
uint32_t dialsim_references(const char* class_name);
uint32_t dialsim_strings(void);
uint32_t dialsim_blocks(void);
uint32_t dialsim_handlers(void);
/* The same as text, a line a class; empty when everything has come back. */
size_t dialsim_accounts(char* buffer, size_t size);

/* Back to the start: no faults, no hook, an empty journal, the dial off the screen, button up, default
 * haptics, no resources, the dial alone among the devices, packaged as at the start, sleeps that sleep, the
 * system's entries in every menu, and fresh leak tracking (what is outstanding is no longer counted). Waits
 * for dialsim_wait_for_async and abandons what is pending; controllers and operations that still exist no
 * longer take part, and a recording ends. */
void dialsim_reset(void);

/* --- the library under test
 * ----------------------------------------------------------------------------------- */

/* On Windows puts the simulator between a loaded module ("brindle.dll"; null for the program) and the
 * platform's flat functions, so that these too are journaled, counted and can be made to fail; false when it
 * is not loaded. Natively this is always so, and the answer is true. */
bool dialsim_watch(const char* module);

#ifdef __cplusplus
}
#endif

#endif
