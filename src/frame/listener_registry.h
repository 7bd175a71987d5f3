// Maps window handles to listeners.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
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
    DialListener* Find(std::uint64_t window) const {
        if (windows_.empty()) {
            return nullptr;
        }
        const std::size_t place = Place(window);
        return windows_[place] == window ? listeners_[place] : nullptr;
    }

    // Destroys every listener, in ascending order of window, and empties the registry.
    void EndAll();

private:
    // The place of the last window that is not above this one; 0 when there is none.
    std::size_t Place(std::uint64_t window) const {
        const std::uint64_t* first = windows_.data();
        for (std::size_t count = windows_.size(); count > 1;) {
            const std::size_t half = count / 2;
            if (first[half] <= window) {
                first += half;
            }
            count -= half;
        }
        return static_cast<std::size_t>(first - windows_.data());
    }

    // In ascending order, and the listener of each. Two lists: a search reads windows only.
    std::vector<std::uint64_t> windows_;
    std::vector<DialListener*> listeners_;
};

}  // namespace brindle
