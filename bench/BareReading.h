// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

//! The picture in a drawing, as little code as can find it: the fewest system calls, no checks, and Qt's
//! decoder for what they read. For drawings that are sound, like the samples. \return null without a picture
QImage readBare(const QString &path);
