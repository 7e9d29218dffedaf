// SPDX-License-Identifier: MIT
#pragma once

#include "host/runtime/FxHostApi.h"

#include <CFxDocument.h>

#include <QByteArray>
#include <QDateTime>
#include <QImage>
#include <QString>

namespace fxhost {

//! What the host knows of a drawing file.
struct DrawingFacts
{
    QString path;                //!< exactly as it was opened; empty for a new drawing
    QString version;             //!< the file format's name, such as "AC1032"; empty for a new drawing
    QString canonicalPath;       //!< where that was, without links; empty for a new drawing
    qint64 size = 0;             //!< in bytes
    QDateTime modified;          //!< invalid for a new drawing
    QImage preview;              //!< the stored picture; null when there is none
    bool isPreviewAlone = false; //!< the file holds a header and the picture and nothing more
};

//! An open drawing. Owned by the DocumentManager. The facts are those of the moment when it was opened.
class FXHOST_API Document : public CFxDocument
{
public:
    //! \param title what the window shows
    Document(const QString &title, DrawingFacts facts);
    ~Document() override;

    CFxString path() const override { return m_facts.path; }
    CFxString title() const override { return m_title; }
    const DrawingFacts &facts() const { return m_facts; }
    //! Whether the drawing was never in a file.
    bool isNew() const { return m_facts.path.isEmpty(); }

private:
    QString m_title;
    DrawingFacts m_facts;
};

} // namespace fxhost
