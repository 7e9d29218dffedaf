// SPDX-License-Identifier: MIT
// A module as it should be, which notes everything that the host does with it. MODULE_NAME tells the
// libraries that are made of this file apart.
#include "tests/support/modules/TestModule.h"

#include <CFxDocumentManager.h>
#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <CFxServices.h>
#include <CFxString.h>
#include <OdEditor.h>

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
        note(QStringLiteral("initApp"));
        OdEditor *const editor = odedEditor();
        editor->addReactor(this);
        editor->release();
        GetFxSystemServices()->GetDocumentManager()->AddReactor(this);
    }

    void uninitApp() override
    {
        note(GetFxSystemServices() ? QStringLiteral("uninitApp")
                                   : QStringLiteral("uninitApp without a host"));
    }

    void mainFrameCreated(QWidget *) override { note(QStringLiteral("mainFrameCreated")); }

    void mainFrameDestroyed(QWidget *) override
    {
        note(QStringLiteral("mainFrameDestroyed"));
        OdEditor *const editor = odedEditor();
        editor->removeReactor(this);
        editor->release();
        GetFxSystemServices()->GetDocumentManager()->RemoveReactor(this);
    }

    void DocumentCreated(CFxDocument *) override { note(QStringLiteral("DocumentCreated")); }
};

class RecordingModuleObject : public OdRxUnixModule<RecordingModuleObject, RecordingModule>
{
public:
    using OdRxUnixModule::OdRxUnixModule;

    void addRef() override
    {
        note(QStringLiteral("addRef"));
        OdRxUnixModule::addRef();
    }

    void release() override
    {
        note(QStringLiteral("release"));
        OdRxUnixModule::release();
    }

    void deleteModule() override
    {
        note(QStringLiteral("deleteModule"));
        OdRxUnixModule::deleteModule();
    }
};

RecordingModuleObject *module = nullptr;

//! Goes with the library's static objects.
struct UnloadNote
{
    ~UnloadNote() { note(QStringLiteral("unloaded")); }
} unloadNote;

} // namespace

MODULE_EXPORT void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    major = odrxApiMajor;
    minor = odrxApiMinor;
    majorBuild = odrxApiMajorBuild;
    minorBuild = odrxApiMinorBuild;
}

MODULE_EXPORT OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName)
{
    note(QStringLiteral("create ") + CFxString(moduleName));
    module = new RecordingModuleObject(sysData, moduleName);
    return module;
}

void deleteModuleObject()
{
    module = nullptr;
}
