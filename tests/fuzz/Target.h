// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <functional>

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

//! The costs of a process's inputs so far.
struct Costs
{
    std::uint64_t executions = 0;
    std::uint64_t slowest = 0; //!< microseconds of this thread's processor time
    //! Bytes, the peak of what an input allocates. 0 without a sanitizer, whose hooks report allocations.
    std::uint64_t largest = 0;
};

//! Runs the work of one input; if it takes too long, a few times, because a busy machine also slows down the
//! processor's caches, while a slow input is slow every time. More than 100 ms or 64 MiB is a finding.
void runWithinLimits(const std::function<void()> &work);

//! Whether a sanitizer allocates the memory.
bool isSanitized();

//! Of this process or, if FUZZ_COSTS names a file, of all processes that share it: three numbers of 64 bits,
//! which outlive a crash.
Costs costs();

} // namespace fuzz
