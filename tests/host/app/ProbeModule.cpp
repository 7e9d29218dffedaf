// SPDX-License-Identifier: MIT
// A module that writes a line to the standard output for each call that it receives.
#include <CFxCommand.h>
#include <CFxCommandContext.h>
#include <CFxDocumentManager.h>
#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <CFxServices.h>
#include <OdEdCommandStack.h>
#include <OdEditor.h>
#include <OdRxUnixModule.h>
#include <OdStaticRxObject.h>
#include <vela_OdRxModule.h>

#include <QCoreApplication>
#include <QMenuBar>
#include <QProcess>
#include <QWidget>

#include <csignal>
#include <cstdio>

namespace {

void print(const QString &text)
{
    std::puts(qPrintable(text));
    std::fflush(stdout); // keeps the order with the host's own lines
}

//! Its destructor runs when the library is unloaded.
struct UnloadReport
{
    ~UnloadReport() { print("unloaded"); }
} unloadReport;

class ProbeCommand : public CFxCommand
{
public:
    static constexpr int resultOfItsOwn = 4711;

    OdString globalName() const override { return L"_PROBE"; }
    OdString localName() const override { return L"PROBE"; }
    int Execute(CFxCommandContext *context) override
    {
        const QString argument = context->argument();
        print(QString("Execute ") + argument);
        QStringList words = argument.split(' ');
        const QString action = words.takeFirst();
        for (const QString &word : qAsConst(words)) {
            if (action == "start")
                print(QString::number(QProcess::execute(word, {})));
            if (action == "translate") // a text that is its own context
                print(QCoreApplication::translate(qPrintable(word), qPrintable(word)));
            if (action != "raise")
                continue;
            std::raise(word.toInt());
            print(QString("raised ") + word);
        }
        return resultOfItsOwn;
    }
};

class ProbeModule : public vela_OdRxModule, public CFxEditorReactor, public CFxDocumentManagerReactor
{
public:
    void initApp() override
    {
        print("initApp");
        OdEdCommandStack *stack = odedRegCmds();
        stack->addCommand(&m_command);
        stack->release();
        OdEditor *editor = odedEditor();
        editor->addReactor(this);
        editor->release();
        GetFxSystemServices()->GetDocumentManager()->AddReactor(this);
    }

    void uninitApp() override { print("uninitApp"); }

    void mainFrameCreated(QWidget *mainFrame) override
    {
        print(mainFrame->isVisible() ? "mainFrameCreated visible" : "mainFrameCreated hidden");
    }

    void mainFrameDestroyed(QWidget *mainFrame) override
    {
        const bool alive = mainFrame && mainFrame->findChild<QMenuBar *>() &&
                           GetFxSystemServices()->GetMainFrame()->GetMainWindow() == mainFrame;
        print(alive ? "mainFrameDestroyed alive" : "mainFrameDestroyed deleted");
        OdEdCommandStack *stack = odedRegCmds();
        stack->removeCommand(&m_command);
        stack->release();
        OdEditor *editor = odedEditor();
        editor->removeReactor(this);
        editor->release();
        GetFxSystemServices()->GetDocumentManager()->RemoveReactor(this);
    }

    void DocumentCreated(CFxDocument *) override { print("DocumentCreated"); }
    void DocumentDestroyed(const CFxString &) override { print("DocumentDestroyed"); }

private:
    OdStaticRxObject<ProbeCommand> m_command;
};

} // namespace

void deleteModuleObject() {}

extern "C" __attribute__((visibility("default"))) void odrxGetAPIVersion(int &major, int &minor,
                                                                         int &majorBuild, int &minorBuild)
{
    major = odrxApiMajor;
    minor = odrxApiMinor;
    majorBuild = odrxApiMajorBuild;
    minorBuild = odrxApiMinorBuild;
}

extern "C" __attribute__((visibility("default"))) OdRxModule *odrxCreateModuleObject(void *sysData,
                                                                                     const OdChar *moduleName)
{
    return new OdRxUnixModule<ProbeModule, ProbeModule>(sysData, moduleName);
}
