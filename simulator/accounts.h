// What the platform has handed out and what has come back.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/types.h"
#include "sync.h"

namespace dialsim {

// What the accounts know of a platform object.
class Accountable {
public:
    virtual std::string_view ClassName() const noexcept = 0;
    virtual std::uint32_t References() const noexcept = 0;

protected:
    ~Accountable() = default;
};

class Accounts {
public:
    struct Tally {
        std::uint32_t objects = 0;
        std::uint32_t references = 0;
    };

    void Made(const Accountable* object);
    void Gone(const Accountable* object);
    void HandlerTaken(const void* handler);
    void HandlerReleased(const void* handler);
    void StringTaken(HSTRING string);
    void StringReturned(HSTRING string);

    // An empty name sums over all classes.
    Tally Objects(std::string_view class_name);
    std::uint32_t Handlers();
    std::uint32_t Strings();
    std::string Text();

    // What is still out is no longer counted, but kept in sight of leak checkers: some of it is out on
    // purpose.
    void Reset();

private:
    Mutex mutex_;
    std::set<const Accountable*> objects_;
    std::multiset<const void*> handlers_;
    std::multiset<HSTRING> strings_;
    std::vector<const void*> written_off_;
};

Accounts& TheAccounts();

}  // namespace dialsim
