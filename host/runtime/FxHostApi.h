// SPDX-License-Identifier: MIT
#pragma once

//! Marks the symbols that libfxhost exports in addition to the SDK's, for the desktop program and the tests.
#define FXHOST_API __attribute__((visibility("default")))

namespace sdkhost {
class CommandContext;
class CommandStack;
class Customization;
class Editor;
class Host;
class Module;
} // namespace sdkhost

namespace fxhost {
using namespace sdkhost; // the runtime is built on the classes for hosts
} // namespace fxhost
