// SPDX-License-Identifier: MIT
#include "host/app/ScreenGrabber.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace fxhost {

namespace {

bool isOnScreen(const QWidget *window)
{
    return window->isVisible() && !window->isMinimized() && window->windowType() != Qt::Desktop;
}

//! Estimates the stacking order, which a program cannot query: a window is above its parent, and the active
//! window is above others of the same level.
bool isBelow(const QWidget *a, const QWidget *b)
{
    const auto rank = [](const QWidget *window) {
        int owners = 0;
        for (const QWidget *owner = window->parentWidget(); owner; owner = owner->parentWidget())
            ++owners;
        return std::make_pair(owners, window->isActiveWindow());
    };
    return rank(a) < rank(b);
}

QImage paintWindows(QWidgetList windows)
{
    std::stable_sort(windows.begin(), windows.end(), isBelow);
    QRect area;
    for (const QWidget *window : qAsConst(windows))
        area |= window->geometry();
    const qreal ratio = windows.constFirst()->devicePixelRatioF();
    QImage image(area.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (QWidget *window : qAsConst(windows))
        painter.drawPixmap(window->geometry().topLeft() - area.topLeft(), window->grab());
    return image;
}

QImage readScreen(const QWidgetList &windows)
{
    QRect area;
    // QWidget keeps a frame that it measured while the window manager was still creating it.
    for (const QWidget *window : windows)
        area |= window->windowHandle()->frameGeometry();
    QScreen *screen = QGuiApplication::primaryScreen();
    area &= screen->virtualGeometry();
    return screen->grabWindow(0, area.x(), area.y(), area.width(), area.height()).toImage();
}

} // namespace

QImage grabWindows()
{
    QWidgetList windows;
    const QWidgetList topLevelWidgets = QApplication::topLevelWidgets();
    for (QWidget *window : topLevelWidgets) {
        if (isOnScreen(window))
            windows.append(window);
    }
    if (windows.isEmpty())
        return {};

    // On other platforms, reading the screen returns nothing, or one window's content for the whole area.
    QImage picture;
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        picture = readScreen(windows);
    return picture.isNull() ? paintWindows(windows) : picture;
}

} // namespace fxhost
