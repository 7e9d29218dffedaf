// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QWidget>

//! A person at the display: moves the real pointer and presses real buttons and keys, through the X server.
//! Each call returns when the server has the input; what comes of it must be waited for.
namespace Hand {

void moveTo(const QPoint &global);
//! To a point of the widget, its centre by default.
void moveTo(const QWidget *widget);
void moveTo(const QWidget *widget, const QPoint &local);

//! To where it disturbs nothing: beside every window of the tests.
void stepAside();

//! Where the pointer is. \param button 1 left, 2 middle, 3 right
void click(int button = 1);
void doubleClick(int button = 1);
void press(int button = 1);
void release(int button = 1);
//! \param key as X names it: "Tab", "shift+Left", "F4"
void key(const QString &key);
//! The same, one after the other.
void keys(const QStringList &keys);
//! Holds a modifier ("shift", "ctrl", "alt") down until releaseKey().
void holdKey(const QString &key);
void releaseKey(const QString &key);

//! What xdotool answers to these arguments; empty when it fails.
QString ask(const QStringList &arguments);
//! The window's rectangle as the X server has it, in its pixels.
QRect realGeometry(WId window);
//! Keeps a picture of all screens as screenshots/NAME.png in the working directory.
void keepScreenshot(const QString &name);
//! Likewise of a part of the screens, in global pixels.
void keepScreenshot(const QString &name, const QRect &part);

} // namespace Hand
