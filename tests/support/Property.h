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
//! The property asserts with RC_ASSERT (QVERIFY would only return from the property) and takes its cases as
//! arguments or by *rc::gen. Every run tries the same cases, so that failures can be reproduced on any
//! machine. RC_PARAMS in the environment changes that ("seed=7 max_success=100000", or the "reproduce=..."
//! that a failure prints).
//! \param text what must hold; also the property's name in RC_PARAMS, so it is unique in a program
//! \param cases how many to try, unless RC_PARAMS specifies otherwise
//! \return false after a case has failed. The output then contains the smallest such case.
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
    TestListenerAdapter listener;
    const TestResult result = checkTestable(std::forward<Testable>(property), metadata,
                                            configuration.testParams, listener, configuration.reproduce);

    std::ostringstream report;
    report << text << " (seed " << configuration.testParams.seed << "): ";
    printResultMessage(result, report);
    const bool isGood = result.template is<SuccessResult>();
    if (result.template is<FailureResult>()) {
        configuration.reproduce = {{metadata.id, result.template get<FailureResult>().reproduce}};
        report << "\n\nRC_PARAMS=\"" << configToMinimalString(configuration) << "\" tries this case alone.";
    }
    qInfo("%s", report.str().c_str());
    return isGood;
}
