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

//! Keeps a menu bar in step with a customisation group: menus, and the accelerators, which work while the bar
//! is visible in the active window. What the user chooses is run as the definition's macro. Each menu and
//! action has its identifier as object name and its help string as status tip. GUI thread.
class MenuBuilder : public QObject
{
    Q_OBJECT
public:
    //! \param bar owns the builder
    //! \param host must outlive the builder
    MenuBuilder(FxHost &host, QMenuBar *bar);

    //! Fills the bar from another group, and again whenever the customisation is refreshed. It may be called
    //! while one of the bar's entries is being run: what stood in the bar before is deleted later.
    //! \param group null empties the bar; must live until it is replaced here
    void setGroup(const CFxUIGroup *group);

private:
    void rebuild();
    void clear();
    QMenu *makeMenu(QWidget *parent, const CFxUIMenuItem &item);
    void addItem(QMenu *menu, const CFxUIMenuItem &item);
    void addEntry(QMenu *menu, const CFxUIMenuItem &item);
    void fillRecentFiles(QMenu *menu);
    void fillWindows(QMenu *menu);
    void addAccelerators();
    const CFxUIAccelerator *acceleratorOf(const CFxUICommand *command) const;

    FxHost &m_host;
    QMenuBar *m_bar;
    const CFxUIGroup *m_group = nullptr;
    QList<QMenu *> m_menus; // children of the bar, as the shortcuts are
    QList<QShortcut *> m_shortcuts;
};

} // namespace fxhost
