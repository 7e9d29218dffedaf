// SPDX-License-Identifier: MIT
#pragma once

#include <QThreadPool>

//! Gives Qt's shared pool a size that does not depend on the machine. Its threads are idle to begin with.
class PoolOf
{
public:
    explicit PoolOf(int threads) : m_before(QThreadPool::globalInstance()->maxThreadCount())
    {
        QThreadPool::globalInstance()->waitForDone();
        QThreadPool::globalInstance()->setMaxThreadCount(threads);
    }
    ~PoolOf() { QThreadPool::globalInstance()->setMaxThreadCount(m_before); }
    Q_DISABLE_COPY(PoolOf)

private:
    int m_before;
};
