// SPDX-License-Identifier: MIT
#include "host/runtime/FileLock.h"
#include "host/runtime/HostSettings.h"
#include "host/runtime/commands/CommandStack.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/editor/Editor.h"
#include "host/runtime/recent/RecentFileStore.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/FullDisk.h"
#include "tests/support/RunningHost.h"
#include "tests/support/TestCase.h"

#include <CFxEditorReactor.h>
#include <CFxRecentFileList.h>
#include <OdEdCommandStack.h>
#include <OdEditor.h>

#include <QDir>
#include <QWidget>

#include <memory>

using fxhost::FxHost;

namespace {

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
        const bool isCurrent = GetFxSystemServices()->GetMainFrame()->GetMainWindow() == frame;
        events << QString("%1 %2%3").arg(QLatin1String(event), frame->objectName(),
                                         isCurrent ? QString() : " too late");
    }

    FxHost &m_host;
};

//! A profile that outlives the hosts which run on it.
class Profile
{
    QTemporaryDir m_folder;

public:
    const QString directory = m_folder.filePath("made/on demand");

    QString file(const char *name) const { return directory + '/' + QLatin1String(name); }

    void write(const char *name, const QByteArray &content) const
    {
        QVERIFY(QDir().mkpath(directory));
        QFile target(file(name));
        QVERIFY(target.open(QIODevice::WriteOnly));
        QCOMPARE(target.write(content), qint64(content.size()));
    }

    //! What a host that starts on this profile says.
    QStringList messagesAtStart() const
    {
        FxHost host(directory, QString());
        QStringList messages;
        connect(host, messages);
        drainEvents();
        return messages;
    }

    static void connect(const FxHost &host, QStringList &messages)
    {
        QObject::connect(&host, &FxHost::message, &host,
                         [&messages](const QString &text) { messages.append(text); });
    }
};

} // namespace

class TestFxHost : public TestCase
{
    Q_OBJECT

private slots:
    void withoutAHostModulesFindNothing()
    {
        QCOMPARE(FxHost::instance(), nullptr);
        QCOMPARE(GetFxSystemServices(), nullptr);
        QCOMPARE(odedRegCmds(), nullptr);
        QCOMPARE(odedEditor(), nullptr);
    }

    void modulesReachEveryService()
    {
        RunningHost running;
        CFxSystemServices *const services = GetFxSystemServices();
        QCOMPARE(services, &running.host);
        QCOMPARE(services->GetDocumentManager(), &running.host.documents());
        QVERIFY(services->GetCustomization());
        QCOMPARE(services->GetMainFrame()->GetMainWindow(), nullptr);

        running.host.recentFiles().add("/a.dwg");
        std::vector<CFxString> paths;
        services->GetApplication()->GetUserProfile()->GetRecentFileList()->GetPaths(paths);
        QCOMPARE(paths, std::vector<CFxString>{CFxString(L"/a.dwg")});
    }

    void whatTheEngineGivesIsCountedAndTheCallers()
    {
        RunningHost running;
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

    void theMainWindowComesAndGoes()
    {
        RunningHost running;
        WindowListener listener(running.host);
        QWidget first;
        first.setObjectName("first");
        QWidget second;
        second.setObjectName("second");

        running.host.setMainWindow(&first);
        running.host.setMainWindow(&second);
        running.host.setMainWindow(nullptr);
        running.host.setMainWindow(nullptr);

        QCOMPARE(listener.events,
                 QStringList({"created first", "destroyed first", "created second", "destroyed second"}));
        QCOMPARE(GetFxSystemServices()->GetMainFrame()->GetMainWindow(), nullptr);
    }

    void aMainWindowThatDiedIsNotThereAnyMore()
    {
        RunningHost running;
        WindowListener listener(running.host);
        auto window = std::make_unique<QWidget>();
        running.host.setMainWindow(window.get());
        window.reset();
        QCOMPARE(GetFxSystemServices()->GetMainFrame()->GetMainWindow(), nullptr);
        running.host.setMainWindow(nullptr);
        QCOMPARE(listener.events.size(), 1);
    }

    void theMainWindowsStateIsTold()
    {
        RunningHost running;
        WindowListener listener(running.host);
        QWidget window;
        running.host.setMainWindow(&window);
        window.setWindowState(Qt::WindowMaximized);
        QTRY_VERIFY(listener.events.contains("changed "));
        running.host.setMainWindow(nullptr);
    }

    void comingToTheFrontIsTold()
    {
        RunningHost running;
        WindowListener listener(running.host);
        emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
        emit qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
        QCOMPARE(listener.events, QStringList({"app activated", "app deactivated"}));
    }

    void theEndClosesDrawingsBeforeTheWindowGoes()
    {
        QStringList order;
        QWidget window;
        class Order : public CFxEditorReactor
        {
        public:
            explicit Order(QStringList &list) : m_list(list) {}
            void mainFrameDestroyed(QWidget *) override { m_list << "window"; }

        private:
            QStringList &m_list;
        } listener(order);
        {
            RunningHost running;
            running.host.setMainWindow(&window);
            running.host.editor().addReactor(&listener);
            running.host.documents().newDocument();
            connect(&running.host.documents(), &fxhost::DocumentManager::documentAboutToClose, this,
                    [&] { order << "drawing"; });
        }
        QCOMPARE(order, QStringList({"drawing", "window"}));
    }

    void recentDocumentsAndTheirNumberAreKeptAcrossRuns()
    {
        const Profile profile;
        {
            FxHost host(profile.directory, QString());
            host.recentFiles().setMaximum(12);
            for (int i = 1; i <= 13; ++i)
                host.recentFiles().add(QString("/%1.dwg").arg(i));
        }
        FxHost host(profile.directory, QString());
        QCOMPARE(host.recentFiles().maximum(), 12);
        QCOMPARE(host.recentFiles().paths().size(), 12);
        QCOMPARE(host.recentFiles().paths().first(), QString("/13.dwg"));
    }

    void aFreshProfileIsNothingToTalkOf()
    {
        const Profile profile;
        QCOMPARE(profile.messagesAtStart(), QStringList());
    }

    void aDamagedListIsToldOnceThereIsSomebodyToHear()
    {
        const Profile profile;
        profile.write("recent.txt", "rubbish");
        const QStringList messages = profile.messagesAtStart();
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages.first().contains(profile.file("recent.txt")), qPrintable(messages.first()));
        QCOMPARE(profile.messagesAtStart(), QStringList());
    }

    void damagedSettingsAreSetAside()
    {
        const Profile profile;
        const QByteArray damaged = "[recent]\nmaximum=25\n[cut o";
        profile.write("settings.ini", damaged);
        {
            FxHost host(profile.directory, QString());
            QStringList messages;
            Profile::connect(host, messages);
            drainEvents();
            QCOMPARE(messages.size(), 1);
            QVERIFY2(messages.first().contains(profile.file("settings.ini.damaged")),
                     qPrintable(messages.first()));
            QCOMPARE(host.recentFiles().maximum(), 10); // nothing of what could be read
        }
        QFile kept(profile.file("settings.ini.damaged"));
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), damaged);
        {
            FxHost host(profile.directory, QString());
            QCOMPARE(host.recentFiles().maximum(), 10);
            host.recentFiles().setMaximum(30);
        }
        QCOMPARE(FxHost(profile.directory, QString()).recentFiles().maximum(), 30);
    }

    void aStoredNumberThatIsNoneIsTheDefault_data()
    {
        QTest::addColumn<QByteArray>("value");
        for (const char *value : {"0", "-3", "1001", "many", "", "99999999999999999999", "1.5", "@Invalid()"})
            QTest::newRow(value) << QByteArray(value);
    }

    void aStoredNumberThatIsNoneIsTheDefault()
    {
        QFETCH(QByteArray, value);
        const Profile profile;
        profile.write("settings.ini", "[recent]\nmaximum=" + value + "\n");
        QCOMPARE(FxHost(profile.directory, QString()).recentFiles().maximum(), 10);
    }

    void settingsMayBeEditedByHand()
    {
        const Profile profile;
        profile.write("settings.ini", "; mine\nwhatever=1\n\n[recent]\n maximum = 16 \n");
        {
            FxHost host(profile.directory, QString());
            QCOMPARE(host.recentFiles().maximum(), 16);
            host.settings().setLastDirectory(" /a folder ");
        }
        FxHost host(profile.directory, QString());
        QCOMPARE(host.recentFiles().maximum(), 16);
        QCOMPARE(host.settings().lastDirectory(), QString(" /a folder "));
    }

    void aFullDiskLeavesTheSettingsAsTheyWere()
    {
        const Profile profile;
        const auto content = [&] {
            QFile file(profile.file("settings.ini"));
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
        };
        {
            FxHost host(profile.directory, QString());
            QStringList messages;
            Profile::connect(host, messages);
            host.settings().setLastDirectory(QString(1000, 'd'));
            const QByteArray before = content();
            {
                const FullDisk disk(512); // bytes: Qt's lock file has room, so that it comes to the writing
                host.recentFiles().setMaximum(20);
                host.settings().setWindowGeometry("g");
            }
            QCOMPARE(content(), before);
            QCOMPARE(messages.size(), 1);
            QVERIFY2(messages.first().contains(profile.file("settings.ini")), qPrintable(messages.first()));
        }
        QCOMPARE(FxHost(profile.directory, QString()).recentFiles().maximum(), 20); // written in the end
    }

    void aProfileThatCannotBeMadeIsTold()
    {
        const Profile profile;
        profile.write("file", "in the way");
        FxHost host(profile.file("file/profile"), QString());
        QStringList messages;
        Profile::connect(host, messages);
        drainEvents();
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages.first().contains(profile.file("file/profile")), qPrintable(messages.first()));
        host.recentFiles().add("/a.dwg"); // cannot be kept, which is told as well
        QCOMPARE(messages.size(), 2);
        QCOMPARE(host.recentFiles().paths(), QStringList("/a.dwg"));
        host.recentFiles().add("/b.dwg"); // nor can this; it is as was told
        QCOMPARE(messages.size(), 2);
    }

    void whatAnotherHostHasMadeOfTheProfileHolds()
    {
        const Profile profile;
        FxHost host(profile.directory, QString());
        QStringList paths;
        for (int i = 0; i < 30; ++i)
            paths.append(QString("/theirs %1.dwg").arg(i));
        {
            fxhost::HostSettings settings(profile.directory, [](const QString &) {});
            settings.setRecentMaximum(50);
        }
        fxhost::RecentFileStore(profile.file("recent.txt")).update({}, [&](const QStringList &) {
            return paths;
        });
        // Turning from the one to the other, the person finds the list as he left it there.
        QCOMPARE(host.recentFiles().paths(), QStringList());
        emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
        QCOMPARE(host.recentFiles().paths(), paths);
        host.recentFiles().add("/ours.dwg");
        QCOMPARE(host.recentFiles().paths(), QStringList("/ours.dwg") + paths);
        QCOMPARE(host.recentFiles().maximum(), 50);
        QVERIFY(host.recentFiles().remove(paths.constLast()));
        QVERIFY(!host.recentFiles().remove(paths.constLast()));
    }

    void whatCouldNotBeKeptIsKeptAtTheEnd()
    {
        const Profile profile;
        const QString file = profile.file("recent.txt");
        {
            FxHost host(profile.directory, QString());
            QStringList messages;
            Profile::connect(host, messages);
            const auto theirs = std::make_unique<fxhost::FileLock>(file + ".lock", 0);
            QVERIFY(theirs->isHeld());
            host.recentFiles().add("/a.dwg");
            QCOMPARE(messages.size(), 1);
        }
        QCOMPARE(fxhost::RecentFileStore(file).load().paths, QStringList("/a.dwg"));
    }

    void settingsComeBack()
    {
        const Profile profile;
        {
            FxHost host(profile.directory, QString());
            QVERIFY(host.settings().windowGeometry().isEmpty());
            QVERIFY(host.settings().lastDirectory().isEmpty());
            host.settings().setWindowGeometry(QByteArray("\x01\x00\xff geometry", 12));
            host.settings().setLastDirectory("/pl\u00e4ne, \U0001F4D0");
        }
        FxHost host(profile.directory, QString());
        QCOMPARE(host.settings().windowGeometry(), QByteArray("\x01\x00\xff geometry", 12));
        QCOMPARE(host.settings().lastDirectory(), QString("/pl\u00e4ne, \U0001F4D0"));
    }
};

QTEST_MAIN(TestFxHost)
#include "tst_fxhost.moc"
