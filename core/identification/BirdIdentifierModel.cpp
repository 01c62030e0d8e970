// Where the identifier's model comes from: found among the resources, told by its content, and
// kept in compiled form between launches.

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <string_view>
#include <vector>

#include "identification/BirdIdentifier.h"
#include "platform/Error.h"
#include "platform/FolderWalk.h"
#include "platform/NeuralNetwork.h"
#include "platform/Paths.h"
#include "platform/Resources.h"
#include "platform/Sha256.h"
#include "platform/TemporaryName.h"
#include "platform/Text.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

constexpr const char* modelName = "BirdClassifier";
constexpr const char* compiledExtension = "mlmodelc";

std::vector<fs::path> filesOf(const fs::path& model) {
    std::error_code unknown;
    if (!fs::is_directory(model, unknown)) return {model};
    std::vector<fs::path> files;
    walkFolder(model, [&](const FolderEntry& entry) {
        if (entry.isRegularFile) files.push_back(entry.path);
        return Descent::enter;
    });
    std::ranges::sort(files, [](const fs::path& a, const fs::path& b) {
        return plainTextLess(a.native(), b.native());
    });
    return files;
}

void feedContent(const fs::path& file, Sha256& hash) {
    struct Close {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };
    const std::unique_ptr<std::FILE, Close> stream(std::fopen(file.c_str(), "rbe"));
    if (!stream) throw Error::posix(errno, file.string());

    std::vector<char> chunk(std::size_t{1} << 20U);
    while (const std::size_t count = std::fread(chunk.data(), 1, chunk.size(), stream.get())) {
        hash.update(std::string_view(chunk.data(), count));
    }
    if (std::ferror(stream.get()) != 0) throw Error::posix(errno, file.string());
}

/// Renamed before it is removed, so that a process that dies in between leaves no half of a model
/// under a model's name. Failures are ignored.
void discard(const fs::path& caches, const fs::path& compiled) {
    const TemporaryName retired(caches);
    std::error_code ignored;
    fs::rename(compiled, retired.path(), ignored);
    fs::remove_all(retired.path(), ignored);
}

/// Compiled forms of models that are no longer in use. Housekeeping: failures are ignored.
void removeOthers(const fs::path& caches, const fs::path& target) {
    std::error_code ignored;
    std::vector<fs::path> others;
    for (fs::directory_iterator entry(caches, ignored), end; entry != end;
         entry.increment(ignored)) {
        const std::string name = lastPathComponent(entry->path());
        if (name.starts_with(modelName) && pathExtension(name) == compiledExtension &&
            entry->path() != target) {
            others.push_back(entry->path());
        }
    }
    for (const fs::path& other : others) discard(caches, other);
}

void moveIntoPlace(const fs::path& compiled, const fs::path& target) {
    std::error_code failure;
    fs::rename(compiled, target, failure);
    if (!failure) return;
    std::error_code ignored;
    fs::remove_all(compiled, ignored);
    throw Error::posix(failure.value(), target.string());
}

}  // namespace

std::optional<fs::path> BirdIdentifier::bundledModelURL() {
    for (const char* extension : {compiledExtension, "mlpackage", "mlmodel"}) {
        if (auto found = Resources::find(modelName, extension)) return found;
    }
    return std::nullopt;
}

fs::path BirdIdentifier::compiledURL(const fs::path& model) {
    const fs::path caches = Resources::cachesDirectory();
    fs::path target = caches / (std::string(modelName) + "-" + contentFingerprint(model) + "." +
                                compiledExtension);
    std::error_code unknown;
    if (fs::exists(target, unknown)) return target;

    // What stands at the target is always whole: a process that dies half-way leaves its work under
    // the temporary name.
    const TemporaryName compiled(caches);
    NeuralNetwork::compile(model, compiled.path());
    removeOthers(caches, target);
    discard(caches, target);
    moveIntoPlace(compiled.path(), target);
    return target;
}

std::string BirdIdentifier::contentFingerprint(const fs::path& model) {
    Sha256 hash;
    for (const fs::path& file : filesOf(model)) {
        hash.update(lastPathComponent(file));
        feedContent(file, hash);
    }
    constexpr std::size_t digits = 16;
    return hash.hexDigest().substr(0, digits);
}

}  // namespace ornivo
