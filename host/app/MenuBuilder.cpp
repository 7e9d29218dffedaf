// SPDX-License-Identifier: MIT
#include "host/app/MenuBuilder.h"

#include "host/app/PathMenu.h"
#include "host/app/RecentFilesMenu.h"
#include "host/runtime/FxHost.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/Document.h"
#include "host/runtime/documents/DocumentManager.h"

#include <CFxUIAccelerator.h>
#include <CFxUICommand.h>
#include <CFxUIGroup.h>
#include <sdkhost/Customization.h>
#include <sdkhost/UIMenuItem.h>

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QShortcut>

namespace fxhost {

namespace {

UIMenuItem::Kind kindOf(const CFxUIMenuItem &item)
{
    if (item.GetChildCount() > 0)
        return UIMenuItem::Kind::Menu; // a module may have inserted children into an entry
    const auto *own = dynamic_cast<const UIMenuItem *>(&item);
    return own ? own->kind() : UIMenuItem::Kind::Entry;
}

QString helpOf(const CFxUIMenuItem &item)
{
    const auto *own = dynamic_cast<const UIMenuItem *>(&item);
    if (own && !own->helpString().isEmpty())
        return own->helpString();
    return item.GetCommand() ? QString(item.GetCommand()->GetHelpString()) : QString();
}

} // namespace

// Chosen entries are run by queued calls: the command may refresh the menus and run an event loop, and the
// clicked menu must have returned from its event handler before it can be deleted.

MenuBuilder::MenuBuilder(FxHost &host, QMenuBar *bar)
    : QObject(bar), m_host(host), m_bar(bar), m_recentFiles(new RecentFilesMenu(host, bar))
{
    connect(&host.customization(), &Customization::refreshed, this, &MenuBuilder::rebuild);
}

void MenuBuilder::setGroup(const CFxUIGroup *group)
{
    m_group = group;
    rebuild();
}

void MenuBuilder::rebuild()
{
    clear();
    if (!m_group)
        return;
    for (int i = 0; i < m_group->GetMenuCount(); ++i) {
        QMenu *menu = makeMenu(m_bar, *m_group->GetMenu(i));
        m_bar->addMenu(menu);
        m_menus.append(menu);
    }
    addAccelerators();
}

void MenuBuilder::clear()
{
    for (QShortcut *shortcut : qAsConst(m_shortcuts)) {
        shortcut->setEnabled(false);
        shortcut->deleteLater();
    }
    m_shortcuts.clear();
    m_bar->clear();
    for (QMenu *menu : qAsConst(m_menus)) {
        menu->close();
        menu->deleteLater();
    }
    m_menus.clear();
}

// NOLINTNEXTLINE(misc-no-recursion): menus contain menus
QMenu *MenuBuilder::makeMenu(QWidget *parent, const CFxUIMenuItem &item)
{
    QMenu *menu = nullptr;
    switch (kindOf(item)) {
    case UIMenuItem::Kind::RecentFiles:
        menu = m_recentFiles;
        break;
    case UIMenuItem::Kind::Windows:
        menu = makeWindowsMenu(parent);
        break;
    default:
        menu = new QMenu(parent);
    }
    menu->setTitle(item.GetLabel());
    menu->setObjectName(item.GetIdentifier());
    menu->menuAction()->setObjectName(item.GetIdentifier());
    for (int i = 0; i < item.GetChildCount(); ++i)
        addItem(menu, *item.GetChild(i));
    return menu;
}

QMenu *MenuBuilder::makeWindowsMenu(QWidget *parent)
{
    auto *menu = new PathMenu(parent);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { fillWindows(menu); });
    return menu;
}

// NOLINTNEXTLINE(misc-no-recursion): menus contain menus
void MenuBuilder::addItem(QMenu *menu, const CFxUIMenuItem &item)
{
    switch (kindOf(item)) {
    case UIMenuItem::Kind::Separator:
        menu->addSeparator();
        break;
    case UIMenuItem::Kind::Entry:
        addEntry(menu, item);
        break;
    default:
        menu->addMenu(makeMenu(menu, item));
    }
}

void MenuBuilder::addEntry(QMenu *menu, const CFxUIMenuItem &item)
{
    const CFxUICommand *const command = item.GetCommand();
    QString text = item.GetLabel();
    if (const CFxUIAccelerator *accelerator = acceleratorOf(command))
        text += QLatin1Char('\t') + accelerator->GetKey().toString(QKeySequence::NativeText);
    QAction *const action = menu->addAction(text);
    action->setObjectName(item.GetIdentifier());
    action->setStatusTip(helpOf(item));
    action->setEnabled(command != nullptr);
    if (!command)
        return;
    CommandRunner &commands = m_host.commands();
    connect(
        action, &QAction::triggered, &commands,
        [&commands, macro = QString(command->GetMacro())] { commands.runMacro(macro); },
        Qt::QueuedConnection);
}

void MenuBuilder::fillWindows(PathMenu *menu)
{
    menu->clear();
    DocumentManager &documents = m_host.documents();
    int number = 0;
    for (Document *document : documents.documents()) {
        QAction *const action = menu->addNumbered(++number, document->title());
        action->setCheckable(true);
        action->setChecked(document == documents.current());
        connect(
            action, &QAction::triggered, &documents,
            [&documents, document] { documents.bringToFront(document); }, Qt::QueuedConnection);
    }
    if (number == 0)
        menu->addPlaceholder(tr("No Drawing Is Open"));
}

void MenuBuilder::addAccelerators()
{
    QSet<QString> taken; // Qt would activate neither of two shortcuts with the same key
    CommandRunner &commands = m_host.commands();
    for (int i = 0; i < m_group->GetAcceleratorCount(); ++i) {
        const CFxUIAccelerator *const accelerator = m_group->GetAccelerator(i);
        const CFxUICommand *const command = accelerator->GetCommand();
        const QKeySequence key = accelerator->GetKey();
        const QString keyText = key.toString(QKeySequence::PortableText);
        if (!command || key.isEmpty() || taken.contains(keyText))
            continue;
        taken.insert(keyText);
        auto *shortcut = new QShortcut(key, m_bar);
        shortcut->setObjectName(accelerator->GetIdentifier());
        if (key == QKeySequence(QKeySequence::HelpContents))
            shortcut->setContext(Qt::ApplicationShortcut); // help is available in every window
        shortcut->setAutoRepeat(false); // holding the key down must not run the command repeatedly
        connect(
            shortcut, &QShortcut::activated, &commands,
            [&commands, macro = QString(command->GetMacro())] { commands.runMacro(macro); },
            Qt::QueuedConnection);
        m_shortcuts.append(shortcut);
    }
}

//! The first accelerator with a key that runs command; null if there is none.
const CFxUIAccelerator *MenuBuilder::acceleratorOf(const CFxUICommand *command) const
{
    for (int i = 0; command && i < m_group->GetAcceleratorCount(); ++i) {
        const CFxUIAccelerator *const accelerator = m_group->GetAccelerator(i);
        if (accelerator->GetCommand() == command && !accelerator->GetKey().isEmpty())
            return accelerator;
    }
    return nullptr;
}

} // namespace fxhost
