/* A host in plain C that calls every export, in named phases. The host object is a struct whose first member
 * points to its function table. */
#include <brindle.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "simulator/dialsim.h"

#ifdef _WIN32
#define UTF16(literal) L##literal
#else
#define UTF16(literal) u##literal
#endif

#define WINDOW 42

static const char* phase = "start";

#define CHECK(condition)                                                               \
    do {                                                                               \
        if (!(condition)) {                                                            \
            fprintf(stderr, "c_host: %s, line %d: %s\n", phase, __LINE__, #condition); \
            exit(EXIT_FAILURE);                                                        \
        }                                                                              \
    } while (0)

typedef struct CountingHost {
    IDialHost base; /* first */
    int rotations;
    int clicks;
    double degrees;
    DialContactRect contact;
} CountingHost;

static const uint32_t buzz = 1;

static void OnRotation(IDialHost* self, void* sender, DialRotationInfo* info) {
    CountingHost* host = (CountingHost*)self;
    CHECK(sender != NULL);
    CHECK(info->hapticRequest == NULL);
    ++host->rotations;
    host->degrees += info->deltaDegrees;
    host->contact = info->contact;
    info->hapticRequest = &buzz;
}

static uint64_t GetWindowHandle(IDialHost* self) {
    (void)self;
    return WINDOW;
}

static void OnButtonClicked(IDialHost* self, void* sender, const DialContactRect* rect) {
    CountingHost* host = (CountingHost*)self;
    CHECK(sender != NULL);
    CHECK(rect->left == 0 && rect->top == 0 && rect->right == 0 && rect->bottom == 0);
    ++host->clicks;
}

static const IDialHostFunctions functions = {OnRotation, GetWindowHandle, OnButtonClicked};

/* Otherwise the host would use the system's dial and the user's own vault. */
static void RequireTheSimulator(void) {
    CHECK(dialsim_start());
    uninit(); /* harmless before initialize */
    CHECK(dialsim_calls("RoUninitialize") == 1);
}

static void ListenToTheDial(CountingHost* host) {
    phase = "listen";
    CHECK(initialize() == 0);
    CHECK(!init_dial_listener(NULL));
    CHECK(init_dial_listener(&host->base));
    CHECK(dialsim_turn(WINDOW, 5.0) == 0);
    CHECK(dialsim_click(WINDOW) == 0);
    CHECK(dialsim_touch(WINDOW, 1.0F, 2.0F, 3.0F, 4.0F) == 0);
    CHECK(dialsim_turn(WINDOW, -2.0) == 0);
    CHECK(host->rotations == 2 && host->clicks == 1 && host->degrees > 2.9 && host->degrees < 3.1);
    CHECK(host->contact.left == 1 && host->contact.right == 4 && host->contact.bottom == 6);
}

static void FillTheMenu(void) {
    const MenuItemDescription item = {MenuItemKind_KnownIcon, UTF16("Volume"), 7, 1, {NULL}, {NULL}, {NULL}};
    const int32_t kinds[] = {3};
    phase = "menu";
    CHECK(add_custom_menu(WINDOW, &item, 1));
    CHECK(set_default_menu(WINDOW, kinds, 1));
    CHECK(set_current_custom_menu(WINDOW, 7));
    CHECK(!set_current_custom_menu(WINDOW, 8));
    CHECK(add_custom_menu(WINDOW, NULL, 0));
}

static void AskForTheDial(void) {
    phase = "presence";
    CHECK(is_dial_present(WINDOW));
    dialsim_remove_devices();
    CHECK(!is_dial_present(WINDOW));
    dialsim_wait_for_async();
}

static void CheckAndFree(BrindleChar* text) {
    const BrindleChar expected[] = UTF16("value");
    CHECK(text != NULL);
    CHECK(memcmp(text, expected, sizeof expected) == 0);
    brindle_free(text);
}

static void KeepSettings(void) {
    phase = "settings";
    dialsim_set_stores(DIALSIM_MEMORY);
    CHECK(dialsim_clear_stores());
    dialsim_set_packaged(true);
    CHECK(set_string_in_storage(UTF16("c_host"), UTF16("name"), UTF16("value")) == 0);
    CHECK(set_int_in_storage(UTF16("c_host"), UTF16("number"), 7) == 0);
    CheckAndFree(get_string_from_storage(UTF16("c_host"), UTF16("name")));
    CHECK(get_int_from_storage(UTF16("c_host"), UTF16("number")) == 7);
    CHECK(get_string_from_storage(UTF16("c_host"), UTF16("number")) == NULL);

    phase = "settings of a program without an identity";
    dialsim_set_packaged(false);
    CheckAndFree(get_string_from_storage(UTF16("c_host"), UTF16("name")));
    CHECK(get_int_from_storage(UTF16("c_host"), UTF16("number")) == INT32_MIN);
    CHECK(dialsim_clear_stores());
}

static void Stop(const CountingHost* host) {
    phase = "stop";
    uninit();
    CHECK(dialsim_turn(WINDOW, 5.0) == DIALSIM_NO_CONTROLLER);
    CHECK(host->rotations == 2);
}

int main(void) {
    CountingHost host = {{&functions}, 0, 0, 0.0, {0, 0, 0, 0}};
    RequireTheSimulator();
    ListenToTheDial(&host);
    FillTheMenu();
    AskForTheDial();
    KeepSettings();
    Stop(&host);
    puts("c_host: every phase passed");
    return EXIT_SUCCESS;
}
