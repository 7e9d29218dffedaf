// SPDX-License-Identifier: MIT
#include "host/app/MenuBuilder.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/customization/CustomizationReader.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/MenuChildren.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealBrowser.h"
#include "tests/support/real/RealHost.h"

#include <QDialog>
#include <QMenuBar>

#include <dlfcn.h>

namespace {

const char openEntry[] = R"({ "identifier": "MI_Open", "label": "&Open", "command": "ID_New" },)";
//! As in a host that is prepared for the browser.
const char waitingKey[] =
    R"({ "identifier": "ACC_Recent", "label": "Recent", "key": "F4", "command": "ID_RECENT_FILES" })";

//! A group with one definition, a Window menu, and after it a File menu with this entry after its first one.
QString groupData(const char *name, const char *isPrimary, const char *entry, const char *accelerators)
{
    return QString(R"({ "name": "%1", "primary": %2,
        "commands": [ { "identifier": "ID_New", "name": "New", "macro": "^C^C_NEW" } ],
        "menus": [ { "identifier": "ID_MnWindow", "label": "&Window", "items": [] },
                   { "identifier": "ID_MnFile", "label": "&File", "items": [
                     { "identifier": "MI_New", "label": "&New", "command": "ID_New" }, %3
                     { "separator": true },
                     { "identifier": "MI_Quit", "label": "E&xit", "command": "ID_New" } ] } ],
        "accelerators": [ %4 ] })")
        .arg(name, isPrimary, entry, accelerators);
}

//! An extension's group without a File menu, the primary group and the start-up menus.
QByteArray menuData(const char *accelerators = "")
{
    return QString(R"({ "groups": [ { "name": "EXTENSION" }, %1 ], "startUp": %2 })")
        .arg(groupData("MAIN", "true", openEntry, accelerators), groupData("START", "false", "", ""))
        .toUtf8();
}

//! The built module in the host runtime with menus of its own, before the host is notified of its main
//! window.
class HostWithMenus
{
public:
    explicit HostWithMenus(const QByteArray &data)
    {
        const QString problem =
            data.isEmpty() ? QString() : fxhost::loadCustomization(customization(), data).reason();
        if (!problem.isEmpty() || !running.host.modules().load(MODULE_FILE))
            qFatal("the host cannot be made: %s", qPrintable(problem));
        window.resize(1300, 800);
        window.show();
    }
    ~HostWithMenus() { running.host.setMainWindow(nullptr); }
    Q_DISABLE_COPY(HostWithMenus)

    //! Sets the main window, with one recent document.
    void begin()
    {
        running.host.recentFiles().setPaths({running.makeDrawing("a.dwg")});
        running.host.setMainWindow(&window);
    }

    fxhost::Customization &customization() { return running.host.customization(); }
    CFxUIGroup &primary() { return *customization().primaryGroup(); }
    CFxUIGroup &startUp() { return *customization().GetStartUpGroup(); }
    CFxUIMenuItem &file() { return *primary().GetMenu(1); }

    //! The entries of both File menus, separators as "".
    QList<QStringList> entries() { return {childrenOf(file()), childrenOf(*startUp().GetMenu(1))}; }
    //! The primary group's keys in order, like "F4 ID_New".
    QStringList keys()
    {
        QStringList lines;
        for (int i = 0; i < primary().GetAcceleratorCount(); ++i) {
            const CFxUIAccelerator *key = primary().GetAccelerator(i);
            lines.append(key->GetKey().toString(QKeySequence::PortableText) + ' ' +
                         QString(key->GetCommand()->GetIdentifier()));
        }
        return lines;
    }

    RealHost running;
    QMainWindow window;
};

//! Calls the function that the module exports for hosts that want the key.
void setShortCutKey()
{
    const auto function =
        reinterpret_cast<void (*)()>(RealBrowser::exported("_ZN21RecentDocumentBrowser14SetShortCutKeyEv"));
    function();
}

const QString realEntry = "PMI_RECENT_DOCUMENT_BROWSER";
const QList<QStringList> withoutEntry = {{"MI_New", "MI_Open", "", "MI_Quit"}, {"MI_New", "", "MI_Quit"}};
//! Before the last group of both File menus.
const QList<QStringList> withEntry = {{"MI_New", "MI_Open", realEntry, "", "MI_Quit"},
                                      {"MI_New", realEntry, "", "MI_Quit"}};

} // namespace

class tst_MenusInHost : public TestCase
{
    Q_OBJECT

private slots:
    void theFirstRecentDocumentAddsOneEntry()
    {
        HostWithMenus host(menuData());
        fxhost::FxHost &fxHost = host.running.host;
        const QSignalSpy refreshed(&host.customization(), &fxhost::Customization::refreshed);
        fxHost.setMainWindow(&host.window);
        fxHost.documents().newDocument(); // has no path, so it is not a recent one
        QCOMPARE(refreshed.size(), 1);
        QCOMPARE(host.entries(), withoutEntry);

        const QString path = host.running.makeDrawing("first.dwg");
        fxHost.commands().runLine("_OPEN " + path);
        fxHost.documents().newDocument();
        QCOMPARE(fxHost.recentFiles().paths(), QStringList(path));
        QCOMPARE(refreshed.size(), 3);
        QCOMPARE(host.entries(), withEntry);
        QCOMPARE(host.primary().GetCommandCount(), 2);
        QCOMPARE(host.startUp().GetCommandCount(), 2);
        QCOMPARE(host.primary().GetMenu(0)->GetChildCount(), 0);
        const CFxUIMenuItem *made = host.file().GetChild(2);
        QCOMPARE(QString(made->GetLabel()), "Preview Recent Documents...");
        const CFxUICommand *definition = made->GetCommand();
        QCOMPARE(definition, host.customization().FindCommand(L"MAIN", L"ID_RECENT_FILES"));
        QCOMPARE(QString(definition->GetName()), "Recent Document Browser");
        QCOMPARE(QString(definition->GetMacro()), "^C^C_RECENT");
        QCOMPARE(QString(definition->GetHelpString()), "Browse through recent documents.");
        QCOMPARE(host.startUp().GetMenu(1)->GetChild(1)->GetCommand(),
                 host.customization().FindCommand(L"START", L"ID_RECENT_FILES"));
        QVERIFY(!host.customization().FindCommand(L"EXTENSION", L"ID_RECENT_FILES"));
    }

    void theEntryInAMenuBarOpensThePopup()
    {
        HostWithMenus host(menuData(waitingKey));
        fxhost::MenuBuilder builder(host.running.host, host.window.menuBar());
        builder.setGroup(&host.primary());
        QVERIFY(!host.window.findChild<QAction *>(realEntry));
        host.begin();
        host.running.host.documents().newDocument();
        auto *action = host.window.findChild<QAction *>(realEntry); // the menu bar was rebuilt
        QVERIFY(action);
        QCOMPARE(action->text(), "Preview Recent Documents...\tF4");
        QVERIFY(action->isEnabled());
        QCOMPARE(action->statusTip(), "Browse through recent documents.");
        action->trigger();
        QTRY_COMPARE(RealBrowser::popups().size(), 1);
        QCOMPARE(RealBrowser::tiles(RealBrowser::popups().constFirst()).size(), 1);
    }

    void aHostWithoutMenusIsLeftAlone()
    {
        HostWithMenus host({});
        const QSignalSpy refreshed(&host.customization(), &fxhost::Customization::refreshed);
        host.begin();
        host.running.host.documents().newDocument();
        setShortCutKey();
        host.running.host.setMainWindow(nullptr);
        QCOMPARE(refreshed.size(), 0);
        QVERIFY(!host.customization().GetStartUpGroup());
    }

    void theKeyOpensThePopup()
    {
        HostWithMenus host(menuData());
        fxhost::MenuBuilder builder(host.running.host, host.window.menuBar());
        builder.setGroup(&host.primary());
        host.begin();
        setShortCutKey();
        host.customization().Refresh(); // the host's task
        QVERIFY(waitForActive(&host.window));
        QTest::keyClick(&host.window, Qt::Key_F4);
        QTRY_COMPARE(RealBrowser::popups().size(), 1);
    }

    void menusAndKeysRemainAfterTheModuleIsUnloaded()
    {
        HostWithMenus host(menuData());
        host.begin();
        setShortCutKey();
        const QSignalSpy refreshed(&host.customization(), &fxhost::Customization::refreshed);
        host.running.host.setMainWindow(nullptr);
        QVERIFY(host.running.host.modules().unload(MODULE_FILE));
        QVERIFY(!dlopen(MODULE_FILE, RTLD_NOW | RTLD_NOLOAD)); // the menus do not need it
        QCOMPARE(refreshed.size(), 0);
        QCOMPARE(host.entries(), withEntry);
        QCOMPARE(QString(host.file().GetChild(2)->GetLabel()), "Preview Recent Documents...");
        QCOMPARE(host.keys(), QStringList("F4 ID_RECENT_FILES"));
        QCOMPARE(QString(host.primary().GetAccelerator(0)->GetLabel()), "Preview Recent Documents...");
        // The entry now runs an unknown command.
        host.running.host.commands().runMacro(host.file().GetChild(2)->GetCommand()->GetMacro());
        QCOMPARE(host.running.logged().constLast(), "command _RECENT unknown");
    }
};

TEST_CLASS(tst_MenusInHost);
#include "tst_menusinhost.moc"
