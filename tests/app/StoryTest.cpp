#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>
#include <atomic>
#include <map>
#include <set>

#include "app/AppWindow.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
namespace fs = std::filesystem;
using Operation = FailingFiles::Operation;

constexpr int browserPatienceMilliseconds = 120000;
/// Within which a run that wasn't held would be through.
constexpr int pauseMilliseconds = 300;

/// What it takes to look at a page as a person does.
struct Browser {
    QString node = QStandardPaths::findExecutable(QStringLiteral("node"));
    QString chromium = QStandardPaths::findExecutable(QStringLiteral("chromium"));
    fs::path playwright = fs::path(ORNIVO_SOURCE_DIR) / "build/deps/playwright-core";

    bool isThere() const {
        return !node.isEmpty() && !chromium.isEmpty() && fs::exists(playwright / "package.json");
    }

    /// Decides on the page in that folder, and answers what was copied there.
    std::string decisionsCopiedFrom(const fs::path& uncertain) const {
        const TempFolder folder;
        const fs::path copied = folder / "copied.csv";
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("ORNIVO_CHROMIUM", chromium);
        environment.insert("ORNIVO_PLAYWRIGHT", QString::fromStdString(playwright.string()));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        const fs::path script = fs::path(ORNIVO_SOURCE_DIR) / "tests/page/decide_by_hand.mjs";
        process.start(node, {QString::fromStdString(script.string()),
                             QString::fromStdString(uncertain.string()),
                             QString::fromStdString(copied.string())});
        EXPECT_TRUE(process.waitForFinished(browserPatienceMilliseconds));
        const bool isDone = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
        EXPECT_TRUE(isDone) << process.readAll().toStdString();
        return isDone ? readFile(copied) : std::string();
    }
};

/// One evening with the program, from an earlier start's folders to the last bird's name.
class Story : public ::testing::Test {
protected:
    static constexpr int heldCopy = 1;

    void SetUp() override {
        if (!browser_.isThere()) GTEST_SKIP() << "node, chromium or playwright-core is missing";
        takePhotographs();
        rememberFoldersOfAnEarlierStart();
        holdTheRunUp();
    }
    void TearDown() override { letGo(); }

    void takePhotographs() {
        auto& run = scene_.run;
        run.picture("a robin.jpg", robin, 0.9);
        run.picture("an eagle.jpg", baldEagle, 0.95);
        for (const char* const name : {"clicked.jpg", "keyed.jpg", "typed.jpg", "étang.jpg"}) {
            run.picture(name, guesses({{robin.label, 0.4}, {grebe.label, 0.3}, {tit.label, 0.1}}));
        }
        run.sidecar("typed.xmp");
        for (const auto& entry : fs::directory_iterator(scene_.source())) {
            photographs_[entry.path().filename().string()] = readFile(entry.path());
        }
    }
    void rememberFoldersOfAnEarlierStart() {
        scene_.chooseFolders();
        scene_.restart();
    }
    void holdTheRunUp() {
        scene_.run.files().onAttempt([this](const FailingFiles::Attempt& attempt) {
            if (attempt.operation != Operation::copy || copies_++ != heldCopy) return;
            isHeld_ = true;
            mayGo_.wait(false);
        });
    }
    void letGo() {
        mayGo_ = true;
        mayGo_.notify_all();
    }

    bool waitFor(JobState state) {
        return waitUntil([&] { return store().jobState() == state; });
    }
    AppStore& store() { return scene_.store(); }

    /// The source with a press of its chip, the destination dropped on the window.
    void chooseFolders(AppWindow& window) {
        window.click("source");
        window.drop(scene_.sink());
        ASSERT_TRUE(scene_.waitForScan());
        EXPECT_EQ(window.text("sourceStatus"), "6 photos found (including subfolders)");
        EXPECT_EQ(window.text("footerStatus").toStdString(), "Ready — 6 photos");
    }
    void sortWithAPause(AppWindow& window) {
        window.click("Sort Photos");
        ASSERT_TRUE(waitUntil([&] { return isHeld_.load(); }));
        window.click("Pause");
        ASSERT_TRUE(waitFor(JobState::paused));
        letGo();
        QTest::qWait(pauseMilliseconds);
        EXPECT_EQ(copies_, heldCopy + 1);
        // A photograph counts once the next one's turn has come.
        EXPECT_EQ(window.text("progressCount").toStdString(), "Paused — 1 of 6 photos processed");
        window.key(Qt::Key_P, Qt::ControlModifier);
        ASSERT_TRUE(scene_.waitForEnd());
        EXPECT_EQ(window.text("sortResultSlot").section('|', 0, 2).toStdString(),
                  "Sort Result|✓ 2 photos sorted into bird folders|? 4 moved to _Uncertain/");
    }
    void decideOnThePage() {
        const std::string copied = browser_.decisionsCopiedFrom(scene_.sink() / "_Uncertain");
        ASSERT_NE(copied, "");
        QGuiApplication::clipboard()->setText(QString::fromStdString(copied));
    }
    void fileDecisions(AppWindow& window) {
        window.key(Qt::Key_Comma, Qt::ControlModifier);
        window.click("Paste decisions and file them");
        ASSERT_TRUE(waitUntil([&] { return !window.text("applyNote").isEmpty(); }));
        EXPECT_EQ(window.text("applyNote"), "Filed 3 photos into 3 folders.");
        window.key(Qt::Key_Escape);
        EXPECT_TRUE(waitUntil([&] { return !window.shows("Settings"); }));
    }
    /// These lie in the destination as they were taken, beside the files of the review, and in the
    /// source nothing has changed.
    void expectFiled(std::set<std::string> paths) {
        for (const std::string& path : paths) {
            const std::string name = fs::path(path).filename();
            EXPECT_TRUE(scene_.run.contents(path) == photographs_.at(name)) << path;
        }
        for (const auto& [name, contents] : photographs_) {
            EXPECT_TRUE(readFile(scene_.source() / name) == contents) << name;
        }
        paths.insert({"_Uncertain/review.csv", "_Uncertain/review.html"});
        EXPECT_EQ(scene_.run.filed(), paths);
    }

    const Browser browser_{};
    std::map<std::string, std::string> photographs_;
    std::atomic<int> copies_ = 0;
    std::atomic<bool> isHeld_ = false;
    std::atomic<bool> mayGo_ = false;
    StoreScene scene_;
};

TEST_F(Story, FromTheFoldersToTheLastNameByMouseAndKeyboard) {
    AppWindow window(store());
    ASSERT_NO_FATAL_FAILURE(chooseFolders(window));
    ASSERT_NO_FATAL_FAILURE(sortWithAPause(window));
    ASSERT_NO_FATAL_FAILURE(decideOnThePage());
    ASSERT_NO_FATAL_FAILURE(fileDecisions(window));
    expectFiled({"Bald Eagle/an eagle.jpg", "Clark's Grebe/keyed.jpg", "European Robin/a robin.jpg",
                 "Koklass Pheasant/typed.jpg", "Koklass Pheasant/typed.xmp",
                 "Long-tailed Tit/clicked.jpg", "_Uncertain/étang.jpg"});
}

}  // namespace
}  // namespace ornivo::app
