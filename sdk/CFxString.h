// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

#include <QString>

#include <cstdarg>
#include <cstdio>
#include <string>

//! The application framework's string, used in all interfaces between a host and its modules. UTF-32, 4 bytes
//! per character. Converts to and from QString implicitly. The conversion is lossless: unpaired surrogates
//! are kept, because they can encode bytes of file names. A value type; reentrant.
class CFxString
{
public:
    CFxString() = default;
    //! \param text copied; null gives the empty string
    CFxString(const wchar_t *text) : m_text(text ? text : L"") {}
    CFxString(const QString &text);

    operator QString() const
    {
        // Qt drops a leading byte order mark, so convert the text with another character before it.
        return QString::fromStdWString(L'/' + m_text).mid(1);
    }

    //! Never null; valid until the string is changed or destroyed.
    const wchar_t *c_str() const { return m_text.c_str(); }
    bool isEmpty() const { return m_text.empty(); }

    //! Compares by code point. Returns a negative value, 0 or a positive value.
    int compare(const CFxString &other) const { return m_text.compare(other.m_text); }
    //! Compares without regard to case, independently of the locale.
    int compareNoCase(const CFxString &other) const
    {
        return QString(*this).compare(QString(other), Qt::CaseInsensitive);
    }

    //! Formats short texts such as menu prefixes. Returns the empty string if formatting fails.
    //! \param pattern ASCII, as for std::printf
    [[gnu::format(printf, 1, 2)]] static CFxString format(const char *pattern, ...);

    friend bool operator==(const CFxString &a, const CFxString &b) { return a.m_text == b.m_text; }
    friend bool operator!=(const CFxString &a, const CFxString &b) { return !(a == b); }

private:
    std::wstring m_text;
};

inline CFxString::CFxString(const QString &text)
{
    m_text.reserve(static_cast<std::size_t>(text.size()));
    for (int i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        const bool isPair = unit.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        const uint character = isPair ? QChar::surrogateToUcs4(unit, text.at(++i)) : unit.unicode();
        m_text.push_back(static_cast<wchar_t>(character));
    }
}

inline CFxString CFxString::format(const char *pattern, ...)
{
    std::va_list arguments;
    va_start(arguments, pattern);
    const QString text = QString::vasprintf(pattern, arguments);
    va_end(arguments);
    return text;
}
