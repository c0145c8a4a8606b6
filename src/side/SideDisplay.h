#pragma once

#include "side/AnswerText.h"
#include "side/SubwindowFile.h"

#include <cstddef>
#include <string>

namespace velmarin {

/// What a SideModel tells the window that shows it.
class SideDisplay {
  public:
    virtual ~SideDisplay() = default;

    /// Shows the sources, the switches, and the rows of the font and size menus.
    virtual void showSettings(const SubwindowSettings& settings) = 0;
    /// Gives the text the font and size of the menus.
    virtual void applyTextStyle() = 0;
    /// `row` is that of the source table.
    virtual void showSource(std::size_t row, bool isOn) = 0;

    /// The picture of `FindBV`.
    virtual void showTarget(FindTarget target) = 0;
    /// The text of `FindEF`.
    virtual void showWord(const std::string& word) = 0;
    /// The color of the word: gray after a miss, otherwise black.
    virtual void showMiss(bool missed) = 0;
    /// The color of `FindColorRect`.
    virtual void showHitColor(TextColor color) = 0;

    // The rows of `UserDicPU`.
    virtual void clearUserDictionaries() = 0;
    virtual void addUserDictionary(const std::string& name) = 0;
    virtual void chooseUserDictionary(int row) = 0;

    /// Shows that `program` is waited for. Called repeatedly during one wait, because the covered control may move.
    virtual void showWait(const std::string& program) = 0;
    virtual void hideWait() = 0;
    /// The model is shut and nothing of it runs any more: the window may be destroyed after this call.
    virtual void release() = 0;
};

} // namespace velmarin
