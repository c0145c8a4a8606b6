#pragma once

#include <QLabel>

#include <string>

namespace velmarin {

class AnchoredLayout;

/// What a window without a group has to say, on its empty page: why there is none, and which word waits for one.
/// Hidden where there is nothing to say.
class NoGroupNotice {
  public:
    NoGroupNotice(QWidget* parent, AnchoredLayout& layout);

    /// The reason replaces the one before; an empty one is none.
    void tell(std::string reason);
    /// The word is to be searched in the group that is picked next.
    void waitFor(std::string word);
    /// The word that waits, which it then no longer does; empty for none.
    std::string takeWord();

  private:
    void show();

    QLabel* NoticeST_;
    std::string reason_;
    std::string word_;
};

} // namespace velmarin
