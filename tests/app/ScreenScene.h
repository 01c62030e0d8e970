#pragma once

#include <QQuickItem>
#include <QQuickView>
#include <QStringList>
#include <memory>

#include "app/Desktop.h"
#include "app/StoreScene.h"

namespace ornivo::testing {

/// A file manager that only notes what it is asked to show.
struct NotedReveals : app::FileManager {
    void reveal(const std::filesystem::path& folder) override { folders.push_back(folder); }
    std::vector<std::filesystem::path> folders;
};

/// The window's content around a real store, read and used as a user does: by what can be seen and
/// by the names that a screen reader tells.
class ScreenScene {
public:
    explicit ScreenScene(std::filesystem::path destination = {});
    ~ScreenScene();

    StoreScene scene;
    NotedReveals reveals;

    /// Made on first use; the scene's services are set before.
    QQuickView& window();
    app::AppStore& store() { return scene.store(); }
    void resize(int width, int height);

    /// The element with that name, in a part of the screen or anywhere; null while there is none.
    QQuickItem* find(const QString& objectName, QQuickItem* within = nullptr);
    /// Whether the element can be seen.
    bool isShown(const QString& objectName);
    /// Whether the whole of an element lies in the part of the cards' column that can be seen.
    bool isInSight(const QString& objectName);
    /// The cards on the screen, by the names of their places, from the top.
    QStringList cards();
    /// Every text in an element that can be seen, in reading order; empty while it can't.
    QStringList texts(const QString& objectName);
    QString text(const QString& objectName) { return texts(objectName).join(QLatin1Char('|')); }
    QColor color(const QString& objectName);

    /// The control with that name for a screen reader; null unless it can be seen.
    QQuickItem* control(const QString& name);
    bool isOn(const QString& controlName) { return control(controlName)->isEnabled(); }
    /// Clicks the middle of a control.
    void click(const QString& controlName);
    /// The names of the controls that Tab comes to, in its order. Each shows that it has the
    /// keyboard.
    QStringList tabOrder();

    /// What QML complained of.
    QString complaints() const { return complaints_; }
    /// Keeps a picture of the window in the folder that ORNIVO_PICTURES names, if it names one.
    void picture(const QString& name);

private:
    QStringList visibleTexts(QQuickItem* item);

    app::Desktop desktop_{reveals};
    QString complaints_;
    std::unique_ptr<QQuickView> window_;
};

/// What a screen reader calls an element.
QString accessibleName(QQuickItem* item);

}  // namespace ornivo::testing
