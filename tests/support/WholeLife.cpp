// SPDX-License-Identifier: MIT
#include "tests/support/WholeLife.h"

#include "module/CFxRecentDocCommand.h"
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/Browser.h"
#include "tests/support/TestCase.h"
#include "ui/HelpLabel.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <OdEdCommand.h>
#include <OdStaticRxObject.h>

#include <QApplication>
#include <QFile>
#include <QLabel>

#include <algorithm>
#include <new>

extern "C" OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName);

namespace {

QString yes(bool is)
{
    return is ? QStringLiteral("yes") : QStringLiteral("no");
}

//! "yes", or that the call threw.
template<class Call>
QString outcomeOf(Call &&call)
{
    try {
        call();
        return yes(true);
    } catch (...) {
        return QStringLiteral("threw");
    }
}

bool hasEntry(const FakeMenuItem &menu)
{
    return std::any_of(menu.children.begin(), menu.children.end(), [](const auto &child) {
        return child->identifier == QLatin1String("PMI_RECENT_DOCUMENT_BROWSER");
    });
}

QPointer<RecentDocMainWindow> shownPopup()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *popup = qobject_cast<RecentDocMainWindow *>(window);
        if (popup && popup->isVisible())
            return popup;
    }
    return nullptr;
}

QString closed(const QPointer<RecentDocMainWindow> &popup)
{
    drainEvents();
    return popup ? QStringLiteral("open") : QStringLiteral("closed");
}

} // namespace

WholeLife::WholeLife()
    : file(menus.addGroup(QStringLiteral("MAIN"), true).addMenu(QStringLiteral("ID_MnFile"))),
      startUpFile(menus.setStartUpGroup(QStringLiteral("START")).addMenu(QStringLiteral("ID_MnFile")))
{
    QStringList paths;
    for (const char *name : {"a.dwg", "b.dwg"}) {
        QFile drawing(m_folder.filePath(QLatin1String(name)));
        if (!drawing.open(QIODevice::WriteOnly))
            qFatal("cannot make %s", name);
        paths.append(drawing.fileName());
    }
    host.setRecent(paths);
    host.hasCustomization = true;
    host.onLoadPreview = [](const QString &path, QImage &image) {
        image = pictureOf(path);
        return true;
    };
    host.mainWindow().setGeometry(0, 0, 1300, 800);
    for (FakeMenuItem *menu : {&file, &startUpFile}) {
        menu->add(QStringLiteral("MI_Open"));
        menu->add(QStringLiteral("MI_Quit"));
    }
}

LifeReport WholeLife::live(const Switch &missing, const Switch &missingWithPopup)
{
    if (missing)
        missing(*this, false);
    OdRxModule *module = nullptr;
    m_report[QStringLiteral("created")] =
        outcomeOf([&] { module = odrxCreateModuleObject(nullptr, L"browser"); });
    if (module) {
        module->addRef();
        beginWith(module);
        useCommand(missingWithPopup);
        end();
        m_report[QStringLiteral("told the end")] = outcomeOf([&] { module->uninitApp(); });
        module->release();
        module->deleteModule();
    }
    const bool isEmpty = RecentDocumentBrowser::menuPinButtonList.isEmpty() &&
                         RecentDocumentBrowser::docPinButtonList.isEmpty() &&
                         RecentDocumentBrowser::recentDocDialogList.isEmpty() &&
                         RecentDocumentBrowser::recentDocActionList.isEmpty() &&
                         RecentDocumentBrowser::recentFileImageMap.isEmpty() && !shownPopup();
    m_report[QStringLiteral("left behind")] =
        isEmpty ? QStringLiteral("nothing") : QStringLiteral("something");
    m_report[QStringLiteral("references kept")] =
        QString::number(host.openReferences + host.previewsAlive() + menus.enumeratorsAlive);
    return m_report;
}

void WholeLife::beginWith(OdRxModule *module)
{
    m_report[QStringLiteral("started")] = outcomeOf([&] { module->initApp(); });
    m_report[QStringLiteral("registered")] = listed();
    m_report[QStringLiteral("window told")] = outcomeOf([&] {
        for (OdEditorReactor *reactor : std::vector<OdEditorReactor *>(host.editorReactors))
            dynamic_cast<CFxEditorReactor &>(*reactor).mainFrameCreated(&host.mainWindow());
    });
    m_report[QStringLiteral("registered with a window")] = listed();
    m_report[QStringLiteral("menu entries")] =
        QStringLiteral("file: %1, start-up: %2").arg(yes(hasEntry(file)), yes(hasEntry(startUpFile)));
    m_report[QStringLiteral("menus refreshed")] = yes(host.calls.contains(QStringLiteral("menus refresh")));
    m_report[QStringLiteral("document told")] = outcomeOf([&] {
        for (CFxDocumentManagerReactor *reactor :
             std::vector<CFxDocumentManagerReactor *>(host.documentReactors))
            reactor->DocumentCreated(nullptr);
    });
    m_report[QStringLiteral("pins")] = QString::number(RecentDocumentBrowser::menuPinButtonList.size());
}

//! Opens a popup for each of the ways to end one.
void WholeLife::useCommand(const Switch &missingWithPopup)
{
    using Use = void (WholeLife::*)(const QPointer<RecentDocMainWindow> &);
    for (const Use use :
         {&WholeLife::useTiles, &WholeLife::useHelp, &WholeLife::useFolder, &WholeLife::useDoubleClick}) {
        OdStaticRxObject<CFxRecentDocCommand> command;
        int result = 0;
        const QString outcome = outcomeOf([&] { result = command.Execute(nullptr); });
        m_report[QStringLiteral("command")] =
            outcome == QLatin1String("yes") ? QString::number(result) : outcome;
        const QPointer<RecentDocMainWindow> popup = shownPopup();
        m_report[QStringLiteral("popup")] = popup ? QStringLiteral("alone") : QStringLiteral("none");
        if (!popup)
            return;
        if (popup->parentWidget() == &host.mainWindow())
            m_report[QStringLiteral("popup")] = QStringLiteral("of the main window");
        drainEvents();
        if (missingWithPopup)
            missingWithPopup(*this, false);
        host.opened.clear();
        (this->*use)(popup);
        delete popup;
        if (missingWithPopup)
            missingWithPopup(*this, true);
    }
}

//! Keys, clicks, a pin, and Enter.
void WholeLife::useTiles(const QPointer<RecentDocMainWindow> &popup)
{
    const QList<RecentDocDialog *> tiles = RecentDocumentBrowser::recentDocDialogList;
    const auto pictures = std::count_if(RecentDocumentBrowser::recentFileImageMap.cbegin(),
                                        RecentDocumentBrowser::recentFileImageMap.cend(),
                                        [](const QImage &image) { return !image.isNull(); });
    m_report[QStringLiteral("tiles")] = QString::number(tiles.size());
    m_report[QStringLiteral("pictures")] = QString::number(pictures);

    QTest::keyClick(popup, Qt::Key_Right);
    m_report[QStringLiteral("Right leads to")] =
        namesOf(RecentDocumentBrowser::getHighlightedRecentDocPathList());
    if (!tiles.isEmpty())
        QTest::mouseClick(tiles.first(), Qt::LeftButton, Qt::ControlModifier, QPoint(5, 5));
    m_report[QStringLiteral("Control+click leads to")] =
        namesOf(RecentDocumentBrowser::getHighlightedRecentDocPathList());
    if (!tiles.isEmpty())
        QTest::mouseClick(Browser::button(tiles.last(), "pinButton"), Qt::LeftButton);
    QStringList pinned;
    for (const FolderPinButton *pin : qAsConst(RecentDocumentBrowser::menuPinButtonList)) {
        if (pin->isChecked())
            pinned.append(pin->path());
    }
    m_report[QStringLiteral("pinned")] = namesOf(pinned);

    QTest::keyClick(popup, Qt::Key_Return);
    m_report[QStringLiteral("Enter opens")] = namesOf(host.openedPaths());
    m_report[QStringLiteral("popup after Enter")] = closed(popup);
}

void WholeLife::useHelp(const QPointer<RecentDocMainWindow> &popup)
{
    QTest::mouseClick(popup->findChild<HelpLabel *>(), Qt::LeftButton);
    m_report[QStringLiteral("help runs")] = host.commandsRun.join(QLatin1Char(' '));
    m_report[QStringLiteral("popup after help")] = closed(popup);
}

void WholeLife::useFolder(const QPointer<RecentDocMainWindow> &popup)
{
    const QList<RecentDocDialog *> tiles = RecentDocumentBrowser::recentDocDialogList;
    if (!tiles.isEmpty())
        QTest::mouseClick(Browser::button(tiles.first(), "folderButton"), Qt::LeftButton);
    m_report[QStringLiteral("popup after the folder")] = closed(popup);
}

void WholeLife::useDoubleClick(const QPointer<RecentDocMainWindow> &popup)
{
    const QList<RecentDocDialog *> tiles = RecentDocumentBrowser::recentDocDialogList;
    if (!tiles.isEmpty()) // the first is the pinned one now
        QTest::mouseDClick(tiles.first(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    m_report[QStringLiteral("double-click opens")] = namesOf(host.openedPaths());
    m_report[QStringLiteral("popup after the double-click")] = closed(popup);
}

void WholeLife::end()
{
    m_report[QStringLiteral("window's end told")] = outcomeOf([&] {
        for (OdEditorReactor *reactor : std::vector<OdEditorReactor *>(host.editorReactors))
            dynamic_cast<CFxEditorReactor &>(*reactor).mainFrameDestroyed(&host.mainWindow());
    });
    m_report[QStringLiteral("registered at the end")] = listed();
}

//! The files' names, without their folder.
QString WholeLife::namesOf(const QStringList &paths) const
{
    QString names = paths.join(QLatin1Char(' '));
    return names.remove(m_folder.path() + QLatin1Char('/'));
}

//! What of the module is in the host's lists.
QString WholeLife::listed() const
{
    QStringList all;
    for (const OdEdCommand *command : host.commands)
        all.append(QString::fromWCharArray(command->globalName().c_str()));
    if (!host.documentReactors.empty())
        all.append(QStringLiteral("documents"));
    if (!host.editorReactors.empty())
        all.append(QStringLiteral("editor"));
    return all.join(QLatin1Char(' '));
}
