// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/support/ModuleInHost.h"
#include "tests/support/TestCase.h"
#include "ui/QBalloonTip.h"
#include "ui/RecentDocMainWindow.h"

#include <OdEdCommand.h>

#include <QMenu>
#include <QPointer>
#include <QWidgetAction>

#include <stdexcept>

namespace {

const QStringList recentPaths = {QStringLiteral("/drawings/c.dwg"), QStringLiteral("/drawings/a.dwg"),
                                 QStringLiteral("/drawings/b.dwg")};

//! What was asked of the command stack and of the two lists of reactors, in order.
QStringList registrations(const FakeHost &host)
{
    static const QRegularExpression registration(QStringLiteral("^(stack|documents|editor) "));
    return host.calls.filter(registration);
}

QStringList namesOf(const std::vector<OdEdCommand *> &commands)
{
    QStringList names;
    for (const OdEdCommand *command : commands)
        names.append(QString::fromWCharArray(command->globalName().c_str()));
    return names;
}

} // namespace

//! What the module asks of the host, from its start to its end.
class tst_Lifecycle : public TestCase
{
    Q_OBJECT

private slots:
    void startingRegistersTheCommandAndThenBothReactors();
    void theBrowserCommandCarriesOneFlagOfTheHosts();
    void whatTheHostLacksIsLeftOut_data();
    void whatTheHostLacksIsLeftOut();
    void endingTheApplicationUndoesNothing();
    void theMainFrameBringsTheHelpCommand();
    void theMainFramesEndUndoesEverythingInOrder();
    void theMainFramesEndWithoutABeginningIsHarmless();
    void theHostsExceptionsPassAndLeaveNoReference_data();
    void theHostsExceptionsPassAndLeaveNoReference();
    void nothingThatTheModuleMadeOutlivesIt();
    void aModuleCreatedAnewStartsFromNothing();
};

void tst_Lifecycle::startingRegistersTheCommandAndThenBothReactors()
{
    ModuleInHost inHost;
    inHost.module->initApp();
    QCOMPARE(inHost.host.calls, QStringList({
                                    QStringLiteral("stack taken"),
                                    QStringLiteral("stack add _RECENT"),
                                    QStringLiteral("stack released"),
                                    QStringLiteral("documents add reactor"),
                                    QStringLiteral("editor taken"),
                                    QStringLiteral("editor add reactor"),
                                    QStringLiteral("editor released"),
                                }));
    QVERIFY(inHost.host.documentReactors ==
            std::vector<CFxDocumentManagerReactor *>{&inHost.documentReactor()});
    QVERIFY(inHost.host.editorReactors == std::vector<OdEditorReactor *>{&inHost.editorReactor()});
}

void tst_Lifecycle::theBrowserCommandCarriesOneFlagOfTheHosts()
{
    ModuleInHost inHost;
    inHost.module->initApp();
    QCOMPARE(inHost.host.commands.front()->flags(), std::uint32_t(0x40000000));
}

void tst_Lifecycle::whatTheHostLacksIsLeftOut_data()
{
    QTest::addColumn<bool>("services");
    QTest::addColumn<bool>("documentManager");
    QTest::addColumn<bool>("stack");
    QTest::addColumn<bool>("editor");
    QTest::newRow("no services") << false << true << true << true;
    QTest::newRow("no document manager") << true << false << true << true;
    QTest::newRow("no command stack") << true << true << false << true;
    QTest::newRow("no editor") << true << true << true << false;
    QTest::newRow("nothing at all") << false << false << false << false;
}

void tst_Lifecycle::whatTheHostLacksIsLeftOut()
{
    QFETCH(bool, services);
    QFETCH(bool, documentManager);
    QFETCH(bool, stack);
    QFETCH(bool, editor);
    ModuleInHost inHost;
    FakeHost &host = inHost.host;
    host.hasServices = services;
    host.hasDocumentManager = documentManager;
    host.hasCommandStack = stack;
    host.hasEditor = editor;
    const std::size_t documentReactors = services && documentManager ? 1 : 0;

    inHost.module->initApp();
    inHost.editorReactor().mainFrameCreated(nullptr);
    QCOMPARE(namesOf(host.commands),
             stack ? QStringList({QStringLiteral("_RECENT"), QStringLiteral("_RHELP")}) : QStringList());
    QCOMPARE(host.documentReactors.size(), documentReactors);
    QCOMPARE(host.editorReactors.size(), std::size_t(editor ? 1 : 0));

    inHost.editorReactor().mainFrameDestroyed(nullptr);
    QVERIFY(host.commands.empty());
    QVERIFY(host.documentReactors.empty());
    QVERIFY(host.editorReactors.empty());
    QCOMPARE(host.calls.contains(QStringLiteral("documents remove reactor")), documentReactors == 1);
    QCOMPARE(host.openReferences, 0);
}

void tst_Lifecycle::endingTheApplicationUndoesNothing()
{
    ModuleInHost inHost;
    inHost.module->initApp();
    inHost.host.calls.clear();
    inHost.module->uninitApp();
    QCOMPARE(inHost.host.calls, QStringList());
    QCOMPARE(namesOf(inHost.host.commands), QStringList(QStringLiteral("_RECENT")));
    QCOMPARE(inHost.host.documentReactors.size(), std::size_t(1));
    QCOMPARE(inHost.host.editorReactors.size(), std::size_t(1));
}

void tst_Lifecycle::theMainFrameBringsTheHelpCommand()
{
    ModuleInHost inHost;
    inHost.editorReactor().mainFrameCreated(nullptr);
    QCOMPARE(registrations(inHost.host), QStringList({
                                             QStringLiteral("stack taken"),
                                             QStringLiteral("stack lookup _RHELP 3 \"\""),
                                             QStringLiteral("stack released"),
                                             QStringLiteral("stack taken"),
                                             QStringLiteral("stack add _RHELP"),
                                             QStringLiteral("stack released"),
                                         }));
    QCOMPARE(namesOf(inHost.host.commands), QStringList(QStringLiteral("_RHELP")));
}

void tst_Lifecycle::theMainFramesEndUndoesEverythingInOrder()
{
    ModuleInHost inHost;
    inHost.module->initApp();
    inHost.editorReactor().mainFrameCreated(nullptr);
    inHost.host.calls.clear();
    inHost.editorReactor().mainFrameDestroyed(nullptr);
    QCOMPARE(registrations(inHost.host), QStringList({
                                             QStringLiteral("stack taken"),
                                             QStringLiteral("stack remove _RECENT"),
                                             QStringLiteral("stack released"),
                                             QStringLiteral("documents remove reactor"),
                                             QStringLiteral("editor taken"),
                                             QStringLiteral("editor remove reactor"),
                                             QStringLiteral("editor released"),
                                             QStringLiteral("stack taken"),
                                             QStringLiteral("stack lookup _RHELP 3 \"\""),
                                             QStringLiteral("stack released"),
                                             QStringLiteral("stack taken"),
                                             QStringLiteral("stack remove _RHELP"),
                                             QStringLiteral("stack released"),
                                         }));
    QVERIFY(inHost.host.commands.empty());
    QVERIFY(inHost.host.documentReactors.empty());
    QVERIFY(inHost.host.editorReactors.empty());
}

void tst_Lifecycle::theMainFramesEndWithoutABeginningIsHarmless()
{
    ModuleInHost inHost;
    inHost.editorReactor().mainFrameDestroyed(nullptr);
    QVERIFY(!inHost.host.calls.contains(QStringLiteral("stack remove _RHELP")));
    QCOMPARE(inHost.host.openReferences, 0);
}

void tst_Lifecycle::theHostsExceptionsPassAndLeaveNoReference_data()
{
    QTest::addColumn<bool>("atStart");
    QTest::addColumn<QString>("where");
    QTest::addColumn<QStringList>("lastCalls");
    const QString stack = QStringLiteral("stack");
    const QString editor = QStringLiteral("editor");
    QTest::newRow("the stack, when the module starts")
        << true << stack
        << QStringList({QStringLiteral("stack taken"), QStringLiteral("stack add _RECENT"),
                        QStringLiteral("stack released")});
    QTest::newRow("the editor, when the module starts")
        << true << editor
        << QStringList({QStringLiteral("editor taken"), QStringLiteral("editor add reactor"),
                        QStringLiteral("editor released")});
    QTest::newRow("the stack, when the main frame goes")
        << false << stack
        << QStringList({QStringLiteral("stack taken"), QStringLiteral("stack remove _RECENT"),
                        QStringLiteral("stack released")});
    QTest::newRow("the editor, when the main frame goes")
        << false << editor
        << QStringList({QStringLiteral("editor taken"), QStringLiteral("editor remove reactor"),
                        QStringLiteral("editor released")});
}

void tst_Lifecycle::theHostsExceptionsPassAndLeaveNoReference()
{
    QFETCH(bool, atStart);
    QFETCH(QString, where);
    QFETCH(QStringList, lastCalls);
    ModuleInHost inHost;
    FakeHost &host = inHost.host;
    if (!atStart)
        inHost.module->initApp();
    (where == QLatin1String("stack") ? host.onCommandStack : host.onEditor) = [] {
        throw std::runtime_error("the host refuses");
    };
    if (atStart)
        QVERIFY_EXCEPTION_THROWN(inHost.module->initApp(), std::runtime_error);
    else
        QVERIFY_EXCEPTION_THROWN(inHost.editorReactor().mainFrameDestroyed(nullptr), std::runtime_error);
    QCOMPARE(host.openReferences, 0);
    QCOMPARE(host.calls.mid(host.calls.size() - lastCalls.size()), lastCalls);
}

void tst_Lifecycle::nothingThatTheModuleMadeOutlivesIt()
{
    const int menusBefore = parentlessMenus();
    ModuleInHost inHost;
    inHost.host.setRecent(recentPaths);
    inHost.module->initApp();
    inHost.editorReactor().mainFrameCreated(nullptr);
    inHost.documentReactor().DocumentCreated(nullptr);
    inHost.documentReactor().DocumentCreated(nullptr);

    QVector<QPointer<QObject>> made;
    for (QAction *entry : qAsConst(RecentDocumentBrowser::recentDocActionList))
        made << entry << qobject_cast<QWidgetAction *>(entry)->defaultWidget();
    for (FolderPinButton *pin : qAsConst(RecentDocumentBrowser::menuPinButtonList))
        made << pin;
    auto *popup = new RecentDocMainWindow(&inHost.host.mainWindow());
    popup->show();
    auto *parentless = new RecentDocMainWindow(nullptr);
    made << RecentDocumentBrowser::recentDocMenu << popup << parentless;
    QBalloonTip::showBalloon(QImage(), QStringLiteral("title"), QStringLiteral("text"), QPoint(), 0, true);

    inHost.editorReactor().mainFrameDestroyed(nullptr);
    inHost.module->uninitApp();
    inHost.end();
    QCOMPARE(made.count(nullptr), made.size());
    QCOMPARE(parentlessMenus(), menusBefore);
    QVERIFY(!QBalloonTip::isBalloonVisible());
}

void tst_Lifecycle::aModuleCreatedAnewStartsFromNothing()
{
    {
        ModuleInHost former;
        former.host.setRecent(recentPaths);
        former.documentReactor().DocumentCreated(nullptr);
        auto *popup = new RecentDocMainWindow(nullptr);
        popup->show();
    }
    ModuleInHost inHost;
    QVERIFY(RecentDocumentBrowser::recentDocDialogList.isEmpty());
    QVERIFY(RecentDocumentBrowser::recentDocActionList.isEmpty());
    QVERIFY(RecentDocumentBrowser::menuPinButtonList.isEmpty());
    QVERIFY(RecentDocumentBrowser::docPinButtonList.isEmpty());
    QVERIFY(folderButtonList.isEmpty());
    QVERIFY(!RecentDocumentBrowser::recentDocMenu);
    QVERIFY(!RecentDocumentBrowser::before);

    inHost.host.setRecent(recentPaths.mid(1));
    inHost.documentReactor().DocumentCreated(nullptr);
    new RecentDocMainWindow(nullptr);
    QCOMPARE(RecentDocumentBrowser::recentDocDialogList.size(), 2);
}

QTEST_MAIN(tst_Lifecycle)
#include "tst_lifecycle.moc"
