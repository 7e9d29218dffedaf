// SPDX-License-Identifier: MIT
#include "host/app/HelpPage.h"

#include <QFile>
#include <QStringList>

namespace fxhost {

QString helpPage(const QString &folder, int topic, const QStringList &languages)
{
    const QString name = QStringLiteral("/%1.html").arg(topic);
    for (const QString &language : languages) {
        const QString code = language.section(QLatin1Char('-'), 0, 0); // pages differ by language only
        if (code == QLatin1String("en"))
            break; // the user prefers English to the languages that follow
        const QString page = folder + QLatin1Char('/') + code + name;
        if (QFile::exists(page))
            return page;
    }
    return QFile::exists(folder + name) ? folder + name : QString();
}

} // namespace fxhost
