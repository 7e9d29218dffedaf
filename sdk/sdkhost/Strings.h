// SPDX-License-Identifier: MIT
#pragma once

#include <CFxString.h>
#include <OdString.h>

#include <QString>

namespace sdkhost {

// Both conversions are lossless, as CFxString's are: file names may contain unpaired surrogates.
inline QString fromOdString(const OdString &text)
{
    return CFxString(text.c_str());
}

inline OdString toOdString(const QString &text)
{
    return CFxString(text).c_str();
}

} // namespace sdkhost
