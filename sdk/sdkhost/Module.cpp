// SPDX-License-Identifier: MIT
#include <sdkhost/Module.h>

#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <CFxServices.h>
#include <OdEdCommand.h>
#include <OdRxModule.h>
#include <sdkhost/Host.h>
#include <sdkhost/Strings.h>

#include <QApplication>
#include <QFileInfo>
#include <QLocale>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace sdkhost {

Module::Module(const QString &name, const QString &file, Host &host)
    : m_name(name), m_file(file), m_host(host)
{
}

Module::~Module() = default;

bool Module::isCodeRunning() const
{
    const OdEdCommand *command = m_host.runningCommand();
    return (command && m_library.defines(typeid(*command))) || m_library.isOnStack();
}

Outcome Module::load()
{
    const QFileInfo file(m_file);
    if (!file.exists())
        return Outcome::failed(tr("There is no such file."));
    if (!file.isFile()) // loading a FIFO would block until there is a writer
        return Outcome::failed(tr("It is not a file."));
    const Outcome loaded = m_library.load(file.filePath());
    if (!loaded)
        return loaded;

    const auto version = m_library.function<OdrxGetApiVersionFn>("odrxGetAPIVersion");
    if (!version)
        return Outcome::failed(tr("It is not a module: it does not export odrxGetAPIVersion."));
    if (!m_library.function<OdrxCreateModuleObjectFn>("odrxCreateModuleObject"))
        return Outcome::failed(tr("It is not a module: it does not export odrxCreateModuleObject."));
    int major = 0;
    int minor = 0;
    int majorBuild = 0;
    int minorBuild = 0;
    const Outcome asked = Outcome::of([&] { version(major, minor, majorBuild, minorBuild); });
    if (!asked)
        return Outcome::failed(tr("Its interface version cannot be read: %1").arg(asked.reason()));
    if (major != odrxApiMajor || minor != odrxApiMinor || majorBuild != odrxApiMajorBuild ||
        minorBuild != odrxApiMinorBuild) {
        const auto text = [](int a, int b, int c, int d) {
            return QStringLiteral("%1.%2.%3.%4").arg(a).arg(b).arg(c).arg(d);
        };
        return Outcome::failed(
            tr("It was built for interface version %1, but this host has version %2.")
                .arg(text(major, minor, majorBuild, minorBuild),
                     text(odrxApiMajor, odrxApiMinor, odrxApiMajorBuild, odrxApiMinorBuild)));
    }
    return {};
}

Outcome Module::start()
{
    const QFileInfo file(m_file);
    if (m_texts.load(QLocale(), file.completeBaseName(), QStringLiteral("_"),
                     file.path() + QStringLiteral("/translations")))
        QCoreApplication::installTranslator(&m_texts);
    const auto create = m_library.function<OdrxCreateModuleObjectFn>("odrxCreateModuleObject");
    const OdString name = toOdString(m_name);
    const Outcome created = Outcome::of([&] { m_object = create(m_library.handle(), name.c_str()); });
    if (!created)
        return Outcome::failed(tr("Its module object cannot be created: %1").arg(created.reason()));
    if (!m_object)
        return Outcome::failed(tr("It does not create a module object."));
    m_object->addRef();
    const Outcome started = Outcome::of([&] { m_object->initApp(); });
    if (!started)
        return Outcome::failed(tr("It cannot start: %1").arg(started.reason()));
    m_isStarted = true;
    notifyOfMainWindow(true);
    notifyOfDocument();
    return {};
}

Outcome Module::end()
{
    QStringList failures;
    if (m_isStarted) {
        notifyOfMainWindow(false);
        failures << Outcome::of([&] { m_object->uninitApp(); }).reason();
    }
    removeRegistrations();
    if (m_object) {
        m_object->release();
        failures << Outcome::of([&] { m_object->deleteModule(); }).reason();
        m_object = nullptr;
    }
    deleteWidgets();
    // Objects that the module passed to deleteLater() must be deleted now, while their code is loaded.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    failures.removeAll(QString());
    return failures.isEmpty() ? Outcome() : Outcome::failed(failures.join(QLatin1Char(' ')));
}

//! The reactors whose class the module defines.
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

//! Notifies only the module's reactors; the others have been notified before.
void Module::notifyOfMainWindow(bool created) const
{
    CFxMainFrame *const frame = m_host.services().GetMainFrame();
    QWidget *const window = frame ? frame->GetMainWindow() : nullptr;
    if (!window)
        return;
    const auto &reactors = m_host.editor().reactors();
    reactors.notifyThese(
        own(reactors), created ? &CFxEditorReactor::mainFrameCreated : &CFxEditorReactor::mainFrameDestroyed,
        window);
}

//! Notifies the module of the current drawing as if it had just been created.
void Module::notifyOfDocument() const
{
    const auto &reactors = m_host.documentReactors();
    for (CFxDocumentManagerReactor *reactor : own(reactors)) {
        if (CFxDocument *document = m_host.currentDocument()) // a reactor may have closed it
            reactors.notifyThese({reactor}, &CFxDocumentManagerReactor::DocumentCreated, document);
    }
}

//! Removes the commands and reactors that the module has left. A module may only remove them when the main
//! window is destroyed, of which it is not notified if there was none.
void Module::removeRegistrations() const
{
    const auto commands = m_host.commandStack().commands(); // a copy, because the list changes below
    for (OdEdCommand *command : commands) {
        if (m_library.defines(typeid(*command)))
            m_host.commandStack().removeCommand(command);
    }
    for (OdEditorReactor *reactor : own(m_host.editor().reactors()))
        m_host.editor().removeReactor(reactor);
    for (CFxDocumentManagerReactor *reactor : own(m_host.documentReactors()))
        m_host.documentReactors().remove(reactor);
}

//! Deletes the remaining widgets of the module's classes, except for static objects, which the library
//! destroys.
void Module::deleteWidgets() const
{
    std::vector<QPointer<QWidget>> own; // deleting a widget also deletes its children
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (m_library.defines(typeid(*widget)) && !m_library.contains(widget))
            own.emplace_back(widget);
    }
    for (const QPointer<QWidget> &widget : own)
        delete widget.data();
}

} // namespace sdkhost
