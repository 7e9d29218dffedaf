// SPDX-License-Identifier: MIT
// A second module: a command, both kinds of reactors and a panel in the main window, all of which record
// their calls. A click on the panel asks the host to unload the module.
#include "tests/support/modules/TestModule.h"

#include <CFxCommand.h>
#include <CFxCommandContext.h>
#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <CFxServices.h>
#include <OdStaticRxObject.h>

#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

namespace {

void note(const char *call)
{
    noteCall("companion", QLatin1String(call));
}

//! "_COMPANION"; with the argument "wait" it waits until it is cancelled.
class CompanionCommand : public CFxCommand
{
public:
    OdString globalName() const override { return L"_COMPANION"; }
    OdString localName() const override { return L"COMPANION"; }
    int Execute(CFxCommandContext *context) override
    {
        if (context->argument() == CFxString(L"wait")) {
            while (!context->isCancelled())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        note("Execute");
        return normalCompletion;
    }
};

class Panel : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void mousePressEvent(QMouseEvent *) override
    {
        const CFxString name(L"companion_module");
        if (OdRxObject *run = GetFxSystemServices()->RunCommand(L"_MODULEUNLOAD", &name))
            run->release();
        note("clicked");
    }
};

class CompanionModule : public vela_OdRxModule, public CFxDocumentManagerReactor, public CFxEditorReactor
{
public:
    void initApp() override { registerModule(this, &m_command); }

    void uninitApp() override {}

    void mainFrameCreated(QWidget *mainFrame) override
    {
        m_panel = new Panel(mainFrame);
        m_panel->setObjectName(QStringLiteral("companionPanel"));
        m_panel->show();
    }

    void mainFrameDestroyed(QWidget *) override
    {
        delete m_panel;
        unregisterModule(this, &m_command);
    }

    void DocumentCreated(CFxDocument *) override { note("DocumentCreated"); }
    void windowStateChanged(QWidget *) override { note("windowStateChanged"); }

private:
    OdStaticRxObject<CompanionCommand> m_command;
    QPointer<Panel> m_panel;
};

} // namespace

MODULE_EXPORT void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    reportVersion(major, minor, majorBuild, minorBuild);
}

MODULE_EXPORT OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName)
{
    return new OdRxUnixModule<CompanionModule, CompanionModule>(sysData, moduleName);
}

void deleteModuleObject() {}
