#include "platform/FileErrors.h"

#include <string>

#include "platform/Paths.h"
#include "platform/Text.h"

namespace ornivo {
namespace {

std::string couldNot(const std::filesystem::path& path, std::string_view done) {
    return '"' + wellFormed(lastPathComponent(path)) + "\" couldn't be " + std::string(done);
}

}  // namespace

Error fileError(const std::filesystem::path& file, std::string_view done, int errnoValue) {
    return Error::posix(errnoValue, couldNot(file, done));
}

Error fileError(const std::filesystem::path& file, std::string_view done, std::string_view reason) {
    return {Error::cocoaDomain, Error::fileReadUnknown,
            couldNot(file, done) + ": " + std::string(reason)};
}

Error folderError(const std::filesystem::path& folder, std::string_view done, int errnoValue) {
    return Error::posix(errnoValue, "The folder " + couldNot(folder, done));
}

}  // namespace ornivo
