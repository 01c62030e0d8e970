#include "cli/Interrupt.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

namespace ornivo::cli {

namespace {

constexpr std::array<int, 3> endingSignals{SIGINT, SIGTERM, SIGHUP};

// A signal handler reaches nothing but what is global; these three serve it alone.
std::atomic<bool> interruptRequested = false;
std::atomic<const Wakeup*> interruptWakeup = nullptr;
std::array<struct sigaction, endingSignals.size()> previousActions{};
static_assert(std::atomic<bool>::is_always_lock_free);
static_assert(std::atomic<const Wakeup*>::is_always_lock_free);

// What the program's starter ignores, as nohup does, stays ignored.
bool wasIgnored(std::size_t i) {
    return previousActions[i].sa_handler == SIG_IGN;
}

extern "C" void noteInterrupt(int) {
    const int errnoBefore = errno;
    for (std::size_t i = 0; i < endingSignals.size(); ++i) {
        if (!wasIgnored(i)) std::signal(endingSignals[i], SIG_DFL);
    }
    interruptRequested = true;
    if (const Wakeup* const wakeup = interruptWakeup) wakeup->wake();
    errno = errnoBefore;
}

}  // namespace

Interrupt::Interrupt(std::shared_ptr<const Wakeup> wakeup) : wakeup_(std::move(wakeup)) {
    interruptRequested = false;
    interruptWakeup = wakeup_.get();
    struct sigaction noted {};
    noted.sa_handler = noteInterrupt;
    // A run's own threads may be the ones to take the signal, in the middle of a copy.
    noted.sa_flags = SA_RESTART;
    for (const int ending : endingSignals) sigaddset(&noted.sa_mask, ending);
    for (std::size_t i = 0; i < endingSignals.size(); ++i) {
        sigaction(endingSignals[i], nullptr, &previousActions[i]);
    }
    for (std::size_t i = 0; i < endingSignals.size(); ++i) {
        if (!wasIgnored(i)) sigaction(endingSignals[i], &noted, nullptr);
    }
}

Interrupt::~Interrupt() {
    for (std::size_t i = 0; i < endingSignals.size(); ++i) {
        sigaction(endingSignals[i], &previousActions[i], nullptr);
    }
    interruptWakeup = nullptr;
}

bool Interrupt::requested() const {
    return interruptRequested;
}

}  // namespace ornivo::cli
