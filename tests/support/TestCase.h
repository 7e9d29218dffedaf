// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/Patience.h"
#include "tests/support/TestProgram.h"

#include <QObject>
#include <QStringList>
#include <QtTest>

//! Base class of the tests. A test function fails if Qt prints a warning that the function does not expect
//! and that is not in a short list of exceptions. A class with its own init() or cleanup() calls these.
class TestCase : public QObject
{
    Q_OBJECT
public:
    TestCase();
    ~TestCase() override;

    //! Ignores warnings that contain text until the current test function ends.
    void allowWarning(const QString &text);

protected slots:
    void init();
    void cleanup();
};

//! Delivers all queued events, deferred deletion included. What has not happened afterwards does not happen
//! by itself.
void drainEvents();
