// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace fxhost {

class Document;

//! The content of a drawing's window: the stored picture, scaled to fit, above a strip with facts about the
//! file. GUI thread.
class DocumentView : public QWidget
{
    Q_OBJECT
public:
    //! \param document only used during construction
    explicit DocumentView(const Document &document, QWidget *parent = nullptr);

    QSize sizeHint() const override;
};

} // namespace fxhost
