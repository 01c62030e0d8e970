#include "cli/Wakeup.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

#include "platform/Error.h"

namespace ornivo::cli {

Wakeup::Wakeup() : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (descriptor_ < 0) throw Error::posix(errno, "eventfd");
}

Wakeup::~Wakeup() {
    close(descriptor_);
}

void Wakeup::wake() const {
    const std::uint64_t one = 1;
    // Fails only when a wake-up is pending already, which is as good.
    [[maybe_unused]] const ssize_t ignored = ::write(descriptor_, &one, sizeof one);
}

void Wakeup::wait(int milliseconds) const {
    pollfd poll{descriptor_, POLLIN, 0};
    if (::poll(&poll, 1, milliseconds) <= 0) return;
    std::uint64_t count = 0;
    [[maybe_unused]] const ssize_t ignored = ::read(descriptor_, &count, sizeof count);
}

}  // namespace ornivo::cli
