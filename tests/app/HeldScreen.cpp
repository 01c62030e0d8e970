#include "app/HeldScreen.h"

#include <limits>

namespace ornivo::testing {

void HeldScreen::holdAt(int copy) {
    allowed_ = copy;
    screen_.scene.run.files().onAttempt([this](const FailingFiles::Attempt& attempt) {
        if (attempt.operation != FailingFiles::Operation::copy) return;
        const int number = copies_++;
        for (int allowed = allowed_; number >= allowed; allowed = allowed_) allowed_.wait(allowed);
    });
}

void HeldScreen::startHeld() {
    screen_.scene.chooseFolders();
    store().tapPrimaryCTA();
    waitUntilHeld();
}

void HeldScreen::waitUntilHeld() {
    const int held = allowed_;
    ASSERT_TRUE(waitUntil([&] { return copies_ > held; }));
    ASSERT_TRUE(
        waitUntil([&] { return store().progress() && store().progress()->current >= held; }));
}

void HeldScreen::goOnTo(int copy) {
    allowed_ = copy;
    allowed_.notify_all();
    waitUntilHeld();
}

void HeldScreen::letGo() {
    allowed_ = std::numeric_limits<int>::max();
    allowed_.notify_all();
}

void HeldScreen::pictures(const Bird& bird, int count, double confidence) {
    for (int i = 0; i < count; ++i) {
        screen_.scene.run.picture("a" + std::to_string(next_++) + ".jpg", bird, confidence);
    }
}

}  // namespace ornivo::testing
