// SPDX-License-Identifier: MIT
#include "host/app/StartArguments.h"

namespace fxhost {

QByteArrayList argumentsForQt(const QByteArrayList &arguments)
{
    QByteArrayList forQt = arguments.mid(0, 1);
    const bool isPlatformChosen =
        !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"); // an argument overrides ours, because it comes later
    if (!isPlatformChosen && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsEmpty("DISPLAY"))
        forQt << "-platform"
              << "xcb;wayland"; // wayland if no X server can be reached
    for (int i = 1; i < arguments.size(); ++i) {
        const QByteArray &argument = arguments.at(i);
        if (argument == "--") // only drawings follow
            return forQt + arguments.mid(i);
        const bool isGeometry = argument == "--geometry" || argument == "-geometry"; // X programs' spelling
        if (isGeometry && i + 1 < arguments.size())
            forQt << "--geometry=" + arguments.at(++i); // a form that Qt ignores
        else
            forQt << argument;
    }
    return forQt;
}

} // namespace fxhost
