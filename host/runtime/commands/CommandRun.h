// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <OdRxObject.h>

#include <QString>

#include <atomic>

namespace fxhost {

//! One request to run a command, from the asking to the end. Deletes itself with its last reference. GUI
//! thread, but for the counting.
class FXHOST_API CommandRun : public OdRxObject
{
public:
    //! Has one reference, the caller's.
    CommandRun(const QString &name, const QString &argument);
    ~CommandRun() override;

    QString name() const { return m_name; }
    QString argument() const { return m_argument; }
    //! What the command returned; 0 before it has.
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
