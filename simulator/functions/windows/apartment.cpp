#include "simulator/functions/real.h"

namespace dialsim {

HRESULT CheckApartment() {
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    return CoGetApartmentType(&type, &qualifier);
}

}  // namespace dialsim
