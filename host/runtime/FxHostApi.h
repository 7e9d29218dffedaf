// SPDX-License-Identifier: MIT
#pragma once

//! Marks what libfxhost shows beyond the sdk's own classes: to the desktop program and to the tests.
#define FXHOST_API __attribute__((visibility("default")))
