#pragma once

#include "workshop/WorkshopBook.h"
#include "workshop/WorkshopMenus.h"
#include "workshop/WorkshopPlacement.h"

#include <QMainWindow>

#include <filesystem>
#include <memory>

namespace velmarin {

class Host;

/// The window in which a scanned book becomes a dictionary. Shows a WorkshopDesk with the book that is open, or, if
/// none is, what can be opened.
class WorkshopWindow : public QMainWindow, private WorkshopMenusPort {
    Q_OBJECT
  public:
    explicit WorkshopWindow(Host& host);
    ~WorkshopWindow() override;

    /// Takes the place that the window had when it was last closed, and keeps the next one in this folder.
    void rememberPlacement(const FolderItem& preferencesFolder);

    /// Opens the working folder of a book, or the book of a scan, for which it asks where it is to be.
    void open(const std::filesystem::path& bookOrScan);
    /// Shows a book in place of the one before. The draft is where the work begins.
    void openBook(std::unique_ptr<WorkshopBook> book, Draft draft);
    /// Ends the program without a question. What was typed is kept if the draft can be saved.
    void endNow();

    // Of WorkshopMenusPort.
    WorkshopDesk* desk() const override { return desk_; }
    ReadingControl* reading() const override { return reading_.get(); }
    void chooseBook() override;
    void chooseScan() override;
    void chooseFolder() override;

    WorkshopMenus& menus() const { return *menus_; }

  signals:
    /// A dictionary that exists is to be corrected.
    void dictionaryWanted();
    /// The program is about to end by endNow.
    void ending();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void correctDictionary() override { emit dictionaryWanted(); }
    void closeWindow() override { close(); }
    void showWelcome();
    void keepPlacement();
    /// Does nothing for an empty path.
    void openChosen(const std::filesystem::path& chosen);

    Host& host_;
    FolderItem preferencesFolder_; ///< nil: the placement is not kept
    WorkshopPlacement placement_;
    WorkshopDesk* desk_ = nullptr;
    WorkshopMenus* menus_;
    std::unique_ptr<ReadingControl> reading_; ///< only for the book of a scan
};

} // namespace velmarin
