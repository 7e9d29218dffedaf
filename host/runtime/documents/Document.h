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
    //! A new drawing.
    //! \param title the window title
    explicit Document(const QString &title);
    //! A drawing that was opened.
    //! \param path exactly as it was opened
    //! \param canonicalPath the same without links
    Document(const QString &path, const QString &canonicalPath, DrawingFile file);
    ~Document() override;

    // The path exactly as it was opened; empty for a new drawing.
    CFxString path() const override { return m_path; }
    const QString &filePath() const { return m_path; }
    CFxString title() const override { return m_title; }
    QString canonicalPath() const { return m_canonicalPath; }
    //! The file's contents when it was opened; empty for a new drawing.
    const DrawingFile &file() const { return m_file; }
    //! True if the drawing was not opened from a file.
    bool isNew() const { return m_path.isEmpty(); }

private:
    QString m_path;
    QString m_canonicalPath;
    QString m_title;
    DrawingFile m_file;
};

} // namespace fxhost
