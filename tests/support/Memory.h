// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

//! How much memory the test program uses.
namespace memory {

//! Whether the figures are meaningful: a sanitizer keeps freed memory, and allocates some for itself.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isMeasurable = false;
#else
constexpr bool isMeasurable = true;
#endif

//! Bytes that the system holds in memory for the program.
qint64 resident();
//! Bytes that are allocated and not freed.
qint64 allocated();

//! How often to repeat an action: a tenth of full, or less where nothing is measured, unless LONG_RUN is set,
//! as in the preset `long`.
int rounds(int full);

//! Prints a figure, or that there is none. \param what describes it
void print(const char *what, qint64 bytes);

} // namespace memory
