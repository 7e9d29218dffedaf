// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace fuzz {

//! A file without a place on disk, for what reads files by path, thousands of times a second.
class MemoryFile
{
public:
    MemoryFile();
    ~MemoryFile();

    //! Under which it can be opened while this lives.
    QString path() const { return m_path; }
    //! Has the file hold these bytes and nothing else.
    void write(const QByteArray &bytes) const;
    QByteArray read() const;

    MemoryFile(const MemoryFile &) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;

private:
    int m_descriptor;
    QString m_path;
};

} // namespace fuzz
