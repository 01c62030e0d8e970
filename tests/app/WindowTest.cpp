#include <gtest/gtest.h>

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTest>

#include "app/Desktop.h"
#include "app/StoreScene.h"
#include "app/UpdaterController.h"

extern void qml_register_types_Ornivo();

namespace ornivo::app {
namespace {

using namespace ornivo::testing;

struct NoCentre : SoftwareCentre {
    bool canShowPage() const override { return false; }
    void showPage() override {}
};

struct NotedFiles : FileManager {
    void reveal(const std::filesystem::path& folder) override { revealed = folder; }
    std::filesystem::path revealed;
};

/// The window as the program opens it, without a desktop around it.
class Window : public ::testing::Test {
protected:
    void SetUp() override {
        [[maybe_unused]] void (*const volatile types)() = &qml_register_types_Ornivo;
        QObject::connect(&qml_, &QQmlEngine::warnings, [this](const QList<QQmlError>& errors) {
            for (const auto& error : errors) warnings_ += error.toString() + '\n';
        });
        qml_.setInitialProperties({{"store", QVariant::fromValue(&scene_.store())},
                                   {"updater", QVariant::fromValue(&updater_)},
                                   {"desktop", QVariant::fromValue(&desktop_)}});
        qml_.load(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Ornivo/Main.qml")));
        ASSERT_FALSE(qml_.rootObjects().isEmpty()) << warnings_.toStdString();
        window_ = qobject_cast<QQuickWindow*>(qml_.rootObjects().first());
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window_));
    }
    void TearDown() override { EXPECT_EQ(warnings_.toStdString(), ""); }

    StoreScene scene_;
    NoCentre centre_;
    NotedFiles files_;
    UpdaterController updater_{centre_};
    Desktop desktop_{files_};
    QString warnings_;
    QQmlApplicationEngine qml_;
    QQuickWindow* window_ = nullptr;
};

TEST_F(Window, IsAtLeast720By560) {
    EXPECT_EQ(window_->minimumSize(), QSize(720, 560));
    EXPECT_GE(window_->width(), 720);
    EXPECT_GE(window_->height(), 560);
    EXPECT_EQ(window_->title(), "Ornivo");
    EXPECT_TRUE(window_->isVisible());
}

TEST_F(Window, ControlCommaOpensTheSettings) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
    QTest::keyClick(window_, Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_TRUE(waitUntil([&] { return scene_.store().showingSettings(); }));
}

TEST_F(Window, FollowsARunToItsEnd) {
    scene_.pictures(5);
    scene_.chooseFolders();
    scene_.runToItsEnd();
    EXPECT_EQ(scene_.store().sortResult()->sorted, 5);
}

TEST_F(Window, ARequestToPickAFolderIsClearedAsItIsTaken) {
    scene_.store().setPickingSource(true);
    EXPECT_FALSE(scene_.store().pickingSource());
    scene_.store().setPickingSink(true);
    EXPECT_FALSE(scene_.store().pickingSink());
}

TEST_F(Window, ValuesReachFunctionsThroughQml) {
    scene_.pictures(2);
    scene_.chooseFolders();
    const QVariant scan = scene_.store().property("scan");
    ASSERT_TRUE(scan.canConvert<ScanResult>());
    EXPECT_EQ(scan.value<ScanResult>().total, 2);
}

}  // namespace
}  // namespace ornivo::app
