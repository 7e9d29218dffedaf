// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <OdString.h>

#include <QString>

namespace fxhost {

//! Both keep every character, as CFxString does: names of files may hold half of a surrogate pair.
inline QString fromOdString(const OdString &text)
{
    return CFxString(text.c_str());
}

inline OdString toOdString(const QString &text)
{
    return CFxString(text).c_str();
}

} // namespace fxhost
