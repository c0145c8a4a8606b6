#pragma once

#include "platform/Busy.h"
#include "platform/Host.h"
#include "side/DictionaryService.h"
#include "side/FindInText.h"
#include "side/LookUpSource.h"
#include "side/StoppableWait.h"
#include "side/SubwindowFile.h"
#include "side/UserDictionaryList.h"
#include "side/WordsSource.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

class AnswerText;
class MainWindowPort;
class SideDisplay;

/// What a side window uses besides its main window. Tests replace the values that are given here.
struct SideServices {
    Host& host;
    BusyState& busy;
    /// Where "temp.sh" is written.
    FolderItem preferencesFolder;
    /// Where a replaced user dictionary is kept.
    FolderItem desktop;
    DictionaryService dictionaries{};
    std::string wordsFolder{kWordsFolder};
    StoppableWait::Clock clock = std::chrono::steady_clock::now;
};

/// The state of a side window and what it does: finding in the text, look-ups in the sources that are on, the settings,
/// the list of user dictionaries. It has no widget; it tells a SideDisplay what to show.
class SideModel final : private LookUpPort {
  public:
    /// The settings are those of the group that the main window shows now, even if it changes its group later. All
    /// references must outlive the model.
    SideModel(SideDisplay& display, AnswerText& text, MainWindowPort& mainWindow, SideServices services);
    ~SideModel() override;

    /// Reads the settings and shows them. A model that is closed before the end of this call saves none.
    void open();
    /// Saves the settings and stops what is waited for; `width` is that of the window. The display is released at once,
    /// or as soon as a running look-up ends. The second call does nothing.
    void close(int width);
    bool shut() const override { return shut_; }

    /// What the find bar does with its word, according to its target. A look-up waits until nothing else runs.
    void mDoFind(bool alsoMainWindow);
    /// Return in `FindEF` or a click on `FindBV`. With Alt held (the host's Option key) a look-up
    /// searches the main window first.
    void FindBV_Action() { mDoFind(services_.host.AsyncOptionKey()); }
    /// A query of the main window: if `SyncronizeCB` is on, it is looked up whatever the target is. The find bar shows
    /// the target "look up" meanwhile, and keeps the word.
    void synchronise(const std::string& query);
    void setTarget(FindTarget target);
    /// The find bar's word has changed.
    void FindEF_TextChange(const std::string& word);
    void FindClBV_Action();
    /// The color that hits are painted in.
    TextColor hitColor() const { return hitColor_; }
    void setHitColor(TextColor color);

    /// The user has ticked or cleared the check box of the source in this row.
    void setSource(std::size_t row, bool isOn);
    void setSyncronizeCB(bool isOn) { settings_.SyncronizeCB = isOn; }
    void setDontClearCB(bool isOn) { settings_.DontClearCB = isOn; }
    void setFontRow(int row) { settings_.fontRow = row; }
    void setSizeRow(int row) { settings_.sizeRow = row; }
    void setUserDictionary(int row) { userDictionaries_.choose(row); }
    /// Ends the wait for a program.
    void stopWaiting() { wait_.stop(); }

    /// Reads the list of user dictionaries again, if that source is on.
    void mMakeUserDicPU();
    /// Runs the dialog that makes a user dictionary, once nothing else runs.
    void UserDicBT_Action();

    SubwindowSettings settings() const;
    int pFindStartPosition() const { return steps_.pFindStartPosition; }

  private:
    class Running;
    class ShownTarget;

    void mSetPref();
    void Event_Close(int width);
    void findStep();
    void lookUp(const std::string& word, bool alsoMainWindow);
    void trySource(std::size_t row);
    void mMakeUserDictionary();
    void whenFree(const std::function<void()>& action);
    void showTarget(FindTarget target);

    void yield() override { services_.host.Yield(); }
    void beginWait(const std::string& program) override;
    bool keepWaiting() override;
    void endWait() override { wait_.end(); }

    SideDisplay& display_;
    /// The program that is waited for.
    std::string waitsFor_;
    AnswerText& text_;
    MainWindowPort& mainWindow_;
    SideServices services_;
    FolderItem groupFolder_;
    SubwindowSettings settings_;
    /// Empty until the window is open, and if its settings could not be read.
    std::optional<SubwindowSettings> settingsAtOpening_;
    UserDictionaryList userDictionaries_;
    std::string word_;
    /// Differs from the target of the settings during a synchronised look-up.
    FindTarget shownTarget_ = FindTarget::Find;
    FindSteps steps_;
    TextColor hitColor_{0xFF, 0x00, 0x00};
    StoppableWait wait_;
    std::vector<std::unique_ptr<LookUpSource>> sources_;
    int running_ = 0;
    bool shut_ = false;
    bool lookUpIsQueued_ = false;
    /// Expires with the model, for actions that are run later.
    std::shared_ptr<SideModel*> self_ = std::make_shared<SideModel*>(this);
};

} // namespace velmarin
