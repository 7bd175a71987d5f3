// Puts the simulator between a module and the platform's flat functions, by way of the module's import table.
#include <cstring>

#include "simulator/dialsim.h"
#include "simulator/functions/intercepted.h"

namespace {

namespace intercepted = dialsim::intercepted;

struct Hook {
    const char* name;
    void* replacement;
};

#define DIALSIM_IMPORT(NAME) \
    { #NAME, reinterpret_cast < void*>(&intercepted::NAME) }

const Hook kHooks[] = {
    DIALSIM_IMPORT(RoInitialize),
    DIALSIM_IMPORT(RoUninitialize),
    DIALSIM_IMPORT(RoGetActivationFactory),
    DIALSIM_IMPORT(RoOriginateLanguageException),
    DIALSIM_IMPORT(WindowsCreateString),
    DIALSIM_IMPORT(WindowsCreateStringReference),
    DIALSIM_IMPORT(WindowsDuplicateString),
    DIALSIM_IMPORT(WindowsDeleteString),
    DIALSIM_IMPORT(WindowsGetStringRawBuffer),
    DIALSIM_IMPORT(WindowsGetStringLen),
    DIALSIM_IMPORT(WindowsPreallocateStringBuffer),
    DIALSIM_IMPORT(WindowsPromoteStringBuffer),
    DIALSIM_IMPORT(WindowsDeleteStringBuffer),
    DIALSIM_IMPORT(CoCreateFreeThreadedMarshaler),
    DIALSIM_IMPORT(GetTickCount64),
    DIALSIM_IMPORT(Sleep),
    DIALSIM_IMPORT(MultiByteToWideChar),
    DIALSIM_IMPORT(_wcsnicmp),
    DIALSIM_IMPORT(wcscpy_s),
    DIALSIM_IMPORT(wcstol),
    DIALSIM_IMPORT(PathFileExistsW),
    DIALSIM_IMPORT(GetShortPathNameW),
    DIALSIM_IMPORT(FindResourceW),
    DIALSIM_IMPORT(SizeofResource),
    DIALSIM_IMPORT(LoadResource),
    DIALSIM_IMPORT(LockResource),
    DIALSIM_IMPORT(FreeResource),
    DIALSIM_IMPORT(GlobalAlloc),
    DIALSIM_IMPORT(GlobalLock),
    DIALSIM_IMPORT(GlobalUnlock),
    DIALSIM_IMPORT(GlobalFree),
    DIALSIM_IMPORT(CreateStreamOnHGlobal),
    DIALSIM_IMPORT(CreateRandomAccessStreamOverStream),
};

template <class T>
T* At(char* base, std::size_t offset) {
    return reinterpret_cast<T*>(base + offset);
}

void Replace(void** place, void* replacement) {
    DWORD protection = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
    *place = replacement;
    VirtualProtect(place, sizeof *place, protection, &protection);
}

void HookImport(const char* name, void** place) {
    for (const Hook& import : kHooks) {
        if (std::strcmp(name, import.name) == 0) {
            Replace(place, import.replacement);
        }
    }
}

void HookLibraryImports(char* base, const IMAGE_IMPORT_DESCRIPTOR& library) {
    const auto* names = At<IMAGE_THUNK_DATA>(base, library.OriginalFirstThunk);
    auto* places = At<void*>(base, library.FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++places) {
        if (!IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) {
            const char* name = At<IMAGE_IMPORT_BY_NAME>(base, names->u1.AddressOfData)->Name;
            HookImport(name, places);
        }
    }
}

}  // namespace

bool dialsim_watch(const char* module) {
    auto* base = reinterpret_cast<char*>(GetModuleHandleA(module));
    if (base == nullptr) {
        return false;
    }
    const auto* headers =
        At<IMAGE_NT_HEADERS64>(base, static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(base, 0)->e_lfanew));
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(base, directory.VirtualAddress);
    for (; library->Name != 0; ++library) {
        HookLibraryImports(base, *library);
    }
    return true;
}
