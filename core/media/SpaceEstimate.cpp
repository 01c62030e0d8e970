#include "media/SpaceEstimate.h"

#include <algorithm>

#include "platform/FileSizeText.h"

namespace ornivo {

std::int64_t SpaceEstimate::shortfallBytes() const {
    return std::max<std::int64_t>(requiredBytes - availableBytes, 0);
}

std::string SpaceEstimate::advice(const std::string& locale) const {
    const std::string name = destinationVolumeName.value_or("the destination");
    const std::string required = fileSizeText(requiredBytes, locale);
    const std::string available = fileSizeText(availableBytes, locale);
    switch (verdict) {
        case Verdict::clones:
            return "No extra space needed — " + name +
                   " is the same disk as your photos, so the sorted copies share storage with the "
                   "originals.";
        case Verdict::fits:
            return "About " + required + " needed. " + name + " has " + available + " free.";
        case Verdict::tight:
            return "About " + required + " needed and only " + available + " free on " + name +
                   " — close enough that anything else running could fill it.";
        case Verdict::doesNotFit:
            return "Not enough room: about " + required + " needed, " + available + " free on " +
                   name + ". Free about " + fileSizeText(shortfallBytes(), locale) +
                   ", or sort to a folder on the same disk as your photos — copies there cost "
                   "nothing.";
    }
    return {};
}

}  // namespace ornivo
