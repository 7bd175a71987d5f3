// Maps window handles to listeners.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace brindle {

class DialListener;

// Owns its listeners until EndAll. When the process ends without EndAll they are not destroyed: the platform
// may be unloaded by then. No lock: used on the host's thread only.
class ListenerRegistry {
public:
    // Inserts the listener under the window. A listener that it displaces deliberately stays alive and
    // subscribed: its host goes on getting events (Listener.ADisplacedListenerGoesOnCallingItsHost).
    void Insert(std::uint64_t window, std::unique_ptr<DialListener> listener);

    // Null when the window has none.
    DialListener* Find(std::uint64_t window) {
        const auto place = Place(window);
        return place != listeners_.end() && place->first == window ? place->second : nullptr;
    }

    // Destroys every listener, in ascending order of window, and empties the registry.
    void EndAll();

private:
    using Entry = std::pair<std::uint64_t, DialListener*>;

    // Where the window is or belongs.
    std::vector<Entry>::iterator Place(std::uint64_t window) {
        return std::partition_point(listeners_.begin(), listeners_.end(),
                                    [&](const Entry& entry) { return entry.first < window; });
    }

    std::vector<Entry> listeners_;  // in ascending order of window
};

}  // namespace brindle
