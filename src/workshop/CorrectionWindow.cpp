#include "workshop/CorrectionWindow.h"

#include "controls/ListBox.h"
#include "controls/PushButton.h"
#include "controls/ScreenFit.h"
#include "maintenance/LockedFolder.h"
#include "platform/Host.h"
#include "platform/QtText.h"
#include "store/DictionaryItem.h"
#include "text/UnicodeForms.h"
#include "view/SmartCanvas.h"
#include "workshop/EntryTable.h"
#include "workshop/TryIt.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <cstdlib>
#include <iostream>
#include <utility>

namespace velmarin {

namespace {

constexpr QSize kFirstSize(1100, 760);
constexpr QSize kLeastSize(640, 420);
constexpr int kRowPadding = 6;
constexpr int kPageColumn = 10; // characters
constexpr int kScreenfulDown = 1;

QString inQuotes(const std::string& text) {
    return QStringLiteral("“%1”").arg(toQ(text));
}

QHBoxLayout* rowOf(QWidget* widget) {
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 0, 0, 0);
    return row;
}

} // namespace

CorrectionWindow::CorrectionWindow(Host& host, FolderItem corrections, FolderItem backups)
    : host_(host), corrections_(std::move(corrections)), backups_(std::move(backups)),
      entries_(new EntryTable(corrector_, this)) {
    setObjectName(QStringLiteral("CorrectionWindow"));
    setMinimumSize(kLeastSize);
    const WindowPlace place = firstPlace(kFirstSize, 0, screen()->availableGeometry());
    move(place.topLeft());
    resize(place.size());
    makeControls();
    const std::pair<QKeySequence, void (CorrectionWindow::*)()> keys[] = {
        {QKeySequence::Save, &CorrectionWindow::save},
        {QKeySequence::Undo, &CorrectionWindow::undo},
    };
    for (const auto& [sequence, action] : keys)
        connect(new QShortcut(sequence, this), &QShortcut::activated, this, action);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
    for (const int down : {0, kScreenfulDown})
        connect(new QShortcut(down == kScreenfulDown ? Qt::CTRL | Qt::Key_Down : Qt::CTRL | Qt::Key_Up, this),
                &QShortcut::activated, this, [this, down] { canvas_->mJumpScroll_vertical(down); });
}

void CorrectionWindow::makeControls() {
    auto* content = new QWidget(this);
    auto* column = new QVBoxLayout(content);
    column->addWidget(makeTop());
    column->addWidget(makeMiddle(), 1);
    column->addWidget(makeBottom());
    setCentralWidget(content);
}

QWidget* CorrectionWindow::makeTop() {
    auto* top = new QWidget(this);
    auto* row = rowOf(top);
    auto* label = new QLabel(QStringLiteral("&Word:"), top);
    wordEF_ = new QLineEdit(top);
    wordEF_->setObjectName(QStringLiteral("WordEF"));
    wordEF_->setToolTip(QStringLiteral("Up and Down turn the pages; Return says that the page shown is right"));
    wordEF_->setMaximumWidth(kFirstSize.width() / 4);
    wordEF_->installEventFilter(this);
    label->setBuddy(wordEF_);
    foundST_ = new QLabel(top);
    foundST_->setObjectName(QStringLiteral("FoundST"));
    foundST_->setTextFormat(Qt::PlainText);
    foundST_->setWordWrap(true);
    row->addWidget(label);
    row->addWidget(wordEF_, 1);
    row->addWidget(foundST_, 2);
    connect(wordEF_, &QLineEdit::textEdited, this, &CorrectionWindow::lookUp);
    connect(wordEF_, &QLineEdit::returnPressed, this, &CorrectionWindow::takePage);
    return top;
}

QWidget* CorrectionWindow::makeMiddle() {
    auto* middle = new QSplitter(Qt::Horizontal, this);
    middle->setChildrenCollapsible(false);
    entriesLB_ = new QTableView(middle);
    entriesLB_->setObjectName(QStringLiteral("EntriesLB"));
    entriesLB_->setAccessibleName(QStringLiteral("Entries of the dictionary"));
    entriesLB_->setModel(entries_);
    entriesLB_->setSelectionBehavior(QAbstractItemView::SelectRows);
    entriesLB_->setSelectionMode(QAbstractItemView::SingleSelection);
    entriesLB_->setTabKeyNavigation(false);
    entriesLB_->setShowGrid(false);
    entriesLB_->verticalHeader()->hide();
    entriesLB_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    entriesLB_->horizontalHeader()->setHighlightSections(false);
    entriesLB_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    entriesLB_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(entriesLB_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& now) { pickEntry(now.row()); });
    pagesLB_ = new ListBox(middle);
    pagesLB_->setObjectName(QStringLiteral("PagesLB"));
    pagesLB_->setAccessibleName(QStringLiteral("Pages of the dictionary"));
    connect(pagesLB_, &ListBox::Change, this, [this] { pickPage(pagesLB_->ListIndex()); });
    connect(pagesLB_, &QAbstractItemView::activated, this, &CorrectionWindow::takePage);
    canvas_ = new SmartCanvas(host_, middle);
    canvas_->setObjectName(QStringLiteral("PageCanvas"));
    canvas_->setMode(kAdjustByWidth);
    for (QWidget* each : {static_cast<QWidget*>(entriesLB_), static_cast<QWidget*>(pagesLB_)})
        middle->addWidget(each);
    middle->addWidget(canvas_);
    middle->setStretchFactor(2, 1);
    middle->setSizes({230, 110, kFirstSize.width()});
    return middle;
}

QPushButton* CorrectionWindow::addButton(QWidget* row, const char* name, const QString& text,
                                         void (CorrectionWindow::*action)()) {
    auto* button = new PushButton(text, row);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(true); // so that Return presses it while it has the focus
    connect(button, &QPushButton::clicked, this, action);
    row->layout()->addWidget(button);
    return button;
}

QWidget* CorrectionWindow::makeBottom() {
    auto* bottom = new QWidget(this);
    auto* column = new QVBoxLayout(bottom);
    column->setContentsMargins(0, 0, 0, 0);
    auto* choices = new QWidget(bottom);
    auto* row = rowOf(choices);
    pageBT_ = addButton(choices, "PageBT", {}, &CorrectionWindow::correctPage);
    addBT_ = addButton(choices, "AddBT", {}, &CorrectionWindow::addHeadword);
    row->addStretch(1);
    auto* label = new QLabel(QStringLiteral("&Headword:"), choices);
    headwordEF_ = new QLineEdit(choices);
    headwordEF_->setObjectName(QStringLiteral("HeadwordEF"));
    label->setBuddy(headwordEF_);
    row->addWidget(label);
    row->addWidget(headwordEF_);
    headwordBT_ = addButton(choices, "HeadwordBT", QStringLiteral("&Change"), &CorrectionWindow::correctHeadword);
    connect(headwordEF_, &QLineEdit::textEdited, this, &CorrectionWindow::showChoices);
    connect(headwordEF_, &QLineEdit::returnPressed, this, &CorrectionWindow::correctHeadword);
    column->addWidget(choices);
    auto* state = new QWidget(bottom);
    auto* last = rowOf(state);
    stateST_ = new QLabel(state);
    stateST_->setObjectName(QStringLiteral("StateST"));
    stateST_->setTextFormat(Qt::PlainText);
    last->addWidget(stateST_, 1);
    againBT_ = addButton(state, "AgainBT", QStringLiteral("Correct a&gain"), &CorrectionWindow::correctAgain);
    undoBT_ = addButton(state, "UndoBT", QStringLiteral("&Undo"), &CorrectionWindow::undo);
    saveBT_ = addButton(state, "SaveBT", QStringLiteral("&Save"), &CorrectionWindow::save);
    column->addWidget(state);
    return bottom;
}

Result CorrectionWindow::open(const FolderItem& dictionary, std::string_view word) {
    if (Result opened = DictionaryCorrector::open(dictionary, corrections_, corrector_); !opened)
        return opened;
    setWindowTitle(QStringLiteral("%1 – Velmarin Workshop").arg(toQ(corrector_.dictionary().Name())));
    pagesLB_->setRows(corrector_.pageList().captions);
    entriesLB_->setColumnWidth(1, fontMetrics().averageCharWidth() * kPageColumn);
    wordEF_->setText(toQ(word));
    due_ = corrector_.due();
    showCorrected();
    wordEF_->setFocus();
    return {};
}

std::string CorrectionWindow::typedWord() const {
    return composedForm(fromQ(wordEF_->text().trimmed()));
}

std::string CorrectionWindow::shownPage() const {
    const int row = pagesLB_->ListIndex();
    return row < 0 ? std::string() : corrector_.pageList().names[static_cast<std::size_t>(row)];
}

void CorrectionWindow::lookUp() {
    const std::string word = typedWord();
    const TriedWord tried = tryIn(corrector_.text(), corrector_.pageList(), corrector_.pages(), word);
    foundST_->setText(word.empty() ? QStringLiteral("Type a word that opens a wrong page.")
                                   : toQ(sentenceOf(word, tried)));
    const std::size_t place = corrector_.text().placeOf(word);
    const bool found = place > 0 && place < corrector_.text().size();
    showEntry(found ? std::optional(place - 1) : std::nullopt);
}

void CorrectionWindow::showEntry(std::optional<std::size_t> line) {
    line_ = line;
    showing_ = true;
    if (line) {
        const QModelIndex index = entries_->index(static_cast<int>(*line), 0);
        entriesLB_->selectRow(index.row());
        entriesLB_->scrollTo(index, QAbstractItemView::PositionAtCenter);
        headwordEF_->setText(toQ(corrector_.text().headword(*line)));
        showPage(corrector_.text().page(*line));
    } else {
        entriesLB_->clearSelection();
        headwordEF_->clear();
    }
    showing_ = false;
    showChoices();
}

void CorrectionWindow::pickEntry(int line) {
    if (line < 0 || showing_)
        return;
    wordEF_->setText(toQ(corrector_.text().headword(static_cast<std::size_t>(line))));
    foundST_->clear();
    showEntry(static_cast<std::size_t>(line));
}

void CorrectionWindow::showPage(const std::string& file) {
    const int row = corrector_.pages().has(file) ? corrector_.pages().value(file) : -1;
    pagesLB_->setListIndex(row);
    pagesLB_->scrollTo(pagesLB_->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void CorrectionWindow::pickPage(int row) {
    if (row >= 0) {
        const std::string file = shownPage();
        canvas_->setMode(kAdjustByWidth);
        canvas_->SetPicture(corrector_.dictionary().Child("mImg").Child(file));
        canvas_->describePage(corrector_.dictionary().Name(), file, canvas_->loadProblem());
    }
    showChoices();
}

void CorrectionWindow::showChoices() {
    const std::string page = shownPage(), word = typedWord();
    const QString caption = toQ(corrector_.captionOf(page));
    const bool entry = line_.has_value() && corrector_.text().isWhole(*line_);
    const std::string headword = entry ? std::string(corrector_.text().headword(*line_)) : std::string();
    const bool isThere = entry && corrector_.text().isFoundBy(*line_, word);
    pageBT_->setText(entry ? QStringLiteral("&Page %1 is right for %2").arg(caption, inQuotes(headword))
                           : QStringLiteral("This &page is right"));
    pageBT_->setEnabled(entry && !page.empty() && corrector_.text().page(*line_) != page);
    addBT_->setText(QStringLiteral("&Add %1 on page %2").arg(inQuotes(word), caption));
    addBT_->setVisible(!word.empty() && !isThere);
    addBT_->setEnabled(!page.empty() && !(entry && corrector_.text().page(*line_) == page));
    headwordEF_->setEnabled(entry);
    headwordBT_->setEnabled(entry && fromQ(headwordEF_->text()) != headword);
    const std::size_t unsaved = corrector_.unsaved().size();
    stateST_->setText(stateInWords());
    againBT_->setVisible(!due_.empty());
    undoBT_->setEnabled(unsaved > 0);
    saveBT_->setEnabled(unsaved > 0);
}

QString CorrectionWindow::stateInWords() const {
    if (const std::size_t unsaved = corrector_.unsaved().size(); unsaved > 0)
        return QStringLiteral("%1 not saved").arg(toQ(countOf(unsaved)));
    if (!due_.empty())
        return QStringLiteral("The dictionary lacks %1 of yours: %2")
            .arg(toQ(countOf(due_.size())), toQ(headwordsOf(due_)));
    if (!savedAs_.isEmpty())
        return savedAs_;
    return QStringLiteral("Up and Down turn the pages. If another page is right, press Return while it is shown.");
}

void CorrectionWindow::fail(const Result& result) {
    host_.MsgBox(result.failure().message() + ".");
}

void CorrectionWindow::correct(const Correction& correction) {
    if (const Result made = corrector_.correct(correction); !made)
        return fail(made);
    showCorrected();
}

void CorrectionWindow::showCorrected() {
    showing_ = true;
    entries_->reread();
    showing_ = false;
    lookUp();
}

void CorrectionWindow::takePage() {
    if (addBT_->isVisible())
        addHeadword();
    else
        correctPage();
}

void CorrectionWindow::correctPage() {
    if (pageBT_->isEnabled())
        correct({CorrectionKind::Page, std::string(corrector_.text().headword(*line_)), shownPage(),
                 corrector_.text().page(*line_)});
}

void CorrectionWindow::correctHeadword() {
    if (!headwordBT_->isEnabled())
        return;
    const std::string headword = composedForm(fromQ(headwordEF_->text().trimmed()));
    const Correction correction{CorrectionKind::Headword, headword, corrector_.text().page(*line_),
                                std::string(corrector_.text().headword(*line_))};
    wordEF_->setText(toQ(headword));
    correct(correction);
}

void CorrectionWindow::addHeadword() {
    if (addBT_->isEnabled())
        correct({CorrectionKind::Missing, typedWord(), shownPage()});
}

void CorrectionWindow::correctAgain() {
    for (const Correction& each : std::exchange(due_, {}))
        if (const Result made = corrector_.correct(each); !made)
            fail(made);
    showCorrected();
}

void CorrectionWindow::undo() {
    corrector_.undo();
    due_ = corrector_.due();
    showCorrected();
}

void CorrectionWindow::save() {
    if (saving_ || corrector_.unsaved().empty())
        return;
    saving_ = true;
    centralWidget()->setEnabled(false);
    const MaintenanceResult result = corrector_.save(backups_, [this](const WorkDone& done) {
        stateST_->setText(done.waitsFor.empty() ? QStringLiteral("Saving…") : toQ(waitMessage(done.waitsFor)));
        host_.Yield();
    });
    centralWidget()->setEnabled(true);
    saving_ = false;
    if (result.failures.empty()) {
        due_.clear();
        savedAs_ = QStringLiteral("Saved. The files as they were are in %1.").arg(pathToQ(backups_.path()));
    }
    showCorrected();
    wordEF_->setFocus();
    if (const std::string message = failureMessage(result); !message.empty())
        host_.MsgBox(message);
}

void CorrectionWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    lookUp(); // scrolls the lists, which have their sizes now
}

void CorrectionWindow::closeEvent(QCloseEvent* event) {
    const std::size_t unsaved = corrector_.unsaved().size();
    event->setAccepted(!saving_ && (unsaved == 0 || host_.askYesNo("You have not saved " + countOf(unsaved) +
                                                                   ". Close without saving?") == Host::Answer::Yes));
}

void CorrectionWindow::endNow() {
    if (saving_)
        std::_Exit(EXIT_SUCCESS); // the corrections are kept, and the next start undoes a save that was interrupted
    if (!corrector_.unsaved().empty())
        if (const Result kept = corrector_.keep(); !kept)
            std::cerr << "velmarin-workshop: " << kept.failure().message() << '\n';
    QCoreApplication::exit(EXIT_SUCCESS); // quit() would close the windows first, which may ask
}

bool CorrectionWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == wordEF_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const int by = key->key() == Qt::Key_Down ? 1 : key->key() == Qt::Key_Up ? -1 : 0;
        const int row = pagesLB_->ListIndex() + by;
        if (by != 0 && key->modifiers() == Qt::NoModifier) {
            if (row >= 0 && row < pagesLB_->rowCount())
                pagesLB_->setListIndex(row);
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace velmarin
