pragma Singleton
import QtQuick
import Ornivo

// The look of every screen: colours, sizes of type, distances and the pace of movement.
QtObject {
    id: root

    readonly property color fsBackground: Qt.rgba(0.059, 0.059, 0.059, 1)
    readonly property color fsCard: Qt.rgba(0.094, 0.094, 0.094, 1)
    readonly property color fsBorder: Qt.rgba(0.165, 0.165, 0.165, 1)
    readonly property color fsAccent: Qt.rgba(0.784, 0.941, 0.376, 1)
    readonly property color fsSubtext: Qt.rgba(0.55, 0.55, 0.55, 1)
    readonly property color fsWarn: Qt.rgba(0.95, 0.75, 0.25, 1)
    readonly property color fsErr: Qt.rgba(0.9, 0.35, 0.35, 1)
    readonly property color fsBlack: Qt.rgba(0.05, 0.05, 0.05, 1)

    // A success that is less than certain.
    readonly property color softAccent: Qt.rgba(0.784, 0.941, 0.376, 0.75)
    // Plain text.
    readonly property color text: "white"
    // The lines of the folder tree.
    readonly property color branch: Qt.rgba(0.8, 0.8, 0.8, 1)
    // The line above the footer.
    readonly property color footerEdge: Qt.rgba(0.07, 0.07, 0.07, 1)
    // What lies over the window while a sheet is open.
    readonly property color scrim: Qt.rgba(0, 0, 0, 0.6)

    // Sizes of type in pixels, from the size that the user has chosen for the desktop.
    readonly property real body: Math.max(13, Qt.application.font.pixelSize)
    readonly property real caption: Math.round(body * 0.86)
    readonly property real title: Math.round(body * 1.5)
    readonly property real display: Math.round(body * 2)
    readonly property string monospaced: "monospace"

    // Distances.
    readonly property real tiny: 4
    readonly property real small: 8
    readonly property real medium: 12
    readonly property real large: 16
    readonly property real huge: 24

    readonly property real radius: 6
    readonly property real cardRadius: 10

    // Text wider than this is hard to read, so in a large window the column stays in the middle.
    readonly property real columnWidth: 880
    // Buttons and rows are at least this high.
    readonly property real controlHeight: Math.round(body * 2.3)
    readonly property real iconSize: Math.round(body * 1.25)

    // Milliseconds; nothing moves for those who have asked the desktop for that.
    readonly property int quick: MotionPreference.reduced ? 0 : 120
    readonly property int calm: MotionPreference.reduced ? 0 : 220

    // How something looks that can't be used now.
    readonly property real dimmed: 0.45

    // The colour of a `TonedText`: plain, subtext, accent, soft accent, warning, error.
    readonly property var tones: [text, fsSubtext, fsAccent, softAccent, fsWarn, fsErr]
    function colourOf(tone) { return tones[tone ?? 0] }
}
