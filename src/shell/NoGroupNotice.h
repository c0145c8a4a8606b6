#pragma once

#include <QLabel>

#include <string>

namespace velmarin {

class AnchoredLayout;

/// The text on the empty page of a window without a group: why there is none, and which word waits for one; or, while a
/// group is read, the progress. Hidden if all are empty.
class NoGroupNotice {
  public:
    NoGroupNotice(QWidget* parent, AnchoredLayout& layout);

    /// Replaces the reason; an empty one removes it.
    void setReason(std::string reason);
    /// Shows the progress of a reading in place of the other texts; an empty text ends it.
    void setProgress(std::string progress);
    /// Keeps a word that is to be searched in the group that is picked next.
    void setWaitingWord(std::string word);
    /// Returns and forgets the waiting word; empty for none.
    std::string takeWaitingWord();

  private:
    void show();

    QLabel* NoticeST_;
    std::string reason_;
    std::string progress_;
    std::string word_;
};

} // namespace velmarin
