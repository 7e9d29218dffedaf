// SPDX-License-Identifier: MIT
#include "host/app/instance/InstanceReceiver.h"
#include "host/app/instance/InstanceStart.h"
#include "host/runtime/FileLock.h"
#include "host/runtime/Paths.h"
#include "tests/host/app/ShownProgram.h"
#include "tests/support/process/ProgramHome.h"

#include <csignal>
#include <future>

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace fxhost;

namespace {

//! An instance in this process that receives drawings.
struct Receiving
{
    std::future<InstanceStart> later; // destroyed last, because that waits for its end
    ShownProgram program;
    QByteArray path = pathBytes(program.dir.filePath("socket"));
    std::unique_ptr<InstanceReceiver> receiver =
        std::make_unique<InstanceReceiver>(startInstance(path, {}).socket, program.host.commands());

    //! Starts another one, on a thread.
    void start(const QString &drawing)
    {
        later = std::async(std::launch::async, startInstance, path, InstanceMessage{{}, {drawing}});
    }
    bool startEnds() const
    {
        return waitUntil(
            [this] { return later.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
    }
};

//! Whether the other process closes the connection, without a word.
bool isClosed(const Descriptor &connection)
{
    char byte = 0;
    ssize_t size = -1;
    return waitUntil([&] { return (size = ::recv(connection.number(), &byte, 1, MSG_DONTWAIT)) >= 0; }) &&
           size == 0;
}

} // namespace

//! What a start of the program does while an instance is running.
class tst_OneInstance : public TestCase
{
    Q_OBJECT

private slots:
    void laterStartsOpenTheirDrawingsInTheRunningInstance()
    {
        const ProgramHome home;
        QProcess first;
        QVERIFY(startFirst(home, first));
        const QString other = home.drawing("-b \"%2\" .dwg");
        const QString bytes = home.drawing("c.dwg");
        QCOMPARE(home.runBare({"--profile", "profile/../profile", "--", "-b \"%2\" .dwg",
                               QUrl::fromLocalFile(bytes).toString(), "/gone.dwg"})
                     .exitCode,
                 0);
        QCOMPARE(home.runBare({"--profile", home.profile()}).exitCode, 0); // only activates the window
        const QString opened = "command _OPEN 5100";
        QCOMPARE(home.logOf("first").mid(1),
                 QStringList({"open " + other + " ok", opened, "open " + bytes + " ok", opened,
                              "open /gone.dwg failed", "command _OPEN 5102"}));

        QList<QProcess *> starts;
        QStringList lines;
        for (int i = 0; i < 4; ++i) {
            lines << "open " + home.drawing(QString("%1.dwg").arg(i)) + " ok";
            starts << new QProcess(&first);
            home.startBare(*starts.constLast(), {"--profile", home.profile(), QString("%1.dwg").arg(i)});
        }
        for (QProcess *start : qAsConst(starts)) {
            QVERIFY(start->waitForFinished(patience));
            QCOMPARE(start->exitCode(), 0);
        }
        QStringList log = home.logOf("first").mid(7).filter(" ok");
        log.sort();
        QCOMPARE(log, lines);
        first.terminate();
        QVERIFY(first.waitForFinished(patience));
        QCOMPARE(QDir(home.path("caches")).entryList({"*.socket"}, QDir::System), QStringList());
    }

    void anInstanceOfItsOwnIsStarted_data()
    {
        QTest::addColumn<QStringList>("environment");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("signal"); // sent to the first instance
        const QStringList none;
        QTest::newRow("on request") << none << QStringList("--new-instance") << 0;
        QTest::newRow("with an option that the first cannot apply")
            << none << QStringList("--no-module") << 0;
        QTest::newRow("with another profile") << none << QStringList{"--profile", "other"} << 0;
        QTest::newRow("on another display") << QStringList("DISPLAY=:77") << none << 0;
        QTest::newRow("without a folder for sockets") << QStringList{"-u", "XDG_RUNTIME_DIR"} << none << 0;
        QTest::newRow("in a folder that others can enter") << QStringList("XDG_RUNTIME_DIR=.") << none << 0;
        QTest::newRow("if the first does not respond") << none << none << SIGSTOP;
        QTest::newRow("if the first has crashed") << none << none << SIGKILL;
    }

    void anInstanceOfItsOwnIsStarted()
    {
        QFETCH(QStringList, environment);
        QFETCH(QStringList, options);
        QFETCH(int, signal);
        const ProgramHome home;
        QProcess first;
        QVERIFY(startFirst(home, first));
        if (signal != 0)
            ::kill(pid_t(first.processId()), signal);
        QVERIFY(signal != SIGKILL || first.waitForFinished(patience));

        const QString drawing = home.drawing("b.dwg");
        const bool hasProfile = options.contains("--profile");
        QProcess second;
        environment.replaceInStrings("=.", '=' + home.path("open"));
        QDir(home.path(".")).mkdir("open");
        QFile::setPermissions(home.path("open"), QFile::Permissions(0x7755));
        home.startBare(second,
                       options + (hasProfile ? QStringList() : QStringList{"--profile", home.profile()}) +
                           QStringList(drawing),
                       environment.isEmpty() ? environment : QStringList("env") + environment);
        const QString list = home.path(hasProfile ? "other" : "profile") + "/recent.txt";
        QTRY_VERIFY(!linesOf(list).filter(drawing).isEmpty());
        QCOMPARE(second.state(), QProcess::Running);
        QCOMPARE(QDir(home.path("open")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
        if (signal == SIGSTOP)
            ::kill(pid_t(first.processId()), SIGCONT);
        // The first one, or its successor, receives the next drawing; whatever came before is read then.
        QCOMPARE(home.runBare({"--profile", home.profile(), "/gone.dwg"}).exitCode, 0);
        for (QProcess *process : {&first, &second}) {
            process->terminate();
            process->waitForFinished(patience);
        }
        QCOMPARE(home.logOf("first").filter(drawing), QStringList()); // also after it was continued
    }

    void drawingsWaitForTheRunningCommand()
    {
        Receiving first;
        const QString drawing = first.program.drawing("a.dwg");
        const QSignalSpy activated(first.receiver.get(), &InstanceReceiver::activationRequested);
        QTimer::singleShot(0, &first.program.window, [&] {
            first.start(drawing);
            QTRY_COMPARE(activated.count(), 1);
            drainEvents();
            QCOMPARE(first.program.openPaths(), QStringList());
            first.program.host.commands().cancel();
        });
        first.program.enter("_DELAY 3600000");
        QVERIFY(first.startEnds());
        QVERIFY(first.later.get().isHandedOver);
        QCOMPARE(first.program.openPaths(), QStringList(drawing));
    }

    void drawingsAreNotLostIfTheInstanceEnds()
    {
        Receiving first;
        const QSignalSpy activated(first.receiver.get(), &InstanceReceiver::activationRequested);
        QTimer::singleShot(0, &first.program.window, [&] {
            first.start(first.program.drawing("a.dwg"));
            QTRY_COMPARE(activated.count(), 1);
            first.program.window.close();
        });
        first.program.enter("_DELAY 3600000");
        drainEvents();
        first.receiver.reset();
        QVERIFY(first.startEnds());
        const InstanceStart second = first.later.get();
        QVERIFY(!second.isHandedOver);
        QVERIFY(second.socket); // it receives the next ones
        QCOMPARE(first.program.openPaths(), QStringList());
    }

    void otherClientsAreClosed_data()
    {
        QTest::addColumn<QByteArray>("packet"); // nothing is sent if it is empty
        const QByteArray start("fxhost instance 1\0\0", 19);
        QTest::newRow("silent") << QByteArray();
        QTest::newRow("of another program") << QByteArray("GET / HTTP/1.1\r\n\r\n");
        QTest::newRow("of another version") << QByteArray("fxhost instance 2\0\0", 19);
        QTest::newRow("without the end") << start + "/a.dwg";
        QTest::newRow("a relative path") << start + QByteArray("a.dwg\0", 6);
        QTest::newRow("too long a startup ID") << start.chopped(1) + QByteArray(1025, 'a') + '\0';
        QTest::newRow("too many drawings") << start + QByteArray("/\0", 2).repeated(1001);
        const QByteArray full =
            start + QByteArray(InstanceMessage::maximumSize - start.size() - 1, '/') + '\0';
        QTest::newRow("too large, its beginning a message") << full + QByteArray("/\0", 2);
    }

    void otherClientsAreClosed()
    {
        QFETCH(QByteArray, packet);
        Receiving first;
        std::vector<Descriptor> clients;
        for (int i = 0; i < 16; ++i) { // as many as are served at a time
            clients.push_back(connectToInstance(first.path));
            QVERIFY(clients.back().isOpen());
            if (!packet.isEmpty())
                QCOMPARE(::send(clients.back().number(), packet.data(), size_t(packet.size()), 0),
                         packet.size());
        }
        for (const Descriptor &client : clients)
            QVERIFY(isClosed(client));
        const QString drawing = first.program.drawing("a.dwg");
        first.start(drawing);
        QVERIFY(first.startEnds());
        QVERIFY(first.later.get().isHandedOver);
        QCOMPARE(first.program.openPaths(), QStringList(drawing));
    }

    void otherUsersAreRefused()
    {
        if (::geteuid() != 0)
            QSKIP("needs the rights of root, to be another user");
        constexpr uid_t nobody = 65534;
        Receiving first;
        QFile::setPermissions(first.program.dir.path(), QFile::Permissions(0x7777));
        struct stat facts = {};
        QCOMPARE(::stat(first.path.constData(), &facts), 0);
        QCOMPARE(facts.st_mode & 0777U, 0600U);
        ::chmod(first.path.constData(), 0666);
        QCOMPARE(::seteuid(nobody), 0);
        const Descriptor client = connectToInstance(first.path);
        const QByteArray message = InstanceMessage().toBytes();
        QCOMPARE(::send(client.number(), message.data(), size_t(message.size()), 0), message.size());
        const InstanceSocket socket(first.path + "2", nullptr);
        QCOMPARE(::seteuid(0), 0);
        QVERIFY(isClosed(client));

        QVERIFY(socket.isListening());
        const FileLock lock(pathFromBytes(first.path) + "2.lock", std::chrono::seconds(0));
        const InstanceStart second = startInstance(first.path + "2", InstanceMessage());
        QVERIFY(!second.isHandedOver && !second.socket);
        const Descriptor received(::accept(socket.descriptor(), nullptr, nullptr));
        QVERIFY(received.isOpen() && isClosed(received)); // nothing was sent
    }

private:
    static bool startFirst(const ProgramHome &home, QProcess &process)
    {
        const QString drawing = home.drawing("a.dwg");
        home.start(process, "first", {}, {"--no-module", drawing});
        return waitUntil([&] { return home.logOf("first").contains("open " + drawing + " ok"); });
    }
};

TEST_CLASS(tst_OneInstance);
#include "tst_oneinstance.moc"
