#include "simulator/dial.h"

#include <algorithm>

#include "simulator/controller.h"

namespace dialsim {

Dial& TheDial() {
    // Never destroyed: controllers may leave after the end of main.
    static Dial& dial = *new Dial;
    return dial;
}

void Dial::Enter(Controller* controller) {
    const std::lock_guard guard(mutex_);
    controllers_.push_back(controller);
}

void Dial::Leave(Controller* controller) {
    const std::lock_guard guard(mutex_);
    std::erase(controllers_, controller);
}

std::vector<Ref<Controller>> Dial::ControllersOf(std::uint64_t window) {
    const std::lock_guard guard(mutex_);
    if (window == 0 && !controllers_.empty()) {
        window = controllers_.back()->window();
    }
    std::vector<Ref<Controller>> found;
    for (Controller* controller : controllers_) {
        if (controller->window() == window && controller->TryAddRef()) {
            found.push_back(Ref<Controller>::Adopt(controller));
        }
    }
    return found;
}

DialState Dial::State() {
    const std::lock_guard guard(mutex_);
    return state_;
}

bool Dial::OwnThread() {
    const std::lock_guard guard(mutex_);
    return own_thread_;
}

void Dial::SetOwnThread(bool own_thread) {
    const std::lock_guard guard(mutex_);
    own_thread_ = own_thread;
}

void Dial::SetRaised(std::string what) {
    const std::lock_guard guard(mutex_);
    raised_ = std::move(what);
}

std::string Dial::Raised() {
    const std::lock_guard guard(mutex_);
    return raised_;
}

bool Dial::TypePresent(const std::string& type) {
    const std::lock_guard guard(mutex_);
    return !missing_types_.contains(type);
}

void Dial::SetTypePresent(const std::string& type, bool present) {
    const std::lock_guard guard(mutex_);
    if (present) {
        missing_types_.erase(type);
    } else {
        missing_types_.insert(type);
    }
}

void Dial::Reset() {
    const std::lock_guard guard(mutex_);
    state_ = {};
    controllers_.clear();
    missing_types_.clear();
    raised_.clear();
    own_thread_ = false;
}

}  // namespace dialsim
