// SPDX-License-Identifier: MIT
#pragma once

#include <OdString.h>

#include <QString>

namespace fxhost {

inline QString fromOdString(const OdString &text)
{
    return QString::fromWCharArray(text.c_str());
}

inline OdString toOdString(const QString &text)
{
    return OdString(text.toStdWString());
}

} // namespace fxhost
