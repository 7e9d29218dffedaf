// SPDX-License-Identifier: MIT
//
// A library to preload. Makes a folder unresponsive, like one on a server that is down: calls on files in
// $STUCK_FOLDER do not return while the file $STUCK_SWITCH exists. Replaces a real file system where none can
// be mounted. Also, no more than $STUCK_SPARED_THREADS threads can be started while the file $STUCK_THREADS
// exists. Without these variables nothing changes.
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

//! By the system call, since the functions are replaced below.
bool exists(const char *path)
{
    const int before = errno;
    const bool is = ::syscall(SYS_faccessat, AT_FDCWD, path, F_OK) == 0;
    errno = before;
    return is;
}

void waitWhileStuck(const char *path)
{
    constexpr timespec pause = {0, 2'000'000}; // ns
    // NOLINTBEGIN(concurrency-mt-unsafe): they are set before other threads read them
    const char *const folder = std::getenv("STUCK_FOLDER");
    const char *const lever = std::getenv("STUCK_SWITCH");
    // NOLINTEND(concurrency-mt-unsafe)
    if (!path || !folder || !lever || std::strncmp(path, folder, std::strlen(folder)) != 0)
        return;
    while (exists(lever))
        ::nanosleep(&pause, nullptr);
}

template<class Function>
Function *next(Function * /*ours*/, const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

//! The mode argument of open(), which is passed only if a file may be created.
#define MODE_OF(last, flags, mode)                                                                           \
    std::va_list arguments;                                                                                  \
    va_start(arguments, last);                                                                               \
    const mode_t mode = (flags) & (O_CREAT | O_TMPFILE) ? va_arg(arguments, mode_t) : 0;                     \
    va_end(arguments)

} // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the C library has no such names
extern "C" {

#define STUCK_CALL [[gnu::visibility("default")]] int

STUCK_CALL stat(const char *path, struct stat *status) noexcept
{
    waitWhileStuck(path);
    return next(&stat, "stat")(path, status);
}

STUCK_CALL stat64(const char *path, struct stat64 *status) noexcept
{
    waitWhileStuck(path);
    return next(&stat64, "stat64")(path, status);
}

STUCK_CALL lstat(const char *path, struct stat *status) noexcept
{
    waitWhileStuck(path);
    return next(&lstat, "lstat")(path, status);
}

STUCK_CALL lstat64(const char *path, struct stat64 *status) noexcept
{
    waitWhileStuck(path);
    return next(&lstat64, "lstat64")(path, status);
}

STUCK_CALL statx(int folder, const char *path, int flags, unsigned mask, struct statx *status) noexcept
{
    waitWhileStuck(path);
    return next(&statx, "statx")(folder, path, flags, mask, status);
}

STUCK_CALL access(const char *path, int mode) noexcept
{
    waitWhileStuck(path);
    return next(&access, "access")(path, mode);
}

STUCK_CALL open(const char *path, int flags, ...)
{
    MODE_OF(flags, flags, mode);
    waitWhileStuck(path);
    return next(&open, "open")(path, flags, mode);
}

STUCK_CALL open64(const char *path, int flags, ...)
{
    MODE_OF(flags, flags, mode);
    waitWhileStuck(path);
    return next(&open64, "open64")(path, flags, mode);
}

[[gnu::visibility("default")]] DIR *opendir(const char *path)
{
    waitWhileStuck(path);
    return next(&opendir, "opendir")(path);
}

STUCK_CALL openat(int folder, const char *path, int flags, ...)
{
    MODE_OF(flags, flags, mode);
    waitWhileStuck(path);
    return next(&openat, "openat")(folder, path, flags, mode);
}

STUCK_CALL pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*start)(void *),
                          void *argument) noexcept
{
    const char *const lever = std::getenv("STUCK_THREADS");         // NOLINT(concurrency-mt-unsafe): as above
    const char *const spared = std::getenv("STUCK_SPARED_THREADS"); // NOLINT(concurrency-mt-unsafe): as above
    static std::atomic<long> started{0};
    if (lever && exists(lever) && started >= (spared ? std::strtol(spared, nullptr, 10) : 0))
        return EAGAIN;
    ++started;
    return next(&pthread_create, "pthread_create")(thread, attributes, start, argument);
}

} // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
