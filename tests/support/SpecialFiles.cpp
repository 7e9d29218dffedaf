// SPDX-License-Identifier: MIT
#include "tests/support/SpecialFiles.h"

#include "tests/support/Patience.h"
#include "tests/support/PreviewBytes.h"

#include <QDir>
#include <QFile>

#include <csignal>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace testbytes;

namespace {

void require(bool isDone, const char *what)
{
    if (!isDone)
        qFatal("cannot make %s", what);
}

void makeSocket(const QByteArray &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    require(size_t(path.size()) < sizeof address.sun_path,
            "a socket: the temporary directory's path is too long");
    qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    require(::bind(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0,
            "a socket");
    ::close(descriptor);
}

} // namespace

void addSpecialFileRows()
{
    QTest::addColumn<SpecialFile>("kind");
    QTest::newRow("nothing") << SpecialFile::Nothing;
    QTest::newRow("an empty path") << SpecialFile::EmptyPath;
    QTest::newRow("a path with a null character") << SpecialFile::PathWithNull;
    QTest::newRow("a path that leads through a file") << SpecialFile::BelowAFile;
    QTest::newRow("a directory") << SpecialFile::Directory;
    QTest::newRow("a link to itself") << SpecialFile::LinkToItself;
    QTest::newRow("a link to nothing") << SpecialFile::LinkToNothing;
    QTest::newRow("a FIFO") << SpecialFile::Fifo;
    QTest::newRow("a socket") << SpecialFile::Socket;
    QTest::newRow("an endless device") << SpecialFile::EndlessDevice;
    QTest::newRow("a silent device") << SpecialFile::SilentDevice;
}

SpecialFiles::SpecialFiles()
{
    writeFile(m_dir.filePath(QStringLiteral("sound.dwg")),
              drawingWith(bitmapEntry(patternBitmap(8, 4, 4).bytes())).bytes());
    require(QDir().mkpath(path(SpecialFile::Directory)), "a directory");
    require(QFile::link(path(SpecialFile::LinkToItself), path(SpecialFile::LinkToItself)),
            "a link to itself");
    require(QFile::link(path(SpecialFile::Nothing), path(SpecialFile::LinkToNothing)), "a link to nothing");
    require(::mkfifo(QFile::encodeName(path(SpecialFile::Fifo)).constData(), S_IRUSR | S_IWUSR) == 0,
            "a FIFO");
    makeSocket(QFile::encodeName(path(SpecialFile::Socket)));
}

QString SpecialFiles::path(SpecialFile kind) const
{
    switch (kind) {
    case SpecialFile::Nothing:
        return m_dir.filePath(QStringLiteral("nothing.dwg"));
    case SpecialFile::EmptyPath:
        return {};
    case SpecialFile::PathWithNull:
        return m_dir.filePath(QStringLiteral("sound.dwg")) + QChar::Null + QStringLiteral(".dwg");
    case SpecialFile::BelowAFile:
        return m_dir.filePath(QStringLiteral("sound.dwg/drawing.dwg"));
    case SpecialFile::Directory:
        return m_dir.filePath(QStringLiteral("directory.dwg"));
    case SpecialFile::LinkToItself:
        return m_dir.filePath(QStringLiteral("itself.dwg"));
    case SpecialFile::LinkToNothing:
        return m_dir.filePath(QStringLiteral("dangling.dwg"));
    case SpecialFile::Fifo:
        return m_dir.filePath(QStringLiteral("fifo.dwg"));
    case SpecialFile::Socket:
        return m_dir.filePath(QStringLiteral("socket.dwg"));
    case SpecialFile::EndlessDevice:
        return QStringLiteral("/dev/zero");
    case SpecialFile::SilentDevice:
        return QStringLiteral("/dev/null");
    }
    Q_UNREACHABLE();
}

Alarm::Alarm()
{
    ::signal(SIGALRM, SIG_DFL); // a handler would not run while a system call does not return
    ::alarm(patience / 1000);
}

Alarm::~Alarm()
{
    ::alarm(0);
}
