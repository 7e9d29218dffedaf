// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QString>

//! The text of the path line for a path, in a popup of that width in pixels.
inline QString shownPath(const QString &path, int popupWidth)
{
    if (QFontMetrics(QFont()).horizontalAdvance(path) <= popupWidth)
        return path;
    return path.left(97).leftJustified(100, QLatin1Char('.'));
}
