#pragma once

#include <QSettings>
#include <functional>
#include <memory>

#include "app/AppStore.h"
#include "support/RunScene.h"

namespace ornivo::testing {

/// Lets the main thread work until the condition holds; false when it doesn't within a long time.
bool waitUntil(const std::function<bool()>& condition);

/// Counts how often a signal of an object came.
template <typename Object, typename Signal>
class Count {
public:
    Count(Object* object, Signal signal) {
        connection_ = QObject::connect(object, signal, [this] { ++times_; });
    }
    ~Count() { QObject::disconnect(connection_); }
    Count(const Count&) = delete;
    Count& operator=(const Count&) = delete;

    int times() const { return times_; }

private:
    QMetaObject::Connection connection_;
    int times_ = 0;
};

/// The application's state around the real engine, with pictures that the identifier knows and
/// preferences of its own.
class StoreScene {
public:
    explicit StoreScene(std::filesystem::path destination = {});

    /// Called before the store is first used.
    app::AppServices services;
    /// Pictures, files that fail on demand, and what was filed.
    RunScene run;

    app::AppStore& store();
    /// A new store with the same preferences, as after a restart of the program.
    void restart();
    QSettings& preferences() { return *preferences_; }

    std::filesystem::path source() const { return run.source(); }
    std::filesystem::path sink() const { return run.input.destination; }

    /// Pictures of one species, called for.
    void pictures(int count, const Bird& bird = robin);
    /// Chooses source and sink, and waits for the scan and the survey.
    void chooseFolders();
    /// Presses the primary button and waits for the end of the run.
    void runToItsEnd();

    bool waitForScan();
    bool waitForEnd();

private:
    TempFolder home_;
    std::unique_ptr<QSettings> preferences_;
    std::unique_ptr<app::AppStore> store_;
};

}  // namespace ornivo::testing
