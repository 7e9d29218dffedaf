// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QString>

#include <chrono>

namespace fxhost {

//! A lock between processes, held while the object exists. The system releases it when the process ends, even
//! if it crashes. Any thread.
class FXHOST_API FileLock
{
public:
    //! Waits until the lock is free, but no longer than wait.
    //! \param path a file that is only used for the lock; created if it is missing, never removed
    FileLock(const QString &path, std::chrono::milliseconds wait);
    ~FileLock();

    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    bool isHeld() const { return m_isHeld; }
    //! True if another process held the lock during the whole wait. False if locking is impossible: the
    //! directory is not writable, or its file system does not support locks.
    bool isBusy() const { return m_isBusy; }

private:
    int m_descriptor = -1;
    bool m_isHeld = false;
    bool m_isBusy = false;
};

} // namespace fxhost
