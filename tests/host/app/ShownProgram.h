// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/CommandLineWidget.h"
#include "host/app/DrawingArea.h"
#include "host/app/HostMenus.h"
#include "host/app/MainWindow.h"
#include "host/runtime/FxHost.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/Document.h"
#include "host/runtime/documents/DocumentManager.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTemporaryDir>

//! The program as main() creates it, without a module and a new drawing.
struct ShownProgram
{
    QTemporaryDir dir;
    fxhost::FxHost host{dir.filePath("profile"), QString()};
    fxhost::MainWindow window{withMenus(host)};
    bool active = false; //!< whether the window is; needed by tests of the focus

    ShownProgram()
    {
        window.show();
        host.setMainWindow(&window);
        active = waitForActive(&window);
    }

    static fxhost::FxHost &withMenus(fxhost::FxHost &host)
    {
        fxhost::addMenus(host.customization());
        return host;
    }

    QString drawing(const QString &name) const
    {
        return testbytes::writeFile(dir.filePath(name), testbytes::DrawingBytes().bytes());
    }

    //! The window of a new drawing.
    QMdiSubWindow *newWindow() { return window.drawingArea().windowOf(host.documents().newDocument()); }
    QStringList openPaths()
    {
        QStringList paths;
        for (const fxhost::Document *document : host.documents().documents())
            paths.append(document->path());
        return paths;
    }

    QLineEdit *input() const { return window.findChild<QLineEdit *>("commandInput"); }
    QString history() const { return window.commandLine().historyText(); }
    //! Types line into the command line and presses Enter.
    void enter(const QString &line) const
    {
        QTest::keyClicks(input(), line);
        QTest::keyClick(input(), Qt::Key_Return);
    }
};
