// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QStringList;

namespace fxhost {

//! The path of a help page: in the first language in which it exists, or in English.
//! \param folder contains the English pages, TOPIC.html, and a folder for each other language, such as de
//! \param languages as QLocale::uiLanguages() returns them
//! \return empty if the topic has no page
QString helpPage(const QString &folder, int topic, const QStringList &languages);

} // namespace fxhost
