// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <OdRxObject.h>

#include <QString>

#include <atomic>

namespace fxhost {

//! A request to run a command. Deletes itself when the last reference is released. GUI thread, except for the
//! reference count.
class FXHOST_API CommandRun : public OdRxObject
{
public:
    //! Creates a request with one reference, which the caller owns.
    CommandRun(const QString &name, const QString &argument);
    ~CommandRun() override;

    QString name() const { return m_name; }
    QString argument() const { return m_argument; }
    //! The command's return value; 0 until it has returned.
    int result() const { return m_result; }

    void addRef() override;
    void release() override;
    int numRefs() const override;

private:
    friend class CommandRunner;

    QString m_name;
    QString m_argument;
    int m_result = 0;
    std::atomic<int> m_references{1};
};

} // namespace fxhost
