// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/MessageSink.h"
#include "host/runtime/Outcome.h"
#include "host/runtime/documents/Document.h"
#include "host/runtime/editor/ReactorList.h"

#include <CFxDocumentManager.h>
#include <CFxDocumentManagerReactor.h>

#include <QObject>

#include <memory>
#include <vector>

namespace fxhost {

class Editor;
class HostLog;
class FileProbe;
class RecentFiles;

//! The open drawings and which of them is current. GUI thread.
//!
//! Events come in this order. Opening: PreOpen, CreateStarted, DatabaseAttached, (the path enters the recent
//! list), documentAdded(), Created, then a change of current. A change of current: ToBeDeactivated for the
//! old one, ToBeActivated, Activated, BecameCurrent and ActivationModified for the new one, currentChanged().
//! Closing: documentAboutToClose(), ToBeDeactivated for the current one, ToBeDestroyed, DatabaseDetached,
//! Destroyed, then a change of current. Reactors may open, close and turn to drawings at any of these.
class FXHOST_API DocumentManager : public QObject, public CFxDocumentManager
{
    Q_OBJECT
public:
    //! Everything that is passed in must outlive the manager.
    //! \param report gets why a drawing could not be opened, and what reactors throw
    DocumentManager(RecentFiles &recentFiles, FileProbe &probe, Editor &editor, HostLog &log,
                    MessageSink report, QObject *parent = nullptr);
    //! Deletes what is still open without notifying reactors, which closeAll() does.
    ~DocumentManager() override;

    void AddReactor(CFxDocumentManagerReactor *reactor) override;
    void RemoveReactor(CFxDocumentManagerReactor *reactor) override;
    bool OpenDocument(const CFxString &path, int mode, int flags, OdString &result) override;

    //! A new, empty drawing, which becomes current.
    //! \return valid until it is closed; null when a reactor has closed it already
    Document *newDocument();
    //! Opens a drawing. One that is open already is brought to the front and moves up in the recent list.
    //! \param path taken as it is when absolute; relative to the working directory otherwise
    //! \return whether it is open now; the reason why not has been reported
    Outcome open(const QString &path);
    //! Opens one after the other; those that do not respond are waited for together.
    void openAll(const QStringList &paths);
    //! \param document null or one that is closed or being closed: nothing happens
    void close(Document *document);
    void closeAll();

    //! In the order of their opening.
    std::vector<Document *> documents() const;
    //! Null when no drawing is open.
    Document *current() const { return m_current; }
    //! To be called when the user turns to a drawing's window.
    //! \param document null, the current one, or one that is not open: nothing happens
    void setCurrent(Document *document);
    //! Makes a drawing current and asks for its window. The same exceptions as for setCurrent(), but for the
    //! current one, whose window may be covered by others.
    void bringToFront(Document *document);

    const ReactorList<CFxDocumentManagerReactor> &reactors() const { return m_reactors; }
    //! Notifies some of the reactors of the current drawing as if it had just been created, for those that
    //! were not there then. Without one nothing happens.
    void introduceCurrent(const std::vector<CFxDocumentManagerReactor *> &reactors) const;

signals:
    //! A drawing was made; reactors are notified later, so that its window can be made first.
    void documentAdded(fxhost::Document *document);
    //! The drawing is deleted right after this: what shows it must stop.
    void documentAboutToClose(fxhost::Document *document);
    //! \param document null when the last drawing has gone
    void currentChanged(fxhost::Document *document);
    //! The drawing's window should come to the front.
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
    ReactorList<CFxDocumentManagerReactor> m_reactors;
    std::vector<std::shared_ptr<Document>> m_documents; // shared with notifications that are under way
    std::vector<Document *> m_closing;                  // whose closing is being notified
    Document *m_current = nullptr;
    int m_newDocumentCount = 0;
};

} // namespace fxhost
