// SPDX-License-Identifier: MIT
#include "tests/support/DragScene.h"

#include "tests/support/Hand.h"

#include <QtTest>

namespace {

const QRect usualFrame(60, 60, 1300, 900);
//! Where the pointer disturbs nothing: beside every window of these tests.
const QPoint aside(1900, 1190);
constexpr int stripHeight = 32;
//! So many pixels from the edge the popup takes the pointer to be outside, but still hears of it.
constexpr int rimMiddle = 5;

//! Out of the way before the popup comes.
const QRect &frameWithoutPointer()
{
    Hand::moveTo(aside);
    return usualFrame;
}

} // namespace

DragScene::DragScene(int documents) : browser(documents, frameWithoutPointer())
{
    openPopup();
}

DragScene::DragScene(const QStringList &names) : browser(names, frameWithoutPointer())
{
    openPopup();
}

void DragScene::openPopup()
{
    popup = browser.openPopup();
    if (!popup)
        qFatal("no popup came up");
    tiles.clear();
    const QList<QDialog *> found = RealBrowser::tiles(popup);
    for (QDialog *tile : found)
        tiles.append(tile);
    place = popup->geometry();
    strip = QRect(place.topLeft(), QSize(place.width(), stripHeight));
    outside = place.bottomLeft() + QPoint(60, 80);
}

bool DragScene::isStrip() const
{
    return popup && Hand::realGeometry(popup->winId()) == strip;
}

bool DragScene::isFull() const
{
    return popup && Hand::realGeometry(popup->winId()) == place;
}

QList<int> DragScene::shown() const
{
    QList<int> indices;
    for (int i = 0; i < tiles.size(); ++i) {
        if (tiles.at(i) && tiles.at(i)->isVisible())
            indices.append(i);
    }
    return indices;
}

QString DragScene::whatHasChanged() const
{
    if (!popup || !popup->isVisible())
        return QStringLiteral("the popup is gone");
    if (!isFull())
        return QStringLiteral("the popup has another size or place");
    if (shown().size() != tiles.size())
        return QStringLiteral("of %1 tiles %2 are shown").arg(tiles.size()).arg(shown().size());
    if (!opened().isEmpty())
        return opened().join(QLatin1String(", "));
    return QString();
}

QStringList DragScene::opened() const
{
    return browser.log().filter(QStringLiteral("open "));
}

QStringList DragScene::opening(const QList<int> &indices) const
{
    QStringList lines;
    for (const int index : indices)
        lines.append(QStringLiteral("open %1 ok").arg(browser.paths().at(index)));
    return lines;
}

void DragScene::dragTile(int index)
{
    hand.takeHold(tiles.at(index));
    hand.startDrag();
}

void DragScene::carryOut()
{
    hand.carryTo(QPoint(outside.x(), place.bottom() - rimMiddle));
    hand.waitFor(QStringLiteral("the popup is a strip"), [this] { return isStrip(); });
    hand.jumpTo(outside);
}

void DragScene::carryBackIn()
{
    hand.carryTo(strip.center());
    hand.waitFor(QStringLiteral("the popup has its full size"), [this] { return isFull(); });
}
