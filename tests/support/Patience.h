// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

#include <utility>

//! How long tests wait for an outcome, in milliseconds. The limit only ends tests that hang:
//! far more than anything takes on a machine that is twenty times as busy as usual.
constexpr int patience = 60000;

//! \return whether condition became true; events are processed until then
template<class Condition>
[[nodiscard]] bool waitUntil(Condition &&condition)
{
    return QTest::qWaitFor(std::forward<Condition>(condition), patience);
}

//! \return whether the window is active
[[nodiscard]] inline bool waitForActive(QWidget *window)
{
    return QTest::qWaitForWindowActive(window, patience);
}

//! \return whether the window is on screen
[[nodiscard]] inline bool waitForExposed(QWidget *window)
{
    return QTest::qWaitForWindowExposed(window, patience);
}

// Qt Test's own macros time out after five seconds.
#undef QTRY_VERIFY
#undef QTRY_VERIFY2
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, patience)
#define QTRY_VERIFY2(condition, message) QTRY_VERIFY2_WITH_TIMEOUT(condition, message, patience)
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, patience)
