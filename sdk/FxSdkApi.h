// SPDX-License-Identifier: MIT
#pragma once

//! Marks what a host's runtime library defines and a module links against. Interfaces carry it too: their
//! destructors are defined in the runtime, so that host and module share one vtable and one type
//! information for each of them.
#define FXSDK_API __attribute__((visibility("default")))
