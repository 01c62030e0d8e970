#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <string>

#include "app/ScreenScene.h"

namespace ornivo::testing {

/// The screen of a run that is held up at a copy until it is let go.
class HeldScreen : public ::testing::Test {
protected:
    /// Holds the run up at the copy with this number, from 0.
    void holdAt(int copy);
    /// Chooses the folders, and starts the run as the primary button does.
    void startHeld();
    /// Waits until the run has come to where it is held.
    void waitUntilHeld();
    /// Has it go on to the copy with this number.
    void goOnTo(int copy);
    void letGo();
    void TearDown() override { letGo(); }

    void pictures(const Bird& bird, int count, double confidence = 0.9);
    app::AppStore& store() { return screen_.store(); }

private:
    std::atomic<int> copies_ = 0;
    std::atomic<int> allowed_ = 0;
    int next_ = 0;

protected:
    ScreenScene screen_;
};

}  // namespace ornivo::testing
