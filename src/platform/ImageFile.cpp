#include "platform/ImageFile.h"

#include "files/AtomicFile.h"

#include <QBuffer>
#include <QImage>

namespace velmarin {

Result saveImage(const QImage& image, const std::string& file) {
    const std::filesystem::path path(file);
    const std::string extension = path.extension().string();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (extension.size() < 2 || !image.save(&buffer, extension.c_str() + 1))
        return Failure{FolderItem(path),
                       "it could not be written: the picture format \"" + extension + "\" is unknown"};
    return writeFileAtomically(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace velmarin
