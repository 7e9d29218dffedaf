// SPDX-License-Identifier: MIT
#pragma once

//! Marks the symbols that the module exports; the version script exports.map lists the same names.
#define BROWSER_API __attribute__((visibility("default")))
