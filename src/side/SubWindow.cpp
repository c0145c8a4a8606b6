#include "side/SubWindow.h"

#include "controls/AnchoredLayout.h"
#include "controls/BevelButton.h"
#include "controls/PopupMenu.h"
#include "controls/QtText.h"
#include "controls/TextStyleBevelButton.h"
#include "side/MainWindowPort.h"
#include "side/TextArea.h"
#include "side/UserDictionary.h"
#include "side/UserDictionaryDisplay.h"
#include "side/UserDictionaryMaker.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMainWindow>
#include <QPointer>
#include <QTextBlock>

#include <algorithm>

namespace velmarin {

namespace {

constexpr int kMinimumWidth = 350;
constexpr int kMaximumSide = 32000;

/// Position from 1 of the first `word` in the text at or after `start`, paragraph by paragraph, so that nothing of the
/// text is copied but the paragraph looked at. A word is of one line.
int findInDocument(const QTextDocument& document, int start, const QString& word) {
    const QStringView wanted(word);
    const std::u16string_view find(wanted.utf16(), static_cast<std::size_t>(wanted.size()));
    const int from = std::max(start, 1) - 1;
    for (QTextBlock block = document.findBlock(from); block.isValid(); block = block.next()) {
        const QString paragraph = block.text();
        const QStringView text(paragraph);
        const int inBlock = findIgnoringCase(std::max(from - block.position(), 0) + 1,
                                             {text.utf16(), static_cast<std::size_t>(text.size())}, find);
        if (inBlock != 0)
            return block.position() + inBlock;
    }
    return 0;
}

/// Sets another target, and the former one again at its end, also where that is an exception.
class TargetForAWhile {
  public:
    TargetForAWhile(FindBar& bar, FindTarget target) : bar_(bar), before_(bar.target()) { bar_.setTarget(target); }
    ~TargetForAWhile() { bar_.setTarget(before_); }
    TargetForAWhile(const TargetForAWhile&) = delete;
    TargetForAWhile& operator=(const TargetForAWhile&) = delete;

  private:
    FindBar& bar_;
    FindTarget before_;
};

} // namespace

/// Held while the window runs something that lets events in: one that is shut meanwhile lives to the end of it.
class SubWindow::Running {
  public:
    explicit Running(SubWindow& window) : window_(window) { ++window_.running_; }
    ~Running() {
        if (--window_.running_ == 0 && window_.shut_)
            window_.deleteLater();
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    SubWindow& window_;
};

void SubWindow::shut() {
    if (shut_)
        return;
    shut_ = true;
    notice_->stop();
    Event_Close();
    delete hanging_;
    hide();
    if (running_ == 0)
        deleteLater();
    emit closed();
}

void SubWindow::whenFree(const std::function<void()>& action) {
    services_.busy.whenFree([self = QPointer<SubWindow>(this), action] {
        if (!self.isNull() && !self->shut_)
            action();
    });
}

void SubWindow::mDoFind(bool alsoMainWindow) {
    if (findBar_->target() == FindTarget::Find) {
        findStep();
        return;
    }
    if (!services_.busy.busy()) {
        lookUp(alsoMainWindow);
        return;
    }
    if (findPutOff_)
        return;
    findPutOff_ = true;
    whenFree([this, alsoMainWindow] {
        findPutOff_ = false;
        mDoFind(alsoMainWindow);
    });
}

void SubWindow::findStep() {
    const QString word = findBar_->FindEF()->text();
    const int length = static_cast<int>(word.size());
    const int position = steps_.step(length, [&](int start) { return findInDocument(*EF_->document(), start, word); });
    if (position != 0) {
        EF_->select(position - 1, length);
        EF_->setSelTextColor(findBar_->FindColorRect()->FillColor());
        // The line of the character behind the hit's first one.
        EF_->scrollToLineOf(position);
    }
    findBar_->showMiss(position == 0);
}

void SubWindow::lookUp(bool alsoMainWindow) {
    const Busy guard(services_.busy);
    const Running running(*this);
    const QString word = findBar_->FindEF()->text();
    const std::string utf8 = fromQ(word);
    if (alsoMainWindow) {
        MainWin_.setSearchText(utf8);
        MainWin_.searchAll(utf8);
    }
    if (word.isEmpty() || shut_)
        return;
    if (!DontClearCB_->isChecked())
        EF_->setWholeText(QString());
    const int start = EF_->textLength();
    if (DicAppCB_->isChecked())
        lookUpService(word);
    if (LatinCB_->isChecked() && !shut_)
        mLatinWORDS(utf8);
    if (UserDicCB_->isChecked() && !shut_)
        mSearchUserDictionary(utf8);
    EF_->scrollToLineOf(start);
}

void SubWindow::lookUpService(const QString& word) {
    const std::string utf8 = fromQ(word);
    const std::string answer = services_.dictionaries.TextDefinition(utf8, 0, static_cast<int>(word.size()),
                                                                     [this] { services_.host.Yield(); });
    if (shut_)
        return;
    // Only now: the user may have typed into the text meanwhile.
    const int end = EF_->textLength();
    EF_->select(end, 0);
    // A hit at the end of the text is painted, and the answer is not part of it.
    EF_->clearSelTextColor();
    EF_->setSelText(toQ(serviceBlock(utf8, answer)));
    EF_->scrollToLineOf(end);
}

bool SubWindow::mLatinWORDS(std::string_view word) {
    return askWords(word) == WordsRun::Answered;
}

SubWindow::WordsRun SubWindow::askWords(std::string_view word) {
    const Running running(*this);
    notice_->begin();
    const ScriptResult result = runWords(
        services_.preferencesFolder, word,
        [this] {
            services_.host.Yield();
            return notice_->goOn() && !shut_ && !services_.busy.stopWanted();
        },
        services_.wordsFolder);
    notice_->end();
    if (result.end == ScriptResult::End::Stopped)
        return WordsRun::Stopped;
    if (!result.ok())
        return WordsRun::Failed;
    const int end = EF_->textLength();
    EF_->setWholeText(EF_->Text() + toQ(wordsBlock(result.output)));
    EF_->scrollToLineOf(end);
    return WordsRun::Answered;
}

void SubWindow::mSearchUserDictionary(std::string_view word) {
    const int row = UserDicPU_->ListIndex();
    if (!UserDicCB_->isChecked() || row == -1)
        return;
    const Running running(*this);
    const auto dictionary = std::any_cast<FolderItem>(UserDicPU_->Tag(row));
    const std::string name = UserDicPU_->List(row);
    if (module_.mSearch(dictionary, word, 2, false, [this] { services_.host.Yield(); }))
        mDisplayResult(module_, name, false, nullptr, EF_, services_.host);
}

void SubWindow::synchronise(const QString& query) {
    if (!SyncronizeCB_->isChecked() || shut_)
        return;
    if (services_.busy.busy()) {
        whenFree([this, query] { synchronise(query); });
        return;
    }
    const Running running(*this);
    const TargetForAWhile target(*findBar_, FindTarget::DicApp);
    findBar_->FindEF()->setText(query);
    mDoFind(false);
}

void SubWindow::takeTarget(FindTarget target) {
    takeFocusToFindEF();
    if (target == FindTarget::Find)
        findBar_->FindEF()->selectAll();
    findBar_->setTarget(target);
}

void SubWindow::takeFocusToFindEF() {
    if (hanging() == Hanging::Window && !isActiveWindow()) {
        expectsFocus_ = true;
        activateWindow();
    }
    findBar_->FindEF()->setFocus();
}

void SubWindow::LatinCB_Action() {
    if (!LatinCB_->isChecked())
        return;
    if (services_.busy.busy()) {
        whenFree([this] { LatinCB_Action(); });
        return;
    }
    const Running running(*this);
    WordsRun run{};
    {
        const Busy guard(services_.busy);
        run = askWords("");
    }
    if (run == WordsRun::Answered || shut_)
        return;
    if (run == WordsRun::Failed)
        // There is no address to open for either answer.
        services_.host.askYesNo("To use this function, you have to install Words made by Mr. Ansel Corrigan. Do you "
                                "want to go to his home page ?\r");
    LatinCB_->setChecked(false);
}

void SubWindow::mMakeUserDictionary() {
    const Running running(*this);
    makeUserDictionaryByDialogue(groupFolder_, MainWin_, services_.host, services_.busy);
}

void SubWindow::mMakeUserDicPU() {
    if (!UserDicCB_->isChecked())
        return;
    const FolderItem folder = groupFolder_.Child(kUserDictionariesFolder);
    if (!folder.Exists())
        return;
    const Busy guard(services_.busy);
    const Running running(*this);
    const int row = UserDicPU_->ListIndex();
    UserDicPU_->DeleteAllRows();
    for (const FolderItem& link : folder.items()) {
        const FolderItem item = link.resolved();
        if (item.Visible() && item.Directory())
            UserDicPU_->AddRow(item.Name(), item);
        services_.host.Yield();
    }
    UserDicPU_->setListIndexQuietly(row);
}

void SubWindow::Event_Activate() {
    if (std::exchange(expectsFocus_, false))
        return;
    // A click on a field or on a button that moves the focus or opens a menu is let have its way.
    QWidget* under = childAt(mapFromGlobal(QCursor::pos()));
    for (; under != nullptr && under != this; under = under->parentWidget())
        if (under->isEnabled() && under->focusPolicy() != Qt::NoFocus && qobject_cast<QCheckBox*>(under) == nullptr)
            return;
    goBack_->start();
}

void SubWindow::goBackToMainWindow() {
    if (isActiveWindow() && !shut_)
        MainWin_.focusSearch(false);
}

void SubWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isWindow() || shut_)
        return;
    if (isActiveWindow())
        Event_Activate();
    else
        goBack_->stop();
}

void SubWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    shut();
}

SubwindowSettings SubWindow::settings() const {
    SubwindowSettings settings;
    settings.width = hanging_->width();
    settings.fontRow = BVfonts_->MenuValue();
    settings.sizeRow = BVsize_->MenuValue();
    settings.DicAppCB = DicAppCB_->isChecked();
    settings.LatinCB = LatinCB_->isChecked();
    settings.target = findBar_->target();
    settings.SyncronizeCB = SyncronizeCB_->isChecked();
    settings.DontClearCB = DontClearCB_->isChecked();
    settings.UserDicCB = UserDicCB_->isChecked();
    settings.userDicRow = UserDicPU_->ListIndex();
    return settings;
}

void SubWindow::Event_Close() {
    // Shut while it still took its settings, it has none to save.
    if (!settingsAtOpening_)
        return;
    const SubwindowSettings now = settings();
    const Result written = writeSubwindow(groupFolder_, now);
    // The next opening gives the same window again, so nothing is lost.
    if (!written && now == *settingsAtOpening_)
        return;
    MainWin_.noteWritten(subwindowFile(groupFolder_).path().string(), written);
}

void SubWindow::mSetPref() {
    const auto settings = readSubwindow(groupFolder_);
    if (!settings)
        return;
    widthAtOpening_ = std::clamp(settings->width, kMinimumWidth, kMaximumSide);
    BVfonts_->setMenuValue(settings->fontRow);
    BVsize_->setMenuValue(settings->sizeRow);
    DicAppCB_->setChecked(settings->DicAppCB);
    LatinCB_->setChecked(settings->LatinCB);
    findBar_->setTarget(settings->target);
    SyncronizeCB_->setChecked(settings->SyncronizeCB);
    DontClearCB_->setChecked(settings->DontClearCB);
    UserDicCB_->setChecked(settings->UserDicCB);
    UserDicPU_->setEnabled(settings->UserDicCB);
    if (settings->userDicRow) {
        mMakeUserDicPU();
        UserDicPU_->setListIndexQuietly(*settings->userDicRow);
    }
    BVfonts_->ApplySelection();
    BVsize_->ApplySelection();
}

} // namespace velmarin
