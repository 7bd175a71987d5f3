#include "actual.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string_view>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "simulator/dialsim.h"
#include "support/dialsim_text.h"

namespace model {

namespace {

#ifdef _WIN32
int DuplicateDescriptor(int descriptor) { return _dup(descriptor); }
void ReplaceDescriptor(int by, int descriptor) { _dup2(by, descriptor); }
void CloseDescriptor(int descriptor) { _close(descriptor); }
int DescriptorOf(std::FILE* file) { return _fileno(file); }
#else
int DuplicateDescriptor(int descriptor) { return dup(descriptor); }
void ReplaceDescriptor(int by, int descriptor) { dup2(by, descriptor); }
void CloseDescriptor(int descriptor) { close(descriptor); }
int DescriptorOf(std::FILE* file) { return fileno(file); }
#endif

constexpr int kStandardOutput = 1;

// The name of the file with the captured output.
constexpr char kOutput[] = "output";

// The contract does not define the position of the excluded calls.
bool IsPredictable(std::string_view line) {
    return !line.starts_with("WindowsDeleteString(") && !line.starts_with("WindowsGetString");
}

}  // namespace

CapturedOutput::CapturedOutput(const TemporaryFolder& folder)
    : folder_(folder),
      standard_output_(DuplicateDescriptor(kStandardOutput)),
      file_(folder_.Open(kOutput, "w")) {
    if (file_ == nullptr) {
        std::abort();
    }
    std::fflush(stdout);
    ReplaceDescriptor(DescriptorOf(file_), kStandardOutput);
}

CapturedOutput::~CapturedOutput() {
    std::fflush(stdout);
    ReplaceDescriptor(standard_output_, kStandardOutput);
    CloseDescriptor(standard_output_);
    std::fclose(file_);
    folder_.Remove(kOutput);
}

std::string CapturedOutput::Take() {
    std::fflush(stdout);
    std::FILE* reader = folder_.Open(kOutput, "rb");
    if (reader == nullptr) {
        std::abort();
    }
    std::fseek(reader, taken_, SEEK_SET);
    std::string text;
    for (int c = std::fgetc(reader); c != EOF; c = std::fgetc(reader)) {
        ++taken_;
        text += c == '\r' ? "" : std::string(1, static_cast<char>(c));
    }
    std::fclose(reader);
    return text;
}

// Records its callbacks. Never destroyed: displaced listeners keep plain pointers to their hosts.
class Actual::Host final : public IDialHost {
public:
    Host(Actual& player, int number, const Operation& operation)
        : player_(player), number_(number), windows_{operation.window} {
        windows_.insert(windows_.end(), operation.later_windows.begin(), operation.later_windows.end());
    }

    void OnRotation(void* sender, const DialRotationInfo* info) override {
        player_.WriteTurn(number_, sender, *info);
        player_.AtCallback();
        if (player_.current().haptic_request) {
            request_ = *player_.current().haptic_request;
            info->hapticRequest = &request_;
        }
    }
    std::uint64_t GetWindowHandle() override {
        const std::uint64_t window = windows_[std::min(window_queries_++, windows_.size() - 1)];
        player_.Write("host " + std::to_string(number_) + " asked for its window");
        player_.AtCallback();
        return window;
    }
    void OnButtonClicked(void* sender, const DialContactRect* rect) override {
        player_.WriteClick(number_, sender, *rect);
        player_.AtCallback();
    }

private:
    Actual& player_;
    const int number_;
    std::vector<std::uint64_t> windows_;
    std::size_t window_queries_ = 0;
    std::uint32_t request_ = 0;
};

Actual::Actual(const Files& files, CallCounts& counts, std::vector<std::uint64_t> windows, bool uses_stores,
               bool with_virtual_clock)
    : Player(std::move(windows), uses_stores, with_virtual_clock),
      files_(files),
      counts_(counts),
      output_(stores_) {
    dialsim_reset();
    module_ = AddResources();
    dialsim_async(DIALSIM_AT_ONCE);
    dialsim_skip_sleeps(true);
    dialsim_set_packaged(false);
    for (std::uint32_t i = 0; dialsim_operation(i) != nullptr; ++i) {
        operations_[dialsim_operation(i)] = i;
    }
    dialsim_on_call([](void* player, const char* call) { static_cast<Actual*>(player)->OnCall(call); }, this);
}

Actual::~Actual() { dialsim_reset(); }

void Actual::OnCall(const char* call) {
    const std::string_view line = call;
    const auto operation = operations_.find(line.substr(0, line.find('(')));
    if (operation != operations_.end()) {
        ++counts_.counts[operation->second];
    }
    if (IsPredictable(line)) {
        AtCall(call);
    }
}

void Actual::SetFault(const Fault& fault) {
    const std::string call = files_.WithPath(fault.call);
    const bool set = fault.kind == Fault::Kind::Fail
                         ? dialsim_fail(call.c_str(), fault.code, fault.from, fault.times)
                     : fault.kind == Fault::Kind::FailLate
                         ? dialsim_fail_late(call.c_str(), fault.code, fault.from, fault.times)
                         : dialsim_yield_null(call.c_str(), fault.from, fault.times);
    if (!set) {
        Write("no fault for " + call);
    }
}

void Actual::Uninit() { uninit(); }

// --- recording of results

std::size_t Actual::ObjectsOf(const char* class_name) { return dialsim_objects(class_name); }

std::string Actual::TakePrinted() { return output_.Take(); }

std::string Actual::TakeJournal() {
    std::string predictable;
    const std::string journal = Journal();
    dialsim_clear_journal();
    for (std::size_t begin = 0; begin < journal.size();) {
        const std::size_t end = journal.find('\n', begin) + 1;
        const std::string_view line = std::string_view(journal).substr(begin, end - begin);
        if (IsPredictable(line)) {
            predictable += line;
        }
        begin = end;
    }
    return predictable;
}

std::string Actual::ShowMenu(std::uint64_t window) {
    std::string text(dialsim_menu(window, nullptr, 0), '\0');
    dialsim_menu(window, text.data(), text.size());
    text.pop_back();  // the terminator
    return text;
}

std::string Actual::ShowStore(const char* name) { return StoreText(name); }
std::string Actual::Outstanding() { return LeakReport(); }

// --- the host's calls

void Actual::CallExport(const Operation& operation) {
    try {
        switch (operation.act) {
            case Act::Initialize: {
                const std::int32_t answer = initialize();
                WriteCode(answer);
                StopIf(answer == 1);
                break;
            }
            case Act::SetText:
            case Act::GetText:
            case Act::SetNumber:
            case Act::GetNumber:
                CallStorage(operation);
                break;
            default:
                WriteAnswer(CallWindowExport(operation));
        }
    } catch (const std::exception& error) {
        Write(std::string("raised ") + error.what());
    }
}

void Actual::CallStorage(const Operation& operation) {
    const BrindleChar* resource = operation.resource.c_str();
    const BrindleChar* key = operation.key.c_str();
    switch (operation.act) {
        case Act::SetText:
            WriteCode(set_string_in_storage(resource, key, operation.value.c_str()));
            break;
        case Act::GetText: {
            BrindleChar* text = get_string_from_storage(resource, key);
            Write(text != nullptr ? "text " + Utf8(text) : "no text");
            std::free(text);
            break;
        }
        case Act::SetNumber:
            WriteCode(set_int_in_storage(resource, key, operation.code));
            break;
        default:
            WriteCode(get_int_from_storage(resource, key));
    }
}

bool Actual::CallWindowExport(const Operation& operation) {
    switch (operation.act) {
        case Act::Listen: {
            static std::vector<std::unique_ptr<Host>>& hosts = *new std::vector<std::unique_ptr<Host>>;
            if (operation.null_list) {
                return init_dial_listener(nullptr);
            }
            hosts.push_back(std::make_unique<Host>(*this, hosts_made_++, operation));
            return init_dial_listener(hosts.back().get());
        }
        case Act::AddMenu:
            return FillMenu(operation);
        case Act::DefaultMenu: {
            // A valid empty list.
            const std::int32_t none = 0;
            const auto count =
                static_cast<std::uint32_t>(operation.null_list ? operation.number : operation.kinds.size());
            return set_default_menu(operation.window,
                                    operation.null_list       ? nullptr
                                    : operation.kinds.empty() ? &none
                                                              : operation.kinds.data(),
                                    count);
        }
        case Act::Select:
            return set_current_custom_menu(operation.window, static_cast<std::uint32_t>(operation.number));
        default:
            return is_dial_present(operation.window);
    }
}

bool Actual::FillMenu(const Operation& operation) {
    if (operation.null_list) {
        return add_custom_menu(operation.window, nullptr, static_cast<std::uint32_t>(operation.number));
    }
    std::vector<WideText> paths;
    for (const Item& item : operation.items) {
        paths.push_back(files_.PathOf(item.file));
    }
    std::vector<MenuItemDescription> descriptions;
    for (std::uint32_t round = 0; round < operation.times; ++round) {
        for (std::size_t i = 0; i < operation.items.size(); ++i) {
            const Item& item = operation.items[i];
            MenuItemDescription& description = descriptions.emplace_back();
            description.kind = static_cast<MenuItemKind>(item.kind);
            description.display_text = item.label.c_str();
            description.item_id = item.id;
            description.haptic_feedback = item.haptics;
            description.source.number = item.number;
            if (item.kind == 0) {
                description.source.text = paths[i].c_str();
            } else if (item.kind == 1) {
                description.source.number = module_;
                description.source2.number = item.number;
            } else if (item.kind == 3 || item.kind == 4) {
                description.source.text = item.glyph.c_str();
                description.source2.text = item.family.c_str();
                description.source3.text = paths[i].c_str();
            }
        }
    }
    return add_custom_menu(operation.window, descriptions.data(),
                           static_cast<std::uint32_t>(descriptions.size()));
}

// --- events

void Actual::WriteOutcome(Code code) {
    WriteCode(code);
    if (code == DIALSIM_RAISED) {
        Write("raised " + Raised());
    }
}

void Actual::RaiseEvent(const Operation& operation) {
    const std::uint64_t window = operation.window;
    const auto number = static_cast<std::uint32_t>(operation.number);
    switch (operation.act) {
        case Act::Turn:
            return WriteOutcome(dialsim_turn(window, operation.degrees));
        case Act::Click:
            return WriteOutcome(dialsim_click(window));
        case Act::Touch:
            return WriteOutcome(
                dialsim_touch(window, operation.x, operation.y, operation.width, operation.height));
        case Act::Move:
            return WriteOutcome(
                dialsim_move(window, operation.x, operation.y, operation.width, operation.height));
        case Act::Lift:
            return WriteOutcome(dialsim_lift(window));
        case Act::Acquire:
            return WriteOutcome(dialsim_acquire(window));
        case Act::Lose:
            return WriteOutcome(dialsim_lose(window));
        case Act::Choose:
            return WriteOutcome(dialsim_choose(window, number));
        case Act::Complete:
            return WriteOutcome(dialsim_complete(number));
        case Act::CompleteAs:
            return WriteOutcome(dialsim_complete_as(number, operation.code));
        default:
            return WriteOutcome(dialsim_complete_all());
    }
}

// --- changes of the platform

void Actual::ChangePlatform(const Operation& operation) {
    const auto number = static_cast<std::uint32_t>(operation.number);
    switch (operation.act) {
        case Act::Hold:
            return dialsim_hold(operation.flag);
        case Act::Haptics: {
            std::vector<std::uint16_t> waveforms;
            for (std::uint32_t round = 0; round < operation.times; ++round) {
                for (const std::int32_t waveform : operation.kinds) {
                    waveforms.push_back(static_cast<std::uint16_t>(waveform));
                }
            }
            return dialsim_set_haptics(operation.flag, waveforms.data(),
                                       static_cast<std::uint32_t>(waveforms.size()));
        }
        case Act::Append:
            operation.text.empty() ? dialsim_append_null_item(operation.window)
                                   : dialsim_append_item(operation.window, operation.text.c_str(), number);
            return;
        case Act::Shrink:
            dialsim_shrink_menu_after(operation.window, number);
            return;
        case Act::Wait:
            if (virtual_clock()) {
                dialsim_wait(number);
            }
            return;
        case Act::SetClock:
            dialsim_set_clock(operation.number);
            return;
        case Act::Async:
            return dialsim_async(operation.flag ? DIALSIM_HELD : DIALSIM_AT_ONCE);
        case Act::AddDevice:
            return AddDevices(operation);
        case Act::RemoveDevices:
            return dialsim_remove_devices();
        case Act::FailDevices:
            return dialsim_fail_devices(operation.code);
        case Act::Packaged:
            return dialsim_set_packaged(operation.flag);
        case Act::PutSetting:
            dialsim_put_setting(operation.number != 0 ? "local" : "roaming", operation.text.c_str(),
                                operation.text2.c_str(), operation.text3.c_str());
            return;
        case Act::PutCredential:
            dialsim_put_credential(operation.text.c_str(), operation.text2.c_str(), operation.text3.c_str());
            return;
        default:
            dialsim_set_type_present("Windows.UI.Input.EdgeGesture", false);
    }
}

void Actual::AddDevices(const Operation& operation) {
    for (std::uint32_t i = 0; i < operation.times; ++i) {
        dialsim_add_device(operation.null_list ? nullptr : operation.text.c_str(),
                           operation.text2.empty() ? nullptr : operation.text2.c_str(), operation.flag);
    }
}

}  // namespace model
