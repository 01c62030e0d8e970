#include "app/OrnivoApp.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
namespace fs = std::filesystem;

TEST(OrnivoApp, ReadsNobodyElsesPreferences) {
    const fs::path settings = qEnvironmentVariable("XDG_CONFIG_HOME").toStdString();
    const fs::path shared = writeFile(settings / "ornivo.ini",
                                      "[General]\n"
                                      "assumedRegionID=anything\n"
                                      "burstInheritance=confirmedOnly\n");
    {
        OrnivoApp app;
        EXPECT_EQ(app.store().assumedRegionID(), "");
        EXPECT_EQ(app.store().burstInheritance(), BurstInheritance::off);
    }
    fs::remove(shared);
}

}  // namespace
}  // namespace ornivo::app
