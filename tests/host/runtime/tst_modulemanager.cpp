// SPDX-License-Identifier: MIT
#include "host/runtime/Paths.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandStack.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/editor/Editor.h"
#include "host/runtime/modules/ModuleManager.h"
#include "tests/support/RunningHost.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestModules.h"

#include <QDir>
#include <QFileInfo>
#include <QWidget>

#include <sys/stat.h>

namespace {

QString lastOf(const QStringList &list)
{
    return list.isEmpty() ? QString() : list.last();
}

} // namespace

class TestModuleManager : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo::exists(modulePath("first")), "the test modules are not built");
        fxhost::keepBytesOfPaths();
    }

    void aModuleLivesFromCreationToUnloadingInOrder()
    {
        const QString path = modulePath("first");
        takeCalls();
        QStringList messages;
        {
            RunningHost running;
            QWidget window;
            QVERIFY(running.host.modules().load(path));
            QCOMPARE(running.host.modules().loaded(), QStringList(path));
            QCOMPARE(takeCalls(),
                     QStringList({QStringLiteral("first create ") + path, QStringLiteral("first addRef"),
                                  QStringLiteral("first initApp")}));
            running.host.setMainWindow(&window);
            QCOMPARE(takeCalls(), QStringList(QStringLiteral("first mainFrameCreated")));
            running.host.setMainWindow(nullptr);
            QCOMPARE(takeCalls(), QStringList(QStringLiteral("first mainFrameDestroyed")));
            QVERIFY(isMapped(path));
            running.host.modules().unloadAll();
            QCOMPARE(takeCalls(),
                     QStringList({QStringLiteral("first uninitApp"), QStringLiteral("first release"),
                                  QStringLiteral("first deleteModule"), QStringLiteral("first unloaded")}));
            QVERIFY(!isMapped(path));
            QVERIFY(running.host.modules().loaded().isEmpty());
            QCOMPARE(running.logged(), QStringList({QStringLiteral("module %1 loaded").arg(path),
                                                    QStringLiteral("module %1 unloaded").arg(path)}));
            QCOMPARE(running.host.editor().numRefs(), 1);
            messages = running.messages;
        }
        QCOMPARE(messages, QStringList());
    }

    void theHostsEndEndsItsModulesWhileTheWindowLives()
    {
        takeCalls();
        QWidget window;
        {
            RunningHost running;
            running.host.modules().load(modulePath("first"));
            running.host.modules().load(modulePath("second"));
            running.host.setMainWindow(&window);
            takeCalls();
        }
        QCOMPARE(takeCalls(),
                 QStringList({QStringLiteral("first mainFrameDestroyed"),
                              QStringLiteral("second mainFrameDestroyed"), QStringLiteral("second uninitApp"),
                              QStringLiteral("second release"), QStringLiteral("second deleteModule"),
                              QStringLiteral("second unloaded"), QStringLiteral("first uninitApp"),
                              QStringLiteral("first release"), QStringLiteral("first deleteModule"),
                              QStringLiteral("first unloaded")}));
    }

    void aModuleThatComesLateIsNotifiedOfTheWindowAndTheCurrentDrawing_data()
    {
        QTest::addColumn<int>("drawings");
        QTest::addColumn<QStringList>("heard");
        const QStringList window(QStringLiteral("second mainFrameCreated"));
        QTest::newRow("no drawing") << 0 << window;
        QTest::newRow("two drawings") << 2 << window + QStringList(QStringLiteral("second DocumentCreated"));
    }

    void aModuleThatComesLateIsNotifiedOfTheWindowAndTheCurrentDrawing()
    {
        QFETCH(int, drawings);
        QFETCH(QStringList, heard);
        RunningHost running;
        QWidget window;
        running.host.modules().load(modulePath("first"));
        running.host.setMainWindow(&window);
        for (int i = 0; i < drawings; ++i)
            running.host.documents().newDocument();
        takeCalls();
        running.host.modules().load(modulePath("second"));
        QCOMPARE(takeCalls().mid(3), heard); // after its creation, addRef and initApp
    }

    void aModuleThatGoesEarlyHearsOfItToo()
    {
        RunningHost running;
        QWidget window;
        running.host.modules().load(modulePath("first"));
        running.host.modules().load(modulePath("second"));
        running.host.setMainWindow(&window);
        takeCalls();
        QVERIFY(running.host.modules().unload(modulePath("first")));
        QCOMPARE(takeCalls(),
                 QStringList({QStringLiteral("first mainFrameDestroyed"), QStringLiteral("first uninitApp"),
                              QStringLiteral("first release"), QStringLiteral("first deleteModule"),
                              QStringLiteral("first unloaded")}));
        QCOMPARE(running.host.modules().loaded(), QStringList(modulePath("second")));
    }

    void aModuleCanBeLoadedAgain()
    {
        RunningHost running;
        QVERIFY(running.host.modules().load(modulePath("first")));
        QVERIFY(running.host.modules().unload(modulePath("first")));
        QVERIFY(running.host.modules().load(modulePath("first")));
        QCOMPARE(running.messages, QStringList());
    }

    void aModuleGetsEveryByteOfItsName()
    {
        const QString former = QDir::currentPath();
        RunningHost running;
        QVERIFY(QDir::setCurrent(running.path(QString())));
        // As text, a byte order mark first and half of a surrogate pair.
        const QString name = fxhost::pathFromBytes("\xef\xbb\xbf\xff.so");
        QVERIFY(QFile::copy(modulePath("first"), name));
        takeCalls();
        const bool isLoaded = running.host.modules().load(name);
        QVERIFY(QDir::setCurrent(former));
        QVERIFY(isLoaded);
        QCOMPARE(takeCalls().value(0), QStringLiteral("first create ") + name);
    }

    void aModuleIsNotLoadedTwice()
    {
        RunningHost running;
        const QString link = running.path(QStringLiteral("another name.so"));
        QVERIFY(QFile::link(modulePath("first"), link));
        QVERIFY(running.host.modules().load(modulePath("first")));
        takeCalls();
        QVERIFY(!running.host.modules().load(modulePath("first")));
        QVERIFY(!running.host.modules().load(link));
        QCOMPARE(takeCalls(), QStringList());
        QVERIFY2(lastOf(running.messages).contains(link), qPrintable(lastOf(running.messages)));
        QCOMPARE(running.host.modules().loaded().size(), 1);
    }

    void whatIsNoModuleIsRefused_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *name, const char *reason) {
            QTest::newRow(name) << modulePath(name) << QString::fromLatin1(reason);
        };
        QTest::newRow("a missing file")
            << QStringLiteral("/nowhere/module.so") << QStringLiteral("no such file");
        QTest::newRow("a missing file without a directory")
            << QStringLiteral("libdl.so.2")
            << QStringLiteral("no such file"); // no search in the system's places
        QTest::newRow("a directory") << QCoreApplication::applicationDirPath()
                                     << QStringLiteral("not a file");
        QTest::newRow("an empty path") << QString() << QStringLiteral("no such file");
        row("no", "odrxGetAPIVersion");
        row("half", "odrxCreateModuleObject");
        row("unresolved", "nobodyDefinesThis");
        row("wrong_version", "4.3.2.7");
        row("throws_when_asked", "no more chalk");
        row("throws_when_created", "no more chalk");
        row("creates_nothing", "no module object");
        row("throws_when_started", "no more chalk");
    }

    void whatIsNoModuleIsRefused()
    {
        QFETCH(QString, path);
        QFETCH(QString, reason);
        RunningHost running;
        const auto commands = running.host.commandStack().commands();

        QVERIFY(!running.host.modules().load(path));

        QCOMPARE(running.messages.size(), 1);
        QVERIFY2(running.messages.first().contains(path), qPrintable(running.messages.first()));
        QVERIFY2(running.messages.first().contains(reason), qPrintable(running.messages.first()));
        QCOMPARE(running.logged(), QStringList(QStringLiteral("module %1 failed").arg(path)));
        QVERIFY(!path.endsWith(QLatin1String("_module.so")) || !isMapped(path));
        QCOMPARE(running.host.commandStack().commands(), commands);
        QVERIFY(running.host.editor().reactors().all().empty());
        QVERIFY(running.host.documents().reactors().all().empty());
        QVERIFY(running.host.modules().load(modulePath("first"))); // the host goes on
    }

    void aFileThatIsNoLibraryIsRefused()
    {
        RunningHost running;
        const QString text = running.makeFile(QStringLiteral("text.so"), "this is a letter");
        const QString empty = running.makeFile(QStringLiteral("empty.so"), QByteArray());
        QVERIFY(!running.host.modules().load(text));
        QVERIFY(!running.host.modules().load(empty));
        QCOMPARE(running.messages.size(), 2);
        QVERIFY(running.messages.first().contains(text));
    }

    void aFifoDoesNotHang()
    {
        RunningHost running;
        const QString fifo = running.path(QStringLiteral("fifo.so"));
        QCOMPARE(mkfifo(QFile::encodeName(fifo).constData(), S_IRUSR | S_IWUSR), 0);
        QVERIFY(!running.host.modules().load(fifo));
        QCOMPARE(running.messages.size(), 1);
    }

    void aModuleThatThrowsAtItsEndIsUnloadedAllTheSame()
    {
        RunningHost running;
        const QString path = modulePath("throws_when_ended");
        QVERIFY(running.host.modules().load(path));
        QVERIFY(running.host.modules().unload(path));
        QVERIFY2(lastOf(running.messages).contains(QLatin1String("no more chalk")),
                 qPrintable(lastOf(running.messages)));
        QVERIFY(!isMapped(path));
    }

    void nothingOfAModuleOutlivesItsUnloading()
    {
        RunningHost running;
        const auto commands = running.host.commandStack().commands();
        QWidget window;
        running.host.setMainWindow(&window);
        const QString path = modulePath("leaves_things");
        QVERIFY(running.host.modules().load(path));
        QCOMPARE(window.findChildren<QWidget *>().size(), 1);
        takeCalls();

        QVERIFY(running.host.modules().unload(path));

        QVERIFY(!isMapped(path));
        QCOMPARE(running.host.commandStack().commands(), commands);
        QVERIFY(running.host.editor().reactors().all().empty());
        QVERIFY(running.host.documents().reactors().all().empty());
        QVERIFY(window.findChildren<QWidget *>().isEmpty());
        QStringList deleted = takeCalls();
        deleted.sort(); // in which order is nobody's business
        QCOMPARE(
            deleted,
            QStringList({QStringLiteral("faulty child deleted"), QStringLiteral("faulty object deleted"),
                         QStringLiteral("faulty static deleted"), QStringLiteral("faulty window deleted")}));
        running.host.commands().runLine(QStringLiteral("_LEFT"));
        running.host.documents().newDocument(); // neither reaches what is gone
        running.host.setMainWindow(nullptr);
    }

    void unloadingWhatIsNotLoadedIsTold()
    {
        RunningHost running;
        QVERIFY(!running.host.modules().unload(modulePath("first")));
        QCOMPARE(running.messages.size(), 1);
        QVERIFY(running.messages.first().contains(modulePath("first")));
    }
};

QTEST_MAIN(TestModuleManager)
#include "tst_modulemanager.moc"
