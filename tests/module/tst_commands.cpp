// SPDX-License-Identifier: MIT
#include "module/CFxRecentDocCommand.h"
#include "module/HelpCommandReg.h"
#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "module/velaCommandHelp.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
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

//! A command of another module, with the defaults of the base class; its references are counted.
class ForeignCommand : public CFxCommand
{
public:
    explicit ForeignCommand(const OdChar *localName) : m_localName(localName) {}
    OdString globalName() const override { return L"_FOREIGN"; }
    OdString localName() const override { return m_localName; }
    int Execute(CFxCommandContext * /*context*/) override { return normalCompletion; }
    void addRef() override
    {
        ++m_references;
        ++m_referencesTaken;
    }
    void release() override { --m_references; }
    int numRefs() const override { return m_references; }
    int referencesTaken() const { return m_referencesTaken; }

private:
    OdString m_localName;
    int m_references = 1;
    int m_referencesTaken = 0;
};

//! Records the help topics instead of opening them.
class NotedHelpCommand : public HelpCommand
{
public:
    void Help() override { topics.append(GetHelpId()); }
    QList<int> topics;
};

//! Makes the popup the active window while it is shown, with the focus in a tile: otherwise no event has the
//! reason for which it takes the focus then.
class ActivatedOnShow : public QObject
{
public:
    ActivatedOnShow() { QCoreApplication::instance()->installEventFilter(this); }
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

class tst_Commands : public TestCase
{
    Q_OBJECT

private slots:
    void theCommandsOverrideOnlyTheirNames()
    {
        const ForeignCommand defaults(L"");
        const BrowserCommand browser;
        QCOMPARE(text(browser.globalName()), "_RECENT");
        QCOMPARE(text(browser.localName()), "_RECENT");
        QCOMPARE(text(browser.groupName()), text(defaults.groupName()));
        QCOMPARE(browser.GetHelpId(), defaults.GetHelpId());
        QCOMPARE(browser.flags(), defaults.flags()); // the module sets its one flag
        HelpCommand help;
        QCOMPARE(text(help.globalName()), "_RHELP");
        QCOMPARE(text(help.localName()), "_RHELP");
        QCOMPARE(text(help.groupName()), text(defaults.groupName()));
        QCOMPARE(help.flags(), defaults.flags());
        help.addRef(); // is not counted
        QCOMPARE(help.numRefs(), 1);
        help.release();
        help.release();
        QCOMPARE(help.numRefs(), 1);
    }

    void recentShowsAPopupThatTakesTheFocus()
    {
        FakeBrowser browser(2);
        browser.module().initApp();
        browser.createDocument();
        browser.host.mainWindow().show();
        browser.host.commands.front()->execute(nullptr);
        QCOMPARE(FakeBrowser::popups().size(), 1);
        const RecentDocMainWindow *popup = FakeBrowser::popups().constFirst();
        QVERIFY(!popup->isModal());
        QCOMPARE(popup->focusWidget(), popup);
        QTRY_COMPARE(QApplication::focusWidget(), popup);
    }

    void thePopupTakesTheFocusForTheOtherReason()
    {
        FakeBrowser browser(2);
        browser.createDocument();
        const ActivatedOnShow popup;
        BrowserCommand().Execute(nullptr);
        QCOMPARE(popup.lastReason, Qt::OtherFocusReason);
    }

    void aSecondCallOpensASecondPopup()
    {
        FakeBrowser browser(2);
        browser.createDocument();
        BrowserCommand command;
        QCOMPARE(command.Execute(nullptr), 5100);
        QCOMPARE(command.Execute(nullptr), 5100);
        QCOMPARE(FakeBrowser::popups().size(), 2);
    }

    void helpIsOpenedAtTheBrowsersTopic()
    {
        NotedHelpCommand help;
        QCOMPARE(help.Execute(nullptr), 5100);
        QCOMPARE(help.topics, QList<int>{3087});
    }

    void oneHelpCommandIsRegisteredAndAnyEqualCommandRemovesIt()
    {
        FakeHost host;
        HelpCommand first;
        HelpCommand second;
        HelpCommandReg::AddHelpcommand(&first);
        HelpCommandReg::AddHelpcommand(&second);
        QVERIFY(host.commands == std::vector<OdEdCommand *>{&first});
        HelpCommandReg::RemoveHelpcommand(&second);
        QVERIFY(host.commands.empty());
        QCOMPARE(host.openReferences, 0);
    }

    void aForeignHelpCommandIsLeftAlone()
    {
        ForeignCommand foreign(L"_RHELP");
        FakeHost host;
        host.commands.push_back(&foreign);
        const std::vector<OdEdCommand *> foreignAlone{&foreign};
        HelpCommand help;
        HelpCommandReg::AddHelpcommand(&help);
        QVERIFY(host.commands == foreignAlone);
        QCOMPARE(foreign.referencesTaken(), 1);
        QCOMPARE(foreign.numRefs(), 1);

        // The lookup finds it, but the command to remove is the help command, which the host does not know.
        HelpCommandReg::RemoveHelpcommand(&help);
        QVERIFY(host.commands == foreignAlone);
        QCOMPARE(foreign.referencesTaken(), 2);
        QCOMPARE(foreign.numRefs(), 1);
    }

    void removingWithoutARegisteredCommandOnlyLooksUp()
    {
        FakeHost host;
        HelpCommand help;
        HelpCommandReg::RemoveHelpcommand(&help);
        QCOMPARE(host.calls, QStringList({"stack taken", "stack lookup _RHELP 3 \"\"", "stack released"}));
    }
};

TEST_CLASS(tst_Commands);
#include "tst_commands.moc"
