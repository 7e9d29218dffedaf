// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QString>
#include <QTemporaryDir>

//! What a path can lead to where a file is wanted.
enum class SpecialFile {
    Nothing,
    EmptyPath,
    PathWithNull, //!< in front of it stands the path of a file
    BelowAFile,   //!< a file's path with another name behind it
    Directory,
    LinkToItself,
    LinkToNothing,
    Fifo,          //!< nobody writes to it
    Socket,        //!< nobody listens
    EndlessDevice, //!< /dev/zero
    SilentDevice,  //!< /dev/null
};
Q_DECLARE_METATYPE(SpecialFile)

//! Adds the column "kind" and a row for each special file.
void addSpecialFileRows();

//! One of each special file, in a directory that goes with the object.
class BytesOfSpecialFiles
{
public:
    BytesOfSpecialFiles();

    QString path(SpecialFile kind) const;

private:
    QTemporaryDir m_dir;
};

//! Ends the test program, and with it the test, if what happens in the object's life does not come to an end.
class Alarm
{
public:
    Alarm();
    ~Alarm();
    Alarm(const Alarm &) = delete;
    Alarm &operator=(const Alarm &) = delete;
};
