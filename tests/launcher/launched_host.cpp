// A host that loads the library itself, in the ways that hosts do. Unaware of the simulator: the dial's turns
// come from a script that dialsim-run plays.
//
//   launched_host load DLL          loads the library, waits for a turn, frees it
//   launched_host reload DLL        the same three times, each time in a newly loaded library
//   launched_host two DLL DLL       two libraries at once, a window and a turn each
//   launched_host own DLL           activates classes of the system itself while the library's are simulated
//   launched_host idle DLL          loads the library, uses no dial, and ends
//   launched_host stay DLL          the same, and never ends
//   launched_host none              loads no library
#include <brindle.h>
#include <windows.h>
// after windows.h
#include <roapi.h>
#include <winstring.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

void Require(bool condition, const char* what) {
    if (!condition) {
        std::printf("launched_host: %s failed\n", what);
        std::exit(EXIT_FAILURE);
    }
}

class Library {
public:
    explicit Library(const std::string& path) : module_(LoadLibraryA(path.c_str())) {
        Require(module_ != nullptr, "LoadLibrary");
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { FreeLibrary(module_); }

    template <class Function>
    Function* Get(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }

private:
    HMODULE module_;
};

class Host final : public IDialHost {
public:
    explicit Host(std::uint64_t window) : window_(window) {}

    std::uint64_t GetWindowHandle() override { return window_; }
    void OnRotation(void* /*sender*/, const DialRotationInfo* turn) override {
        std::printf("window %llu turned by %g\n", static_cast<unsigned long long>(window_),
                    turn->deltaDegrees);
        std::fflush(stdout);
        SetEvent(turned_);
    }
    void OnButtonClicked(void* /*sender*/, const DialContactRect* /*rect*/) override {}

    bool WaitForTurn() const { return WaitForSingleObject(turned_, 20000) == WAIT_OBJECT_0; }

private:
    std::uint64_t window_;
    HANDLE turned_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
};

// A listener for a window in its own copy of the library, until destruction.
class Session {
public:
    Session(const std::string& path, std::uint64_t window) : library_(path), host_(window) {
        Require(library_.Get<decltype(initialize)>("initialize")() == 0, "initialize");
        Require(library_.Get<decltype(init_dial_listener)>("init_dial_listener")(&host_),
                "init_dial_listener");
    }
    // Without a message loop the events come on the script's thread. A callback returns into the library, so
    // it gets time to end before the library does.
    ~Session() {
        constexpr DWORD kCallbackMs = 200;
        Sleep(kCallbackMs);
        library_.Get<decltype(uninit)>("uninit")();
    }

    void WaitForTurn() const { Require(host_.WaitForTurn(), "waiting for a turn"); }

private:
    Library library_;
    Host host_;
};

HRESULT Activate(const wchar_t* name) {
    HSTRING string = nullptr;
    WindowsCreateString(name, static_cast<UINT32>(std::char_traits<wchar_t>::length(name)), &string);
    IUnknown* factory = nullptr;
    const HRESULT code = RoGetActivationFactory(string, IID_IUnknown, reinterpret_cast<void**>(&factory));
    if (code >= 0) {
        factory->Release();
    }
    WindowsDeleteString(string);
    return code;
}

// The program's own calls go to the system, whatever the library's calls get.
void ActivateOwnClasses() {
    const auto probe = static_cast<unsigned long>(Activate(L"Windows.Foundation.Metadata.ApiInformation"));
    const auto dial = static_cast<unsigned long>(Activate(L"Windows.UI.Input.RadialController"));
    std::printf("own classes: probe %08lx, dial %08lx\n", probe, dial);
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const std::string mode = words.empty() ? "" : words[0];
    if (mode == "load") {
        Session(words[1], 1).WaitForTurn();
    } else if (mode == "reload") {
        for (std::uint64_t window = 1; window <= 3; ++window) {
            Session(words[1], window).WaitForTurn();
        }
    } else if (mode == "two") {
        const Session first(words[1], 1);
        const Session second(words[2], 2);
        first.WaitForTurn();
        second.WaitForTurn();
    } else if (mode == "own") {
        const Session session(words[1], 1);
        ActivateOwnClasses();
        session.WaitForTurn();
    } else if (mode == "idle" || mode == "stay") {
        const Library library(words[1]);
        Sleep(mode == "stay" ? INFINITE : 0);
    } else if (mode != "none") {
        return EXIT_FAILURE;
    }
    std::printf("ended\n");
    return 7;
}
