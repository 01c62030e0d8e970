import QtQuick
import Ornivo

// Finds a region by the first letters of its name, typed quickly one after another.
Timer {
    id: root

    required property RegionModel regions
    property string letters

    signal found(int row)

    function take(letter, current) {
        const isFirst = letters === ""
        letters += letter
        restart()
        const row = regions.rowBeginningWith(letters, isFirst ? current + 1 : current)
        if (row >= 0) found(row)
    }

    interval: 1000
    onTriggered: letters = ""
}
