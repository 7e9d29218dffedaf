// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QString>
#include <QVarLengthArray>

namespace fxhost {

//! A range of bytes in a file. Offset and size in bytes, of 64 bits, so that sums of a drawing's 32-bit
//! values cannot overflow.
struct FileRange
{
    qint64 offset = 0;
    qint64 size = 0;

    qint64 end() const { return offset + size; }
};

//! What distinguishes a file's content from any other: it changes when the file is replaced or written to.
//! Times in nanoseconds since 1970.
struct FileIdentity
{
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0; //!< bytes
    qint64 modified = 0;
    qint64 changed = 0; //!< the content, or the name or the rights

    bool operator==(const FileIdentity &other) const
    {
        return device == other.device && inode == other.inode && size == other.size &&
               modified == other.modified && changed == other.changed;
    }
};

inline uint qHash(const FileIdentity &identity, uint seed = 0)
{
    return ::qHash(identity.inode, seed) ^ ::qHash(identity.modified, seed);
}

//! A regular file that is open for reading at any position, with a buffer, so that small reads of
//! neighbouring bytes take few system calls. Does not block on other kinds of files (a FIFO without a writer,
//! a terminal). If the file shrinks meanwhile, fewer bytes are read, while a memory mapping would crash. An
//! object must be used by one thread only.
class RegularFile
{
public:
    //! Opens path. isOpen() returns whether this succeeded.
    explicit RegularFile(const QString &path);
    ~RegularFile();

    bool isOpen() const { return m_descriptor >= 0; }
    //! The errno value if the file is not open: ENXIO if it exists but is not a regular file. 0 if it is
    //! open.
    int openError() const { return m_openError; }
    //! The size in bytes when the file was opened; 0 if it is not open.
    qint64 size() const { return m_identity.size; }
    //! When the file was opened; all 0 if it is not open.
    const FileIdentity &identity() const { return m_identity; }
    //! The modification time when the file was opened; invalid if it is not open.
    QDateTime modified() const;
    //! True if range is inside the file, with the size that it had when it was opened.
    bool contains(const FileRange &range) const;

    //! Reads a range into the buffer. \return false, with errno set, if reading fails
    bool prefetch(const FileRange &range) const;
    //! The bytes of range in the buffer, valid until the next read; null if not all of them could be read.
    const uchar *view(const FileRange &range) const;
    //! Reads up to maxSize bytes at offset into data.
    //! \return the number of bytes, which is less than maxSize only at the end of the file; -1, with errno
    //! set, if reading fails
    qint64 read(qint64 offset, char *data, qint64 maxSize) const;
    //! The size bytes at offset; empty if not all of them could be read.
    QByteArray readAll(qint64 offset, int size) const;

    RegularFile(const RegularFile &) = delete;
    RegularFile &operator=(const RegularFile &) = delete;

private:
    bool isBuffered(const FileRange &range) const;
    qint64 readDirectly(qint64 offset, char *data, qint64 maxSize) const;

    int m_descriptor = -1;
    int m_openError = 0;
    FileIdentity m_identity;
    mutable QVarLengthArray<char, 512> m_buffer;
    mutable qint64 m_bufferAt = 0; //!< in the file
};

} // namespace fxhost
