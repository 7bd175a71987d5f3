// Functions that return objects of runtime classes. classes/ defines them: it may include functions/, not the
// reverse.
#pragma once

#include "platform/functions.h"

namespace dialsim {

// Returns REGDB_E_CLASSNOTREG for a class that the simulator does not implement.
HRESULT GetClassFactory(HSTRING class_name, const IID& iid, void** factory);

// Takes ownership of the stream and returns a wrapper with journal, leak tracking and fault injection.
::IStream* JournalStream(::IStream* stream);

HRESULT CreateStreamOverStream(::IStream* stream, const IID& iid, void** result);

}  // namespace dialsim
