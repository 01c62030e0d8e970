#include "platform/Exiv2Images.h"

#include <algorithm>
#include <array>
#include <exiv2/webpimage.hpp>
#include <mutex>

namespace ornivo {
namespace {

/// The formats of the pictures that this program takes. Exiv2 reads others, clips among them, that
/// can crash it.
constexpr std::array formats{Exiv2::ImageType::jpeg, Exiv2::ImageType::png,  Exiv2::ImageType::tiff,
                             Exiv2::ImageType::webp, Exiv2::ImageType::bmff, Exiv2::ImageType::cr2,
                             Exiv2::ImageType::nef,  Exiv2::ImageType::arw,  Exiv2::ImageType::dng,
                             Exiv2::ImageType::orf,  Exiv2::ImageType::rw2};

void lockXmp(void* mutex, bool lock) {
    auto& xmp = *static_cast<std::recursive_mutex*>(mutex);
    lock ? xmp.lock() : xmp.unlock();
}

/// What Exiv2 needs before several threads may use it.
void startExiv2() {
    static std::recursive_mutex xmp;
    static const bool started = [] {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        Exiv2::enableBMFF(true);
        return Exiv2::XmpParser::initialize(lockXmp, &xmp);
    }();
    (void)started;
}

/// Whether the headers hold no fault; what was read before one stands in the image all the same.
bool readsToItsEnd(Exiv2::Image& image) {
    try {
        image.readMetadata();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace

std::unique_ptr<Exiv2::Image> readExiv2Image(const std::filesystem::path& file) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored)) return nullptr;
    startExiv2();
    try {
        // Made absolute, because Exiv2 takes some relative paths for addresses on a network.
        const auto absolute = std::filesystem::absolute(file).string();
        std::unique_ptr<Exiv2::Image> image(Exiv2::ImageFactory::open(absolute, false).release());
        if (std::ranges::find(formats, image->imageType()) == formats.end()) return nullptr;
        const bool isWhole = readsToItsEnd(*image);
        return isWhole || !image->exifData().empty() ? std::move(image) : nullptr;
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace ornivo
