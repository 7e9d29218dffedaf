// SPDX-License-Identifier: MIT
#include "host/app/Translators.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace fxhost {

Translators::Translators()
{
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/" FXHOST_TRANSLATIONS);
    // English has a catalogue, too, for the plurals.
    if (m_program.load(QLocale(), QStringLiteral("fxhost"), QStringLiteral("_"), folder) ||
        m_program.load(QStringLiteral("fxhost_en"), folder))
        QCoreApplication::installTranslator(&m_program);
    // Qt has more languages, and the layout direction of each.
    if (m_qt.load(QStringLiteral("qtbase_") + m_program.language(),
                  QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qt);
}

} // namespace fxhost
