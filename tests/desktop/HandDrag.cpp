// SPDX-License-Identifier: MIT
#include "tests/desktop/HandDrag.h"

#include "tests/desktop/Hand.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QCursor>
#include <QDrag>
#include <QWidget>
#include <QWindow>

#include <cmath>

namespace {

//! Between two checks of a step's outcome, in milliseconds.
constexpr int interval = 2;

//! The window of a drag's picture, which Qt moves with the drag; null without a drag.
QWindow *dragWindow()
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow *window : windows) {
        if (window->isVisible() && qstrcmp(window->metaObject()->className(), "QShapedPixmapWindow") == 0)
            return window;
    }
    return nullptr;
}

} // namespace

HandDrag::HandDrag()
{
    connect(&m_timer, &QTimer::timeout, this, &HandDrag::goOn);
}

void HandDrag::step(const QString &what, std::function<void()> action, std::function<bool()> outcome)
{
    m_steps.push_back({what, std::move(action), std::move(outcome)});
}

void HandDrag::waitFor(const QString &what, std::function<bool()> outcome)
{
    step(
        what, [] {}, std::move(outcome));
}

void HandDrag::justDo(std::function<void()> action)
{
    step(QString(), std::move(action), [] { return true; });
}

void HandDrag::takeHold(QWidget *widget, const QPoint &local)
{
    m_held = widget;
    m_place = widget->mapToGlobal(local);
    const QPoint place = m_place;
    step(
        "the pointer enters the widget", [place] { Hand::moveTo(place); },
        [widget = m_held] { return widget && widget->underMouse(); });
    step(
        "the button is pressed", [] { Hand::press(); },
        [] { return QApplication::mouseButtons() == Qt::LeftButton; });
}

void HandDrag::startDrag()
{
    m_place += QPoint(QApplication::startDragDistance(), 0);
    step(
        "a drag begins", [place = m_place] { Hand::moveTo(place); },
        [this, place = m_place] {
            if (isDragging())
                m_hotSpot = place - dragWindow()->position();
            return isDragging();
        });
}

void HandDrag::carryTo(const QPoint &place)
{
    const QPoint start = m_place;
    const QPoint way = place - start;
    const int strides = qMax(1, int(std::ceil(std::hypot(way.x(), way.y()) / stride)));
    for (int i = 1; i <= strides; ++i)
        jumpTo(start + way * (double(i) / strides));
}

void HandDrag::jumpTo(const QPoint &place)
{
    m_place = place;
    step(
        QString("the drag follows to %1, %2").arg(place.x()).arg(place.y()), [place] { Hand::moveTo(place); },
        [this, place] {
            const QWindow *window = dragWindow();
            return window ? window->position() + m_hotSpot == place : QCursor::pos() == place;
        });
}

void HandDrag::letGo()
{
    step(
        "the drag ends after the release", [] { Hand::release(); }, [] { return !isDragging(); });
}

void HandDrag::escape()
{
    step(
        "the drag ends with Escape", [] { Hand::key("Escape"); }, [] { return !isDragging(); });
    justDo([] { Hand::release(); });
}

QString HandDrag::run()
{
    m_failure.clear();
    m_hasBegun = false;
    m_timer.start(interval);
    m_loop.exec(); // returns after the drag's own loop
    m_timer.stop();
    return m_failure;
}

void HandDrag::goOn()
{
    if (m_steps.empty()) {
        m_timer.stop();
        m_loop.quit();
        return;
    }
    if (!m_hasBegun) {
        m_hasBegun = true;
        m_sinceStep.start();
        m_steps.front().action();
        return; // the events that it caused are handled first
    }
    if (m_steps.front().outcome()) {
        m_hasBegun = false;
        m_steps.pop_front();
    } else if (m_sinceStep.hasExpired(patience)) {
        m_failure = "did not happen: " + m_steps.front().what;
        m_steps.clear();
        m_hasBegun = false;
        QDrag::cancel();
        Hand::release();
    }
}

bool HandDrag::isDragging()
{
    return dragWindow() != nullptr;
}

int HandDrag::keptDrags()
{
    return qApp->findChildren<QDrag *>(QString(), Qt::FindDirectChildrenOnly).size();
}

QPoint HandDrag::pictureAt()
{
    const QWindow *window = dragWindow();
    return window ? window->position() : QPoint();
}
