#include "app/AppWindow.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QDateTime>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QWheelEvent>
#include <cstdlib>
#include <functional>
#include <stdexcept>

#include "app/FolderUrl.h"
#include "app/MainWindow.h"

namespace ornivo::testing {
namespace {

/// Longer than it takes for anything to begin to move.
constexpr int settlingMilliseconds = 80;

/// Every item that can be seen, depth first.
void visit(QQuickItem* item, const std::function<void(QQuickItem*)>& take) {
    if (!item->isVisible()) return;
    take(item);
    for (QQuickItem* const child : item->childItems()) visit(child, take);
}

bool isText(const QQuickItem& item) {
    // What takes up no room is not there for the eye.
    return item.inherits("QQuickText") && item.property("contentWidth").toReal() > 0;
}

QPoint middleOf(const QQuickItem& item) {
    return item.mapToScene({item.width() / 2, item.height() / 2}).toPoint();
}

}  // namespace

AppWindow::AppWindow(app::AppStore& store) {
    QAccessible::setActive(true);
    QObject::connect(&qml_, &QQmlEngine::warnings, [this](const QList<QQmlError>& errors) {
        for (const auto& error : errors) complaints_ += error.toString() + '\n';
    });
    window_ = app::showMainWindow(qml_, store, updater_, desktop_);
    if (!window_) throw std::runtime_error(complaints_.toStdString());
    window_->requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
}

AppWindow::~AppWindow() {
    EXPECT_EQ(complaints_.toStdString(), "");
}

void AppWindow::click(const QString& name) {
    // What is to be clicked may be about to come.
    ASSERT_TRUE(waitUntil([&] { return control(name) != nullptr; })) << name.toStdString();
    QPoint before;
    for (QPoint now = middleOf(*control(name)); now != before; now = middleOf(*control(name))) {
        before = now;
        QTest::qWait(settlingMilliseconds);
        ASSERT_TRUE(control(name)) << name.toStdString();
    }
    ASSERT_TRUE(QRect(QPoint(), window_->size()).contains(before)) << name.toStdString();
    QTest::mouseClick(window_, Qt::LeftButton, {}, before);
}

void AppWindow::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window_, key, modifiers);
}

void AppWindow::type(const QString& text) {
    for (const QChar letter : text) QTest::keyClick(window_, letter.toLatin1());
}

void AppWindow::scroll(int notches) {
    const QPointF middle(window_->width() / 2.0, window_->height() / 2.0);
    const QPoint turn(0, (notches < 0 ? 1 : -1) * QWheelEvent::DefaultDeltasPerStep);
    for (int i = 0; i < std::abs(notches); ++i) {
        QTest::qWait(settlingMilliseconds);
        QWheelEvent wheel(middle, window_->mapToGlobal(middle), {}, turn, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        // How fast the wheel turns says how far it goes.
        wheel.setTimestamp(static_cast<quint64>(QDateTime::currentMSecsSinceEpoch()));
        QCoreApplication::sendEvent(window_, &wheel);
    }
}

void AppWindow::drop(const std::filesystem::path& folder) {
    QMimeData folders;
    folders.setUrls({app::urlOf(folder)});
    const QPoint middle(window_->width() / 2, window_->height() / 2);
    QDragEnterEvent enter(middle, Qt::CopyAction, &folders, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window_, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(middle, Qt::CopyAction, &folders, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window_, &drop);
}

bool AppWindow::shows(const QString& text) {
    bool isShown = false;
    visit(window_->contentItem(), [&](QQuickItem* item) {
        isShown = isShown || (isText(*item) && item->property("text").toString() == text);
    });
    return isShown;
}

QStringList AppWindow::texts(const QString& objectName) {
    QStringList texts;
    visit(window_->contentItem(), [&](QQuickItem* item) {
        if (item->objectName() != objectName) return;
        visit(item, [&](QQuickItem* part) {
            if (isText(*part)) texts.append(part->property("text").toString());
        });
    });
    return texts;
}

QQuickItem* AppWindow::menuEntry(const char* text) {
    QQuickItem* found = nullptr;
    visit(window_->contentItem(), [&](QQuickItem* item) {
        if (item->inherits("QQuickMenuItem") && accessibleName(item) == QString::fromUtf8(text)) {
            found = item;
        }
    });
    EXPECT_TRUE(found) << text;
    return found;
}

QQuickItem* AppWindow::control(const QString& name) {
    QQuickItem* found = nullptr;
    visit(window_->contentItem(), [&](QQuickItem* item) {
        if (!found && item->activeFocusOnTab() && accessibleName(item) == name) found = item;
    });
    return found;
}

}  // namespace ornivo::testing
