// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QString;

namespace fxhost {

//! Takes a text for the user to read: one or more whole sentences. GUI thread.
using MessageSink = std::function<void(const QString &)>;

} // namespace fxhost
