// SPDX-License-Identifier: MIT
// Input: macros, which are run. A zero byte ends a macro; the next one is run while a command waits, or after
// it. UTF-8, or UTF-16 after a byte order mark.
#include "tests/fuzz/Costs.h"
#include "tests/fuzz/HarmlessHost.h"
#include "tests/fuzz/Target.h"

namespace {

QString textOf(const QByteArray &bytes)
{
    if (!bytes.startsWith("\xFF\xFE"))
        return QString::fromUtf8(bytes.constData(), bytes.size()); // not up to the first zero
    // Qt's decoder would replace halves of surrogate pairs, which a module may pass.
    QString text;
    for (int at = 2; at + 1 < bytes.size(); at += 2)
        text.append(QChar(static_cast<uchar>(bytes.at(at)), static_cast<uchar>(bytes.at(at + 1))));
    return text;
}

//! The lines of a macro: `;` and line ends separate them.
QStringList linesOf(QString macro)
{
    for (const char separator : {';', '\r'})
        macro.replace(QLatin1Char(separator), QLatin1Char('\n'));
    return macro.split(QLatin1Char('\n'));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QStringList macros = textOf(fuzz::bytesOf(data, size)).split(QChar::Null);
    fuzz::runWithinLimits([&] {
        fuzz::HarmlessHost host(macros);
        while (host.runNextMacro()) {}
        QStringList lines;
        for (const QString &macro : macros)
            lines += linesOf(macro);
        host.check(lines);
    });
    return 0;
}
