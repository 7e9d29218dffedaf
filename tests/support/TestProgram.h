// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QtTest>

// A program holds several classes of tests and runs the one that its first argument names: test_state
// tst_pinnedorder -vs. What follows the name goes to Qt Test.

using RunTests = int (*)(int argc, char **argv);

//! Adds tests to the program. \param name as in TEST_CLASS. \return true, so that a static constant can call
//! it
bool addTests(const char *name, RunTests run);

//! Runs the class in an application of its own, as QTEST_MAIN does.
template<class Tests, class Application>
int runTests(int argc, char **argv)
{
    Application application(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    Tests tests;
    return QTest::qExec(&tests, argc, argv);
}

//! Adds a class to the program under its name, in which case does not count.
#define TEST_CLASS(Class) static const bool Class##IsAdded = addTests(#Class, runTests<Class, QApplication>)
//! The same for a class that needs no display.
#define CORE_TEST_CLASS(Class)                                                                               \
    static const bool Class##IsAdded = addTests(#Class, runTests<Class, QCoreApplication>)
