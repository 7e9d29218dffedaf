// SPDX-License-Identifier: MIT
#include "tests/support/fake/FakeBrowser.h"

#include "module/OdRxUnixModuleRecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QStringList numberedNames(int count)
{
    QStringList names;
    for (int i = 1; i <= count; ++i)
        names.append(QStringLiteral("drawing %1.dwg").arg(i));
    return names;
}

} // namespace

QImage pictureOf(const QString &path)
{
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(static_cast<int>(qHash(path, 1) % 360), 200, 220));
    return image;
}

DrawingsInHost::DrawingsInHost(const QStringList &names)
{
    for (const QString &name : names) {
        QFile file(m_folder.filePath(name));
        if (!QDir().mkpath(QFileInfo(file).path()) || !file.open(QIODevice::WriteOnly))
            qFatal("cannot make %s", qPrintable(file.fileName()));
        m_paths.append(file.fileName());
    }
    host.setRecent(m_paths);
    host.onLoadPreview = [](const QString &path, QImage &image) {
        image = pictureOf(path);
        return true;
    };
    host.mainWindow().setGeometry(0, 0, 1300, 800);
}

FakeBrowser::FakeBrowser(int count) : FakeBrowser(numberedNames(count)) {}

FakeBrowser::FakeBrowser(const QStringList &names)
    : DrawingsInHost(names),
      m_module(std::make_unique<OdRxUnixModuleRecentDocumentBrowser>(nullptr, L"browser"))
{
}

FakeBrowser::~FakeBrowser()
{
    m_module.reset(); // deletes popups and menus too
    drainEvents();
    RecentDocumentBrowser::recentFileImageMap.clear();
}

void FakeBrowser::createDocument()
{
    m_module->DocumentCreated(nullptr);
}

RecentDocMainWindow *FakeBrowser::openPopup()
{
    auto *popup = new RecentDocMainWindow(&host.mainWindow());
    popup->show();
    return popup;
}

QList<RecentDocMainWindow *> FakeBrowser::popups()
{
    QList<RecentDocMainWindow *> shown;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *popup = qobject_cast<RecentDocMainWindow *>(window);
        if (popup && popup->isVisible())
            shown.append(popup);
    }
    return shown;
}

QList<RecentDocDialog *> FakeBrowser::tiles() const
{
    return RecentDocumentBrowser::recentDocDialogList;
}

FolderPinButton *FakeBrowser::button(const QWidget *parent, const char *name)
{
    return parent->findChild<FolderPinButton *>(QLatin1String(name));
}
