// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace fxhost {

//! A range of bytes in a file. Offset and size in bytes, of 64 bits, so that sums of a drawing's 32-bit
//! values cannot overflow.
struct FileRange
{
    qint64 offset = 0;
    qint64 size = 0;

    qint64 end() const { return offset + size; }
};

//! A regular file that is open for reading at any position. Does not block on other kinds of files (a FIFO
//! without a writer, a terminal). If the file shrinks meanwhile, fewer bytes are read, while a memory mapping
//! would crash. Several threads can read at the same time.
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
    qint64 size() const { return m_size; }
    //! The modification time when the file was opened; invalid if it is not open.
    const QDateTime &modified() const { return m_modified; }
    //! True if range is inside the file, with the size that it had when it was opened.
    bool contains(const FileRange &range) const;

    //! Reads up to maxSize bytes at offset into data.
    //! \return the number of bytes, which is less than maxSize only at the end of the file; -1, with errno
    //! set, if reading fails
    qint64 read(qint64 offset, char *data, qint64 maxSize) const;
    //! The size bytes at offset; empty if not all of them could be read.
    QByteArray readAll(qint64 offset, int size) const;

    RegularFile(const RegularFile &) = delete;
    RegularFile &operator=(const RegularFile &) = delete;

private:
    int m_descriptor = -1;
    int m_openError = 0;
    qint64 m_size = 0;
    QDateTime m_modified;
};

} // namespace fxhost
