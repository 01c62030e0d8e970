#pragma once

#include <QPoint>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>
#include <filesystem>

#include "app/Desktop.h"
#include "app/ScreenScene.h"
#include "app/UpdaterController.h"

namespace ornivo::testing {

/// The window as the program opens it, menu and all, used with the mouse and the keyboard and read
/// by what can be seen. Nothing here sets a state or moves the focus by itself: what is out of
/// sight can't be clicked.
class AppWindow {
public:
    /// The store outlives the window.
    explicit AppWindow(app::AppStore& store);
    /// QML has nothing to complain of.
    ~AppWindow();

    /// Clicks the control that a screen reader calls so, once it has come to rest.
    void click(const QString& name);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// Types into what has the keyboard.
    void type(const QString& text);
    /// Turns the wheel over the middle of the window; down by so many notches.
    void scroll(int notches);
    /// Lets a folder fall on the middle of the window.
    void drop(const std::filesystem::path& folder);

    /// Whether the text can be read somewhere in the window.
    bool shows(const QString& text);
    /// The texts in the element of that name that can be seen, in reading order.
    QStringList texts(const QString& objectName);
    QString text(const QString& objectName) { return texts(objectName).join(QLatin1Char('|')); }

    QQuickWindow& window() { return *window_; }
    /// The entry of the open menu that reads so; a failure and null when there is none.
    QQuickItem* menuEntry(const char* text);

    /// A software centre that notes how often it was asked to show the program's page.
    struct NotedCentre : app::SoftwareCentre {
        bool canShowPage() const override { return isThere; }
        void showPage() override { ++pages; }
        bool isThere = false;
        int pages = 0;
    };
    NotedCentre centre;

private:
    QQuickItem* control(const QString& name);

    NotedReveals reveals_;
    app::UpdaterController updater_{centre};
    app::Desktop desktop_{reveals_};
    QString complaints_;
    QQmlApplicationEngine qml_;
    QQuickWindow* window_ = nullptr;
};

}  // namespace ornivo::testing
