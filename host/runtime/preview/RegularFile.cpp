// SPDX-License-Identifier: MIT
#include "host/runtime/preview/RegularFile.h"

#include "host/runtime/Paths.h"

#include <algorithm>
#include <cerrno>
#include <limits>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fxhost {

namespace {

//! Size of the buffer in bytes. A drawing's start and the head of its preview section often fit into it.
constexpr qint64 usualBuffer = 512;

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

//! The same for all dates more than 290 years away, which a file may have.
qint64 nanoseconds(const struct timespec &time)
{
    constexpr qint64 second = 1'000'000'000;
    constexpr qint64 most = std::numeric_limits<qint64>::max() / second - 1;
    return std::clamp<qint64>(time.tv_sec, -most, most) * second + time.tv_nsec;
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
    m_identity = {status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim),
                  nanoseconds(status.st_ctim)};
}

RegularFile::~RegularFile()
{
    if (isOpen())
        ::close(m_descriptor);
}

QDateTime RegularFile::modified() const
{
    return isOpen() ? QDateTime::fromMSecsSinceEpoch(m_identity.modified / 1'000'000) : QDateTime();
}

bool RegularFile::contains(const FileRange &range) const
{
    return range.offset >= 0 && range.size >= 0 && range.offset <= size() - range.size;
}

qint64 RegularFile::readDirectly(qint64 offset, char *data, qint64 maxSize) const
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

bool RegularFile::isBuffered(const FileRange &range) const
{
    return range.offset >= m_bufferAt && range.end() <= m_bufferAt + m_buffer.size();
}

bool RegularFile::prefetch(const FileRange &range) const
{
    m_buffer.resize(static_cast<int>(range.size));
    const qint64 count = readDirectly(range.offset, m_buffer.data(), range.size);
    m_buffer.resize(static_cast<int>(std::max<qint64>(count, 0)));
    m_bufferAt = range.offset;
    return count >= 0;
}

const uchar *RegularFile::view(const FileRange &range) const
{
    if (!isBuffered(range))
        prefetch({range.offset, std::max(range.size, usualBuffer)});
    return isBuffered(range)
               ? reinterpret_cast<const uchar *>(m_buffer.constData()) + (range.offset - m_bufferAt)
               : nullptr;
}

qint64 RegularFile::read(qint64 offset, char *data, qint64 maxSize) const
{
    if (!isBuffered({offset, maxSize})) {
        if (maxSize >= usualBuffer)
            return readDirectly(offset, data, maxSize);
        if (!prefetch({offset, usualBuffer}))
            return -1;
    }
    const qint64 count = std::min<qint64>(maxSize, m_bufferAt + m_buffer.size() - offset);
    std::copy_n(m_buffer.constData() + (offset - m_bufferAt), count, data);
    return count;
}

QByteArray RegularFile::readAll(qint64 offset, int size) const
{
    QByteArray bytes(size, Qt::Uninitialized);
    if (read(offset, bytes.data(), size) != size)
        return {};
    return bytes;
}

} // namespace fxhost
