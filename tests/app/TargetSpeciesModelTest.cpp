#include "app/presentation/TargetSpeciesModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "app/presentation/TargetSpeciesText.h"
#include "identification/BirdClassifierLabels.h"

namespace ornivo::app {
namespace {

const BirdSpecies dodo{"Dodo", "Raphus cucullatus"};
const BirdSpecies moa{"Moa", ""};

BirdSpecies known() {
    const auto match = BirdClassifierLabels::search("robin", 1).at(0);
    return {match.commonName, match.scientificName};
}

Mark mark(const TargetSpeciesModel& model, int row) {
    return model.data(model.index(row), TargetSpeciesModel::MarkRole).value<Mark>();
}

QVariant value(const TargetSpeciesModel& model, int row, TargetSpeciesModel::Role role) {
    return model.data(model.index(row), role);
}

}  // namespace

TEST(TargetSpeciesModel, SaysOfEachSpeciesWhetherTheClassifierKnowsIt) {
    TargetSpeciesModel model;
    const QAbstractItemModelTester tester(&model);
    model.show({known(), dodo});
    ASSERT_EQ(model.count(), 2);
    EXPECT_EQ(mark(model, 0), speciesMark(true));
    EXPECT_EQ(mark(model, 1), speciesMark(false));
    EXPECT_EQ(value(model, 1, TargetSpeciesModel::CommonName), "Dodo");
    EXPECT_EQ(value(model, 1, TargetSpeciesModel::ScientificName), "Raphus cucullatus");
    EXPECT_EQ(value(model, 1, TargetSpeciesModel::SpeciesID), "dodo|raphus cucullatus");
}

TEST(TargetSpeciesModel, EitherNameMakesASpeciesKnown) {
    TargetSpeciesModel model;
    model.show({{known().commonName, "Nonsense"}, {"Nonsense", known().scientificName}});
    EXPECT_EQ(mark(model, 0), speciesMark(true));
    EXPECT_EQ(mark(model, 1), speciesMark(true));
}

TEST(TargetSpeciesModel, WhatStaysIsntMoved) {
    TargetSpeciesModel model;
    const QAbstractItemModelTester tester(&model);
    model.show({known(), dodo, moa});
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    const QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
    model.show({known(), moa});
    EXPECT_EQ(removals.size(), 1);
    EXPECT_EQ(resets.size(), 0);
    ASSERT_EQ(model.count(), 2);
    EXPECT_EQ(value(model, 1, TargetSpeciesModel::CommonName), "Moa");
    model.show({});
    EXPECT_EQ(model.count(), 0);
}

}  // namespace ornivo::app
