#include "frame/listener_registry.h"

#include "dial/dial_listener.h"

namespace brindle {

void ListenerRegistry::Insert(std::uint64_t window, std::unique_ptr<DialListener> listener) {
    DialListener*& place = listeners_[window];
    place = listener.release();
}

void ListenerRegistry::EndAll() {
    for (const auto& [window, listener] : listeners_) {
        delete listener;
    }
    listeners_.clear();
}

}  // namespace brindle
