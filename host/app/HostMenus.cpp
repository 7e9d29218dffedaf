// SPDX-License-Identifier: MIT
#include "host/app/HostMenus.h"

#include <sdkhost/Customization.h>
#include <sdkhost/UIMenuItem.h>

#include <QCoreApplication>
#include <QKeySequence>

using sdkhost::UIGroup;
using sdkhost::UIMenuItem;

namespace fxhost {

namespace {

//! Adds menus to a group.
class HostMenus
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::HostMenus)
public:
    explicit HostMenus(UIGroup &group) : m_group(group) {}

    void addFileMenu(bool hasDrawing)
    {
        UIMenuItem &menu = m_group.addMenu(L"ID_MnFile", tr("&File"));
        addEntry(menu, "New", tr("&New"), "NEW", tr("Creates a new drawing."), "Ctrl+N");
        addEntry(menu, "Open", tr("&Open..."), "OPEN", tr("Opens a drawing."), "Ctrl+O");
        if (hasDrawing)
            addEntry(menu, "Close", tr("&Close"), "CLOSE", tr("Closes the current drawing."), "Ctrl+W");
        menu.addSeparator();
        menu.add(UIMenuItem::Kind::RecentFiles, L"ID_RECENT_FILES_MENU", tr("&Recent Drawings"));
        addEntry(menu, "RecentManage", tr("&Manage Recent Drawings..."), "RECENTMANAGE",
                 tr("Opens recent drawings, keeps them, or removes them from the list."));
        menu.addSeparator();
        addEntry(menu, "Quit", tr("E&xit"), "QUIT", tr("Closes all drawings and quits the program."),
                 "Ctrl+Q");
        // The definition is the browser's.
        m_group.addKey(L"ACC_RecentFiles", tr("Preview Recent Documents..."), Qt::Key_F4, L"ID_RECENT_FILES");
    }

    void addWindowMenu()
    {
        UIMenuItem &menu = m_group.addMenu(L"ID_MnWindow", tr("&Window"));
        addEntry(menu, "Cascade", tr("&Cascade"), "CASCADE",
                 tr("Arranges the drawing windows so that they overlap."));
        addEntry(menu, "Tile", tr("&Tile"), "TILE", tr("Arranges the drawing windows side by side."));
        menu.addSeparator();
        addEntry(menu, "NextWindow", tr("&Next Drawing"), "NEXTWINDOW",
                 tr("Switches to the next drawing window."), "F6");
        addEntry(menu, "PreviousWindow", tr("&Previous Drawing"), "PREVIOUSWINDOW",
                 tr("Switches to the previous drawing window."), "Shift+F6");
        menu.addSeparator();
        menu.add(UIMenuItem::Kind::Windows, L"ID_WINDOWS_MENU", tr("&Open Drawings"));
    }

    void addHelpMenu()
    {
        UIMenuItem &menu = m_group.addMenu(L"ID_MnHelp", tr("&Help"));
        addEntry(menu, "Help", tr("&Contents"), "HELP", tr("Shows the help."), "F1");
        addEntry(menu, "HelpRecent", tr("&Recent Drawings"), "HELP 3087",
                 tr("Shows the help on recent drawings."));
        menu.addSeparator();
        addEntry(menu, "About", tr("&About fxhost"), "ABOUT",
                 tr("Shows the version, the licence and the loaded modules."));
    }

private:
    //! Adds an entry with the definition of its command, and a key if there is one.
    //! \param name of the identifiers
    void addEntry(UIMenuItem &menu, const char *name, const QString &label, const char *command,
                  const QString &help, const char *key = nullptr)
    {
        const QString suffix = QString::fromLatin1(name);
        const QString definition = QStringLiteral("ID_") + suffix;
        const QString plainLabel = QString(label).remove(QLatin1Char('&'));
        menu.add(UIMenuItem::Kind::Entry, QStringLiteral("MI_") + suffix, label,
                 &m_group.addCommand(definition, plainLabel,
                                     QStringLiteral("^C^C_") + QString::fromLatin1(command), help));
        if (key)
            m_group.addKey(QStringLiteral("ACC_") + suffix, plainLabel,
                           QKeySequence::fromString(QString::fromLatin1(key), QKeySequence::PortableText),
                           definition);
    }

    UIGroup &m_group;
};

} // namespace

void addMenus(sdkhost::Customization &customization)
{
    HostMenus menus(customization.addGroup(L"FXHOST", true));
    menus.addFileMenu(true);
    menus.addWindowMenu();
    menus.addHelpMenu();
    HostMenus startUpMenus(customization.addStartUpGroup(L"FXHOST_STARTUP"));
    startUpMenus.addFileMenu(false);
    startUpMenus.addHelpMenu();
}

} // namespace fxhost
