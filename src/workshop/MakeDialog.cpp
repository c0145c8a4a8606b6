#include "workshop/MakeDialog.h"

#include "controls/ProgressBar.h"
#include "controls/PushButton.h"
#include "controls/ScreenFit.h"
#include "maintenance/LockedFolder.h"
#include "platform/Host.h"
#include "platform/QtText.h"
#include "store/GroupList.h"
#include "text/UnicodeForms.h"
#include "workshop/MakeSummary.h"
#include "workshop/NewBookDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <system_error>
#include <tuple>

namespace velmarin {

namespace {

constexpr QSize kFirstSize(860, 640);
constexpr std::chrono::milliseconds kPause{250}; ///< in typing, before the summary is made again
constexpr int kParts = 1000;                     ///< of the progress bar

struct AboutField {
    const char *name, *label;
    std::string About::*field;
};

constexpr AboutField kAboutFields[] = {
    {"TitleEF", "&Title", &About::title},    {"EditionEF", "&Edition", &About::edition},
    {"YearEF", "&Year", &About::year},       {"LanguageEF", "&Language", &About::language},
    {"SourceEF", "S&ource", &About::source}, {"RightsEF", "&Rights", &About::rights},
};

QString toolTipOf(std::string BookSettings::*field) {
    return field == &BookSettings::ignore
               ? QStringLiteral("Characters that the book passes over when it sorts, such as -' and the blank")
               : QStringLiteral("Letters that the book sorts as others, such as ä=ae, ø=o");
}

/// What an empty field shows.
QString exampleFor(std::string BookSettings::*field) {
    return field == &BookSettings::ignore ? QStringLiteral("such as -\'") : QStringLiteral("such as ä=ae, ø=o");
}

/// The working folder that the workshop proposes is called after its scan (proposedBookFolder).
QString proposedName(const FolderItem& book) {
    QString name = toQ(book.Name());
    if (const QLatin1String ending(kBookEnding); name.endsWith(ending) && name.size() > ending.size())
        name.chop(ending.size());
    return name;
}

/// Ends the writing of a dictionary from within.
struct WritingCancelled : std::exception {};

std::uint64_t sizeOfPages(const NewDictionary& book) {
    std::uint64_t all = 0;
    std::error_code error;
    for (const BookPage& page : book.pages)
        if (const auto size = std::filesystem::file_size(book.pageFolder.Child(page.file).path(), error); !error)
            all += size;
    return all;
}

} // namespace

MakeDialog::MakeDialog(BookFolder& book, FolderItem dictionaryFolder, Host& host, QWidget* parent)
    : QDialog(parent), book_(book), dictionaryFolder_(std::move(dictionaryFolder)), host_(host) {
    setObjectName(QStringLiteral("MakeDialog"));
    setWindowTitle(QStringLiteral("Make dictionary"));
    setWindowModality(Qt::WindowModal);
    resize(firstPlace(kFirstSize, 0, screen()->availableGeometry()).size());
    makeControls();
    nameEF_->setFocus();
    nameEF_->selectAll();
    summaryLater_.setSingleShot(true);
    summaryLater_.setInterval(kPause);
    connect(&summaryLater_, &QTimer::timeout, this, &MakeDialog::showSummary);
    showSummary();
}

void MakeDialog::makeControls() {
    auto* column = new QVBoxLayout(this);
    auto* middle = new QHBoxLayout;
    middle->addWidget(makeForm(), 1);
    auto* right = new QVBoxLayout;
    auto* label = new QLabel(QStringLiteral("What &will be written:"), this);
    summaryEF_ = new QPlainTextEdit(this);
    summaryEF_->setObjectName(QStringLiteral("SummaryEF"));
    summaryEF_->setReadOnly(true);
    summaryEF_->setTabChangesFocus(true);
    label->setBuddy(summaryEF_);
    right->addWidget(label);
    right->addWidget(summaryEF_, 1);
    middle->addLayout(right, 1);
    column->addLayout(middle, 1);
    noticeST_ = new QLabel(this);
    noticeST_->setObjectName(QStringLiteral("NoticeST"));
    noticeST_->setTextFormat(Qt::PlainText);
    noticeST_->setWordWrap(true);
    column->addWidget(noticeST_);
    auto* row = new QHBoxLayout;
    progress_ = new ProgressBar(Qt::Horizontal, this);
    progress_->setAccessibleName(QStringLiteral("Progress"));
    progress_->setMaximum(kParts);
    progress_->hide();
    row->addWidget(progress_, 1);
    row->addStretch(1);
    cancelBT_ = new PushButton(QStringLiteral("&Cancel"), this);
    makeBT_ = new PushButton(QStringLiteral("&Make"), this);
    cancelBT_->setObjectName(QStringLiteral("CancelBT"));
    makeBT_->setObjectName(QStringLiteral("MakeBT"));
    makeBT_->setDefault(true);
    row->addWidget(cancelBT_);
    row->addWidget(makeBT_);
    column->addLayout(row);
    connect(cancelBT_, &QPushButton::clicked, this, &MakeDialog::reject);
    connect(makeBT_, &QPushButton::clicked, this, &MakeDialog::make);
}

QLineEdit* MakeDialog::addLine(QFormLayout& form, const char* name, const QString& label, const std::string& text) {
    auto* line = new QLineEdit(toQ(text), form_);
    line->setObjectName(QLatin1String(name));
    form.addRow(label, line); // the label is its buddy
    return line;
}

QCheckBox* MakeDialog::addCheckBox(QFormLayout& form, const char* name, const QString& text, bool checked) {
    auto* box = new QCheckBox(text, form_);
    box->setObjectName(QLatin1String(name));
    box->setChecked(checked);
    form.addRow(box);
    connect(box, &QCheckBox::toggled, this, &MakeDialog::showSummary);
    return box;
}

QWidget* MakeDialog::makeForm() {
    const BookSettings& kept = book_.settings();
    auto* area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    form_ = new QWidget(area);
    auto* form = new QFormLayout(form_);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    nameEF_ = addLine(*form, "NameEF", QStringLiteral("&Name"), fromQ(proposedName(book_.folder())));
    groupCB_ = new QComboBox(form_);
    groupCB_->setObjectName(QStringLiteral("GroupCB"));
    groupCB_->setEditable(true);
    for (QWidget* each : {static_cast<QWidget*>(groupCB_), static_cast<QWidget*>(groupCB_->lineEdit())})
        each->setAccessibleName(QStringLiteral("Group")); // their own name would be the text
    for (const GroupRow& row : listGroups(dictionaryFolder_))
        groupCB_->addItem(toQ(row.name));
    if (groupCB_->count() == 0)
        groupCB_->setEditText(QStringLiteral("My dictionaries"));
    groupCB_->setToolTip(QStringLiteral("A group of Velmarin, or the name of a new one"));
    form->addRow(QStringLiteral("&Group"), groupCB_);
    for (const AboutField& each : kAboutFields)
        about_.emplace_back(addLine(*form, each.name, QString::fromUtf8(each.label), kept.about.*each.field),
                            each.field);
    for (const auto& [name, label, field] : {std::tuple("IgnoreEF", "&Ignored characters", &BookSettings::ignore),
                                             std::tuple("AlikeEF", "Letters &alike", &BookSettings::alike)}) {
        QLineEdit* line = addLine(*form, name, QString::fromUtf8(label), kept.*field);
        line->setToolTip(toolTipOf(field));
        line->setPlaceholderText(exampleFor(field));
        fields_.emplace_back(line, field);
        connect(line, &QLineEdit::textEdited, &summaryLater_, qOverload<>(&QTimer::start));
    }
    formatEF_ = addLine(*form, "FormatEF", QStringLiteral("Num&ber format"), kept.order.FormatFom);
    formatEF_->setToolTip(QStringLiteral("For a book whose headwords are numbers: 000 writes 7 as 007"));
    formatEF_->setPlaceholderText(QStringLiteral("only if the headwords are numbers"));
    connect(formatEF_, &QLineEdit::textEdited, &summaryLater_, qOverload<>(&QTimer::start));
    addExtraPages(*form);
    spanishCB_ = addCheckBox(*form, "SpanishCB", QStringLiteral("&Spanish: ch and ll are letters of their own"),
                             kept.order.SpanishMode);
    ijuvCB_ = addCheckBox(*form, "IjuvCB", QStringLiteral("I&JUV: i and j are one letter, and so are u and v"),
                          kept.order.IJUVMode);
    independentCB_ = addCheckBox(*form, "IndependentCB", QStringLiteral("Searche&d only while its own tab is in front"),
                                 kept.independent);
    connect(nameEF_, &QLineEdit::textChanged, this, &MakeDialog::showName);
    connect(groupCB_, &QComboBox::editTextChanged, this, &MakeDialog::showName);
    area->setWidget(form_);
    return area;
}

void MakeDialog::addExtraPages(QFormLayout& form) {
    auto* row = new QHBoxLayout;
    extraEF_ = new QLineEdit(toQ(book_.settings().extraPages), form_);
    extraEF_->setObjectName(QStringLiteral("ExtraPagesEF"));
    extraEF_->setToolTip(QStringLiteral("The folder of the files in a column “errata” of the draft"));
    extraEF_->setPlaceholderText(QStringLiteral("only if the book has any"));
    auto* choose = new PushButton(QStringLiteral("C&hoose…"), form_);
    choose->setAutoDefault(false);
    choose->setAccessibleName(QStringLiteral("Choose the folder of the extra pages"));
    row->addWidget(extraEF_, 1);
    row->addWidget(choose);
    auto* label = new QLabel(QStringLiteral("E&xtra pages"), form_);
    label->setBuddy(extraEF_);
    form.addRow(label, row);
    connect(extraEF_, &QLineEdit::textChanged, &summaryLater_, qOverload<>(&QTimer::start));
    connect(choose, &QPushButton::clicked, this, [this] {
        const auto chosen = host_.SelectFolder("Which folder has the extra pages?", pathFromQ(extraEF_->text()));
        if (!chosen.empty())
            extraEF_->setText(pathToQ(chosen));
    });
}

BookSettings MakeDialog::settings() const {
    BookSettings now = book_.settings();
    for (const auto& [line, field] : about_)
        now.about.*field = composedForm(fromQ(line->text().trimmed()));
    for (const auto& [line, field] : fields_)
        now.*field = composedForm(fromQ(line->text()));
    now.order = {.SpanishMode = spanishCB_->isChecked(),
                 .IJUVMode = ijuvCB_->isChecked(),
                 .FormatFom = fromQ(formatEF_->text().trimmed())};
    now.extraPages = fromQ(extraEF_->text().trimmed());
    now.independent = independentCB_->isChecked();
    return now;
}

FolderItem MakeDialog::group() const {
    const std::string typed = fromQ(groupCB_->currentText().trimmed());
    for (const GroupRow& row : listGroups(dictionaryFolder_))
        if (row.name == typed)
            return row.folder;
    return FolderItem(dictionaryFolder_.path() / typed);
}

std::string MakeDialog::name() const {
    return composedForm(fromQ(nameEF_->text().trimmed()));
}

void MakeDialog::showName() {
    const std::string groupName = fromQ(groupCB_->currentText().trimmed());
    const std::string why =
        isMemberName(groupName) ? whyNotMade(group(), name()) : "Choose a group, or name a new one.";
    const auto place = std::filesystem::path(dictionaryFolder_.Name()) / groupName / name();
    noticeST_->setText(why.empty() && planned_ ? QStringLiteral("It will be made as %1.").arg(toQ(place.native()))
                                               : toQ(why));
    makeBT_->setEnabled(why.empty() && planned_ && !working_);
}

void MakeDialog::showSummary() {
    const BookSettings now = settings();
    if (!KeyRule::parse(now.ignore, now.alike)) {
        planned_ = false;
        summaryEF_->setPlainText(QStringLiteral("“Letters alike” are pairs with “=” between them, such as ä=ae, ø=o."));
    } else {
        const Result planned = planBook(book_, now, plan_);
        planned_ = static_cast<bool>(planned);
        summaryEF_->setPlainText(toQ(planned ? summaryOf(plan_) : planned.failure().message() + "."));
    }
    showName();
}

void MakeDialog::make() {
    if (!makeBT_->isEnabled())
        return;
    summaryLater_.stop();
    showSummary(); // by what was typed last
    if (!makeBT_->isEnabled())
        return;
    working_ = true;
    cancelled_ = false;
    form_->setEnabled(false);
    makeBT_->setEnabled(false);
    cancelBT_->setFocus();
    noticeST_->setText(QStringLiteral("Writing the dictionary…"));
    progress_->show();
    const bool written = write();
    working_ = false;
    progress_->hide();
    form_->setEnabled(true);
    showName();
    if (!written)
        return;
    const std::string word = plan_.entries.front().headword;
    accept();
    emit made(fromQ(groupCB_->currentText().trimmed()), word);
}

bool MakeDialog::write() try {
    Result result = book_.saveSettings(settings());
    if (result) {
        const std::uint64_t all = std::max<std::uint64_t>(sizeOfPages(plan_.dictionary), 1);
        result = writeNewDictionary(plan_.dictionary, group(), name(), [this, all](const WorkDone& done) {
            progress_->setValue(static_cast<int>(std::min(done.bytes, all) * kParts / all));
            if (!done.waitsFor.empty())
                noticeST_->setText(toQ(waitMessage(done.waitsFor)));
            host_.Yield();
            if (cancelled_)
                throw WritingCancelled();
        });
    }
    if (!result)
        host_.MsgBox(result.failure().message() + ".");
    return static_cast<bool>(result);
} catch (const WritingCancelled&) {
    return false; // nothing of the dictionary is left
}

void MakeDialog::reject() {
    if (working_)
        cancelled_ = true;
    else
        QDialog::reject();
}

} // namespace velmarin
