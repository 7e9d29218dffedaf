// SPDX-License-Identifier: MIT
#include "host/app/StartArguments.h"

namespace fxhost {

QByteArrayList argumentsForQt(const QByteArrayList &arguments)
{
    QByteArrayList forQt = arguments.mid(0, 1);
    const bool isPlatformChosen =
        !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"); // by argument: the last counts
    if (!isPlatformChosen && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsEmpty("DISPLAY"))
        forQt << "-platform"
              << "xcb;wayland"; // the second where no X server can be reached
    for (int i = 1; i < arguments.size(); ++i) {
        const QByteArray &argument = arguments.at(i);
        if (argument == "--") // what follows are drawings
            return forQt + arguments.mid(i);
        const bool isGeometry = argument == "--geometry" || argument == "-geometry"; // as X programs spell it
        if (isGeometry && i + 1 < arguments.size())
            forQt << "--geometry=" + arguments.at(++i); // a form that Qt does not know
        else
            forQt << argument;
    }
    return forQt;
}

} // namespace fxhost
