// The recorded calls. Compiles to nothing in the platform that is measured.
#pragma once

#ifdef STUB_RECORDS_CALLS

namespace stub {

void RecordCall(const char* call) noexcept;

}  // namespace stub

#define STUB_RECORD_CALL() ::stub::RecordCall(static_cast<const char*>(__PRETTY_FUNCTION__))

#else

#define STUB_RECORD_CALL() static_cast<void>(0)

#endif
