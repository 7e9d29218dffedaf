// SPDX-License-Identifier: MIT
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "tests/support/Browser.h"
#include "tests/support/FakeCustomization.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocMainWindow.h"

#include <CFxCommand.h>

#include <QFile>
#include <QMutex>
#include <QRegularExpression>

extern "C" void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild);
extern "C" OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName);

//! From the loaded library through a key press to the opened drawings and out again, as the host lives
//! through it: what it is asked for, and in which order.
class tst_Walkthrough : public TestCase
{
    Q_OBJECT

private slots:
    void fromLoadingToUnloading();
};

namespace {

//! A host with a File menu in each of its two sets of menus, and with three recent documents.
class WalkedHost
{
public:
    WalkedHost()
    {
        QStringList paths;
        for (const char *name : {"a.dwg", "b.dwg", "c.dwg"}) {
            QFile drawing(m_folder.filePath(QLatin1String(name)));
            if (!drawing.open(QIODevice::WriteOnly))
                qFatal("cannot make %s", name);
            paths.append(drawing.fileName());
        }
        fake.setRecent(paths);
        fake.hasCustomization = true;
        for (FakeMenuItem *menu : {&file, &startUpFile}) {
            menu->add(QStringLiteral("MI_Open"));
            menu->add(QStringLiteral("MI_Quit"));
        }
        fake.onLoadPreview = [&calls = fake.calls, &reading = m_reading](const QString &path, QImage &image) {
            const QMutexLocker lock(&reading);
            calls.append(QStringLiteral("read ") + path);
            image = pictureOf(path);
            return true;
        };
    }

    //! What the host was asked for since the last call, without mere looking and without the folder.
    QStringList steps()
    {
        QStringList lines = std::exchange(fake.calls, {});
        static const QRegularExpression asking(
            QStringLiteral("^(stack (add|remove)|documents|editor (add|remove)|menus (append|insert|refresh)|"
                           "read|open|run)"));
        lines = lines.filter(asking);
        lines.replaceInStrings(m_folder.path() + QLatin1Char('/'), QString());
        // The rest of such a line tells what was inserted where.
        lines.replaceInStrings(QRegularExpression(QStringLiteral("^(menus (append \\S+|insert)) .*")),
                               QStringLiteral("\\1"));
        return lines;
    }

    FakeHost fake;
    FakeGroup &primary = fake.customization().addGroup(QStringLiteral("MAIN"), true);
    FakeGroup &startUp = fake.customization().setStartUpGroup(QStringLiteral("START"));
    FakeMenuItem &file = primary.addMenu(QStringLiteral("ID_MnFile"));
    FakeMenuItem &startUpFile = startUp.addMenu(QStringLiteral("ID_MnFile"));

private:
    QTemporaryDir m_folder;
    QMutex m_reading;
};

//! The registered command of that name, as the host finds it.
CFxCommand *commandNamed(const FakeHost &host, const wchar_t *name)
{
    for (OdEdCommand *command : host.commands) {
        if (command->globalName() == OdString(name))
            return dynamic_cast<CFxCommand *>(command);
    }
    return nullptr;
}

} // namespace

void tst_Walkthrough::fromLoadingToUnloading()
{
    // The library is loaded: its lists are empty and there is no module yet.
    QVERIFY(!g_pSingletonModule);
    QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty());
    QVERIFY(RecentDocumentBrowser::menuPinButtonList.isEmpty());
    QVERIFY(!QImage(QStringLiteral(":/Images/Resources/VELA_DWG.png")).isNull());
    WalkedHost host;

    int version[4] = {};
    odrxGetAPIVersion(version[0], version[1], version[2], version[3]);
    OdRxModule *module = odrxCreateModuleObject(nullptr, L"browser");
    auto *browser = dynamic_cast<RecentDocumentBrowser *>(module);
    QVERIFY(browser);
    QCOMPARE(host.steps(), QStringList());

    module->initApp();
    QCOMPARE(host.steps(),
             QStringList({QStringLiteral("stack add _RECENT"), QStringLiteral("documents add reactor"),
                          QStringLiteral("editor add reactor")}));

    browser->mainFrameCreated(&host.fake.mainWindow());
    QCOMPARE(host.steps(),
             QStringList({QStringLiteral("menus append definition"), QStringLiteral("menus insert"),
                          QStringLiteral("menus append definition"), QStringLiteral("menus insert"),
                          QStringLiteral("menus refresh"), QStringLiteral("stack add _RHELP")}));

    browser->DocumentCreated(nullptr);
    QCOMPARE(host.steps(), QStringList({QStringLiteral("menus refresh")})); // the entries are there
    QCOMPARE(RecentDocumentBrowser::recentDocActionList.size(), 3);
    QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty());

    // The user picks the entry.
    QCOMPARE(host.file.GetChildCount(), 3);
    const CFxUIMenuItem *entry = host.file.GetChild(1);
    QCOMPARE(QString(entry->GetCommand()->GetMacro()), QStringLiteral("^C^C_RECENT"));
    QCOMPARE(commandNamed(host.fake, L"_RECENT")->Execute(nullptr), 5100);
    QStringList reads = host.steps();
    reads.sort(); // the workers' order is their own
    QCOMPARE(reads, QStringList({QStringLiteral("read a.dwg"), QStringLiteral("read b.dwg"),
                                 QStringLiteral("read c.dwg")}));

    // The popup is up; the second and the third drawing are highlighted and opened.
    const QPointer<RecentDocMainWindow> popup = host.fake.mainWindow().findChild<RecentDocMainWindow *>();
    QVERIFY(popup && popup->isVisible());
    QTest::keyClick(popup, Qt::Key_Right);
    QTest::keyClick(popup, Qt::Key_Right, Qt::ShiftModifier);
    host.fake.onOpen = [&](const QString &) {
        host.fake.calls.append(popup && popup->isVisible() ? QStringLiteral("open with the popup up")
                                                           : QStringLiteral("open with the popup down"));
        browser->DocumentCreated(nullptr); // as the host reports it
    };
    QTest::keyClick(popup, Qt::Key_Return);
    QCOMPARE(host.steps(),
             QStringList({QStringLiteral("open b.dwg"), QStringLiteral("open with the popup down"),
                          QStringLiteral("menus refresh"), QStringLiteral("open c.dwg"),
                          QStringLiteral("open with the popup down"), QStringLiteral("menus refresh")}));
    QTRY_VERIFY(!popup);
    QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty()); // the next popup reads anew

    browser->mainFrameDestroyed(&host.fake.mainWindow());
    QCOMPARE(host.steps(),
             QStringList({QStringLiteral("stack remove _RECENT"), QStringLiteral("documents remove reactor"),
                          QStringLiteral("editor remove reactor"), QStringLiteral("stack remove _RHELP")}));
    QCOMPARE(host.file.GetChildCount(), 3); // the menus were looked at, and nothing more

    module->uninitApp();
    module->deleteModule();
    QCOMPARE(host.steps(), QStringList());
    QVERIFY(!g_pSingletonModule);
    QCOMPARE(host.fake.openReferences, 0);
}

QTEST_MAIN(tst_Walkthrough)
#include "tst_walkthrough.moc"
