#include "simulator/launcher/windows/real_dial.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simulator/classes/dial_state.h"
#include "simulator/classes/object.h"
#include "simulator/dial/recording.h"
#include "simulator/functions/counted.h"
#include "simulator/system/text.h"
#include "sync.h"

namespace dialsim {

namespace {

using PlatformController = abi::IRadialController;
template <class Args>
using EventHandler = abi::TypedEventHandler<abi::RadialController, Args>;

// Agile: the platform may call and release it on any thread.
template <class Args, class Action>
class Handler final : public Counted<EventHandler<Args>> {
public:
    explicit Handler(Action action) : action_(std::move(action)) {}

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept override {
        return this->ReturnThis(abi::SameId(iid, abi::IUnknown::Iid) ||
                                    abi::SameId(iid, abi::IAgileObject::Iid) ||
                                    abi::SameId(iid, EventHandler<Args>::Iid),
                                object);
    }
    HRESULT Invoke(abi::Abi<abi::RadialController> sender, abi::Abi<Args> args) noexcept override {
        action_(sender, args);
        return S_OK;
    }

private:
    const Action action_;
};

template <class Args, class Action>
void Add(PlatformController& controller,
         HRESULT (PlatformController::*add)(EventHandler<Args>*, EventRegistrationToken*) noexcept,
         Action action) {
    const auto handler = Ref<EventHandler<Args>>::Attach(new Handler<Args, Action>(std::move(action)));
    EventRegistrationToken token{};
    if (const HRESULT code = (controller.*add)(handler.get(), &token); code < 0) {
        std::fprintf(stderr, "dial recording: the platform refuses a handler (%s)\n", Hex(code).c_str());
    }
}

// --- what the platform says of an event

// Returns the result of a getter, null after a failure.
template <class Interface, class Get>
Ref<Interface> Result(Get get) {
    Interface* result = nullptr;
    return get(&result) < 0 ? Ref<Interface>() : Ref<Interface>::Attach(result);
}

template <class Args>
std::optional<abi::Rect> ContactOf(Args* args) {
    const auto contact =
        Result<abi::IRadialControllerScreenContact>([=](auto result) { return args->get_Contact(result); });
    abi::Rect bounds{};
    return contact && contact->get_Bounds(&bounds) >= 0 ? std::optional(bounds) : std::nullopt;
}

// Empty on a platform without the second interface.
std::optional<bool> ButtonOf(abi::IRadialControllerRotationChangedEventArgs* args) {
    using SecondArgs = abi::IRadialControllerRotationChangedEventArgs2;
    const auto button = Result<SecondArgs>(
        [=](auto result) { return args->QueryInterface(SecondArgs::Iid, reinterpret_cast<void**>(result)); });
    abi::boolean pressed = 0;
    return button && button->get_IsButtonPressed(&pressed) >= 0 ? std::optional(pressed != 0) : std::nullopt;
}

// Compared, never used: the recording owns no item.
using Identity = const void*;

Identity IdentityOf(abi::IUnknown* object) {
    return Result<abi::IUnknown>([=](auto result) {
               return object->QueryInterface(abi::IUnknown::Iid, reinterpret_cast<void**>(result));
           })
        .get();
}

// An item of the menu. The identity differs when a new menu has another item at the same index.
struct Item {
    std::uint32_t index;
    Identity identity;

    bool operator==(const Item&) const = default;
};

// Empty when no item of the program is selected.
std::optional<Item> SelectedItem(PlatformController* controller) {
    using MenuItem = abi::IRadialControllerMenuItem;
    using Items = abi::IVector<abi::RadialControllerMenuItem>;
    const auto menu =
        Result<abi::IRadialControllerMenu>([=](auto result) { return controller->get_Menu(result); });
    if (!menu) {
        return {};
    }
    const auto selected = Result<MenuItem>([&](auto result) { return menu->GetSelectedMenuItem(result); });
    const auto items = Result<Items>([&](auto result) { return menu->get_Items(result); });
    std::uint32_t size = 0;
    if (!selected || !items || items->get_Size(&size) < 0) {
        return {};
    }
    const Identity wanted = IdentityOf(selected.get());
    for (std::uint32_t i = 0; i < size; ++i) {
        const auto item = Result<MenuItem>([&](auto result) { return items->GetAt(i, result); });
        if (item && IdentityOf(item.get()) == wanted) {
            return Item{i, wanted};
        }
    }
    return {};
}

// --- the recording

bool Same(const std::optional<abi::Rect>& a, const std::optional<abi::Rect>& b) {
    return a && b ? a->X == b->X && a->Y == b->Y && a->Width == b->Width && a->Height == b->Height
                  : a.has_value() == b.has_value();
}

// The program's controller and its part of the recording. The handlers own the object.
class RecordedController {
public:
    explicit RecordedController(HWND window);
    RecordedController(const RecordedController&) = delete;
    RecordedController& operator=(const RecordedController&) = delete;
    ~RecordedController();

    void OnRotation(PlatformController* sender, abi::IRadialControllerRotationChangedEventArgs* args);
    void OnClick(PlatformController* sender, abi::IRadialControllerButtonClickedEventArgs* args);
    void OnContactStarted(abi::IRadialControllerScreenContactStartedEventArgs* args);
    void OnContactContinued(abi::IRadialControllerScreenContactContinuedEventArgs* args);
    void OnContactEnded();
    void OnControlAcquired(abi::IRadialControllerControlAcquiredEventArgs* args);
    void OnControlLost();

    // True once.
    bool IsFirstEvent() { return !has_raised_.exchange(true); }

private:
    template <class Body>
    void Record(Body body);
    bool IsNewestOfWindow() const;

    // Require the lock. An update writes a command when the event reports another state than the script so
    // far.
    void Write(const std::string& command) const { RecordCommand(command, name_); }
    void WriteContact(const char* command, const abi::Rect& bounds);
    void UpdateContact(const std::optional<abi::Rect>& contact);
    void UpdateButton(std::optional<bool> pressed);
    void UpdateItem(const std::optional<Item>& item);

    const HWND window_;
    std::string name_;
    std::optional<Item> item_;
    std::atomic<bool> has_raised_ = false;
};

struct Registry {
    Mutex mutex;
    std::vector<const RecordedController*> controllers;
    std::vector<HWND> windows;  // every window that has had a controller
    DialState dial;             // the state of the simulated dial at the end of the script so far
};

// Never destroyed: events may arrive after main returns.
Registry& registry = *new Registry;

RecordedController::RecordedController(HWND window) : window_(window) {
    const std::lock_guard guard(registry.mutex);
    registry.controllers.push_back(this);
    auto& windows = registry.windows;
    const auto found = std::find(windows.begin(), windows.end(), window);
    name_ = "@" + std::to_string(found - windows.begin() + 1);
    if (found == windows.end()) {
        windows.push_back(window);
    }
}

RecordedController::~RecordedController() {
    const std::lock_guard guard(registry.mutex);
    std::erase(registry.controllers, this);
}

// A command moves the dial for all controllers of its window, so only one of them is recorded: the newest,
// which has the menu of a program that has replaced its listener.
bool RecordedController::IsNewestOfWindow() const {
    const auto& all = registry.controllers;
    return *std::find_if(all.rbegin(), all.rend(),
                         [this](const auto* controller) { return controller->window_ == window_; }) == this;
}

// The body must not call the platform: an event may arrive inside such a call.
template <class Body>
void RecordedController::Record(Body body) {
    const std::lock_guard guard(registry.mutex);
    if (IsNewestOfWindow()) {
        body();
    }
}

void RecordedController::WriteContact(const char* command, const abi::Rect& bounds) {
    Write(Command(command, bounds.X, bounds.Y, bounds.Width, bounds.Height));
    registry.dial.contact = bounds;
}

// The platform need not announce each change with an event of its own.
void RecordedController::UpdateContact(const std::optional<abi::Rect>& contact) {
    auto& before = registry.dial.contact;
    if (Same(before, contact)) {
        return;
    }
    if (contact) {
        WriteContact(before ? "move" : "touch", *contact);
    } else {
        Write("lift");
        before.reset();
    }
}

void RecordedController::UpdateButton(std::optional<bool> pressed) {
    if (pressed && *pressed != registry.dial.button_down) {
        Write(*pressed ? "hold" : "release");
        registry.dial.button_down = *pressed;
    }
}

// A script can choose each item, and not none.
void RecordedController::UpdateItem(const std::optional<Item>& item) {
    if (item != item_) {
        Write(item ? Command("choose", item->index) : "# no item of the program is selected");
        item_ = item;
    }
}

void RecordedController::OnRotation(PlatformController* sender,
                                    abi::IRadialControllerRotationChangedEventArgs* args) {
    double degrees = 0;
    args->get_RotationDeltaInDegrees(&degrees);
    Record([&, item = SelectedItem(sender), contact = ContactOf(args), button = ButtonOf(args)] {
        UpdateItem(item);
        UpdateContact(contact);
        UpdateButton(button);
        Write(Command("turn", degrees));
    });
}

void RecordedController::OnClick(PlatformController* sender,
                                 abi::IRadialControllerButtonClickedEventArgs* args) {
    Record([&, item = SelectedItem(sender), contact = ContactOf(args)] {
        UpdateItem(item);
        UpdateContact(contact);
        Write("click");
    });
}

void RecordedController::OnContactStarted(abi::IRadialControllerScreenContactStartedEventArgs* args) {
    if (const auto contact = ContactOf(args)) {
        Record([&] { WriteContact("touch", *contact); });
    }
}

void RecordedController::OnContactContinued(abi::IRadialControllerScreenContactContinuedEventArgs* args) {
    if (const auto contact = ContactOf(args)) {
        Record([&] { WriteContact("move", *contact); });
    }
}

void RecordedController::OnContactEnded() {
    Record([&] {
        Write("lift");
        registry.dial.contact.reset();
    });
}

void RecordedController::OnControlAcquired(abi::IRadialControllerControlAcquiredEventArgs* args) {
    Record([&, contact = ContactOf(args)] {
        UpdateContact(contact);
        Write("acquire");
    });
}

void RecordedController::OnControlLost() {
    Record([&] { Write("lose"); });
}

// The platform calls handlers in the order of their subscription, and the program has subscribed before the
// first event: these handlers run when its own have ended.
void SubscribeToEnds(PlatformController& controller) {
    const auto end = [](auto*, auto*) { EndCommand(); };
    Add(controller, &PlatformController::add_RotationChanged, end);
    Add(controller, &PlatformController::add_ButtonClicked, end);
    Add(controller, &PlatformController::add_ScreenContactStarted, end);
    Add(controller, &PlatformController::add_ScreenContactContinued, end);
    Add(controller, &PlatformController::add_ScreenContactEnded, end);
    Add(controller, &PlatformController::add_ControlAcquired, end);
    Add(controller, &PlatformController::add_ControlLost, end);
}

}  // namespace

void RecordEventsOf(PlatformController& controller, HWND window) {
    const auto recorded = std::make_shared<RecordedController>(window);
    const auto on = [&](auto add, auto action) {
        Add(controller, add, [=](PlatformController* sender, auto* args) {
            if (recorded->IsFirstEvent()) {
                SubscribeToEnds(*sender);
            }
            action(*recorded, sender, args);
        });
    };
    using Recorded = RecordedController;
    on(&PlatformController::add_RotationChanged,
       [](Recorded& self, auto* sender, auto* args) { self.OnRotation(sender, args); });
    on(&PlatformController::add_ButtonClicked,
       [](Recorded& self, auto* sender, auto* args) { self.OnClick(sender, args); });
    on(&PlatformController::add_ScreenContactStarted,
       [](Recorded& self, auto*, auto* args) { self.OnContactStarted(args); });
    on(&PlatformController::add_ScreenContactContinued,
       [](Recorded& self, auto*, auto* args) { self.OnContactContinued(args); });
    on(&PlatformController::add_ScreenContactEnded,
       [](Recorded& self, auto*, auto*) { self.OnContactEnded(); });
    on(&PlatformController::add_ControlAcquired,
       [](Recorded& self, auto*, auto* args) { self.OnControlAcquired(args); });
    on(&PlatformController::add_ControlLost, [](Recorded& self, auto*, auto*) { self.OnControlLost(); });
}

}  // namespace dialsim
