// The functions whose results are objects of the published classes. The classes define them: they are above
// the functions, which they need for their strings.
#pragma once

#include "platform/functions.h"

namespace dialsim {

// REGDB_E_CLASSNOTREG for a class that the simulator does not have.
HRESULT GetClassFactory(HSTRING class_name, const IID& iid, void** factory);

// Takes over a stream and gives one in its place that is journaled, counted and open to faults.
::IStream* JournalStream(::IStream* stream);

HRESULT CreateStreamOverStream(::IStream* stream, const IID& iid, void** result);

}  // namespace dialsim
