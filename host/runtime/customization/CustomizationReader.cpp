// SPDX-License-Identifier: MIT
#include "host/runtime/customization/CustomizationReader.h"

#include <sdkhost/UIAccelerator.h>
#include <sdkhost/UICommand.h>
#include <sdkhost/UIMenuItem.h>

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeySequence>

#include <cstddef>
#include <utility>

namespace fxhost {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::CustomizationReader)
};

//! The reason why the data are not valid, with the place; caught in readCustomization().
struct Fault
{
    QString text;
};

//! A JSON object in the data, with its place for messages. Reading a member that is missing or has the wrong
//! type throws a Fault.
class Element
{
public:
    Element(const QJsonValue &value, const QString &place) : m_object(value.toObject()), m_place(place)
    {
        if (!value.isObject())
            fail(Texts::tr("is not an object"));
    }

    [[noreturn]] void fail(const QString &what) const
    {
        throw Fault{(m_place.isEmpty() ? Texts::tr("The data") : m_place) + QLatin1Char(' ') + what};
    }

    bool has(const QString &key) const { return m_object.contains(key); }

    void allow(const QStringList &keys) const
    {
        const QStringList present = m_object.keys();
        for (const QString &key : present) {
            if (!keys.contains(key))
                fail(Texts::tr("has an unknown member \"%1\"").arg(key));
        }
    }

    //! Never empty.
    QString text(const QString &key) const
    {
        const QString value = m_object.value(key).toString();
        if (value.isEmpty())
            fail(Texts::tr("needs a text \"%1\"").arg(key));
        return value;
    }

    QString textOrEmpty(const QString &key) const { return has(key) ? text(key) : QString(); }

    bool flag(const QString &key) const
    {
        const QJsonValue value = m_object.value(key);
        if (!value.isUndefined() && !value.isBool())
            fail(Texts::tr("has a \"%1\" that is neither true nor false").arg(key));
        return value.toBool();
    }

    Element object(const QString &key) const { return Element(m_object.value(key), placeOf(key)); }

    //! The elements of a list; none without such a member.
    std::vector<Element> list(const QString &key) const
    {
        const QJsonValue value = m_object.value(key);
        if (!value.isUndefined() && !value.isArray())
            fail(Texts::tr("has a \"%1\" that is not a list").arg(key));
        std::vector<Element> elements;
        const QJsonArray values = value.toArray();
        elements.reserve(std::size_t(values.size()));
        for (int i = 0; i < values.size(); ++i)
            elements.emplace_back(values.at(i), QStringLiteral("%1[%2]").arg(placeOf(key)).arg(i));
        return elements;
    }

private:
    QString placeOf(const QString &key) const
    {
        return m_place.isEmpty() ? key : m_place + QLatin1Char('.') + key;
    }

    QJsonObject m_object;
    QString m_place;
};

void readCommand(const Element &element, UIGroup &group)
{
    element.allow({QStringLiteral("identifier"), QStringLiteral("name"), QStringLiteral("macro"),
                   QStringLiteral("help")});
    const QString identifier = element.text(QStringLiteral("identifier"));
    if (group.findCommand(identifier))
        element.fail(Texts::tr("repeats the command \"%1\"").arg(identifier));
    auto command = std::make_unique<UICommand>(identifier);
    command->SetName(element.text(QStringLiteral("name")));
    command->SetMacro(element.text(QStringLiteral("macro")));
    command->SetHelpString(element.textOrEmpty(QStringLiteral("help")));
    group.AppendCommand(command.release());
}

// Menus contain menus; the JSON parser limits the depth to 1024.
std::unique_ptr<UIMenuItem> readItem(const Element &element, const UIGroup &group);

std::unique_ptr<UIMenuItem> makeItem(UIMenuItem::Kind kind, const Element &element)
{
    return std::make_unique<UIMenuItem>(kind, element.text(QStringLiteral("identifier")),
                                        element.text(QStringLiteral("label")));
}

// NOLINTNEXTLINE(misc-no-recursion)
std::unique_ptr<UIMenuItem> readMenu(const Element &element, const UIGroup &group)
{
    element.allow({QStringLiteral("identifier"), QStringLiteral("label"), QStringLiteral("items")});
    auto menu = makeItem(UIMenuItem::Kind::Menu, element);
    for (const Element &child : element.list(QStringLiteral("items")))
        menu->appendChild(readItem(child, group));
    return menu;
}

std::unique_ptr<UIMenuItem> readDynamicMenu(const Element &element)
{
    element.allow({QStringLiteral("identifier"), QStringLiteral("label"), QStringLiteral("kind")});
    const QString kind = element.text(QStringLiteral("kind"));
    if (kind == QLatin1String("recentFiles"))
        return makeItem(UIMenuItem::Kind::RecentFiles, element);
    if (kind == QLatin1String("windows"))
        return makeItem(UIMenuItem::Kind::Windows, element);
    element.fail(Texts::tr("has the unknown kind \"%1\"").arg(kind));
}

std::unique_ptr<UIMenuItem> readEntry(const Element &element, const UIGroup &group)
{
    element.allow({QStringLiteral("identifier"), QStringLiteral("label"), QStringLiteral("command"),
                   QStringLiteral("help")});
    auto entry = makeItem(UIMenuItem::Kind::Entry, element);
    const QString identifier = element.text(QStringLiteral("command"));
    entry->SetCommand(group.findCommand(identifier));
    if (!entry->GetCommand())
        element.fail(Texts::tr("needs the command \"%1\", which is not in its group").arg(identifier));
    entry->setHelpString(element.textOrEmpty(QStringLiteral("help")));
    return entry;
}

// NOLINTNEXTLINE(misc-no-recursion)
std::unique_ptr<UIMenuItem> readItem(const Element &element, const UIGroup &group)
{
    if (element.flag(QStringLiteral("separator"))) {
        element.allow({QStringLiteral("separator")});
        return std::make_unique<UIMenuItem>(UIMenuItem::Kind::Separator, QString(), QString());
    }
    if (element.has(QStringLiteral("items")))
        return readMenu(element, group);
    if (element.has(QStringLiteral("kind")))
        return readDynamicMenu(element);
    return readEntry(element, group);
}

void readAccelerator(const Element &element, UIGroup &group)
{
    element.allow({QStringLiteral("identifier"), QStringLiteral("label"), QStringLiteral("key"),
                   QStringLiteral("command")});
    const QString keyText = element.text(QStringLiteral("key"));
    const QKeySequence key = QKeySequence::fromString(keyText, QKeySequence::PortableText);
    if (key.toString(QKeySequence::PortableText).isEmpty())
        element.fail(Texts::tr("has the unknown key \"%1\"").arg(keyText));
    auto accelerator = std::make_unique<UIAccelerator>(element.text(QStringLiteral("identifier")), group,
                                                       element.text(QStringLiteral("command")));
    accelerator->SetLabel(element.textOrEmpty(QStringLiteral("label")));
    accelerator->SetKey(key);
    group.AppendAccelerator(accelerator.release());
}

std::unique_ptr<UIGroup> readGroup(const Element &element)
{
    element.allow({QStringLiteral("name"), QStringLiteral("primary"), QStringLiteral("commands"),
                   QStringLiteral("menus"), QStringLiteral("accelerators")});
    auto group = std::make_unique<UIGroup>(element.text(QStringLiteral("name")),
                                           element.flag(QStringLiteral("primary")));
    for (const Element &command : element.list(QStringLiteral("commands")))
        readCommand(command, *group);
    for (const Element &menu : element.list(QStringLiteral("menus")))
        group->appendMenu(readMenu(menu, *group));
    for (const Element &accelerator : element.list(QStringLiteral("accelerators")))
        readAccelerator(accelerator, *group);
    return group;
}

CustomizationData readData(const Element &element)
{
    element.allow({QStringLiteral("groups"), QStringLiteral("startUp")});
    CustomizationData data;
    QStringList names;
    int primaryCount = 0;
    const auto note = [&](const UIGroup &group, const Element &place) {
        if (names.contains(group.GetName()))
            place.fail(Texts::tr("repeats the group name \"%1\"").arg(QString(group.GetName())));
        names.append(group.GetName());
        primaryCount += group.isPrimary() ? 1 : 0;
    };
    for (const Element &place : element.list(QStringLiteral("groups"))) {
        data.groups.push_back(readGroup(place));
        note(*data.groups.back(), place);
    }
    if (primaryCount != 1)
        element.fail(Texts::tr("must have exactly one primary group, not %1").arg(primaryCount));
    if (element.has(QStringLiteral("startUp"))) {
        const Element place = element.object(QStringLiteral("startUp"));
        data.startUp = readGroup(place);
        note(*data.startUp, place);
        if (data.startUp->isPrimary())
            place.fail(Texts::tr("cannot be primary"));
    }
    return data;
}

} // namespace

CustomizationData readCustomization(const QByteArray &json)
{
    QJsonParseError syntax{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &syntax);
    CustomizationData refused;
    if (syntax.error != QJsonParseError::NoError) {
        refused.outcome = Outcome::failed(
            Texts::tr("Line %1: %2")
                .arg(QString::number(json.left(syntax.offset).count('\n') + 1), syntax.errorString()));
        return refused;
    }
    try {
        return readData(
            Element(document.isObject() ? QJsonValue(document.object()) : QJsonValue(), QString()));
    } catch (const Fault &fault) {
        refused.outcome = Outcome::failed(fault.text);
    }
    return refused;
}

Outcome loadCustomization(Customization &customization, const QByteArray &json)
{
    CustomizationData data = readCustomization(json);
    if (data.outcome)
        customization.setGroups(std::move(data.groups), std::move(data.startUp));
    return data.outcome;
}

} // namespace fxhost
