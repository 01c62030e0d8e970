import QtQuick
import Ornivo

// Something to know, beside its symbol.
SymbolText {
    color: Theme.fsSubtext
}
