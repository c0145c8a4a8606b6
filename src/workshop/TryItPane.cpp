#include "workshop/TryItPane.h"

#include "controls/ScreenFit.h"
#include "platform/QtText.h"
#include "store/DictionaryItem.h"
#include "view/SmartCanvas.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

namespace velmarin {

namespace {

constexpr QSize kFirstSize(640, 760);
constexpr QSize kLeastSize(320, 240);

} // namespace

TryItPane::TryItPane(const WorkshopModel& model, Host& host, QWidget* parent)
    : QWidget(parent, Qt::Window), model_(model), wordEF_(new QLineEdit(this)), foundST_(new QLabel(this)),
      canvas_(new SmartCanvas(host, this)) {
    setObjectName(QStringLiteral("TryItPane"));
    setWindowTitle(QStringLiteral("Try it"));
    setMinimumSize(kLeastSize);
    resize(firstPlace(kFirstSize, 0, screen()->availableGeometry()).size());
    auto* label = new QLabel(QStringLiteral("&Word:"), this);
    label->setBuddy(wordEF_);
    wordEF_->setObjectName(QStringLiteral("TryEF"));
    wordEF_->setToolTip(QStringLiteral("A word as a reader types it. Return shows its page in the list"));
    foundST_->setObjectName(QStringLiteral("TryST"));
    foundST_->setTextFormat(Qt::PlainText);
    foundST_->setWordWrap(true);
    canvas_->setObjectName(QStringLiteral("TryCanvas"));
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(wordEF_, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(foundST_);
    column->addWidget(canvas_, 1);
    connect(wordEF_, &QLineEdit::textEdited, this, &TryItPane::lookUp);
    connect(wordEF_, &QLineEdit::returnPressed, this, [this] {
        if (!shown_.empty())
            emit pageWanted(shown_);
    });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::hide);
    for (const bool down : {false, true})
        connect(new QShortcut(down ? Qt::Key_Down : Qt::Key_Up, this), &QShortcut::activated, this,
                [this, down] { canvas_->mJumpScroll_vertical(down ? 1 : 0); });
    takeDraft();
}

void TryItPane::takeDraft() {
    if (draft_ == model_.draft() && !draft_.pages.empty())
        return shown_.empty() ? lookUp() : void();
    draft_ = model_.draft();
    dictionary_ = tryDraft(draft_, model_.book().keyRule(), model_.book().indexOrder());
    lookUp();
}

void TryItPane::takeFocus() {
    show();
    raise();
    activateWindow();
    wordEF_->setFocus();
    wordEF_->selectAll();
}

void TryItPane::setWord(const std::string& word) {
    wordEF_->setText(toQ(word));
    lookUp();
}

void TryItPane::lookUp() {
    const std::string word = fromQ(wordEF_->text().trimmed());
    if (word.empty())
        return foundST_->setText(QStringLiteral("Type a word, and see which page it would open."));
    const TriedWord tried = dictionary_.find(word);
    foundST_->setText(toQ(sentenceOf(word, tried)));
    showPage(tried.file);
}

void TryItPane::showPage(const std::string& page) {
    if (page == shown_)
        return;
    // A book that was opened a moment ago may not know its pictures yet.
    const FolderItem picture = page.empty() ? FolderItem() : model_.book().picture(page);
    shown_ = picture.isNil() ? std::string() : page;
    canvas_->setMode(kAdjustByWidth);
    if (picture.isNil())
        canvas_->dropImage();
    else
        canvas_->SetPicture(picture);
    canvas_->describePage({}, page, page.empty() ? std::string() : canvas_->loadProblem());
    canvas_->Refresh();
}

} // namespace velmarin
