// SPDX-License-Identifier: MIT
#pragma once

#include <OdAssert.h>

#include <QByteArray>
#include <QtGlobal>

#include <vector>

//! A failed assertion, as the handler receives it.
struct Assertion
{
    QByteArray expression;
    QByteArray source;
    int line;
};
//! What has failed since the list was cleared.
inline std::vector<Assertion> assertions;

inline void noteAssertion(const char *expression, const char *source, int line)
{
    assertions.push_back({expression, source, line});
}

//! Collects failed assertions while it exists.
class AssertionsAreNoted
{
public:
    AssertionsAreNoted() : m_before(odaSetAssertHandler(noteAssertion)) { assertions.clear(); }
    ~AssertionsAreNoted() { odaSetAssertHandler(m_before); }
    Q_DISABLE_COPY(AssertionsAreNoted)

private:
    OdAssertHandler m_before;
};
