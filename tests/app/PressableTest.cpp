#include <gtest/gtest.h>

#include <QAccessible>
#include <QKeyEvent>
#include <QTest>

#include "app/ElementScene.h"

namespace ornivo::testing {
namespace {

/// Counts its presses in the window's title.
const QString counting = QStringLiteral("onClicked: host.title += \"|\"");

QString button(const QString& properties) {
    return QStringLiteral("SecondaryButton { %1; %2 }").arg(properties, counting);
}

qsizetype presses(const ElementScene& scene) {
    return scene.window().title().size();
}

void send(const ElementScene& scene, QEvent::Type type, Qt::Key key,
          Qt::KeyboardModifiers modifiers = {}, bool isRepeated = false) {
    QKeyEvent event(type, key, modifiers, {}, isRepeated);
    QCoreApplication::sendEvent(&scene.window(), &event);
}

}  // namespace

TEST(Pressable, IsPressedByThePointerAndByReturnEnterAndSpace) {
    ElementScene scene(button("text: \"Go\""), {});
    scene.press("Go");
    EXPECT_EQ(presses(scene), 1);
    EXPECT_EQ(scene.focused(), "Go");
    EXPECT_FALSE(scene.control("Go")->property("visualFocus").toBool());
    scene.key(Qt::Key_Return);
    scene.key(Qt::Key_Space);
    QTest::keyClick(&scene.window(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(presses(scene), 4);
}

TEST(Pressable, AHeldKeyPressesOnce) {
    ElementScene scene(button("text: \"Go\""), {});
    scene.control("Go")->forceActiveFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        scene.window().setTitle({});
        send(scene, QEvent::KeyPress, key);
        for (int i = 0; i < 3; ++i) {
            send(scene, QEvent::KeyRelease, key, {}, true);
            send(scene, QEvent::KeyPress, key, {}, true);
        }
        send(scene, QEvent::KeyRelease, key);
        EXPECT_EQ(presses(scene), 1) << key;
    }
}

TEST(Pressable, AKeyWithOthersDoesNothing) {
    ElementScene scene(button("text: \"Go\""), {});
    scene.control("Go")->forceActiveFocus();
    for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier}) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            QTest::keyClick(&scene.window(), key, modifier);
        }
    }
    EXPECT_EQ(presses(scene), 0);
}

TEST(Pressable, ItsOwnKeysPressOnceTooHoweverLongTheyAreHeld) {
    ElementScene scene(button("text: \"Pause\"; keys: \"Ctrl+P\""), {});
    QTest::keyClick(&scene.window(), Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(presses(scene), 1);
    for (int i = 0; i < 3; ++i) {
        QTest::simulateEvent(&scene.window(), true, Qt::Key_P, Qt::ControlModifier, {}, true);
    }
    EXPECT_EQ(presses(scene), 1);
}

TEST(Pressable, NothingPressesWhatIsDisabled) {
    ElementScene scene(button("text: \"Go\"; enabled: false; keys: \"Ctrl+G\""), {});
    scene.press("Go");
    QTest::keyClick(&scene.window(), Qt::Key_G, Qt::ControlModifier);
    QAccessible::queryAccessibleInterface(scene.control("Go"))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(presses(scene), 0);
}

TEST(Pressable, AScreenReaderPressesIt) {
    ElementScene scene(button("text: \"Go\""), {});
    QAccessible::queryAccessibleInterface(scene.control("Go"))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(presses(scene), 1);
}

TEST(Pressable, DrawsAnAmpersandAndHasNoKeysInItsText) {
    const auto drawn = [](const char* text) {
        ElementScene scene(button(QStringLiteral("text: \"%1\"; width: 200").arg(text)), {});
        return scene.window().grabWindow();
    };
    EXPECT_NE(drawn("A&B"), drawn("AB"));
    EXPECT_NE(drawn("A & B"), drawn("A  B"));
    ElementScene scene(button("text: \"A&B\""), {});
    QTest::keyClick(&scene.window(), Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(presses(scene), 0);
}

TEST(Pressable, ItsTextStandsInTheMiddle) {
    ElementScene scene(button("text: \"Go\"; height: 40"), {});
    const QQuickItem* const go = scene.control("Go");
    for (const QQuickItem* const child : go->childItems()) {
        if (!child->inherits("QQuickText")) continue;
        EXPECT_NEAR(child->y() + child->property("contentHeight").toReal() / 2, 20, 0.5);
    }
}

}  // namespace ornivo::testing
