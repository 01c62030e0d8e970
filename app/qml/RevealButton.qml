import QtQuick
import Ornivo

// Shows a folder in the desktop's viewer of files, once there is one.
PrimaryButton {
    id: root

    // Empty for none.
    required property url url
    required property Desktop desktop

    objectName: "revealButton"
    visible: url.toString() !== ""
    text: "Reveal in Finder"
    keys: "Ctrl+R"
    onClicked: root.desktop.reveal(root.url)
}
