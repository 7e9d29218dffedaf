// SPDX-License-Identifier: MIT
#include "host/app/RecentFilesMenu.h"

#include "host/app/OpenDrawings.h"
#include "host/runtime/FxHost.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/recent/RecentFiles.h"

#include <RecentDocumentBrowserExports.h>

#include <QAbstractButton>
#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QWidgetAction>

#include <algorithm>

namespace fxhost {

namespace {

//! The path of a module's entry: what follows its number.
QString pathOf(const QAction &entry)
{
    return entry.text().mid(entry.text().indexOf(QLatin1Char(' ')) + 1);
}

QList<QAbstractButton *> buttonsOf(const QWidgetAction &entry)
{
    return entry.defaultWidget()->findChildren<QAbstractButton *>();
}

bool isPin(const QAbstractButton *button)
{
    return button->isCheckable();
}

QAbstractButton *pinOf(const QWidgetAction &entry)
{
    const QList<QAbstractButton *> buttons = buttonsOf(entry);
    return *std::find_if(buttons.begin(), buttons.end(), isPin);
}

} // namespace

RecentFilesMenu::RecentFilesMenu(FxHost &host, QWidget *parent) : PathMenu(parent), m_host(host)
{
    connect(this, &QMenu::aboutToShow, this, &RecentFilesMenu::prepare);
    // Not only when the menu is opened: pins that were pressed in the browser until then would be lost.
    connect(&host.documents(), &DocumentManager::reactorsNotified, this, &RecentFilesMenu::fillByModule);
    connect(&host.modules(), &ModuleManager::moduleLoaded, this, [this] {
        // The module has been notified of the current drawing. If another one has made the menu's entries,
        // they keep their pins.
        if (m_host.documents().current() && moduleEntries().empty())
            fillByModule();
    });
}

//! The module's entries in their order; empty if it has been unloaded, because it deletes them.
std::vector<QWidgetAction *> RecentFilesMenu::moduleEntries() const
{
    std::vector<QWidgetAction *> entries;
    const QList<QAction *> all = actions();
    for (QAction *action : all) {
        if (auto *entry = qobject_cast<QWidgetAction *>(action))
            entries.push_back(entry);
    }
    return entries;
}

void RecentFilesMenu::fillByModule()
{
    const std::vector<QWidgetAction *> former = moduleEntries();
    m_listed = m_host.recentFiles().paths();
    clear();
    for (void *library : m_host.modules().libraries()) {
        if (RecentDocumentBrowserExports::addRecentFiles(library, this, nullptr))
            break;
    }
    for (const QWidgetAction *entry : moduleEntries())
        adopt(entry);
    // Later, because the drawing may have been opened by a click on one of them.
    for (QWidgetAction *entry : former)
        entry->deleteLater();
}

void RecentFilesMenu::adopt(const QWidgetAction *entry)
{
    openWhenTriggered(entry, pathOf(*entry));
    entry->defaultWidget()->installEventFilter(this);
    const QList<QAbstractButton *> buttons = buttonsOf(*entry);
    for (QAbstractButton *button : buttons) {
        if (isPin(button)) // the module handles the click first
            connect(button, &QAbstractButton::clicked, this, &RecentFilesMenu::numberEntries);
        else
            button->installEventFilter(this);
    }
}

void RecentFilesMenu::openWhenTriggered(const QAction *entry, const QString &path)
{
    CommandRunner &commands = m_host.commands();
    connect(entry, &QAction::triggered, &commands,
            [&commands, path] { openDrawingsLater(commands, {path}); });
}

void RecentFilesMenu::prepare()
{
    if (!moduleEntries().empty() && m_listed != m_host.recentFiles().paths())
        listAnew();
    if (moduleEntries().empty())
        listPaths();
    else
        fitEntries();
}

//! Has the module list other paths, but keeps what is pinned: no drawing was created or opened.
void RecentFilesMenu::listAnew()
{
    QStringList pinned;
    for (const QWidgetAction *entry : moduleEntries()) {
        if (pinOf(*entry)->isChecked())
            pinned.append(pathOf(*entry));
    }
    fillByModule();
    for (const QString &path : qAsConst(pinned)) {
        for (const QWidgetAction *entry : moduleEntries()) {
            if (pathOf(*entry) == path)
                pinOf(*entry)->click();
        }
    }
}

//! Makes the module's entries fit this desktop.
void RecentFilesMenu::fitEntries()
{
    QPalette colors;
    colors.setColor(QPalette::Base, Qt::white); // the entries have black text
    colors.setColor(QPalette::Window, Qt::white);
    setPalette(colors);
    // However long a path is, the buttons after it are on the screen.
    const int frames = 2 * style()->pixelMetric(QStyle::PM_MenuPanelWidth);
    const int widest = screen()->availableSize().width() - frames;
    for (const QWidgetAction *entry : moduleEntries())
        entry->defaultWidget()->setMaximumWidth(widest);
    numberEntries();
}

void RecentFilesMenu::listPaths()
{
    setPalette(QPalette());
    clear();
    const QStringList paths = m_host.recentFiles().paths();
    int number = 0;
    for (const QString &path : paths)
        openWhenTriggered(addNumbered(++number, path), path);
    if (paths.isEmpty())
        addPlaceholder(tr("No Recent Documents"));
}

//! Makes the shown numbers the keys of the entries. Pins change the order and the shown numbers only.
void RecentFilesMenu::numberEntries()
{
    int number = 0;
    for (QWidgetAction *entry : moduleEntries())
        entry->setText(QStringLiteral("&%1 ").arg(++number) + pathOf(*entry));
}

bool RecentFilesMenu::eventFilter(QObject *watched, QEvent *event)
{
    const auto *button = qobject_cast<QAbstractButton *>(watched);
    // A click on the path or the folder closes the menus, as a click on any other entry does; and before the
    // module handles it, which may take a while.
    if (button && event->type() == QEvent::MouseButtonRelease && button->isDown()) {
        for (QWidget *popup = QApplication::activePopupWidget(); popup && popup->close();)
            popup = QApplication::activePopupWidget();
    }
    // The entry under the pointer is highlighted by its style sheet, and no other by the keyboard.
    if (!button && event->type() == QEvent::Enter)
        setActiveAction(nullptr);
    return PathMenu::eventFilter(watched, event);
}

//! QMenu does not highlight entries with widgets when they are reached by the keyboard.
void RecentFilesMenu::paintEvent(QPaintEvent *event)
{
    PathMenu::paintEvent(event);
    if (qobject_cast<QWidgetAction *>(activeAction()))
        QPainter(this).fillRect(actionGeometry(activeAction()), palette().highlight());
}

} // namespace fxhost
