// SPDX-License-Identifier: MIT
#pragma once

//! Marks symbols that a host's runtime library defines and modules link against. Interfaces are marked too:
//! their destructors are defined in the runtime, so that host and module share one vtable and one type
//! information for each class.
#define FXSDK_API __attribute__((visibility("default")))
