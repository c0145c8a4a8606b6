#pragma once

#include "book/BookBuild.h"

#include <QDialog>
#include <QTimer>

#include <string>
#include <utility>
#include <vector>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace velmarin {

class Host;
class ProgressBar;

/// Asks what a dictionary is called and how its book sorts, says what will be written, and writes it. The answers are
/// kept in the settings of the book.
class MakeDialog : public QDialog {
    Q_OBJECT
  public:
    /// @param book outlives the dialog
    /// @param dictionaryFolder has the groups
    MakeDialog(BookFolder& book, FolderItem dictionaryFolder, Host& host, QWidget* parent);

    /// While the dictionary is written: ends the writing, and the dialog stays.
    void reject() override;

  signals:
    /// The dictionary is there. `word` is its first headword.
    void made(const std::string& group, const std::string& word);

  private:
    void makeControls();
    QWidget* makeForm();
    QLineEdit* addLine(QFormLayout& form, const char* name, const QString& label, const std::string& text);
    QCheckBox* addCheckBox(QFormLayout& form, const char* name, const QString& text, bool checked);

    void addExtraPages(QFormLayout& form);
    BookSettings settings() const;
    FolderItem group() const;
    std::string name() const;
    void showName();
    void showSummary();
    void make();
    bool write();

    BookFolder& book_;
    FolderItem dictionaryFolder_;
    Host& host_;
    BookPlan plan_;
    bool planned_ = false, working_ = false, cancelled_ = false;
    QTimer summaryLater_;

    QLineEdit *nameEF_ = nullptr, *formatEF_ = nullptr, *extraEF_ = nullptr;
    QComboBox* groupCB_ = nullptr;
    std::vector<std::pair<QLineEdit*, std::string About::*>> about_;
    std::vector<std::pair<QLineEdit*, std::string BookSettings::*>> fields_;
    QCheckBox *spanishCB_ = nullptr, *ijuvCB_ = nullptr, *independentCB_ = nullptr;
    QWidget* form_ = nullptr;
    QPlainTextEdit* summaryEF_ = nullptr;
    QLabel* noticeST_ = nullptr;
    ProgressBar* progress_ = nullptr;
    QPushButton *makeBT_ = nullptr, *cancelBT_ = nullptr;
};

} // namespace velmarin
