// SPDX-License-Identifier: MIT
#pragma once

#include <CFxUICustomization.h>
#include <sdkhost/UIGroup.h>

#include <QObject>

#include <memory>
#include <vector>

namespace sdkhost {

//! The menus and keys of a host that has no customisation data of its own: groups, and a separate start-up
//! group with the menus that are shown while no drawing is open. Empty at first: a program adds its groups
//! before it creates its menus. GUI thread.
class FXSDK_API Customization : public QObject, public CFxUICustomization
{
    Q_OBJECT
public:
    explicit Customization(QObject *parent = nullptr);
    ~Customization() override;

    //! Appends a group. One must be primary. \return it, owned by this
    UIGroup &addGroup(const CFxString &name, bool isPrimary);
    //! Adds the start-up group, once. \return it, owned by this
    UIGroup &addStartUpGroup(const CFxString &name);
    //! The primary group; null if there is none yet.
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

Q_SIGNALS:
    //! Menus and keys must be created again from the data.
    void refreshed();

private:
    std::vector<std::unique_ptr<UIGroup>> m_groups;
    std::unique_ptr<UIGroup> m_startUp;
};

} // namespace sdkhost
