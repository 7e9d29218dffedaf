// SPDX-License-Identifier: MIT
#include "host/runtime/documents/Document.h"

#include <utility>

namespace fxhost {

Document::Document(const QString &title, DrawingFacts facts) : m_title(title), m_facts(std::move(facts)) {}

Document::~Document() = default;

} // namespace fxhost
