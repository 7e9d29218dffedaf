// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/real/RealHost.h"

#include <QMainWindow>

class QAction;
class QDialog;
class QLabel;
class QMenu;
class QToolButton;

//! The built module, loaded by path into the real host runtime with a plain main window, over drawings that
//! exist. It is used through the host; its widgets are found by object names.
class RealBrowser
{
public:
    //! The main window's geometry, in pixels; a row of the popup has four tiles.
    static constexpr QRect usualFrame{60, 60, 1300, 900};
    //! Writes and lists count drawings, the first as the most recent, and creates a new drawing.
    //! \param frame the main window's geometry, in pixels
    explicit RealBrowser(int count, const QRect &frame = usualFrame);
    //! With files of these names.
    explicit RealBrowser(const QStringList &names, const QRect &frame = usualFrame);
    ~RealBrowser();

    //! A drawing with a picture in a colour that depends on the number.
    static QByteArray drawingBytes(int number);
    //! The loaded module's symbol of that mangled name; null while none is loaded.
    static void *exported(const char *name);

    QStringList paths() const { return m_paths; }
    fxhost::FxHost &host() { return m_running.host; }
    QMainWindow &window() { return m_window; }
    //! The recent documents that the host has stored.
    QStringList storedPaths() const;
    //! The lines that the host has logged so far.
    QStringList log() const { return m_running.logged(); }
    //! Those on opening drawings, and the expected ones for these drawings, in this order.
    QStringList opened() const { return log().filter("open "); }
    QStringList opening(const QList<int> &indices) const;

    //! Runs "_RECENT" and waits until the popup is active on screen.
    QDialog *openPopup();
    //! The popups that are on screen.
    static QList<QDialog *> popups();
    static QList<QDialog *> tiles(const QWidget *popup);
    static QString pathLine(const QWidget *popup);
    static QToolButton *button(const QWidget *parent, const char *name);
    //! Whether the tile's effect has the colour of a highlighted tile.
    static bool isHighlighted(const QWidget *tile);
    //! The indices of the highlighted ones.
    static QList<int> highlighted(const QList<QDialog *> &tiles);

    //! The module's hidden recent-files menu: the text of each entry, "-" for a separator.
    QStringList menuLines() const;

    //! Adds the module's entries to a menu of the host, as the host's call would.
    void addRecentFiles(QMenu *menu, QAction *before);

private:
    RealHost m_running;
    QStringList m_paths;
    QMainWindow m_window;
};
