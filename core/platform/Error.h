#pragma once

#include <exception>
#include <memory>
#include <string>

namespace ornivo {

/// A failure with the identity the platform gave it: a domain and a code in it, words for the
/// user, and the failure behind it where there is one.
class Error : public std::exception {
public:
    static constexpr const char* posixDomain = "NSPOSIXErrorDomain";
    static constexpr const char* cocoaDomain = "NSCocoaErrorDomain";
    /// In `cocoaDomain`: a file could not be read, for no known reason.
    static constexpr int fileReadUnknown = 256;
    /// In `cocoaDomain`: a volume ran out of space during a write.
    static constexpr int fileWriteOutOfSpace = 640;

    Error(std::string domain, int code, std::string description,
          std::shared_ptr<const Error> underlying = nullptr);

    /// A failed system call. The description is `what` followed by ": " and the system's words.
    static Error posix(int errnoValue, const std::string& what);

    /// The file gave nothing and no better reason is at hand.
    static Error unreadableFile();

    const std::string& domain() const { return domain_; }
    int code() const { return code_; }
    const std::shared_ptr<const Error>& underlying() const { return underlying_; }

    /// The failure as a user reads it.
    const std::string& localizedDescription() const { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    std::string domain_;
    int code_;
    std::string description_;
    std::shared_ptr<const Error> underlying_;
};

}  // namespace ornivo
