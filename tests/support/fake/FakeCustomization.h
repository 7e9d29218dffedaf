// SPDX-License-Identifier: MIT
#pragma once

#include <CFxUIAccelerator.h>
#include <CFxUICommand.h>
#include <CFxUICustomization.h>
#include <CFxUIGroup.h>
#include <CFxUIMenuItem.h>

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

class FakeCustomization;

//! Base class of the fake host's definitions, entries and keys. Tests may read and set the fields.
class FakeMenuObject
{
public:
    FakeMenuObject(FakeCustomization &menus, const QString &id);
    ~FakeMenuObject();
    Q_DISABLE_COPY(FakeMenuObject)

    QString identifier;

protected:
    FakeCustomization &m_menus;
};

//! A command definition of the fake host.
class FakeCommand : public CFxUICommand, public FakeMenuObject
{
public:
    using FakeMenuObject::FakeMenuObject;

    CFxString GetIdentifier() const override { return identifier; }
    CFxString GetName() const override { return name; }
    void SetName(const CFxString &text) override { name = text; }
    CFxString GetMacro() const override { return macro; }
    void SetMacro(const CFxString &text) override { macro = text; }
    CFxString GetHelpString() const override { return helpString; }
    void SetHelpString(const CFxString &text) override { helpString = text; }

    QString name;
    QString macro;
    QString helpString;
};

//! A menu or an entry of the fake host.
class FakeMenuItem : public CFxUIMenuItem, public FakeMenuObject
{
public:
    using FakeMenuObject::FakeMenuObject;

    //! Appends a child.
    FakeMenuItem &add(const QString &id);
    FakeMenuItem &child(int index) const { return *children.at(std::size_t(index)); }

    CFxString GetIdentifier() const override { return identifier; }
    CFxString GetLabel() const override { return label; }
    void SetLabel(const CFxString &text) override { label = text; }
    CFxUICommand *GetCommand() const override { return command; }
    void SetCommand(CFxUICommand *definition) override { command = definition; }
    int GetChildCount() const override { return int(children.size()); }
    CFxUIMenuItem *GetChild(int index) const override;
    bool InsertChild(int reference, CFxUIMenuItem *item) override;

    QString label;
    CFxUICommand *command = nullptr;
    std::vector<std::unique_ptr<FakeMenuItem>> children;
};

//! A key of the fake host.
class FakeAccelerator : public CFxUIAccelerator, public FakeMenuObject
{
public:
    using FakeMenuObject::FakeMenuObject;

    CFxString GetIdentifier() const override { return identifier; }
    CFxString GetLabel() const override { return label; }
    void SetLabel(const CFxString &text) override { label = text; }
    QKeySequence GetKey() const override { return key; }
    void SetKey(const QKeySequence &sequence) override { key = sequence; }
    CFxUICommand *GetCommand() const override { return command; }

    QString label;
    QKeySequence key;
    CFxUICommand *command = nullptr;
};

//! A group of the fake host; empty at first.
class FakeGroup : public CFxUIGroup
{
public:
    FakeGroup(FakeCustomization &service, const QString &groupName) : name(groupName), m_menus(service) {}

    FakeMenuItem &addMenu(const QString &id);
    FakeCommand &addCommand(const QString &id);
    FakeAccelerator &addAccelerator(const QString &id, const QKeySequence &key);

    CFxString GetName() const override { return name; }
    int GetCommandCount() const override { return int(commands.size()); }
    CFxUICommand *GetCommand(int index) const override;
    void AppendCommand(CFxUICommand *command) override;
    int GetMenuCount() const override { return int(menus.size()); }
    CFxUIMenuItem *GetMenu(int index) const override;
    int GetAcceleratorCount() const override { return int(accelerators.size()); }
    CFxUIAccelerator *GetAccelerator(int index) const override;
    void AppendAccelerator(CFxUIAccelerator *accelerator) override;

    QString name;
    bool isPrimary = false;
    std::vector<std::unique_ptr<FakeMenuItem>> menus;
    std::vector<std::unique_ptr<FakeCommand>> commands;
    std::vector<std::unique_ptr<FakeAccelerator>> accelerators;
    mutable QList<int> acceleratorsFetched; //!< the arguments of GetAccelerator(), in order

private:
    FakeCustomization &m_menus;
};

//! The menus and keys of a FakeHost: only what tests add, and any creation can fail. Each call of the
//! service, and each that passes an object to it, is recorded as a line that begins with "menus".
class FakeCustomization : public CFxUICustomization
{
public:
    //! \param calls receives the lines; must outlive this
    explicit FakeCustomization(QStringList &calls) : m_calls(calls) {}

    FakeGroup &addGroup(const QString &name, bool isPrimary);
    FakeGroup &setStartUpGroup(const QString &name);

    //! Called with each line after it is recorded. May throw.
    std::function<void(const QString &call)> onCall;
    bool makesEnumerators = true;
    bool makesCommands = true;
    bool makesMenuItems = true;
    bool makesAccelerators = true;

    int enumeratorsAlive = 0;
    int objectsAlive = 0; //!< definitions, menus with their entries, and accelerators, with any owner
    std::vector<std::unique_ptr<FakeGroup>> groups; //!< in the order in which they are enumerated
    std::unique_ptr<FakeGroup> startUp;

    CFxUIGroupEnumerator *EnumerateGroups() override;
    bool IsPrimary(const CFxUIGroup *group) const override;
    CFxUIGroup *GetStartUpGroup() override;
    CFxUICommand *FindCommand(const CFxString &groupName, const CFxString &identifier) const override;
    CFxUICommand *CreateCommand(const CFxString &identifier) override;
    CFxUIMenuItem *CreateMenuItem(CFxUICommand *command, const CFxString &label, const CFxString &helpString,
                                  const CFxString &identifier) override;
    CFxUIAccelerator *CreateAccelerator(CFxUICommand *command, const CFxString &identifier) override;
    void Refresh() override { note(QStringLiteral("refresh")); }

    void note(const QString &what) const;

private:
    QStringList &m_calls;
};
