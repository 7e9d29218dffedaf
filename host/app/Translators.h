// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>

namespace fxhost {

//! Translates the texts of the program and of Qt into the first of the user's languages that there is a
//! catalogue for, while this object exists. Requires the application object. The texts of a module are
//! translated from its own catalogues, see sdkhost::Module.
class Translators
{
public:
    Translators();

private:
    QTranslator m_qt;
    QTranslator m_program;
};

} // namespace fxhost
