#pragma once

#include <QFile>
#include <QString>

#include <filesystem>
#include <string>
#include <string_view>

namespace velmarin {

/// The one place where the core's UTF-8 and the widgets' strings meet. Bytes that are not UTF-8 show as U+FFFD, so a
/// name that must find its file again is kept as it was and not read back from a widget.
inline QString toQ(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline std::string fromQ(const QString& text) {
    return text.toUtf8().toStdString();
}

/// File names are bytes to the system; Qt has its own rule for those that are not text.
inline QString pathToQ(const std::filesystem::path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.native()));
}

inline std::filesystem::path pathFromQ(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

} // namespace velmarin
