// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/Patience.h"
#include "tests/support/TestProgram.h"

#include <QObject>
#include <QStringList>
#include <QtTest>

//! Base of the tests: a test function that makes Qt warn fails, unless the warning is in the short list of
//! what is let through or the function expected it. A test that has init() or cleanup() of its own calls
//! these.
class TestCase : public QObject
{
    Q_OBJECT
public:
    TestCase();
    ~TestCase() override;

    //! Lets warnings that contain text pass until the running test function ends.
    void allowWarning(const QString &text);

protected slots:
    void init();
    void cleanup();
};

//! Delivers everything that is queued, deferred deletion included, until nothing is left: what has not
//! happened then will not happen by itself.
void drainEvents();
