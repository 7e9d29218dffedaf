// SPDX-License-Identifier: MIT
#pragma once

//! Marks what the module shows outside itself; the version script lists the same names.
#define BROWSER_API __attribute__((visibility("default")))
