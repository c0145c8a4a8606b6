#pragma once

#include "platform/Busy.h"
#include "platform/Host.h"
#include "side/DictionaryModule.h"
#include "side/DictionaryService.h"
#include "side/FindBar.h"
#include "side/FindInText.h"
#include "side/LookUpText.h"
#include "side/SideHanging.h"
#include "side/SubwindowFile.h"
#include "side/WaitNotice.h"

#include <QCheckBox>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <optional>
#include <string>
#include <string_view>

namespace velmarin {

class AnchoredLayout;
class BevelButton;
class MainWindowPort;
class PopupMenu;
class TextArea;
class TextFontBevelButton;
class TextSizeBevelButton;

/// What a side window uses. All but the host have values of their own that tests replace.
struct SideServices {
    Host& host;
    BusyState& busy;
    /// Where "temp.sh" is written.
    FolderItem preferencesFolder;
    DictionaryService dictionaries{};
    std::string wordsFolder{kWordsFolder};
    /// The desktop's own dialogue where none is given.
    FindBar::SelectColor selectColor{};
    WaitNotice::Clock clock = std::chrono::steady_clock::now;
};

/// The side window of one main window: gives text where that gives scanned pages. Its find bar finds a word in the
/// text, or looks it up in the dictionary service, in WORDS and in a user dictionary. It belongs to the main window's
/// QMainWindow, and is replaced by a new one at each opening.
class SubWindow : public QWidget {
    Q_OBJECT
  public:
    /// Its settings are those of the group that the main window shows now: that folder is kept.
    SubWindow(MainWindowPort& mainWindow, SideServices services, Hanging hanging);
    ~SubWindow() override;

    /// Takes its settings, and shows it at its main window, as high as that.
    void open();
    /// Writes the settings, hides the window, and destroys it: at once, or where a look-up runs, which is stopped, at
    /// the end of that.
    void shut();

    /// The one entry point of the find bar. A look-up is put off while something else runs.
    void mDoFind(bool alsoMainWindow);
    /// What the menu's commands "Dictionary" and "Find" do: gives `FindEF` the focus and sets the target; only finding
    /// selects the word.
    void takeTarget(FindTarget target);
    /// A query of the main window: looks it up here, whatever the find bar is set to, and leaves that setting alone.
    /// Nothing happens unless `SyncronizeCB` is on.
    void synchronise(const QString& query);

    /// True where WORDS answered; only then is the text changed. The caller holds a Busy guard.
    bool mLatinWORDS(std::string_view word);
    void mSearchUserDictionary(std::string_view word);
    void mMakeUserDicPU();
    void mMakeUserDictionary();

    /// The width of the settings.
    QSize sizeHint() const override { return {widthAtOpening_, height()}; }

    TextArea* EF() const { return EF_; }
    FindBar& findBar() const { return *findBar_; }
    Hanging hanging() const { return hanging_->hanging(); }
    int pFindStartPosition() const { return steps_.pFindStartPosition; }

  signals:
    /// Emitted after the settings are saved, however the window was closed.
    void closed();

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    class Running;
    enum class WordsRun { Answered, Stopped, Failed };

    void makeText();
    void makeChoices();
    void makeUserDictionaries();
    QCheckBox* checkBox(const char* name, const QString& caption, const QRect& place);
    void mSetPref();
    SubwindowSettings settings() const;
    void Event_Close();
    void Event_Activate();
    void goBackToMainWindow();
    void findStep();
    void lookUp(bool alsoMainWindow);
    void lookUpService(const QString& word);
    void whenFree(const std::function<void()>& action);
    WordsRun askWords(std::string_view word);
    void LatinCB_Action();
    void takeFocusToFindEF();

    MainWindowPort& MainWin_;
    SideServices services_;
    FolderItem groupFolder_;
    DictionaryModule module_;
    FindSteps steps_;
    AnchoredLayout* layout_;
    TextArea* EF_;
    FindBar* findBar_ = nullptr;
    TextFontBevelButton* BVfonts_ = nullptr;
    TextSizeBevelButton* BVsize_ = nullptr;
    QCheckBox* SyncronizeCB_ = nullptr;
    QCheckBox* DontClearCB_ = nullptr;
    QCheckBox* LatinCB_ = nullptr;
    QCheckBox* DicAppCB_ = nullptr;
    QCheckBox* UserDicCB_ = nullptr;
    BevelButton* UserDicBT_ = nullptr;
    PopupMenu* UserDicPU_ = nullptr;
    WaitNotice* notice_ = nullptr;
    QPointer<SideHanging> hanging_;
    /// Gives the focus back to the main window once the click that brought this one to the front is through: desktops
    /// refuse to activate a window on behalf of an older event than that.
    QTimer* goBack_;
    int widthAtOpening_;
    /// Nothing until the window is open.
    std::optional<SubwindowSettings> settingsAtOpening_;
    int running_ = 0;
    bool shut_ = false;
    bool findPutOff_ = false;
    /// The next activation was asked for by the window itself, and leaves the focus where it is.
    bool expectsFocus_ = false;
};

} // namespace velmarin
