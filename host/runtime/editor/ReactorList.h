// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/MessageSink.h"

#include <QString>

#include <algorithm>
#include <exception>
#include <utility>
#include <vector>

namespace fxhost {

//! Reactors in the order in which they were added, none twice. They may come and go while they are told of an
//! event, and may throw: a module's fault is reported and the others are told all the same. GUI thread.
template<class Reactor>
class ReactorList
{
public:
    //! \param report hears what reactors throw
    explicit ReactorList(MessageSink report) : m_report(std::move(report)) {}

    //! \param reactor not null, not owned
    void add(Reactor *reactor)
    {
        if (!contains(reactor))
            m_reactors.push_back(reactor);
    }

    void remove(Reactor *reactor)
    {
        m_reactors.erase(std::remove(m_reactors.begin(), m_reactors.end(), reactor), m_reactors.end());
    }

    bool contains(const Reactor *reactor) const
    {
        return std::find(m_reactors.begin(), m_reactors.end(), reactor) != m_reactors.end();
    }

    const std::vector<Reactor *> &all() const { return m_reactors; }

    //! Tells every reactor of an event. One that is added meanwhile does not hear of it, nor does one that is
    //! removed before its turn.
    //! \param event a handler of Reactor, or of a class derived from it: then only such reactors are told
    template<class Derived, class... Parameters, class... Arguments>
    void notify(void (Derived::*event)(Parameters...), const Arguments &...arguments) const
    {
        notifyThese(std::vector<Reactor *>(m_reactors), event, arguments...);
    }

    //! The same for some of the reactors.
    //! \param reactors those that are not listed any more are passed over
    template<class Derived, class... Parameters, class... Arguments>
    void notifyThese(const std::vector<Reactor *> &reactors, void (Derived::*event)(Parameters...),
                     const Arguments &...arguments) const
    {
        for (Reactor *reactor : reactors) {
            if (!contains(reactor))
                continue;
            try {
                if (auto *derived = dynamic_cast<Derived *>(reactor))
                    (derived->*event)(arguments...);
            } catch (const std::exception &error) {
                m_report(QStringLiteral("A module failed while it was told of an event: %1")
                             .arg(QString::fromLocal8Bit(error.what())));
            } catch (...) {
                m_report(QStringLiteral("A module failed while it was told of an event."));
            }
        }
    }

private:
    MessageSink m_report;
    std::vector<Reactor *> m_reactors;
};

} // namespace fxhost
