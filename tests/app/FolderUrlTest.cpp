#include "app/FolderUrl.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

TEST(FolderUrl, EveryNameSurvivesTheWayThereAndBack) {
    for (const char* path : {"/", "/a/b", "/with blank", "/100%", "/%41", "/a#b?c", "/\xC3\xA9",
                             "/no UTF-8 \xFF\xFE", "/line\nend", "/semi;colon"}) {
        EXPECT_EQ(pathOf(urlOf(path)), std::filesystem::path(path)) << path;
    }
}

TEST(FolderUrl, IsAFileUrl) {
    EXPECT_EQ(urlOf("/Birds \xC3\xA9").toEncoded(), "file:///Birds%20%C3%A9");
}

TEST(FolderUrl, OnlyWhatLiesOnThisMachineHasAPath) {
    EXPECT_EQ(pathOf(QUrl(QStringLiteral("file://localhost/a"))), std::filesystem::path("/a"));
    for (const char* url :
         {"", "https://example.org/a", "file://elsewhere/a", "a/b", "file:///a%00b"}) {
        EXPECT_EQ(pathOf(QUrl::fromEncoded(url)), std::nullopt) << url;
    }
}

}  // namespace
}  // namespace ornivo::app
