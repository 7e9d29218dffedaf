// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

// Every fuzz target defines this. Clang's engine calls it, or Replay.cpp.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
// A target may define this: changes an input in place, with more success than random changes.
// \param size used bytes of data, of maxSize \return the new size
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed);
// The engine's own change, for use by the function above.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maxSize);

namespace fuzz {

//! Makes the input a finding unless the condition holds. \param what the condition, in words
void require(bool condition, const char *what);

//! Drops Qt's warnings: those about a broken input are many, and not findings.
void dropWarnings();

//! The input without a copy; valid while data is.
inline QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size));
}

} // namespace fuzz
