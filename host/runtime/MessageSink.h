// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QString;

namespace fxhost {

//! Takes a text that the person should read: one or more whole sentences. GUI thread.
using MessageSink = std::function<void(const QString &)>;

} // namespace fxhost
