// SPDX-License-Identifier: MIT
#pragma once

#include <QSemaphore>
#include <QThreadPool>

//! Sets the size of Qt's shared pool, independent of the machine. Its threads are idle at first.
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

//! Qt's shared pool of two threads, both of which wait.
class FullPool
{
public:
    FullPool()
    {
        for (int i = 0; i < threads; ++i) {
            QThreadPool::globalInstance()->start([this] {
                m_started.release();
                m_end.acquire();
            });
        }
        m_started.acquire(threads);
    }
    void release()
    {
        m_end.release(threads);
        QThreadPool::globalInstance()->waitForDone();
    }

private:
    static constexpr int threads = 2;
    const PoolOf m_size{threads};
    QSemaphore m_started;
    QSemaphore m_end;
};
