// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>

class CFxUIAccelerator;
class CFxUICommand;
class CFxUIGroup;
class CFxUIMenuItem;
class QMenu;
class QMenuBar;
class QShortcut;

namespace fxhost {

class FxHost;
class PathMenu;
class RecentFilesMenu;

//! Keeps a menu bar in sync with a customisation group: its menus, and its accelerators, which work while the
//! bar is visible in the active window. Choosing an entry runs the macro of its definition. The object names
//! of menus and actions are their identifiers, and the status tips of actions are their help strings. Menus
//! are created anew each time, except for that of the recent drawings. GUI thread.
class MenuBuilder : public QObject
{
    Q_OBJECT
public:
    //! \param host must outlive the builder
    //! \param bar owns the builder
    MenuBuilder(FxHost &host, QMenuBar *bar);

    //! Sets the group that the bar is filled from, now and whenever the customisation is refreshed. Can be
    //! called while an entry of the bar is running: the previous menus are deleted later.
    //! \param group not owned; must live until it is replaced. Null clears the bar
    void setGroup(const CFxUIGroup *group);

private:
    void rebuild();
    void clear();
    QMenu *makeMenu(QWidget *parent, const CFxUIMenuItem &item);
    void addItem(QMenu *menu, const CFxUIMenuItem &item);
    void addEntry(QMenu *menu, const CFxUIMenuItem &item);
    QMenu *makeWindowsMenu(QWidget *parent);
    void fillWindows(PathMenu *menu);
    void addAccelerators();
    const CFxUIAccelerator *acceleratorOf(const CFxUICommand *command) const;

    FxHost &m_host;
    QMenuBar *m_bar;
    RecentFilesMenu *m_recentFiles; // a child of the bar; the same in every group
    const CFxUIGroup *m_group = nullptr;
    QList<QMenu *> m_menus; // children of the bar, as the shortcuts are
    QList<QShortcut *> m_shortcuts;
};

} // namespace fxhost
