// SPDX-License-Identifier: MIT
#include "host/runtime/documents/Document.h"

#include <QFileInfo>

#include <utility>

namespace fxhost {

Document::Document(const QString &title) : m_title(title) {}

Document::Document(const QString &path, const QString &canonicalPath, DrawingFile file)
    : m_path(path), m_canonicalPath(canonicalPath), m_title(QFileInfo(path).fileName()),
      m_file(std::move(file))
{
}

Document::~Document() = default;

} // namespace fxhost
