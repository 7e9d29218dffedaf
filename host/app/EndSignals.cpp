// SPDX-License-Identifier: MIT
#include "host/app/EndSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>

#include <sys/eventfd.h>
#include <unistd.h>

namespace fxhost {

namespace {

// The only data that the signal handler may access.
int eventFile = -1;
std::array<int, 3> handled = {}; //!< signal numbers; 0 for a signal that is ignored

void handleAtOnce()
{
    for (const int number : handled) {
        if (number != 0)
            std::signal(number, SIG_DFL);
    }
}

//! Interrupts the program at any point: only async-signal-safe calls are allowed.
void handle(int)
{
    const int error = errno;
    handleAtOnce();
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(eventFile, &one, sizeof one);
    errno = error;
}

} // namespace

EndSignals::EndSignals(QObject *parent) : QObject(parent)
{
    eventFile = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (eventFile < 0)
        return; // the signals terminate the program immediately, as by default
    auto *notifier = new QSocketNotifier(eventFile, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        emit endRequested();
    });
    handled = {SIGTERM, SIGINT, SIGHUP};
    for (int &number : handled) {
        struct sigaction before = {};
        if (::sigaction(number, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) {
            number = 0;
            continue;
        }
        struct sigaction action = {};
        action.sa_handler = handle;
        action.sa_flags = SA_RESTART; // interrupted system calls continue
        ::sigaction(number, &action, nullptr);
    }
}

EndSignals::~EndSignals()
{
    handleAtOnce();
    if (eventFile >= 0)
        ::close(eventFile);
}

} // namespace fxhost
