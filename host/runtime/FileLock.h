// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QString>

#include <chrono>

namespace fxhost {

//! Keeps other processes that ask for the same lock out for as long as it lives. The system releases
//! the lock when a process ends, however it ends. Any thread.
class FXHOST_API FileLock
{
public:
    //! Waits until the lock is free, but no longer than wait.
    //! \param path a file for nothing but the lock, made when it is missing and never removed
    FileLock(const QString &path, std::chrono::milliseconds wait);
    ~FileLock();

    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    bool isHeld() const { return m_isHeld; }
    //! Whether another process has it, and had it all the time. False also where no lock can be had at all:
    //! the directory may not be written, or its file system knows no locks.
    bool isBusy() const { return m_isBusy; }

private:
    int m_descriptor = -1;
    bool m_isHeld = false;
    bool m_isBusy = false;
};

} // namespace fxhost
