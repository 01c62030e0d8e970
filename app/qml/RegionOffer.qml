import QtQuick
import QtQuick.Layouts
import Ornivo

// Photographs without a position are told apart better if the user says where they were taken.
Rectangle {
    id: root

    signal accepted

    objectName: "regionOffer"

    Layout.fillWidth: true
    implicitHeight: row.implicitHeight + 2 * Theme.medium
    color: Theme.fsBackground
    border.color: Theme.fsBorder
    radius: Theme.radius

    Accessible.role: Accessible.Grouping
    Accessible.name: heading.text

    RowLayout {
        id: row
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: Theme.medium }
        spacing: Theme.medium

        Icon {
            symbol: "map-pin-slash"
            Layout.alignment: Qt.AlignTop
        }
        ColumnLayout {
            spacing: Theme.small

            FSText {
                id: heading
                text: "These photos carry no location."
                font.weight: Font.DemiBold
                Layout.fillWidth: true
            }
            FSText {
                text: "Naming where you were shooting makes the classifier prefer birds actually "
                      + "recorded there. Species from elsewhere are ranked lower, never ruled out."
                color: Theme.fsSubtext
                Layout.fillWidth: true
            }
            SecondaryButton {
                text: "Choose a region…"
                onClicked: root.accepted()
                // The keyboard comes back here from the settings, where a region may have been named.
                onActiveFocusChanged: {
                    if (activeFocus && !visible) nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)
                }
            }
        }
    }
}
