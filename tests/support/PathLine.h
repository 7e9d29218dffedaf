// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QString>

//! What the path line of a popup of that width, in pixels, shows of a path.
inline QString shownPath(const QString &path, int popupWidth)
{
    if (QFontMetrics(QFont()).horizontalAdvance(path) <= popupWidth)
        return path;
    return path.left(97).leftJustified(100, QLatin1Char('.'));
}
