#include "workshop/EntryTable.h"

#include "platform/QtText.h"
#include "workshop/DictionaryCorrector.h"

#include <algorithm>

namespace velmarin {

namespace {

enum Column { kHeadword, kPage, kColumns };

} // namespace

void EntryTable::reread() {
    beginResetModel();
    endResetModel();
}

int EntryTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(std::max<std::size_t>(corrector_.text().size(), 1)) - 1;
}

int EntryTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant EntryTable::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || index.row() >= rowCount())
        return {};
    const auto line = static_cast<std::size_t>(index.row());
    if (index.column() == kHeadword)
        return toQ(corrector_.text().headword(line));
    return toQ(corrector_.captionOf(corrector_.text().page(line)));
}

QVariant EntryTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == kHeadword ? QStringLiteral("Headword") : QStringLiteral("Page");
}

} // namespace velmarin
