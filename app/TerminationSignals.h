#pragma once
// SIGTERM, SIGINT and SIGHUP (a desktop logging out, Ctrl+C in the terminal, the terminal closing)
// brought into the event loop: the handler only writes the signal's number into a socket pair, and
// a QSocketNotifier on the other end emits received() where Qt may be used.

#include <QObject>

class QSocketNotifier;

class TerminationSignals : public QObject {
    Q_OBJECT
public:
    explicit TerminationSignals(QObject* parent = nullptr);
    // Puts back the handlers that were there before.
    ~TerminationSignals() override;
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

signals:
    void received(int signal);

private:
    void onReadable();

    QSocketNotifier* m_notifier = nullptr;
};
