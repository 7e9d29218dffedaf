// SPDX-License-Identifier: MIT
// Modules with one fault each, MODULE_FAULT.
#include "tests/support/modules/TestModule.h"

#include <CFxCommand.h>
#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <OdStaticRxObject.h>

#include <QWidget>

#include <stdexcept>

namespace {

enum class Fault {
    WrongVersion,
    ThrowsWhenAsked,
    ThrowsWhenCreated,
    CreatesNothing,
    ThrowsWhenStarted,
    ThrowsWhenEnded,
    LeavesThings
};
constexpr Fault fault = Fault::MODULE_FAULT;

//! An exception whose code is in the library.
class ModuleError : public std::runtime_error
{
public:
    ModuleError() : std::runtime_error("no more chalk") {}
    ~ModuleError() override { m_text.clear(); }

private:
    QString m_text = QStringLiteral("makes the destructor non-trivial");
};

class LeftCommand : public CFxCommand
{
public:
    OdString globalName() const override { return L"_LEFT"; }
    OdString localName() const override { return L"_LEFT"; }
    int Execute(CFxCommandContext *) override { return normalCompletion; }
};

class LeftWidget : public QWidget
{
public:
    using QWidget::QWidget;
    ~LeftWidget() override { noteCall("faulty", objectName() + QLatin1String(" deleted")); }
};

class LeftObject : public QObject
{
public:
    ~LeftObject() override { noteCall("faulty", QStringLiteral("object deleted")); }
};

class FaultyModule : public vela_OdRxModule, public CFxDocumentManagerReactor, public CFxEditorReactor
{
public:
    void initApp() override
    {
        registerModule(this, &m_command);
        if (fault == Fault::ThrowsWhenStarted)
            throw ModuleError();
    }

    void uninitApp() override
    {
        if (fault == Fault::ThrowsWhenEnded)
            throw ModuleError();
    }

    void mainFrameCreated(QWidget *mainFrame) override
    {
        (new LeftWidget(mainFrame))->setObjectName(QStringLiteral("child"));
        (new LeftWidget)->setObjectName(QStringLiteral("window"));
        static LeftWidget ownedByTheLibrary;
        ownedByTheLibrary.setObjectName(QStringLiteral("static"));
    }

    void mainFrameDestroyed(QWidget *) override { (new LeftObject)->deleteLater(); }

private:
    OdStaticRxObject<LeftCommand> m_command;
};

} // namespace

MODULE_EXPORT void odrxGetAPIVersion(int &major, int &minor, int &majorBuild, int &minorBuild)
{
    if (fault == Fault::ThrowsWhenAsked)
        throw ModuleError();
    reportVersion(major, minor, majorBuild, minorBuild);
    if (fault == Fault::WrongVersion)
        minorBuild += 7;
}

MODULE_EXPORT OdRxModule *odrxCreateModuleObject(void *sysData, const OdChar *moduleName)
{
    if (fault == Fault::ThrowsWhenCreated)
        throw ModuleError();
    if (fault == Fault::CreatesNothing)
        return nullptr;
    return new OdRxUnixModule<FaultyModule, FaultyModule>(sysData, moduleName);
}

void deleteModuleObject() {}
