#pragma once

#include "side/MainWindowPort.h"

namespace velmarin {

class PreferenceWriter;
class QueryBar;
class SearchModel;
struct GroupModel;

/// Implements MainWindowPort on the parts of a main window.
class SideAccess : public MainWindowPort {
  public:
    SideAccess(QMainWindow& window, PreferenceWriter& preferences, const GroupModel& group, SearchModel& search,
               QueryBar& queryBar)
        : window_(window), preferences_(preferences), group_(group), search_(search), queryBar_(queryBar) {}

    QMainWindow* window() override;
    FolderItem pDictionaryGroupFolder() override;
    void noteWritten(const std::string& path, const Result& result) override;
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
    PreferenceWriter& preferences_;
    const GroupModel& group_;
    SearchModel& search_;
    QueryBar& queryBar_;
};

} // namespace velmarin
