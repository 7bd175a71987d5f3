// A player of the model: the library's model over the platform's.
#pragma once

#include "library_model.h"
#include "player.h"

namespace model {

class Expected final : public Player, private Hosts {
public:
    Expected(Process& process, const Files& files, Reach& reach, std::vector<std::uint64_t> windows,
             bool uses_stores, bool virtual_clock);

    // The calls of the last operation, as in the journal.
    const std::string& last_journal() const { return last_journal_; }

private:
    void SetFault(const Fault& fault) override { platform_.SetFault(fault); }
    void CallExport(const Operation& operation) override;
    void RaiseEvent(const Operation& operation) override;
    void ChangePlatform(const Operation& operation) override;
    void Uninit() override;
    std::size_t ObjectsOf(const char* class_name) override { return platform_.ObjectsOf(class_name); }
    std::string TakePrinted() override { return library_.TakePrinted(); }
    std::string TakeJournal() override { return last_journal_ = platform_.TakeJournal(); }
    std::string ShowMenu(std::uint64_t window) override { return platform_.ShowMenu(window); }
    std::string ShowStore(const char* name) override { return platform_.ShowStore(name); }
    std::string Outstanding() override { return platform_.Outstanding(); }

    std::uint64_t QueryWindow(int host) override;
    std::optional<std::uint32_t> OnRotation(int host, const Controller& sender,
                                            const DialRotationInfo& info) override;
    void OnClick(int host, const Controller& sender, const DialContactRect& rect) override;

    bool CallWindowExport(const Operation& operation);
    void AddDevices(const Operation& operation);

    using RaiseOne = std::function<Outcome(const Ref<Controller>&, const DialState&)>;
    void RaiseAt(std::uint64_t window, const RaiseOne& raise_one);
    using Handle = std::function<Code(Listener&)>;
    static Outcome CallEach(const std::vector<Listener*>& handlers, const Handle& handle);
    void RaiseContact(std::uint64_t window, Event event);
    Outcome ChooseItem(const Ref<Controller>& controller, std::uint64_t place);
    void AppendItem(const Operation& operation);
    void WriteOutcome(Code code);

    struct Host {
        std::vector<std::uint64_t> windows;
        std::size_t window_queries = 0;
    };

    Platform platform_;
    Library library_;
    std::vector<Host> hosts_;
    std::string last_journal_;
};

}  // namespace model
