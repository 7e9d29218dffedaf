// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/FakeHost.h"

#include <QTemporaryDir>

#include <memory>

class FolderPinButton;
class OdRxUnixModuleRecentDocumentBrowser;
class RecentDocDialog;
class RecentDocMainWindow;

//! The browser over a fake host with documents, for tests of its parts: files that exist, menu entries with
//! pin buttons, a popup on demand. Takes everything down with itself and leaves the registry empty.
class Browser
{
public:
    //! Makes count documents named "drawing 1.dwg" and so on, and lists them; the first is the most recent.
    explicit Browser(int count = 0);
    //! Lists files of these names in a folder of their own; they are made, so that they have a picture.
    explicit Browser(const QStringList &names);
    ~Browser();

    FakeHost host;
    //! The module object; nothing has been called on it but its constructor.
    OdRxUnixModuleRecentDocumentBrowser &module() { return *m_module; }

    QStringList paths() const { return m_paths; }
    QString path(int index) const { return m_paths.at(index); }
    QString folder() const { return m_folder.path(); }

    //! What the host does when a drawing has been created: the hidden menu is built, the cache emptied.
    void createDocument();
    //! Makes a popup, with the main window's geometry as set, and shows it. createDocument() comes first.
    RecentDocMainWindow *openPopup();
    //! The tiles in display order.
    QList<RecentDocDialog *> tiles() const;
    //! A tile's or menu entry's button by its object name; null when there is none.
    static FolderPinButton *button(const QWidget *parent, const char *name);

private:
    void makeFiles(const QStringList &names);

    std::unique_ptr<OdRxUnixModuleRecentDocumentBrowser> m_module;
    QTemporaryDir m_folder;
    QStringList m_paths;
};

//! A picture that no other path has.
QImage pictureOf(const QString &path);
