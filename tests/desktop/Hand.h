// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QWidget>

//! The user at the display: moves the real pointer and presses real buttons and keys, through the X server.
//! Each call returns when the server has the input; its outcome must be awaited.
namespace Hand {

void moveTo(const QPoint &global);
//! To a point of the widget, its centre by default.
void moveTo(const QWidget *widget);
void moveTo(const QWidget *widget, const QPoint &local);

//! Beside every window of the tests.
void stepAside();

//! At the pointer's position. \param button 1 left, 2 middle, 3 right
void click(int button = 1);
//! Moves the pointer there and clicks.
void click(const QPoint &global);
void click(const QWidget *widget);
void doubleClick(int button = 1);
void press(int button = 1);
void release(int button = 1);
//! \param key as X names it: "Tab", "shift+Left", "F4"
void key(const QString &key);
//! Several, one after the other.
void keys(const QStringList &keys);
//! Holds a modifier ("shift", "ctrl", "alt") down until releaseKey().
void holdKey(const QString &key);
void releaseKey(const QString &key);

//! Runs xdotool. \return its output; empty when it fails
QString ask(const QStringList &arguments);
//! The window's rectangle on the X server, in physical pixels.
QRect realGeometry(WId window);
//! Saves a picture as screenshots/NAME.png in the working directory.
//! \param part of the screens, in global pixels; all when null
void keepScreenshot(const QString &name, const QRect &part = {});

} // namespace Hand
