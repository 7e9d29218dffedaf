// SPDX-License-Identifier: MIT
#pragma once

#include <sdkhost/MessageSink.h>
#include <sdkhost/Outcome.h>

#include <QCoreApplication>

#include <algorithm>
#include <utility>
#include <vector>

namespace sdkhost {

struct ReactorTexts
{
    Q_DECLARE_TR_FUNCTIONS(sdkhost::ReactorList)
};

//! Reactors in the order in which they were added, without duplicates. Reactors can be added and removed
//! during a notification. If one throws, the exception is reported, and the others are still notified. GUI
//! thread.
template<class Reactor>
class ReactorList
{
public:
    //! \param report receives the reactors' exceptions
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

    //! Notifies all reactors of an event, except those that are added meanwhile or removed before their turn.
    //! \param event a function of Reactor, or of a class derived from it; then only reactors of that class
    //! are notified
    template<class Derived, class... Parameters, class... Arguments>
    void notify(void (Derived::*event)(Parameters...), const Arguments &...arguments) const
    {
        notifyThese(std::vector<Reactor *>(m_reactors), event, arguments...);
    }

    //! The same for some of the reactors.
    //! \param reactors those that are no longer in the list are skipped
    template<class Derived, class... Parameters, class... Arguments>
    void notifyThese(const std::vector<Reactor *> &reactors, void (Derived::*event)(Parameters...),
                     const Arguments &...arguments) const
    {
        for (Reactor *reactor : reactors) {
            if (!contains(reactor))
                continue;
            const Outcome handled = Outcome::of([&] {
                if (auto *derived = dynamic_cast<Derived *>(reactor))
                    (derived->*event)(arguments...);
            });
            if (!handled)
                m_report(ReactorTexts::tr("A module failed during a notification: %1").arg(handled.reason()));
        }
    }

private:
    MessageSink m_report;
    std::vector<Reactor *> m_reactors;
};

} // namespace sdkhost
