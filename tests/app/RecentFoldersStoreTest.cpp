#include "app/RecentFoldersStore.h"

#include <gtest/gtest.h>

#include <memory>

#include "app/Bookmark.h"
#include "app/FolderUrl.h"
#include "support/TempFolder.h"

namespace ornivo::app {
namespace {

using ornivo::testing::TempFolder;
namespace fs = std::filesystem;
using Kind = RecentFoldersStore::Kind;
using Folders = std::vector<fs::path>;

const auto sourceKey = QStringLiteral("recentSourceBookmarks");

class RecentFolders : public ::testing::Test {
protected:
    fs::path folder(const std::string& name) {
        fs::create_directories(home_ / name);
        return home_ / name;
    }
    void add(const fs::path& path, Kind kind = Kind::source) { store_->add(path, kind); }
    /// As after a restart.
    void reopen() {
        store_.reset();
        defaults_ = std::make_unique<QSettings>(iniFile(), QSettings::IniFormat);
        store_ = std::make_unique<RecentFoldersStore>(*defaults_);
    }
    QString iniFile() const { return QString::fromStdString((home_ / "recent.ini").string()); }

    TempFolder home_;
    std::unique_ptr<QSettings> defaults_ =
        std::make_unique<QSettings>(iniFile(), QSettings::IniFormat);
    std::unique_ptr<RecentFoldersStore> store_ = std::make_unique<RecentFoldersStore>(*defaults_);
};

TEST_F(RecentFolders, StandNewestFirstAndSurviveARestart) {
    add(folder("a"));
    reopen();
    EXPECT_EQ(store_->sourceFolders(), Folders{folder("a")});
    add(folder("b"));
    add(folder("no UTF-8 \xFF, comma; and \"quotes\""));
    reopen();
    EXPECT_EQ(store_->sourceFolders(),
              (Folders{folder("no UTF-8 \xFF, comma; and \"quotes\""), folder("b"), folder("a")}));
    EXPECT_EQ(store_->sourceUrls().last(), urlOf(folder("a")));
    EXPECT_TRUE(store_->destinationFolders().empty());
}

TEST_F(RecentFolders, ChosenAgainOneMovesToTheFront) {
    add(folder("a"));
    add(folder("b"));
    add(folder("a"));
    EXPECT_EQ(store_->sourceFolders(), (Folders{folder("a"), folder("b")}));
}

TEST_F(RecentFolders, ThroughALinkItIsTheSameFolder) {
    add(folder("a"));
    add(folder("b"));
    fs::create_directory_symlink(folder("a"), home_ / "link");
    add(home_ / "link");
    EXPECT_EQ(store_->sourceFolders(), (Folders{home_ / "link", folder("b")}));
}

TEST_F(RecentFolders, WithADotAtTheEndItIsTheSameFolder) {
    add(folder("a"));
    add(folder("b"));
    add(folder("a") / ".");
    EXPECT_EQ(store_->sourceFolders(), (Folders{folder("a") / ".", folder("b")}));
}

TEST_F(RecentFolders, TheEleventhPushesOutTheOldest) {
    Folders expected;
    for (int i = 0; i <= 10; ++i) {
        add(folder(std::to_string(i)));
        if (i > 0) expected.insert(expected.begin(), folder(std::to_string(i)));
    }
    EXPECT_EQ(store_->sourceFolders(), expected);
}

TEST_F(RecentFolders, TheKindsAreIndependent) {
    add(folder("a"), Kind::source);
    add(folder("a"), Kind::destination);
    add(folder("b"), Kind::destination);
    EXPECT_EQ(store_->sourceFolders(), Folders{folder("a")});
    EXPECT_EQ(store_->destinationFolders(), (Folders{folder("b"), folder("a")}));
}

TEST_F(RecentFolders, AFolderOfOneKindBringsTheOtherKindUpToDate) {
    add(folder("a"), Kind::source);
    add(folder("b"), Kind::destination);
    fs::remove(folder("a"));
    add(folder("c"), Kind::destination);
    EXPECT_TRUE(store_->sourceFolders().empty());
    fs::remove(folder("b"));
    add(folder("d"), Kind::source);
    EXPECT_EQ(store_->destinationFolders(), Folders{folder("c")});
}

TEST_F(RecentFolders, OneThatIsGoneIsDroppedAndTheListSavedSo) {
    add(folder("a"));
    add(folder("b"));
    add(folder("c"));
    fs::remove(folder("b"));
    EXPECT_EQ(store_->resolve(Kind::source), (Folders{folder("c"), folder("a")}));
    EXPECT_EQ(defaults_->value(sourceKey).toList().size(), 2);
    EXPECT_EQ(store_->sourceFolders().size(), 3U) << "what is published waits for a refresh";
    store_->refreshPublished();
    EXPECT_EQ(store_->sourceFolders().size(), 2U);
}

TEST_F(RecentFolders, TheLastOneMayGoToo) {
    add(folder("a"));
    fs::remove(folder("a"));
    reopen();
    EXPECT_TRUE(store_->sourceFolders().empty());
    reopen();
    EXPECT_TRUE(store_->sourceFolders().empty());
}

TEST_F(RecentFolders, OneThatWasMovedIsDroppedWhenAnotherIsAdded) {
    add(folder("a"));
    fs::rename(folder("a"), home_ / "elsewhere");
    add(folder("b"));
    EXPECT_EQ(defaults_->value(sourceKey).toList().size(), 1);
}

TEST_F(RecentFolders, AStaleOneIsRemade) {
    add(folder("a"));
    fs::rename(folder("a"), home_ / "old");
    folder("a");
    EXPECT_EQ(store_->resolve(Kind::source), Folders{folder("a")});
    const QByteArray remade = defaults_->value(sourceKey).toList().first().toByteArray();
    EXPECT_EQ(Bookmark::resolve(remade), (Bookmark::Resolved{folder("a"), false}));
}

TEST_F(RecentFolders, AFolderThatCantBeBookmarkedChangesNothing) {
    add(folder("a"));
    add(home_ / "missing");
    EXPECT_EQ(store_->sourceFolders(), Folders{folder("a")});
}

TEST_F(RecentFolders, AnythingButAListOfBookmarksCountsAsEmpty) {
    for (const QVariant& value :
         {QVariant(QStringLiteral("text")), QVariant(7), QVariant(QByteArray("bytes")),
          QVariant(QVariantList{QStringLiteral("text"), 7})}) {
        defaults_->setValue(sourceKey, value);
        EXPECT_TRUE(store_->resolve(Kind::source).empty());
        EXPECT_EQ(defaults_->value(sourceKey), value) << "an unchanged list isn't written";
    }
}

TEST_F(RecentFolders, TellOfTheirChanges) {
    int changes = 0;
    QObject::connect(store_.get(), &RecentFoldersStore::changed, [&] { ++changes; });
    add(folder("a"));
    EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace ornivo::app
