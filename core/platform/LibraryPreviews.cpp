#include "platform/LibraryPreviews.h"

#include <libraw/libraw.h>

#include <memory>
#include <span>
#include <string>

#include "platform/Exiv2Images.h"

namespace ornivo {

namespace fs = std::filesystem;

std::vector<std::vector<std::uint8_t>> previewsFoundByExiv2(const fs::path& file) {
    std::vector<std::vector<std::uint8_t>> found;
    const auto image = readExiv2Image(file);
    if (!image) return found;
    try {
        const Exiv2::PreviewManager previews(*image);
        for (const auto& facts : previews.getPreviewProperties()) {
            if (facts.mimeType_ != "image/jpeg") continue;
            const auto preview = previews.getPreviewImage(facts);
            const std::span bytes(preview.pData(), static_cast<std::size_t>(preview.size()));
            found.emplace_back(bytes.begin(), bytes.end());
        }
    } catch (const std::exception&) {
        // What came before the fault counts.
    }
    return found;
}

std::vector<std::vector<std::uint8_t>> previewsFoundByLibRaw(const fs::path& file) {
    std::error_code ignored;
    if (!fs::is_regular_file(file, ignored)) return {};
    LibRaw_bigfile_datastream data(file.c_str());
    if (!data.valid()) return {};
    const auto raw = std::make_unique<LibRaw>();
    raw->set_dataerror_handler([](void*, const char*, auto) {}, nullptr);
    // Of a file that it can't open it mustn't be asked for anything else.
    if (raw->open_datastream(&data) != LIBRAW_SUCCESS) return {};
    if (raw->unpack_thumb() != LIBRAW_SUCCESS) return {};
    const auto& thumbnail = raw->imgdata.thumbnail;
    if (thumbnail.tformat != LIBRAW_THUMBNAIL_JPEG || !thumbnail.thumb) return {};
    const std::span bytes(thumbnail.thumb, thumbnail.tlength);
    std::vector<std::uint8_t> jpeg;
    for (const char byte : bytes) jpeg.push_back(static_cast<std::uint8_t>(byte));
    return {std::move(jpeg)};
}

}  // namespace ornivo
