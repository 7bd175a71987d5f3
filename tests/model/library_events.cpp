// Start and stop, registration, and the handlers of the dial's events.
#include <cmath>

#include "library_model.h"

namespace model {

namespace {

constexpr char kController[] = "Windows.UI.Input.RadialController";
constexpr char kContact[] = "IRadialControllerScreenContact";
constexpr char kRotationArgs[] = "IRadialControllerRotationChangedEventArgs";
constexpr char kRotationArgs2[] = "IRadialControllerRotationChangedEventArgs2";

struct Subscription {
    int line;
    Event event;
    const char* name;
};
constexpr Subscription kSubscriptions[] = {
    {467, kContinued, "ScreenContactContinued"},
    {471, kStarted, "ScreenContactStarted"},
    {475, kEnded, "ScreenContactEnded"},
    {479, kLost, "ControlLost"},
    {483, kAcquired, "ControlAcquired"},
    {487, kRotated, "RotationChanged"},
    {491, kClicked, "ButtonClicked"},
};

std::int32_t CutOff(float number) {
    return number > -2147483904.0F && number < 2147483648.0F ? static_cast<std::int32_t>(number) : INT32_MIN;
}

}  // namespace

// --- the step rule

Library::End Library::Guarded(int line, const Step& step) {
    if (step() >= 0) {
        return std::nullopt;
    }
    Print("", step(), line);
    return step();
}

void Library::Logged(const char* name, int line, const Step& step) {
    if (step() < 0) {
        Print(name, step(), line);
    }
}

void Library::Print(const std::string& name, Code code, int line) {
    printed_ += (name.empty() ? "" : name + " ") + "failed with " + Hex(code) + " at line " +
                std::to_string(line) + "\n";
}

void Library::Check(Code code) {
    if (code < 0) {
        throw PlatformError{code};
    }
}

void Library::Require(bool there) {
    if (!there) {
        throw PlatformError{kNoInterface};
    }
}

// --- strings, factories and interfaces

WideText Library::Reference(const WideText& text) {
    WideText made;
    Check(MakeText("WindowsCreateStringReference", text, made));
    return made;
}

WideText Library::CreateString(const WideText& text) {
    WideText made;
    Check(MakeText("WindowsCreateString", text, made));
    return made;
}

Label::Label(Platform& on, WideText of) : platform(on), text(std::move(of)) {
    platform.strings += !text.empty();
}
Label::~Label() { platform.strings -= !text.empty(); }

Ref<Label> Library::Duplicate(const WideText& text) {
    WideText copy;
    Check(MakeText("WindowsDuplicateString", text, copy));
    return std::make_shared<Label>(platform_, copy);
}

Code Library::GetFactory(const char* class_name, Ref<Object>& factory, bool null_fails) {
    factory.reset();
    std::string name;
    if (const Code code = MakeText("WindowsCreateStringReference", std::string(class_name), name); code < 0) {
        return code;
    }
    const Code code = platform_.Fetch("RoGetActivationFactory", name, factory, [&] {
        const std::string asked = class_name;
        factory = name.empty() ? nullptr
                               : platform_.Make<Object>(asked == kController ? "IRadialControllerInterop"
                                                        : asked.ends_with("RadialControllerMenuItem")
                                                            ? "IRadialControllerMenuItemStatics"
                                                        : asked.ends_with("DeviceInformation")
                                                            ? "IDeviceInformationStatics"
                                                            : "another factory");
        return name.empty() ? kUnnamedClass : 0;
    });
    return code >= 0 && !factory && null_fails ? kNoInterface : code;
}

Ref<Object> Library::Factory(const char* class_name) {
    Ref<Object> factory;
    Check(GetFactory(class_name, factory));
    return factory;
}

void Library::View(const char* interface_name) {
    bool there = false;
    Check(platform_.Fetch("QueryInterface", interface_name, there, [&] {
        there = true;
        return 0;
    }));
    Require(there);
}

// --- start, registration and stop

int Library::Initialize() {
    if (platform_.Call("RoInitialize", "0", [this] { return process_.initializations++ == 0 ? 0 : 1; }) < 0) {
        return 1;
    }
    Ref<Object> factory;
    if (GetFactory("Windows.Foundation.Metadata.ApiInformation", factory) < 0) {
        return 1;
    }
    std::string type;
    MakeText("WindowsCreateStringReference", std::string("Windows.UI.Input.EdgeGesture"), type);
    bool present = false;
    platform_.Read(
        "IApiInformationStatics::IsTypePresent", present,
        [&] {
            present = platform_.type_present;
            return 0;
        },
        type);
    return present ? 0 : 2;
}

void Library::Uninit() {
    for (const auto& entry : registry_) {
        std::erase_if(listeners_, [&](const Listener& one) { return &one == entry.second; });
    }
    registry_.clear();
    platform_.Call("RoUninitialize", "", [this] {
        --process_.initializations;
        return 0;
    });
}

bool Library::InitDialListener(int host) {
    Listener& listener = listeners_.emplace_back();
    listener.host = host;
    const Code code = Register(listener, hosts_.QueryWindow(host));
    if (code < 0) {
        Print("register", code, 110);
        std::erase_if(listeners_, [&](const Listener& one) { return &one == &listener; });
        return false;
    }
    registry_[hosts_.QueryWindow(host)] = &listener;
    return true;
}

Code Library::Register(Listener& listener, std::uint64_t window) {
    if (const End end = Guarded(458, [&] { return GetFactory(kController, listener.factory); })) {
        return *end;
    }
    if (const End end = Guarded(460, [&] {
            return platform_.Fetch("IRadialControllerInterop::CreateForWindow", std::to_string(window),
                                   listener.controller, [&] {
                                       listener.controller = platform_.MakeController(window);
                                       return 0;
                                   });
        })) {
        return *end;
    }
    if (!listener.controller) {
        return kNoInterface;
    }
    for (const Subscription& subscription : kSubscriptions) {
        if (const End end = Guarded(subscription.line, [&] {
                return platform_.Call(std::string("IRadialController::add_") + subscription.name, "", [&] {
                    listener.controller->handlers[subscription.event].push_back(&listener);
                    return 0;
                });
            })) {
            return *end;
        }
    }
    return 0;
}

Listener* Library::Find(std::uint64_t window) {
    const auto found = registry_.find(window);
    return found == registry_.end() ? nullptr : found->second;
}

// --- turns

double Library::NextAcceleration(double degrees) {
    const auto now = [this] {
        std::uint64_t ticks = 0;
        platform_.Call("GetTickCount64", "", [&] {
            ticks = platform_.clock;
            return 0;
        });
        return ticks;
    };
    if (!process_.clock_started) {
        const std::uint64_t start = now();
        if (!process_.clock_started) {  // an event inside the call may have started it
            process_.clock_started = true;
            process_.last_tick = start;
        }
    }
    const std::uint64_t tick = now();
    const auto elapsed = static_cast<std::uint32_t>(tick) - static_cast<std::uint32_t>(process_.last_tick);
    process_.sum = (elapsed <= 100 ? process_.sum : 0.0) + degrees;
    if (elapsed >= 50) {
        const double beyond = std::fabs(process_.sum) - 10.0;
        process_.acceleration = std::sqrt(beyond > 0.0 ? beyond : 0.0) / 2.07 + 1.0;
        process_.last_tick = tick;
    }
    return process_.acceleration;
}

// Reads a tag's number, unchanged where the read fails. Returns false where the tag is no value.
bool Library::ReadNumber(const Ref<Tag>& tag, std::uint32_t& number) {
    if (!tag || tag->kind == Tag::Kind::NoValue) {
        return false;
    }
    try {
        View("IPropertyValue");
    } catch (const PlatformError&) {
        return false;
    }
    platform_.Read("IPropertyValue::GetUInt32", number, [&] {
        if (tag->kind != Tag::Kind::Number) {
            return kTypeMismatch;
        }
        number = tag->number;
        return 0;
    });
    return true;
}

Library::End Library::ReadSelectedTag(const Ref<Menu>& menu, std::uint32_t& tag) {
    Ref<MenuItem> selected;
    if (const End end = Guarded(847, [&] {
            return platform_.Fetch("IRadialControllerMenu::GetSelectedMenuItem", "", selected, [&] {
                selected = menu->Contains(menu->selected) ? menu->selected : nullptr;
                return 0;
            });
        })) {
        return end;
    }
    Ref<Tag> object;
    const bool read = selected && Get("IRadialControllerMenuItem::get_Tag", object, selected->tag) >= 0;
    if (read) {
        ReadNumber(object, tag);
    }
    return std::nullopt;
}

DialContactRect Library::ReadContact(const Ref<Contact>& on_screen) {
    Ref<Contact> contact;
    const Code code = Get(std::string(kRotationArgs) + "::get_Contact", contact, on_screen);
    if (code < 0 || !contact) {
        return {};
    }
    platform_.Call(std::string(kContact) + "::get_Position", "");
    Bounds bounds;
    if (ReadValue(std::string(kContact) + "::get_Bounds", bounds, contact->bounds) < 0) {
        return {};
    }
    return {CutOff(bounds.x), CutOff(bounds.y), CutOff(bounds.x + bounds.width),
            CutOff(bounds.y + bounds.height)};
}

Code Library::OnRotation(Listener& listener, const Controller& sender, const Rotation& rotation) {
    std::uint32_t tag = 0;
    if (const Ref<Menu> menu = listener.menu) {
        if (const End end = ReadSelectedTag(menu, tag)) {
            return *end;
        }
    }
    const DialContactRect contact = ReadContact(rotation.contact);
    View(kRotationArgs);
    double degrees = 0.0;
    ReadValue(std::string(kRotationArgs) + "::get_RotationDeltaInDegrees", degrees, rotation.degrees);
    View(kRotationArgs2);
    bool pressed = false;
    Check(
        ReadValue(std::string(kRotationArgs2) + "::get_IsButtonPressed", pressed, rotation.dial.button_down));
    const DialRotationInfo info{contact, pressed, degrees, NextAcceleration(degrees), tag, nullptr};
    const auto request = hosts_.OnRotation(listener.host, sender, info);
    if (request == 1U || request == 2U) {
        PlayHaptics(rotation.dial);
    }
    return 0;
}

void Library::PlayHaptics(const DialState& dial) {
    View(kRotationArgs2);
    bool there = false;
    Check(Get(std::string(kRotationArgs2) + "::get_SimpleHapticsController", there, dial.has_haptics));
    if (!there) {
        return;
    }
    Check(Get("ISimpleHapticsController::get_SupportedFeedback", there, true));
    if (!there) {
        return;
    }
    std::size_t size = 0;
    Check(platform_.Read("IVectorView<SimpleHapticsControllerFeedback>::get_Size", size, [&] {
        size = dial.waveforms.size();
        return 0;
    }));
    if (size == 0) {
        return;
    }
    Ref<std::int32_t> waveform;
    Check(platform_.Fetch("IVectorView<SimpleHapticsControllerFeedback>::GetAt", "0", waveform, [&] {
        waveform = std::make_shared<std::int32_t>(dial.waveforms.front());
        return 0;
    }));
    const std::string played = waveform ? std::to_string(*waveform) : "null";
    Check(platform_.Call("ISimpleHapticsController::SendHapticFeedbackForPlayCount",
                         played + ", 1, 3, 2000000", [&] { return waveform ? 0 : kInvalidArgument; }));
}

// --- clicks and contacts

Code Library::OnClick(Listener& listener, const Controller& sender, const Ref<Contact>& on_screen) {
    static std::vector<Ref<Contact>>& never_released = *new std::vector<Ref<Contact>>;
    Ref<Contact> contact;
    if (const End end = Guarded(1038, [&] {
            return platform_.Fetch("IRadialControllerButtonClickedEventArgs::get_Contact", "", contact, [&] {
                contact = on_screen;
                if (contact) {
                    never_released.push_back(contact);
                }
                return 0;
            });
        })) {
        return *end;
    }
    DialContactRect rect{};
    if (contact) {
        Bounds bounds;
        ReadValue(std::string(kContact) + "::get_Bounds", bounds, contact->bounds);
        rect.left = CutOff(bounds.x);
        rect.top = CutOff(bounds.y);
        rect.right = CutOff(static_cast<float>(rect.left) + bounds.width);
        rect.bottom = CutOff(static_cast<float>(rect.top) + bounds.height);
    }
    hosts_.OnClick(listener.host, sender, rect);
    return 0;
}

Code Library::OnContact(Event event, const Ref<Contact>& contact) {
    int line = 0;
    const char* args = nullptr;
    switch (event) {
        case kContinued:
            line = 803;
            args = "IRadialControllerScreenContactContinuedEventArgs";
            break;
        case kStarted:
            line = 810;
            args = "IRadialControllerScreenContactStartedEventArgs";
            break;
        case kAcquired:
            line = 835;
            args = "IRadialControllerControlAcquiredEventArgs";
            break;
        default:
            return 0;
    }
    return Guarded(line, [&] { return LogContact(args, contact); }).value_or(0);
}

Code Library::LogContact(const char* args, const Ref<Contact>& on_screen) {
    Ref<Contact> contact;
    if (const End end =
            Guarded(1065, [&] { return Get(std::string(args) + "::get_Contact", contact, on_screen); })) {
        return *end;
    }
    if (!contact) {
        return 0;
    }
    if (const End end =
            Guarded(1072, [&] { return platform_.Call(std::string(kContact) + "::get_Position", ""); })) {
        return *end;
    }
    return Guarded(1073, [&] { return platform_.Call(std::string(kContact) + "::get_Bounds", ""); })
        .value_or(0);
}

// --- invocations

Code Library::OnInvoked(Listener& listener, const MenuItem& item) {
    std::uint32_t id = 0;
    Ref<Tag> tag;
    if (Get("IRadialControllerMenuItem::get_Tag", tag, item.tag) >= 0) {
        ReadNumber(tag, id);
    }
    tag.reset();
    for (const Entry& entry : listener.entries) {
        if (entry.id == id) {
            const bool haptics = entry.haptics;
            platform_.Call("IRadialController::put_UseAutomaticHapticFeedback", std::to_string(haptics), [&] {
                listener.controller->automatic_haptics = haptics;
                return 0;
            });
            break;
        }
    }
    platform_.Call("IRadialControllerMenuItem::get_DisplayText", "");
    return 0;
}

}  // namespace model
