/*
 * brindle.h - a rotary dial with a press button, for classic desktop programs on 64-bit Windows
 *
 * brindle.dll reports turns and clicks of the dial for your windows, fills the dial's on-screen menu, detects
 * whether the dial is present, and stores small named settings. This header is all that a host needs. It
 * includes standard headers only and supports C (C11) and C++ (C++11 or later).
 *
 *
 * A complete host
 * ---------------
 *
 *     #include <brindle.h>
 *     #include <windows.h>
 *
 *     static const uint32_t kBuzz = 1;
 *
 *     class Volume final : public IDialHost {
 *     public:
 *         explicit Volume(HWND window) : window_(window) {}
 *         uint64_t GetWindowHandle() override { return reinterpret_cast<uint64_t>(window_); }
 *         void OnRotation(void*, const DialRotationInfo* turn) override {
 *             level_ += turn->deltaDegrees * turn->acceleration;
 *             if (level_ > 100.0) {
 *                 level_ = 100.0;
 *                 turn->hapticRequest = &kBuzz;          // haptic feedback at the end of the scale
 *             }
 *         }
 *         void OnButtonClicked(void*, const DialContactRect*) override { level_ = 0.0; }
 *
 *     private:
 *         HWND window_;
 *         double level_ = 0.0;
 *     };
 *
 *     // On the thread that owns the window and handles its messages.
 *     void RunWithDial(HWND window) {
 *         if (initialize() == 1) return;                // no Windows Runtime; no uninit
 *         Volume volume(window);                        // must outlive uninit
 *         if (init_dial_listener(&volume)) {            // false: see standard output
 *             MSG message;
 *             while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
 *         }
 *         uninit();
 *     }
 *
 *
 * Conventions
 * -----------
 *
 * Order      Call initialize once; init_dial_listener once for each top-level window; then the window
 *            functions; uninit once, at the end. The settings functions may be called at any time between
 *            initialize and uninit. The library does not guard against another order.
 *
 * Threads    Call every function on the thread that called initialize, which becomes a single-threaded
 *            apartment. The platform chooses the threads of events and of the completions of picture loads
 *            and presence queries.
 *
 *            A callback on the thread of initialize may call every function of this header except initialize
 *            and uninit; a callback on another thread may call none. On the thread of initialize, events may
 *            also arrive while a function runs, in a platform call that handles messages, and a menu may be
 *            replaced while one of its picture files loads.
 *
 *            There are no locks. No two events may run concurrently on different threads, whichever windows
 *            they belong to. Events on another thread may run concurrently with every function except uninit
 *            and, for the window they belong to, init_dial_listener and add_custom_menu.
 *
 *            When picture files are loaded on another thread, give a menu at most one FilePNG item, as its
 *            last record. Until that load has ended, do not call add_custom_menu for the window, and no item
 *            of its menu may be chosen. The load ends shortly after its item can be selected; a file that
 *            cannot be opened is not reported. ResourcePNG items are added during the call.
 *
 * Windows    A window is identified by its handle as an unsigned 64-bit number: (uint64_t)hwnd.
 *
 * Results    Window functions return true or false. True means that the operation ended with a success code;
 *            it does not mean that every step took place (see Diagnostics). initialize returns 0, 1 or 2.
 *            Storage setters return 0 or a negative code; storage getters return the value or a marker for an
 *            absent value.
 *
 * Texts      NUL-terminated UTF-16, borrowed for the call. You own a returned text and release it with
 *            brindle_free.
 *
 * Errors     A platform failure becomes a result, with these exceptions:
 *              std::bad_alloc, out of memory, from every function except initialize and uninit; a guarded
 *              step that is out of memory fails like any other
 *              hresult_error, from add_custom_menu, for a text that the platform refuses
 *              a structured exception with the code, from initialize, when the platform creates no string
 *              exceptions that leave a rotation's event handler (see IDialHost)
 *            Hosts built with another compiler than the DLL cannot catch the C++ exceptions and should treat
 *            them as fatal.
 *
 * Ownership  The library keeps a plain pointer to your IDialHost and calls it until uninit. A listener that a
 *            second init_dial_listener for its window has displaced calls its host as long as the platform
 *            raises its events. Arguments of a callback are valid during that callback only.
 *
 * Diagnostics
 *            Lines on standard output, "failed with 80070005 at line 460" or with a step's name in front,
 *            from init_dial_listener, add_custom_menu, event handlers and picture loads; the other functions
 *            print none. The number after "line" identifies the step and does not change between versions.
 *
 *            A guarded step that fails is attempted three times in all. The code printed is the second
 *            attempt's. The third attempt's ends the operation that the step belongs to, even when it is a
 *            success: the steps after it in its operation then did not take place. Creating one menu item is
 *            an operation of its own; when it ends early, add_custom_menu goes on with the next record.
 *
 *            A step with a name is attempted twice, and its operation goes on. "register", "CreateFromIcon"
 *            and line 727 are attempted once and end their operation.
 *
 *            A step that consists of other steps prints their lines in each of its attempts: a contact that
 *            cannot be read prints four. A null factory fails its step, except that for known icons, which
 *            fails its item only. A null controller prints the "register" line only; a null menu or item
 *            list of add_custom_menu prints no line.
 */
#ifndef BRINDLE_H
#define BRINDLE_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#ifndef _WIN32
#include <stdlib.h>
#ifndef __cplusplus
#include <uchar.h>
#endif
#endif

#define BRINDLE_VERSION_MAJOR 0
#define BRINDLE_VERSION_MINOR 1
#define BRINDLE_VERSION_PATCH 0
#define BRINDLE_VERSION_TEXT "0.1.0" /* the three numbers; a test compares them */

#if UINTPTR_MAX != 0xFFFFFFFFFFFFFFFFu
#error "brindle.h: only 64-bit programs are supported"
#endif

/* One UTF-16 unit: wchar_t on Windows, char16_t in the native test build. */
#ifdef _WIN32
typedef wchar_t BrindleChar;
#else
typedef char16_t BrindleChar;
#endif

/* ---------------------------------------------------------------------------------------------------------
 * Records
 * ------------------------------------------------------------------------------------------------------ */

/* The place of the dial on the screen, in the coordinates that the platform reports for the window, truncated
 * toward zero; a coordinate outside the range of int32_t becomes INT32_MIN. All zero when the dial is not on
 * the screen or its place cannot be read. For a turn, right is the sum of the untruncated left and width,
 * truncated once; for a click it is the sum of the field left and the untruncated width, truncated, so the
 * two can differ by one: left 10.7 and width 20.6 give 31 for a turn and 30 for a click. The same holds for
 * bottom. 16 bytes. */
typedef struct DialContactRect {
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
} DialContactRect;

/* In C++ the record is const except hapticRequest, the only field that the host may write. */
#ifdef __cplusplus
#define BRINDLE_ANSWER mutable
#else
#define BRINDLE_ANSWER
#endif

/* One turn of the dial. 56 bytes. */
typedef struct DialRotationInfo {
    DialContactRect contact;
    /* Whether the dial's button is down during the turn. */
    bool buttonPressed;
    /* Degrees since the last event, clockwise positive; 0.0 when they cannot be read. */
    double deltaDegrees;
    /* The acceleration, a factor to multiply deltaDegrees by: 1.0 or more, and 1.0 for the first 10 degrees
     * of a movement. It is sqrt(max(|s| - 10, 0)) / 2.07 + 1, where s is the sum of deltaDegrees. A turn 50
     * ms or more after the last computation computes it again; a turn more than 100 ms after the last
     * computation restarts the sum first; a turn less than 50 ms after it only adds to the sum. So after a
     * computation at 0 ms, a turn at 49 ms computes nothing, and one at 101 ms restarts the sum. The first
     * turn in the process computes nothing. One sum serves the whole process, for all windows. */
    double acceleration;
    /* The item_id of the selected menu item; 0 when no item is selected, the window has no custom menu, or
     * the item's tag cannot be read. */
    uint32_t selectedItemTag;
    /* Null when the callback is called. Set it to the address of the value 1 or 2 to play the dial's first
     * haptic waveform three times at full intensity, with pauses of 200 ms. The value must stay readable
     * until just after the callback returns. Another value, or a dial without waveforms, plays nothing. */
    BRINDLE_ANSWER const uint32_t* hapticRequest;
} DialRotationInfo;

#undef BRINDLE_ANSWER

/* The source of a menu item's picture. Records with another value are skipped silently. */
#ifdef __cplusplus
enum class MenuItemKind : int32_t {
    FilePNG = 0,
    ResourcePNG = 1,
    KnownIcon = 2,
    SystemFont = 3,
    CustomFont = 4,
};
#else
typedef int32_t MenuItemKind;
enum {
    MenuItemKind_FilePNG = 0,
    MenuItemKind_ResourcePNG = 1,
    MenuItemKind_KnownIcon = 2,
    MenuItemKind_SystemFont = 3,
    MenuItemKind_CustomFont = 4
};
#endif

/*
 * One item of the dial's menu. 48 bytes.
 *
 *   kind         source                          source2                      source3
 *   FilePNG      text: path of a PNG file        -                            -
 *   ResourcePNG  module: handle of the module    number: resource identifier, -
 *                that holds a "PNG" resource     modulo 65536
 *   KnownIcon    number: the platform's icon,    -                            -
 *                0 scroll ... 8 pen type
 *   SystemFont   text: glyph                     text: font family            -
 *   CustomFont   text: glyph                     text: font family            text: path of the font file
 *
 * The texts that a kind uses must not be null; paths are absolute.
 */
typedef struct MenuItemDescription {
    MenuItemKind kind;
    /* The label; must not be null, may be empty. */
    const BrindleChar* display_text;
    /* The host's identifier of the item, reported as DialRotationInfo::selectedItemTag, where 0 is
     * indistinguishable from no selection. */
    uint32_t item_id;
    /* Choosing the item turns the dial's automatic haptic feedback on (not 0) or off (0). See add_custom_menu
     * for items that share an item_id, and for picture files. */
    uint8_t haptic_feedback;
    union {
        const BrindleChar* text;
        const void* module;
        uint64_t number;
    } source, source2, source3;
} MenuItemDescription;

/* ---------------------------------------------------------------------------------------------------------
 * The callback object of the host
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Events of the platform and callbacks of the host:
 *
 *   the user ...                    platform event          callback
 *   turns the dial                  RotationChanged         OnRotation
 *   presses and releases it         ButtonClicked           OnButtonClicked
 *   puts it on the screen, moves
 *   it there, lifts it              ScreenContact...        none; turns and clicks have the rectangle
 *   chooses a menu item             Invoked                 none; later turns have its item_id
 *   enters or leaves the window     Control...              none
 *
 * Arguments are never null and valid during the call only. `sender` is the platform's controller
 * (IRadialController*). A reference that you add to it keeps its events coming: release it before uninit, and
 * before init_dial_listener returns anything but true, or events access freed memory. Callbacks must not
 * throw or unwind, because the platform calls them.
 *
 * When the data of an event cannot be read, or the platform fails to play requested haptic feedback:
 *
 *   a turn's degrees, the contact's place, the selected item's tag   0, and the callback is called
 *   the selected item, a click's contact                             the callback is not called; a line is
 *                                                                    printed
 *   a turn's button, the requested haptic feedback                   the event handler throws a C++ exception
 *                                                                    (hresult_error, or std::bad_alloc for
 *                                                                    0x8007000E): Windows ends the process,
 *                                                                    the simulator reports it to the script
 *                                                                    or the test
 */
#ifdef __cplusplus

class IDialHost {
public:
    /* The dial was turned. The callback may write info->hapticRequest and nothing else. */
    virtual void OnRotation(void* sender, const DialRotationInfo* info) = 0;
    /* Returns the window of this object. init_dial_listener calls it twice: the first result is the window
     * that the dial is bound to; the second, after a successful registration, is the window that the listener
     * is registered for.
     * set_default_menu calls it once. */
    virtual uint64_t GetWindowHandle() = 0;
    /* The button was pressed and released; `rect` is the place of the dial on the screen. */
    virtual void OnButtonClicked(void* sender, const DialContactRect* rect) = 0;

protected:
    /* Not virtual: a virtual destructor would take a slot of the function table. Declare your class final to
     * avoid compiler warnings. */
    ~IDialHost() = default;
};

extern "C" {

#else

typedef struct IDialHost IDialHost;

/* In C, a host is a struct whose first member is an IDialHost that points to a table of functions; `self` is
 * a pointer to that struct. */
typedef struct IDialHostFunctions {
    void (*OnRotation)(IDialHost* self, void* sender, DialRotationInfo* info);
    uint64_t (*GetWindowHandle)(IDialHost* self);
    void (*OnButtonClicked)(IDialHost* self, void* sender, const DialContactRect* rect);
} IDialHostFunctions;

struct IDialHost {
    const IDialHostFunctions* functions;
};

#endif

/* ---------------------------------------------------------------------------------------------------------
 * Initialisation
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Initialises the Windows Runtime on the calling thread, single-threaded, and checks its version.
 *
 *   Returns
 *     0        ready; where this Windows has no dial support, init_dial_listener fails with line 458
 *     1        the Windows Runtime cannot be initialised, for instance because the thread is already in a
 *              multithreaded apartment, or it lacks the class for the check. Call nothing more, uninit
 *              included: the Windows Runtime may have stayed initialised, which the result does not report
 *     2        this Windows is too old, or the check failed. Call uninit at the end, as after 0
 *
 *   Errors     a structured exception, non-continuable, when the platform cannot create a string
 *   Threads    the thread that makes all other calls
 *   Since      0.1
 */
int32_t initialize(void);

/*
 * Deletes every listener, in ascending order of window handle, and uninitialises the Windows Runtime.
 *
 *   Errors     none
 *   Threads    the thread of initialize, outside callbacks. No event may be running on another thread, and no
 *              picture file may be loading: they use the listeners that are deleted
 *   Since      0.1
 *
 * A listener that a second init_dial_listener for its window has displaced is not deleted. It calls its host
 * as long as the platform raises its events, so that host must live on.
 */
void uninit(void);

/*
 * Creates a listener for the window of `host`, which reports the dial's events, and registers it for that
 * window.
 *
 *   Parameters
 *     host     called until uninit; not owned; null gives false
 *
 *   Returns
 *     true     the registration ended with a success code. Without a line on standard output the host gets
 *              all events. With one the registration ended early: after line 458 or 460 no event arrives;
 *              after one from 467 to 491 the events subscribed before it arrive, those after it do not, and
 *              its own may arrive more than once. Line 487 subscribes turns, line 491 clicks
 *     false    host is null (no line), a step failed, or the platform yielded no controller ("register" line
 *              only). The listener is deleted; its events end with the last reference to the controller
 *
 *   Errors     std::bad_alloc when the listener or its entry cannot be allocated
 *   Threads    the thread of initialize. Events may arrive before the function returns
 *   Since      0.1
 *
 * A second call for the same window registers a new listener in place of the older one, which is neither
 * deleted nor unsubscribed and goes on calling its host.
 */
bool init_dial_listener(IDialHost* host);

/* ---------------------------------------------------------------------------------------------------------
 * The menu of the dial. For a window without a listener the functions return false and do nothing.
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Replaces the custom items of the window's dial menu.
 *
 *   Parameters
 *     window   a window with a listener
 *     items    `count` records, read during the call; null adds none
 *     count    0 to 4294967295; 0 clears the menu
 *
 *   Returns
 *     true     the call ended with a success code. Without a line on standard output the menu has the new
 *              items, except those that are skipped silently and picture files (see below). Line 124 or 129:
 *              nothing was changed. "clear" with a code other than 0: the old items precede the new ones.
 *              Line 151: the records from a known icon on are skipped. Another line: an item may be missing,
 *              lack its tag, or be in the menu more than once
 *     false    no listener, or one without a controller; or the menu or its item list cannot be read (line
 *              124 or 129, no line when the platform yields null), and the old items stay; or the factory for
 *              known icons failed (151), and the records from that one on are skipped. After line
 *              124 or a null menu, until a later call gets the menu, turns report no tag, and picture files
 *              that complete are refused (line 649)
 *
 *   Errors     hresult_error when the platform cannot create a string from a label, also of a skipped record,
 *              or from a source text, or when a text is longer than 4294967295 units; std::bad_alloc out of
 *              memory. The old items are removed, the items created before stay, and later records are not
 *              read
 *   Threads    the thread of initialize
 *   Since      0.1
 *
 * A record is skipped silently when its kind is unknown, when its font file does not exist or has no short
 * path, and when the platform yields no stream for its PNG resource.
 *
 * A FilePNG item is added when the platform has opened the file, usually after the call. Items appear in the
 * order in which their files are opened, also in a menu that a later call has created meanwhile. A file that
 * does not exist adds no item. Call uninit only when those loads have ended.
 *
 * For each listener, the first recorded entry of an item_id decides its haptic setting, also for later menus.
 * Use fresh identifiers for new meanings. A known icon or a glyph is recorded even when its item could not be
 * created; a picture file is recorded when its item has been added, with the setting 0.
 */
bool add_custom_menu(uint64_t window, const MenuItemDescription* items, uint32_t count);

/*
 * Sets which of the system's own entries remain in the window's dial menu, in this order.
 *
 *   Parameters
 *     window   a window with a listener; the menu is that of the window that its host object reports now
 *     kinds    `count` values, read during the call: 0 scroll, 1 zoom, 2 undo and redo, 3 volume, 4 next and
 *              previous track; passed on unchanged; null gives false
 *     count    0 leaves no system entry
 *
 *   Returns
 *     true     the platform has accepted the list
 *     false    no listener, no configuration for the window, a null list, or the platform refused the list
 *
 *   Errors     std::bad_alloc out of memory
 *   Threads    the thread of initialize
 *   Since      0.1
 */
bool set_default_menu(uint64_t window, const int32_t* kinds, uint32_t count);

/*
 * Selects the first item of the window's custom menu whose item_id equals `item_id`. Selecting does not
 * invoke the item: no haptic setting changes.
 *
 *   Parameters
 *     window   a window with a listener
 *     item_id  any value
 *
 *   Returns
 *     true     the item is selected
 *     false    no listener, no such item, or a step of the search or the selection failed
 *
 *   Errors     std::bad_alloc when the platform is out of memory
 *   Threads    the thread of initialize
 *   Since      0.1
 */
bool set_current_custom_menu(uint64_t window, uint32_t item_id);

/* ---------------------------------------------------------------------------------------------------------
 * Presence of the dial
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Enumerates the devices anew in each call and returns whether the dial is present: whether one of the
 * enabled Bluetooth interfaces of its class begins with the address of this one dial. Any other dial
 * counts as none.
 *
 *   Parameters
 *     window   a window with a listener
 *
 *   Returns
 *     true     the dial is present
 *     false    it is not; the enumeration cannot be started, fails or does not complete in time; another
 *              completion ended the wait; or the window has no listener
 *
 *   Errors     std::bad_alloc out of memory, also when the platform fails with 0x8007000E to start the
 *              enumeration
 *   Threads    the thread of initialize. Blocks it without handling messages until the enumeration completes,
 *              usually a few milliseconds. For an enumeration that cannot be started, the function returns at
 *              once. For one that has started and fails or does not complete, the wait is 10,001 sleeps of 1
 *              ms: 10 seconds with a fine system timer, up to 160 with a tick of 16 ms
 *   Since      0.1
 *
 * Calls for one window must not overlap, as in a callback that arrives during the call: the first completion
 * ends both waits, and each call returns what its own enumeration has found so far. A completion after the
 * end of its wait accesses no freed memory, not even after uninit, but it ends a later wait of the window in
 * the same way, with false, and the completion of that call is then late too. After a call that took the
 * whole wait, pause before the next call.
 */
bool is_dial_present(uint64_t window);

/* ---------------------------------------------------------------------------------------------------------
 * Settings: texts and numbers, each under a key
 * ------------------------------------------------------------------------------------------------------ */

/*
 * The settings functions need initialize, but no window, listener or dial. A value is written to the stores
 * below and read from the first of them that has it:
 *
 *                        1. roaming settings    2. the user's vault          3. local settings
 *   a text is in         yes                    yes, under `resource`        yes
 *   a number is in       yes                    no, but a text found there   yes
 *                                               is read as a number
 *   for a program with
 *   package identity     yes                    yes                          yes
 *   for any other        no                     yes                          no
 *
 * So an ordinary desktop program, without package identity, stores texts in the vault only and cannot store
 * numbers: store a number as a text, which get_int_from_storage reads.
 *
 * The vault is the user's credential store. Every process of the user can read it, so it keeps no secret from
 * the user's other programs. `resource` separates your texts from theirs; a key that exists in the vault
 * under other resources only is not written under yours, so choose unlikely keys too ("Example Paint/last
 * brush"). For a program with package identity Windows limits the vault to twenty texts.
 *
 * Roaming settings no longer roam: since Windows 11 they stay on the computer like local ones.
 *
 * Windows accepts keys up to 255 characters and values up to 8192 bytes (4096 UTF-16 units) in settings, and
 * no empty resource, key or text in the vault. The library has no limits of its own.
 *
 * A store that fails or refuses a value is skipped silently: a setter returns 0 even when no store took the
 * value. Read the value back to be sure. A change is not atomic: it removes the old value and then writes the
 * new one, in each store, and a failure in between leaves the store without either. A store that has the
 * value already is not written to.
 */

/*
 * Stores a text. An empty text is stored in the settings only; in the vault it removes the former text.
 *
 *   Parameters
 *     resource, key, value   NUL-terminated UTF-16, not null, read during the call
 *
 *   Returns
 *     0, or a negative HRESULT for an unhandled platform error
 *
 *   Errors     std::bad_alloc out of memory, also when the platform fails with 0x8007000E
 *   Threads    the thread of initialize
 *   Since      0.1
 */
int32_t set_string_in_storage(const BrindleChar* resource, const BrindleChar* key, const BrindleChar* value);

/*
 * Returns the text of `key`. In settings it is found under any `resource`, in the vault under its own only.
 *
 *   Parameters
 *     resource, key   NUL-terminated UTF-16, not null, read during the call
 *
 *   Returns
 *     a text   a new buffer on every call, of its length + 1 units, which you own and release with
 *              brindle_free
 *     null     no store yields one
 *
 *   Errors     std::bad_alloc out of memory, also when the platform fails with 0x8007000E
 *   Threads    the thread of initialize
 *   Since      0.1
 */
BrindleChar* get_string_from_storage(const BrindleChar* resource, const BrindleChar* key);

/*
 * Stores a number.
 *
 *   Parameters
 *     resource   not null; not used
 *     key        NUL-terminated UTF-16, not null, read during the call
 *     value      any value; INT32_MIN reads as an absent number
 *
 *   Returns
 *     0, or a negative HRESULT for an unhandled platform error
 *
 *   Errors     std::bad_alloc out of memory, also when the platform fails with 0x8007000E
 *   Threads    the thread of initialize
 *   Since      0.1
 */
int32_t set_int_in_storage(const BrindleChar* resource, const BrindleChar* key, int32_t value);

/*
 * Returns the number of `key`. A settings entry of another type, such as a text, is not read as a number; a
 * text in the vault is.
 *
 *   Parameters
 *     resource, key   NUL-terminated UTF-16, not null, read during the call
 *
 *   Returns
 *     a number    from the roaming settings; or else the decimal number at the beginning of the vault's text
 *                 (blanks may precede it, and it may have a sign), limited to the range of int32_t, 0 when
 *                 the text begins with none; or else from the local settings
 *     INT32_MIN   (0x80000000) absent. INT32_MIN does not count as a number in any store, nor does a text in
 *                 the vault that reads as INT32_MIN or below: the next store is read
 *
 *   Errors     std::bad_alloc out of memory, also when the platform fails with 0x8007000E
 *   Threads    the thread of initialize
 *   Since      0.1
 */
int32_t get_int_from_storage(const BrindleChar* resource, const BrindleChar* key);

#ifdef _WIN32
/* HMODULE of windows.h, which this header does not include. */
#ifdef NO_STRICT
typedef void* BrindleModule;
#else
struct HINSTANCE__;
typedef struct HINSTANCE__* BrindleModule;
#endif
#endif

/*
 * Releases a text of get_string_from_storage. Not an export: the function is compiled into the host.
 *
 *   Parameters
 *     text     null is ignored
 *
 *   Errors     none
 *   Threads    any
 *   Since      0.1
 *
 * The text is on the heap of the Universal C Runtime of Windows. free() of a host that is linked to another
 * runtime has another heap: msvcrt.dll of older MinGW compilers, the debug runtime, a static runtime.
 */
#ifdef __cplusplus
#define BRINDLE_INLINE inline
#else
#define BRINDLE_INLINE static inline
#endif
BRINDLE_INLINE void brindle_free(BrindleChar* text) {
#ifdef _WIN32
    /* The declarations of windows.h. */
    __declspec(dllimport) BrindleModule GetModuleHandleW(const wchar_t* name);
    __declspec(dllimport) long long (*GetProcAddress(BrindleModule module, const char* name))(void);
    typedef void (*AnyFunction)(void);
    typedef void (*Free)(void*);
    if (text != NULL) {
        ((Free)(AnyFunction)GetProcAddress(GetModuleHandleW(L"ucrtbase.dll"), "free"))(text);
    }
#else
    free(text);
#endif
}
#undef BRINDLE_INLINE

#ifdef __cplusplus
} /* extern "C" */
#endif

/* ---------------------------------------------------------------------------------------------------------
 * Checks of the layouts
 * ------------------------------------------------------------------------------------------------------ */

#ifdef __cplusplus
#define BRINDLE_CHECK(condition) static_assert(condition, #condition)
#else
#define BRINDLE_CHECK(condition) _Static_assert(condition, #condition)
#endif

BRINDLE_CHECK(sizeof(bool) == 1);
BRINDLE_CHECK(sizeof(BrindleChar) == 2);
BRINDLE_CHECK(sizeof(MenuItemKind) == 4);

BRINDLE_CHECK(sizeof(DialContactRect) == 16);
BRINDLE_CHECK(offsetof(DialContactRect, left) == 0);
BRINDLE_CHECK(offsetof(DialContactRect, top) == 4);
BRINDLE_CHECK(offsetof(DialContactRect, right) == 8);
BRINDLE_CHECK(offsetof(DialContactRect, bottom) == 12);

BRINDLE_CHECK(sizeof(DialRotationInfo) == 56);
BRINDLE_CHECK(offsetof(DialRotationInfo, contact) == 0);
BRINDLE_CHECK(offsetof(DialRotationInfo, buttonPressed) == 16);
BRINDLE_CHECK(offsetof(DialRotationInfo, deltaDegrees) == 24);
BRINDLE_CHECK(offsetof(DialRotationInfo, acceleration) == 32);
BRINDLE_CHECK(offsetof(DialRotationInfo, selectedItemTag) == 40);
BRINDLE_CHECK(offsetof(DialRotationInfo, hapticRequest) == 48);

BRINDLE_CHECK(sizeof(MenuItemDescription) == 48);
BRINDLE_CHECK(offsetof(MenuItemDescription, kind) == 0);
BRINDLE_CHECK(offsetof(MenuItemDescription, display_text) == 8);
BRINDLE_CHECK(offsetof(MenuItemDescription, item_id) == 16);
BRINDLE_CHECK(offsetof(MenuItemDescription, haptic_feedback) == 20);
BRINDLE_CHECK(offsetof(MenuItemDescription, source) == 24);
BRINDLE_CHECK(offsetof(MenuItemDescription, source2) == 32);
BRINDLE_CHECK(offsetof(MenuItemDescription, source3) == 40);

#undef BRINDLE_CHECK

#endif /* BRINDLE_H */
