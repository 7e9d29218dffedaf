// SPDX-License-Identifier: MIT
#include "tests/support/fake/FakeLife.h"

#include "module/CFxRecentDocCommand.h"
#include "state/FolderPinButton.h"
#include "tests/support/TestCase.h"
#include "ui/HelpLabel.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <OdEdCommand.h>
#include <OdRxUnixModule.h>
#include <OdStaticRxObject.h>

#include <algorithm>

namespace {

QString yes(bool is)
{
    return is ? "yes" : "no";
}

//! "yes", or that the call threw.
template<class Call>
QString outcomeOf(Call &&call)
{
    try {
        call();
        return yes(true);
    } catch (...) {
        return "threw";
    }
}

} // namespace

LifeReport FakeLife::live(const Switch &missing, const Switch &missingWithPopup)
{
    if (missing)
        missing(*this, false);
    OdRxModule *module = nullptr;
    m_report["created"] = outcomeOf([&] { module = odrxCreateModuleObject(nullptr, L"browser"); });
    if (module) {
        module->addRef();
        beginWith(module);
        useCommand(missingWithPopup);
        m_report["notified of the window's end"] =
            outcomeOf([&] { notifyReactors(&CFxEditorReactor::mainFrameDestroyed); });
        m_report["registered at the end"] = listed();
        m_report["ended"] = outcomeOf([&] { module->uninitApp(); });
        module->release();
        module->deleteModule();
    }
    const bool isEmpty = RecentDocumentBrowser::menuPinButtonList.isEmpty() &&
                         RecentDocumentBrowser::docPinButtonList.isEmpty() &&
                         RecentDocumentBrowser::recentDocDialogList.isEmpty() &&
                         RecentDocumentBrowser::recentDocActionList.isEmpty() &&
                         RecentDocumentBrowser::recentFileImageMap.isEmpty() &&
                         FakeBrowser::popups().isEmpty();
    m_report["left behind"] = isEmpty ? "nothing" : "something";
    m_report["references kept"] =
        QString::number(host.openReferences + host.previewsAlive() + menus.enumeratorsAlive);
    return m_report;
}

void FakeLife::beginWith(OdRxModule *module)
{
    m_report["started"] = outcomeOf([&] { module->initApp(); });
    m_report["registered"] = listed();
    m_report["notified of the window"] =
        outcomeOf([&] { notifyReactors(&CFxEditorReactor::mainFrameCreated); });
    m_report["registered with a window"] = listed();
    m_report["menu entries"] = QStringLiteral("file: %1, start-up: %2")
                                   .arg(yes(childrenOf(file).contains(browserEntry)),
                                        yes(childrenOf(startUpFile).contains(browserEntry)));
    m_report["menus refreshed"] = yes(menuCalls().contains("refresh"));
    m_report["notified of a document"] = outcomeOf([&] {
        const std::vector<CFxDocumentManagerReactor *> reactors = host.documentReactors;
        for (CFxDocumentManagerReactor *reactor : reactors)
            reactor->DocumentCreated(nullptr);
    });
    m_report["pins"] = QString::number(RecentDocumentBrowser::menuPinButtonList.size());
}

//! Opens a popup for each of the ways to end one.
void FakeLife::useCommand(const Switch &missingWithPopup)
{
    struct Way
    {
        void (FakeLife::*use)(RecentDocMainWindow *);
        const char *name;
    };
    for (const Way way :
         {Way{&FakeLife::useTiles, "Enter"}, Way{&FakeLife::useHelp, "help"},
          Way{&FakeLife::useFolder, "the folder"}, Way{&FakeLife::useDoubleClick, "the double-click"}}) {
        OdStaticRxObject<CFxRecentDocCommand> command;
        int result = 0;
        const QString outcome = outcomeOf([&] { result = command.Execute(nullptr); });
        m_report["command"] = outcome == yes(true) ? QString::number(result) : outcome;
        const QPointer<RecentDocMainWindow> popup = FakeBrowser::popups().value(0);
        const bool isChild = popup && popup->parentWidget() == &host.mainWindow();
        m_report["popup"] = isChild ? "of the main window" : popup ? "alone" : "none";
        if (!popup)
            return;
        drainEvents();
        if (missingWithPopup)
            missingWithPopup(*this, false);
        host.opened.clear();
        (this->*way.use)(popup);
        drainEvents();
        m_report[QStringLiteral("popup after ") + way.name] = popup ? "open" : "closed";
        delete popup;
        if (missingWithPopup)
            missingWithPopup(*this, true);
    }
}

//! Keys, clicks, a pin, and Enter.
void FakeLife::useTiles(RecentDocMainWindow *popup)
{
    const QList<RecentDocDialog *> tiles = RecentDocumentBrowser::recentDocDialogList;
    const QMap<QString, QImage> &images = RecentDocumentBrowser::recentFileImageMap;
    m_report["tiles"] = QString::number(tiles.size());
    m_report["pictures"] = QString::number(
        std::count_if(images.begin(), images.end(), [](const QImage &image) { return !image.isNull(); }));

    QTest::keyClick(popup, Qt::Key_Right);
    m_report["Right leads to"] = namesOf(RecentDocumentBrowser::getHighlightedRecentDocPathList());
    if (!tiles.isEmpty())
        QTest::mouseClick(tiles.first(), Qt::LeftButton, Qt::ControlModifier, QPoint(5, 5));
    m_report["Control+click leads to"] = namesOf(RecentDocumentBrowser::getHighlightedRecentDocPathList());
    if (!tiles.isEmpty())
        QTest::mouseClick(FakeBrowser::button(tiles.last(), "pinButton"), Qt::LeftButton);
    QStringList pinned;
    for (const FolderPinButton *pin : qAsConst(RecentDocumentBrowser::menuPinButtonList)) {
        if (pin->isChecked())
            pinned.append(pin->path());
    }
    m_report["pinned"] = namesOf(pinned);
    QTest::keyClick(popup, Qt::Key_Return);
    m_report["Enter opens"] = namesOf(host.openedPaths());
}

void FakeLife::useHelp(RecentDocMainWindow *popup)
{
    QTest::mouseClick(popup->findChild<HelpLabel *>(), Qt::LeftButton);
    m_report["help runs"] = host.commandsRun.join(' ');
}

void FakeLife::useFolder(RecentDocMainWindow * /*popup*/)
{
    if (!RecentDocumentBrowser::recentDocDialogList.isEmpty())
        QTest::mouseClick(
            FakeBrowser::button(RecentDocumentBrowser::recentDocDialogList.first(), "folderButton"),
            Qt::LeftButton);
}

void FakeLife::useDoubleClick(RecentDocMainWindow * /*popup*/)
{
    if (!RecentDocumentBrowser::recentDocDialogList.isEmpty()) // the first is the pinned one now
        QTest::mouseDClick(RecentDocumentBrowser::recentDocDialogList.first(), Qt::LeftButton, Qt::NoModifier,
                           QPoint(5, 5));
    m_report["double-click opens"] = namesOf(host.openedPaths());
}

void FakeLife::notifyReactors(void (CFxEditorReactor::*event)(QWidget *))
{
    const std::vector<OdEditorReactor *> reactors = host.editorReactors;
    for (OdEditorReactor *reactor : reactors)
        (dynamic_cast<CFxEditorReactor &>(*reactor).*event)(&host.mainWindow());
}

//! The files' names, without their folder.
QString FakeLife::namesOf(const QStringList &paths) const
{
    return paths.join(' ').remove(folder() + '/');
}

//! What of the module is in the host's lists.
QString FakeLife::listed() const
{
    QStringList all;
    for (const OdEdCommand *command : host.commands)
        all.append(QString::fromWCharArray(command->globalName().c_str()));
    if (!host.documentReactors.empty())
        all.append("documents");
    if (!host.editorReactors.empty())
        all.append("editor");
    return all.join(' ');
}
