#pragma once

#include "maintenance/WindowsPort.h"
#include "shell/Commands.h"

namespace velmarin {

class PageImages;
class PreferenceWriter;
class WindowList;
struct ThisAppliModule;

/// Implements WindowsPort on the application's list of windows, for install, update and the order editor.
class MaintenanceAccess : public WindowsPort {
  public:
    /// @param commands whose shortcuts the maintenance windows have
    MaintenanceAccess(WindowList& windows, ThisAppliModule& module, PreferenceWriter& preferences,
                      PageImages& pageImages, Commands commands)
        : windows_(windows), module_(module), preferences_(preferences), pageImages_(pageImages),
          commands_(std::move(commands)) {}

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
    WindowList& windows_;
    ThisAppliModule& module_;
    PreferenceWriter& preferences_;
    PageImages& pageImages_;
    Commands commands_;
};

} // namespace velmarin
