// The control functions.
#include "simulator/dialsim.h"

#include <algorithm>
#include <cstring>

#include "simulator/classes/api_information.h"
#include "simulator/classes/async.h"
#include "simulator/classes/configuration.h"
#include "simulator/classes/controller.h"
#include "simulator/classes/controllers.h"
#include "simulator/classes/devices.h"
#include "simulator/classes/event_raising.h"
#include "simulator/classes/factories.h"
#include "simulator/classes/property_value.h"
#include "simulator/dial/commands.h"
#include "simulator/dial/menu_model.h"
#include "simulator/dial/open_menu.h"
#include "simulator/dial/recording.h"
#include "simulator/dial/script.h"
#include "simulator/functions/intercepted.h"
#include "simulator/functions/only_dial.h"
#include "simulator/functions/resources.h"
#include "simulator/instruments/journal.h"
#include "simulator/instruments/leak_tracker.h"
#include "simulator/instruments/operations.h"
#include "simulator/stores/package_identity.h"
#include "simulator/stores/store_folder.h"
#include "simulator/stores/stores.h"
#include "simulator/system/clock.h"
#include "simulator/system/reset.h"
#include "simulator/system/threads.h"

namespace {

using namespace dialsim;

static_assert(kNoController == DIALSIM_NO_CONTROLLER && kHandlerThrew == DIALSIM_RAISED);
static_assert(kMemoryFolder == DIALSIM_MEMORY);

std::size_t CopyText(const std::string& text, char* buffer, std::size_t size) {
    if (buffer != nullptr && size > 0) {
        const std::size_t length = std::min(text.size(), size - 1);
        std::memcpy(buffer, text.data(), length);
        buffer[length] = '\0';
    }
    return text.size() + 1;
}

bool AddFault(const Fault& fault) {
    if (!IsApplicable(fault)) {
        return false;
    }
    TheJournal().Add(fault);
    return true;
}

Threads& scripts = *new Threads;  // never destroyed: a script may run after main returns

// Not journaled: not a call of the library.
bool AppendItem(std::uint64_t window, abi::IRadialControllerMenuItem* item) {
    const Ref<Controller> controller = NewestControllerOf(window);
    const JournalPause no_journal;
    return controller && controller->menu().items().Append(item) >= 0;
}

std::string_view NameOrAll(const char* class_name) { return class_name == nullptr ? "" : class_name; }

}  // namespace

int32_t dialsim_turn(uint64_t window, double degrees) { return Turn(window, degrees); }
int32_t dialsim_click(uint64_t window) { return Click(window); }
void dialsim_hold(bool down) { Hold(down); }
int32_t dialsim_touch(uint64_t window, float x, float y, float width, float height) {
    return Touch(window, {x, y, width, height});
}
int32_t dialsim_move(uint64_t window, float x, float y, float width, float height) {
    return Move(window, {x, y, width, height});
}
int32_t dialsim_lift(uint64_t window) { return Lift(window); }
int32_t dialsim_choose(uint64_t window, uint32_t item) { return Choose(window, item); }
bool dialsim_open_menu(uint64_t window) { return OpenMenuOf(window); }
void dialsim_close_menu() { CloseMenu(); }
int32_t dialsim_acquire(uint64_t window) { return Acquire(window); }
int32_t dialsim_lose(uint64_t window) { return Lose(window); }

size_t dialsim_raised(char* buffer, size_t size) { return CopyText(LastExceptionMessage(), buffer, size); }
void dialsim_raise_on_own_thread(bool own_thread) { SetOwnThread(own_thread); }

void dialsim_set_haptics(bool present, const uint16_t* waveforms, uint32_t count) {
    SetHaptics(present, std::vector<std::uint16_t>(waveforms, waveforms + count));
}

void dialsim_set_type_present(const char* type, bool present) { SetTypePresent(type, present); }

size_t dialsim_menu(uint64_t window, char* buffer, size_t size) {
    return CopyText(MenuText(window), buffer, size);
}
size_t dialsim_menu_svg(uint64_t window, char* buffer, size_t size) {
    return CopyText(MenuSvg(window), buffer, size);
}

uint32_t dialsim_system_items(uint64_t window, int32_t* kinds, uint32_t capacity) {
    const Ref<Controller> controller = NewestControllerOf(window);
    const auto items = SystemItems(controller ? controller->window() : window);
    std::copy_n(items.begin(), std::min<std::size_t>(items.size(), capacity), kinds);
    return static_cast<uint32_t>(items.size());
}
void dialsim_keep_sequences(bool keep) { RetainSequences(keep); }
int32_t dialsim_use_kept_sequence() { return UseRetainedSequence(); }

bool dialsim_append_null_item(uint64_t window) { return AppendItem(window, nullptr); }
bool dialsim_append_item(uint64_t window, const char* tag_kind, uint32_t value) {
    const std::string kind = tag_kind;
    Ref<abi::IInspectable> tag;
    if (kind == "UInt32") {
        tag = Box(value);
    } else if (kind == "String") {
        tag = Box(Widen(std::to_string(value)));
    } else if (kind == "object") {
        tag = MakePropertyValueStatics();  // any object that is not a property value
    } else if (kind != "none") {
        return false;
    }
    return AppendItem(window, MakeItem("appended", tag.get()).get());
}
bool dialsim_shrink_menu_after(uint64_t window, uint32_t calls) {
    const Ref<Controller> controller = NewestControllerOf(window);
    if (controller) {
        controller->menu().items().ShrinkAfter(calls);
    }
    return static_cast<bool>(controller);
}

void dialsim_async(dialsim_async_mode mode) {
    TheAsyncOperations().SetMode(mode == DIALSIM_AT_ONCE ? AsyncMode::AtOnce
                                 : mode == DIALSIM_HELD  ? AsyncMode::Held
                                                         : AsyncMode::OwnThread);
}
int32_t dialsim_complete(uint32_t index) { return TheAsyncOperations().Complete(index, {}); }
int32_t dialsim_complete_all() { return TheAsyncOperations().CompleteAll(); }
int32_t dialsim_complete_as(uint32_t index, int32_t status) {
    return TheAsyncOperations().Complete(index, static_cast<abi::AsyncStatus>(status));
}
uint32_t dialsim_pending() { return TheAsyncOperations().Pending(); }
int32_t dialsim_completion_code(uint32_t index) { return TheAsyncOperations().CompletionCode(index); }
bool dialsim_completion_marshals(uint32_t index) { return TheAsyncOperations().MarshalsFreeThreaded(index); }
void dialsim_abandon_pending() { TheAsyncOperations().Abandon(); }
void dialsim_wait_for_async() { Settle(); }
void dialsim_async_delay(uint32_t milliseconds) { TheAsyncOperations().SetDelay(milliseconds); }

void dialsim_add_device(const char* id, const char* interface_class, bool enabled) {
    TheDevices().Add(id, interface_class, enabled);
}
void dialsim_remove_devices() { TheDevices().RemoveAll(); }
void dialsim_fail_devices(int32_t code) { TheDevices().Fail(code); }

void dialsim_set_stores(const char* folder) {
    SetStoresFolder(folder == nullptr ? std::nullopt : std::optional<std::string>(folder));
}
void dialsim_set_packaged(bool packaged) { SetPackaged(packaged); }
size_t dialsim_store(const char* store, char* buffer, size_t size) {
    return CopyText(StoreText(store), buffer, size);
}
bool dialsim_put_setting(const char* store, const char* key, const char* type, const char* value) {
    const auto settings = SettingsNamed(store);
    Setting setting;
    bool replaced = false;
    return settings && ParseSetting(type, value, setting) &&
           PutSetting(*settings, Widen(key), setting, replaced) >= 0;
}
bool dialsim_put_credential(const char* resource, const char* user_name, const char* password) {
    return PutCredential(Widen(resource), Widen(user_name), Widen(password)) >= 0;
}
bool dialsim_clear_stores() { return ClearStores(); }
size_t dialsim_store_file(const char* store, char* buffer, size_t size) {
    const std::optional<std::string> content = StoreContent(store);
    return content ? CopyText(*content, buffer, size) : 0;
}
bool dialsim_put_store_file(const char* store, const void* bytes, size_t size) {
    return PutStoreContent(store, std::string(static_cast<const char*>(bytes), size));
}

bool dialsim_add_resource(uint64_t module, uint16_t id, const char* type, const void* bytes, uint32_t size) {
    return AddResource(module, id, type, std::string(static_cast<const char*>(bytes), size));
}

uint64_t dialsim_now() { return ClockNow(); }
void dialsim_wait(uint32_t milliseconds) { Wait(milliseconds, false); }
void dialsim_skip_sleeps(bool skip) { SkipSleeps(skip); }
bool dialsim_set_clock(uint64_t milliseconds) { return SetClock(milliseconds); }

bool dialsim_play(const char* script, uint32_t flags, char* error, size_t error_size) {
    const std::string script_error = PlayScript(script, (flags & DIALSIM_REAL_TIME) != 0);
    CopyText(script_error, error, error_size);
    return script_error.empty();
}

void dialsim_play_in_background(const char* script, uint32_t flags,
                                void (*done)(void* context, const char* error), void* context) {
    scripts.Start([script = std::string(script), flags, done, context] {
        const std::string script_error = PlayScript(script, (flags & DIALSIM_REAL_TIME) != 0);
        done(context, script_error.empty() ? nullptr : script_error.c_str());
    });
}
void dialsim_wait_for_scripts() {
    scripts.WaitForAll();
    WaitForActions();
}

bool dialsim_record(const char* path) {
    if (path == nullptr) {
        EndRecording();
        return true;
    }
    return StartRecording(path);
}

bool dialsim_fail(const char* operation, int32_t code, uint32_t from, uint32_t times) {
    return AddFault({operation, Fault::Kind::Fail, code, from, times});
}
bool dialsim_fail_late(const char* operation, int32_t code, uint32_t from, uint32_t times) {
    return AddFault({operation, Fault::Kind::FailLate, code, from, times});
}
bool dialsim_yield_null(const char* operation, uint32_t from, uint32_t times) {
    return AddFault({operation, Fault::Kind::YieldNull, S_OK, from, times});
}
const char* dialsim_operation(uint32_t index) { return OperationName(index); }

size_t dialsim_journal(char* buffer, size_t size) { return CopyText(TheJournal().Text(), buffer, size); }
void dialsim_clear_journal() { TheJournal().Clear(); }
void dialsim_on_call(void (*hook)(void* context, const char* call), void* context) {
    TheJournal().SetCallHook(hook, context);
}
uint32_t dialsim_calls(const char* operation) { return TheJournal().Count(operation); }

uint32_t dialsim_objects(const char* class_name) {
    return TheLeakTracker().Objects(NameOrAll(class_name)).objects;
}
uint32_t dialsim_references(const char* class_name) {
    return TheLeakTracker().Objects(NameOrAll(class_name)).references;
}
uint32_t dialsim_strings() { return TheLeakTracker().Strings(); }
uint32_t dialsim_blocks() { return TheLeakTracker().Blocks(); }
uint32_t dialsim_handlers() { return TheLeakTracker().Handlers(); }
size_t dialsim_accounts(char* buffer, size_t size) { return CopyText(TheLeakTracker().Text(), buffer, size); }

void dialsim_reset() { ResetAll(); }

bool dialsim_start() { return InterceptLibraries(); }
bool dialsim_watch(const char* module) { return InterceptModule(module); }
bool dialsim_only_dial(bool only_dial) { return SetOnlyDial(only_dial); }
