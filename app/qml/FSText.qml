import QtQuick
import Ornivo

// A text as it stands: names of files are never taken for markup. It is read aloud as it is shown.
Text {
    id: root

    font.pixelSize: Theme.body
    color: Theme.text
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    lineHeight: 1.1

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    Accessible.ignored: root.text === ""
}
