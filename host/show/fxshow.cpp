// SPDX-License-Identifier: MIT
// Shows a file in the desktop's file manager: fxshow PATH
// The asking is left to a second process. A file manager that is not running yet may need long to start, and
// the session bus drops the request if the one who made it is gone by then; but whoever started us waits for
// our end.
#include <QByteArray>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

//! How long whoever started us waits to hear that it did not work.
constexpr timespec longestWait = {1, 0};

constexpr int failure = 1;
constexpr int wrongUse = 2;

void complain(const QByteArray &text)
{
    std::fprintf(stderr, "fxshow: %s\n", text.constData());
}

QByteArray errorText()
{
    return std::strerror(errno); // NOLINT(concurrency-mt-unsafe): there is one thread
}

//! \return path seen from the root; itself when the working directory is gone
QByteArray absolute(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> folder(::get_current_dir_name(), &std::free);
    return path.startsWith('/') || !folder ? path : QByteArray(folder.get()) + '/' + path;
}

//! \return whether the file manager has shown the file
bool askFileManager(const QByteArray &path)
{
    const QString name = QStringLiteral("org.freedesktop.FileManager1");
    QDBusMessage request = QDBusMessage::createMethodCall(
        name, QStringLiteral("/org/freedesktop/FileManager1"), name, QStringLiteral("ShowItems"));
    const QByteArray uri = "file://" + path.toPercentEncoding("/"); // byte by byte, whatever they are
    const QString startupId;
    request << QStringList(QString::fromLatin1(uri)) << startupId;
    return QDBusConnection::sessionBus().call(request).type() == QDBusMessage::ReplyMessage;
}

QByteArray folderOf(const QByteArray &path)
{
    return path.left(std::max(path.lastIndexOf('/'), 1));
}

//! Becomes the program that opens folders. \return only when that cannot be started
int openFolder(const QByteArray &folder)
{
    ::execlp("xdg-open", "xdg-open", folder.constData(), nullptr);
    complain("no file manager answers, and xdg-open cannot be started: " + errorText());
    return failure;
}

int show(const QByteArray &path)
{
    struct stat facts = {};
    const bool exists = ::lstat(path.constData(), &facts) == 0;
    if (!exists && ::lstat(folderOf(path).constData(), &facts) != 0) {
        complain("cannot show " + path + ": " + errorText());
        return failure;
    }
    return exists && askFileManager(path) ? 0 : openFolder(folderOf(path)); // of a deleted file, where it was
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2 || !*argv[1]) {
        complain("usage: fxshow PATH");
        return wrongUse;
    }
    std::signal(SIGCHLD, SIG_DFL); // whoever started us may have had it ignored
    sigset_t childEnds;
    sigset_t former;
    sigemptyset(&childEnds);
    sigaddset(&childEnds, SIGCHLD);
    pthread_sigmask(SIG_BLOCK, &childEnds, &former); // kept for the wait below, should the end come first
    const pid_t asking = fork();
    if (asking > 0) {
        int status = 0;
        const bool hasEnded = sigtimedwait(&childEnds, nullptr, &longestWait) == SIGCHLD &&
                              waitpid(asking, &status, 0) == asking;
        return hasEnded && status != 0 ? failure : 0;
    }
    pthread_sigmask(SIG_SETMASK, &former, nullptr);
    setsid(); // neither the end of a terminal nor that of the host takes the request away
    const QByteArray path = absolute(argv[1]);      // before Qt takes arguments for its own
    const QCoreApplication application(argc, argv); // which the bus needs
    return show(path);
}
