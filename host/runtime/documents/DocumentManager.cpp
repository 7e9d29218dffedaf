// SPDX-License-Identifier: MIT
#include "host/runtime/documents/DocumentManager.h"

#include "host/runtime/Paths.h"
#include "host/runtime/log/HostLog.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/RecentFiles.h"

#include <sdkhost/GuiThread.h>
#include <sdkhost/Host.h>
#include <sdkhost/Strings.h>

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace fxhost {

namespace {

using Reactor = CFxDocumentManagerReactor;

//! For drawings that the user opens: a sleeping disk or a distant server may take seconds.
constexpr ProbeWait openWait{std::chrono::seconds(3), std::chrono::milliseconds(0)};

} // namespace

DocumentManager::DocumentManager(Host &host, RecentFiles &recentFiles, FileProbe &probe, HostLog &log,
                                 MessageSink report, QObject *parent)
    : QObject(parent), m_recentFiles(recentFiles), m_probe(probe), m_editor(host.editor()), m_log(log),
      m_report(std::move(report)), m_reactors(host.documentReactors())
{
}

DocumentManager::~DocumentManager() = default;

void DocumentManager::AddReactor(CFxDocumentManagerReactor *reactor)
{
    SDKHOST_ASSERT_GUI_THREAD();
    m_reactors.add(reactor);
}

void DocumentManager::RemoveReactor(CFxDocumentManagerReactor *reactor)
{
    SDKHOST_ASSERT_GUI_THREAD();
    m_reactors.remove(reactor);
}

bool DocumentManager::OpenDocument(const CFxString &path, int mode, int flags, OdString &result)
{
    SDKHOST_ASSERT_GUI_THREAD();
    const bool isReserved = mode != 0 || flags != 0;
    Outcome opened;
    // Modules call this from event handlers, through which exceptions must not pass.
    const Outcome thrown = Outcome::of([&] {
        opened = isReserved ? refuse(path, tr("This way of opening is not supported.")) : open(path);
    });
    if (!thrown) {
        opened = Outcome::failed(tr("The host failed: %1").arg(thrown.reason()));
        Outcome::of([&] { refuse(path, opened.reason()); }); // may throw the same again
    }
    result = toOdString(opened.reason());
    return bool(opened);
}

Document *DocumentManager::newDocument()
{
    SDKHOST_ASSERT_GUI_THREAD();
    ++m_newDocumentCount;
    return introduce(std::make_shared<Document>(tr("Drawing%1").arg(m_newDocumentCount)));
}

Outcome DocumentManager::open(const QString &path)
{
    SDKHOST_ASSERT_GUI_THREAD();
    const QString fullPath = absolutePath(path);
    const Outcome opened = openFile(fullPath);
    if (!opened)
        return refuse(fullPath, opened.reason());
    m_log.open(fullPath, true);
    return opened;
}

void DocumentManager::openAll(const QStringList &paths)
{
    QStringList fullPaths;
    for (const QString &path : paths)
        fullPaths.append(absolutePath(path));
    m_probe.unresponsive(fullPaths, openWait); // waits for all at the same time
    for (const QString &path : qAsConst(fullPaths))
        open(path);
}

Outcome DocumentManager::refuse(const QString &path, const QString &reason)
{
    m_log.open(path, false);
    m_report(tr("The drawing \"%1\" was not opened. %2").arg(path, reason));
    m_editor.reactors().notify(&CFxEditorReactor::cancelDwgOpen, CFxString(path));
    return Outcome::failed(reason);
}

Outcome DocumentManager::openFile(const QString &path)
{
    if (path.isEmpty())
        return Outcome::failed(tr("No path was given."));
    if (!m_probe.unresponsive({path}, openWait).isEmpty())
        return Outcome::failed(tr("Its disk or server does not respond."));
    const QString canonicalPath = QFileInfo(path).canonicalFilePath(); // empty if the file does not exist
    if (Document *document = findOpen(path, canonicalPath)) {
        m_recentFiles.add(document->filePath(), QDateTime::currentDateTimeUtc());
        bringToFront(document);
        return {};
    }
    m_reactors.notify(&Reactor::DocumentPreOpen, CFxString(path));
    DrawingFile file = readDrawing(path);
    const Outcome outcome = file.outcome;
    if (outcome)
        introduce(std::make_shared<Document>(path, canonicalPath, std::move(file)));
    return outcome;
}

//! The open drawing with this path, or with another path of the same file; null if there is none.
Document *DocumentManager::findOpen(const QString &path, const QString &canonicalPath) const
{
    for (const auto &document : m_documents) {
        const bool isSameFile = !canonicalPath.isEmpty() && document->canonicalPath() == canonicalPath;
        const bool isSamePath = !document->isNew() && document->filePath() == path;
        if ((isSamePath || isSameFile) && !isClosing(document.get()))
            return document.get();
    }
    return nullptr;
}

Document *DocumentManager::introduce(const std::shared_ptr<Document> &document)
{
    CFxDocument *const published = document.get();
    m_reactors.notify(&Reactor::DocumentCreateStarted, published);
    m_reactors.notify(&Reactor::DatabaseAttached, published);
    // Not a new drawing, whose path is empty.
    m_recentFiles.add(document->filePath(), QDateTime::currentDateTimeUtc());
    m_documents.push_back(document);
    emit documentAdded(document.get());
    m_reactors.notify(&Reactor::DocumentCreated, published);
    emit reactorsNotified();
    setCurrent(document.get());
    return openDocument(document.get()).get();
}

void DocumentManager::setCurrent(Document *document)
{
    if (document == m_current)
        return;
    if (const std::shared_ptr<Document> open = openDocument(document))
        makeCurrent(open);
}

void DocumentManager::bringToFront(Document *document)
{
    const std::shared_ptr<Document> open = openDocument(document);
    if (!open)
        return;
    emit activateRequested(document);
    setCurrent(document);
}

//! \param document null if no drawing is open any more
void DocumentManager::makeCurrent(const std::shared_ptr<Document> &document)
{
    CFxDocument *const published = document.get();
    if (const std::shared_ptr<Document> former = openDocument(m_current)) {
        CFxDocument *const formerPublished = former.get();
        m_reactors.notify(&Reactor::DocumentToBeDeactivated, formerPublished);
    }
    if (document) {
        m_reactors.notify(&Reactor::DocumentToBeActivated, published);
        if (!openDocument(document.get()))
            return; // a reactor has closed it, and close() has selected another one
    }
    m_current = document.get();
    // When a reactor makes another drawing current, all reactors have been notified of that by the time it
    // returns.
    const auto isStillCurrent = [&] { return m_current == document.get(); };
    if (document) {
        m_reactors.notify(&Reactor::DocumentActivated, published);
        if (isStillCurrent())
            m_reactors.notify(&Reactor::DocumentBecameCurrent, published);
    }
    if (isStillCurrent())
        m_reactors.notify(&Reactor::DocumentActivationModified, document != nullptr);
    if (isStillCurrent())
        emit currentChanged(document.get());
}

void DocumentManager::close(Document *document)
{
    SDKHOST_ASSERT_GUI_THREAD();
    const std::shared_ptr<Document> closed = openDocument(document);
    if (!closed)
        return;
    CFxDocument *const published = document;
    m_closing.push_back(document);
    emit documentAboutToClose(document); // closing its window may make another drawing current
    const bool wasCurrent = m_current == document;
    if (wasCurrent)
        m_reactors.notify(&Reactor::DocumentToBeDeactivated, published);
    m_reactors.notify(&Reactor::DocumentToBeDestroyed, published);
    m_reactors.notify(&Reactor::DatabaseDetached, published);
    if (m_current == document)
        m_current = nullptr;
    m_documents.erase(std::find(m_documents.begin(), m_documents.end(), closed));
    m_closing.erase(std::find(m_closing.begin(), m_closing.end(), document));
    m_reactors.notify(&Reactor::DocumentDestroyed, document->path());
    if (wasCurrent && !m_current)
        makeCurrent(lastOpen());
}

void DocumentManager::closeAll()
{
    for (Document *document : documents())
        close(document);
}

std::vector<Document *> DocumentManager::documents() const
{
    std::vector<Document *> all;
    for (const auto &document : m_documents)
        all.push_back(document.get());
    return all;
}

Document *DocumentManager::current() const
{
    return openDocument(m_current).get();
}

bool DocumentManager::isClosing(const Document *document) const
{
    return std::find(m_closing.begin(), m_closing.end(), document) != m_closing.end();
}

//! A shared pointer to document; null if it is not open or is being closed.
std::shared_ptr<Document> DocumentManager::openDocument(const Document *document) const
{
    for (const auto &open : m_documents) {
        if (open.get() == document && !isClosing(document))
            return open;
    }
    return nullptr;
}

//! The drawing that was opened last; null if none is open.
std::shared_ptr<Document> DocumentManager::lastOpen() const
{
    for (auto it = m_documents.rbegin(); it != m_documents.rend(); ++it) {
        if (!isClosing(it->get()))
            return *it;
    }
    return nullptr;
}

} // namespace fxhost
