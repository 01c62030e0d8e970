#include "app/ScreenScene.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QDir>
#include <QImage>
#include <QQmlEngine>
#include <QTest>

/// Made by Qt's build tools from the types marked for QML.
extern void qml_register_types_Ornivo();

namespace ornivo::testing {
namespace {

constexpr int tabsAtMost = 60;
/// Longer than it takes for anything to be seen moving.
constexpr int settlingMilliseconds = 150;

/// Depth first, in the order in which items are laid out.
QQuickItem* firstOf(QQuickItem* item, const std::function<bool(QQuickItem*)>& condition) {
    if (condition(item)) return item;
    for (QQuickItem* child : item->childItems()) {
        if (auto* const found = firstOf(child, condition)) return found;
    }
    return nullptr;
}

/// Does at once what the next frame would begin with: lists make their rows then.
void layOut(QQuickItem* item) {
    item->ensurePolished();
    for (QQuickItem* const child : item->childItems()) layOut(child);
}

}  // namespace

QString accessibleName(QQuickItem* item) {
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(item);
    return spoken ? spoken->text(QAccessible::Name) : QString();
}

ScreenScene::ScreenScene(std::filesystem::path destination) : scene(std::move(destination)) {}

ScreenScene::~ScreenScene() {
    window_.reset();
    EXPECT_EQ(complaints_.toStdString(), "");
}

QQuickView& ScreenScene::window() {
    if (window_) return *window_;
    [[maybe_unused]] void (*const volatile types)() = &qml_register_types_Ornivo;
    QAccessible::setActive(true);
    window_ = std::make_unique<QQuickView>();
    QObject::connect(window_->engine(), &QQmlEngine::warnings, window_.get(),
                     [this](const QList<QQmlError>& errors) {
                         for (const auto& error : errors) complaints_ += error.toString() + '\n';
                     });
    window_->setInitialProperties(
        {{"store", QVariant::fromValue(&store())}, {"desktop", QVariant::fromValue(&desktop_)}});
    window_->setResizeMode(QQuickView::SizeRootObjectToView);
    window_->setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Ornivo/RootView.qml")));
    window_->resize(912, 760);
    window_->show();
    EXPECT_TRUE(window_->rootObject()) << complaints_.toStdString();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    return *window_;
}

void ScreenScene::resize(int width, int height) {
    window().resize(width, height);
    QTest::qWait(50);
}

QQuickItem* ScreenScene::find(const QString& objectName, QQuickItem* within) {
    QQuickItem* const root = within ? within : window().contentItem();
    return firstOf(root, [&](QQuickItem* item) { return item->objectName() == objectName; });
}

bool ScreenScene::isShown(const QString& objectName) {
    QQuickItem* const item = find(objectName);
    return item && item->isVisible();
}

bool ScreenScene::isInSight(const QString& objectName) {
    if (!isShown(objectName)) return false;
    QQuickItem* const item = find(objectName);
    QQuickItem* const cards = find(QStringLiteral("cards"));
    const qreal top = item->mapToItem(cards, {0, 0}).y();
    // Before it has been laid out an element has no height, and none of it can be seen.
    return item->height() > 0 && top >= 0 && top + item->height() <= cards->height();
}

QStringList ScreenScene::cards() {
    QStringList shown;
    for (const char* const slot :
         {"targetSpeciesSlot", "pausedRunSlot", "optionsSlot", "progressSlot", "predictionSlot",
          "sortResultSlot", "findResultSlot", "previewSlot"}) {
        if (isShown(slot)) shown << QString::fromLatin1(slot).chopped(4);
    }
    return shown;
}

QStringList ScreenScene::visibleTexts(QQuickItem* item) {
    if (!item->isVisible()) return {};
    if (item->inherits("QQuickText")) {
        const QString text = item->property("text").toString();
        // What takes up no room is not there for the eye.
        return item->property("contentWidth").toReal() > 0 ? QStringList(text) : QStringList();
    }
    QStringList texts;
    for (QQuickItem* const child : item->childItems()) texts += visibleTexts(child);
    return texts;
}

QStringList ScreenScene::texts(const QString& objectName) {
    layOut(window().contentItem());
    QQuickItem* const item = find(objectName);
    return item ? visibleTexts(item) : QStringList();
}

QColor ScreenScene::color(const QString& objectName) {
    return find(objectName)->property("color").value<QColor>();
}

QQuickItem* ScreenScene::control(const QString& name) {
    return firstOf(window().contentItem(), [&](QQuickItem* item) {
        return item->isVisible() && item->activeFocusOnTab() && accessibleName(item) == name;
    });
}

void ScreenScene::click(const QString& controlName) {
    QQuickItem* const item = control(controlName);
    ASSERT_TRUE(item) << controlName.toStdString();
    item->forceActiveFocus();
    const auto middle = [item] {
        return item->mapToScene({item->width() / 2, item->height() / 2}).toPoint();
    };
    // What has just come may still glide into sight.
    for (QPoint before; before != middle();) {
        before = middle();
        QTest::qWait(settlingMilliseconds);
    }
    QTest::mouseClick(&window(), Qt::LeftButton, {}, middle());
}

QStringList ScreenScene::tabOrder() {
    QStringList names;
    const QQuickItem* first = nullptr;
    for (int i = 0; i < tabsAtMost; ++i) {
        QTest::keyClick(&window(), Qt::Key_Tab);
        QQuickItem* const item = window().activeFocusItem();
        if (!item || item == first) break;
        if (!first) first = item;
        names << accessibleName(item);
        const auto isRing = [](QQuickItem* part) {
            return part->isVisible() &&
                   QByteArray(part->metaObject()->className()).startsWith("FocusRing");
        };
        EXPECT_TRUE(firstOf(window().contentItem(), isRing)) << names.last().toStdString();
    }
    return names;
}

void ScreenScene::picture(const QString& name) {
    const QString folder = qEnvironmentVariable("ORNIVO_PICTURES");
    if (folder.isEmpty()) return;
    QTest::qWait(600);
    QDir().mkpath(folder);
    EXPECT_TRUE(window().grabWindow().save(folder + '/' + name + ".png"));
}

}  // namespace ornivo::testing
