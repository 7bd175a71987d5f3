#include "frame/listener_registry.h"

#include <algorithm>

#include "dial/dial_listener.h"

namespace brindle {

std::vector<ListenerRegistry::Entry>::iterator ListenerRegistry::Place(std::uint64_t window) {
    return std::lower_bound(listeners_.begin(), listeners_.end(), window,
                            [](const Entry& entry, std::uint64_t key) { return entry.first < key; });
}

void ListenerRegistry::Insert(std::uint64_t window, std::unique_ptr<DialListener> listener) {
    auto place = Place(window);
    if (place == listeners_.end() || place->first != window) {
        place = listeners_.insert(place, {window, nullptr});
    }
    place->second = listener.release();
}

DialListener* ListenerRegistry::Find(std::uint64_t window) {
    const auto place = Place(window);
    return place != listeners_.end() && place->first == window ? place->second : nullptr;
}

void ListenerRegistry::EndAll() {
    for (const auto& [window, listener] : listeners_) {
        delete listener;
    }
    listeners_ = std::vector<Entry>();  // frees its memory, as clear() would not
}

}  // namespace brindle
