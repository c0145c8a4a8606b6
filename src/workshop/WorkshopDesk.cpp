#include "workshop/WorkshopDesk.h"

#include "controls/ProgressBar.h"
#include "controls/PushButton.h"
#include "platform/Host.h"
#include "platform/QtText.h"
#include "text/NumberText.h"
#include "workshop/GuideForm.h"
#include "workshop/NoticeBar.h"
#include "workshop/PageListPane.h"
#include "workshop/PageStage.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>

#include <chrono>

namespace velmarin {

namespace {

constexpr std::chrono::seconds kSaveAgain{10};
constexpr std::chrono::seconds kLookOutside{2};
constexpr int kMargin = 12;
constexpr int kListWidth = 330;

} // namespace

WorkshopDesk::WorkshopDesk(std::unique_ptr<WorkshopBook> book, Host& host, QWidget* parent)
    : QWidget(parent), book_(std::move(book)), model_(*book_), host_(host), list_(new PageListPane(model_, this)),
      form_(new GuideForm(model_, this)), stage_(nullptr), notice_(new NoticeBar(this)),
      splitter_(new QSplitter(Qt::Horizontal, this)), counts_(new QLabel(this)),
      share_(new ProgressBar(Qt::Horizontal, this)), bar_(nullptr) {
    setObjectName(QStringLiteral("WorkshopDesk"));
    model_.showIn(*this);
    splitter_->addWidget(list_);
    splitter_->addWidget(makeWork());
    splitter_->setStretchFactor(1, 1);
    splitter_->setChildrenCollapsible(false);
    splitter_->setHandleWidth(kMargin);
    setListWidth(kListWidth);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin / 2);
    column->addWidget(notice_);
    column->addWidget(splitter_, 1);
    column->addWidget(makeBar());
    for (QWidget* each : notice_->findChildren<QPushButton*>())
        setTabOrder(&list_->view(), each); // what is told does not come between the fields
    connect(list_, &PageListPane::picked, this, &WorkshopDesk::select);
    connect(list_, &PageListPane::entered, form_, &GuideForm::takeFocus);
    connect(stage_, &PageStage::stepped, this, &WorkshopDesk::step);
    connect(form_, &GuideForm::sideChanged, &stage_->strip(), &StripView::setSide);
    saveAgain_.setInterval(kSaveAgain);
    connect(&saveAgain_, &QTimer::timeout, this, [this] { model_.saveAgain(); });
    countsLater_.setSingleShot(true);
    connect(&countsLater_, &QTimer::timeout, this, &WorkshopDesk::showCountsNow);
    lookOutside_.start(kLookOutside);
    connect(&lookOutside_, &QTimer::timeout, this, [this] { model_.lookOutside(); });
}

WorkshopDesk::~WorkshopDesk() = default;

QWidget* WorkshopDesk::makeWork() {
    auto* lower = new QWidget(this);
    auto* column = new QVBoxLayout(lower);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(form_);
    column->addWidget(makeButtons());
    stage_ = new PageStage(model_, host_, lower, this);
    return stage_;
}

QWidget* WorkshopDesk::makeButtons() {
    auto* buttons = new QWidget(this);
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char* name, const QString& text, void (WorkshopDesk::*action)()) {
        auto* button = new PushButton(text, this);
        button->setObjectName(QLatin1String(name));
        button->setFocusPolicy(Qt::TabFocus);
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, action);
        button->setMinimumWidth(button->sizeHint().width() + 2 * kMargin);
        row->addWidget(button);
    };
    add("TakeBT", QStringLiteral("&Take, go on   (Return)"), &WorkshopDesk::take);
    add("NoHeadwordsBT", QStringLiteral("N&o headwords here   (F8)"), &WorkshopDesk::takeWithoutHeadwords);
    row->addStretch();
    return buttons;
}

QWidget* WorkshopDesk::makeBar() {
    auto* bar = new QWidget(this);
    bar_ = new QHBoxLayout(bar);
    bar_->setContentsMargins(0, 0, 0, 0);
    bar_->setSpacing(kMargin);
    counts_->setObjectName(QStringLiteral("CountsST"));
    share_->setObjectName(QStringLiteral("DonePB"));
    share_->setAccessibleName(QStringLiteral("Pages that need no look"));
    share_->setMaximumWidth(200);
    bar_->addWidget(counts_);
    bar_->addWidget(share_);
    bar_->addStretch(1);
    return bar;
}

int WorkshopDesk::listWidth() const {
    return splitter_->sizes().front();
}

void WorkshopDesk::setListWidth(int width) {
    splitter_->setSizes({width, width}); // the page takes the rest
}

void WorkshopDesk::addToBar(QWidget* widget) {
    bar_->addWidget(widget);
}

void WorkshopDesk::take() {
    form_->take();
}

void WorkshopDesk::takeWithoutHeadwords() {
    form_->takeWithoutHeadwords();
}

void WorkshopDesk::goToDoubtful(int direction) {
    form_->keepTyped();
    model_.goToDoubtful(direction);
}

void WorkshopDesk::step(int by) {
    form_->keepTyped();
    model_.step(by);
}

void WorkshopDesk::select(std::size_t row) {
    form_->keepTyped();
    model_.select(row);
}

void WorkshopDesk::undo() {
    if (form_->typed())
        form_->dropTyped();
    else
        model_.undo();
}

void WorkshopDesk::redo() {
    model_.redo();
}

void WorkshopDesk::keepChanges() {
    form_->keepTyped();
    model_.saveAgain();
}

bool WorkshopDesk::mayClose() {
    keepChanges();
    return model_.saved() || host_.askYesNo("Your last changes could not be saved. Do you want to close the book "
                                            "without them?") == Host::Answer::Yes;
}

void WorkshopDesk::showRows() {
    list_->showRows();
}

void WorkshopDesk::showChangedRows(const std::vector<std::size_t>& rows) {
    list_->showChangedRows(rows);
    stage_->showWords();
}

void WorkshopDesk::showCurrentPage() {
    list_->showCurrentRow();
    form_->showPage();
    stage_->showCurrentPage();
    emit changed();
}

void WorkshopDesk::showCounts() {
    // A progress bar repaints the window at once, which would show the old page once more.
    countsLater_.start();
}

void WorkshopDesk::showCountsNow() {
    const DraftCounts counts = model_.counts();
    const int all = static_cast<int>(model_.draft().pages.size());
    counts_->setText(all == 0 ? QString() : toQ(counts.text()));
    share_->setVisible(all > 0);
    share_->setMaximum(std::max(1, all));
    share_->setValue(all - static_cast<int>(counts.toLookAt()));
    emit changed();
}

void WorkshopDesk::showAllDone() {
    notice_->tell(
        QStringLiteral("No page is left to look at. “Make dictionary…” in the menu “Book” is the next step."));
}

void WorkshopDesk::showSaved(const Result& result) {
    if (result) {
        if (saveAgain_.isActive())
            notice_->hide();
        saveAgain_.stop();
        return;
    }
    notice_->tell(QStringLiteral("%1. Nothing is lost: your changes are kept here, and saving is tried again every "
                                 "few seconds.")
                      .arg(toQ(result.failure().message())),
                  QStringLiteral("Save now"), [this] { model_.saveAgain(); });
    saveAgain_.start();
}

void WorkshopDesk::showTakenOver(std::size_t rows) {
    notice_->tell(rows == 1 ? QStringLiteral("Another program has changed the draft: one page was taken over.")
                            : QStringLiteral("Another program has changed the draft: %1 pages were taken over.")
                                  .arg(toQ(Format(static_cast<double>(rows), "#,##0"))),
                  QStringLiteral("Undo"), [this] { undo(); });
}

bool WorkshopDesk::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate)
        model_.lookOutside();
    return QWidget::event(event);
}

} // namespace velmarin
