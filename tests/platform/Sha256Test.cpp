#include "platform/Sha256.h"

#include <gtest/gtest.h>

#include <string>

namespace ornivo {
namespace {

std::string digestOf(std::string_view bytes) {
    Sha256 digest;
    digest.update(bytes);
    return digest.hexDigest();
}

// The messages of the examples that the standard was published with.
TEST(Sha256, GivesTheDigestsOfTheStandardsExamples) {
    EXPECT_EQ(digestOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(digestOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(digestOf(std::string(1'000'000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, NothingAtAllHasADigestToo) {
    EXPECT_EQ(Sha256().hexDigest(),
              "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(Sha256, PiecesGiveTheDigestOfTheWhole) {
    Sha256 digest;
    digest.update("a");
    digest.update("");
    digest.update("bc");
    EXPECT_EQ(digest.hexDigest(), digestOf("abc"));
}

TEST(Sha256, ZeroBytesCount) {
    using namespace std::string_literals;
    EXPECT_NE(digestOf("a\0"s), digestOf("a"));
}

}  // namespace
}  // namespace ornivo
