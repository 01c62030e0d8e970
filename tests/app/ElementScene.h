#pragma once

#include <QPoint>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <memory>

#include "app/AppStore.h"

namespace ornivo::testing {

/// An element of the screen with the real QML, in a window that no screen shows.
class ElementScene {
public:
    /// `element` is what would stand in QML, with `host` for the given properties.
    ElementScene(const QString& element, const QVariantMap& properties);
    /// An element that knows the store and nothing else: "OptionsCard".
    ElementScene(const QString& type, app::AppStore& store);
    /// QML has nothing to complain of.
    ~ElementScene();

    /// The texts and symbols that can be seen, in the order of reading; symbols in brackets.
    QStringList shown() const;
    /// The same of one element.
    QStringList shownIn(const QString& objectName) const;
    bool shows(const QString& text) const { return shown().contains(text); }
    /// The colour of a text or of a symbol in brackets, as "#c8f060"; empty when it isn't to be
    /// seen.
    QString colourOf(const QString& text) const;

    /// The item of that name, visible or not; a failure and null when there is none.
    QQuickItem* item(const QString& objectName) const;
    /// The control that is read aloud under this name; a failure and null when none is to be seen.
    QQuickItem* control(const QString& name) const;
    /// Presses that control with the mouse.
    void press(const QString& name);
    /// Gives it the keyboard and types.
    void type(const QString& name, const QString& text);
    void key(Qt::Key key);
    /// The name of what has the keyboard.
    QString focused() const;
    /// The names of all that Tab comes to, from the first on. Each shows that it has the keyboard.
    QStringList tabOrder();

    QQuickWindow& window() const { return *window_; }
    /// Keeps a picture of the window in the folder that ORNIVO_PICTURES names, if it names one.
    void picture(const QString& name);

private:
    void settle();
    QPoint placeInSight(QQuickItem& item);

    QQmlEngine engine_;
    QString complaints_;
    std::unique_ptr<QQuickWindow> window_;
};

/// What a screen reader adds to the name of an element.
QString accessibleDescription(QQuickItem* item);

}  // namespace ornivo::testing
