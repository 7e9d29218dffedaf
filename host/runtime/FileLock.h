// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <QString>

namespace fxhost {

//! Keeps other processes that ask for the same lock out for as long as it lives. The system takes the lock
//! back when a process dies, however it dies. Any thread.
class FXHOST_API FileLock
{
public:
    //! Waits until the lock is free, or patience is over.
    //! \param path a file for nothing but the lock, made when it is missing and never removed
    //! \param patience in milliseconds
    FileLock(const QString &path, int patience);
    ~FileLock();

    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    bool isHeld() const { return m_isHeld; }
    //! Whether somebody else has it, and had it all the time. False also where no lock can be had at all: the
    //! directory may not be written, or its file system knows no locks.
    bool isBusy() const { return m_isBusy; }

private:
    int m_descriptor = -1;
    bool m_isHeld = false;
    bool m_isBusy = false;
};

} // namespace fxhost
