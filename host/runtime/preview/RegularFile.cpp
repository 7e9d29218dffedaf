// SPDX-License-Identifier: MIT
#include "host/runtime/preview/RegularFile.h"

#include "host/runtime/Paths.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fxhost {

namespace {

int openWithoutBlocking(const QString &path)
{
    // Encoded names end at the first null character, and the part before it may be another file.
    if (path.contains(QChar::Null)) {
        errno = ENOENT;
        return -1;
    }
    const QByteArray name = pathBytes(path);
    int descriptor = -1;
    do {
        descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    } while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

} // namespace

RegularFile::RegularFile(const QString &path) : m_descriptor(openWithoutBlocking(path))
{
    if (m_descriptor < 0) {
        m_openError = errno;
        return;
    }
    struct stat status = {};
    if (::fstat(m_descriptor, &status) != 0)
        m_openError = errno;
    else if (!S_ISREG(status.st_mode))
        m_openError = ENXIO; // as open() itself sets for a socket

    if (m_openError != 0) {
        ::close(m_descriptor);
        m_descriptor = -1;
        return;
    }
    m_size = status.st_size;
    m_modified =
        QDateTime::fromSecsSinceEpoch(status.st_mtim.tv_sec).addMSecs(status.st_mtim.tv_nsec / 1000000);
}

RegularFile::~RegularFile()
{
    if (isOpen())
        ::close(m_descriptor);
}

bool RegularFile::contains(const FileRange &range) const
{
    return range.offset >= 0 && range.size >= 0 && range.offset <= m_size - range.size;
}

qint64 RegularFile::read(qint64 offset, char *data, qint64 maxSize) const
{
    qint64 done = 0;
    while (done < maxSize) {
        const ssize_t count =
            ::pread(m_descriptor, data + done, static_cast<size_t>(maxSize - done), offset + done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return -1;
        if (count == 0)
            break;
        done += count;
    }
    return done;
}

QByteArray RegularFile::readAll(qint64 offset, int size) const
{
    QByteArray bytes(size, Qt::Uninitialized);
    if (read(offset, bytes.data(), size) != size)
        return {};
    return bytes;
}

} // namespace fxhost
