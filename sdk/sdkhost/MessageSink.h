// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QString;

namespace sdkhost {

//! Receives a text for the user: one or more whole sentences. GUI thread.
using MessageSink = std::function<void(const QString &)>;

} // namespace sdkhost
