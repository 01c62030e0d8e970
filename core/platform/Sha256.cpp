#include "platform/Sha256.h"

#include <openssl/evp.h>

#include <array>
#include <stdexcept>

namespace ornivo {
namespace {

void require(int result) {
    if (result != 1) throw std::runtime_error("SHA-256 is not at hand");
}

}  // namespace

struct Sha256::State {
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context{EVP_MD_CTX_new(),
                                                                    &EVP_MD_CTX_free};
};

Sha256::Sha256() : state_(std::make_unique<State>()) {
    require(EVP_DigestInit_ex(state_->context.get(), EVP_sha256(), nullptr));
}

Sha256::~Sha256() = default;

void Sha256::update(std::string_view bytes) {
    require(EVP_DigestUpdate(state_->context.get(), bytes.data(), bytes.size()));
}

std::string Sha256::hexDigest() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int length = 0;
    require(EVP_DigestFinal_ex(state_->context.get(), digest.data(), &length));

    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    for (unsigned int i = 0; i < length; ++i) {
        result += digits[digest[i] >> 4];
        result += digits[digest[i] & 0xF];
    }
    return result;
}

}  // namespace ornivo
