// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QString>
#include <QTemporaryDir>

//! What a path can lead to instead of a file.
enum class SpecialFile {
    Nothing,
    EmptyPath,
    PathWithNull, //!< before it, the path of a file
    BelowAFile,   //!< the path of a file, and another name
    LinkToNothing,
    LinkToItself,
    Directory,
    Fifo,          //!< without a writer
    Socket,        //!< without a listener
    EndlessDevice, //!< /dev/zero
    EmptyDevice,   //!< /dev/null
};
Q_DECLARE_METATYPE(SpecialFile)

//! Adds the column "kind" and a row for each special file.
void addSpecialFileRows();

//! One of each special file, in a temporary directory.
class BytesOfSpecialFiles
{
public:
    BytesOfSpecialFiles();

    QString path(SpecialFile kind) const;

private:
    QTemporaryDir m_dir;
};

//! Ends the test program if what happens during the object's lifetime never ends.
class Alarm
{
public:
    Alarm();
    ~Alarm();
    Alarm(const Alarm &) = delete;
    Alarm &operator=(const Alarm &) = delete;
};
