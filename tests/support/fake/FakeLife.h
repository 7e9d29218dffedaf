// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/fake/FakeBrowser.h"
#include "tests/support/fake/FakeMenus.h"

#include <QMap>

#include <functional>

class OdRxModule;
class RecentDocMainWindow;

//! The results of a life by name: "created", "pins", "opened" and so on.
using LifeReport = QMap<QString, QString>;

//! The module from its creation to its deletion in a host with two drawings, a.dwg and the older b.dwg, and
//! with menus. The host notifies the reactors in its lists and runs the command, and the user uses the popup
//! in every way. Exceptions are caught where a host catches them: around each call into the module.
class FakeLife : public DrawingsInHost, public FileMenus
{
public:
    //! Called with false when something must be missing in the host, and with true when it is back.
    using Switch = std::function<void(FakeLife &life, bool has)>;

    FakeLife() : DrawingsInHost({"a.dwg", "b.dwg"}), FileMenus(host) {}

    //! \param missing what the host lacks from before the creation to the end
    //! \param missingWithPopup what it lacks while a popup is up
    LifeReport live(const Switch &missing, const Switch &missingWithPopup);

    std::vector<std::unique_ptr<FakeGroup>> takenOut; //!< groups that the host has no longer

private:
    void beginWith(OdRxModule *module);
    void useCommand(const Switch &missingWithPopup);
    void useTiles(RecentDocMainWindow *popup);
    void useHelp(RecentDocMainWindow *popup);
    void useFolder(RecentDocMainWindow *popup);
    void useDoubleClick(RecentDocMainWindow *popup);
    void notifyReactors(void (CFxEditorReactor::*event)(QWidget *));
    QString namesOf(const QStringList &paths) const;
    QString listed() const;

    LifeReport m_report;
};
