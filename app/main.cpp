#include <QGuiApplication>
#include <QIcon>
#include <cstdio>
#include <cstdlib>

#include "app/AppIdentity.h"
#include "app/AppStore.h"
#include "app/OrnivoApp.h"
#include "app/SingleInstance.h"
#include "app/StartArguments.h"
#include "app/TerminationSignals.h"

namespace {

using namespace ornivo::app;

/// The desktop's own file chooser, unless the user has a theme of his own.
void preferDesktopDialogs() {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME")) {
        qputenv("QT_QPA_PLATFORMTHEME", "xdgdesktopportal");
    }
}

void introduce(QGuiApplication& application) {
    application.setApplicationDisplayName(QStringLiteral("Ornivo"));
    application.setApplicationVersion(AppStore::version());
    application.setDesktopFileName(QString::fromLatin1(applicationID));
    application.setWindowIcon(QIcon::fromTheme(QString::fromLatin1(applicationID)));
}

int runWindow(const StartArguments& arguments, SingleInstance& instance) {
    OrnivoApp app;
    if (!app.open(arguments.folders)) {
        std::fputs("ornivo: The window can't be made; the reason is above.\n", stderr);
        return EXIT_FAILURE;
    }
    QObject::connect(&instance, &SingleInstance::requested, &app,
                     [&app](const SingleInstance::Request& request) {
                         app.store().open(request.folders);
                         app.raise(request.activationToken);
                     });
    const TerminationSignals signalsToEnd;
    QObject::connect(&signalsToEnd, &TerminationSignals::received, qApp, &QCoreApplication::quit);
    if (arguments.exitWhenShown) {
        QObject::connect(&app, &OrnivoApp::shown, qApp, &QCoreApplication::quit);
    }
    const int status = QCoreApplication::exec();
    // The next start is not to talk to a program that is on its way out.
    instance.release();
    app.close();
    // A scan of a slow disk may still be under way; nothing is to come of it any more.
    std::quick_exit(status);
}

}  // namespace

int main(int argc, char** argv) {
    StartRefusal refusal;
    const auto arguments = readArguments(argc, argv, refusal);
    if (!arguments) {
        std::fputs(refusal.text.c_str(), refusal.status == 0 ? stdout : stderr);
        return refusal.status;
    }
    preferDesktopDialogs();
    QGuiApplication application(argc, argv);
    introduce(application);

    SingleInstance instance(SingleInstance::usualFolder());
    if (!instance.claim()) {
        const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
        if (instance.handOver({arguments->folders, token})) return EXIT_SUCCESS;
    }
    return runWindow(*arguments, instance);
}
