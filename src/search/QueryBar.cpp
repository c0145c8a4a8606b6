#include "search/QueryBar.h"

#include "controls/AnchoredLayout.h"
#include "controls/FittedText.h"
#include "controls/ListBox.h"
#include "controls/ProgressBar.h"
#include "controls/PushButton.h"
#include "controls/QtText.h"
#include "controls/TabPanel.h"
#include "platform/Busy.h"
#include "search/HitList.h"
#include "search/PageDeck.h"
#include "search/QueryRoute.h"
#include "search/Searcher.h"
#include "view/SmartCanvas.h"

#include <QKeyEvent>

namespace velmarin {

namespace {

/// Shows the bar for as long as a search runs, however that ends.
class ShownProgress {
  public:
    ShownProgress(ProgressBar& bar, int maximum) : bar_(bar) {
        bar_.setMaximum(maximum);
        bar_.setValue(0);
        bar_.show();
        bar_.raise();
    }
    ~ShownProgress() {
        bar_.setValue(bar_.Maximum());
        bar_.hide();
    }
    ShownProgress(const ShownProgress&) = delete;
    ShownProgress& operator=(const ShownProgress&) = delete;

  private:
    ProgressBar& bar_;
};

constexpr int kListProgressStep = 10;

bool isArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

} // namespace

QueryBar::QueryBar(WindowState& state, Searcher& searcher, PageDeck& deck, Host& host, BusyState& busy, QWidget* parent,
                   AnchoredLayout& layout)
    : QObject(parent), state_(state), searcher_(searcher), deck_(deck), host_(host), busy_(busy),
      SearchEF_(new QLineEdit(parent)), SeparatelyCB_(new QCheckBox(QStringLiteral("Search separately"), parent)),
      OKBT_(new PushButton(QStringLiteral("OK"), parent)), PB_(new ProgressBar(Qt::Vertical, parent)) {
    SearchEF_->setObjectName(QStringLiteral("SearchEF"));
    SearchEF_->setAccessibleName(QStringLiteral("Word to search"));
    showNoGroup();
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
    connect(SeparatelyCB_, &QCheckBox::toggled, this, &QueryBar::separatelyClicked);
}

void QueryBar::showNoGroup() {
    SearchEF_->setText(QStringLiteral("To execute a search, select a dictionary."));
    SeparatelyCB_->setChecked(false);
}

void QueryBar::OKBT_Action() {
    if (SearchEF_->text().isEmpty())
        return;
    if (busy_.busy()) {
        if (!putOff_)
            busy_.whenFree([this] {
                putOff_ = false;
                OKBT_Action();
            });
        putOff_ = true;
        return;
    }
    const QString query = SearchEF_->text();
    // Selected already now: what is typed while the search runs is the next word.
    SearchEF_->selectAll();
    try {
        runQuery(fromQ(query));
    } catch (...) {
        // A page that cannot be shown is told of by the event loop, and takes nothing else from the reader.
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

void QueryBar::runQuery(const std::string& query) {
    const Busy guard(busy_);
    switch (routeQuery(state_.pListMode, SeparatelyCB_->isChecked(), [this] { return host_.AsyncShiftKey(); })) {
    case QueryRoute::List:
        searchAllIntoList(query);
        break;
    case QueryRoute::FrontTab:
        if (state_.hasDictionary(deck_.TB()->Value()))
            searcher_.mSearch(query, deck_.TB()->Value());
        break;
    case QueryRoute::AllTabs:
        searchAllTabs(query);
        break;
    case QueryRoute::Unexpected:
        host_.MsgBox("OKBT unexpected error at ACTION.");
        break;
    }
}

void QueryBar::searchAllIntoList(const std::string& query) {
    state_.pHiteItems.clear();
    ListBox* rows = searcher_.defaultList().LB();
    rows->DeleteAllRows();
    const int count = static_cast<int>(state_.pDictionaryItem.size());
    const ShownProgress progress(*PB_, count - 1);
    for (int i = 0; i < count; ++i) {
        if (i % kListProgressStep == 0)
            PB_->setValue(i);
        searcher_.mSearch_ListMode(query, i);
        host_.Yield();
    }
    if (rows->rowCount() > 0) {
        rows->setFocus();
        rows->setListIndex(0);
    }
}

void QueryBar::searchAllTabs(const std::string& query) {
    const int count = static_cast<int>(state_.pDictionaryItem.size());
    const ShownProgress progress(*PB_, count - 1);
    for (int i = 0; i < count; ++i) {
        PB_->setValue(i);
        searcher_.mSearch(query, i);
        host_.Yield();
    }
}

bool QueryBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched != SearchEF_)
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::ShortcutOverride) {
        // The field would take these for its own word moves; they are the commands of the menus.
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
    SmartCanvas* canvas = deck_.set(deck_.TB()->Value()).MainCanvas;
    const int step = static_cast<int>(canvas->height() / 50.0);
    if (canvas->hasImage())
        canvas->SmartScroll(0, key == Qt::Key_Down ? -step : step);
    return true;
}

} // namespace velmarin
