#pragma once

#include <string>
#include <utility>

namespace ornivo {

/// Why a run ended.
class StopReason {
public:
    enum class Kind {
        /// A failure ended the run; its words are in `message`.
        fatalError,
        /// Every file of the list was taken.
        completed,
        /// The user pressed Stop.
        userCancelled,
        /// The destination ran out of space.
        diskFull,
    };

    static StopReason fatalError(std::string message) {
        return {Kind::fatalError, std::move(message)};
    }
    static StopReason completed() { return {Kind::completed, {}}; }
    static StopReason userCancelled() { return {Kind::userCancelled, {}}; }
    static StopReason diskFull() { return {Kind::diskFull, {}}; }

    Kind kind() const { return kind_; }
    /// Empty for every kind but `fatalError`.
    const std::string& message() const { return message_; }

    /// Whether a record was left to go on from. A run that the user stopped deliberately leaves
    /// none.
    bool isResumable() const { return kind_ == Kind::diskFull; }

    bool operator==(const StopReason&) const = default;

private:
    StopReason(Kind kind, std::string message) : kind_(kind), message_(std::move(message)) {}

    Kind kind_;
    std::string message_;
};

}  // namespace ornivo
