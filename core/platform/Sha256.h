#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace ornivo {

/// SHA-256 (FIPS 180-4), fed piece by piece.
class Sha256 {
public:
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void update(std::string_view bytes);

    /// The digest as 64 lower-case hexadecimal digits. Nothing may be fed afterwards.
    std::string hexDigest();

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace ornivo
