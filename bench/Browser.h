// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHost.h"

#include <QMainWindow>
#include <QStringList>
#include <QTemporaryDir>

namespace bench {

//! The built module in the real host, with recent drawings that have the samples' pictures. GUI thread.
class Browser
{
public:
    //! \param count of recent drawings
    explicit Browser(int count);
    //! With these recent drawings.
    explicit Browser(const QStringList &paths);
    ~Browser();

    //! Writes drawings with the samples' pictures. \return their paths
    static QStringList writeDrawings(const QTemporaryDir &folder, int count);

    const QStringList &paths() const { return m_paths; }
    QMainWindow *window() { return &m_window; }
    //! Lists the first drawings only, and creates a document.
    void list(int count);
    //! As the host does for a new drawing: the module rebuilds its hidden menu.
    void createDocument();
    //! Runs "_RECENT", and returns when the popup is painted.
    void openPopup();
    //! Pins every nth drawing, and opens and closes the popup, so that they come first.
    void pin(int nth);

    //! Returns when everything is painted that is shown.
    static void paint();
    //! The popup or its twin; null if none is open.
    static QWidget *popup();
    //! Closes it and deletes what it leaves. Ends the program if none is open: then nothing was measured.
    static void closePopup();

private:
    QTemporaryDir m_folder;
    QStringList m_paths;
    fxhost::FxHost m_host{m_folder.filePath(QStringLiteral("profile")), QString()};
    QMainWindow m_window;
};

} // namespace bench
