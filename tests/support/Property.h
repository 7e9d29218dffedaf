// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtDebug>

#include <rapidcheck.h>
#include <rapidcheck/detail/TestListenerAdapter.h>

#include <sstream>
#include <string>
#include <utility>

//! Tries a property on random cases within a test function: QVERIFY(holds("what must hold", [] { ... })).
//! The property asserts with RC_ASSERT (QVERIFY would leave the property alone) and takes its cases as
//! arguments or by *rc::gen. Every run tries the same cases, so that a failure on one machine is one on all;
//! RC_PARAMS in the environment changes that ("seed=7 max_success=100000", or the "reproduce=..." that a
//! failure prints).
//! \param text what must hold; also what RC_PARAMS knows the property by, so no two in a program are equal
//! \param cases how many to try, unless RC_PARAMS says otherwise
//! \return false once a case has failed. The smallest such case is in the test's output then.
template<class Testable>
bool holds(const char *text, Testable &&property, int cases = 1000)
{
    using namespace rc::detail;

    Configuration configuration;
    configuration.testParams.seed = 20180917; // any, as long as it is always the same
    configuration.testParams.maxSuccess = cases;
    try {
        configuration = configFromString(qgetenv("RC_PARAMS").toStdString(), configuration);
    } catch (const ConfigurationException &exception) {
        qInfo("RC_PARAMS: %s", exception.what());
        return false;
    }

    const TestMetadata metadata{text, text};
    TestListenerAdapter silent;
    const TestResult result = checkTestable(std::forward<Testable>(property), metadata,
                                            configuration.testParams, silent, configuration.reproduce);

    std::ostringstream told;
    told << text << " (seed " << configuration.testParams.seed << "): ";
    printResultMessage(result, told);
    const bool isGood = result.template is<SuccessResult>();
    if (result.template is<FailureResult>()) {
        configuration.reproduce = {{metadata.id, result.template get<FailureResult>().reproduce}};
        told << "\n\nRC_PARAMS=\"" << configToMinimalString(configuration) << "\" tries this case alone.";
    }
    qInfo("%s", told.str().c_str());
    return isGood;
}
