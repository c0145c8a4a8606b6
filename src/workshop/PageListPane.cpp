#include "workshop/PageListPane.h"

#include "controls/RowDelegate.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

namespace velmarin {

namespace {

/// Room above and below the text of a row, in logical pixels.
constexpr int kRowPadding = 6;

class RoomyRows : public RowDelegate {
  public:
    using RowDelegate::RowDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return RowDelegate::sizeHint(option, index) + QSize(0, kRowPadding);
    }
};

/// Widths of columns, in digits of the font.
constexpr int kNumberDigits = 6;
constexpr int kStateDigits = 12;

} // namespace

PageListPane::PageListPane(WorkshopModel& model, QWidget* parent)
    : QWidget(parent), model_(model), table_(new PageTable(model, this)), view_(new QTreeView(this)),
      doubtfulOnly_(new QCheckBox(QStringLiteral("&Doubtful pages only"), this)) {
    makeView();
    doubtfulOnly_->setObjectName(QStringLiteral("DoubtfulOnlyCB"));
    connect(doubtfulOnly_, &QCheckBox::toggled, this, [this](bool only) { model_.setDoubtfulOnly(only); });
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(doubtfulOnly_);
    column->addWidget(view_);
}

void PageListPane::makeView() {
    view_->setObjectName(QStringLiteral("PagesLB"));
    view_->setAccessibleName(QStringLiteral("Pages of the book"));
    view_->setModel(table_);
    view_->setItemDelegate(new RoomyRows(view_));
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);
    view_->setAllColumnsShowFocus(true);
    view_->setAlternatingRowColors(true);
    view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int digit = view_->fontMetrics().horizontalAdvance(u'0');
    QHeaderView& header = *view_->header();
    header.setSectionsMovable(false);
    header.setStretchLastSection(false);
    header.setMinimumSectionSize(kNumberDigits * digit);
    header.setSectionResizeMode(QHeaderView::Stretch);
    for (const auto& [section, width] :
         {std::pair{PageTable::Number, kNumberDigits * digit}, std::pair{PageTable::State, kStateDigits * digit}}) {
        header.setSectionResizeMode(section, QHeaderView::Fixed);
        header.resizeSection(section, width);
    }
    connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& index) {
        if (!showing_ && index.isValid())
            emit picked(table_->rowOf(index));
    });
    connect(view_, &QTreeView::clicked, this, &PageListPane::entered);
    connect(view_, &QTreeView::activated, this, &PageListPane::entered);
    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& place) { emit menuWanted(view_->viewport()->mapToGlobal(place)); });
}

void PageListPane::showRows() {
    const int scrolled = view_->verticalScrollBar()->value();
    table_->reset();
    view_->verticalScrollBar()->setValue(scrolled);
    showCurrentRow();
}

void PageListPane::showChangedRows(const std::vector<std::size_t>& rows) {
    table_->update(rows);
}

void PageListPane::showCurrentRow() {
    const QScopedValueRollback showing(showing_, true);
    if (const auto row = model_.current())
        view_->setCurrentIndex(table_->indexOf(*row));
}

void PageListPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    view_->scrollTo(view_->currentIndex());
}

} // namespace velmarin
