// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <exception>

namespace fxhost {

//! Whether something was done, or else why not. Any thread.
class Outcome
{
public:
    //! It was done.
    Outcome() = default;

    //! \param reason for the user, in whole sentences
    static Outcome failed(const QString &reason)
    {
        Outcome outcome;
        outcome.m_isDone = false;
        outcome.m_reason = reason;
        return outcome;
    }

    //! Calls a module, which may throw. The exception itself is gone on return, since its code goes with the
    //! module. \return the exception's own words as the reason
    template<class Call>
    static Outcome of(Call &&call)
    {
        try {
            call();
            return {};
        } catch (const std::exception &error) {
            const QString what = QString::fromLocal8Bit(error.what());
            return failed(what.isEmpty() ? QStringLiteral("std::exception") : what);
        } catch (...) {
            return failed(QStringLiteral("unknown exception"));
        }
    }

    explicit operator bool() const { return m_isDone; }
    //! Empty when it was done.
    const QString &reason() const { return m_reason; }

private:
    bool m_isDone = true;
    QString m_reason;
};

} // namespace fxhost
