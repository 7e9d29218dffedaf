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

} // namespace

// NOLINTBEGIN(bugprone-macro-parentheses, readability-inconsistent-declaration-parameter-name): the macros'
// arguments are parts of declarations, and the C library has no such names
extern "C" {

#define REPLACEMENT [[gnu::visibility("default")]]

#define STUCK_CALL(result, name, parameters, arguments)                                                      \
    REPLACEMENT result name parameters                                                                       \
    {                                                                                                        \
        waitWhileStuck(path);                                                                                \
        return next(&name, #name) arguments;                                                                 \
    }                                                                                                        \
    static_assert(true, "requires a semicolon")

STUCK_CALL(int, stat, (const char *path, struct stat *status) noexcept, (path, status));
STUCK_CALL(int, stat64, (const char *path, struct stat64 *status) noexcept, (path, status));
STUCK_CALL(int, lstat, (const char *path, struct stat *status) noexcept, (path, status));
STUCK_CALL(int, lstat64, (const char *path, struct stat64 *status) noexcept, (path, status));
STUCK_CALL(int, statx,
           (int folder, const char *path, int flags, unsigned mask, struct statx *status) noexcept,
           (folder, path, flags, mask, status));
STUCK_CALL(int, access, (const char *path, int mode) noexcept, (path, mode));
STUCK_CALL(DIR *, opendir, (const char *path), (path));

//! The mode is passed only if a file may be created.
#define STUCK_OPEN(name, parameters, ...)                                                                    \
    REPLACEMENT int name parameters                                                                          \
    {                                                                                                        \
        std::va_list arguments;                                                                              \
        va_start(arguments, flags);                                                                          \
        const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(arguments, mode_t) : 0;                   \
        va_end(arguments);                                                                                   \
        waitWhileStuck(path);                                                                                \
        return next(&name, #name)(__VA_ARGS__, flags, mode);                                                 \
    }                                                                                                        \
    static_assert(true, "requires a semicolon")

STUCK_OPEN(open, (const char *path, int flags, ...), path);
STUCK_OPEN(open64, (const char *path, int flags, ...), path);
STUCK_OPEN(openat, (int folder, const char *path, int flags, ...), folder, path);

REPLACEMENT int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*start)(void *),
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
// NOLINTEND(bugprone-macro-parentheses, readability-inconsistent-declaration-parameter-name)
