// SPDX-License-Identifier: MIT
// Reports to the thread sanitizer in which order Qt executes code of several threads. Qt's libraries are not
// built with the sanitizer, and they synchronize threads by system calls that it does not know: without this
// file everything that one thread passes to another through Qt would be reported as a race. The functions
// below replace Qt's functions of the same names, call those, and report what they order; nothing else is
// reported, so a race in our own code remains one.
#include <QBasicMutex>
#include <QMutex>
#include <QRunnable>
#include <QSemaphore>
#include <QThreadPool>
#include <QtConcurrentMap>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

#include <functional>
#include <memory>
#include <utility>

static_assert(QT_VERSION_MAJOR == 5 && QT_VERSION_MINOR == 15,
              "replaces functions of Qt 5.15 by their names");

namespace {

//! Qt's own function.
template<class Function>
Function real(const char *mangledName)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, mangledName));
}

//! What pooled threads have done: visible to a thread that waits for all of a pool or of a parallel loop.
char endOfWork;

//! Runs a pool's task, which sees what the caller of start() had done before.
class Ordered : public QRunnable
{
public:
    explicit Ordered(QRunnable *inner) : m_inner(inner), m_deletesInner(inner->autoDelete())
    {
        __tsan_release(this);
    }
    void run() override
    {
        __tsan_acquire(this);
        m_inner->run(); // may delete itself, if it is not to be deleted here
        if (m_deletesInner)
            delete m_inner;
        __tsan_release(&endOfWork);
    }

private:
    QRunnable *m_inner;
    bool m_deletesInner;
};

} // namespace

void QMutex::lock() noexcept
{
    static const auto function = real<void (*)(QMutex *)>("_ZN6QMutex4lockEv");
    function(this);
    __tsan_acquire(this);
}

bool QMutex::tryLock(int timeout) noexcept
{
    static const auto function = real<bool (*)(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    const bool isLocked = function(this, timeout);
    if (isLocked)
        __tsan_acquire(this);
    return isLocked;
}

void QMutex::unlock() noexcept
{
    static const auto function = real<void (*)(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    function(this);
}

void QSemaphore::acquire(int count)
{
    static const auto function = real<void (*)(QSemaphore *, int)>("_ZN10QSemaphore7acquireEi");
    function(this, count);
    __tsan_acquire(this);
}

bool QSemaphore::tryAcquire(int count, int timeout)
{
    static const auto function = real<bool (*)(QSemaphore *, int, int)>("_ZN10QSemaphore10tryAcquireEii");
    const bool isAcquired = function(this, count, timeout);
    if (isAcquired)
        __tsan_acquire(this);
    return isAcquired;
}

void QSemaphore::release(int count)
{
    static const auto function = real<void (*)(QSemaphore *, int)>("_ZN10QSemaphore7releaseEi");
    __tsan_release(this);
    function(this, count);
}

void QThreadPool::start(QRunnable *runnable, int priority)
{
    static const auto function =
        real<void (*)(QThreadPool *, QRunnable *, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    function(this, new Ordered(runnable), priority);
}

void QThreadPool::start(std::function<void()> task, int priority)
{
    start(QRunnable::create(std::move(task)), priority);
}

bool QThreadPool::tryStart(QRunnable *runnable)
{
    static const auto function =
        real<bool (*)(QThreadPool *, QRunnable *)>("_ZN11QThreadPool8tryStartEP9QRunnable");
    auto ordered = std::make_unique<Ordered>(runnable);
    const bool isStarted = function(this, ordered.get());
    if (isStarted)
        static_cast<void>(ordered.release()); // the pool deletes it
    return isStarted;
}

bool QThreadPool::waitForDone(int timeout)
{
    static const auto function = real<bool (*)(QThreadPool *, int)>("_ZN11QThreadPool11waitForDoneEi");
    const bool isDone = function(this, timeout);
    if (isDone)
        __tsan_acquire(&endOfWork);
    return isDone;
}

//! The threads of a parallel loop call this between two pieces of work, and again when none is left.
bool QtConcurrent::ThreadEngineBase::isCanceled()
{
    static const auto function =
        real<bool (*)(ThreadEngineBase *)>("_ZN12QtConcurrent16ThreadEngineBase10isCanceledEv");
    __tsan_release(&endOfWork);
    return function(this);
}

//! The caller of a parallel loop sees what its threads have done.
void QtConcurrent::ThreadEngineBase::startBlocking()
{
    static const auto function =
        real<void (*)(ThreadEngineBase *)>("_ZN12QtConcurrent16ThreadEngineBase13startBlockingEv");
    function(this);
    __tsan_acquire(&endOfWork);
}
