import QtQuick
import Ornivo

// A text as it stands: names of files are never taken for markup. It is read aloud as it is shown.
Text {
    id: root

    font.pixelSize: Theme.body
    color: Theme.text
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    // The space goes below each line, and would lift the only one above the middle.
    lineHeight: wrapMode === Text.NoWrap ? 1 : 1.1

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    Accessible.ignored: root.text === ""
}
