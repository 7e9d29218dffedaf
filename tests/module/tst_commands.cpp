// SPDX-License-Identifier: MIT
#include "module/CFxRecentDocCommand.h"
#include "module/HelpCommandReg.h"
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "module/velaCommandHelp.h"
#include "tests/support/Browser.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <OdStaticRxObject.h>

#include <QApplication>

namespace {

using BrowserCommand = OdStaticRxObject<CFxRecentDocCommand>;
using HelpCommand = OdStaticRxObject<velaCommandHelp>;

QString text(const OdString &string)
{
    return QString::fromWCharArray(string.c_str());
}

//! A command that leaves to the host all that it can.
class HostDefaults : public CFxCommand
{
public:
    OdString globalName() const override { return L"_DEFAULTS"; }
    OdString localName() const override { return L"_DEFAULTS"; }
    int Execute(CFxCommandContext * /*context*/) override { return normalCompletion; }
};

//! Someone else's command, whose references are counted.
class ForeignCommand : public HostDefaults
{
public:
    ForeignCommand(const OdChar *globalName, const OdChar *localName, const OdChar *group)
        : m_globalName(globalName), m_localName(localName), m_group(group)
    {
    }
    OdString groupName() const override { return m_group; }
    OdString globalName() const override { return m_globalName; }
    OdString localName() const override { return m_localName; }
    void addRef() override
    {
        ++m_references;
        ++m_referencesTaken;
    }
    void release() override { --m_references; }
    int numRefs() const override { return m_references; }
    int referencesTaken() const { return m_referencesTaken; }

private:
    OdString m_globalName;
    OdString m_localName;
    OdString m_group;
    int m_references = 1;
    int m_referencesTaken = 0;
};

//! Notes which help topic was opened in place of opening it.
class NotedHelpCommand : public HelpCommand
{
public:
    void Help() override { topics.append(GetHelpId()); }
    QList<int> topics;
};

QList<RecentDocMainWindow *> popups()
{
    QList<RecentDocMainWindow *> found;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *popup = qobject_cast<RecentDocMainWindow *>(window))
            found.append(popup);
    }
    return found;
}

//! Makes the popup the active window while it is shown, with the focus in a tile: else nobody learns the
//! reason for which it takes the focus then.
class ActiveAtOnce : public QObject
{
public:
    ActiveAtOnce() { QCoreApplication::instance()->installEventFilter(this); }
    Qt::FocusReason lastReason = Qt::NoFocusReason;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *popup = qobject_cast<RecentDocMainWindow *>(watched);
        if (popup && event->type() == QEvent::Show) {
            QApplication::setActiveWindow(popup);
            RecentDocumentBrowser::recentDocDialogList.constFirst()->setFocus();
        }
        if (popup && event->type() == QEvent::FocusIn)
            lastReason = static_cast<QFocusEvent *>(event)->reason();
        return false;
    }
};

} // namespace

//! The two commands, and how the help command gets on the stack and off it.
class tst_Commands : public TestCase
{
    Q_OBJECT

private slots:
    void theCommandsHaveTheirNames();
    void theRestIsTheHosts();
    void theCommandsAreNotCounted();
    void recentShowsAPopupOverTheMainWindow();
    void thePopupTakesTheFocus();
    void thePopupTakesTheFocusForAnotherReason();
    void anEmptyListStillOpensThePopup();
    void withoutAListNothingOpens_data();
    void withoutAListNothingOpens();
    void withoutAMainWindowThePopupHasNoParent_data();
    void withoutAMainWindowThePopupHasNoParent();
    void aSecondCallOpensASecondPopup();
    void theCommandOnTheStackOpensThePopup();
    void helpIsOpenedAtTheBrowsersTopic();
    void addingTheHelpCommandTwiceRegistersTheFirst();
    void anothersHelpCommandIsLeftAlone_data();
    void anothersHelpCommandIsLeftAlone();
    void anyEqualHelpCommandTellsWhichOneToRemove();
    void removingNothingAsksForNothing();
    void withoutAStackTheHelpCommandGoesNowhere();
};

void tst_Commands::theCommandsHaveTheirNames()
{
    const BrowserCommand browser;
    QCOMPARE(text(browser.globalName()), QStringLiteral("_RECENT"));
    QCOMPARE(text(browser.localName()), QStringLiteral("_RECENT"));
    const HelpCommand help;
    QCOMPARE(text(help.globalName()), QStringLiteral("_RHELP"));
    QCOMPARE(text(help.localName()), QStringLiteral("_RHELP"));
    QCOMPARE(help.GetHelpId(), 3087);
}

void tst_Commands::theRestIsTheHosts()
{
    const OdStaticRxObject<HostDefaults> defaults;
    const BrowserCommand browser;
    QCOMPARE(text(browser.groupName()), text(defaults.groupName()));
    QCOMPARE(browser.GetHelpId(), defaults.GetHelpId());
    QCOMPARE(browser.flags(), defaults.flags()); // the module sets its one flag
    const HelpCommand help;
    QCOMPARE(text(help.groupName()), text(defaults.groupName()));
    QCOMPARE(help.flags(), defaults.flags());
}

void tst_Commands::theCommandsAreNotCounted()
{
    HelpCommand help;
    help.addRef();
    QCOMPARE(help.numRefs(), 1);
    help.release();
    help.release();
    QCOMPARE(help.numRefs(), 1);
}

void tst_Commands::recentShowsAPopupOverTheMainWindow()
{
    Browser browser(2);
    browser.createDocument();
    BrowserCommand command;
    QCOMPARE(command.Execute(nullptr), 5100);
    QCOMPARE(popups().size(), 1);
    const RecentDocMainWindow *popup = popups().constFirst();
    QCOMPARE(popup->parentWidget(), &browser.host.mainWindow());
    QVERIFY(popup->isVisible());
    QVERIFY(!popup->isModal());
    QCOMPARE(browser.tiles().size(), 2);
}

void tst_Commands::thePopupTakesTheFocus()
{
    Browser browser(2);
    browser.createDocument();
    browser.host.mainWindow().show();
    BrowserCommand command;
    command.Execute(nullptr);
    const RecentDocMainWindow *popup = popups().constFirst();
    QCOMPARE(popup->focusWidget(), popup);
    QTRY_COMPARE(QApplication::focusWidget(), popup);
}

void tst_Commands::thePopupTakesTheFocusForAnotherReason()
{
    Browser browser(2);
    browser.createDocument();
    const ActiveAtOnce popup;
    BrowserCommand().Execute(nullptr);
    QCOMPARE(popup.lastReason, Qt::OtherFocusReason);
}

void tst_Commands::anEmptyListStillOpensThePopup()
{
    const Browser browser(0);
    BrowserCommand command;
    QCOMPARE(command.Execute(nullptr), 5100);
    QCOMPARE(popups().size(), 1);
    QVERIFY(popups().constFirst()->isVisible());
}

void tst_Commands::withoutAListNothingOpens_data()
{
    QTest::addColumn<bool>("services");
    QTest::addColumn<bool>("application");
    QTest::addColumn<bool>("profile");
    QTest::addColumn<bool>("list");
    QTest::newRow("no services") << false << true << true << true;
    QTest::newRow("no application") << true << false << true << true;
    QTest::newRow("no profile") << true << true << false << true;
    QTest::newRow("no list") << true << true << true << false;
}

void tst_Commands::withoutAListNothingOpens()
{
    QFETCH(bool, services);
    QFETCH(bool, application);
    QFETCH(bool, profile);
    QFETCH(bool, list);
    Browser browser(2);
    browser.createDocument();
    browser.host.hasServices = services;
    browser.host.hasApplication = application;
    browser.host.hasUserProfile = profile;
    browser.host.hasRecentFileList = list;
    BrowserCommand command;
    QCOMPARE(command.Execute(nullptr), 5100);
    drainEvents();
    QVERIFY(popups().isEmpty());
}

void tst_Commands::withoutAMainWindowThePopupHasNoParent_data()
{
    QTest::addColumn<bool>("mainFrame");
    QTest::newRow("no main frame") << false;
    QTest::newRow("a main frame without a window") << true;
}

void tst_Commands::withoutAMainWindowThePopupHasNoParent()
{
    QFETCH(bool, mainFrame);
    Browser browser(2);
    browser.createDocument();
    browser.host.hasMainFrame = mainFrame;
    browser.host.hasMainWindow = false;
    BrowserCommand command;
    QCOMPARE(command.Execute(nullptr), 5100);
    QCOMPARE(popups().size(), 1);
    QVERIFY(!popups().constFirst()->parent());
    QVERIFY(popups().constFirst()->isVisible());
}

void tst_Commands::aSecondCallOpensASecondPopup()
{
    Browser browser(2);
    browser.createDocument();
    BrowserCommand command;
    QCOMPARE(command.Execute(nullptr), 5100);
    QCOMPARE(command.Execute(nullptr), 5100);
    const QList<RecentDocMainWindow *> opened = popups();
    QCOMPARE(opened.size(), 2);
    for (const RecentDocMainWindow *popup : opened)
        QVERIFY(popup->isVisible());
}

void tst_Commands::theCommandOnTheStackOpensThePopup()
{
    Browser browser(1);
    browser.module().initApp();
    browser.createDocument();
    browser.host.commands.front()->execute(nullptr);
    QCOMPARE(popups().size(), 1);
}

void tst_Commands::helpIsOpenedAtTheBrowsersTopic()
{
    NotedHelpCommand help;
    QCOMPARE(help.Execute(nullptr), 5100);
    QCOMPARE(help.topics, QList<int>{3087});
}

void tst_Commands::addingTheHelpCommandTwiceRegistersTheFirst()
{
    FakeHost host;
    HelpCommand first;
    HelpCommand second;
    HelpCommandReg::AddHelpcommand(&first);
    HelpCommandReg::AddHelpcommand(&second);
    QVERIFY(host.commands == std::vector<OdEdCommand *>{&first});
    QCOMPARE(host.openReferences, 0);
}

void tst_Commands::anothersHelpCommandIsLeftAlone_data()
{
    QTest::addColumn<QString>("globalName");
    QTest::addColumn<QString>("localName");
    QTest::addColumn<QString>("group");
    QTest::newRow("of the same names")
        << QStringLiteral("_RHELP") << QStringLiteral("_RHELP") << QStringLiteral("OTHERS");
    QTest::newRow("of the same global name alone")
        << QStringLiteral("_RHELP") << QStringLiteral("HILFE") << QStringLiteral("OTHERS");
    QTest::newRow("of the same local name alone")
        << QStringLiteral("_HELP2") << QStringLiteral("_RHELP") << QStringLiteral("OTHERS");
    QTest::newRow("without a group") << QStringLiteral("_RHELP") << QStringLiteral("_RHELP") << QString();
}

void tst_Commands::anothersHelpCommandIsLeftAlone()
{
    QFETCH(QString, globalName);
    QFETCH(QString, localName);
    QFETCH(QString, group);
    ForeignCommand foreign(CFxString(globalName).c_str(), CFxString(localName).c_str(),
                           CFxString(group).c_str());
    FakeHost host;
    host.commands.push_back(&foreign);
    const std::vector<OdEdCommand *> foreignAlone{&foreign};

    HelpCommand help;
    HelpCommandReg::AddHelpcommand(&help);
    QVERIFY(host.commands == foreignAlone);
    QCOMPARE(foreign.referencesTaken(), 1);
    QCOMPARE(foreign.numRefs(), 1);

    // It is found, but what is removed is the help command, which the host does not know.
    HelpCommandReg::RemoveHelpcommand(&help);
    QVERIFY(host.commands == foreignAlone);
    QCOMPARE(foreign.referencesTaken(), 2);
    QCOMPARE(foreign.numRefs(), 1);
    QCOMPARE(host.openReferences, 0);
}

void tst_Commands::anyEqualHelpCommandTellsWhichOneToRemove()
{
    FakeHost host;
    HelpCommand added;
    HelpCommandReg::AddHelpcommand(&added);
    host.calls.clear();
    HelpCommand fresh;
    HelpCommandReg::RemoveHelpcommand(&fresh);
    QVERIFY(host.commands.empty());
    QCOMPARE(host.calls,
             QStringList({QStringLiteral("stack taken"), QStringLiteral("stack lookup _RHELP 3 \"\""),
                          QStringLiteral("stack released"), QStringLiteral("stack taken"),
                          QStringLiteral("stack remove _RHELP"), QStringLiteral("stack released")}));
}

void tst_Commands::removingNothingAsksForNothing()
{
    FakeHost host;
    HelpCommand help;
    HelpCommandReg::RemoveHelpcommand(&help);
    QCOMPARE(host.calls,
             QStringList({QStringLiteral("stack taken"), QStringLiteral("stack lookup _RHELP 3 \"\""),
                          QStringLiteral("stack released")}));
}

void tst_Commands::withoutAStackTheHelpCommandGoesNowhere()
{
    FakeHost host;
    host.hasCommandStack = false;
    HelpCommand help;
    HelpCommandReg::AddHelpcommand(&help);
    HelpCommandReg::RemoveHelpcommand(&help);
    QCOMPARE(host.calls, QStringList());
    QVERIFY(host.commands.empty());
}

QTEST_MAIN(tst_Commands)
#include "tst_commands.moc"
