#include "workshop/NewBookDialog.h"

#include "controls/PushButton.h"
#include "platform/Host.h"
#include "platform/QtText.h"
#include "text/Utf8.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>

#include <algorithm>

namespace velmarin {

namespace {

constexpr int kLanguageRows = 7, kWordListRows = 2;
constexpr int kBetweenButtons = 6;
/// The width of the folder's field, in digits.
constexpr int kFolderDigits = 56;

/// Data that QLocale has no name for.
const std::pair<const char*, const char*> kOtherData[] = {
    {"frk", "German in black letter"}, {"deu_latf", "German in black letter"},
    {"Fraktur", "Black letter"},       {"enm", "Middle English"},
    {"frm", "Middle French"},          {"ita_old", "Old Italian"},
    {"spa_old", "Old Spanish"}};

/// "Latin (lat)" for "lat".
QString languageName(const std::string& code) {
    const QString shown = toQ(code);
    for (const auto& [data, name] : kOtherData)
        if (code == data || code == std::string("script/") + data)
            return QStringLiteral("%1 (%2)").arg(QLatin1String(name), shown);
    const QLocale::Language language = QLocale::codeToLanguage(shown);
    return language == QLocale::AnyLanguage ? shown
                                            : QStringLiteral("%1 (%2)").arg(QLocale::languageToString(language), shown);
}

int heightOf(const QListWidget& list, int rows) {
    return rows * (list.fontMetrics().lineSpacing() + 4) + 2 * list.frameWidth();
}

std::string codeOf(const QListWidgetItem& language) {
    return fromQ(language.data(Qt::UserRole).toString());
}

} // namespace

FolderItem proposedBookFolder(const FolderItem& scan) {
    // A path that ends in "/" has an empty file name.
    const std::filesystem::path path = scan.path().has_filename() ? scan.path() : scan.path().parent_path();
    const std::string name = scan.Directory() ? path.filename().native() : path.stem().native();
    return FolderItem(path.parent_path() / (name + kBookEnding));
}

void ReadingChoice::applyTo(BookSettings& settings) const {
    settings.languages = languages;
    settings.wordLists = wordLists;
    settings.pages.spread = spread;
}

NewBookDialog::NewBookDialog(const FolderItem& scan, const std::vector<std::string>& languages, Host& host,
                             QWidget* parent)
    : QDialog(parent), host_(host), folder_(new QLineEdit(pathToQ(proposedBookFolder(scan).path()), this)),
      choose_(new PushButton(QStringLiteral("&Choose…"), this)), languages_(new QListWidget(this)),
      wordLists_(new QListWidget(this)), spread_(new QCheckBox(QStringLiteral("Each picture shows &two pages"), this)),
      ok_(new PushButton(QStringLiteral("&Read the book"), this)) {
    setObjectName(QStringLiteral("NewBookDialog"));
    setWindowTitle(QStringLiteral("New book"));
    folder_->setObjectName(QStringLiteral("FolderEF"));
    languages_->setObjectName(QStringLiteral("LanguagesLB"));
    wordLists_->setObjectName(QStringLiteral("WordListsLB"));
    ok_->setObjectName(QStringLiteral("ReadBT"));
    fillLanguages(languages);
    makeLayout(scan);
    connect(folder_, &QLineEdit::textChanged, this, &NewBookDialog::refresh);
    connect(languages_, &QListWidget::itemChanged, this, &NewBookDialog::refresh);
    connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
    refresh();
}

void NewBookDialog::makeLayout(const FolderItem& scan) {
    folder_->setMinimumWidth(kFolderDigits * folder_->fontMetrics().horizontalAdvance(u'0'));
    choose_->setAutoDefault(false);
    connect(choose_, &QPushButton::clicked, this, &NewBookDialog::chooseFolder);
    auto* folderRow = new QHBoxLayout;
    folderRow->addWidget(folder_, 1);
    folderRow->addSpacing(kBetweenButtons);
    folderRow->addWidget(choose_);

    auto* scanName = new QLabel(pathToQ(scan.path()), this);
    scanName->setTextFormat(Qt::PlainText);
    scanName->setWordWrap(true);
    auto* cancel = new PushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("CancelBT"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addSpacing(kBetweenButtons);
    buttons->addWidget(ok_);
    ok_->setDefault(true);

    auto* form = new QFormLayout(this);
    form->setVerticalSpacing(12);
    form->addRow(QStringLiteral("Scan"), scanName);
    form->addRow(QStringLiteral("&Working folder"), folderRow);
    form->addRow(QString(), new QLabel(QStringLiteral("Your work on the book is kept here. The scan is not changed.")));
    form->addRow(QStringLiteral("&Languages"), languages_);
    if (languages_->count() == 0) {
        languages_->hide();
        form->labelForField(languages_)->hide();
        auto* missing = new QLabel(
            QStringLiteral("No language is installed, so that only text that the scan itself has can be read. To read "
                           "page images, install the package of the book’s language, such as tesseract-ocr-eng or "
                           "tesseract-ocr-lat, and start the workshop again."),
            this);
        missing->setObjectName(QStringLiteral("NoLanguageST"));
        missing->setWordWrap(true);
        form->addRow(QString(), missing);
    } else {
        form->addRow(QString(), new QLabel(QStringLiteral("Tick the languages of the headwords. Packages such as "
                                                          "tesseract-ocr-lat add others.")));
    }
    addWordLists(*form);
    form->addRow(QString(), spread_);
    form->addRow(buttons);
    // A layout in a row is named by the label only if the label knows its field.
    if (auto* label = qobject_cast<QLabel*>(form->labelForField(folderRow)))
        label->setBuddy(folder_);
}

void NewBookDialog::addWordLists(QFormLayout& form) {
    wordLists_->setAccessibleName(QStringLiteral("Word lists"));
    wordLists_->setFixedHeight(heightOf(*wordLists_, kWordListRows));
    auto* add = new PushButton(QStringLiteral("&Add…"), this);
    add->setObjectName(QStringLiteral("AddWordListBT"));
    add->setAutoDefault(false);
    add->setAccessibleName(QStringLiteral("Add a word list"));
    connect(add, &QPushButton::clicked, this, &NewBookDialog::chooseWordList);
    auto* row = new QHBoxLayout;
    row->addWidget(wordLists_, 1);
    row->addSpacing(kBetweenButtons);
    row->addWidget(add, 0, Qt::AlignTop);
    form.addRow(QStringLiteral("W&ord lists"), row);
    if (auto* label = qobject_cast<QLabel*>(form.labelForField(row)))
        label->setBuddy(wordLists_);
    form.addRow(QString(), new QLabel(QStringLiteral("Words that the book may have, such as the file “ind” of another "
                                                     "dictionary. May stay empty.")));
}

void NewBookDialog::fillLanguages(const std::vector<std::string>& languages) {
    for (const std::string& code : languages) {
        if (code == "osd" || code == "equ") // data that find out the script, not a language
            continue;
        auto* item = new QListWidgetItem(languageName(code), languages_);
        item->setData(Qt::UserRole, toQ(code));
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(code == "eng" ? Qt::Checked : Qt::Unchecked);
    }
    languages_->sortItems();
    if (languages_->count() == 1)
        languages_->item(0)->setCheckState(Qt::Checked);
    languages_->setAccessibleName(QStringLiteral("Languages of the headwords"));
    for (int row = 0; row < languages_->count(); ++row)
        if (languages_->item(row)->checkState() == Qt::Checked)
            languages_->setCurrentRow(row);
    languages_->setFixedHeight(heightOf(*languages_, kLanguageRows));
}

void NewBookDialog::showBook(const BookFolder& book) {
    setWindowTitle(QStringLiteral("Languages and pages"));
    folder_->setText(pathToQ(book.folder().path()));
    folder_->setReadOnly(true);
    choose_->setEnabled(false);
    ok_->setText(QStringLiteral("&Read again"));
    spread_->setChecked(book.settings().pages.spread);
    languagesBefore_ = book.settings().languages;
    const std::vector<std::string>& chosen = languagesBefore_;
    for (int row = 0; row < languages_->count(); ++row) {
        QListWidgetItem& item = *languages_->item(row);
        const bool isChosen = std::find(chosen.begin(), chosen.end(), codeOf(item)) != chosen.end();
        item.setCheckState(isChosen ? Qt::Checked : Qt::Unchecked);
        if (isChosen)
            languages_->setCurrentRow(row);
    }
    for (const std::string& list : book.settings().wordLists)
        showWordList(list);
    languages_->setFocus();
}

FolderItem NewBookDialog::folder() const {
    return FolderItem(pathFromQ(folder_->text().trimmed()));
}

std::vector<std::string> NewBookDialog::languages() const {
    std::vector<std::string> codes;
    for (int row = 0; row < languages_->count(); ++row)
        if (languages_->item(row)->checkState() == Qt::Checked)
            codes.push_back(codeOf(*languages_->item(row)));
    std::ranges::stable_sort(codes, {}, [this](const std::string& code) {
        return std::ranges::find(languagesBefore_, code) - languagesBefore_.begin();
    });
    return codes;
}

ReadingChoice NewBookDialog::choice() const {
    ReadingChoice choice{.languages = languages(), .wordLists = {}, .spread = spread_->isChecked()};
    for (int row = 0; row < wordLists_->count(); ++row)
        if (wordLists_->item(row)->checkState() == Qt::Checked)
            choice.wordLists.push_back(pathFromQ(wordLists_->item(row)->text()).native());
    return choice;
}

void NewBookDialog::chooseFolder() {
    const std::filesystem::path chosen = host_.SelectFolder(
        "Where is the working folder of the book to be?", folder().path().parent_path(), Host::FolderChoice::MayBeNew);
    if (!chosen.empty())
        folder_->setText(pathToQ(chosen));
}

void NewBookDialog::chooseWordList() {
    const std::filesystem::path chosen =
        host_.GetOpenFile("Choose a list of words, one a line, or the file \"ind\" of a dictionary.", {});
    if (!isValidUtf8(chosen.native()))
        host_.MsgBox("The path of the list is not UTF-8."); // which the settings are
    else if (!chosen.empty())
        showWordList(chosen);
}

void NewBookDialog::showWordList(const std::filesystem::path& file) {
    auto* item = new QListWidgetItem(pathToQ(file), wordLists_);
    item->setToolTip(item->text().toHtmlEscaped());
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Checked);
    wordLists_->setCurrentItem(item);
}

void NewBookDialog::refresh() {
    // Without language data only the text that the scan itself has can be read.
    ok_->setEnabled(folder_->text().trimmed().startsWith(u'/') && (languages_->count() == 0 || !languages().empty()));
}

} // namespace velmarin
