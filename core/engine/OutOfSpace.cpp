#include "engine/SortEngine.h"
#include "platform/Error.h"

namespace ornivo {

bool SortEngine::isOutOfSpace(const std::exception& error) {
    constexpr int deepest = 8;
    constexpr int noSpaceLeft = 28;
    const auto* look = dynamic_cast<const Error*>(&error);
    for (int level = 0; look && level < deepest; ++level) {
        if (look->domain() == Error::cocoaDomain && look->code() == Error::fileWriteOutOfSpace) {
            return true;
        }
        if (look->domain() == Error::posixDomain && look->code() == noSpaceLeft) return true;
        look = look->underlying().get();
    }
    return false;
}

}  // namespace ornivo
