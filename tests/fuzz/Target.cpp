// SPDX-License-Identifier: MIT
#include "tests/fuzz/Target.h"

#include <QtGlobal>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

// Defined by sanitizers; null in a program without one.
extern "C" {
using MallocHook = void (*)(const volatile void *, std::size_t);
using FreeHook = void (*)(const volatile void *);
__attribute__((weak)) int __sanitizer_install_malloc_and_free_hooks(MallocHook onMalloc, FreeHook onFree);
__attribute__((weak)) std::size_t __sanitizer_get_allocated_size(const volatile void *memory);
}

namespace fuzz {

namespace {

//! A copy: the engine closes the standard error stream, because of the PNG library's messages.
const int standardError = ::dup(STDERR_FILENO);

constexpr std::uint64_t longest = 100'000;                          // microseconds
constexpr std::int64_t mostMemory = std::int64_t(64) * 1024 * 1024; // bytes
constexpr int attempts = 3;

struct SharedCosts
{
    std::atomic<std::uint64_t> executions{0};
    std::atomic<std::uint64_t> slowest{0};
    std::atomic<std::uint64_t> largest{0};
};
static_assert(sizeof(SharedCosts) == 3 * sizeof(std::uint64_t), "scripts read three numbers");

SharedCosts &sharedCosts()
{
    static SharedCosts own;
    static SharedCosts *const shared = [] {
        const char *const path = std::getenv("FUZZ_COSTS"); // NOLINT(concurrency-mt-unsafe): it is never set
        if (!path)
            return &own;
        const int descriptor = ::open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        require(descriptor >= 0 && ::ftruncate(descriptor, sizeof(SharedCosts)) == 0,
                "the file that FUZZ_COSTS names can be written");
        // A new file contains zeros, the initial values.
        void *const memory =
            ::mmap(nullptr, sizeof(SharedCosts), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
        require(memory != MAP_FAILED, "the file that FUZZ_COSTS names can be mapped");
        ::close(descriptor);
        return static_cast<SharedCosts *>(memory);
    }();
    return *shared;
}

void raise(std::atomic<std::uint64_t> &number, std::uint64_t value)
{
    std::uint64_t former = number.load(std::memory_order_relaxed);
    while (former < value && !number.compare_exchange_weak(former, value, std::memory_order_relaxed)) {}
}

// Of the thread that works; the engine has others.
thread_local bool isWorking = false;
thread_local std::int64_t held = 0; // bytes; negative if older memory is freed
thread_local std::int64_t mostHeld = 0;

void noteMalloc(const volatile void * /*memory*/, std::size_t size)
{
    if (!isWorking)
        return;
    held += static_cast<std::int64_t>(size);
    mostHeld = std::max(mostHeld, held);
    if (held > mostMemory) {
        isWorking = false;                               // the message may allocate
        require(false, "an input takes 64 MiB at most"); // here, so that the stack shows the caller
    }
}

void noteFree(const volatile void *memory)
{
    if (isWorking && memory)
        held -= static_cast<std::int64_t>(__sanitizer_get_allocated_size(memory));
}

[[maybe_unused]] const bool isMemoryWatched =
    isSanitized() && __sanitizer_install_malloc_and_free_hooks(noteMalloc, noteFree) != 0;

std::uint64_t processorTime()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<std::uint64_t>(time.tv_sec) * 1'000'000 +
           static_cast<std::uint64_t>(time.tv_nsec) / 1000;
}

std::uint64_t timeOf(const std::function<void()> &work)
{
    held = mostHeld = 0;
    isWorking = true;
    const std::uint64_t start = processorTime();
    work();
    const std::uint64_t taken = processorTime() - start;
    isWorking = false;
    return taken;
}

} // namespace

void require(bool condition, const char *what)
{
    if (condition)
        return;
    ::dprintf(standardError, "does not hold: %s\n", what);
    std::abort();
}

void dropWarnings()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &) {
        if (type == QtFatalMsg)
            std::abort();
    });
}

void runWithinLimits(const std::function<void()> &work)
{
    std::uint64_t least = timeOf(work);
    for (int attempt = 1; attempt < attempts && least > longest; ++attempt)
        least = std::min(least, timeOf(work));

    SharedCosts &shared = sharedCosts();
    shared.executions.fetch_add(1, std::memory_order_relaxed);
    raise(shared.slowest, least);
    raise(shared.largest, static_cast<std::uint64_t>(std::max<std::int64_t>(mostHeld, 0)));
    require(least <= longest, "an input takes 100 ms at most");
}

bool isSanitized()
{
    return __sanitizer_install_malloc_and_free_hooks != nullptr;
}

Costs costs()
{
    const SharedCosts &shared = sharedCosts();
    return {shared.executions.load(), shared.slowest.load(), shared.largest.load()};
}

} // namespace fuzz
