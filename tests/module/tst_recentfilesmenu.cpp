// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "module/RecentFileAction.h"
#include "state/FolderPinButton.h"
#include "tests/support/ModuleInHost.h"
#include "tests/support/TestCase.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPointer>

namespace {

const QStringList threePaths = {QStringLiteral("/drawings/c.dwg"), QStringLiteral("/drawings/a plan.dwg"),
                                QStringLiteral("/drawings/b.dwg")};

//! A menu of the host's with an entry of its own, in front of which the recent documents go.
struct HostMenu
{
    QMenu menu;
    QAction *first = menu.addAction(QStringLiteral("New"));
    QAction *last = menu.addAction(QStringLiteral("Quit"));
};

QStringList textsOf(const QList<QAction *> &actions)
{
    QStringList texts;
    for (const QAction *action : actions)
        texts.append(action->isSeparator() ? QStringLiteral("---") : action->text());
    return texts;
}

//! The recent documents' entries in a menu that holds nothing else.
QList<QAction *> entriesOf(const QMenu &menu)
{
    return menu.actions().mid(1, menu.actions().size() - 2);
}

RecentFileAction *entry(int index)
{
    return qobject_cast<RecentFileAction *>(RecentDocumentBrowser::recentDocActionList.value(index));
}

//! Calls a function for each action that a menu gets.
class ActionWatcher : public QObject
{
public:
    ActionWatcher(QMenu &menu, std::function<void()> onAdded) : m_onAdded(std::move(onAdded))
    {
        menu.installEventFilter(this);
    }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::ActionAdded)
            m_onAdded();
        return false;
    }

private:
    std::function<void()> m_onAdded;
};

} // namespace

//! The recent documents' entries in a menu.
class tst_RecentFilesMenu : public TestCase
{
    Q_OBJECT

private slots:
    void entriesStandBetweenTwoSeparatorsInFrontOfAnAction();
    void entriesStandAtTheEndWithoutAnAction();
    void everyDocumentOfTheListGetsANumberedEntry();
    void separatorsOfOtherSystemsStayInTheText();
    void withoutDocumentsTheSeparatorsStandAlone_data();
    void withoutDocumentsTheSeparatorsStandAlone();
    void theRegistryFollowsTheLatestMenu();
    void whileEntriesAreMadeTheRegistryShowsAnotherMenu();
    void theFormerMenuKeepsItsEntries();
    void pinsAddUpUntilSomeoneClearsThem();
    void theListIsReadAnewEachTime();
    void entriesEndWithTheModuleInTheHostsMenuToo();
};

void tst_RecentFilesMenu::entriesStandBetweenTwoSeparatorsInFrontOfAnAction()
{
    ModuleInHost inHost;
    inHost.host.setRecent(threePaths);
    HostMenu menu;
    RecentDocumentBrowser::AddRecentFiles(&menu.menu, menu.last);
    QCOMPARE(textsOf(menu.menu.actions()),
             QStringList({QStringLiteral("New"), QStringLiteral("---"), QStringLiteral("&1 /drawings/c.dwg"),
                          QStringLiteral("&2 /drawings/a plan.dwg"), QStringLiteral("&3 /drawings/b.dwg"),
                          QStringLiteral("---"), QStringLiteral("Quit")}));
}

void tst_RecentFilesMenu::entriesStandAtTheEndWithoutAnAction()
{
    ModuleInHost inHost;
    inHost.host.setRecent(threePaths.mid(0, 1));
    HostMenu menu;
    RecentDocumentBrowser::AddRecentFiles(&menu.menu, nullptr);
    QCOMPARE(textsOf(menu.menu.actions()),
             QStringList({QStringLiteral("New"), QStringLiteral("Quit"), QStringLiteral("---"),
                          QStringLiteral("&1 /drawings/c.dwg"), QStringLiteral("---")}));
}

void tst_RecentFilesMenu::everyDocumentOfTheListGetsANumberedEntry()
{
    constexpr int count = 120; // more than any menu shows
    QStringList paths;
    QStringList texts;
    for (int i = 1; i <= count; ++i) {
        paths.append(QStringLiteral("/drawings/%1.dwg").arg(i));
        texts.append(QLatin1Char('&') + QString::number(i) + QLatin1Char(' ') + paths.last());
    }
    ModuleInHost inHost;
    inHost.host.setRecent(paths);
    QMenu menu;
    RecentDocumentBrowser::AddRecentFiles(&menu, nullptr);
    QCOMPARE(textsOf(entriesOf(menu)), texts);
    for (int i = 0; i < count; ++i)
        QCOMPARE(QString(entry(i)->filePath), paths.at(i));
}

void tst_RecentFilesMenu::separatorsOfOtherSystemsStayInTheText()
{
    const QString path = QStringLiteral("//server\\share/a\\b.dwg");
    ModuleInHost inHost;
    inHost.host.setRecent({path});
    QMenu menu;
    RecentDocumentBrowser::AddRecentFiles(&menu, nullptr);
    QCOMPARE(textsOf(entriesOf(menu)), QStringList(QStringLiteral("&1 //server\\share/a\\b.dwg")));
    QCOMPARE(QString(entry(0)->filePath), path);
}

void tst_RecentFilesMenu::withoutDocumentsTheSeparatorsStandAlone_data()
{
    QTest::addColumn<bool>("services");
    QTest::addColumn<bool>("list");
    QTest::newRow("the list is empty") << true << true;
    QTest::newRow("there is no list") << true << false;
    QTest::newRow("there are no services") << false << true;
}

void tst_RecentFilesMenu::withoutDocumentsTheSeparatorsStandAlone()
{
    QFETCH(bool, services);
    QFETCH(bool, list);
    ModuleInHost inHost;
    inHost.host.setRecent(threePaths);
    QMenu former;
    RecentDocumentBrowser::AddRecentFiles(&former, nullptr);

    inHost.host.setRecent({});
    inHost.host.hasServices = services;
    inHost.host.hasRecentFileList = list;
    HostMenu menu;
    RecentDocumentBrowser::AddRecentFiles(&menu.menu, menu.last);
    QCOMPARE(textsOf(menu.menu.actions()), QStringList({QStringLiteral("New"), QStringLiteral("---"),
                                                        QStringLiteral("---"), QStringLiteral("Quit")}));
    QVERIFY(RecentDocumentBrowser::recentDocActionList.isEmpty());
    QCOMPARE(RecentDocumentBrowser::recentDocMenu, &menu.menu);
}

void tst_RecentFilesMenu::theRegistryFollowsTheLatestMenu()
{
    ModuleInHost inHost;
    inHost.host.setRecent(threePaths);
    HostMenu first;
    RecentDocumentBrowser::AddRecentFiles(&first.menu, first.last);
    QCOMPARE(RecentDocumentBrowser::recentDocMenu, &first.menu);
    QCOMPARE(RecentDocumentBrowser::before, first.last);
    QCOMPARE(RecentDocumentBrowser::recentDocActionList, first.menu.actions().mid(2, 3));

    QMenu second;
    RecentDocumentBrowser::AddRecentFiles(&second, nullptr);
    QCOMPARE(RecentDocumentBrowser::recentDocMenu, &second);
    QVERIFY(!RecentDocumentBrowser::before);
    QCOMPARE(RecentDocumentBrowser::recentDocActionList, entriesOf(second));
}

void tst_RecentFilesMenu::whileEntriesAreMadeTheRegistryShowsAnotherMenu()
{
    ModuleInHost inHost;
    inHost.host.setRecent(threePaths);
    QMenu former;
    QAction *formerBefore = former.addAction(QStringLiteral("Quit"));
    RecentDocumentBrowser::AddRecentFiles(&former, formerBefore);

    QMenu menu;
    QVector<QPointer<QMenu>> menusMeanwhile;
    QList<QAction *> beforeMeanwhile;
    QList<int> entriesMeanwhile;
    const ActionWatcher watcher(menu, [&] {
        menusMeanwhile.append(RecentDocumentBrowser::recentDocMenu);
        beforeMeanwhile.append(RecentDocumentBrowser::before);
        entriesMeanwhile.append(RecentDocumentBrowser::recentDocActionList.size());
    });
    RecentDocumentBrowser::AddRecentFiles(&menu, nullptr);
    QCOMPARE(entriesMeanwhile, QList<int>({0, 0, 1, 2, 3})); // each is listed once it stands in the menu
    for (const QPointer<QMenu> &meanwhile : qAsConst(menusMeanwhile)) {
        QVERIFY(meanwhile);
        QVERIFY(meanwhile != &former && meanwhile != &menu);
        QVERIFY(!meanwhile->parent());
    }
    QCOMPARE(beforeMeanwhile.count(formerBefore), beforeMeanwhile.size());
}

void tst_RecentFilesMenu::theFormerMenuKeepsItsEntries()
{
    ModuleInHost inHost;
    inHost.host.setRecent(threePaths);
    QMenu former;
    RecentDocumentBrowser::AddRecentFiles(&former, nullptr);
    const QList<QAction *> actions = former.actions();
    QMenu menu;
    RecentDocumentBrowser::AddRecentFiles(&menu, nullptr);
    QCOMPARE(former.actions(), actions);
    QCOMPARE(textsOf(former.actions()), textsOf(menu.actions()));
}

void tst_RecentFilesMenu::pinsAddUpUntilSomeoneClearsThem()
{
    ModuleInHost inHost;
    inHost.host.setRecent(threePaths);
    QMenu menu;
    RecentDocumentBrowser::AddRecentFiles(&menu, nullptr);
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList.size(), 3);
    RecentDocumentBrowser::AddRecentFiles(&menu, nullptr);
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList.size(), 6);
}

void tst_RecentFilesMenu::theListIsReadAnewEachTime()
{
    ModuleInHost inHost;
    inHost.host.setRecent(threePaths);
    QMenu menu;
    RecentDocumentBrowser::AddRecentFiles(&menu, nullptr);
    inHost.host.setRecent({QStringLiteral("/drawings/new.dwg")});
    QMenu later;
    RecentDocumentBrowser::AddRecentFiles(&later, nullptr);
    QCOMPARE(textsOf(entriesOf(later)), QStringList(QStringLiteral("&1 /drawings/new.dwg")));
}

void tst_RecentFilesMenu::entriesEndWithTheModuleInTheHostsMenuToo()
{
    HostMenu menu;
    ModuleInHost inHost;
    inHost.host.setRecent(threePaths);
    RecentDocumentBrowser::AddRecentFiles(&menu.menu, menu.last);
    inHost.end();
    QCOMPARE(textsOf(menu.menu.actions()), QStringList({QStringLiteral("New"), QStringLiteral("---"),
                                                        QStringLiteral("---"), QStringLiteral("Quit")}));
}

QTEST_MAIN(tst_RecentFilesMenu)
#include "tst_recentfilesmenu.moc"
