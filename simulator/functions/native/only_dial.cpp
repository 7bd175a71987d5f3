#include "simulator/functions/only_dial.h"

namespace dialsim {

bool IsOnlyDial() { return false; }

bool SetOnlyDial(bool /*only_dial*/) { return false; }

HRESULT CreateSystemStreamOverStream(::IStream* /*stream*/, BSOS_OPTIONS /*options*/, const IID& /*iid*/,
                                     void** /*result*/) {
    return E_NOTIMPL;
}

}  // namespace dialsim
