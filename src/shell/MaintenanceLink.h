#pragma once

#include "maintenance/WindowsPort.h"

namespace velmarin {

class App;

/// How install, update and the order editor reach the main windows.
class MaintenanceLink : public WindowsPort {
  public:
    explicit MaintenanceLink(App& app) : app_(app) {}

    FolderItem pDictionaryFolder() const override;
    QWidget* frontWindow() const override;
    void prepare(QWidget* window) override;
    int windowCount() const override;
    void resetToNoGroup(int window) override;
    std::vector<std::string> dictionaryNames(int window) const override;
    std::string pDicGroupName(int window) const override;
    void setNewDicPref(std::vector<std::string> lines) override;
    bool hasGroup(int window) const override;
    void writeOrderAndPick(int window, const FolderItem& group) override;
    void closePageImageWindow() override;
    void mWritePreferences_DicGroup(int window) override;
    void ReadDictionaryFolder(int window, const FolderItem& group) override;
    void readyForSearch(int window) override;

  private:
    App& app_;
};

} // namespace velmarin
