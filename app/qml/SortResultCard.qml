import Ornivo

// What a sort did.
ResultCard {
    title: "Sort Result"
}
