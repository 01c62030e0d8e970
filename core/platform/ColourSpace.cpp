#include "platform/ColourSpace.h"

#include <lcms2.h>

#include <array>
#include <memory>

namespace ornivo {
namespace {

struct CloseProfile {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};
struct FreeCurve {
    void operator()(cmsToneCurve* curve) const { cmsFreeToneCurve(curve); }
};

/// Chromaticities of white and of the primaries, and the power of the curve.
struct Definition {
    cmsCIExyY white;
    cmsCIExyYTRIPLE primaries;
    double gamma;
};

/// Adobe RGB (1998) Color Image Encoding, version 2005-05, 4.3.1.
constexpr Definition adobe{
    {0.3127, 0.3290, 1}, {{0.64, 0.33, 1}, {0.21, 0.71, 1}, {0.15, 0.06, 1}}, 563.0 / 256};
/// ROMM RGB, ISO 22028-2.
constexpr Definition romm{
    {0.3457, 0.3585, 1}, {{0.7347, 0.2653, 1}, {0.1596, 0.8404, 1}, {0.0366, 0.0001, 1}}, 1.8};

std::vector<std::uint8_t> made(const Definition& definition) {
    const std::unique_ptr<cmsToneCurve, FreeCurve> curve(cmsBuildGamma(nullptr, definition.gamma));
    std::array curves{curve.get(), curve.get(), curve.get()};
    const std::unique_ptr<void, CloseProfile> profile(
        cmsCreateRGBProfile(&definition.white, &definition.primaries, curves.data()));
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile.get(), nullptr, &size);
    std::vector<std::uint8_t> bytes(size);
    if (!cmsSaveProfileToMem(profile.get(), bytes.data(), &size)) bytes.clear();
    return bytes;
}

}  // namespace

std::span<const std::uint8_t> profileOf(ColourSpace space) {
    static const auto adobeProfile = made(adobe);
    static const auto rommProfile = made(romm);
    if (space == ColourSpace::adobeRGB) return adobeProfile;
    if (space == ColourSpace::proPhoto) return rommProfile;
    return {};
}

}  // namespace ornivo
