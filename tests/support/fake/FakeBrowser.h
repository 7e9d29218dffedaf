// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/fake/FakeHost.h"

#include <QTemporaryDir>

#include <memory>

class FolderPinButton;
class OdRxUnixModuleRecentDocumentBrowser;
class RecentDocDialog;
class RecentDocMainWindow;

//! A fake host with recent documents: files that exist, each with a picture of its own.
class DrawingsInHost
{
public:
    //! Lists files of these names in a folder of their own; the first is the most recent.
    explicit DrawingsInHost(const QStringList &names);

    FakeHost host;

    QStringList paths() const { return m_paths; }
    QString path(int index) const { return m_paths.at(index); }
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    QStringList m_paths;
};

//! The browser over a fake host with documents, for tests of its parts: menu entries with pin buttons, a
//! popup on demand. Its destructor deletes everything and leaves the registry empty.
class FakeBrowser : public DrawingsInHost
{
public:
    //! Makes count documents named "drawing 1.dwg" and so on.
    explicit FakeBrowser(int count = 0);
    explicit FakeBrowser(const QStringList &names);
    ~FakeBrowser();

    //! The module object; nothing has been called on it but its constructor.
    OdRxUnixModuleRecentDocumentBrowser &module() { return *m_module; }

    //! Notifies the module of a created drawing: it builds the hidden menu and empties the cache.
    void createDocument();
    //! Creates a popup and shows it. createDocument() must have been called.
    RecentDocMainWindow *openPopup();
    //! All popups that are shown.
    static QList<RecentDocMainWindow *> popups();
    //! The tiles in display order.
    QList<RecentDocDialog *> tiles() const;
    //! A tile's or menu entry's button by its object name; null when there is none.
    static FolderPinButton *button(const QWidget *parent, const char *name);

private:
    std::unique_ptr<OdRxUnixModuleRecentDocumentBrowser> m_module;
};

//! A picture that no other path has.
QImage pictureOf(const QString &path);
