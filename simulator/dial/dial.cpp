#include "simulator/dial/dial.h"

#include <algorithm>

#include "simulator/classes/controller.h"

namespace dialsim {

Dial& TheDial() {
    // Never destroyed: controllers may leave after the end of main.
    static Dial& dial = *new Dial;
    return dial;
}

void Dial::AddController(Controller* controller) {
    const std::lock_guard guard(mutex_);
    controllers_.push_back(controller);
    if (std::find(windows_.begin(), windows_.end(), controller->window()) == windows_.end()) {
        windows_.push_back(controller->window());
    }
}

void Dial::RemoveController(Controller* controller) {
    const std::lock_guard guard(mutex_);
    std::erase(controllers_, controller);
}

std::uint64_t Dial::Resolve(std::uint64_t window) const {
    return window == 0 && !controllers_.empty() ? controllers_.back()->window() : window;
}

std::vector<Ref<Controller>> Dial::ControllersOf(std::uint64_t window) {
    const std::lock_guard guard(mutex_);
    window = Resolve(window);
    std::vector<Ref<Controller>> found;
    for (Controller* controller : controllers_) {
        if (controller->window() == window && controller->TryAddRef()) {
            found.push_back(Ref<Controller>::Attach(controller));
        }
    }
    return found;
}

std::size_t Dial::WindowNumber(std::uint64_t window) {
    const std::lock_guard guard(mutex_);
    const auto found = std::find(windows_.begin(), windows_.end(), Resolve(window));
    return found == windows_.end() ? 0 : static_cast<std::size_t>(found - windows_.begin()) + 1;
}

std::uint64_t Dial::WindowAt(std::size_t place) {
    const std::lock_guard guard(mutex_);
    return place >= 1 && place <= windows_.size() ? windows_[place - 1] : kNoWindow;
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
    windows_.clear();
    missing_types_.clear();
    raised_.clear();
    own_thread_ = false;
}

}  // namespace dialsim
