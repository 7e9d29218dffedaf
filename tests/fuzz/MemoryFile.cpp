// SPDX-License-Identifier: MIT
#include "tests/fuzz/MemoryFile.h"

#include "tests/fuzz/Target.h"

#include <sys/mman.h>
#include <unistd.h>

namespace fuzz {

MemoryFile::MemoryFile()
    : m_descriptor(::memfd_create("fuzz", MFD_CLOEXEC)),
      m_path(QStringLiteral("/proc/self/fd/%1").arg(m_descriptor))
{
    require(m_descriptor >= 0, "the system has files in memory");
}

MemoryFile::~MemoryFile()
{
    ::close(m_descriptor);
}

void MemoryFile::write(const QByteArray &bytes) const
{
    // The length is set, not first to nothing: the pages that are there are used again.
    require(::ftruncate(m_descriptor, bytes.size()) == 0 &&
                ::pwrite(m_descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()), 0) ==
                    bytes.size(),
            "a file in memory can be written");
}

QByteArray MemoryFile::read() const
{
    const off_t size = ::lseek(m_descriptor, 0, SEEK_END);
    QByteArray bytes(static_cast<int>(size), Qt::Uninitialized);
    require(::pread(m_descriptor, bytes.data(), static_cast<std::size_t>(size), 0) == size,
            "a file in memory can be read");
    return bytes;
}

} // namespace fuzz
