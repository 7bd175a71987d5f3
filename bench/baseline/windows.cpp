#include "bench/baseline/baseline.h"

namespace baseline {

void Windows::Add(IDialHost& host) { dials_[host.GetWindowHandle()] = std::make_unique<Dial>(host); }

HRESULT Windows::Select(std::uint64_t window, std::uint32_t item_id) {
    const auto dial = dials_.find(window);
    return dial == dials_.end() ? E_FAIL : dial->second->Select(item_id);
}

}  // namespace baseline
