import Ornivo

// Anything else that can be done.
FSButton {
    outline: Theme.fsBorder
}
