#include "workshop/GuideForm.h"

#include "platform/QtText.h"
#include "workshop/GuideField.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QVBoxLayout>

namespace velmarin {

namespace {

constexpr int kNumberDigits = 8;
constexpr int kRowsOfScreenful = 10;

} // namespace

GuideForm::GuideForm(WorkshopModel& model, QWidget* parent)
    : QWidget(parent), model_(model), first_(new GuideField(QStringLiteral("Fi&rst headword"), this)), last_(nullptr),
      number_(new QLineEdit(this)) {
    last_ = new GuideField(QStringLiteral("&Last headword"), this);
    first_->edit().setObjectName(QStringLiteral("FirstEF"));
    number_->setObjectName(QStringLiteral("NumberEF"));
    last_->edit().setObjectName(QStringLiteral("LastEF"));
    first_->edit().setPlaceholderText(QStringLiteral("first headword on the page"));
    last_->edit().setPlaceholderText(QStringLiteral("may stay empty"));
    makeLayout();
    connectFields();
}

void GuideForm::makeLayout() {
    auto* caption = new QLabel(QStringLiteral("N&umber"), this);
    caption->setBuddy(number_);
    number_->setFont(first_->edit().font());
    number_->setAlignment(Qt::AlignHCenter);
    number_->setFixedWidth(kNumberDigits * number_->fontMetrics().horizontalAdvance(u'0') + 16);
    auto* number = new QVBoxLayout;
    number->setSpacing(first_->layout()->spacing());
    number->addWidget(caption);
    number->addWidget(number_);
    number->addStretch();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(16);
    row->addWidget(first_, 1);
    row->addLayout(number);
    row->addWidget(last_, 1);
    setTabOrder(&first_->edit(), &last_->edit());
    setTabOrder(&last_->edit(), number_);
}

void GuideForm::connectFields() {
    for (QLineEdit* edit : {&first_->edit(), number_, &last_->edit()}) {
        edit->installEventFilter(this);
        edit->setContextMenuPolicy(Qt::DefaultContextMenu);
    }
    for (GuideField* each : {first_, last_}) {
        connect(each, &GuideField::edited, this, &GuideForm::showProblems);
        connect(each, &GuideField::otherChosen, this, &GuideForm::chooseOther);
    }
    for (int digit = 1; digit <= static_cast<int>(kMostOtherReadings); ++digit)
        connect(new QShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_0 + digit)), this),
                &QShortcut::activated, this, [this, digit] { chooseOther(digit); });
}

void GuideForm::showPage() {
    setEnabled(model_.current().has_value());
    if (!model_.current() || (model_.currentPage().page == shown_ && typed()))
        return;
    dropTyped();
}

void GuideForm::dropTyped() {
    const DraftPage& page = model_.currentPage();
    const bool another = page.page != shown_;
    shown_ = page.page;
    wordsShown_ = wordsOf(page);
    first_->showWord(page.first);
    last_->showWord(page.last);
    number_->setText(toQ(page.number));
    showOthers();
    showProblems();
    if (another)
        takeFocus();
    else if (auto* edit = qobject_cast<QLineEdit*>(focusWidget()); edit != nullptr && edit->hasFocus())
        edit->selectAll();
}

void GuideForm::takeFocus() {
    if (!model_.current())
        return;
    const GuidePlace place = likelierWrong(model_.draft(), *model_.current(), model_.book());
    QLineEdit& edit = field(place).edit();
    edit.setFocus();
    edit.selectAll();
}

void GuideForm::keepTyped() {
    if (model_.current() && typed())
        model_.set(notedWords());
}

void GuideForm::take() {
    model_.take(notedWords());
}

void GuideForm::takeWithoutHeadwords() {
    model_.take({.first = {}, .last = {}, .number = notedWords().number});
}

PageWords GuideForm::notedWords() {
    wordsShown_ = words();
    return wordsShown_;
}

PageWords GuideForm::words() const {
    return {.first = first_->word(), .last = last_->word(), .number = fromQ(number_->text().trimmed())};
}

void GuideForm::showProblems() {
    // The row as it would be, so that the two words are compared with each other.
    Draft draft = model_.draft();
    const std::size_t row = *model_.current();
    const PageWords typed = words();
    draft.pages[row].first = typed.first;
    draft.pages[row].last = typed.last;
    for (const auto& [place, word] : {std::pair{GuidePlace::First, typed.first}, {GuidePlace::Last, typed.last}})
        field(place).showProblem(
            orderProblem(draft, row, place, word, model_.book().keyRule(), model_.book().indexOrder()));
}

void GuideForm::showOthers() {
    const PageGuess* guess = model_.book().guess(shown_);
    others_ = guess == nullptr ? std::vector<OtherReading>() : otherReadings(*guess, model_.currentPage());
    std::vector<std::string> ofFirst, ofLast;
    for (const OtherReading& other : others_)
        (other.place == GuidePlace::First ? ofFirst : ofLast).push_back(other.text);
    first_->showOthers(ofFirst, 1);
    last_->showOthers(ofLast, static_cast<int>(ofFirst.size()) + 1);
}

void GuideForm::chooseOther(int digit) {
    if (digit > static_cast<int>(others_.size()))
        return;
    const OtherReading& other = others_[static_cast<std::size_t>(digit) - 1];
    field(other.place).type(other.text);
}

bool GuideForm::eventFilter(QObject* watched, QEvent* event) {
    auto* edit = qobject_cast<QLineEdit*>(watched);
    switch (event->type()) {
    case QEvent::FocusIn:
        emit sideChanged(edit == number_          ? StripSide::Middle
                         : edit == &last_->edit() ? StripSide::Right
                                                  : StripSide::Left);
        return false;
    case QEvent::ShortcutOverride:
        if (!isKeyOfWindow(*static_cast<QKeyEvent*>(event), *edit))
            return false;
        event->ignore();
        return true;
    case QEvent::KeyPress:
        return fieldKey(static_cast<QKeyEvent*>(event)->key());
    default:
        return false;
    }
}

bool GuideForm::isKeyOfWindow(const QKeyEvent& key, const QLineEdit& edit) const {
    // A field keeps these keys while it has something of its own to undo.
    return (key.matches(QKeySequence::Undo) && !edit.isUndoAvailable()) ||
           (key.matches(QKeySequence::Redo) && !edit.isRedoAvailable());
}

bool GuideForm::fieldKey(int key) {
    const auto step = [this](int by) {
        keepTyped();
        model_.step(by);
        return true;
    };
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        take();
        return true;
    case Qt::Key_Up:
        return step(-1);
    case Qt::Key_Down:
        return step(1);
    case Qt::Key_PageUp:
        return step(-kRowsOfScreenful);
    case Qt::Key_PageDown:
        return step(kRowsOfScreenful);
    case Qt::Key_Escape:
        dropTyped();
        takeFocus();
        return true;
    default:
        return false;
    }
}

} // namespace velmarin
