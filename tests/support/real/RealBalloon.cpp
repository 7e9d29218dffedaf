// SPDX-License-Identifier: MIT
#include "tests/support/real/RealBalloon.h"

#include <QApplication>
#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QWidget>

#include <cstddef>

#include <dlfcn.h>

namespace {

//! The function's offset in the library, in bytes.
std::ptrdiff_t offsetOfShowBalloon()
{
    QProcess nm;
    nm.start(QStringLiteral(NM_PROGRAM), {QStringLiteral(MODULE_FILE)});
    if (!nm.waitForFinished())
        qFatal("%s cannot be run", NM_PROGRAM);
    const QList<QByteArray> lines = nm.readAllStandardOutput().split('\n');
    for (const QByteArray &line : lines) {
        if (line.endsWith(" _ZN11QBalloonTip11showBalloonERK6QImageRK7QStringS5_RK6QPointib"))
            return line.left(line.indexOf(' ')).toLongLong(nullptr, 16);
    }
    qFatal("the module has no balloon");
}

//! The library's address in memory.
char *addressOfModule()
{
    void *library = dlopen(MODULE_FILE, RTLD_NOW | RTLD_NOLOAD);
    Dl_info object;
    if (!library || dladdr(dlsym(library, "odrxGetAPIVersion"), &object) == 0)
        qFatal("the module is not loaded");
    dlclose(library); // the host holds it
    return static_cast<char *>(object.dli_fbase);
}

QWidget *balloon()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->inherits("QBalloonTip") && window->isVisible())
            return window;
    }
    return nullptr;
}

} // namespace

void RealBalloon::show(const QString &title)
{
    static const std::ptrdiff_t offset = offsetOfShowBalloon();
    using ShowBalloon = void (*)(const QImage &, const QString &, const QString &, const QPoint &, int, bool);
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    reinterpret_cast<ShowBalloon>(addressOfModule() + offset)(picture, title, QStringLiteral("text"),
                                                              QPoint(10, 10), -1, true);
}

bool RealBalloon::isVisible()
{
    return balloon() != nullptr;
}

void RealBalloon::close()
{
    if (QWidget *shown = balloon())
        shown->close();
}
