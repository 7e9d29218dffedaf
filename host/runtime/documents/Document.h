// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"
#include "host/runtime/preview/DrawingFile.h"

#include <CFxDocument.h>

#include <QString>

namespace fxhost {

//! An open drawing. Owned by the DocumentManager.
class FXHOST_API Document : public CFxDocument
{
public:
    //! A new drawing. \param title what the window shows
    explicit Document(const QString &title);
    //! \param path exactly as it was opened
    //! \param canonicalPath where that was, without links
    Document(const QString &path, const QString &canonicalPath, DrawingFile file);
    ~Document() override;

    //! Empty for a new drawing.
    CFxString path() const override { return m_path; }
    CFxString title() const override { return m_title; }
    QString canonicalPath() const { return m_canonicalPath; }
    //! What the file said when it was opened; empty for a new drawing.
    const DrawingFile &file() const { return m_file; }
    //! Whether the drawing was never in a file.
    bool isNew() const { return m_path.isEmpty(); }

private:
    QString m_path;
    QString m_canonicalPath;
    QString m_title;
    DrawingFile m_file;
};

} // namespace fxhost
