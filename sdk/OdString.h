// SPDX-License-Identifier: MIT
#pragma once

#include <FxSdkApi.h>

#include <string>
#include <utility>

//! A character of the drawing engine's strings: UTF-32, 4 bytes.
using OdChar = wchar_t;
static_assert(sizeof(OdChar) == 4, "the engine's strings are UTF-32");

//! The drawing engine's string. A value type; reentrant.
class OdString
{
public:
    OdString() = default;
    //! \param text copied; null gives the empty string
    OdString(const OdChar *text) : m_text(text ? text : L"") {}
    explicit OdString(std::wstring text) : m_text(std::move(text)) {}

    //! Never null; valid until the string is changed or destroyed.
    const OdChar *c_str() const { return m_text.c_str(); }
    bool isEmpty() const { return m_text.empty(); }

    friend bool operator==(const OdString &a, const OdString &b) { return a.m_text == b.m_text; }
    friend bool operator!=(const OdString &a, const OdString &b) { return !(a == b); }

private:
    std::wstring m_text;
};
