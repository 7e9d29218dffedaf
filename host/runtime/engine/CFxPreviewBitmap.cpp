// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"

#include <CFxPreviewBitmap.h>

namespace {

class PreviewBitmap : public CFxPreviewBitmap
{
public:
    bool Load(const CFxString &path) override
    {
        m_image = fxhost::readPreview(path);
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
