// SPDX-License-Identifier: MIT
#include "host/app/recent/RecentDrawingsModel.h"

#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/RecentFiles.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QPalette>
#include <QSet>

#include <algorithm>
#include <chrono>

namespace fxhost {

namespace {

constexpr std::chrono::milliseconds retryInterval{1000};
//! The files may be checked twice in a row, when the list changes and when the window becomes active.
constexpr std::chrono::milliseconds responsesGoodFor{200};

//! A name may contain line ends, which would make its row higher.
QString inOneLine(QString name)
{
    const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
    std::replace_if(name.begin(), name.end(), isControl, QLatin1Char(' '));
    return name;
}

} // namespace

RecentDrawingsModel::RecentDrawingsModel(RecentFiles &list, FileProbe &probe, QObject *parent)
    : QAbstractTableModel(parent), m_list(list), m_probe(probe)
{
    m_retry.setInterval(retryInterval);
    connect(&m_retry, &QTimer::timeout, this, [this] {
        QStringList unresponsive;
        for (auto file = m_files.cbegin(); file != m_files.cend(); ++file) {
            if (file->presence == Presence::Unresponsive)
                unresponsive.append(file.key());
        }
        check(unresponsive);
    });
    connect(&list, &RecentFiles::changed, this, &RecentDrawingsModel::reload);
    reload();
}

void RecentDrawingsModel::reload()
{
    QStringList unknown = pathsOf(m_list.entries());
    const auto isKnown = [this](const QString &path) { return m_files.contains(path); };
    unknown.erase(std::remove_if(unknown.begin(), unknown.end(), isKnown), unknown.end());
    beginResetModel();
    m_entries = m_list.entries();
    endResetModel();
    check(unknown);
}

void RecentDrawingsModel::checkFiles()
{
    m_files.clear(); // also of drawings that are no longer listed
    check(pathsOf(m_entries));
}

void RecentDrawingsModel::check(const QStringList &paths)
{
    ProbeWait wait;
    wait.responsesGoodFor = responsesGoodFor;
    const QStringList stuck = m_probe.unresponsive(paths, wait);
    const QSet<QString> unresponsive(stuck.begin(), stuck.end());
    for (const QString &path : paths) {
        File &file = m_files[path];
        file = {};
        if (unresponsive.contains(path)) {
            file.presence = Presence::Unresponsive;
        } else if (!path.contains(QChar::Null)) { // which no file's name contains
            const QFileInfo info(path);
            file.presence = info.exists() ? Presence::Present : Presence::Missing;
            file.modified = info.lastModified();
        }
    }
    const bool isAnyStuck = std::any_of(m_files.cbegin(), m_files.cend(), [](const File &file) {
        return file.presence == Presence::Unresponsive;
    });
    if (isAnyStuck && !m_retry.isActive())
        m_retry.start();
    else if (!isAnyStuck)
        m_retry.stop();
    if (!m_entries.isEmpty())
        emit dataChanged(index(0, Name), index(m_entries.size() - 1, State));
}

int RecentDrawingsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

int RecentDrawingsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : State + 1;
}

QVariant RecentDrawingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Name:
        return tr("Drawing");
    case Folder:
        return tr("Folder");
    case Opened:
        return tr("Last Opened");
    default:
        return tr("State");
    }
}

QVariant RecentDrawingsModel::data(const QModelIndex &index, int role) const
{
    const RecentEntry &entry = m_entries.at(index.row());
    const bool isPresent = m_files.value(entry.path).presence == Presence::Present;
    switch (role) {
    case Qt::DisplayRole:
        return text(entry, index.column());
    case Qt::ToolTipRole: // not taken for markup
        return entry.path.toHtmlEscaped();
    case Qt::ForegroundRole:
        return isPresent ? QVariant() : QGuiApplication::palette().placeholderText();
    default:
        return {};
    }
}

QString RecentDrawingsModel::text(const RecentEntry &entry, int column) const
{
    const int slash = entry.path.lastIndexOf(QLatin1Char('/'));
    switch (column) {
    case Name:
        return inOneLine(entry.path.mid(slash + 1));
    case Folder:
        return inOneLine(entry.path.left(std::max(slash, 1)));
    case Opened:
        return openedText(entry);
    default:
        return stateText(entry);
    }
}

QString RecentDrawingsModel::openedText(const RecentEntry &entry) const
{
    const QLocale locale;
    if (entry.lastOpened.isValid())
        return locale.toString(entry.lastOpened.toLocalTime(), QLocale::ShortFormat);
    const QDateTime modified = m_files.value(entry.path).modified;
    return modified.isValid() ? tr("%1 (file date)").arg(locale.toString(modified, QLocale::ShortFormat))
                              : QString();
}

QString RecentDrawingsModel::stateText(const RecentEntry &entry) const
{
    switch (m_files.value(entry.path).presence) {
    case Presence::Missing:
        return entry.isKept ? tr("Kept, missing") : tr("Missing");
    case Presence::Unresponsive:
        return entry.isKept ? tr("Kept, does not respond") : tr("Does not respond");
    default:
        return entry.isKept ? tr("Kept") : QString();
    }
}

} // namespace fxhost
