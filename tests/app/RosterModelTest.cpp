#include "app/presentation/RosterModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QStringList>

namespace ornivo::app {
namespace {

const std::vector<std::string> names{"Ada", "Bea", "Adam"};

QStringList rows(const RosterModel& model) {
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row) {
        list.append(model.data(model.index(row), Qt::DisplayRole).toString());
    }
    return list;
}

}  // namespace

TEST(RosterModel, ShowsEveryoneAtFirst) {
    RosterModel model(names);
    const QAbstractItemModelTester tester(&model);
    EXPECT_EQ(rows(model), (QStringList{"Ada", "Bea", "Adam"}));
    EXPECT_EQ(model.countShown(),
              QString::fromUtf8("3 shown — scroll, or search to find someone."));
}

TEST(RosterModel, ShowsThoseFoundInTheOrderOfTheRoster) {
    RosterModel model(names);
    const QAbstractItemModelTester tester(&model);
    model.setSearch("ada");
    EXPECT_EQ(rows(model), (QStringList{"Ada", "Adam"}));
    model.setSearch("nobody");
    EXPECT_EQ(rows(model), QStringList());
    EXPECT_EQ(model.count(), 0);
    model.setSearch(" ");
    EXPECT_EQ(model.count(), 3);
}

}  // namespace ornivo::app
