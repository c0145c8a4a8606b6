#pragma once

#include "book/BookFolder.h"

#include <QDialog>

#include <filesystem>
#include <string>
#include <vector>

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace velmarin {

class Host;

/// At the end of the names of working folders that are proposed.
inline constexpr const char* kBookEnding = " book";

/// The working folder that is proposed for the book of a scan: beside it, by its name.
FolderItem proposedBookFolder(const FolderItem& scan);

/// How a scan is to be read.
struct ReadingChoice {
    std::vector<std::string> languages, wordLists;
    bool spread = false;

    void applyTo(BookSettings& settings) const;
};

/// Asks where the working folder of a scan's book is to be, and how the scan is to be read.
class NewBookDialog : public QDialog {
    Q_OBJECT
  public:
    /// @param languages those that can be read, as Tesseract calls them
    NewBookDialog(const FolderItem& scan, const std::vector<std::string>& languages, Host& host, QWidget* parent);

    /// Asks how the scan of a book that exists is to be read.
    void showBook(const BookFolder& book);

    FolderItem folder() const;
    ReadingChoice choice() const;

  private:
    void makeLayout(const FolderItem& scan);
    void addWordLists(QFormLayout& form);
    void fillLanguages(const std::vector<std::string>& languages);
    /// Those of the book that exists in the order that they have there, the main one first; the others by name.
    std::vector<std::string> languages() const;
    void chooseFolder();
    void chooseWordList();
    void showWordList(const std::filesystem::path& file);
    void refresh();

    Host& host_;
    QLineEdit* folder_;
    QPushButton* choose_;
    QListWidget* languages_;
    std::vector<std::string> languagesBefore_; ///< of the book that exists
    QListWidget* wordLists_;
    QCheckBox* spread_;
    QPushButton* ok_;
};

} // namespace velmarin
