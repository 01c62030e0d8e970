import Ornivo

// What a search did.
ResultCard {
    title: "Search Result"
}
