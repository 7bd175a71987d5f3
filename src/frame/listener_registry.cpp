#include "frame/listener_registry.h"

#include "dial/dial_listener.h"

namespace brindle {

void ListenerRegistry::Insert(std::uint64_t window, std::unique_ptr<DialListener> listener) {
    std::size_t place = Place(window);
    if (windows_.empty() || windows_[place] != window) {
        // In this order: when the second one fails, the list of windows is unchanged.
        listeners_.push_back(nullptr);
        windows_.push_back(window);
        for (place = windows_.size() - 1; place > 0 && windows_[place - 1] > window; --place) {
            windows_[place] = windows_[place - 1];
            listeners_[place] = listeners_[place - 1];
        }
        windows_[place] = window;
    }
    listeners_[place] = listener.release();
}

void ListenerRegistry::EndAll() {
    for (DialListener* listener : listeners_) {
        delete listener;
    }
    // Frees their memory, as clear() would not.
    windows_ = std::vector<std::uint64_t>();
    listeners_ = std::vector<DialListener*>();
}

}  // namespace brindle
