import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T

Dialog {
    id: root

    required property string version

    anchors.centerIn: T.Overlay.overlay
    modal: true
    title: "Ornivo"
    standardButtons: Dialog.Close

    Label {
        text: "Bird photo organiser · v" + root.version + "\n\n"
              + "Birds are identified on this machine; no photograph leaves it.\n"
              + "Free software under the GNU General Public License, version 3 or later."
    }
}
