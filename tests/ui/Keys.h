// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QMetaEnum>
#include <QPair>

// Keys and what is held down with them.

//! Those that mean something to the popup, but Escape, and two that do not.
inline const QList<int> everyKey = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab,
                                    Qt::Key_Right,  Qt::Key_Left,  Qt::Key_Up,  Qt::Key_Down,
                                    Qt::Key_A,      Qt::Key_Space};

//! Shift or Control alone, which select, and some of what selects nothing.
inline const QList<Qt::KeyboardModifiers> selecting = {Qt::ShiftModifier, Qt::ControlModifier};
inline const QList<Qt::KeyboardModifiers> others = {Qt::NoModifier,
                                                    Qt::AltModifier,
                                                    Qt::MetaModifier,
                                                    Qt::KeypadModifier,
                                                    Qt::GroupSwitchModifier,
                                                    Qt::ShiftModifier | Qt::ControlModifier,
                                                    Qt::ShiftModifier | Qt::KeypadModifier,
                                                    Qt::ControlModifier | Qt::KeypadModifier,
                                                    Qt::ShiftModifier | Qt::AltModifier,
                                                    Qt::ControlModifier | Qt::AltModifier};
inline const QList<Qt::KeyboardModifiers> allModifiers = selecting + others;

//! "Shift+Key_Right", say.
inline QByteArray nameOf(int key, Qt::KeyboardModifiers modifiers)
{
    QByteArray name = QMetaEnum::fromType<Qt::Key>().valueToKey(key);
    const QList<QPair<Qt::KeyboardModifier, const char *>> parts = {
        {Qt::ShiftModifier, "Shift+"}, {Qt::ControlModifier, "Control+"},   {Qt::AltModifier, "Alt+"},
        {Qt::MetaModifier, "Meta+"},   {Qt::GroupSwitchModifier, "AltGr+"}, {Qt::KeypadModifier, "Keypad+"}};
    for (const auto &part : parts) {
        if (modifiers & part.first)
            name.prepend(part.second);
    }
    return name;
}
