// Native modules have no resources: AddResource adds them to a table.
#include "simulator/functions/resources.h"

#include <list>
#include <mutex>

#include "simulator/functions/real.h"
#include "simulator/system/reset.h"
#include "simulator/system/text.h"
#include "sync.h"

struct HRSRC__ {
    std::uint64_t module;
    std::uint16_t id;
    std::string type;
    std::string bytes;
};

namespace dialsim {

namespace {

Mutex resources_mutex;
std::list<HRSRC__>& resources = *new std::list<HRSRC__>;  // a list: handles are addresses of its elements

const ResetAction clear_resources(ResetPhase::State, [] {
    const std::lock_guard guard(resources_mutex);
    resources.clear();
});

std::uint64_t Number(const void* pointer) { return reinterpret_cast<std::uintptr_t>(pointer); }

}  // namespace

bool AddResource(std::uint64_t module, std::uint16_t id, const std::string& type, std::string bytes) {
    const std::lock_guard guard(resources_mutex);
    resources.push_back({module, id, type, std::move(bytes)});
    return true;
}

namespace real {

HRSRC FindResourceW(HMODULE module, const WCHAR* name, const WCHAR* type) {
    // Supports integer names and string types only.
    if (Number(name) > 0xFFFF || Number(type) <= 0xFFFF) {
        return nullptr;
    }
    const std::lock_guard guard(resources_mutex);
    for (HRSRC__& resource : resources) {
        if (resource.module == Number(module) && resource.id == Number(name) &&
            resource.type == Narrow(type)) {
            return &resource;
        }
    }
    return nullptr;
}

DWORD SizeofResource(HMODULE, HRSRC resource) {
    return resource == nullptr ? 0 : static_cast<DWORD>(resource->bytes.size());
}

HGLOBAL LoadResource(HMODULE, HRSRC resource) { return resource; }

void* LockResource(HGLOBAL resource) {
    return resource == nullptr ? nullptr : static_cast<HRSRC>(resource)->bytes.data();
}

BOOL FreeResource(HGLOBAL) { return 0; }

}  // namespace real

}  // namespace dialsim
