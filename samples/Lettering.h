// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QString>

namespace fxsamples {

//! The strokes of a line of text: capitals of height 1 that stand on y = 0 and rise to y = -1, starting at
//! x = 0. The alphabet is A to Z, 0 to 9, the space and . , : - + / = Ø ° ×; another character becomes a box,
//! so that it is seen on the drawing.
//!
//! Drawings have always been lettered in strokes. It also makes the pictures the same on every machine, one
//! without a single font installed included.
QPainterPath lettering(const QString &text);

//! How wide lettering(text) is, in heights of a capital.
double letteringWidth(const QString &text);

} // namespace fxsamples
