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

// The handler may touch nothing but these.
int eventFile = -1;
std::array<int, 3> handled = {}; //!< 0: one that is ignored

void handleAtOnce()
{
    for (const int number : handled) {
        if (number != 0)
            std::signal(number, SIG_DFL);
    }
}

//! Runs in whatever the program was doing: only calls that are safe there.
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
        return; // they end the program at once, as without this
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
        action.sa_flags = SA_RESTART; // what the program was doing goes on
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
