#include "platform/Error.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace ornivo {

Error::Error(std::string domain, int code, std::string description,
             std::shared_ptr<const Error> underlying)
    : domain_(std::move(domain)),
      code_(code),
      description_(std::move(description)),
      underlying_(std::move(underlying)) {}

Error Error::posix(int errnoValue, const std::string& what) {
    const std::string words = what + ": " + std::generic_category().message(errnoValue);
    if (errnoValue != EDQUOT) return {posixDomain, errnoValue, words};
    // To whoever may write no more there, a full quota is a full volume.
    return {posixDomain, errnoValue, words,
            std::make_shared<Error>(cocoaDomain, fileWriteOutOfSpace, words)};
}

Error Error::unreadableFile() {
    return {cocoaDomain, fileReadUnknown, "The file couldn't be read."};
}

}  // namespace ornivo
