// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fuzz/Target.h"

#include <QString>

#include <sys/mman.h>
#include <unistd.h>

namespace fuzz {

//! A file in memory, for code that reads files by path thousands of times a second.
class MemoryFile
{
public:
    MemoryFile() { require(m_descriptor >= 0, "the system has files in memory"); }
    ~MemoryFile() { ::close(m_descriptor); }
    Q_DISABLE_COPY(MemoryFile)

    //! Valid while this object exists.
    QString path() const { return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor); }

    //! Replaces the content.
    void write(const QByteArray &bytes) const
    {
        // Not truncated to nothing first, so that its pages are used again.
        const auto size = static_cast<std::size_t>(bytes.size());
        require(::ftruncate(m_descriptor, bytes.size()) == 0 &&
                    ::pwrite(m_descriptor, bytes.constData(), size, 0) == bytes.size(),
                "a file in memory can be written");
    }

    QByteArray read() const
    {
        const off_t size = ::lseek(m_descriptor, 0, SEEK_END);
        QByteArray bytes(static_cast<int>(size), Qt::Uninitialized);
        require(::pread(m_descriptor, bytes.data(), static_cast<std::size_t>(size), 0) == size,
                "a file in memory can be read");
        return bytes;
    }

private:
    const int m_descriptor = ::memfd_create("fuzz", MFD_CLOEXEC);
};

} // namespace fuzz
