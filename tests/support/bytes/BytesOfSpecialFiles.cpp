// SPDX-License-Identifier: MIT
#include "tests/support/bytes/BytesOfSpecialFiles.h"

#include "tests/support/Patience.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <csignal>
#include <iterator>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace testbytes;

namespace {

struct Named
{
    SpecialFile kind;
    const char *row;
    const char *file;
};

constexpr Named specialFiles[] = {
    {SpecialFile::Nothing, "nothing", "nothing.dwg"},
    {SpecialFile::EmptyPath, "an empty path", ""},
    {SpecialFile::PathWithNull, "a path with a null character", "sound.dwg"},
    {SpecialFile::BelowAFile, "a path that leads through a file", "sound.dwg/drawing.dwg"},
    {SpecialFile::Directory, "a directory", "directory.dwg"},
    {SpecialFile::LinkToItself, "a link to itself", "itself.dwg"},
    {SpecialFile::LinkToNothing, "a link to nothing", "dangling.dwg"},
    {SpecialFile::Fifo, "a FIFO", "fifo.dwg"},
    {SpecialFile::Socket, "a socket", "socket.dwg"},
    {SpecialFile::EndlessDevice, "an endless device", "/dev/zero"},
    {SpecialFile::EmptyDevice, "an empty device", "/dev/null"},
};

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
    for (const Named &special : specialFiles)
        QTest::newRow(special.row) << special.kind;
}

BytesOfSpecialFiles::BytesOfSpecialFiles()
{
    writeFile(m_dir.filePath(QStringLiteral("sound.dwg")), drawingWith().bytes());
    require(QDir().mkpath(path(SpecialFile::Directory)), "a directory");
    require(QFile::link(path(SpecialFile::LinkToItself), path(SpecialFile::LinkToItself)),
            "a link to itself");
    require(QFile::link(path(SpecialFile::Nothing), path(SpecialFile::LinkToNothing)), "a link to nothing");
    require(::mkfifo(QFile::encodeName(path(SpecialFile::Fifo)).constData(), S_IRUSR | S_IWUSR) == 0,
            "a FIFO");
    makeSocket(QFile::encodeName(path(SpecialFile::Socket)));
}

QString BytesOfSpecialFiles::path(SpecialFile kind) const
{
    if (kind == SpecialFile::EmptyPath)
        return {};
    const auto *const special = std::find_if(std::begin(specialFiles), std::end(specialFiles),
                                             [kind](const Named &named) { return named.kind == kind; });
    const QString path = QDir(m_dir.path()).filePath(special->file);
    return kind == SpecialFile::PathWithNull ? path + QChar::Null + ".dwg" : path;
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
