#include "frame/listener_registry.h"

#include "dial/dial_listener.h"

namespace brindle {

void ListenerRegistry::Insert(std::uint64_t window, std::unique_ptr<DialListener> listener) {
    auto place = Place(window);
    if (place == listeners_.end() || place->first != window) {
        place = listeners_.insert(place, {window, nullptr});
    }
    place->second = listener.release();
}

void ListenerRegistry::EndAll() {
    for (const auto& [window, listener] : listeners_) {
        delete listener;
    }
    listeners_ = std::vector<Entry>();  // frees its memory, as clear() would not
}

}  // namespace brindle
