// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

//! What the test program takes of the machine's memory.
namespace memory {

//! Whether the figures mean anything. A sanitizer keeps what is freed, and books of its own.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isMeasurable = false;
#else
constexpr bool isMeasurable = true;
#endif

//! Bytes that the system holds in memory for the program.
qint64 resident();
//! Bytes that are allocated and not freed.
qint64 allocated();

//! How often to do a thing: a tenth of it, or less where nothing is measured, unless LONG_RUN is set,
//! as in the preset `long`.
int rounds(int full);

//! Says a figure, or that there is none. \param what in the test's own words
void tell(const char *what, qint64 bytes);

} // namespace memory
