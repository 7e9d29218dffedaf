// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

namespace fuzz {

//! What the inputs of a process have cost so far.
struct Costs
{
    std::uint64_t executions = 0;
    std::uint64_t slowest = 0; //!< microseconds of this thread's processor time
    //! Bytes, the most that were allocated at a time beyond what was there before the input. 0 without a
    //! sanitizer, which is what tells of allocations.
    std::uint64_t largest = 0;
};

//! Does the work that one input makes, once or, if that took too long, a few times, for a busy machine slows
//! a processor's caches down as well: a slow input is slow every time. An input is a finding if it takes more
//! than 100 ms or 160 MiB.
void runWithinLimits(const std::function<void()> &work);

//! Whether a sanitizer hands out the memory.
bool isSanitized();

//! Of this process and, where FUZZ_COSTS names a file, of all that share it: three numbers of 64 bits, which
//! outlive a crash.
Costs costs();

} // namespace fuzz
