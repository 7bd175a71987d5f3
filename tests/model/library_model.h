// A second implementation of the library, written from its contract as lists of platform calls. It shares no
// code with the library.
#pragma once

#include <list>

#include "platform_model.h"

namespace model {

inline constexpr char kItem[] = "Windows.UI.Input.RadialControllerMenuItem";

// A platform string owned by an entry.
struct Label {
    Label(Platform& on, WideText of);
    Label(const Label&) = delete;
    Label& operator=(const Label&) = delete;
    ~Label();
    Platform& platform;
    const WideText text;
};

struct Entry {
    Ref<Label> label;
    std::uint32_t id = 0;
    bool haptics = false;
};

struct Listener {
    int host = 0;
    Ref<Object> factory;
    Ref<Controller> controller;
    Ref<Menu> menu;
    Ref<Object> item_statics;
    std::vector<Entry> entries;
    bool presence_done = false;
};

// The arguments of one turn.
struct Rotation {
    DialState dial;
    Ref<Contact> contact;
    double degrees = 0;
};

class Hosts {
public:
    virtual std::uint64_t QueryWindow(int host) = 0;
    // Returns the host's haptic request, if any.
    virtual std::optional<std::uint32_t> OnRotation(int host, const Controller& sender,
                                                    const DialRotationInfo& info) = 0;
    virtual void OnClick(int host, const Controller& sender, const DialContactRect& rect) = 0;

protected:
    ~Hosts() = default;
};

// State of a process that persists between sequences.
struct Process {
    int initializations = 0;
    // The acceleration's, which is never reset.
    bool clock_started = false;
    std::uint64_t last_tick = 0;
    double sum = 0;
    double acceleration = 1;
};

class Library {
public:
    Library(Process& process, Platform& platform, Hosts& hosts)
        : process_(process), platform_(platform), hosts_(hosts) {}

    // --- exports, which may throw a PlatformError
    int Initialize();
    void Uninit();
    bool InitDialListener(int host);
    bool AddCustomMenu(std::uint64_t window, const std::vector<Item>* items, std::uint32_t times);
    bool SetDefaultMenu(std::uint64_t window, const std::vector<std::int32_t>* kinds);
    bool SetCurrentCustomMenu(std::uint64_t window, std::uint32_t id);
    bool IsDialPresent(std::uint64_t window);
    void SetString(const WideText& resource, const WideText& key, const WideText& value);
    std::optional<WideText> GetString(const WideText& resource, const WideText& key);
    void SetInt(const WideText& key, Code value);
    Code GetInt(const WideText& resource, const WideText& key);

    // --- events
    Code OnRotation(Listener& listener, const Controller& sender, const Rotation& rotation);
    Code OnClick(Listener& listener, const Controller& sender, const Ref<Contact>& contact);
    Code OnContact(Event event, const Ref<Contact>& contact);
    Code OnInvoked(Listener& listener, const MenuItem& item);

    std::string TakePrinted() { return std::exchange(printed_, {}); }

private:
    using Step = std::function<Code()>;
    // The code with which the enclosing operation ends; empty when it continues.
    using End = std::optional<Code>;

    End Guarded(int line, const Step& step);
    void Logged(const char* name, int line, const Step& step);
    void Print(const std::string& name, Code code, int line);

    // Whether no error was thrown; out of memory is rethrown.
    template <class Action>
    static bool Succeeds(Action action) {
        try {
            action();
            return true;
        } catch (const PlatformError& error) {
            if (error.code == kOutOfMemory) {
                throw;
            }
            return false;
        }
    }

    // A property of an object, read during the call.
    template <class T>
    Code Get(const std::string& operation, T& result, const T& property) {
        return platform_.Fetch(operation, "", result, [&] {
            result = property;
            return 0;
        });
    }
    template <class T>
    Code ReadValue(const std::string& operation, T& result, const T& property) {
        return platform_.Read(operation, result, [&] {
            result = property;
            return 0;
        });
    }
    // Guarded steps, with their lines.
    template <class T>
    End GetStep(int line, const char* operation, T& result, const T& property) {
        return Guarded(line, [&] { return Get(operation, result, property); });
    }
    template <class T>
    End FetchStep(int line, const std::string& operation, const std::string& arguments, T& result,
                  const Platform::Body& body) {
        return Guarded(line, [&] { return platform_.Fetch(operation, arguments, result, body); });
    }
    End CallStep(int line, const std::string& operation, const Platform::Body& body = {}) {
        return Guarded(line, [&] { return platform_.Call(operation, "", body); });
    }
    End FactoryStep(int line, const char* class_name, Ref<Object>& factory) {
        return Guarded(line, [&] { return GetFactory(class_name, factory); });
    }

    // Calls one of the platform's string functions.
    template <class Text>
    Code MakeText(const char* function, const Text& text, Text& made) {
        return platform_.Fetch(function, Shown(text), made, [&] {
            made = text;
            return 0;
        });
    }
    static const std::string& Shown(const std::string& text) { return text; }
    static std::string Shown(const WideText& text) { return Utf8(text); }
    WideText Reference(const WideText& text);
    WideText CreateString(const WideText& text);
    Ref<Label> Duplicate(const WideText& text);
    Code GetFactory(const char* class_name, Ref<Object>& factory, bool null_fails = true);
    Ref<Object> Factory(const char* class_name);
    void View(const char* interface_name);
    static void Check(Code code);
    // Throws E_NOINTERFACE for a missing object.
    static void Require(bool there);

    Listener* Find(std::uint64_t window);
    Code Register(Listener& listener, std::uint64_t window);

    double NextAcceleration(double degrees);
    End ReadSelectedTag(const Ref<Menu>& menu, std::uint32_t& tag);
    DialContactRect ReadContact(const Ref<Contact>& contact);
    bool ReadNumber(const Ref<Tag>& tag, std::uint32_t& number);
    void PlayHaptics(const DialState& dial);
    Code LogContact(const char* args, const Ref<Contact>& contact);

    Code FillMenu(Listener& listener, const std::vector<Item>* items, std::uint32_t times);
    End AddItem(Listener& listener, const Item& item);
    Code AddKnownIcon(Listener& listener, const Entry& entry, std::uint32_t icon);
    Code AddGlyph(Listener& listener, const Entry& entry, const WideText& glyph, const WideText& family);
    void AddFontGlyph(Listener& listener, const Entry& entry, const Item& item);
    std::optional<WideText> ShortPath(const WideText& path);
    Code AddGlyphOfFile(Listener& listener, const Entry& entry, const WideText& glyph, const WideText& path);
    Code AddFile(Listener& listener, const Entry& entry, const WideText& path);
    Code OnFileOpened(Listener& listener, const AsyncOperation& operation, Status status,
                      const WideText& label, std::uint32_t id);
    Code AddResource(Listener& listener, const Entry& entry, std::uint64_t id);
    bool LoadResource(std::uint64_t id, Ref<Object>& stream, bool& block);
    bool WriteResource(const Resource& resource, Ref<Object>& stream);
    Code AddPicture(Listener& listener, const Entry& entry, const Resource& resource,
                    const Ref<Object>& stream);
    Code AddItemToMenu(Listener& listener, const Ref<MenuItem>& item, const Entry& entry);
    Ref<MenuItem> NewItem(const WideText& label, const std::string& source, const Ref<Picture>& icon = {});

    void Select(const Listener& listener, std::uint32_t id);
    void ConfigureSystemItems(const Listener& listener, const std::vector<std::int32_t>* kinds);
    void StartQuery(Listener& listener, const Ref<bool>& found);
    void ScanDevices(const AsyncOperation& operation, bool& found);

    struct Container;
    std::optional<Setting> Lookup(const Container& container, const WideText& key);
    std::optional<Container> OpenContainer(bool roaming);
    void SetInContainer(bool roaming, const WideText& key, const Setting& value);
    std::optional<Setting> GetFromContainer(bool roaming, const WideText& key, const char* type);
    Setting ReadSetting(const Setting& setting, const char* type);
    void OpenVault();
    bool SearchVault(const WideText& key);
    std::optional<WideText> Retrieve(const WideText& resource, const WideText& key);
    void SetInVault(const WideText& resource, const WideText& key, const WideText& value);
    std::optional<WideText> GetFromVault(const WideText& resource, const WideText& key);
    WideText CopyForHost(const WideText& text);
    WideText ReadPassword(const WideText& password);

    Process& process_;
    Platform& platform_;
    Hosts& hosts_;
    std::list<Listener> listeners_;  // including displaced ones
    std::map<std::uint64_t, Listener*> registry_;
    std::string printed_;
};

}  // namespace model
