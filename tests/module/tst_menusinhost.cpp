// SPDX-License-Identifier: MIT
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/customization/Customization.h"
#include "host/runtime/customization/MenuBuilder.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "tests/support/MenuChildren.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/RunningHost.h"
#include "tests/support/TestCase.h"

#include <QDialog>
#include <QMenuBar>
#include <QSignalSpy>

#include <dlfcn.h>

namespace {

const char newEntry[] = R"({ "identifier": "MI_New", "label": "&New", "command": "ID_New" })";
const char openEntry[] = R"({ "identifier": "MI_Open", "label": "&Open", "command": "ID_New" })";
const char separator[] = R"({ "separator": true })";
const char quitEntry[] = R"({ "identifier": "MI_Quit", "label": "E&xit", "command": "ID_New" })";
const char otherKey[] =
    R"({ "identifier": "ACC_Other", "label": "Other", "key": "%1", "command": "ID_New" })";
//! As a host has it that knows of the browser before it is there.
const char waitingKey[] =
    R"({ "identifier": "ACC_Recent", "label": "Recent", "key": "F4", "command": "ID_RECENT_FILES" })";

//! A group with one definition, a Window menu and behind it a File menu with these entries.
QString group(const char *name, const QStringList &entries, const QString &accelerators = QString())
{
    return QStringLiteral(R"({ "name": "%1", "primary": %2,
        "commands": [ { "identifier": "ID_New", "name": "New", "macro": "^C^C_NEW" } ],
        "menus": [ { "identifier": "ID_MnWindow", "label": "&Window", "items": [] },
                   { "identifier": "ID_MnFile", "label": "&File", "items": [ %3 ] } ],
        "accelerators": [ %4 ] })")
        .arg(QLatin1String(name),
             qstrcmp(name, "MAIN") == 0 ? QStringLiteral("true") : QStringLiteral("false"),
             entries.join(QLatin1Char(',')), accelerators);
}

//! An extension's group without a File menu, the primary group and the start-up menus.
QByteArray menus(const QStringList &entries, const QString &accelerators = QString())
{
    return QStringLiteral(R"({ "groups": [ { "name": "EXTENSION" }, %1 ], "startUp": %2 })")
        .arg(group("MAIN", entries, accelerators), group("START", {newEntry, separator, quitEntry}))
        .toUtf8();
}

//! The built module in the host runtime with menus of its own; the main window is not there yet.
class HostWithMenus
{
public:
    explicit HostWithMenus(const QByteArray &data)
    {
        const QString problem = data.isEmpty() ? QString() : customization().load(data);
        if (!problem.isEmpty() || !running.host.modules().load(QStringLiteral(MODULE_FILE)))
            qFatal("the host cannot be made: %s", qPrintable(problem));
        window.resize(1300, 800);
        window.show();
    }
    ~HostWithMenus() { running.host.setMainWindow(nullptr); }
    Q_DISABLE_COPY(HostWithMenus)

    //! Makes a drawing the only recent document.
    void setRecent() { running.host.recentFiles().setPaths({running.makeDrawing(QStringLiteral("a.dwg"))}); }
    void showMainWindow() { running.host.setMainWindow(&window); }

    fxhost::Customization &customization() { return running.host.customization(); }
    CFxUIGroup &primary() { return *customization().primaryGroup(); }
    CFxUIMenuItem &file() { return *primary().GetMenu(1); }
    CFxUIMenuItem &startUpFile() { return *customization().GetStartUpGroup()->GetMenu(1); }

    RunningHost running;
    QMainWindow window;
};

//! What a group's keys are: "F4 ID_New", in order.
QStringList keysOf(const CFxUIGroup &group)
{
    QStringList keys;
    for (int i = 0; i < group.GetAcceleratorCount(); ++i) {
        const CFxUIAccelerator *key = group.GetAccelerator(i);
        keys.append(
            key->GetKey().toString(QKeySequence::PortableText) + QLatin1Char(' ') +
            (key->GetCommand() ? QString(key->GetCommand()->GetIdentifier()) : QStringLiteral("none")));
    }
    return keys;
}

int definitionsIn(const CFxUIGroup &group)
{
    int count = 0;
    for (int i = 0; i < group.GetCommandCount(); ++i)
        count += group.GetCommand(i)->GetIdentifier() == CFxString(L"ID_RECENT_FILES") ? 1 : 0;
    return count;
}

//! What the module exports for hosts that want the key.
void setShortCutKey()
{
    void *library = dlopen(MODULE_FILE, RTLD_NOW | RTLD_NOLOAD);
    const auto function =
        reinterpret_cast<void (*)()>(dlsym(library, "_ZN21RecentDocumentBrowser14SetShortCutKeyEv"));
    if (!function)
        qFatal("the module does not export SetShortCutKey");
    function();
    dlclose(library);
}

const QString entry = QStringLiteral("PMI_RECENT_DOCUMENT_BROWSER");
const QStringList fourEntries = {newEntry, openEntry, separator, quitEntry};

} // namespace

//! The built module in the menus and keys of the real host runtime.
class tst_MenusInHost : public TestCase
{
    Q_OBJECT

private slots:
    void theEntryStandsBeforeTheWayOutInBothFileMenus();
    void manyDocumentsMeanOneEntry();
    void theFirstRecentDocumentBringsTheEntry();
    void aShortFileMenuStaysAsItIs_data();
    void aShortFileMenuStaysAsItIs();
    void theEntrysMacroOpensThePopup();
    void theEntryInAMenuBarOpensThePopup();
    void aHostWithoutMenusIsLeftAlone();

    void theKeyIsAddedOnRequest();
    void theKeyOpensThePopup();
    void aTakenKeyIsLeftAlone_data();
    void aTakenKeyIsLeftAlone();
    void withoutTheDefinitionTheKeyIsNotAdded();

    void everythingStandsAfterTheMainWindow();
    void everythingStandsAfterTheModule();
};

void tst_MenusInHost::theEntryStandsBeforeTheWayOutInBothFileMenus()
{
    HostWithMenus host(menus(fourEntries));
    host.setRecent();
    const QSignalSpy refreshed(&host.customization(), &fxhost::Customization::refreshed);
    host.showMainWindow();
    QCOMPARE(childrenOf(host.file()), QStringList({"MI_New", "MI_Open", entry, "", "MI_Quit"}));
    QCOMPARE(childrenOf(host.startUpFile()), QStringList({"MI_New", entry, "", "MI_Quit"}));
    QCOMPARE(refreshed.size(), 1);
    const CFxUIMenuItem *made = host.file().GetChild(2);
    QCOMPARE(QString(made->GetLabel()), QStringLiteral("Preview Recent Documents..."));
    const CFxUICommand *definition = made->GetCommand();
    QCOMPARE(definition, host.customization().FindCommand(L"MAIN", L"ID_RECENT_FILES"));
    QCOMPARE(QString(definition->GetName()), QStringLiteral("Recent Document Browser"));
    QCOMPARE(QString(definition->GetMacro()), QStringLiteral("^C^C_RECENT"));
    QCOMPARE(QString(definition->GetHelpString()), QStringLiteral("Browse through recent documents."));
    QCOMPARE(host.startUpFile().GetChild(1)->GetCommand(),
             host.customization().FindCommand(L"START", L"ID_RECENT_FILES"));
    QVERIFY(!host.customization().FindCommand(L"EXTENSION", L"ID_RECENT_FILES"));
    QCOMPARE(host.primary().GetMenu(0)->GetChildCount(), 0);
}

void tst_MenusInHost::manyDocumentsMeanOneEntry()
{
    HostWithMenus host(menus(fourEntries));
    host.setRecent();
    host.showMainWindow();
    const QSignalSpy refreshed(&host.customization(), &fxhost::Customization::refreshed);
    for (int i = 0; i < 3; ++i)
        host.running.host.documents().newDocument();
    QCOMPARE(refreshed.size(), 3);
    QCOMPARE(childrenOf(host.file()), QStringList({"MI_New", "MI_Open", entry, "", "MI_Quit"}));
    QCOMPARE(childrenOf(host.startUpFile()), QStringList({"MI_New", entry, "", "MI_Quit"}));
    QCOMPARE(definitionsIn(host.primary()), 1);
    QCOMPARE(definitionsIn(*host.customization().GetStartUpGroup()), 1);
}

void tst_MenusInHost::theFirstRecentDocumentBringsTheEntry()
{
    HostWithMenus host(menus(fourEntries));
    host.showMainWindow();
    QCOMPARE(childrenOf(host.file()), QStringList({"MI_New", "MI_Open", "", "MI_Quit"}));
    QCOMPARE(definitionsIn(host.primary()), 1);
    QCOMPARE(definitionsIn(*host.customization().GetStartUpGroup()), 1);
    host.running.host.documents().newDocument(); // has no path, so it is not among the recent ones
    QCOMPARE(childrenOf(host.file()), QStringList({"MI_New", "MI_Open", "", "MI_Quit"}));

    const QString path = host.running.makeDrawing(QStringLiteral("first.dwg"));
    host.running.host.commands().runLine(QStringLiteral("_OPEN ") + path);
    QCOMPARE(host.running.host.recentFiles().paths(), QStringList(path));
    QCOMPARE(childrenOf(host.file()), QStringList({"MI_New", "MI_Open", entry, "", "MI_Quit"}));
    QCOMPARE(childrenOf(host.startUpFile()), QStringList({"MI_New", entry, "", "MI_Quit"}));
    QCOMPARE(definitionsIn(host.primary()), 1);
}

void tst_MenusInHost::aShortFileMenuStaysAsItIs_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QStringList>("children");
    QTest::newRow("no entry") << QStringList() << QStringList();
    QTest::newRow("one entry") << QStringList(quitEntry) << QStringList("MI_Quit");
    QTest::newRow("two entries") << QStringList({newEntry, quitEntry})
                                 << QStringList({entry, "MI_New", "MI_Quit"});
}

void tst_MenusInHost::aShortFileMenuStaysAsItIs()
{
    QFETCH(QStringList, entries);
    QFETCH(QStringList, children);
    HostWithMenus host(menus(entries));
    host.setRecent();
    host.showMainWindow();
    QCOMPARE(childrenOf(host.file()), children);
    QCOMPARE(definitionsIn(host.primary()), 1);
    QCOMPARE(childrenOf(host.startUpFile()), QStringList({"MI_New", entry, "", "MI_Quit"})); // as ever
    host.running.host.documents().newDocument();
    QCOMPARE(childrenOf(host.file()), children);
}

void tst_MenusInHost::theEntrysMacroOpensThePopup()
{
    HostWithMenus host(menus(fourEntries));
    host.setRecent();
    host.showMainWindow();
    host.running.host.documents().newDocument();
    host.running.host.commands().runMacro(host.file().GetChild(2)->GetCommand()->GetMacro());
    QTRY_COMPARE(RealBrowser::popups().size(), 1);
    QCOMPARE(RealBrowser::tiles(RealBrowser::popups().constFirst()).size(), 1);
}

void tst_MenusInHost::theEntryInAMenuBarOpensThePopup()
{
    HostWithMenus host(menus(fourEntries, waitingKey));
    fxhost::MenuBuilder builder(host.running.host, host.window.menuBar());
    builder.setGroup(&host.primary());
    QVERIFY(!host.window.findChild<QAction *>(entry));
    host.setRecent();
    host.showMainWindow();
    auto *action = host.window.findChild<QAction *>(entry); // the bar was made anew
    QVERIFY(action);
    QCOMPARE(action->text(), QStringLiteral("Preview Recent Documents...\tF4"));
    QVERIFY(action->isEnabled());
    QCOMPARE(action->statusTip(), QStringLiteral("Browse through recent documents."));
    action->trigger();
    QTRY_COMPARE(RealBrowser::popups().size(), 1);
}

void tst_MenusInHost::aHostWithoutMenusIsLeftAlone()
{
    HostWithMenus host({});
    host.setRecent();
    const QSignalSpy refreshed(&host.customization(), &fxhost::Customization::refreshed);
    host.showMainWindow();
    host.running.host.documents().newDocument();
    setShortCutKey();
    host.running.host.setMainWindow(nullptr);
    QCOMPARE(refreshed.size(), 0);
    QVERIFY(!host.customization().GetStartUpGroup());
}

void tst_MenusInHost::theKeyIsAddedOnRequest()
{
    HostWithMenus host(menus(fourEntries, QString::fromLatin1(otherKey).arg(QStringLiteral("Ctrl+F4"))));
    host.setRecent();
    host.showMainWindow();
    QCOMPARE(keysOf(host.primary()), QStringList(QStringLiteral("Ctrl+F4 ID_New"))); // not by itself
    setShortCutKey();
    const QStringList keys = {"Ctrl+F4 ID_New", "F4 ID_RECENT_FILES"};
    QCOMPARE(keysOf(host.primary()), keys);
    const CFxUIAccelerator *made = host.primary().GetAccelerator(1);
    QCOMPARE(QString(made->GetLabel()), QStringLiteral("Preview Recent Documents..."));
    QCOMPARE(QString(made->GetIdentifier()), QString());
    QCOMPARE(made->GetCommand(), host.file().GetChild(2)->GetCommand());
    setShortCutKey();
    QCOMPARE(keysOf(host.primary()), keys);
    QCOMPARE(host.customization().GetStartUpGroup()->GetAcceleratorCount(), 0);
}

void tst_MenusInHost::theKeyOpensThePopup()
{
    HostWithMenus host(menus(fourEntries));
    fxhost::MenuBuilder builder(host.running.host, host.window.menuBar());
    builder.setGroup(&host.primary());
    host.setRecent();
    host.showMainWindow();
    setShortCutKey();
    host.customization().Refresh(); // which is for the host to do
    QVERIFY(waitForActive(&host.window));
    QTest::keyClick(&host.window, Qt::Key_F4);
    QTRY_COMPARE(RealBrowser::popups().size(), 1);
}

void tst_MenusInHost::aTakenKeyIsLeftAlone_data()
{
    QTest::addColumn<QString>("accelerator");
    QTest::addColumn<QString>("key");
    QTest::newRow("another command's")
        << QString::fromLatin1(otherKey).arg(QStringLiteral("F4")) << QStringLiteral("F4 ID_New");
    QTest::newRow("the browser's own")
        << QString::fromLatin1(waitingKey) << QStringLiteral("F4 ID_RECENT_FILES");
}

void tst_MenusInHost::aTakenKeyIsLeftAlone()
{
    QFETCH(QString, accelerator);
    QFETCH(QString, key);
    HostWithMenus host(menus(fourEntries, accelerator));
    host.setRecent();
    host.showMainWindow();
    setShortCutKey();
    setShortCutKey();
    QCOMPARE(keysOf(host.primary()), QStringList(key));
}

void tst_MenusInHost::withoutTheDefinitionTheKeyIsNotAdded()
{
    HostWithMenus host(menus(fourEntries));
    host.setRecent();
    setShortCutKey(); // the main window is still to come
    QCOMPARE(keysOf(host.primary()), QStringList());
    host.showMainWindow();
    setShortCutKey();
    QCOMPARE(keysOf(host.primary()), QStringList(QStringLiteral("F4 ID_RECENT_FILES")));
}

void tst_MenusInHost::everythingStandsAfterTheMainWindow()
{
    HostWithMenus host(menus(fourEntries));
    host.setRecent();
    host.showMainWindow();
    setShortCutKey();
    const QSignalSpy refreshed(&host.customization(), &fxhost::Customization::refreshed);
    host.running.host.setMainWindow(nullptr);
    QCOMPARE(childrenOf(host.file()), QStringList({"MI_New", "MI_Open", entry, "", "MI_Quit"}));
    QCOMPARE(childrenOf(host.startUpFile()), QStringList({"MI_New", entry, "", "MI_Quit"}));
    QCOMPARE(definitionsIn(host.primary()), 1);
    QCOMPARE(keysOf(host.primary()), QStringList(QStringLiteral("F4 ID_RECENT_FILES")));
    QCOMPARE(refreshed.size(), 0);
}

void tst_MenusInHost::everythingStandsAfterTheModule()
{
    HostWithMenus host(menus(fourEntries));
    host.setRecent();
    host.showMainWindow();
    setShortCutKey();
    host.running.host.setMainWindow(nullptr);
    QVERIFY(host.running.host.modules().unload(QStringLiteral(MODULE_FILE)));
    QVERIFY(!dlopen(MODULE_FILE, RTLD_NOW | RTLD_NOLOAD)); // nothing of it may be needed any more
    QCOMPARE(childrenOf(host.file()), QStringList({"MI_New", "MI_Open", entry, "", "MI_Quit"}));
    QCOMPARE(QString(host.file().GetChild(2)->GetLabel()), QStringLiteral("Preview Recent Documents..."));
    QCOMPARE(QString(host.file().GetChild(2)->GetCommand()->GetMacro()), QStringLiteral("^C^C_RECENT"));
    QCOMPARE(keysOf(host.primary()), QStringList(QStringLiteral("F4 ID_RECENT_FILES")));
    QCOMPARE(QString(host.primary().GetAccelerator(0)->GetLabel()),
             QStringLiteral("Preview Recent Documents..."));
    // Chosen now, the entry is a command that nobody knows.
    host.running.host.commands().runMacro(host.file().GetChild(2)->GetCommand()->GetMacro());
    QCOMPARE(host.running.logged().constLast(), QStringLiteral("command _RECENT unknown"));
}

QTEST_MAIN(tst_MenusInHost)
#include "tst_menusinhost.moc"
