// SPDX-License-Identifier: MIT
#include "tests/support/fake/FakeHost.h"

#include "tests/support/fake/FakeCustomization.h"

#include <OdEdCommand.h>
#include <OdRxAlloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>

namespace {

FakeHost *fakeHost = nullptr;
std::atomic<int> previewsCreatedSoFar{0};
std::atomic<int> previewsAliveNow{0};

QString text(const OdString &string)
{
    return QString::fromWCharArray(string.c_str());
}

bool sameName(const OdString &a, const OdString &b)
{
    return text(a).compare(text(b), Qt::CaseInsensitive) == 0;
}

template<class Reactor>
void take(std::vector<Reactor *> &list, const Reactor *reactor)
{
    list.erase(std::remove(list.begin(), list.end(), reactor), list.end());
}

class FakePreview : public CFxPreviewBitmap
{
public:
    FakePreview()
    {
        ++previewsCreatedSoFar;
        ++previewsAliveNow;
    }
    ~FakePreview() override { --previewsAliveNow; }

    bool Load(const CFxString &path) override
    {
        reportStep("load");
        return fakeHost && fakeHost->onLoadPreview && fakeHost->onLoadPreview(path, m_image);
    }
    bool IsValid() const override
    {
        reportStep("validate");
        return fakeHost && fakeHost->previewsAreValid;
    }
    void ToImage(QImage &image) const override
    {
        reportStep("convert");
        image = m_image;
        reportStep("converted");
    }

    static void reportStep(const char *step)
    {
        if (fakeHost && fakeHost->onPreviewStep)
            fakeHost->onPreviewStep(QLatin1String(step));
    }

private:
    QImage m_image;
};

} // namespace

class FakeHost::Services : public CFxSystemServices,
                           public CFxApplication,
                           public CFxUserProfile,
                           public CFxRecentFileList,
                           public CFxMainFrame,
                           public CFxDocumentManager
{
public:
    explicit Services(FakeHost &host) : m_host(host) {}

    CFxApplication *GetApplication() override { return m_host.hasApplication ? this : nullptr; }
    CFxMainFrame *GetMainFrame() override { return m_host.hasMainFrame ? this : nullptr; }
    CFxDocumentManager *GetDocumentManager() override { return m_host.hasDocumentManager ? this : nullptr; }
    CFxUICustomization *GetCustomization() override
    {
        return m_host.hasCustomization ? m_host.m_customization.get() : nullptr;
    }
    OdRxObject *RunCommand(const CFxString &name, const CFxString *argument) override;

    CFxUserProfile *GetUserProfile() override { return m_host.hasUserProfile ? this : nullptr; }
    CFxRecentFileList *GetRecentFileList() override { return m_host.hasRecentFileList ? this : nullptr; }
    void GetPaths(std::vector<CFxString> &paths) const override { paths = m_host.m_recent; }
    QWidget *GetMainWindow() override { return m_host.hasMainWindow ? m_host.m_mainWindow.get() : nullptr; }

    void AddReactor(CFxDocumentManagerReactor *reactor) override
    {
        m_host.calls.append("documents add reactor");
        m_host.documentReactors.push_back(reactor);
    }
    void RemoveReactor(CFxDocumentManagerReactor *reactor) override
    {
        m_host.calls.append("documents remove reactor");
        take(m_host.documentReactors, reactor);
    }
    bool OpenDocument(const CFxString &path, int mode, int flags, OdString &result) override
    {
        m_host.calls.append("open " + QString(path));
        m_host.opened.push_back({path, mode, flags, result.isEmpty()});
        if (m_host.onOpen)
            m_host.onOpen(path);
        return m_host.opensDocuments;
    }

private:
    FakeHost &m_host;
};

//! An object of the host whose references the host counts.
template<class Base>
class Counted : public Base
{
public:
    Counted(FakeHost &host, QString name) : m_host(host), m_name(std::move(name)) {}
    void addRef() override
    {
        ++m_references;
        ++m_host.openReferences;
        m_host.calls.append(m_name + " taken");
    }
    void release() override
    {
        --m_references;
        --m_host.openReferences;
        m_host.calls.append(m_name + " released");
    }
    int numRefs() const override { return m_references; }

protected:
    FakeHost &m_host;

private:
    QString m_name;
    int m_references = 0;
};

class FakeHost::Stack : public Counted<OdEdCommandStack>
{
public:
    explicit Stack(FakeHost &host) : Counted(host, "stack") {}

    void addCommand(OdEdCommand *command) override
    {
        m_host.note("stack add " + text(command->globalName()), m_host.onCommandStack);
        m_host.commands.push_back(command);
    }
    void removeCommand(OdEdCommand *command) override
    {
        m_host.note("stack remove " + text(command->globalName()), m_host.onCommandStack);
        const auto isIt = [command](const OdEdCommand *listed) {
            return sameName(listed->globalName(), command->globalName()) &&
                   sameName(listed->localName(), command->localName()) &&
                   listed->groupName() == command->groupName();
        };
        auto &list = m_host.commands;
        list.erase(std::remove_if(list.begin(), list.end(), isIt), list.end());
    }
    OdEdCommand *lookupCommand(const OdString &name, int flags, const OdString &group) const override
    {
        m_host.note(QStringLiteral("stack lookup %1 %2 \"%3\"").arg(text(name)).arg(flags).arg(text(group)),
                    m_host.onCommandStack);
        for (OdEdCommand *command : m_host.commands) {
            const bool byGlobal = (flags & GlobalNames) && sameName(command->globalName(), name);
            const bool byLocal = (flags & LocalNames) && sameName(command->localName(), name);
            if ((byGlobal || byLocal) && (group.isEmpty() || command->groupName() == group)) {
                command->addRef();
                return command;
            }
        }
        return nullptr;
    }
};

class FakeHost::EditorObject : public Counted<OdEditor>
{
public:
    explicit EditorObject(FakeHost &host) : Counted(host, "editor") {}

    void addReactor(OdEditorReactor *reactor) override
    {
        m_host.note("editor add reactor", m_host.onEditor);
        m_host.editorReactors.push_back(reactor);
    }
    void removeReactor(OdEditorReactor *reactor) override
    {
        m_host.note("editor remove reactor", m_host.onEditor);
        take(m_host.editorReactors, reactor);
    }
};

class FakeHost::Run : public Counted<OdRxObject>
{
public:
    explicit Run(FakeHost &host) : Counted(host, "run") {}
};

OdRxObject *FakeHost::Services::RunCommand(const CFxString &name, const CFxString *argument)
{
    m_host.calls.append("run " + QString(name) + (argument ? " with " + QString(*argument) : QString()));
    m_host.commandsRun.append(name);
    if (m_host.onRunCommand)
        m_host.onRunCommand(name);
    if (!m_host.runCommandGivesHandle)
        return nullptr;
    m_host.m_runs.push_back(std::make_unique<Run>(m_host));
    m_host.m_runs.back()->addRef();
    return m_host.m_runs.back().get();
}

FakeHost::FakeHost()
    : m_customization(std::make_unique<FakeCustomization>(calls)),
      m_services(std::make_unique<Services>(*this)), m_stack(std::make_unique<Stack>(*this)),
      m_editor(std::make_unique<EditorObject>(*this)), m_mainWindow(std::make_unique<QWidget>())
{
    Q_ASSERT(!fakeHost);
    fakeHost = this;
    previewsCreatedSoFar = 0;
}

FakeHost::~FakeHost()
{
    fakeHost = nullptr;
}

void FakeHost::note(const QString &call, const std::function<void()> &hook)
{
    calls.append(call);
    if (hook)
        hook();
}

void FakeHost::deleteMainWindow()
{
    hasMainWindow = false;
    m_mainWindow.reset();
}

int FakeHost::previewsCreated() const
{
    return previewsCreatedSoFar;
}

int FakeHost::previewsAlive() const
{
    return previewsAliveNow;
}

QStringList FakeHost::openedPaths() const
{
    QStringList paths;
    for (const OpenCall &call : opened)
        paths.append(call.path);
    return paths;
}

// These replace the runtime library's own functions, in this program alone.

void *odrxAlloc(std::size_t size)
{
    if (FakeMemory::isOut)
        return nullptr;
    void *memory = std::malloc(size);
    FakeMemory::inUse.insert(memory);
    return memory;
}

void odrxFree(void *memory)
{
    FakeMemory::inUse.erase(memory);
    std::free(memory);
}

CFxSystemServices *GetFxSystemServices()
{
    return fakeHost && fakeHost->hasServices ? fakeHost->m_services.get() : nullptr;
}

OdEdCommandStack *odedRegCmds()
{
    if (!fakeHost || !fakeHost->hasCommandStack)
        return nullptr;
    fakeHost->m_stack->addRef();
    return fakeHost->m_stack.get();
}

OdEditor *odedEditor()
{
    if (!fakeHost || !fakeHost->hasEditor)
        return nullptr;
    fakeHost->m_editor->addRef();
    return fakeHost->m_editor.get();
}

CFxPreviewBitmap *CFxPreviewBitmap::Create()
{
    FakePreview::reportStep("create");
    return fakeHost && !fakeHost->previewFactoryGivesObjects ? nullptr : new FakePreview;
}
