// SPDX-License-Identifier: MIT
#include "host/runtime/FileLock.h"

#include "host/runtime/Paths.h"

#include <QElapsedTimer>

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fxhost {

namespace {

// Between two attempts. A wait in the system call would have no end if the other process is stopped.
constexpr std::chrono::milliseconds pause{2};

} // namespace

FileLock::FileLock(const QString &path, std::chrono::milliseconds wait)
{
    // A child process must not inherit the lock, and a FIFO of that name must not block.
    m_descriptor = ::open(pathBytes(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY,
                          S_IRUSR | S_IWUSR);
    if (m_descriptor < 0)
        return;
    QElapsedTimer waiting;
    waiting.start();
    for (;;) {
        m_isHeld = ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0;
        m_isBusy = !m_isHeld && (errno == EWOULDBLOCK || errno == EINTR);
        if (!m_isBusy || waiting.hasExpired(wait.count()))
            return;
        std::this_thread::sleep_for(pause);
    }
}

FileLock::~FileLock()
{
    if (m_isHeld)
        ::flock(m_descriptor,
                LOCK_UN); // a child process that has not reached exec() yet may still have the file open
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

} // namespace fxhost
