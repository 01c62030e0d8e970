#include "app/StoreScene.h"

#include <gtest/gtest.h>

#include <QTest>

namespace ornivo::testing {
namespace {

constexpr int patienceMilliseconds = 60000;

}  // namespace

bool waitUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, patienceMilliseconds);
}

StoreScene::StoreScene(std::filesystem::path destination)
    : run(std::make_shared<ScriptedIdentifier>(), std::move(destination)) {
    run.closeEngine();
    preferences_ = std::make_unique<QSettings>(
        QString::fromStdString((home_ / "ornivo.ini").string()), QSettings::IniFormat);
    services.identifier = run.sharedIdentifier();
    services.preferences = preferences_.get();
    services.files = std::shared_ptr<Files>(std::shared_ptr<Files>(), &run.files());
    services.workers = 2;
}

app::AppStore& StoreScene::store() {
    if (!store_) store_ = std::make_unique<app::AppStore>(services);
    return *store_;
}

void StoreScene::restart() {
    store_.reset();
    preferences_.reset();
    preferences_ = std::make_unique<QSettings>(
        QString::fromStdString((home_ / "ornivo.ini").string()), QSettings::IniFormat);
    services.preferences = preferences_.get();
}

void StoreScene::pictures(int count, const Bird& bird) {
    for (int i = 0; i < count; ++i) run.picture("a" + std::to_string(i) + ".jpg", bird, 0.9);
}

void StoreScene::chooseFolders() {
    std::filesystem::create_directories(source());
    std::filesystem::create_directories(sink());
    store().setSource(source());
    store().setSink(sink());
    EXPECT_TRUE(waitForScan());
}

void StoreScene::runToItsEnd() {
    store().tapPrimaryCTA();
    ASSERT_EQ(store().jobState(), JobState::running);
    ASSERT_TRUE(waitForEnd());
}

bool StoreScene::waitForScan() {
    return waitUntil([&] { return store().scan() && store().locationSurvey(); });
}

bool StoreScene::waitForEnd() {
    return waitUntil([&] { return store().jobState() == JobState::idle; });
}

}  // namespace ornivo::testing
