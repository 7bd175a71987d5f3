#include "simulator/functions/only_dial.h"

#include <atomic>

#include "simulator/stores/store_files.h"
#include "simulator/system/reset.h"

namespace dialsim {

namespace {

bool IsOnlyDialInEnvironment() { return Environment("DIALSIM_ONLY_DIAL") == "1"; }

std::atomic<bool> only_dial = IsOnlyDialInEnvironment();

const ResetAction reset_only_dial(ResetPhase::State, [] { only_dial = IsOnlyDialInEnvironment(); });

}  // namespace

bool IsOnlyDial() { return only_dial; }

bool SetOnlyDial(bool value) {
    only_dial = value;
    return true;
}

// Looked up instead of imported: Wine 8 lacks it, and dialsim.dll must load there.
HRESULT CreateSystemStreamOverStream(::IStream* stream, BSOS_OPTIONS options, const IID& iid, void** result) {
    const FARPROC found = GetProcAddress(LoadLibraryW(L"shcore.dll"), "CreateRandomAccessStreamOverStream");
    return found == nullptr ? HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND)
                            : reinterpret_cast<decltype(&::CreateRandomAccessStreamOverStream)>(
                                  reinterpret_cast<void*>(found))(stream, options, iid, result);
}

}  // namespace dialsim
