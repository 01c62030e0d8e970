#include "app/RunCompanion.h"

#include <gtest/gtest.h>

#include <atomic>

#include "app/StoreScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;

/// What the desktop was asked for, in order.
struct DesktopLog {
    std::vector<std::string> lines;
    Notifications::Activated activated;
};

struct LoggedNotifications : Notifications {
    explicit LoggedNotifications(DesktopLog& target) : log(target) {}
    void show(const QString& title, const QString&, Activated activated) override {
        log.lines.push_back("notify " + title.toStdString());
        log.activated = std::move(activated);
    }
    DesktopLog& log;
};

struct LoggedLauncher : LauncherEntry {
    explicit LoggedLauncher(DesktopLog& target) : log(target) {}
    void showProgress(double share) override {
        log.lines.push_back("progress " + std::to_string(static_cast<int>(share * 100)));
    }
    void hideProgress() override { log.lines.push_back("no progress"); }
    DesktopLog& log;
};

struct LoggedInhibitor : SleepInhibitor {
    explicit LoggedInhibitor(DesktopLog& target) : log(target) {}
    void hold(const QString&) override { log.lines.push_back("hold"); }
    void release() override { log.lines.push_back("release"); }
    DesktopLog& log;
};

class RunCompanionTest : public ::testing::Test {
protected:
    void SetUp() override {
        companion_ = std::make_unique<RunCompanion>(
            scene_.store(),
            RunCompanion::Services{std::make_unique<LoggedNotifications>(log_),
                                   std::make_unique<LoggedLauncher>(log_),
                                   std::make_unique<LoggedInhibitor>(log_)},
            [this] { return isInFront_; });
    }
    bool has(const std::string& line) const {
        return std::find(log_.lines.begin(), log_.lines.end(), line) != log_.lines.end();
    }

    StoreScene scene_;
    DesktopLog log_;
    bool isInFront_ = false;
    std::unique_ptr<RunCompanion> companion_;
};

TEST_F(RunCompanionTest, TellsTheDesktopOfARunFromItsStartToItsEnd) {
    scene_.pictures(2);
    scene_.chooseFolders();
    EXPECT_TRUE(log_.lines.empty());
    scene_.runToItsEnd();
    EXPECT_EQ(log_.lines.front(), "hold");
    EXPECT_TRUE(has("progress 0"));
    EXPECT_TRUE(has("no progress"));
    EXPECT_TRUE(has("release"));
    EXPECT_EQ(log_.lines.back(), "notify Sort complete!");
}

TEST_F(RunCompanionTest, SaysNothingWhileTheWindowIsInFront) {
    isInFront_ = true;
    scene_.pictures(1);
    scene_.chooseFolders();
    scene_.runToItsEnd();
    EXPECT_FALSE(has("notify Sort complete!"));
}

TEST_F(RunCompanionTest, APressOnTheNotificationAsksForTheWindow) {
    scene_.pictures(1);
    scene_.chooseFolders();
    scene_.runToItsEnd();
    std::vector<QByteArray> tokens;
    QObject::connect(companion_.get(), &RunCompanion::windowWanted,
                     [&](const QByteArray& token) { tokens.push_back(token); });
    log_.activated("token_TIME0");
    EXPECT_EQ(tokens, std::vector<QByteArray>{"token_TIME0"});
}

TEST_F(RunCompanionTest, TellsOfASearchInItsOwnWords) {
    scene_.pictures(1);
    scene_.chooseFolders();
    scene_.store().setMode(AppStore::Mode::Find);
    scene_.store().addSpecies(QStringLiteral("Osprey"), {});
    scene_.runToItsEnd();
    EXPECT_EQ(log_.lines.back(), "notify Search complete!");
}

TEST_F(RunCompanionTest, APausedRunLetsTheMachineSleep) {
    std::atomic<bool> mayGo = false;
    scene_.pictures(2);
    scene_.run.files().onAttempt([&](const auto&) { mayGo.wait(false); });
    scene_.chooseFolders();
    scene_.store().tapPrimaryCTA();
    scene_.store().pause();
    EXPECT_EQ(log_.lines.back(), "release");
    scene_.store().resume();
    EXPECT_EQ(log_.lines.back(), "hold");
    mayGo = true;
    mayGo.notify_all();
    EXPECT_TRUE(scene_.waitForEnd());
}

}  // namespace
}  // namespace ornivo::app
