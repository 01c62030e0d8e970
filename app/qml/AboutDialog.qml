import QtQuick
import QtQuick.Layouts
import Ornivo

// What the program is, and under which licence.
SheetFrame {
    id: root

    required property string version

    title: "Ornivo"
    padding: Theme.huge
    width: 36 * Theme.body + 2 * padding
    height: body.implicitHeight + 2 * padding

    contentItem: ColumnLayout {
        id: body

        spacing: Theme.medium
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title

        FSText {
            Layout.fillWidth: true
            text: root.title
            font { pixelSize: Theme.title; weight: Font.DemiBold }
            Accessible.role: Accessible.Heading
        }
        FSText {
            Layout.fillWidth: true
            text: "Bird photo organiser · v" + root.version
            color: Theme.fsSubtext
        }
        FSText {
            Layout.fillWidth: true
            text: "Birds are identified on this machine; no photograph leaves it.\n"
                  + "Free software under the GNU General Public License, version 3 or later."
        }
        SecondaryButton {
            text: "Close"
            focus: true
            Layout.alignment: Qt.AlignRight
            onClicked: root.close()
        }
    }
}
