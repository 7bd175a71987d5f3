// A loaded module as the loader mapped it: its exports, imports and version.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace dialsim {

class ModuleImage {
public:
    explicit ModuleImage(void* base) : base_(static_cast<char*>(base)) {}

    template <class T>
    T* At(std::size_t offset) const {
        return reinterpret_cast<T*>(base_ + offset);
    }

    // Null without a directory of this kind (IMAGE_DIRECTORY_ENTRY_...).
    template <class T>
    const T* Directory(int kind) const {
        const auto& headers =
            *At<IMAGE_NT_HEADERS64>(static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
        const DWORD address = headers.OptionalHeader.DataDirectory[kind].VirtualAddress;
        return address == 0 ? nullptr : At<T>(address);
    }

    bool Exports(const char* name) const {
        const auto* directory = Directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
        if (directory == nullptr) {
            return false;
        }
        const auto* names = At<DWORD>(directory->AddressOfNames);
        for (DWORD i = 0; i < directory->NumberOfNames; ++i) {
            if (std::strcmp(At<char>(names[i]), name) == 0) {
                return true;
            }
        }
        return false;
    }

    // Calls visit(name, entry, bound) for each function imported by name, with its entry in the address table
    // and whether the loader has written the function's address there.
    template <class Visit>
    void VisitImports(Visit visit) const {
        const auto* module = Directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
        for (; module != nullptr && module->Name != 0; ++module) {
            const auto* names = At<IMAGE_THUNK_DATA64>(module->OriginalFirstThunk);
            auto* entries = At<void*>(module->FirstThunk);
            for (; names->u1.AddressOfData != 0; ++names, ++entries) {
                if (!IMAGE_SNAP_BY_ORDINAL64(names->u1.Ordinal)) {
                    const bool bound = reinterpret_cast<std::uintptr_t>(*entries) != names->u1.AddressOfData;
                    visit(At<IMAGE_IMPORT_BY_NAME>(names->u1.AddressOfData)->Name, entries, bound);
                }
            }
        }
    }

private:
    char* base_;
};

}  // namespace dialsim
