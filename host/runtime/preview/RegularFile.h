// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace fxhost {

//! A run of bytes of a file. Offset and size in bytes; 64 bits, so that a sum of what a drawing claims in 32
//! bits cannot wrap.
struct FileRange
{
    qint64 offset = 0;
    qint64 size = 0;

    qint64 end() const { return offset + size; }
};

//! A regular file open for reading at chosen places. It never blocks on other kinds of files (a FIFO
//! without a writer, a terminal), and a file that shrinks meanwhile makes a read short and nothing worse,
//! which a memory mapping could not promise. Reading from several threads at once is safe.
class RegularFile
{
public:
    //! Opens path; ask isOpen() whether that worked.
    explicit RegularFile(const QString &path);
    ~RegularFile();

    bool isOpen() const { return m_descriptor >= 0; }
    //! Why the file is not open, an errno value: ENXIO for what exists but is not a regular file. 0 if open.
    int openError() const { return m_openError; }
    //! Size in bytes when the file was opened; 0 if it is not open.
    qint64 size() const { return m_size; }
    //! When the file was last modified before it was opened; invalid if it is not open.
    const QDateTime &modified() const { return m_modified; }
    //! Whether range lies inside the file as it was when opened.
    bool contains(const FileRange &range) const;

    //! Reads up to maxSize bytes at offset into data. \return the number read, which is smaller only at the
    //! file's end; -1 with errno set if reading fails
    qint64 read(qint64 offset, char *data, qint64 maxSize) const;
    //! The size bytes at offset; an empty array unless every one of them could be read.
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
