// SPDX-License-Identifier: MIT
#include "host/app/ProgramOptions.h"

#include "host/runtime/Paths.h"

#include <sdkhost/Outcome.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>

namespace fxhost {

namespace {

struct OptionTexts
{
    Q_DECLARE_TR_FUNCTIONS(fxhost::ProgramOptions)
};

ProgramStart refuse(const QString &reason)
{
    ProgramStart result;
    result.text =
        OptionTexts::tr("%1: %2\nTry \"%1 --help\".").arg(QCoreApplication::applicationName(), reason);
    return result;
}

ProgramStart print(const QString &text)
{
    ProgramStart result;
    result.wish = ProgramStart::Wish::PrintAndEnd;
    result.text = text;
    return result;
}

//! Reads WxH or WxH+X+Y into the options.
Outcome readGeometry(const QString &text, ProgramOptions &options)
{
    // Five digits are enough for every screen and cannot overflow an int. Positions on a monitor to the left
    // or above are negative, written "+-10".
    static const QRegularExpression pattern(QRegularExpression::anchoredPattern(
        QStringLiteral("(\\d{1,5})x(\\d{1,5})(?:\\+(-?\\d{1,5})\\+(-?\\d{1,5}))?")));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return Outcome::failed(
            OptionTexts::tr("\"%1\" is not a geometry; it is written WxH or WxH+X+Y").arg(text));

    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (size.width() < smallestMainWindow.width() || size.height() < smallestMainWindow.height())
        return Outcome::failed(OptionTexts::tr("the geometry \"%1\" is smaller than %2x%3")
                                   .arg(text)
                                   .arg(smallestMainWindow.width())
                                   .arg(smallestMainWindow.height()));

    options.windowSize = size;
    if (!match.captured(3).isEmpty())
        options.windowPosition = QPoint(match.captured(3).toInt(), match.captured(4).toInt());
    return {};
}

} // namespace

ProgramStart readProgramOptions(const QStringList &arguments)
{
    // Not the parser's own help option, which also lists --help-all for Qt's options.
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  OptionTexts::tr("Print this help."));
    const QCommandLineOption module(QStringLiteral("module"),
                                    OptionTexts::tr("Load the module at <path>; can be given more than once. "
                                                    "By default, the recent-document browser is loaded."),
                                    QStringLiteral("path"));
    const QCommandLineOption noModule(QStringLiteral("no-module"), OptionTexts::tr("Load no module."));
    const QCommandLineOption profile(QStringLiteral("profile"),
                                     OptionTexts::tr("Store settings and the recent-file list in <dir>."),
                                     QStringLiteral("dir"));
    const QCommandLineOption script(QStringLiteral("script"),
                                    OptionTexts::tr("Run the commands in <file>, one per line."),
                                    QStringLiteral("file"));
    const QCommandLineOption log(
        QStringLiteral("log"),
        OptionTexts::tr("Log commands, drawings, help requests and modules to <file>."),
        QStringLiteral("file"));
    const QCommandLineOption noDocument(QStringLiteral("no-document"),
                                        OptionTexts::tr("Start without a new drawing."));
    const QCommandLineOption newInstance(
        QStringLiteral("new-instance"),
        OptionTexts::tr("Start another instance. By default, drawings are opened in the running one, unless "
                        "other options than a profile are given."));
    const QCommandLineOption geometry(QStringLiteral("geometry"),
                                      OptionTexts::tr("Size and position of the main window, in pixels."),
                                      QStringLiteral("WxH+X+Y"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        OptionTexts::tr("Shows the pictures stored in DWG drawings and loads plug-in modules."));
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({help, module, noModule, profile, script, log, noDocument, newInstance, geometry});
    parser.addPositionalArgument(QStringLiteral("drawing"), OptionTexts::tr("Drawings to open."),
                                 QStringLiteral("[drawing...]"));

    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    if (parser.isSet(help))
        return print(parser.helpText().trimmed());
    if (parser.isSet(version))
        return print(QCoreApplication::applicationName() + QLatin1Char(' ') +
                     QCoreApplication::applicationVersion());

    // An unset shell variable results in an empty value. Treating it as "not given" would, for example, store
    // a test's settings in the user's own profile.
    for (const QCommandLineOption &option : {module, profile, script, log, geometry}) {
        if (parser.values(option).contains(QString()))
            return refuse(OptionTexts::tr("--%1 needs a value").arg(option.names().constFirst()));
    }
    for (const QCommandLineOption &option : {profile, script, log, geometry}) {
        if (parser.values(option).size() > 1)
            return refuse(OptionTexts::tr("--%1 is given more than once").arg(option.names().constFirst()));
    }
    if (parser.isSet(module) && parser.isSet(noModule))
        return refuse(OptionTexts::tr("--module and --no-module exclude each other"));
    if (parser.positionalArguments().contains(QString()))
        return refuse(OptionTexts::tr("a drawing needs a name"));

    ProgramStart result;
    if (parser.isSet(geometry)) {
        const Outcome read = readGeometry(parser.value(geometry), result.options);
        if (!read)
            return refuse(read.reason());
    }
    if (parser.isSet(module) || parser.isSet(noModule))
        result.options.modules = parser.values(module);
    result.options.profileDir = parser.value(profile);
    result.options.scriptFile = parser.value(script);
    result.options.logFile = parser.value(log);
    for (const QCommandLineOption &option :
         {module, noModule, script, log, noDocument, newInstance, geometry})
        result.options.newInstance |= parser.isSet(option);
    result.options.newDocument = !parser.isSet(noDocument);
    const QStringList drawings = parser.positionalArguments();
    for (const QString &drawing : drawings)
        result.options.drawings << pathFromArgument(drawing);
    result.wish = ProgramStart::Wish::Start;
    return result;
}

} // namespace fxhost
