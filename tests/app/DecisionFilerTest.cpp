#include "app/presentation/DecisionFiler.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <atomic>
#include <fstream>

#include "app/StoreScene.h"

namespace ornivo::testing {
namespace {

namespace fs = std::filesystem;

void leave(const fs::path& file) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << "picture";
}

}  // namespace

TEST(DecisionFiler, SaysThatItIsAtWorkUntilAllIsFiled) {
    StoreScene scene;
    leave(scene.sink() / "_Uncertain" / "a.jpg");
    scene.store().setSink(scene.sink());
    app::DecisionFiler filer;
    filer.setStore(&scene.store());
    EXPECT_FALSE(scene.store().isFilingDecisions());
    EXPECT_EQ(filer.note(), "");
    QGuiApplication::clipboard()->setText("a.jpg,Robin");
    filer.fileClipboard();
    EXPECT_TRUE(scene.store().isFilingDecisions());
    ASSERT_TRUE(waitUntil([&] { return !filer.note().isEmpty(); }));
    EXPECT_FALSE(scene.store().isFilingDecisions());
    EXPECT_EQ(filer.note(), "Filed 1 photo into 1 folder.");
    EXPECT_TRUE(filer.isSuccess());
}

TEST(DecisionFiler, FilesOnWhenTheSheetIsClosed) {
    StoreScene scene;
    leave(scene.sink() / "_Uncertain" / "a.jpg");
    scene.store().setSink(scene.sink());
    QGuiApplication::clipboard()->setText("a.jpg,Robin");
    {
        app::DecisionFiler filer;
        filer.setStore(&scene.store());
        filer.fileClipboard();
    }
    EXPECT_TRUE(waitUntil([&] { return fs::exists(scene.sink() / "Robin" / "a.jpg"); }));
}

TEST(DecisionFiler, WhileDecisionsAreBeingFiledAnotherSheetFilesNone) {
    StoreScene scene;
    leave(scene.sink() / "_Uncertain" / "a.jpg");
    std::atomic<bool> mayGo = false;
    scene.run.files().onAttempt([&](const FailingFiles::Attempt& attempt) {
        if (attempt.operation == FailingFiles::Operation::move) mayGo.wait(false);
    });
    scene.store().setSink(scene.sink());
    QGuiApplication::clipboard()->setText("a.jpg,Robin");
    app::DecisionFiler first;
    first.setStore(&scene.store());
    first.fileClipboard();
    app::DecisionFiler second;
    second.setStore(&scene.store());
    second.fileClipboard();
    mayGo = true;
    mayGo.notify_all();
    ASSERT_TRUE(waitUntil([&] { return !scene.store().isFilingDecisions(); }));
    EXPECT_EQ(first.note(), "Filed 1 photo into 1 folder.");
    EXPECT_EQ(second.note(), "");
}

TEST(DecisionFiler, WithoutASinkNothingBegins) {
    StoreScene scene;
    app::DecisionFiler filer;
    filer.setStore(&scene.store());
    filer.fileClipboard();
    EXPECT_FALSE(scene.store().isFilingDecisions());
    EXPECT_EQ(filer.note(), "");
}

}  // namespace ornivo::testing
