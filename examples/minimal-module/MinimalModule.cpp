// SPDX-License-Identifier: MIT
// A module with one command, _DRAWINGS, and one reactor, which counts the drawings.
#include <CFxCommand.h>
#include <CFxDocumentManager.h>
#include <CFxDocumentManagerReactor.h>
#include <CFxServices.h>
#include <OdEdCommandStack.h>
#include <OdRxUnixModule.h>
#include <OdStaticRxObject.h>
#include <vela_OdRxModule.h>

#include <iostream>

namespace {

int drawings = 0;

class DrawingsCommand : public CFxCommand
{
public:
    OdString globalName() const override { return L"_DRAWINGS"; }
    OdString localName() const override { return L"DRAWINGS"; }
    int Execute(CFxCommandContext *) override
    {
        std::cout << drawings << " drawings were opened or created" << std::endl;
        return normalCompletion;
    }
};

class MinimalModule : public vela_OdRxModule, public CFxDocumentManagerReactor
{
public:
    void initApp() override
    {
        OdEdCommandStack *stack = odedRegCmds();
        stack->addCommand(&m_command);
        stack->release();
        if (CFxDocumentManager *documents = GetFxSystemServices()->GetDocumentManager())
            documents->AddReactor(this);
    }
    void uninitApp() override
    {
        OdEdCommandStack *stack = odedRegCmds();
        stack->removeCommand(&m_command);
        stack->release();
        if (CFxDocumentManager *documents = GetFxSystemServices()->GetDocumentManager())
            documents->RemoveReactor(this);
    }
    void DocumentCreated(CFxDocument *) override { ++drawings; }

private:
    OdStaticRxObject<DrawingsCommand> m_command;
};

using ModuleObject = OdRxUnixModule<MinimalModule, MinimalModule>;
ModuleObject *moduleObject = nullptr;

} // namespace

extern "C" void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    major = odrxApiMajor;
    minor = odrxApiMinor;
    majorBuild = odrxApiMajorBuild;
    minorBuild = odrxApiMinorBuild;
}

extern "C" OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName)
{
    if (!moduleObject)
        moduleObject = new ModuleObject(sysData, moduleName);
    return moduleObject;
}

extern "C" void deleteModuleObject()
{
    moduleObject = nullptr;
}
