// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/Outcome.h"
#include "host/runtime/customization/UIGroup.h"

#include <CFxUICustomization.h>

#include <QByteArray>
#include <QObject>

#include <memory>
#include <vector>

namespace fxhost {

//! The host's menus and keys as data: groups, and a separate start-up group with the menus that are shown
//! while no drawing is open. Empty until load(). GUI thread.
class FXHOST_API Customization : public QObject, public CFxUICustomization
{
    Q_OBJECT
public:
    explicit Customization(QObject *parent = nullptr);
    ~Customization() override;

    //! Replaces all groups with those that readCustomization() reads from json. The former groups and their
    //! contents must not be in use, so a program calls this once, before it creates its menus.
    //! \return a failure if the data are not valid; nothing is changed then
    Outcome load(const QByteArray &json);
    //! The primary group; null before load().
    UIGroup *primaryGroup() const;
    UIGroup *startUpGroup() const { return m_startUp.get(); }

    //! The groups in the data's order, without the start-up group.
    CFxUIGroupEnumerator *EnumerateGroups() override;
    bool IsPrimary(const CFxUIGroup *group) const override;
    CFxUIGroup *GetStartUpGroup() override;
    CFxUICommand *FindCommand(const CFxString &groupName, const CFxString &identifier) const override;
    CFxUICommand *CreateCommand(const CFxString &identifier) override;
    CFxUIMenuItem *CreateMenuItem(CFxUICommand *command, const CFxString &label, const CFxString &helpString,
                                  const CFxString &identifier) override;
    CFxUIAccelerator *CreateAccelerator(CFxUICommand *command, const CFxString &identifier) override;
    void Refresh() override;

signals:
    //! Menus and keys must be created again from the data.
    void refreshed();

private:
    std::vector<std::unique_ptr<UIGroup>> m_groups;
    std::unique_ptr<UIGroup> m_startUp;
};

} // namespace fxhost
