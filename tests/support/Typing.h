// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/Hand.h"
#include "tests/support/PathLine.h"
#include "tests/support/Patience.h"
#include "tests/support/RealBrowser.h"

#include <QDialog>
#include <QKeyEvent>
#include <QPointer>
#include <QtTest>

//! An open popup, and what each key that went through it has left behind.
class Typing : public QObject
{
public:
    Typing(int tileCount, int columns) : browser(tileCount, frameFor(columns))
    {
        Hand::stepAside();
        popup = browser.openPopup();
        if (!popup)
            qFatal("the popup does not become active");
        tiles = RealBrowser::tiles(popup);
        popup->installEventFilter(this);
    }

    //! Types the keys. \return a line for each, once all have come through: the highlighted tiles, and the
    //! one in the path line
    QStringList after(const QStringList &keys)
    {
        m_trail.clear();
        Hand::keys(keys);
        const bool allCame = waitUntil([this, &keys] { return m_trail.size() >= keys.size(); });
        return allCame ? m_trail : m_trail + QStringList(QStringLiteral("no more"));
    }

    RealBrowser browser;
    QPointer<QDialog> popup;
    QList<QDialog *> tiles;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() != QEvent::KeyRelease)
            return false;
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key != Qt::Key_Shift && key != Qt::Key_Control && key != Qt::Key_Alt && key != Qt::Key_Meta)
            m_trail.append(state());
        return false;
    }

private:
    //! A main window that gives the popup so many columns, 4 or 2.
    static QRect frameFor(int columns) { return QRect(40, 60, columns == 4 ? 580 : 950, 700); }

    QString state() const
    {
        const QList<int> highlighted = RealBrowser::highlighted(tiles);
        QStringList numbers;
        for (const int index : highlighted)
            numbers.append(QString::number(index));
        return QStringLiteral("%1: %2").arg(numbers.join(QLatin1Char(' '))).arg(shown());
    }
    int shown() const
    {
        const QString line = RealBrowser::pathLine(popup);
        for (int i = 0; i < tiles.size(); ++i) {
            if (line == shownPath(browser.paths().at(i), popup->width()))
                return i;
        }
        return -1;
    }

    QStringList m_trail;
};
