// SPDX-License-Identifier: MIT
#pragma once

//! Marks the symbols that libfxhost exports in addition to the SDK's, for the desktop program and the tests.
#define FXHOST_API __attribute__((visibility("default")))
