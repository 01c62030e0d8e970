import QtQuick
import QtQuick.Layouts
import Ornivo

// Whether the classifier knows a bird.
ColumnLayout {
    id: root

    spacing: Theme.small

    CoverageCheck { id: coverage }

    FSText {
        Layout.fillWidth: true
        text: "Will it know your birds?"
        Accessible.role: Accessible.Heading
    }
    FSText {
        objectName: "extent"
        Layout.fillWidth: true
        text: coverage.extent
        color: Theme.fsSubtext
    }
    FSTextField {
        objectName: "coverageField"
        Layout.fillWidth: true
        placeholderText: "Type a bird you photograph…"
        text: coverage.query
        onTextEdited: coverage.query = text
        Accessible.description: coverage.line
    }
    SymbolText {
        objectName: "coverageLine"
        Layout.fillWidth: true
        visible: text !== ""
        symbol: coverage.mark.symbol
        text: coverage.line
        color: Theme.colourOf(coverage.mark.tone)
    }
    FSList {
        objectName: "coverageMatches"
        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(148, wholeHeight)
        visible: count > 0
        name: coverage.line
        model: coverage.matches
        delegate: SpeciesRow { width: ListView.view.width }
    }
}
