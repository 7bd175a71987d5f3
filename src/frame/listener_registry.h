// Which listener serves which window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>

namespace brindle {

class DialListener;

// Owns the listeners filed here until EndAll. When the process ends without it, they are left alone on
// purpose: the platform may be gone by then. No lock: used on the host's thread only.
class ListenerRegistry {
public:
    // Files the listener under the window. One that was filed there before is left as it is, alive and
    // subscribed, which is intended: the host of a displaced listener goes on getting its events.
    void Insert(std::uint64_t window, std::unique_ptr<DialListener> listener);

    // Null when the window has none; a miss leaves the registry as it is.
    DialListener* Find(std::uint64_t window) const {
        const auto entry = listeners_.find(window);
        return entry == listeners_.end() ? nullptr : entry->second;
    }

    // Ends every filed listener in ascending order of window and empties the registry.
    void EndAll();

    std::size_t Size() const { return listeners_.size(); }

private:
    std::map<std::uint64_t, DialListener*> listeners_;
};

}  // namespace brindle
