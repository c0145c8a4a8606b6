#pragma once

#include "workshop/DictionaryCorrector.h"

#include <QMainWindow>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace velmarin {

class EntryTable;
class Host;
class ListBox;
class SmartCanvas;

/// A dictionary that exists, opened at a word with the page that it opens, to be corrected: the page of an entry, its
/// headword, or a headword that is missing.
class CorrectionWindow : public QMainWindow {
    Q_OBJECT
  public:
    /// `corrections` is the folder of corrections (workshop/Corrections.h), `backups` gets what is replaced.
    CorrectionWindow(Host& host, FolderItem corrections, FolderItem backups);

    /// Reads a dictionary and looks a word up in it.
    Result open(const FolderItem& dictionary, std::string_view word);

    /// Ends the program without a question. Corrections that are not saved are offered again when the dictionary is
    /// opened the next time.
    void endNow();

    const DictionaryCorrector& corrector() const { return corrector_; }

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void makeControls();
    QWidget* makeTop();
    QWidget* makeMiddle();
    QWidget* makeBottom();
    QPushButton* addButton(QWidget* row, const char* name, const QString& text, void (CorrectionWindow::*action)());

    void lookUp();
    void pickEntry(int line);
    void pickPage(int row);
    void showEntry(std::optional<std::size_t> line);
    void showPage(const std::string& file);
    void showChoices();
    QString stateInWords() const;

    /// Corrects the page of the word: of its entry, or by an entry of its own.
    void takePage();
    void correctPage();
    void correctHeadword();
    void addHeadword();
    void correctAgain();
    void undo();
    void save();

    void correct(const Correction& correction);
    void showCorrected();
    std::string shownPage() const;
    std::string typedWord() const;
    void fail(const Result& result);

    Host& host_;
    FolderItem corrections_, backups_;
    DictionaryCorrector corrector_;
    std::vector<Correction> due_;
    std::optional<std::size_t> line_; ///< the current entry
    bool showing_ = false;            ///< the rows are being set, not picked
    bool saving_ = false;
    QString savedAs_; ///< what was last saved, in words
    EntryTable* entries_;
    QLineEdit *wordEF_, *headwordEF_;
    QLabel *foundST_, *stateST_;
    QTableView* entriesLB_;
    ListBox* pagesLB_;
    SmartCanvas* canvas_;
    QPushButton *pageBT_, *headwordBT_, *addBT_, *againBT_, *undoBT_, *saveBT_;
};

} // namespace velmarin
