// SPDX-License-Identifier: MIT
#include "tests/support/real/RealBrowser.h"

#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/recent/RecentFileStore.h"
#include "host/runtime/recent/RecentFiles.h"
#include "samples/DrawingWriter.h"
#include "tests/support/Patience.h"

#include <RecentDocumentBrowserExports.h>

#include <QApplication>
#include <QDialog>
#include <QGraphicsEffect>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

#include <dlfcn.h>

namespace {

QStringList numberedNames(int count)
{
    QStringList names;
    for (int i = 1; i <= count; ++i)
        names.append(QString("plan %1.dwg").arg(i));
    return names;
}

} // namespace

QByteArray RealBrowser::drawingBytes(int number)
{
    QImage picture(180, 112, QImage::Format_RGB32);
    picture.fill(QColor::fromHsv((number * 47) % 360, 160, 230));
    return fxsamples::drawingFile(picture, {});
}

void *RealBrowser::exported(const char *name)
{
    void *library = dlopen(MODULE_FILE, RTLD_NOW | RTLD_NOLOAD);
    if (!library)
        return nullptr;
    void *symbol = dlsym(library, name);
    dlclose(library); // the host holds it
    if (!symbol)
        qFatal("the module does not export %s", name);
    return symbol;
}

RealBrowser::RealBrowser(int count, const QRect &frame) : RealBrowser(numberedNames(count), frame) {}

RealBrowser::RealBrowser(const QStringList &names, const QRect &frame)
{
    for (const QString &name : names)
        m_paths.append(m_running.makeFile(name, drawingBytes(m_paths.size())));
    if (!host().modules().load(MODULE_FILE))
        qFatal("the module cannot be loaded");
    m_window.setGeometry(frame);
    m_window.show();
    if (!waitForActive(&m_window))
        qFatal("the main window does not become active");
    host().setMainWindow(&m_window);
    host().recentFiles().setMaximum(fxhost::RecentFiles::largestMaximum);
    host().recentFiles().setPaths(m_paths);
    host().documents().newDocument();
}

RealBrowser::~RealBrowser()
{
    host().setMainWindow(nullptr);
}

QStringList RealBrowser::storedPaths() const
{
    return fxhost::pathsOf(fxhost::RecentFileStore(m_running.path("profile/recent.txt")).load().entries);
}

QStringList RealBrowser::opening(const QList<int> &indices) const
{
    QStringList lines;
    for (const int index : indices)
        lines.append(QString("open %1 ok").arg(m_paths.at(index)));
    return lines;
}

QDialog *RealBrowser::openPopup()
{
    const QList<QDialog *> before = popups();
    host().commands().runLine("_RECENT");
    const QList<QDialog *> after = popups();
    for (QDialog *popup : after) {
        if (before.contains(popup))
            continue;
        // Its own window must have the keyboard: a child window counts as active while its parent has it.
        const bool isActive = waitUntil([popup] { return QApplication::activeWindow() == popup; });
        return isActive ? popup : nullptr;
    }
    return nullptr;
}

QList<QDialog *> RealBrowser::popups()
{
    QList<QDialog *> found;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->objectName() == "RecentDocMainWindow" && window->isVisible())
            found.append(qobject_cast<QDialog *>(window));
    }
    return found;
}

QList<QDialog *> RealBrowser::tiles(const QWidget *popup)
{
    return popup->findChildren<QDialog *>("RecentDocDialog");
}

QString RealBrowser::pathLine(const QWidget *popup)
{
    return popup->findChild<QLabel *>("main_label_path")->text();
}

QToolButton *RealBrowser::button(const QWidget *parent, const char *name)
{
    return parent->findChild<QToolButton *>(QLatin1String(name));
}

bool RealBrowser::isHighlighted(const QWidget *tile)
{
    const QGraphicsEffect *effect = tile->graphicsEffect();
    return effect && effect->property("color").value<QColor>() == QColor(0, 0, 150, 100);
}

QList<int> RealBrowser::highlighted(const QList<QDialog *> &tiles)
{
    QList<int> indices;
    for (int i = 0; i < tiles.size(); ++i) {
        if (isHighlighted(tiles.at(i)))
            indices.append(i);
    }
    return indices;
}

QStringList RealBrowser::menuLines() const
{
    const auto *menu = static_cast<QMenu **>(exported("_ZN21RecentDocumentBrowser13recentDocMenuE"));
    QStringList lines;
    const QList<QAction *> actions = (*menu)->actions();
    for (const QAction *action : actions)
        lines.append(action->isSeparator() ? "-" : action->text());
    return lines;
}

void RealBrowser::addRecentFiles(QMenu *menu, QAction *before)
{
    RecentDocumentBrowserExports::addRecentFiles(host().modules().libraries().front(), menu, before);
}
