// SPDX-License-Identifier: MIT
#include "host/app/LineCompleter.h"

#include "host/runtime/FxHost.h"
#include "host/runtime/Paths.h"
#include "host/runtime/commands/TypedPath.h"
#include "host/runtime/probe/FileProbe.h"

#include <sdkhost/CommandStack.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <filesystem>

namespace fxhost {

namespace {

//! The name with or without the leading underscore, like the typed text.
QString inForm(const QString &name, const QString &begun)
{
    const bool isShort = !begun.startsWith(QLatin1Char('_')) && name.startsWith(QLatin1Char('_'));
    return isShort ? name.mid(1) : name;
}

bool takesPath(const QString &command)
{
    static const QStringList names = {QStringLiteral("OPEN"),       QStringLiteral("RECENTADD"),
                                      QStringLiteral("RECENTKEEP"), QStringLiteral("RECENTREMOVE"),
                                      QStringLiteral("MODULELOAD"), QStringLiteral("SCREENSHOT")};
    return names.contains(inForm(command, QString()), Qt::CaseInsensitive);
}

//! The longest common prefix of words, or typed if that is longer.
//! \param words not empty
QString commonStart(const QStringList &words, const QString &typed)
{
    QString common = words.constFirst();
    for (const QString &word : words) {
        while (!word.startsWith(common))
            common.chop(1);
    }
    if (!common.isEmpty() && common.at(common.size() - 1).isHighSurrogate())
        common.chop(1); // half of a surrogate pair
    return common.size() > typed.size() ? common : typed;
}

} // namespace

Completion LineCompleter::complete(const QString &line) const
{
    static const QRegularExpression parts(QStringLiteral("^(\\s*)(\\S*)(\\s*)(.*)$"),
                                          QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = parts.match(line);
    const QString name = match.captured(2);
    if (match.captured(3).isEmpty())
        return completeName(match.captured(1), name);
    if (takesPath(name))
        return completePath(line.left(match.capturedStart(4)), match.captured(4));
    return {line, {}};
}

Completion LineCompleter::completeName(const QString &before, const QString &typed) const
{
    QStringList candidates;
    const QStringList names = m_host.commandStack().names();
    for (const QString &name : names) {
        const QString candidate = inForm(name, typed);
        if (candidate.startsWith(typed, Qt::CaseInsensitive))
            candidates.append(candidate);
    }
    if (candidates.isEmpty())
        return {before + typed, {}};
    if (candidates.size() == 1)
        return {before + candidates.constFirst() + QLatin1Char(' '), candidates};
    return {before + commonStart(candidates, typed), candidates};
}

Completion LineCompleter::completePath(const QString &before, const QString &typed) const
{
    const bool isQuoted = typed.startsWith(QLatin1Char('"')) || typed.startsWith(QLatin1Char('\''));
    QString quote = isQuoted ? QString(typed.at(0)) : QString();
    const QString path = typed.mid(quote.size());
    const int end = path.lastIndexOf(QLatin1Char('/')) + 1;
    const QString folder = path.left(end);
    const QString begun = path.mid(end);
    const QStringList candidates = namesIn(typedPath(folder, m_host.fileProbe()), begun);
    if (candidates.isEmpty())
        return {before + typed, {}};

    const QString name = commonStart(candidates, begun);
    const QString completed = folder + name;
    if (completed.contains(QLatin1Char(' ')) && !isQuoted)
        quote = QLatin1Char('"');
    const bool isWhole = candidates.size() == 1 && !name.endsWith(QLatin1Char('/'));
    return {before + quote + completed + (isWhole ? quote : QString()), candidates};
}

//! \param folder empty for the working directory
//! \return the sorted names that start with beginning, those of folders with a trailing slash. Hidden names
//! only if beginning starts with a dot
QStringList LineCompleter::namesIn(const QString &folder, const QString &beginning) const
{
    namespace fs = std::filesystem;
    const QString fullPath = folder.isEmpty() ? QDir::currentPath() : absolutePath(folder);
    FileProbe &probe = m_host.fileProbe();
    if (!probe.unresponsive({fullPath}).isEmpty()) {
        m_host.showMessage(tr("The folder %1 does not respond.").arg(fullPath));
        return {};
    }
    // Not QDir, which accesses the target of each link: it may be unresponsive. This iterator detects folders
    // and links from the directory entries alone.
    QStringList names;
    QStringList links;
    std::error_code error;
    fs::directory_iterator entry(fs::path(pathBytes(fullPath).toStdString()), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const QString name = pathFromBytes(QByteArray::fromStdString(entry->path().filename().native()));
        const bool isHidden = name.startsWith(QLatin1Char('.')) && !beginning.startsWith(QLatin1Char('.'));
        if (isHidden || !name.startsWith(beginning))
            continue;
        std::error_code unknown;
        if (entry->is_symlink(unknown))
            links.append(name);
        else
            names.append(entry->is_directory(unknown) ? name + QLatin1Char('/') : name);
    }
    const QDir dir(fullPath);
    QStringList linkPaths;
    for (const QString &link : qAsConst(links))
        linkPaths.append(dir.filePath(link));
    const QStringList unresponsive = probe.unresponsive(linkPaths);
    for (int i = 0; i < links.size(); ++i) {
        const bool isFolder = !unresponsive.contains(linkPaths.at(i)) && QFileInfo(linkPaths.at(i)).isDir();
        names.append(isFolder ? links.at(i) + QLatin1Char('/') : links.at(i));
    }
    names.sort();
    return names;
}

} // namespace fxhost
