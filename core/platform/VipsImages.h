#pragma once

#include <array>
#include <memory>
#include <optional>

#include "platform/BitmapTransforms.h"

struct _VipsImage;  // NOLINT(bugprone-reserved-identifier): the library named it.

/// How this folder works with libvips; nothing outside it includes this.
namespace ornivo {

enum class StillFormat { jpeg, png, tiff, webp, heic };

struct StillReader {
    /// What the names of libvips' classes for the format begin with.
    const char* vipsClass;
    StillFormat format;
};

/// The only readers that a file can reach.
inline constexpr std::array stillReaders{
    StillReader{"VipsForeignLoadJpeg", StillFormat::jpeg},
    StillReader{"VipsForeignLoadPng", StillFormat::png},
    StillReader{"VipsForeignLoadTiff", StillFormat::tiff},
    StillReader{"VipsForeignLoadWebp", StillFormat::webp},
    StillReader{"VipsForeignLoadHeif", StillFormat::heic},
};

struct VipsImageUnref {
    void operator()(_VipsImage* image) const;
};

/// An image as libvips holds it: the steps that will make its pixels, not yet the pixels. Null
/// when a step could not be taken.
using VipsImageHandle = std::unique_ptr<_VipsImage, VipsImageUnref>;

/// Starts libvips, at the first call, the way this program wants it: no cache, one thread an
/// image, no message on any terminal, and no reader but `stillReaders`. Ends the process if the
/// library does not start.
void startVips();

/// Takes one step: an operation of libvips that makes an image from an image. A null image stays
/// null.
template <typename Operation, typename... Arguments>
VipsImageHandle vipsStep(Operation operation, const VipsImageHandle& in, Arguments... arguments) {
    _VipsImage* out = nullptr;
    if (!in || operation(in.get(), &out, arguments..., nullptr) != 0) return nullptr;
    return VipsImageHandle(out);
}

/// An image over the bitmap's own pixels. It must not outlive the bitmap.
VipsImageHandle overPixelsOf(const Bitmap& bitmap);

PixelSize sizeOf(const VipsImageHandle& image);

/// Scales with a Lanczos filter, or a bicubic one where a side grows.
VipsImageHandle resized(VipsImageHandle image, PixelSize size);

/// The pixels of an image that has three 8-bit bands; absent when they cannot be made, as from a
/// file that is cut short.
std::optional<Bitmap> rendered(const VipsImageHandle& image);

}  // namespace ornivo
