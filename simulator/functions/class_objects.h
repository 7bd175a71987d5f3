// Functions that return objects of runtime classes. classes/ defines them: it may include functions/, not the
// reverse.
#pragma once

#include "platform/functions.h"

namespace dialsim {

constexpr HRESULT kClassNotRegistered = static_cast<HRESULT>(0x80040154);  // REGDB_E_CLASSNOTREG

// Returns kClassNotRegistered for a class that the simulator does not implement, or that is the system's
// while only the dial is simulated.
HRESULT GetClassFactory(HSTRING class_name, const IID& iid, void** factory);

// Takes ownership of the stream and returns a wrapper with journal, leak tracking and fault injection.
::IStream* JournalStream(::IStream* stream);

HRESULT CreateStreamOverStream(::IStream* stream, const IID& iid, void** result);

}  // namespace dialsim
