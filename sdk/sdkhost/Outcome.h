// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

#include <exception>

namespace sdkhost {

//! The result of an operation: success, or the reason of the failure. A value type; any thread.
class Outcome
{
    Q_DECLARE_TR_FUNCTIONS(sdkhost::Outcome)
public:
    //! Success.
    Outcome() = default;

    //! \param reason for the user, in whole sentences
    static Outcome failed(const QString &reason)
    {
        Outcome outcome;
        outcome.m_isDone = false;
        outcome.m_reason = reason;
        return outcome;
    }

    //! Calls a function that may throw, for example one of a module. The exception is destroyed on return,
    //! because its class may be unloaded with the module.
    //! \return success, or the exception's text as the reason
    template<class Call>
    static Outcome of(Call &&call)
    {
        try {
            call();
            return {};
        } catch (const std::exception &error) {
            const QString what = QString::fromLocal8Bit(error.what());
            return failed(what.isEmpty() ? tr("an exception without a text") : what);
        } catch (...) {
            return failed(tr("unknown exception"));
        }
    }

    explicit operator bool() const { return m_isDone; }
    //! Empty on success.
    const QString &reason() const { return m_reason; }

private:
    bool m_isDone = true;
    QString m_reason;
};

} // namespace sdkhost
