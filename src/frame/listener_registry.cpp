#include "frame/listener_registry.h"

#include <algorithm>
#include <iterator>

#include "dial/dial_listener.h"

namespace brindle {

namespace {

// The window's place among the entries, whether it is there or not.
template <class Entries>
auto PlaceOf(std::uint64_t window, Entries& entries) {
    return std::lower_bound(entries.begin(), entries.end(), window,
                            [](const auto& entry, std::uint64_t sought) { return entry.first < sought; });
}

}  // namespace

void ListenerRegistry::File(std::uint64_t window, std::unique_ptr<DialListener> listener) {
    auto place = PlaceOf(window, listeners_);
    if (place == listeners_.end() || place->first != window) {
        place = listeners_.insert(place, {window, nullptr});
    }
    place->second = listener.release();
}

DialListener* ListenerRegistry::Find(std::uint64_t window) const {
    const auto place = PlaceOf(window, listeners_);
    return place != listeners_.end() && place->first == window ? place->second : nullptr;
}

void ListenerRegistry::EndAll() {
    for (auto next = listeners_.begin(); next != listeners_.end();) {
        const std::uint64_t window = next->first;
        delete next->second;
        // Looked up again: a host that is called meanwhile may file another.
        next = std::next(PlaceOf(window, listeners_));
    }
    std::vector<Entry>().swap(listeners_);
}

}  // namespace brindle
