#pragma once

#include "search/PageDisplay.h"

#include <QLabel>
#include <QWidget>

#include <string>
#include <vector>

namespace velmarin {

class BevelButton;
class Host;
class SmartCanvas;

/// The page controls of one tab, made on its panel and owned by it. Set n belongs to tab n.
class ControlSet final : public PageDisplay {
  public:
    /// Makes the ten controls of set `index` on `panel` at the places of the layout, all disabled but the canvas.
    ControlSet(int index, QWidget* panel, Host& host);

    BevelButton* BVback = nullptr;
    BevelButton* BVnext = nullptr;
    BevelButton* BVup = nullptr;
    BevelButton* BVdown = nullptr;
    BevelButton* BVjump = nullptr;
    BevelButton* BVHistory = nullptr;
    BevelButton* BVErrata = nullptr;
    BevelButton* BVimage = nullptr;
    QLabel* ImageNameST = nullptr;
    SmartCanvas* MainCanvas = nullptr;

    void showEmptyTab() override;
    PageOutcome showPage(const FolderItem& file, int fit) override;
    void showNoPicture() override;
    void dropPage() override;
    void fitPage(int fit) override;
    void refreshPage() override;
    void mJumpScroll_vertical(int direction) override;
    void showPageName(const std::string& name) override;
    void describePage(const std::string& dictionary, const std::string& page, const std::string& problem) override;
    void enablePaging(bool enabled) override;
    void showJumpRows(const std::vector<std::string>& captions) override;
    void showJumpValue(int menuValue) override;
    void clearHistory() override;
    void addHistoryRow(const std::string& name) override;
    void showHistoryValue(int menuValue) override;
    void showErrata(const std::vector<std::string>& names) override;
    void showFitValue(int menuValue) override;

  private:
    /// Refills `BVimage` with its three rows, none selected.
    void resetImageSize();
};

} // namespace velmarin
