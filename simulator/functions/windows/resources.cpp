#include "simulator/functions/resources.h"

namespace dialsim {

bool AddResource(std::uint64_t /*module*/, std::uint16_t /*id*/, const std::string& /*type*/,
                 std::string /*bytes*/) {
    return false;
}

}  // namespace dialsim
