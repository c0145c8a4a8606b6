#include "workshop/PageTable.h"

#include "platform/QtText.h"

#include <QFont>

#include <algorithm>

namespace velmarin {

namespace {

QString signOf(PageState state) {
    switch (state) {
    case PageState::Certain:
        return QStringLiteral("✓");
    case PageState::Mended:
        return QStringLiteral("≈");
    case PageState::Doubtful:
        return QStringLiteral("?");
    case PageState::Set:
        return QStringLiteral("●");
    }
    return {};
}

QString textIn(const DraftPage& page, int column) {
    switch (column) {
    case PageTable::Number:
        return toQ(page.number);
    case PageTable::First:
        return toQ(page.first);
    case PageTable::Last:
        return toQ(page.last);
    case PageTable::State:
        return textOf(page.state);
    default:
        return {};
    }
}

QString toolTipOf(const DraftPage& page) {
    return QStringLiteral("%1\n%2 – %3").arg(toQ(page.page), toQ(page.first), toQ(page.last));
}

} // namespace

QString textOf(PageState state) {
    return signOf(state) + QChar(QChar::Nbsp) + toQ(nameOf(state));
}

void PageTable::reset() {
    beginResetModel();
    endResetModel();
}

void PageTable::update(const std::vector<std::size_t>& rows) {
    for (const std::size_t row : rows)
        if (const QModelIndex left = indexOf(row); left.isValid())
            emit dataChanged(left, index(left.row(), ColumnCount - 1));
}

QModelIndex PageTable::indexOf(std::size_t row) const {
    const std::vector<std::size_t>& visible = model_.visibleRows();
    const auto found = std::lower_bound(visible.begin(), visible.end(), row);
    if (found == visible.end() || *found != row)
        return {};
    return index(static_cast<int>(found - visible.begin()), 0);
}

std::size_t PageTable::rowOf(const QModelIndex& index) const {
    return model_.visibleRows()[static_cast<std::size_t>(index.row())];
}

int PageTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(model_.visibleRows().size());
}

int PageTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PageTable::data(const QModelIndex& index, int role) const {
    const DraftPage& page = model_.draft().pages[rowOf(index)];
    switch (role) {
    case Qt::DisplayRole:
        return textIn(page, index.column());
    case Qt::ToolTipRole:
        return toolTipOf(page);
    case Qt::TextAlignmentRole:
        return QVariant((index.column() == Number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::FontRole:
        if (page.state == PageState::Doubtful) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant PageTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QString names[ColumnCount] = {QStringLiteral("Page"), QStringLiteral("First"), QStringLiteral("Last"),
                                        QStringLiteral("State")};
    return names[section];
}

} // namespace velmarin
