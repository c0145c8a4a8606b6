#pragma once

#include "search/WindowState.h"

#include <QLabel>
#include <QObject>

#include <string>

namespace velmarin {

class AnchoredLayout;
class ListBox;
class PageDeck;

/// The hit list of a large group: one row for each dictionary, and below the page the label that tells of a hit
/// without a picture. Choosing a row shows that hit's page in the single tab.
class HitList : public QObject {
    Q_OBJECT

  public:
    /// `LB` and `InfoST` are made as children of `parent` and placed by `layout`.
    HitList(WindowState& state, PageDeck& deck, QWidget* parent, AnchoredLayout& layout);

    ListBox* LB() const { return LB_; }
    QLabel* InfoST() const { return InfoST_; }

    /// Shows or empties the label; the `reason` follows in its tool tip and its description. While it says something it
    /// stands over the page's lower edge: the strip that the layout leaves for it is too low to read.
    void setInfo(const std::string& text, const std::string& reason = {});

  private:
    void LB_Change();
    void showHit(const HitItem& hit);

    WindowState& state_;
    PageDeck& deck_;
    AnchoredLayout& layout_;
    ListBox* LB_;
    QLabel* InfoST_;
};

} // namespace velmarin
