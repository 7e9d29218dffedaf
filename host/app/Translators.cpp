// SPDX-License-Identifier: MIT
#include "host/app/Translators.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace fxhost {

Translators::Translators()
{
    if (m_qt.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                  QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qt);
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/" FXHOST_TRANSLATIONS);
    // English has a catalogue, too, for the plurals.
    if (m_program.load(QLocale(), QStringLiteral("fxhost"), QStringLiteral("_"), folder) ||
        m_program.load(QStringLiteral("fxhost_en"), folder))
        QCoreApplication::installTranslator(&m_program);
}

} // namespace fxhost
