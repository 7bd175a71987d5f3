#include "bench/stub/calls.h"

#include <utility>

#include "bench/stub/platform.h"

namespace stub {

namespace {

// No lock: the enumeration's thread and its caller do not run concurrently.
std::vector<std::string> calls;

}  // namespace

#ifdef STUB_RECORDS_CALLS
void RecordCall(const char* call) noexcept { calls.emplace_back(call); }
#endif

std::vector<std::string> TakeCalls() { return std::exchange(calls, {}); }

}  // namespace stub
