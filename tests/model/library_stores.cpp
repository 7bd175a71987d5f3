// Presence query and settings.
#include "library_model.h"

namespace model {

namespace {

constexpr char kFilter[] =
    "System.Devices.InterfaceClassGuid:=\"{80795c47-03f0-446d-b1f2-e424b30db4da}\" AND\t\t\t"
    "System.Devices.InterfaceEnabled: = System.StructuredQueryType.Boolean#True";
constexpr char kPrefix[] = R"(\\?\BTHLE#Dev_bc838528f72a#)";
constexpr int kMostSleeps = 10'001;
constexpr Code kAbsent = INT32_MIN;

template <std::size_t N>
WideText Widened(const char (&text)[N]) {
    return WideText(text, text + N - 1);
}

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool BeginsWith(const std::string& text, const std::string& prefix) {
    for (std::size_t i = 0; i < prefix.size(); ++i) {
        if (i >= text.size() || LowerCase(text[i]) != LowerCase(prefix[i])) {
            return false;
        }
    }
    return true;
}

// The leading decimal number of a text, saturated to 32 bits.
Code Parse(const WideText& text) {
    std::size_t place = 0;
    while (place < text.size() && (text[place] == ' ' || (text[place] >= '\t' && text[place] <= '\r'))) {
        ++place;
    }
    const bool negative = place < text.size() && text[place] == '-';
    place += place < text.size() && (text[place] == '-' || text[place] == '+');
    std::int64_t number = 0;
    for (; place < text.size() && text[place] >= '0' && text[place] <= '9'; ++place) {
        number = std::min<std::int64_t>(number * 10 + (text[place] - '0'), INT64_C(1) << 40);
    }
    number = negative ? -number : number;
    return static_cast<Code>(std::clamp<std::int64_t>(number, INT32_MIN, INT32_MAX));
}

}  // namespace

// --- presence query

bool Library::IsDialPresent(std::uint64_t window) {
    Listener* listener = Find(window);
    if (listener == nullptr) {
        return false;
    }
    const auto found = std::make_shared<bool>(false);
    listener->presence_done = false;
    if (!Succeeds([&] { StartQuery(*listener, found); })) {
        return false;
    }
    for (int sleeps = 0; sleeps < kMostSleeps && !listener->presence_done; ++sleeps) {
        platform_.Call("Sleep", "1", [this] {
            ++platform_.clock;
            return 0;
        });
    }
    return *found;
}

void Library::StartQuery(Listener& listener, const Ref<bool>& found) {
    const WideText filter = CreateString(Widened(kFilter));
    Ref<Object> statics = Factory("Windows.Devices.Enumeration.DeviceInformation");
    Ref<AsyncOperation> operation;
    Check(platform_.Fetch("IDeviceInformationStatics::FindAllAsyncAqsFilter", Utf8(filter), operation, [&] {
        if (filter.empty()) {
            return kInvalidArgument;
        }
        const auto devices = platform_.Make<Devices>();
        for (const Platform::DeviceEntry& entry : platform_.devices) {
            if (!entry.id || entry.matches) {
                devices->list.push_back(entry.id ? platform_.Make<Device>(*entry.id) : nullptr);
            }
        }
        operation = platform_.StartAsync("IAsyncOperation<DeviceInformationCollection>",
                                         "DeviceInformationCollection", platform_.devices_failure, devices);
        return 0;
    }));
    statics.reset();
    if (!operation) {
        return;
    }
    Check(platform_.Call("IAsyncOperation<DeviceInformationCollection>::put_Completed", "", [&] {
        platform_.Attach(operation, [this, &listener, found](const Ref<AsyncOperation>& completed, Status) {
            try {
                ScanDevices(*completed, *found);
                listener.presence_done = true;
                return 0;
            } catch (const PlatformError& error) {
                return error.code;
            }
        });
        return 0;
    }));
}

void Library::ScanDevices(const AsyncOperation& operation, bool& found) {
    Ref<Object> result;
    Check(platform_.Fetch("IAsyncOperation<DeviceInformationCollection>::GetResults", "", result,
                          [&] { return operation.Results(result); }));
    const auto* devices = dynamic_cast<const Devices*>(result.get());
    if (devices == nullptr) {
        return;
    }
    std::uint32_t size = 0;
    Check(platform_.Read("IVectorView<DeviceInformation>::get_Size", size, [&] {
        size = static_cast<std::uint32_t>(devices->list.size());
        return 0;
    }));
    for (std::uint32_t index = 0; index < size && !found; ++index) {
        Ref<Device> device;
        Check(platform_.Fetch("IVectorView<DeviceInformation>::GetAt", std::to_string(index), device, [&] {
            device = devices->list[index];
            return 0;
        }));
        if (!device) {
            continue;
        }
        const std::string prefix = Utf8(CreateString(Widened(kPrefix)));
        std::string id;
        Check(Get("IDeviceInformation::get_Id", id, device->id));
        found = platform_.Answer<int>("_wcsnicmp", id + ", " + prefix + ", " + std::to_string(prefix.size()),
                                      1, [&] { return BeginsWith(id, prefix) ? 0 : -1; }) == 0;
    }
}

// --- the application's containers

struct Library::Container {
    Settings* settings;
};

std::optional<Library::Container> Library::OpenContainer(bool roaming) {
    const Ref<Object> statics = Factory("Windows.Storage.ApplicationData");
    bool there = false;
    Check(platform_.Fetch("IApplicationDataStatics::get_Current", "", there, [&] {
        there = platform_.packaged;
        return there ? 0 : kNoPackage;
    }));
    for (const char* property :
         {roaming ? "IApplicationData::get_RoamingSettings" : "IApplicationData::get_LocalSettings",
          "IApplicationDataContainer::get_Values"}) {
        if (!there) {
            return std::nullopt;
        }
        Check(Get(property, there, true));
    }
    if (!there) {
        return std::nullopt;
    }
    View("IMap<String, Object>");
    return Container{roaming ? &platform_.roaming : &platform_.local};
}

std::optional<Setting> Library::Lookup(const Container& container, const WideText& key) {
    std::optional<Setting> entry;
    Check(platform_.Fetch("IMap<String, Object>::Lookup", Utf8(key), entry, [&] {
        const auto found = container.settings->find(key);
        entry = found == container.settings->end() ? std::nullopt : std::optional(found->second);
        return 0;
    }));
    return entry;
}

// Reads the entry as a value of the type.
Setting Library::ReadSetting(const Setting& setting, const char* type) {
    Require(setting.type != "composite");
    View("IPropertyValue");
    Setting read{type, {}, 0, {}};
    const auto get = [&] {
        if (setting.type != type) {
            return kTypeMismatch;
        }
        read = setting;
        return 0;
    };
    // A failing call returns no string to release.
    Check(platform_.Call(std::string("IPropertyValue::Get") + type, "", get));
    return read;
}

void Library::SetInContainer(bool roaming, const WideText& key, const Setting& value) {
    const auto container = OpenContainer(roaming);
    if (!container) {
        return;
    }
    const WideText name = Reference(key);
    bool is_same = false;
    Succeeds([&] {
        if (const auto entry = Lookup(*container, name)) {
            is_same = ReadSetting(*entry, value.type.c_str()) == value;
            if (is_same) {
                return;
            }
            Check(platform_.Call("IMap<String, Object>::Remove", Utf8(name), [&] {
                container->settings->erase(name);
                return 0;
            }));
        }
    });
    if (is_same) {
        return;
    }
    const Ref<Object> statics = Factory("Windows.Foundation.PropertyValue");
    Setting new_value = value;
    if (value.type == "String") {
        new_value.text = Reference(value.text);
    }
    std::optional<Setting> boxed;
    Check(Get("IPropertyValueStatics::Create" + value.type, boxed, std::optional(new_value)));
    Check(platform_.Call("IMap<String, Object>::Insert", Utf8(name), [&] {
        return boxed ? platform_.PutSetting(*container->settings, name, *boxed) : kPointer;
    }));
}

std::optional<Setting> Library::GetFromContainer(bool roaming, const WideText& key, const char* type) {
    std::optional<Setting> setting;
    const bool succeeds = Succeeds([&] {
        const auto container = OpenContainer(roaming);
        const auto entry = container ? Lookup(*container, Reference(key)) : std::nullopt;
        if (entry) {
            setting = ReadSetting(*entry, type);
            setting->text = setting->type == "String" ? CopyForHost(setting->text) : WideText();
        }
    });
    return succeeds ? setting : std::nullopt;
}

WideText Library::CopyForHost(const WideText& text) {
    platform_.Call("wcscpy_s", std::to_string(text.size() + 1));
    return text;
}

// --- the user's vault

void Library::OpenVault() {
    const Ref<Object> factory = Factory("Windows.Security.Credentials.PasswordVault");
    bool there = false;
    Check(platform_.Fetch("IActivationFactory::ActivateInstance",
                          "Windows.Security.Credentials.PasswordVault", there, [&] {
                              there = true;
                              return 0;
                          }));
    Require(there);
    View("IPasswordVault");
}

bool Library::SearchVault(const WideText& key) {
    std::uint32_t size = 0;
    const bool succeeds = Succeeds([&] {
        std::uint32_t found = 0;
        Check(platform_.Fetch("IPasswordVault::FindAllByUserName", Utf8(key), found, [&] {
            for (const auto& [names, password] : platform_.vault) {
                found += names.second == key;
            }
            return found == 0 ? kNotFound : 0;
        }));
        if (found > 0) {
            Check(ReadValue("IVectorView<PasswordCredential>::get_Size", size, found));
        }
    });
    return succeeds && size > 0;
}

// Reads the credential's password, which may be null.
std::optional<WideText> Library::Retrieve(const WideText& resource, const WideText& key) {
    std::optional<WideText> credential;
    Check(platform_.Fetch("IPasswordVault::Retrieve", Utf8(resource) + ", " + Utf8(key), credential, [&] {
        const auto found = platform_.vault.find({resource, key});
        if (found == platform_.vault.end()) {
            return kNotFound;
        }
        credential = found->second;
        return 0;
    }));
    return credential;
}

WideText Library::ReadPassword(const WideText& password) {
    WideText read;
    Check(Get("IPasswordCredential::get_Password", read, password));
    return read;
}

void Library::SetInVault(const WideText& resource, const WideText& key, const WideText& value) {
    OpenVault();
    const WideText user = Reference(key);
    const WideText owner = Reference(resource);
    const std::string names = Utf8(owner) + ", " + Utf8(user);
    if (SearchVault(user)) {
        if (const auto credential = Retrieve(owner, user)) {
            if (ReadPassword(*credential) == value) {
                return;
            }
            Check(platform_.Call("IPasswordVault::Remove", names, [&] {
                return platform_.vault.erase({owner, user}) == 0 ? kNotFound : 0;
            }));
        }
    }
    const Ref<Object> factory = Factory("Windows.Security.Credentials.PasswordCredential");
    const WideText password = Reference(value);
    bool made = false;
    Check(platform_.Fetch("ICredentialFactory::CreatePasswordCredential", names, made, [&] {
        made = !owner.empty() && !user.empty() && !password.empty();
        return made ? 0 : kInvalidArgument;
    }));
    Check(platform_.Call("IPasswordVault::Add", made ? names : ", ", [&] {
        return made ? platform_.PutCredential(owner, user, password) : kInvalidArgument;
    }));
}

std::optional<WideText> Library::GetFromVault(const WideText& resource, const WideText& key) {
    std::optional<WideText> text;
    const bool succeeds = Succeeds([&] {
        OpenVault();
        const WideText user = Reference(key);
        if (!SearchVault(user)) {
            return;
        }
        if (const auto credential = Retrieve(Reference(resource), user)) {
            text = CopyForHost(ReadPassword(*credential));
        }
    });
    return succeeds ? text : std::nullopt;
}

// --- settings; a setter ignores failing steps

void Library::SetString(const WideText& resource, const WideText& key, const WideText& value) {
    const Setting setting{"String", value, 0, {}};
    Succeeds([&] { SetInContainer(true, key, setting); });
    Succeeds([&] { SetInVault(resource, key, value); });
    Succeeds([&] { SetInContainer(false, key, setting); });
}

std::optional<WideText> Library::GetString(const WideText& resource, const WideText& key) {
    if (const auto roaming = GetFromContainer(true, key, "String")) {
        return roaming->text;
    }
    if (auto text = GetFromVault(resource, key)) {
        return text;
    }
    const auto local = GetFromContainer(false, key, "String");
    return local ? std::optional(local->text) : std::nullopt;
}

void Library::SetInt(const WideText& key, Code value) {
    const Setting setting{"Int32", {}, value, {}};
    Succeeds([&] { SetInContainer(true, key, setting); });
    Succeeds([&] { SetInContainer(false, key, setting); });
}

Code Library::GetInt(const WideText& resource, const WideText& key) {
    const auto in_container = [&](bool roaming) {
        const auto setting = GetFromContainer(roaming, key, "Int32");
        return setting ? setting->number : kAbsent;
    };
    Code number = in_container(true);
    if (number == kAbsent) {
        if (const auto text = GetFromVault(resource, key)) {
            number = platform_.Answer<Code>("wcstol", Utf8(*text) + ", 10", 0, [&] { return Parse(*text); });
        }
    }
    return number == kAbsent ? in_container(false) : number;
}

}  // namespace model
