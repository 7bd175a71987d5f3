// Path functions.
#include "simulator/functions/real.h"
#include "simulator/system/native/short_paths.h"
#include "simulator/system/text.h"

namespace dialsim::real {

BOOL PathFileExistsW(const WCHAR* path) { return path != nullptr && PathExists(Narrow(path)); }

DWORD GetShortPathNameW(const WCHAR* path, WCHAR* short_path, DWORD characters) {
    if (!real::PathFileExistsW(path)) {
        return 0;
    }
    const WideString result = Widen(ShortPath(Narrow(path)));
    const auto length = static_cast<DWORD>(result.size());
    if (characters <= length) {
        return length + 1;
    }
    result.copy(short_path, length);
    short_path[length] = 0;
    return length;
}

}  // namespace dialsim::real
