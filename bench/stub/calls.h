// Which calls were made. The platform that is measured has nothing of it left.
#pragma once

#ifdef LEAN_RECORDS

namespace lean {

void Note(const char* call) noexcept;

}  // namespace lean

#define LEAN_NOTE() ::lean::Note(static_cast<const char*>(__PRETTY_FUNCTION__))

#else

#define LEAN_NOTE() static_cast<void>(0)

#endif
