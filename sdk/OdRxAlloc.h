// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

#include <cstddef>

//! Allocates memory for objects that the engine and a module pass to each other.
//! \param size in bytes
//! \return memory aligned for any type; null if there is not enough memory
FXSDK_API void *odrxAlloc(std::size_t size); // [any-thread]

//! Frees memory allocated by odrxAlloc(). Null is allowed.
FXSDK_API void odrxFree(void *memory); // [any-thread]
