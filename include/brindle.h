/*
 * brindle.h - a rotary dial with a press button, for classic desktop programs on 64-bit Windows
 *
 * brindle.dll listens to the dial for your windows and tells you of turns and clicks, fills the dial's
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
 *         if (initialize() == 1) return;                // no Windows Runtime: nothing to undo
 *         Volume volume(window);                        // must outlive uninit
 *         if (init_dial_listener(&volume)) {            // false: this machine has no dial support
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
 * Order      initialize, once; init_dial_listener, once for each top-level window; then everything else;
 *            uninit, once, at the end. The library does not guard against another order.
 *
 * Threads    Call every function on the one thread that called initialize (it becomes a single-threaded
 *            apartment). Your callbacks run on whatever thread the platform raises the dial's events on; on
 *            the thread that called initialize a callback may call every function of this header but
 *            initialize and uninit, on another thread none.
 *            Nothing here takes a lock. Where events come on other threads than yours, one at a time, they
 *            may come beside every function but add_custom_menu for their window, and uninit. While a
 *            picture file is on its way into a window's menu, neither make that window's menu anew nor let
 *            its items be chosen, and let only one be on its way (ResourcePNG items never are).
 *
 * Windows    A window is named by its handle as an unsigned 64-bit number: (uint64_t)hwnd.
 *
 * Results    Window functions return true or false; where a step of the platform failed, its code goes to
 *            standard output (see Diagnostics). initialize returns 0, 1 or 2. Storage setters return 0 or a
 *            negative code, storage getters the value or a marker for "nothing there".
 *
 * Texts      NUL-terminated UTF-16, borrowed for the call. A text returned to you is yours: free() it
 *            (the heap is the Universal C Runtime's).
 *
 * Errors     No platform failure leaves a function as an exception, with three exceptions to the rule:
 *            running out of memory (std::bad_alloc), a label the platform refuses (add_custom_menu),
 *            and initialize when the platform cannot make a string (a structured exception). Hosts built
 *            with another compiler than the DLL cannot catch the C++ ones and should treat them as fatal.
 *
 * Ownership  The library owns nothing of yours. It keeps a plain pointer to your IDialHost and calls it
 *            until uninit. What it passes to a callback lives for that call only.
 *
 * Diagnostics  One line on standard output for each step of the platform that fails:
 *              "failed with 80070005 at line 460", or with a step's name in front. The number after
 *              "line" identifies the step and does not change between versions. A step that fails is
 *              tried three times: the code printed is the second attempt's, so "failed with 0" means that
 *              a second attempt worked; the result is the third's. Asking for the dial and settings
 *              print nothing.
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
 * cut off toward zero; a coordinate outside the range of int32_t becomes INT32_MIN. All zero when the dial is
 * not on the screen or its place cannot be read. For a turn, right is the sum of left and width, cut off
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
     * 10 degrees of a movement. With s the degrees summed since the last pause, it is
     * sqrt(max(|s| - 10, 0)) / 2.07 + 1, recomputed at most once in 50 ms; a pause of more than 100 ms
     * starts the sum anew. One sum serves the whole process, whichever window the dial turns for. */
    double acceleration;
    /* The item_id of the menu item that is selected; 0 when none is, the window has no custom menu, or the
     * platform cannot tell the item's tag. */
    uint32_t selectedItemTag;
    /* Null when you are called. Point it at the value 1 or 2, which must stay readable until the library
     * has read it just after your return, and the dial plays its first haptic waveform three times at full
     * intensity, 200 ms apart. Any other value, or a dial without waveforms: nothing is played. */
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
 */
typedef struct MenuItemDescription {
    MenuItemKind kind;
    /* The label; must not be null, may be empty. */
    const BrindleChar* display_text;
    /* Yours to choose, every value is ordinary; comes back as DialRotationInfo::selectedItemTag. */
    uint32_t item_id;
    /* Not 0: choosing the item turns the dial's automatic haptic feedback on; 0: off. */
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
 *   puts it on the screen, moves    ScreenContact...        nothing; later turns and clicks carry `contact`
 *   comes to or leaves the window   Control...              nothing
 *
 * Arguments are never null and live for the call only. `sender` is the platform's controller
 * (IRadialController*): a reference that you take of it has to be released before uninit, or its events go on
 * and reach memory that is gone. Callbacks must not throw or unwind: above them stands the platform.
 *
 * What the platform cannot tell of an event:
 *
 *   a turn's degrees, the contact's place, the selected item's tag   0, and you are called
 *   which item is selected, a click's contact                        you are not called
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
     * is bound to, the second the one under which the listener is filed. */
    virtual uint64_t GetWindowHandle() = 0;
    /* The button was pressed and let go; `rect` is where the dial stands on the screen. */
    virtual void OnButtonClicked(void* sender, const DialContactRect* rect) = 0;

protected:
    /* Not virtual: a virtual destructor would take a place in the function table. Make your class final, and
     * no compiler warns about it. */
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
 * Starts the Windows Runtime on the calling thread, single-threaded, and looks whether it is recent enough.
 *
 *   0  ready
 *   1  the Windows Runtime cannot be started or asked (also when the thread is already in a multithreaded
 *      apartment)
 *   2  this Windows is too old for the dial
 *
 * Call uninit after 0 or 2; after 1 call nothing more.
 * Thread: the one that will make all other calls. Since 0.1.
 */
int32_t initialize(void);

/*
 * Ends every listener, in ascending order of window handle, and stops the Windows Runtime on this thread.
 * A listener displaced by a second init_dial_listener for its window is not ended: it keeps its place in
 * memory and calls its host as long as the platform raises events for it, so such a host must live on.
 * Where events come on another thread, see to it that none is being delivered: its listener goes away here.
 * Thread: the one that called initialize, never from a callback. Since 0.1.
 */
void uninit(void);

/*
 * Makes the dial work for the window of `host` and files the listener under that window.
 *
 *   host    called until uninit; not owned; null gives false
 *
 *   true    turns and clicks over the window now reach the host
 *   false   host is null, or the platform refused a step; the lines on standard output say which one
 *
 * A second call for the same window gives true and files the new listener; the older one is neither ended
 * nor unsubscribed and goes on calling its host.
 * Memory: std::bad_alloc when the listener cannot be allocated. Thread: that of initialize. Since 0.1.
 */
bool init_dial_listener(IDialHost* host);

/* ---------------------------------------------------------------------------------------------------------
 * The dial's menu. A window that has no listener gets false, with no other effect.
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Replaces the custom items of the window's dial menu.
 *
 *   items   `count` records, read during the call; null adds none
 *   count   0 to 4294967295; 0 clears the menu
 *
 *   true    the menu was replaced; an item that could not be made is missing and has its lines on standard
 *           output
 *   false   no listener, no menu, or the platform's factory for known icons is gone (the records from
 *           there on are then skipped)
 *
 * A record of an unknown kind, or of a font file that does not exist, is skipped silently. Items from PNG
 * files appear after the call, when the platform has opened the file, in the order in which that happens; a
 * file that does not exist never appears. Call uninit only when those loads are over.
 *
 * An item's haptic_feedback is kept under its item_id from the first item that ever had it: a later item, of
 * a later menu too, with the same item_id shares the earlier one's setting. Use fresh identifiers for new
 * meanings. Items from PNG files have the setting 0.
 *
 * Exceptions: a label or source text that the platform refuses or that is longer than 4294967295 units
 * (hresult_error), or no memory (std::bad_alloc); items made before stay.
 * Thread: that of initialize. Since 0.1.
 */
bool add_custom_menu(uint64_t window, const MenuItemDescription* items, uint32_t count);

/*
 * Says which of the system's own entries remain in the window's dial menu, in this order.
 *
 *   kinds   `count` values, read during the call: 0 scroll, 1 zoom, 2 undo and redo, 3 volume, 4 next and
 *           previous track; passed on unchanged; null gives false
 *   count   0 leaves no system entry
 *
 *   true    the platform has taken them
 *   false   no listener, no configuration for the window, a null list, or the platform refused them
 *
 * The window is the one that the host object reports now. Thread: that of initialize. Since 0.1.
 */
bool set_default_menu(uint64_t window, const int32_t* kinds, uint32_t count);

/*
 * Selects the first item of the window's custom menu whose item_id equals `item_id`; false when there is
 * none or the platform refuses. Selecting does not count as choosing: no haptic setting changes.
 * Thread: that of initialize. Since 0.1.
 */
bool set_current_custom_menu(uint64_t window, uint32_t item_id);

/* ---------------------------------------------------------------------------------------------------------
 * Is the dial there
 * ------------------------------------------------------------------------------------------------------ */

/*
 * Asks Windows whether the dial is there: whether one of the enabled Bluetooth interfaces of its class begins
 * with this one dial's address. Any other dial, however similar, counts as none. Every call asks anew.
 *
 *   true    it is there
 *   false   it is not, Windows could not be asked, or the window has no listener (init_dial_listener comes
 *           first)
 *
 * Blocks the caller until Windows has answered, usually some milliseconds, and handles no messages meanwhile.
 * An answer that fails or never comes is waited for to the end: 10,001 sleeps of 1 ms, 10 seconds where the
 * system's timer is fine and up to 160 where it ticks every 16 ms. An answer that comes after that is not
 * waited for and does no harm, after uninit either.
 *
 * Exceptions: std::bad_alloc when there is no memory for the question.
 * Thread: that of initialize. Since 0.1.
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
 * secret from the user's other programs. `resource` tells your texts from theirs; a key that another
 * resource has taken in the vault is not written under yours, so make your keys unlikely ones too
 * ("Example Paint/last brush"). Windows keeps at most twenty credentials there for a packaged program.
 *
 * Roaming settings no longer roam: since Windows 11 they stay on the computer like local ones.
 *
 * Sizes: Windows takes keys up to 255 characters and values up to 8192 bytes (4096 UTF-16 units) into
 * settings, and no empty text into the vault. The library has no limits of its own.
 *
 *   resource, key, value   NUL-terminated UTF-16, not null, read during the call
 *
 * A place that fails, or refuses a value, is passed over without a word: a setter returns 0 even when nothing
 * was kept anywhere. To be sure, read the value back. A change is not one step: it removes the old value
 * and then writes the new one, in each place, and a failure in between leaves the place without either. A
 * value that a place already has is not written there again.
 *
 * Exceptions, of all four: std::bad_alloc without memory, also when Windows is out of it (0x8007000E).
 */

/*
 * Keeps a text, which may be empty. 0; a negative HRESULT only if a failure of Windows escaped all care.
 * Thread: that of initialize. Since 0.1.
 */
int32_t set_string_in_storage(const BrindleChar* resource, const BrindleChar* key, const BrindleChar* value);

/*
 * The text kept under `key`, or null when there is none. Settings are found under any `resource`, the vault's
 * texts under their own.
 *
 * The text is yours: a new buffer on every call, of its length + 1 units, that you give to free() of the
 * Universal C Runtime. (A host with another runtime library frees it with that one's free:
 * GetProcAddress(GetModuleHandle("ucrtbase.dll"), "free").)
 * Thread: that of initialize. Since 0.1.
 */
BrindleChar* get_string_from_storage(const BrindleChar* resource, const BrindleChar* key);

/*
 * Keeps a number; `resource` is not used. 0; a negative HRESULT only if a failure of Windows escaped all
 * care. Thread: that of initialize. Since 0.1.
 */
int32_t set_int_in_storage(const BrindleChar* resource, const BrindleChar* key, int32_t value);

/*
 * The number kept under `key`, or INT32_MIN (0x80000000) when there is none; a kept INT32_MIN cannot be told
 * from none.
 *
 * A text in the vault counts, before the local settings, as the decimal number that it begins with (blanks
 * and a sign before it are allowed), limited to the range of int32_t; as 0 when it begins with none.
 * Thread: that of initialize. Since 0.1.
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
