// SPDX-License-Identifier: MIT
#include "host/runtime/documents/DocumentManager.h"

#include "host/runtime/Paths.h"
#include "host/runtime/Strings.h"
#include "host/runtime/editor/Editor.h"
#include "host/runtime/log/HostLog.h"
#include "host/runtime/preview/DrawingHeader.h"
#include "host/runtime/preview/PreviewReader.h"
#include "host/runtime/probe/FileProbe.h"
#include "host/runtime/recent/RecentFiles.h"

#include <QFileInfo>

#include <algorithm>
#include <exception>
#include <utility>

namespace fxhost {

namespace {

using Reactor = CFxDocumentManagerReactor;

//! How long to wait for a drawing that the person has asked for, in milliseconds: a disk that sleeps, or a
//! server that is far away, takes its time.
constexpr int patience = 3000;

DrawingFacts factsOf(const QString &path, const DrawingHeader &header)
{
    const QFileInfo file(path);
    return {path,
            QString::fromLatin1(header.version),
            file.canonicalFilePath(),
            file.size(),
            file.lastModified(),
            readPreview(path),
            holdsPreviewAlone(path)};
}

} // namespace

DocumentManager::DocumentManager(RecentFiles &recentFiles, FileProbe &probe, Editor &editor, HostLog &log,
                                 MessageSink report, QObject *parent)
    : QObject(parent), m_recentFiles(recentFiles), m_probe(probe), m_editor(editor), m_log(log),
      m_report(std::move(report)), m_reactors(m_report)
{
}

DocumentManager::~DocumentManager() = default;

void DocumentManager::AddReactor(CFxDocumentManagerReactor *reactor)
{
    m_reactors.add(reactor);
}

void DocumentManager::RemoveReactor(CFxDocumentManagerReactor *reactor)
{
    m_reactors.remove(reactor);
}

bool DocumentManager::OpenDocument(const CFxString &path, int mode, int flags, OdString &result)
{
    const auto fail = [&](const QString &reason) {
        try {
            return refuse(path, reason);
        } catch (...) { // it may be the telling that fails
            return reason;
        }
    };
    const bool isReserved = mode != 0 || flags != 0;
    QString problem;
    try { // modules call this from event handlers, which no exception may leave
        problem = isReserved ? refuse(path, tr("This way of opening is not supported.")) : open(path);
    } catch (const std::exception &error) {
        problem = fail(QString::fromLocal8Bit(error.what()));
    } catch (...) {
        problem = fail(tr("The host failed."));
    }
    result = toOdString(problem);
    return problem.isEmpty();
}

Document *DocumentManager::newDocument()
{
    ++m_newDocumentCount;
    return introduce(std::make_shared<Document>(tr("Drawing%1").arg(m_newDocumentCount), DrawingFacts()));
}

QString DocumentManager::open(const QString &path)
{
    const QString fullPath = absolutePath(path);
    const QString problem = openFile(fullPath);
    if (!problem.isEmpty())
        return refuse(fullPath, problem);
    m_log.open(fullPath, true);
    return {};
}

void DocumentManager::openAll(const QStringList &paths)
{
    QStringList fullPaths;
    for (const QString &path : paths)
        fullPaths.append(absolutePath(path));
    m_probe.silent(fullPaths, 0, patience); // whatever does not answer is waited for at the same time
    for (const QString &path : qAsConst(fullPaths))
        open(path);
}

QString DocumentManager::refuse(const QString &path, const QString &reason)
{
    m_log.open(path, false);
    m_report(tr("The drawing \"%1\" was not opened. %2").arg(path, reason));
    m_editor.reactors().notify(&CFxEditorReactor::cancelDwgOpen, CFxString(path));
    return reason;
}

//! \return why the drawing cannot be opened; empty when it is open now
QString DocumentManager::openFile(const QString &path)
{
    if (path.isEmpty())
        return tr("No path was given.");
    if (!m_probe.silent({path}, 0, patience).isEmpty())
        return tr("The disk or server that it is on does not answer.");
    if (Document *document = findOpen(path)) {
        m_recentFiles.add(document->facts().path);
        bringToFront(document);
        return {};
    }
    m_reactors.notify(&Reactor::DocumentPreOpen, CFxString(path));
    const DrawingHeader header = readDrawingHeader(path);
    if (header.error != DrawingError::None)
        return header.reason;
    introduce(std::make_shared<Document>(QFileInfo(path).fileName(), factsOf(path, header)));
    return {};
}

//! The drawing at path, whichever way leads there; null when it is not open.
Document *DocumentManager::findOpen(const QString &path) const
{
    const QString canonical = QFileInfo(path).canonicalFilePath(); // empty when the file is gone
    for (const auto &document : m_documents) {
        const DrawingFacts &opened = document->facts();
        const bool isSameFile = !canonical.isEmpty() && opened.canonicalPath == canonical;
        if (!document->isNew() && (opened.path == path || isSameFile) && !isClosing(document.get()))
            return document.get();
    }
    return nullptr;
}

Document *DocumentManager::introduce(const std::shared_ptr<Document> &document)
{
    CFxDocument *const told = document.get();
    m_reactors.notify(&Reactor::DocumentCreateStarted, told);
    m_reactors.notify(&Reactor::DatabaseAttached, told);
    m_recentFiles.add(document->facts().path); // a new drawing's is empty, which adds nothing
    m_documents.push_back(document);
    emit documentAdded(document.get());
    m_reactors.notify(&Reactor::DocumentCreated, told);
    setCurrent(document.get());
    return openDocument(document.get()).get();
}

void DocumentManager::introduceCurrent(const std::vector<CFxDocumentManagerReactor *> &reactors) const
{
    const std::shared_ptr<Document> current = openDocument(m_current); // which a reactor may close
    CFxDocument *const told = current.get();
    if (told)
        m_reactors.notifyThese(reactors, &Reactor::DocumentCreated, told);
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

//! \param document null when no drawing is left
void DocumentManager::makeCurrent(const std::shared_ptr<Document> &document)
{
    CFxDocument *const told = document.get();
    if (const std::shared_ptr<Document> former = openDocument(m_current)) {
        CFxDocument *const formerTold = former.get();
        m_reactors.notify(&Reactor::DocumentToBeDeactivated, formerTold);
    }
    if (document) {
        m_reactors.notify(&Reactor::DocumentToBeActivated, told);
        if (!openDocument(document.get()))
            return; // a reactor has closed it, and the closing has seen to the current drawing
    }
    m_current = document.get();
    // A reactor that turns to another drawing has told everybody of it by the time it returns.
    const auto isStillCurrent = [&] { return m_current == document.get(); };
    if (document) {
        m_reactors.notify(&Reactor::DocumentActivated, told);
        if (isStillCurrent())
            m_reactors.notify(&Reactor::DocumentBecameCurrent, told);
    }
    if (isStillCurrent())
        m_reactors.notify(&Reactor::DocumentActivationModified, document != nullptr);
    if (isStillCurrent())
        emit currentChanged(document.get());
}

void DocumentManager::close(Document *document)
{
    const std::shared_ptr<Document> closed = openDocument(document);
    if (!closed)
        return;
    CFxDocument *const told = document;
    m_closing.push_back(document);
    emit documentAboutToClose(document); // a window that goes may hand the current place to another
    const bool wasCurrent = m_current == document;
    if (wasCurrent)
        m_reactors.notify(&Reactor::DocumentToBeDeactivated, told);
    m_reactors.notify(&Reactor::DocumentToBeDestroyed, told);
    m_reactors.notify(&Reactor::DatabaseDetached, told);
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

bool DocumentManager::isClosing(const Document *document) const
{
    return std::find(m_closing.begin(), m_closing.end(), document) != m_closing.end();
}

//! The owner of document; null unless it is open and not being closed.
std::shared_ptr<Document> DocumentManager::openDocument(const Document *document) const
{
    for (const auto &open : m_documents) {
        if (open.get() == document && !isClosing(document))
            return open;
    }
    return nullptr;
}

//! The drawing that was opened last; null when none is open.
std::shared_ptr<Document> DocumentManager::lastOpen() const
{
    for (auto it = m_documents.rbegin(); it != m_documents.rend(); ++it) {
        if (!isClosing(it->get()))
            return *it;
    }
    return nullptr;
}

} // namespace fxhost
