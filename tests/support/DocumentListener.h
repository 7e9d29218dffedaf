// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHost.h"
#include "host/runtime/documents/DocumentManager.h"

#include <CFxDocumentManagerReactor.h>
#include <CFxEditorReactor.h>
#include <sdkhost/Editor.h>

#include <QStringList>

#include <functional>
#include <utility>

//! Records every event with the document's title, and can call a function at one of them.
class DocumentListener : public CFxDocumentManagerReactor, public CFxEditorReactor
{
public:
    explicit DocumentListener(fxhost::FxHost &host) : m_host(host)
    {
        host.documents().AddReactor(this);
        host.editor().addReactor(this);
    }
    ~DocumentListener() override
    {
        m_host.documents().RemoveReactor(this);
        m_host.editor().removeReactor(this);
    }

    void on(const QString &event, std::function<void(CFxDocument *)> action)
    {
        m_event = event;
        m_action = std::move(action);
    }

    void DocumentCreateStarted(CFxDocument *d) override { note("CreateStarted", d); }
    void DocumentCreated(CFxDocument *d) override { note("Created", d); }
    void DocumentToBeDestroyed(CFxDocument *d) override { note("ToBeDestroyed", d); }
    void DocumentDestroyed(const CFxString &path) override { events << QLatin1String("Destroyed ") + path; }
    void DatabaseAttached(CFxDocument *d) override { note("DatabaseAttached", d); }
    void DatabaseDetached(CFxDocument *d) override { note("DatabaseDetached", d); }
    void DocumentToBeActivated(CFxDocument *d) override { note("ToBeActivated", d); }
    void DocumentToBeDeactivated(CFxDocument *d) override { note("ToBeDeactivated", d); }
    void DocumentActivated(CFxDocument *d) override { note("Activated", d); }
    void DocumentBecameCurrent(CFxDocument *d) override { note("BecameCurrent", d); }
    void DocumentActivationModified(bool on) override
    {
        events << QStringLiteral("ActivationModified %1").arg(on ? 1 : 0);
    }
    void DocumentPreOpen(const CFxString &path) override { events << QLatin1String("PreOpen ") + path; }
    void cancelDwgOpen(const CFxString &path) override { events << QLatin1String("cancelDwgOpen ") + path; }

    QStringList events;

private:
    void note(const char *event, CFxDocument *document)
    {
        const QString name = QString::fromLatin1(event);
        events << name + QLatin1Char(' ') + document->title();
        if (name == m_event && m_action)
            std::exchange(m_action, nullptr)(document);
    }

    fxhost::FxHost &m_host;
    QString m_event;
    std::function<void(CFxDocument *)> m_action;
};
