// SPDX-License-Identifier: MIT
#include "tests/desktop/soak/SoakHost.h"

#include "host/app/HostMenus.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "state/FolderPinButton.h"
#include "tests/support/Patience.h"
#include "tests/support/real/RealBrowser.h"

#include <QApplication>
#include <QImage>
#include <QMap>
#include <QToolButton>

#include <algorithm>

namespace {

constexpr int soakDrawings = 24;
constexpr int soakLimit = 16; // recent documents, fewer than the drawings

//! The module's symbol of that mangled name; null while it is not loaded.
template<class Thing>
Thing *exported(const char *name)
{
    return reinterpret_cast<Thing *>(RealBrowser::exported(name));
}

//! The class's type information is inside the module, where the sanitizer's check cannot be linked to.
__attribute__((no_sanitize("vptr"))) QString pathOf(const FolderPinButton *button)
{
    return button->path();
}

__attribute__((no_sanitize("vptr"))) QString pathOf(const QDialog *tile)
{
    return pathOf(static_cast<const FolderPinButton *>(RealBrowser::button(tile, "pinButton")));
}

QStringList tilePathsOf(const QDialog *popup)
{
    QStringList paths;
    const QList<QDialog *> tiles = RealBrowser::tiles(popup);
    for (const QDialog *tile : tiles)
        paths.append(pathOf(tile));
    return paths;
}

//! The recent-files menu entries with a picture in the cache, which may be blank.
QStringList entriesWithPicture()
{
    const auto *buttons =
        exported<QList<FolderPinButton *>>("_ZN21RecentDocumentBrowser17menuPinButtonListE");
    const auto *pictures = exported<QMap<QString, QImage>>("_ZN21RecentDocumentBrowser18recentFileImageMapE");
    QStringList paths;
    for (const FolderPinButton *button : *buttons) {
        if (pictures->contains(pathOf(button)))
            paths.append(pathOf(button));
    }
    return paths;
}

} // namespace

SoakHost::SoakHost()
{
    for (int i = 0; i < soakDrawings; ++i) {
        m_paths.append(m_running.makeFile(QString("drawing %1.dwg").arg(i), RealBrowser::drawingBytes(i)));
    }
    fxhost::addMenus(host().customization());
    m_window = std::make_unique<fxhost::MainWindow>(host());
    // A dialog would block.
    host().setPathChooser([this] { return m_paths.constFirst(); });
    host().modules().load(MODULE_FILE);
    m_window->setGeometry(60, 60, 1300, 900);
    m_window->show();
    if (!waitForActive(m_window.get()))
        qFatal("the main window does not become active");
    host().setMainWindow(m_window.get());
    host().recentFiles().setMaximum(soakLimit);
    host().recentFiles().setPaths(m_paths);
    host().documents().newDocument();
}

SoakHost::~SoakHost() = default;

QDialog *SoakHost::popup() const
{
    const QList<QDialog *> popups = RealBrowser::popups();
    return popups.isEmpty() ? nullptr : popups.constLast();
}

QRect SoakHost::area() const
{
    const QWidget *content = m_window->centralWidget();
    return QRect(content->mapToGlobal(QPoint()), content->size());
}

QRect SoakHost::target() const
{
    return popup() ? popup()->geometry() : area();
}

QRect SoakHost::tile(int choice) const
{
    const QList<QDialog *> tiles = popup() ? RealBrowser::tiles(popup()) : QList<QDialog *>();
    if (tiles.isEmpty())
        return target();
    const QDialog *chosen = tiles.at(choice % tiles.size());
    return QRect(chosen->mapToGlobal(QPoint()), chosen->size());
}

QStringList SoakHost::highlighted() const
{
    using Query = QList<QString>();
    Query *query = exported<Query>("_ZN21RecentDocumentBrowser31getHighlightedRecentDocPathListEv");
    return query ? QStringList(query()) : QStringList();
}

QStringList SoakHost::shown() const
{
    QStringList paths;
    const QList<QDialog *> popups = RealBrowser::popups();
    for (const QDialog *open : popups)
        paths += tilePathsOf(open);
    return paths;
}

QStringList SoakHost::takeOpened()
{
    const QStringList lines = m_running.logged().mid(m_logRead);
    m_logRead += lines.size();
    QStringList opened;
    static const QRegularExpression open("^open (.*) (ok|failed)$");
    for (const QString &line : lines) {
        const QRegularExpressionMatch match = open.match(line);
        if (match.hasMatch())
            opened.append(match.captured(1));
    }
    return opened;
}

QString SoakHost::tileAt(const QPoint &place) const
{
    QWidget *const widget = QApplication::widgetAt(place);
    const QList<QDialog *> popups = RealBrowser::popups();
    // The tiles of an older popup use the newer one's highlight.
    if (!widget || qobject_cast<QToolButton *>(widget) || popups.size() != 1)
        return {};
    const QList<QDialog *> tiles = RealBrowser::tiles(popups.constFirst());
    for (const QDialog *tile : tiles) {
        if (tile == widget || tile->isAncestorOf(widget))
            return pathOf(tile);
    }
    return {};
}

bool SoakHost::hasModule()
{
    return !host().modules().loaded().isEmpty();
}

QString SoakHost::toggleModule()
{
    const QString module = MODULE_FILE;
    fxhost::ModuleManager &modules = host().modules();
    const bool wasLoaded = hasModule();
    const bool succeeded = wasLoaded ? modules.unload(module) : modules.load(module);
    m_modulesLoaded += !wasLoaded;
    return succeeded ? QString() : "the module cannot be loaded or unloaded";
}

//! Records a new popup.
QString SoakHost::add(QDialog *popup)
{
    ++m_popupsSeen;
    Watched watched{popup, {popup}};
    const QList<QWidget *> children = popup->findChildren<QWidget *>();
    watched.widgets.insert(watched.widgets.end(), children.begin(), children.end());
    m_watched.push_back(watched);

    const QStringList tilePaths = tilePathsOf(popup);
    m_tilePaths += QSet<QString>(tilePaths.begin(), tilePaths.end());
    const QStringList entries = entriesWithPicture();
    if (tilePaths != entries) {
        return QString("the popup has %1 tiles, and %2 menu entries have a picture")
            .arg(tilePaths.size())
            .arg(entries.size());
    }
    return {};
}

bool SoakHost::isKnown(const QDialog *popup) const
{
    return std::any_of(m_watched.begin(), m_watched.end(),
                       [&](const Watched &watched) { return watched.popup == popup; });
}

QString SoakHost::problem()
{
    const QList<QDialog *> popups = RealBrowser::popups();
    if (popups.isEmpty())
        m_tilePaths.clear();
    for (QDialog *open : popups) {
        if (!isKnown(open)) {
            const QString wrong = add(open);
            if (!wrong.isEmpty())
                return wrong;
        }
        QString line = RealBrowser::pathLine(open);
        if (line.endsWith("...") && line.size() > 3) // it is shortened
            line.chop(3);
        const bool isListed = std::any_of(m_tilePaths.begin(), m_tilePaths.end(),
                                          [&](const QString &path) { return path.startsWith(line); });
        if (!line.isEmpty() && !isListed)
            return QString("the path line names no recent drawing: ") + line;
    }
    for (auto it = m_watched.begin(); it != m_watched.end();) {
        if (it->popup && it->popup->isVisible()) {
            ++it;
            continue;
        }
        m_closed.insert(m_closed.end(), it->widgets.begin(), it->widgets.end());
        it = m_watched.erase(it);
    }
    return {};
}

bool SoakHost::isWaitingForDeletion()
{
    m_closed.erase(std::remove_if(m_closed.begin(), m_closed.end(),
                                  [](const QPointer<QWidget> &widget) { return !widget; }),
                   m_closed.end());
    return !m_closed.empty();
}
