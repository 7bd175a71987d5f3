/* A host in C for Windows: prints turns and clicks of the dial, and closes its window at the first click. */
#include <brindle.h>
#include <stdio.h>
#include <windows.h>

#define RESOURCE L"Example host"
#define KEY L"Example host/last brush"
#define ITEM 7

typedef struct PrintingHost {
    IDialHost base; /* first */
    HWND window;
} PrintingHost;

static void PrintContact(const DialContactRect* contact) {
    printf("contact (%d, %d) to (%d, %d)\n", contact->left, contact->top, contact->right, contact->bottom);
}

static void OnRotation(IDialHost* self, void* sender, DialRotationInfo* info) {
    (void)self;
    (void)sender;
    printf("turn: %.1f degrees, factor %.2f, button %s, item %u, ", info->deltaDegrees, info->acceleration,
           info->buttonPressed ? "down" : "up", info->selectedItemTag);
    PrintContact(&info->contact);
}

static uint64_t GetWindowHandle(IDialHost* self) { return (uint64_t)((PrintingHost*)self)->window; }

/* Posts a message, because the window may belong to another thread. */
static void OnButtonClicked(IDialHost* self, void* sender, const DialContactRect* rect) {
    (void)sender;
    printf("click: ");
    PrintContact(rect);
    PostMessageW(((PrintingHost*)self)->window, WM_CLOSE, 0, 0);
}

static const IDialHostFunctions functions = {OnRotation, GetWindowHandle, OnButtonClicked};

static void WriteAndReadSetting(void) {
    BrindleChar* text;
    char utf8[64] = "";
    set_string_in_storage(RESOURCE, KEY, L"Gr\u00F6\u00DFe 7 \u20AC");
    text = get_string_from_storage(RESOURCE, KEY);
    if (text == NULL) {
        puts("setting: absent");
        return;
    }
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8, sizeof utf8, NULL, NULL);
    printf("setting: %s\n", utf8);
    brindle_free(text);
}

static void FillMenu(HWND window) {
    const MenuItemDescription item = {
        .kind = MenuItemKind_KnownIcon, .display_text = L"Volume", .item_id = ITEM, .source = {.number = 3}};
    add_custom_menu((uint64_t)window, &item, 1);
    set_current_custom_menu((uint64_t)window, ITEM);
}

static void RunUntilClosed(HWND window) {
    MSG message;
    while (IsWindow(window) && GetMessageW(&message, NULL, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
}

int main(void) {
    PrintingHost host = {{&functions}, NULL};
    host.window = CreateWindowExW(0, L"STATIC", L"Host in C", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 400,
                                  300, NULL, NULL, NULL, NULL);
    if (host.window == NULL || initialize() == 1) {
        fputs("no window, or no Windows Runtime\n", stderr);
        return 1;
    }
    WriteAndReadSetting();
    if (init_dial_listener(&host.base)) {
        FillMenu(host.window);
        RunUntilClosed(host.window);
    }
    Sleep(300); /* a callback may still run on another thread */
    uninit();
    puts("end");
    return 0;
}
