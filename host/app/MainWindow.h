// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/commands/CommandSet.h"

#include <QMainWindow>
#include <QPointer>

class QLabel;

namespace fxhost {

class AboutWindow;
class CommandLineWidget;
class Document;
class DrawingArea;
class FxHost;
class HelpWindow;
class MenuBuilder;
class RecentDrawingsDialog;

//! The program's main window: menus from the customisation data, the drawing windows, the command line and
//! a status bar. Files that are dropped on it from other programs are opened. GUI thread.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    //! Registers the commands that need the window. The caller must call FxHost::setMainWindow() after the
    //! window is shown.
    //! \param host must outlive the window
    explicit MainWindow(FxHost &host);
    //! Closes the drawings and notifies the modules while all services that they may use still exist.
    ~MainWindow() override;

    DrawingArea &drawingArea() { return *m_drawingArea; }
    const CommandLineWidget &commandLine() const { return *m_commandLine; }
    //! Opens the dialog of the recent drawings, or brings it to the front.
    void showRecentDrawings();

    //! Restores, raises and activates the window, or the modal dialog in front of it.
    //! \param startupId what the desktop calls the user's request, as in DESKTOP_STARTUP_ID; may be empty
    void bringToFront(const QByteArray &startupId);
    //! Shows the program's version, its licence and the loaded modules.
    void showAbout();

protected:
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void restorePlace();
    void connectCommandLine();
    void leaveCommandLine();
    void showState(const Document *current);
    void showHelp(int topic);
    QString firstDirectory();
    QString choosePath();

    FxHost &m_host;
    MenuBuilder *m_menus;
    DrawingArea *m_drawingArea;
    CommandLineWidget *m_commandLine;
    QLabel *m_factsLabel;
    HelpWindow *m_helpWindow = nullptr;              //!< created on first use
    AboutWindow *m_aboutWindow = nullptr;            //!< created on first use
    QPointer<RecentDrawingsDialog> m_recentDrawings; //!< deletes itself
    CommandSet m_commands;
};

} // namespace fxhost
