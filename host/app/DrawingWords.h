// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace fxhost {

class Document;

//! Version, size and date of a drawing in one line, as the window's strip and the status bar show them. For a
//! new drawing: that it is one.
QString factsLine(const Document &document);

} // namespace fxhost
