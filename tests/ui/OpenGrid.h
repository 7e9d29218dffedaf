// SPDX-License-Identifier: MIT
#pragma once

#include "module/RecentDocumentBrowser.h"
#include "tests/support/PathLine.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QGraphicsEffect>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>

using Indices = QList<int>;

//! The indices of highlighted tiles, by the colour of their effect.
inline Indices highlightedIn(const QList<RecentDocDialog *> &tiles)
{
    Indices indices;
    for (int i = 0; i < tiles.size(); ++i) {
        const QGraphicsEffect *effect = tiles.at(i)->graphicsEffect();
        if (effect && effect->property("color").value<QColor>() == QColor(0, 0, 150, 100))
            indices.append(i);
    }
    return indices;
}

//! Presses a key in a widget, with exactly these modifiers. The widget may be deleted by it.
//! \return whether the key was accepted
inline bool pressKey(QWidget *widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

//! Sends an event that has a type and nothing else.
inline void sendPlain(QWidget *widget, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(widget, &event);
}

//! Records which objects get events of a type, once for each event.
class ReceiversOf : public QObject
{
public:
    explicit ReceiversOf(QEvent::Type type) : m_type(type) {}
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == m_type)
            receivers.append(watched);
        return false;
    }
    QList<QObject *> receivers;

private:
    QEvent::Type m_type;
};

//! A popup as its constructor leaves it.
struct UnshownPopup
{
    explicit UnshownPopup(int documents = 0, const QRect &frame = QRect(0, 0, 1300, 800)) : browser(documents)
    {
        browser.host.mainWindow().setGeometry(frame);
        create();
    }
    explicit UnshownPopup(const QStringList &names) : browser(names) { create(); }

    FakeBrowser browser;
    QPointer<RecentDocMainWindow> popup;
    QList<RecentDocDialog *> tiles;

private:
    void create()
    {
        browser.createDocument();
        popup = new RecentDocMainWindow(&browser.host.mainWindow());
        tiles = browser.tiles();
    }
};

//! An open popup over a fake host, whose highlight tests can set.
struct OpenGrid
{
    //! \param columns 4 or 2, for a main window that is very narrow, or around 930 pixels wide
    //! \param documentsWithoutTile their pictures are not cached
    explicit OpenGrid(int documents, int columns = 4, const Indices &documentsWithoutTile = {})
        : browser(documents)
    {
        open(columns, documentsWithoutTile);
    }
    //! Lists the paths of these drawings, in this order; one may be listed twice.
    OpenGrid(int documents, const Indices &listed) : browser(documents)
    {
        QStringList recent;
        for (const int index : listed)
            recent.append(browser.path(index));
        browser.host.setRecent(recent);
        open(4, {});
    }

    Indices highlighted() const { return highlightedIn(tiles); }
    //! Highlights only these tiles, and resets the path line.
    void highlight(const Indices &indices)
    {
        for (RecentDocDialog *tile : qAsConst(tiles))
            tile->clearHighlight();
        for (const int index : indices)
            tiles.at(index)->highlight();
        popup->main_label_path->setText(asItWas());
    }
    //! The path line after a tile has been highlighted; for -1, as highlight() leaves it.
    QString lineOf(int tile) const
    {
        return tile < 0 ? asItWas() : shownPath(tiles.at(tile)->path(), popup->width());
    }
    QString line() const { return popup->main_label_path->text(); }
    static QString asItWas() { return QStringLiteral("as it was"); }

    QStringList pathsAt(const Indices &indices) const
    {
        QStringList paths;
        for (const int index : indices)
            paths.append(browser.path(index));
        return paths;
    }
    bool press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        return pressKey(popup, key, modifiers);
    }

    FakeBrowser browser;
    QPointer<RecentDocMainWindow> popup;
    QList<RecentDocDialog *> tiles;

private:
    void open(int columns, const Indices &documentsWithoutTile)
    {
        browser.host.mainWindow().setGeometry(0, 0, columns == 4 ? 585 : 901, 800);
        browser.createDocument();
        if (!documentsWithoutTile.isEmpty()) {
            QMap<QString, QImage> &cache = RecentDocumentBrowser::recentFileImageMap;
            cache.insert(QStringLiteral("/an unlisted one.dwg"), QImage()); // an empty one would be filled
            for (int i = 0; i < browser.paths().size(); ++i) {
                if (!documentsWithoutTile.contains(i))
                    cache.insert(browser.path(i), pictureOf(browser.path(i)));
            }
        }
        popup = browser.openPopup();
        tiles = browser.tiles();
        if (popup->tileColumns != columns)
            qFatal("the popup has %d columns", popup->tileColumns);
    }
};

//! Two popups over the same documents, the newer of which has its tiles listed in the registry.
struct TwoPopups
{
    explicit TwoPopups(int documents) : older(documents)
    {
        QCursor::setPos(older.popup->geometry().center()); // else losing the focus would close it
        newer = older.browser.openPopup();
        newerTiles = older.browser.tiles();
        drainEvents();
    }

    OpenGrid older;
    QPointer<RecentDocMainWindow> newer;
    QList<RecentDocDialog *> newerTiles;
};
