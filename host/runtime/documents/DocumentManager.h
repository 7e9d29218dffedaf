// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/documents/Document.h"

#include <CFxDocumentManager.h>
#include <CFxDocumentManagerReactor.h>
#include <sdkhost/MessageSink.h>
#include <sdkhost/Outcome.h>
#include <sdkhost/ReactorList.h>

#include <QObject>

#include <memory>
#include <vector>

namespace fxhost {

class HostLog;
class FileProbe;
class RecentFiles;

//! The open drawings and which of them is current. GUI thread.
//!
//! The order of events (the names of the reactors' functions without "Document"):
//! - Opening: PreOpen, CreateStarted, DatabaseAttached, the path is added to the recent list,
//!   documentAdded(), Created, reactorsNotified(), change of the current drawing.
//! - Change of the current drawing: ToBeDeactivated for the old one; ToBeActivated, Activated, BecameCurrent,
//!   ActivationModified and currentChanged() for the new one.
//! - Closing: documentAboutToClose(), ToBeDeactivated if it is the current one, ToBeDestroyed,
//!   DatabaseDetached, Destroyed, change of the current drawing.
//! A window that the program shows at documentAdded(), or closes at documentAboutToClose(), makes a drawing
//! current when it is activated: then the change comes at that moment.
//!
//! Reactors may open, close and activate drawings during each of these events.
class FXHOST_API DocumentManager : public QObject, public CFxDocumentManager
{
    Q_OBJECT
public:
    //! All arguments must outlive the manager.
    //! \param report receives the reason if a drawing cannot be opened
    DocumentManager(Host &host, RecentFiles &recentFiles, FileProbe &probe, HostLog &log, MessageSink report,
                    QObject *parent = nullptr);
    //! Deletes the drawings that are still open, without notifying the reactors: call closeAll() first.
    ~DocumentManager() override;

    void AddReactor(CFxDocumentManagerReactor *reactor) override;
    void RemoveReactor(CFxDocumentManagerReactor *reactor) override;
    bool OpenDocument(const CFxString &path, int mode, int flags, OdString &result) override;

    //! Creates a new, empty drawing, which becomes current.
    //! \return valid until it is closed; null if a reactor has already closed it
    Document *newDocument();
    //! Opens a drawing. One that is already open is brought to the front and moved to the top of the recent
    //! list.
    //! \param path relative paths are relative to the working directory
    //! \return whether the drawing is open; the reason of a failure has been reported
    Outcome open(const QString &path);
    //! Opens one after the other, but waits only once for files that do not respond.
    void openAll(const QStringList &paths);
    //! \param document if it is null, closed or being closed, nothing is done
    void close(Document *document);
    void closeAll();

    //! In the order in which they were opened.
    std::vector<Document *> documents() const;
    //! Null if no drawing is open, or while the current one is being closed.
    Document *current() const;
    //! Must be called when the user activates a drawing's window.
    //! \param document if it is null, already current or not open, nothing is done
    void setCurrent(Document *document);
    //! Makes a drawing current and requests that its window be activated, even if the drawing is already
    //! current.
    //! \param document if it is null or not open, nothing is done
    void bringToFront(Document *document);

signals:
    //! A drawing was created. Reactors are notified after this, so that its window can be created first.
    void documentAdded(fxhost::Document *document);
    //! All reactors have been notified of a created drawing, and one of them may have closed it.
    void reactorsNotified();
    //! The drawing is about to be deleted and must not be used afterwards.
    void documentAboutToClose(fxhost::Document *document);
    //! \param document null if no drawing is open any more
    void currentChanged(fxhost::Document *document);
    //! The drawing's window should be activated.
    void activateRequested(fxhost::Document *document);

private:
    Outcome openFile(const QString &path);
    Outcome refuse(const QString &path, const QString &reason);
    Document *findOpen(const QString &path, const QString &canonicalPath) const;
    Document *introduce(const std::shared_ptr<Document> &document);
    void makeCurrent(const std::shared_ptr<Document> &document);
    bool isClosing(const Document *document) const;
    std::shared_ptr<Document> openDocument(const Document *document) const;
    std::shared_ptr<Document> lastOpen() const;

    RecentFiles &m_recentFiles;
    FileProbe &m_probe;
    Editor &m_editor;
    HostLog &m_log;
    MessageSink m_report;
    ReactorList<CFxDocumentManagerReactor> &m_reactors;
    std::vector<std::shared_ptr<Document>> m_documents; // shared with running notifications
    std::vector<Document *> m_closing;                  // being closed: reactors are being notified
    Document *m_current = nullptr;
    int m_newDocumentCount = 0;
};

} // namespace fxhost
