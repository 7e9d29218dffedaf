// SPDX-License-Identifier: MIT
#include "host/app/MainWindow.h"

#include "host/app/AboutWindow.h"
#include "host/app/AppCommands.h"
#include "host/app/CommandLineWidget.h"
#include "host/app/DrawingArea.h"
#include "host/app/DrawingWords.h"
#include "host/app/HelpWindow.h"
#include "host/app/LineCompleter.h"
#include "host/app/MenuBuilder.h"
#include "host/app/OpenDrawings.h"
#include "host/app/ProgramOptions.h"
#include "host/app/instance/StartupNotification.h"
#include "host/app/recent/RecentDrawingsDialog.h"
#include "host/runtime/FxHost.h"
#include "host/runtime/HostSettings.h"
#include "host/runtime/Paths.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/Document.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/RecentFiles.h"

#include <CFxCommand.h>
#include <sdkhost/Customization.h>

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>

namespace fxhost {

namespace {

// Size of the normal window if it has always been maximised, in pixels: large enough for a drawing, and small
// enough to leave space for other windows.
constexpr QSize firstSize(1100, 760);

//! Of the module that shows the recent drawings. It shows nothing if there are none.
constexpr char browserCommand[] = "_RECENT";

//! True if a key is passed on to the command line. Modifier keys are not: pressing Ctrl would take the focus
//! from the text that the user is copying with Ctrl+C.
bool isForCommandLine(const QKeyEvent &event)
{
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Backspace:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    default:
        return !event.text().isEmpty() && event.text().at(0).isPrint();
    }
}

QStringList filesIn(const QDropEvent &event)
{
    QStringList files;
    const QList<QUrl> urls = event.mimeData()->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            files.append(QDir::cleanPath(pathFromUrl(url)));
    }
    return files;
}

} // namespace

MainWindow::MainWindow(FxHost &host) : m_host(host), m_commands(host.commandStack())
{
    setObjectName(QStringLiteral("mainWindow"));
    m_menus = new MenuBuilder(host, menuBar());
    m_drawingArea = new DrawingArea(host.documents());
    m_commandLine = new CommandLineWidget;
    m_factsLabel = new QLabel;

    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_drawingArea);
    splitter->addWidget(m_commandLine);
    splitter->setStretchFactor(0, 1);
    splitter->setCollapsible(0, false);
    splitter->setCollapsible(1, false);
    setCentralWidget(splitter);
    statusBar()->addPermanentWidget(m_factsLabel);

    setAcceptDrops(true);
    setMinimumSize(smallestMainWindow);
    restorePlace();

    connectCommandLine();
    addAppCommands(m_commands, host, *this);
    host.setPathChooser([this] { return choosePath(); });
    connect(&host, &FxHost::helpRequested, this, &MainWindow::showHelp);
    connect(&host.documents(), &DocumentManager::currentChanged, this, &MainWindow::showState);
    showState(host.documents().current());
}

MainWindow::~MainWindow()
{
    m_host.documents().closeAll();
    m_host.setMainWindow(nullptr);
    m_host.setPathChooser({});
    m_menus->setGroup(nullptr);
}

//! Restores the size and position that the window had when it was last closed, limited to the current
//! screens, which may be smaller. Without stored geometry, the window is maximised.
void MainWindow::restorePlace()
{
    const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight); // estimated; no frame exists yet
    resize(firstSize.boundedTo(screen()->availableSize() - QSize(0, titleBar)));
    if (!restoreGeometry(m_host.settings().windowGeometry())) {
        setWindowState(Qt::WindowMaximized);
        return;
    }
    const QRect room = screen()->availableVirtualGeometry().adjusted(0, titleBar, 0, 0);
    const Qt::WindowStates state = windowState();
    QRect place = isMaximized() ? normalGeometry() : geometry();
    place.setSize(place.size().boundedTo(room.size()));
    place.moveLeft(qBound(room.left(), place.left(), room.left() + room.width() - place.width()));
    place.moveTop(qBound(room.top(), place.top(), room.top() + room.height() - place.height()));
    setWindowState(Qt::WindowNoState);
    setGeometry(place);
    setWindowState(state);
}

void MainWindow::connectCommandLine()
{
    CommandRunner &commands = m_host.commands();
    connect(&m_host, &FxHost::message, m_commandLine, &CommandLineWidget::showMessage);
    connect(m_commandLine, &CommandLineWidget::lineEntered, &commands, &CommandRunner::runLine);
    connect(m_commandLine, &CommandLineWidget::cancelRequested, this, [this] {
        if (m_host.commands().isRunning())
            m_host.commands().cancel();
        else
            leaveCommandLine();
    });
    m_commandLine->setCompleter(
        [completer = LineCompleter(m_host)](const QString &line) { return completer.complete(line); });
    // The history contains every command that runs, whether it was typed or not.
    connect(&commands, &CommandRunner::commandStarted, m_commandLine,
            [this](const QString &name, const QString &argument) {
                m_commandLine->echo((name + QLatin1Char(' ') + argument).trimmed());
            });
    connect(&commands, &CommandRunner::commandEnded, m_commandLine, [this](const QString &name, int result) {
        if (result == CFxCommand::cancelled)
            m_commandLine->showMessage(tr("*Cancelled*"));
        if (name == QLatin1String(browserCommand) && m_host.recentFiles().entries().isEmpty())
            m_host.showMessage(
                tr("There are no recent drawings yet. Open one with OPEN, or drop its file on the window."));
    });
}

void MainWindow::bringToFront(const QByteArray &startupId)
{
    takeOverStartup(startupId, winId());
    setWindowState(windowState() & ~Qt::WindowMinimized);
    QWidget *const modal = QApplication::activeModalWidget();
    QWidget *const window = modal ? modal : this;
    window->raise();
    window->activateWindow();
}

void MainWindow::showState(const Document *current)
{
    Customization &customization = m_host.customization();
    const CFxUIGroup *group = customization.startUpGroup();
    if (current || !group)
        group = customization.primaryGroup();
    m_menus->setGroup(group);

    const QString program = QCoreApplication::applicationName();
    setWindowTitle(current ? QStringLiteral("%1 - [%2]").arg(program, current->title()) : program);
    m_factsLabel->setText(current ? factsLine(*current) : QString());
    // A drawing's window takes the focus when it is activated, but does not need it.
    m_commandLine->setFocus();
}

void MainWindow::showHelp(int topic)
{
    if (!m_helpWindow)
        m_helpWindow = new HelpWindow(this);
    m_helpWindow->showTopic(topic);
}

void MainWindow::showRecentDrawings()
{
    if (!m_recentDrawings)
        m_recentDrawings = new RecentDrawingsDialog(m_host, this);
    m_recentDrawings->show();
    m_recentDrawings->raise();
    m_recentDrawings->activateWindow();
}

void MainWindow::showAbout()
{
    if (!m_aboutWindow)
        m_aboutWindow = new AboutWindow(this);
    m_aboutWindow->showModules(m_host.modules().loaded());
}

//! The folder in which the last drawing was chosen, unless it is unresponsive: the dialog would wait for it.
QString MainWindow::firstDirectory()
{
    for (const QString &directory : {m_host.settings().lastDirectory(), QDir::homePath()}) {
        if (!directory.isEmpty() && m_host.fileProbe().unresponsive({directory}).isEmpty())
            return directory;
    }
    return QDir::rootPath();
}

QString MainWindow::choosePath()
{
    const QPointer<QFileDialog> dialog = new QFileDialog(this, tr("Open Drawing"), firstDirectory());
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    // Qt's own dialog ignores the case of patterns, but not each desktop's dialog.
    dialog->setNameFilters({tr("Drawings, templates and backups") +
                                QStringLiteral(" (*.[dD][wW][gG] *.[dD][wW][tT] *.[bB][aA][kK])"),
                            tr("All files") + QStringLiteral(" (*)")});
    dialog->setFileMode(QFileDialog::ExistingFile);
    HelpWindow::offerIn(dialog, HelpWindow::frontPage);
    const bool isChosen = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return {}; // deleted with its parent
    const QString path = isChosen ? dialog->selectedFiles().value(0) : QString();
    if (!path.isEmpty())
        m_host.settings().setLastDirectory(QFileInfo(path).absolutePath());
    // Qt stores the folder of the last dialog and accesses it before the next one is shown.
    dialog->setDirectory(QDir::rootPath());
    delete dialog;
    return path;
}

void MainWindow::leaveCommandLine()
{
    QWidget *drawing = m_drawingArea;
    if (QMdiSubWindow *const active = m_drawingArea->activeSubWindow())
        drawing = active;
    drawing->setFocus(Qt::OtherFocusReason);
}

//! Moves the focus between the active drawing and the command line. Qt's default would move it through all
//! drawings and activate each.
bool MainWindow::focusNextPrevChild(bool)
{
    if (m_commandLine->hasInputFocus())
        leaveCommandLine();
    else
        m_commandLine->setFocus(Qt::TabFocusReason);
    return true;
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    // When the user returns from a popup or another program, typed text goes to the command line.
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        m_commandLine->setFocus(Qt::ActiveWindowFocusReason);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    m_host.settings().setWindowGeometry(saveGeometry());
    m_host.commands().stop();
    event->accept();
    // The program ends with its main window, even if popups or the help window are still open.
    QCoreApplication::quit();
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (filesIn(*event).isEmpty())
        return;
    event->setDropAction(Qt::CopyAction); // so that a source that offers a move does not delete the file
    event->accept();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    const QStringList files = filesIn(*event);
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // Drags from this program are accepted only so that the pointer shows it. The module that started the
    // drag opens the files; opening them here would open them twice.
    if (event->source())
        return;
    openDrawingsLater(m_host.commands(), files); // the other program waits until this function returns
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    // Receives the keys that no widget in the window has handled. If the input line has the focus, it has
    // already ignored the key.
    if (isForCommandLine(*event) && !m_commandLine->hasInputFocus())
        m_commandLine->typeKey(event);
    else
        QMainWindow::keyPressEvent(event);
}

} // namespace fxhost
