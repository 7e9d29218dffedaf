// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdarg>
#include <cstdio>
#include <string>

//! The application framework's string, used at every border between a host and its modules: UTF-32, 4 bytes
//! a character. Converts to and from QString without being asked, and every QString comes back as it was:
//! half of a surrogate pair stays what it is, since file names may be carried that way. A value type.
class CFxString
{
public:
    CFxString() = default;
    //! \param text copied; null gives the empty string
    CFxString(const wchar_t *text) : m_text(text ? text : L"") {}
    CFxString(const QString &text);

    operator QString() const
    {
        // Behind another character, since Qt drops a byte order mark that stands first.
        return QString::fromStdWString(L'/' + m_text).mid(1);
    }

    //! Never null; valid until the string changes or goes away.
    const wchar_t *c_str() const { return m_text.c_str(); }
    bool isEmpty() const { return m_text.empty(); }

    //! Negative, 0 or positive, as the code points compare.
    int compare(const CFxString &other) const { return m_text.compare(other.m_text); }
    //! The same with upper and lower case taken as equal, whatever the locale.
    int compareNoCase(const CFxString &other) const
    {
        return QString(*this).compare(QString(other), Qt::CaseInsensitive);
    }

    //! printf for short texts such as menu prefixes.
    //! \param pattern ASCII, as for std::printf; a result that cannot be made is the empty string
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
