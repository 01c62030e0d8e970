#include "app/SingleInstance.h"

#include <gtest/gtest.h>

#include <QLocalSocket>
#include <atomic>
#include <cstdlib>
#include <thread>

#include "app/StoreScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
using Request = SingleInstance::Request;

class SingleInstanceTest : public ::testing::Test {
protected:
    QString folder() const { return QString::fromStdString(folder_.path().string()); }

    /// Hands over from another thread, as another process would, while the first one works.
    bool handOver(const Request& request) {
        bool wasTaken = false;
        std::atomic<bool> isDone = false;
        std::jthread later([&] {
            wasTaken = SingleInstance(folder()).handOver(request);
            isDone = true;
        });
        EXPECT_TRUE(waitUntil([&] { return isDone.load(); }));
        return wasTaken;
    }

    TempFolder folder_;
};

TEST_F(SingleInstanceTest, TheFirstGetsWhatLaterOnesWereGiven) {
    SingleInstance first(folder());
    std::vector<Request> requests;
    QObject::connect(&first, &SingleInstance::requested,
                     [&](const Request& request) { requests.push_back(request); });
    ASSERT_TRUE(first.claim());
    EXPECT_FALSE(SingleInstance(folder()).claim());

    const Request full{{"/a", "/no UTF-8 \xFF\n"}, "token_TIME0"};
    EXPECT_TRUE(handOver(full));
    EXPECT_TRUE(handOver({}));
    ASSERT_TRUE(waitUntil([&] { return requests.size() == 2; }));
    EXPECT_EQ(requests, (std::vector{full, Request()}));
}

TEST_F(SingleInstanceTest, AfterTheFirstHasLetGoTheNextIsTheFirst) {
    SingleInstance first(folder());
    ASSERT_TRUE(first.claim());
    first.release();
    SingleInstance second(folder());
    EXPECT_TRUE(second.claim());
}

TEST_F(SingleInstanceTest, WhatACrashLeftBehindIsNoFirst) {
    EXPECT_EXIT(
        {
            SingleInstance crashing(folder());
            std::_Exit(crashing.claim() ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
    ASSERT_TRUE(std::filesystem::exists(folder_ / "ornivo.lock"));
    ASSERT_TRUE(std::filesystem::exists(folder_ / "ornivo.socket"));
    SingleInstance instance(folder());
    EXPECT_FALSE(instance.handOver({}));
    EXPECT_TRUE(instance.claim());
    EXPECT_TRUE(handOver({}));
}

TEST_F(SingleInstanceTest, AStartThatGoesBeforeItIsHeardMakesNoNoise) {
    SingleInstance first(folder());
    const Count requests(&first, &SingleInstance::requested);
    ASSERT_TRUE(first.claim());
    ::testing::internal::CaptureStderr();
    // Nothing is read here meanwhile.
    std::jthread([this] {
        QLocalSocket socket;
        socket.connectToServer(folder() + QStringLiteral("/ornivo.socket"));
        EXPECT_TRUE(socket.waitForConnected());
        socket.abort();
    }).join();
    EXPECT_TRUE(waitUntil([&] { return requests.times() == 1; }));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(SingleInstanceFolder, IsTheOneThatAllStartsSee) {
    const QString own = qEnvironmentVariable("XDG_RUNTIME_DIR");
    EXPECT_EQ(SingleInstance::usualFolder(), own);
    qputenv("FLATPAK_ID", "org.ornivo.Ornivo");
    EXPECT_EQ(SingleInstance::usualFolder(), own + QStringLiteral("/app/org.ornivo.Ornivo"));
    qunsetenv("FLATPAK_ID");
}

TEST_F(SingleInstanceTest, WhereNothingCanBeWrittenEachIsOnItsOwn) {
    SingleInstance instance(QStringLiteral("/proc/no such folder"));
    EXPECT_TRUE(instance.claim());
    EXPECT_FALSE(instance.handOver({}));
}

TEST_F(SingleInstanceTest, ARequestOfRelativePathsHoldsNoFolders) {
    SingleInstance first(folder());
    std::vector<Request> requests;
    QObject::connect(&first, &SingleInstance::requested,
                     [&](const Request& request) { requests.push_back(request); });
    ASSERT_TRUE(first.claim());
    EXPECT_TRUE(handOver({{"../a", "/b"}, {}}));
    ASSERT_TRUE(waitUntil([&] { return !requests.empty(); }));
    EXPECT_EQ(requests.front(), (Request{{"/b"}, {}}));
}

}  // namespace
}  // namespace ornivo::app
