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
    enum class State {
        Waiting, //!< for the command that is running to end
        Running,
        Ended,   //!< result() says how
        Unknown, //!< there was no such command when its turn came
        Dropped  //!< the host was stopped before its turn came
    };

    //! Has one reference, the caller's.
    CommandRun(const QString &name, const QString &argument);
    ~CommandRun() override;

    QString name() const { return m_name; }
    QString argument() const { return m_argument; }
    State state() const { return m_state; }
    //! What the command returned; 0 before it has.
    int result() const { return m_result; }

    void addRef() override;
    void release() override;
    int numRefs() const override;

private:
    friend class CommandRunner;

    QString m_name;
    QString m_argument;
    State m_state = State::Waiting;
    int m_result = 0;
    std::atomic<int> m_references{1};
};

} // namespace fxhost
