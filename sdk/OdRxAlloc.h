// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

#include <cstddef>

//! Memory for objects that cross the border between engine and module.
//! \param size in bytes
//! \return aligned for any type; null when there is none
FXSDK_API void *odrxAlloc(std::size_t size); // [any-thread]

//! Gives memory of odrxAlloc() back. Null is allowed.
FXSDK_API void odrxFree(void *memory); // [any-thread]
