// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace fxhost {

//! What the drawing area shows while no drawing is open: how to open one. The mouse reaches the area through
//! it. GUI thread.
class EmptyHint : public QWidget
{
    Q_OBJECT
public:
    explicit EmptyHint(QWidget *parent = nullptr);
};

} // namespace fxhost
