// SPDX-License-Identifier: MIT
#include "host/runtime/FileLock.h"
#include "host/runtime/HostSettings.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/recent/RecentFileStore.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/Assertions.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/bytes/BytesOnFullDisk.h"
#include "tests/support/real/RealHost.h"

#include <CFxEditorReactor.h>
#include <CFxRecentFileList.h>
#include <OdEdCommandStack.h>
#include <OdEditor.h>
#include <sdkhost/CommandStack.h>
#include <sdkhost/Editor.h>

#include <QDir>
#include <QWidget>

#include <memory>

using fxhost::FxHost;

namespace {

QWidget *mainWindow()
{
    return GetFxSystemServices()->GetMainFrame()->GetMainWindow();
}

//! Records notifications about the main window and the application.
class WindowListener : public CFxEditorReactor
{
public:
    explicit WindowListener(FxHost &host) : m_host(host) { host.editor().addReactor(this); }
    ~WindowListener() override { m_host.editor().removeReactor(this); }

    void mainFrameCreated(QWidget *frame) override { note("created", frame); }
    void mainFrameDestroyed(QWidget *frame) override { note("destroyed", frame); }
    void windowStateChanged(QWidget *frame) override { note("changed", frame); }
    void appActivated() override { events << "app activated"; }
    void appDeactivated() override { events << "app deactivated"; }

    QStringList events;

private:
    void note(const char *event, QWidget *frame)
    {
        events << QString(event) + ' ' + frame->objectName() + (mainWindow() == frame ? "" : " too late");
    }

    FxHost &m_host;
};

//! A profile that outlives its hosts.
class Profile
{
    QTemporaryDir m_folder;

public:
    const QString directory = m_folder.filePath("made/on demand");

    QString file(const char *name) const { return directory + '/' + name; }
    void write(const char *name, const QByteArray &content) const
    {
        QDir().mkpath(directory);
        testbytes::writeFile(file(name), content);
    }
};

//! A host with a profile, and its messages.
struct ProfileHost
{
    explicit ProfileHost(const QString &profile) : host(profile, QString())
    {
        QObject::connect(&host, &FxHost::message, &host,
                         [this](const QString &text) { messages.append(text); });
    }
    explicit ProfileHost(const Profile &profile) : ProfileHost(profile.directory) {}

    //! Whether there is one message, about this file.
    bool hasOneMessage(const QString &file) const
    {
        return messages.size() == 1 && messages.first().contains(file);
    }

    QStringList messages;
    FxHost host;
    fxhost::RecentFiles &recent = host.recentFiles();
    fxhost::HostSettings &settings = host.settings();
};

QByteArray contentOfFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

class tst_FxHost : public TestCase
{
    Q_OBJECT

private slots:
    void withoutAHostModulesFindNothing()
    {
        QCOMPARE(GetFxSystemServices(), nullptr);
        QCOMPARE(odedRegCmds(), nullptr);
        QCOMPARE(odedEditor(), nullptr);
    }

    void aCallFromAnotherThreadIsReported()
    {
#ifdef NDEBUG
        QSKIP("Only debug builds report it.");
#else
        const RealHost running;
        CFxSystemServices *const services = GetFxSystemServices();
        const AssertionsAreNoted noted;
        std::thread([services] {
            services->GetMainFrame()->GetMainWindow();
            services->GetApplication()->GetUserProfile()->GetRecentFileList();
        }).join();
        QCOMPARE(assertions.size(), std::size_t(5));
        services->GetMainFrame();
        QCOMPARE(assertions.size(), std::size_t(5));
#endif
    }

    void modulesReachEveryService()
    {
        RealHost running;
        CFxSystemServices *const services = GetFxSystemServices();
        QCOMPARE(services, &running.host);
        QCOMPARE(services->GetDocumentManager(), &running.host.documents());
        QVERIFY(services->GetCustomization());
        QCOMPARE(mainWindow(), nullptr);

        running.host.recentFiles().add("/a.dwg");
        std::vector<CFxString> paths;
        services->GetApplication()->GetUserProfile()->GetRecentFileList()->GetPaths(paths);
        QCOMPARE(paths, std::vector<CFxString>{CFxString(L"/a.dwg")});

        // Objects of the engine are counted; the caller owns a reference.
        OdEdCommandStack *const stack = odedRegCmds();
        OdEditor *const editor = odedEditor();
        QCOMPARE(stack, &running.host.commandStack());
        QCOMPARE(stack->numRefs(), 2);
        QCOMPARE(editor->numRefs(), 2);
        stack->release();
        editor->release();
        QCOMPARE(stack->numRefs(), 1);
        QCOMPARE(editor->numRefs(), 1);
    }

    void reactorsAreNotifiedOfTheMainWindow()
    {
        RealHost running;
        WindowListener listener(running.host);
        QWidget first;
        first.setObjectName("first");
        auto second = std::make_unique<QWidget>();
        second->setObjectName("second");

        running.host.setMainWindow(&first);
        first.setWindowState(Qt::WindowMaximized);
        QTRY_COMPARE(listener.events, QStringList({"created first", "changed first"}));
        running.host.setMainWindow(second.get());
        running.host.setMainWindow(nullptr);
        running.host.setMainWindow(nullptr);
        QCOMPARE(listener.events.mid(2),
                 QStringList({"destroyed first", "created second", "destroyed second"}));
        QCOMPARE(mainWindow(), nullptr);

        running.host.setMainWindow(second.get());
        second.reset(); // without notice to the host
        QCOMPARE(mainWindow(), nullptr);
        running.host.setMainWindow(nullptr);
        QCOMPARE(listener.events.mid(5), QStringList("created second"));
    }

    void reactorsAreNotifiedOfActivation()
    {
        RealHost running;
        WindowListener listener(running.host);
        emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
        emit qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
        QCOMPARE(listener.events, QStringList({"app activated", "app deactivated"}));
    }

    void destructorClosesDrawingsBeforeTheWindow()
    {
        QWidget window;
        const QWidget *windowAtClosing = nullptr;
        {
            RealHost running;
            running.host.setMainWindow(&window);
            running.host.documents().newDocument();
            connect(&running.host.documents(), &fxhost::DocumentManager::documentAboutToClose, &window,
                    [&] { windowAtClosing = mainWindow(); });
        }
        QCOMPARE(windowAtClosing, &window);
    }

    // The profile.

    void profileIsRestored()
    {
        const Profile profile;
        {
            ProfileHost fresh(profile);
            fresh.recent.setMaximum(12);
            for (int i = 1; i <= 13; ++i)
                fresh.recent.add(QString("/%1.dwg").arg(i));
            QVERIFY(fresh.settings.windowGeometry().isEmpty());
            QVERIFY(fresh.settings.lastDirectory().isEmpty());
            fresh.settings.setWindowGeometry(QByteArray("\x01\x00\xff geometry", 12));
            fresh.settings.setLastDirectory(" /pl\u00e4ne, \U0001F4D0 ");
            drainEvents();
            QCOMPARE(fresh.messages, QStringList());
        }
        const ProfileHost next(profile);
        QCOMPARE(next.recent.maximum(), 12);
        QCOMPARE(next.recent.paths().size(), 12);
        QCOMPARE(next.recent.paths().constFirst(), QString("/13.dwg"));
        QCOMPARE(next.settings.windowGeometry(), QByteArray("\x01\x00\xff geometry", 12));
        QCOMPARE(next.settings.lastDirectory(), QString(" /pl\u00e4ne, \U0001F4D0 "));
    }

    void damagedListIsReportedOnce()
    {
        const Profile profile;
        profile.write("recent.txt", "rubbish");
        for (const bool isDamaged : {true, false}) {
            const ProfileHost running(profile);
            drainEvents();
            QCOMPARE(running.hasOneMessage(profile.file("recent.txt")), isDamaged);
            QCOMPARE(running.messages.size(), isDamaged ? 1 : 0);
        }
    }

    void damagedSettingsAreSetAside()
    {
        const Profile profile;
        const QByteArray damaged = "[recent]\nmaximum=25\n[cut o";
        profile.write("settings.ini", damaged);
        {
            const ProfileHost running(profile);
            drainEvents();
            QVERIFY(running.hasOneMessage(profile.file("settings.ini.damaged")));
            QCOMPARE(running.recent.maximum(), 10); // not even what could be read
        }
        QCOMPARE(contentOfFile(profile.file("settings.ini.damaged")), damaged);
        {
            ProfileHost running(profile);
            QCOMPARE(running.recent.maximum(), 10);
            running.recent.setMaximum(30);
        }
        QCOMPARE(ProfileHost(profile).recent.maximum(), 30);
    }

    void aStoredNumberIsReadOrTheDefault_data()
    {
        QTest::addColumn<int>("maximum");
        for (const char *value : {"0", "-3", "1001", "many", "", "99999999999999999999", "1.5", "@Invalid()"})
            QTest::newRow(value) << 10;
        QTest::newRow(" 16 ") << 16;
    }

    void aStoredNumberIsReadOrTheDefault()
    {
        QFETCH(int, maximum);
        const Profile profile;
        // As a user may have edited it.
        profile.write("settings.ini", "; mine\nwhatever=1\n\n[recent]\n maximum =" +
                                          QByteArray(QTest::currentDataTag()) + '\n');
        for (const char *directory : {"", "/a folder"}) {
            ProfileHost running(profile);
            QCOMPARE(running.recent.maximum(), maximum);
            QCOMPARE(running.settings.lastDirectory(), QString(directory));
            running.settings.setLastDirectory("/a folder"); // writes the file again
        }
    }

    void aFullDiskLeavesTheSettingsAsTheyWere()
    {
        const Profile profile;
        {
            ProfileHost running(profile);
            running.settings.setLastDirectory(QString(1000, 'd'));
            const QByteArray before = contentOfFile(profile.file("settings.ini"));
            {
                const BytesOnFullDisk disk(
                    512); // bytes: enough for Qt's lock file, so that the settings are written
                running.recent.setMaximum(20);
                running.settings.setWindowGeometry("g");
            }
            QCOMPARE(contentOfFile(profile.file("settings.ini")), before);
            QVERIFY(running.hasOneMessage(profile.file("settings.ini")));
        }
        QCOMPARE(ProfileHost(profile).recent.maximum(), 20); // written when the host is deleted
    }

    void theStateFolderIsTheUsersOwn_data()
    {
        QTest::addColumn<QByteArray>("variable");
        QTest::addColumn<QString>("folder");
        const QString usual = QDir::homePath() + "/.local/state/a host";
        QTest::newRow("unset") << QByteArray() << usual;
        QTest::newRow("empty") << QByteArray("") << usual;
        QTest::newRow("relative") << QByteArray("state") << usual;
        QTest::newRow("set") << QByteArray("/tmp/my state/") << "/tmp/my state/a host";
    }

    void theStateFolderIsTheUsersOwn()
    {
        QFETCH(QByteArray, variable);
        QCoreApplication::setApplicationName("a host");
        variable.isNull() ? qunsetenv("XDG_STATE_HOME") : qputenv("XDG_STATE_HOME", variable);
        QTEST(fxhost::ProfileFolders::ofUser().state, "folder");
    }

    void profileThatCannotBeMadeIsReported()
    {
        const Profile profile;
        profile.write("file", "in the way");
        ProfileHost running(profile.file("file/profile"));
        drainEvents();
        QVERIFY(running.hasOneMessage(profile.file("file/profile")));
        running.recent.add("/a.dwg"); // cannot be stored, which is reported too
        QCOMPARE(running.messages.size(), 2);
        QCOMPARE(running.recent.paths(), QStringList("/a.dwg"));
        running.recent.add("/b.dwg"); // nor can this; already reported
        QCOMPARE(running.messages.size(), 2);
    }

    void changesByAnotherHostAreReadOnActivation()
    {
        const Profile profile;
        ProfileHost running(profile);
        QStringList paths;
        for (int i = 0; i < 30; ++i)
            paths.append(QString("/theirs %1.dwg").arg(i));
        fxhost::HostSettings(profile.directory, [](const QString &) {}).setRecentMaximum(50);
        fxhost::RecentFileStore(profile.file("recent.txt")).update({}, [&](const fxhost::RecentEntries &) {
            return fxhost::entriesOf(paths);
        });
        QCOMPARE(running.recent.paths(), QStringList());
        emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
        QCOMPARE(running.recent.paths(), paths);
        QCOMPARE(running.recent.maximum(), 50);
    }

    void unwrittenListIsWrittenAtTheEnd()
    {
        const Profile profile;
        const QString file = profile.file("recent.txt");
        {
            ProfileHost running(profile);
            const fxhost::FileLock theirs(file + ".lock", {});
            QVERIFY(theirs.isHeld());
            running.recent.add("/a.dwg");
            QCOMPARE(running.messages.size(), 1);
        }
        QCOMPARE(pathsOf(fxhost::RecentFileStore(file).load().entries), QStringList("/a.dwg"));
    }
};

TEST_CLASS(tst_FxHost);
#include "tst_fxhost.moc"
