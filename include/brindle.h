/*
 * brindle.h - a rotary dial with a press button, for classic desktop programs on 64-bit Windows
 *
 * brindle.dll listens to the dial for your windows and reports turns and clicks, fills the dial's
 * on-screen menu, answers whether the dial is there, and keeps small named settings. This header is all
 * a host needs; it includes standard headers only and serves C (C11) and C++ (C++11 or later) alike.
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
 *                 turn->hapticRequest = &kBuzz;          // the dial shakes at the end of the scale
 *             }
 *         }
 *         void OnButtonClicked(void*, const DialContactRect*) override { level_ = 0.0; }
 *
 *     private:
 *         HWND window_;
 *         double level_ = 0.0;
 *     };
 *
 *     // On the thread that owns the window and pumps its messages.
 *     void RunWithDial(HWND window) {
 *         if (initialize() == 1) return;                // no dial here; uninit is not due
 *         Volume volume(window);                        // must outlive uninit
 *         if (init_dial_listener(&volume)) {            // false: see the lines on standard output
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
 * Order      initialize, once; init_dial_listener, once for each top-level window; then the window functions;
 *            uninit, once, at the end. The settings functions may be called at any time between initialize
 *            and uninit. The library does not guard against another order.
 *
 * Threads    Call every function on the one thread that called initialize; it becomes a single-threaded
 *            apartment. The platform chooses the threads that events, picture loads and the answer to
 *            is_dial_present arrive on.
 *
 *            On the thread of initialize a callback may call every function of this header but initialize and
 *            uninit; on another thread it may call none. On that thread events may also arrive while a
 *            function is at work, in a platform call that handles messages, and a menu may be made anew while
 *            a picture file is on its way into it.
 *
 *            There are no locks. No two events may run at once on different threads, whichever windows they
 *            belong to. Events on another thread may run concurrently with every function but uninit and, for
 *            the window they belong to, init_dial_listener and add_custom_menu.
 *
 *            When picture files are loaded on another thread, give a menu at most one FilePNG item, as its
 *            last record. Until that load has ended, do not call add_custom_menu for the window, and no item
 *            of its menu may be chosen. The load ends a moment after its item can be selected; one that fails
 *            gives no sign. ResourcePNG items are there when the call returns.
 *
 * Windows    A window is named by its handle as an unsigned 64-bit number: (uint64_t)hwnd.
 *
 * Results    Window functions return true or false. True means that the operation ended with a success code.
 *            It does not mean that every step took place (see Diagnostics). initialize returns 0, 1 or 2.
 *            Storage setters return 0 or a negative code, storage getters the value or a marker for "nothing
 *            there".
 *
 * Texts      NUL-terminated UTF-16, borrowed for the call. A text returned to you is yours to free (see
 *            get_string_from_storage).
 *
 * Errors     A platform failure becomes a result. The exceptions to this rule:
 *              std::bad_alloc, without memory, from every function but initialize and uninit; a guarded step
 *              that is out of memory fails like any other
 *              hresult_error, from add_custom_menu, for a text that the platform refuses
 *              a structured exception with the code, from initialize, when the platform cannot make a string
 *              what leaves a rotation's event handler (see IDialHost)
 *            Hosts built with another compiler than the DLL cannot catch the C++ exceptions and should treat
 *            them as fatal.
 *
 * Ownership  The library owns nothing of yours. It keeps a plain pointer to your IDialHost and calls it until
 *            uninit; a listener that a second init_dial_listener for its window has displaced calls its host
 *            for ever. What is passed to a callback lives for that call only.
 *
 * Diagnostics
 *            Lines on standard output, "failed with 80070005 at line 460" or with a step's name in front,
 *            from init_dial_listener, add_custom_menu, event handlers and picture loads; the other functions
 *            print none. The number after "line" identifies the step and does not change between versions.
 *
 *            A guarded step that fails is attempted three times in all. The code printed is the second
 *            attempt's. The third attempt's ends the operation that the step belongs to, even when it is a
 *            success: what follows the step in its operation then did not take place. Making one menu item is
 *            an operation of its own; when it ends early, add_custom_menu goes on with the next record.
 *
 *            A step with a name is attempted twice, and its operation goes on. "register", "CreateFromIcon"
 *            and line 727 are attempted once, and end theirs.
 *
 *            A step that consists of steps prints their lines in each of its attempts: a contact that cannot
 *            be read prints four. Where the platform succeeds and yields nothing, no step has failed: a null
 *            controller gives the "register" line only, a null menu or item list no line.
 */
#ifndef BRINDLE_H
#define BRINDLE_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#if !defined(_WIN32) && !defined(__cplusplus)
#include <uchar.h>
#endif

#define BRINDLE_VERSION_MAJOR 0
#define BRINDLE_VERSION_MINOR 1
#define BRINDLE_VERSION_PATCH 0
#define BRINDLE_VERSION_TEXT "0.1.0" /* the three numbers; a test compares them */

#if UINTPTR_MAX != 0xFFFFFFFFFFFFFFFFu
#error "brindle.h: the library exists for 64-bit programs only"
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

/* Where the dial stands on the screen, in the coordinates that the platform reports for the window, fractions
 * truncated toward zero; a coordinate outside the range of int32_t becomes INT32_MIN. All zero when the dial
 * is not on the screen or its place cannot be read. For a turn, right is the sum of left and width, cut off
 * once; for a click it is the sum of the already cut left and width, cut off again, so that the two can
 * differ by one (bottom likewise). 16 bytes. */
typedef struct DialContactRect {
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
} DialContactRect;

/* hapticRequest is the one field of the record that the host may write; in C++ the rest is const. */
#ifdef __cplusplus
#define BRINDLE_ANSWER mutable
#else
#define BRINDLE_ANSWER
#endif

/* One turn of the dial. 56 bytes. */
typedef struct DialRotationInfo {
    DialContactRect contact;
    /* The dial's button is held down during the turn. */
    bool buttonPressed;
    /* Degrees since the last event, clockwise positive; 0.0 when the platform cannot tell. */
    double deltaDegrees;
    /* How fast the user turns, as a factor to multiply deltaDegrees by: 1.0 or more, and 1.0 for the first
     * 10 degrees of a movement. It is sqrt(max(|s| - 10, 0)) / 2.07 + 1, with s the sum of deltaDegrees. A
     * turn 50 ms or more after the last computation computes it anew; one more than 100 ms after the last
     * computation restarts the sum first; one less than 50 ms after it only adds to the sum. So after a
     * computation at 0 ms, a turn at 49 ms computes nothing, and one at 101 ms restarts the sum. The first
     * turn in the process computes nothing. One sum serves the whole process, whichever window the dial
     * turns for. */
    double acceleration;
    /* The item_id of the menu item that is selected; 0 when none is, the window has no custom menu, or the
     * platform cannot tell the item's tag. */
    uint32_t selectedItemTag;
    /* Null when you are called. Point it at the value 1 or 2, which must stay readable until the library
     * has read it just after your return, and the dial plays its first haptic waveform three times at full
     * intensity, with pauses of 200 ms. Any other value, or a dial without waveforms: nothing is played. */
    BRINDLE_ANSWER const uint32_t* hapticRequest;
} DialRotationInfo;

#undef BRINDLE_ANSWER

/* What a menu item's picture comes from. Other values are skipped silently. */
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
    /* Yours to choose; comes back as DialRotationInfo::selectedItemTag, which cannot tell 0 from no
     * selection. */
    uint32_t item_id;
    /* Not 0: choosing the item turns the dial's automatic haptic feedback on; 0: off. add_custom_menu says
     * what decides for items that share an item_id, and for picture files. */
    uint8_t haptic_feedback;
    union {
        const BrindleChar* text;
        const void* module;
        uint64_t number;
    } source, source2, source3;
} MenuItemDescription;

/* ---------------------------------------------------------------------------------------------------------
 * Your side: the callback object
 * ------------------------------------------------------------------------------------------------------ */

/*
 * What the platform sends, and what you get:
 *
 *   the user ...                    the platform raises     the host is called with
 *   turns the dial                  RotationChanged         OnRotation
 *   presses and lets go             ButtonClicked           OnButtonClicked
 *   puts it on the screen, moves
 *   it there, lifts it              ScreenContact...        nothing; turns and clicks carry `contact`
 *   chooses a menu item             Invoked                 nothing; later turns carry its item_id
 *   comes to or leaves the window   Control...              nothing
 *
 * Arguments are never null and live for the call only. `sender` is the platform's controller
 * (IRadialController*). A reference that you take of it keeps its events coming: release it before uninit,
 * and before init_dial_listener returns anything but true, or events reach freed memory. Callbacks
 * must not throw or unwind: above them stands the platform.
 *
 * What the platform cannot tell about an event:
 *
 *   a turn's degrees, the contact's place, the selected item's tag   0, and you are called
 *   which item is selected, a click's contact                        you are not called; a line is printed
 *   a turn's button, the haptic answer that you asked for            the failure leaves the event as a C++
 *       exception (hresult_error, or std::bad_alloc for 0x8007000E) that only the platform stands above:
 *       Windows ends the process on it. In the simulator it is reported to the script or the test.
 */
#ifdef __cplusplus

class IDialHost {
public:
    /* The dial was turned. You may write info->hapticRequest and nothing else. */
    virtual void OnRotation(void* sender, const DialRotationInfo* info) = 0;
    /* The window this object serves. init_dial_listener asks twice: the first answer is the window the dial
     * is bound to, the second, after a registration that succeeded, the one that the listener is registered
     * under. set_default_menu asks once. */
    virtual uint64_t GetWindowHandle() = 0;
    /* The button was pressed and let go; `rect` is where the dial stands on the screen. */
    virtual void OnButtonClicked(void* sender, const DialContactRect* rect) = 0;

protected:
    /* Not virtual: a virtual destructor would take a place in the function table. Declare your class final,
     * so that no compiler warns about it. */
    ~IDialHost() = default;
};

extern "C" {

#else

typedef struct IDialHost IDialHost;

/* In C, a host is a struct whose first member is an IDialHost that points at a table of functions; `self`
 * is then a pointer to the host. */
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
 * Start and stop
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Starts the Windows Runtime on the calling thread, single-threaded, and asks whether it is recent enough.
 *
 *   Returns
 *     0        ready; whether this Windows knows the dial shows in init_dial_listener, line 458
 *     1        the Windows Runtime cannot be initialised, for instance because the thread is already in a
 *              multithreaded apartment, or has no class to ask
 *     2        this Windows is too old, or the question failed
 *
 *   Errors     a structured exception, non-continuable, when the platform cannot make a string
 *   Thread     the one that makes all other calls
 *   Since      0.1
 *
 * Call uninit after 0 or 2. After 1 call nothing more, uninit included: the Windows Runtime may have stayed
 * initialised on the thread, and the result does not tell.
 */
int32_t initialize(void);

/*
 * Ends every listener, in ascending order of window handle, and stops the Windows Runtime on this thread.
 *
 *   Thread     that of initialize, never from a callback
 *   Since      0.1
 *
 * No event may be running on another thread, and no picture file may be on its way into a menu: the listeners
 * that they use go away here. A listener that was displaced by a second init_dial_listener for its window is
 * not ended: it stays in memory and calls its host as long as the platform raises its events, so that host
 * must live on.
 */
void uninit(void);

/*
 * Makes the dial work for the window of `host` and registers the listener under that window.
 *
 *   Parameters
 *     host     called until uninit; not owned; null gives false
 *
 *   Returns
 *     true     the registration ended with a success code. Without a line on standard output the host gets
 *              all events. With one it ended early: after line 458 or 460 no event arrives; after one from
 *              467 to 491 the events subscribed before it arrive, its own perhaps more than once, and those
 *              after it do not. Line 487 subscribes turns, line 491 clicks
 *     false    host is null (no line), a step failed, or the platform yielded no controller ("register" line
 *              only). Nothing of the registration is left
 *
 *   Errors     std::bad_alloc when the listener or its entry cannot be allocated
 *   Thread     that of initialize
 *   Since      0.1
 *
 * Events may arrive before it returns. A second call for the same window registers a new listener in the
 * place of the older one, which is neither ended nor unsubscribed and goes on calling its host.
 */
bool init_dial_listener(IDialHost* host);

/* ---------------------------------------------------------------------------------------------------------
 * The dial's menu. A window that has no listener gets false, with no other effect.
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Replaces the custom items of the window's dial menu.
 *
 *   Parameters
 *     window   a registered window
 *     items    `count` records, read during the call; null adds none
 *     count    0 to 4294967295; 0 clears the menu
 *
 *   Returns
 *     true     the call ended with a success code. Without a line on standard output the menu has the new
 *              items, but for those that are skipped silently and picture files (below). Line 124 or 129:
 *              nothing was changed. "clear" with a code other than 0: the old items stand before the new
 *              ones. Line 151: the records from a known icon on are skipped. Any other line: an item may be
 *              missing, lack its tag, or be in the menu more than once
 *     false    no listener, or one without a controller; or the menu or its item list could not be had (line
 *              124 or 129; no line when the platform yields none), and the old items still stand; or the
 *              factory for known icons failed (151), and the records from that one on are skipped. Until a
 *              later call gets the menu, turns tell no tag, and picture files that come are refused (line
 *              649)
 *
 *   Errors     hresult_error when the platform cannot make a string of a label, of a skipped record too, or
 *              of a source text, or when a text is longer than 4294967295 units; std::bad_alloc without
 *              memory. The old items are gone, the items made before stay, and later records are not read
 *   Thread     that of initialize
 *   Since      0.1
 *
 * A record is skipped silently when its kind is unknown, when its font file does not exist or has no short
 * path, and when the platform yields no stream for its PNG resource.
 *
 * Items from PNG files appear when the platform has opened the file, usually after the call, in the order in
 * which that happens; also in a menu that a later call has made meanwhile. A file that does not exist never
 * appears. Call uninit only when those loads are over.
 *
 * For each listener, the first recorded entry of an item_id decides its haptic setting, also for later menus.
 * Use fresh identifiers for new meanings. A known icon or a glyph is recorded even when its item could not be
 * made; a picture file is recorded when its item has been added, with the setting 0.
 */
bool add_custom_menu(uint64_t window, const MenuItemDescription* items, uint32_t count);

/*
 * Says which of the system's own entries remain in the window's dial menu, in this order.
 *
 *   Parameters
 *     window   a registered window; the menu is that of the window that its host object reports now
 *     kinds    `count` values, read during the call: 0 scroll, 1 zoom, 2 undo and redo, 3 volume, 4 next and
 *              previous track; passed on unchanged; null gives false
 *     count    0 leaves no system entry
 *
 *   Returns
 *     true     the platform has taken them
 *     false    no listener, no configuration for the window, a null list, or the platform refused them
 *
 *   Errors     std::bad_alloc without memory
 *   Thread     that of initialize
 *   Since      0.1
 */
bool set_default_menu(uint64_t window, const int32_t* kinds, uint32_t count);

/*
 * Selects the first item of the window's custom menu whose item_id equals `item_id`. Selecting does not count
 * as choosing: no haptic setting changes.
 *
 *   Parameters
 *     window   a registered window
 *     item_id  every value is ordinary
 *
 *   Returns
 *     true     the item is selected
 *     false    no listener, no such item, or the platform refused a step of the search
 *
 *   Errors     std::bad_alloc when the platform is without memory
 *   Thread     that of initialize
 *   Since      0.1
 */
bool set_current_custom_menu(uint64_t window, uint32_t item_id);

/* ---------------------------------------------------------------------------------------------------------
 * Is the dial there
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Asks Windows whether the dial is there: whether one of the enabled Bluetooth interfaces of its class begins
 * with this one dial's address. Any other dial, however similar, counts as none. Every call asks anew.
 *
 *   Parameters
 *     window   a registered window
 *
 *   Returns
 *     true     it is there
 *     false    it is not; Windows could not be asked, or did not answer in time; another answer ended the
 *              wait; or the window has no listener
 *
 *   Errors     std::bad_alloc without memory, also when Windows says so (0x8007000E) to the question
 *   Thread     that of initialize
 *   Since      0.1
 *
 * Blocks the caller until Windows has answered, usually a few milliseconds, and handles no messages
 * meanwhile. An answer that fails or never comes is waited for to the end: 10,001 sleeps of 1 ms, 10 seconds
 * where the system's timer is fine and up to 160 where it ticks every 16 ms.
 *
 * Calls for one window must not overlap, as in a callback that arrives during the call: the first answer ends
 * both waits, and each call answers with what its own enumeration has found by then. An answer that comes
 * after its wait touches no freed memory, not even after uninit, but it ends a later wait of the window in
 * the same way, with false, and the answer to that call is then late in its turn. After a call that took the
 * whole wait, ask again only after a pause.
 */
bool is_dial_present(uint64_t window);

/* ---------------------------------------------------------------------------------------------------------
 * Small named settings: texts and numbers, each under a key
 * ------------------------------------------------------------------------------------------------------ */

/*
 * They need initialize, but no window, no listener and no dial. A value is kept in the places below, and read
 * from the first of them that has it:
 *
 *                        1. roaming settings    2. the user's vault          3. local settings
 *   a text is kept in    yes                    yes, under `resource`        yes
 *   a number is kept in  yes                    no, but a text found there   yes
 *                                               is read as a number
 *   for a program with
 *   package identity     yes                    yes                          yes
 *   for any other        no                     yes                          no
 *
 * So an ordinary desktop program, one without package identity, keeps texts in the vault only and numbers
 * nowhere: keep a number as a text there, and get_int_from_storage reads it.
 *
 * The vault is the user's credential store. Every process of the user can read it: what is kept there is no
 * secret from the user's other programs. `resource` tells your texts from theirs; a key that the vault has
 * under other resources only is not written under yours, so make your keys unlikely ones too
 * ("Example Paint/last brush"). Windows keeps at most twenty texts there for a program with package identity.
 *
 * Roaming settings no longer roam: since Windows 11 they stay on the computer like local ones.
 *
 * Sizes: Windows takes keys up to 255 characters and values up to 8192 bytes (4096 UTF-16 units) into
 * settings, and no empty resource, key or text into the vault. The library has no limits of its own.
 *
 * A place that fails, or refuses a value, is skipped silently: a setter returns 0 even when nothing was kept
 * anywhere. To be sure, read the value back. A change is not one step: it removes the old value and then
 * writes the new one, in each place, and a failure in between leaves the place without either. A value that a
 * place already has is not written there again.
 *
 * Of all four:
 *
 *   Parameters
 *     resource, key, value   NUL-terminated UTF-16, not null, read during the call
 *
 *   Errors     std::bad_alloc without memory, also when Windows says so (0x8007000E)
 *   Thread     that of initialize
 *   Since      0.1
 */

/*
 * Keeps a text. An empty one is kept in the settings only; in the vault it removes the text that was there.
 *
 *   Returns
 *     0, or a negative HRESULT for an unhandled platform error
 */
int32_t set_string_in_storage(const BrindleChar* resource, const BrindleChar* key, const BrindleChar* value);

/*
 * The text kept under `key`. Settings are found under any `resource`, the vault's texts under their own.
 *
 *   Returns
 *     a text   yours: a new buffer on every call, of its length + 1 units, to give to free() of the Universal
 *              C Runtime. A host with another runtime library calls that one's free:
 *              GetProcAddress(GetModuleHandleW(L"ucrtbase.dll"), "free")
 *     null     no place yields one
 */
BrindleChar* get_string_from_storage(const BrindleChar* resource, const BrindleChar* key);

/*
 * Keeps a number; `resource` is not used.
 *
 *   Returns
 *     0, or a negative HRESULT for an unhandled platform error
 */
int32_t set_int_in_storage(const BrindleChar* resource, const BrindleChar* key, int32_t value);

/*
 * The number kept under `key`. A number that the settings hold as a value of another kind, such as a text, is
 * not found there; a text in the vault is read as a number.
 *
 *   Returns
 *     a number    from the roaming settings; or else the decimal number that the vault's text begins with
 *                 (blanks and a sign before it are allowed), limited to the range of int32_t, 0 when the text
 *                 begins with none; or else from the local settings
 *     INT32_MIN   (0x80000000) there is none. INT32_MIN itself does not count as a number in any place, nor
 *                 does a vault text that reads as INT32_MIN or below: the next place is asked
 */
int32_t get_int_from_storage(const BrindleChar* resource, const BrindleChar* key);

#ifdef __cplusplus
} /* extern "C" */
#endif

/* ---------------------------------------------------------------------------------------------------------
 * The layouts, checked by your compiler
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
