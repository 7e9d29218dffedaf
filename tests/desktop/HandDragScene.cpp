// SPDX-License-Identifier: MIT
#include "tests/desktop/HandDragScene.h"

#include "tests/desktop/Hand.h"

#include <QtTest>

namespace {

constexpr int stripHeight = 32;
//! Pixels from the edge where the pointer counts as outside and the popup still gets its moves.
constexpr int rimMiddle = 5;

} // namespace

HandDragScene::HandDragScene(const QStringList &names) : browser(names)
{
    openPopup();
}

HandDragScene::HandDragScene(int documents) : browser(documents)
{
    openPopup();
}

void HandDragScene::openPopup()
{
    Hand::stepAside(); // before the popup opens
    popup = browser.openPopup();
    if (!popup)
        qFatal("no popup opened");
    tiles.clear();
    const QList<QDialog *> found = RealBrowser::tiles(popup);
    for (QDialog *tile : found)
        tiles.append(tile);
    place = popup->geometry();
    strip = QRect(place.topLeft(), QSize(place.width(), stripHeight));
    outside = place.bottomLeft() + QPoint(60, 80);
}

bool HandDragScene::isStrip() const
{
    return popup && Hand::realGeometry(popup->winId()) == strip;
}

bool HandDragScene::isFull() const
{
    return popup && Hand::realGeometry(popup->winId()) == place;
}

QList<int> HandDragScene::shown() const
{
    QList<int> indices;
    for (int i = 0; i < tiles.size(); ++i) {
        if (tiles.at(i) && tiles.at(i)->isVisible())
            indices.append(i);
    }
    return indices;
}

QString HandDragScene::whatHasChanged() const
{
    if (!popup || !popup->isVisible())
        return "the popup is closed";
    if (!isFull())
        return "the popup has another size or position";
    if (shown().size() != tiles.size())
        return QString("of %1 tiles %2 are shown").arg(tiles.size()).arg(shown().size());
    return opened().join(", ");
}

void HandDragScene::dragTile(int index)
{
    hand.takeHold(tiles.at(index), tiles.at(index)->rect().center());
    hand.startDrag();
}

void HandDragScene::carryOut()
{
    hand.carryTo(QPoint(outside.x(), place.bottom() - rimMiddle));
    hand.waitFor("the popup is a strip", [this] { return isStrip(); });
    hand.jumpTo(outside);
}

void HandDragScene::carryBackIn()
{
    hand.carryTo(strip.center());
    hand.waitFor("the popup has its full size", [this] { return isFull(); });
}

QString HandDragScene::drop()
{
    hand.letGo();
    return hand.run();
}

QString HandDragScene::dropOutside(int index)
{
    dragTile(index);
    carryOut();
    return drop();
}
