// SPDX-License-Identifier: MIT
#include "bench/Browser.h"

#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/modules/ModuleManager.h"
#include "host/runtime/recent/RecentFiles.h"
#include "samples/SampleSet.h"

#include <QApplication>
#include <QFile>
#include <QToolButton>

namespace bench {

Browser::Browser(int count) : Browser(QStringList())
{
    m_paths = writeDrawings(m_folder, count);
    m_host.recentFiles().setPaths(m_paths);
    createDocument();
}

Browser::Browser(const QStringList &paths) : m_paths(paths)
{
    if (!m_host.modules().load(QStringLiteral(MODULE_FILE)))
        qFatal("the module cannot be loaded");
    m_window.setGeometry(0, 0, 1300, 900); // four columns
    m_window.show();
    m_host.setMainWindow(&m_window);
    m_host.recentFiles().setMaximum(fxhost::RecentFiles::largestMaximum);
    m_host.recentFiles().setPaths(m_paths);
    createDocument();
}

Browser::~Browser()
{
    if (popup())
        closePopup();
    m_host.setMainWindow(nullptr);
}

QStringList Browser::writeDrawings(const QTemporaryDir &folder, int count)
{
    const std::vector<fxsamples::Sample> &samples = fxsamples::sampleSet();
    QList<QByteArray> contents;
    for (const fxsamples::Sample &sample : samples)
        contents.append(fxsamples::drawingFile(fxsamples::paintPreview(sample), sample.form));
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        const fxsamples::Sample &sample = samples.at(static_cast<size_t>(i) % samples.size());
        QFile file(folder.filePath(QStringLiteral("%1 %2").arg(i).arg(sample.fileName)));
        const QByteArray &content = contents.at(i % contents.size());
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("%s cannot be written", qPrintable(file.fileName()));
        paths.append(file.fileName());
    }
    return paths;
}

void Browser::list(int count)
{
    m_host.recentFiles().setPaths(m_paths.mid(0, count));
    createDocument();
}

void Browser::createDocument()
{
    m_host.documents().newDocument();
}

void Browser::openPopup()
{
    m_host.commands().runLine(QStringLiteral("_RECENT"));
    paint();
}

void Browser::pin(int nth)
{
    openPopup();
    const auto buttons = popup()->findChildren<QToolButton *>(QStringLiteral("pinButton"));
    for (int i = 0; i < buttons.size(); i += nth)
        buttons.at(i)->click();
    closePopup();
    openPopup();
    closePopup();
}

void Browser::paint()
{
    QCoreApplication::processEvents(); // shows the window
    QCoreApplication::processEvents(); // paints it
}

QWidget *Browser::popup()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->isVisible() && window->objectName() == QLatin1String("RecentDocMainWindow"))
            return window;
    }
    return nullptr;
}

void Browser::closePopup()
{
    QWidget *open = popup();
    if (!open)
        qFatal("no popup is open");
    open->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    paint();
}

} // namespace bench
