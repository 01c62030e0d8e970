#include "app/ElementScene.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QColor>
#include <QDir>
#include <QImage>
#include <QQmlComponent>
#include <QTest>
#include <functional>
#include <stdexcept>

#include "app/ScreenScene.h"

/// Made by Qt's build tools from the types marked for QML.
extern void qml_register_types_Ornivo();

namespace ornivo::testing {
namespace {

constexpr const char* frame = R"(
import QtQuick
import QtQuick.Controls.Basic
import Ornivo

ApplicationWindow {
    id: host

    property AppStore store
    property CreditsPresenter credits

    visible: true
    width: 720
    height: 800
    color: Theme.fsBackground

    Item {
        anchors { fill: parent; margins: 16 }
        %1
    }
}
)";

/// What is seen of an item itself: a text, a symbol in brackets, or nothing.
QString seen(const QQuickItem& item) {
    if (item.inherits("QQuickText") || item.inherits("QQuickTextInput")) {
        return item.property("text").toString();
    }
    const QVariant symbol = item.property("symbol");
    if (!item.inherits("QQuickImage") || !symbol.isValid()) return {};
    return QStringLiteral("[%1]").arg(symbol.toString());
}

void visit(QQuickItem* item, const std::function<void(QQuickItem*)>& take) {
    if (!item->isVisible()) return;
    take(item);
    for (QQuickItem* child : item->childItems()) visit(child, take);
}

QStringList shownBelow(QQuickItem* root) {
    QStringList list;
    visit(root, [&](QQuickItem* item) {
        if (const QString text = seen(*item); !text.isEmpty()) list.append(text);
    });
    return list;
}

QQuickItem* firstBelow(QQuickItem* root, const std::function<bool(QQuickItem*)>& wanted) {
    QQuickItem* found = nullptr;
    visit(root, [&](QQuickItem* item) {
        if (!found && wanted(item)) found = item;
    });
    return found;
}

QQuickItem* named(QQuickItem* root, const QString& name) {
    if (root->objectName() == name) return root;
    for (QQuickItem* child : root->childItems()) {
        if (QQuickItem* found = named(child, name)) return found;
    }
    return nullptr;
}

bool isFocusRing(QQuickItem* item) {
    return QByteArray(item->metaObject()->className()).startsWith("FocusRing");
}

bool isControl(QQuickItem* item) {
    return item->metaObject()->indexOfSignal("clicked()") >= 0 ||
           item->inherits("QQuickTextInput") || item->inherits("QQuickSlider") ||
           item->inherits("QQuickListView");
}

}  // namespace

QString accessibleDescription(QQuickItem* item) {
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(item);
    return spoken ? spoken->text(QAccessible::Description) : QString();
}

ElementScene::ElementScene(const QString& type, app::AppStore& store)
    : ElementScene(type + QStringLiteral(" { store: host.store; width: 640 }"),
                   {{QStringLiteral("store"), QVariant::fromValue(&store)}}) {}

ElementScene::ElementScene(const QString& element, const QVariantMap& properties) {
    // Named, so that the linker keeps what registers the types.
    [[maybe_unused]] void (*const volatile types)() = &qml_register_types_Ornivo;
    QAccessible::setActive(true);
    QObject::connect(&engine_, &QQmlEngine::warnings, &engine_,
                     [this](const QList<QQmlError>& errors) {
                         for (const auto& error : errors) complaints_ += error.toString() + '\n';
                     });
    QQmlComponent component(&engine_);
    component.setData(QString::fromLatin1(frame).arg(element).toUtf8(), QUrl());
    if (!component.isReady()) throw std::runtime_error(component.errorString().toStdString());
    window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(properties)));
    window_->requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    settle();
}

ElementScene::~ElementScene() {
    window_.reset();
    EXPECT_EQ(complaints_.toStdString(), "");
}

QStringList ElementScene::shown() const {
    return shownBelow(window_->contentItem());
}

QStringList ElementScene::shownIn(const QString& objectName) const {
    QQuickItem* const root = item(objectName);
    return root ? shownBelow(root) : QStringList();
}

QString ElementScene::colourOf(const QString& text) const {
    QQuickItem* const found =
        firstBelow(window_->contentItem(), [&](QQuickItem* each) { return seen(*each) == text; });
    return found ? found->property("color").value<QColor>().name() : QString();
}

QQuickItem* ElementScene::item(const QString& objectName) const {
    QQuickItem* const found = named(window_->contentItem(), objectName);
    EXPECT_TRUE(found) << objectName.toStdString();
    return found;
}

QQuickItem* ElementScene::control(const QString& name) const {
    QQuickItem* const found = firstBelow(window_->contentItem(), [&](QQuickItem* each) {
        return isControl(each) && accessibleName(each) == name;
    });
    EXPECT_TRUE(found) << name.toStdString();
    return found;
}

void ElementScene::press(const QString& name) {
    QQuickItem* const found = control(name);
    if (!found) return;
    QTest::mouseClick(window_.get(), Qt::LeftButton, {}, placeInSight(*found));
    settle();
}

/// The middle of an item, once it is in sight and at rest.
QPoint ElementScene::placeInSight(QQuickItem& item) {
    const auto middle = [&item] {
        return item.mapToScene({item.width() / 2, item.height() / 2}).toPoint();
    };
    const QRect sight(QPoint(), window_->size());
    // What the keyboard comes to is scrolled to.
    if (!sight.contains(middle())) item.forceActiveFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QPoint before = middle();
        QTest::qWait(60);
        return middle() == before && sight.contains(before);
    }));
    return middle();
}

void ElementScene::type(const QString& name, const QString& text) {
    QQuickItem* const found = control(name);
    if (!found) return;
    found->forceActiveFocus();
    for (const QChar letter : text) QTest::keyClick(window_.get(), letter.toLatin1());
    settle();
}

void ElementScene::key(Qt::Key key) {
    QTest::keyClick(window_.get(), key);
    settle();
}

/// Lets the window lay itself out.
void ElementScene::settle() {
    QTest::qWait(30);
}

QString ElementScene::focused() const {
    return accessibleName(window_->activeFocusItem());
}

QStringList ElementScene::tabOrder() {
    QStringList names;
    const QQuickItem* first = nullptr;
    for (;;) {
        key(Qt::Key_Tab);
        QQuickItem* const at = window_->activeFocusItem();
        if (!at || at == first) return names;
        if (!first) first = at;
        names.append(accessibleName(at));
        EXPECT_TRUE(firstBelow(window_->contentItem(), isFocusRing)) << names.last().toStdString();
    }
}

void ElementScene::picture(const QString& name) {
    const QString folder = qEnvironmentVariable("ORNIVO_PICTURES");
    if (folder.isEmpty()) return;
    // Until what moves has come to rest.
    QTest::qWait(600);
    QDir().mkpath(folder);
    EXPECT_TRUE(window_->grabWindow().save(folder + '/' + name + ".png"));
}

}  // namespace ornivo::testing
