#include "search/QueryBar.h"

#include "controls/AnchoredLayout.h"
#include "controls/FittedText.h"
#include "controls/ProgressBar.h"
#include "controls/PushButton.h"
#include "platform/Busy.h"
#include "platform/QtText.h"
#include "search/PageDeck.h"
#include "search/SearchModel.h"

#include <QKeyEvent>

namespace velmarin {

namespace {

bool isArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

} // namespace

QueryBar::QueryBar(SearchModel& search, PageDeck& deck, BusyState& busy, QWidget* parent, AnchoredLayout& layout)
    : QObject(parent), search_(search), deck_(deck), busy_(busy), SearchEF_(new QLineEdit(parent)),
      SeparatelyCB_(new QCheckBox(QStringLiteral("Search separately"), parent)),
      OKBT_(new PushButton(QStringLiteral("OK"), parent)), PB_(new ProgressBar(Qt::Vertical, parent)) {
    SearchEF_->setObjectName(QStringLiteral("SearchEF"));
    SearchEF_->setAccessibleName(QStringLiteral("Word to search"));
    SearchEF_->setStyleSheet(QStringLiteral("QLineEdit { background: #f9ffe8; color: black; }"));
    SearchEF_->installEventFilter(this);
    layout.add(SearchEF_, QRect(257, 3, 295, 28), Anchor::Left | Anchor::Top | Anchor::Right);

    SeparatelyCB_->setObjectName(QStringLiteral("SeparatelyCB"));
    SeparatelyCB_->setToolTip(
        QStringLiteral("By pushing the shift key, you can change temporally the selection of this checkbox."));
    // A click leaves the focus in the search field; Tab still reaches the box and the button.
    SeparatelyCB_->setFocusPolicy(Qt::TabFocus);
    SeparatelyCB_->setEnabled(false);
    const QRect separatelyPlace(554, 3, 121, 23);
    const int indicator = SeparatelyCB_->sizeHint().width() - textWidth(SeparatelyCB_->font(), SeparatelyCB_->text());
    SeparatelyCB_->setFont(
        fontForWidth(SeparatelyCB_->font(), SeparatelyCB_->text(), separatelyPlace.width() - indicator));
    layout.add(SeparatelyCB_, separatelyPlace, Anchor::Top | Anchor::Right);

    OKBT_->setObjectName(QStringLiteral("OKBT"));
    OKBT_->setToolTip(QStringLiteral("Search (Return)"));
    OKBT_->setFocusPolicy(Qt::TabFocus);
    OKBT_->setEnabled(false);
    OKBT_->setDefault(true);
    layout.add(OKBT_, QRect(679, 4, 39, 22), Anchor::Top | Anchor::Right);

    PB_->setObjectName(QStringLiteral("PB"));
    PB_->setAccessibleName(QStringLiteral("Progress of the search"));
    PB_->hide();
    layout.add(PB_, QRect(828, -1, 12, 790), Anchor::Top | Anchor::Right | Anchor::Bottom);

    connect(OKBT_, &QPushButton::clicked, this, &QueryBar::OKBT_Action);
    connect(SeparatelyCB_, &QCheckBox::toggled, this, [this](bool checked) {
        search_.setSeparately(checked);
        emit separatelyChanged();
    });
    search_.showIn(*this);
    showNoGroup();
}

void QueryBar::showNoGroup() {
    SearchEF_->setText(QStringLiteral("To execute a search, select a dictionary."));
    search_.setSeparately(false);
}

void QueryBar::OKBT_Action() {
    if (SearchEF_->text().isEmpty())
        return;
    if (busy_.busy()) {
        if (!searchWaits_)
            busy_.whenFree([this] {
                searchWaits_ = false;
                OKBT_Action();
            });
        searchWaits_ = true;
        return;
    }
    const QString query = SearchEF_->text();
    // Selected before the search, so that what is typed while it runs is the next word.
    SearchEF_->selectAll();
    try {
        search_.search(fromQ(query));
    } catch (...) {
        // The event loop reports the error; all else goes on as after any search.
        finish(query);
        throw;
    }
    finish(query);
}

void QueryBar::finish(const QString& query) {
    emit searched(query);
    emit finished();
    if (SearchEF_->text() == query)
        SearchEF_->selectAll();
    SearchEF_->setFocus();
}

void QueryBar::showSeparately(bool separately) {
    SeparatelyCB_->setChecked(separately);
}

void QueryBar::showProgress(int maximum) {
    PB_->setMaximum(maximum);
    PB_->setValue(0);
    PB_->show();
    PB_->raise();
}

void QueryBar::setProgress(int value) {
    PB_->setValue(value);
}

void QueryBar::hideProgress() {
    PB_->setValue(PB_->Maximum());
    PB_->hide();
}

bool QueryBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched != SearchEF_)
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::ShortcutOverride) {
        // The field would use these for its own word moves, but they are commands of the menus.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (isArrow(key->key()) && (key->modifiers() & Qt::ControlModifier) != 0) {
            event->ignore();
            return true;
        }
    }
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (SearchEF_KeyDown(key->key(), key->modifiers()))
            return true;
    }
    return QObject::eventFilter(watched, event);
}

bool QueryBar::SearchEF_KeyDown(int key, Qt::KeyboardModifiers modifiers) {
    if ((modifiers & (Qt::ControlModifier | Qt::AltModifier)) != 0 || (key != Qt::Key_Up && key != Qt::Key_Down))
        return false;
    deck_.scrollFront(key == Qt::Key_Down);
    return true;
}

} // namespace velmarin
