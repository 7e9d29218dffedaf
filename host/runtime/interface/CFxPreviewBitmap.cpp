// SPDX-License-Identifier: MIT
#include <CFxPreviewBitmap.h>

#include "host/runtime/interface/InterfaceHost.h"

#include <QImage>

namespace {

class PreviewBitmap : public CFxPreviewBitmap
{
public:
    bool Load(const CFxString &path) override
    {
        const fxhost::InterfaceHost *host = fxhost::InterfaceHost::installed();
        m_image = host ? host->readPreview(path) : QImage();
        return IsValid();
    }

    bool IsValid() const override { return !m_image.isNull(); }
    void ToImage(QImage &image) const override { image = m_image; }

private:
    QImage m_image;
};

} // namespace

CFxPreviewBitmap *CFxPreviewBitmap::Create()
{
    return new PreviewBitmap;
}
