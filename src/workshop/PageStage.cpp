#include "workshop/PageStage.h"

#include "draft/DraftOrder.h"
#include "platform/QtText.h"
#include "store/DictionaryItem.h"
#include "text/NumberText.h"
#include "view/SmartCanvas.h"
#include "workshop/PageTable.h"

#include <QLabel>
#include <QVBoxLayout>

namespace velmarin {

namespace {

/// In logical pixels.
constexpr int kLeastNeighborHeight = 40;
constexpr int kLeastStripHeight = 72;
/// The height of the current page's strip, in heights of its neighbors.
constexpr int kStripShare = 4;

QString numberOf(const DraftPage& page) {
    return page.number.empty() ? toQ(page.page) : QStringLiteral("Page %1").arg(toQ(page.number));
}

/// What the words of a page are, in a line.
QString captionOf(const DraftPage& page) {
    const QString words = page.first.empty() && page.last.empty() ? QStringLiteral("no headwords")
                          : page.last.empty()                     ? toQ(page.first)
                                                                  : toQ(page.first + " – " + page.last);
    return QStringLiteral("%1    %2    %3").arg(numberOf(page), words, textOf(page.state));
}

QLabel* plainLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    // A long headword is cut off rather than the window made wider.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return label;
}

} // namespace

PageStage::PageStage(WorkshopModel& model, Host& host, QWidget* form, QWidget* parent)
    : QWidget(parent), model_(model), before_(makeNeighbor(-1)), after_(makeNeighbor(1)), heading_(plainLabel(this)),
      strip_(new StripView(StripView::Look::Clear, this)), canvas_(new SmartCanvas(host, this)) {
    QFont bold = heading_->font();
    bold.setBold(true);
    heading_->setFont(bold);
    heading_->setObjectName(QStringLiteral("HeadingST"));
    strip_->setObjectName(QStringLiteral("Strip"));
    strip_->setMinimumHeight(kLeastStripHeight);
    canvas_->setObjectName(QStringLiteral("WholePage"));
    canvas_->view().UseMouseWheel = true;
    canvas_->hide();
    makeLayout(form);
    connect(&shelf_, &PictureShelf::ready, this, &PageStage::showPictures);
}

PageStage::Neighbor PageStage::makeNeighbor(int by) {
    Neighbor neighbor{plainLabel(this), new StripView(StripView::Look::Dimmed, this), by};
    neighbor.strip->setMinimumHeight(kLeastNeighborHeight);
    neighbor.strip->setCursor(Qt::PointingHandCursor);
    connect(neighbor.strip, &StripView::clicked, this, [this, by] { emit stepped(by); });
    return neighbor;
}

void PageStage::makeLayout(QWidget* form) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(before_.caption);
    column->addWidget(before_.strip, 1);
    column->addSpacing(12);
    column->addWidget(heading_);
    column->addWidget(strip_, kStripShare);
    column->addWidget(canvas_, kStripShare);
    column->addSpacing(4);
    column->addWidget(form);
    column->addSpacing(8);
    column->addWidget(after_.caption);
    column->addWidget(after_.strip, 1);
}

void PageStage::showCurrentPage() {
    wantPictures();
    showWords();
    showPictures();
}

const DraftPage* PageStage::pageAt(int by) const {
    const std::vector<DraftPage>& pages = model_.draft().pages;
    const std::size_t row = model_.current().value_or(pages.size()) + static_cast<std::size_t>(by);
    return row < pages.size() ? &pages[row] : nullptr;
}

void PageStage::wantPictures() {
    std::vector<FolderItem> files;
    const auto want = [&](const DraftPage* page) {
        const FolderItem file = page == nullptr ? FolderItem() : model_.book().picture(page->page);
        if (!file.isNil())
            files.push_back(file);
    };
    for (const int by : {0, 1, -1})
        want(pageAt(by));
    if (const auto row = model_.nextDoubtful())
        for (const std::size_t each : {*row, *row + 1, *row - 1})
            if (each < model_.draft().pages.size())
                want(&model_.draft().pages[each]);
    for (const int by : {2, -2})
        want(pageAt(by));
    shelf_.want(files);
}

void PageStage::showWords() {
    for (const Neighbor& neighbor : {before_, after_}) {
        const DraftPage* page = pageAt(neighbor.by);
        neighbor.caption->setText(page == nullptr ? QString() : captionOf(*page));
    }
    heading_->setText(
        model_.current() ? heading() : QStringLiteral("The pages appear here as soon as the first of them are read."));
    heading_->setToolTip(heading_->text().toHtmlEscaped());
}

QString PageStage::heading() const {
    const DraftPage& page = model_.currentPage();
    const std::string reason =
        doubtReason(model_.draft(), *model_.current(), model_.book().keyRule(), model_.book().indexOrder());
    return QStringLiteral("%1    %2%3")
        .arg(numberOf(page), textOf(page.state), reason.empty() ? QString() : QStringLiteral(": ") + toQ(reason));
}

void PageStage::showPictures() {
    showStrip(*before_.strip, pageAt(before_.by));
    showStrip(*after_.strip, pageAt(after_.by));
    showStrip(*strip_, pageAt(0));
    showWholePage();
}

void PageStage::showStrip(StripView& strip, const DraftPage* page) {
    if (page == nullptr)
        return strip.showNotice({});
    const DecodedPicture* decoded = shelf_.find(model_.book().picture(page->page));
    if (decoded == nullptr)
        strip.showNotice({});
    else if (!decoded->picture)
        strip.showNotice(QStringLiteral("%1 cannot be shown: %2").arg(toQ(page->page), toQ(decoded->reason)));
    else
        strip.showPage(decoded->picture, model_.book().headStrip(page->page),
                       &strip == strip_ ? model_.book().headWords(page->page) : std::vector<PageBox>());
    strip.setAccessibleName(QStringLiteral("Head of %1").arg(numberOf(*page)));
}

void PageStage::showWholePage() {
    const DraftPage* page = pageAt(0);
    if (!whole_ || page == nullptr || page->page == onCanvas_)
        return;
    const DecodedPicture* decoded = shelf_.find(model_.book().picture(page->page));
    canvas_->dropImage();
    canvas_->setMode(kAdjustByWidth); // from its top
    if (decoded != nullptr && decoded->picture) {
        canvas_->SetPicture(decoded->picture);
        onCanvas_ = page->page;
        canvas_->describePage({}, page->page, decoded->reason);
    }
    canvas_->Refresh();
}

void PageStage::setWholePage(bool whole) {
    whole_ = whole;
    onCanvas_.clear();
    for (QWidget* widget :
         {static_cast<QWidget*>(strip_), static_cast<QWidget*>(before_.strip), static_cast<QWidget*>(after_.strip),
          static_cast<QWidget*>(before_.caption), static_cast<QWidget*>(after_.caption)})
        widget->setVisible(!whole);
    canvas_->setVisible(whole);
    showWholePage();
}

void PageStage::scroll(bool down) {
    if (whole_)
        canvas_->mJumpScroll_vertical(down ? 1 : 0);
}

void PageStage::dropPictures() {
    shelf_.clear();
    onCanvas_.clear();
    showCurrentPage();
}

} // namespace velmarin
