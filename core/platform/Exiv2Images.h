#pragma once

#include <exiv2/exiv2.hpp>
#include <filesystem>
#include <memory>

/// How this folder works with Exiv2; nothing outside it includes this.
namespace ornivo {

/// The image with its metadata, up to the first fault in them. Null when the file is none of the
/// pictures that this program takes, or has nothing that can be read. May be called from any
/// thread.
std::unique_ptr<Exiv2::Image> readExiv2Image(const std::filesystem::path& file);

}  // namespace ornivo
