#include "sequence.h"

namespace model {

namespace {

Operation At(Act act, std::uint64_t window = 0, std::uint64_t number = 0) {
    Operation operation;
    operation.act = act;
    operation.window = window;
    operation.number = number;
    return operation;
}

Operation Placed(Act act, std::uint64_t window, float x, float y, float width, float height) {
    Operation operation = At(act, window);
    operation.x = x;
    operation.y = y;
    operation.width = width;
    operation.height = height;
    return operation;
}

Operation SettingOf(Act act, WideText resource, WideText key) {
    Operation operation = At(act);
    operation.resource = std::move(resource);
    operation.key = std::move(key);
    return operation;
}

Operation DeviceOf(std::string id, std::string device_class, bool enabled) {
    Operation operation = At(Act::AddDevice);
    operation.text = std::move(id);
    operation.text2 = std::move(device_class);
    operation.flag = enabled;
    return operation;
}

Item Described(std::int32_t kind, std::uint32_t id, WideText label, std::uint8_t haptics) {
    Item item;
    item.kind = kind;
    item.id = id;
    item.label = std::move(label);
    item.haptics = haptics;
    return item;
}

template <class T>
void Add(std::vector<T>& list, std::vector<T> more) {
    list.insert(list.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

Fault FaultOf(Fault::Kind kind, std::string call, std::uint32_t code, std::uint32_t from,
              std::uint32_t times) {
    return {kind, std::move(call), static_cast<Code>(code), from, times};
}

}  // namespace

Operation Operation::Failing(std::vector<Fault> more) && {
    Add(faults, std::move(more));
    return std::move(*this);
}
Operation Operation::With(std::vector<Inside> more) && {
    Add(inside, std::move(more));
    return std::move(*this);
}
Operation Operation::Reacting(std::vector<Operation> more) && {
    Add(reactions, std::move(more));
    return std::move(*this);
}
Operation Operation::Requesting(std::uint32_t request) && {
    haptic_request = request;
    return std::move(*this);
}

Fault Fails(std::string call, std::uint32_t code, std::uint32_t from, std::uint32_t times) {
    return FaultOf(Fault::Kind::Fail, std::move(call), code, from, times);
}
Fault FailsLate(std::string call, std::uint32_t code, std::uint32_t from, std::uint32_t times) {
    return FaultOf(Fault::Kind::FailLate, std::move(call), code, from, times);
}
Fault YieldsNull(std::string call, std::uint32_t from, std::uint32_t times) {
    return FaultOf(Fault::Kind::YieldNull, std::move(call), 0, from, times);
}

Item Icon(std::uint32_t id, std::uint64_t icon, WideText label, std::uint8_t haptics) {
    Item item = Described(2, id, std::move(label), haptics);
    item.number = icon;
    return item;
}
Item Glyph(std::uint32_t id, WideText glyph, WideText family, WideText label, std::uint8_t haptics) {
    Item item = Described(3, id, std::move(label), haptics);
    item.glyph = std::move(glyph);
    item.family = std::move(family);
    return item;
}
Item FontGlyph(std::uint32_t id, File file, WideText glyph, WideText family, WideText label,
               std::uint8_t haptics) {
    Item item = Glyph(id, std::move(glyph), std::move(family), std::move(label), haptics);
    item.kind = 4;
    item.file = file;
    return item;
}
Item PictureFile(std::uint32_t id, File file, WideText label, std::uint8_t haptics) {
    Item item = Described(0, id, std::move(label), haptics);
    item.file = file;
    return item;
}
Item PictureResource(std::uint32_t id, std::uint64_t resource, WideText label, std::uint8_t haptics) {
    Item item = Described(1, id, std::move(label), haptics);
    item.number = resource;
    return item;
}
Item UnknownItem(std::int32_t kind, WideText label) { return Described(kind, 0, std::move(label), 0); }

Operation Initialize() { return At(Act::Initialize); }
Operation Listen(std::uint64_t window, std::vector<std::uint64_t> later_windows) {
    Operation operation = At(Act::Listen, window);
    operation.later_windows = std::move(later_windows);
    return operation;
}
Operation ListenWithoutHost() {
    Operation operation = At(Act::Listen);
    operation.null_list = true;
    return operation;
}
Operation AddMenu(std::uint64_t window, std::vector<Item> items, std::uint32_t times) {
    Operation operation = At(Act::AddMenu, window);
    operation.items = std::move(items);
    operation.times = times;
    return operation;
}
Operation AddNullMenu(std::uint64_t window, std::uint64_t count) {
    Operation operation = At(Act::AddMenu, window, count);
    operation.null_list = true;
    return operation;
}
Operation DefaultMenu(std::uint64_t window, std::vector<std::int32_t> kinds) {
    Operation operation = At(Act::DefaultMenu, window);
    operation.kinds = std::move(kinds);
    return operation;
}
Operation NullDefaultMenu(std::uint64_t window, std::uint64_t count) {
    Operation operation = At(Act::DefaultMenu, window, count);
    operation.null_list = true;
    return operation;
}
Operation Select(std::uint64_t window, std::uint64_t id) { return At(Act::Select, window, id); }
Operation Present(std::uint64_t window) { return At(Act::Present, window); }
Operation SetText(WideText resource, WideText key, WideText value) {
    Operation operation = SettingOf(Act::SetText, std::move(resource), std::move(key));
    operation.value = std::move(value);
    return operation;
}
Operation GetText(WideText resource, WideText key) {
    return SettingOf(Act::GetText, std::move(resource), std::move(key));
}
Operation SetNumber(WideText resource, WideText key, Code value) {
    Operation operation = SettingOf(Act::SetNumber, std::move(resource), std::move(key));
    operation.code = value;
    return operation;
}
Operation GetNumber(WideText resource, WideText key) {
    return SettingOf(Act::GetNumber, std::move(resource), std::move(key));
}
Operation Turn(std::uint64_t window, double degrees) {
    Operation operation = At(Act::Turn, window);
    operation.degrees = degrees;
    return operation;
}
Operation Click(std::uint64_t window) { return At(Act::Click, window); }
Operation Touch(std::uint64_t window, float x, float y, float width, float height) {
    return Placed(Act::Touch, window, x, y, width, height);
}
Operation Move(std::uint64_t window, float x, float y, float width, float height) {
    return Placed(Act::Move, window, x, y, width, height);
}
Operation Lift(std::uint64_t window) { return At(Act::Lift, window); }
Operation Acquire(std::uint64_t window) { return At(Act::Acquire, window); }
Operation Lose(std::uint64_t window) { return At(Act::Lose, window); }
Operation Choose(std::uint64_t window, std::uint64_t place) { return At(Act::Choose, window, place); }
Operation Complete(std::uint64_t index) { return At(Act::Complete, 0, index); }
Operation CompleteAs(std::uint64_t index, Code status) {
    Operation operation = At(Act::CompleteAs, 0, index);
    operation.code = status;
    return operation;
}
Operation CompleteAll() { return At(Act::CompleteAll); }
Operation Hold(bool down) {
    Operation operation = At(Act::Hold);
    operation.flag = down;
    return operation;
}
Operation Haptics(bool present, std::vector<std::int32_t> waveforms, std::uint32_t times) {
    Operation operation = At(Act::Haptics);
    operation.flag = present;
    operation.kinds = std::move(waveforms);
    operation.times = times;
    return operation;
}
Operation Append(std::uint64_t window, std::string tag_kind, std::uint64_t value) {
    Operation operation = At(Act::Append, window, value);
    operation.text = std::move(tag_kind);
    return operation;
}
Operation Shrink(std::uint64_t window, std::uint64_t calls) { return At(Act::Shrink, window, calls); }
Operation Wait(std::uint64_t milliseconds) { return At(Act::Wait, 0, milliseconds); }
Operation SetClock(std::uint64_t milliseconds) { return At(Act::SetClock, 0, milliseconds); }
Operation Async(bool held) {
    Operation operation = At(Act::Async);
    operation.flag = held;
    return operation;
}
Operation AddDevice(std::string id, bool enabled, std::uint32_t times) {
    Operation operation = DeviceOf(std::move(id), "", enabled);
    operation.times = times;
    return operation;
}
Operation AddOtherDevice(std::string id) {
    return DeviceOf(std::move(id), "{00000000-0000-0000-0000-000000000000}", true);
}
Operation AddNullDevice() {
    Operation operation = DeviceOf("", "", true);
    operation.null_list = true;
    return operation;
}
Operation RemoveDevices() { return At(Act::RemoveDevices); }
Operation FailDevices(std::uint32_t code) {
    Operation operation = At(Act::FailDevices);
    operation.code = static_cast<Code>(code);
    return operation;
}
Operation Packaged(bool packaged) {
    Operation operation = At(Act::Packaged);
    operation.flag = packaged;
    return operation;
}
Operation PutSetting(std::string store, std::string key, std::string type, std::string value) {
    Operation operation = DeviceOf(std::move(key), std::move(type), false);
    operation.act = Act::PutSetting;
    operation.text3 = std::move(value);
    operation.number = store == "local";
    return operation;
}
Operation PutCredential(std::string resource, std::string user, std::string password) {
    Operation operation = DeviceOf(std::move(resource), std::move(user), false);
    operation.act = Act::PutCredential;
    operation.text3 = std::move(password);
    return operation;
}
Operation HideType() { return At(Act::HideType); }

WideText Repeated(BrindleChar unit, std::size_t times) { return WideText(times, unit); }

}  // namespace model
