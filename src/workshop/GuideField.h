#pragma once

#include <QWidget>

#include <string>
#include <vector>

class QLabel;
class QLineEdit;

namespace velmarin {

/// The field of a guide word: its label, what is to be said of the word, and other readings of it.
class GuideField : public QWidget {
    Q_OBJECT
  public:
    /// @param label with a mnemonic
    GuideField(const QString& label, QWidget* parent);

    QLineEdit& edit() const { return *edit_; }
    /// The word without blanks at its ends.
    std::string word() const;
    /// Shows a word, unedited.
    void showWord(const std::string& word);
    /// Shows what is wrong with the word; empty: all is well.
    void showProblem(const std::string& problem);
    /// Shows other readings. `firstDigit` and those after it are the keys that choose them.
    void showOthers(const std::vector<std::string>& words, int firstDigit);
    /// Puts a word into the field as if it was typed.
    void type(const std::string& word);

  signals:
    void edited();
    void otherChosen(int digit);

  private:
    QLineEdit* edit_;
    QLabel *message_, *others_;
};

} // namespace velmarin
