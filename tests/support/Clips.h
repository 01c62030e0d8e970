#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Bitmap.h"

/// Small real clips, made with the ffmpeg program, and damaged by hand.
namespace ornivo::testing {

using FFmpegArguments = std::vector<std::string>;

/// Runs ffmpeg with an input and what it shall make of it. Makes the folders above the file and
/// answers its path; that ffmpeg fails is a failure of the test.
std::filesystem::path writeClip(const std::filesystem::path& path, const FFmpegArguments& input,
                                const FFmpegArguments& output = {});

/// Whether this machine's ffmpeg has an encoder.
bool canEncode(const std::string& encoder);

/// The input of a clip of 64 × 48 pixels and 30 frames a second that shows how far it has come: the
/// left half grows brighter once, the right half twenty times. `secondShown` reads it, to a
/// thousandth of the clip.
FFmpegArguments clockPictures(double seconds);

/// The time at which a frame of a clip of `clockPictures` stands.
double secondShown(const Bitmap& frame, double seconds);

/// The input of a clip of one colour, as ffmpeg names it.
FFmpegArguments plainPictures(const std::string& colour, int width, int height, double seconds);

/// The input of a clip that shows a picture for a second.
FFmpegArguments stillPicture(const std::filesystem::path& picture);

/// Writes bytes into each of a clip's boxes of a name, so far behind the name.
void patchBoxes(const std::filesystem::path& clip, std::string_view box, std::size_t offset,
                std::string_view bytes);

/// Makes the container state another size of the pictures than they have. `sampleEntry` is the box
/// of their codec, as "avc1".
void statePictureSize(const std::filesystem::path& clip, std::string_view sampleEntry, int width,
                      int height);

/// Gives every track of a clip a display matrix: the four numbers that turn and mirror.
void setDisplayMatrix(const std::filesystem::path& clip, int columnsByX, int rowsByX,
                      int columnsByY, int rowsByY);

/// Cuts a clip off right before the first box of a name.
void cutBeforeBox(const std::filesystem::path& clip, std::string_view box);

}  // namespace ornivo::testing
