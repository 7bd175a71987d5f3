#include "simulator/functions/real.h"

namespace dialsim {

HRESULT CheckApartment() {
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    return CoGetApartmentType(&type, &qualifier);
}

void WaitInApartment() {
    static HANDLE never = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    DWORD index = 0;
    CoWaitForMultipleHandles(0, 1, 1, &never, &index);
}

}  // namespace dialsim
