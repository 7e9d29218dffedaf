// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

namespace fuzz {

//! The costs of a process's inputs so far.
struct Costs
{
    std::uint64_t executions = 0;
    std::uint64_t slowest = 0; //!< microseconds of this thread's processor time
    //! Bytes, the peak of what an input allocates. 0 without a sanitizer, whose hooks report allocations.
    std::uint64_t largest = 0;
};

//! Runs the work of one input; if it takes too long, a few times, because a busy machine also slows down the
//! processor's caches, while a slow input is slow every time. More than 100 ms or 160 MiB is a finding.
void runWithinLimits(const std::function<void()> &work);

//! Whether a sanitizer allocates the memory.
bool isSanitized();

//! Of this process or, if FUZZ_COSTS names a file, of all processes that share it: three numbers of 64 bits,
//! which outlive a crash.
Costs costs();

} // namespace fuzz
