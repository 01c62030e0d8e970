#include "app/UpdaterController.h"

#include <gtest/gtest.h>

namespace ornivo::app {
namespace {

struct FakeCentre : SoftwareCentre {
    bool canShowPage() const override { return isThere; }
    void showPage() override { ++pages; }
    bool isThere = false;
    int pages = 0;
};

TEST(UpdaterController, FollowsTheSoftwareCentreEachTimeTheMenuOpens) {
    FakeCentre centre;
    UpdaterController updater(centre);
    updater.refresh();
    EXPECT_FALSE(updater.canCheckForUpdates());
    centre.isThere = true;
    EXPECT_FALSE(updater.canCheckForUpdates());
    updater.refresh();
    EXPECT_TRUE(updater.canCheckForUpdates());
}

TEST(UpdaterController, ShowsThePageWhereThereIsOne) {
    FakeCentre centre;
    UpdaterController updater(centre);
    updater.checkForUpdates();
    EXPECT_EQ(centre.pages, 0);
    centre.isThere = true;
    updater.checkForUpdates();
    EXPECT_EQ(centre.pages, 1);
}

}  // namespace
}  // namespace ornivo::app
