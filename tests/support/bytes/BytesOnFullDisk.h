// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <csignal>

#include <sys/resource.h>

//! While it exists, this process can write only the first so many bytes of any file, as on a disk that
//! becomes full.
class BytesOnFullDisk
{
public:
    explicit BytesOnFullDisk(rlim_t bytes) : m_usualHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_usual);
        const rlimit less = {bytes, m_usual.rlim_max};
        if (::setrlimit(RLIMIT_FSIZE, &less) != 0)
            qFatal("cannot limit the size of files");
    }
    ~BytesOnFullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_usual);
        std::signal(SIGXFSZ, m_usualHandler);
    }
    Q_DISABLE_COPY(BytesOnFullDisk)

private:
    void (*m_usualHandler)(int);
    rlimit m_usual = {};
};
