// SPDX-License-Identifier: MIT
// Shows a file in the desktop's file manager: fxshow PATH
// A second process sends the request. A file manager that is not running yet may take long to start, and the
// session bus drops the request if its sender has ended by then. But the program that started fxshow waits
// for it to end.
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

//! How long to wait for the second process, in order to report its failure.
constexpr timespec longestWait = {1, 0};

constexpr int failure = 1;
constexpr int wrongUse = 2;

void printError(const QByteArray &text)
{
    std::fprintf(stderr, "fxshow: %s\n", text.constData());
}

QByteArray errorText()
{
    return std::strerror(errno); // NOLINT(concurrency-mt-unsafe): there is one thread
}

//! The absolute path; path itself if the working directory has been deleted.
QByteArray absolute(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> folder(::get_current_dir_name(), &std::free);
    return path.startsWith('/') || !folder ? path : QByteArray(folder.get()) + '/' + path;
}

//! Requests that the file manager show the file.
//! \return true if it has done so
bool askFileManager(const QByteArray &path)
{
    const QString name = QStringLiteral("org.freedesktop.FileManager1");
    QDBusMessage request = QDBusMessage::createMethodCall(
        name, QStringLiteral("/org/freedesktop/FileManager1"), name, QStringLiteral("ShowItems"));
    const QByteArray uri = "file://" + path.toPercentEncoding("/"); // byte by byte, without decoding
    const QString startupId;
    request << QStringList(QString::fromLatin1(uri)) << startupId;
    return QDBusConnection::sessionBus().call(request).type() == QDBusMessage::ReplyMessage;
}

QByteArray folderOf(const QByteArray &path)
{
    return path.left(std::max(path.lastIndexOf('/'), 1));
}

//! Replaces this process with the program that opens folders. Only returns if that program cannot be started.
int openFolder(const QByteArray &folder)
{
    ::execlp("xdg-open", "xdg-open", folder.constData(), nullptr);
    printError("no file manager answers, and xdg-open cannot be started: " + errorText());
    return failure;
}

int show(const QByteArray &path)
{
    struct stat facts = {};
    const bool exists = ::lstat(path.constData(), &facts) == 0;
    if (!exists && ::lstat(folderOf(path).constData(), &facts) != 0) {
        printError("cannot show " + path + ": " + errorText());
        return failure;
    }
    // If the file has been deleted, open its folder.
    return exists && askFileManager(path) ? 0 : openFolder(folderOf(path));
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2 || !*argv[1]) {
        printError("usage: fxshow PATH");
        return wrongUse;
    }
    std::signal(SIGCHLD, SIG_DFL); // the parent process may have ignored it
    sigset_t childEnds;
    sigset_t former;
    sigemptyset(&childEnds);
    sigaddset(&childEnds, SIGCHLD);
    pthread_sigmask(SIG_BLOCK, &childEnds, &former); // pending if the child ends before the wait below
    const pid_t asking = fork();
    if (asking > 0) {
        int status = 0;
        const bool hasEnded = sigtimedwait(&childEnds, nullptr, &longestWait) == SIGCHLD &&
                              waitpid(asking, &status, 0) == asking;
        return hasEnded && status != 0 ? failure : 0;
    }
    pthread_sigmask(SIG_SETMASK, &former, nullptr);
    setsid(); // so that the request survives the end of the terminal and of the host
    const QByteArray path = absolute(argv[1]);      // before Qt removes its own arguments
    const QCoreApplication application(argc, argv); // required by the bus
    return show(path);
}
