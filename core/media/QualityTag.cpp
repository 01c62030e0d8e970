#include "media/QualityTag.h"

namespace ornivo {

std::string_view label(QualityTag tag) {
    switch (tag) {
        case QualityTag::soft:
            return "Soft";
        case QualityTag::verySoft:
            return "Very soft";
        case QualityTag::highISO:
            return "High ISO";
        case QualityTag::underexposed:
            return "Underexposed";
        case QualityTag::overexposed:
            return "Overexposed";
        case QualityTag::clipped:
            return "Clipped highlights";
    }
    return {};
}

}  // namespace ornivo
