#include "platform/Desktop.h"

#include "platform/QtText.h"

#include <QStandardPaths>

namespace velmarin {

std::filesystem::path desktopFolder() {
    return pathFromQ(QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
}

} // namespace velmarin
