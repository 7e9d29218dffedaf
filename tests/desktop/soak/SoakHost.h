// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/MainWindow.h"
#include "tests/support/process/ProgramStandIn.h"
#include "tests/support/real/RealHost.h"

#include <QDialog>
#include <QPointer>
#include <QRect>
#include <QSet>

#include <vector>

//! The host's program in this process with the built module and some drawings, and checks of what must always
//! hold. GUI thread.
class SoakHost
{
public:
    SoakHost();
    ~SoakHost();

    fxhost::FxHost &host() { return m_running.host; }
    //! The drawings' paths, of missing files too.
    QStringList paths() const { return m_paths; }

    //! The newest popup, or the window's drawing area without one; global pixels.
    QRect target() const;
    //! One of the newest popup's tiles, or the target when it has none; global pixels.
    QRect tile(int choice) const;
    //! The main window without its frame and its menu bar, whose last entry ends it; global pixels.
    QRect area() const;
    //! The newest popup on screen, or null.
    QDialog *popup() const;

    //! The paths of the highlighted tiles, in display order; none without the module.
    QStringList highlighted() const;
    //! The paths of the tiles of all popups on screen.
    QStringList shown() const;
    //! The paths that the host was asked to open since the last call.
    QStringList takeOpened();

    //! The path of the tile that a double-click at this place opens; empty when there is none, or a button.
    //! Global pixels.
    QString tileAt(const QPoint &place) const;

    bool hasModule();
    //! \return the problem; empty on success
    QString toggleModule();

    //! Checks the popups that were opened and closed. \return the problem; empty when there is none
    QString problem();
    //! Whether problem() has checked the popup already.
    bool isKnown(const QDialog *popup) const;
    //! Whether widgets of closed windows still exist, which pending events delete.
    bool isWaitingForDeletion();

    int popupsSeen() const { return m_popupsSeen; }
    int modulesLoaded() const { return m_modulesLoaded; }

private:
    struct Watched
    {
        QPointer<QDialog> popup;
        std::vector<QPointer<QWidget>> widgets;
    };

    QString add(QDialog *popup);

    RealHost m_running;
    ProgramStandIn m_fileManager{0, ProgramStandIn::Others::Found};
    QStringList m_paths;
    std::unique_ptr<fxhost::MainWindow> m_window;
    std::vector<Watched> m_watched;
    std::vector<QPointer<QWidget>> m_closed;
    //! Of the popups on screen, and of those closed while another one was open.
    QSet<QString> m_tilePaths;
    int m_logRead = 0; //!< lines
    int m_popupsSeen = 0;
    int m_modulesLoaded = 0;
};
