/// How long a picture of the screen takes while a long list is scrolled through or searched: a
/// roster of 100,000 names and 11,000 species, drawn by the processor alone.
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/presentation/RosterModel.h"
#include "app/presentation/SpeciesMatches.h"

extern void qml_register_types_Ornivo();

namespace {

using namespace ornivo::app;

constexpr double frameMilliseconds = 1000.0 / 60;
constexpr int steps = 600;
constexpr int people = 100000;
constexpr int birds = 11000;

constexpr const char* rosterList = R"(
    import QtQuick
    import Ornivo
    FSList {
        width: 480; height: 260; rowHeight: 23; model: people
        delegate: FSText {
            required property string display
            width: ListView.view.width; height: 23; text: display
        }
    })";

constexpr const char* speciesList = R"(
    import QtQuick
    import Ornivo
    FSList {
        width: 480; height: 260; picks: true; model: birds
        delegate: SpeciesRow {
            width: ListView.view.width; picks: true; isCurrent: ListView.isCurrentItem
        }
    })";

/// Does something to a list in a window, again and again, and prints what that and the picture
/// after it took each time.
void measure(const char* name, QQmlEngine& engine, const char* qml,
             const std::function<void(QQuickItem&, int)>& change) {
    QQmlComponent component(&engine);
    component.setData(qml, QUrl(QStringLiteral("qrc:/benchmark.qml")));
    QQuickWindow window;
    window.resize(480, 260);
    const std::unique_ptr<QObject> list(component.create());
    auto* const item = qobject_cast<QQuickItem*>(list.get());
    if (!item) qFatal("%s", qPrintable(component.errorString()));
    item->setParentItem(window.contentItem());
    window.show();
    window.grabWindow();

    std::vector<double> pictures;
    for (int i = 0; i < steps; ++i) {
        QElapsedTimer timer;
        timer.start();
        change(*item, i);
        QCoreApplication::processEvents();
        window.grabWindow();
        pictures.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(pictures.begin(), pictures.end());
    const auto late = std::count_if(pictures.begin(), pictures.end(),
                                    [](double each) { return each > frameMilliseconds; });
    std::printf("%-14s median %.1f ms, longest %.1f ms, longer than a frame %ld of %d\n", name,
                pictures[steps / 2], pictures.back(), static_cast<long>(late), steps);
    item->setParentItem(nullptr);
}

/// Goes on through so many rows, to the end.
auto scroll(int rows) {
    return [rows](QQuickItem& list, int) {
        QMetaObject::invokeMethod(&list, "step", Q_ARG(QVariant, rows / steps));
    };
}

}  // namespace

int main(int argc, char** argv) {
    [[maybe_unused]] void (*const volatile types)() = &qml_register_types_Ornivo;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);

    std::vector<std::string> names;
    for (int i = 0; i < people; ++i) names.push_back("Photographer " + std::to_string(i));
    RosterModel roster(names);
    std::vector<SpeciesMatches::Match> matches;
    for (int i = 0; i < birds; ++i) {
        matches.push_back({.commonName = "Bird " + std::to_string(i),
                           .scientificName = "Avis numerata " + std::to_string(i)});
    }
    SpeciesMatches species;
    species.show(std::move(matches));

    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("people"), &roster);
    engine.rootContext()->setContextProperty(QStringLiteral("birds"), &species);
    measure("roster", engine, rosterList, scroll(people));
    measure("species", engine, speciesList, scroll(birds));
    measure("roster search", engine, rosterList,
            [&roster](QQuickItem&, int step) { roster.setSearch(QString::number(step % 100)); });
    return 0;
}
