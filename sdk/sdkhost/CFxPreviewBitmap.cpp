// SPDX-License-Identifier: MIT
#include <CFxPreviewBitmap.h>
#include <sdkhost/Host.h>

#include <QImage>

namespace {

class PreviewBitmap : public CFxPreviewBitmap
{
public:
    bool Load(const CFxString &path) override
    {
        const sdkhost::Host *host = sdkhost::Host::installed();
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
