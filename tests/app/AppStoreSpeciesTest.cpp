#include <gtest/gtest.h>

#include "app/StoreScene.h"

namespace ornivo::app {
namespace {

using namespace ornivo::testing;
using List = std::vector<BirdSpecies>;

const BirdSpecies osprey{"Osprey", "Pandion haliaetus"};

struct Typed {
    const char* text;
    List expected;
};

class TypedSpecies : public ::testing::TestWithParam<Typed> {};

TEST_P(TypedSpecies, BecomesATarget) {
    StoreScene scene;
    scene.store().setSpeciesQuery(QString::fromUtf8(GetParam().text));
    EXPECT_TRUE(scene.store().selectTypedSpecies());
    EXPECT_EQ(scene.store().selectedSpeciesList(), GetParam().expected);
    EXPECT_TRUE(scene.store().speciesQuery().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TypedSpecies,
    ::testing::Values(Typed{"osprey", {osprey}}, Typed{"pandion haliaetus", {osprey}},
                      Typed{"Osprey (Pandion haliaetus)", {osprey}},
                      Typed{"Fish Hawk (Pandion haliaetus)", {osprey}},
                      Typed{"(Pandion haliaetus)", {osprey}},
                      Typed{"Dodo (Raphus cucullatus)", {{"Dodo", "Raphus cucullatus"}}},
                      Typed{"Dodo | Raphus cucullatus", {{"Dodo", "Raphus cucullatus"}}},
                      Typed{"Dodo - Raphus cucullatus", {{"Dodo", "Raphus cucullatus"}}},
                      Typed{"  Dodo\n", {{"Dodo", ""}}}));

TEST(AppStoreSpecies, NothingTypedIsNoTarget) {
    StoreScene scene;
    for (const char* text : {"", "  \n", "()"}) {
        scene.store().setSpeciesQuery(QString::fromUtf8(text));
        EXPECT_FALSE(scene.store().selectTypedSpecies()) << text;
    }
    EXPECT_TRUE(scene.store().selectedSpeciesList().empty());
}

TEST(AppStoreSpecies, TheSameSpeciesTwiceIsOneEntry) {
    StoreScene scene;
    AppStore& store = scene.store();
    store.addSpecies(QStringLiteral("Osprey"), QStringLiteral("Pandion haliaetus"));
    store.addSpecies(QStringLiteral("OSPREY"), QStringLiteral("pandion haliaetus"));
    store.setSpeciesQuery(QStringLiteral("osprey"));
    EXPECT_TRUE(store.selectTypedSpecies());
    EXPECT_EQ(store.selectedSpeciesList(), List{osprey});
}

TEST(AppStoreSpecies, OnlyThoseThatNeitherNameFindsAreUnrecognised) {
    StoreScene scene;
    AppStore& store = scene.store();
    store.addSpecies(QStringLiteral("Dodo"), {});
    store.addSpecies(QStringLiteral("Osprey"), {});
    store.addSpecies(QStringLiteral("Fish Hawk"), QStringLiteral("Pandion haliaetus"));
    store.addSpecies({}, QStringLiteral("Raphus cucullatus"));
    EXPECT_EQ(store.unrecognisedTargets(), (List{{"Dodo", ""}, {"", "Raphus cucullatus"}}));
}

TEST(AppStoreSpecies, ATargetIsRemovedByItsIdentity) {
    StoreScene scene;
    AppStore& store = scene.store();
    store.addSpecies(QStringLiteral("Dodo"), {});
    store.addSpecies(QStringLiteral("Osprey"), QStringLiteral("Pandion haliaetus"));
    store.removeSpecies(QString::fromStdString(osprey.id()));
    store.removeSpecies(QStringLiteral("no such id"));
    EXPECT_EQ(store.selectedSpeciesList(), (List{{"Dodo", ""}}));
}

}  // namespace
}  // namespace ornivo::app
