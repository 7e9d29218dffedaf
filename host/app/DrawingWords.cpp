// SPDX-License-Identifier: MIT
#include "host/app/DrawingWords.h"

#include "host/runtime/documents/Document.h"

#include <QCoreApplication>
#include <QLocale>

namespace fxhost {

namespace {

struct DrawingTexts
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::DrawingWords)
};

} // namespace

QString factsLine(const Document &document)
{
    if (document.isNew())
        return DrawingTexts::tr("New drawing");
    const DrawingFile &file = document.file();
    const QLocale locale;
    const QStringList words{
        drawingFormatName(file.version),
        locale.formattedDataSize(file.size, 1, QLocale::DataSizeTraditionalFormat),
        locale.toString(file.modified, QLocale::ShortFormat),
    };
    return words.join(QStringLiteral("   \u00b7   "));
}

} // namespace fxhost
