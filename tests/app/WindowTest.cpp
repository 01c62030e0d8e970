#include <gtest/gtest.h>

#include <stdexcept>

#include "app/AppWindow.h"
#include "app/FolderUrl.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;

class Window : public ::testing::Test {
protected:
    app::AppStore& store() { return scene_.store(); }
    fs::path folder(const char* name) {
        fs::create_directories(scene_.source() / name);
        return scene_.source() / name;
    }

    StoreScene scene_;
    AppWindow window_{scene_.store()};
};

TEST_F(Window, IsAtLeast720By560) {
    QQuickWindow& window = window_.window();
    EXPECT_EQ(window.minimumSize(), QSize(720, 560));
    EXPECT_GE(window.width(), 720);
    EXPECT_GE(window.height(), 560);
    EXPECT_EQ(window.title(), "Ornivo");
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Window, ControlCommaOpensTheSettings) {
    window_.key(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_TRUE(waitUntil([&] { return store().showingSettings(); }));
}

TEST_F(Window, FollowsARunToItsEnd) {
    scene_.pictures(5);
    scene_.chooseFolders();
    scene_.runToItsEnd();
    EXPECT_EQ(store().sortResult()->sorted, 5);
}

TEST_F(Window, ValuesReachFunctionsThroughQml) {
    scene_.pictures(2);
    scene_.chooseFolders();
    const QVariant scan = store().property("scan");
    ASSERT_TRUE(scan.canConvert<ScanResult>());
    EXPECT_EQ(scan.value<ScanResult>().total, 2);
}

/// The chooser of folders, answered as the desktop would.
class FolderChooser : public Window {
protected:
    QObject& dialog() {
        for (const QObject* part : window_.window().findChildren<QObject*>()) {
            if (!QByteArray(part->metaObject()->className()).startsWith("FolderPicker_")) continue;
            if (auto* const found = part->property("item").value<QObject*>()) return *found;
        }
        throw std::runtime_error("No chooser was opened.");
    }
    bool isOpen() { return dialog().property("visible").toBool(); }
    void choose(const fs::path& folder) {
        dialog().setProperty("selectedFolder", app::urlOf(folder));
        QMetaObject::invokeMethod(&dialog(), "accept");
    }
    void cancel() { QMetaObject::invokeMethod(&dialog(), "reject"); }
};

TEST_F(FolderChooser, ARequestIsClearedAsItIsTaken) {
    store().setPickingSource(true);
    EXPECT_FALSE(store().pickingSource());
    EXPECT_TRUE(isOpen());
    cancel();
    store().setPickingSink(true);
    EXPECT_FALSE(store().pickingSink());
    EXPECT_TRUE(isOpen());
}

TEST_F(FolderChooser, AnAnswerBecomesWhatWasAskedFor) {
    store().setPickingSource(true);
    choose(folder("photographs"));
    EXPECT_EQ(store().source(), folder("photographs"));
    EXPECT_EQ(store().sink(), std::nullopt);
    store().setPickingSink(true);
    choose(folder("sorted"));
    EXPECT_EQ(store().source(), folder("photographs"));
    EXPECT_EQ(store().sink(), folder("sorted"));
}

TEST_F(FolderChooser, NoAnswerChangesNothing) {
    store().setPickingSource(true);
    cancel();
    store().setPickingSink(true);
    cancel();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(store().source(), std::nullopt);
    EXPECT_EQ(store().sink(), std::nullopt);
}

TEST_F(FolderChooser, WhileItIsOpenAnotherRequestChangesNothing) {
    store().setPickingSource(true);
    store().setPickingSink(true);
    EXPECT_FALSE(store().pickingSink());
    choose(folder("photographs"));
    EXPECT_EQ(store().source(), folder("photographs"));
    EXPECT_EQ(store().sink(), std::nullopt);
}

TEST_F(FolderChooser, AnAnswerThatComesDuringARunIsTooLate) {
    scene_.pictures(3);
    scene_.chooseFolders();
    store().setPickingSink(true);
    store().tapPrimaryCTA();
    choose(folder("elsewhere"));
    EXPECT_EQ(store().sink(), scene_.sink());
    EXPECT_TRUE(scene_.waitForEnd());
}

}  // namespace
}  // namespace ornivo::testing
