// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/PathMenu.h"

#include <vector>

class QWidgetAction;

namespace fxhost {

class FxHost;

//! The menu of the recent drawings. While the browser is loaded, its entries are made by the browser
//! (RecentDocumentBrowserExports.h), and have its pins; otherwise, and before the first drawing, it lists the
//! paths. A program should have only one such menu, because the browser has the pins of only one. GUI thread.
class RecentFilesMenu : public PathMenu
{
    Q_OBJECT
public:
    //! \param host must outlive the menu
    RecentFilesMenu(FxHost &host, QWidget *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    std::vector<QWidgetAction *> moduleEntries() const;
    void fillByModule();
    void adopt(const QWidgetAction *entry);
    void openWhenTriggered(const QAction *entry, const QString &path);
    void prepare();
    void listAnew();
    void fitEntries();
    void listPaths();
    void numberEntries();

    FxHost &m_host;
    QStringList m_listed; //!< when the module has made its entries
};

} // namespace fxhost
