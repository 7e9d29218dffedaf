// SPDX-License-Identifier: MIT
#include "host/runtime/modules/Module.h"

#include "host/runtime/FxHost.h"
#include "host/runtime/Paths.h"
#include "host/runtime/Strings.h"
#include "host/runtime/commands/CommandRunner.h"
#include "host/runtime/commands/CommandStack.h"
#include "host/runtime/documents/DocumentManager.h"
#include "host/runtime/editor/Editor.h"

#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <OdEdCommand.h>
#include <OdRxModule.h>

#include <QApplication>
#include <QFileInfo>
#include <QPointer>
#include <QWidget>

#include <exception>
#include <vector>

namespace fxhost {

namespace {

//! Calls into the module. The exception itself is gone on return, since its code goes with the module.
//! \return what it threw; empty when it threw nothing
template<class Call>
QString failureOf(Call &&call)
{
    try {
        call();
        return {};
    } catch (const std::exception &error) {
        const QString what = QString::fromLocal8Bit(error.what());
        return what.isEmpty() ? QStringLiteral("std::exception") : what;
    } catch (...) {
        return QStringLiteral("unknown exception");
    }
}

} // namespace

Module::Module(const QString &path, FxHost &host) : m_path(path), m_host(host) {}

Module::~Module() = default;

bool Module::isAtWork() const
{
    const OdEdCommand *command = m_host.commands().running();
    return (command && m_library.defines(typeid(*command))) || m_library.isOnStack();
}

QString Module::load()
{
    const QFileInfo file(absolutePath(m_path));
    if (!file.exists())
        return tr("There is no such file.");
    if (!file.isFile()) // and loading a FIFO would wait for somebody to write to it
        return tr("It is not a file.");
    const QString problem = m_library.load(file.filePath());
    if (!problem.isEmpty())
        return problem;

    const auto version = m_library.function<OdrxGetApiVersionFn>("odrxGetAPIVersion");
    if (!version)
        return tr("It is no module: it does not export odrxGetAPIVersion.");
    if (!m_library.function<OdrxCreateModuleObjectFn>("odrxCreateModuleObject"))
        return tr("It is no module: it does not export odrxCreateModuleObject.");
    int major = 0;
    int minor = 0;
    int majorBuild = 0;
    int minorBuild = 0;
    const QString failure = failureOf([&] { version(major, minor, majorBuild, minorBuild); });
    if (!failure.isEmpty())
        return tr("It does not tell its interface version: %1").arg(failure);
    if (major != odrxApiMajor || minor != odrxApiMinor || majorBuild != odrxApiMajorBuild ||
        minorBuild != odrxApiMinorBuild) {
        const auto text = [](int a, int b, int c, int d) {
            return QStringLiteral("%1.%2.%3.%4").arg(a).arg(b).arg(c).arg(d);
        };
        return tr("It was built for the interface version %1, and this is %2.")
            .arg(text(major, minor, majorBuild, minorBuild),
                 text(odrxApiMajor, odrxApiMinor, odrxApiMajorBuild, odrxApiMinorBuild));
    }
    return {};
}

QString Module::start()
{
    const auto create = m_library.function<OdrxCreateModuleObjectFn>("odrxCreateModuleObject");
    const OdString name = toOdString(m_path);
    QString failure = failureOf([&] { m_object = create(m_library.handle(), name.c_str()); });
    if (!failure.isEmpty())
        return tr("Its module object cannot be created: %1").arg(failure);
    if (!m_object)
        return tr("It creates no module object.");
    m_object->addRef();
    failure = failureOf([&] { m_object->initApp(); });
    if (!failure.isEmpty())
        return tr("It cannot start: %1").arg(failure);
    m_isStarted = true;
    tellOfMainWindow(true);
    m_host.documents().introduceCurrent(own(m_host.documents().reactors()));
    return {};
}

QString Module::end()
{
    QStringList failures;
    if (m_isStarted) {
        tellOfMainWindow(false);
        failures << failureOf([&] { m_object->uninitApp(); });
    }
    removeRegistrations();
    if (m_object) {
        m_object->release();
        failures << failureOf([&] { m_object->deleteModule(); });
        m_object = nullptr;
    }
    deleteWidgets();
    // What the module asked to be deleted later must be deleted now, while its destructor exists.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    failures.removeAll(QString());
    return failures.join(QLatin1Char(' '));
}

//! The module's among the reactors.
template<class Reactor>
std::vector<Reactor *> Module::own(const ReactorList<Reactor> &reactors) const
{
    std::vector<Reactor *> found;
    for (Reactor *reactor : reactors.all()) {
        if (m_library.defines(typeid(*reactor)))
            found.push_back(reactor);
    }
    return found;
}

//! Notifies the module's reactors alone: the others know.
void Module::tellOfMainWindow(bool created) const
{
    QWidget *const window = m_host.mainWindow();
    if (!window)
        return;
    const auto &reactors = m_host.editor().reactors();
    reactors.notifyThese(
        own(reactors), created ? &CFxEditorReactor::mainFrameCreated : &CFxEditorReactor::mainFrameDestroyed,
        window);
}

//! A module that never heard of a main window may count on hearing of its end, and still be registered.
void Module::removeRegistrations() const
{
    const auto commands = m_host.commandStack().commands(); // copies: the originals change on the way
    for (OdEdCommand *command : commands) {
        if (m_library.defines(typeid(*command)))
            m_host.commandStack().removeCommand(command);
    }
    for (OdEditorReactor *reactor : own(m_host.editor().reactors()))
        m_host.editor().removeReactor(reactor);
    for (CFxDocumentManagerReactor *reactor : own(m_host.documents().reactors()))
        m_host.documents().RemoveReactor(reactor);
}

//! Deletes the widgets of the module's classes that are still there. Its static ones it destroys itself.
void Module::deleteWidgets() const
{
    std::vector<QPointer<QWidget>> own; // a widget takes its children along
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (m_library.defines(typeid(*widget)) && !m_library.contains(widget))
            own.emplace_back(widget);
    }
    for (const QPointer<QWidget> &widget : own)
        delete widget.data();
}

} // namespace fxhost
