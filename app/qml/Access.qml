pragma Singleton
import QtQuick

// What everything that is pressed has in common for the keyboard and for screen readers.
QtObject {
    // Whether a key presses what the keyboard is at: Return or Space, by itself. With others it is
    // somebody's shortcut, also while that does nothing.
    function presses(event) {
        const isKey = event.key === Qt.Key_Return || event.key === Qt.Key_Enter
            || event.key === Qt.Key_Space
        return isKey && !(event.modifiers & ~Qt.KeypadModifier)
    }

    // Says in words what is disabled: Qt Quick doesn't tell screen readers otherwise.
    function description(hint, enabled) {
        if (enabled) return hint
        return hint === "" ? "Not available now" : hint + " — not available now"
    }
}
