// SPDX-License-Identifier: MIT
// minimal-host MODULE [DRAWING...]: loads the module, and lists the drawings as recent ones, the first on
// top. Prints what happens.
#include "MinimalHost.h"

#include <QApplication>
#include <QFileInfo>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    MinimalHost host(arguments.value(1));
    for (int i = arguments.size() - 1; i > 1; --i)
        host.addRecent(QFileInfo(arguments.at(i)).absoluteFilePath());
    host.resize(1100, 700);
    host.show();
    host.addDrawing(CFxString());
    host.loadModule();
    return QApplication::exec();
}
