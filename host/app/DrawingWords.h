// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace fxhost {

class Document;

//! Version, size and date of a drawing in one line, for the window's strip and the status bar. For a new
//! drawing, a text that says so.
QString factsLine(const Document &document);

} // namespace fxhost
