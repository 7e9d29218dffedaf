// SPDX-License-Identifier: MIT
// A host that is a static object: it ends after main(), when the static objects of the module, which were
// created later, are destroyed already. static_host MODULE PROFILE delete|keep [DRAWING...]
#include "host/runtime/FxHost.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/recent/RecentFiles.h"

#include <OdRxModule.h>
#include <sdkhost/Editor.h>

#include <QApplication>
#include <QMainWindow>

#include <dlfcn.h>

#include <memory>

namespace {

struct StaticHost
{
    StaticHost()
    {
        // As in a program that links against the module, whose static objects are then destroyed last.
        if (qEnvironmentVariableIsSet("EARLY_MODULE"))
            dlopen(qgetenv("EARLY_MODULE").constData(), RTLD_NOW);
    }
    ~StaticHost()
    {
        if (!module) // main() has reported why
            return;
        host->editor().reactors().notify(&CFxEditorReactor::mainFrameDestroyed, nullptr);
        module->uninitApp();
        module->release();
        if (deletesModule)
            module->deleteModule();
    }

    std::unique_ptr<fxhost::FxHost> host;
    OdRxModule *module = nullptr;
    bool deletesModule = false;
} theHost;

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv); // Qt's own platform plug-in would not outlive main()
    const QStringList arguments = QApplication::arguments();
    theHost.host = std::make_unique<fxhost::FxHost>(arguments.at(2), QString());
    theHost.host->recentFiles().setPaths(arguments.mid(4));
    theHost.deletesModule = arguments.at(3) == "delete";

    void *library = dlopen(argv[1], RTLD_NOW);
    if (!library)
        qFatal("%s cannot be loaded", argv[1]);
    const auto create = reinterpret_cast<OdrxCreateModuleObjectFn>(dlsym(library, "odrxCreateModuleObject"));
    theHost.module = create(library, L"browser");
    theHost.module->addRef();
    theHost.module->initApp();
    QMainWindow window;
    theHost.host->setMainWindow(&window);
    theHost.host->documents().newDocument();
    theHost.host->commands().runLine("_RECENT");
    return 0;
}
