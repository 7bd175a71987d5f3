#include "bench/stub/calls.h"

#include <utility>

#include "bench/stub/platform.h"

namespace lean {

namespace {

// The enumeration's thread and its caller take turns: no lock.
std::vector<std::string> calls;

}  // namespace

#ifdef LEAN_RECORDS
void Note(const char* call) noexcept { calls.emplace_back(call); }
#endif

std::vector<std::string> TakeCalls() { return std::exchange(calls, {}); }

}  // namespace lean
