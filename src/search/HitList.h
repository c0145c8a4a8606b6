#pragma once

#include "search/HitDisplay.h"

#include <QLabel>
#include <QObject>

#include <string>

namespace velmarin {

class AnchoredLayout;
class HitModel;
class ListBox;

/// The hit list of a large group, one row for each dictionary, and below the page the label for a hit without a
/// picture: shows a HitModel, and tells it which row the user chooses.
class HitList : public QObject, public HitDisplay {
    Q_OBJECT

  public:
    /// `LB` and `InfoST` are made as children of `parent` and placed by `layout`.
    /// @param tabPanel is moved to the right of the list when that is shown
    HitList(HitModel& hits, QWidget* tabPanel, QWidget* parent, AnchoredLayout& layout);

    void showList() override;
    void clearRows() override;
    void addRow(const std::string& text) override;
    void selectRow(int row) override;
    /// A message covers the page's lower edge, because the strip that the layout leaves for it is too low to read.
    void showInfo(const std::string& text, const std::string& reason) override;

  private:
    HitModel& hits_;
    AnchoredLayout& layout_;
    QWidget* tabPanel_;
    ListBox* LB_;
    QLabel* InfoST_;
};

} // namespace velmarin
