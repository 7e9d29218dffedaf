// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/FakeCustomization.h"
#include "tests/support/FakeHost.h"

#include <QMap>
#include <QTemporaryDir>

#include <functional>

class OdRxModule;
class RecentDocMainWindow;

//! What came of a life, by name: "created", "pins", "opened" and so on.
using LifeReport = QMap<QString, QString>;

//! The module from its creation to its deletion in a host with two drawings, a.dwg and the older b.dwg, and
//! with menus. The host tells what its lists of reactors hold, runs the command, and a person uses the popup
//! in every way. Exceptions are caught where a host catches them: around each call into the module.
class WholeLife
{
public:
    //! Called with false when something shall be missing in the host, and with true when it is back.
    using Switch = std::function<void(WholeLife &life, bool has)>;

    WholeLife();

    //! \param missing what the host lacks from before the creation to the end
    //! \param missingWithPopup what it lacks while a popup is up
    LifeReport live(const Switch &missing, const Switch &missingWithPopup);

    FakeHost host;
    FakeCustomization &menus = host.customization();
    FakeMenuItem &file;
    FakeMenuItem &startUpFile;
    std::vector<std::unique_ptr<FakeGroup>> takenOut; //!< groups that the host has no longer

private:
    void beginWith(OdRxModule *module);
    void useCommand(const Switch &missingWithPopup);
    void useTiles(const QPointer<RecentDocMainWindow> &popup);
    void useHelp(const QPointer<RecentDocMainWindow> &popup);
    void useFolder(const QPointer<RecentDocMainWindow> &popup);
    void useDoubleClick(const QPointer<RecentDocMainWindow> &popup);
    void end();
    QString namesOf(const QStringList &paths) const;
    QString listed() const;

    QTemporaryDir m_folder;
    LifeReport m_report;
};
