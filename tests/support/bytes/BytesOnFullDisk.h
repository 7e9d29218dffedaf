// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <csignal>

#include <sys/resource.h>

//! As long as it lives, this process can write no more than the first so many bytes of any file: to whoever
//! writes, a disk that becomes full in the middle.
class BytesOnFullDisk
{
public:
    explicit BytesOnFullDisk(rlim_t bytes) : m_usualAnswer(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_usual);
        const rlimit less = {bytes, m_usual.rlim_max};
        if (::setrlimit(RLIMIT_FSIZE, &less) != 0)
            qFatal("cannot limit the size of files");
    }
    ~BytesOnFullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_usual);
        std::signal(SIGXFSZ, m_usualAnswer);
    }
    Q_DISABLE_COPY(BytesOnFullDisk)

private:
    void (*m_usualAnswer)(int);
    rlimit m_usual = {};
};
