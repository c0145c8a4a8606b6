#pragma once

#include "side/MainWindowPort.h"

namespace velmarin {

class Host;
class PageDeck;
class PreferenceWriter;
class QueryBar;
class Searcher;
struct WindowState;
struct WindowServices;

/// What a side window reaches in its main window.
class SideAccess : public MainWindowPort {
  public:
    SideAccess(QMainWindow& window, const WindowServices& services, const WindowState& state, QueryBar& queryBar,
               Searcher& searcher, const PageDeck& deck);

    QMainWindow* window() override;
    FolderItem pDictionaryGroupFolder() override;
    void noteWritten(const std::string& path, const WriteResult& result) override;
    void setSearchText(std::string_view text) override;
    void focusSearch(bool selectAll) override;
    void setOKBTDefault(bool isDefault) override;
    void searchAll(const std::string& word) override;
    void showProgress() override;
    void setProgressMaximum(int maximum) override;
    void setProgressValue(int value) override;
    void showProgressFull() override;
    void hideProgress() override;

  private:
    QMainWindow& window_;
    Host& host_;
    PreferenceWriter& preferences_;
    const WindowState& state_;
    QueryBar& queryBar_;
    Searcher& searcher_;
    const PageDeck& deck_;
};

} // namespace velmarin
