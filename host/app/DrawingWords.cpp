// SPDX-License-Identifier: MIT
#include "host/app/DrawingWords.h"

#include "host/runtime/documents/Document.h"
#include "host/runtime/preview/DrawingHeader.h"

#include <QCoreApplication>
#include <QLocale>

namespace fxhost {

QString factsLine(const DrawingFacts &facts)
{
    if (facts.path.isEmpty())
        return QCoreApplication::translate("DrawingWords", "New drawing");
    const QLocale locale;
    const QStringList words{
        drawingFormatName(facts.version.toLatin1()),
        locale.formattedDataSize(facts.size, 1, QLocale::DataSizeTraditionalFormat),
        locale.toString(facts.modified, QLocale::ShortFormat),
    };
    return words.join(QStringLiteral("   \u00b7   "));
}

} // namespace fxhost
