#include "platform/Error.h"

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
    return {posixDomain, errnoValue, what + ": " + std::generic_category().message(errnoValue)};
}

Error Error::unreadableFile() {
    return {cocoaDomain, fileReadUnknown, "The file couldn't be read."};
}

}  // namespace ornivo
