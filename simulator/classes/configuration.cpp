#include "simulator/classes/configuration.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <mutex>

#include "platform/interfaces/ui_input.h"
#include "simulator/classes/factories.h"
#include "simulator/system/reset.h"
#include "sync.h"

namespace dialsim {

namespace {

using Kind = abi::RadialControllerSystemMenuItemKind;
using Kinds = std::vector<std::int32_t>;
using Sequence = abi::IIterable<Kind>;
using Iterator = abi::IIterator<Kind>;

constexpr const char* kNames[] = {"Scroll", "Zoom", "UndoRedo", "Volume", "NextPreviousTrack"};
constexpr HRESULT kUnexpected = static_cast<HRESULT>(0x8000FFFF);  // E_UNEXPECTED

const Kinds kAll = {0, 1, 2, 3, 4};

bool IsSystemItemKind(std::int32_t kind) { return std::find(kAll.begin(), kAll.end(), kind) != kAll.end(); }

std::uint64_t Number(HWND window) { return reinterpret_cast<std::uintptr_t>(window); }

class Configuration;

// A window has one configuration object while references to it exist. Its settings outlive the object.
struct Configurations {
    Mutex mutex;
    std::map<std::uint64_t, Kinds> kinds;
    std::map<std::uint64_t, Configuration*> objects;
    bool retain_sequences = false;
    Ref<Sequence> retained_sequence;
    Ref<Iterator> retained_iterator;
};

Configurations& TheConfigurations() {
    static Configurations& configurations = *new Configurations;
    return configurations;
}

// Releases the sequence after the lock: its destructor may be code of the library.
const ResetAction reset_configurations(ResetPhase::State, [] {
    Ref<Sequence> sequence;
    Ref<Iterator> iterator;
    const std::lock_guard guard(TheConfigurations().mutex);
    std::swap(sequence, TheConfigurations().retained_sequence);
    std::swap(iterator, TheConfigurations().retained_iterator);
    TheConfigurations().retain_sequences = false;
    TheConfigurations().kinds.clear();
    TheConfigurations().objects.clear();
});

void SetKinds(std::uint64_t window, Kinds kinds) {
    const std::lock_guard guard(TheConfigurations().mutex);
    TheConfigurations().kinds[window] = std::move(kinds);
}

// Calls code of the library through the sequence: no lock may be held.
HRESULT ReadAll(Iterator& iterator, Kinds& kinds) {
    abi::boolean more = 0;
    for (HRESULT code = iterator.get_HasCurrent(&more);; code = iterator.MoveNext(&more)) {
        if (code < 0 || more == 0) {
            return code;
        }
        Kind kind{};
        if (const HRESULT current = iterator.get_Current(&kind); current < 0) {
            return current;
        }
        kinds.push_back(static_cast<std::int32_t>(kind));
    }
}

Ref<Iterator> First(Sequence& sequence, HRESULT& code) {
    Iterator* iterator = nullptr;
    code = sequence.First(&iterator);
    if (code >= 0 && iterator == nullptr) {
        code = kUnexpected;
    }
    return Ref<Iterator>::Attach(code < 0 ? nullptr : iterator);
}

class Configuration final : public Object<abi::IRadialControllerConfiguration> {
    using Interface = abi::IRadialControllerConfiguration;

public:
    explicit Configuration(std::uint64_t window)
        : Object(abi::RadialControllerConfiguration::Name), window_(window) {}

    HRESULT SetDefaultMenuItems(Sequence* buttons) noexcept override {
        return Perform(MethodName<Interface>("SetDefaultMenuItems"), "", [&] {
            if (buttons == nullptr) {
                return E_INVALIDARG;
            }
            HRESULT code = S_OK;
            const Ref<Iterator> iterator = First(*buttons, code);
            Kinds kinds;
            if (iterator) {
                code = ReadAll(*iterator.get(), kinds);
                Retain(Ref(buttons), iterator);
            }
            if (code < 0) {
                return code;
            }
            TheJournal().Note("system items", Text(kinds));
            if (!std::all_of(kinds.begin(), kinds.end(), IsSystemItemKind)) {
                return E_INVALIDARG;
            }
            SetKinds(window_, std::move(kinds));
            return S_OK;
        });
    }
    HRESULT ResetToDefaultMenuItems() noexcept override {
        return Perform(MethodName<Interface>("ResetToDefaultMenuItems"), "", [&] {
            SetKinds(window_, kAll);
            return S_OK;
        });
    }
    HRESULT TrySelectDefaultMenuItem(Kind type, abi::boolean* result) noexcept override {
        const auto kind = static_cast<std::int32_t>(type);
        return PerformInto(MethodName<Interface>("TrySelectDefaultMenuItem"), std::to_string(kind), result,
                           [&] {
                               const Kinds kinds = SystemItems(window_);
                               *result = std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
                               return S_OK;
                           });
    }

private:
    ~Configuration() override {
        const std::lock_guard guard(TheConfigurations().mutex);
        auto& objects = TheConfigurations().objects;
        if (const auto found = objects.find(window_); found != objects.end() && found->second == this) {
            objects.erase(found);
        }
    }

    static void Retain(Ref<Sequence> sequence, Ref<Iterator> iterator) {
        const std::lock_guard guard(TheConfigurations().mutex);
        if (TheConfigurations().retain_sequences) {
            std::swap(TheConfigurations().retained_sequence, sequence);
            std::swap(TheConfigurations().retained_iterator, iterator);
        }
    }
    static std::string Text(const Kinds& kinds) {
        std::string text;
        for (const std::int32_t kind : kinds) {
            text += (text.empty() ? "" : ", ") + std::to_string(kind);
        }
        return text;
    }

    const std::uint64_t window_;
};

Ref<Configuration> ConfigurationOf(std::uint64_t window) {
    const std::lock_guard guard(TheConfigurations().mutex);
    Configuration*& known = TheConfigurations().objects[window];
    if (known != nullptr && known->TryAddRef()) {
        return Ref<Configuration>::Attach(known);
    }
    auto made = Make<Configuration>(window);
    known = made.get();
    return made;
}

class ConfigurationFactory final
    : public Object<abi::IActivationFactory, abi::IRadialControllerConfigurationInterop> {
    using Interop = abi::IRadialControllerConfigurationInterop;

public:
    ConfigurationFactory() : Object(TypeName<Interop>()) {}

    // A configuration exists for a window only.
    HRESULT ActivateInstance(abi::IInspectable** instance) noexcept override {
        return PerformInto(MethodName<abi::IActivationFactory>("ActivateInstance"), "", instance,
                           [] { return E_NOTIMPL; });
    }
    HRESULT GetForWindow(HWND window, const GUID& iid, void** result) noexcept override {
        return PerformInto(MethodName<Interop>("GetForWindow"), std::to_string(Number(window)), result, [&] {
            const JournalPause no_journal;
            return ConfigurationOf(Number(window))->QueryInterface(iid, result);
        });
    }
};

}  // namespace

Ref<abi::IInspectable> MakeConfigurationFactory() {
    return Ref<abi::IInspectable>::Attach(static_cast<abi::IActivationFactory*>(new ConfigurationFactory));
}

std::vector<std::int32_t> SystemItems(std::uint64_t window) {
    const std::lock_guard guard(TheConfigurations().mutex);
    const auto found = TheConfigurations().kinds.find(window);
    return found == TheConfigurations().kinds.end() ? kAll : found->second;
}

std::string SystemItemName(std::int32_t kind) {
    return IsSystemItemKind(kind) ? kNames[kind] : std::to_string(kind);
}

void RetainSequences(bool keep) {
    const std::lock_guard guard(TheConfigurations().mutex);
    TheConfigurations().retain_sequences = keep;
}

HRESULT UseRetainedSequence() {
    Ref<Sequence> sequence;
    Ref<Iterator> iterator;
    {
        const std::lock_guard guard(TheConfigurations().mutex);
        std::swap(sequence, TheConfigurations().retained_sequence);
        std::swap(iterator, TheConfigurations().retained_iterator);
    }
    if (!sequence) {
        return S_FALSE;
    }
    HRESULT code = S_OK;
    const Ref<Iterator> second_iterator = First(*sequence.get(), code);
    Kinds kinds;
    for (Iterator* used : {second_iterator.get(), iterator.get()}) {
        if (used != nullptr) {
            abi::boolean has_current = 0;
            Kind kind{};
            std::uint32_t count = 0;
            for (const HRESULT use : {used->get_HasCurrent(&has_current), used->get_Current(&kind),
                                      used->MoveNext(&has_current), used->GetMany(1, &kind, &count)}) {
                code = code < 0 ? use : code;
            }
        }
    }
    return code;
}

}  // namespace dialsim
