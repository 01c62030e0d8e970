#include "support/Clips.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <string>

#include "support/Pictures.h"
#include "support/TempFolder.h"

namespace ornivo::testing {

namespace fs = std::filesystem;

namespace {

/// From the darkest, 16, to the brightest that limited range holds.
constexpr double levels = 219;

/// How often the quick hand of a clock goes round in a clip.
constexpr double turns = 20;

/// Runs ffmpeg without a word; false unless it ends well.
bool runFFmpeg(FFmpegArguments arguments) {
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
    }
    pid_t process = -1;
    const int failure =
        posix_spawnp(&process, "ffmpeg", &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = -1;
    return failure == 0 && waitpid(process, &status, 0) == process && status == 0;
}

std::string bigEndian(int number) {
    const auto bits = static_cast<std::uint32_t>(number);
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        bytes += static_cast<char>((bits >> shift) & 0xffU);
    }
    return bytes;
}

}  // namespace

fs::path writeClip(const fs::path& path, const FFmpegArguments& input,
                   const FFmpegArguments& output) {
    fs::create_directories(path.parent_path());
    FFmpegArguments arguments{"ffmpeg", "-nostdin", "-y"};
    arguments.insert(arguments.end(), input.begin(), input.end());
    arguments.insert(arguments.end(), output.begin(), output.end());
    arguments.push_back(path);
    EXPECT_TRUE(runFFmpeg(arguments)) << "ffmpeg made no " << path;
    return path;
}

bool canEncode(const std::string& encoder) {
    return runFFmpeg({"ffmpeg", "-nostdin", "-f", "lavfi", "-i", "color=s=128x96:d=0.1", "-c:v",
                      encoder, "-f", "null", "-"});
}

FFmpegArguments clockPictures(double seconds) {
    const std::string length = std::to_string(seconds);
    const std::string period = std::to_string(seconds / turns);
    const std::string slope = std::to_string(levels / seconds);
    const std::string steep = std::to_string(levels / seconds * turns);
    return {"-f", "lavfi", "-i",
            "nullsrc=s=64x48:r=30:d=" + length + ",format=yuv420p,geq=lum='if(lt(X,W/2),16+T*" +
                slope + ",16+mod(T," + period + ")*" + steep + ")':cb=128:cr=128"};
}

double secondShown(const Bitmap& frame, double seconds) {
    const auto share = [&](int quarter) {
        return at(frame, frame.width() * quarter / 4, frame.height() / 2).green / 255.0;
    };
    const double turn = share(3);
    return (std::round(share(1) * turns - turn) + turn) * seconds / turns;
}

FFmpegArguments plainPictures(const std::string& colour, int width, int height, double seconds) {
    return {"-f", "lavfi", "-i",
            "color=" + colour + ":s=" + std::to_string(width) + "x" + std::to_string(height) +
                ":r=10:d=" + std::to_string(seconds)};
}

FFmpegArguments stillPicture(const fs::path& picture) {
    return {"-loop", "1", "-framerate", "10", "-t", "1", "-i", picture};
}

void patchBoxes(const fs::path& clip, std::string_view box, std::size_t offset,
                std::string_view bytes) {
    std::string contents = readFile(clip);
    std::size_t patched = 0;
    for (auto at = contents.find(box); at != std::string::npos; at = contents.find(box, at + 1)) {
        contents.replace(at + box.size() + offset, bytes.size(), bytes);
        ++patched;
    }
    EXPECT_GT(patched, 0U) << "no " << box << " in " << clip;
    writeFile(clip, contents);
}

void statePictureSize(const fs::path& clip, std::string_view sampleEntry, int width, int height) {
    constexpr std::size_t sizeInSampleEntry = 24;
    constexpr std::size_t upperBytes = 2;
    patchBoxes(clip, sampleEntry, sizeInSampleEntry,
               bigEndian(width).substr(upperBytes) + bigEndian(height).substr(upperBytes));
}

void setDisplayMatrix(const fs::path& clip, int columnsByX, int rowsByX, int columnsByY,
                      int rowsByY) {
    constexpr std::size_t matrixInTrackHeader = 40;
    constexpr int one = 1 << 16;
    std::string matrix;
    for (const int number : {columnsByX, rowsByX, 0, columnsByY, rowsByY}) {
        matrix += bigEndian(number * one);
    }
    patchBoxes(clip, "tkhd", matrixInTrackHeader, matrix);
}

void cutBeforeBox(const fs::path& clip, std::string_view box) {
    constexpr std::size_t sizeField = 4;
    const std::size_t at = readFile(clip).find(box);
    ASSERT_NE(at, std::string::npos) << "no " << box << " in " << clip;
    fs::resize_file(clip, at - sizeField);
}

}  // namespace ornivo::testing
