// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>

//! Marks each text that it translates.
class MarkingTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *sourceText, const char * /*disambiguation*/,
                      int /*n*/) const override
    {
        return QStringLiteral("%1/%2").arg(QLatin1String(context), QLatin1String(sourceText));
    }
};
