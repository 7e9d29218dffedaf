// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/process/ProgramStandIn.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <memory>

namespace {

const QString serviceName = "org.freedesktop.FileManager1";

//! A session bus with the test's services only.
class Bus
{
public:
    //! \param starter the command that starts a file manager; empty for none
    explicit Bus(const QString &starter = {})
    {
        if (!starter.isEmpty())
            write(serviceName + ".service",
                  QString("[D-BUS Service]\nName=%1\nExec=%2\n").arg(serviceName, starter));
        const QString config = write("bus.conf", QStringLiteral(R"(<busconfig>
            <type>session</type>
            <listen>unix:dir=%1</listen>
            <servicedir>%1</servicedir>
            <policy context="default">
              <allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/>
            </policy>
          </busconfig>)")
                                                     .arg(m_folder.path()));
        m_daemon.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_daemon.start("dbus-daemon", {"--nofork", "--print-address", QString("--config-file=") + config});
        if (!waitUntil([this] { return m_daemon.canReadLine(); }))
            qFatal("dbus-daemon does not start");
        m_address = QString::fromLatin1(m_daemon.readLine().trimmed());
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_address.toLatin1());
    }
    ~Bus()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/there is no bus");
        m_daemon.terminate();
        m_daemon.waitForFinished(patience);
    }
    Q_DISABLE_COPY(Bus)

    QString address() const { return m_address; }

private:
    QString write(const QString &name, const QString &text) const
    {
        return testbytes::writeFile(m_folder.filePath(name), text.toUtf8());
    }

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
};

//! A file manager on the bus.
class Service : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    enum class Answer { Done, Refused, Never };

    explicit Service(const Bus &bus, Answer answer = Answer::Done)
        : m_answer(answer), m_connection(QDBusConnection::connectToBus(bus.address(), serviceName))
    {
        if (!m_connection.registerObject("/org/freedesktop/FileManager1", this,
                                         QDBusConnection::ExportAllSlots) ||
            !m_connection.registerService(serviceName))
            qFatal("the service cannot be registered");
    }
    ~Service() override { QDBusConnection::disconnectFromBus(serviceName); }
    Q_DISABLE_COPY(Service)

    QVector<QStringList> shown; //!< the URIs of each request

public slots:
    void ShowItems(const QStringList &uris, const QString & /*startupId*/, const QDBusMessage &request)
    {
        shown.append(uris);
        request.setDelayedReply(m_answer == Answer::Never);
        if (m_answer == Answer::Refused)
            m_connection.send(request.createErrorReply(QDBusError::Failed, "no"));
    }

private:
    Answer m_answer;
    QDBusConnection m_connection;
};

struct Run
{
    int status;
    QString errorFile;

    QString errors() const
    {
        QFile file(errorFile);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : errorFile;
    }
};

Run fxshow(const QStringList &arguments, const QString &folder = {})
{
    QProcess program;
    program.setWorkingDirectory(folder);
    // Into a file, since the process that it starts may report errors after its end.
    const QString errors = QDir::current().filePath("fxshow-errors");
    program.setStandardErrorFile(errors);
    program.start(FXSHOW_PROGRAM, arguments);
    // The service is in this process and needs its events.
    if (!waitUntil([&] { return program.state() == QProcess::NotRunning; }))
        return {-1, {}};
    return {program.exitCode(), errors};
}

} // namespace

Q_DECLARE_METATYPE(Service::Answer)

class tst_FxShow : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase() { fxhost::keepBytesOfPaths(); }
    void init()
    {
        TestCase::init();
        m_folder = std::make_unique<QTemporaryDir>();
        m_opener = std::make_unique<ProgramStandIn>(0, ProgramStandIn::Others::Found, "xdg-open");
    }

    void cleanup()
    {
        m_opener.reset();
        m_folder.reset();
        TestCase::cleanup();
    }

    void theFileManagerGetsTheFile_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("encoded");
        QTest::addColumn<bool>("isRelative");
        const auto add = [](const char *row, const char *name, const char *encoded, bool isRelative = false) {
            QTest::newRow(row) << QByteArray(name) << QString::fromLatin1(encoded) << isRelative;
        };
        add("plain", "a-b_c.d~e.dwg", "a-b_c.d~e.dwg");
        add("characters that a URI reserves", "a b?c#d%20&'\".dwg", "a%20b%3Fc%23d%2520%26%27%22.dwg");
        add("non-ASCII letters", "\xc3\xa9.dwg", "%C3%A9.dwg");
        add("not UTF-8", "\xff\xc3.dwg", "%FF%C3.dwg");
        add("a line's end", "a\nb.dwg", "a%0Ab.dwg");
        add("relative", "-a.dwg", "-a.dwg", true);
    }

    void theFileManagerGetsTheFile()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, encoded);
        QFETCH(bool, isRelative);
        const Bus bus;
        const Service service(bus);
        const QString path = makeFile(name);
        const Run run = fxshow({isRelative ? fxhost::pathFromBytes(name) : path}, m_folder->path());
        QCOMPARE(run.status, 0);
        QTRY_COMPARE(service.shown,
                     QVector<QStringList>{{QString("file://%1/%2").arg(m_folder->path(), encoded)}});
        QCOMPARE(run.errors(), QString());
        QCOMPARE(m_opener->starts(), QVector<QStringList>());
    }

    void aFileManagerThatIsStartedGetsTheFile()
    {
        const Bus bus("/bin/cat"); // runs, but is not a file manager
        const QString path = makeFile("a.dwg");
        QCOMPARE(fxshow({path}).status, 0); // before the file manager is on the bus
        const Service service(bus);
        QTRY_COMPARE(service.shown, QVector<QStringList>{{QString("file://") + path}});
    }

    void theFolderIsOpenedInstead_data()
    {
        QTest::addColumn<bool>("hasBus");
        QTest::addColumn<bool>("hasService");
        QTest::addColumn<Service::Answer>("answer");
        QTest::addColumn<QByteArray>("made");
        QTest::newRow("no bus") << false << false << Service::Answer::Done << QByteArray("a.dwg");
        QTest::newRow("no file manager") << true << false << Service::Answer::Done << QByteArray("a.dwg");
        QTest::newRow("a file manager that refuses")
            << true << true << Service::Answer::Refused << QByteArray("a.dwg");
        QTest::newRow("a deleted file") << true << true << Service::Answer::Done << QByteArray("b.dwg");
    }

    void theFolderIsOpenedInstead()
    {
        QFETCH(bool, hasBus);
        QFETCH(bool, hasService);
        QFETCH(Service::Answer, answer);
        QFETCH(QByteArray, made);
        const auto bus = hasBus ? std::make_unique<Bus>() : nullptr;
        const auto service = hasService ? std::make_unique<Service>(*bus, answer) : nullptr;
        makeFile(made);
        QCOMPARE(fxshow({m_folder->filePath("a.dwg")}).status, 0);
        QTRY_COMPARE(m_opener->starts(), theFolder());
    }

    void anUnresponsiveFileManagerDoesNotBlock()
    {
        const Bus bus;
        {
            const Service service(bus, Service::Answer::Never);
            QCOMPARE(fxshow({makeFile("a.dwg")}).status, 0);
            QTRY_COMPARE(service.shown.size(), 1);
            QCOMPARE(m_opener->starts(), QVector<QStringList>());
        }
        QTRY_COMPARE(m_opener->starts(), theFolder()); // the file manager has ended without a reply
    }

    void problemsAreReported_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("message");
        const auto row = [](const char *name, const QStringList &arguments, int status, const char *message) {
            QTest::newRow(name) << arguments << status << QString("fxshow: %1\n").arg(message);
        };
        const char *const usage = "usage: fxshow PATH";
        row("no path", {}, 2, usage);
        row("an empty path", {""}, 2, usage);
        row("two paths", {"/", "/"}, 2, usage);
        const int anyStatus = -1; // depends on whether it fails within a second
        row("no such file", {"/no such/a.dwg"}, anyStatus,
            "cannot show /no such/a.dwg: No such file or directory");
        row("no file manager and no xdg-open", {"/tmp"}, anyStatus,
            "no file manager answers, and xdg-open cannot be started: No such file or directory");
    }

    void problemsAreReported()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, message);
        const ProgramStandIn none(0, ProgramStandIn::Others::Hidden, "another");
        const Run run = fxshow(arguments);
        QTRY_COMPARE(run.errors(), message);
        if (status >= 0)
            QCOMPARE(run.status, status);
    }

private:
    //! Makes a file. \return its path
    QString makeFile(const QByteArray &name) const
    {
        const QString path = m_folder->path() + QLatin1Char('/') + fxhost::pathFromBytes(name);
        if (!QFile(path).open(QIODevice::WriteOnly))
            qFatal("cannot make %s", qPrintable(path));
        return path;
    }
    //! What xdg-open is started with when the folder is opened once.
    QVector<QStringList> theFolder() const { return {QStringList(m_folder->path())}; }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ProgramStandIn> m_opener; //!< replaces xdg-open
};

CORE_TEST_CLASS(tst_FxShow);
#include "tst_fxshow.moc"
