#include "app/TerminationSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdint>

namespace ornivo::app {
namespace {

constexpr std::array signalsToEnd{SIGINT, SIGTERM, SIGHUP};

/// The only thing that a signal handler can reach.
volatile std::sig_atomic_t wakeup = -1;

void tell(int) {
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t ignored = ::write(wakeup, &one, sizeof one);
}

}  // namespace

TerminationSignals::TerminationSignals(QObject* parent)
    : QObject(parent),
      descriptor_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      notifier_(descriptor_, QSocketNotifier::Read) {
    wakeup = descriptor_;
    connect(&notifier_, &QSocketNotifier::activated, this, &TerminationSignals::take);
    for (const int number : signalsToEnd) std::signal(number, tell);
}

TerminationSignals::~TerminationSignals() {
    for (const int number : signalsToEnd) std::signal(number, SIG_DFL);
    wakeup = -1;
    ::close(descriptor_);
}

void TerminationSignals::take() {
    std::uint64_t count = 0;
    if (::read(descriptor_, &count, sizeof count) == sizeof count) Q_EMIT received();
}

}  // namespace ornivo::app
