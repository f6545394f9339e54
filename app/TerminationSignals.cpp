#include "TerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

#include <sys/socket.h>
#include <unistd.h>

namespace {
constexpr std::array<int, 3> kSignals = {SIGTERM, SIGINT, SIGHUP};

// One pair for the process: [0] is written by the handler, [1] read by the notifier.
int g_pair[2] = {-1, -1};
std::array<struct sigaction, kSignals.size()> g_previous{};

extern "C" void onSignal(int signal) {
    const int saved = errno; // the interrupted code may be about to read errno
    const unsigned char number = static_cast<unsigned char>(signal);
    [[maybe_unused]] const ssize_t written = ::write(g_pair[0], &number, 1);
    errno = saved;
}
} // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent) {
    if (g_pair[0] >= 0 || ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, g_pair) != 0) {
        return; // one instance at a time; without a pair the signals keep their default action
    }
    m_notifier = new QSocketNotifier(g_pair[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::onReadable);
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        struct sigaction action {};
        action.sa_handler = onSignal;
        sigemptyset(&action.sa_mask);
        action.sa_flags = SA_RESTART;
        ::sigaction(kSignals[i], &action, &g_previous[i]);
    }
}

TerminationSignals::~TerminationSignals() {
    if (m_notifier == nullptr) {
        return;
    }
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        ::sigaction(kSignals[i], &g_previous[i], nullptr);
    }
    delete m_notifier;
    ::close(g_pair[0]);
    ::close(g_pair[1]);
    g_pair[0] = g_pair[1] = -1;
}

void TerminationSignals::onReadable() {
    unsigned char number = 0;
    while (::read(g_pair[1], &number, 1) == 1) {
        emit received(number);
    }
}
