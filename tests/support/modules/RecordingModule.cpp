// SPDX-License-Identifier: MIT
// A correct module that records all calls of the host. The libraries made of this file differ in MODULE_NAME.
#include "tests/support/modules/TestModule.h"

#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <CFxString.h>

namespace {

void note(const QString &call)
{
    noteCall(MODULE_NAME, call);
}

class RecordingModule : public vela_OdRxModule, public CFxEditorReactor, public CFxDocumentManagerReactor
{
public:
    void initApp() override
    {
        note("initApp");
        registerModule(this);
    }

    void uninitApp() override { note(GetFxSystemServices() ? "uninitApp" : "uninitApp without a host"); }

    void mainFrameCreated(QWidget *) override { note("mainFrameCreated"); }

    void mainFrameDestroyed(QWidget *) override
    {
        note("mainFrameDestroyed");
        unregisterModule(this);
    }

    void DocumentCreated(CFxDocument *) override { note("DocumentCreated"); }
};

class RecordingModuleObject : public OdRxUnixModule<RecordingModuleObject, RecordingModule>
{
public:
    using OdRxUnixModule::OdRxUnixModule;

    void addRef() override
    {
        note("addRef");
        OdRxUnixModule::addRef();
    }

    void release() override
    {
        note("release");
        OdRxUnixModule::release();
    }

    void deleteModule() override
    {
        note("deleteModule");
        OdRxUnixModule::deleteModule();
    }
};

//! Destroyed with the library's static objects.
struct UnloadNote
{
    ~UnloadNote() { note("unloaded"); }
} unloadNote;

} // namespace

MODULE_EXPORT void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    reportVersion(major, minor, majorBuild, minorBuild);
}

MODULE_EXPORT OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName)
{
    note("create " + QString(CFxString(moduleName)));
    return new RecordingModuleObject(sysData, moduleName);
}

void deleteModuleObject() {}
