#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace ornivo::app {

/// Turns the signals that ask a process to end, as at the end of a session, into an event of the
/// main thread, so that the program can end as it does when the user quits it. One at a time.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void received();

private:
    void take();

    int descriptor_;
    QSocketNotifier notifier_;
};

}  // namespace ornivo::app
