#pragma once

#include <cstdlib>
#include <string>

#ifdef _WIN32
#include <windows.h>
#endif

// Sets an environment variable; the destructor restores it.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const std::string& value) : name_(name) {
        const char* before = std::getenv(name);
        before_ = before == nullptr ? "" : before;
        Set(value);
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable() { Set(before_); }

private:
    void Set(const std::string& value) const {
#ifdef _WIN32
        SetEnvironmentVariableA(name_, value.empty() ? nullptr : value.c_str());
#else
        value.empty() ? unsetenv(name_) : setenv(name_, value.c_str(), 1);
#endif
    }

    const char* const name_;
    std::string before_;
};
