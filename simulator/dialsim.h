/*
 * dialsim.h - control functions of the simulated dial
 *
 * The simulator implements the platform that brindle calls: natively as the platform's functions of the test
 * program, and on Windows as dialsim.dll, which answers the platform calls of brindle.dll in the process that
 * loads it. This header is the same for both. A program on Windows is simulated after one call, or when
 * dialsim-run starts it:
 *
 *   dialsim_start();               // first; brindle.dll may be loaded before or after
 *   initialize();
 *   init_dial_listener(&host);
 *   dialsim_turn(0, 5.0);          // five degrees clockwise
 *
 *
 * Conventions
 * -----------
 *
 * Parameters  `window` is a window handle, or 0 for the window whose controller is the newest; handles need
 *             not belong to existing windows. Texts are NUL-terminated UTF-8, borrowed for the call. Pointers
 *             must not be null unless the function says so.
 *
 * Returns     A function that raises an event returns the HRESULT of its handlers: the first failure when
 *             a window has several controllers or handlers, DIALSIM_NO_CONTROLLER without a controller, and
 *             DIALSIM_RAISED after an exception. A function that copies a text takes a buffer and its size in
 *             bytes, always terminates the copy, and returns the size that the whole text needs, terminator
 *             included; the buffer may be null for size 0.
 *
 * Errors      Failures are results. The exception of a handler is caught and becomes DIALSIM_RAISED; the
 *             platform itself ends the process.
 *
 * Threads     Every function may be called from any thread. A handler may call every function, except, on a
 *             thread of the simulator, those that wait for its threads: dialsim_wait, dialsim_wait_for_async,
 *             dialsim_wait_for_scripts, dialsim_reset, and dialsim_play of a script that waits. No lock is
 *             held while handlers run.
 *
 * Since       0.1, all functions.
 */
#ifndef DIALSIM_H
#define DIALSIM_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---------------------------------------------------------------------------------------------------------
 * Start
 * ------------------------------------------------------------------------------------------------------ */

/* Simulates the dial in this process: answers the platform calls of every brindle.dll, loaded now or later,
 * so that they are journaled, tracked and subject to faults, and activates the simulator's classes for them.
 * The program's own calls of the platform still go to the system, as do classes that the simulator lacks.
 * Lasts until the process ends; a second call has no effect. At the first activation a brindle.dll of another
 * minor version ends the process with status 120 and a line on standard error. Returns false when the system
 * does not announce the loading of libraries; natively there is nothing to do, and the result is true. */
bool dialsim_start(void);
/* The same for the calls of one loaded module that is not brindle.dll (null: the program), such as a test
 * program that contains the library's object files. Returns false when the module is not loaded; natively
 * true. */
bool dialsim_watch(const char* module);

/*
 * Sets whether only the dial is simulated (default: no, unless the environment variable DIALSIM_ONLY_DIAL is
 * 1). The controller, its menu and items, the configuration and the haptics are then the simulator's. The
 * other classes are the system's: property values, URIs, storage files, stream references, application data,
 * the vault, device enumeration and the API probe; so are streams. Where the system lacks one, its
 * activation fails with 0x80040154 (REGDB_E_CLASSNOTREG).
 *
 * The journal, faults and leak tracking cover the flat functions and the dial's classes, not the objects of
 * the system. dialsim_set_type_present and the sections "Asynchronous operations", "Devices" and "Settings
 * and credentials" have no effect: the system's operations complete on its threads, and a test polls.
 *
 * A picture is read through the system's interfaces when its item is created, for at most five seconds for
 * each of its two operations; its line in dialsim_menu is "PNG picture 32x32".
 *
 * Set it before initialize. Returns false natively, where there is no system beneath the simulator.
 */
bool dialsim_only_dial(bool only_dial);

/* ---------------------------------------------------------------------------------------------------------
 * The dial
 * ------------------------------------------------------------------------------------------------------ */

/* No controller exists for the window (the platform's ERROR_NOT_FOUND). */
#define DIALSIM_NO_CONTROLLER ((int32_t)0x80070490)
/* A handler threw an exception, which ends the process on the real platform. See dialsim_raised. */
#define DIALSIM_RAISED ((int32_t)0xA0000001)

/* Raises RotationChanged; `degrees` since the last event, clockwise positive. Returns the handlers' code. */
int32_t dialsim_turn(uint64_t window, double degrees);
/* Raises ButtonClicked. Returns the handlers' code. */
int32_t dialsim_click(uint64_t window);
/* Presses the button (true) or releases it (false) without an event; turns report its state. */
void dialsim_hold(bool down);
/* Puts the dial on the screen and raises ScreenContactStarted. The dial stays there until dialsim_lift. The
 * position of the contact is the middle of the rectangle. Returns the handlers' code. */
int32_t dialsim_touch(uint64_t window, float x, float y, float width, float height);
/* Moves the dial on the screen and raises ScreenContactContinued. Returns the handlers' code. */
int32_t dialsim_move(uint64_t window, float x, float y, float width, float height);
/* Lifts the dial off the screen and raises ScreenContactEnded. Returns the handlers' code. */
int32_t dialsim_lift(uint64_t window);
/* The user chooses the menu's item with this index, from 0: selects it and raises Invoked. Returns the
 * handlers' code, or E_BOUNDS (0x8000000B) when the menu has no such item or the item is null. */
int32_t dialsim_choose(uint64_t window, uint32_t item);
/* The user holds the dial down until the menu opens, with the selected item highlighted. While it is open,
 * dialsim_turn moves the highlight by an item for every ten degrees and raises no event, and dialsim_click
 * chooses the highlighted item and closes the menu. Returns false when the menu has no items, or the window
 * no controller. */
bool dialsim_open_menu(uint64_t window);
/* Closes the menu without a choice. */
void dialsim_close_menu(void);
/* Raises ControlAcquired. Returns the handlers' code. */
int32_t dialsim_acquire(uint64_t window);
/* Raises ControlLost. Returns the handlers' code. */
int32_t dialsim_lose(uint64_t window);

/* Copies the message of the last exception that a handler threw; empty when none has since the last reset. */
size_t dialsim_raised(char* buffer, size_t size);

/* Raises each event on a thread of its own and waits for it (true), or on the caller's thread (false, the
 * default). */
void dialsim_raise_on_own_thread(bool own_thread);

/* Sets the waveforms of the dial, in order (default: 4099, a click). With `present` false the dial has no
 * haptics controller. */
void dialsim_set_haptics(bool present, const uint16_t* waveforms, uint32_t count);

/* Sets whether the platform's API probe knows a type (default: every type). */
void dialsim_set_type_present(const char* type, bool present);

/* ---------------------------------------------------------------------------------------------------------
 * The menu
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Copies the window's menu as text, with a line for each item and the selected item marked:
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
 * The tag of an item is its number, "-" without a tag. Without system items the line is "system items: none".
 * The text is empty when no controller exists for the window. When a window has several controllers, the menu
 * is that of the newest.
 */
size_t dialsim_menu(uint64_t window, char* buffer, size_t size);
/* Copies the window's menu as an SVG picture; empty when no controller exists for the window. */
size_t dialsim_menu_svg(uint64_t window, char* buffer, size_t size);

/* Copies the system items that the window's menu shows, RadialControllerSystemMenuItemKind values in their
 * order (default: 0 to 4), at most `capacity` of them; `kinds` may be null for capacity 0. Returns their
 * number. The journal has every list that SetDefaultMenuItems gets, "system items(3, 0, 7)", refused lists
 * included. */
uint32_t dialsim_system_items(uint64_t window, int32_t* kinds, uint32_t capacity);
/* Sets whether the simulator keeps the sequence that SetDefaultMenuItems gets, and its iterator, after the
 * call (default: no). */
void dialsim_keep_sequences(bool keep);
/* Calls all methods of the sequence that was kept last, and releases it. Returns 0 or a positive code when a
 * call succeeded, a negative code when all failed, and 1 when no sequence is kept. */
int32_t dialsim_use_kept_sequence(void);

/* Appends a null item to the window's menu. Returns false when no controller exists for the window. */
bool dialsim_append_null_item(uint64_t window);
/* Appends an item with a tag of this kind: "UInt32", "String" (the number as text), "object" (no property
 * value) or "none". Returns false when no controller exists for the window, or there is no such kind. */
bool dialsim_append_item(uint64_t window, const char* tag_kind, uint32_t value);
/* Removes the menu's last item after `calls` more calls of GetAt; at once with 0. Returns false when no
 * controller exists for the window. */
bool dialsim_shrink_menu_after(uint64_t window, uint32_t calls);

/* ---------------------------------------------------------------------------------------------------------
 * Asynchronous operations
 * ------------------------------------------------------------------------------------------------------ */

enum dialsim_async_mode {
    /* Operations complete on a thread of the simulator, soon after a handler is attached, as on the platform.
     * The default. */
    DIALSIM_OWN_THREAD = 0,
    /* Operations complete at once: the handler is called inside put_Completed, on that thread. */
    DIALSIM_AT_ONCE = 1,
    /* Operations complete in dialsim_complete. */
    DIALSIM_HELD = 2
};
/* Sets when operations complete that start from now on. Their results are determined when they start. */
void dialsim_async(enum dialsim_async_mode mode);

/* Completes the operation with this index, on the thread that is set for events. Operations are numbered from
 * 0 in the order of their starts since the last reset. An operation without a handler calls its handler as
 * soon as one is attached. Returns the handler's code, 0 without a handler, E_BOUNDS (0x8000000B) when there
 * is no such operation or it has completed. */
int32_t dialsim_complete(uint32_t index);
/* Completes all operations that have not completed, in their order. Returns the first failure of a handler,
 * or 0, also when there is none to complete. */
int32_t dialsim_complete_all(void);
/* Completes the operation with another status: 0 started, 1 completed, 2 canceled, 3 error. Its GetResults
 * returns 0x8000000E for started, the results for completed, 0x800704C7 for canceled, and for error its
 * failure or else 0x80004005. Returns as dialsim_complete. */
int32_t dialsim_complete_as(uint32_t index, int32_t status);
/* Returns the number of operations that have started and not completed. */
uint32_t dialsim_pending(void);
/* Returns the code of the operation's handler: DIALSIM_RAISED after an exception, E_PENDING (0x8000000A)
 * until the handler has been called, E_BOUNDS when there is no such operation. The journal has the code too:
 * "AsyncOperationCompletedHandler<StorageFile>::Invoke(status) = code". */
int32_t dialsim_completion_code(uint32_t index);
/* Returns whether the operation's handler is marshalled to every apartment as itself: it implements IMarshal
 * with the free-threaded marshaler. False without a handler, and after the handler has been called. */
bool dialsim_completion_marshals(uint32_t index);
/* Releases the operations that have not completed, and their handlers: they never complete. */
void dialsim_abandon_pending(void);
/* Returns when every operation with a handler that completes on a thread of the simulator has called it. */
void dialsim_wait_for_async(void);

/* Sets how long operations on threads of the simulator take, in milliseconds from the attachment of the
 * handler (default: 0). Natively they complete when Sleep or dialsim_wait has set the clock forward by that
 * time. */
void dialsim_async_delay(uint32_t milliseconds);

/* ---------------------------------------------------------------------------------------------------------
 * Devices
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Adds a device interface. An enumeration finds the interfaces that match its filter, in the order of their
 * addition and as they are when it starts. At the start there is one: the dial, enabled. A filter is a
 * conjunction of the properties System.Devices.InterfaceClassGuid and System.Devices.InterfaceEnabled; any
 * other filter fails with E_INVALIDARG.
 *
 *   Parameters
 *     id                a device-interface Id; null adds a null entry to every result
 *     interface_class   a GUID in braces; null: that of the dial
 *     enabled           the value of System.Devices.InterfaceEnabled
 */
void dialsim_add_device(const char* id, const char* interface_class, bool enabled);
/* Removes all device interfaces. */
void dialsim_remove_devices(void);
/* Makes enumerations that start from now on end with this failure code; 0: they succeed. */
void dialsim_fail_devices(int32_t code);

/* ---------------------------------------------------------------------------------------------------------
 * Settings and credentials
 * ------------------------------------------------------------------------------------------------------ */

/*
 * There are three stores: the application's roaming and local settings, and the user's credential vault. Each
 * is a JSON file in one folder, roaming.json, local.json and vault.json; only the owner can read vault.json:
 *
 *   {"settings": [{"key": "brush", "type": "String", "value": "Palette"}]}
 *   {"credentials": [{"resource": "resource", "user": "user name", "password": "password"}]}
 *
 * A text that is not well-formed UTF-16 is written as the list of its units. A change replaces the file
 * atomically: a process that is killed leaves the old or the new state, and several processes may change the
 * stores of one folder concurrently. A missing file is an empty store. A damaged file is never overwritten:
 * every operation on it fails, with 0x80073DB8 (ERROR_STATE_LOAD_STORE_FAILED) for settings and 0x80070570
 * (ERROR_FILE_CORRUPT) for the vault, and the first failure prints the reason on standard error. When the
 * system refuses access to a file or the folder, operations fail with its code, such as 0x80070005
 * (ERROR_ACCESS_DENIED), and the first failure of each folder prints folder and code on standard error.
 *
 * The stores fail like the platform's:
 *
 *   a setting's name above 255 characters                            0x80073DC9
 *   a setting's value above 8192 bytes                               0x80073DC8
 *   a null value                                                     E_POINTER
 *   a value of a type that the stores do not support                 0x8007065E (ERROR_UNSUPPORTED_TYPE)
 *   a credential with an empty resource, user name or password       E_INVALIDARG
 *   retrieving, removing or searching for an absent credential       0x80070490 (ERROR_NOT_FOUND)
 *
 * Names are case-sensitive. Adding an existing credential replaces its password. A credential that a search
 * returns has no password until RetrievePassword. Looking up an absent setting yields null; removing it
 * succeeds.
 */

/* The folder name that stands for the memory of the process. */
#define DIALSIM_MEMORY ":memory:"
/* Sets the folder of the stores, which is created when it is first needed. With null (the default) it is that
 * of the environment variable DIALSIM_STORES, or else dialsim in the user's local data: %LOCALAPPDATA%,
 * natively $XDG_STATE_HOME or ~/.local/state. With DIALSIM_MEMORY, here or in the variable, the files are
 * kept in the memory of the process, also while another folder is set. dialsim_reset changes neither folder
 * nor files. */
void dialsim_set_stores(const char* folder);
/* Sets whether the program has package identity (default: no, unless the environment variable
 * DIALSIM_PACKAGED is 1). A program without it has no application data: ApplicationData.Current fails with
 * 0x80073D54 (APPMODEL_ERROR_NO_PACKAGE), and only the vault works. */
void dialsim_set_packaged(bool packaged);

/* Copies a store ("roaming", "local", "vault") as text, with a line for each entry, ordered by key:
 *
 *   "brush" String "Palette"
 *   "runs" Int32 3
 *   "resource" "user name" "password"      in the vault
 *
 * Empty for an empty store; "damaged\n" for a store that cannot be read. This function and those that follow
 * in this section are not journaled. */
size_t dialsim_store(const char* store, char* buffer, size_t size);
/* Inserts a setting of any supported type: "String", "Int32", "UInt32", "Int64", "UInt64", "UInt8", "Int16",
 * "UInt16", "Boolean" ("true", "false"), or "composite", an object that is no property value (`value` is
 * ignored). Returns false when the store refuses it, or there is no such store or type. */
bool dialsim_put_setting(const char* store, const char* key, const char* type, const char* value);
/* Adds a credential to the vault. Returns false when the vault refuses it. */
bool dialsim_put_credential(const char* resource, const char* user_name, const char* password);
/* Deletes the three files, damaged ones included. Returns false when that fails. */
bool dialsim_clear_stores(void);
/* Copies the bytes of a store's file, valid or damaged, like a text. Returns 0 when there is no file, it
 * cannot be read, or there is no such store. */
size_t dialsim_store_file(const char* store, char* buffer, size_t size);
/* Replaces the bytes of a store's file, valid or damaged. Returns false when that fails, or there is no such
 * store. */
bool dialsim_put_store_file(const char* store, const void* bytes, size_t size);

/* ---------------------------------------------------------------------------------------------------------
 * Resources
 * ------------------------------------------------------------------------------------------------------ */

/* Adds a resource to a module, which may be any number; `type` is a name such as "PNG". Returns true natively
 * and false on Windows, where modules have their own resources. */
bool dialsim_add_resource(uint64_t module, uint16_t id, const char* type, const void* bytes, uint32_t size);

/* ---------------------------------------------------------------------------------------------------------
 * Time
 * ------------------------------------------------------------------------------------------------------ */

/* Returns the milliseconds since the start of the system, as GetTickCount64. */
uint64_t dialsim_now(void);
/* Lets time pass: natively sets the clock forward at once, and returns when the simulator's threads have done
 * what is due; on Windows sleeps. */
void dialsim_wait(uint32_t milliseconds);
/* Sets whether the platform's Sleep returns at once on Windows, without time passing (default: no). Natively
 * Sleep always sets the clock forward, and returns when the simulator's threads have done what is due. */
void dialsim_skip_sleeps(bool skip);
/* Sets the clock natively and returns true; returns false on Windows, where the clock is the system's. */
bool dialsim_set_clock(uint64_t milliseconds);

/* ---------------------------------------------------------------------------------------------------------
 * Scripts
 * ------------------------------------------------------------------------------------------------------ */

enum {
    /* Waits take real time in both builds. */
    DIALSIM_REAL_TIME = 1
};

/*
 * Plays a script, which has one command on each line; # begins a comment. Lines end with LF or CRLF, and a
 * UTF-8 byte-order mark at the beginning is skipped:
 *
 *   turn DEGREES         click               hold                release
 *   touch X Y W H        move X Y W H        lift                acquire             lose
 *   choose ITEM          menu                close
 *   wait MS              window HANDLE|@N    haptics WAVEFORM... thread own|caller
 *   fail OPERATION CODE [FROM [TIMES]]       fail-late OPERATION CODE [FROM [TIMES]]
 *   null OPERATION [FROM [TIMES]]
 *   async at-once|held|own-thread            delay MS            complete INDEX|all  settle
 *   no-devices                               device ID [disabled]
 *   packaged            unpackaged           show stores         only-dial on|off
 *   show journal         show accounts       show menu           draw menu FILE
 *   mouse X Y down|move|up                   shot FILE
 *
 *   window          the window of the following commands: a handle, 0 (the newest, the default), or @N, the
 *                   N-th window since the last reset that a controller was created for, from 1
 *   show menu       prints the text of dialsim_menu
 *   menu, close     dialsim_open_menu, dialsim_close_menu
 *   delay, settle   dialsim_async_delay, dialsim_wait_for_async
 *   show stores     prints the three stores, each under its name
 *   show accounts   prints the outstanding references, as dialsim_accounts
 *   draw menu       writes the picture of dialsim_menu_svg to a file
 *   only-dial       as dialsim_only_dial; on Windows only
 *   mouse           the left mouse button in the window; on Windows only
 *   shot            writes a screenshot of the window and of the simulator's dial to a PNG file; on Windows
 *                   only
 *
 *   Parameters
 *     script   the text of the script
 *     flags    0 or DIALSIM_REAL_TIME
 *     error    a buffer of `error_size` bytes for the error message, which names the line
 *
 *   Returns
 *     true     the script has been played
 *     false    a line has a syntax error: no command was executed. Or a line failed: the commands before it
 *              took place, those after it did not
 *
 * A line fails when its command cannot take place, "line 3: no item 9 in the menu (8000000b)": the window has
 * no controller, or there is no such item, window @N, menu to open, operation to complete or window for the
 * mouse, or the file cannot be written. It also fails when a handler throws an exception. A failure code that
 * a handler returns is printed on standard error, and the script continues.
 */
bool dialsim_play(const char* script, uint32_t flags, char* error, size_t error_size);

/* Plays a script on a thread of the simulator. At the end that thread calls `done`, with `error` null or the
 * error message of dialsim_play. */
void dialsim_play_in_background(const char* script, uint32_t flags,
                                void (*done)(void* context, const char* error), void* context);
/* Returns when every script in the background has ended and its `done` has returned, and then as
 * dialsim_wait_for_async. Must not be called on the thread of a background script, neither in `done` nor in
 * a handler. */
void dialsim_wait_for_scripts(void);

/*
 * Records the dial's events as a script, until the next call or the next reset; null ends the recording. Each
 * line is written to the file as soon as the dial moves. Returns false when the file cannot be written.
 *
 * The script has the movements of the dial, by scripts and by functions (turn, click, hold, release, touch,
 * move, lift, choose, menu, close, acquire, lose), the mouse of a script, `settle`, and waits for the time
 * between them, without the time of handlers. Numbers are exact, and windows are named @N. Played to the same
 * host, the script raises the same events in the same order, natively at the same times. It does not contain
 * the initial state: devices, haptics, faults, package identity, and the thread of events; nor commands for a
 * window without a controller.
 */
bool dialsim_record(const char* path);

/*
 * Environment variables control a program that does not call the simulator:
 *
 *   DIALSIM_SETUP    a script that is played before the first class of the platform is activated: for
 *                    faults, devices and package identity. When it cannot be read, does not parse or a line
 *                    fails, the program ends with status 119
 *   DIALSIM_SCRIPT   a script that is played in the background, in real time, from the creation of the first
 *                    controller on. Begin it with a wait, so that the program can subscribe. The program does
 *                    not wait for its end
 *   DIALSIM_CLOSE    1: closes the window of the first controller at the end of the script. A program that is
 *                    still running 10 seconds later, or the number of seconds in DIALSIM_CLOSE_SECONDS, is
 *                    ended with status 118; a program whose controller has no window that can be closed is
 *                    ended with status 0 a second after the script. A script that cannot be read, does not
 *                    parse or has a line that fails ends the program with status 119. A program that is ended
 *                    runs no destructors; output is lost that it has buffered in another runtime library than
 *                    the simulator's
 *   DIALSIM_WINDOW   1: shows a dial to turn beside the window of the first controller; on Windows only
 *   DIALSIM_RECORD   the file of a recording from the creation of the first controller on
 *
 * Errors are printed on standard error.
 */

/* ---------------------------------------------------------------------------------------------------------
 * Faults
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Makes an operation fail with `code`. Several faults may be set on one operation; the first that applies
 * decides.
 *
 *   Parameters
 *     operation   one of dialsim_operation, "IRadialController::add_RotationChanged", or one with the
 *                 arguments that the journal prints,
 *                 "RoGetActivationFactory(Windows.UI.Input.RadialController)"
 *     code        the failure code. A function without a code returns null, zero or false instead, GlobalFree
 *                 the block, and WindowsGetStringRawBuffer an empty text. With a positive code a function
 *                 that returns a number returns that number: dialsim_fail("GetShortPathNameW", 2, 1, 1)
 *                 simulates a short path that has grown since its length was queried
 *     from        the first matching call that fails, counted from now; 1 is the next
 *     times       the number of calls that fail; 0: all
 *
 *   Returns
 *     false       there is no such operation; arguments are not checked
 */
bool dialsim_fail(const char* operation, int32_t code, uint32_t from, uint32_t times);
/* Makes an operation take place, yield its result, and then report the failure. Also returns false for
 * WindowsPromoteStringBuffer, which consumes its argument, and for functions that return what they allocate,
 * such as GlobalAlloc. */
bool dialsim_fail_late(const char* operation, int32_t code, uint32_t from, uint32_t times);
/* Makes an operation succeed without taking place, and yield null or zero: IStream::Write writes no bytes. */
bool dialsim_yield_null(const char* operation, uint32_t from, uint32_t times);

/* Returns the operation with this index, from 0, that faults can be set on; null after the last. */
const char* dialsim_operation(uint32_t index);

/* ---------------------------------------------------------------------------------------------------------
 * Journal and leak tracking
 * ------------------------------------------------------------------------------------------------------ */

/* Copies the journal: the platform calls since dialsim_clear_journal, in order, with a line for each,
 * "operation(arguments)", and " = code" in lower-case hexadecimal for a code other than 0. */
size_t dialsim_journal(char* buffer, size_t size);
/* Empties the journal. */
void dialsim_clear_journal(void);
/* Returns the number of journaled calls of `operation`, with or without arguments as for dialsim_fail. */
uint32_t dialsim_calls(const char* operation);
/* Sets a hook that runs at the beginning of each journaled platform call, on the thread of the call; `call`
 * is the journal's line, "operation(arguments)". A hook may raise events, as a platform does that handles
 * messages during a call; platform calls that this leads to run the hook too. Null removes the hook. */
void dialsim_on_call(void (*hook)(void* context, const char* call), void* context);

/* Return the numbers of outstanding platform objects of a class ("Windows.UI.Input.RadialController"; null
 * for all), references to them, platform strings, global blocks, and handlers that the platform holds. */
uint32_t dialsim_objects(const char* class_name);
uint32_t dialsim_references(const char* class_name);
uint32_t dialsim_strings(void);
uint32_t dialsim_blocks(void);
uint32_t dialsim_handlers(void);
/* Copies all of these as text, with a line for each class; empty when nothing is outstanding. */
size_t dialsim_accounts(char* buffer, size_t size);

/* Restores the initial state: no faults, no hook, an empty journal, the dial off the screen, the button up,
 * default haptics, no resources, only the dial among the devices, the initial package identity, sleeps that
 * sleep, all system items in every menu, no recording, the initial choice of dialsim_only_dial, and leak
 * tracking that starts anew. Waits as dialsim_wait_for_async and abandons pending operations;
 * existing controllers and operations no longer take part. */
void dialsim_reset(void);

#ifdef __cplusplus
}
#endif

#endif
