// SPDX-License-Identifier: MIT
// A module as it should be, which notes everything that the host does with it. MODULE_NAME tells the
// libraries that are made of this file apart.
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
        comeIn(this);
    }

    void uninitApp() override { note(GetFxSystemServices() ? "uninitApp" : "uninitApp without a host"); }

    void mainFrameCreated(QWidget *) override { note("mainFrameCreated"); }

    void mainFrameDestroyed(QWidget *) override
    {
        note("mainFrameDestroyed");
        goOut(this);
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

//! Goes with the library's static objects.
struct UnloadNote
{
    ~UnloadNote() { note("unloaded"); }
} unloadNote;

} // namespace

MODULE_EXPORT void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    tellVersion(major, minor, majorBuild, minorBuild);
}

MODULE_EXPORT OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName)
{
    note("create " + QString(CFxString(moduleName)));
    return new RecordingModuleObject(sysData, moduleName);
}

void deleteModuleObject() {}
